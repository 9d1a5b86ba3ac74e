;; Sets the colour of chosen objects to that of their layer, as an override.
(defun c:couleurs (/ jeu i l)
  (if (setq jeu (ssget))
    (repeat (setq i (sslength jeu))
      (setq l (entget (ssname jeu (setq i (1- i)))))
      (entmod (if (assoc 62 l) (subst '(62 . 1) (assoc 62 l) l) (append l '((62 . 1)))))))
  (princ))
