;; Lines that another program drew, as vertices with vertical curves: straight parts, and curves that it drew as arcs, splines or chords. A
;; curve is where the slope changes evenly from point to point; it becomes the circle or the parabola through its ends and its middle,
;; whichever is nearer. The whole is compared with the curves, and told or refused by a tolerance.

(setq plv-reconnaitre:parts 16 plv-reconnaitre:fines 64 plv-reconnaitre:variation 0.3 plv-reconnaitre:moindres 3)

;; --- the points of curves, (distance altitude)

(defun plv-reconnaitre:de-forme (forme parts / points)
  "Points of the drawing: vertices, and points along what is curved."
  (if (plv-forme-polyligne-p forme)
    (plv-reconnaitre:de-polyligne (plv-forme-elements forme) parts)
    (progn
      (foreach c (plv-forme-elements forme) (setq points (append points (plv-reconnaitre:de-cubique c parts))))
      points)))

(defun plv-reconnaitre:de-cubique (courbe parts / i points)
  (setq i -1)
  (repeat (1+ parts)
    (setq i (1+ i) points (cons (plv-cubique-en courbe (/ (float i) parts)) points)))
  (reverse points))

(defun plv-reconnaitre:de-polyligne (sommets parts)
  (append
    (apply 'append
      (mapcar
        '(lambda (a b)
           (if (equal (plv-sommet-bulbe a) 0.0 1e-12) (list a) (plv-reconnaitre:d-arc a b parts)))
        sommets (cdr sommets)))
    (list (plv-dernier sommets))))

(defun plv-reconnaitre:d-arc (a b parts / i forme points)
  "Points on an arc, at even abscissas, without its end."
  (setq i 0 forme (list "P" a (list (car b) (cadr b) 0.0)) points (list a))
  (repeat (1- parts)
    (setq i (1+ i)
          points (cons (plv-forme-depart (cadr (plv-couper-forme forme (+ (car a) (* (- (car b) (car a)) (/ (float i) parts)))))) points)))
  (reverse points))

