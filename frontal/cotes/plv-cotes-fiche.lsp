;; The form of CotAutoKavel: the curves of a kind with their dimensions.

(defun plv-cotes-fiche:champs ()
  (plv-champs-avec-profil
    (list
      (plv-champ-genre-trace "Genre de ligne" (plv-genres))
      '("lesquelles" "Cotes" "mot" "Toutes" ("Toutes" "Altitudes" "Hauteurs")))))

(defun plv-cotes-fiche:courbes (profil valeurs)
  (vl-remove-if '(lambda (e) (plv-refus-situation profil e)) (plv-elements profil (plv-cle "genre" valeurs))))

(defun plv-cotes-fiche:regarder (valeurs / profil courbes)
  (setq profil (plv-fiche-profil valeurs) courbes (plv-cotes-fiche:courbes profil valeurs))
  (plv-regard
    (if (not courbes) (list (list "genre" (strcat "ce profil n'a pas de ligne " (plv-cle "genre" valeurs)))))
    (list (plv-image-profil profil
            (append (plv-traits-profil profil) (plv-image-traits "projet" (plv-traits-de-ligne profil (plv-cle "genre" valeurs))))))
    (list (strcat (plv-compte (length courbes) "courbe") " à coter."))
    nil nil))

(defun plv-cotes-fiche:faire (valeurs / profil)
  (setq profil (plv-fiche-profil valeurs))
  (if (plv-statiques-verifies profil)
    (plv-coter profil (plv-cle "genre" valeurs) (* 0.5 pi) (plv-cle "lesquelles" valeurs) (plv-cotes-fiche:courbes profil valeurs))))

(plv-declarer-fiche "CotAutoKavel" "Cotes d'une ligne" "Coter" 'plv-cotes-fiche:champs 'plv-cotes-fiche:regarder 'plv-cotes-fiche:faire)
