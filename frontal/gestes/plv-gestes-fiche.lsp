;; The forms of PLV-LIGNES, PLV-ALTITUDES and PLV-POINTS. Commands that begin with a pick on a curve (PLV-REPORT, PLV-PENTE, PLV-LONGUEUR) have none: the
;; place of the pick says what is meant.

;; --- lines by stations

(defun plv-lignes-fiche:champs ()
  (plv-champs-avec-profil
    (list
      (list "genre" "Genre de ligne" "mot" "Projet" (plv-genres))
      '("points" "Points" "rangees" nil (("Station" "nombre" nil) ("Altitude" "nombre" nil))))))

(defun plv-lignes-fiche:point (profil rangee / station altitude)
  "(distance altitude) of a row; nil for one that can't be read."
  (if (and (setq station (plv-nombre-station (car rangee))) (setq altitude (plv-nombre (cadr rangee))))
    (list (- station (plv-premiere-station profil)) altitude)))

(defun plv-lignes-fiche:points (profil valeurs) (mapcar '(lambda (r) (plv-lignes-fiche:point profil r)) (plv-cle "points" valeurs)))

(defun plv-lignes-fiche:faute (profil points / numero precedent faute)
  (setq numero 0)
  (foreach p points
    (setq numero (1+ numero))
    (if (and (not faute) (setq faute (if p (plv-tracer:faute profil precedent p) "deux nombres sont attendus")))
      (setq faute (strcat "rangée " (itoa numero) ": " faute)))
    (setq precedent p))
  (cond (faute) ((not (cdr points)) "deux points au moins sont attendus")))

(defun plv-lignes-fiche:regarder (valeurs / profil points faute)
  (setq profil (plv-fiche-profil valeurs) points (plv-lignes-fiche:points profil valeurs) faute (plv-lignes-fiche:faute profil points))
  (plv-regard
    (if faute (list (list "points" faute)))
    (list (plv-image-profil profil
            (append (plv-traits-profil profil) (if (not faute) (plv-image-traits "projet" (list points)))
                    (if (not (member nil points)) (plv-poignees-de-rangees "points" points)))))
    nil nil nil))

(defun plv-lignes-fiche:faire (valeurs / profil)
  (setq profil (plv-fiche-profil valeurs))
  (plv-lignes profil (plv-cle "genre" valeurs) (plv-lignes-fiche:points profil valeurs)))

(plv-declarer-fiche "PLV-LIGNES" "Lignes par stations" "Tracer" 'plv-lignes-fiche:champs 'plv-lignes-fiche:regarder 'plv-lignes-fiche:faire)

;; --- lists

(setq plv-listes-fiche:fichier '("fichier" "Fichier à écrire, ou rien" "ecrire" "" "Listes (*.csv)"))

(defun plv-listes-fiche:image (profil genres)
  (plv-image-profil profil
    (append (plv-traits-profil profil)
      (apply 'append (mapcar '(lambda (g) (plv-image-traits "projet" (plv-traits-de-ligne profil g))) genres)))))

(defun plv-altitudes-fiche:champs ()
  (plv-champs-avec-profil
    (list (plv-champ-genre-trace "Genre de ligne" (plv-genres))
          '("courbes" "Quelques courbes, ou toute la ligne" "objets" nil "LINE,LWPOLYLINE,POLYLINE,SPLINE,ARC") plv-listes-fiche:fichier)))

(defun plv-altitudes-fiche:courbes (profil valeurs)
  (cond ((plv-fiche-objets valeurs "courbes")) ((plv-elements-du-projet profil (plv-cle "genre" valeurs)))))

(defun plv-altitudes-fiche:regarder (valeurs / profil courbes faute)
  (setq profil (plv-fiche-profil valeurs) courbes (plv-altitudes-fiche:courbes profil valeurs)
        faute (vl-some '(lambda (e) (plv-refus-situation profil e)) courbes))
  (plv-regard
    (cond ((not courbes) '(("genre" "ce genre n'a pas de ligne de projet"))) (faute (list (list "courbes" faute))))
    (list (plv-listes-fiche:image profil (if (plv-cle "courbes" valeurs) nil (list (plv-cle "genre" valeurs)))))
    (list (strcat (plv-compte (length courbes) "courbe") "; la liste paraît sous le dessin."))
    nil nil))

(defun plv-altitudes-fiche:faire (valeurs / profil rangees)
  (setq profil (plv-fiche-profil valeurs))
  (if (setq rangees (plv-lister-altitudes profil (plv-altitudes-fiche:courbes profil valeurs)))
    (plv-listes:dire profil '("station" "altitude" "terrain" "hauteur") rangees (plv-cle "fichier" valeurs))))

(plv-declarer-fiche "PLV-ALTITUDES" "Altitudes d'une ligne" "Lister" 'plv-altitudes-fiche:champs 'plv-altitudes-fiche:regarder 'plv-altitudes-fiche:faire)

(defun plv-points-fiche:champs ()
  (plv-champs-avec-profil
    (list (plv-champ-genre-trace "Genre de ligne" (plv-genres)) (list "reference" "Genre de référence" "mot" "TN" (plv-genres)) plv-listes-fiche:fichier)))

(defun plv-points-fiche:regarder (valeurs / profil genre reference)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs) reference (plv-cle "reference" valeurs))
  (plv-regard
    (vl-remove nil
      (list
        (if (plv-listes:refus-genre profil genre) (list "genre" (plv-listes:refus-genre profil genre)))
        (if (plv-listes:refus-genre profil reference) (list "reference" (plv-listes:refus-genre profil reference)))))
    (list (plv-listes-fiche:image profil (vl-remove "TN" (list genre reference))))
    '("La liste paraît sous le dessin.") nil nil))

(defun plv-points-fiche:faire (valeurs / profil genre reference rangees)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs) reference (plv-cle "reference" valeurs))
  (if (setq rangees (plv-lister-points profil genre reference))
    (plv-listes:dire profil (plv-listes:titres genre reference) rangees (plv-cle "fichier" valeurs))))

(plv-declarer-fiche "PLV-POINTS" "Points d'une ligne" "Lister" 'plv-points-fiche:champs 'plv-points-fiche:regarder 'plv-points-fiche:faire)
