;; Which points of the ground get a cell: neighbours must be far enough apart for the rows that the table has.
;; The first and the last point always have one. Each rule gives the least distance between neighbours, in drawing units.
;; Shared in the room: plv-espacement:numeros plv-espacement:verticaux plv-espacement:partielles plv-espacement:desserrer

(defun plv-espacement:verticaux (points ttxt)
  "Vertical texts stand side by side."
  (* 1.3 ttxt))

(defun plv-espacement:numeros (points ttxt)
  "Horizontal numbers keep their width."
  (+ (* 0.4 ttxt) (plv-largeur-texte (itoa (length points)) ttxt)))

(defun plv-espacement:partielles (points ttxt / ecart)
  "Distances between two ticks, with room on both sides, may narrow to 0.7. The longer the distance, the wider its text: the
least one that holds its own."
  (setq ecart 0.0)
  (repeat 4 (setq ecart (+ (* 0.5 ttxt) (* 0.7 (plv-largeur-texte (plv-reel ecart 2) ttxt)))))
  ecart)

(defun plv-espacement:desserrer (texte / groupes place boite)
  "Narrows the text of a distance that fills its cell, so that it touches neither tick."
  (setq groupes (entget texte) boite (plv-boite texte)
        place (- (atof (plv-cle 1 groupes)) (* 0.5 (plv-cle 40 groupes))))
  (if (< 0.0 place (- (caddr boite) (car boite)))
    (entmod (subst (cons 41 (* (plv-cle 41 groupes) (/ place (- (caddr boite) (car boite))))) (assoc 41 groupes) groupes))))

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
