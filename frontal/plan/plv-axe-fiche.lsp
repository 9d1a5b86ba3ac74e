;; The forms about the axis in plan: PLV-AXE, whose polyline is picked in the drawing, and what is carried onto the axis.

(defun plv-axe-fiche:champs () (plv-champs-avec-profil '(("axe" "Axe en plan" "objets" nil "LWPOLYLINE"))))

(defun plv-axe-fiche:points (axe)
  "The axis as points."
  (apply 'append (mapcar 'plv-axe-fiche:arc (plv-axe-segments axe))))

(defun plv-axe-fiche:arc (segment / a b)
  "A segment as points; an arc by its middle too, which shows its side."
  (setq a (plv-segment-depart segment) b (plv-segment-arrivee segment))
  (if (plv-segment-droit-p segment)
    (list a b)
    (list a
          (list (+ (* 0.5 (+ (car a) (car b))) (* 0.5 (plv-segment-bulbe segment) (- (cadr b) (cadr a))))
                (- (* 0.5 (+ (cadr a) (cadr b))) (* 0.5 (plv-segment-bulbe segment) (- (car b) (car a)))))
          b)))

(defun plv-axe-fiche:choisi (valeurs profil)
  "The picked axis, else the one that the profile has."
  (cond ((car (plv-fiche-objets valeurs "axe"))) ((plv-axe-plan profil))))

(defun plv-axe-fiche:en-mots (profil axe)
  (strcat "L'axe a " (plv-reel (apply '+ (mapcar 'plv-longueur (plv-axe-segments axe))) 2) " m, le profil " (plv-reel (plv-longueur-profil profil) 2) " m."))

(defun plv-axe-fiche:regarder (valeurs / profil axe)
  (setq profil (plv-fiche-profil valeurs) axe (plv-axe-fiche:choisi valeurs profil))
  (plv-regard
    (cond
      ((cdr (plv-fiche-objets valeurs "axe")) '(("axe" "une seule polyligne est attendue")))
      ((not (plv-fiche-objets valeurs "axe")) '(("axe" "une polyligne du dessin est attendue"))))
    (if axe (list (plv-image-plan "" (plv-image-traits "axe" (list (plv-axe-fiche:points axe))))))
    (if axe (list (plv-axe-fiche:en-mots profil axe)))
    nil nil))

(defun plv-axe-fiche:faire (valeurs)
  (if (plv-associer-axe (plv-fiche-profil valeurs) (car (plv-fiche-objets valeurs "axe"))) (plv-dire "Axe en plan associé.")))

(plv-declarer-fiche "PLV-AXE" "Axe en plan" "Associer" 'plv-axe-fiche:champs 'plv-axe-fiche:regarder 'plv-axe-fiche:faire)

;; --- what is carried onto it: equipment, slopes and directions, the last entry of the profile's own menu

(defun plv-vers-plan-fiche:champs () (plv-champs-avec-profil nil))

(defun plv-vers-plan-fiche:regarder (valeurs / profil axe)
  (setq profil (plv-fiche-profil valeurs) axe (plv-axe-plan profil))
  (plv-regard
    (if (not axe) '(("profil" "ce profil n'a pas d'axe en plan: PLV-AXE en associe un")))
    (if axe (list (plv-image-plan "" (plv-image-traits "axe" (list (plv-axe-fiche:points axe))))))
    (list (strcat (plv-compte (length (plv-pentes-portees profil)) "pente") " et " (plv-compte (length (plv-blocs profil)) "bloc") " à porter."))
    nil nil))

(defun plv-vers-plan-fiche:faire (valeurs) (plv-vers-plan (plv-fiche-profil valeurs)))

(plv-declarer-fiche "PlKavelVersPlan" "Report sur l'axe en plan" "Porter" 'plv-vers-plan-fiche:champs 'plv-vers-plan-fiche:regarder 'plv-vers-plan-fiche:faire)
