;; The form of PLV-PC: the plane that is added or changed is dragged up and down in the picture.

(defun plv-pc-fiche:champs ()
  (plv-champs-avec-profil
    (list
      '("operation" "Plan de comparaison" "mot" "Ajouter" ("Ajouter" "Modifier" "Supprimer"))
      (plv-champ-nombre "station" "Station" 0.0 2)
      (plv-champ-nombre "altitude" "Altitude du plan" 0.0 2))))

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
        (list "poignee" "altitude" "couloir"
          (list (list debut (plv-fiche-nombre valeurs "altitude")) (list (plv-section-fin section) (plv-fiche-nombre valeurs "altitude"))) 1.0)))))

(defun plv-pc-fiche:regarder (valeurs / profil d faute)
  (setq profil (plv-fiche-profil valeurs))
  (if (setq d (plv-fiche-nombre valeurs "station"))
    (setq d (- d (plv-premiere-station profil)) faute (plv-pc-fiche:faute profil valeurs d)))
  (plv-regard
    (if faute (list (list (if (= faute "l'altitude du plan est attendue") "altitude" "station") faute)))
    (list (plv-image-profil profil (append (plv-traits-profil profil) (if d (plv-pc-fiche:poignee profil valeurs d)))))
    (list (strcat "Plans: " (plv-plans-en-texte profil) "."))
    (if (= (plv-pc-fiche:operation valeurs) "S") '("altitude"))
    nil))

(defun plv-pc-fiche:faire (valeurs)
  (plv-pc (plv-fiche-profil valeurs) (plv-pc-fiche:operation valeurs) (plv-fiche-nombre valeurs "station") (plv-fiche-nombre valeurs "altitude")))

(plv-declarer-fiche "PLV-PC" "Plans de comparaison" "Appliquer" 'plv-pc-fiche:champs 'plv-pc-fiche:regarder 'plv-pc-fiche:faire)
