;; The form of a curve as it is seen in the drawing's plane, whatever entity draws it: (P vertex ...) a polyline, (S cubic ...) a
;; spline. A vertex is (x y bulge): the bulge of the piece that follows it, as in light polylines.
;; Shared in the room: plv-formes:*

(defun plv-forme-polyligne-p (forme) (= (car forme) "P"))
(defun plv-forme-elements (forme) (cdr forme))

(defun plv-sommet-bulbe (sommet) (caddr sommet))

(defun plv-forme-depart (forme)
  (if (plv-forme-polyligne-p forme) (cadr forme) (plv-cubique-point (car (cadr forme)))))

(defun plv-forme-arrivee (forme)
  (if (plv-forme-polyligne-p forme) (plv-dernier forme) (plv-cubique-point (plv-dernier (plv-dernier forme)))))

;; --- the words of messages

(setq plv-formes:mots
  '(("LINE" . "la ligne") ("LWPOLYLINE" . "la polyligne") ("POLYLINE" . "la polyligne") ("ARC" . "l'arc") ("SPLINE" . "la spline")))

(defun plv-nom-courbe (entite)
  "A curve as messages call it, by its kind and handle."
  (strcat (cond ((plv-cle (plv-type entite) plv-formes:mots)) ((strcat "l'entité " (plv-nom-de-type (plv-type entite))))) " " (plv-handle entite)))

(setq plv-formes:fermee "courbe fermée"
      plv-formes:penchee "courbe qui n'est pas parallèle au plan du dessin")

;; --- between points. Callers have variables that are called like the host's own functions for these.

(defun plv-formes:longueur (a b)
  "In space."
  (sqrt (apply '+ (mapcar '(lambda (u v) (* (- v u) (- v u))) a b))))

(defun plv-formes:corde (a b) (plv-formes:longueur (list (car a) (cadr a)) (list (car b) (cadr b))))

(defun plv-formes:direction (a b) (atan (- (cadr b) (cadr a)) (- (car b) (car a))))

;; --- polylines

(defun plv-formes:sommets (groupes / sommets)
  "The vertices of a light polyline."
  (foreach g groupes
    (cond ((= (car g) 10) (setq sommets (cons (list (cadr g) (caddr g) 0.0) sommets)))
          ((and sommets (= (car g) 42)) (setq sommets (cons (list (caar sommets) (cadar sommets) (cdr g)) (cdr sommets))))))
  (reverse sommets))

(defun plv-formes:vertex (entite / groupes vertex)
  "The groups of the vertices of an old polyline."
  (while (= (plv-cle 0 (setq groupes (entget (setq entite (entnext entite))))) "VERTEX") (setq vertex (cons groupes vertex)))
  (reverse vertex))

(defun plv-formes:bits-p (groupes bits) (/= 0 (logand (cond ((plv-cle 70 groupes)) (0)) bits)))

(defun plv-formes:du-vertex (groupes)
  (list (cadr (assoc 10 groupes)) (caddr (assoc 10 groupes)) (cond ((plv-cle 42 groupes)) (0.0))))

