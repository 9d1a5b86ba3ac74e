;; The form of PLV-PC: the plane that is added or changed is dragged up and down in the picture, a new one along the profile too.

(defun plv-pc-fiche:champs (/ profil milieu)
  (if (setq profil (plv-profil-propose)) (setq milieu (* 0.5 (plv-longueur-profil profil))))
  (plv-champs-avec-profil
    (list
      '("operation" "Plan de comparaison" "mot" "Ajouter" ("Ajouter" "Modifier" "Supprimer" "Proposer à nouveau"))
      (plv-champ-nombre-du-dessin "station" "Station" (if profil (+ milieu (plv-premiere-station profil)) 0.0) 2)
      (plv-champ-nombre-du-dessin "altitude" "Altitude du plan" (if profil (plv-plan-altitude (plv-plan-en (plv-plans profil) milieu)) 0.0) 2)
      (plv-champ-nombre "hauteur" "Hauteur dessinée maximale" 150.0 2))))

(defun plv-pc-fiche:operation (valeurs) (substr (plv-cle "operation" valeurs) 1 1))

(defun plv-pc-fiche:faute (profil valeurs d / sections)
  (setq sections (plv-sections-de-plan profil))
  (plv-pc:faute (plv-pc-fiche:operation valeurs) sections (plv-pc:section sections d) d (plv-fiche-nombre valeurs "altitude")))

(defun plv-pc-fiche:poignee (profil valeurs d / sections section debut)
  "The plane as it would be; nil where none would."
  (setq sections (plv-sections-de-plan profil) section (plv-pc:section sections d))
  (if (and section (/= (plv-pc-fiche:operation valeurs) "S") (plv-fiche-nombre valeurs "altitude"))
    (progn
      (setq debut (if (= (plv-pc-fiche:operation valeurs) "A") d (plv-plan-debut section)))
      (list
        (append
          (list "poignee" "altitude" "couloir"
            (list (list debut (plv-fiche-nombre valeurs "altitude")) (list (plv-section-fin section) (plv-fiche-nombre valeurs "altitude"))) 1.0)
          (if (= (plv-pc-fiche:operation valeurs) "A") '("station")))))))

(defun plv-pc-fiche:traits (profil) "The profile with what is to lie above its planes." (append (plv-traits-profil profil) (plv-image-traits "ligne" (plv-niveaux profil))))

(defun plv-pc-fiche:regarder (valeurs)
  (if (= (plv-pc-fiche:operation valeurs) "P") (plv-pc-fiche:regarder-tous valeurs) (plv-pc-fiche:regarder-un valeurs)))

(defun plv-pc-fiche:regarder-tous (valeurs / profil hauteur plans fin)
  "The planes that would be proposed."
  (setq profil (plv-fiche-profil valeurs) hauteur (plv-fiche-nombre valeurs "hauteur") fin (plv-longueur-profil profil))
  (if (and hauteur (> hauteur 0.0)) (setq plans (plv-pc-plans profil hauteur)))
  (plv-regard
    (if (not plans) '(("hauteur" "une hauteur positive est attendue")))
    (list (plv-image-profil profil
            (append (plv-pc-fiche:traits profil)
              (plv-image-traits "couloir"
                (mapcar '(lambda (a b) (list (list (plv-plan-debut a) (plv-plan-altitude a)) (list (plv-plan-debut b) (plv-plan-altitude a))))
                  plans (append (cdr plans) (list (list fin 0.0))))))))
    (list (strcat (plv-compte (length plans) "plan") "."))
    '("station" "altitude") nil))

(defun plv-pc-fiche:regarder-un (valeurs / profil d faute)
  (setq profil (plv-fiche-profil valeurs))
  (if (setq d (plv-fiche-nombre valeurs "station"))
    (setq d (- d (plv-premiere-station profil)) faute (plv-pc-fiche:faute profil valeurs d)))
  (plv-regard
    (if faute (list (list (if (= faute "l'altitude du plan est attendue") "altitude" "station") faute)))
    (list (plv-image-profil profil (append (plv-pc-fiche:traits profil) (if d (plv-pc-fiche:poignee profil valeurs d)))))
    (list (strcat "Plans: " (plv-plans-en-texte profil) "."))
    (cons "hauteur" (if (= (plv-pc-fiche:operation valeurs) "S") '("altitude")))
    nil))

(defun plv-pc-fiche:faire (valeurs)
  (if (= (plv-pc-fiche:operation valeurs) "P")
    (plv-pc-proposer (plv-fiche-profil valeurs) (plv-fiche-nombre valeurs "hauteur"))
    (plv-pc-fiche:un valeurs)))

(defun plv-pc-fiche:un (valeurs)
  (plv-pc (plv-fiche-profil valeurs) (plv-pc-fiche:operation valeurs) (plv-fiche-nombre valeurs "station") (plv-fiche-nombre valeurs "altitude")))

(plv-declarer-fiche "PLV-PC" "Plans de comparaison" "Appliquer" 'plv-pc-fiche:champs 'plv-pc-fiche:regarder 'plv-pc-fiche:faire)
