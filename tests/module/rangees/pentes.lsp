;; Diagonals in the selected row, between -1.5 and -3.5; the profile is 150 m long.

(commun (preparer (load "outils.lsp") (load "profil.lsp") (load "matrice.lsp")))

(situation "DiagonalsAreHeldInTheRowAndOnTheGround")
((dessine '(pl_ligneMatrice 10 0 20 1)) (nil "LINE 10.00,-3.50 20.00,-1.50"))
((dessine '(pl_ligneMatrice 20 1 10 0)) (nil "LINE 10.00,-3.50 20.00,-1.50"))
((dessine '(pl_ligneMatrice -5 1.5 999 -0.5)) (nil "LINE 0.00,-1.50 150.00,-3.50"))
((dessine '(pl_ligneMatrice 10 0 20 1 "5 %")) (nil "LINE 10.00,-3.50 20.00,-1.50" "5 % @14.96,-2.30 h1.00 r11 1/0"))
((dessine '(pl_ligneMatrice 10 0 20)) (nil))
((dessine '(pl_ligneMatrice 10 0 20 "1")) (nil))

(situation "WithoutGroundEverythingFallsOnTheStart")
(preparer (entmod (append (entget prf) '((-3 ("KELMONT_PLV2"))))))
((dessine '(pl_ligneMatrice 10 0 20 1)) (nil "LINE 0.00,-3.50 0.00,-1.50"))
