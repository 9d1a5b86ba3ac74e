;; Rows about the ground: numbers, distances, altitudes, observations, marks at round stations.
;; Shared in the room: plv-remplir:*

(defun plv-remplir:numeros (points contexte)
  (foreach p points (pl_TexteHorizontalCentre (car p) (itoa (plv-point-numero p))))
  0)

(defun plv-remplir:numeros-verticaux (points contexte)
  (foreach p points (pl_TexteVertical (car p) (itoa (plv-point-numero p))))
  0)

(defun plv-remplir:distances-partielles (points contexte)
  (plv-remplir:partielles (mapcar 'car points))
  0)

(defun plv-remplir:distances-cumulees (points contexte)
  ;; Here a point would be refused: the abscissas of short rows go one by one.
  (foreach p points (plv-remplir:cumulee (car p) contexte))
  0)

(defun plv-remplir:altitudes-tn (points contexte)
  (foreach p points (plv-remplir:nombre (car p) (cadr p) contexte))
  0)

;; --- observations

(defun plv-remplir:a-droite-p (p contexte)
  "Whether an observation stands to the right of its point: near the end of the table it stands to the left."
  (<= (+ (car p) (* 2.0 (plv-cle 'ttxt contexte))) (plv-cle 'longueur contexte)))

(defun plv-remplir:observations-ecrites (contexte / ecrites)
  "The named points that have room after the one before: three text heights, to the left of a point as many more."
  (foreach p (plv-cle 'nommes contexte)
    (if (or (not ecrites)
            (>= (- (car p) (caar ecrites)) (* (if (plv-remplir:a-droite-p p contexte) 3.2 6.4) (plv-cle 'ttxt contexte))))
      (setq ecrites (cons p ecrites))))
  (reverse ecrites))

(defun plv-remplir:observations (points contexte / ecrites)
  "Named points with their station."
  (setq ecrites (plv-remplir:observations-ecrites contexte))
  (foreach p ecrites (plv-remplir:observation p contexte))
  (- (length (plv-cle 'nommes contexte)) (length ecrites)))

(defun plv-remplir:observation (p contexte / ttxt station)
  "Station and name to the right of the point; to its left where the table ends."
  (setq ttxt (plv-cle 'ttxt contexte)
        station (+ (plv-cle 'origine contexte) (car p)))
  (if (plv-remplir:a-droite-p p contexte)
    (pl_ptPkEtObs (float (car p)) station (plv-point-nom p))
    (progn
      (pl_TexteVertical (- (car p) (* 3.2 ttxt)) (pl_distToPk station))
      (pl_TexteVertical (- (car p) (* 1.7 ttxt)) (plv-point-nom p)))))

;; --- marks

(setq plv-reperes:pas '(10.0 20.0 25.0 50.0 100.0 200.0 250.0 500.0 1000.0))

(defun plv-remplir:reperes-ecrits (contexte / place)
  "(distance station) of a mark at every round station, the station nil where there is no room for it to the right."
  (setq place (plv-reperes:largeur contexte))
  (mapcar
    '(lambda (m) (list m (if (<= (+ m place) (+ (plv-cle 'longueur contexte) 1e-6)) (+ m (plv-cle 'origine contexte)))))
    (plv-reperes:marques contexte)))

(defun plv-remplir:reperes (points contexte / marques)
  "The marks, with the station written to their right."
  (setq marques (plv-remplir:reperes-ecrits contexte))
  ;; Ticks only: a text of bars has no part to write.
  (mapcar '(lambda (a b) (pl_TexteMultipleCentre (float (car a)) (float (car b)) "|")) marques (cdr marques))
  (foreach m (vl-remove-if-not 'cadr marques) (pl_TexteHorizontalGauche (float (car m)) (pl_distToPk (cadr m) 0) 0 0.5))
  0)

(defun plv-reperes:marques (contexte / pas station d marques)
  "The distances of the round stations."
  (setq pas (plv-reperes:pas-choisi contexte)
        station (* pas (float (plv-partie-entiere (/ (+ (plv-cle 'origine contexte) pas -1e-6) pas)))))
  (while (<= (setq d (- station (plv-cle 'origine contexte))) (+ (plv-cle 'longueur contexte) 1e-6))
    (setq marques (cons d marques) station (+ station pas)))
  (reverse marques))

(defun plv-reperes:largeur (contexte)
  (+ (plv-cle 'ttxt contexte)
     (plv-largeur-texte (pl_distToPk (+ (plv-cle 'origine contexte) (plv-cle 'longueur contexte)) 0) (plv-cle 'ttxt contexte))))

(defun plv-reperes:pas-choisi (contexte)
  (cond ((car (vl-member-if '(lambda (p) (>= p (* 1.2 (plv-reperes:largeur contexte)))) plv-reperes:pas)))
        ((plv-dernier plv-reperes:pas))))
