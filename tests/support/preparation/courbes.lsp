;; Polylines and arcs, and where curves run.
;; What outils.lsp defines is needed.

(defun pline (pts closed / p) (entmakex (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(100 . "AcDbPolyline")
  (cons 90 (length pts)) (cons 70 (if closed 1 0))) (mapcar '(lambda (p) (cons 10 p)) pts))))
(defun arc (c r a b) (entmakex (list '(0 . "ARC") (cons 10 c) (cons 40 r) (cons 50 a) (cons 51 b))))
(defun pick (e p) (list e p))
(defun short (l) (mapcar '(lambda (x) (rtos x 2 2)) l))
(defun all-points (e / r) (foreach p (entget e) (if (= (car p) 10) (setq r (cons (short (cdr p)) r)))) (reverse r))
(defun ends (e) (list (short (vlax-curve-getStartPoint e)) (short (vlax-curve-getEndPoint e))))
(defun bulges (e / r) (foreach p (entget e) (if (= (car p) 42) (setq r (cons (rtos (cdr p) 2 3) r)))) (reverse r))
