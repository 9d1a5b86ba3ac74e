;; Typical cross sections beside the profile, to one scale in both directions: one for each pipe and depth class, where the longest piece has
;; its middle; of pits none. A metre is as long as a metre of altitude in the profile.

(defun plv-traces-coupes (profil genre) (plv-entites-propres profil (plv-tranchees-dessin:cle "COUPES" genre)))

(defun plv-coupes:longueur (morceau) (- (plv-bout-station (plv-morceau-fin morceau)) (plv-bout-station (plv-morceau-debut morceau))))

(defun plv-coupes:milieu (morceau)
  "The end that a piece would have in its middle."
  (mapcar '(lambda (a b) (* 0.5 (+ a b))) (plv-morceau-debut morceau) (plv-morceau-fin morceau)))

;; --- which pieces: (pipe piece), one for each wording of pipe and depth class

(defun plv-coupes:tuyau (reseau morceau)
  (car (vl-member-if
         '(lambda (tuyau) (= (plv-morceau-ouvrage morceau) (strcat "tuyau " (plv-tuyau-de tuyau) " - " (plv-tuyau-a tuyau))))
         (plv-reseau-tuyaux reseau))))

(defun plv-coupes:types (reseau morceaux / types cle autre)
  (foreach m (vl-remove-if 'plv-morceau-fosse-p morceaux)
    (setq cle (list (plv-tuyau-en-mots (plv-coupes:tuyau reseau m)) (plv-morceau-classe m)) autre (assoc cle types))
    (cond
      ((not autre) (setq types (cons (list cle m) types)))
      ((> (plv-coupes:longueur m) (plv-coupes:longueur (cadr autre))) (setq types (subst (list cle m) autre types)))))
  (mapcar '(lambda (ty) (list (plv-coupes:tuyau reseau (cadr ty)) (cadr ty))) (reverse types)))

;; --- drawing, from the middle of the bottom; e: units for a metre

(defun plv-coupes:largeur (morceau h)
  "Of the trench at a height over its bottom."
  (+ (plv-morceau-largeur morceau) (* 2.0 (plv-morceau-fruit morceau) (max 0.0 (- h (plv-morceau-droite morceau))))))

(defun plv-coupes:coins (morceau profondeur centre e)
  "The outline of the trench from its upper left corner down and up again."
  (mapcar '(lambda (c) (plv-point (+ (car centre) (* e (car c))) (+ (cadr centre) (* e (cadr c)))))
    (list (list (* -0.5 (plv-coupes:largeur morceau profondeur)) profondeur)
          (list (* -0.5 (plv-morceau-largeur morceau)) (plv-coupes:droite morceau))
          (list (* -0.5 (plv-morceau-largeur morceau)) 0.0) (list (* 0.5 (plv-morceau-largeur morceau)) 0.0)
          (list (* 0.5 (plv-morceau-largeur morceau)) (plv-coupes:droite morceau))
          (list (* 0.5 (plv-coupes:largeur morceau profondeur)) profondeur))))

(defun plv-coupes:droite (morceau) (if (> (plv-morceau-fruit morceau) 0.0) (plv-morceau-droite morceau) 0.0))

(defun plv-coupes:niveau (morceau h centre e / demi)
  (setq demi (* 0.5 e (plv-coupes:largeur morceau h)))
  (plv-ligne plv-tranchees-dessin:calque (plv-point (- (car centre) demi) (+ (cadr centre) (* e h))) (plv-point (+ (car centre) demi) (+ (cadr centre) (* e h)))))

(defun plv-coupes:cercle (centre rayon)
  (entmakex (list '(0 . "CIRCLE") (cons 8 (plv-calque plv-tranchees-dessin:calque)) (cons 10 centre) (cons 40 rayon))))

(defun plv-coupes:dessiner (tuyau morceau centre e ttxt / bout h)
  (setq bout (plv-coupes:milieu morceau) h (- (plv-bout-sol bout) (plv-bout-fond bout)))
  (plv-polyligne plv-tranchees-dessin:calque (plv-coupes:coins morceau h centre e))
  (foreach z (list (plv-bout-sol bout) (plv-bout-surface bout) (plv-bout-enrobage bout) (plv-bout-lit bout))
    (plv-coupes:niveau morceau (- z (plv-bout-fond bout)) centre e))
  (setq bout (+ (- (plv-bout-lit bout) (plv-bout-fond bout)) (* 0.5 (plv-tuyau-exterieur tuyau))))
  (foreach d (plv-uniques (list (plv-tuyau-exterieur tuyau) (plv-tuyau-interieur tuyau)))
    (plv-coupes:cercle (plv-point (car centre) (+ (cadr centre) (* e bout))) (* 0.5 e d)))
  (plv-coupes:legende tuyau morceau centre h ttxt))

(defun plv-coupes:legende (tuyau morceau centre h ttxt / y)
  (setq y (cadr centre))
  (foreach texte (list (plv-tuyau-en-mots tuyau) (strcat "profondeur " (plv-reel h 2) " m, largeur " (plv-reel (plv-morceau-largeur morceau) 2) " m")
                       (plv-morceau-ouvrage morceau))
    (setq y (- y (* 1.6 ttxt)))
    (plv-texte plv-tranchees-dessin:calque (plv-point (car centre) y) ttxt texte 1 0.0)))

(defun plv-coupes:tracer (profil types point / e ttxt x pas)
  (setq e (plv-echv profil) ttxt (* 0.7 (plv-ttxt profil)) x (car point)
        pas (max (* 40.0 ttxt) (* 1.3 e (apply 'max (mapcar '(lambda (ty) (plv-coupes:largeur (cadr ty) (plv-coupes:profondeur (cadr ty)))) types)))))
  (foreach ty types
    (setq x (+ x (* 0.5 pas)))
    (plv-coupes:dessiner (car ty) (cadr ty) (list x (cadr point)) e ttxt)
    (setq x (+ x (* 0.5 pas)))))

(defun plv-coupes:profondeur (morceau / bout)
  (setq bout (plv-coupes:milieu morceau))
  (- (plv-bout-sol bout) (plv-bout-fond bout)))

(defun plv-couper-tranchees (profil genre point / morceaux reseau)
  "Draws the typical cross sections of a network from a point to the right; T, or nil after a message."
  (setq genre (plv-genre genre))
  (if (and (plv-profil-sain profil) (setq morceaux (plv-tranchees-dessin:morceaux profil genre)))
    (progn
      (setq reseau (plv-reseau-lu profil genre))
      (plv-effacer (plv-traces-coupes profil genre))
      (plv-enregistrer-entites profil (plv-tranchees-dessin:cle "COUPES" genre)
        (plv-ajouts-de '(lambda () (plv-coupes:tracer profil (plv-coupes:types reseau morceaux) point))))
      (plv-noter-fait profil "COUPES" genre nil (plv-coupes:reponses profil point))
      T)))

;; --- where they stand, unless it is said: to the right of the profile and its legends

(defun plv-coupes-place (profil)
  (plv-point
    (+ (apply 'max (cons (+ (car (plv-origine profil)) (plv-longueur-profil profil))
                         (mapcar '(lambda (e) (caddr (plv-boite e))) (plv-legendes-du-profil profil))))
       (* 10.0 (plv-ttxt profil)))
    (+ (cadr (plv-origine profil)) (* 10.0 (plv-ttxt profil)))))

;; --- as kept, from the origin of the profile, so that they are drawn anew beside it

(defun plv-coupes:reponses (profil point)
  (mapcar '(lambda (a b) (rtos (- a b) 2 6)) (list (car point) (cadr point)) (list (car (plv-origine profil)) (cadr (plv-origine profil)))))

(defun plv-coupes-point (profil reponses)
  (mapcar '(lambda (a b) (+ (distof a 2) b)) reponses (list (car (plv-origine profil)) (cadr (plv-origine profil)))))
