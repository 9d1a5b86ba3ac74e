;; PLV-PROJET, PLV-PC, the rows of project lines and the macros of the menu, on level ground at 52 over 200 m from station
;; 1000, with a second plane at 120 m, drawn from (500, 300) at ten times.

(commun
  (fichier "g.csv" "station;altitude;nom\n1000;52;A\n1040;52;\n1050;52;\n1100;52;B\n1120;52;\n1160;52;\n1200;52;C\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "7" '(500.0 300.0 0.0) 10.0 2.5 150.0 '((0.0 45.0) (120.0 40.0))))
    (defun z (genre station) (plv-altitude-projet p (plv-elements-situes p genre) (plv-plans p) (- station 1000.0)))
    (defun mm (valeur) (plv-reel valeur 3))
    (defun textes (motif / s) (if (setq s (ssget "X" (list '(0 . "TEXT") (cons 1 motif)))) (sslength s) 0))
    ;; what the rows of project lines, of the plan and of blocks need
    (defun equiper ()
      (plv-projet p "Projet" '((1000.0 50.0) (1080.0 54.0 800.0) (1200.0 50.0)))
      (entmake '((0 . "BLOCK") (2 . "R") (70 . 2) (10 0.0 0.0 0.0)))
      (entmake '((0 . "ENDBLK")))
      (entmake '((0 . "INSERT") (66 . 1) (2 . "R") (10 600.0 370.0 0.0)))
      (foreach a '(("NUM" . "R12") ("DN" . "250") ("NOTE" . "x"))
        (entmake (list '(0 . "ATTRIB") '(10 600.0 371.0 0.0) '(40 . 1.0) (cons 1 (cdr a)) (cons 2 (car a)) '(70 . 0))))
      (entmake '((0 . "SEQEND")))
      (setq bloc (entlast))
      (plv-associer-axe p
        (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 4) (70 . 0)
                    (10 0.0 0.0) (10 60.0 0.0) (42 . 0.4142135623730951) (10 80.0 20.0) (10 80.0 200.0))))
      (plv-ecrire-terrains p (list (plv-terrain "Rocher" "Rocher" '(((0.0 31.1) (200.0 31.1))))))
      (plv-devers p '((1000 -2.5 -2.5) (1100 -2.5 -2.5) (1200 2.0 -2.5))))))

(situation "KeepsStationsToTheMillimetre")
(preparer
  (setq r (plv-projet p "voirie" '((1000.0 50.0) (1080.0 54.0 800.0) (1160.0 50.0 ("P" "L" 20.0)) (1200.0 51.0)))))
((mm (z "Voirie" 1000.0)) "50.000")
((mm (z "Voirie" 1040.0)) "52.000")
;; circle of 800 under a summit of +5 % and -5 %: the crown is R (sec a - 1) under the vertex
((mm (z "Voirie" 1080.0)) "53.001")
;; parabola of 20 m: the vertex is L |dp| / 8 under the curve
((mm (z "Voirie" 1160.0)) "50.188")
((mm (z "Voirie" 1200.0)) "51.000")
;; on the new plane, just after the break, the same altitude as before it
((mm (- (z "Voirie" 1120.0) (z "Voirie" 1120.001))) "0.000")
((mapcar '(lambda (s) (cdr (assoc 0 (entget s)))) r)
 ("LWPOLYLINE" "SPLINE" "LWPOLYLINE" "LWPOLYLINE" "SPLINE" "LWPOLYLINE"))
((mapcar '(lambda (s) (plgxd s "ELEMDUPROJET")) r) (1 1 1 1 1 1))
;; true lengths: an arc of circle is R times its opening
((mm (pl_curvelength (cadr r) 10.0)) "79.933")
((mapcar '(lambda (tr) (if (numberp (caddr tr)) (plv-reel (* 100.0 (caddr tr)) 2) (mm (plv-rayon-de-piece p tr))))
         (plv-elements-de-pente p "Voirie"))
 ("5.00" "800.000" "-5.00" "266.667" "2.50"))

(situation "CurvesByRadiusAndLength")
(tableau (demande)
  (("C" "R" 400.0))
  (("P" "R" 400.0))
  ;; 2 R sin a is the length between the ends of the arc
  (("C" "L" 39.950094))
  (("P" "L" 40.0)))
(preparer (setq r (plv-projet p "Projet" '((1000.0 50.0) (1100.0 55.0 demande) (1200.0 50.0)))))
((mm (z "Projet" 1100.0)) "54.500")
((mm (plv-rayon (cadr r))) "400.000")

(situation "CurvesThroughAPoint")
(tableau (demande station altitude)
  (("C" "P" 1100.0 54.7) 1100.0 "54.700")
  (("P" "P" 1095.0 54.6) 1095.0 "54.600"))
(preparer (plv-projet p "Projet" '((1000.0 50.0) (1100.0 55.0 demande) (1200.0 50.0))))
((mm (z "Projet" station)) altitude)

(situation "BySlopesAndLengths")
(preparer (plv-projet-pentes p "Projet" 1000.0 50.0 '((2.0 100.0 400.0) (-2.0 50.0))))
((mm (z "Projet" 1050.0)) "51.000")
;; circle of 400 between +2 % and -2 %: R (sec a - 1) under the vertex
((mm (z "Projet" 1100.0)) "51.920")
((mm (z "Projet" 1150.0)) "51.000")

(situation "RefusesWhatCannotBe")
(fichier "faux.csv" "station;altitude\n1000;50\n1100;x\n")
(preparer (setq derniere (entlast)))
(refuse (plv-projet p "Projet" '((1000.0 50.0))) "deux points au moins")
(refuse (plv-projet p "Projet" '((1000.0 50.0) (1300.0 50.0))) "300.000 n'est pas dans le profil")
(refuse (plv-projet p "Projet" '((1100.0 50.0) (1050.0 50.0))) "vont en croissant")
(refuse (plv-projet p "Projet" '((1000.0 50.0) (1100.0 55.0 3000.0) (1200.0 50.0))) "se chevauchent")
(refuse (plv-projet p "Projet" '((1000.0 50.0) (1100.0 55.0 50.0) (1200.0 60.0))) "les deux pentes sont les mêmes")
(refuse (plv-projet p "Projet" '((1000.0 50.0) (1100.0 55.0 ("C" "P" 1100.0 56.0)) (1200.0 50.0))) "sommet à la distance 100.000")
(refuse (plv-projet p "Projet" '((1000.0 50.0) (1100.0 55.0 ("P" "P" 1100.0 56.0)) (1200.0 50.0))) "sommet à la distance 100.000")
(refuse (plv-projet p "Chemin" '((1000.0 50.0) (1100.0 50.0))) "pas de support pour le genre Chemin")
(refuse (plv-projet-fichier p "Projet" "<dossier>faux.csv") "ligne 3 illisible")
(refuse (plv-projet-fichier p "Projet" "absent.csv") "fichier introuvable")
(refuse (plv-projet-existant p "Projet" (ssget "X" '((0 . "TEXT")))) "aucune courbe")
(refuse (plv-projet-existant p "Projet" nil) "aucune courbe")
(refuse (plv-transferer p "Voirie") "pas de projet")
(refuse (plv-vers-plan p) "pas d'axe en plan")
((eq (entlast) derniere) T)

(situation "IsAskedFor")
(tape ("PLV-PROJET" "Voirie" "PO" "1000,50" "1100/55" "1100;55,0" "1200,50" "" "Rayon" "400" "P")
  "\nGenre de ligne [Voirie/Assainissement/AEp/Terrassements/Projet/Generique/TN] <Projet>: "
  "\nTracer par [POints/PEntes/Dessiner/Fichier/Existante] <POints>: " "Deux nombres séparés par une virgule"
  "\nRaccordement à la station 1100.00 [Rayon/Longueur/Point/Aucun] <Aucun>: " "1 raccordement.")
((mm (z "Voirie" 1100.0)) "54.500")
(tape ("PLV-PROJET" "A" "PE" "1000,50" "1.5" "100" "-1" "50" "" "A"))
((list (mm (z "Assainissement" 1100.0)) (mm (z "Assainissement" 1150.0)) (z "Assainissement" 1151.0)) ("51.500" "51.000" nil))
(fichier "p.csv" "PK;Z;R;forme\n1000,0;50,0;;\n1100,0;55,0;L40;P\n1200;50\n")
(tape ("PLV-PROJET" "AE" "F" "<dossier>p.csv"))
((mm (z "AEp" 1100.0)) "54.500")
(preparer (setq l (entmakex '((0 . "LINE") (10 500.0 350.0 0.0) (11 600.0 370.0 0.0)))))
(tape ("PLV-PROJET" "TN" "E" "!l" ""))
((list (plv-du-projet l) (mm (z "TN" 1050.0))) (T "51.000"))

(situation "TheMeasureThatWasChosenIsProposedAgain")
(tape ("PLV-PROJET" "Voirie" "PO" "1000,50" "1060,53" "1120,50" "1200,54" "" "Rayon" "200" "C" "" "150" "C")
  "Raccordement à la station 1060.00 [Rayon/Longueur/Point/Aucun] <Aucun>"
  "Raccordement à la station 1120.00 [Rayon/Longueur/Point/Aucun] <Rayon>" "2 raccordements.")

(situation "NoPointDrawsNothing")
(preparer (setq derniere (entlast)))
(tape ("PLV-PROJET" "Voirie" "PO" ""))
((eq (entlast) derniere) T)

(situation "APlaneAddedAndRemovedLeavesTheGeometry")
;; in the middle of a circle, and away again
(preparer
  (plv-projet p "Projet" '((1000.0 50.0) (1080.0 54.0 800.0) (1160.0 50.0 ("P" "L" 20.0)) (1200.0 51.0)))
  (defun photo (/ y l)
    (foreach e (plv-elements p "Projet")
      (foreach d '(0.0 40.0 50.0 62.5 80.0 100.0 119.0 121.0 152.0 160.0 168.0 200.0)
        (if (setq y (pl_yat e (+ 500.0 d))) (setq l (cons (list (cdr (assoc 5 (entget e))) d y) l)))))
    l)
  (defun sol (/ l)
    (foreach plan (plv-entites-plans p)
      (foreach e (plv-chaine (plgxd plan "PRLI") "NEXTLI")
        (setq l (cons (list (cdr (assoc 10 (entget e))) (cdr (assoc 11 (entget e)))) l))))
    (reverse l))
  (defun sections () (mapcar '(lambda (s) (list (car s) (cadr s) (caddr s))) (plv-sections-de-plan p)))
  (setq avant (photo) sol-avant (sol) sections-avant (sections) n (sslength (ssget "X"))
        pentes (mapcar 'cdr (plv-elements-de-pente p "Projet")))
  (plv-pc p "A" 1062.5 48.0))
((plv-plans p) ((0.0 45.0) (62.5 48.0) (120.0 40.0)))
((length (plv-elements-du-projet p "Projet")) 7)
((mm (z "Projet" 1100.0)) "52.751")
((equal (mapcar 'cadr pentes) (mapcar 'caddr (plv-elements-de-pente p "Projet")) 1e-9) T)
((plv-audit) 0)
(preparer (plv-pc p "M" 1070.0 47.0))
((plv-plans p) ((0.0 45.0) (62.5 47.0) (120.0 40.0)))
((mm (z "Projet" 1100.0)) "52.751")
(preparer (plv-pc p "S" 1070.0 nil))
((equal avant (photo) 1e-8) T)
((equal sol-avant (sol) 1e-9) T)
((equal sections-avant (sections) 1e-9) T)
((= n (sslength (ssget "X"))) T)
((plv-audit) 0)

(situation "PlanesCarryBlocksAndReferenceLines")
(fichier "t.txt" "T - 6.0 4 Altitude TN\n")
(preparer
  (plv-bloc-vide "B")
  (setq b (plv-inserer "0" "B" '(600.0 370.0 0.0)))
  (pl_elem_ponct p "Assainissement" '(600.0 370.0 0.0) b)
  (plv-matrices p "<dossier>t.txt" T))
(tape ("PLV-PC" "A" "1060" "50"))
((cdr (assoc 10 (entget b))) (600.0 320.0 0.0))
;; the reference line at 1100 ends on the ground of its new plane
((apply 'min (mapcar '(lambda (e) (if (equal (cadr (assoc 10 (entget e))) 600.0 1e-6) (caddr (assoc 10 (entget e))) 1e9))
                     (plv-ajouts-tables p)))
 320.0)
(refuse (plv-pc p "A" 1060.0 10.0) "un plan commence déjà")
(refuse (plv-pc p "A" 1900.0 10.0) "n'est pas dans le profil")
(refuse (plv-pc p "S" 1010.0 nil) "le premier plan ne peut pas")
(refuse (plv-pc p "M" 1010.0 nil) "l'altitude du plan est attendue")

(situation "RowsHoldTheirFigures")
(preparer
  (equiper)
  (plv-reseau-ecrire p "Generique" '("regard;Q1;1012;;1000;61.13;;47.77" "regard;Q2;1031;;1000;61.17;47.71" "tuyau;Q1;Q2;300/377")))
(dit (setq r (plv-matrices p "matrices-completes.txt" T)) (sauf "vides"))
((not r) nil)
;; ground at seven points, and the project's altitude at 1040
((textes "52.00") 8)
((textes "53.00") 0)
((textes "31.10") 7)
;; depth at 1100: the project is above the ground
((textes "-1.22") 1)
((textes "Rampe 5.00 % sur 46.71 m") 1)
((textes "+0.0500 m/m") 1)
((textes "-3.33 %") 1)
((textes "-33.3 \U+2030") 1)
((textes "R=800 L=66.60") 4)
;; partial distance of the last element
((textes "86.69") 1)
;; where the circle begins
((textes "1046.71") 1)
((textes "Alignement L=60.00") 1)
((textes "R=20*") 1)
((textes "-2.50 %") 1)
((textes "R12 250") 1)
((textes "R12") 1)
((textes "250") 1)
((textes "x") 0)
;; drawn again, and each row alone: nothing is left over
(preparer (setq n (sslength (ssget "X"))) (plv-matrices p "matrices-completes.txt" T))
((= n (sslength (ssget "X"))) T)

(situation "ARowFilledAloneLeavesNothingOver")
(tableau (table rangees) ("POINTS" 8) ("PROJET" 8) ("TRACE" 3) ("BLOCS" 3) ("RESEAU" 9))
(preparer
  (equiper)
  (plv-reseau-ecrire p "Generique" '("regard;Q1;1012;;1000;61.13;;47.77" "regard;Q2;1031;;1000;61.17;47.71" "tuyau;Q1;Q2;300/377"))
  (plv-matrices p "matrices-completes.txt" T)
  (plv-choix-profil p)
  (setq n (sslength (ssget "X")) rang 0 apres nil)
  (repeat rangees
    (PL-CPLM table (setq rang (1+ rang)))
    (setq apres (cons (- (sslength (ssget "X")) n) apres))))
((length apres) rangees)
((vl-remove 0 apres) nil)

(situation "RowsAreNamedWhenTheyStayEmpty")
(dit (setq r (plv-matrices p "matrices-completes.txt" T)) "Lignes laissées vides: Altitude du rocher, Épaisseur de terre, Altitude projet, Profondeur, Pentes, ")
((not r) nil)

(situation "RowsTakeABlockPlacedLater")
(fichier "t.txt" "T - 2.0 402 {NUM} Regards\nT - 4.0 403 {DN|MAT} Diametre\n")
(preparer (equiper) (plv-effacer (list bloc)) (plv-matrices p "<dossier>t.txt" T))
((textes "R12,250") 0)
(preparer (entdel bloc) (plv-choix-profil p) (plv-bloc-place p bloc))
((textes "R12,250") 2)
(preparer (plv-effacer-tables p))
;; the texts go with their tables
((textes "R12,250") 0)

(situation "MacrosRunAsTheMenuNamesThem")
(preparer (equiper))
(tape ("(CotAutoKavel) " "Projet" "T" "(list (car (plv-elements-du-projet p \"Projet\")) '(510.0 0.0))" "") "4 cotes.")
((list (textes "+0.00") (textes "-2.00") (textes "50.00")) (1 1 1))
(tape ("transfererProjet " "Voirie"))
((plv-elements p "Projet") nil)
((length (plv-elements-du-projet p "Voirie")) 4)
((plv-genres-du-projet p) ("Voirie"))
(tape ("assocprjKavel " "V" "E" "(list (car (plv-elements-du-projet p \"Voirie\")) '(510.0 0.0))" "") "<element a enlever>")
((length (plv-elements-du-projet p "Voirie")) 3)
(tape ("pl_efixKAVEL " "A" "600,370" "(list bloc '(600.0 370.0))" "" "F"))
((eq (cdr (assoc 330 (plv-enregistrement (plv-support p "Assainissement") "ELEMS_STATIQUES_KAVEL"))) bloc) T)
;; equipment and slopes on the axis in plan: the block at 100 m stands 8.58 m up the last alignment
(tape ("PlKavelVersPlan "))
((textes "3.33 %") 1)
((mapcar 'mm (cdr (assoc 10 (entget (cdr (plv-dernier (plv-enregistrement p "PLV_VERS_PLAN"))))))) ("80.000" "28.584" "0.000"))

(situation "AnAxisSeenFromBehindIsWhereItIsSeen")
(preparer
  (setq a (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 3) (70 . 0) (10 0.0 0.0) (10 60.0 0.0) (42 . 0.4)
                      (10 80.0 20.0)))
        b (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 3) (70 . 0) (10 0.0 0.0) (10 -60.0 0.0) (42 . -0.4)
                      (10 -80.0 20.0) (210 0.0 0.0 -1.0)))))
((equal (plv-axe-segments a) (plv-axe-segments b) 1e-9) T)
((length (plv-axe-segments b)) 2)

;; Old polylines and mirrored ones give the vertices that are seen.
(situation "CurvesOfOtherProgramsAreExportedAsSeen")
(fichier "q.csv" "distance;altitude\n0;100\n100;100\n")
(preparer
  (setq q (plv-nouveau "<dossier>q.csv" "Q" '(0.0 0.0 0.0) 10.0 2.5 200.0 '((0.0 90.0))))
  (pl_elem_prj q "Voirie"
    (plv-jeu (list (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0) (10 -80.0 50.0) (10 -10.0 40.0)
                               (210 0.0 0.0 -1.0)))))))
((plv-projet-sommets q "Voirie") (((10.0 94.0) (80.0 95.0))))
