;; PLV-OPTIMAL: a project line within two depths below the ground, proposed by the module, drawn over the profile's planes
;; and attached to a kind of line; then what of it leaves the band.
;; Points are (distance altitude) in metres.

;; --- the module's search

(defun plv-optimal:point (profil d z)
  "The place of a point in the drawing."
  (plv-point (+ (car (plv-cle 10 (entget profil))) d)
    (plv-profil:ordonnee z (plv-plan-en (plv-tables:plans profil) d) (plgxd profil "ECHV") (cadr (plv-cle 10 (entget profil))))))

(defun plv-optimal:copie (profil points / copie)
  "A profile in the same place with a ground of its own."
  (plv-profil:preparer)
  (setq copie (plv-profil:inserer (plv-cle 10 (entget profil)) (plv-numero-profil profil) (plgxd profil "TTXT")))
  (plv-profil:cles copie (mapcar '(lambda (cle) (list cle (plgxd profil cle))) '("ECHV" "TTXT" "ID" "PRPC")))
  (plv-profil:terrain copie points)
  copie)

(defun plv-optimal:proposer (profil depart arrivee minimum maximum / points copie ajouts)
  "Runs the search; the entities that it made, the trace first and the line last. The module also weighs ground points
beside the ends, against the prolongation of the line: for a part of the profile it gets the ground of that part only."
  (setq points (plv-points-tn profil))
  (if (or (> (car depart) (+ (caar points) 1e-6)) (< (car arrivee) (- (car (plv-dernier points)) 1e-6)))
    (setq copie (plv-optimal:copie profil (plv-metres:entre points (car depart) (car arrivee)))))
  (setq ajouts (plv-optimal:appeler (cond (copie) (profil)) depart arrivee minimum maximum))
  (if copie (entdel copie))
  ajouts)

(defun plv-optimal:ecarte (profil bout sens)
  "An end beside a change of plane instead of on it: there the drawing doesn't tell its altitude."
  (if (vl-member-if '(lambda (p) (equal (car p) (car bout) 1e-6)) (plv-tables:plans profil))
    (list (+ (car bout) (* sens 2e-6)) (cadr bout))
    bout))

(defun plv-optimal:appeler (profil depart arrivee minimum maximum)
  (setq depart (plv-optimal:ecarte profil depart 1) arrivee (plv-optimal:ecarte profil arrivee -1))
  (plv-ajouts-de
    '(lambda ()
       (dialoguer pl_TraceOptimal
         (list (list profil (plv-cle 10 (entget profil)))
               (apply 'plv-optimal:point (cons profil depart)) (apply 'plv-optimal:point (cons profil arrivee))
               minimum maximum)))))

(defun plv-optimal:ligne (profil polyligne depart arrivee)
  "The vertices of the module's line, its ends as they were asked for."
  (append (list depart) (plv-sans-dernier (cdr (plv-optimal:sommets profil polyligne))) (list arrivee)))

(defun plv-optimal:sommets (profil polyligne / origine echv plan sommets point)
  "The vertices in metres, each once. The module draws all of them over the first plane."
  (setq origine (plv-cle 10 (entget profil)) echv (plgxd profil "ECHV") plan (cadr (car (plv-tables:plans profil))))
  (foreach g (entget polyligne)
    (if (= (car g) 10)
      (progn
        (setq point (list (- (cadr g) (car origine)) (+ plan (/ (- (caddr g) (cadr origine)) echv))))
        (if (not (and sommets (equal point (car sommets) 1e-6))) (setq sommets (cons point sommets))))))
  (reverse sommets))

(defun plv-optimal:suites (sommets / suites)
  "The vertices without a drop: below a wall of the ground the line ends, and goes on at another altitude behind it."
  (foreach s sommets
    (setq suites
      (cond
        ((not suites) (list (list s)))
        ((> (car s) (+ (caaar suites) 2e-6)) (cons (cons s (car suites)) (cdr suites)))
        (T (cons (list (list (plv-profil:derriere (caar suites) s) (cadr s))) suites)))))
  (vl-remove-if-not 'cdr (reverse (mapcar 'reverse suites))))

