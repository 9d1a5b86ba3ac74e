; Core functions in small calls.
(setq l '(3 1 2) s "abc")
(defun f (x / y) (setq y (* x 2)) (if (> y 4) (list x y) (f (1+ x))))
(mapcar '(lambda (a b) (+ a b)) l (cdr l))
(vl-sort l '<) (vl-catch-all-apply 'f '(1)) (strcat s (itoa 3) (rtos 1.5 2 3))
(substr s 2 1) (wcmatch s "a*,~b") (read "(1 . 2)") (assoc 1 '((1 . 2))) (subst 1 2 l)
(foreach x l (princ x)) (while (setq l (cdr l)) (print l)) (apply 'max '(1 2.5)) (angtos 1.2 1 4) (distof "1'-2" 4)
