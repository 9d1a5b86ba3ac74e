;; EXPLODE: results for stretched and mirrored blocks, for vertices and attributes.
;; (exploded e codes): what the pieces of the entity e are, with these groups.

(commun (preparer
  (load "outils.lsp") (load "courbes.lsp")
  (defun polyline (flag points) (entmake (list '(0 . "POLYLINE") '(66 . 1) '(10 0. 0. 0.) (cons 70 flag)))
    (foreach p points (entmake (list '(0 . "VERTEX") (cons 10 (if (= flag 8) p (list (car p) (cadr p) 0.)))
      (cons 42 (if (= flag 8) 0. (caddr p))) (cons 70 (if (= flag 8) 32 0)))))
    (entmake '((0 . "SEQEND"))))
  (defun block (name parts) (entmake (list '(0 . "BLOCK") (cons 2 name) '(70 . 0) '(10 0. 0. 0.)))
    (eval parts) (entmake '((0 . "ENDBLK"))))
  (defun insert (name x y turn) (entmakex (list '(0 . "INSERT") (cons 2 name) '(10 10. 0. 0.) (cons 41 x) (cons 42 y)
    '(43 . 1.) (cons 50 turn))))
  (defun rounded (v) (cond ((listp v) (mapcar 'rounded v)) ((= (type v) 'REAL) (atof (rtos v 2 3))) (t v)))
  ; groups of the entities after the object
  (defun after (m codes / e r) (while (setq m (entnext m)) (setq e (entget m) r (cons (cons (g 0 m)
    (mapcar '(lambda (p) (rounded (cdr p))) (vl-remove-if-not '(lambda (p) (member (car p) codes)) e))) r)))
    (reverse r))
  (defun exploded (e codes / m) (setq m (entlast)) (while (entnext m) (setq m (entnext m)))
    (command "_EXPLODE" e) (after m codes))))

;; Twice and three times as wide as high: circles and arcs are ellipses, texts are wider.
(situation "StretchedBlocks")
(preparer (block "C" '(progn (circle '(4. 0. 0.) 1.) (arc '(0. 0. 0.) 1. 0. (/ pi 2)))))
(preparer
  (block "P"
    '(entmake '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 3) (70 . 0) (10 0. 0.) (42 . 1.)
                (10 2. 0.) (42 . 0.) (10 2. 2.)))))
(preparer (block "T" '(text '(1. 1. 0.) "abc")))
((exploded (insert "C" 3. 1. 0.) '(10 11 40))
 (("ELLIPSE" (22.0 0.0 0.0) (3.0 0.0 0.0) 0.333) ("ELLIPSE" (10.0 0.0 0.0) (3.0 0.0 0.0) 0.333)))
((progn (setq e (entlast)) (mapcar 'short (list (vlax-curve-getStartPoint e) (vlax-curve-getEndPoint e))))
 (("13.00" "0.00" "0.00") ("10.00" "1.00" "0.00")))
;; turned over as well: the arc runs from (0 1) to (-2 0)
((progn (exploded (insert "C" -2. 1. 0.) '(10)) (setq e (entlast))
   (mapcar 'short
     (list (vlax-curve-getStartPoint e)
       (vlax-curve-getPointAtParam e (/ (+ (vlax-curve-getStartParam e) (vlax-curve-getEndParam e)) 2.)))))
 (("8.00" "0.00" "0.00") ("8.59" "0.71" "0.00")))
((exploded (insert "P" 2. 1. 0.) '(10 11 40))
 (("ELLIPSE" (12.0 0.0 0.0) (2.0 0.0 0.0) 0.5) ("LINE" (14.0 0.0 0.0) (14.0 2.0 0.0))))
((exploded (insert "T" 3. 1. 0.) '(10 40 41 50)) (("TEXT" (13.0 1.0 0.0) 2.5 0.0 3.0)))
((exploded (insert "T" 1. 2. (/ pi 2)) '(10 40 41 50)) (("TEXT" (8.0 1.0 0.0) 5.0 1.571 0.5)))
;; equal factors: they keep their types
((exploded (insert "C" -2. 2. 0.) '(10 40)) (("CIRCLE" (2.0 0.0 0.0) 2.0) ("ARC" (10.0 0.0 0.0) 2.0)))
((exploded (insert "P" 2. 2. 0.) '(10 42)) (("LWPOLYLINE" (10.0 0.0) 1.0 (14.0 0.0) 0.0 (14.0 4.0) 0.0)))

;; The stretched curve, not the curve through the stretched points.
(situation "StretchedSplinesThroughPoints")
(preparer
  (setq f
    '((0 . "SPLINE") (100 . "AcDbEntity") (100 . "AcDbSpline") (70 . 8) (71 . 3) (74 . 4) (11 0. 0. 0.) (11 1. 3. 0.)
      (11 4. 4. 0.) (11 6. 0. 0.))))
(preparer (block "F" '(entmake f)))
(preparer
  (defun middle (e) (vlax-curve-getPointAtParam e (/ (+ (vlax-curve-getStartParam e) (vlax-curve-getEndParam e)) 2.))))
(preparer (setq p (middle (entmakex f))))
((progn (exploded (insert "F" 3. 1. 0.) '(0)) (equal (middle (entlast)) (list (+ 10. (* 3. (car p))) (cadr p) 0.) 1e-9)) T)

;; A quarter turn inside a stretched block only changes the factors; after an eighth the axes are not at right angles.
(situation "ReferencesInsideStretchedBlocks")
(preparer (block "L" '(line '(0. 0. 0.) '(1. 0. 0.))))
(preparer (block "Q" '(entmakex (list '(0 . "INSERT") '(2 . "L") '(10 0. 0. 0.) (cons 50 (/ pi 2))))))
(preparer (block "H" '(entmakex (list '(0 . "INSERT") '(2 . "L") '(10 0. 0. 0.) (cons 50 (/ pi 4))))))
((exploded (insert "Q" 3. 1. 0.) '(2 10 41 42 50)) (("INSERT" "L" (10.0 0.0 0.0) 1.0 3.0 1.571)))
((exploded (insert "H" 3. 1. 0.) '(10 11)) (("LINE" (10.0 0.0 0.0) (12.121 0.707 0.0))))

(situation "VerticesAndAttributesComeAlong")
(preparer (block "R" '(progn (polyline 1 '((0. 0. 1.) (2. 0. 0.) (2. 2. 0.))) (polyline 8 '((0. 0. 1.) (2. 0. 5.))))))
(preparer (block "A" '(entmake '((0 . "ATTDEF") (10 0. 0. 0.) (40 . 1.) (1 . "") (2 . "NOM") (3 . "Nom") (70 . 0)))))
(preparer
  (block "N"
    '(progn (entmake '((0 . "INSERT") (66 . 1) (2 . "A") (10 1. 1. 0.)))
       (entmake '((0 . "ATTRIB") (10 1. 1. 0.) (40 . 1.) (1 . "R12") (2 . "NOM") (70 . 0))) (entmake '((0 . "SEQEND"))))))
((exploded (insert "R" 1. 1. 0.) '(10))
 (("POLYLINE" (0.0 0.0 0.0)) ("VERTEX" (10.0 0.0 0.0)) ("VERTEX" (12.0 0.0 0.0)) ("VERTEX" (12.0 2.0 0.0)) ("SEQEND")
  ("POLYLINE" (0.0 0.0 0.0)) ("VERTEX" (10.0 0.0 1.0)) ("VERTEX" (12.0 0.0 5.0)) ("SEQEND")))
((exploded (insert "R" 2. 1. 0.) '(10 11))
 (("ELLIPSE" (12.0 0.0 0.0) (2.0 0.0 0.0)) ("LINE" (14.0 0.0 0.0) (14.0 2.0 0.0)) ("LINE" (14.0 2.0 0.0) (10.0 0.0 0.0))
  ("POLYLINE" (0.0 0.0 0.0)) ("VERTEX" (10.0 0.0 1.0)) ("VERTEX" (14.0 0.0 5.0)) ("SEQEND")))
((exploded (insert "N" 1. 1. 0.) '(1 2 10))
 (("INSERT" "A" (11.0 1.0 0.0)) ("ATTRIB" (11.0 1.0 0.0) "R12" "NOM") ("SEQEND")))

(situation "Polylines")
((progn (polyline 1 '((0. 0. 1.) (2. 0. 0.) (2. 2. 0.))) (exploded (entlast) '(10 11 40)))
 (("ARC" (1.0 0.0 0.0) 1.0) ("LINE" (2.0 0.0 0.0) (2.0 2.0 0.0)) ("LINE" (2.0 2.0 0.0) (0.0 0.0 0.0))))
((progn (polyline 8 '((0. 0. 1.) (2. 0. 5.) (2. 2. 3.))) (exploded (entlast) '(10 11)))
 (("LINE" (0.0 0.0 1.0) (2.0 0.0 5.0)) ("LINE" (2.0 0.0 5.0) (2.0 2.0 3.0))))
;; a vertex twice gives no line without length
((exploded (pline '((0. 0.) (1. 0.) (1. 0.) (1. 1.)) nil) '(10)) (("LINE" (0.0 0.0 0.0)) ("LINE" (1.0 0.0 0.0))))
((progn (setq p (pline '((1. 0.) (1. 0.)) nil)) (exploded p '(10))) nil)
((g 0 p) "LWPOLYLINE")
