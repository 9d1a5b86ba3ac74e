;; What a proposed line keeps to besides its depths: rows station;end;name;values of a file, or typed one by one.
;; A constraint is a list of its name and numbers as et_ligne takes it: stations first, slopes as rise per metre to the right.
;; Shared in the room: plv-optimal:contrainte-dehors

;; name, what makes a constraint of (station end values), the form of its row
(setq plv-contraintes:genres
  '(("profondeur" plv-contraintes:profondeur "station;fin;profondeur;minimale;maximale")
    ("pente" plv-contraintes:pente ";;pente;minimale;maximale;sens, en %, le sens étant descend, monte ou libre (minimale 0)")
    ("point" plv-contraintes:point "station;;point;altitude, ou station;;point;basse;haute")
    ("croisement" plv-contraintes:croisement "station;;croisement;largeur;altitude basse;altitude haute;dégagement dessous;dégagement dessus")
    ("longueur" plv-contraintes:longueur ";;longueur;moindre")
    ("arrondi" plv-contraintes:arrondi ";;arrondi;pas des altitudes, ou ;;arrondi;pas des altitudes;pas des pentes en %, 0 là où rien n'est arrondi,")))

;; --- of each name

(defun plv-contraintes:profondeur (station fin valeurs)
  (if (and station fin (< station fin) (= (length valeurs) 2) (not (member nil valeurs)) (<= (car valeurs) (cadr valeurs)))
    (list "profondeur" station fin (car valeurs) (cadr valeurs))))

(defun plv-contraintes:pente (station fin valeurs / moindre plus-grande sens)
  (setq moindre (car valeurs) plus-grande (cadr valeurs) sens (caddr valeurs))
  (if (and (not station) (not fin) (= (length valeurs) 3) (numberp moindre) (numberp plus-grande) (<= 0.0 moindre plus-grande))
    (progn
      (setq moindre (* 0.01 moindre) plus-grande (* 0.01 plus-grande))
      (cond
        ((= sens "descend") (list "pente" (- plus-grande) (- moindre)))
        ((= sens "monte") (list "pente" moindre plus-grande))
        ((and (= sens "libre") (= moindre 0.0)) (list "pente" (- plus-grande) plus-grande))))))

(defun plv-contraintes:point (station fin valeurs)
  (if (and station (not fin) (<= 1 (length valeurs) 2) (not (member nil valeurs)) (<= (car valeurs) (plv-dernier valeurs)))
    (list "point" station (car valeurs) (plv-dernier valeurs))))

(defun plv-contraintes:croisement (station fin valeurs / demi)
  (if (and station (not fin) (= (length valeurs) 5) (not (member nil valeurs))
           (> (car valeurs) 0.0) (<= (cadr valeurs) (caddr valeurs)) (>= (min (nth 3 valeurs) (nth 4 valeurs)) 0.0))
    (progn
      (setq demi (* 0.5 (car valeurs)))
      (list "croisement" (- station demi) (+ station demi) (- (cadr valeurs) (nth 3 valeurs)) (+ (caddr valeurs) (nth 4 valeurs))))))

(defun plv-contraintes:longueur (station fin valeurs)
  (if (and (not station) (not fin) (= (length valeurs) 1) (numberp (car valeurs)) (> (car valeurs) 0.0))
    (list "longueur" (car valeurs))))

(defun plv-contraintes:arrondi (station fin valeurs / pentes)
  (setq pentes (if (cdr valeurs) (cadr valeurs) 0.0))
  (if (and (not station) (not fin) (<= 1 (length valeurs) 2) (numberp (car valeurs)) (numberp pentes)
           (>= (min (car valeurs) pentes) 0.0) (> (max (car valeurs) pentes) 0.0))
    (list "arrondi" (car valeurs) (* 0.01 pentes))))

;; --- of a line from a station to another one

(defun plv-contraintes:etendue (contrainte / nom)
  "The stations between which a constraint holds; nil for one of the whole line."
  (setq nom (car contrainte))
  (cond
    ((member nom '("profondeur" "croisement")) (list (cadr contrainte) (caddr contrainte)))
    ((= nom "point") (list (cadr contrainte) (cadr contrainte)))))

(defun plv-optimal:contrainte-dehors (contraintes debut fin)
  "What is wrong with the first constraint beside the line; nil for none."
  (vl-some
    '(lambda (c / etendue)
       (if (and (setq etendue (plv-contraintes:etendue c)) (or (< (cadr etendue) (- debut 1e-6)) (> (car etendue) (+ fin 1e-6))))
         (strcat "la contrainte " (car c) " à la station " (plv-reel (plv-milieu etendue) 3) " n'est pas entre le départ et l'arrivée")))
    contraintes))

;; --- rows

(defun plv-contraintes:valeur (champ / mot)
  "A number, or one of the words of a slope; nil for anything else."
  (setq mot (strcase champ T))
  (if (member mot '("descend" "monte" "libre")) mot (plv-nombre champ)))

(defun plv-contrainte (ligne / champs genre contrainte)
  "The constraint of a row; a text that says what is expected for one that isn't understood."
  (setq champs (plv-optimal:sans-vides (plv-couper ligne ";"))
        genre (assoc (if (caddr champs) (strcase (caddr champs) T)) plv-contraintes:genres))
  (cond
    ((not genre) (strcat "une contrainte est attendue: station;fin;nom;valeurs, le nom étant "
                         (plv-joindre (mapcar 'car plv-contraintes:genres) ", ")))
    ((or (not (plv-contraintes:nombre-ou-vide (car champs))) (not (plv-contraintes:nombre-ou-vide (cadr champs)))
         (not (setq contrainte
                (apply (cadr genre)
                  (list (plv-nombre-station (car champs)) (plv-nombre-station (cadr champs)) (mapcar 'plv-contraintes:valeur (cdddr champs)))))))
     (strcat (caddr genre) " attendu"))
    (contrainte)))

(defun plv-contraintes:nombre-ou-vide (champ) (or (= champ "") (plv-nombre-station champ)))

(defun plv-lire-contraintes (chemin) (plv-optimal:lire-rangees chemin 'plv-contrainte "STATION;*" "aucune contrainte"))

(defun plv-demander-contraintes ()
  (plv-optimal:demander-rangees "Contrainte station;fin;nom;valeurs, ou fichier, ou rien" 'plv-contrainte 'plv-lire-contraintes))
