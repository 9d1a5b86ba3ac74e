;; From the vertices of a project line to its entities: polylines for the slopes, splines for the vertical curves,
;; each cut at the changes of plane. Vertices are (distance altitude [request]), see plv-raccords.

(defun plv-trace:raccords (sommets / resultat faute)
  "For each vertex nil or its vertical curve; the text of what is wrong instead of the list."
  (mapcar
    '(lambda (avant sommet apres / r)
       (setq r (if (caddr sommet) (plv-raccord avant sommet apres (caddr sommet))))
       (if (and (eq (type r) 'STR) (not faute))
         (setq faute (strcat "sommet a la distance " (plv-reel (car sommet) 3) ": " r)))
       (setq resultat (cons r resultat)))
    sommets (cdr sommets) (cddr sommets))
  (cond
    (faute)
    ((plv-trace:chevauchement sommets (setq resultat (append '(nil) (reverse resultat) '(nil)))))
    (resultat)))

(defun plv-trace:chevauchement (sommets raccords / faute)
  "The text for vertical curves that leave no room to each other or to an end."
  (mapcar
    '(lambda (a b ra rb)
       (if (and (not faute) (> (if ra (cadr ra) (car a)) (+ (if rb (car rb) (car b)) 1e-6)))
         (setq faute (strcat "les raccordements se chevauchent entre les distances " (plv-reel (car a) 3) " et " (plv-reel (car b) 3)))))
    sommets (cdr sommets) raccords (cdr raccords))
  faute)

(defun plv-trace:parties (sommets raccords / point parties)
  "Straight and curved parts from left to right: (d1 d2 points) and (d1 d2 curve radius shape)."
  (setq point (plv-trace:dz (car sommets)))
  (mapcar
    '(lambda (s r / debut)
       (setq debut (if r (plv-trace:bout (car (caddr r))) (plv-trace:dz s)))
       (if (> (- (car debut) (car point)) 1e-6)
         (setq parties (cons (list (car point) (car debut) (list point debut)) parties)))
       (if r (setq parties (cons (append (list (car r) (cadr r)) (cddr r)) parties)))
       (setq point (if r (plv-trace:bout (cadddr (caddr r))) debut)))
    (cdr sommets) (cdr raccords))
  (reverse parties))

(defun plv-trace:dz (sommet) (list (float (car sommet)) (float (cadr sommet))))
(defun plv-trace:bout (h) (list (plv-raccords:d h) (plv-raccords:z h)))

(defun plv-trace:couper (partie d / milieu moities)
  "A part cut at a distance, as one or two parts."
  (cond
    ((or (<= d (+ (car partie) 1e-6)) (>= d (- (cadr partie) 1e-6))) (list partie))
    ((cdddr partie)
     (setq moities (plv-raccords:couper (caddr partie) d))
     (list (vl-list* (car partie) d (car moities) (cdddr partie)) (vl-list* d (cadr partie) (cadr moities) (cdddr partie))))
    (T
     (setq milieu (list d (plv-trace:altitude (caddr partie) d)))
     (list (list (car partie) d (list (car (caddr partie)) milieu)) (list d (cadr partie) (list milieu (cadr (caddr partie))))))))

(defun plv-trace:altitude (segment d / a b)
  (setq a (car segment) b (cadr segment))
  (+ (cadr a) (* (- d (car a)) (/ (- (cadr b) (cadr a)) (- (car b) (car a))))))

(defun plv-trace:couper-aux (parties distances)
  (foreach d distances
    (setq parties (apply 'append (mapcar '(lambda (p) (plv-trace:couper p d)) parties))))
  parties)

;; --- drawing

(defun plv-trace:vers-dessin (origine echv plan d z)
  (plv-point (+ (car origine) d) (plv-profil:ordonnee z plan echv (cadr origine))))

(defun plv-trace:polyligne (points)
  (entmakex
    (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(8 . "PLV-PROJET") '(100 . "AcDbPolyline") (cons 90 (length points)) '(70 . 0))
            (mapcar '(lambda (p) (list 10 (car p) (cadr p))) points))))

(defun plv-trace:spline (origine echv plan courbe / rationnelle)
  (setq rationnelle (vl-some '(lambda (h) (/= (caddr h) 1.0)) courbe))
  (entmakex
    (append
      (list '(0 . "SPLINE") '(100 . "AcDbEntity") '(8 . "PLV-PROJET") '(100 . "AcDbSpline") '(210 0.0 0.0 1.0)
            (cons 70 (if rationnelle 12 8)) '(71 . 3) '(72 . 8) '(73 . 4) '(74 . 0))
      (mapcar '(lambda (k) (cons 40 k)) '(0.0 0.0 0.0 0.0 1.0 1.0 1.0 1.0))
      (if rationnelle (mapcar '(lambda (h) (cons 41 (caddr h))) courbe))
      (mapcar '(lambda (h) (cons 10 (plv-trace:vers-dessin origine echv plan (plv-raccords:d h) (plv-raccords:z h)))) courbe))))

(defun plv-trace:section (origine echv plan parties / points entites spline)
  "The entities of one section: straight parts that touch make one polyline."
  (foreach p parties
    (if (cdddr p)
      (progn
        (if points (setq entites (cons (plv-trace:polyligne (reverse points)) entites) points nil))
        (setq spline (plv-trace:spline origine echv plan (caddr p))
              entites (cons spline entites))
        (plv-profil:cles spline (list (list "RAYON" (float (cadddr p))) (list "RACCORD" (nth 4 p)))))
      (foreach dz (if points (cdr (caddr p)) (caddr p))
        (setq points (cons (plv-trace:vers-dessin origine echv plan (car dz) (cadr dz)) points)))))
  (if points (setq entites (cons (plv-trace:polyligne (reverse points)) entites)))
  (reverse entites))

(defun plv-tracer-projet (profil sommets raccords / plans parties origine echv)
  "Draws the project line and gives its entities, from left to right."
  (setq plans (plv-tables:plans profil)
        origine (plv-cle 10 (entget profil))
        echv (plgxd profil "ECHV")
        parties (plv-trace:couper-aux (plv-trace:parties sommets raccords) (mapcar 'car (cdr plans))))
  (apply 'append
    (mapcar
      '(lambda (plan)
         (plv-trace:section origine echv plan
           (vl-remove-if-not '(lambda (p) (equal plan (plv-plan-en plans (* 0.5 (+ (car p) (cadr p)))))) parties)))
      plans)))
