;; The forms of PLV-METRES and PLV-LEGENDE: the line that is measured, and how much lies between it and the ground.

(defun plv-metres-fiche:profils (valeurs) (mapcar 'plv-profil-de-numero (plv-cle "profils" valeurs)))

(defun plv-metres-fiche:champs (/ profils)
  (if (setq profils (plv-profils))
    (list
      (list "profils" "Profils" "mots" (mapcar 'plv-numero-profil profils) (mapcar 'plv-numero-profil profils))
      (list "genre" "Genre de projet" "mot" (plv-genre-propose (car profils)) (plv-genres-projet))
      '("classeur" "Classeur, ou rien" "ecrire" "" "Classeurs (*.xlsx)")
      '("hachurer" "Hachurer les classes" "oui" T nil))
    (plv-erreur (plv-refus-sans-profil))))

(defun plv-metres-fiche:avec-ligne (profils genre) (vl-remove-if-not '(lambda (p) (plv-elements p genre)) profils))

(defun plv-metres-fiche:image (profil genre)
  (plv-image-profil profil (append (plv-traits-profil profil) (plv-image-traits "projet" (plv-traits-de-ligne profil genre)))))

(defun plv-metres-fiche:classes ()
  (strcat "Classes de profondeur: " (plv-joindre (plv-classes-profondeur) ", ") " (CUBPL les change)."))

(defun plv-metres-fiche:regarder (valeurs / genre profils)
  (setq genre (plv-cle "genre" valeurs) profils (plv-metres-fiche:avec-ligne (plv-metres-fiche:profils valeurs) genre))
  (plv-regard
    (if (and (plv-cle "profils" valeurs) (not profils)) (list (list "genre" (plv-refus-sans-ligne genre (plv-metres-fiche:profils valeurs)))))
    (if profils (list (plv-metres-fiche:image (car profils) genre)))
    (list (strcat (plv-compte (length profils) "profil") " avec une ligne " genre "."))
    nil nil))

(defun plv-metres-fiche:faire (valeurs)
  (plv-metres (plv-cle "profils" valeurs) (plv-cle "genre" valeurs) (plv-fiche-fichier valeurs "classeur") (plv-cle "hachurer" valeurs)))

(plv-declarer-fiche "PLV-METRES" "Métrés" "Mesurer" 'plv-metres-fiche:champs 'plv-metres-fiche:regarder 'plv-metres-fiche:faire)

;; --- the legend

(defun plv-legende-fiche:champs (/ champs)
  (if (setq champs (plv-champs-avec-profil nil))
    (append champs (list (list "genre" "Genre de projet" "mot" (plv-genre-propose (car (plv-profils))) (plv-genres-projet))))))

(defun plv-legende-fiche:regarder (valeurs / profil genre)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs))
  (plv-regard
    (if (not (plv-elements profil genre)) (list (list "genre" (plv-refus-sans-ligne genre (list profil)))))
    (list (plv-metres-fiche:image profil genre)) nil nil nil))

(defun plv-legende-fiche:faire (valeurs) (plv-legende (plv-fiche-profil valeurs) (plv-cle "genre" valeurs) nil))

(plv-declarer-fiche "PLV-LEGENDE" "Légende des classes" "Dessiner" 'plv-legende-fiche:champs 'plv-legende-fiche:regarder 'plv-legende-fiche:faire)
