;; The function that draws a project line, on flat ground at 10 m: its trials at search coordinates, then the line in the graphic.

(commun (preparer (load "outils.lsp") (load "profil.lsp") (load "optimal.lsp") (marque)))

(situation "DrawsItsTrialsAndTheLine")
(tape ("(setq r (pl_TraceOptimal))" "(eval prf)" "100,90" "130,50" "1" "2"))
((traces) ("LINE 0.00,9.00 30.00,5.00" "LINE 0.00,9.00 20.00,8.50" "LWPOLYLINE 100.00,90.00 120.00,85.00 120.00,85.00 130.00,50.00 "))
;; The greater depth first.
(preparer (marque))
(tape ("(setq r (pl_TraceOptimal))" "(eval prf)" "100,90" "130,50" "2" "1")
  "Selectionnez le profil en long " "Point de depart :" "Point d'arrivee :"
  "Profondeur minimale (nombre negatif pris comme surelevation) :"
  "Profondeur Maximale (nombre negatif pris comme surelevation) :")
((traces) ("LINE 0.00,9.00 30.00,5.00" "LINE 0.00,9.00 20.00,8.50" "LWPOLYLINE 100.00,90.00 120.00,85.00 120.00,85.00 130.00,50.00 "))

;; The end is picked in a second section, whose plane is at 0 m; the line is drawn over the first plane all the same.
(situation "TheFirstPlaneServesForEveryVertex")
(preparer
  (setq pc2 (point))
  (plsxd pc2 "PC" 0.0) (plsxd pc2 "DISTANCE" 15.0) (plsxd pc1 "DISTANCE" 15.0) (plsxd pc1 "NEXT-PC" pc2)
  (marque))
(tape ("(setq r (pl_TraceOptimal))" "(eval prf)" "100,90" "130,100" "1" "2"))
((traces) ("LINE 0.00,9.00 30.00,5.00" "LINE 0.00,9.00 20.00,8.50" "LWPOLYLINE 100.00,90.00 120.00,85.00 120.00,85.00 130.00,50.00 "))

(situation "AChainOfMoreThanTwoPointsIsTracedRaised")
(preparer (pl_add_xdata 10.0 10.0 (handle prf)) (pl_add_xdata 10.0 10.0 (handle prf)))
(tape ("(setq r (pl_TraceOptimal))" "(eval prf)" "100,90" "150,0" "1" "2"))
((traces) ("LINE 0.00,9.00 50.00,0.00" "LINE 0.00,9.00 40.00,8.50" "LWPOLYLINE 100.00,90.00 140.00,85.00 140.00,85.00 150.00,0.00 "))

(situation "EndsWithoutADrawingWhenAPromptHasNoAnswer")
(tape ("(setq r (pl_TraceOptimal))" "(eval prf)" ""))
((traces) nil)
(tape ("(setq r (pl_TraceOptimal))" "(eval prf)" "100,90" ""))
((traces) nil)
(tape ("(setq r (pl_TraceOptimal))" "(eval prf)" "100,90" "130,50" ""))
((traces) nil)
(tape ("(setq r (pl_TraceOptimal))" "(eval prf)" "100,90" "130,50" "1" ""))
((traces) nil)
(tape ("(setq r (pl_TraceOptimal))" "(eval pc1)"))
((traces) nil)
(r nil)
