;; What the drawing holds of profiles, in a few lines.
;; kavel --list calls plv-decrire.

(defun plv-rapport:plans (profil)
  (plv-joindre
    (mapcar '(lambda (p) (strcat (plv-reel (cadr p) 2) " (a partir de " (plv-reel (car p) 2) ")")) (plv-tables:plans profil))
    ", "))

(defun plv-rapport:matrices (profil / record)
  (foreach reference (plv-tables:references profil)
    (setq record (dictsearch (plv-dictionnaire reference) "INFO_MATRICE"))
    (plv-dire (strcat "    matrice " (plv-cle 300 record) ": " (itoa (plv-cle 90 record)) " lignes"))))

(defun plv-rapport:projets (profil / elements)
  (foreach genre (mapcar 'car plv-elements:genres)
    (if (setq elements (plv-elements:enregistres profil genre))
      (plv-dire (strcat "    projet " genre ": " (itoa (length elements)) " elements, dont "
                        (itoa (length (plv-elements-du-projet profil genre))) " du projet")))))

(defun plv-decrire (/ profils infos)
  (setq profils (plv-profils))
  (princ (strcat "Profils: " (itoa (length profils))))
  (foreach profil profils
    (setq infos (pl_InfosTn profil))
    (plv-dire (strcat "  " (plv-numero-profil profil) ": " (if infos (itoa (fix (car infos))) "0") " points, longueur "
                      (plv-reel (if infos (cadr infos) 0.0) 2) " m, hauteurs x " (plv-reel (plgxd profil "ECHV") 1)))
    (plv-dire (strcat "    plans de comparaison: " (plv-rapport:plans profil)))
    (plv-rapport:matrices profil)
    (plv-rapport:projets profil))
  (terpri)
  (princ))
