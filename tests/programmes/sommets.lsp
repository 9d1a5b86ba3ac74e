;; Lists the vertices of a polyline with their bulges.
(defun c:sommets (/ l p b)
  (setq l (entget (car (entsel "\nPolyligne: "))))
  (foreach g l
    (cond ((= (car g) 10) (setq p (cdr g)))
          ((and (= (car g) 42) p) (princ (strcat "\n" (rtos (car p) 2 2) " " (rtos (cadr p) 2 2) " " (rtos (cdr g) 2 3))) (setq p nil))))
  (princ))
