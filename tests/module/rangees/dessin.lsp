;; The drawing of matrices, what is stored with them, and their return from the drawing. The stored records are checked group by
;; group: other programs read them.

(commun
  (preparer
    (load "outils.lsp") (load "profil.lsp") (load "matrice.lsp")
    (defun extension (e cle) (dictsearch (cdr (assoc 360 (entget e))) cle))
    (defun contenu (rec) (cdr (member (assoc 280 rec) rec)))
    (defun membres (groupe / n)
      (setq n 0)
      (foreach paire (entget groupe) (if (= (car paire) 340) (setq n (1+ n))))
      n)
    (setq liste (contenu (extension prf "VARDANE_MATRICES"))
          bloc (cdr (assoc 330 liste))
          infos (contenu (extension bloc "INFO_MATRICE"))
          groupe (cdr (last infos)))))

(situation "RulesStandAtTheRowBoundaries")
((cdr (dessine '(pl_DessinerMatrices prf '(20.0 -4.0 0.0) 2.0 0.0)))
 ("INSERT 20.00,-4.00" "LINE 20.00,-4.00 40.00,-4.00" "LINE 20.00,-7.00 40.00,-7.00" "LINE 20.00,-11.00 40.00,-11.00"
  "LINE 20.00,-91.00 40.00,-91.00"))

(situation "TitlesEndTheGapLeftOfThePoint")
(preparer
  (setq record (cdr (assoc -2 (tblsearch "BLOCK" (cdr (assoc 2 (entget bloc)))))) cadre (entget record)
        label (entget (entnext record)) sommets nil W (+ (pl_LargeurMatrices 1.0) 2.0))
  (foreach paire cadre (if (= (car paire) 10) (setq sommets (cons (cdr paire) sommets))))
  (setq sommets (reverse sommets)))
((length sommets) 4)
((car sommets) (-5.0 0.0))
((nth 3 sommets) (-5.0 -1.5))
((equal (nth 1 sommets) (list (- -5.0 W) 0.0) 1e-9) T)
((logand 1 (g 70 cadre)) 1)
((list (g 8 cadre) (g 62 cadre) (g 8 label) (g 62 label)) ("0" 0 "0" 0))
((g 1 label) "Altitude")
((equal (cdr (assoc 10 label)) (list (- -4.0 W) -1.25 0.0) 1e-9) T)
((cdr (assoc 62 (entget bloc))) nil)

