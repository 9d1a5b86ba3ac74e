;; From the vertices of a project line to its parts, left to right, in (distance altitude).
;; A straight part is (from to points), a curved one (from to curve radius shape measure), see plv-raccords.

(defun plv-partie-droite (a b) (list (car a) (car b) (list a b)))

(defun plv-partie-courbe-p (partie) (cdddr partie))

(defun plv-partie-points (partie) (caddr partie))
(defun plv-partie-courbe (partie) (caddr partie))
(defun plv-partie-rayon (partie) (cadddr partie))
(defun plv-partie-forme (partie) (nth 4 partie))
(defun plv-partie-mesure (partie) (nth 5 partie))

;; --- vertices

(defun plv-raccords (sommets / raccords)
  "For each vertex nil or its vertical curve; the text of what is wrong instead of the list."
  (setq raccords
    (append '(nil)
      (mapcar
        '(lambda (avant sommet apres)
           (if (plv-demande-de sommet) (plv-raccord avant sommet apres (plv-demande-de sommet))))
        sommets (cdr sommets) (cddr sommets))
      '(nil)))
  (cond
    ((plv-parties:faute sommets raccords))
    ((plv-parties:chevauchement sommets raccords))
    (raccords)))

(defun plv-parties:faute (sommets raccords)
  "The text for the first vertical curve that can't be."
  (car (vl-remove nil
         (mapcar
           '(lambda (s r) (if (eq (type r) 'STR) (strcat "sommet à la distance " (plv-reel (car s) 3) ": " r)))
           sommets raccords))))

(defun plv-parties:chevauchement (sommets raccords)
  "The text for vertical curves that leave no room to each other or to an end."
  (car (vl-remove nil
         (mapcar
           '(lambda (a b ra rb)
              (if (> (if ra (plv-fin ra) (car a)) (+ (if rb (plv-debut rb) (car b)) 1e-6))
                (strcat "les raccordements se chevauchent entre les distances " (plv-reel (car a) 3) " et " (plv-reel (car b) 3))))
           sommets (cdr sommets) raccords (cdr raccords)))))

(defun plv-parties:dz (sommet) (list (float (car sommet)) (float (cadr sommet))))

(defun plv-parties:arrivee (s r)
  "Where the straight part before a vertex ends."
  (if r (plv-cubique-point (car (plv-raccord-courbe r))) (plv-parties:dz s)))

(defun plv-parties:depart (s r)
  "Where the straight part after a vertex begins."
  (if r (plv-cubique-point (plv-dernier (plv-raccord-courbe r))) (plv-parties:dz s)))

(defun plv-parties (sommets raccords)
  (apply 'append
    (mapcar
      '(lambda (avant s r-avant r / a b)
         (setq a (plv-parties:depart avant r-avant) b (plv-parties:arrivee s r))
         (append (if (> (- (car b) (car a)) 1e-6) (list (plv-partie-droite a b))) (if r (list r))))
      sommets (cdr sommets) raccords (cdr raccords))))

;; --- cuts

(defun plv-parties:couper (partie d / milieu moities)
  "A part cut at a distance, as one or two parts."
  (cond
    ((or (<= d (+ (plv-debut partie) 1e-6)) (>= d (- (plv-fin partie) 1e-6))) (list partie))
    ((plv-partie-courbe-p partie)
     (setq moities (plv-couper-cubique (plv-partie-courbe partie) d))
     (list (vl-list* (plv-debut partie) d (car moities) (cdddr partie))
           (vl-list* d (plv-fin partie) (cadr moities) (cdddr partie))))
    (T
     (setq milieu (list d (plv-interpoler (plv-partie-points partie) d)))
     (list (list (plv-debut partie) d (list (car (plv-partie-points partie)) milieu))
           (list d (plv-fin partie) (list milieu (cadr (plv-partie-points partie))))))))

(defun plv-couper-parties (parties distances)
  (foreach d distances
    (setq parties (apply 'append (mapcar '(lambda (p) (plv-parties:couper p d)) parties))))
  parties)

(defun plv-points-partie (partie / courbe nombre pas d points)
  "Both ends of a straight part; points at most five metres apart on a curve."
  (if (plv-partie-courbe-p partie)
    (progn
      (setq courbe (plv-partie-courbe partie)
            nombre (1+ (fix (/ (plv-longueur partie) 5.0)))
            pas (/ (plv-longueur partie) nombre)
            points (list (plv-cubique-point (car courbe)))
            d (plv-debut partie))
      (repeat (1- nombre)
        (setq d (+ d pas)
              points (cons (plv-cubique-point (plv-dernier (car (plv-couper-cubique courbe d)))) points)))
      (reverse (cons (plv-cubique-point (plv-dernier courbe)) points)))
    (plv-partie-points partie)))
