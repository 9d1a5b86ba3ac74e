;; What is done with forms: turned, cut at uprights, its own uprights leaned.
;; Shared in the room: plv-formes:*

(setq plv-formes:place 1e-6) ; what is nearer along the profile stands at the same place

;; --- the direction

(defun plv-retourner-forme (forme / bulbes)
  "Drawn the other way round: each bulge belongs to the piece before its vertex now, with its sign changed."
  (if (plv-forme-polyligne-p forme)
    (progn
      (setq bulbes (append (cdr (reverse (mapcar 'plv-sommet-bulbe (cdr forme)))) '(0.0)))
      (cons "P" (mapcar '(lambda (s b) (list (car s) (cadr s) (- b))) (reverse (cdr forme)) bulbes)))
    (cons "S" (reverse (mapcar 'reverse (cdr forme))))))

(defun plv-formes:tangente-p (direction) (>= (cos direction) -1e-9))

(defun plv-formes:piece-avance-p (a b / demi corde)
  "Whether the piece between two vertices goes on to the right; an upright one does."
  (setq demi (* 2.0 (atan (plv-sommet-bulbe a))) corde (plv-formes:direction a b))
  (and (>= (car b) (- (car a) plv-formes:place))
       (or (equal (plv-sommet-bulbe a) 0.0 1e-12)
           (and (<= (abs demi) (+ (* 0.5 pi) 1e-9)) (plv-formes:tangente-p (- corde demi)) (plv-formes:tangente-p (+ corde demi))))))

(defun plv-formes:cubique-avance-p (courbe / i x avant avance)
  (setq i 0 avance T avant (plv-cubique-d (car courbe)))
  (while (and avance (< i 32))
    (setq i (1+ i) x (car (plv-cubique-en courbe (/ i 32.0))) avance (> x (- avant 1e-9)) avant x))
  avance)

(defun plv-formes:recul (forme)
  "The abscissa from which a form goes back to the left; nil for one that goes to the right all along."
  (car (vl-remove nil
         (if (plv-forme-polyligne-p forme)
           (mapcar '(lambda (a b) (if (not (plv-formes:piece-avance-p a b)) (car a))) (cdr forme) (cddr forme))
           (mapcar '(lambda (c) (if (not (plv-formes:cubique-avance-p c)) (plv-cubique-d (car c)))) (cdr forme))))))

;; --- a cut at an upright: (left right), nil for a side without extent

(defun plv-formes:partager-piece (a b x / centre r signe point)
  "The first of two vertices with the bulge that is left to it, and one on the piece between them at an abscissa."
  (if (equal (plv-sommet-bulbe a) 0.0 1e-12)
    (list a (list x (plv-interpoler (list a b) x) 0.0))
    (progn
      (setq signe (if (> (plv-sommet-bulbe a) 0.0) 1.0 -1.0)
            r (plv-formes:rayon a b)
            centre (plv-formes:centre a b)
            point (list x (- (cadr centre) (* signe (sqrt (max 0.0 (- (* r r) (expt (- x (car centre)) 2))))))))
      (list (plv-formes:avec-bulbe a point r signe) (plv-formes:avec-bulbe point b r signe)))))

(defun plv-formes:centre (a b / part)
  "Of the arc between two vertices: to the left of its chord for a positive bulge below 1."
  (setq part (/ (- 1.0 (expt (plv-sommet-bulbe a) 2)) (* 4.0 (plv-sommet-bulbe a))))
  (list (- (* 0.5 (+ (car a) (car b))) (* part (- (cadr b) (cadr a))))
        (+ (* 0.5 (+ (cadr a) (cadr b))) (* part (- (car b) (car a))))))

(defun plv-formes:avec-bulbe (a b r signe)
  "A vertex with the bulge of the arc of a radius to another point."
  (list (car a) (cadr a)
        (* signe (plv-formes:tan (* 0.5 (plv-formes:arc-sinus (/ (plv-formes:corde a b) (* 2.0 r))))))))

(defun plv-formes:arc-sinus (s) (if (>= s 1.0) (* 0.5 pi) (atan (/ s (sqrt (- 1.0 (* s s)))))))

(defun plv-formes:gauche-p (s x) (< (car s) (- x plv-formes:place)))
(defun plv-formes:droite-p (s x) (> (car s) (+ x plv-formes:place)))

(defun plv-formes:sans-bulbe (s) (list (car s) (cadr s) 0.0))

(defun plv-formes:couper-polyligne (sommets x / gauche droite la partage)
  "Of an upright that stands at the cut either side keeps its own end: where planes change, that is how a line is drawn."
  (setq gauche (vl-remove-if-not '(lambda (s) (plv-formes:gauche-p s x)) sommets)
        droite (vl-remove-if-not '(lambda (s) (plv-formes:droite-p s x)) sommets)
        la (vl-remove-if '(lambda (s) (or (plv-formes:gauche-p s x) (plv-formes:droite-p s x))) sommets))
  (if (and gauche droite (not la))
    (progn
      (setq partage (plv-formes:partager-piece (plv-dernier gauche) (car droite) x))
      (list (append (plv-sans-dernier gauche) (list (car partage) (plv-formes:sans-bulbe (cadr partage))))
            (cons (cadr partage) droite)))
    (list (if gauche (append gauche (if la (list (plv-formes:sans-bulbe (car la))))))
          (if droite (append (if la (list (plv-dernier la))) droite)))))

(defun plv-formes:couper-cubiques (courbes x / gauche droite)
  (foreach c courbes
    (cond
      ((<= (plv-cubique-d (plv-dernier c)) (+ x plv-formes:place)) (setq gauche (cons c gauche)))
      ((>= (plv-cubique-d (car c)) (- x plv-formes:place)) (setq droite (cons c droite)))
      (T
       (setq c (plv-couper-cubique c x) gauche (cons (car c) gauche) droite (cons (cadr c) droite)))))
  (list (reverse gauche) (reverse droite)))

(defun plv-couper-forme (forme x)
  (mapcar '(lambda (elements) (if elements (cons (car forme) elements)))
    (if (plv-forme-polyligne-p forme) (plv-formes:couper-polyligne (cdr forme) x) (plv-formes:couper-cubiques (cdr forme) x))))

(defun plv-couper-forme-en (forme abscisses / pieces moities)
  "The pieces of a form between uprights, left to right."
  (foreach x abscisses
    (setq moities (if forme (plv-couper-forme forme x))
          pieces (if (car moities) (cons (car moities) pieces) pieces)
          forme (cadr moities)))
  (reverse (if forme (cons forme pieces) pieces)))

(defun plv-forme-entre (forme x1 x2)
  "What a form has between two uprights; nil for nothing."
  (if (setq forme (cadr (plv-couper-forme forme x1))) (car (plv-couper-forme forme x2))))

;; --- uprights: the module passes over a piece without extent, and with it over the depths in between

(defun plv-formes:double-p (a b) (and (equal (car a) (car b) 1e-9) (equal (cadr a) (cadr b) 1e-9)))

(defun plv-formes:verticale-p (a b) (and (not (plv-formes:double-p a b)) (< (car b) (+ (car a) (* 0.5 plv-formes:place)))))

(defun plv-forme-verticale-p (forme)
  "Whether a form has uprights. A vertex that stands twice, as the module's joints have it, is none."
  (and (plv-forme-polyligne-p forme) (vl-some 'plv-formes:verticale-p (cdr forme) (cddr forme))))

(defun plv-formes:pencher (sommets / faits)
  (foreach s sommets
    (setq faits
      (cond
        ((not faits) (list s))
        ((plv-formes:double-p (car faits) s) (cons s (cdr faits)))
        ((plv-formes:verticale-p (car faits) s) (cons (cons (+ (caar faits) plv-formes:place) (cdr s)) faits))
        (T (cons s faits)))))
  (reverse faits))

(defun plv-pencher-forme (forme)
  "A form whose uprights lean by a micrometre, as those of the ground do, and of which no vertex stands twice."
  (if (plv-forme-polyligne-p forme) (cons "P" (plv-formes:pencher (cdr forme))) forme))

;; --- chords

(defun plv-formes:rayon (a b / b1)
  "Of the arc between two vertices."
  (setq b1 (abs (plv-sommet-bulbe a)))
  (/ (* (plv-formes:corde a b) (+ 1.0 (* b1 b1))) (* 4.0 b1)))

(defun plv-formes:cordes (a b / r centre debut ouverture n i faits)
  "Points on an arc between two vertices, so close that no chord is further from it than 2e-5 units."
  (setq r (plv-formes:rayon a b)
        centre (plv-formes:centre a b)
        debut (plv-formes:direction centre a)
        ouverture (* 4.0 (atan (plv-sommet-bulbe a)))
        n (1+ (fix (* (abs ouverture) (sqrt (/ r 1.6e-4)))))
        i 0)
  (repeat (1- n)
    (setq i (1+ i)
          faits (cons (append (plv-formes:sur-cercle centre r (+ debut (* ouverture (/ (float i) n)))) '(0.0)) faits)))
  (cons (plv-formes:sans-bulbe a) (reverse faits)))

(defun plv-forme-en-cordes (forme / sommets)
  "A polyline without arcs."
  (setq sommets (plv-forme-elements forme))
  (cons "P"
    (append
      (apply 'append
        (mapcar '(lambda (a b) (if (equal (plv-sommet-bulbe a) 0.0 1e-12) (list a) (plv-formes:cordes a b))) sommets (cdr sommets)))
      (list (plv-formes:sans-bulbe (plv-dernier sommets))))))

(defun plv-forme-courbe-p (forme)
  "T for a polyline with arcs."
  (and (plv-forme-polyligne-p forme) (not (vl-every '(lambda (s) (equal (plv-sommet-bulbe s) 0.0 1e-12)) (cdr forme)))))

(defun plv-forme-droite (forme)
  "The vertices of a polyline without arcs; nil for another form, and for the text of why there is none."
  (if (and (listp forme) (plv-forme-polyligne-p forme) (not (plv-forme-courbe-p forme))) (plv-forme-elements forme)))

(defun plv-forme-en-points (forme / i points)
  "Points of a spline. The host draws that of an old polyline by other points, through which no upright finds it."
  (foreach c (plv-forme-elements forme)
    (setq i -1)
    (repeat 65 (setq i (1+ i) points (cons (plv-cubique-en c (/ i 64.0)) points))))
  (reverse points))
