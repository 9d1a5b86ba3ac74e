;; Points (distance altitude ...) in metres from a profile's origin, and lines of such points from left to right.
;; As with the host's points, car is the one coordinate and cadr the other. What begins with its two ends along the profile,
;; (from to ...), is a stretch, whatever follows: slope pieces, parts of a line, segments of an axis.

(defun plv-debut (etendue) (car etendue))
(defun plv-fin (etendue) (cadr etendue))
(defun plv-longueur (etendue) (- (cadr etendue) (car etendue)))
(defun plv-milieu (etendue) (* 0.5 (+ (car etendue) (cadr etendue))))

(defun plv-pente (a b) (/ (- (cadr b) (cadr a)) (- (car b) (car a))))

(defun plv-interpoler (segment d / a b)
  "Altitude at a distance on the straight line through the first two points."
  (setq a (car segment) b (cadr segment))
  (+ (cadr a) (* (- d (car a)) (plv-pente a b))))

(defun plv-gauche-droite (points) (if (> (caar points) (car (plv-dernier points))) (reverse points) points))

;; --- a line of points

(defun plv-points-sans-doubles (points / gardes)
  "Of neighbours at one place the first one."
  (foreach p points (if (not (and gardes (equal p (car gardes) 1e-6))) (setq gardes (cons p gardes))))
  (reverse gardes))

(defun plv-ligne-depuis (ligne d)
  "The line from its stretch at a distance on; of two points there, as at a wall, the second counts."
  (while (and (cddr ligne) (<= (car (cadr ligne)) (+ d 1e-9))) (setq ligne (cdr ligne)))
  ligne)

(defun plv-altitude-ligne (ligne d) (plv-interpoler (plv-ligne-depuis ligne d) d))

(defun plv-ligne-entre (points a b / dedans)
  "A line between two distances, its ends interpolated."
  (setq points (plv-ligne-depuis points a)
        dedans (list (list a (plv-interpoler points a))))
  (while (and (cddr points) (< (car (cadr points)) (- b 1e-9)))
    (setq dedans (cons (list (car (cadr points)) (cadr (cadr points))) dedans) points (cdr points)))
  (reverse (cons (list b (plv-interpoler points b)) dedans)))

;; --- slopes as users write them

(defun plv-pente-ecrite-p (mot)
  "Whether a text is a slope by its sign."
  (wcmatch mot "*%,*‰,*/*"))

(defun plv-pente-lue (mot / nombres)
  "A slope as -1.5%, -15‰ or -1/66, in metres by metre; nil for anything else."
  (cond
    ((wcmatch mot "*%") (plv-points:part (substr mot 1 (1- (strlen mot))) 0.01))
    ((wcmatch mot "*‰") (plv-points:part (vl-string-right-trim "‰" mot) 0.001))
    ((wcmatch mot "*/*")
     (setq nombres (mapcar 'plv-nombre (plv-couper mot "/")))
     (if (and (= (length nombres) 2) (not (member nil nombres)) (/= (cadr nombres) 0.0)) (/ (car nombres) (cadr nombres))))))

(defun plv-points:part (texte facteur)
  (if (plv-nombre texte) (* facteur (plv-nombre texte))))
