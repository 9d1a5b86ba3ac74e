;; From forms back to entities: written into the entity where it is of a kind that holds the form, else made in its place.

;; what a new entity takes over of the one that it stands for: layer, colour, line type and the like
(setq plv-formes:proprietes '(8 6 48 62 370 420 430 440 410))

(defun plv-formes:communs (groupes)
  (vl-remove-if-not '(lambda (g) (member (car g) plv-formes:proprietes)) groupes))

(defun plv-formes:largeur (groupes)
  "The width of a polyline, when it has one. The same groups of arcs and splines are radii, knots and tolerances."
  (cond ((plv-cle (plv-cle (plv-cle 0 groupes) '(("LWPOLYLINE" . 43) ("POLYLINE" . 40))) groupes))
        (0.0)))

(defun plv-formes:en-polyligne (sommets largeur)
  "The groups of a light polyline behind its head."
  (append
    (list (cons 90 (length sommets)) '(70 . 0) (cons 43 largeur) '(38 . 0.0))
    (apply 'append (mapcar '(lambda (s) (list (list 10 (car s) (cadr s)) (cons 42 (plv-sommet-bulbe s)))) sommets))
    '((210 0.0 0.0 1.0))))

(defun plv-formes:noeuds (nombre / i noeuds)
  "Of cubics one after the other: each joint three times, the ends four times."
  (setq i -1)
  (repeat (1+ nombre) (setq i (1+ i)) (repeat 3 (setq noeuds (cons (float i) noeuds))))
  (append '(0.0) (reverse noeuds) (list (float nombre))))

(defun plv-formes:en-spline (courbes / points rationnelle)
  (setq points (cons (caar courbes) (apply 'append (mapcar 'cdr courbes)))
        rationnelle (not (vl-every '(lambda (h) (equal (plv-cubique-poids h) 1.0 1e-12)) points)))
  (append
    (list '(210 0.0 0.0 1.0) (cons 70 (if rationnelle 12 8)) '(71 . 3) (cons 72 (+ 5 (* 3 (length courbes)))) (cons 73 (length points)) '(74 . 0))
    (mapcar '(lambda (k) (cons 40 k)) (plv-formes:noeuds (length courbes)))
    (if rationnelle (mapcar '(lambda (h) (cons 41 (plv-cubique-poids h))) points))
    (mapcar '(lambda (h) (list 10 (plv-cubique-d h) (plv-cubique-z h) 0.0)) points)))

(defun plv-formes:une-ligne-p (forme)
  "Whether a line holds a form."
  (and (plv-forme-polyligne-p forme) (= (length forme) 3) (not (plv-forme-courbe-p forme))))

(defun plv-formes:bouts (forme)
  (list (cons 10 (plv-point (car (cadr forme)) (cadr (cadr forme)))) (cons 11 (plv-point (car (caddr forme)) (cadr (caddr forme))))
        '(210 0.0 0.0 1.0)))

(defun plv-formes:type-pour (genre forme)
  "The kind of entity that holds a form of a curve of a kind."
  (cond ((not (plv-forme-polyligne-p forme)) "SPLINE") ((and (= genre "LINE") (plv-formes:une-ligne-p forme)) "LINE") ("LWPOLYLINE")))

(defun plv-formes:corps (type-voulu forme largeur)
  (cond ((= type-voulu "LINE") (cons '(100 . "AcDbLine") (plv-formes:bouts forme)))
        ((= type-voulu "SPLINE") (cons '(100 . "AcDbSpline") (plv-formes:en-spline (cdr forme))))
        (T (cons '(100 . "AcDbPolyline") (plv-formes:en-polyligne (cdr forme) largeur)))))

(defun plv-forme-tracer (forme / genre)
  "A curve of a form on the current layer, with nothing of its own."
  (setq genre (plv-formes:type-pour nil forme))
  (entmakex (append (list (cons 0 genre) '(100 . "AcDbEntity")) (plv-formes:corps genre forme 0.0))))

(defun plv-forme-des-cordes (entite / forme)
  "The form of a polyline that stands for a curve with arcs, for those that read arcs along their chords; nil for a curve that needs none."
  (setq forme (plv-forme-de entite))
  (if (and (listp forme) (plv-forme-courbe-p forme)) (plv-forme-en-cordes forme)))

(defun plv-cordes-de (entite / forme)
  "The same, drawn now for functions of the module."
  (if (setq forme (plv-forme-des-cordes entite)) (plv-forme-tracer forme)))

(defun plv-forme-creer (modele forme / groupes genre)
  "A new curve of a form, with the looks and the keys of another one."
  (setq groupes (entget modele '("*")) genre (plv-formes:type-pour (plv-cle 0 groupes) forme))
  (entmakex
    (append (list (cons 0 genre) '(100 . "AcDbEntity")) (plv-formes:communs groupes)
            (plv-formes:corps genre forme (plv-formes:largeur groupes))
            (if (assoc -3 groupes) (list (assoc -3 groupes))))))

(defun plv-courbe-comme (entite modele / groupes)
  "Gives a curve the shape of another one of its kind, to the last digit; it keeps its looks and keys."
  (setq groupes (entget entite))
  (entmod (append (plv-formes:tete groupes) '((100 . "AcDbEntity")) (plv-formes:communs groupes) (plv-formes:de-la-courbe (entget modele)))))

(defun plv-formes:de-la-courbe (groupes)
  "The groups behind those that every entity has."
  (setq groupes (cdr (member '(100 . "AcDbEntity") groupes)))
  (while (/= (caar groupes) 100) (setq groupes (cdr groupes)))
  groupes)

(defun plv-formes:tete (groupes)
  "The groups of an entity in front of those of its curve."
  (reverse (cdr (member '(100 . "AcDbEntity") (reverse groupes)))))

(defun plv-forme-ecrire (entite forme / groupes genre neuve)
  "Gives a curve a form; the entity that has it, which is another one when it had to be of another kind."
  (setq groupes (entget entite) genre (plv-formes:type-pour (plv-cle 0 groupes) forme))
  (if (= genre (plv-cle 0 groupes))
    (progn
      (entmod (append (plv-formes:tete groupes) '((100 . "AcDbEntity")) (plv-formes:communs groupes)
                      (plv-formes:corps genre forme (plv-formes:largeur groupes))))
      entite)
    (progn (setq neuve (plv-forme-creer entite forme)) (entdel entite) neuve)))
