;; C:CUBPL from the command line: profiles, projects, hatches, and what each button says. Answers are typed as a script would;
;; lists are read from what appears.

(commun (preparer (load "outils.lsp") (load "profil.lsp") (load "matrice.lsp") (load "trace.lsp") (load "projets.lsp")))

;; Here what is deeper than all classes has no width, whereas the workbook gives it that of the last class.
(situation "BelowTheLastClassTheDialogCountsNoVolume")
(preparer
  (setq c (tronc 0.0 90.0 40.0 92.0 95.0))
  (pl_elem_prj prf "V" c)
  (setq l (dialoguer c:cubpl (list "AjouterProfils" (progn (setq s (ssadd)) (ssadd prf s)) "" "Fermer"))))
((cdddr (nth 2 (car l))) ("40.000" " 7 -     10.000 " "     0.000 " "   400.000 "))

(situation "AsksForTheProjectOnceAndOnlyWhenThereAreSeveral")
(preparer (pl_elem_prj prf "V" a) (pl_elem_prj prf "P" b))
(tape ("CUBPL" "Ajouter Profils" "!prf" "" "2" "OK" "Fermer")
  "Selectionnez quel projet a utiliser\n" "1  Voirie\n" "2  Projet\n" "100.000  150.000")
;; A cancel leaves the profile without sections, and the next one asks again.
(tape ("CUBPL" "Ajouter Profils" "!prf" "" "Cancel" "ProfilsEnLong=1" "Fermer") "Pk : 0.000 a 150.000" (sauf " - "))

(situation "SaysThatThereIsNoProject")
(tape ("CUBPL" "Ajouter Profils" "!prf" "" "Fermer") "Erreur: Ce profil ne contient pas de projet associé\n")
;; Once a kind of project was found, the text about a profile without any differs by a letter.
(preparer (pl_elem_prj prf "V" a) (setq nu (reference "PROFIL" "NUMPL" "N" 700.0)) (plsxd nu "ECHV" 1.0))
(tape ("CUBPL" "Ajouter Profils" "!prf" "!nu" "" "Fermer") "Ce profil ne continent pas de projet associé\n")

(situation "WithoutAttachedTerrainTheGroundLinesOfTheSectionsServe")
(preparer
  (pl_elem_prj prf "V" a) (plsxd prf "HTN" 0)
  (plsxd pc1 "PRLI" tn1) (plsxd tn1 "NEXTLI" tn2) (plsxd pc2 "PRLI" tn3))
(tape ("CUBPL" "Ajouter Profils" "!prf" "" "Fermer") "1 -      0.750")

(situation "AFailureInAButtonIsShownAndTheDialogStays")
(preparer (setq loin (tronc 300.0 99.0 310.0 99.0 100.0)) (pl_elem_prj prf "V" a loin))
(tape ("CUBPL" "Ajouter Profils" "!prf" "" "AjouterUneClasse" "Cancel" "Fermer")
  "Métrés du profil: invalid argument\n" "Classe de profondeur [OK/Cancel]")

(situation "NumbersMayHaveADecimalComma")
;; read as a number, and out of range; two commas are none
(tape ("CUBPL" "AjouterUneClasse" "De=-0,25" "OK" "Cancel" "Fermer")
  "Entrez un nombre compris entre 0 et 1e+38." (sauf "Entrez un nombre.\n"))
(tape ("CUBPL" "AjouterUneClasse" "De=0,2,5" "OK" "Cancel" "Fermer") "Entrez un nombre.\n")

(situation "AValueOutOfItsRangeKeepsTheClassDialogOpen")
(tape ("CUBPL" "AjouterUneClasse" "De=-1" "OK" "De=abc" "OK" "Cancel" "Fermer")
  "Entrez un nombre compris entre 0 et 1e+38." "Entrez un nombre.\n")

;; 0-10, 10-20, 20-30, 30-60 on the first plane, 100-150 on the second; two groups, the second with all.
(situation "HatchesEachSectionInItsClassColour")
(preparer (setvar "CLAYER" "0") (pl_elem_prj prf "V" a b))
(tape ("CUBPL" "Ajouter Profils" "!prf" "" "Schematiser" "Fermer"))
((sslength (ssget "X" '((0 . "HATCH")))) 5)
((setq e (entget (ssname (ssget "X" '((0 . "HATCH"))) 4)) c (cdr (assoc 62 e))) 1)
((cdr (assoc 440 e)) 33554522)
((list (g 2 e) (g 70 e) (g 71 e) (g 91 e) (g 92 e) (g 75 e)) ("SOLID" 1 0 1 3 0))
((mapcar 'cdr (vl-remove-if-not '(lambda (x) (= (car x) 10)) (cdr (member (assoc 93 e) e))))
 ((100.0 100.0) (110.0 105.0) (110.0 95.0) (100.0 95.0) (100.0 100.0)))
(preparer
  (defun hachures (groupe)
    (length (vl-remove-if-not '(lambda (y) (and (= (car y) 340) (= (g 0 (entget (cdr y))) "HATCH"))) (entget groupe)))))
((vl-remove 0 (mapcar '(lambda (x) (if (= (car x) 350) (hachures (cdr x)) 0)) (dictsearch (namedobjdict) "ACAD_GROUP"))) (4 5))

(situation "AProgramAnswersBeforehandAndReadsTheLists")
(preparer (pl_elem_prj prf "V" a))
(ecrit (setq l (dialoguer c:cubpl (list "AjouterProfils" (progn (setq s (ssadd)) (ssadd prf s)) "" "Fermer"))) "")
((mapcar 'length l) (6 0 6))
((nth 2 (car l)) (0 "P1" "0.000" "10.000" " 1 -      0.750 " "     4.500 " "     7.500 "))
((nth 5 (nth 2 l)) (6 "4.00" "5.00" "" "2.00" "0.00" ""))
