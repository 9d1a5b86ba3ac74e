;; What makes a profile readable: title, axis with its altitudes, names of the planes, breaks between sections.
;; Heights of texts and gaps are multiples of the profile's text height.

(defun plv-habillage:y-titre (profil point hauteur ttxt)
  "The title's line: room for the labels of blocks between axis and title, and it stands above all dimensions."
  (apply 'max
    (cons (+ (cadr point) hauteur (* 12.0 ttxt))
          (mapcar '(lambda (b) (+ (plv-boite-haut b) (* 4.0 ttxt))) (plv-boites-cotes profil)))))

(defun plv-habillage:titre (profil point hauteur ttxt longueur echv / y largeur)
  "The title above the axis: the profile's own attributes are moved there, the number to the right of the words."
  (setq y (plv-habillage:y-titre profil point hauteur ttxt)
        largeur (plv-largeur-texte (strcat plv-profil:titre " ") (* 1.4 ttxt)))
  (plv-habillage:placer profil "TITRE" (plv-point (car point) y))
  (plv-habillage:placer profil "NUMPL" (plv-point (+ (car point) largeur (* 1.4 ttxt)) y))
  (plv-texte "PLV-TITRES" (plv-point (car point) (- y (* 2.0 ttxt))) (* 0.8 ttxt)
    (strcat "Longueur " (plv-reel longueur 2) " m - hauteurs multipliées par " (plv-reel echv 1)) 0 0.0))

(defun plv-habillage:placer (profil etiquette point / groupes)
  (if (setq groupes (plv-attribut-profil profil etiquette))
    (entmod (subst (cons 10 point) (assoc 10 groupes) groupes))))

(setq plv-habillage:graduations '(0.1 0.2 0.5 1.0 2.0 5.0 10.0 20.0 50.0 100.0))

(setq plv-habillage:plus-de-traits 500)

(defun plv-habillage:pas (hauteur echv ttxt / pas)
  "The step of graduations in metres: room for three text heights, and no more than a bounded number of them."
  (setq pas (cond ((car (vl-member-if '(lambda (p) (>= (* p echv) (* 3.0 ttxt))) plv-habillage:graduations)))
                  ((plv-dernier plv-habillage:graduations))))
  (while (> (/ hauteur (* pas echv)) plv-habillage:plus-de-traits) (setq pas (* 10.0 pas)))
  pas)

(defun plv-graduations (hauteur ttxt echv plan y0 / pas altitude y decimales graduations)
  "The graduations of an axis from y0 over a plane: (y . altitude as a text), upwards."
  (setq pas (plv-habillage:pas hauteur echv ttxt)
        decimales (if (< pas 1.0) 1 0)
        altitude (* pas (float (plv-partie-entiere (/ (+ (plv-plan-altitude plan) (* 0.5 pas)) pas)))))
  (while (<= (setq altitude (+ altitude pas) y (plv-ordonnee altitude plan echv y0)) (+ y0 hauteur 1e-6))
    (setq graduations (cons (cons y (plv-reel altitude decimales)) graduations)))
  (reverse graduations))

(defun plv-hauteur-axe (points echv ttxt plans) "Of the axes of a profile." (+ (plv-hauteur-terrain points echv plans) ttxt))

(defun plv-habillage:axe (point hauteur ttxt echv plan etiquettes / x y)
  "A graduated axis at the start of a section."
  (setq x (+ (car point) (plv-plan-debut plan)))
  (plv-ligne "PLV-AXE" (plv-point x (cadr point)) (plv-point x (+ (cadr point) hauteur)))
  (foreach graduation (plv-graduations hauteur ttxt echv plan (cadr point))
    (setq y (car graduation))
    (plv-ligne "PLV-AXE" (plv-point (- x (* 0.4 ttxt)) y) (plv-point x y))
    (if etiquettes
      (plv-texte "PLV-AXE" (plv-point (- x (* 0.8 ttxt)) (- y (* 0.4 ttxt))) (* 0.8 ttxt) (cdr graduation) 2 0.0))))

(defun plv-habillage:nom-plan (point ttxt plan)
  (plv-texte "PLV-PLANS" (plv-point (+ (car point) (plv-plan-debut plan) (* 0.5 ttxt)) (- (cadr point) (* 1.5 ttxt)))
    ttxt (strcat "PC " (plv-reel (plv-plan-altitude plan) 2)) 0 0.0))

(defun plv-habillage:dessiner (profil point points echv ttxt plans / hauteur)
  (setq hauteur (plv-hauteur-axe points echv ttxt plans))
  (foreach plan plans
    (plv-habillage:axe point hauteur ttxt echv plan (eq plan (car plans)))
    (plv-habillage:nom-plan point ttxt plan))
  (plv-habillage:titre profil point hauteur ttxt (car (plv-dernier points)) echv))

(setq plv-habillage:cle "PLV_HABILLAGE")

(defun plv-entites-habillage (profil) (plv-entites-enregistrees profil plv-habillage:cle))

(defun plv-habiller-profil (profil point points echv ttxt plans)
  "Draws the dressing in place of an earlier one; what is drawn is listed with the profile."
  (plv-effacer (plv-entites-habillage profil))
  (plv-enregistrer-entites profil plv-habillage:cle
    (plv-ajouts-de '(lambda () (plv-habillage:dessiner profil point points echv ttxt plans)))))

(defun plv-rehabiller (profil)
  "The dressing after a change of ground, planes or dimensions."
  (plv-habiller-profil profil (plv-origine profil) (plv-points-tn profil) (plv-echv profil) (plv-ttxt profil)
    (plv-plans profil)))

(defun plv-rehausser-titre (profil / titre)
  "The dressing anew where dimensions have grown into the title."
  (setq titre (plv-cle 10 (plv-attribut-profil profil "TITRE")))
  (if (and titre (plv-entites-habillage profil)
           (vl-some '(lambda (b) (> (plv-boite-haut b) (- (cadr titre) (* 4.0 (plv-ttxt profil)) -1e-6))) (plv-boites-cotes profil)))
    (plv-rehabiller profil)))
