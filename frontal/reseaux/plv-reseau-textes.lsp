;; The texts of a network: pipes, manholes, drops and crossings, each where it touches neither another one nor a dimension.
;; A text is (layer height place ...), a place (box words), in the order in which it likes them; the box has the middle and the angle of the words.
;; Shared in the room: plv-textes-reseau:*

(defun plv-textes-reseau:place (centre hauteur texte sens)
  (list (list (car centre) (cadr centre) (+ (plv-largeur-texte texte hauteur) (* 0.6 hauteur)) (* 1.5 hauteur) sens) texte))

(defun plv-textes-reseau:rangees (point hauteur texte sens / rang places)
  (setq rang 0)
  (repeat 8
    (setq places (cons (plv-textes-reseau:place (polar point (* 0.5 pi) (* sens (+ 1.1 (* 1.6 rang)) hauteur)) hauteur texte 0.0) places) rang (1+ rang)))
  (reverse places))

(defun plv-textes-reseau:dessus (calque point hauteur texte sens / demi)
  "A level text above a point for 1, beneath it for -1, one row or several away from it; else beginning or ending there."
  (setq demi (+ (* 0.5 hauteur) (* 0.5 (plv-largeur-texte texte hauteur))))
  (vl-list* calque hauteur
    (apply 'append
      (mapcar '(lambda (x) (plv-textes-reseau:rangees (list (+ (car point) x) (cadr point)) hauteur texte sens)) (list 0.0 demi (- demi))))))

(defun plv-textes-reseau:le-long (calque p q hauteur ecart textes / sens milieu largeur places)
  "Along a line from p to q, beneath it and above it by so much, the words that it has room for, the longest first."
  (setq sens (angle p q))
  (foreach texte textes
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
  (if places (vl-list* calque hauteur (reverse places))))

(defun plv-textes-reseau:autour (calque point demi hauteur texte / largeur)
  "To the right of a point, to its left, above and beneath it, half a width away."
  (setq largeur (+ demi (* 0.5 hauteur) (* 0.5 (plv-largeur-texte texte hauteur))))
  (vl-list* calque hauteur
    (append
      (mapcar '(lambda (x) (plv-textes-reseau:place (list (+ (car point) x) (cadr point)) hauteur texte 0.0)) (list largeur (- largeur)))
      (cddr (plv-textes-reseau:dessus calque point hauteur texte 1)))))

;; --- writing them

(defun plv-textes-reseau:au-dessus-p (profil place / b)
  "Whether a place lies wholly above the plane that the profile stands on, and to the right of its axis."
  (setq b (car place))
  (and (> (- (cadr b) (* 0.5 (+ (* (caddr b) (abs (sin (nth 4 b)))) (* (cadddr b) (cos (nth 4 b)))))) (cadr (plv-origine profil)))
       (> (- (car b) (* 0.5 (caddr b))) (car (plv-origine profil)))))

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

(defun plv-textes-reseau:ecrire (profil genre textes / choix)
  "Writes texts where they have room. What a table and the lists say as well is left out where there is none."
  (setq textes
    (vl-remove-if-not 'cddr
      (mapcar '(lambda (l) (vl-list* (car l) (cadr l) (vl-remove-if-not '(lambda (p) (plv-textes-reseau:au-dessus-p profil p)) (cddr l))))
        (vl-remove nil textes))))
  (if textes
    (setq choix
      (et_placer (append (mapcar 'plv-boite-droite (append (plv-boites-cotes profil) (mapcar 'plv-boite (plv-blocs profil)))) (plv-boites-reseaux profil genre))
        (mapcar '(lambda (l) (mapcar 'car (cddr l))) textes))))
  (mapcar
    '(lambda (l c / place)
       (if (>= c 0)
         (progn
           (setq place (nth c (cddr l)))
           (plv-texte-au-milieu (car l) (car place) (cadr l) (cadr place) (nth 4 (car place))))))
    textes choix))
