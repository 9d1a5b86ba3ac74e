;; Which points of the ground get a cell: neighbours must be far enough apart for the rows that the table has.
;; The first and the last point always have one.

;; The least distance between neighbours, in drawing units, that a row of a kind needs.
(defun plv-espacement:largeur (genre points ttxt noms / largeur)
  (cond
    ;; vertical texts stand side by side
    ((member genre '(1 3 4 5 6)) (* 1.3 ttxt))
    ;; horizontal numbers keep their width
    ((= genre 0) (+ (* 0.4 ttxt) (plv-largeur-texte (itoa (length points)) ttxt)))
    ;; partial distances may narrow to 0.6 and lose height down to 0.7
    ((= genre 2) (* 1.1 0.6 0.7 (plv-largeur-texte (plv-reel (plv-espacement:mediane points) 2) ttxt)))
    (T 0.0)))

(defun plv-espacement:mediane (points / ecarts)
  (setq ecarts (vl-sort (mapcar '(lambda (a b) (- (car b) (car a))) points (cdr points)) '<))
  (nth (/ (length ecarts) 2) ecarts))

(defun plv-espacement-necessaire (genres points ttxt)
  (apply 'max (cons 0.0 (mapcar '(lambda (genre) (plv-espacement:largeur genre points ttxt nil)) genres))))

(defun plv-espacer (points ecart / gardes dernier)
  "Points no closer than ecart, ends kept; each is taken as early as it may be, so that even points stay even."
  (setq dernier (plv-dernier points)
        gardes (list (car points)))
  (foreach p (cdr points)
    (if (and (>= (- (car p) (caar gardes)) (- ecart 1e-9))
             (or (eq p dernier) (>= (- (car dernier) (car p)) (- ecart 1e-9))))
      (setq gardes (cons p gardes))))
  (if (not (eq (car gardes) dernier)) (setq gardes (cons dernier gardes)))
  (reverse gardes))
