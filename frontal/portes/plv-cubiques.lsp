;; Cubics: curves of four homogeneous points (x*w y*w w), of which x grows. They hold parabolas, and with weights arcs of circles
;; and of ellipses, to the last digits.

(defun plv-cubique-poids (h) (caddr h))
(defun plv-cubique-d (h) (/ (car h) (plv-cubique-poids h)))
(defun plv-cubique-z (h) (/ (cadr h) (plv-cubique-poids h)))
(defun plv-cubique-point (h) (list (plv-cubique-d h) (plv-cubique-z h)))

(defun plv-cubique-entre (a b part)
  (mapcar '(lambda (x y) (+ (* x (- 1.0 part)) (* y part))) a b))

(defun plv-cubiques:casteljau (courbe part / gauche droite)
  "The two parts of a curve."
  (while courbe
    (setq gauche (cons (car courbe) gauche)
          droite (cons (plv-dernier courbe) droite)
          courbe (mapcar '(lambda (a b) (plv-cubique-entre a b part)) courbe (cdr courbe))))
  (list (reverse gauche) droite))

(defun plv-couper-cubique (courbe d / bas haut part)
  "The two parts of a curve at a distance; distances grow along it."
  (setq bas 0.0 haut 1.0)
  (repeat 60
    (setq part (* 0.5 (+ bas haut)))
    (if (< (plv-cubique-d (plv-dernier (car (plv-cubiques:casteljau courbe part)))) d) (setq bas part) (setq haut part)))
  (plv-cubiques:casteljau courbe part))

(defun plv-cubique-par (p a b q)
  "The cubic through four points that stand at thirds of its parameter; points that a host doesn't give are nil."
  (if (and p a b q) (plv-cubiques:par p a b q) (list p a b q)))

(defun plv-cubiques:par (p a b q)
  (list p
        (mapcar '(lambda (p a b q) (/ (+ (* -5.0 p) (* 18.0 a) (* -9.0 b) (* 2.0 q)) 6.0)) p a b q)
        (mapcar '(lambda (p a b q) (/ (+ (* 2.0 p) (* -9.0 a) (* 18.0 b) (* -5.0 q)) 6.0)) p a b q)
        q))

(defun plv-cubique-en (courbe part) (plv-cubique-point (plv-dernier (car (plv-cubiques:casteljau courbe part)))))
