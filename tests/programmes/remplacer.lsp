;; Replaces the block of references by another one.
(defun c:remplacer (/ a b jeu i l)
  (setq a (getstring "\nAncien bloc: ") b (getstring "\nNouveau bloc: "))
  (if (and (tblsearch "BLOCK" b) (setq jeu (ssget "_X" (list '(0 . "INSERT") (cons 2 a)))))
    (repeat (setq i (sslength jeu))
      (setq l (entget (ssname jeu (setq i (1- i)))))
      (entmod (subst (cons 2 b) (assoc 2 l) l))))
  (princ))
