;; What quantities are made from, as vertices (distance altitude) that don't depend on how the drawing is cut: the lines of a kind, the
;; ground over them, the depth classes. Whoever wants to know whether quantities are still true compares these.

(defun plv-metres-sources:droites (sommets / points)
  "Vertices, each once, without those on a straight run."
  (foreach q sommets
    (cond
      ((and points (equal q (car points) 1e-7)))
      ((and (cdr points) (plv-metres-sources:entre-p (cadr points) (car points) q)) (setq points (cons q (cdr points))))
      (T (setq points (cons q points)))))
  (reverse points))

(defun plv-metres-sources:bouts (pieces)
  (apply 'append (mapcar '(lambda (p) (list (list (car p) (cadr p)) (list (caddr p) (cadddr p)))) pieces)))

(defun plv-metres-sources:sommets (pieces coupes)
  "The ends of sorted pieces; all of them where it matters how they are cut."
  (if coupes (plv-metres-sources:bouts pieces) (plv-metres-sources:droites (plv-metres-sources:bouts pieces))))

(defun plv-metres-sources:entre-p (a b c)
  "Whether b is on the straight run from a to c."
  (and (< (car a) (car b) (car c)) (equal (plv-interpoler (list a c) (car b)) (cadr b) 1e-6)))

(defun plv-lignes-mesurees (profil genre coupes / cadre)
  "The vertices of each line of a kind, from left to right; coupes: those on a straight run too, which outlines of hatches have."
  (setq cadre (plv-cadre profil))
  (vl-sort
    (vl-remove nil
      (mapcar '(lambda (e) (plv-metres-sources:sommets (plv-traces:pieces cadre e nil) coupes)) (plv-elements profil genre)))
    '(lambda (a b) (< (caar a) (caar b)))))

(defun plv-arcs-mesures (profil genre / cadre)
  "The distances of the vertices of each curved line: from one to the next the module measures along chords of its own."
  (setq cadre (plv-cadre profil))
  (mapcar '(lambda (e) (mapcar '(lambda (p) (plv-distance cadre p)) (plv-cles 10 (entget e))))
    (vl-remove-if-not 'plv-traces:courbe-p (plv-elements profil genre))))

(defun plv-joindre-lignes (lignes / jointes)
  "Lines that go on where others end as one."
  (foreach ligne lignes
    (if (and jointes (equal (plv-dernier (car jointes)) (car ligne) 1e-6))
      (setq jointes (cons (plv-metres-sources:droites (append (car jointes) (cdr ligne))) (cdr jointes)))
      (setq jointes (cons ligne jointes))))
  (reverse jointes))

(defun plv-etendue-mesuree (lignes)
  "From where to where lines go; nil for none."
  (if lignes
    (list (apply 'min (mapcar 'caar lignes)) (apply 'max (mapcar '(lambda (l) (car (plv-dernier l))) lignes)))))

(defun plv-terrain-mesure (profil etendue coupes / a b)
  "The vertices of the ground as it is drawn, over a stretch."
  (setq a (plv-debut etendue) b (plv-fin etendue))
  (plv-metres-sources:sommets
    (mapcar '(lambda (p) (plv-metres-sources:borner p a b))
      (vl-remove-if '(lambda (p) (or (<= (plv-piece-fin p) (+ a 1e-9)) (>= (plv-piece-debut p) (- b 1e-9))))
        (plv-traces:terrain profil (plv-cadre profil) (plv-elements profil "TN") nil)))
    coupes))

(defun plv-metres-sources:borner (p a b)
  "A piece between two distances."
  (setq a (max a (plv-piece-debut p)) b (min b (plv-piece-fin p)))
  (list a (plv-piece-altitude p a) b (plv-piece-altitude p b)))

(defun plv-classes-profondeur ()
  "The depth classes, as texts: the dialog's list of them."
  (caddr (dialoguer plv-metres:dialogue '("Fermer"))))
