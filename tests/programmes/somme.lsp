;; Adds up the numbers in chosen texts and writes the sum.
(defun c:somme (/ jeu i s)
  (setq s 0.0)
  (if (setq jeu (ssget '((0 . "TEXT"))))
    (repeat (setq i (sslength jeu)) (setq s (+ s (atof (vl-string-translate "," "." (cdr (assoc 1 (entget (ssname jeu (setq i (1- i)))))))))))
  )
  (entmake (list '(0 . "TEXT") (cons 10 (getpoint "\nPlace: ")) '(40 . 2.5) (cons 1 (rtos s 2 2))))
  (princ))
