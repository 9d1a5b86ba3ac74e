;; What stands on a profile already, as the boxes (x y width height angle) that labels keep clear of.

(defun plv-boite-couchee (a b)
  "The box without height from one point to another."
  (list (* 0.5 (+ (car a) (car b))) (* 0.5 (+ (cadr a) (cadr b))) (distance (list (car a) (cadr a)) (list (car b) (cadr b))) 0.0
        (if (equal a b 1e-9) 0.0 (angle (list (car a) (cadr a)) (list (car b) (cadr b))))))

(defun plv-boites-chemin (points) "Of a line through points." (mapcar 'plv-boite-couchee points (cdr points)))

(defun plv-boites-textes (profil)
  "Dimensions, blocks that stand on the profile, and the texts of networks."
  (append
    (mapcar 'plv-boite-droite (append (plv-boites-cotes profil) (mapcar 'plv-boite (plv-blocs profil))))
    (plv-boites-reseaux profil nil)))

(defun plv-hauts-reseaux (profil)
  "The tops of the texts of networks."
  (mapcar '(lambda (b) (+ (cadr b) (* 0.5 (+ (* (caddr b) (abs (sin (nth 4 b)))) (cadddr b))))) (plv-boites-reseaux profil nil)))

(defun plv-boites:courbe (profil entite / boite a pas i points y)
  "A curve as chords."
  (setq boite (plv-boite entite) a (car boite) pas (/ (- (caddr boite) a) 16.0) i 0)
  (repeat 17
    (if (setq y (pl_yat entite (+ a (* i pas)))) (setq points (cons (list (+ a (* i pas)) y) points)))
    (setq i (1+ i)))
  (if (cdr points) (plv-boites-chemin (reverse points))))

(setq plv-boites:plus 3000)

(defun plv-boites-lignes (profil / cadre points)
  "The ground and the lines of all kinds; of a ground with very many points nothing is kept clear."
  (setq cadre (plv-cadre profil) points (plv-points-tn profil))
  (append
    (if (< (length points) plv-boites:plus)
      (apply 'append
        (mapcar
          '(lambda (section)
             (plv-boites-chemin
               (mapcar '(lambda (p) (plv-vers-dessin-sur cadre section (car p) (cadr p)))
                 (plv-ligne-entre points (plv-plan-debut section) (plv-section-fin section)))))
          (plv-sections-de-plan profil))))
    (apply 'append
      (mapcar '(lambda (genre) (apply 'append (mapcar '(lambda (e) (plv-boites:courbe profil e)) (plv-elements profil genre))))
        (plv-genres-projet)))))
