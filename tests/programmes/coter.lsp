;; Dimensions every side of a rectangle.
(defun c:coter (/ a b)
  (setq a (getpoint "\nPremier coin: ") b (getcorner a "\nCoin opposé: "))
  (command "_.DIMLINEAR" a (list (car b) (cadr a)) (list (car a) (- (cadr a) 5.0)))
  (command "_.DIMLINEAR" a (list (car a) (cadr b)) (list (- (car a) 5.0) (cadr a)))
  (princ))
