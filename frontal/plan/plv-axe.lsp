;; PLV-AXE: the axis in plan, a polyline that the profile names under AXEPLAN; its first vertex is the profile's origin.
;; Segments are (from to start end bulge), distances along the axis and points in plan.

(setq plv-axe:cle "AXEPLAN")

(defun plv-axe-plan (profil / axe)
  "The axis in plan, nil when there is none."
  (if (plv-existe (setq axe (plgxd profil plv-axe:cle))) axe))

(defun plv-associer-axe (profil axe)
  "Makes a light polyline the profile's axis in plan."
  (if (= (plv-type axe) "LWPOLYLINE")
    (progn (plsxd profil plv-axe:cle axe) axe)
    (plv-erreur "une polyligne est attendue pour l'axe en plan")))

(defun plv-demander-axe (profil / choix)
  (if (setq choix (entsel "\nPolyligne de l'axe en plan: ")) (plv-associer-axe profil (car choix))))

(defun c:plv-axe (/ profil)
  "Associe à un profil l'axe en plan qu'il suit."
  (if (and (setq profil (plv-choisir-profil)) (plv-demander-axe profil))
    (plv-dire "Axe en plan associé."))
  (princ))

;; --- segments

(defun plv-segment-depart (segment) (caddr segment))
(defun plv-segment-arrivee (segment) (cadddr segment))
(defun plv-segment-bulbe (segment) (nth 4 segment))
(defun plv-segment-droit-p (segment) (equal (plv-segment-bulbe segment) 0.0 1e-12))

(defun plv-axe:sommets (axe / forme)
  "The vertices as (point bulge), in order; those of one that is seen from behind where they are seen."
  (setq forme (plv-forme-de axe))
  (if (listp forme)
    (mapcar '(lambda (s) (list (list (car s) (cadr s)) (plv-sommet-bulbe s))) (plv-forme-elements forme))
    (plv-axe:sommets-fermes axe)))

(defun plv-axe:sommets-fermes (axe)
  "Those of a closed polyline, which is an axis up to its last vertex."
  (reverse
    (plv-plier
      '(lambda (sommets g)
         (cond ((= (car g) 10) (cons (list (cdr g) 0.0) sommets))
               ((and sommets (= (car g) 42)) (cons (list (caar sommets) (cdr g)) (cdr sommets)))
               (sommets)))
      nil (entget axe))))

(defun plv-axe-segments (axe / sommets segments cumul l)
  "The segments of a polyline; those without length are left out."
  (setq sommets (plv-axe:sommets axe) cumul 0.0)
  (while (cdr sommets)
    (setq l (plv-axe:longueur (car (car sommets)) (car (cadr sommets)) (cadr (car sommets))))
    (if (> l 1e-9)
      (setq segments (cons (list cumul (+ cumul l) (car (car sommets)) (car (cadr sommets)) (cadr (car sommets))) segments)
            cumul (+ cumul l)))
    (setq sommets (cdr sommets)))
  (reverse segments))

(defun plv-axe:longueur (a b bulbe)
  (if (equal bulbe 0.0 1e-12) (distance a b) (abs (* 4.0 (atan bulbe) (plv-axe:rayon a b bulbe)))))

(defun plv-axe:rayon (a b bulbe) (/ (* (distance a b) (+ 1.0 (* bulbe bulbe))) (* 4.0 (abs bulbe))))

(defun plv-segment-rayon (segment)
  (plv-axe:rayon (plv-segment-depart segment) (plv-segment-arrivee segment) (plv-segment-bulbe segment)))

;; --- places: (point direction)

(defun plv-lieu-point (lieu) (car lieu))
(defun plv-lieu-direction (lieu) (cadr lieu))

(defun plv-axe-en (segments d / trouve part)
  "The place on the axis at a distance; beyond an end the end itself."
  (foreach s segments (if (or (not trouve) (>= d (plv-debut s))) (setq trouve s)))
  (setq part (plv-entre (/ (- d (plv-debut trouve)) (plv-longueur trouve)) 0.0 1.0))
  (plv-axe:position (plv-segment-depart trouve) (plv-segment-arrivee trouve) (plv-segment-bulbe trouve) part))

(defun plv-axe:position (a b bulbe part / angle-corde ouverture corde direction)
  ;; An arc of opening 4 atan(bulge) leaves its chord by half of it to the right of a counter-clockwise turn.
  (setq angle-corde (angle a b) ouverture (* 4.0 (atan bulbe)))
  (if (equal ouverture 0.0 1e-12)
    (list (polar a angle-corde (* part (distance a b))) angle-corde)
    (progn
      (setq direction (- angle-corde (* 0.5 ouverture))
            corde (* 2.0 (plv-axe:rayon a b bulbe) (abs (sin (* 0.5 part ouverture)))))
      (list (polar a (+ direction (* 0.5 part ouverture)) corde) (+ direction (* part ouverture))))))

(defun plv-axe-deviation (s suivant / ecart)
  "Change of direction from a segment to the next, in (-pi, pi], positive to the left."
  (setq ecart (- (plv-lieu-direction (plv-axe-en (list suivant) (plv-debut suivant)))
                 (plv-lieu-direction (plv-axe-en (list s) (plv-fin s)))))
  (while (> ecart pi) (setq ecart (- ecart (* 2.0 pi))))
  (while (<= ecart (- pi)) (setq ecart (+ ecart (* 2.0 pi))))
  ecart)
