;; PLV-OPTIMAL: a project line within two depths below the ground, proposed by the module, drawn over the profile's planes
;; and attached to a kind of line; then what of it leaves the band.
;; Points are (distance altitude) in metres.

(defun plv-optimal:point (profil d z)
  "The place of a point in the drawing."
  (plv-point (+ (car (plv-cle 10 (entget profil))) d)
    (plv-profil:ordonnee z (plv-plan-en (plv-tables:plans profil) d) (plgxd profil "ECHV") (cadr (plv-cle 10 (entget profil))))))

(defun plv-optimal:appeler (profil depart arrivee minimum maximum)
  "Runs the module's search; the entities that it made, the trace first and the line last."
  (plv-ajouts-de
    '(lambda ()
       (dialoguer pl_TraceOptimal
         (list (list profil (plv-cle 10 (entget profil)))
               (apply 'plv-optimal:point (cons profil depart)) (apply 'plv-optimal:point (cons profil arrivee))
               (float minimum) (float maximum))))))

(defun plv-optimal:sommets (profil polyligne / origine echv plan sommets point)
  "The vertices in metres, each once. The module draws all of them over the first plane."
  (setq origine (plv-cle 10 (entget profil)) echv (plgxd profil "ECHV") plan (cadr (car (plv-tables:plans profil))))
  (foreach g (entget polyligne)
    (if (= (car g) 10)
      (progn
        (setq point (list (- (cadr g) (car origine)) (+ plan (/ (- (caddr g) (cadr origine)) echv))))
        (if (not (and sommets (equal point (car sommets) 1e-6))) (setq sommets (cons point sommets))))))
  (reverse sommets))

;; --- what leaves the band

