;; Writes all points to a file, sorted by altitude.
(defun c:exporter (/ jeu i l f)
  (if (setq jeu (ssget "_X" '((0 . "POINT"))))
    (repeat (setq i (sslength jeu)) (setq l (cons (cdr (assoc 10 (entget (ssname jeu (setq i (1- i)))))) l))))
  (setq l (vl-sort l '(lambda (a b) (< (caddr a) (caddr b)))) f (open (getstring T "\nFichier: ") "w"))
  (foreach p l (write-line (strcat (rtos (car p) 2 3) "," (rtos (cadr p) 2 3) "," (rtos (caddr p) 2 3)) f))
  (close f)
  (princ))
