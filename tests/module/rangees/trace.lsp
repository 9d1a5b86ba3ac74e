;; Lines that the user draws, typed as station and altitude or picked; the ground is 150 m long.

(commun (preparer (load "outils.lsp") (load "profil.lsp") (load "matrice.lsp") (marque)))

(situation "TypedPointsAreStationAndAltitude")
(tape ("(pl_TracerLignes prf)" "12.5,104.2" "30,105" ""))
((vu) ("LINE 112.50,142.00 130.00,150.00"))
(preparer (marque))
(tape ("(pl_TracerLignes prf)" ""))
((vu) nil)

(situation "WhatDoesntFitIsAskedAgain")
(tape ("(pl_TracerLignes prf)" "10,100" "abc" "20" ",," "900,100" "20,,100" ""))
((vu) ("LINE 110.00,100.00 120.00,100.00"))

(situation "GraphicPointsAreTakenAsTheyAre")
(tape ("(pl_TracerLignes prf)" "10,100" "g" "0,0" "P" "20,100" ""))
((vu) ("LINE 110.00,100.00 0.00,0.00" "LINE 0.00,0.00 120.00,100.00"))