(defun plv-reconnaitre:de-courbe (profil cadre entite parts / mise)
  "The points of an entity on the profile, so many for a curved piece, or the text of why it has none."
  (setq mise (plv-mise-en-forme entite cadre (plv-bornes-profil cadre profil)))
  (if (= (type mise) 'STR)
    (strcat (plv-nom-courbe entite) ": " mise)
    (plv-points-sans-doubles
      (apply 'append
        (mapcar
          '(lambda (forme / points plan)
             (setq points (plv-reconnaitre:de-forme forme parts)
                   plan (plv-plan-en (plv-cadre-plans cadre)
                          (* 0.5 (+ (plv-distance cadre (car points)) (plv-distance cadre (plv-dernier points))))))
             (mapcar '(lambda (p) (plv-vers-profil-sur cadre plan p)) points))
          (plv-mise-formes mise))))))

(defun plv-reconnaitre:suites (morceaux ecart / suites)
  "Pieces from left to right as runs without gaps."
  (foreach m (vl-sort morceaux '(lambda (a b) (< (caar a) (caar b))))
    (setq suites
      (if (and suites (equal (plv-dernier (car suites)) (car m) ecart))
        (cons (append (car suites) (cdr m)) (cdr suites))
        (cons m suites))))
  (reverse (mapcar 'plv-reconnaitre:montant suites)))

(defun plv-reconnaitre:montant (points / gardes)
  "Without points that stand over the one before."
  (foreach p points (if (not (and gardes (<= (car p) (+ (caar gardes) 1e-5)))) (setq gardes (cons p gardes))))
  (reverse gardes))

;; --- where the slope changes evenly

(defun plv-reconnaitre:courbure (a b c)
  "The change of slope by metre at the middle of three points."
  (/ (- (plv-pente b c) (plv-pente a b)) (* 0.5 (- (car c) (car a)))))

(defun plv-reconnaitre:courbures (points)
  "For each point; nil for the ends."
  (append '(nil) (mapcar 'plv-reconnaitre:courbure points (cdr points) (cddr points)) '(nil)))

(defun plv-reconnaitre:semblables-p (a b)
  (and a b (> (abs a) 1e-7) (<= (abs (- a b)) (* plv-reconnaitre:variation (max (abs a) (abs b))))))

(defun plv-reconnaitre:plages (courbures / rang debut plages precedente)
  "(first last) of the ranks between which the slope changes evenly, the points of contact among them."
  (setq rang -1)
  (foreach c (append courbures '(nil))
    (setq rang (1+ rang))
    (cond
      ((plv-reconnaitre:semblables-p precedente c) (if (not debut) (setq debut (1- rang))))
      (debut
       (if (>= (- rang debut) plv-reconnaitre:moindres) (setq plages (cons (list (1- debut) rang) plages)))
       (setq debut nil)))
    (setq precedente c))
  (reverse plages))

;; --- a curve of the points of a stretch: the vertex with its request

(defun plv-reconnaitre:sommet (a b p1 p2 demande / d)
  "Where two slopes through the ends meet; nil for parallel ones."
  (if (not (equal p1 p2 1e-9))
    (progn
      (setq d (/ (+ (- (cadr b) (cadr a)) (- (* p1 (car a)) (* p2 (car b)))) (- p1 p2)))
      (if (< (car a) d (car b)) (list d (+ (cadr a) (* p1 (- d (car a)))) demande)))))

(defun plv-reconnaitre:parabole (a m b / l t1 k p1)
  "Through three points."
  (setq l (- (car b) (car a)) t1 (- (car m) (car a))
        k (/ (- (plv-pente m b) (plv-pente a m)) l)
        p1 (- (plv-pente a m) (* k t1)))
  (plv-reconnaitre:sommet a b p1 (+ p1 (* 2.0 k l)) (list "P" "L" l)))

(defun plv-reconnaitre:cercle (a m b / x1 y1 x2 y2 d u v r)
  "Through three points; nil for none."
  (setq x1 (- (car m) (car a)) y1 (- (cadr m) (cadr a)) x2 (- (car b) (car a)) y2 (- (cadr b) (cadr a))
        d (* 2.0 (- (* x1 y2) (* x2 y1))))
  (if (not (equal d 0.0 1e-12))
    (progn
      (setq u (/ (- (* y2 (+ (* x1 x1) (* y1 y1))) (* y1 (+ (* x2 x2) (* y2 y2)))) d)
            v (/ (- (* x1 (+ (* x2 x2) (* y2 y2))) (* x2 (+ (* x1 x1) (* y1 y1)))) d)
            r (sqrt (+ (* u u) (* v v))))
      (plv-reconnaitre:sommet a b (- (/ u v)) (/ (- x2 u) (- v y2)) (list "C" "R" r)))))

(defun plv-reconnaitre:ecart-de (raccord points)
  "How far points are from a curve at most; nil for one that can't be."
  (if (and raccord (listp raccord))
    (apply 'max
      (mapcar
        '(lambda (p / d)
           (setq d (plv-entre (car p) (+ (plv-debut raccord) 1e-9) (- (plv-fin raccord) 1e-9)))
           (abs (- (cadr p) (plv-cubique-z (plv-dernier (car (plv-couper-cubique (plv-raccord-courbe raccord) d)))))))
        points))))

(defun plv-reconnaitre:essai (avant points apres sommet / raccord ecart)
  "(deviation vertex) of a vertex between two others for a stretch; nil for one that can't be. A curve through a point gets the radius or
the length that it has then."
  (if sommet
    (progn
      (setq raccord (plv-raccord avant sommet apres (plv-demande-de sommet)) ecart (plv-reconnaitre:ecart-de raccord points))
      (if ecart
        (list ecart (list (car sommet) (cadr sommet)
                          (if (= (plv-partie-forme raccord) "P") (list "P" "L" (plv-longueur raccord)) (list "C" "R" (plv-partie-rayon raccord)))))))))

(defun plv-reconnaitre:essais (avant points apres sommets)
  (vl-sort (vl-remove nil (mapcar '(lambda (s) (plv-reconnaitre:essai avant points apres s)) sommets)) '(lambda (x y) (< (car x) (car y)))))

(defun plv-reconnaitre:tangents (avant points apres / m)
  "The vertices where the straight parts beside a stretch meet, with both shapes through its middle; nil without such parts."
  (if (and avant apres)
    (progn
      (setq m (nth (/ (length points) 2) points))
      (mapcar
        '(lambda (forme)
           (plv-reconnaitre:sommet (car points) (plv-dernier points) (plv-pente avant (car points)) (plv-pente (plv-dernier points) apres)
             (list forme "P" (car m) (cadr m))))
        '("C" "P")))))

(defun plv-reconnaitre:courbe (avant points apres tolerance / a m b essai)
  "(deviation vertex) of a stretch with its curve, the nearer of both shapes: tangent to the straight parts beside it where that is near enough,
else by itself; nil for none."
  (setq a (car points) b (plv-dernier points) m (nth (/ (length points) 2) points)
        essai (car (plv-reconnaitre:essais avant points apres (plv-reconnaitre:tangents avant points apres))))
  (if (and essai (<= (car essai) tolerance))
    essai
    (car (plv-reconnaitre:essais a points b (list (plv-reconnaitre:cercle a m b) (plv-reconnaitre:parabole a m b))))))

;; --- the vertices of a run

(defun plv-reconnaitre:entre (points premier dernier) (plv-premiers (plv-sans-premiers points premier) (1+ (- dernier premier))))

(defun plv-reconnaitre:sommets (points tolerance / rang sommets courbe)
  "The vertices: those of curves that are near enough, and the points elsewhere."
  (setq rang 0)
  (foreach plage (plv-reconnaitre:plages (plv-reconnaitre:courbures points))
    (setq courbe (plv-reconnaitre:courbe
                   (if (> (car plage) rang) (nth (1- (car plage)) points)) (plv-reconnaitre:entre points (car plage) (cadr plage))
                   (nth (1+ (cadr plage)) points) tolerance))
    (if (and courbe (<= (car courbe) tolerance))
      (setq sommets (cons (cadr courbe) (append (reverse (plv-reconnaitre:entre points rang (1- (car plage)))) sommets))
            rang (1+ (cadr plage)))))
  (setq sommets (append (reverse (plv-sans-premiers points rang)) sommets))
  (plv-reconnaitre:simples (plv-reconnaitre:avec-bouts (reverse sommets) points) tolerance))

(defun plv-reconnaitre:avec-bouts (sommets points)
  "A curve at an end of the line has its point of contact for a vertex."
  (append (if (caddr (car sommets)) (list (car points)))
          sommets
          (if (caddr (plv-dernier sommets)) (list (plv-dernier points)))))

(defun plv-reconnaitre:simples (sommets tolerance / gardes)
  "Without vertices on the straight line between their neighbours."
  (setq gardes (list (car sommets)))
  (while (cddr sommets)
    (if (or (caddr (cadr sommets))
            (> (abs (- (plv-interpoler (list (car gardes) (caddr sommets)) (car (cadr sommets))) (cadr (cadr sommets)))) (* 0.1 tolerance)))
      (setq gardes (cons (cadr sommets) gardes)))
    (setq sommets (cdr sommets)))
  (reverse (cons (cadr sommets) gardes)))

;; --- the whole

(defun plv-reconnaitre:ecart (sommets points / raccords parties pire z)
  "(deviation distance) where a line is furthest from the points; the text of why it can't be drawn."
  (setq raccords (plv-raccords sommets) pire '(0.0 0.0))
  (if (= (type raccords) 'STR)
    raccords
    (progn
      (setq parties (plv-parties sommets raccords))
      (foreach p points
        (if (> (abs (- (setq z (plv-reconnaitre:altitude parties (car p))) (cadr p))) (car pire)) (setq pire (list (abs (- z (cadr p))) (car p)))))
      pire)))

(defun plv-reconnaitre:altitude (parties d / partie)
  (setq partie (cond ((car (vl-member-if '(lambda (q) (<= (plv-debut q) d (plv-fin q))) parties))) ((plv-dernier parties))))
  (if (plv-partie-courbe-p partie)
    (plv-cubique-z (plv-dernier (car (plv-couper-cubique (plv-partie-courbe partie) d))))
    (plv-interpoler (plv-partie-points partie) d)))

(defun plv-reconnaitre-courbes (profil entites tolerance / cadre lus sommets)
  "(runs of vertices, deviation, its distance) of curves, or the text of why not. It is judged at more points than it is made of."
  (setq cadre (plv-cadre profil) lus (mapcar '(lambda (e) (plv-reconnaitre:de-courbe profil cadre e plv-reconnaitre:parts)) entites))
  (cond
    ((car (vl-remove-if 'listp lus)))
    (T
     (setq sommets (mapcar '(lambda (points) (plv-reconnaitre:sommets points tolerance)) (plv-reconnaitre:suites lus tolerance))
           lus (mapcar '(lambda (e) (plv-reconnaitre:de-courbe profil cadre e plv-reconnaitre:fines)) entites))
     (plv-reconnaitre:juger sommets (mapcar 'plv-reconnaitre:ecart sommets (plv-reconnaitre:suites lus tolerance)) tolerance))))

(defun plv-reconnaitre:juger (sommets ecarts tolerance / pire)
  (cond
    ((car (vl-remove-if 'listp ecarts)))
    ((> (car (setq pire (car (vl-sort ecarts '(lambda (a b) (> (car a) (car b))))))) tolerance)
     (strcat "la ligne reconnue s'écarte de " (plv-reel (car pire) 4) " m à la distance " (plv-reel (cadr pire) 2)))
    ((cons sommets pire))))

(defun plv-projet-reconnu (profil genre jeu tolerance / reconnu origine)
  "Draws the line that curves are, and attaches it; they stay. Its entities, or nil after a message."
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((not jeu) (plv-erreur "aucune courbe choisie"))
    ((= (type (setq reconnu (plv-reconnaitre-courbes profil (plv-entites-du-jeu jeu) tolerance))) 'STR) (plv-erreur reconnu))
    (T
     (setq origine (plv-premiere-station profil))
     (plv-dire (strcat "Écart le plus grand avec les courbes: " (plv-reel (cadr reconnu) 4) " m à la station "
                       (plv-reel (+ origine (caddr reconnu)) 2) ", admis " (plv-reel tolerance 4) "."))
     (apply 'append
       (mapcar '(lambda (suite) (plv-projet profil genre (mapcar '(lambda (s) (cons (+ origine (car s)) (cdr s))) suite))) (car reconnu))))))
