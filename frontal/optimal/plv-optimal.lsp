;; PLV-OPTIMAL: a project line within two depths below the ground, proposed by the module, drawn over the profile's planes
;; and attached to a kind of line; then what of it leaves the band.
;; Points are (distance altitude) in metres.

;; --- the module's search

(defun plv-optimal:proposer (profil depart arrivee minimum maximum / points copie ajouts)
  "Runs the search; the entities that it made, the trace first and the line last. The module also weighs ground points
beside the ends, against the prolongation of the line: for a part of the profile it gets the ground of that part only."
  (setq points (plv-points-tn profil))
  (if (or (> (car depart) (+ (caar points) 1e-6)) (< (car arrivee) (- (car (plv-dernier points)) 1e-6)))
    (setq copie (plv-copier-profil profil (plv-ligne-entre points (car depart) (car arrivee)))))
  (setq ajouts (plv-optimal:appeler (cond (copie) (profil)) depart arrivee minimum maximum))
  (if copie (entdel copie))
  ajouts)

(defun plv-optimal:ecarte (cadre bout sens)
  "An end beside a change of plane instead of on it: there the drawing doesn't tell its altitude."
  (if (vl-member-if '(lambda (p) (equal (plv-plan-debut p) (car bout) 1e-6)) (plv-cadre-plans cadre))
    (list (+ (car bout) (* sens 2e-6)) (cadr bout))
    bout))

(defun plv-optimal:appeler (profil depart arrivee minimum maximum / cadre)
  (setq cadre (plv-cadre profil)
        depart (plv-optimal:ecarte cadre depart 1)
        arrivee (plv-optimal:ecarte cadre arrivee -1))
  (plv-ajouts-de
    '(lambda ()
       (dialoguer pl_TraceOptimal
         (list (list profil (plv-cadre-origine cadre))
               (apply 'plv-vers-dessin (cons cadre depart)) (apply 'plv-vers-dessin (cons cadre arrivee))
               minimum maximum)))))

(defun plv-optimal:ligne (profil polyligne depart arrivee)
  "The vertices of the module's line, its ends as they were asked for."
  (append (list depart) (plv-sans-dernier (cdr (plv-optimal:sommets profil polyligne))) (list arrivee)))

(defun plv-optimal:sommets (profil polyligne / cadre plan sommets point)
  "The vertices in metres, each once. The module draws all of them over the first plane."
  (setq cadre (plv-cadre profil) plan (car (plv-cadre-plans cadre)))
  (foreach p (plv-cles 10 (entget polyligne))
    (setq point (plv-vers-profil-sur cadre plan p))
    (if (not (and sommets (equal point (car sommets) 1e-6))) (setq sommets (cons point sommets))))
  (reverse sommets))

(defun plv-optimal:suites (sommets / suites)
  "The vertices without a drop: below a wall of the ground the line ends, and goes on at another altitude after it."
  (foreach s sommets
    (setq suites
      (cond
        ((not suites) (list (list s)))
        ((> (car s) (+ (caaar suites) 2e-6)) (cons (cons s (car suites)) (cdr suites)))
        (T (cons (list (list (plv-derriere (caar suites) s) (cadr s))) suites)))))
  (vl-remove-if-not 'cdr (reverse (mapcar 'reverse suites))))

