;; Labels put where they don't touch: along their line first, then in rows above the profile, with leaders.
;; Shared in the room: plv-libelles:*

(defun plv-libelles:choisir (libelles obstacles)
  "For each label its place, or nil."
  (mapcar '(lambda (l c) (if (>= c 0) (nth c (plv-libelles:places l)))) libelles
    (if libelles (et_placer obstacles (mapcar '(lambda (l) (mapcar 'car (plv-libelles:places l))) libelles)))))

(defun plv-libelles:ecrire-le-long (profil place)
  "The text of a place, its middle on that of the box."
  (plv-texte-au-milieu "PLV-LIBELLES" (car place) (plv-ttxt profil) (cadr place) (caddr place)))

(defun plv-libelles:le-long (profil libelles obstacles lignes / choix places restes)
  "Labels along their lines, clear of lines and texts, then of texts alone; (what is left obstacles)."
  (foreach genes (list (append obstacles lignes) nil)
    (setq genes (cond (genes) (obstacles))
          choix (plv-libelles:choisir libelles (append genes places))
          restes (vl-remove nil (mapcar '(lambda (l c) (if (not c) l)) libelles choix)))
    (foreach c (vl-remove nil choix)
      (plv-libelles:ecrire-le-long profil c)
      (setq places (cons (car c) places)))
    (setq libelles restes obstacles (append places obstacles)))
  (list restes obstacles))

;; --- rows above

(defun plv-libelles:largeur (profil libelle)
  (+ (plv-ttxt profil) (apply 'max (mapcar '(lambda (texte) (plv-largeur-texte texte (plv-petit profil))) (plv-libelles:lignes libelle)))))

(defun plv-libelles:hauteur (profil libelle) (* 1.6 (plv-petit profil) (length (plv-libelles:lignes libelle))))

(defun plv-libelles:sommet (profil / boites)
  "The top of what stands on a profile."
  (setq boites (append (mapcar 'plv-boite (plv-blocs profil)) (plv-boites-cotes profil)
                 (apply 'append (mapcar '(lambda (g) (mapcar 'plv-boite (plv-elements profil g))) (plv-genres-projet)))))
  (apply 'max
    (cons (+ (cadr (plv-origine profil)) (plv-fond:hauteur profil))
      (append (mapcar 'plv-boite-haut boites) (plv-hauts-reseaux profil)))))

(defun plv-libelles:renvoi (ancre x y coude h / bas)
  "The points of a leader from its place to y: upwards and slanting; beneath a legend upwards, level at the bend, upwards."
  (setq bas (list (car ancre) (+ (cadr ancre) (* 0.4 h))) y (- y (* 0.4 h)))
  (if coude
    (list bas (list (car ancre) coude) (list x coude) (list x y))
    (list bas (list (car ancre) (- y (* 1.8 h))) (list x y))))

(defun plv-libelles:genes (profil)
  "(left right bottom top) of level words and dimensions, the lowest first: a leader that comes up to one goes on above it."
  (vl-sort
    (mapcar '(lambda (b) (list (- (car b) (* 0.5 (caddr b))) (+ (car b) (* 0.5 (caddr b))) (- (cadr b) (* 0.5 (cadddr b))) (+ (cadr b) (* 0.5 (cadddr b)))))
      (vl-remove-if-not '(lambda (b) (equal (nth 4 b) 0.0 1e-9)) (append (mapcar 'plv-boite-droite (plv-boites-cotes profil)) (plv-boites-reseaux profil nil))))
    '(lambda (a b) (< (caddr a) (caddr b)))))

(defun plv-libelles:tracer-renvoi (points genes jeu / x y haut)
  "A leader through points, its first piece upright and broken at words."
  (setq x (caar points) y (cadar points) haut (cadadr points))
  (foreach g genes
    (if (and (< (- (car g) jeu) x (+ (cadr g) jeu)) (< y (+ (cadddr g) jeu)) (> haut (- (caddr g) jeu)))
      (progn
        (if (< y (- (caddr g) jeu)) (plv-polyligne "PLV-LIBELLES" (list (list x y) (list x (- (caddr g) jeu)))))
        (setq y (+ (cadddr g) jeu)))))
  (plv-polyligne "PLV-LIBELLES" (if (< y haut) (cons (list x y) (cdr points)) (cdr points))))

(defun plv-libelles:ecrire-dessus (profil libelle x y coude genes / h)
  "The lines of a label from y upwards, and its leader; bend: an ordinate, or nil."
  (setq h (plv-petit profil))
  (plv-libelles:tracer-renvoi (plv-libelles:renvoi (plv-libelles:ancre libelle) x y coude h) genes (* 0.3 h))
  (foreach texte (reverse (plv-libelles:lignes libelle))
    (plv-texte "PLV-LIBELLES" (plv-point x y) h texte 1 0.0)
    (setq y (+ y (* 1.6 h)))))

(defun plv-libelles:ecarter (profil libelles gauche droite)
  "(row middle) of each label between two abscissas; nil without room."
  (et_ecarter (mapcar '(lambda (l) (list (float (car (plv-libelles:ancre l))) (float (plv-libelles:largeur profil l)))) libelles)
    (float gauche) (float droite)))

(defun plv-libelles:pas (profil libelles)
  "From a row to the next one."
  (+ (* 2.5 (plv-petit profil)) (apply 'max (mapcar '(lambda (l) (plv-libelles:hauteur profil l)) libelles))))

(defun plv-libelles:haut (y pas places) "The top of rows." (+ y (* pas (1+ (apply 'max (mapcar 'car places))))))

(defun plv-libelles:genantes (profil bas haut / x0)
  "The boxes of legends over the profile that reach a band of ordinates."
  (setq x0 (car (plv-origine profil)))
  (vl-remove-if-not
    '(lambda (b) (and (< (cadr b) haut) (> (plv-boite-haut b) bas) (< (car b) (+ x0 (plv-longueur-profil profil))) (> (caddr b) x0)))
    (mapcar 'plv-boite (plv-legendes-du-profil profil))))

(defun plv-libelles:cote-libre (profil boites / x0 fin gauche droite)
  "The wider stretch beside boxes, left or right of all of them: (from to)."
  (setq x0 (car (plv-origine profil)) fin (+ x0 (plv-longueur-profil profil))
        gauche (list x0 (- (apply 'min (mapcar 'car boites)) (plv-ttxt profil)))
        droite (list (+ (apply 'max (mapcar 'caddr boites)) (plv-ttxt profil)) fin))
  (if (> (plv-longueur gauche) (plv-longueur droite)) gauche droite))

(defun plv-libelles:rangees (profil libelles / x0 pas y places genantes cote)
  "(lowest-row step places bend-of-leaders) of labels above the profile: beside legends that stand there, where they have room, else over them."
  (setq x0 (car (plv-origine profil)) pas (plv-libelles:pas profil libelles)
        y (+ (plv-libelles:sommet profil) (* 4.0 (plv-petit profil)))
        places (plv-libelles:ecarter profil libelles x0 (+ x0 (plv-longueur-profil profil)))
        genantes (if places (plv-libelles:genantes profil y (plv-libelles:haut y pas places))))
  (if genantes
    (progn
      (setq cote (plv-libelles:cote-libre profil genantes))
      (if (setq cote (plv-libelles:ecarter profil libelles (plv-debut cote) (plv-fin cote)))
        (setq places cote)
        (setq y (+ (apply 'max (mapcar 'plv-boite-haut genantes)) (* 4.0 (plv-petit profil)))))))
  (if places
    (list y pas places (if genantes (- (apply 'min (cons y (mapcar 'cadr genantes))) (* 2.5 (plv-petit profil)))))))

(defun plv-libelles:dessus (profil libelles / rangees genes)
  "Labels in rows above the profile; the top of them, nil when they have no room."
  (if (setq rangees (plv-libelles:rangees profil libelles))
    (progn
      (setq genes (plv-libelles:genes profil))
      (mapcar
        '(lambda (l p) (plv-libelles:ecrire-dessus profil l (cadr p) (+ (car rangees) (* (cadr rangees) (car p))) (cadddr rangees) genes))
        libelles (caddr rangees))
      (plv-libelles:haut (car rangees) (cadr rangees) (caddr rangees)))))

(defun plv-poser-libelles (profil libelles obstacles lignes / fait haut)
  "Draws labels; the top of those above the profile, nil for none."
  (setq fait (if libelles (plv-libelles:le-long profil libelles obstacles lignes)))
  (if (car fait)
    (progn
      (setq haut (plv-libelles:dessus profil (car fait)))
      (if (not haut)
        (plv-dire (strcat "Profil " (plv-numero-profil profil) ": " (plv-compte (length (car fait)) "libellé") " sans place, le profil est trop court pour "
                          (if (cdr (car fait)) "leurs textes." "son texte."))))))
  haut)
