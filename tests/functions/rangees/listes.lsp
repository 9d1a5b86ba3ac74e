;; Lists that leave groups out, repeat them, or can't be an entity: what the drawing has is never damaged.
;; Defaults are shown and not written; what a list doesn't name stays.

(commun
  (preparer
    (load "outils.lsp")
    (defun seule (x) (list (cons -1 e) x))
    (defun liste (x) (entget e))
    (defun tous (n) (mapcar 'cdr (vl-remove-if-not '(lambda (p) (= (car p) n)) (entget e))))
    ;; The list without the groups of these codes.
    (defun sans (codes) (vl-remove-if '(lambda (p) (member (car p) codes)) (entget e)))))

(situation "PartialListsKeepTheRest")
(tableau (made change code value rest)
  ('((0 . "LINE") (8 . "AXE") (10 1. 2. 0.) (11 4. 6. 0.)) '(62 . 1) 62 1 '((8 . "AXE") (10 1.0 2.0 0.0) (11 4.0 6.0 0.0)))
  ('((0 . "LINE") (10 1. 2. 0.) (11 4. 6. 0.)) '(10 0. 0.) 10 (0.0 0.0 0.0) '((8 . "0") (11 4.0 6.0 0.0)))
  ('((0 . "CIRCLE") (10 1. 2. 0.) (40 . 5.)) '(8 . "AXE") 8 "AXE" '((10 1.0 2.0 0.0) (40 . 5.0)))
  ('((0 . "TEXT") (10 1. 2. 0.) (40 . 5.) (1 . "a") (50 . 0.5)) '(1 . "b") 1 "b" '((40 . 5.0) (50 . 0.5) (41 . 1.0)))
  ('((0 . "MTEXT") (100 . "AcDbEntity") (100 . "AcDbMText") (10 1. 2. 0.) (40 . 5.) (3 . "a") (3 . "b") (1 . "c"))
   '(71 . 5) 71 5 '((3 . "a") (3 . "b") (1 . "c")))
  ('((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0) (10 0. 0.) (42 . 0.5) (10 5. 0.))
   '(70 . 1) 70 1 '((90 . 2) (10 0.0 0.0) (42 . 0.5) (10 5.0 0.0)))
  ('((0 . "HATCH") (100 . "AcDbEntity") (100 . "AcDbHatch") (10 0. 0. 0.) (210 0. 0. 1.) (2 . "SOLID") (70 . 1) (71 . 0)
     (91 . 1) (92 . 3) (72 . 0) (73 . 1) (93 . 3) (10 0. 0.) (10 5. 0.) (10 5. 5.) (97 . 0) (75 . 0) (76 . 1) (98 . 0))
   '(76 . 2) 76 2 '((91 . 1) (93 . 3) (97 . 0) (75 . 0))))
(preparer (setq e (progn (entmake made) (entlast))) (entmod (seule change)))
((g code e) value)
((vl-remove-if '(lambda (p) (vl-some '(lambda (q) (equal p q 1e-12)) (entget e))) rest) nil)
;; The same list without the changed groups changes nothing.
((progn (setq avant (entget e)) (entmod (sans (list code))) (equal avant (entget e))) T)

;; How wide and high a paragraph is drawn; programs frame texts by it.
(situation "ParagraphsTellTheirSize")
(preparer (setq e (entmakex '((0 . "MTEXT") (100 . "AcDbEntity") (100 . "AcDbMText") (10 0. 0. 0.) (40 . 2.) (1 . "HH\\PHH")))))
((list (< 2.0 (g 42 e) 6.0) (equal (g 43 e) (+ 2.0 (* 2.0 (/ 5.0 3))) 0.05)) (T T))
((progn (entmod (subst '(1 . "HHHH") (assoc 1 (entget e)) (entget e))) (list (< 6.0 (g 42 e) 12.0) (equal (g 43 e) 2.0 0.05))) (T T))

(situation "WhatCannotBeAnEntityIsRefused")
(preparer (setq e (circle '(1. 2. 0.) 5.)))
(tableau (groups)
  ('((0 . "CIRCLE") (10 0. 0. 0.)))
  ('((0 . "CIRCLE") (10 0. 0. 0.) (40 . 0.)))
  ('((0 . "CIRCLE") (100 . "AcDbEntity") (100 . "AcDbCircle") (10 0. 0. 0.)))
  ('((0 . "TEXT") (10 0. 0. 0.) (1 . "a")))
  ('((0 . "LINE") (10 0. 0. 0.)))
  ('((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 0) (70 . 0)))
  ('((0 . "SPLINE") (100 . "AcDbEntity") (100 . "AcDbSpline") (70 . 8) (71 . 3) (72 . 8) (73 . 4) (74 . 0) (40 . 0.) (40 . 1.)
     (10 0. 0. 0.) (10 5. 0. 0.) (10 5. 5. 0.) (10 9. 9. 0.)))
  ('((0 . "INSERT") (10 0. 0. 0.))))
((entmake groups) nil)
((entmakex groups) nil)
((eq (entlast) e) T)

(situation "ChangesThatCannotBeAreRefused")
(preparer (setq e (circle '(1. 2. 0.) 5.) avant (entget e)))
((entmod (subst '(40 . 0.) (assoc 40 avant) avant)) nil)
((entmod (subst '(40 . -1.) (assoc 40 avant) avant)) nil)
((entmod (seule '(0 . "LINE"))) nil)
((entmod (seule '(6 . "ABSENT"))) nil)
((equal avant (entget e)) T)

(situation "DefaultsAreShownAndNotWritten")
(preparer
  (setq fichier "<dossier>defauts.dxf")
  (setvar "EXPERT" 2) ; the second save replaces the first without a question
  (defun texte-fichier (/ f l tout)
    (command "_SAVEAS" "2000" fichier) (setq f (open fichier "r") tout "")
    (while (setq l (read-line f)) (setq tout (strcat tout (vl-string-trim " " l) "|"))) (close f) tout))
(tableau (made shown)
  ('((0 . "TEXT") (10 1. 2. 0.) (40 . 5.) (1 . "a"))
   '((50 . 0.0) (41 . 1.0) (51 . 0.0) (7 . "Standard") (71 . 0) (72 . 0) (11 0.0 0.0 0.0) (73 . 0) (210 0.0 0.0 1.0) (67 . 0) (410 . "Model")))
  ('((0 . "INSERT") (2 . "B") (10 1. 2. 0.))
   '((41 . 1.0) (42 . 1.0) (43 . 1.0) (50 . 0.0) (70 . 1) (71 . 1) (44 . 0.0) (45 . 0.0) (210 0.0 0.0 1.0)))
  ('((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0) (10 0. 0.) (10 5. 0.))
   '((38 . 0.0) (39 . 0.0) (43 . 0.0) (40 . 0.0) (41 . 0.0) (42 . 0.0) (210 0.0 0.0 1.0)))
  ('((0 . "DIMENSION") (100 . "AcDbEntity") (100 . "AcDbDimension") (2 . "B") (70 . 1) (100 . "AcDbAlignedDimension")
     (13 0. 0. 0.) (14 3. 4. 0.))
   '((42 . 5.0) (3 . "Standard") (1 . "") (71 . 5))))
(preparer
  (entmake '((0 . "BLOCK") (2 . "B") (70 . 0) (10 0. 0. 0.))) (entmake '((0 . "POINT") (10 0. 0. 0.))) (entmake '((0 . "ENDBLK")))
  (entmake made) (setq e (entlast) avant (texte-fichier)))
((vl-remove-if '(lambda (p) (member p (entget e))) shown) nil)
;; Giving the whole list back changes not one byte.
((null (entmod (entget e))) nil)
((= avant (texte-fichier)) T)

(situation "WidthsOfLightPolylines")
(preparer
  (entmake '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0) (43 . 1.0) (10 0. 0.) (10 5. 0.)))
  (setq e (entlast)))
((tous 40) (1.0 1.0))
((progn (entmod (subst '(43 . 2.5) '(43 . 1.0) (entget e))) (list (g 43 e) (tous 40) (tous 41))) (2.5 (2.5 2.5) (2.5 2.5)))
;; A width of one vertex ends the constant one.
((progn (entmod (mapcar '(lambda (p) (if (equal p '(41 . 2.5)) '(41 . 0.0) p)) (entget e))) (list (g 43 e) (tous 40) (tous 41)))
 (nil (2.5 2.5) (0.0 0.0)))
((progn (entmod (append (entget e) '((43 . 3.0)))) (list (g 43 e) (tous 41))) (3.0 (3.0 3.0)))
((progn (entmod (append (entget e) '((10 9. 9.)))) (list (g 90 e) (last (tous 10)))) (3 (9.0 9.0)))

(situation "SplinesByFitPoints")
(preparer
  (entmake '((0 . "SPLINE") (100 . "AcDbEntity") (100 . "AcDbSpline") (70 . 8) (71 . 3) (72 . 0) (73 . 0) (74 . 3)
             (11 0. 0. 0.) (11 5. 5. 0.) (11 10. 0. 0.)))
  (setq e (entlast)))
((list (length (tous 11)) (= (length (tous 10)) (g 73 e)) (= (length (tous 40)) (g 72 e) (+ (g 73 e) (g 71 e) 1))) (3 T T))
((car (tous 10)) (0.0 0.0 0.0))
;; A moved fit point moves the curve; a moved control point ends the fit points.
((progn (entmod (subst '(11 10. 2. 0.) '(11 10. 0. 0.) (entget e))) (list (last (tous 11)) (last (tous 10)))) ((10.0 2.0 0.0) (10.0 2.0 0.0)))
((progn (entmod (subst '(10 -1. 0. 0.) (assoc 10 (entget e)) (entget e))) (list (tous 11) (g 74 e) (car (tous 10)))) (nil 0 (-1.0 0.0 0.0)))

(situation "RenamedRecordsTakeEverythingAlong")
(preparer
  (entmake '((0 . "LINE") (8 . "AXE") (10 1. 2. 0.) (11 4. 6. 0.)))
  (setq e (entlast))
  (entmake '((0 . "BLOCK") (2 . "B") (70 . 0) (10 0. 0. 0.))) (entmake '((0 . "POINT") (8 . "AXE") (10 0. 0. 0.))) (entmake '((0 . "ENDBLK")))
  (entmake '((0 . "INSERT") (2 . "B") (10 1. 2. 0.)))
  (defun renommer (table ancien nouveau / l)
    (setq l (entget (tblobjname table ancien))) (entmod (subst (cons 2 nouveau) (assoc 2 l) l))))
((null (renommer "LAYER" "AXE" "VOIE")) nil)
((list (g 8 e) (tblsearch "LAYER" "AXE") (cdr (assoc 8 (entget (cdr (assoc -2 (tblsearch "BLOCK" "B"))))))) ("VOIE" nil "VOIE"))
((null (renommer "BLOCK" "B" "BORNE")) nil)
((list (last-g 2) (tblsearch "BLOCK" "B") (cdr (assoc 2 (tblsearch "BLOCK" "BORNE")))) ("BORNE" nil "BORNE"))
((renommer "LAYER" "0" "UN") nil)
((renommer "LAYER" "VOIE" "a|b") nil)
((renommer "LAYER" "VOIE" "0") nil)
((g 8 e) "VOIE")

(situation "PointersThatLeadNowhereComeAndGo")
(preparer
  (entmake '((0 . "LAYER") (100 . "AcDbSymbolTableRecord") (100 . "AcDbLayerTableRecord") (2 . "L") (70 . 0) (62 . 1) (6 . "Continuous")
             (390 . "0") (348 . "FFFF")))
  (setq e (tblobjname "LAYER" "L")))
((list (type (g 390 e)) (entget (g 348 e)) (entdel (g 348 e))) (ENAME nil nil))
((progn (entmod (subst '(62 . 3) (assoc 62 (entget e)) (entget e))) (g 62 e)) 3)
((equal (g 348 e) (cdr (assoc 348 (entget e)))) T)

(situation "RecordsKeepTheirOwnExtendedCodes")
(preparer
  (setq d (entmakex '((0 . "XRECORD") (100 . "AcDbXrecord") (280 . 1) (1000 . "a") (40 . 2.5) (1071 . 7))))
  (dictadd (namedobjdict) "ESSAI" d) (setq e d))
((list (g 1000 e) (g 40 e) (g 1071 e)) ("a" 2.5 7))
((progn (entmod (subst '(1000 . "b") '(1000 . "a") (entget e))) (list (g 1000 e) (g 40 e) (g 1071 e))) ("b" 2.5 7))

(situation "CommonGroupsAnywhereAndMarksInAnyCase")
(preparer
  (entmake '((0 . "LINE") (100 . "acdbline") (10 1. 2. 0.) (11 4. 6. 0.) (8 . "AXE") (100 . "ACDBENTITY") (62 . 3)))
  (setq e (entlast)))
((list (g 8 e) (g 62 e) (g 11 e)) ("AXE" 3 (4.0 6.0 0.0)))
((tous 100) ("AcDbEntity" "AcDbLine"))
((cdr (assoc 2 (tblsearch "LAYER" "AXE"))) "AXE")

(situation "GroupsBehindAnotherMarkFindTheirPlace")
(preparer (entmake '((0 . "TEXT") (10 1. 2. 0.) (40 . 5.) (1 . "a"))) (setq e (entlast)))
((progn (entmod (append (entget e) '((41 . 0.8) (62 . 2)))) (list (g 41 e) (g 62 e) (tous 41))) (0.8 2 (0.8)))

(situation "ListsNameTheSpace")
((progn (entmake '((0 . "LINE") (67 . 1) (410 . "Layout1") (10 1. 2. 0.) (11 4. 6. 0.)))
   (list (entlast) (sslength (ssget "X" '((67 . 1)))))) (nil 1))
((progn (setq e (ssname (ssget "X" '((67 . 1))) 0)) (list (g 67 e) (g 410 e))) (1 "Layout1"))

;; of a plot 6 is a view and 7 a plot table, and neither a line type nor a text style
(situation "ALayoutNamesAPlotTable")
(preparer (setq l (dictsearch (cdr (assoc -1 (dictsearch (namedobjdict) "ACAD_LAYOUT"))) "Model")))
((progn (entmod (subst '(7 . "noir") (assoc 7 l) l)) (cdr (assoc 7 (entget (cdr (assoc -1 l)))))) "noir")
