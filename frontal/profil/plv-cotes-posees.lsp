;; Dimensions that stand on a profile: texts that name the profile and the curve that they belong to, so that they can be
;; replaced, go with their curve, and stay clear of each other, of the curve and of the ground.
;; A box is (x1 y1 x2 y2), what an entity covers.

(setq plv-posees:cle-profil "COTEPROFIL" plv-posees:cle-courbe "COTEDE")

(defun plv-noter-cotes (textes profil courbe)
  (foreach e textes
    (plv-ecrire-cles e (list (list plv-posees:cle-profil profil) (list plv-posees:cle-courbe courbe)))
    (plv-noter-place-cote profil e)))

(defun plv-cotes-du-profil (profil)
  "Latest first."
  (plv-lire-une-fois (list "cotes" profil)
    '(lambda ()
       (vl-remove-if-not '(lambda (e) (eq (plv-nommee e plv-posees:cle-profil) profil))
         (plv-entites-du-jeu (ssget "X" (list '(0 . "TEXT") (list -3 (list plv-app-cles)))))))))

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

(defun plv-posees:monter (cote dy)
  (if (/= dy 0.0)
    (progn
      (plv-deplacer-texte cote (list 0.0 dy))
      (plv-monter-place-cote cote dy))))

;; --- the two rows of a kind of line, see plv-poses

(defun plv-posees:rangees (profil genre hauteurs-p / poses)
  (setq poses (mapcar 'plv-pose-de (plv-cotes-du-profil profil)))
  (mapcar '(lambda (avant apres) (plv-posees:monter (plv-pose-cote avant) (- (cadr (plv-pose-point apres)) (cadr (plv-pose-point avant)))))
    poses (plv-poses-rangees profil genre poses hauteurs-p)))

(defun plv-ranger-cotes (profil genre)
  "Dimensions of the curves of a kind where they are clear of the ground, of their curves, of the other kinds' and of the words of blocks."
  (plv-posees:rangees profil genre T))

(defun plv-ranger-altitudes (profil)
  "The rows of altitudes of all kinds, after a change of plane: heights have moved with the ground and their curves."
  (foreach genre (plv-genres) (plv-posees:rangees profil genre nil)))
