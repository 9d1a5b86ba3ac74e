;; The pictures of a form: what stands of a profile, by distance and altitude.

(defun plv-image-profil (profil elements) (list "" "profil" elements (if profil (plv-premiere-station profil) 0.0)))
(defun plv-image-plan (titre elements) (list titre "plan" elements 0.0))

(defun plv-image-traits (role lignes) "Lines of points as items." (mapcar '(lambda (ligne) (list "trait" role ligne)) lignes))

(defun plv-poignees-de-rangees (cle points / rang poignees)
  "Rows of a field, station and altitude their first columns, at their places (nil for a row without one), to be dragged both ways."
  (setq rang -1)
  (foreach p points
    (setq rang (1+ rang))
    (if p (setq poignees (cons (list "poignee" (strcat cle "/" (itoa rang) "/1") "projet" (list p) 1.0 (strcat cle "/" (itoa rang) "/0")) poignees))))
  poignees)

(defun plv-traits-profil (profil)
  "Ground, planes and lines of a profile."
  (append
    (plv-image-traits "plan" (plv-fiches-images:plans profil))
    (list (list "trait" "terrain" (mapcar '(lambda (p) (list (car p) (cadr p))) (plv-points-tn profil))))
    (apply 'append (mapcar '(lambda (genre) (plv-image-traits "ligne" (plv-traits-de-ligne profil genre))) (plv-genres-du-projet profil)))))

(defun plv-fiches-images:plans (profil / fin)
  (setq fin (plv-longueur-profil profil))
  (mapcar '(lambda (s) (list (list (plv-plan-debut s) (plv-plan-altitude s)) (list (min fin (plv-section-fin s)) (plv-plan-altitude s))))
    (plv-sections-de-plan profil)))

(defun plv-traits-de-ligne (profil genre / plans)
  "The elements of a kind's line, each as points."
  (setq plans (plv-plans profil))
  (mapcar '(lambda (s) (plv-fiches-images:points profil s plans)) (plv-elements-situes profil genre)))

(setq plv-fiches-images:parts '(0.0 0.05 0.1 0.15 0.2 0.25 0.3 0.35 0.4 0.45 0.5 0.55 0.6 0.65 0.7 0.75 0.8 0.85 0.9 0.95 1.0))

(defun plv-fiches-images:stations (profil situe)
  "The distances at which an element is looked at: its vertices, and some between its ends for what is curved."
  (vl-sort
    (vl-remove-if '(lambda (d) (or (< d (plv-debut situe)) (> d (plv-fin situe))))
      (append
        (mapcar '(lambda (part) (+ (plv-debut situe) (* part (plv-longueur situe)))) plv-fiches-images:parts)
        (mapcar '(lambda (p) (- (car p) (car (plv-origine profil)))) (plv-cles 10 (entget (plv-situe-entite situe))))))
    '<))

(defun plv-fiches-images:points (profil situe plans)
  (vl-remove-if-not 'cadr
    (mapcar '(lambda (d) (list d (plv-altitude-projet profil (list situe) plans d))) (plv-fiches-images:stations profil situe))))
