;; What a gesture on a profile needs to know of it, read once: frame, ground, length, first station, blocks. And the snaps: a place of the cursor is
;; put on what lies near it. Places are (distance altitude).

;; steps of stations in metres and of slopes, 0 for none; depths below the ground. What a user sets stays for the session.
(setq plv-scene:pas-station 1.0 plv-scene:pas-pente 0.001 plv-scene:profondeurs '(1.2) plv-scene:portee 10.0)

(defun plv-scene (profil)
  (list (plv-cadre profil) (plv-sol (plv-points-tn profil)) (plv-longueur-profil profil) (plv-premiere-station profil)
        (plv-scene:blocs profil) profil))

(defun plv-scene-cadre (scene) (car scene))
(defun plv-scene-sol (scene) (cadr scene))
(defun plv-scene-longueur (scene) (caddr scene))
(defun plv-scene-origine (scene) (cadddr scene))
(defun plv-scene-blocs (scene) (nth 4 scene))
(defun plv-scene-profil (scene) (nth 5 scene))

(defun plv-scene:blocs (profil / cadre)
  "(distance altitude name) of each block that stands on the profile."
  (setq cadre (plv-cadre profil))
  (mapcar
    '(lambda (b) (append (plv-vers-profil cadre (plv-origine b)) (list (cond ((cdar (plv-attributs b))) ((plv-cle 2 (entget b)))))))
    (plv-blocs profil)))

(defun plv-scene-profondeur (scene place / z)
  "Below the ground; nil beside it."
  (if (setq z (plv-sol-altitude (plv-scene-sol scene) (car place))) (- z (cadr place))))

;; --- reach: the width of a few pixels, in metres

(defun plv-scene-pixels (nombre) "In drawing units." (* nombre (/ (getvar "VIEWSIZE") (float (cadr (getvar "SCREENSIZE"))))))

(defun plv-scene:portee-d () (plv-scene-pixels plv-scene:portee))
(defun plv-scene:portee-z (scene) (/ (plv-scene:portee-d) (plv-cadre-echv (plv-scene-cadre scene))))

;; --- free places are round: to the power of ten below the width of a pixel, a millimetre at least

(setq plv-scene:plus-fin 0.001)

(defun plv-scene:pas-du-pixel (pixel)
  (max plv-scene:plus-fin (expt 10.0 (plv-partie-entiere (+ 1e-9 (/ (log pixel) (log 10.0)))))))

(defun plv-scene-arrondir-d (scene d)
  "A distance whose station is round, within the profile."
  (plv-entre (- (plv-scene:arrondi (+ d (plv-scene-origine scene)) (plv-scene:pas-du-pixel (plv-scene-pixels 1.0))) (plv-scene-origine scene))
    0.0 (plv-scene-longueur scene)))

(defun plv-scene-arrondir-z (scene z)
  (plv-scene:arrondi z (plv-scene:pas-du-pixel (/ (plv-scene-pixels 1.0) (plv-cadre-echv (plv-scene-cadre scene))))))

;; --- snaps

(defun plv-scene:plus-proche (place candidats portee-d portee-z / meilleur ecart)
  "Of (distance altitude ...) the nearest one within reach."
  (foreach c candidats
    (setq ecart (max (/ (abs (- (car c) (car place))) portee-d) (/ (abs (- (cadr c) (cadr place))) portee-z)))
    (if (and (<= ecart 1.0) (or (not meilleur) (< ecart (car meilleur)))) (setq meilleur (cons ecart c))))
  (cdr meilleur))

(defun plv-scene:nommer (points mot) (mapcar '(lambda (p) (list (car p) (cadr p) mot)) points))

(defun plv-scene:sommet (scene place)
  (plv-scene:plus-proche place
    (append (plv-scene-blocs scene) (plv-scene:nommer (plv-sol-autour (plv-scene-sol scene) (car place)) "point du terrain"))
    (plv-scene:portee-d) (plv-scene:portee-z scene)))

(defun plv-scene:arrondi (valeur pas) (* pas (plv-partie-entiere (+ 0.5 (/ valeur pas)))))

(defun plv-scene:station (scene d / bloc ronde)
  "(distance word) near a distance: a block's, or one of the step."
  (setq bloc (plv-scene:plus-proche (list d 0.0) (mapcar '(lambda (b) (list (car b) 0.0 (caddr b))) (plv-scene-blocs scene)) (plv-scene:portee-d) 1.0))
  (cond
    (bloc (list (car bloc) (strcat "à " (caddr bloc))))
    ((<= plv-scene:pas-station 0.0) (list (plv-scene-arrondir-d scene d) ""))
    ((and (setq ronde (- (plv-scene:arrondi (+ d (plv-scene-origine scene)) plv-scene:pas-station) (plv-scene-origine scene)))
          (<= (abs (- ronde d)) (plv-scene:portee-d)) (<= -1e-9 ronde (plv-scene-longueur scene)))
     (list ronde ""))
    ((list (plv-scene-arrondir-d scene d) ""))))

(defun plv-scene:altitudes (scene dernier d z / sol pente)
  "(distance altitude word) of each altitude that is offered at a distance."
  (setq sol (plv-sol-altitude (plv-scene-sol scene) d))
  (append
    (if sol
      (cons (list d sol "sur le terrain")
        (mapcar '(lambda (p) (list d (- sol p) (strcat (plv-reel p 2) " sous le terrain"))) plv-scene:profondeurs)))
    (if (and dernier (> plv-scene:pas-pente 0.0) (> (abs (- d (car dernier))) 1e-3))
      (progn
        (setq pente (plv-scene:arrondi (/ (- z (cadr dernier)) (- d (car dernier))) plv-scene:pas-pente))
        (list (list d (+ (cadr dernier) (* pente (- d (car dernier)))) "pente ronde"))))))

(defun plv-scene-accrocher (scene dernier place / sommet station altitude)
  "(distance altitude word) of the place that is meant: a point, else a station and an altitude each for itself."
  (setq place (list (plv-entre (car place) 0.0 (plv-scene-longueur scene)) (cadr place)))
  (cond
    ((setq sommet (plv-scene:sommet scene place)) sommet)
    (T
     (setq station (plv-scene:station scene (car place))
           altitude (plv-scene:plus-proche (list (car station) (cadr place))
                      (plv-scene:altitudes scene dernier (car station) (cadr place)) 1.0 (plv-scene:portee-z scene)))
     (list (car station) (if altitude (cadr altitude) (plv-scene-arrondir-z scene (cadr place)))
           (plv-joindre (vl-remove "" (list (cadr station) (if altitude (caddr altitude) ""))) ", ")))))

(defun plv-scene-ronde (valeur)
  "The roundest number within a twentieth of a radius or a length, while stations snap."
  (cond
    ((<= plv-scene:pas-station 0.0) valeur)
    ((car (vl-remove-if-not '(lambda (ronde) (and (> ronde 0.0) (<= (abs (- ronde valeur)) (* 0.05 valeur))))
            (mapcar '(lambda (pas) (plv-scene:arrondi valeur pas)) '(1000.0 500.0 100.0 50.0 10.0 5.0 1.0)))))
    (valeur)))

;; --- what is read of a place, from the vertex before it

(defun plv-scene-pente-en-mots (pente)
  (strcat (plv-reel (* 100.0 pente) 2) " % = " (plv-reel (* 1000.0 pente) 1) " ‰"
          (if (> (abs pente) 1e-5) (strcat " = " (if (< pente 0.0) "-" "") "1/" (plv-reel (/ 1.0 (abs pente)) 1)) "")))

(defun plv-scene-profondeur-en-mots (profondeur)
  (if (< profondeur -5e-3)
    (strcat (plv-reel (- profondeur) 2) " au-dessus du terrain")
    (strcat (plv-reel profondeur 2) " sous le terrain")))

(defun plv-scene-lecture (scene dernier place / profondeur)
  "Lines of text."
  (append
    (list (strcat "station " (plv-reel (+ (car place) (plv-scene-origine scene)) 2)) (strcat "altitude " (plv-reel (cadr place) 2)))
    (if (setq profondeur (plv-scene-profondeur scene place)) (list (plv-scene-profondeur-en-mots profondeur)))
    (if (and dernier (> (abs (- (car place) (car dernier))) 1e-6))
      (list (strcat "distance " (plv-reel (abs (- (car place) (car dernier))) 2) ", longueur " (plv-reel (plv-scene:longueur dernier place) 2))
            (strcat "pente " (plv-scene-pente-en-mots (plv-pente dernier place)))))
    (if (= (type (caddr place)) 'STR) (list (caddr place)))))

(defun plv-scene:longueur (a b / dx dz)
  (setq dx (- (car b) (car a)) dz (- (cadr b) (cadr a)))
  (sqrt (+ (* dx dx) (* dz dz))))

;; --- the settings

(defun plv-scene-regler (/ texte)
  "Asks for steps and depths."
  (setq plv-scene:pas-station (abs (plv-demander-nombre-libre "Pas des stations en m, 0 pour aucun" plv-scene:pas-station 2))
        plv-scene:pas-pente (abs (* 0.01 (plv-demander-nombre-libre "Pas des pentes en %, 0 pour aucun" (* 100.0 plv-scene:pas-pente) 3)))
        texte (plv-demander-texte "Profondeurs sous le terrain, séparées par des blancs" (plv-scene:profondeurs-en-texte))
        plv-scene:profondeurs (vl-remove nil (mapcar 'plv-nombre (plv-couper texte " ")))))

(defun plv-scene:profondeurs-en-texte () (plv-joindre (mapcar '(lambda (p) (plv-reel p 2)) plv-scene:profondeurs) " "))
