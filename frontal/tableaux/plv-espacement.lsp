;; Which points of the ground get a cell: neighbours must be far enough apart for the rows that the table has.
;; The first and the last point always have one. Each rule gives the least distance between neighbours, in drawing units.
;; Shared in the room: plv-espacement:numeros plv-espacement:verticaux plv-espacement:partielles

(defun plv-espacement:verticaux (points ttxt)
  "Vertical texts stand side by side."
  (* 1.3 ttxt))

(defun plv-espacement:numeros (points ttxt)
  "Horizontal numbers keep their width."
  (+ (* 0.4 ttxt) (plv-largeur-texte (itoa (length points)) ttxt)))

(defun plv-espacement:partielles (points ttxt)
  "Partial distances may narrow to 0.6 and lose height down to 0.7."
  (* 1.1 0.6 0.7 (plv-largeur-texte (plv-reel (plv-espacement:mediane points) 2) ttxt)))

(defun plv-espacement:mediane (points / ecarts)
  (setq ecarts (vl-sort (mapcar '(lambda (a b) (- (car b) (car a))) points (cdr points)) '<))
  (nth (/ (length ecarts) 2) ecarts))

(defun plv-espacement-necessaire (types points ttxt)
  (apply 'max
    (cons 0.0
      (mapcar '(lambda (regle) (apply regle (list points ttxt))) (vl-remove nil (mapcar 'plv-types:espacement types))))))

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
