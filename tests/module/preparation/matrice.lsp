;; The matrix M on `prf`, drawn at (0,0) with text height 1: row "1" of height 1.5 and type 0, row "2" of height 2 and type 13,
;; which lies between -1.5 and -3.5 and is selected, and row "3" of height 40, from -3.5 to -43.5.

(pl_ResetMatrices)
(pl_DefinirLigneMatrice "M" "1" "Altitude" 1.5 0)
(pl_DefinirLigneMatrice "M" "2" "Distances" 2.0 13)
(pl_DefinirLigneMatrice "M" "3" "Observations" 40.0 9)
(pl_DessinerMatrices prf '(0.0 0.0 0.0) 1.0 5.0)
(pl_SelectLigne 0 1)
