;; From what is drawn back to vertices: straight parts and vertical curves, in (distance altitude), become the vertices of
;; a project line with their requests. A vertical curve's vertex is where its end tangents meet.

;; A part is (d1 d2 start end) when straight, (d1 d2 start end second third radius shape) when curved: the points behind
;; the start and before the end give the tangents.

(defun plv-sommets:partie (p / h)
  "A part of plv-trace as a part of this file."
  (if (cdddr p)
    (progn
      (setq h (mapcar 'plv-trace:bout (caddr p)))
      (list (car p) (cadr p) (car h) (cadddr h) (cadr h) (caddr h) (cadddr p) (nth 4 p)))
    (vl-list* (car p) (cadr p) (caddr p))))

(defun plv-sommets:courbe-p (partie) (nth 6 partie))

(defun plv-sommets:rencontre (partie / a b p1 p2 d)
  "The vertex of a curve."
  (setq a (caddr partie) b (cadddr partie)
        p1 (plv-raccords:pente a (nth 4 partie))
        p2 (plv-raccords:pente (nth 5 partie) b)
        d (/ (+ (- (cadr b) (cadr a)) (- (* p1 (car a)) (* p2 (car b)))) (- p1 p2)))
  (list d (+ (cadr a) (* p1 (- d (car a))))))

(defun plv-sommets:demande (partie)
  (if (= (nth 7 partie) "P") (list "P" "L" (- (cadr partie) (car partie))) (list "C" "R" (nth 6 partie))))

(defun plv-sommets:aux-plans (d coupes) (vl-some '(lambda (c) (equal c d 1e-6)) coupes))

(defun plv-sommets:suite (a b coupes)
  "T when b is only the other side of a change of plane in a."
  (and (plv-sommets:aux-plans (car b) coupes)
       (if (plv-sommets:courbe-p a)
         (and (plv-sommets:courbe-p b) (= (nth 7 a) (nth 7 b)) (equal (nth 6 a) (nth 6 b) (* 1e-9 (nth 6 a))))
         (and (not (plv-sommets:courbe-p b))
              (equal (apply 'plv-raccords:pente (cddr a)) (apply 'plv-raccords:pente (cddr b)) 1e-9)))))

(defun plv-sommets:joindre (parties coupes / jointes)
  "The parts with those that a change of plane has cut in one piece again."
  (foreach p parties
    (setq jointes
      (if (and jointes (plv-sommets:suite (car jointes) p coupes))
        (cons (plv-sommets:reunir (car jointes) p) (cdr jointes))
        (cons p jointes))))
  (reverse jointes))

(defun plv-sommets:reunir (a b)
  (if (plv-sommets:courbe-p a)
    (list (car a) (cadr b) (caddr a) (cadddr b) (nth 4 a) (nth 5 b) (nth 6 a) (nth 7 a))
    (list (car a) (cadr b) (caddr a) (cadddr b))))

(defun plv-sommets-de (parties coupes / sommets precedente)
  "Vertices (distance altitude [request]) of parts that follow each other; coupes: distances of the changes of plane."
  (foreach p (plv-sommets:joindre parties coupes)
    (if (or (not precedente) (and (not (plv-sommets:courbe-p p)) (not (plv-sommets:courbe-p precedente))))
      (setq sommets (cons (caddr p) sommets)))
    (if (plv-sommets:courbe-p p)
      (setq sommets (cons (append (plv-sommets:rencontre p) (list (plv-sommets:demande p))) sommets)))
    (setq precedente p))
  (reverse (cons (cadddr precedente) sommets)))

;; --- the parts of a project line in the drawing

(defun plv-sommets:vertex (e / points groupes)
  "The vertices of an old polyline."
  (while (= (plv-cle 0 (setq groupes (entget (setq e (entnext e))))) "VERTEX") (setq points (cons (cdr (assoc 10 groupes)) points)))
  (reverse points))

(defun plv-sommets:groupes (code groupes) (mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) code)) groupes)))

