;; What the drawing holds of profiles, in a few lines.
;; kavel --list calls plv-decrire.

(defun plv-rapport:matrices (profil)
  (foreach reference (plv-references-tables profil)
    (plv-dire (strcat "    matrice " (plv-matrice-nom reference) ": " (itoa (plv-matrice-nombre (plv-matrice reference))) " lignes"))))

(defun plv-rapport:projets (profil / elements)
  (foreach genre (plv-genres)
    (if (setq elements (plv-elements profil genre))
      (plv-dire (strcat "    projet " genre ": " (itoa (length elements)) " éléments, dont "
                        (itoa (length (plv-elements-du-projet profil genre))) " du projet")))))

(defun plv-decrire (/ profils infos)
  (setq profils (plv-profils))
  (princ (strcat "Profils: " (itoa (length profils))))
  (foreach profil profils
    (setq infos (pl_InfosTn profil))
    (plv-dire (strcat "  " (plv-numero-profil profil) ": " (if infos (itoa (fix (car infos))) "0") " points, longueur "
                      (plv-reel (if infos (cadr infos) 0.0) 2) " m, hauteurs x " (plv-reel (plv-echv profil) 1)))
    (plv-dire (strcat "    plans de comparaison: " (plv-plans-en-texte profil)))
    (plv-rapport:matrices profil)
    (plv-rapport:projets profil))
  (terpri)
  (princ))
