;; Ground files: delimited text with distance and altitude, or x, y, z with distances accumulated in plan.
;; A ground is ((origine . first station) (points (distance altitude name) ...)), distances from the first point; its gaps,
;; when the file has any, are stretches under lacunes. A measured point is (distance-or-nil x y z name line), the line being that of the file, nil elsewhere.

;; Words of a header line, upper case, by what the column holds.
(setq plv-terrain:entetes
  '((distance "STATION" "PK" "ABSCISSE" "DISTANCE" "DIST" "DCUM" "CHAINAGE" "CUMUL" "D" "S")
    (x "X" "EASTING" "EST" "E")
    (y "Y" "NORTHING" "NORD" "N")
    (z "Z" "ALT" "ALTITUDE" "ZTN" "TN" "GROUND_Z" "COTE" "ELEVATION" "H")
    (nom "NOM" "NAME" "POINT" "NUMERO" "NUM" "MATRICULE" "OBS" "OBSERVATION" "OBSERVATIONS" "REMARQUE" "CODE")))

(defun plv-terrain:role (champ)
  (setq champ (strcase (vl-string-trim " \t\"" champ)))
  (caar (vl-member-if '(lambda (role) (member champ (cdr role))) plv-terrain:entetes)))

(defun plv-terrain:roles-entete (champs / roles)
  "What each column holds according to a header line; nil when it names no altitude."
  (setq roles (mapcar 'plv-terrain:role champs))
  (if (and (member 'z roles) (or (member 'distance roles) (and (member 'x roles) (member 'y roles)))) roles))

(defun plv-terrain:roles-champs (champs / nombres)
  "What each column holds, guessed from the first line of data."
  (setq nombres (mapcar 'plv-nombre champs))
  (cond
    ((< (length champs) 2) nil)
    ((or (= (length champs) 2) (not (caddr nombres))) '(distance z nom))
    ((and (not (car nombres)) (plv-nombre-station (car champs))) '(distance z nom))
    ((and (cadddr nombres) (not (car nombres))) '(nom x y z))
    (T '(x y z nom))))

(defun plv-terrain:champ (role roles champs / valeur)
  (while roles
    (if (and (eq (car roles) role) (not valeur)) (setq valeur (car champs)))
    (setq roles (cdr roles) champs (cdr champs)))
  valeur)

(defun plv-terrain:valeur (role roles champs / texte)
  (if (setq texte (plv-terrain:champ role roles champs))
    (if (eq role 'distance) (plv-nombre-station texte) (plv-nombre texte))))

(defun plv-releve (d z nom) (list d nil nil z nom))
(defun plv-releve-distance (releve) (car releve))
(defun plv-releve-en-plan (releve) (list (cadr releve) (caddr releve)))
(defun plv-releve-z (releve) (cadddr releve))
(defun plv-releve-nom (releve) (nth 4 releve))
(defun plv-releve-ligne (releve) (nth 5 releve))

(defun plv-terrain:releve (roles champs / d x y z nom)
  "One point of the file; nil when a number is missing."
  (setq d (plv-terrain:valeur 'distance roles champs)
        x (plv-terrain:valeur 'x roles champs)
        y (plv-terrain:valeur 'y roles champs)
        z (plv-terrain:valeur 'z roles champs)
        nom (cond ((plv-terrain:champ 'nom roles champs)) ("")))
  (cond
    ((not z) nil)
    ((member 'distance roles) (if d (plv-releve d z nom)))
    ((and x y) (list nil x y z nom))))

(defun plv-terrain:lire (chemin / lignes numero separateur roles champs releve releves fautive)
  "The points of the file in file order; nil after a message that names the line at fault."
  (setq numero 0 lignes (plv-lire-lignes chemin))
  (foreach ligne lignes
    (setq numero (1+ numero))
    (if (and (not fautive) (not (plv-ligne-muette ligne)))
      (progn
        (if (not separateur) (setq separateur (plv-separateur ligne)))
        (setq champs (plv-couper ligne separateur))
        (cond
          ((and (not roles) (setq roles (plv-terrain:roles-entete champs))))
          ;; A first line without numbers is a header whose words say nothing.
          ((and (not roles) (not releves) (not (vl-some 'plv-nombre champs))) (setq separateur nil))
          (T
           (if (not roles) (setq roles (plv-terrain:roles-champs champs)))
           (if (and roles (setq releve (plv-terrain:releve roles champs)))
             (setq releves (cons (append releve (list numero)) releves))
             (progn (plv-refus-ligne chemin numero ligne "distance et altitude attendues, ou x, y et z") (setq fautive T))))))))
  (cond
    ((or fautive (not lignes)) nil)
    ((not (cdr releves)) (plv-erreur (strcat chemin ": deux points au moins sont attendus")))
    (T (reverse releves))))

(defun plv-terrain:distances (releves / cumul precedent points)
  "Points (distance altitude name line) with distances as given, or accumulated in plan."
  (setq cumul 0.0)
  (foreach releve releves
    (cond
      ((plv-releve-distance releve) (setq cumul (plv-releve-distance releve)))
      (precedent (setq cumul (+ cumul (distance (plv-releve-en-plan precedent) (plv-releve-en-plan releve))))))
    (setq precedent releve
          points (cons (list (float cumul) (float (plv-releve-z releve)) (plv-releve-nom releve) (plv-releve-ligne releve)) points)))
  (reverse points))

(defun plv-terrain:croissants (points)
  "The points sorted by distance; says so when they were not."
  (if (apply '<= (mapcar 'car points))
    points
    (progn
      (plv-dire "Les points ne sont pas dans l'ordre des distances: ils ont été triés.")
      (vl-sort points '(lambda (a b) (< (car a) (car b)))))))

(defun plv-terrain:sans-repetition (points / garde retires)
  "Points that repeat distance and altitude of the one before are left out and counted."
  (setq retires 0)
  (foreach point points
    (if (and garde (equal (car point) (caar garde) 1e-6) (equal (cadr point) (cadar garde) 1e-6))
      (setq retires (1+ retires))
      (setq garde (cons point garde))))
  (if (> retires 0)
    (plv-dire (strcat (itoa retires) (if (= retires 1) " point répété a été laissé." " points répétés ont été laissés."))))
  (reverse garde))

(defun plv-terrain-depuis (chemin releves / points origine faute)
  "A ground from measured points; chemin names it in messages."
  (setq points (plv-terrain:sans-repetition (plv-terrain:croissants (plv-terrain:distances releves)))
        origine (caar points))
  (cond
    ((or (not (cdr points)) (< (- (car (plv-dernier points)) origine) 1e-6))
     (plv-erreur (strcat chemin ": tous les points ont la même distance")))
    ((setq faute (plv-terrain-invraisemblable points)) (plv-erreur (strcat chemin ", " faute)))
    (T
     (list (cons 'origine origine)
           (cons 'points (mapcar '(lambda (p) (list (- (car p) origine) (cadr p) (caddr p))) points))))))

(defun plv-lire-terrain-texte (chemin / releves)
  "The ground of a text file; nil after a message."
  (if (setq releves (plv-terrain:lire chemin)) (plv-terrain-depuis chemin releves)))
