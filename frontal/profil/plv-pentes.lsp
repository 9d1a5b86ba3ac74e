;; Slope pieces of a project line, as rows and arrows show them: (from to slope entity), left to right. The slope of a
;; vertical curve is T.

(defun plv-pente-valeur (piece) (caddr piece))
(defun plv-pente-entite (piece) (cadddr piece))
(defun plv-pente-droite-p (piece) (numberp (plv-pente-valeur piece)))

(defun plv-pentes-de (profil entite)
  "The slope pieces of one element, in the order of the module."
  (vl-remove-if '(lambda (p) (< (plv-longueur p) 1e-6))
    (mapcar
      '(lambda (lue)
         (list (min (caar lue) (caadr lue)) (max (caar lue) (caadr lue))
               (if (numberp (caddr lue)) (caddr lue) T) entite))
      (pl_glp profil (plv-jeu (list entite))))))

(defun plv-pentes:suite-p (a b)
  "T when piece b goes on where a ends, in the same slope or the same vertical curve."
  (and (equal (plv-fin a) (plv-debut b) 1e-6)
       (if (plv-pente-droite-p a)
         (and (plv-pente-droite-p b) (equal (plv-pente-valeur a) (plv-pente-valeur b) 1e-6))
         (and (not (plv-pente-droite-p b)) (plv-rayon (plv-pente-entite a))
              (equal (plv-rayon (plv-pente-entite a)) (plv-rayon (plv-pente-entite b)) 1e-6)))))

(defun plv-elements-de-pente (profil genre)
  "The slope pieces of the project line of a kind, joined over the changes of plane."
  (reverse
    (plv-plier
      '(lambda (pieces p)
         (if (and pieces (plv-pentes:suite-p (car pieces) p))
           (cons (vl-list* (plv-debut (car pieces)) (plv-fin p) (cddar pieces)) (cdr pieces))
           (cons p pieces)))
      nil
      (vl-sort (apply 'append (mapcar '(lambda (e) (plv-pentes-de profil e)) (plv-elements-du-projet profil genre)))
               '(lambda (a b) (< (plv-debut a) (plv-debut b)))))))

;; --- radius of a vertical curve

(defun plv-rayon-de-piece (profil piece)
  "The one it was drawn with, or that of the parabola through its ends and middle."
  (cond ((plv-rayon (plv-pente-entite piece))) ((plv-pentes:rayon-mesure profil piece))))

(defun plv-pentes:rayon-mesure (profil piece / x0 echv d y parabole)
  (setq x0 (car (plv-origine profil))
        echv (plv-echv profil)
        d (mapcar '(lambda (part) (+ (plv-debut piece) (* part (plv-longueur piece)))) '(0.05 0.5 0.95))
        y (mapcar '(lambda (v) (pl_yat (plv-pente-entite piece) (+ x0 v))) d))
  (if (and (not (member nil y))
           (setq parabole (apply 'pl_fprmprb (mapcar '(lambda (a b) (list (- a (car d)) (/ (- b (car y)) echv) 0.0)) d y)))
           (> (abs (car parabole)) 1e-9))
    (/ 0.5 (abs (car parabole)))))
