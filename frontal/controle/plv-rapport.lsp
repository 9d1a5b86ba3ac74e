;; What the drawing holds of profiles, in a few lines.
;; kavel --list calls plv-decrire.

(defun plv-rapport:matrices (profil)
  (foreach reference (plv-tables profil)
    (plv-dire (strcat "    matrice " (plv-matrice-nom reference) ": " (plv-compte (plv-matrice-nombre (plv-matrice reference)) "ligne")))))

(defun plv-rapport:projets (profil / elements)
  (foreach genre (plv-genres)
    (if (setq elements (plv-elements profil genre))
      (plv-dire (strcat "    projet " genre ": " (plv-compte (length elements) "élément") ", dont "
                        (itoa (length (plv-elements-du-projet profil genre))) " du projet")))))

(defun plv-rapport:terrains (profil)
  (foreach terrain (plv-terrains profil)
    (plv-dire (strcat "    terrain " (plv-terrain-nom terrain) " (" (strcase (plv-terrain-role terrain) T) "): "
                      (plv-compte (apply '+ (mapcar 'length (plv-terrain-morceaux terrain))) "point")))))

(defun plv-rapport:etats (profil / etats vieux)
  "What is derived of a profile and isn't true any more."
  (setq etats (plv-etats profil) vieux (vl-remove-if 'plv-etat-a-jour-p etats))
  (foreach ligne (plv-etats-en-lignes profil vieux) (plv-dire (strcat "    " ligne)))
  (if (and etats (not vieux)) (plv-dire "    tout ce qui en est tiré est à jour")))

(defun plv-rapport:profil (profil)
  (plv-dire (strcat "    plans de comparaison: " (plv-plans-en-texte profil)))
  (plv-rapport:terrains profil)
  (plv-rapport:matrices profil)
  (plv-rapport:projets profil)
  (plv-rapport:etats profil))

(defun plv-rapport:abime (profil)
  "What is wrong with a profile that can't be described further, nil for a whole one."
  (setq profil (vl-catch-all-apply 'plv-refus-profil (list profil)))
  (if (vl-catch-all-error-p profil) (vl-catch-all-error-message profil) profil))

(defun plv-rapport:decrire (profil / points faute)
  (setq points (plv-points-tn profil))
  (plv-dire (strcat "  " (plv-numero-profil profil) ": " (plv-compte (length points) "point") ", longueur "
                    (plv-reel (if points (car (plv-dernier points)) 0.0) 2) " m, hauteurs x " (plv-reel (plv-echv profil) 1)))
  (if (setq faute (plv-rapport:abime profil))
    (plv-dire (strcat "    " faute))
    (if (vl-catch-all-error-p (setq faute (vl-catch-all-apply 'plv-rapport:profil (list profil))))
      (plv-dire (strcat "    illisible: " (vl-catch-all-error-message faute))))))

(defun plv-decrire (/ profils faute)
  (setq profils (plv-profils))
  (princ (strcat "Profils: " (itoa (length profils))))
  (foreach profil profils
    (setq faute (vl-catch-all-apply 'plv-rapport:decrire (list profil)))
    (if (vl-catch-all-error-p faute)
      (plv-dire (strcat "  bloc " (plv-handle profil) ": illisible: " (vl-catch-all-error-message faute)))))
  (foreach perdu (plv-profils-sans-numero)
    (plv-dire (strcat "  bloc " (plv-handle perdu) ": il a perdu l'attribut NUMPL de son profil")))
  (terpri)
  (princ))
