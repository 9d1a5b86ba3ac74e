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