(defun plv-optimal:attacher (profil genre suite / origine)
  (setq origine (plgxd profil "DCUMDEB"))
  (plv-projet profil genre (mapcar '(lambda (s) (list (+ origine (car s)) (cadr s))) suite)))

;; --- what leaves the band

(defun plv-optimal:profondeurs (terrain sommets / d1 d2)
  "For each stretch in which neither line changes its slope its two ends (distance depth)."
  (setq d1 (caar sommets) d2 (car (plv-dernier sommets)))
  (plv-optimal:par-stations terrain sommets
    (vl-sort (append (mapcar 'car sommets) (vl-remove-if-not '(lambda (d) (< d1 d d2)) (mapcar 'car terrain))) '<)))

(defun plv-optimal:par-stations (terrain sommets stations)
  (vl-remove nil
    (mapcar
      '(lambda (a b)
         (if (> (- b a) 1e-9)
           (progn
             (setq terrain (plv-metres:avancer terrain a) sommets (plv-metres:avancer sommets a))
             (mapcar '(lambda (d) (list d (- (plv-trace:altitude terrain d) (plv-trace:altitude sommets d)))) (list a b)))))
      stations (cdr stations))))

(defun plv-optimal:ecart (profondeur minimum maximum)
  "By how much a depth leaves the band: positive too deep, negative too shallow, 0 inside."
  (cond ((> profondeur (+ maximum 1e-6)) (- profondeur maximum)) ((< profondeur (- minimum 1e-6)) (- profondeur minimum)) (0.0)))

(defun plv-optimal:croisement (a b limite)
  "Where the depth between two points reaches a limit."
  (+ (car a) (* (- (car b) (car a)) (/ (- limite (cadr a)) (- (cadr b) (cadr a))))))

(defun plv-optimal:coupes (a b minimum maximum / coupes)
  "The two points with one wherever the depth passes a limit between them."
  (foreach limite (list minimum maximum)
    (if (< (* (- (cadr a) limite) (- (cadr b) limite)) 0.0)
      (setq coupes (cons (list (plv-optimal:croisement a b limite) limite) coupes))))
  (append (list a) (vl-sort coupes '(lambda (p q) (< (car p) (car q)))) (list b)))

(defun plv-optimal:hors-bande (terrain suites minimum maximum / morceaux)
  "Stretches that leave the band, left to right: (d1 d2 extreme-depth sense)."
  (foreach suite suites
    (foreach bouts (plv-optimal:profondeurs terrain suite)
      (setq bouts (plv-optimal:coupes (car bouts) (cadr bouts) minimum maximum))
      (mapcar '(lambda (p q) (setq morceaux (plv-optimal:ajouter morceaux p q minimum maximum))) bouts (cdr bouts))))
  (reverse morceaux))

(defun plv-optimal:ajouter (morceaux p q minimum maximum / ecart)
  (setq ecart (plv-optimal:ecart (* 0.5 (+ (cadr p) (cadr q))) minimum maximum))
  (if (and (/= ecart 0.0) (> (- (car q) (car p)) 1e-6))
    (plv-optimal:joindre morceaux (car p) (car q) ((if (> ecart 0) max min) (cadr p) (cadr q)) ecart)
    morceaux))

(defun plv-optimal:joindre (morceaux d1 d2 extreme sens / dernier)
  (setq dernier (car morceaux))
  (if (and dernier (equal (cadr dernier) d1 1e-6) (> (* sens (cadddr dernier)) 0))
    (cons (list (car dernier) d2 ((if (> sens 0) max min) extreme (caddr dernier)) sens) (cdr morceaux))
    (cons (list d1 d2 extreme sens) morceaux)))

;; --- the report

(defun plv-optimal:rangee (textes) (plv-metres:colonnes textes '(12 12 12 12 12)))

(defun plv-optimal:dire (profil suites minimum maximum / hors origine)
  (setq hors (plv-optimal:hors-bande (plv-points-tn profil) suites minimum maximum)
        origine (plgxd profil "DCUMDEB"))
  (plv-dire (strcat "Ligne optimale: " (itoa (apply '+ (mapcar 'length suites))) " sommets, profondeurs demandees "
                    (plv-reel minimum 2) " a " (plv-reel maximum 2) " m."))
  (if hors
    (progn
      (plv-dire "Hors des profondeurs demandees:")
      (plv-optimal:rangee '("debut" "fin" "longueur" "profondeur" "ecart"))
      (foreach m hors
        (plv-optimal:rangee
          (mapcar '(lambda (valeur) (plv-reel valeur 3))
            (list (+ origine (car m)) (+ origine (cadr m)) (- (cadr m) (car m)) (caddr m)
                  (plv-optimal:ecart (caddr m) minimum maximum))))))
    (plv-dire "Toute la ligne est dans les profondeurs demandees."))
  (plv-optimal:dire-sous-plan profil (apply 'append suites)))

(defun plv-optimal:dire-sous-plan (profil sommets / plans bas)
  "A line that falls below its plane runs through the tables."
  (setq plans (plv-tables:plans profil)
        bas (car (vl-member-if '(lambda (s) (< (cadr s) (cadr (plv-plan-en plans (car s))))) sommets)))
  (if bas
    (plv-dire (strcat "A la station " (plv-reel (+ (plgxd profil "DCUMDEB") (car bas)) 3)
                      " elle descend sous le plan de comparaison: PLV-PC en ajoute un plus bas."))))

;; --- the call

(defun plv-optimal:refus (profil genre depart arrivee)
  (cond
    ((plv-metres:refus-genre genre))
    ((not (plv-support profil genre)) (strcat "ce profil n'a pas de support pour le genre " genre))
    ((not (cdr (plv-points-tn profil))) "ce profil n'a pas de terrain naturel")
    ((not (< -1e-6 (car depart) (- (car arrivee) 1e-3) (+ (cadr (pl_InfosTn profil)) 1e-6)))
     "le depart et l'arrivee sont dans le profil, de gauche a droite")))

(defun plv-optimal (profil genre depart arrivee minimum maximum garder / faute ajouts suites)
  "Proposes and attaches a line from depart to arrivee (distance altitude); garder keeps the trace of the search. Gives the
line's vertices, or nil after a message."
  (setq genre (plv-genre genre)
        minimum (float minimum) maximum (float maximum)
        faute (plv-optimal:refus profil genre depart arrivee))
  (cond
    (faute (plv-erreur faute))
    ((not (setq ajouts (plv-optimal:proposer profil depart arrivee minimum maximum))) (plv-erreur "le module n'a rien propose"))
    (T
     (setq suites (plv-optimal:suites (plv-optimal:ligne profil (plv-dernier ajouts) depart arrivee)))
     (plv-effacer (if garder (list (plv-dernier ajouts)) ajouts))
     (if (vl-every '(lambda (suite) (plv-optimal:attacher profil genre suite)) suites)
       (progn (plv-optimal:dire profil suites (min minimum maximum) (max minimum maximum)) (apply 'append suites))))))
