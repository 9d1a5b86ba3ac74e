;; Adds a prefix to chosen texts.
(defun c:textes (/ jeu i l p)
  (setq p (getstring T "\nPréfixe: "))
  (if (setq jeu (ssget '((0 . "TEXT,MTEXT"))))
    (repeat (setq i (sslength jeu))
      (setq l (entget (ssname jeu (setq i (1- i)))))
      (entmod (subst (cons 1 (strcat p (cdr (assoc 1 l)))) (assoc 1 l) l))))
  (princ))
