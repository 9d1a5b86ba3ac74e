;; A leader with the diameter of a pipe.
(defun c:repere (/ p q)
  (setq p (getpoint "\nConduite: ") q (getpoint p "\nTexte: "))
  (command "_.LEADER" p q "" (strcat "DN " (itoa (getint "\nDiamètre: "))) "")
  (princ))
