;; Between a profile's own coordinates, (distance altitude), and the drawing's. What it takes is read once: a frame is
;; (origin exaggeration planes). Altitudes are drawn over the plane of their section.

(defun plv-repere (profil) (list (plv-origine profil) (plgxd profil "ECHV") (plv-plans profil)))

(defun plv-repere-origine (repere) (car repere))
(defun plv-repere-echv (repere) (cadr repere))
(defun plv-repere-plans (repere) (caddr repere))

(defun plv-ordonnee (altitude plan echv y0) (+ y0 (* echv (- altitude (plv-plan-altitude plan)))))

(defun plv-abscisse (repere d) (+ (car (plv-repere-origine repere)) d))

(defun plv-distance (repere point) (- (car point) (car (plv-repere-origine repere))))

(defun plv-vers-dessin-sur (repere plan d z)
  "The place of a distance and an altitude over a plane."
  (plv-point (plv-abscisse repere d) (plv-ordonnee z plan (plv-repere-echv repere) (cadr (plv-repere-origine repere)))))

(defun plv-vers-dessin (repere d z)
  (plv-vers-dessin-sur repere (plv-plan-en (plv-repere-plans repere) d) d z))

(defun plv-altitude-dessinee (repere plan ordonnee)
  (+ (plv-plan-altitude plan) (/ (- ordonnee (cadr (plv-repere-origine repere))) (plv-repere-echv repere))))

(defun plv-vers-profil-sur (repere plan point)
  "A point of the drawing, drawn over a plane, as (distance altitude)."
  (list (plv-distance repere point) (plv-altitude-dessinee repere plan (cadr point))))

(defun plv-vers-profil (repere point)
  (plv-vers-profil-sur repere (plv-plan-en (plv-repere-plans repere) (plv-distance repere point)) point))
