;; Lines texts up below each other at the abscissa of the first.
(defun c:aligner (/ jeu i l x p)
  (if (setq jeu (ssget '((0 . "TEXT"))))
    (progn
      (setq i 0)
      (repeat (sslength jeu)
        (setq l (entget (ssname jeu i)) p (cdr (assoc 10 l)) i (1+ i))
        (if (not x) (setq x (car p)))
        (entmod (subst (list 10 x (cadr p) (caddr p)) (assoc 10 l) l)))))
  (princ))
