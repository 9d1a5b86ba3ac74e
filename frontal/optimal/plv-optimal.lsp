;; A project line within two depths below the ground as the module's search proposes it, drawn over the profile's planes and
;; attached to a kind of line; then what of it leaves the band.
;; Points are (distance altitude) in metres.
;; Shared in the room: plv-optimal:suites

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

;; --- the call

(defun plv-optimal (profil genre depart arrivee minimum maximum garder)
  "Proposes and attaches a line from depart to arrivee (distance altitude); garder keeps the trace of the search. Gives the
line's vertices, or nil after a message."
  (plv-optimal-recherche profil genre (plv-souhait depart arrivee minimum maximum nil nil) garder))

(defun plv-optimal-recherche (profil genre souhait garder / depart arrivee minimum maximum faute ajouts suites)
  (setq genre (plv-genre genre)
        depart (plv-souhait-depart souhait) arrivee (plv-souhait-arrivee souhait)
        minimum (plv-souhait-minimum souhait) maximum (plv-souhait-maximum souhait)
        faute (plv-optimal:refus profil genre depart arrivee))
  (cond
    (faute (plv-erreur faute))
    ((not (setq ajouts (plv-optimal:proposer profil depart arrivee minimum maximum))) (plv-erreur "le module n'a rien proposé"))
    (T
     (setq suites (plv-optimal:suites (plv-optimal:ligne profil (plv-dernier ajouts) depart arrivee)))
     (plv-effacer (if garder (list (plv-dernier ajouts)) ajouts))
     (if (plv-optimal:deposer profil genre souhait suites "Recherche" nil)
       (progn (plv-optimal:dire profil suites minimum maximum nil) (apply 'append suites))))))
