;; Marks entities with extended data and finds them again.
(defun c:xdonnees (/ jeu i e)
  (regapp "BUREAU")
  (if (setq jeu (ssget "_X" '((0 . "CIRCLE"))))
    (repeat (setq i (sslength jeu))
      (setq e (ssname jeu (setq i (1- i))))
      (entmod (append (entget e) (list (list -3 (list "BUREAU" (cons 1000 "regard") (cons 1040 (cdr (assoc 40 (entget e)))))))))))
  (princ (strcat "\n" (itoa (sslength (ssget "_X" '((-3 ("BUREAU")))))) " marqués"))
  (princ))
