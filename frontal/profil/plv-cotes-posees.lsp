;; Dimensions that stand on a profile: texts that name the profile and the curve that they belong to, so that they can be
;; replaced, go with their curve, and stay clear of each other, of the curve and of the ground.
;; A box is (x1 y1 x2 y2), what an entity covers.

(setq plv-posees:cle-profil "COTEPROFIL" plv-posees:cle-courbe "COTEDE")

(defun plv-noter-cotes (textes profil courbe)
  (foreach e textes
    (plv-ecrire-cles e (list (list plv-posees:cle-profil profil) (list plv-posees:cle-courbe courbe)))
    (plv-noter-place-cote profil e)))

(defun plv-cotes-du-profil (profil)
  (vl-remove-if-not '(lambda (e) (eq (plv-nommee e plv-posees:cle-profil) profil))
    (plv-entites-du-jeu (ssget "X" (list '(0 . "TEXT") (list -3 (list plv-app-cles)))))))

(defun plv-cote-courbe (cote)
  "The curve of a dimension; nil when it is gone."
  (plv-nommee cote plv-posees:cle-courbe))

(defun plv-cote-altitude-p (cote)
  "T for an altitude, nil for a height over the ground: the module centres the ones and begins the others at their point."
  (= (plv-cle 72 (entget cote)) 4))

(defun plv-cote-point (cote) (plv-cle 11 (entget cote)))

;; --- erasing

(defun plv-posees:groupes (cotes)
  "The groups that hold them."
  (vl-remove-if-not '(lambda (e) (and (plv-existe e) (= (plv-type e) "GROUP")))
    (plv-uniques (apply 'append (mapcar '(lambda (c) (plv-cles 330 (entget c))) cotes)))))

(defun plv-effacer-cotes (cotes / groupes)
  "Erases dimensions, and the groups that are left empty."
  (setq groupes (plv-posees:groupes cotes))
  (plv-effacer cotes)
  (plv-effacer (vl-remove-if '(lambda (g) (vl-some 'plv-existe (plv-cles 340 (entget g)))) groupes)))

(defun plv-effacer-courbes (profil courbes)
  "Erases curves with their dimensions."
  (plv-effacer-cotes (vl-remove-if-not '(lambda (c) (member (plv-cote-courbe c) courbes)) (plv-cotes-du-profil profil)))
  (plv-effacer courbes)
  (plv-presenter-sans-effacees profil))

;; --- room

(defun plv-boite (entite / coins)
  (setq coins (etendue-tracee (list entite)))
  (list (caar coins) (cadar coins) (caadr coins) (cadadr coins)))

(defun plv-etendue-courbe (profil entite / boite)
  "From where to where along a profile a curve goes."
  (setq boite (plv-boite entite))
  (list (- (car boite) (car (plv-origine profil))) (- (caddr boite) (car (plv-origine profil)))))

(defun plv-refus-place (profil etendue)
  "The text for a curve beside the profile; nil for one that lies on it."
  (if (not (and (< (plv-debut etendue) (plv-longueur-profil profil)) (> (plv-fin etendue) 0.0)))
    "cette courbe n'est pas sur le profil"))

(defun plv-refus-plans (profil etendue)
  "The text for a curve over several planes; nil for one whose altitudes have one sense."
  (if (not (plv-plan-de (plv-plans profil) (plv-debut etendue) (plv-fin etendue)))
    "cette courbe passe par plusieurs plans de comparaison: PLV-REPORT la coupe là où ils changent"))

(defun plv-refus-situation (profil entite / etendue)
  "Why a picked entity can't be read as a line of a profile; nil when it can."
  (cond
    ((plv-refus-courbe entite))
    ((plv-refus-place profil (setq etendue (plv-etendue-courbe profil entite))))
    ((plv-refus-plans profil etendue))))

(defun plv-boite-haut (boite) (cadddr boite))

(defun plv-petit (profil) "The height of small texts: 1.8 mm where usual ones have 2.5." (* 0.72 (plv-ttxt profil)))

;; Upright or slanting boxes are (x y width height angle) by their middle, as et_placer takes them.

(defun plv-boite-droite (b)
  "The upright box of a box (x1 y1 x2 y2)."
  (list (* 0.5 (+ (car b) (caddr b))) (* 0.5 (+ (cadr b) (plv-boite-haut b))) (- (caddr b) (car b)) (- (plv-boite-haut b) (cadr b)) 0.0))

(defun plv-boites-cotes (profil) (mapcar 'plv-boite (plv-cotes-du-profil profil)))

(defun plv-posees:se-genent-p (a dy b ecart)
  "Whether box a, moved up, is closer to box b than a gap."
  (and (< (car a) (caddr b)) (< (car b) (caddr a))
       (< (+ (cadr a) dy) (+ (cadddr b) ecart -1e-6)) (< (cadr b) (+ (cadddr a) dy ecart -1e-6))))

(defun plv-posees:montee (boite boites ecart / dy genante)
  "How far a box must go up to stand a gap away from all others."
  (setq dy 0.0)
  (while (setq genante (car (vl-member-if '(lambda (b) (plv-posees:se-genent-p boite dy b ecart)) boites)))
    (setq dy (+ (- (plv-boite-haut genante) (cadr boite)) ecart)))
  dy)

(defun plv-posees:monter (cote dy)
  (if (/= dy 0.0)
    (progn
      (plv-deplacer-texte cote (list 0.0 dy))
      (plv-monter-place-cote cote dy))))

;; --- the two rows of a kind of line: heights over the curve and the ground, altitudes over everything

(defun plv-posees:dessus (cadre points courbe boite / a b y)
  "The top of the ground and of a curve between the sides of a box."
  (setq a (max (plv-distance cadre boite) (caar points))
        b (min (- (caddr boite) (car (plv-cadre-origine cadre))) (car (plv-dernier points)))
        y (vl-remove nil (mapcar '(lambda (d) (pl_yat courbe (plv-abscisse cadre d))) (list a b))))
  (apply 'max
    (append (list (cadr (plv-cadre-origine cadre))) y
      (if (< a b) (mapcar '(lambda (p) (cadr (plv-vers-dessin cadre (car p) (cadr p)))) (plv-ligne-entre points a b))))))

(defun plv-posees:ranger-hauteurs (cadre points hauteurs boites ttxt / boite sol)
  "Each height a text height over the ground and its curve, and clear of the boxes."
  (foreach c hauteurs
    (setq boite (plv-boite c) sol (plv-posees:dessus cadre points (plv-cote-courbe c) boite))
    (plv-posees:monter c
      (plv-posees:montee boite (cons (list (car boite) (cadr (plv-cadre-origine cadre)) (caddr boite) sol) boites) ttxt))))

(defun plv-posees:ranger-altitudes (profil altitudes sous boites ttxt / rangee place)
  "The altitudes on one line, over the ground and what stands under them, and clear of the boxes."
  (setq rangee (mapcar 'plv-boite altitudes)
        sous (apply 'max (cons (+ (cadr (plv-origine profil)) (plv-hauteur-profil profil)) (mapcar '(lambda (e) (plv-boite-haut (plv-boite e))) sous)))
        place (list (apply 'min (mapcar 'car rangee)) (+ sous ttxt) (apply 'max (mapcar 'caddr rangee))
                    (+ sous ttxt (apply 'max (mapcar '(lambda (b) (- (cadddr b) (cadr b))) rangee))))
        place (+ (* 0.5 (+ (cadr place) (cadddr place))) (plv-posees:montee place boites ttxt)))
  (foreach c altitudes (plv-posees:monter c (- place (cadr (plv-cote-point c))))))

(defun plv-posees:rangees (profil genre ranger-hauteurs-p / elements cotes miennes hauteurs boites)
  (setq elements (plv-elements profil genre)
        cotes (vl-remove-if-not 'plv-cote-courbe (plv-cotes-du-profil profil))
        miennes (vl-remove-if-not '(lambda (c) (member (plv-cote-courbe c) elements)) cotes)
        boites (append (mapcar 'plv-boite (vl-remove-if '(lambda (c) (member c miennes)) cotes)) (plv-boites-attributs profil))
        hauteurs (vl-remove-if 'plv-cote-altitude-p miennes))
  (if (and hauteurs ranger-hauteurs-p)
    (plv-posees:ranger-hauteurs (plv-cadre profil) (plv-points-tn profil) hauteurs boites (plv-ttxt profil)))
  (if (setq miennes (vl-remove-if-not 'plv-cote-altitude-p miennes))
    (plv-posees:ranger-altitudes profil miennes (append hauteurs elements) boites (plv-ttxt profil))))

(defun plv-ranger-cotes (profil genre)
  "Dimensions of the curves of a kind where they are clear of the ground, of their curves, of the other kinds' and of the words of blocks."
  (plv-posees:rangees profil genre T))

(defun plv-ranger-altitudes (profil)
  "The rows of altitudes of all kinds, after a change of plane: heights have moved with the ground and their curves."
  (foreach genre (plv-genres) (plv-posees:rangees profil genre nil)))
