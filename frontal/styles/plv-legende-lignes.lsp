;; The legend of lines: a sample of each line that a profile has, with its name, in rows above its title.

(defun plv-legende-lignes:terrains (profil)
  (mapcar '(lambda (terrain) (list (strcat "PLV-TN-" (strcase (plv-terrain-nom terrain))) (plv-terrain-nom terrain))) (plv-terrains profil)))

(defun plv-legende-lignes:du-genre (profil genre / element)
  (setq element (plv-element-du-projet profil genre))
  (list (plv-cle 8 (entget element)) (if (= genre "Projet") "Projet" (strcat "Projet " genre)) element))

(defun plv-legende-lignes-entrees (profil)
  "(layer name [curve]) of each line that is there."
  (append
    (list (list (plv-calque "PLV-TN") "Terrain naturel"))
    (plv-legende-lignes:terrains profil)
    (mapcar '(lambda (genre) (plv-legende-lignes:du-genre profil genre)) (plv-genres-du-projet profil))))

;; --- drawing it: what is drawn is also listed by itself (groups 330), with a curve of each line (331), so that it is made anew when a line
;; comes or goes, without the rest of the dressing

(setq plv-legende-lignes:cle "PLV_LEGENDE_LIGNES")

(defun plv-legende-lignes:aspect (groupes)
  "Colour, line type and weight of a layer, or of a line that has its own, as groups in that order."
  (vl-remove nil
    (mapcar '(lambda (code / g) (if (setq g (assoc code groupes)) (if (= code 62) (cons 62 (abs (cdr g))) g))) '(62 420 6 370))))

(defun plv-legende-lignes:du-calque (calque) (if (tblobjname "LAYER" calque) (plv-legende-lignes:aspect (entget (tblobjname "LAYER" calque)))))

(defun plv-legende-lignes:trait (calque x1 x2 y)
  "A sample that looks like the lines of a layer and stands on another one: whoever reads lines by their layers doesn't find it."
  (entmakex
    (append (list '(0 . "LINE") (cons 8 (plv-calque "PLV-LIBELLES")) (cons 10 (plv-point x1 y)) (cons 11 (plv-point x2 y)))
      (plv-legende-lignes:du-calque calque))))

(defun plv-legende-lignes:rangs (profil entrees y / x0 x h fin largeur)
  "Samples and names in rows from an ordinate upwards, each from left to right."
  (setq x0 (car (plv-origine profil)) x x0 h (plv-ttxt profil) fin (+ x0 (plv-longueur-profil profil)))
  (foreach entree entrees
    (setq largeur (+ (* 8.0 h) (plv-largeur-texte (cadr entree) (plv-petit profil))))
    (if (and (> x x0) (> (+ x largeur) fin)) (setq x x0 y (+ y (* 2.0 h))))
    (plv-legende-lignes:trait (car entree) x (+ x (* 6.0 h)) y)
    (plv-texte "PLV-LIBELLES" (plv-point (+ x (* 7.0 h)) (- y (* 0.5 (plv-petit profil)))) (plv-petit profil) (cadr entree) 0 0.0)
    (setq x (+ x largeur (* 3.0 h)))))

(defun plv-legende-lignes (profil entrees y / traits)
  "Draws the legend; the entities."
  (setq traits (plv-ajouts-de '(lambda () (plv-legende-lignes:rangs profil entrees y))))
  (plv-ecrire-enregistrement profil plv-legende-lignes:cle
    (append (mapcar '(lambda (e) (cons 330 e)) traits) (mapcar '(lambda (entree) (cons 331 (caddr entree))) (vl-remove-if-not 'caddr entrees))))
  traits)

(defun plv-entites-legende-lignes (profil) (plv-entites-enregistrees profil plv-legende-lignes:cle))

(defun plv-legende-lignes-juste-p (profil entrees / dits)
  "Whether what is drawn says the same."
  (setq dits (mapcar 'entget (plv-entites-legende-lignes profil)))
  (equal (mapcar '(lambda (e) (list (plv-legende-lignes:du-calque (car e)) (cadr e))) entrees)
    (mapcar '(lambda (trait nom) (list (plv-legende-lignes:aspect trait) (plv-cle 1 nom)))
      (vl-remove-if-not '(lambda (g) (= (plv-cle 0 g) "LINE")) dits)
      (vl-remove-if-not '(lambda (g) (= (plv-cle 0 g) "TEXT")) dits))))

(defun plv-legende-lignes-perdue-p (profil)
  "Whether a curve of which it was made is gone."
  (vl-some '(lambda (e) (not (plv-existe e))) (plv-cles 331 (plv-enregistrement profil plv-legende-lignes:cle))))
