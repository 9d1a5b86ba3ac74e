;; From the parts of a project line to its entities: polylines for the slopes, splines for the vertical curves, each cut at
;; the changes of plane.

(setq plv-trace:calque "PLV-PROJET")

(defun plv-trace:spline (cadre plan courbe / rationnelle)
  (setq rationnelle (vl-some '(lambda (h) (/= (plv-cubique-poids h) 1.0)) courbe))
  (entmakex
    (append
      (list '(0 . "SPLINE") '(100 . "AcDbEntity") (cons 8 (plv-calque plv-trace:calque)) '(100 . "AcDbSpline") '(210 0.0 0.0 1.0)
            (cons 70 (if rationnelle 12 8)) '(71 . 3) '(72 . 8) '(73 . 4) '(74 . 0))
      (mapcar '(lambda (k) (cons 40 k)) '(0.0 0.0 0.0 0.0 1.0 1.0 1.0 1.0))
      (if rationnelle (mapcar '(lambda (h) (cons 41 (plv-cubique-poids h))) courbe))
      (mapcar '(lambda (h) (cons 10 (plv-vers-dessin-sur cadre plan (plv-cubique-d h) (plv-cubique-z h)))) courbe))))

(defun plv-trace:courbe (cadre plan partie / spline)
  (setq spline (plv-trace:spline cadre plan (plv-partie-courbe partie)))
  (plv-noter-raccord spline (plv-partie-rayon partie) (plv-partie-forme partie) (plv-partie-mesure partie))
  spline)

(defun plv-trace:section (cadre plan parties / points entites)
  "The entities over one plane: straight parts that touch make one polyline."
  (foreach p parties
    (if (plv-partie-courbe-p p)
      (progn
        (if points (setq entites (cons (plv-polyligne plv-trace:calque (reverse points)) entites) points nil))
        (setq entites (cons (plv-trace:courbe cadre plan p) entites)))
      (foreach dz (if points (cdr (plv-partie-points p)) (plv-partie-points p))
        (setq points (cons (plv-vers-dessin-sur cadre plan (car dz) (cadr dz)) points)))))
  (if points (setq entites (cons (plv-polyligne plv-trace:calque (reverse points)) entites)))
  (reverse entites))

(defun plv-tracer-projet (profil sommets raccords / cadre plans parties)
  "Draws the project line and gives its entities, from left to right."
  (setq cadre (plv-cadre profil)
        plans (plv-cadre-plans cadre)
        parties (plv-couper-parties (plv-parties sommets raccords) (plv-changements plans)))
  (apply 'append
    (mapcar
      '(lambda (plan)
         (plv-trace:section cadre plan
           (vl-remove-if-not '(lambda (p) (equal plan (plv-plan-en plans (plv-milieu p)))) parties)))
      plans)))
