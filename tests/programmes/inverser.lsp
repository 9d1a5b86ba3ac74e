;; Turns a light polyline round, vertex by vertex.
(defun c:inverser (/ e l tete pts)
  (setq e (car (entsel "\nPolyligne: ")) l (entget e))
  (foreach g l (if (= (car g) 10) (setq pts (cons g pts))))
  (setq tete (vl-remove-if '(lambda (g) (member (car g) '(10 40 41 42 91 210))) l))
  (entmod (append tete pts))
  (princ))
