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
   (= (plv-sommets-faute p "Voirie" '((numero champ texte))) 'attendu)
   (and (plv-sommets-corriger p "Voirie" '((numero champ texte)))
        (equal (plv-premiers (cadr (car (plv-lire-ligne p "Voirie"))) 2) 'attendu 1e-6)
        (= (plv-verrou (cadr (car (plv-lire-ligne p "Voirie")))) verrou)))) T)

(situation "WhatCantBeLeavesTheLine")
(preparer (tracer) (setq avant (ligne "Voirie") nombre (length (plv-elements-du-projet p "Voirie"))))
(tableau (changements dit-on)
  (((9 "Altitude" "50")) "il n'y a pas de sommet 9, mais 4 sommets")
  (((2 "Altitude" "haut")) "un nombre est attendu") (((2 "Forme" "carré")) "C (cercle) ou P (parabole) attendu")
  (((2 "Debut" "50")) "cette valeur se calcule") (((1 "Entree" "1")) "la ligne commence à ce sommet") (((4 "Sortie" "1")) "la ligne finit à ce sommet")
  (((2 "Station" "1250")) "la distance 250.000 n'est pas dans le profil") (((2 "Station" "1180")) "les stations vont en croissant, et non à la distance 150.000")
  (((2 "Rayon" "3000") (3 "Raccordement" "120")) "les raccordements se chevauchent entre les distances 50.000 et 150.000")
  (((1 "Forme" "C")) "ce sommet n'a pas de raccordement") (((2 "Altitude" "52") (2 "Rayon" "-1")) "une valeur positive est attendue"))
((plv-sommets-faute p "Voirie" 'changements) dit-on)
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
(refuse (plv-sommets-remplacer p "Voirie" '("1000;50" "1100;x") "collé") "collé, ligne 2 illisible")
(refuse (plv-sommets-remplacer p "Voirie" '("1000;50" "1100;51" "1050;50") "collé") "les stations vont en croissant")
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

;; In parallel the stations stay; sliding, the ends go along the slopes outside: up by 0.25 the run of -1 % meets 2 % a third of 25 m further out.
(situation "ARunIsDraggedInParallelOrAlongItsNeighbours")
(preparer (tracer))
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
(tape ("PLV-TIRER" "Voirie" "I" "1100;50.2" "S" "2" "U2" "") "Illisible: U2")
((places) (("0.000" "50.000") ("100.000" "50.200") ("150.000" "50.000") ("200.000" "51.000")))
