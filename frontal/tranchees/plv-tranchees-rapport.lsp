;; What is printed of trenches: a line for each pipe and manhole, then what all of them take, and the identity.

(setq plv-tranchees-rapport:colonnes '("Fouille" "Lit de pose" "Enrobage" "Blindage" "Évacué foisonné"))

(defun plv-tranchees-rapport:rangee (textes) (plv-colonnes textes '(22 11 12 10 14 13 15)))

(defun plv-tranchees-rapport:ouvrage (mesures ouvrage)
  (plv-tranchees-rapport:rangee
    (vl-list* (plv-ouvrage-nom ouvrage) (plv-reel (plv-ouvrage-posee ouvrage) 2)
      (mapcar '(lambda (titre) (plv-reel (plv-tranchees-valeur mesures ouvrage titre) 2)) plv-tranchees-rapport:colonnes))))

(defun plv-tranchees-rapport:total (mesures)
  (mapcar
    '(lambda (colonne valeur)
       (if (> (abs valeur) 5e-10) (plv-colonnes (list (car colonne) (strcat (plv-reel valeur 3) " " (cadr colonne))) '(34 18))))
    (plv-tranchees-colonnes mesures) (plv-ouvrage-valeurs (plv-tranchees-total mesures))))

(defun plv-dire-tranchees (mesures)
  (plv-tranchees-rapport:rangee (cons "ouvrage" (cons "posée m" '("fouille m3" "lit m3" "enrobage m3" "blindage m2" "à évacuer m3"))))
  (foreach ouvrage (plv-tranchees-ouvrages mesures) (plv-tranchees-rapport:ouvrage mesures ouvrage))
  (plv-dire "Total:")
  (plv-tranchees-rapport:total mesures)
  (plv-dire
    (if (< (abs (plv-tranchees-ecart mesures)) 1e-6)
      "Fouille = lit + enrobage + tuyau + regards + remblais + surface: juste."
      (strcat "La fouille ne se retrouve pas dans ce qui la remplit: " (plv-reel (plv-tranchees-ecart mesures) 6) " m3 d'écart."))))
