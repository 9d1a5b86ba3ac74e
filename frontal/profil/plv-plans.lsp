;; Reference planes: the ground is cut into sections so that no drawn height exceeds a limit.
;; A section is (start-distance altitude); it opens on a ground point.

(setq plv-plans:pas '(0.5 1.0 2.0 5.0 10.0 20.0 50.0 100.0))

(defun plv-plans:arrondi (limite / pas)
  "The step of plane altitudes in metres: the largest that is no more than a fifth of the height that fits."
  (foreach p plv-plans:pas (if (or (not pas) (<= p (/ limite 5.0))) (setq pas p)))
  pas)

(defun plv-plans:sous (altitude pas)
  "The round altitude under a ground altitude, with at least a fifth of a step of room."
  (* pas (float (plv-plans:entier (- (/ altitude pas) 0.2)))))

(defun plv-plans:entier (valeur / entier)
  "The greatest integer that is not above the value."
  (setq entier (fix valeur))
  (if (< valeur entier) (1- entier) entier))

(defun plv-plans-proposes (points echv hauteur-max / limite pas bas haut debut plans precedent z)
  "Sections for the points; hauteur-max in drawing units."
  (setq limite (/ hauteur-max echv)
        pas (plv-plans:arrondi limite)
        debut 0.0
        bas (cadar points)
        haut bas)
  (foreach point points
    (setq z (cadr point))
    (if (and precedent (> (- (max haut z) (plv-plans:sous (min bas z) pas)) limite))
      ;; The section ends on the point before; the next one holds that point too.
      (if (> (car precedent) debut)
        (setq plans (cons (list debut (plv-plans:sous bas pas)) plans)
              debut (car precedent)
              bas (min z (cadr precedent))
              haut (max z (cadr precedent)))))
    (setq bas (min bas z) haut (max haut z) precedent point))
  (reverse (cons (list debut (plv-plans:sous bas pas)) plans)))

(defun plv-plan-en (plans distance / plan)
  "The section of a distance; a change belongs to the section before it."
  (setq plan (car plans))
  (foreach p (cdr plans) (if (< (car p) distance) (setq plan p)))
  plan)
