;; Between a profile's own coordinates, (distance altitude), and the drawing's. What it takes is read once: a frame is
;; (origin exaggeration planes). Altitudes are drawn over the plane of their section.

(defun plv-cadre-sur (profil plans)
  "The frame of a profile whose planes are known already."
  (list (plv-origine profil) (plv-echv profil) plans))

(defun plv-cadre (profil) (plv-cadre-sur profil (plv-plans profil)))

(defun plv-cadre-origine (cadre) (car cadre))
(defun plv-cadre-echv (cadre) (cadr cadre))
(defun plv-cadre-plans (cadre) (caddr cadre))

(defun plv-ordonnee (altitude plan echv y0) (+ y0 (* echv (- altitude (plv-plan-altitude plan)))))

(defun plv-abscisse (cadre d) (+ (car (plv-cadre-origine cadre)) d))

(defun plv-distance (cadre point) (- (car point) (car (plv-cadre-origine cadre))))

(defun plv-vers-dessin-sur (cadre plan d z)
  "The place of a distance and an altitude over a plane."
  (plv-point (plv-abscisse cadre d) (plv-ordonnee z plan (plv-cadre-echv cadre) (cadr (plv-cadre-origine cadre)))))

(defun plv-vers-dessin (cadre d z)
  (plv-vers-dessin-sur cadre (plv-plan-en (plv-cadre-plans cadre) d) d z))

(defun plv-altitude-dessinee (cadre plan ordonnee)
  (+ (plv-plan-altitude plan) (/ (- ordonnee (cadr (plv-cadre-origine cadre))) (plv-cadre-echv cadre))))

(defun plv-vers-profil-sur (cadre plan point)
  "A point of the drawing, drawn over a plane, as (distance altitude)."
  (list (plv-distance cadre point) (plv-altitude-dessinee cadre plan (cadr point))))

(defun plv-vers-profil (cadre point)
  (plv-vers-profil-sur cadre (plv-plan-en (plv-cadre-plans cadre) (plv-distance cadre point)) point))
