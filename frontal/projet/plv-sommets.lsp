;; From what is drawn back to vertices: straight parts and vertical curves, in (distance altitude), become the vertices of
;; a project line with their requests. A vertical curve's vertex is where its end tangents meet.

;; --- a span is a part by its ends: (from to start end) when straight, (from to start end second third radius shape
;; measure) when curved; the points after the start and before the end give the tangents

(defun plv-travee-depart (travee) (caddr travee))
(defun plv-travee-arrivee (travee) (cadddr travee))
(defun plv-travee-second (travee) (nth 4 travee))
(defun plv-travee-avant-dernier (travee) (nth 5 travee))
(defun plv-travee-rayon (travee) (nth 6 travee))
(defun plv-travee-forme (travee) (nth 7 travee))
(defun plv-travee-mesure (travee) (nth 8 travee))
(defun plv-travee-courbe-p (travee) (plv-travee-rayon travee))

(defun plv-travee-droite (a b) (list (car a) (car b) a b))

(defun plv-travee-courbe (points rayon forme mesure)
  "From the points of a curve."
  (list (caar points) (car (plv-dernier points)) (car points) (plv-dernier points) (cadr points) (cadr (reverse points)) rayon forme mesure))

(defun plv-sommets:travee (partie)
  "A part of plv-parties as a span."
  (if (plv-partie-courbe-p partie)
    (plv-travee-courbe (mapcar 'plv-cubique-point (plv-partie-courbe partie)) (plv-partie-rayon partie) (plv-partie-forme partie)
      (plv-partie-mesure partie))
    (apply 'plv-travee-droite (plv-partie-points partie))))

;; --- vertices of spans

(defun plv-sommets:rencontre (travee / a b p1 p2 d)
  "The vertex of a curve."
  (setq a (plv-travee-depart travee) b (plv-travee-arrivee travee)
        p1 (plv-pente a (plv-travee-second travee))
        p2 (plv-pente (plv-travee-avant-dernier travee) b)
        d (/ (+ (- (cadr b) (cadr a)) (- (* p1 (car a)) (* p2 (car b)))) (- p1 p2)))
  (list d (+ (cadr a) (* p1 (- d (car a))))))

(defun plv-sommets:demande (travee / mesure)
  "A circle by its radius, a parabola by its length, as files have it; behind it what was asked instead."
  (setq mesure (if (= (plv-travee-forme travee) "P") "L" "R"))
  (append (plv-sommets:mesuree travee mesure)
          (if (/= (plv-travee-mesure travee) mesure) (cdr (plv-sommets:mesuree travee (plv-travee-mesure travee))))))

(defun plv-sommets:mesuree (travee mesure)
  (list (plv-travee-forme travee) mesure (if (= mesure "L") (plv-longueur travee) (plv-travee-rayon travee))))

(defun plv-demande-voulue (demande)
  "As it was asked."
  (if (cdddr demande) (cons (car demande) (cdddr demande)) demande))

(defun plv-sommets:suite-p (a b coupes)
  "T when b is only the other side of a change of plane in a."
  (and (vl-some '(lambda (c) (equal c (plv-debut b) 1e-6)) coupes)
       (if (plv-travee-courbe-p a)
         (and (plv-travee-courbe-p b) (= (plv-travee-forme a) (plv-travee-forme b))
              (equal (plv-travee-rayon a) (plv-travee-rayon b) (* 1e-9 (plv-travee-rayon a))))
         (and (not (plv-travee-courbe-p b))
              (equal (plv-pente (plv-travee-depart a) (plv-travee-arrivee a))
                     (plv-pente (plv-travee-depart b) (plv-travee-arrivee b)) 1e-9)))))

(defun plv-sommets:reunir (a b)
  (append (list (plv-debut a) (plv-fin b) (plv-travee-depart a) (plv-travee-arrivee b))
          (if (plv-travee-courbe-p a)
            (list (plv-travee-second a) (plv-travee-avant-dernier b) (plv-travee-rayon a) (plv-travee-forme a)
                  (plv-travee-mesure a)))))

(defun plv-sommets:joindre (travees coupes)
  "The spans with those that a change of plane has cut in one piece again."
  (reverse
    (plv-plier
      '(lambda (jointes suivante)
         (if (and jointes (plv-sommets:suite-p (car jointes) suivante coupes))
           (cons (plv-sommets:reunir (car jointes) suivante) (cdr jointes))
           (cons suivante jointes)))
      nil travees)))

(defun plv-sommets:de-travees (travees coupes / sommets precedente)
  "Vertices of spans that follow each other; coupes: distances of the changes of plane."
  (foreach tr (plv-sommets:joindre travees coupes)
    (if (or (not precedente) (and (not (plv-travee-courbe-p tr)) (not (plv-travee-courbe-p precedente))))
      (setq sommets (cons (plv-travee-depart tr) sommets)))
    (if (plv-travee-courbe-p tr)
      (setq sommets (cons (append (plv-sommets:rencontre tr) (list (plv-sommets:demande tr))) sommets)))
    (setq precedente tr))
  (reverse (cons (plv-travee-arrivee precedente) sommets)))

(defun plv-sommets-entre (sommets raccords debut fin)
  "The vertices of what a line has between two distances."
  (plv-sommets:de-travees
    (mapcar 'plv-sommets:travee
      (vl-remove-if '(lambda (p) (or (< (plv-fin p) (+ debut 1e-6)) (> (plv-debut p) (- fin 1e-6))))
        (plv-couper-parties (plv-parties sommets raccords) (list debut fin))))
    nil))

;; --- the spans of a project line in the drawing

(defun plv-sommets:points (e / forme)
  "The points of a curve that is straight between them; nil for another. The form of a spline takes an entity for a moment, which a mere
look at a line must not make."
  (if (not (plv-sommets:spline-p e))
    (progn
      (setq forme (plv-forme-de e))
      (if (and (= (plv-type e) "POLYLINE") (listp forme) (not (plv-forme-polyligne-p forme)))
        (plv-forme-en-points forme)
        (plv-forme-droite forme)))))

(defun plv-sommets:spline-p (e) (and (= (plv-type e) "SPLINE") (/= (plv-cle 71 (entget e)) 1)))

(defun plv-sommets:raccord-p (e) (and (plv-rayon e) (= (plv-type e) "SPLINE")))

(defun plv-sommets:echantillonne-p (situe / e)
  "T for a curve that is neither straight nor a vertical curve of ours: points along it serve."
  (setq e (plv-situe-entite situe))
  (not (or (plv-sommets:points e) (plv-sommets:raccord-p e))))

(defun plv-sommets:droites (points)
  (vl-remove-if '(lambda (travee) (< (plv-longueur travee) 1e-6)) (mapcar 'plv-travee-droite points (cdr points))))

(defun plv-sommets:echantillons (profil s plans / d pas points z)
  (setq d (plv-debut s) pas (/ (plv-longueur s) 50.0))
  (repeat 51
    (if (setq z (plv-altitude-projet profil (list s) plans (min d (plv-fin s)))) (setq points (cons (list (min d (plv-fin s)) z) points)))
    (setq d (+ d pas)))
  (reverse points))

(defun plv-sommets:lus (cadre s points / plan)
  "Points of the drawing on a situated element as (distance altitude), left to right."
  (setq plan (cond ((plv-situe-plan s)) ((plv-plan-en (plv-cadre-plans cadre) (plv-milieu s)))))
  (plv-gauche-droite (mapcar '(lambda (p) (plv-vers-profil-sur cadre plan p)) points)))

(defun plv-sommets:travees (profil cadre s / e points)
  "The spans of one situated element."
  (setq e (plv-situe-entite s))
  (cond
    ((setq points (plv-sommets:points e)) (plv-sommets:droites (plv-sommets:lus cadre s points)))
    ((plv-sommets:raccord-p e)
     (list (plv-travee-courbe (plv-sommets:lus cadre s (plv-cles 10 (entget e))) (plv-rayon e) (plv-forme e) (plv-mesure e))))
    (T (plv-sommets:droites (plv-sommets:echantillons profil s (plv-cadre-plans cadre))))))

(defun plv-sommets:suivies-p (a b)
  (and (equal (plv-fin a) (plv-debut b) 1e-5) (equal (cadr (plv-travee-arrivee a)) (cadr (plv-travee-depart b)) 1e-5)))

(defun plv-sommets:suites (travees / suites)
  "The spans in runs without gaps."
  (foreach tr travees
    (setq suites
      (if (and suites (plv-sommets:suivies-p (caar suites) tr))
        (cons (cons tr (car suites)) (cdr suites))
        (cons (list tr) suites))))
  (reverse (mapcar 'reverse suites)))

(defun plv-projet-sommets (profil genre / cadre situes quelconques travees)
  "The project line of a kind as lists of vertices, one for each run without a gap; distances from the profile's origin."
  (setq cadre (plv-cadre profil)
        situes (plv-elements-situes profil genre)
        quelconques (vl-remove-if-not 'plv-sommets:echantillonne-p situes)
        travees (vl-sort (apply 'append (mapcar '(lambda (s) (plv-sommets:travees profil cadre s)) situes))
                         '(lambda (a b) (< (plv-debut a) (plv-debut b)))))
  (if quelconques
    (plv-dire (strcat "Courbes quelconques du genre " genre ": " (itoa (length quelconques)) ", rendues par des points.")))
  (mapcar '(lambda (suite) (plv-sommets:de-travees suite (plv-changements (plv-cadre-plans cadre)))) (plv-sommets:suites travees)))
