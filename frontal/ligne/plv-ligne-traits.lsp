;; A line as it would be drawn, while it isn't: vectors for the screen only.

(defun plv-suite-en-points (suite raccords)
  "The points (distance altitude) of a run with its vertical curves, which are as plv-raccords gives them."
  (apply 'append
    (mapcar '(lambda (s r) (if r (plv-traits:raccord r) (list (list (car s) (cadr s))))) suite raccords)))

(defun plv-traits:raccord (raccord / nombre i points)
  "Points on a curve so close that chords are a millimetre from it at most, within reason."
  (setq nombre (fix (plv-entre (1+ (/ (plv-longueur raccord) (sqrt (* 0.008 (plv-partie-rayon raccord))))) 4 100)) i -1)
  (repeat (1+ nombre)
    (setq i (1+ i) points (cons (plv-cubique-en (plv-raccord-courbe raccord) (/ (float i) nombre)) points)))
  (reverse points))

(defun plv-traits:entre (changements a b / dedans)
  "Both points, and those where planes change between them."
  (foreach d changements
    (if (< (+ (car a) 1e-6) d (- (car b) 1e-6)) (setq dedans (cons (list d (plv-interpoler (list a b) d)) dedans))))
  (cons a (reverse (cons b dedans))))

(defun plv-traits:trait (cadre a b / plan)
  (setq plan (plv-plan-en (plv-cadre-plans cadre) (* 0.5 (+ (car a) (car b)))))
  (list (plv-vers-dessin-sur cadre plan (car a) (cadr a)) (plv-vers-dessin-sur cadre plan (car b) (cadr b))))

(defun plv-traits (cadre couleur points / changements)
  "Vectors as grvecs takes them, of points from left to right."
  (setq changements (plv-changements (plv-cadre-plans cadre)))
  (if (cdr points)
    (cons couleur
      (apply 'append
        (mapcar
          '(lambda (a b / m)
             (setq m (plv-traits:entre changements a b))
             (apply 'append (mapcar '(lambda (p q) (plv-traits:trait cadre p q)) m (cdr m))))
          points (cdr points))))))

(defun plv-traits-marque (cadre couleur point taille / p)
  "A square around a point, its half side in drawing units."
  (setq p (plv-vers-dessin cadre (car point) (cadr point)))
  (cons couleur
    (apply 'append
      (mapcar '(lambda (a b) (list (plv-traits:coin p a taille) (plv-traits:coin p b taille)))
        '((-1 -1) (1 -1) (1 1) (-1 1)) '((1 -1) (1 1) (-1 1) (-1 -1))))))

(defun plv-traits:coin (p coin taille)
  (list (+ (car p) (* taille (car coin))) (+ (cadr p) (* taille (cadr coin))) 0.0))
