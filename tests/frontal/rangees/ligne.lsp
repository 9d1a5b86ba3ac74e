;; A project line with the mouse, its vertices in lists and in the table, on level ground at 52 over 200 m from station 1000, with a second
;; plane at 120 m, drawn from (500, 300) at ten times.

(commun
  (fichier "g.csv" "station;altitude;nom\n1000;52;A\n1040;52;\n1100;53;B\n1160;53;\n1200;52;C\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "7" '(500.0 300.0 0.0) 10.0 2.5 150.0 '((0.0 45.0) (120.0 40.0))))
    (defun arrondis (x) (cond ((numberp x) (plv-reel x 3)) ((listp x) (mapcar 'arrondis x)) (x)))
    (defun ligne (genre) (arrondis (mapcar '(lambda (suite) (mapcar '(lambda (s) (list (car s) (cadr s) (caddr s))) suite)) (plv-lire-ligne p genre))))
    (defun sur (d z) (plv-vers-dessin (plv-cadre p) d z))))

;; what is typed: pairs, relative pairs, slopes in every form, depths, one number after the other
(situation "TypedPlacesAreVertices")
(tableau (tapes attendu)
  (("1000;50" "@30;-1%") (("0.000" "50.000" nil) ("30.000" "49.700" nil)))
  (("1000,50" "@30,0.5") (("0.000" "50.000" nil) ("30.000" "50.500" nil)))
  (("1000;50" "@40;-15‰") (("0.000" "50.000" nil) ("40.000" "49.400" nil)))
  (("1000;50" "1/50" "L100") (("0.000" "50.000" nil) ("100.000" "52.000" nil)))
  (("S1+000 P1,2" "S1100" "P2") (("0.000" "50.800" nil) ("100.000" "51.000" nil)))
  ;; where a slope comes to an altitude, and to a depth for the first time: 53 - 2.5 = 50 + x/200
  (("1000;50" "1%" "Z50.5") (("0.000" "50.000" nil) ("50.000" "50.500" nil)))
  (("1000;50" "P2.5 0,5%") (("0.000" "50.000" nil) ("100.000" "50.500" nil)))
  ;; to the left, and a curve at the vertex before
  (("1100;50" "C500" "1040;50" "1000;49") (("0.000" "49.000" nil) ("40.000" "50.000" nil) ("100.000" "50.000" nil)))
  (("1000;50" "1050;51" "CL20P" "1100;50") (("0.000" "50.000" nil) ("50.000" "51.000" ("P" "L" "20.000")) ("100.000" "50.000" nil))))
(passe (dialoguer 'c:plv-dessiner (append '("Projet") 'tapes '(""))))
((equal (ligne "Projet") (list 'attendu)) T)

(situation "ARefusedVertexLeavesTheOthers")
(tape ("PLV-PROJET" "Projet" "Dessiner" "1010;50" "S1300 Z50" "@20;1%" "L-5 Z50" "zut" "1200;50" "R" "Z50" "R" "1150;50" "")
  "Sommet refusé: cette station n'est pas dans le profil." "Illisible: zut; attendu: 120;134.2"
  "Sommet refusé: les stations vont en croissant, et non à la distance 25.000." "Il reste 2 sommets." "3 sommets, 140.00 m")
((ligne "Projet") ((("10.000" "50.000" nil) ("30.000" "50.200" nil) ("150.000" "50.000" nil))))

(situation "CurvesThatOverlapAreRefusedAtTheirVertex")
(tape ("PLV-DESSINER" "Projet" "1000;50" "1050;51" "C5000" "1060;50" "C100" "1100;50" "") "les raccordements se chevauchent" "3 sommets" "1 raccordement")

(situation "NothingIsDrawnWhenItIsGivenUp")
(tape ("PLV-DESSINER" "Projet" "1000;50" "1050;51") "Abandon: rien n'est tracé.")
(refuse (dialoguer 'c:plv-dessiner '("Projet" "1000;50" "")) "deux sommets au moins sont attendus")
((plv-lire-ligne p "Projet") nil)
((plv-lire-ligne p "TN") nil)

;; A click is put on what lies within ten pixels, here 1 unit: a point of the ground, a block, a round station, a depth, a round slope.
(situation "ClicksSnap")
(preparer
  (command "ZOOM" "C" "600,350" (* 0.1 (cadr (getvar "SCREENSIZE"))))
  (entmake '((0 . "BLOCK") (2 . "R") (70 . 2) (10 0.0 0.0 0.0)))
  (entmake '((0 . "ENDBLK")))
  (entmake (list '(0 . "INSERT") '(66 . 1) '(2 . "R") (cons 10 (sur 70.37 51.0))))
  (entmake (list '(0 . "ATTRIB") (cons 10 (sur 70.37 51.0)) '(40 . 1.0) '(1 . "R12") '(2 . "NUM") '(70 . 0)))
  (entmake '((0 . "SEQEND"))))
(tableau (d z mot attendu)
  (40.6 52.06 "point du terrain" (40.0 52.0))
  (70.9 51.05 "R12" (70.37 51.0))
  (70.9 47.0 "à R12" (70.37 47.0))
  (30.3 50.75 "1.20 sous le terrain" (30.0 50.8))
  (30.3 52.05 "sur le terrain" (30.0 52.0))
  (30.3 45.5 "" (30.0 45.5))
  ;; on the second plane
  (150.4 51.75 "1.20 sous le terrain" (150.0 51.8)))
((equal (plv-scene-accrocher (plv-scene p) nil (list d z)) (append 'attendu (list mot)) 1e-9) T)
(passe (dialoguer 'c:plv-dessiner (list "Projet" (sur 20.2 50.78) (sur 90.1 47.31) "")))
((ligne "Projet") ((("20.000" "50.800" nil) ("90.000" "47.300" nil))))

(situation "WhatIsShownWhileTheCursorMoves")
(preparer (command "ZOOM" "C" "600,350" (* 0.01 (cadr (getvar "SCREENSIZE")))) (setq scene (plv-scene p)))
((cadr (plv-dessiner:montrer scene '(((20.0 50.0 nil)) nil) (sur 60.0 49.2)))
 ("station 1060.00" "altitude 49.20" "3.13 sous le terrain" "distance 40.00, longueur 40.01" "pente -2.00 % = -20.0 ‰ = -1/50.0" "pente ronde"))
((car (cadr (plv-dessiner:montrer scene '(((20.0 50.0 nil)) (("L" 25.0))) (sur 60.0 49.2)))) "station 1045.00")
((cadr (plv-dessiner:montrer scene '(((40.0 50.0 nil) (20.0 50.0 nil)) nil) (sur 30.0 49.2))) ("refusé: les stations vont en croissant, et non à la distance 30.000"))
;; over two planes the line is in two pieces, and the mark follows: a vector is a pair of points
((length (car (plv-dessiner:montrer scene '(((20.0 50.0 nil)) nil) (sur 140.0 49.2)))) 14)

;; --- PLV-SOMMETS: ground 52 to 1040, 53 from 1100 to 1160, 52 at 1200

(commun
  (preparer
    (defun tracer () (plv-projet p "Voirie" '((1000.0 50.0) (1050.0 51.0 500.0) (1150.0 50.0 ("P" "L" 20.0)) (1200.0 51.0))))
    (defun valeurs (champ) (mapcar '(lambda (r) (plv-rangee-texte r champ 1000.0)) (plv-ligne-rangees (plv-sol (plv-points-tn p)) (plv-lire-ligne p "Voirie"))))))

;; The circle: slopes of 2 % and -1 %, half its length R tan((a1 + a2) / 2) along either slope; the parabola: -1 % and 2 %, its low point a third
;; of it after its beginning.
(situation "TheTableSaysWhatAVertexHas")
(preparer (tracer))
((valeurs "Station") ("1000.000" "1050.000" "1150.000" "1200.000"))
((valeurs "Profondeur") ("2.000" "1.167" "3.000" "1.000"))
((valeurs "Entree") ("" "2.0000" "-1.0000" "2.0000"))
((valeurs "Sortie") ("2.0000" "-1.0000" "2.0000" ""))
((valeurs "Longueur") ("50.000" "100.000" "50.000" ""))
((valeurs "Rayon") ("" "500.00" "666.67" ""))
((valeurs "Raccordement") ("" "14.998" "20.000" ""))
((valeurs "Debut") ("" "1042.502" "1140.000" ""))
((valeurs "Extremum") ("" "1052.500 ; 50.950" "1146.667 ; 50.067" ""))
(dit (plv-sommets-lister p "Voirie") "    1150.000     50.000      3.000   -1.0000    2.0000     50.000   parabole R 666.67 L 20.000 de 1140.000 à 1160.000, point bas 1146.667 ; 50.067")
(refuse (plv-sommets-lister p "AEp") "ce profil n'a pas de ligne AEp")

(situation "OneValueIsCorrectedAtATime")
(preparer (tracer) (setq avant (plv-elements-du-projet p "Voirie")))
(tableau (numero champ texte stations altitudes)
  (2 "Station" "1+060" ("0.000" "60.000" "150.000" "200.000") ("50.000" "51.000" "50.000" "51.000"))
  (2 "Altitude" "51,50" ("0.000" "50.000" "150.000" "200.000") ("50.000" "51.500" "50.000" "51.000"))
  (2 "Profondeur" "1.5" ("0.000" "50.000" "150.000" "200.000") ("50.000" "50.667" "50.000" "51.000"))
  (2 "Entree" "1/100" ("0.000" "50.000" "150.000" "200.000") ("50.000" "50.500" "50.000" "51.000"))
  (2 "Entree" "10‰" ("0.000" "50.000" "150.000" "200.000") ("50.000" "50.500" "50.000" "51.000"))
  (2 "Sortie" "-2" ("0.000" "50.000" "150.000" "200.000") ("50.000" "51.000" "49.000" "51.000"))
  (2 "Longueur" "85" ("0.000" "50.000" "135.000" "200.000") ("50.000" "51.000" "50.000" "51.000")))
(passe (plv-sommets-corriger p "Voirie" '((numero champ texte))))
((equal (mapcar '(lambda (s) (plv-reel (car s) 3)) (car (plv-lire-ligne p "Voirie"))) 'stations) T)
((equal (mapcar '(lambda (s) (plv-reel (cadr s) 3)) (car (plv-lire-ligne p "Voirie"))) 'altitudes) T)
;; the curves go on in their entities, and so do their dimensions
((equal (plv-elements-du-projet p "Voirie") avant) T)

(situation "CurvesKeepTheMeasureThatWasAsked")
(preparer (tracer))
(passe (plv-sommets-corriger p "Voirie" '((2 "Raccordement" "30") (3 "Rayon" "400") (2 "Altitude" "51.4"))))
((valeurs "Raccordement") ("" "30.000" "13.600" ""))
((valeurs "Rayon") ("" "714.50" "400.00" ""))
(passe (plv-sommets-corriger p "Voirie" '((2 "Forme" "parabole") (3 "Rayon" ""))))
((valeurs "Forme") ("" "P" "" ""))
((ligne "Voirie") ((("0.000" "50.000" nil) ("50.000" "51.400" ("P" "L" "30.000")) ("150.000" "50.000" nil) ("200.000" "51.000" nil))))

(situation "LockedValuesStay")
(preparer (tracer))
(tableau (verrou numero champ texte attendu)
  ("Entree" 2 "Station" "1060" (60.0 51.2)) ("Entree" 2 "Altitude" "51.2" (60.0 51.2))
  ("Sortie" 2 "Station" "1060" (60.0 50.9)) ("Profondeur" 2 "Station" "1020" (20.0 50.8333333333))
  ("Altitude" 2 "Entree" "4" (25.0 51.0)) ("Sortie" 2 "Entree" "1.4" (62.5 50.875))
  ("Altitude" 2 "Altitude" "51.2" "l'altitude du sommet 2 est verrouillée")
  ("Sortie" 2 "Sortie" "1" "la pente de sortie du sommet 2 est verrouillée")
  ("Sortie" 3 "Altitude" "50" nil)
  ("Station" 1 "Longueur" "60" "la station du sommet 2 est verrouillée"))
(passe (plv-ligne-editer p "Voirie" '(lambda (suites sol) (plv-ligne-verrouiller suites 2 verrou))))
((plv-verrou (cadr (car (plv-lire-ligne p "Voirie")))) verrou)
((or (null 'attendu) (if (= (type 'attendu) 'STR)
   (= (plv-table-faute p "Voirie" (plv-lire-ligne p "Voirie") nil '((numero champ texte))) 'attendu)
   (and (plv-sommets-corriger p "Voirie" '((numero champ texte)))
        (equal (plv-premiers (cadr (car (plv-lire-ligne p "Voirie"))) 2) 'attendu 1e-6)
        (= (plv-verrou (cadr (car (plv-lire-ligne p "Voirie")))) verrou)))) T)

(situation "WhatCantBeLeavesTheLine")
(preparer (tracer) (setq avant (ligne "Voirie") nombre (length (plv-elements-du-projet p "Voirie"))))
(tableau (changements dit-on)
  (((9 "Altitude" "50")) "il n'y a pas de sommet 9, mais 4 sommets")
  (((2 "Altitude" "haut")) "un nombre est attendu") (((2 "Forme" "carré")) "C (cercle) ou P (parabole) attendu")
  (((2 "Rayons" "50")) "il n'y a pas de telle valeur à changer") (((1 "Entree" "1")) "la ligne commence à ce sommet") (((4 "Sortie" "1")) "la ligne finit à ce sommet")
  (((2 "Station" "1250")) "la distance 250.000 n'est pas dans le profil") (((2 "Station" "1180")) "les stations vont en croissant, et non à la distance 150.000")
  (((2 "Rayon" "3000") (3 "Raccordement" "120")) "les raccordements se chevauchent entre les distances 50.000 et 150.000")
  (((1 "Forme" "C")) "ce sommet n'a pas de raccordement") (((2 "Altitude" "52") (2 "Rayon" "-1")) "une valeur positive est attendue"))
((plv-table-faute p "Voirie" (plv-lire-ligne p "Voirie") nil 'changements) dit-on)
(refuse (plv-sommets-corriger p "Voirie" 'changements) dit-on)
((equal (ligne "Voirie") avant) T)
((length (plv-elements-du-projet p "Voirie")) 6)

(situation "PartsOfALine")
(preparer (tracer))
(tape ("PLV-SOMMETS" "Voirie" "I" "1100" "" "I" "1120" "51" "S" "3" "C" "3" "A" "49.5" "") (sauf "Erreur"))
((ligne "Voirie") ((("0.000" "50.000" nil) ("50.000" "51.000" ("C" "R" "500.000")) ("120.000" "49.500" nil) ("150.000" "50.000" ("P" "L" "20.000")) ("200.000" "51.000" nil))))
;; a stretch cut out leaves curves as they were, and the runs are joined again
(tape ("PLV-SOMMETS" "Voirie" "INT" "1070" "1110" "Lister" "") "...")
((length (plv-lire-ligne p "Voirie")) 2)
((car (ligne "Voirie")) (("0.000" "50.000" nil) ("50.000" "51.000" ("C" "R" "500.000")) ("70.000" "50.571" nil)))
(tape ("PLV-SOMMETS" "Voirie" "J" "1" "D" "2-3" "5" "-0.5" "M" "1-1" "50.5" "") (sauf "Erreur"))
((length (plv-lire-ligne p "Voirie")) 1)
((car (mapcar '(lambda (s) (cadr s)) (car (ligne "Voirie")))) "51.000")
((cadr (car (ligne "Voirie"))) ("55.000" "50.500" ("C" "R" "500.000")))
(refuse (plv-ligne-editer p "Voirie" '(lambda (suites sol) (plv-ligne-interrompre suites 0.0 200.0))) "il ne resterait rien de la ligne")
(refuse (plv-ligne-editer p "Voirie" '(lambda (suites sol) (plv-ligne-joindre suites 1))) "il n'y a pas de partie suivante")

(situation "OneCommandIsOneStepBack")
(preparer (tracer) (setq avant (ligne "Voirie")))
(tape ("PLV-SOMMETS" "Voirie" "C" "2" "A" "51.5" "S" "3" "" "U") (sauf "Erreur"))
((equal (ligne "Voirie") avant) T)

(situation "AFileGoesOutAndComesBack")
(preparer (tracer) (setq avant (ligne "Voirie")))
(tape ("PLV-SOMMETS" "Voirie" "F" "E" "<dossier>l.csv" "D" "" "0" "-1" "F" "L" "<dossier>l.csv" "") "l.csv: 4 lignes" (sauf "Erreur"))
((equal (ligne "Voirie") avant) T)
((nth 1 (plv-lire-lignes "<dossier>l.csv")) "1000.000000;50.000000;;;2.000;;2.0000;50.000;;;;;")
;; runs with gaps, too
(tape ("PLV-SOMMETS" "Voirie" "INT" "1070" "1110" "F" "E" "<dossier>l.csv" "D" "" "0" "-1" "F" "L" "<dossier>l.csv" "") (sauf "Erreur"))
((mapcar 'length (plv-lire-ligne p "Voirie")) (3 3))
((cadr (cadr (cadr (ligne "Voirie")))) "50.000")
(preparer (plv-ligne-editer p "Voirie" '(lambda (suites sol) (plv-ligne-supprimer (plv-ligne-joindre suites 1) 3))) (setq avant (ligne "Voirie")))
(refuse (plv-sommets-remplacer p "Voirie" '("1000;50" "1100;x") "collé") "collé, ligne 2 illisible")
(refuse (plv-sommets-remplacer p "Voirie" '("1000;50" "1100;51" "1100;50") "collé") "les stations vont en croissant")
((equal (ligne "Voirie") avant) T)

;; --- PLV-TIRER: slopes of 2 %, -1 % and 2 % meet at 1050;51 and 1150;50

(commun
  (preparer
    (defun places (/ suites) (arrondis (mapcar '(lambda (s) (plv-premiers s 2)) (apply 'append (plv-lire-ligne p "Voirie")))))
    (defun tirer (reponses) (dialoguer '(lambda () (plv-tirer p "Voirie")) reponses))))

(situation "AVertexIsDraggedInSeveralWays")
(preparer (tracer) (setq plv-scene:pas-pente 0.0 plv-scene:profondeurs nil) (command "ZOOM" "C" "600,350" "20"))
(tableau (facon d z attendu)
  ("Libre" 60.02 51.3 ("60.000" "51.300")) ("Vertical" 60.0 51.3 ("50.000" "51.300")) ("Horizontal" 60.0 51.3 ("60.000" "51.000"))
  ("Entree" 60.0 53.0 ("60.000" "51.200")) ("SO" 60.0 53.0 ("60.000" "50.900")))
(passe (tirer (list "2" facon (sur d z) "")))
((equal (places) (list '("0.000" "50.000") 'attendu '("150.000" "50.000") '("200.000" "51.000"))) T)

(situation "NumbersAreTypedWhileItIsDragged")
(preparer (tracer))
(tableau (reponses attendu)
  (("S1060 Z51.3") ("60.000" "51.300")) (("V" "P1.5") ("50.000" "50.667")) (("H" "S1040") ("40.000" "51.000"))
  (("@40;1.5%") ("40.000" "50.600")) (("V" "1%") ("50.000" "50.500"))
  ;; 2 % from 50 is 1.2 under the ground of 52 after 40 m
  (("E" "P1.2") ("40.000" "50.800")))
(passe (tirer (append '("2") 'reponses '(""))))
((equal (cadr (places)) 'attendu) T)

;; A place that nothing snaps to is round: to the power of ten below a pixel, a millimetre at least. A pixel of the first view is 2 cm of altitude
;; and 20 cm along, of the second 2 mm and 2 cm.
(situation "AFreePlaceIsRound")
(preparer (tracer) (setq plv-scene:pas-pente 0.0 plv-scene:profondeurs nil plv-scene:pas-station 0.0))
(tableau (vue attendu)
  ("200" ("60.100" "51.340")) ("20" ("60.120" "51.342")) ("1" ("60.123" "51.342")))
(preparer (command "ZOOM" "C" "600,350" vue))
(passe (tirer (list "2" (sur 60.12345 51.34249) "")))
((cadr (places)) attendu)

;; a vertex that is dropped straight over its neighbour is refused
(situation "AVertexStaysBetweenItsNeighbours")
(preparer (tracer))
(passe (tirer (list "2" "S1150 Z50" (sur 150.0 50.0) "" "")))
((places) (("0.000" "50.000") ("50.000" "51.000") ("150.000" "50.000") ("200.000" "51.000")))

;; In parallel the stations stay; sliding, the ends go along the slopes outside: up by 0.25 the run of -1 % meets 2 % a third of 25 m further out.
(situation "ARunIsDraggedInParallelOrAlongItsNeighbours")
(preparer (tracer) (command "ZOOM" "C" "600,350" "20"))
(passe (tirer (list "2-3" (sur 100.0 50.75) "")))
((places) (("0.000" "50.000") ("50.000" "51.250") ("150.000" "50.250") ("200.000" "51.000")))
(passe (tirer (list "2-3" (sur 100.0 50.5) "" )))
(passe (tirer (list "2-3" "Glisser" (sur 100.0 50.75) "")))
((places) (("0.000" "50.000") ("58.333" "51.167") ("158.333" "50.167") ("200.000" "51.000")))
(passe (tirer (list "1-4" (sur 100.0 50.5) "")))
((places) (("0.000" "49.750") ("58.333" "50.917") ("158.333" "49.917") ("200.000" "50.750")))

;; The crown of a circle of 500 between 2 % and -1 % is 0.0562 under the vertex; through a point lower by as much its radius doubles. Lengths stay
;; lengths: the parabola of 20 m is 0.075 over its vertex, of 40 m 0.15.
(situation "ACurveIsDraggedAndKeepsItsMeasure")
(preparer (tracer))
(passe (tirer (list "C2" (sur 50.0 (- 51.0 (* 2.0 (- 51.0 (plv-altitude-projet p (plv-elements-situes p "Voirie") (plv-plans p) 50.0))))) "")))
((mapcar '(lambda (t) (plv-reel (atof t) 1)) (cdr (valeurs "Rayon"))) ("1000.0" "666.7" "0.0"))
(passe (tirer (list "C3" (sur 150.0 50.15) "")))
((cddr (valeurs "Raccordement")) ("40.000" ""))
((mapcar '(lambda (s) (plv-demande-mesure (plv-demande-de s))) (cdr (reverse (cdr (car (plv-lire-ligne p "Voirie")))))) ("L" "R"))
(passe (tirer '("2" "C300P" "")))
((valeurs "Forme") ("" "P" "P" ""))
;; and one is made by hand: the crown of R is R (1 / cos a - 1) under the vertex, a the half of the angle: 0.0562 for 500
(passe (tirer '("2" "C0" "")))
((valeurs "Rayon") ("" "" "1333.33" ""))
(passe (tirer (list "2" "RA" (sur 50.0 (- 51.0 0.0562)) "")))
((cadr (valeurs "Rayon")) "500.00")
((mapcar 'plv-scene-ronde '(1437.0 5603.0 38.7 0.4)) (1500.0 5500.0 40.0 0.4))
(tape ("PLV-TIRER" "Voirie" "1" "RA" "(sur 10.0 50.0)" "" "") "Refusé: un raccordement est entre deux pentes.")

(situation "WhatIsSeenWhileItIsDragged")
(preparer (tracer) (command "ZOOM" "C" "600,350" "200")
  (setq plv-scene:pas-pente 0.0 plv-scene:profondeurs nil scene (plv-scene p) suites (plv-lire-ligne p "Voirie") prise (plv-prise-nommee suites (plv-prises suites) "2"))
  (defun vu (d z) (plv-tirer:apercu scene suites (plv-tirer:essai scene suites prise "Libre" nil (sur d z)) prise))
  (defun couleurs (traits) (vl-remove-if-not 'numberp traits)))
((vl-position "rayon 500.00, longueur 14.998 (rayon gardé)" (cadr (vu 50.0 51.0))) nil)
((plv-dernier (cadr (vu 50.0 51.0))) "profondeur de 1.00 à 1200.00, à 2.93 à 1146.67")
((couleurs (car (vu 50.0 51.0))) (5))
;; at 141 the curve of 500 goes 500 tan((a1 + a2) / 2) cos a2 = 29.29 m to the right and that of 20 m 10 m to the left, of 9 m: both are red
((couleurs (car (vu 141.0 51.0))) (5 1 1))
((car (cadr (vu 141.0 51.0))) "raccordements de trop: 30.29 m entre 141.00 et 150.00")
((car (cadr (vu 160.0 51.0))) "un sommet a passé son voisin")

(situation "ARefusedDragLeavesTheLineInTheHand")
(preparer (tracer) (setq avant (places)))
(tape ("PLV-TIRER" "Voirie" "9" "2" "S1149 Z51" "zut" "S1160 Z51" "" "")
  "Illisible: 9; attendu: un clic, 3 pour un sommet, 3-5 pour plusieurs, C3 pour un raccordement."
  "Refusé: les raccordements se chevauchent" "Illisible: zut" "Refusé: les stations vont en croissant")
((equal (places) avant) T)
(passe (plv-ligne-editer p "Voirie" '(lambda (suites sol) (plv-ligne-verrouiller suites 2 "Sortie"))))
(tape ("PLV-TIRER" "Voirie" "3" "V" "Z50.5" "" "2" "S1060" "") "Refusé: la pente de sortie du sommet 2 est verrouillée" "(SOrtie)")
((cadr (places)) ("60.000" "50.900"))

(situation "VerticesAreInsertedAndTakenAwayByHand")
(preparer (tracer))
(tape ("PLV-TIRER" "Voirie" "I" "1100;50.2" "S" "2" "U2" "A" "0" "0,5" "1.2 2.5" "A" "" "" "" "") "Illisible: U2"
  "Pas des stations en m, 0 pour aucun <0.00>: " "Pas des pentes en %, 0 pour aucun <0.500>: " "séparées par des blancs <1.20 2.50>: ")
((places) (("0.000" "50.000") ("100.000" "50.200") ("150.000" "50.000") ("200.000" "51.000")))

;; --- a second line of a kind: scripts that say nothing get it added, as ever

(situation "ASecondLineOfAKind")
(tableau (maniere attendu)
  (nil ((("0.000" "50.000" nil) ("100.000" "51.000" nil)) (("0.000" "49.000" nil) ("50.000" "50.000" ("C" "R" "500.000")) ("100.000" "49.000" nil))))
  ("Remplacer" ((("0.000" "49.000" nil) ("50.000" "50.000" ("C" "R" "500.000")) ("100.000" "49.000" nil))))
  ("Variante" ((("0.000" "50.000" nil) ("100.000" "51.000" nil)))))
(preparer (plv-projet p "AEp" '((1000.0 50.0) (1100.0 51.0))) (plv-regler-seconde maniere))
(tape ("PLV-PROJET" "AEp" "POints" "1000,49" "1050,50" "1100,49" "" "Rayon" "500" "C") (sauf "Il y a déjà" "Erreur"))
(preparer (plv-regler-seconde nil))
((if maniere (equal (ligne "AEp") 'attendu) (= (length (plv-elements-du-projet p "AEp")) 4)) T)
((equal (mapcar '(lambda (v) (arrondis (plv-variante-suites p v))) (plv-variantes p))
        (if (= maniere "Variante") '(((("0.000" "49.000") ("50.000" "50.000" ("C" "R" "500.000")) ("100.000" "49.000")))))) T)

(situation "APersonIsAsked")
(preparer (plv-projet p "AEp" '((1000.0 50.0) (1100.0 51.0))) (plv-regler-seconde "Demander"))
(tape ("PLV-DESSINER" "AEp" "Remplacer" "1000;49" "") "Il y a déjà une ligne AEp [Remplacer/Suite/Variante/Ajouter] <Remplacer>: " "deux sommets au moins")
((ligne "AEp") ((("0.000" "50.000" nil) ("100.000" "51.000" nil))))
;; what goes on at the end of the line is one line with it; what lies over it is refused
(tape ("PLV-DESSINER" "AEp" "Suite" "1100;51" "1200;50" "") (sauf "Erreur"))
((ligne "AEp") ((("0.000" "50.000" nil) ("100.000" "51.000" nil) ("200.000" "50.000" nil))))
(tape ("PLV-DESSINER" "AEp" "Suite" "1050;51" "1150;50" "") "deux parties de la ligne sont l'une sur l'autre entre les distances 50.000 et 100.000")
((length (plv-elements-du-projet p "AEp")) 3)
(tape ("PLV-DESSINER" "AEp" "S" "1100;51" "1200;50" "") "l'une sur l'autre")
(preparer (plv-regler-seconde nil))

(situation "VariantsTakeTheLinesPart")
(preparer (plv-projet p "AEp" '((1000.0 50.0) (1100.0 51.0 ("P" "L" 40.0)) (1200.0 49.0))) (setq avant (ligne "AEp")))
(tape ("PLV-SOMMETS" "AEp" "Garder" "Corriger" "2" "A" "50.5" "") "Variante 1 sur le calque PLV-VARIANTE-1." (sauf "Erreur"))
;; the ground is 510 m2 over 50, the line nought, less 1.33 under the parabola, whose chords add 0.03; at its vertex it is 0.1 lower
(tape ("PLV-VARIANTES" "ECH" "1")
  "-             AEp   en place       3    200.01    -1.50 à 0.50     1.80 à 3.40     511.36            -" "La variante 1 est la ligne AEp, qui devient variante.")
((equal (ligne "AEp") avant) T)
((length (plv-variantes p)) 1)
((cadr (car (arrondis (plv-variante-suites p (car (plv-variantes p)))))) ("100.000" "50.500" ("P" "L" "40.000")))
(tape ("PLV-VARIANTES" "1") "La variante 1 est la ligne AEp.")
((cadr (car (ligne "AEp"))) ("100.000" "50.500" ("P" "L" "40.000")))
((plv-variantes p) nil)

;; --- lines of other programs: 2 %, -1 % and 2 %, a circle of 500 and a parabola of 20 m between them

(commun
  (preparer
    (setq exacts '((0.0 50.0) (50.0 51.0 ("C" "R" 500.0)) (150.0 50.0 ("P" "L" 20.0)) (200.0 51.0)))
    (defun dessin (points) (mapcar '(lambda (q) (plv-vers-dessin (plv-cadre p) (car q) (cadr q))) points))
    ;; the line by its formulas: from c1 to c2 the circle, whose centre stands on the uprights to both slopes there
    (setq a1 (atan 0.02) a2 (atan 0.01) demi (* 0.5 (+ a1 a2)) tangente (* 500.0 (/ (sin demi) (cos demi)))
          c1 (- 50.0 (* tangente (cos a1))) c2 (+ 50.0 (* tangente (cos a2)))
          xc (+ c1 (* 500.0 (sin a1))) zc (- (+ 50.0 (* 0.02 c1)) (* 500.0 (cos a1))))
    (defun z (d)
      (cond ((< d c1) (+ 50.0 (* 0.02 d)))
            ((< d c2) (+ zc (sqrt (- 250000.0 (expt (- d xc) 2)))))
            ((< d 140.0) (- 51.0 (* 0.01 (- d 50.0))))
            ((< d 160.0) (+ 50.1 (* -0.01 (- d 140.0)) (* 0.5 (/ 0.03 20.0) (expt (- d 140.0) 2))))
            ((+ 50.0 (* 0.02 (- d 150.0))))))
    (defun semis (a b pas / points d) (setq d a) (while (< d (- b 1e-6)) (setq points (cons (list d (z d)) points) d (+ d pas))) (reverse (cons (list b (z b)) points)))
    (defun reconnu (jeu) (dialoguer 'c:plv-projet (list "Voirie" "REconnue" jeu "" "0.005")) (car (plv-lire-ligne p "Voirie")))
    (defun arrondi (s) (list (plv-reel (car s) 2) (plv-reel (cadr s) 2) (if (caddr s) (list (car (caddr s)) (plv-reel (nth 2 (caddr s)) 0)))))))

(situation "ChordsAreCurvesAgain")
(preparer
  (setq a (plv-polyligne "0" (dessin (append '((0.0 50.0)) (semis c1 c2 1.5) '((100.0 50.5) (120.0 50.3)))))
        b (plv-polyligne "0" (mapcar '(lambda (q) (plv-vers-dessin-sur (plv-cadre p) '(120.0 40.0) (car q) (cadr q)))
                               (append '((120.0 50.3)) (semis 140.0 160.0 2.0) '((180.0 50.6) (200.0 51.0)))))))
((mapcar 'arrondi (reconnu (plv-jeu (list a b))))
 (("0.00" "50.00" nil) ("50.00" "51.00" ("C" "500")) ("150.00" "50.00" ("P" "20")) ("200.00" "51.00" nil)))

;; An arc of the drawing is an ellipse's of the profile, very near a circle's and a parabola's; a spline through points of the circle is the circle.
(situation "ArcsAndSplinesAreCurvesAgain")
(preparer
  (setq debut (car (dessin '((30.0 50.6)))) fin (car (dessin '((70.2950 50.79705)))) sommet (car (dessin '((50.0 51.0))))
        quart (* 0.25 (- (angle sommet fin) (angle debut sommet) pi pi))
        arc (entmakex (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(100 . "AcDbPolyline") '(90 . 4) '(70 . 0)
                            (cons 10 (car (dessin '((0.0 50.0))))) (cons 10 debut) (cons 42 (/ (sin quart) (cos quart))) (cons 10 fin)
                            (cons 10 (car (dessin '((110.0 50.4))))))))) ; both tangents are 20.396 units long
(tape ("PLV-PROJET" "Voirie" "REconnue" "(plv-jeu (list arc))" "" "0.01") "m à la station" (sauf "Erreur"))
((length (car (plv-lire-ligne p "Voirie"))) 3)
((mapcar '(lambda (s) (plv-premiers (arrondi s) 2)) (car (plv-lire-ligne p "Voirie"))) (("0.00" "50.00") ("50.00" "51.00") ("110.00" "50.40")))
(refuse (plv-projet-reconnu p "AEp" (plv-jeu (list arc)) 1e-9) "la ligne reconnue s'écarte de")
((plv-lire-ligne p "AEp") nil)
(preparer
  (setq lisse (entmakex (append '((0 . "SPLINE") (100 . "AcDbEntity") (100 . "AcDbSpline") (70 . 8) (71 . 3) (74 . 9) (44 . 1e-10))
                                (mapcar '(lambda (q) (cons 11 q)) (dessin (semis c1 c2 (/ (- c2 c1) 8.0)))))))
  (setq droites (list (plv-polyligne "0" (dessin (list '(0.0 50.0) (list c1 (z c1))))) (plv-polyligne "0" (dessin (list (list c2 (z c2)) '(100.0 50.5)))))))
(passe (plv-projet-reconnu p "Generique" (plv-jeu (cons lisse droites)) 0.005))
((mapcar '(lambda (s) (plv-premiers (arrondi s) 2)) (car (plv-lire-ligne p "Generique"))) (("0.00" "50.00") ("50.00" "51.00") ("100.00" "50.50")))
;; the curves stay; a closed one is refused by its name
((and (plv-existe lisse) (plv-existe arc)) T)
(preparer (setq c (entmakex '((0 . "CIRCLE") (10 550.0 350.0 0.0) (40 . 5.0)))))
(refuse (plv-projet-reconnu p "AEp" (plv-jeu (list c)) 0.01) "au lieu d'une ligne")

;; Lines of random vertices and curves, drawn as chords by another program, come back vertex by vertex.
(situation "RandomLinesComeBack")
(fichier "plat.csv" "0;55\n600;55\n")
(preparer
  (setq p (plv-nouveau "<dossier>plat.csv" "9" '(0.0 9000.0 0.0) 10.0 2.5 500.0 nil) graine 12345)
  (defun alea (a b) (setq graine (rem (+ (* graine 1103.0) 12345.0) 65536.0)) (+ a (* (- b a) (/ graine 65536.0))))
  (defun hasard (/ d sommets)
    (setq d 0.0 sommets '((0.0 50.0 nil)))
    (repeat 5
      (setq d (+ d (alea 60.0 100.0))
            sommets (cons (list d (alea 48.0 52.0) (if (> (alea 0 1) 0.3) (list (if (> (alea 0 1) 0.5) "C" "P") "L" (alea 15.0 50.0)))) sommets)))
    (reverse (cons '(600.0 50.0 nil) sommets)))
  (defun cordes (sommets) (apply 'append (mapcar '(lambda (s r) (if r (plv-reconnaitre:de-cubique (plv-raccord-courbe r) 12) (list s))) sommets (plv-raccords sommets))))
  (defun revient-p (sommets / lus)
    (setq lus (plv-reconnaitre-courbes p (list (plv-polyligne "0" (dessin (cordes sommets)))) 0.005))
    (and (listp lus) (= (length (caar lus)) (length sommets))
         (vl-every '(lambda (a b) (and (equal (car a) (car b) 1e-6) (equal (cadr a) (cadr b) 1e-6) (= (null (caddr a)) (null (caddr b))))) (caar lus) sommets))))
((progn (setq bons 0) (repeat 20 (if (revient-p (hasard)) (setq bons (1+ bons)))) bons) 20)

;; A curve that vertices can't tell isn't turned into points by the way: the line is left, and it is said how it becomes one of vertices.
(situation "LinesOfOtherProgramsAreLeftAsTheyAre")
(preparer
  (setq arc (entmakex (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(100 . "AcDbPolyline") '(90 . 3) '(70 . 0)
                            (cons 10 (sur 0.0 50.0)) (cons 10 (sur 30.0 50.6)) '(42 . -0.1) (cons 10 (sur 70.0 50.8)))))
  (plv-admettre p "AEp" (list arc)) (setq avant (entget arc)))
(refuse (plv-sommets-corriger p "AEp" '((1 "Altitude" "49"))) "la ligne AEp a des courbes d'un autre programme (la polyligne" "REconnue de PLV-PROJET")
(tape ("PLV-TIRER" "AEp") "la ligne AEp a des courbes d'un autre programme")
((plv-bureau-prises (plv-handle arc)) nil)
((equal (entget arc) avant) T)
;; straight ones are vertices, whoever drew them
(passe (plv-admettre p "Voirie" (list (plv-polyligne "0" (list (sur 0.0 50.0) (sur 50.0 51.0) (sur 100.0 50.0))))))
(passe (plv-sommets-corriger p "Voirie" '((2 "Altitude" "51.5"))))
((cadr (car (ligne "Voirie"))) ("50.000" "51.500" nil))
