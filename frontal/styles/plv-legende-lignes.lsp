;; The legend of lines: a sample of each line that a profile has, with its name, in rows above its title.

(defun plv-legende-lignes:terrains (profil)
  (mapcar '(lambda (terrain) (list (strcat "PLV-TN-" (strcase (plv-terrain-nom terrain))) (plv-terrain-nom terrain))) (plv-terrains profil)))

(defun plv-legende-lignes:du-genre (profil genre / elements)
  "The layer of a kind's line and its name; in a list, empty without a line."
  (if (setq elements (plv-elements-du-projet profil genre))
    (list (list (plv-cle 8 (entget (car elements))) (if (= genre "Projet") "Projet" (strcat "Projet " genre))))))

(defun plv-legende-lignes:entrees (profil)
  "(layer name) of each line that is there."
  (append
    (list (list "PLV-TN" "Terrain naturel"))
    (plv-legende-lignes:terrains profil)
    (apply 'append (mapcar '(lambda (genre) (plv-legende-lignes:du-genre profil genre)) (plv-genres-du-projet profil)))))

(defun plv-legende-lignes (profil y / x0 x h fin largeur)
  "Draws the legend from an ordinate upwards, from left to right."
  (setq x0 (car (plv-origine profil)) x x0 h (plv-ttxt profil) fin (+ x0 (plv-longueur-profil profil)))
  (foreach entree (plv-legende-lignes:entrees profil)
    (setq largeur (+ (* 8.0 h) (plv-largeur-texte (cadr entree) (plv-petit profil))))
    (if (and (> x x0) (> (+ x largeur) fin)) (setq x x0 y (+ y (* 2.0 h))))
    (plv-ligne (car entree) (plv-point x y) (plv-point (+ x (* 6.0 h)) y))
    (plv-texte "PLV-LIBELLES" (plv-point (+ x (* 7.0 h)) (- y (* 0.5 (plv-petit profil)))) (plv-petit profil) (cadr entree) 0 0.0)
    (setq x (+ x largeur (* 3.0 h))))
  y)
