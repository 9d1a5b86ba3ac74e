;; Poses: dimensions by what they say and where they are put, whether they stand in the drawing or would be written. What is worked out
;; for the ones holds for the others, so that it is known without drawing anything where dimensions made anew would stand.
;; A box is (x1 y1 x2 y2), what an entity covers.

;; --- a pose is (curve altitude-p point words rotation height box dimension), the box nil until it is asked for, the dimension nil while it
;; isn't drawn

(defun plv-pose (courbe altitude-p point mots rotation hauteur cote) (list courbe altitude-p point mots rotation hauteur nil cote))
(defun plv-pose-courbe (pose) (car pose))
(defun plv-pose-altitude-p (pose) (cadr pose))
(defun plv-pose-point (pose) (caddr pose))
(defun plv-pose-mots (pose) (cadddr pose))
(defun plv-pose-rotation (pose) (nth 4 pose))
(defun plv-pose-hauteur (pose) (nth 5 pose))
(defun plv-pose-boite (pose) (nth 6 pose))
(defun plv-pose-cote (pose) (nth 7 pose))

(defun plv-pose-de (cote / g)
  "The pose of a dimension of the drawing."
  (setq g (entget cote))
  (plv-pose (plv-cote-courbe cote) (plv-cote-altitude-p cote) (plv-cle 11 g) (plv-cle 1 g) (plv-cle 50 g) (plv-cle 40 g) cote))

(defun plv-pose-abscisse (pose) (car (plv-pose-point pose)))

(defun plv-poses:avec (pose point boite)
  (append (plv-premiers pose 2) (list point) (plv-premiers (cdddr pose) 3) (list boite (plv-pose-cote pose))))

;; --- what a text covers that isn't drawn: the module's are narrow, an altitude stands by its middle, a height begins at its point

(setq plv-poses:largeur 0.8)

(defun plv-poses:cadre (pose)
  "Two corners of the text of a pose, from the point by which it is placed, before it is turned."
  (mapcar '(lambda (coin) (list (car coin) (- (cadr coin) (* 0.5 (plv-pose-hauteur pose)))))
    (textbox
      (list (cons 1 (plv-pose-mots pose)) (cons 40 (plv-pose-hauteur pose)) (cons 41 plv-poses:largeur)
            (cond ((car (plv-style-de-texte))) ((cons 7 (getvar "TEXTSTYLE"))))))))

(defun plv-poses:au-point (cadre pose / milieu)
  (setq milieu (if (plv-pose-altitude-p pose) (* 0.5 (+ (caar cadre) (caadr cadre))) 0.0))
  (mapcar '(lambda (coin) (list (- (car coin) milieu) (cadr coin))) cadre))

(defun plv-poses:tournee (cadre pose / c s coins)
  "The upright box around a frame that is turned about the point of a pose."
  (setq c (cos (plv-pose-rotation pose)) s (sin (plv-pose-rotation pose))
        coins (mapcar '(lambda (x y) (list (+ (car (plv-pose-point pose)) (- (* c x) (* s y))) (+ (cadr (plv-pose-point pose)) (* s x) (* c y))))
                (list (caar cadre) (caadr cadre) (caadr cadre) (caar cadre)) (list (cadar cadre) (cadar cadre) (cadadr cadre) (cadadr cadre))))
  (list (apply 'min (mapcar 'car coins)) (apply 'min (mapcar 'cadr coins)) (apply 'max (mapcar 'car coins)) (apply 'max (mapcar 'cadr coins))))

(defun plv-poses:etendue (pose)
  (if (plv-pose-cote pose) (plv-boite (plv-pose-cote pose)) (plv-poses:tournee (plv-poses:au-point (plv-poses:cadre pose) pose) pose)))

(defun plv-poses:avec-boite (pose)
  (if (plv-pose-boite pose) pose (plv-poses:avec pose (plv-pose-point pose) (plv-poses:etendue pose))))

(defun plv-poses:montee (pose dy / point boite)
  "A pose that goes up, its box with it."
  (setq point (plv-pose-point pose) boite (plv-pose-boite pose))
  (plv-poses:avec pose (list (car point) (+ (cadr point) dy)) (list (car boite) (+ (cadr boite) dy) (caddr boite) (+ (cadddr boite) dy))))

;; --- room

(defun plv-poses:se-genent-p (a dy b ecart)
  "Whether box a, moved up, is closer to box b than a gap."
  (and (< (car a) (caddr b)) (< (car b) (caddr a))
       (< (+ (cadr a) dy) (+ (cadddr b) ecart -1e-6)) (< (cadr b) (+ (cadddr a) dy ecart -1e-6))))

