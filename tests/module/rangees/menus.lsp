;; Dynamic menus: menus in the host's bar, an entry run by its label, the menu of a profile. The macros are what the command line
;; receives, trailing blank included.

(commun (preparer (load "outils.lsp") (load "profil.lsp") (load "matrice.lsp")))

(situation "WrongCallsGiveNil")
((pl_CreeMenu "G") nil)
((pl_CreeMenu "G" "M" "x") nil)
((pl_AddSep) nil)
((pl_AddSep "absent") nil)
((pl_AddOptionMenu "absent" "l" "m") nil)
((pl_RemoveMenu "absent") nil)
((pl_RemoveDynMnus) nil)
((pl_PlacerMenusKavel "VARDANE4" "P1") nil)

(situation "ComeIntoTheBarAndRunTheirMacros")
((pl_CreeMenu "Essais" "Outils") T)
((pl_CreeMenu "ESSAIS" "OUTILS") nil) ; it is there
((pl_AddOptionMenu "outils" "Compter" "(setq n 1) (setq n (+ n 2)) ") T)
((pl_AddSep "Outils") T)
((pl_AddOptionMenu "Outils" "Noter" "setvar;USERI1 7 ") T)
(tape ("menu" "?") "\nOutils\n  Compter\n  --\n  Noter\n")
(tape ("menu" "Outils/compter" "menu" "NOTER"))
(n 3)
((getvar "USERI1") 7)
((pl_RemoveMenu "outils") T)
((pl_RemoveMenu "outils") nil)
((pl_RemoveDynMnus) nil)
(tape ("menu" "") (sauf "Compter"))

(situation "TheProfileMenuFollowsTheChosenProfile")
(preparer (pl_ChoixProfil prf) (pl_ChoixProfil prf))
(tape ("menu" "") "\nProfil P1\n  Altitude\n  Distances\n  Observations\n  --\n  Cotation Automatique")
(preparer (pl_RemoveDynMnus))
(tape ("menu" "") (sauf "Profil P1"))
;; What is no profile isn't refused: the collection is emptied, and the menu goes.
(preparer (pl_ChoixProfil prf) (pl_ChoixProfil pc1))
(tape ("menu" "") (sauf "Profil P1"))
((pl_SelectMatrice 0) nil)

(situation "MenusOfAnotherGroupGoWhenTheGroupChanges")
((pl_CreeMenu "Premier" "Un") T)
((pl_CreeMenu "PREMIER" "Deux") T)
(tape ("menu" "") "\nUn\n" "\nDeux\n")
((pl_CreeMenu "Divers" "Seul") T)
(tape ("menu" "") "\nSeul\n" (sauf "Un" "Deux"))
;; that of the profile, which is made in a group of its own, too
(preparer (pl_ChoixProfil prf))
(tape ("menu" "") "\nProfil P1\n" (sauf "Seul"))
((pl_CreeMenu "Premier" "Trois") T)
(tape ("menu" "") "\nTrois\n" (sauf "Profil P1"))
(preparer (pl_ChoixProfil prf) (pl_RemoveDynMnus))
(tape ("menu" "") "La barre de menus est vide.")
