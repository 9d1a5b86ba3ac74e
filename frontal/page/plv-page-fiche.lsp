;; The form of PLV-PAGE.

(defun plv-page-fiche:champs (/ profils)
  (if (setq profils (plv-profils))
    (list
      (list "profils" "Profils" "mots" (mapcar 'plv-numero-profil profils) (mapcar 'plv-numero-profil profils))
      (list "fichier" "Page à écrire" "ecrire" (strcat (plv-nom-dessin) ".html") "Pages (*.html)"))
    (plv-erreur (plv-refus-sans-profil))))

(defun plv-page-fiche:profils (valeurs) (mapcar 'plv-profil-de-numero (plv-cle "profils" valeurs)))

(defun plv-page-fiche:regarder (valeurs / profils)
  (setq profils (plv-page-fiche:profils valeurs))
  (plv-regard
    (if (not (wcmatch (strcase (plv-cle "fichier" valeurs)) "*.HTML")) '(("fichier" "un nom en .html est attendu")))
    (if profils (list (plv-image-profil (car profils) (plv-traits-profil (car profils)))))
    nil nil nil))

(defun plv-page-fiche:faire (valeurs) (plv-page (plv-page-fiche:profils valeurs) (plv-cle "fichier" valeurs)))

(plv-declarer-fiche "PLV-PAGE" "Page à partager" "Écrire" 'plv-page-fiche:champs 'plv-page-fiche:regarder 'plv-page-fiche:faire)
