;; Writes the area of a closed polyline at its middle.
(defun c:surface (/ e a)
  (setq e (car (entsel "\nPolyligne: ")))
  (command "_.AREA" "_O" e)
  (setq a (getvar "AREA"))
  (entmake (list '(0 . "TEXT") '(10 0.0 0.0 0.0) '(11 5.0 5.0 0.0) '(40 . 1.0) '(72 . 4) (cons 1 (strcat (rtos a 2 1) " m2"))))
  (princ))
