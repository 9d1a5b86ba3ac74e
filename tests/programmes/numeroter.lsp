;; Numbers blocks from left to right by the value of an attribute.
(defun c:numeroter (/ jeu i liste n e l)
  (if (setq jeu (ssget "_X" '((0 . "INSERT") (2 . "REGARD") (66 . 1))))
    (repeat (setq i (sslength jeu)) (setq liste (cons (ssname jeu (setq i (1- i))) liste))))
  (setq liste (vl-sort liste '(lambda (a b) (< (cadr (assoc 10 (entget a))) (cadr (assoc 10 (entget b)))))) n 0)
  (foreach b liste
    (setq n (1+ n) e (entnext b))
    (while (= (cdr (assoc 0 (setq l (entget e)))) "ATTRIB")
      (if (= (cdr (assoc 2 l)) "NUM") (progn (entmod (subst (cons 1 (strcat "R" (itoa n))) (assoc 1 l) l)) (entupd b)))
      (setq e (entnext e))))
  (princ))
