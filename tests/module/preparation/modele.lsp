;; Two matrices that aren't drawn: Route with the rows A and B, Reseau with a row without a name.

(pl_ResetMatrices)
(pl_DefinirLigneMatrice "Route" "A" "Altitude" 1.5 4)
(pl_DefinirLigneMatrice "ROUTE" "B" "Distance" 2 13)
(pl_DefinirLigneMatrice "Reseau" "" "Sans nom" 1.0 0)
