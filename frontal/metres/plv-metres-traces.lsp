;; The lines of a profile as they are drawn, apart from the module's dialog: what the control compares with.
;; A piece is (from altitude-from to altitude-to), left to right; upright pieces have no extent and are left out.
;; Shared in the room: plv-traces:*

(defun plv-piece-debut (piece) (car piece))
(defun plv-piece-fin (piece) (caddr piece))

(defun plv-piece-altitude (piece d / part)
  (setq part (/ (- d (car piece)) (- (caddr piece) (car piece))))
  (+ (cadr piece) (* part (- (cadddr piece) (cadr piece)))))

(defun plv-traces:longueur (pieces) (apply '+ (cons 0.0 (mapcar '(lambda (p) (- (plv-piece-fin p) (plv-piece-debut p))) pieces))))

;; --- from the drawing

(defun plv-traces:sommets (entite)
  "The vertices of a curve of straight pieces; nil for another."
  (plv-forme-droite (plv-forme-de entite)))

(defun plv-traces:point-de-courbe (cadre entite d / y)
  "A point of a curve; beside an end when rounding puts the upright just off it."
  (if (setq y (vl-some '(lambda (ecart) (pl_yat entite (plv-abscisse cadre (+ d ecart)))) '(0.0 1e-7 -1e-7)))
    (list (plv-abscisse cadre d) y)))

(defun plv-traces:stations (d1 d2 / i stations)
  "Two hundred stretches between two distances."
  (setq i 0)
  (repeat 199 (setq i (1+ i) stations (cons (+ d1 (* (- d2 d1) (/ i 200.0))) stations)))
  stations)

(defun plv-traces:points-de-courbe (cadre entite forme distances / d1 d2)
  "Points of a curve: its ends, points close to each other, and those at distances, among which are its vertices."
  (setq d1 (plv-distance cadre (plv-forme-depart forme)) d2 (plv-distance cadre (plv-forme-arrivee forme)))
  (vl-remove nil
    (mapcar '(lambda (d) (plv-traces:point-de-courbe cadre entite d))
      (vl-sort (append (list d1 d2) (plv-traces:stations (min d1 d2) (max d1 d2))
                       (vl-remove-if-not '(lambda (d) (< (+ (min d1 d2) 1e-6) d (- (max d1 d2) 1e-6))) distances))
               '<))))

(defun plv-traces:points (cadre entite distances / forme)
  (setq forme (plv-forme-de entite))
  (cond
    ((not (listp forme)) nil)
    ((plv-traces:sommets entite))
    ((and (= (plv-type entite) "POLYLINE") (not (plv-forme-polyligne-p forme))) (plv-forme-en-points forme))
    ((plv-traces:points-de-courbe cadre entite forme distances))))

(defun plv-traces:piece (cadre plan a b)
  "A piece between two points of the drawing, drawn over a plane."
  (append (plv-vers-profil-sur cadre plan a) (plv-vers-profil-sur cadre plan b)))

(defun plv-traces:couper (cadre a b / d1 d2 stations)
  "The pieces between two points of the drawing, each over the plane of its section."
  (setq d1 (plv-distance cadre a) d2 (plv-distance cadre b)
        stations (append (list d1)
                         (vl-remove-if-not '(lambda (d) (< (+ d1 1e-6) d (- d2 1e-6))) (plv-changements (plv-cadre-plans cadre)))
                         (list d2)))
  (mapcar
    '(lambda (u v)
       (plv-traces:piece cadre (plv-plan-en (plv-cadre-plans cadre) (* 0.5 (+ u v)))
         (list (plv-abscisse cadre u) (plv-interpoler (list a b) (plv-abscisse cadre u)))
         (list (plv-abscisse cadre v) (plv-interpoler (list a b) (plv-abscisse cadre v)))))
    stations (cdr stations)))

(defun plv-traces:pieces-de-points (cadre points)
  (apply 'append
    (mapcar
      '(lambda (a b)
         (if (> (abs (- (car b) (car a))) 1e-8) (plv-traces:couper cadre (if (< (car a) (car b)) a b) (if (< (car a) (car b)) b a))))
      points (cdr points))))

(defun plv-traces:trier (pieces) (vl-sort pieces '(lambda (a b) (< (car a) (car b)))))

(defun plv-traces:pieces (cadre entite distances)
  "The pieces of an element; those of a curve between its points at distances."
  (plv-traces:trier (plv-traces:pieces-de-points cadre (plv-traces:points cadre entite distances))))

(defun plv-traces:terrain (profil cadre terrains distances)
  "The ground that the module measures to: what is attached as terrain, else the ground lines of the planes."
  (plv-traces:trier
    (apply 'append
      (if terrains
        (mapcar '(lambda (e) (plv-traces:pieces cadre e distances)) terrains)
        (mapcar '(lambda (section) (plv-traces:lignes cadre section)) (plv-sections-de-plan profil))))))

(defun plv-traces:lignes (cadre section)
  "The ground lines of a section."
  (vl-remove nil
    (mapcar
      '(lambda (ligne / bouts)
         (setq bouts (plv-gauche-droite (plv-traces:sommets ligne)))
         (if (> (- (caadr bouts) (caar bouts)) 1e-8) (plv-traces:piece cadre section (car bouts) (cadr bouts))))
      (plv-lignes-du-plan (plv-section-entite section)))))

(defun plv-traces:courbe-p (entite) (not (plv-traces:sommets entite)))

;; --- both lines together: (from to depth-from depth-to) wherever both are

(defun plv-traces:profondeurs (terrain pieces / a b ensemble t1 p1)
  (while (and terrain pieces)
    (setq t1 (car terrain) p1 (car pieces)
          a (max (plv-piece-debut t1) (plv-piece-debut p1)) b (min (plv-piece-fin t1) (plv-piece-fin p1)))
    (if (> b (+ a 1e-9))
      (setq ensemble
        (cons (list a b (- (plv-piece-altitude t1 a) (plv-piece-altitude p1 a)) (- (plv-piece-altitude t1 b) (plv-piece-altitude p1 b)))
              ensemble)))
    (if (< (plv-piece-fin t1) (plv-piece-fin p1)) (setq terrain (cdr terrain)) (setq pieces (cdr pieces))))
  (reverse ensemble))
