;; Block attributes in rows 402 and 403, read from a file; the blocks have DN, MAT (2 to the right), NOTE and dn.

(commun
  (fichier "attributs.txt" "M - 4 402 {DN|MAT} Reseau\nM - 10 403 {DN MAT|NOTE} Vertical\nM - 2 0 {DN} Autre\n")
  (preparer
    (load "outils.lsp") (load "profil.lsp")
    (pl_LireMatriceKavel "<dossier>attributs.txt")
    (pl_DessinerMatrices prf '(0.0 0.0) 1.0 5.0)
    (defun attribut (x tag v) (entmake (list '(0 . "ATTRIB") (list 10 x 50.0 0.0) '(40 . 2.5) (cons 1 v) (cons 2 tag) '(70 . 0))))
    (defun regard (x)
      (entmake (list '(0 . "INSERT") '(66 . 1) '(2 . "PROFIL") (list 10 x 50.0 0.0)))
      (attribut x "DN" "100") (attribut (+ x 2) "MAT" "PVC") (attribut x "NOTE" "n") (attribut x "dn" "non")
      (entmake '((0 . "SEQEND")))
      (entlast))
    (setq b (regard 120.0) loin (regard 90.0))))

(situation "ABlockThatIsPlacedFillsTheRowsThatWantIt")
(preparer (pl_SelectLigne 0 2))
((cdr (dessine '(pl_NotifInsertBlock b)))
 ("100 @20.00,-2.00 h1.00 r0 4/2" "PVC @27.00,-2.00 h1.00 r0 4/2" "100 @20.00,-4.80 h1.00 r90 2/0" "PVC @27.00,-4.80 h1.00 r90 2/0"
  "n @20.00,-4.80 h1.00 r90 2/0"))
((equal (mapcar 'cdr r) (depuis repere)) T)
((pl_textlignemat) "Autre")

(situation "WhatStandsLeftOfTheMatrixIsPassedOver")
((dessine '(pl_NotifInsertBlock loin)) (nil))

(situation "OneRowTakesAnEntityOrASelection")
(preparer (pl_SelectLigne 0 0) (setq ss (ssadd b)) (ssadd pc1 ss) (setq seul (ssadd pc1)))
((pl_CotAttribsAuto b) T)
((pl_CotAttribsAuto ss) T)
((pl_CotAttribsAuto loin) T)
((pl_CotAttribsAuto seul) nil)
((pl_CotAttribsAuto pc1) nil)
((pl_CotAttribsAuto 1) nil)
((dessine '(pl_CotAttribsAuto ss)) (T "100 @20.00,-2.00 h1.00 r0 4/2" "PVC @27.00,-2.00 h1.00 r0 4/2"))
((progn (pl_SelectLigne 0 2) (pl_CotAttribsAuto b)) nil)

(situation "WhatTheyWriteJoinsNoGroup")
(preparer
  (defun membres-de (e) (length (vl-remove-if-not '(lambda (y) (= (car y) 340)) (entget e))))
  (defun membres ()
    (apply '+ (mapcar '(lambda (x) (if (= (car x) 350) (membres-de (cdr x)) 0)) (dictsearch (namedobjdict) "ACAD_GROUP"))))
  (pl_SelectLigne 0 0)
  (setq avant (membres)))
((progn (pl_CotAttribsAuto b) (- (membres) avant)) 0)
((progn (pl_TexteVertical 1 "a") (- (membres) avant)) 1)
