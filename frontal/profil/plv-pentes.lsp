;; Slope pieces of a project line, as rows and arrows show them: (from to slope entity), left to right. The slope of a
;; vertical curve is T.

(defun plv-pente-valeur (piece) (caddr piece))
(defun plv-pente-entite (piece) (cadddr piece))
(defun plv-pente-droite-p (piece) (numberp (plv-pente-valeur piece)))

(defun plv-pentes-de (profil entite)
  "The slope pieces of one element, in the order of the module."
  (plv-lire-une-fois (list "pentes-de" profil entite) '(lambda () (plv-pentes:lire profil entite))))

(defun plv-pentes:lire (profil entite)
  (vl-remove-if '(lambda (p) (< (plv-longueur p) 1e-6))
    (mapcar
      '(lambda (lue)
         (list (min (caar lue) (caadr lue)) (max (caar lue) (caadr lue))
               (if (numberp (caddr lue)) (caddr lue) T) entite))
      (pl_glp profil (plv-jeu (list entite))))))

(defun plv-pentes:places (profil piece)
  "Three points on the curve of a piece in the drawing, clear of its ends; nil where the curve isn't found."
  (setq piece
    (mapcar
      '(lambda (part / x y)
         (setq x (+ (car (plv-origine profil)) (plv-debut piece) (* part (plv-longueur piece)))
               y (pl_yat (plv-pente-entite piece) x))
         (if y (list x y)))
      '(0.05 0.5 0.95)))
  (if (not (member nil piece)) piece))

(defun plv-pentes:cercle (profil piece / places x1 y1 x2 y2 c1 c2 d u v)
  "(x y radius) of the circle on which a piece lies; nil for none."
  (if (setq places (plv-pentes:places profil piece))
    (progn
      (setq x1 (- (car (cadr places)) (caar places)) y1 (- (cadr (cadr places)) (cadar places))
            x2 (- (car (caddr places)) (caar places)) y2 (- (cadr (caddr places)) (cadar places))
            c1 (+ (* x1 x1) (* y1 y1)) c2 (+ (* x2 x2) (* y2 y2))
            d (* 2.0 (- (* x1 y2) (* x2 y1))))
      (if (not (equal d 0.0 1e-12))
        (progn
          (setq u (/ (- (* y2 c1) (* y1 c2)) d) v (/ (- (* x1 c2) (* x2 c1)) d))
          (list (+ (caar places) u) (+ (cadar places) v) (sqrt (+ (* u u) (* v v)))))))))

(defun plv-pentes:meme-arc-p (profil a b)
  "T for two pieces of one polyline on one circle: a change of plane that has gone had cut the arc there."
  (and (eq (plv-pente-entite a) (plv-pente-entite b))
       (setq a (plv-pentes:cercle profil a))
       (setq b (plv-pentes:cercle profil b))
       (vl-every '(lambda (u v) (equal u v (* 1e-3 (caddr a)))) a b)))

(defun plv-pentes:suite-p (profil a b)
  "T when piece b goes on where a ends, in the same slope or the same vertical curve."
  (and (equal (plv-fin a) (plv-debut b) 1e-6)
       (cond
         ((or (plv-pente-droite-p a) (plv-pente-droite-p b)) (equal (plv-pente-valeur a) (plv-pente-valeur b) 1e-6))
         ((plv-rayon (plv-pente-entite a)) (equal (plv-rayon (plv-pente-entite a)) (plv-rayon (plv-pente-entite b)) 1e-6))
         ((plv-pentes:meme-arc-p profil a b)))))

(defun plv-elements-de-pente (profil genre)
  "The slope pieces of the project line of a kind, joined over the changes of plane."
  (reverse
    (plv-plier
      '(lambda (pieces p)
         (if (and pieces (plv-pentes:suite-p profil (car pieces) p))
           (cons (vl-list* (plv-debut (car pieces)) (plv-fin p) (cddar pieces)) (cdr pieces))
           (cons p pieces)))
      nil
      (vl-sort (apply 'append (mapcar '(lambda (e) (plv-pentes-de profil e)) (plv-elements-du-projet profil genre)))
               '(lambda (a b) (< (plv-debut a) (plv-debut b)))))))

;; --- radius of a vertical curve

(defun plv-rayon-de-piece (profil piece)
  "The one it was drawn with, or that of the parabola through its ends and middle."
  (cond ((plv-rayon (plv-pente-entite piece))) ((plv-pentes:rayon-mesure profil piece))))

(defun plv-pentes:rayon-mesure (profil piece / places parabole)
  (if (and (setq places (plv-pentes:places profil piece))
           (setq parabole
             (apply 'pl_fprmprb
               (mapcar '(lambda (p) (list (- (car p) (caar places)) (/ (- (cadr p) (cadar places)) (plv-echv profil)) 0.0)) places)))
           (> (abs (car parabole)) 1e-9))
    (/ 0.5 (abs (car parabole)))))
