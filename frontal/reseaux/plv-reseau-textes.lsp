;; The texts of a network: pipes, manholes, drops and crossings, each where it touches neither another one nor a dimension.
;; A text is (subject layer height place ...), its subject a word for messages, a place (box words), in the order in which it likes them; the box has
;; the middle and the angle of the words.
;; Shared in the room: plv-textes-reseau:*

(defun plv-textes-reseau:place (centre hauteur texte sens)
  (list (plv-boite-au-milieu centre sens texte hauteur (* 0.6 hauteur)) texte))

(defun plv-textes-reseau:deplacee (place x y / b)
  "The place of the same words elsewhere: they are measured once."
  (setq b (car place))
  (list (vl-list* (+ (car b) x) (+ (cadr b) y) (cddr b)) (cadr place)))

(defun plv-textes-reseau:rangees (point hauteur place sens / rang places)
  "A level place at the origin, above a point for 1, beneath it for -1, further away by thirds of a row."
  (setq rang 0)
  (repeat 22
    (setq places (cons (plv-textes-reseau:deplacee place (car point) (+ (cadr point) (* sens (+ 1.1 (* 0.53 rang)) hauteur))) places) rang (1+ rang)))
  (reverse places))

(defun plv-textes-reseau:a-l-origine (hauteur texte) (plv-textes-reseau:place '(0.0 0.0) hauteur texte 0.0))

(defun plv-textes-reseau:sujet (mots station) (strcat mots " (station " (plv-reel station 2) ")"))

(defun plv-textes-reseau:dessus (sujet calque point hauteur texte sens / demi place)
  "A level text above a point for 1, beneath it for -1, one row or several away from it; else beginning or ending there."
  (setq demi (+ (* 0.5 hauteur) (* 0.5 (plv-largeur-texte texte hauteur))) place (plv-textes-reseau:a-l-origine hauteur texte))
  (vl-list* sujet calque hauteur
    (apply 'append
      (mapcar '(lambda (x) (plv-textes-reseau:rangees (list (+ (car point) x) (cadr point)) hauteur place sens)) (list 0.0 demi (- demi))))))

(defun plv-textes-reseau:le-long (sujet calque p q hauteur ecart textes / sens milieu largeur places)
  "Along a line from p to q (nil: nowhere), beneath it and above it by so much, the words that it has room for, the longest first."
  (if p (setq sens (angle p q)))
  (foreach texte (if p textes)
    (setq largeur (plv-largeur-texte texte hauteur))
    (foreach part '(0.5 0.35 0.65)
      (if (<= largeur (* 1.8 (min part (- 1.0 part)) (distance p q)))
        (progn
          (setq milieu (polar p sens (* part (distance p q)))
                places
                 (vl-list*
                   (plv-textes-reseau:place (polar milieu (+ sens (* 0.5 pi)) (+ hauteur ecart)) hauteur texte sens)
                   (plv-textes-reseau:place (polar milieu (- sens (* 0.5 pi)) hauteur) hauteur texte sens)
                   places))))))
  (vl-list* sujet calque hauteur (reverse places)))

(defun plv-textes-reseau:decale (point dy) (list (car point) (+ (cadr point) dy)))

(defun plv-textes-reseau:autour (sujet calque point demi-largeur demi-hauteur hauteur texte / largeur)
  "To the right of a thing about a point, to its left, beneath it and above it."
  (setq largeur (+ demi-largeur (* 0.5 hauteur) (* 0.5 (plv-largeur-texte texte hauteur))))
  (vl-list* sujet calque hauteur
    (append
      (mapcar '(lambda (x) (plv-textes-reseau:place (list (+ (car point) x) (cadr point)) hauteur texte 0.0)) (list largeur (- largeur)))
      (plv-premiers (plv-textes-reseau:rangees (plv-textes-reseau:decale point (- demi-hauteur)) hauteur (plv-textes-reseau:a-l-origine hauteur texte) -1) 4)
      (cdddr (plv-textes-reseau:dessus sujet calque (plv-textes-reseau:decale point demi-hauteur) hauteur texte 1)))))

;; --- writing them

(defun plv-textes-reseau:au-dessus-p (origine place / b)
  "Whether a place lies wholly above the plane that a profile of that origin stands on, and to the right of its axis."
  (setq b (car place))
  (and (> (- (cadr b) (* 0.5 (+ (* (caddr b) (abs (sin (nth 4 b)))) (* (cadddr b) (cos (nth 4 b)))))) (cadr origine))
       (> (- (car b) (* 0.5 (caddr b))) (car origine))))

(defun plv-textes-reseau:boite (e / g)
  "Of a written text."
  (setq g (entget e))
  (if (= (plv-cle 73 g) 2)
    (car (plv-textes-reseau:place (plv-cle 11 g) (plv-cle 40 g) (plv-cle 1 g) (plv-cle 50 g)))
    (plv-boite-droite (plv-boite e))))

(defun plv-boites-reseaux (profil sauf)
  "The boxes of the texts of all networks but those of a kind."
  (apply 'append
    (mapcar
      '(lambda (genre)
         (mapcar 'plv-textes-reseau:boite (vl-remove-if-not '(lambda (e) (= (plv-type e) "TEXT")) (plv-traces-reseau profil genre))))
      (vl-remove sauf (plv-genres-de-reseau profil)))))

(defun plv-textes-reseau:places (texte) (cdddr texte))

(defun plv-textes-reseau:possibles (origine texte)
  "A text with those of its places that lie on the profile."
  (append (plv-premiers texte 3) (vl-remove-if-not '(lambda (p) (plv-textes-reseau:au-dessus-p origine p)) (plv-textes-reseau:places texte))))

(defun plv-textes-reseau:ecrire-un (texte place)
  (plv-texte-au-milieu (cadr texte) (car place) (caddr texte) (cadr place) (nth 4 (car place))))

(defun plv-textes-reseau:choisir (textes obstacles) "For each text its place, or nil."
  (mapcar '(lambda (l c) (if (>= c 0) (nth c (plv-textes-reseau:places l)))) textes
    (if textes (et_placer obstacles (mapcar '(lambda (l) (mapcar 'car (plv-textes-reseau:places l))) textes)))))

(defun plv-textes-reseau:sans-place (textes places) (vl-remove nil (mapcar '(lambda (l p) (if (not p) l)) textes places)))

(defun plv-textes-reseau:repris (textes places obstacles / restes reprises)
  "With places clear of obstacles and of the others' for those that have none yet."
  (setq restes (plv-textes-reseau:sans-place textes places)
        reprises (mapcar 'cons restes (plv-textes-reseau:choisir restes (append (mapcar 'car (vl-remove nil places)) obstacles))))
  (mapcar '(lambda (l p) (cond (p) ((cdr (assoc l reprises))))) textes places))

(defun plv-textes-reseau:ecrire (profil genre textes murs / origine obstacles places)
  "Writes texts where they have room, clear of lines and of walls (boxes) where they can, and tells those that have none; tables and lists have what they
say, too."
  (setq origine (plv-origine profil)
        textes (mapcar '(lambda (l) (plv-textes-reseau:possibles origine l)) textes)
        obstacles (append (mapcar 'plv-boite-droite (append (plv-boites-cotes profil) (mapcar 'plv-boite (plv-blocs profil)))) (plv-boites-reseaux profil genre))
        places (plv-textes-reseau:choisir textes (append murs (plv-boites-lignes profil) obstacles))
        places (plv-textes-reseau:repris textes places obstacles))
  (mapcar '(lambda (l p) (if p (plv-textes-reseau:ecrire-un l p))) textes places)
  (plv-textes-reseau:dire-omis profil genre (mapcar 'car (plv-textes-reseau:sans-place textes places))))

(setq plv-textes-reseau:nommes 4)

(defun plv-textes-reseau:dire-omis (profil genre sujets)
  "How many texts are left out, and the first of them."
  (if sujets
    (plv-dire (strcat "Profil " (plv-numero-profil profil) ": " (plv-compte (length sujets) "texte") " du réseau " genre " sans place: "
                      (plv-joindre (plv-premiers sujets plv-textes-reseau:nommes) ", ")
                      (if (> (length sujets) plv-textes-reseau:nommes) ", ..." ".")))))