(defun plv-formes:ancienne (entite groupes / vertex)
  "An old polyline: through its vertices, or the spline of its frame, as the module has it."
  (setq vertex (plv-formes:vertex entite))
  (cond
    ((plv-formes:bits-p groupes 80) "maillage")
    ((plv-formes:bits-p groupes 1) plv-formes:fermee)
    ((not (plv-formes:bits-p groupes 4)) (cons "P" (mapcar 'plv-formes:du-vertex vertex)))
    (T
     (plv-formes:spline
       (mapcar 'plv-formes:du-vertex (vl-remove-if-not '(lambda (v) (plv-formes:bits-p v 16)) vertex))
       (if (= (plv-cle 75 groupes) 5) 2 3)))))

(defun plv-formes:spline (points degre / n noeuds)
  "The spline of a frame, its knots whole numbers; a short frame repeats its last point but one."
  (while (<= (length points) degre) (setq points (append (plv-sans-dernier points) (list (cadr (reverse points)) (plv-dernier points)))))
  (setq n 0)
  (repeat (1+ degre) (setq noeuds (cons 0.0 noeuds)))
  (repeat (- (length points) degre) (setq n (1+ n) noeuds (cons (float n) noeuds)))
  (repeat degre (setq noeuds (cons (float n) noeuds)))
  (plv-formes:cubiques degre (reverse noeuds) (mapcar '(lambda (p) (list (car p) (cadr p) 1.0)) points)))

;; --- splines

(defun plv-formes:entre-noeuds (entite noeuds point)
  "The cubics of a spline of degree 2 or 3 between its knots; `point` makes a homogeneous point of one of its points."
  (mapcar
    '(lambda (a b)
       (apply 'plv-cubique-par
         (mapcar '(lambda (part) (apply point (list (vlax-curve-getPointAtParam entite (+ a (* part (- b a)))))))
                 (list 0.0 (/ 1.0 3.0) (/ 2.0 3.0) 1.0))))
    noeuds (cdr noeuds)))

(defun plv-formes:cubiques (degre noeuds points / guide formes)
  "A spline of homogeneous points. A spline without weights through these points, in space, is its numerators and denominator:
the host evaluates that one."
  (setq guide
         (entmakex
           (append
             (list '(0 . "SPLINE") '(100 . "AcDbEntity") '(100 . "AcDbSpline") '(70 . 0) (cons 71 degre) (cons 72 (length noeuds))
                   (cons 73 (length points)) '(74 . 0))
             (mapcar '(lambda (k) (cons 40 k)) noeuds)
             (mapcar '(lambda (p) (cons 10 p)) points)))
        formes (plv-formes:entre-noeuds guide
                 (plv-uniques (plv-sans-premiers (reverse (plv-sans-premiers (reverse noeuds) degre)) degre))
                 '(lambda (p) p)))
  (entdel guide)
  (cons "S" formes))

(defun plv-formes:homogenes (groupes / points poids)
  (setq points (plv-cles 10 groupes)
        poids (cond ((plv-cles 41 groupes)) ((mapcar '(lambda (p) 1.0) points))))
  (mapcar '(lambda (p w) (list (* w (car p)) (* w (cadr p)) w)) points poids))

(defun plv-formes:cumuls (points)
  "The knots of a spline through points: the chords, added up."
  (reverse (plv-plier '(lambda (cumuls corde) (cons (+ (car cumuls) corde) cumuls)) '(0.0) (mapcar 'plv-formes:longueur points (cdr points)))))

(defun plv-formes:de-spline (entite groupes / degre points)
  (setq degre (plv-cle 71 groupes) points (plv-formes:homogenes groupes))
  (cond
    ((plv-formes:bits-p groupes 3) plv-formes:fermee)
    ((not points)
     (cons "S" (plv-formes:entre-noeuds entite (plv-uniques (plv-formes:cumuls (plv-cles 11 groupes))) '(lambda (p) (if p (list (car p) (cadr p) 1.0))))))
    ((= degre 1) (cons "P" (mapcar '(lambda (p) (append (plv-cubique-point p) '(0.0))) points)))
    ((> degre 3) (strcat "spline de degré " (itoa degre) ", au lieu de 3"))
    (T (plv-formes:cubiques degre (plv-cles 40 groupes) points))))

;; --- any curve

(defun plv-formes:arc (groupes / centre r a b)
  (setq centre (plv-cle 10 groupes) r (plv-cle 40 groupes) a (plv-cle 50 groupes) b (plv-cle 51 groupes))
  (while (< b a) (setq b (+ b pi pi)))
  (list "P" (append (plv-formes:sur-cercle centre r a) (list (plv-formes:tan (* 0.25 (- b a)))))
            (append (plv-formes:sur-cercle centre r b) '(0.0))))

(defun plv-formes:sur-cercle (centre r a) (list (+ (car centre) (* r (cos a))) (+ (cadr centre) (* r (sin a)))))

(defun plv-formes:tan (a) (/ (sin a) (cos a)))

(defun plv-formes:lire (entite groupes / genre)
  (setq genre (plv-cle 0 groupes))
  (cond
    ((= genre "LINE") (list "P" (plv-formes:du-vertex groupes) (list (cadr (assoc 11 groupes)) (caddr (assoc 11 groupes)) 0.0)))
    ((= genre "LWPOLYLINE") (if (plv-formes:bits-p groupes 1) plv-formes:fermee (cons "P" (plv-formes:sommets groupes))))
    ((= genre "POLYLINE") (plv-formes:ancienne entite groupes))
    ((= genre "ARC") (plv-formes:arc groupes))
    ((= genre "SPLINE") (plv-formes:de-spline entite groupes))
    (T "au lieu d'une ligne, d'une polyligne, d'un arc ou d'une spline")))

(defun plv-formes:miroir (forme)
  "What is drawn from behind."
  (cons "P" (mapcar '(lambda (s) (list (- (car s)) (cadr s) (- (plv-sommet-bulbe s)))) (plv-forme-elements forme))))

(defun plv-formes:de-cote (groupes)
  "The third coordinate of a curve's own direction: 1 as it is seen, -1 from behind. Lines and splines have their points in space."
  (if (or (not (assoc 210 groupes)) (member (plv-cle 0 groupes) '("LINE" "SPLINE")))
    1.0
    (cadddr (assoc 210 groupes))))

(defun plv-formes:lisible-p (forme)
  (vl-every '(lambda (p) (and p (vl-every '(lambda (v) (and v (< -1e15 v 1e15))) p)))
    (if (plv-forme-polyligne-p forme) (cdr forme) (apply 'append (cdr forme)))))

(defun plv-forme-de (entite / groupes forme cote)
  "The form of a curve, or the text of why it has none."
  (setq groupes (entget entite)
        cote (plv-formes:de-cote groupes)
        forme (plv-formes:lire entite groupes))
  (cond
    ((not (listp forme)) forme)
    ((not (equal (abs cote) 1.0 1e-9)) plv-formes:penchee)
    ((not (cdr (if (plv-forme-polyligne-p forme) (cdr forme) forme))) "moins de deux points")
    ((not (plv-formes:lisible-p forme)) "coordonnées illisibles")
    ((< cote 0.0) (plv-formes:miroir forme))
    (T forme)))
