;; BREAK, TRIM, EXTEND and OFFSET in difficult cases: at ends, in other planes, at other heights.
;; The pieces are told by their ends and lengths.

(commun (preparer
  (load "outils.lsp") (load "courbes.lsp")
  (defun first-point (e) (vlax-curve-getStartPoint e))
  (defun last-point (e) (vlax-curve-getEndPoint e))
  (defun middle (e) (vlax-curve-getPointAtParam e (/ (+ (vlax-curve-getStartParam e) (vlax-curve-getEndParam e)) 2.)))
  (defun size (e) (vlax-curve-getDistAtParam e (vlax-curve-getEndParam e)))
  (defun cut (e a b) (command "_BREAK" (list e a) b))
  (defun xy (p) (strcat (rtos (car p) 2 2) "," (rtos (cadr p) 2 2)))
  (defun run (e) (strcat (xy (first-point e)) " " (xy (last-point e))))))

;; Far from the origin, where the ends of a curve are known to a billionth of a unit only.
(situation "BreakAtAnEnd")
(tableau (COURBE)
  ((line '(652000.1 6862000.7 0.) '(652013.3 6862004.9 0.)))
  ((arc '(652000.1 6862000.7 0.) 13.7 5.1 0.9))
  ;; an arc from below
  ((entmakex '((0 . "ARC") (10 -652000.1 6862000.7 0.) (40 . 13.7) (50 . 5.1) (51 . 0.9) (210 0. 0. -1.))))
  ((pline '((652000.1 6862000.7) (652013.3 6862004.9) (652020.2 6862001.3)) nil))
  ((entmakex '((0 . "ELLIPSE") (100 . "AcDbEntity") (100 . "AcDbEllipse") (10 652000.1 6862000.7 0.) (11 9.3 2.1 0.)
               (40 . 0.37) (41 . 0.4) (42 . 4.1))))
  ((progn (command "_SPLINE" '(652000.1 6862000.7) '(652007. 6862009.) '(652013.3 6862004.9) "" "" "") (entlast))))
(preparer
  (defun draw ()
    (command "_ERASE" "_ALL" "")
    (setq e COURBE n (size e) m (middle e) s (vlax-curve-getDistAtPoint e m))))
;; From the middle to the end, or to the start: one piece is left, with its full length.
((progn (draw) (cut e m (last-point e)) (list (count) (equal (size e) s 1e-6))) (1 T))
((progn (draw) (cut e m (first-point e)) (list (count) (equal (size e) (- n s) 1e-6))) (1 T))
((progn (draw) (cut e (last-point e) m) (list (count) (equal (size e) s 1e-6))) (1 T))
;; Cut in two at one point.
((progn (draw) (cut e m "@") (list (count) (equal (size e) s 1e-6) (equal (size (entlast)) (- n s) 1e-6))) (2 T T))
;; At the end there is nothing to cut, and between the two ends nothing would be left.
((progn (draw) (setq g0 (entget e)) (cut e (last-point e) "@") (list (count) (equal g0 (entget e)))) (1 T))
((progn (draw) (cut e (first-point e) (first-point e)) (list (count) (equal g0 (entget e)))) (1 nil))
((progn (draw) (setq g0 (entget e)) (cut e (first-point e) (last-point e)) (list (count) (equal g0 (entget e)))) (1 T))
(dit (cut e (last-point e) "@") "il n'y a rien à couper")

(situation "BreakClosedCurvesAtTheirStart")
((progn (setq q (pline '((0. 0.) (4. 0.) (4. 4.) (0. 4.)) T)) (cut q '(0. 0.) '(4. 2.)) (list (count) (run q) (size q)))
 (1 "4.00,2.00 0.00,0.00" 10.0))
((progn (setq q (pline '((0. 0.) (4. 0.) (4. 4.) (0. 4.)) T)) (cut q '(4. 2.) '(0. 0.)) (list (run q) (size q)))
 ("0.00,0.00 4.00,2.00" 6.0))
((progn (setq k (circle '(20. 0. 0.) 2.)) (cut k '(22. 0.) '(20. 2.)) (list (g 0 k) (run k)))
 ("ARC" "20.00,2.00 22.00,0.00"))
((progn (setq k (circle '(20. 0. 0.) 2.)) (cut k '(20. 2.) '(22. 0.)) (list (g 0 k) (run k)))
 ("ARC" "22.00,0.00 20.00,2.00"))

;; Limits at other heights count, and what is extended keeps its slope.
(situation "TrimAndExtendInPlan")
(preparer (setq b (line '(10. -5. 70.) '(10. 5. 80.))))
((progn (setq l (line '(0. 0. 30.) '(20. 0. 50.))) (command "_TRIM" b "" (list l '(15. 0.)) "")
   (mapcar 'fix (last-point l)))
 (10 0 40))
((progn (setq l (line '(0. 0. 30.) '(5. 0. 35.))) (command "_EXTEND" b "" (list l '(4. 0.)) "")
   (mapcar 'fix (last-point l)))
 (10 0 40))
((progn (setq p (pline '((0. 0.) (0. 3.) (5. 3.)) nil)) (command "_EXTEND" b "" (list p '(4. 3.)) "") (run p))
 "0.00,0.00 10.00,3.00")
;; the arc at a polyline's end: of radius 5 round (5, -5), so that it reaches x = 10 at y = -5
((progn
   (setq p
     (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 3) (70 . 0) (10 0. -9.) (42 . 0.)
                 (10 0. -5.) (42 . -0.4142135623730951) (10 5. 0.))))
   (command "_EXTEND" b "" (list p '(5. 0.)) "") (list (run p) (rtos (size p) 2 3)))
 ("0.00,-9.00 10.00,-5.00" "19.708"))
((progn (setq a (entmakex '((0 . "ARC") (10 -5. -5. 0.) (40 . 5.) (50 . 0.3) (51 . 1.2) (210 0. 0. -1.))))
   (command "_EXTEND" b "" (list a (first-point a)) "") (run a))
 "10.00,-5.00 3.19,-0.34")
((progn (command "_-LAYER" "_N" "FIXE" "_LO" "FIXE" "")
   (setq l (entmakex '((0 . "LINE") (8 . "FIXE") (10 0. 0. 0.) (11 20. 0. 0.))))
   (command "_TRIM" b "" (list l '(15. 0.)) "") (run l))
 "0.00,0.00 20.00,0.00")

(situation "OffsetInOtherPlanes")
;; a pick at height 0 for a circle at height 50
((progn (setq k (circle '(0. 0. 50.) 5.)) (command "_OFFSET" 1. (list k '(5. 0. 50.)) '(0. 1. 0.) "") (last-g 40)) 4.0)
;; a polyline seen from below: outside is outside
((progn
   (setq p
     (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 4) (70 . 1) (10 0. 0.) (10 -10. 0.)
                 (10 -10. 10.) (10 0. 10.) (210 0. 0. -1.))))
   (command "_OFFSET" 2. (list p '(5. 0.)) '(5. -3.) "")
   (list (run (entlast)) (rtos (vlax-curve-getArea (entlast)) 2 2) (last-g 210)))
 ("-2.00,-2.00 -2.00,-2.00" "196.00" (0.0 0.0 -1.0)))
;; beside the tip of an acute corner, where the two segments disagree on their sides
((progn (setq p (pline '((0. 0.) (10. 0.) (0. 2.)) nil)) (command "_OFFSET" 0.5 (list p '(9. 0.)) '(12. 0.3) "")
   (> (car (cdr (assoc 10 (cdr (member (assoc 10 (entget (entlast))) (entget (entlast))))))) 10.))
 T)
;; widths go with their segments
((progn
   (setq p
     (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 3) (70 . 0) (10 0. 0.) (40 . 0.2)
                 (41 . 0.4) (10 10. 0.) (40 . 0.4) (41 . 0.) (10 10. 10.))))
   (command "_OFFSET" 1. (list p '(5. 0.)) '(5. 3.) "")
   (mapcar 'cdr (vl-remove-if-not '(lambda (g) (member (car g) '(40 41))) (entget (entlast)))))
 (0.2 0.4 0.4 0.0 0.0 0.0))