(defun plv-optimal:profondeurs (profil sommets / terrain stations)
  "(distance depth) wherever ground or line change their slope."
  (setq terrain (mapcar '(lambda (p) (list (car p) (cadr p))) (plv-points-tn profil))
        stations (vl-sort
                   (plv-uniques
                     (append (mapcar 'car sommets)
                             (vl-remove-if-not '(lambda (d) (< (caar sommets) d (car (plv-dernier sommets)))) (mapcar 'car terrain))))
                   '<))
  (mapcar '(lambda (d) (list d (- (plv-metres:altitude terrain d) (plv-metres:altitude sommets d)))) stations))

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

(defun plv-optimal:hors-bande (profondeurs minimum maximum / morceaux ecart)
  "Stretches that leave the band, left to right: (d1 d2 extreme-depth)."
  (mapcar
    '(lambda (a b / points)
       (setq points (plv-optimal:coupes a b minimum maximum))
       (mapcar
         '(lambda (p q)
            (setq ecart (plv-optimal:ecart (* 0.5 (+ (cadr p) (cadr q))) minimum maximum))
            (if (and (/= ecart 0.0) (> (- (car q) (car p)) 1e-6))
              (setq morceaux (plv-optimal:joindre morceaux (car p) (car q) ((if (> ecart 0) max min) (cadr p) (cadr q)) ecart))))
         points (cdr points)))
    profondeurs (cdr profondeurs))
  (reverse morceaux))

(defun plv-optimal:joindre (morceaux d1 d2 extreme sens / dernier)
  (setq dernier (car morceaux))
  (if (and dernier (equal (cadr dernier) d1 1e-6) (> (* sens (cadddr dernier)) 0))
    (cons (list (car dernier) d2 ((if (> sens 0) max min) extreme (caddr dernier)) sens) (cdr morceaux))
    (cons (list d1 d2 extreme sens) morceaux)))

(defun plv-optimal:dire (profil sommets minimum maximum / hors origine)
  (setq hors (plv-optimal:hors-bande (plv-optimal:profondeurs profil sommets) minimum maximum)
        origine (plgxd profil "DCUMDEB"))
  (plv-dire (strcat "Ligne optimale: " (itoa (length sommets)) " sommets, profondeurs demandees " (plv-reel minimum 2) " a " (plv-reel maximum 2) " m."))
  (if hors
    (progn
      (plv-dire "Hors des profondeurs demandees:")
      (plv-dire (apply 'strcat (mapcar 'plv-metres:colonne '("debut" "fin" "longueur" "profondeur" "ecart") '(12 12 12 12 12))))
      (foreach m hors
        (plv-dire
          (apply 'strcat
            (mapcar 'plv-metres:colonne
              (list (plv-reel (+ origine (car m)) 3) (plv-reel (+ origine (cadr m)) 3) (plv-reel (- (cadr m) (car m)) 3)
                    (plv-reel (caddr m) 3) (plv-reel (plv-optimal:ecart (caddr m) minimum maximum) 3))
              '(12 12 12 12 12))))))
    (plv-dire "Toute la ligne est dans les profondeurs demandees.")))

(defun plv-optimal (profil genre depart arrivee minimum maximum garder / ajouts sommets longueur)
  "Proposes and attaches a line from depart to arrivee (distance altitude); garder keeps the trace of the search. Gives the
line's vertices, or nil after a message."
  (setq longueur (cadr (pl_InfosTn profil))
        ajouts (if (< minimum maximum) (list minimum maximum) (list maximum minimum))
        minimum (float (car ajouts)) maximum (float (cadr ajouts)))
  (cond
    ((not (plv-support profil genre)) (plv-erreur (strcat "ce profil n'a pas de support pour le genre " genre)))
    ((not (< -1e-6 (car depart) (car arrivee) (+ longueur 1e-6)))
     (plv-erreur "le depart et l'arrivee sont dans le profil, de gauche a droite"))
    ((not (setq ajouts (plv-optimal:appeler profil depart arrivee minimum maximum))) (plv-erreur "le module n'a rien propose"))
    (T
     (setq sommets (plv-optimal:sommets profil (plv-dernier ajouts)))
     (plv-effacer (if garder (list (plv-dernier ajouts)) ajouts))
     (if (plv-projet profil genre (mapcar '(lambda (s) (list (+ (plgxd profil "DCUMDEB") (car s)) (cadr s))) sommets))
       (progn (plv-optimal:dire profil sommets minimum maximum) sommets)))))

;; --- the command

(defun plv-optimal:bout (profil question d / reponse)
  "An end of the line: a station and a depth below the ground there, as (distance altitude)."
  (setq reponse (cond ((plv-demander-couple (strcat "Station,profondeur " question " <" (plv-reel (+ (plgxd profil "DCUMDEB") d) 2) ",1.00>")))
                      ((list (+ (plgxd profil "DCUMDEB") d) 1.0)))
        d (- (car reponse) (plgxd profil "DCUMDEB")))
  (list d (- (plv-metres:altitude (mapcar '(lambda (p) (list (car p) (cadr p))) (plv-points-tn profil)) d) (cadr reponse))))

(defun plv-optimal:profondeur (question defaut / reponse)
  (setq reponse (getreal (strcat "\n" question " <" (plv-reel defaut 2) ">: ")))
  (cond (reponse) (defaut)))

(defun c:plv-optimal (/ profil genre depart arrivee minimum maximum)
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq genre (plv-demander-genre "Assainissement")
            depart (plv-optimal:bout profil "du depart" 0.0)
            arrivee (plv-optimal:bout profil "de l'arrivee" (cadr (pl_InfosTn profil)))
            minimum (plv-optimal:profondeur "Profondeur minimale (un nombre negatif est une surelevation)" 0.8)
            maximum (plv-optimal:profondeur "Profondeur maximale" 1.6))
      (plv-optimal profil genre depart arrivee minimum maximum
        (= (plv-demander-mot "Garder le trace de la recherche" '("Oui" "Non") "Non") "Oui"))))
  (princ))
