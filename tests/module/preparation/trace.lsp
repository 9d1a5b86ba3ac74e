;; Lines and blocks on `prf`, for quantities: the ground runs through (0,100) (40,102) (100,101) (150,104), and the planes at 95
;; and 100 are drawn in the sections 0-100 and 100-150. (tronc d1 z1 d2 z2 plane) is a line in profile coordinates, tn1 to tn3
;; are the ground; (tampon block x attributes) is a block with attributes.

(defun ligne (x1 y1 x2 y2) (entmake (list '(0 . "LINE") (list 10 x1 y1 0.0) (list 11 x2 y2 0.0))) (entlast))
(defun tronc (d1 z1 d2 z2 plan) (ligne (+ 100.0 d1) (+ 50.0 (* 10.0 (- z1 plan))) (+ 100.0 d2) (+ 50.0 (* 10.0 (- z2 plan)))))
(setq tn1 (tronc 0.0 100.0 40.0 102.0 95.0) tn2 (tronc 40.0 102.0 100.0 101.0 95.0) tn3 (tronc 100.0 101.0 150.0 104.0 100.0))
(defun tampon (nom x attributs)
  (entmake (list '(0 . "BLOCK") (cons 2 nom) '(70 . 2) '(10 0.0 0.0 0.0))) (entmake '((0 . "ENDBLK")))
  (entmake (list '(0 . "INSERT") '(66 . 1) (cons 2 nom) (list 10 x 60.0 0.0)))
  (foreach a attributs (entmake (list '(0 . "ATTRIB") (list 10 x 60.0 0.0) '(40 . 1.0) (cons 1 (cdr a)) (cons 2 (car a)) '(70 . 0))))
  (entmake '((0 . "SEQEND"))) (entlast))
