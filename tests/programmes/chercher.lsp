;; Replaces a piece of text in all texts.
(defun c:chercher (/ a b jeu i l s n)
  (setq a (getstring T "\nChercher: ") b (getstring T "\nRemplacer par: ") n 0)
  (if (setq jeu (ssget "_X" '((0 . "TEXT"))))
    (repeat (setq i (sslength jeu))
      (setq l (entget (ssname jeu (setq i (1- i)))) s (cdr (assoc 1 l)))
      (if (vl-string-search a s) (progn (entmod (subst (cons 1 (vl-string-subst b a s)) (assoc 1 l) l)) (setq n (1+ n))))))
  (princ (strcat "\n" (itoa n) " textes"))
  (princ))