;; The titles end a gap left of the point, in units of the text height that the matrix had before this drawing.
(situation "TheGapCountsInTheTextHeightOfTheDrawingBefore")
(preparer (pl_DessinerMatrices prf '(0.0 0.0) 2.0 3.0))
((if (member "LINE -3.00,0.00 7.00,0.00" (dessine '(pl_DessinerMatrices prf '(0.0 0.0) 1.0 3.0))) T) T)

(situation "TheReferenceTakesTheCurrentLayer")
(preparer
  (entmake '((0 . "LAYER") (100 . "AcDbSymbolTableRecord") (100 . "AcDbLayerTableRecord") (2 . "TABLES") (70 . 0) (62 . 3)
             (6 . "Continuous")))
  (setvar "CLAYER" "TABLES")
  (marque)
  (pl_DessinerMatrices prf '(0.0 0.0) 1.0 0.0))
((mapcar '(lambda (e) (cdr (assoc 8 (entget e)))) (depuis repere)) ("TABLES" "0" "0" "0" "0"))
((progn (pl_SelectLigne 0 0) (pl_TexteVertical 1 "a") (cdr (assoc 8 (entget (entlast))))) "TABLES")

(situation "StoredRecords")
((mapcar 'car liste) (90 90 330))
((list (cdr (car liste)) (cdr (cadr liste))) (1425781 1))
((mapcar 'car infos)
 (300 40 330 90 90 91 300 40 90 90 300 300 90 91 300 40 90 90 300 300 90 91 300 40 90 90 300 300 90 330 330 330 330 330))
((list (cdr (car infos)) (cdr (cadr infos))) ("M" 1.0))
((mapcar 'cdr (list (nth 12 infos) (nth 14 infos) (nth 15 infos) (nth 16 infos) (nth 17 infos))) (1 "2" 2.0 2 13))
((membres groupe) 5)
((cdr (assoc 70 (entget groupe))) 1)

;; A record that isn't as it was written is worth nothing, whatever is wrong with it.
(situation "ADamagedMatrixIsLeftOut")
(tableau (dommage)
  ((subst '(40 . 1.0) '(300 . "M") rec))
  ((subst '(90 . 7) (nth 4 infos) rec))
  ((reverse (cdr (reverse rec))))
  ((subst '(90 . 9) (nth 3 infos) rec)))
(preparer (setq rec (extension bloc "INFO_MATRICE")) (entmod dommage) (pl_ChoixProfil prf))
((pl_SelectMatrice 0) nil)
(preparer (entmod rec) (pl_ChoixProfil prf))
((list (pl_SelectMatrice 0) (pl_SelectMatrice 1)) (T nil))

(situation "AMatrixWithoutRowsIsDrawnButNotReloaded")
(preparer (pl_ResetMatrices) (pl_CreeMatrice "V"))
((cdr (dessine '(pl_DessinerMatrices prf '(0.0 0.0) 1.0 5.0))) ("INSERT 0.00,0.00" "LINE 0.00,0.00 10.00,0.00"))
(preparer (pl_ChoixProfil prf))
((pl_SelectMatrice 0) nil)

(situation "MatricesStackTwoTextHeightsApart")
(preparer (pl_ResetMatrices) (pl_DefinirLigneMatrice "A" "1" "a" 3.75 0) (pl_DefinirLigneMatrice "B" "1" "b" 2.5 0))
((if (member "INSERT 0.00,-11.50" (dessine '(pl_DessinerMatrices prf '(0.0 0.0) 2.0 5.0))) T) T)
(preparer (pl_ResetMatrices) (pl_DefinirLigneMatrice "A" "1" "a" 7.5 0) (pl_DefinirLigneMatrice "B" "1" "b" 5.0 0))
((if (member "INSERT 0.00,-19.00" (dessine '(pl_DessinerMatrices prf '(0.0 0.0) 2.0 5.0))) T) T)

(situation "NoMatrixIsStoredAsSuch")
(preparer (pl_ResetMatrices))
((pl_DessinerMatrices prf '(0.0 0.0) 1.0 5.0) T)
((contenu (extension prf "VARDANE_MATRICES")) ((90 . 1425781) (90 . 0)))

(situation "RulesTakeTheirLengthFromTheirLeftEnd")
(preparer
  (setq trait (cdr (nth 30 infos)) e (entget trait))
  (entmod (subst '(10 10.0 -1.5 0.0) (assoc 10 e) (subst '(11 0.0 -1.5 0.0) (assoc 11 e) e))))
((pl_updLargeurLignes -80) T)
((decrire trait) "LINE 0.00,-1.50 80.00,-1.50")
((progn (entdel trait) (pl_updLargeurLignes 0)) T)
((decrire (cdr (nth 29 infos))) "LINE 0.00,0.00 1.00,0.00")
((pl_updLargeurLignes "8") nil)

(situation "CellsFollowAMatrixThatIsMoved")
(preparer (setq e (entget bloc)) (entmod (subst '(10 50.0 7.0 0.0) (assoc 10 e) e)))
((cdr (dessine '(pl_TexteHorizontalCentre 10 "ab"))) ("ab @60.00,4.00 h1.00 r0 1/0"))
(preparer (entdel bloc))
((dessine '(pl_TexteHorizontalCentre 10 "ab")) (nil))

(situation "WhatIsWrittenJoinsTheGroup")
(preparer (pl_TexteHorizontalGauche 1 "a") (pl_ptPkEtObs 5 5 "b") (pl_Quadrant 3 1))
((membres groupe) 9)
