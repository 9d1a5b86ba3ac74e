;; The table of a line's vertices: what each has, as pairs (field . value), and the texts of it. Distances are metres from the profile's
;; origin, slopes metres by metre, rising to the right.

;; field, its word in questions, decimals, whether a user may change it, and lock it
(setq plv-rangees:champs
  '(("Station" "Station" 3 T T) ("Altitude" "Altitude" 3 T T) ("Profondeur" "Profondeur" 3 T T) ("Entree" "ENtrée" 4 T T)
    ("Sortie" "SOrtie" 4 T T) ("Longueur" "Longueur" 3 T nil) ("Rayon" "RAyon" 2 T nil) ("Raccordement" "RACcordement" 3 T nil)
    ("Forme" "FOrme" 0 T nil) ("Debut" "DÉbut" 3 T nil) ("Fin" "FIn" 3 T nil) ("Extremum" "EXtremum" 3 T nil)))

(setq plv-rangees:titres
  '("Station" "Altitude" "Profondeur" "Entrée %" "Sortie %" "Longueur" "Rayon" "Long. racc." "Forme" "Début" "Fin" "Point haut/bas"))

(defun plv-champs () (mapcar 'car plv-rangees:champs))
(defun plv-champs-verrouillables () (vl-remove-if-not '(lambda (c) (nth 4 (assoc c plv-rangees:champs))) (plv-champs)))
(defun plv-champs-modifiables () (vl-remove-if-not '(lambda (c) (cadddr (assoc c plv-rangees:champs))) (plv-champs)))
(defun plv-champ-mot (champ) (cadr (assoc champ plv-rangees:champs)))
(defun plv-champ-du-mot (mot) (car (vl-member-if '(lambda (c) (= (plv-champ-mot c) mot)) (plv-champs))))
(defun plv-champs-titres () plv-rangees:titres)
(defun plv-champ-de-raccord-p (champ) "Whether it is a value of the vertical curve." (member champ '("Rayon" "Raccordement" "Forme" "Debut" "Fin" "Extremum")))

;; --- what a vertex has

(defun plv-rangees:profondeur (sol s / z)
  (if (setq z (plv-sol-altitude sol (car s))) (- z (cadr s))))

(defun plv-rangees:extremum (avant s apres r / p1 p2 sens a1 courbe debut)
  "(distance altitude) where a vertical curve is level; nil for one that goes on rising or falling."
  (setq p1 (plv-pente avant s) p2 (plv-pente s apres) sens (if (> p2 p1) 1.0 -1.0))
  (if (< (* p1 p2) 0.0)
    (progn
      (setq courbe (plv-raccord-courbe r) debut (plv-cubique-point (car courbe)))
      (if (= (plv-partie-forme r) "P")
        (list (+ (car debut) (* (plv-longueur r) (/ p1 (- p1 p2))))
              (+ (cadr debut) (* 0.5 p1 (plv-longueur r) (/ p1 (- p1 p2)))))
        (progn
          (setq a1 (atan p1))
          (list (- (car debut) (* sens (plv-partie-rayon r) (sin a1)))
                (+ (cadr debut) (* sens (plv-partie-rayon r) (- (cos a1) 1.0)))))))))

(defun plv-rangees:rangee (sol avant s apres r)
  (list
    (cons "Station" (car s)) (cons "Altitude" (cadr s)) (cons "Profondeur" (plv-rangees:profondeur sol s))
    (cons "Entree" (if avant (plv-pente avant s))) (cons "Sortie" (if apres (plv-pente s apres)))
    (cons "Longueur" (if apres (- (car apres) (car s))))
    (cons "Rayon" (if r (plv-partie-rayon r))) (cons "Raccordement" (if r (plv-longueur r))) (cons "Forme" (if r (plv-partie-forme r)))
    (cons "Debut" (if r (plv-debut r))) (cons "Fin" (if r (plv-fin r)))
    (cons "Extremum" (if r (plv-rangees:extremum avant s apres r)))
    (cons "Verrou" (plv-verrou s)) (cons "Mesure" (if r (plv-partie-mesure r)))))

(defun plv-rangees:suite (sol suite / raccords)
  (setq raccords (plv-raccords suite))
  (mapcar '(lambda (avant s apres r) (plv-rangees:rangee sol avant s apres r))
    (cons nil suite) suite (append (cdr suite) '(nil)) (if (listp raccords) raccords (mapcar '(lambda (s) nil) suite))))

(defun plv-ligne-rangees (sol suites)
  "The rows of all vertices, run after run."
  (apply 'append (mapcar '(lambda (suite) (plv-rangees:suite sol suite)) suites)))

(defun plv-ligne-valeur (sol suites numero champ / voisins)
  "One field of a vertex."
  (setq voisins (plv-ligne-voisins suites numero))
  (plv-cle champ (plv-rangees:rangee sol (car voisins) (cadr voisins) (caddr voisins) nil)))

;; --- between vertices

(defun plv-ligne-altitude (suites d / suite raccords r)
  "Of the line with its curves; nil beside it."
  (if (setq suite (car (vl-member-if '(lambda (s) (<= (- (caar s) 1e-6) d (+ (car (plv-dernier s)) 1e-6))) suites)))
    (progn
      (setq raccords (plv-raccords suite)
            r (if (listp raccords) (car (vl-member-if '(lambda (r) (and r (< (plv-debut r) d (plv-fin r)))) raccords))))
      (if r
        (plv-cubique-z (plv-dernier (car (plv-couper-cubique (plv-raccord-courbe r) d))))
        (plv-altitude-ligne suite d)))))

;; --- as texts

(defun plv-rangee-texte (rangee champ origine / valeur decimales)
  (setq valeur (plv-cle champ rangee) decimales (caddr (assoc champ plv-rangees:champs)))
  (cond
    ((not valeur) "")
    ((= (type valeur) 'STR) valeur)
    ((= champ "Extremum")
     (strcat (plv-reel (+ origine (car valeur)) decimales) " ; " (plv-reel (cadr valeur) decimales)))
    ((member champ '("Station" "Debut" "Fin")) (plv-reel (+ origine valeur) decimales))
    ((member champ '("Entree" "Sortie")) (plv-reel (* 100.0 valeur) decimales))
    ((plv-reel valeur decimales))))

(defun plv-rangee-textes (rangee origine) (mapcar '(lambda (c) (plv-rangee-texte rangee c origine)) (plv-champs)))
