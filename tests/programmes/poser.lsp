;; Inserts a block at every vertex of a polyline, turned along it.
(defun c:poser (/ e i p d)
  (setq e (car (entsel "\nPolyligne: ")) i 0)
  (setvar "ATTREQ" 0)
  (while (<= i (vlax-curve-getEndParam e))
    (setq p (vlax-curve-getPointAtParam e i) d (vlax-curve-getFirstDeriv e (min i (- (vlax-curve-getEndParam e) 0.001))))
    (command "_.-INSERT" "REGARD" p 1 1 (angtos (atan (cadr d) (car d)) 0 6))
    (setq i (1+ i)))
  (princ))
