;; A project line by points, by slopes and lengths, or an existing curve, attached to its kind.
;; Stations are those of the profile (distance plus the first station), altitudes in metres. Nothing is drawn before
;; everything has been understood.

(defun plv-faute-sommets (sommets longueur / faute precedent)
  "The text of what is wrong with vertices (distance altitude ...), nil for nothing."
  (foreach s sommets
    (if (not faute)
      (setq faute
        (cond
          ((not (and (numberp (car s)) (numberp (cadr s)))) "une station et une altitude sont attendues")
          ((or (< (car s) -1e-6) (> (car s) (+ longueur 1e-6)))
           (strcat "la distance " (plv-reel (car s) 3) " n'est pas dans le profil"))
          ((and precedent (<= (car s) (+ (car precedent) 1e-6)))
           (strcat "les stations vont en croissant, et non à la distance " (plv-reel (car s) 3))))
        precedent s)))
  (cond (faute) ((not (cdr sommets)) "deux points au moins sont attendus")))

(defun plv-demande-en-distances (demande origine)
  "A request with its distance from the profile's origin; a number alone is the radius of a circle."
  (cond
    ((not demande) nil)
    ((numberp demande) (list "C" "R" demande))
    ((plv-demande-par-point-p demande)
     (list (plv-demande-forme demande) "P" (- (car (plv-demande-point demande)) origine) (cadr (plv-demande-point demande))))
    (T demande)))

(defun plv-projet:sommet (sommet origine)
  "A vertex of stations as one of distances."
  (list (- (car sommet) origine) (cadr sommet) (plv-demande-en-distances (plv-demande-de sommet) origine)))

(defun plv-projet:raccords (profil sommets)
  "The vertical curves, or the text of what can't be done."
  (cond ((plv-faute-sommets sommets (plv-longueur-profil profil))) ((plv-raccords sommets))))

(defun plv-projet (profil genre sommets / origine raccords entites)
  "Draws a project line of vertices (station altitude [request]) and attaches it to a kind of line; gives its entities,
or nil after a message. Requests: a radius, or (\"C\" or \"P\", then \"R\" radius, \"L\" length or \"P\" station altitude)."
  (setq origine (plv-premiere-station profil)
        sommets (mapcar '(lambda (s) (plv-projet:sommet s origine)) sommets))
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((not (plv-support profil genre)) (plv-erreur (plv-refus-support genre)))
    ((eq (type (setq raccords (plv-projet:raccords profil sommets))) 'STR) (plv-erreur raccords))
    (T
     (plv-creer-calques)
     (setq entites (plv-tracer-projet profil sommets raccords))
     (plv-attacher profil genre entites)
     (plv-projet:dire genre sommets raccords)
     entites)))

(defun plv-projet:dire (genre sommets raccords / nombre)
  (setq nombre (length (vl-remove nil raccords)))
  (plv-dire (strcat "Ligne de projet " (plv-genre genre) ": " (itoa (length sommets)) " sommets, "
                    (plv-reel (- (car (plv-dernier sommets)) (caar sommets)) 2) " m, "
                    (itoa nombre) (if (> nombre 1) " raccordements." " raccordement."))))

(defun plv-projet-pentes (profil genre station altitude pentes / sommets)
  "A project line by slopes (slope-in-percent length [request-at-its-end]) from a station and an altitude."
  (setq sommets (list (list station altitude)))
  (foreach p pentes
    (setq station (+ station (cadr p))
          altitude (+ altitude (* 0.01 (car p) (cadr p)))
          sommets (cons (list station altitude (caddr p)) sommets)))
  (plv-projet profil genre (reverse sommets)))

;; --- curves that are there already

(defun plv-projet-existant (profil genre jeu)
  "Takes existing curves for project elements; gives them as they are in form, or nil after a message."
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((not (plv-support profil genre)) (plv-erreur (plv-refus-support genre)))
    ((not jeu) (plv-erreur "aucune courbe choisie"))
    ((plv-admettre profil genre (plv-entites-du-jeu jeu)))
    (T (plv-erreur "aucune courbe n'est attachée"))))
