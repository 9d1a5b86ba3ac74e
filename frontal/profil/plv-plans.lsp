;; Reference planes: the ground is cut into sections so that no drawn height exceeds a limit. A plane is (start altitude),
;; its start a distance along the profile; its section runs to the start of the next one. A change of plane opens on a
;; ground point.

(defun plv-plan-debut (plan) (car plan))
(defun plv-plan-altitude (plan) (cadr plan))

(defun plv-plan-en (plans d / plan)
  "The plane of a distance; a change belongs to the section before it. A distance may come from an abscissa of the drawing, which
far from the origin has other last digits."
  (setq plan (car plans))
  (foreach p (cdr plans) (if (< (plv-plan-debut p) (- d 1e-7)) (setq plan p)))
  plan)

(defun plv-changements (plans) (mapcar 'plv-plan-debut (cdr plans)))

(defun plv-plan-de (plans debut fin / plan)
  "The plane of a stretch; nil for one that lies over several."
  (if (equal (setq plan (plv-plan-en plans (+ debut 1e-6))) (plv-plan-en plans (- fin 1e-6))) plan))

;; --- the planes of a profile: entities that are chained, with the keys of their section

(defun plv-lignes-du-plan (plan) "The ground lines of a section." (plv-chaine (plv-nommee plan "PRLI") "NEXTLI"))

(defun plv-entites-plans (profil) (plv-chaine (plv-nommee profil "PRPC") "NEXT-PC"))

(defun plv-sections-de-plan (profil)
  "The sections as (start altitude length entity): a plane, its length and its entity."
  (plv-lire-une-fois (list "sections-de-plan" profil) '(lambda () (plv-plans:sections profil))))

(defun plv-plans:sections (profil)
  (reverse
    (cdr
      (plv-plier
        '(lambda (cumul entite / longueur)
           (setq longueur (plgxd entite "DISTANCE"))
           (vl-list* (+ (car cumul) longueur) (list (car cumul) (plgxd entite "PC") longueur entite) (cdr cumul)))
        '(0.0) (plv-entites-plans profil)))))

(defun plv-section-longueur (section) (caddr section))
(defun plv-section-entite (section) (cadddr section))
(defun plv-section-fin (section) (+ (plv-plan-debut section) (plv-section-longueur section)))

(defun plv-plans (profil)
  (mapcar '(lambda (s) (list (plv-plan-debut s) (plv-plan-altitude s))) (plv-sections-de-plan profil)))

(defun plv-plan-en-texte (plan) (strcat (plv-reel (plv-plan-altitude plan) 2) " (à partir de " (plv-reel (plv-plan-debut plan) 2) ")"))

(defun plv-plans-en-texte (profil) (plv-joindre (mapcar 'plv-plan-en-texte (plv-plans profil)) ", "))

;; --- planes that are proposed

(setq plv-plans:pas '(0.5 1.0 2.0 5.0 10.0 20.0 50.0 100.0))

(defun plv-plans:arrondi (limite)
  "The step of plane altitudes in metres: the largest that is no more than a fifth of the height that fits."
  (cond ((plv-dernier (vl-remove-if '(lambda (p) (> p (/ limite 5.0))) plv-plans:pas))) ((car plv-plans:pas))))

(defun plv-plans:sous (altitude pas)
  "The round altitude under a ground altitude, with at least a fifth of a step of room."
  (* pas (float (plv-partie-entiere (- (/ altitude pas) 0.2)))))

(defun plv-plans:plus-bas (a b) (if (and a b) (min a b) (cond (a) (b))))

(defun plv-plans:bas-d-une-ligne (points ligne / avant ici bas tous)
  "For each ground point how low a line goes from the point before to it; nil where it doesn't go."
  (foreach point points
    (setq bas ici ici nil)
    (while (and ligne (<= (caar ligne) (car point)))
      (setq avant (car ligne) ligne (cdr ligne) bas (plv-plans:plus-bas bas (cadr avant))))
    (if (and avant ligne) (setq ici (plv-interpoler (list avant (car ligne)) (car point))))
    (setq tous (cons (plv-plans:plus-bas bas ici) tous)))
  (reverse tous))

(defun plv-plans:bas (points lignes / bas)
  "For each ground point how low ground and lines go from the point before to it."
  (setq bas (mapcar '(lambda (avant point) (min (cadr avant) (cadr point))) (cons (car points) points) points))
  (foreach ligne lignes (setq bas (mapcar 'plv-plans:plus-bas bas (plv-plans:bas-d-une-ligne points ligne))))
  bas)

(defun plv-plans-proposes (points echv hauteur-max lignes / limite pas bas haut debut plans precedent z tous plus-bas)
  "Planes for the ground points, beneath lines of (distance altitude) too; hauteur-max in drawing units."
  (setq limite (/ hauteur-max echv)
        pas (plv-plans:arrondi limite)
        debut 0.0
        bas (cadar points)
        haut bas
        tous (plv-plans:bas points lignes))
  (foreach point points
    (setq z (cadr point) plus-bas (car tous) tous (cdr tous))
    (if (and precedent (> (car precedent) debut) (> (- (max haut z) (plv-plans:sous (min bas plus-bas) pas)) limite))
      ;; The section ends on the point before; the next one holds that point too.
      (setq plans (cons (list debut (plv-plans:sous bas pas)) plans)
            debut (car precedent)
            bas plus-bas
            haut (cadr precedent)))
    (setq bas (min bas plus-bas) haut (max haut z) precedent point))
  (reverse (cons (list debut (plv-plans:sous bas pas)) plans)))

(defun plv-points-aux-plans (points plans / resultat precedent)
  "The ground points with one added wherever a plane changes between two of them."
  (foreach d (plv-changements plans)
    (setq resultat nil precedent nil)
    (foreach p points
      (if (and precedent (< (car precedent) (- d 1e-6)) (> (car p) (+ d 1e-6)))
        (setq resultat (cons (list d (plv-interpoler (list precedent p) d) "") resultat)))
      (setq resultat (cons p resultat) precedent p))
    (setq points (reverse resultat)))
  points)
