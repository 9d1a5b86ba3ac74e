;; What makes a profile readable: title, axis with its altitudes, names of the planes, breaks between sections.
;; Heights of texts and gaps are multiples of the profile's text height.

(defun plv-habillage:y-titre (profil point hauteur ttxt sommet)
  "The title's line: room for the labels of blocks between axis and title, and it stands above all dimensions and the style's labels."
  (apply 'max
    (vl-list* (+ (cadr point) hauteur (* 12.0 ttxt)) (if sommet (+ sommet (* 4.0 ttxt)) (cadr point))
          (mapcar '(lambda (b) (+ (plv-boite-haut b) (* 4.0 ttxt))) (plv-boites-cotes profil)))))

(defun plv-habillage:titre (profil point hauteur ttxt longueur echv sommet / y largeur)
  "The title above the axis: the profile's own attributes are moved there, the number to the right of the words."
  (setq y (plv-habillage:y-titre profil point hauteur ttxt sommet)
        largeur (plv-largeur-texte (strcat plv-profil:titre " ") (* 1.4 ttxt)))
  (plv-habillage:placer profil "TITRE" (plv-point (car point) y) (* 1.4 ttxt))
  (plv-habillage:placer profil "NUMPL" (plv-point (+ (car point) largeur (* 1.4 ttxt)) y) (* 1.4 ttxt))
  (plv-texte "PLV-TITRES" (plv-point (car point) (- y (* 2.0 ttxt))) (* 0.8 ttxt)
    (strcat "Longueur " (plv-reel longueur 2) " m - hauteurs multipliées par " (plv-reel echv 1)) 0 0.0)
  (plv-presenter-titre profil (+ y (* 3.5 ttxt))))

(defun plv-habillage:placer (profil etiquette point hauteur / groupes)
  (if (setq groupes (plv-attribut-profil profil etiquette))
    (entmod
      (append
        (subst (cons 10 point) (assoc 10 groupes)
          (subst (cons 40 hauteur) (assoc 40 groupes) (if (plv-style-de-texte) (vl-remove (assoc 7 groupes) groupes) groupes)))
        (plv-style-de-texte)))))

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

(defun plv-habillage:libre-p (x y l h boites)
  "Whether a text whose right end is there stands clear of boxes."
  (not (vl-some '(lambda (b) (and (< (car b) x) (> (caddr b) (- x l)) (< (cadr b) (+ y h)) (> (cadddr b) y))) boites)))

(defun plv-habillage:axe (point hauteur ttxt echv plan etiquettes boites / x y)
  "A graduated axis at the start of a section, with altitudes on demand where no words of blocks stand."
  (setq x (+ (car point) (plv-plan-debut plan)))
  (plv-ligne "PLV-AXE" (plv-point x (cadr point)) (plv-point x (+ (cadr point) hauteur)))
  (foreach graduation (plv-graduations hauteur ttxt echv plan (cadr point))
    (setq y (car graduation))
    (plv-ligne "PLV-AXE" (plv-point (- x (* 0.4 ttxt)) y) (plv-point x y))
    (if (and etiquettes
             (plv-habillage:libre-p (- x (* 0.8 ttxt)) (- y (* 0.4 ttxt)) (plv-largeur-texte (cdr graduation) (* 0.8 ttxt)) (* 0.8 ttxt) boites))
      (plv-texte "PLV-AXE" (plv-point (- x (* 0.8 ttxt)) (- y (* 0.4 ttxt))) (* 0.8 ttxt) (cdr graduation) 2 0.0))))

;; --- names of planes, each where its section begins; where sections are short they are moved apart, and written smaller

(defun plv-habillage:nom-plan (plan) (strcat "PC " (plv-reel (plv-plan-altitude plan) 2)))

(defun plv-habillage:ecartes (plans longueur ttxt h)
  "(middle width) of each name at a height of texts, gaps included; T when they don't fit beside each other."
  (setq plans (mapcar '(lambda (plan / l) (setq l (+ ttxt (plv-largeur-texte (plv-habillage:nom-plan plan) h))) (list (+ (plv-plan-debut plan) (* 0.5 l)) l)) plans)
        longueur (et_ecarter plans 0.0 (+ longueur (* 10.0 ttxt))))
  (if (vl-every '(lambda (p) (= (car p) 0)) longueur) (mapcar '(lambda (place plan) (list (cadr place) (cadr plan))) longueur plans) T))

(defun plv-noms-de-plans (plans longueur ttxt / petit places)
  "(from to height text) of each name along the profile, gaps included."
  (setq petit (* 0.72 ttxt) places (plv-habillage:ecartes plans longueur ttxt ttxt))
  (if (= places T) (setq ttxt petit places (plv-habillage:ecartes plans longueur petit petit)))
  (mapcar '(lambda (place plan) (list (- (car place) (* 0.5 (cadr place))) (+ (car place) (* 0.5 (cadr place))) ttxt (plv-habillage:nom-plan plan)))
    (if (= places T) (mapcar '(lambda (plan) (list (plv-plan-debut plan) 0.0)) plans) places) plans))

(defun plv-habillage:noms-plans (point ttxt plans longueur)
  (foreach nom (plv-noms-de-plans plans longueur ttxt)
    (plv-texte "PLV-PLANS" (plv-point (+ (car point) (plv-debut nom) (* 0.5 (caddr nom))) (- (cadr point) (* 0.5 ttxt) (caddr nom)))
      (caddr nom) (cadddr nom) 0 0.0)))

(defun plv-habillage:dessiner (profil point points echv ttxt plans / hauteur sommet boites)
  (setq hauteur (plv-hauteur-axe points echv ttxt plans) boites (plv-boites-attributs profil))
  (foreach plan plans
    (plv-habillage:axe point hauteur ttxt echv plan (eq plan (car plans)) boites))
  (plv-habillage:noms-plans point ttxt plans (car (plv-dernier points)))
  (setq sommet (plv-presenter profil))
  (plv-habillage:titre profil point hauteur ttxt (car (plv-dernier points)) echv sommet))

(setq plv-habillage:cle "PLV_HABILLAGE")

(defun plv-entites-habillage (profil) (plv-entites-enregistrees profil plv-habillage:cle))

(defun plv-habillage-avec (profil entites)
  "Lists entities with the dressing, which is erased and moved with them."
  (plv-enregistrer-entites profil plv-habillage:cle (append (plv-entites-habillage profil) entites)))

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
  "The dressing anew where dimensions have grown into the title, and where the labels of a style keep clear of what was drawn."
  (setq titre (plv-cle 10 (plv-attribut-profil profil "TITRE")))
  (if (and titre (plv-entites-habillage profil)
           (or (plv-rangees-de-style)
               (vl-some '(lambda (b) (> (plv-boite-haut b) (- (cadr titre) (* 4.0 (plv-ttxt profil)) -1e-6))) (plv-boites-cotes profil))))
    (plv-rehabiller profil)))
