;; PLV-RESEAU: networks kept with a profile, drawn under the exaggeration, told what is odd about them. The ground falls from 50 to 48 m over
;; 100 m, the first station is 1000, a metre is drawn ten high; the sewer lies 2 m below with a drop of half a metre at 1040.

(commun
  (fichier "g.csv" "distance;altitude\n1000;50\n1100;48\n")
  (fichier "r.csv" "# essai\nregard;A;1000;visite;1000/1200\nregard;B;1040;chute;1000/1200;49.5\nregard;C;1+100;visite;800;;;;45.3\ntuyau;A;C;400/500;béton;135A\ncroisement;gaz;1020;48.9;200;30\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "P1" '(0.0 0.0 0.0) 10.0 2.5 150.0 nil))
    (plv-projet p "Assainissement" '((1000.0 48.0) (1040.0 47.2)))
    (plv-projet p "Assainissement" '((1040.0 46.7) (1100.0 45.5)))
    (defun reseau () (plv-reseau-ecrire p "Assainissement" (plv-lire-lignes "<dossier>r.csv")))
    (defun traces (quoi) (vl-remove-if-not '(lambda (e) (= (plv-type e) quoi)) (plv-traces-reseau p "Assainissement")))
    (defun boites (quoi) (mapcar '(lambda (e) (mapcar '(lambda (c) (list (car c) (cadr c))) (etendue-tracee (list e)))) (traces quoi)))
    (defun ecrit (texte) (vl-some '(lambda (e) (= (plv-cle 1 (entget e)) texte)) (traces "TEXT")))))

;; Covers come from the ground, inverts from the line on the side of each pipe.
(situation "AltitudesFollowGroundAndLine")
(preparer (setq r (reseau)))
((mapcar 'plv-noeud-tampon (plv-reseau-regards r)) (50.0 49.5 48.0))
((mapcar '(lambda (n) (list (plv-noeud-arrivee n) (plv-noeud-depart n) (plv-noeud-fond n))) (plv-reseau-regards r))
 ((nil 48.0 48.0) (47.2 46.7 46.7) (45.5 nil 45.3)))
((equal (mapcar 'plv-tuyau-pente (plv-reseau-tuyaux r)) '(-0.02 -0.02) 1e-9) T)
;; one row for each pipe, and the same network of them again
((length (vl-remove-if-not '(lambda (l) (wcmatch l "tuyau;*")) (plv-reseau-rangees p "Assainissement"))) 2)
((equal (et_reseau_rangees (plv-reseau-rangees p "Assainissement")) (plv-reseau-rangees p "Assainissement")) T)

;; From wall to wall; inner diameter 0.40 is 4 high, the wall of 0.05 is 0.5 and seen; a manhole from its bottom to its cover.
(situation "DrawnAsItIs")
(preparer (reseau) (setq h (- (cadr (plv-vers-dessin (plv-cadre p) 0.0 0.0)))))
((length (vl-remove-if-not '(lambda (e) (= (plv-cle 8 (entget e)) "PLV-TUYAUX")) (traces "LWPOLYLINE"))) 8)
(preparer (setq premier (car (boites "LWPOLYLINE")) regards (vl-remove-if-not '(lambda (e) (= (plv-cle 8 (entget e)) "PLV-REGARDS")) (traces "LWPOLYLINE"))))
((equal premier (list (list 0.5 (- (* 10.0 (- 47.2 -0.01)) h)) (list 39.5 (- (* 10.0 (- 48.0 0.01)) h))) 1e-6) T)
((equal (mapcar '(lambda (p) (list (car p) (cadr p))) (etendue-tracee (list (cadr regards))))
        (list (list 39.5 (- 467.0 h)) (list 40.5 (- 495.0 h))) 1e-6) T)
((list (ecrit "B") (ecrit "chute 0.50")) (T T))
;; an angle of 30 degrees makes it twice as wide
((equal (boites "ELLIPSE") (list (list (list 19.8 (- 488.0 h)) (list 20.2 (- 490.0 h)))) 1e-4) T)
;; drawn again, nothing is doubled
(preparer (setq n (length (plv-traces-reseau p "Assainissement"))) (plv-dessiner-reseau p "Assainissement"))
((= n (length (plv-traces-reseau p "Assainissement")) (sslength (ssget "X" '((8 . "PLV-TUYAUX,PLV-REGARDS,PLV-CROISEMENTS"))))) T)

;; Nothing is left out unsaid: pipes of two metres have no room for their words; one over a change of plane has it over the longer part.
(situation "TextsWithoutAPlaceAreTold")
(dit (plv-reseau-ecrire p "Assainissement"
       '("regard;A;1000;;1000" "regard;B;1030;;1000" "regard;C;1032;;1000" "regard;D;1034;;1000" "regard;E;1100;;1000" "tuyau;A;E;400/500;béton"))
  "Profil P1: 2 textes du réseau Assainissement sans place: tuyau B - C (station 1030.00), tuyau C - D (station 1032.00).")
;; manholes that overlap leave no room for a pipe
(dit (plv-reseau-ecrire p "Projet" '("regard;A;1000;;1000;;;47" "regard;B;1000.5;;1000;;;47" "tuyau;A;B;400/500")) "1 texte du réseau Projet sans place: tuyau A - B")
(preparer (plv-reseau-oter p "Projet"))
(dit (plv-pc p "A" 1050.0 40.0) "Plans de comparaison")
(dit (progn (plv-dessiner-reseau p "Assainissement") (princ (strcat "textes: " (itoa (length (traces "TEXT")))))) "2 textes du réseau" "textes: 7")

;; A long name stands above the ground that falls beneath it, words of a crossing beside the manhole next to it.
(situation "WordsAreClearOfGroundAndWalls")
(preparer
  (plv-reseau-ecrire p "Assainissement"
    '("regard;Regard du moulin;1040;visite;1000/1200" "regard;C;1090;visite;1000/1200" "tuyau;Regard du moulin;C;400/500" "croisement;gaz;1037;48.9;200;90"))
  (plv-dessiner-reseau p "Assainissement")
  (setq h (- (cadr (plv-vers-dessin (plv-cadre p) 0.0 0.0))))
  (defun boite (texte) (etendue-tracee (list (car (vl-remove-if-not '(lambda (e) (wcmatch (plv-cle 1 (entget e)) texte)) (traces "TEXT"))))))
  (setq nom (boite "Regard du moulin") gaz (boite "gaz*")))
((> (cadar nom) (- (* 10.0 (- 50.0 (* 0.02 (caar nom)))) h)) T)
((< (caar nom) 40.0 (caadr nom)) T)
((or (< (caadr gaz) 39.4) (> (caar gaz) 40.6)) T)
((< (cadadr gaz) (- (* 10.0 (- 50.0 (* 0.02 (caadr gaz)))) h)) T)

;; Words stand beside the axis of an inner plane, not over it, and its altitudes beside the pipes.
(situation "WordsAndInnerAxesKeepApart")
(preparer
  (plv-pc p "A" 1040.0 45.0)
  (plv-reseau-ecrire p "Assainissement"
    '("regard;A;1000;visite;1000/1200" "regard;Regard B;1040;visite;1000/1200;;46.95;46.05" "regard;C;1100;visite;1000/1200" "tuyau;A;C;400/500" "croisement;gaz;1042;47.4;200;90"))
  (plv-style "route" nil 1000.0)
  (defun boite (e) (apply 'append (mapcar '(lambda (c) (plv-premiers c 2)) (etendue-tracee (list e)))))
  (defun altitudes ()
    (vl-remove-if-not '(lambda (b) (< 30.0 (car b) 50.0))
      (mapcar 'boite (vl-remove-if-not '(lambda (e) (and (= (plv-type e) "TEXT") (> (cadr (boite e)) 0.5))) (plv-entites-du-jeu (ssget "X" '((0 . "TEXT") (8 . "PLV-AXE"))))))))
  (defun touche-p (b e / y) (and (setq y (pl_yat e (* 0.5 (+ (car b) (caddr b))))) (< (cadr b) y (cadddr b)))))
;; the axis ends below the name of the manhole
((vl-remove-if-not '(lambda (e) (and (< (car (boite e)) 40.0 (caddr (boite e))) (< (cadr (boite e)) 42.5))) (traces "TEXT")) nil)
((list (> (length (altitudes)) 1) (vl-some '(lambda (b) (vl-some '(lambda (e) (touche-p b e)) (append (traces "LWPOLYLINE") (traces "LINE")))) (altitudes))) (T nil))

(situation "WhatIsOddIsTold")
(preparer
  (reseau)
  (plv-reseau-ecrire p "Assainissement"
    (append (plv-reseau-rangees p "Assainissement") '("limite;chute;;0.4" "limite;espacement;;50" "limite;croisement;0.8"))))
(dit (plv-reseau-controler p "Assainissement")
  "station 1020.00, croisement gaz: distance au tuyau A - B 0.75 m" "station 1040.00, regard B: chute 0.5 m, au plus 0.4 m attendus"
  "station 1040.00, tuyau B - C: longueur 60 m, au plus 50 m attendus" "Réseau Assainissement: 3 avertissements.")

;; Diameters that shrink, reversal, a step up, shallow pipes, slow water, a vertex that no manhole stands at.
(situation "FaultsOfGravity")
(dit (progn
       (plv-reseau-ecrire p "Assainissement"
         '("regard;A;1000;;1000" "regard;B;1020;;1000;;;47.7" "regard;C;1060;;1000;;46.8;46.8" "regard;D;1100;;1000;;47" "tuyau;A;B;400/500" "tuyau;B;C;300/400" "tuyau;C;D;300"))
       (plv-reseau-controler p "Assainissement"))
  "regard B: le départ est 0.1 m plus haut que l'arrivée" "regard B: le diamètre diminue vers l'aval, de 400/500 à 300/400"
  "tuyau B - C: la ligne est à" "tuyau C - D: contre-pente de 0.5 %" "tuyau C - D: sa paroi n'est pas connue")
(dit (progn
       (plv-reseau-ecrire p "Assainissement" '("regard;A;1000;;1000;;;48.85" "regard;B;1050;;1000;;48.8" "tuyau;A;B;300/400"))
       (plv-reseau-controler p "Assainissement"))
  "tuyau A - B: pente 0.1 %, au moins 0.3 % attendus" "tuyau A - B: couverture -0.15 m, au moins 0.8 m attendus"
  "vitesse au dixième du débit 0.27 m/s (débit 3 l/s), au moins 0.3 attendus")

;; Under pressure nothing is asked of slopes.
(situation "WaterMainsRiseAndFall")
(dit (progn
       (plv-reseau-ecrire p "AEp" '("regard;N1;1000;noeud;;;;48.5" "regard;N2;1050;ventouse;;;48;48" "regard;N3;1100;noeud;;;46.9" "tuyau;N1;N3;100/118;fonte"))
       (plv-reseau-controler p "AEp"))
  "Réseau sans avertissement." (sauf "pente"))

(situation "StaleWhenTheLineChanges")
(preparer (reseau))
(dit (plv-etat (list p)) "Réseau Assainissement: à jour")
(preparer (plv-effacer (plv-elements p "Assainissement")) (plv-projet p "Assainissement" '((1000.0 48.0) (1100.0 45.5))))
(dit (plv-etat (list p)) "Réseau Assainissement: à mettre à jour: le réseau, sa ligne ou le terrain")
((plv-actualiser (list p)) T)
((ecrit "chute 0.50") nil)
((equal (plv-noeud-fond (plv-noeud-nomme (plv-reseau-lu p "Assainissement") "B")) 47.0 1e-6) T)

(situation "ManholesOfTwoProfilesAgree")
(preparer
  (reseau)
  (setq q (plv-nouveau "<dossier>g.csv" "P2" '(0.0 300.0 0.0) 10.0 2.5 150.0 nil)))
(dit (progn
       (plv-reseau-ecrire q "Assainissement" '("regard;X;1000;;1000;;;47" "regard;B;1030;;1000;49.5;46.6;;;P1" "regard;Z;1060;;1000;;46;;;P9" "tuyau;X;B;200" "tuyau;B;Z;200"))
       (plv-reseau-controler q "Assainissement"))
  "pas de profil numéro P9")
(dit (progn
       (plv-reseau-ecrire q "Assainissement" '("regard;X;1000;;1000;;;47" "regard;B;1030;;1000;49.4;46.9;;;P1" "tuyau;X;B;200/220"))
       (plv-reseau-controler q "Assainissement"))
  "regard B: son tampon est à 49.400, à 49.500 dans le profil P1")
(dit (progn
       (plv-reseau-ecrire q "Assainissement" '("regard;X;1000;;1000;;;47" "regard;B;1030;;1000;49.5;46.6;;;P1" "tuyau;X;B;200/220"))
       (plv-reseau-controler q "Assainissement"))
  "regard B: la branche y est à 46.600, plus bas que le fond 46.700 dans le profil P1")

;; What can't be is refused with its row, its name and its place, and what was there stays.
(situation "WrongRows")
(tableau (phrase rangees)
  ("rangée 2, \"tuyau;A;Z;300\": il n'y a pas de regard Z" '("regard;A;1000" "tuyau;A;Z;300"))
  ("rangée 1, \"regard;A\": la station manque" '("regard;A"))
  ("la station: une station est attendue, et non \"abc\"" '("regard;A;abc"))
  ("le diamètre du tuyau A - B manque" '("regard;A;1000" "regard;B;1010" "tuyau;A;B"))
  ("diamètre illisible: \"30x\"" '("regard;A;1000" "regard;B;1010" "tuyau;A;B;30x"))
  ("l'extérieur est plus petit que l'intérieur" '("regard;A;1000" "regard;B;1010" "tuyau;A;B;300/250"))
  ("le nom a est déjà celui d'un autre regard" '("regard;A;1000" "regard;a;1010"))
  ("les regards A et B ont la même station 1010" '("regard;A;1010" "regard;B;1010"))
  ("il y a déjà un tuyau entre A et B" '("regard;A;1000" "regard;B;1010" "tuyau;A;B;300" "tuyau;B;A;200"))
  ("regard, tuyau, croisement ou limite est attendu" '("regrad;A;1000"))
  ("limite inconnue; connues: pente, couverture" '("limite;couleur;1"))
  ("la moindre valeur dépasse la plus grande" '("limite;pente;5;1"))
  ("trop de champs" '("croisement;gaz;1000;48;100;30;7"))
  ("regard B, station 1200: le regard est hors du terrain" '("regard;A;1000" "regard;B;1200" "tuyau;A;B;300"))
  ("croisement gaz, station 1101: il est hors du terrain" '("regard;A;1000" "regard;B;1010" "tuyau;A;B;300" "croisement;gaz;1101;48;100"))
  ("regard A, station 1000: son fond 49 est au-dessus du fil d'eau 48" '("regard;A;1000;;;;;;49" "regard;B;1010" "tuyau;A;B;300"))
  ("regard A, station 1000: son tampon 47 est sous le fil d'eau 48" '("regard;A;1000;;1000;47" "regard;B;1010" "tuyau;A;B;300"))
  ("regard A, station 1000: aucun tuyau n'y arrive ni n'en part" '("regard;A;1000" "regard;B;1010" "regard;C;1020" "tuyau;B;C;300")))
(preparer (reseau) (setq avant (plv-reseau-rangees p "Assainissement") n (length (plv-traces-reseau p "Assainissement"))))
(refuse (plv-reseau-ecrire p "Assainissement" rangees) phrase)
((list (equal avant (plv-reseau-rangees p "Assainissement")) (= n (length (plv-traces-reseau p "Assainissement")))) (T T))

(situation "AlongALine")
(preparer
  (setq lignes (plv-reseau-rangees-de-ligne p "Assainissement" "R" "visite;1000/1240" "300/376;béton" 35.0)
        r (plv-reseau-ecrire p "Assainissement" lignes)))
((mapcar 'plv-noeud-nom (plv-reseau-regards r)) ("R1" "R2" "R3" "R4" "R5"))
((mapcar 'plv-noeud-station (plv-reseau-regards r)) (1000.0 1020.0 1040.0 1070.0 1100.0))
((length (plv-reseau-tuyaux r)) 4)

(situation "ByQuestions")
(preparer (reseau))
(tape ("PLV-RESEAU" "Assainissement" "Regard" "B" "" "" "" "." "" "46.5" "" "" "Tuyau" "A" "B" "300/400" "" "" "0.15" "" "FIN")
  "Réseau Assainissement: 3 regards, 2 tuyaux.")
(preparer (setq r (plv-reseau-lu p "Assainissement") b (plv-noeud-nomme r "b")))
((equal (list (plv-noeud-tampon b) (plv-noeud-depart b)) '(49.2 46.5) 1e-9) T)
((plv-tuyau-en-mots (car (plv-reseau-tuyaux r))) "Ø300/400 béton 135A")
;; with a manhole goes one of its pipes
(tape ("PLV-RESEAU" "Assainissement" "Oter" "Regard" "B" "Exporter" "<dossier>s.csv" "FIN") "2 regards, 1 tuyau." "s.csv: 6 lignes.")
((length (plv-reseau-tuyaux (plv-reseau-lu p "Assainissement"))) 1)
((equal (plv-lire-lignes "<dossier>s.csv") (plv-reseau-rangees p "Assainissement")) T)
(tape ("PLV-RESEAU" "Assainissement" "Supprimer" "FIN") "Réseau Assainissement retiré.")
((list (plv-reseau-rangees p "Assainissement") (ssget "X" '((8 . "PLV-TUYAUX,PLV-REGARDS,PLV-CROISEMENTS")))) (nil nil))

;; Rows of a table: the words that stand in them, from left to right.
(situation "RowsOfATable")
(fichier "m.txt" "R - 2.0 502 Regards\nR - 6.0 503 Tampon\nR - 6.0 504 Fil d'eau\nR - 5.0 505 Profondeur\nR - 5.0 506 Couverture\nR - 2.0 507 Tuyau\nR - 2.0 508 Pente\nR - 2.0 509 Longueur\nR - 2.0 510 Sens\nR - 2.0 502 {AEp} Autres\n")
(preparer
  (reseau)
  (plv-matrices p "<dossier>m.txt" T)
  (setq table (car (plv-tables p)))
  (defun ecrites (rang)
    (vl-sort (vl-remove-if-not '(lambda (e) (= (plv-type e) "TEXT")) (cddr (car (et_a_corriger (plv-entites-des-tables p) nil (list (plv-rangee-etude (list table rang)))))))
      '(lambda (a b) (< (car (plv-mains:point a)) (car (plv-mains:point b))))))
  (defun mots (rang) (mapcar '(lambda (e) (cdr (assoc 1 (entget e)))) (ecrites rang))))
((mapcar 'mots '(0 1 2 3 4 5 6 7))
 (("A" "B" "C") ("50.00" "49.50" "48.00") ("48.00" "47.20" "46.70" "45.50") ("2.00" "2.80" "2.70") ("1.55" "2.05")
  ("Ø400/500 béton 135A" "Ø400/500 béton 135A") ("2.00 %" "2.00 %") ("40.00" "60.00")))
;; decimal points of slopes and lengths stand in the middle of their pipe, one above another
(preparer
  (defun point-decimal (rang / g boite entier)
    (setq g (entget (car (ecrites rang))))
    (setq boite (plv-boite (plv-cle -1 g)) entier (textbox (subst (cons 1 (strcat (car (plv-couper (plv-cle 1 g) ".")) ".")) (assoc 1 g) g)))
    (plv-reel (+ (car boite) (- (caadr entier) (caar entier))) 2)))
((mapcar 'point-decimal '(6 7)) ("20.00" "20.00"))
;; the row that names a kind without a network takes the first that has one
((mots 9) ("A" "B" "C"))
(dit (plv-etat (list p)) "Tout est à jour.")
(preparer (plv-reseau-ecrire p "Assainissement" (subst "tuyau;B;C;300/400;PVC" "tuyau;B;C;400/500;béton;135A" (plv-reseau-rangees p "Assainissement"))))
(dit (plv-etat (list p)) "Rangée Tuyau: à mettre à jour" "Rangée Couverture: à mettre à jour")
((plv-actualiser (list p)) T)
((mots 5) ("Ø400/500 béton 135A" "Ø300/400 PVC"))

;; What is written for other programs comes back: all of it from LandXML, from .inp all but walls, materials and classes.
(situation "ToOtherProgramsAndBack")
(tableau (fichier) ("s.xml") ("s.inp"))
(preparer
  (setq avant (reseau) chemin (strcat "<dossier>" fichier))
  (defun poses (r)
    (append
      (mapcar '(lambda (n) (list (plv-noeud-nom n) (plv-reel (plv-noeud-station n) 4) (plv-reel (plv-noeud-fond n) 4) (plv-reel (plv-noeud-arrivee-ou n) 4))) (plv-reseau-regards r))
      (mapcar '(lambda (tu) (list (plv-reel (cadr (plv-tuyau-depart tu)) 4) (plv-reel (cadr (plv-tuyau-arrivee tu)) 4) (plv-reel (plv-tuyau-interieur tu) 4))) (plv-reseau-tuyaux r))))
  (defun plv-noeud-arrivee-ou (n) (cond ((plv-noeud-arrivee n)) ((plv-noeud-depart n)))))
((plv-reseau-exporter p "Assainissement" chemin) T)
(preparer (setq rangees (plv-reseau-importer chemin "" "" 1000.0 "1000/1200") apres (plv-reseau-ecrire p "Assainissement" rangees)))
((equal (poses avant) (poses apres)) T)
((mapcar 'plv-noeud-tampon (plv-reseau-regards apres)) (50.0 49.5 48.0))

;; In feet and with levels; a branch is left out by name; from the node that is named.
(situation "AModelOfAnotherProgram")
(fichier "m.inp" "[OPTIONS]\nFLOW_UNITS CFS\nLINK_OFFSETS ELEVATION\n[JUNCTIONS]\n;; name elev depth\nJ1 157.48 6.56 0 0 0\nJ2 155 8\n\"J 3\" 156 5\n[OUTFALLS]\nO1 150 FREE NO\n[CONDUITS]\nC1 J1 J2 100 0.0125 157.48 155.5\nC2 J2 O1 200 0.013 * *\nC3 \"J 3\" J2 50 0.013\n[XSECTIONS]\nC1 CIRCULAR 1 0 0 0 1\nC2 CIRCULAR 1.5 0 0 0\nC3 CIRCULAR 1\nW1 RECT_OPEN 1 2\n")
(dit (setq r (plv-reseau-importer "<dossier>m.inp" "" "" 1000.0 "800")) "pas sur le chemin de J1 à O1: J 3")
((mapcar '(lambda (l) (car (plv-couper l ";"))) r) ("regard" "tuyau" "regard" "tuyau" "regard"))
((equal (mapcar 'atof (plv-sans-premiers (plv-couper (car r) ";") 5)) '(49.999392 0.0 47.999904 47.999904) 1e-6) T)
;; sqrt(100^2 - 1.98^2) = 99.9804 feet; 1/0.0125 = 80
((plv-couper (cadr r) ";") ("tuyau" "J1" "J2" "304.8" "" "" "" "80"))
((equal (atof (caddr (plv-couper (caddr r) ";"))) (+ 1000.0 (* 0.3048 99.980396)) 1e-5) T)
((equal (mapcar 'atof (plv-sans-premiers (plv-couper (caddr r) ";") 6)) '(47.3964 47.244 47.244) 1e-6) T)
((length (plv-reseau-importer "<dossier>m.inp" "j 3" "O1" 0.0 "")) 5)

(situation "WrongModels")
(tableau (phrase texte)
  ("ligne 4, [CONDUITS] C1: il n'y a pas de nœud J9" "[JUNCTIONS]\nJ1 10 2\n[CONDUITS]\nC1 J1 J9 100 0.01\n")
  ("ligne 2, [JUNCTIONS] J1: l'altitude du radier: un nombre est attendu, et non \"x\"" "[JUNCTIONS]\nJ1 x 2\n")
  ("ligne 3, [JUNCTIONS] j1: il y a déjà un nœud de ce nom" "[JUNCTIONS]\nJ1 1\nj1 2\n")
  ("ligne 5, [CONDUITS] C1: sa longueur 1 m ne dépasse pas sa dénivelée 2 m" "[OPTIONS]\nFLOW_UNITS CMS\n[CONDUITS]\n;\nC1 J1 J2 1 0.01\n[JUNCTIONS]\nJ1 3\nJ2 1\n")
  ("[XSECTIONS] C1: seules les sections circulaires se prennent, et non EGG" "[JUNCTIONS]\nJ1 1\nJ2 1\n[CONDUITS]\nC1 J1 J2 9 0.01\n[XSECTIONS]\nC1 EGG 1\n")
  ("ligne 2, [OPTIONS] FLOW_UNITS: CFS, GPM, MGD, CMS, LPS, MLD est attendu, et non \"PIEDS\"" "[OPTIONS]\nFLOW_UNITS pieds\n")
  ("[XSECTIONS] C1: un diamètre plus grand que 0 est attendu, et non -1" "[JUNCTIONS]\nJ1 1\nJ2 1\n[CONDUITS]\nC1 J1 J2 9 0.01\n[XSECTIONS]\nC1 CIRCULAR -1\n")
  ("la conduite C1 n'a pas de section" "[JUNCTIONS]\nJ1 1\nJ2 1\n[CONDUITS]\nC1 J1 J2 9 0.01\n")
  ("aucune conduite ([CONDUITS])" "[JUNCTIONS]\nJ1 1\n"))
(preparer (texte-ecrire "<dossier>f.inp" (plv-couper texte "\n")))
(refuse (plv-reseau-importer "<dossier>f.inp" "" "" 0.0 "") phrase)

;; Inverts by reference, diameters in their own unit, lengths between centres where none is written.
(situation "PipeNetworksOfOthers")
(preparer
  (defun lire (regard tuyau)
    (texte-ecrire "<dossier>p.xml"
      (list "<LandXML><Units><Imperial linearUnit='foot' diameterUnit='inch'/></Units><PipeNetworks><PipeNetwork><Structs>"
            "<Struct name='A' elevRim='50'><Center>0 0</Center><Invert elev='47' flowDir='out' refPipe='P'/></Struct>" regard
            (strcat "</Structs><Pipes><Pipe name='P' refStart='A' refEnd='B'>" tuyau "</Pipe></Pipes></PipeNetwork></PipeNetworks></LandXML>")))
    (plv-reseau-importer "<dossier>p.xml" "" "" 0.0 "800"))
  (setq regard "<Struct name='B' elevRim='49' elevSump='45'><CircStruct diameter='48'/><Center>0 100</Center><Invert elev='46' flowDir='in' refPipe='P'/></Struct>"
        tuyau "<CircPipe diameter='12' thickness='1' material='PVC'/>"))
((mapcar '(lambda (l) (plv-couper l ";")) (lire regard tuyau))
 (("regard" "A" "0" "" "800" "15.24" "" "14.3256" "14.3256") ("tuyau" "A" "B" "304.8/355.6" "PVC" "" "" "")
  ("regard" "B" "30.48" "" "1219.2" "14.9352" "14.0208" "" "13.716")))
(refuse (lire "" tuyau) "p.xml, tuyau P: il n'y a pas de nœud B")
(refuse (lire "<Struct name='B' elevSump='x'/>" tuyau) "p.xml, ouvrage B: elevSump: un nombre est attendu, et non \"x\"")
(refuse (lire "<Struct name='B' elevSump='9'/>" tuyau) "tuyau P: sa longueur manque, et le lieu d'un de ses ouvrages")
(refuse (lire regard "<RectPipe/>") "tuyau P: seuls les tuyaux ronds se prennent")

;; Lines that cross the axis in plan, which begins at the first station; the network has a crossing gaz already.
(situation "CrossingsFromThePlan")
(preparer
  (reseau)
  (plv-associer-axe p (plv-polyligne "PLV-AXE" '((0.0 -500.0 0.0) (100.0 -500.0 0.0))))
  (setq gaz (mapcar '(lambda (x) (entmakex (list '(0 . "LINE") '(8 . "GAZ") (list 10 x -510.0 0.0) (list 11 x -490.0 0.0)))) '(30.0 70.0))))
(tape ("PLV-RESEAU" "Assainissement" "Plan" "(car gaz)" "(cadr gaz)" "" "48,5" "110" "47.9" "" "FIN") "Station 1030.00, GAZ: altitude de l'axe" "3 regards, 2 tuyaux.")
((mapcar '(lambda (c) (list (plv-croisement-nom c) (plv-croisement-station c) (plv-croisement-altitude c) (plv-croisement-diametre c))) (cdr (plv-reseau-croisements (plv-reseau-lu p "Assainissement"))))
 (("GAZ 2" 1030.0 48.5 0.11) ("GAZ 3" 1070.0 47.9 0.11)))

;; A copy with all that is drawn has a network of its own; one of the block alone has the rows, and leaves what is drawn to the original.
(situation "CopiesLeaveTheOriginalAlone")
(preparer
  (reseau)
  (setq n (length (plv-traces-reseau p "Assainissement")))
  (command "_.COPY" (ssget "X") "" '(0.0 0.0) '(0.0 500.0))
  (setq q (plv-dernier (plv-profils))))
((list (length (plv-profils)) (length (plv-traces-reseau q "Assainissement")) (= n (length (plv-traces-reseau p "Assainissement")))) (2 20 T))
(preparer (plv-reseau-oter q "Assainissement"))
((= n (length (plv-traces-reseau p "Assainissement"))) T)
(preparer (command "_.COPY" p "" '(0.0 0.0) '(0.0 1500.0)) (setq r (plv-dernier (plv-profils))))
((list (eq r q) (eq r p) (length (plv-traces-reseau r "Assainissement"))) (nil nil 0))
(refuse (plv-dessiner-reseau r "Assainissement") "dont il est la copie")
((= n (length (plv-traces-reseau p "Assainissement"))) T)

;; A page to share has the network as tables, with the figures of the rows.
(situation "APageHasItsTables")
(preparer (reseau) (setq tables (plv-page-tables p)))
((mapcar 'car tables) ("Métrés Assainissement" "Regards Assainissement" "Tuyaux Assainissement"))
((caddr (cadr tables)) (("A" "1000.00" "50.000" "" "48.000" "2.00") ("B" "1040.00" "49.500" "47.200" "46.700" "2.80") ("C" "1100.00" "48.000" "45.500" "" "2.70")))
((mapcar '(lambda (r) (vl-sort (plv-premiers r 3) '<)) (caddr (caddr tables))) (("-2.000" "40.00" "A - B") ("-2.000" "60.00" "B - C")))
