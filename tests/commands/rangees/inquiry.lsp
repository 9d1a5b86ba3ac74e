;; The results of the inquiry commands, in the drawing's units.
;; At most three decimals are shown (LUPREC).

(situation "MeasuresAndDescribes")
(preparer
  (setvar "LUPREC" 3)
  (entmake '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (8 . "TN") (100 . "AcDbPolyline") (90 . 3) (70 . 1)
             (10 0. 0.) (10 4. 0.) (10 4. 3.))))
(dit (command "_.DIST" "0,0,0" "30,40,-1")
  "Distance = 50.01, en plan = 50, direction en plan = 53" "X = 30   Y = 40   Z = -1   Pente = -2.00 %")
(dit (command "_.DIST" "1,1,0" "1,1,2") "X = 0   Y = 0   Z = 2\n")
(dit (command "_.ID" "1.5,2.25") "X = 1.5   Y = 2.25   Z = 0")
(dit (command "_.LIST" (entlast) "")
  "LWPOLYLINE  calque: TN  identificateur: " "\n  longueur: 12\n  aire: 6\n")