(defun plv-sommets:points (e / groupes)
  "The points of a curve that is straight between them; nil for another."
  (setq groupes (entget e))
  (cond
    ((= (plv-cle 0 groupes) "LINE") (list (plv-cle 10 groupes) (plv-cle 11 groupes)))
    ((vl-some '(lambda (b) (/= b 0.0)) (plv-sommets:groupes 42 groupes)) nil)
    ((= (plv-cle 0 groupes) "LWPOLYLINE") (plv-sommets:groupes 10 groupes))
    ((= (plv-cle 0 groupes) "POLYLINE") (plv-sommets:vertex e))))

(defun plv-sommets:vers-profil (point plan p)
  "A point of the drawing as (distance altitude)."
  (list (- (car p) (car point)) (+ (cadr plan) (/ (- (cadr p) (cadr point)) plv-sommets:echv))))

(defun plv-sommets:gauche-droite (points) (if (> (caar points) (car (plv-dernier points))) (reverse points) points))

(defun plv-sommets:droites (points)
  (vl-remove-if '(lambda (p) (< (- (cadr p) (car p)) 1e-6))
    (mapcar '(lambda (a b) (list (car a) (car b) a b)) points (cdr points))))

(defun plv-sommets:echantillons (profil s plans / d pas points z)
  "A curve that is neither straight nor a vertical curve of ours: points along it."
  (setq d (car s) pas (/ (- (cadr s) (car s)) 50.0))
  (repeat 51
    (if (setq z (plv-altitude-projet profil (list s) plans (min d (cadr s)))) (setq points (cons (list (min d (cadr s)) z) points)))
    (setq d (+ d pas)))
  (setq plv-sommets:echantillonnees (1+ plv-sommets:echantillonnees))
  (reverse points))

(defun plv-sommets:parties (profil s plans / e point plan points)
  "The parts of one project element s: (d1 d2 plane-or-nil entity)."
  (setq e (cadddr s)
        point (plv-cle 10 (entget profil))
        plan (cond ((caddr s)) ((plv-plan-en plans (* 0.5 (+ (car s) (cadr s)))))))
  (cond
    ((setq points (plv-sommets:points e))
     (plv-sommets:droites (plv-sommets:gauche-droite (mapcar '(lambda (p) (plv-sommets:vers-profil point plan p)) points))))
    ((and (plv-rayon e) (= (plv-cle 0 (entget e)) "SPLINE"))
     (setq points (plv-sommets:gauche-droite
                    (mapcar '(lambda (p) (plv-sommets:vers-profil point plan p)) (plv-sommets:groupes 10 (entget e)))))
     (list (list (caar points) (car (plv-dernier points)) (car points) (plv-dernier points) (cadr points)
                 (cadr (reverse points)) (plv-rayon e) (cond ((plgxd e "RACCORD")) ("C")))))
    (T (plv-sommets:droites (plv-sommets:echantillons profil s plans)))))

(defun plv-sommets:suivis (parties / suites)
  "The parts in runs without gaps."
  (foreach p parties
    (setq suites
      (if (and suites (equal (cadr (caar suites)) (car p) 1e-5) (equal (cadr (cadddr (caar suites))) (cadr (caddr p)) 1e-5))
        (cons (cons p (car suites)) (cdr suites))
        (cons (list p) suites))))
  (reverse (mapcar 'reverse suites)))

(defun plv-projet-sommets (profil genre / plans parties plv-sommets:echv plv-sommets:echantillonnees)
  "The project line of a kind as lists of vertices, one for each run without a gap; distances from the profile's origin."
  (setq plans (plv-tables:plans profil)
        plv-sommets:echv (plgxd profil "ECHV")
        plv-sommets:echantillonnees 0
        parties (apply 'append (mapcar '(lambda (s) (plv-sommets:parties profil s plans)) (plv-elements-situes profil genre)))
        parties (vl-sort parties '(lambda (a b) (< (car a) (car b)))))
  (if (> plv-sommets:echantillonnees 0)
    (plv-dire (strcat "Courbes quelconques du genre " genre ": " (itoa plv-sommets:echantillonnees) ", rendues par des points.")))
  (mapcar '(lambda (suite) (plv-sommets-de suite (mapcar 'car (cdr plans)))) (plv-sommets:suivis parties)))
