;; What makes a profile readable: title, axis with its altitudes, names of the planes, breaks between sections.
;; Heights of texts and gaps are multiples of the profile's text height.

(defun plv-habillage:titre (profil point hauteur ttxt longueur echv / y largeur)
  "The title above the axis: the profile's own attributes are moved there, the number behind the words."
  ;; Room between axis and title for dimensions and the labels of blocks.
  (setq y (+ (cadr point) hauteur (* 12.0 ttxt))
        largeur (plv-largeur-texte (strcat plv-profil:titre " ") (* 1.4 ttxt)))
  (plv-habillage:placer profil "TITRE" (plv-point (car point) y))
  (plv-habillage:placer profil "NUMPL" (plv-point (+ (car point) largeur (* 1.4 ttxt)) y))
  (plv-texte "PLV-TITRES" (plv-point (car point) (- y (* 2.0 ttxt))) (* 0.8 ttxt)
    (strcat "Longueur " (plv-reel longueur 2) " m - hauteurs multipliees par " (plv-reel echv 1)) 0 0.0))

(defun plv-habillage:placer (profil etiquette point / groupes)
  (if (setq groupes (plv-profil:attribut profil etiquette))
    (entmod (subst (cons 10 point) (assoc 10 groupes) groupes))))

(defun plv-habillage:pas (echv ttxt / pas)
  "The step of graduations in metres: room for three text heights."
  (foreach p '(0.1 0.2 0.5 1.0 2.0 5.0 10.0 20.0 50.0 100.0)
    (if (and (not pas) (>= (* p echv) (* 3.0 ttxt))) (setq pas p)))
  (cond (pas) (100.0)))

(defun plv-habillage:axe (point hauteur ttxt echv plan etiquettes / x pas altitude y decimales)
  "A graduated axis at the start of a section."
  (setq x (+ (car point) (car plan))
        pas (plv-habillage:pas echv ttxt)
        decimales (if (< pas 1.0) 1 0)
        altitude (* pas (float (plv-plans:entier (/ (+ (cadr plan) (* 0.5 pas)) pas)))))
  (plv-ligne "PLV-AXE" (plv-point x (cadr point)) (plv-point x (+ (cadr point) hauteur)))
  (while (<= (setq altitude (+ altitude pas) y (plv-profil:ordonnee altitude plan echv (cadr point)))
             (+ (cadr point) hauteur 1e-6))
    (plv-ligne "PLV-AXE" (plv-point (- x (* 0.4 ttxt)) y) (plv-point x y))
    (if etiquettes
      (plv-texte "PLV-AXE" (plv-point (- x (* 0.8 ttxt)) (- y (* 0.4 ttxt))) (* 0.8 ttxt) (plv-reel altitude decimales) 2 0.0))))

(defun plv-habillage:nom-plan (point ttxt plan)
  (plv-texte "PLV-PLANS" (plv-point (+ (car point) (car plan) (* 0.5 ttxt)) (- (cadr point) (* 1.5 ttxt)))
    ttxt (strcat "PC " (plv-reel (cadr plan) 2)) 0 0.0))

(defun plv-habillage:hauteur (points echv plans / haut)
  "The drawn height of the highest ground point, in drawing units."
  (setq haut 0.0)
  (foreach p points
    (setq haut (max haut (* echv (- (cadr p) (cadr (plv-plan-en plans (car p))))))))
  haut)

(defun plv-habillage:dessiner (profil point points echv ttxt plans / hauteur premier)
  (setq hauteur (+ (plv-habillage:hauteur points echv plans) ttxt)
        premier T)
  (foreach plan plans
    (plv-habillage:axe point hauteur ttxt echv plan premier)
    (plv-habillage:nom-plan point ttxt plan)
    (setq premier nil))
  (plv-habillage:titre profil point hauteur ttxt (car (plv-dernier points)) echv))

(defun plv-habiller-profil (profil point points echv ttxt plans / entites)
  "Draws the dressing in place of an earlier one; what is drawn is listed with the profile."
  (plv-effacer (mapcar 'cdr (plv-enregistrement profil "PLV_HABILLAGE")))
  (setq entites (plv-ajouts-de '(lambda () (plv-habillage:dessiner profil point points echv ttxt plans))))
  (plv-ecrire-enregistrement profil "PLV_HABILLAGE" (mapcar '(lambda (e) (cons 330 e)) entites)))
