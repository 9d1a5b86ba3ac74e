;; What lies beneath a profile: lines at the graduations of its axes and at round stations, the toned edge of the ground, and the axes of
;; inner planes with their altitudes.
;; Shared in the room: plv-fond:*

(setq plv-fond:pas '(5.0 10.0 20.0 25.0 50.0 100.0 200.0 250.0 500.0 1000.0 2000.0 5000.0 10000.0))

(defun plv-fond:hauteur (profil)
  (plv-hauteur-axe (plv-points-tn profil) (plv-echv profil) (plv-ttxt profil) (plv-plans profil)))

(defun plv-fond:graduations (profil plan hauteur)
  (plv-graduations hauteur (plv-ttxt profil) (plv-echv profil) plan (cadr (plv-origine profil))))

;; --- the grid: its lines may come over texts, which stay readable since the lines are nearly transparent

(setq plv-fond:opacite 33554502)  ; 70 of 255

(defun plv-fond:ligne (x1 y1 x2 y2)
  (entmakex (list '(0 . "LINE") (cons 8 (plv-calque "PLV-GRILLE")) (cons 440 plv-fond:opacite) (cons 10 (plv-point x1 y1)) (cons 11 (plv-point x2 y2)))))

(defun plv-fond:altitudes (profil section hauteur / x0)
  (setq x0 (car (plv-origine profil)))
  (foreach g (plv-fond:graduations profil section hauteur)
    (plv-fond:ligne (+ x0 (plv-plan-debut section)) (car g) (+ x0 (plv-section-fin section)) (car g))))

(defun plv-fond:pas-stations (mm)
  (cond ((car (vl-member-if '(lambda (p) (>= p (plv-mm mm))) plv-fond:pas))) ((plv-dernier plv-fond:pas))))

(defun plv-fond:rondes (profil pas / s fin rondes)
  "Distances of the round stations within the profile."
  (setq s (* pas (1+ (plv-partie-entiere (/ (+ (plv-premiere-station profil) 1e-6) pas))))
        fin (+ (plv-premiere-station profil) (plv-longueur-profil profil) -1e-6))
  (while (< s fin) (setq rondes (cons (- s (plv-premiere-station profil)) rondes) s (+ s pas)))
  (reverse rondes))

(defun plv-fond:station (profil noms d hauteur / p texte demi)
  "A line upwards, a tick on the plane, and the station beneath where no plane's name stands; noms: those."
  (setq p (plv-origine profil) texte (plv-reel (+ (plv-premiere-station profil) d) 0)
        demi (* 0.5 (plv-largeur-texte texte (plv-petit profil))))
  (plv-fond:ligne (+ (car p) d) (cadr p) (+ (car p) d) (+ (cadr p) hauteur))
  (plv-ligne "PLV-AXE" (plv-point (+ (car p) d) (cadr p)) (plv-point (+ (car p) d) (- (cadr p) (* 0.4 (plv-ttxt profil)))))
  (if (not (vl-some '(lambda (nom) (and (> (+ d demi) (- (plv-debut nom) demi)) (< (- d demi) (plv-fin nom)))) noms))
    (plv-texte "PLV-AXE" (plv-point (+ (car p) d) (- (cadr p) (* 1.5 (plv-ttxt profil)))) (plv-petit profil) texte 1 0.0)))

(defun plv-fond-grille (profil / hauteur noms)
  (setq hauteur (plv-fond:hauteur profil)
        noms (plv-noms-de-plans (plv-plans profil) (plv-longueur-profil profil) (plv-ttxt profil)))
  (foreach section (plv-sections-de-plan profil) (plv-fond:altitudes profil section hauteur))
  (foreach d (plv-fond:rondes profil (plv-fond:pas-stations (plv-style-grille))) (plv-fond:station profil noms d hauteur)))

;; --- the ground: a tone below its line, in steps that lie over each other, darkest at the line

(setq plv-fond:degres '(1.0 0.6 0.3))

(defun plv-fond:sans-lacunes (etendue lacunes / restes)
  "What gaps leave of a stretch."
  (setq restes (list etendue))
  (foreach l lacunes
    (setq restes
      (apply 'append
        (mapcar
          '(lambda (e)
             (vl-remove-if '(lambda (r) (< (plv-longueur r) 1e-6))
               (list (list (plv-debut e) (min (plv-fin e) (max (plv-debut e) (plv-debut l))))
                     (list (max (plv-debut e) (min (plv-fin e) (plv-fin l))) (plv-fin e)))))
          restes))))
  restes)

(defun plv-fond:bande (cadre section points etendue epaisseur opacite / haut y0)
  (setq y0 (cadr (plv-cadre-origine cadre))
        haut (mapcar '(lambda (p) (plv-vers-dessin-sur cadre section (car p) (cadr p)))
               (plv-ligne-entre points (plv-debut etendue) (plv-fin etendue))))
  (plv-aplat "PLV-SOL"
    (append haut (mapcar '(lambda (p) (list (car p) (max (min y0 (cadr p)) (- (cadr p) epaisseur)))) (reverse haut)))
    opacite))

(defun plv-fond-sol (profil / cadre points sol)
  (setq cadre (plv-cadre profil) points (plv-points-tn profil) sol (plv-style-sol))
  (foreach section (plv-sections-de-plan profil)
    (foreach etendue (plv-fond:sans-lacunes (list (plv-plan-debut section) (plv-section-fin section)) (plv-lacunes profil))
      (foreach part plv-fond:degres
        (plv-fond:bande cadre section points etendue (* part (plv-mm (car sol))) (/ (cadr sol) (length plv-fond:degres)))))))

;; --- axes of inner planes: their altitudes on the side where more of them are free

(defun plv-fond:etiquette (profil h x g cote / largeur)
  "(box x justification altitude) of a graduation at a height of texts, cote -1 left of the axis, 1 right of it."
  (setq largeur (plv-largeur-texte (cdr g) h)
        x (+ x (* cote 0.8 (plv-ttxt profil))))
  (list (list (+ x (* cote 0.5 largeur)) (car g) (+ largeur (* 0.4 h)) (* 1.3 h) 0.0) x (if (< cote 0) 2 0) g))

(defun plv-fond:libres (etiquettes obstacles / choix)
  (setq choix (if etiquettes (et_placer obstacles (mapcar '(lambda (e) (list (car e))) etiquettes))))
  (vl-remove nil (mapcar '(lambda (e c) (if (= c 0) e)) etiquettes choix)))

(defun plv-fond:axe (profil plan obstacles hauteur / x graduations gauche droite)
  "The boxes of what is drawn."
  (setq x (+ (car (plv-origine profil)) (plv-plan-debut plan))
        graduations (plv-fond:graduations profil plan hauteur)
        gauche (plv-fond:libres (mapcar '(lambda (g) (plv-fond:etiquette profil (plv-petit profil) x g -1)) graduations) obstacles)
        droite (plv-fond:libres (mapcar '(lambda (g) (plv-fond:etiquette profil (plv-petit profil) x g 1)) graduations) obstacles))
  (foreach e (if (< (length gauche) (length droite)) droite gauche)
    (plv-texte "PLV-AXE" (plv-point (cadr e) (- (car (cadddr e)) (* 0.5 (plv-petit profil)))) (plv-petit profil) (cdr (cadddr e)) (caddr e) 0.0))
  (mapcar 'car (if (< (length gauche) (length droite)) droite gauche)))

(defun plv-fond:premier-axe (profil hauteur)
  "The boxes of the altitudes that the dressing has written at the first axis."
  (mapcar '(lambda (g) (car (plv-fond:etiquette profil (* 0.8 (plv-ttxt profil)) (car (plv-origine profil)) g -1)))
    (plv-fond:graduations profil (car (plv-plans profil)) hauteur)))

(defun plv-fond-axes (profil obstacles / hauteur boites)
  "Draws the altitudes of inner axes clear of obstacles; the boxes of those of all axes."
  (setq hauteur (plv-fond:hauteur profil) boites (plv-fond:premier-axe profil hauteur))
  (foreach plan (cdr (plv-plans profil))
    (setq boites (append (plv-fond:axe profil plan (append boites obstacles) hauteur) boites)))
  boites)
