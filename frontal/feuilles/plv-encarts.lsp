;; What stands about a profile on its sheets: legends beside or beneath the last part, and a graduated axis after a cut.
;; Measures, as plv-feuilles makes them, have the keys legendes (boxes beside the profile), gauche droite bas haut x0 y0.

;; --- legends

(defun plv-encarts:largeur (boite) (- (caddr boite) (car boite)))
(defun plv-encarts:hauteur (boite) (- (plv-boite-haut boite) (cadr boite)))

(defun plv-encarts-a-part (legendes gauche droite)
  "Of the legends those that stand beside the profile, not over or beneath it."
  (vl-remove-if '(lambda (l) (and (< (car (plv-boite l)) droite) (> (caddr (plv-boite l)) gauche))) legendes))

(defun plv-encarts-debuts (legendes droite ttxt)
  "Where those begin that stand right of an abscissa, without their frames."
  (mapcar '(lambda (x) (max droite (- x (* 0.2 ttxt))))
    (vl-remove-if '(lambda (x) (< x droite)) (mapcar '(lambda (l) (car (plv-boite l))) legendes))))

(defun plv-encarts:ecart (mesures) (* 5.0 (plv-cle 'recouvrement mesures)))

(defun plv-encarts-longueur (mesures)
  "What the legends take side by side, each with its gap."
  (apply '+ (mapcar '(lambda (b) (+ (plv-encarts:largeur b) (plv-encarts:ecart mesures))) (plv-cle 'legendes mesures))))

(defun plv-encarts:dy-a-cote (boite mesures)
  "Legends beside keep their height where the profile has it, else their tops are on one line."
  (if (and (<= (plv-boite-haut boite) (plv-cle 'haut mesures)) (>= (cadr boite) (plv-cle 'bas mesures)))
    0.0
    (- (plv-cle 'haut mesures) (plv-boite-haut boite))))

(defun plv-encarts:poser (mesures x dy / encarts)
  "The insets from an abscissa on; dy gives the displacement of a box."
  (foreach b (plv-cle 'legendes mesures)
    (setq encarts (cons (append b (list (- x (car b)) (apply dy (list b mesures)))) encarts)
          x (+ x (plv-encarts:largeur b) (plv-encarts:ecart mesures))))
  (reverse encarts))

(defun plv-encarts:dy-dessous (boite mesures) (- (plv-cle 'bas mesures) (plv-encarts:ecart mesures) (plv-boite-haut boite)))

(defun plv-encarts (mesures largeur hauteur / l h)
  "The insets for the last view of a profile, which leaves so much of the sheet free beside it and beneath it; T when they don't
fit."
  (setq l (plv-encarts-longueur mesures)
        h (apply 'max (cons 0.0 (mapcar 'plv-encarts:hauteur (plv-cle 'legendes mesures)))))
  (cond
    ((not (plv-cle 'legendes mesures)) nil)
    ((and (<= l largeur) (<= h (+ hauteur (- (plv-cle 'haut mesures) (plv-cle 'bas mesures)))))
     (plv-encarts:poser mesures (+ (plv-cle 'droite mesures) (plv-encarts:ecart mesures)) 'plv-encarts:dy-a-cote))
    ((and (<= (+ h (plv-encarts:ecart mesures)) hauteur) (<= l (- (plv-cle 'droite mesures) (plv-cle 'gauche mesures))))
     (plv-encarts:poser mesures (+ (- (plv-cle 'droite mesures) l) (plv-encarts:ecart mesures)) 'plv-encarts:dy-dessous))
    (T T)))

;; --- the axis

(defun plv-encarts-axe-largeur (profil) "Room for the labels of an axis." (* 6.0 (plv-ttxt profil)))

(defun plv-encarts-axe (mesures d / profil plan ttxt hauteur)
  "The axis of the sheet that begins at a cut, with the altitudes of its plane: (width y1 y2 text-height (y . altitude) ...)."
  (setq profil (plv-cle 'profil mesures)
        plan (plv-plan-en (plv-plans profil) (+ d 1e-6))
        ttxt (plv-ttxt profil)
        hauteur (plv-hauteur-axe (plv-points-tn profil) (plv-echv profil) ttxt (plv-plans profil)))
  (append (list (plv-encarts-axe-largeur profil) (plv-cle 'y0 mesures) (+ (plv-cle 'y0 mesures) hauteur) (* 0.8 ttxt))
          (plv-graduations hauteur ttxt (plv-echv profil) plan (plv-cle 'y0 mesures))))
