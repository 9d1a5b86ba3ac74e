;; Writes the coordinates of clicked points beside them.
(defun c:coordonnees (/ p)
  (while (setq p (getpoint "\nPoint <fin>: "))
    (command "_.TEXT" (polar p 0 1.0) 2.5 0 (strcat "X=" (rtos (car p) 2 2) " Y=" (rtos (cadr p) 2 2))))
  (princ))