(defun plv-poses:place-libre (boite boites ecart / dy genante)
  "How far a box must go up to stand a gap away from all others."
  (setq dy 0.0)
  (while (setq genante (car (vl-member-if '(lambda (b) (plv-poses:se-genent-p boite dy b ecart)) boites)))
    (setq dy (+ (- (plv-boite-haut genante) (cadr boite)) ecart)))
  dy)

;; --- the two rows of a kind of line: heights over the curve and the ground, altitudes over everything

(defun plv-poses:dessus (cadre points courbe boite / a b y)
  "The top of the ground and of a curve between the sides of a box."
  (setq a (max (plv-distance cadre boite) (caar points))
        b (min (- (caddr boite) (car (plv-cadre-origine cadre))) (car (plv-dernier points)))
        y (vl-remove nil (mapcar '(lambda (d) (pl_yat courbe (plv-abscisse cadre d))) (list a b))))
  (apply 'max
    (append (list (cadr (plv-cadre-origine cadre))) y
      (if (< a b) (mapcar '(lambda (p) (cadr (plv-vers-dessin cadre (car p) (cadr p)))) (plv-ligne-entre points a b))))))

(defun plv-poses:hauteur-rangee (cadre points pose boites ttxt / boite sol)
  "A height a text height over the ground and its curve, and clear of the boxes."
  (setq boite (plv-pose-boite pose) sol (plv-poses:dessus cadre points (plv-pose-courbe pose) boite))
  (plv-poses:montee pose
    (plv-poses:place-libre boite (cons (list (car boite) (cadr (plv-cadre-origine cadre)) (caddr boite) sol) boites) ttxt)))

(defun plv-poses:ligne-des-altitudes (profil rangee sous boites ttxt / place)
  "The ordinate of the line on which altitudes stand, given their boxes: over the ground and the boxes under them, and clear of the others."
  (setq sous (apply 'max (cons (+ (cadr (plv-origine profil)) (plv-hauteur-profil profil)) (mapcar 'plv-boite-haut sous)))
        place (list (apply 'min (mapcar 'car rangee)) (+ sous ttxt) (apply 'max (mapcar 'caddr rangee))
                    (+ sous ttxt (apply 'max (mapcar '(lambda (b) (- (cadddr b) (cadr b))) rangee)))))
  (+ (* 0.5 (+ (cadr place) (cadddr place))) (plv-poses:place-libre place boites ttxt)))

(defun plv-poses:ranger-hauteurs (profil poses mienne-p boites / cadre points ttxt)
  (setq cadre (plv-cadre profil) points (plv-points-tn profil) ttxt (plv-ttxt profil))
  (mapcar
    '(lambda (p)
       (if (and (apply mienne-p (list p)) (not (plv-pose-altitude-p p))) (plv-poses:hauteur-rangee cadre points p boites ttxt) p))
    poses))

(defun plv-poses:ranger-altitudes (profil poses mienne-p elements boites / miennes y)
  (setq miennes (vl-remove-if-not mienne-p poses))
  (if (setq y (vl-remove-if-not 'plv-pose-altitude-p miennes))
    (progn
      (setq y (plv-poses:ligne-des-altitudes profil (mapcar 'plv-pose-boite y)
                (append (mapcar 'plv-pose-boite (vl-remove-if 'plv-pose-altitude-p miennes)) (mapcar 'plv-boite elements))
                boites (plv-ttxt profil)))
      (mapcar
        '(lambda (p) (if (and (plv-pose-altitude-p p) (apply mienne-p (list p))) (plv-poses:montee p (- y (cadr (plv-pose-point p)))) p))
        poses))
    poses))

(defun plv-poses-rangees (profil genre poses hauteurs-p / elements mienne-p boites)
  "Poses, in their order, with those of a kind where they are clear of the ground, of their curves, of the other kinds' and of the words
of blocks; hauteurs-p: the heights too, not only the altitudes. Those whose curve is gone are in nobody's way."
  (setq elements (plv-elements profil genre)
        mienne-p '(lambda (p) (and (plv-pose-courbe p) (member (plv-pose-courbe p) elements))))
  (if (vl-some mienne-p poses)
    (progn
      (setq poses (mapcar 'plv-poses:avec-boite poses)
            boites (append (mapcar 'plv-pose-boite (vl-remove-if '(lambda (p) (or (not (plv-pose-courbe p)) (member (plv-pose-courbe p) elements))) poses))
                           (plv-boites-attributs profil)))
      (plv-poses:ranger-altitudes profil
        (if hauteurs-p (plv-poses:ranger-hauteurs profil poses mienne-p boites) poses)
        mienne-p elements boites))
    poses))
