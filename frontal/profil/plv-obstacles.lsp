;; The lines of a profile as the boxes (x y width height angle) that words keep clear of where they can.

(defun plv-obstacles:trait (a b jeu)
  "The box from one point to another, as high as that."
  (list (* 0.5 (+ (car a) (car b))) (* 0.5 (+ (cadr a) (cadr b))) (distance (list (car a) (cadr a)) (list (car b) (cadr b))) jeu
        (if (equal a b 1e-9) 0.0 (angle (list (car a) (cadr a)) (list (car b) (cadr b))))))

(defun plv-obstacles:chemin (points jeu) "Of a line through points." (mapcar '(lambda (a b) (plv-obstacles:trait a b jeu)) points (cdr points)))

(defun plv-obstacles:courbe (profil entite jeu / boite a pas i points y)
  "A curve as chords."
  (setq boite (plv-boite entite) a (car boite) pas (/ (- (caddr boite) a) 16.0) i 0)
  (repeat 17
    (if (setq y (pl_yat entite (+ a (* i pas)))) (setq points (cons (list (+ a (* i pas)) y) points)))
    (setq i (1+ i)))
  (if (cdr points) (plv-obstacles:chemin (reverse points) jeu)))

(defun plv-obstacles:axes (profil points / p haut)
  "The axes of inner planes, with their weight alone: words begin and end half their height beside a manhole there."
  (setq p (plv-origine profil) haut (+ (cadr p) (plv-hauteur-axe points (plv-echv profil) (plv-ttxt profil) (plv-plans profil))))
  (mapcar '(lambda (d) (plv-obstacles:trait (list (+ (car p) d) (cadr p)) (list (+ (car p) d) haut) (* 0.1 (plv-ttxt profil)))) (plv-changements (plv-plans profil))))

(defun plv-obstacles-de-traits (entites jeu)
  "Of drawn lines and polylines."
  (apply 'append
    (mapcar
      '(lambda (e) (plv-obstacles:chemin (mapcar 'cdr (vl-remove-if-not '(lambda (g) (member (car g) '(10 11))) (entget e))) jeu))
      (vl-remove-if-not '(lambda (e) (member (plv-type e) '("LINE" "LWPOLYLINE"))) entites))))

(setq plv-obstacles:plus 3000)

(defun plv-boites-lignes (profil / cadre points jeu)
  "The ground, the lines of all kinds and the axes of inner planes, with their weight and a gap, which is less than labels have from their own line;
of a ground with very many points nothing is kept clear."
  (setq cadre (plv-cadre profil) points (plv-points-tn profil) jeu (* 0.3 (plv-ttxt profil)))
  (append
    (plv-obstacles:axes profil points)
    (if (< (length points) plv-obstacles:plus)
      (apply 'append
        (mapcar
          '(lambda (section)
             (plv-obstacles:chemin
               (mapcar '(lambda (p) (plv-vers-dessin-sur cadre section (car p) (cadr p)))
                 (plv-ligne-entre points (plv-plan-debut section) (plv-section-fin section)))
               jeu))
          (plv-sections-de-plan profil))))
    (apply 'append
      (mapcar '(lambda (genre) (apply 'append (mapcar '(lambda (e) (plv-obstacles:courbe profil e jeu)) (plv-elements profil genre))))
        (plv-genres-projet)))))