(defun plv-optimal:attacher (profil genre suite / origine)
  (setq origine (plv-premiere-station profil))
  (plv-projet profil genre (mapcar '(lambda (s) (list (+ origine (car s)) (cadr s))) suite)))

;; --- what leaves the band: stretches (from to extreme-depth sense), the sense positive for too deep

(defun plv-hors-extreme (hors) (caddr hors))
(defun plv-hors-sens (hors) (cadddr hors))

(defun plv-optimal:profondeur (terrain sommets d)
  "(distance depth), on the straight lines through the first two points of both."
  (list d (- (plv-interpoler terrain d) (plv-interpoler sommets d))))

(defun plv-optimal:stations (terrain sommets / d1 d2)
  "Where one of the lines may change its slope."
  (setq d1 (caar sommets) d2 (car (plv-dernier sommets)))
  (vl-sort (append (mapcar 'car sommets) (vl-remove-if-not '(lambda (d) (< d1 d d2)) (mapcar 'car terrain))) '<))

(defun plv-optimal:profondeurs (terrain sommets / stations a b bouts)
  "For each stretch in which neither line changes its slope its two ends (distance depth)."
  (setq stations (plv-optimal:stations terrain sommets))
  (while (cdr stations)
    (setq a (car stations) b (cadr stations) stations (cdr stations))
    (if (> (- b a) 1e-9)
      ;; Both lines go on from here, so that each is walked along once.
      (setq terrain (plv-ligne-depuis terrain a)
            sommets (plv-ligne-depuis sommets a)
            bouts (cons (list (plv-optimal:profondeur terrain sommets a) (plv-optimal:profondeur terrain sommets b)) bouts))))
  (reverse bouts))

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

(defun plv-optimal:hors (p q minimum maximum / ecart)
  "The stretch between two points, in a list; nil inside the band."
  (setq ecart (plv-optimal:ecart (* 0.5 (+ (cadr p) (cadr q))) minimum maximum))
  (if (and (/= ecart 0.0) (> (- (car q) (car p)) 1e-6))
    (list (list (car p) (car q) ((if (> ecart 0) max min) (cadr p) (cadr q)) ecart))))

(defun plv-optimal:hors-bande (terrain suites minimum maximum / morceaux)
  "The stretches that leave the band, left to right."
  (foreach suite suites
    (foreach bouts (plv-optimal:profondeurs terrain suite)
      (setq bouts (plv-optimal:coupes (car bouts) (cadr bouts) minimum maximum)
            morceaux (append (reverse (apply 'append (mapcar '(lambda (p q) (plv-optimal:hors p q minimum maximum)) bouts (cdr bouts)))) morceaux))))
  (reverse (plv-plier 'plv-optimal:joindre nil (reverse morceaux))))

(defun plv-optimal:joindre (joints hors / dernier sens)
  "A stretch that goes on from the last one on the same side of the band makes one with it."
  (setq dernier (car joints) sens (plv-hors-sens hors))
  (if (and dernier (equal (plv-fin dernier) (plv-debut hors) 1e-6) (> (* sens (plv-hors-sens dernier)) 0))
    (cons (list (plv-debut dernier) (plv-fin hors) ((if (> sens 0) max min) (plv-hors-extreme hors) (plv-hors-extreme dernier)) sens)
          (cdr joints))
    (cons hors joints)))

;; --- the report

(defun plv-optimal:rangee (textes) (plv-colonnes textes '(12 12 12 12 12)))

(defun plv-optimal:dire (profil suites minimum maximum / hors)
  (setq hors (plv-optimal:hors-bande (plv-points-tn profil) suites minimum maximum))
  (plv-dire (strcat "Ligne optimale: " (itoa (apply '+ (mapcar 'length suites))) " sommets, profondeurs demandées "
                    (plv-reel minimum 2) " à " (plv-reel maximum 2) " m."))
  (if hors
    (plv-optimal:dire-hors hors (plv-premiere-station profil) minimum maximum)
    (plv-dire "Toute la ligne est dans les profondeurs demandées."))
  (plv-optimal:dire-sous-plan profil (apply 'append suites)))

(defun plv-optimal:dire-hors (hors origine minimum maximum)
  (plv-dire "Hors des profondeurs demandées:")
  (plv-optimal:rangee '("début" "fin" "longueur" "profondeur" "écart"))
  (foreach h hors
    (plv-optimal:rangee
      (mapcar '(lambda (valeur) (plv-reel valeur 3))
        (list (+ origine (plv-debut h)) (+ origine (plv-fin h)) (plv-longueur h) (plv-hors-extreme h)
              (plv-optimal:ecart (plv-hors-extreme h) minimum maximum))))))

(defun plv-optimal:dire-sous-plan (profil sommets / plans bas)
  "A line that falls below its plane runs through the tables."
  (setq plans (plv-plans profil)
        bas (car (vl-member-if '(lambda (s) (< (cadr s) (- (plv-plan-altitude (plv-plan-en plans (car s))) 1e-6))) sommets)))
  (if bas
    (plv-dire (strcat "À la station " (plv-reel (+ (plv-premiere-station profil) (car bas)) 3)
                      " elle descend sous le plan de comparaison: PLV-PC en ajoute un plus bas."))))

;; --- the call

(defun plv-optimal:refus (profil genre depart arrivee)
  (cond
    ((plv-refus-profil profil))
    ((plv-refus-genre-projet genre))
    ((not (plv-support profil genre)) (plv-refus-support genre))
    ((not (cdr (plv-points-tn profil))) (plv-refus-sans-terrain))
    ((not (< -1e-6 (car depart) (- (car arrivee) 1e-3) (+ (plv-longueur-profil profil) 1e-6)))
     "le départ et l'arrivée sont dans le profil, de gauche à droite")))

(defun plv-optimal (profil genre depart arrivee minimum maximum garder / faute ajouts suites)
  "Proposes and attaches a line from depart to arrivee (distance altitude); garder keeps the trace of the search. Gives the
line's vertices, or nil after a message."
  (setq genre (plv-genre genre)
        minimum (float minimum) maximum (float maximum)
        faute (plv-optimal:refus profil genre depart arrivee))
  (cond
    (faute (plv-erreur faute))
    ((not (setq ajouts (plv-optimal:proposer profil depart arrivee minimum maximum))) (plv-erreur "le module n'a rien proposé"))
    (T
     (setq suites (plv-optimal:suites (plv-optimal:ligne profil (plv-dernier ajouts) depart arrivee)))
     (plv-effacer (if garder (list (plv-dernier ajouts)) ajouts))
     (if (vl-every '(lambda (suite) (plv-optimal:attacher profil genre suite)) suites)
       (progn (plv-optimal:dire profil suites (min minimum maximum) (max minimum maximum)) (apply 'append suites))))))
