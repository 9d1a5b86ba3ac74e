;; Vertical curves between two slopes, in (distance altitude) with the exaggeration taken out.
;; A curve is a cubic of plv-cubiques: a cubic form of the arc of circle or of the parabola.
;; Cubic, because pieces of cubics are joined again exactly when a change of plane goes, which quadratics are not.

;; --- what is asked for. A vertex is (distance altitude [request]), a request (shape measure value...): ("C" "R" 1500.0)
;; circle of a radius, ("P" "L" 40.0) parabola of a length, ("C" "P" 120.0 134.2) circle through a distance and an altitude.
;; A parabola's radius is the one at its crown.

(defun plv-demande-de (sommet) (caddr sommet))

(defun plv-demande-forme (demande) (car demande))
(defun plv-demande-mesure (demande) (cadr demande))
(defun plv-demande-valeur (demande) (caddr demande))
(defun plv-demande-point (demande) (cddr demande))

(defun plv-demande-par-point-p (demande) (= (plv-demande-mesure demande) "P"))

;; --- a vertical curve is (from to curve radius shape measure), which is also a curved part of plv-parties

(defun plv-raccord-courbe (raccord) (caddr raccord))

(defun plv-raccords:sinus (p) (/ p (sqrt (+ 1.0 (* p p)))))

(defun plv-raccords:rayon (avant sommet apres demande / p1 p2 forme mesure)
  "The radius that a request asks for at a vertex between its neighbours; nil when there is none."
  (setq p1 (plv-pente avant sommet) p2 (plv-pente sommet apres)
        forme (plv-demande-forme demande) mesure (plv-demande-mesure demande))
  (cond
    ((= mesure "R") (float (plv-demande-valeur demande)))
    ((and (= mesure "L") (= forme "C"))
     (/ (plv-demande-valeur demande) (abs (- (plv-raccords:sinus p2) (plv-raccords:sinus p1)))))
    ((= mesure "L") (/ (plv-demande-valeur demande) (abs (- p2 p1))))
    ((= forme "C") (plv-raccords:rayon-cercle avant sommet apres (plv-demande-point demande)))
    (T (plv-raccords:rayon-parabole p1 p2 sommet (plv-demande-point demande)))))

(defun plv-raccords:rayon-cercle (avant sommet apres point / o)
  ;; Abscissas near zero keep the digits of the small heights.
  (setq o (car sommet))
  (apply 'pl_rayraccpt
    (append
      (mapcar '(lambda (p) (list (- (car p) o) (float (cadr p)))) (list avant sommet sommet apres point))
      '(1.0))))

(defun plv-raccords:rayon-parabole (p1 p2 sommet point / u m b racine)
  "With l half the length: (p2-p1)(u+l)^2 = 4 l m, u the distance after the vertex, m the height above the first slope."
  (setq u (- (car point) (car sommet))
        m (- (cadr point) (cadr sommet) (* p1 u))
        b (- (/ (* 2.0 m) (- p2 p1)) u)
        racine (- (* b b) (* u u)))
  (if (>= racine 0.0) (/ (* 2.0 (+ b (sqrt racine))) (abs (- p2 p1)))))

(defun plv-raccords:tangentes (p1 p2 forme rayon / t1)
  "(lengths of the curve before and after the vertex, along the profile, and the weight of its middle point)."
  (if (= forme "P")
    (list (* 0.5 rayon (abs (- p2 p1))) (* 0.5 rayon (abs (- p2 p1))) 1.0)
    (progn
      (setq t1 (abs (* 0.5 (- (atan p2) (atan p1)))))
      (list (* rayon (plv-raccords:tan t1) (cos (atan p1))) (* rayon (plv-raccords:tan t1) (cos (atan p2))) (cos t1)))))

(defun plv-raccords:tangente-avant (tangentes) (car tangentes))
(defun plv-raccords:tangente-apres (tangentes) (cadr tangentes))
(defun plv-raccords:tangente-poids (tangentes) (caddr tangentes))

(defun plv-raccord-portees (p1 p2 forme / tangentes avant apres)
  "How far from the vertex the curve of radius 1 between two slopes begins, ends and is level (nil for nowhere), along the profile: all grow with
the radius."
  (setq tangentes (plv-raccords:tangentes p1 p2 forme 1.0)
        avant (- (plv-raccords:tangente-avant tangentes)) apres (plv-raccords:tangente-apres tangentes))
  (list avant apres
    (cond
      ((>= (* p1 p2) 0.0) nil)
      ((= forme "P") (+ avant (* (- apres avant) (/ p1 (- p1 p2)))))
      (T (+ avant (abs (sin (atan p1))))))))

(defun plv-raccords:tan (a) (/ (sin a) (cos a)))

(defun plv-raccord (avant sommet apres demande / p1 p2 rayon tangentes courbe)
  "The vertical curve at a vertex, or the text of what is wrong."
  (setq p1 (plv-pente avant sommet) p2 (plv-pente sommet apres))
  (cond
    ((equal p1 p2 1e-9) "les deux pentes sont les mêmes")
    ((not (and (setq rayon (plv-raccords:rayon avant sommet apres demande)) (< 1e-3 rayon 1e8)))
     "pas de rayon qui convienne")
    (T
     (setq tangentes (plv-raccords:tangentes p1 p2 (plv-demande-forme demande) rayon)
           courbe (plv-raccords:courbe sommet p1 p2 tangentes))
     (if (and (plv-demande-par-point-p demande) (not (plv-raccords:passe-p courbe (plv-demande-point demande))))
       "le point n'est pas entre les pentes"
       (list (- (car sommet) (plv-raccords:tangente-avant tangentes)) (+ (car sommet) (plv-raccords:tangente-apres tangentes))
             courbe rayon (plv-demande-forme demande) (if (= (plv-demande-mesure demande) "L") "L" "R"))))))

(defun plv-raccords:passe-p (courbe point / d)
  "T when the curve is at the point's altitude, to a tenth of a millimetre."
  (setq d (car point))
  (and (< (plv-cubique-d (car courbe)) d (plv-cubique-d (cadddr courbe)))
       (equal (cadr point) (plv-cubique-z (cadddr (car (plv-couper-cubique courbe d)))) 1e-4)))

(defun plv-raccords:courbe (sommet p1 p2 tangentes / w avant apres debut milieu fin)
  (setq w (plv-raccords:tangente-poids tangentes)
        avant (plv-raccords:tangente-avant tangentes)
        apres (plv-raccords:tangente-apres tangentes)
        debut (list (- (car sommet) avant) (- (cadr sommet) (* p1 avant)) 1.0)
        milieu (list (* w (car sommet)) (* w (cadr sommet)) w)
        fin (list (+ (car sommet) apres) (+ (cadr sommet) (* p2 apres)) 1.0))
  (list debut (plv-cubique-entre debut milieu (/ 2.0 3.0)) (plv-cubique-entre milieu fin (/ 1.0 3.0)) fin))
