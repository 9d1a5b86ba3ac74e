;; PLV-OPTIMAL: the line that it proposes and attaches, the stretches that leave the band, its questions. The ground falls from
;; 50 to 40 m over 100 m, in sections with planes of their own.

(commun
  (fichier "g.csv" "distance;altitude;nom\n1000;50;A\n1040;46;\n1060;44.5;B\n1100;40;C\n")
  (preparer (setq p (plv-nouveau "<dossier>g.csv" "P1" '(0.0 0.0 0.0) 10.0 2.5 60.0 nil))))

(situation "StaysInTheBandAndIsAttached")
(dit (setq l (plv-optimal p "Assainissement" '(0.0 49.0) '(100.0 39.0) 0.8 1.2 nil))
  "Toute la ligne est dans les profondeurs demandées.")
((list (car l) (plv-dernier l)) ((0.0 49.0) (100.0 39.0)))
;; vertices once each, attached, and nothing of the search left
((= (length l) (length (plv-uniques l))) T)
((= (length (plv-elements-du-projet p "Assainissement")) (length (plv-plans p))) T)
((ssget "X" '((0 . "LINE") (62 . 1))) nil)
;; the greater depth may come first
((equal l (plv-optimal p "Assainissement" '(0.0 49.0) '(100.0 39.0) 1.2 0.8 nil) 1e-9) T)

(situation "TellsWhereItLeavesTheBand")
;; It starts 0.2 m below the ground.
(dit (plv-optimal p "Projet" '(0.0 49.8) '(100.0 39.0) 0.8 1.2 T)
  "Hors des profondeurs demandées:" "1000.000" "0.200      -0.600")
;; The segments that were tried stay: at abscissa and altitude, not in the graphic.
((> (length (vl-remove-if-not '(lambda (e) (equal (caddr (assoc 10 (entget e))) 49.8 1e-6))
              (plv-entites-du-jeu (ssget "X" '((0 . "LINE")))))) 1) T)

;; From change of plane to change of plane, and between ground points: the ground beyond the ends has no effect.
(situation "MayCoverAPartOfTheProfile")
(tableau (debut fin) (0.0 (cadr d)) ((cadr d) 100.0) (13.5 71.25) (45.0 55.0))
(preparer
  (setq d (mapcar 'car (plv-plans p)))
  (setq bouts (mapcar '(lambda (x) (list x (- (plv-altitude-ligne (plv-points-tn p) x) 1.0))) (list debut fin)))
  (setq n (length (plv-profils))))
((not (cdr d)) nil)
(dit (setq l (plv-optimal p "Projet" (car bouts) (cadr bouts) 0.8 1.2 nil)) "Toute la ligne est dans les profondeurs demandées.")
((equal (list (car l) (plv-dernier l)) bouts) T)
((= n (length (plv-profils))) T)

(situation "DropsBelowAWall")
(fichier "mur.csv" "distance;altitude\n0;50\n40;49\n40;45\n100;44\n")
(preparer
  (entdel p)
  (setq p (plv-nouveau "<dossier>mur.csv" "P1" '(0.0 0.0 0.0) 10.0 2.5 150.0 nil)))
(dit (setq l (plv-optimal p "Assainissement" '(0.0 48.5) '(100.0 42.5) 1.0 2.0 nil))
  "Toute la ligne est dans les profondeurs demandées.")
((list (length l) (length (plv-elements-du-projet p "Assainissement"))) (4 2))
(dit (plv-metres nil "Assainissement" nil nil) ": juste.")

(situation "WhatCannotBeIsRefused")
(refuse (plv-optimal p "Projet" '(50.0 45.0) '(20.0 47.0) 0.8 1.6 nil) "de gauche à droite")
(refuse (plv-optimal p "Projet" '(50.0 45.0) '(150.0 30.0) 0.8 1.6 nil) "dans le profil")
(refuse (plv-optimal p "Projet" '(50.0 45.0) '(50.0000001 45.0) 0.8 1.6 nil) "de gauche à droite")
(refuse (plv-optimal p "TN" '(0.0 49.0) '(100.0 39.0) 0.8 1.6 nil) "un genre de projet est attendu")
(preparer (entmod (list (assoc -1 (entget p)) '(-3 ("KELMONT_PLV2")))))
(refuse (plv-optimal p "Projet" '(0.0 49.0) '(100.0 39.0) 0.8 1.6 nil) "pas de terrain naturel")
((plv-elements-du-projet p "Projet") nil)

(situation "AsksUntilItUnderstands")
(tape ("PLV-OPTIMAL" "A" "0.8" "1.2" "abc" "900,1" "1000,1" "" "Non")
  "départ ou [Pointer/Libre] <1000.00,1.00>"
  "Deux nombres séparés par une virgule sont attendus" "Les stations du profil vont de 1000.00 à 1100.00."
  "Toute la ligne est dans les profondeurs demandées.")
(preparer (setq avant (plv-elements-du-projet p "Assainissement")))
;; a cancel at any question leaves the line that is there
(tape ("PLV-OPTIMAL"))
((equal avant (plv-elements-du-projet p "Assainissement")) T)
(tape ("PLV-OPTIMAL" "A"))
((equal avant (plv-elements-du-projet p "Assainissement")) T)
(tape ("PLV-OPTIMAL" "A" "Remplacer"))
((equal avant (plv-elements-du-projet p "Assainissement")) T)
(tape ("PLV-OPTIMAL" "A" "Remplacer" "0.8"))
((equal avant (plv-elements-du-projet p "Assainissement")) T)
(tape ("PLV-OPTIMAL" "A" "Remplacer" "0.8" "1.4"))
((equal avant (plv-elements-du-projet p "Assainissement")) T)
(tape ("PLV-OPTIMAL" "A" "Remplacer" "0.8" "1.4" "P"))
((equal avant (plv-elements-du-projet p "Assainissement")) T)
(tape ("PLV-OPTIMAL" "A" "Remplacer" "0.8" "1.4" "P" "0,120"))
((equal avant (plv-elements-du-projet p "Assainissement")) T)
(tape ("PLV-OPTIMAL" "A" "Remplacer" "0.8" "1.4" "P" "0,120" ""))
((equal avant (plv-elements-du-projet p "Assainissement")) T)
;; 12 m above the plane the start is far below the band: the search proposes a line all the same
(tape ("PLV-OPTIMAL" "A" "Remplacer" "0.8" "1.4" "P" "0,120" "" "Non") "arrivée ou [Pointer/Libre] <1100.00,1.10>"
  "à la station 1000.000: profondeur minimale 0.80 et extrémité à l'altitude 56.00 se contredisent; il manque 6.800 m")
((equal avant (plv-elements-du-projet p "Assainissement")) T)
(tape ("PLV-OPTIMAL" "A" "Remplacer" "M" "Recherche" "0.8" "1.4" "P" "0,120" "" "Non") "arrivée ou [Pointer] <1100.00,1.10>")
((vl-some 'entget avant) nil)
;; the picked start: 12 m above the plane
((equal (cadar (car (plv-projet-sommets p "Assainissement")))
        (+ 12.0 (cadar (plv-plans p))) 1e-9)
 T)
((equal (plv-altitude-projet p (mapcar '(lambda (e) (list 0.0 100.0 e)) (plv-elements-du-projet p "Assainissement")) (plv-plans p) 0.0) 0.0)
 nil)

;; In a band 0.4 m high no single run passes: over 60 m it would have to be 0.1 m above the line through the highest ends.
;; With 0.5 m there is exactly one, which touches the band three times.
(situation "TheFewestVertices")
(tableau (maximum depart sommets dit-on)
  (1.2 '(0.0) 3 "Un sommet de moins est impossible") (1.2 '(0.0 49.0) 3 "Un sommet de moins est impossible")
  (1.3 '(0.0) 2 "chaque partie est d'une seule droite") (1.3 '(0.0 49.2) 2 "chaque partie est d'une seule droite")
  (1.3 '(0.0 49.1) 3 "Un sommet de moins est impossible"))
(dit (setq l (plv-optimal-sommets p "Assainissement" (plv-souhait depart '(100.0) maximum 0.8 nil nil) nil)) dit-on
  "Toute la ligne est dans les profondeurs demandées.")
((length l) sommets)
((list (caar l) (car (plv-dernier l))) (0.0 100.0))
((if (cdr depart) (equal (cadar l) (cadr depart) 1e-9) T) T)
((= (length (plv-elements-du-projet p "Assainissement")) (length (plv-plans p))) T)
(dit (plv-metres nil "Assainissement" nil nil) ": juste.")

;; The ground falls by 4 m at 40 m, more than the band is high; by 0.5 m at 70 m, which a line passes.
(situation "OnlyAHighWallEndsTheLine")
(fichier "murs.csv" "distance;altitude\n0;50\n40;49\n40;45\n70;44.5\n70;44\n100;43.5\n")
(preparer
  (entdel p)
  (setq p (plv-nouveau "<dossier>murs.csv" "P1" '(0.0 0.0 0.0) 10.0 2.5 150.0 nil)))
(dit (setq l (plv-optimal-sommets p "Assainissement" (plv-souhait '(0.0) '(100.0) 1.0 2.0 nil nil) nil))
  "elle est en 2 parties" "Toute la ligne est dans les profondeurs demandées." "chaque partie est d'une seule droite")
((list (length l) (length (plv-elements-du-projet p "Assainissement"))) (4 2))
(dit (plv-metres nil "Assainissement" nil nil) ": juste.")

(situation "TheCorridorIsDrawnOnce")
(preparer (defun traits () (length (plv-entites-du-jeu (ssget "X" '((8 . "PLV-COULOIR")))))))
(tape ("PLV-OPTIMAL" "A" "0.8" "1.2" "Libre" "1100,L" "Oui") "arrivée ou [Pointer/Libre] <1100.00,1.00>" "Ligne optimale: 3 sommets")
(preparer (setq n (traits)))
((> n 2) T)
(tape ("PLV-OPTIMAL" "A" "" "0.8" "1.2" "l" "libre" "Oui") "Ligne optimale: 3 sommets")
((= n (traits)) T)

;; The ground falls 10 % in the mean. Through 43.5 at 60 m a run to the left is too high at 40 m or too low at the start, and a run to
;; the right, which falls 10.75 % at least, can't begin before 53 m: that makes three.
(situation "KeepsToConstraints")
(tableau (c sommets)
  ('(("pente" -0.12 -0.09)) 3) ('(("pente" -0.105 -0.09)) 3) ('(("point" 1060.0 43.5 43.5)) 4)
  ('(("croisement" 1079.0 1081.0 41.3 41.45)) 3) ('(("longueur" 45.0)) 3) ('(("arrondi" 0.25 0.0)) 4))
(preparer (setq s (plv-souhait '(0.0) '(100.0) 0.8 1.2 c nil)))
(dit (setq l (plv-optimal-sommets p "Assainissement" s nil)) "Toute la ligne est dans les profondeurs demandées.")
((length l) sommets)
(preparer (setq nom (car (car c)) v (cdr (car c)) pentes (mapcar 'plv-pente l (cdr l))))
((or (/= nom "pente") (<= (- (car v) 1e-9) (apply 'min pentes) (apply 'max pentes) (+ (cadr v) 1e-9))) T)
((or (/= nom "point") (equal (plv-altitude-ligne l 60.0) 43.5 1e-9)) T)
((or (/= nom "croisement") (>= (plv-altitude-ligne l 79.0) 41.4499) (<= (plv-altitude-ligne l 79.0) 41.3001)) T)
((or (/= nom "longueur") (> (apply 'min (mapcar '(lambda (a b) (- (car b) (car a))) l (cdr l))) 44.999)) T)
((or (/= nom "arrondi") (vl-every '(lambda (q) (equal (* 4 (cadr q)) (fix (+ 0.1 (* 4 (cadr q)))) 1e-6)) l)) T)

(situation "RoundSlopes")
(tableau (ligne altitudes) (";;arrondi;0;0.25" nil) (";;arrondi;0.01;0.1" T))
(preparer (setq c (plv-contrainte ligne)))
(dit (setq l (plv-optimal-sommets p "Assainissement" (plv-souhait '(0.0) '(100.0) 0.8 1.4 (list c) nil) nil)) "Toute la ligne est dans les profondeurs demandées.")
(preparer (setq pas (mapcar '(lambda (a b) (/ (plv-pente a b) (caddr c))) l (cdr l))))
((vl-every '(lambda (n) (equal n (fix (+ n (if (< n 0) -0.5 0.5))) 1e-6)) pas) T)
((or (not altitudes) (vl-every '(lambda (q) (equal (* 100 (cadr q)) (fix (+ 0.5 (* 100 (cadr q)))) 1e-6)) (plv-sans-dernier l))) T)

;; A wish costs no vertex: the ground of the two runs has slopes from about -10.5 to -9.5 %, so that steps of 5 % leave -10 alone.
(situation "RoundSlopesAreAWish")
(tableau (pas maximum sommets dit-on)
  (0.001 1.3 2 "Les pentes sont des multiples de 0.10 %, sans un sommet de plus.") (0.05 1.2 3 "Aucune ligne d'aussi peu de sommets")
  (0.01 1.2 3 "Les pentes sont des multiples de 1.00 %, sans un sommet de plus."))
(preparer (setq s (plv-souhait '(0.0) '(100.0) 0.8 maximum nil nil)))
((length (plv-optimal-sommets p "Voirie" s nil)) sommets)
(dit (setq l (plv-optimal-sommets p "Assainissement" (plv-souhait-rond s pas) nil)) dit-on "Toute la ligne est dans les profondeurs demandées.")
((length l) sommets)
((or (= pas 0.05) (vl-every '(lambda (a b) (equal (/ (plv-pente a b) pas) (fix (- (/ (plv-pente a b) pas) 0.5)) 1e-6)) l (cdr l))) T)
(tape ("PLV-OPTIMAL" "A" "" "Rondes" "0.5" "0.8" "1.4" "l" "libre" "Non") "multiples en % de <0.10>" "Les pentes sont des multiples de 0.50 %")

(situation "OtherDepthsByStretches")
(dit (plv-optimal-sommets p "Projet" (plv-souhait '(0.0) '(100.0) 0.8 1.6 '(("profondeur" 1050.0 1100.0 1.5 2.0)) nil) nil)
  "profondeurs demandées 0.80 à 1.60 m, d'autres par endroits." "Toute la ligne est dans les profondeurs demandées.")
(refuse (plv-optimal-sommets p "Projet" (plv-souhait '(0.0) '(100.0) 0.8 1.6 '(("profondeur" 1050.0 1100.0 2.0 2.5)) nil) nil)
  "à la station 1050.000: profondeur minimale 2.00 et profondeur maximale 1.60 se contredisent; il manque 0.400 m")

;; From 49.2 at the start a fall of 12 % comes to 37.2 at the end, and the band begins at 38.8.
(situation "TheContradictionAndTheLineThatLeavesLeast")
(preparer (setq c '(("pente" -0.2 -0.12))))
(refuse (plv-optimal-sommets p "Assainissement" (plv-souhait '(0.0) '(100.0) 0.8 1.2 c nil) nil)
  "de 1000.000 à 1100.000: descente de 12.00 % au moins, profondeur minimale 0.80 et profondeur maximale 1.20 se contredisent; il manque 1.600 m."
  "de 0.800 m au plus")
((plv-elements-du-projet p "Assainissement") nil)
(dit (setq l (plv-optimal-sommets p "Assainissement" (plv-souhait '(0.0) '(100.0) 0.8 1.2 c T) nil))
  "se contredisent" "Hors des profondeurs demandées:" "0.000      -0.800" "2.000       0.800")
((equal l '((0.0 50.0) (100.0 38.0)) 1e-6) T)

(situation "ConstraintsAreTypedOrReadFromAFile")
(fichier "c.txt" "station;fin;contrainte;valeurs
# la rue

;;Pente;8;12;descend;
1060;;point;43,5
1050;1100;profondeur;0.8;1.3
")
((plv-lire-contraintes "<dossier>c.txt") (("pente" -0.12 -0.08) ("point" 1060.0 43.5 43.5) ("profondeur" 1050.0 1100.0 0.8 1.3)))
(tape ("PLV-OPTIMAL" "A" "C" "<dossier>c.txt" "1020;;croisement;2;48;48.4;0.2" "1020;;croisement;2;48;48.4;0.2;0.1" "rien.txt" "" "0.8" "1.2" "L" "L" "Non")
  "station;;croisement;largeur;altitude basse;altitude haute;dégagement dessous;dégagement dessus attendu"
  "fichier introuvable: rien.txt" "Ligne optimale: 4 sommets, profondeurs demandées 0.80 à 1.20 m, d'autres par endroits." "Pentes de -1" " à -8.")
(tape ("PLV-OPTIMAL" "A" "" "Contraintes" ";;pente;12;20;descend" "" "Méthode" "Approchée" "0.8" "1.2" "L" "L" "Non")
  "il manque 1.600 m" "Ligne optimale: 2 sommets")

(situation "ConstraintsThatAreNotUnderstood")
(tableau (ligne attendu)
  ("120;186;profondeur;2;1" "station;fin;profondeur") ("186;120;profondeur;1;2" "station;fin;profondeur") ("120;;profondeur;1;2" "profondeur")
  (";;pente;0.5;8;libre" "pente") (";;pente;0.5;8" "pente") (";;pente;8;0.5;monte" "pente") (";;pente;a;8;monte" "pente") ("5;;pente;0;8;libre" "pente")
  ("x;;point;3" "point") (";;point;3" "point") ("5;;point;4;3" "point") ("5;;point" "point") ("5;6;point;4" "point")
  (";;longueur;0" "longueur") (";;arrondi;-1" "arrondi") (";;arrondi;0;0" "arrondi") (";;arrondi;0.1;x" "arrondi") ("5;;croisement;0;1;2;0;0" "croisement") ("5;;croisement;1;2;1;0;0" "croisement")
  ("5;;ponte;3" "une contrainte est attendue") ("5" "une contrainte est attendue") ("pente" "une contrainte est attendue"))
(preparer (texte-ecrire "<dossier>faux.txt" (list ";;longueur;5" ligne)))
(refuse (plv-lire-contraintes "<dossier>faux.txt") "faux.txt, ligne 2 illisible" attendu)
(preparer (texte-ecrire "<dossier>faux.txt" (list "# rien")))
(refuse (plv-lire-contraintes "<dossier>faux.txt") "aucune contrainte")

(situation "WhyThereIsNoLine")
(refuse (plv-optimal-sommets p "Projet" (plv-souhait '(0.0 49.0) '(100.0 38.7) 0.8 1.2 nil nil) nil)
  "à la station 1100.000: extrémité à l'altitude 38.70 et profondeur maximale 1.20 se contredisent; il manque 0.100 m"
  "0.050 m au plus (méthode Approchée)")
;; a constraint beside the line would count for nothing
(refuse (plv-optimal-sommets p "Projet" (plv-souhait '(0.0) '(100.0) 0.8 1.6 '(("point" 60.0 44.0 44.0)) nil) nil)
  "la contrainte point à la station 60.000 n'est pas entre le départ et l'arrivée")
(refuse (plv-optimal-sommets p "Projet" (plv-souhait '(0.0) '(50.0) 0.8 1.6 '(("croisement" 1051.0 1053.0 1.0 2.0)) nil) nil)
  "la contrainte croisement à la station 1052.000")
(refuse (plv-optimal-sommets p "Projet" (plv-souhait '(50.0) '(20.0) 0.8 1.6 nil nil) nil) "de gauche à droite")
(preparer (plv-ecrire-terrain p '((0.0 50.0) (60.0 45.0) (40.0 46.0) (100.0 40.0))))
(refuse (plv-optimal-sommets p "Projet" (plv-souhait '(0.0) '(100.0) 0.8 1.6 nil nil) nil) "le terrain revient en arrière à la station 1040.000")
((plv-elements-du-projet p "Projet") nil)

;; Enter at both ends: the line begins and ends in the middle of the band.
(situation "TheEndsAreProposedInTheMiddleOfTheBand")
(tape ("PLV-OPTIMAL" "A" "2" "3" "" "" "Non") "<1000.00,2.50>" "<1100.00,2.50>")
(preparer
  (setq situes (plv-elements-situes p "Assainissement"))
  (defun z (d) (plv-altitude-projet p situes (plv-plans p) d)))
((and (equal (z 0.0) 47.5 1e-6) (equal (z 100.0) 37.5 1e-6)) T)

;; Rounding puts a vertex that stands on its plane below it by a hundred-millionth of a millimetre: nothing to tell.
(situation "ALineOnItsPlaneIsNotBelowIt")
(fichier "p.csv" "distance;altitude\n0;101.1\n33.3;100.1\n70;100.1\n100;101.1\n")
(tableau (profondeur descend) (1.0 "") (1.01 "À la station 50.000 elle descend sous le plan"))
(preparer (setq q (plv-nouveau "<dossier>p.csv" "Q" '(652000.37 6861234.5 0.0) 10.0 2.5 200.0 '((0.0 96.99) (50.0 99.1)))))
(dit (plv-optimal q "Voirie" '(0.0 100.1) '(100.0 100.1) profondeur profondeur nil) descend "Ligne optimale")
(preparer (setq q (plv-nouveau "<dossier>p.csv" "R" '(652000.37 6861234.5 0.0) 10.0 2.5 200.0 '((0.0 96.99) (50.0 99.1)))))
(dit (plv-optimal q "Voirie" '(0.0 100.1) '(100.0 100.1) 1.0 1.0 nil) (sauf "descend"))
