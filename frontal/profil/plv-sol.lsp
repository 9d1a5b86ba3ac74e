;; A ground that is asked many times a second: the points in stretches (end point ...), so that an answer costs the root of their number.
;; Each stretch ends with the point that the next one begins with.

(defun plv-sol (points / taille sol morceau n)
  (setq taille (max 16 (fix (sqrt (length points)))) n 0)
  (foreach p points
    (setq morceau (cons p morceau) n (1+ n))
    (if (> n taille) (setq sol (cons (plv-sol:morceau morceau) sol) morceau (list p) n 1)))
  (reverse (if (or (cdr morceau) (not sol)) (cons (plv-sol:morceau morceau) sol) sol)))

(defun plv-sol:morceau (points) (cons (caar points) (reverse points)))

(defun plv-sol-autour (sol d)
  "The ground points of the stretch at a distance."
  (while (and (cdr sol) (> d (caar sol))) (setq sol (cdr sol)))
  (cdar sol))

(defun plv-sol-altitude (sol d)
  "nil outside the ground."
  (plv-altitude-tn (plv-sol-autour sol d) d))
