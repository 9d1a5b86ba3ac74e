;; The form of PLV-LEVE: the point is dragged in the picture, a new one along the profile too.

(defun plv-leve-fiche:champs (/ profil)
  (setq profil (plv-profil-propose))
  (plv-champs-avec-profil
    (list
      '("operation" "Point du terrain" "mot" "Corriger" ("Corriger" "Insérer" "Supprimer" "Nommer" "Table des points" "Remplacer le levé"))
      (plv-champ-nombre-du-dessin "station" "Station" (if profil (plv-premiere-station profil) 0.0) 2)
      (plv-champ-nombre-du-dessin "altitude" "Altitude" (if profil (cadr (car (plv-points-tn profil))) 0.0) 3)
      '("nom" "Nom du point" "texte" "" nil)
      '("fichier" "Nouveau levé" "lire" "" "Levés (*.csv *.txt *.xlsx *.xml);;Tous (*)")
      (plv-champ-landxml "terrain" "Terrain du fichier")
      (list "points" "Points" "rangees" (if profil (plv-leve-rangees profil))
        '(("Station" "nombre" nil) ("Altitude" "nombre" nil) ("Nom" "texte" nil))))))

(defun plv-leve-fiche:operation (valeurs) (substr (plv-cle "operation" valeurs) 1 1))

(defun plv-leve-fiche:points (valeurs points d rang)
  "The ground after the operation."
  (plv-leve:changes (plv-leve-fiche:operation valeurs) points d rang (plv-fiche-nombre valeurs "altitude") (plv-cle "nom" valeurs)))

(defun plv-leve-fiche:poignee (valeurs apres d)
  "The point with the stretches on its sides; nil where there is none."
  (if (and (member (plv-leve-fiche:operation valeurs) '("C" "I")) (plv-fiche-nombre valeurs "altitude"))
    (list (append (list "poignee" "altitude" "projet" (plv-leve-fiche:autour apres d) 1.0)
                  (if (= (plv-leve-fiche:operation valeurs) "I") '("station"))))))

(defun plv-leve-fiche:autour (points d)
  (while (and (cddr points) (< (car (cadr points)) (- d 0.005))) (setq points (cdr points)))
  (mapcar '(lambda (p) (list (car p) (cadr p))) (plv-premiers points (if (cddr points) 3 2))))

(defun plv-leve-fiche:regarder (valeurs / operation)
  (setq operation (plv-leve-fiche:operation valeurs))
  (cond
    ((= operation "R") (plv-leve-fiche:regarder-leve valeurs))
    ((= operation "T") (plv-leve-fiche:regarder-table valeurs))
    ((plv-leve-fiche:regarder-point valeurs))))

(defun plv-leve-fiche:table (valeurs) (plv-leve-table-terrain (plv-fiche-profil valeurs) (plv-cle "points" valeurs)))

(defun plv-leve-fiche:regarder-table (valeurs / profil lu faute)
  "The rows over the ground; those of another profile when it has just been chosen."
  (setq profil (plv-fiche-profil valeurs) lu (plv-essayer 'plv-leve-fiche:table (list valeurs))
        faute (cond ((not (car lu)) (cadr lu)) ((plv-refus-leve profil (car lu)))
                    ((plv-refus-terrain profil (car (plv-dernier (plv-cle 'points (car lu))))))))
  (plv-regard-avec-valeurs
    (plv-regard
      (if faute (list (list "points" faute)))
      (list (plv-leve-table-image profil (plv-cle "points" valeurs) (car lu)))
      nil '("station" "altitude" "nom" "fichier" "terrain") nil)
    (if (= (plv-cle "*" valeurs) "profil") (list (list "points" (plv-leve-rangees profil))))))

(defun plv-leve-fiche:lire (valeurs) (plv-fiche-lire-terrain valeurs "fichier" "terrain"))

(defun plv-leve-fiche:regarder-leve (valeurs / profil terrains lu)
  "The newer survey over the ground."
  (setq profil (plv-fiche-profil valeurs) terrains (car (plv-essayer 'plv-fiche-terrains (list valeurs "fichier")))
        lu (plv-essayer 'plv-leve-fiche:lire (list valeurs)))
  (plv-regard
    (cond
      ((not (car lu)) (list (list "fichier" (cond ((cadr lu)) ("ce fichier ne donne pas de terrain")))))
      ((plv-refus-leve profil (car lu)) (list (list "fichier" (plv-refus-leve profil (car lu))))))
    (list (plv-image-profil profil
            (append (plv-traits-profil profil)
              (if (car lu) (plv-image-traits "projet" (list (mapcar '(lambda (p) (list (car p) (cadr p))) (plv-cle 'points (car lu)))))))))
    nil (append '("station" "altitude" "nom" "points") (if (not (cdr terrains)) '("terrain")))
    (list (cons "terrain" (mapcar 'car terrains)))))

(defun plv-leve-fiche:altitude-la (valeurs points d rang)
  "When another place has just been chosen the altitude is the one that is there."
  (if (and d (member (plv-cle "*" valeurs) '("profil" "operation" "station")) (setq d (if rang (cadr (nth rang points)) (plv-altitude-tn points d))))
    (list (list "altitude" (plv-reel d 3)))))

(defun plv-leve-fiche:regarder-point (valeurs / profil origine points d rang faute apres)
  (setq profil (plv-fiche-profil valeurs) origine (plv-premiere-station profil) points (plv-points-nommes profil))
  (if (setq d (plv-fiche-nombre valeurs "station"))
    (setq d (- d origine) rang (plv-leve:rang points d)
          faute (plv-leve:faute (plv-leve-fiche:operation valeurs) points d rang (plv-fiche-nombre valeurs "altitude") origine)
          apres (if (not faute) (plv-leve-fiche:points valeurs points d rang))))
  (plv-regard-avec-valeurs
    (plv-regard
      (if faute (list (list "station" faute)))
      (list (plv-image-profil profil (append (plv-traits-profil profil) (if apres (plv-leve-fiche:poignee valeurs apres d)))))
      (if rang (list (strcat "Ce point est à l'altitude " (plv-reel (cadr (nth rang points)) 3) ".")))
      (append (if (not (member (plv-leve-fiche:operation valeurs) '("C" "I"))) '("altitude"))
              (if (not (member (plv-leve-fiche:operation valeurs) '("I" "N"))) '("nom"))
              '("fichier" "terrain" "points"))
      nil)
    (plv-leve-fiche:altitude-la valeurs points d rang)))

(defun plv-leve-fiche:faire (valeurs / operation)
  (setq operation (plv-leve-fiche:operation valeurs))
  (cond
    ((= operation "R")
     (plv-prendre-fichier "leve" (findfile (plv-cle "fichier" valeurs))
       (plv-remplacer-terrain (plv-fiche-profil valeurs) (plv-leve-fiche:lire valeurs))))
    ((= operation "T") (plv-remplacer-terrain (plv-fiche-profil valeurs) (plv-leve-fiche:table valeurs)))
    ((plv-leve-fiche:point valeurs))))

(defun plv-leve-fiche:point (valeurs)
  (plv-leve (plv-fiche-profil valeurs) (plv-leve-fiche:operation valeurs) (plv-fiche-nombre valeurs "station")
    (plv-fiche-nombre valeurs "altitude") (plv-cle "nom" valeurs)))

(plv-declarer-fiche "PLV-LEVE" "Point du levé" "Appliquer" 'plv-leve-fiche:champs 'plv-leve-fiche:regarder 'plv-leve-fiche:faire)
