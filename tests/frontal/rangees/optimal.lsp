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
  "à la station 1000.000 l'extrémité est à" "hors de 0.80 à 1.40")
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
(dit (setq l (plv-optimal-sommets p "Assainissement" depart '(100.0) maximum 0.8 nil)) dit-on
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
(dit (setq l (plv-optimal-sommets p "Assainissement" '(0.0) '(100.0) 1.0 2.0 nil))
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

(situation "WhyThereIsNoLine")
(refuse (plv-optimal-sommets p "Projet" '(0.0 49.0) '(100.0 38.7) 0.8 1.2 nil)
  "à la station 1100.000 l'extrémité est à 1.300 m de profondeur, hors de 0.80 à 1.20")
(refuse (plv-optimal-sommets p "Projet" '(50.0) '(20.0) 0.8 1.6 nil) "de gauche à droite")
(preparer (plv-ecrire-terrain p '((0.0 50.0) (60.0 45.0) (40.0 46.0) (100.0 40.0))))
(refuse (plv-optimal-sommets p "Projet" '(0.0) '(100.0) 0.8 1.6 nil) "le terrain revient en arrière à la station 1040.000")
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
