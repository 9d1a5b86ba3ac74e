;; PLV-PROJET: a project line by points, by slopes and lengths, from a file, or an existing curve, attached to its kind.
;; Stations are those of the profile (distance plus the first station), altitudes in metres. Nothing is drawn before
;; everything has been understood.

(defun plv-projet:faute (sommets longueur / faute precedent)
  "The text of what is wrong with vertices (distance altitude ...), nil for nothing."
  (foreach s sommets
    (if (not faute)
      (setq faute
        (cond
          ((not (and (numberp (car s)) (numberp (cadr s)))) "une station et une altitude sont attendues")
          ((or (< (car s) -1e-6) (> (car s) (+ longueur 1e-6)))
           (strcat "la distance " (plv-reel (car s) 3) " n'est pas dans le profil"))
          ((and precedent (<= (car s) (+ (car precedent) 1e-6)))
           (strcat "les stations vont en croissant, et non a la distance " (plv-reel (car s) 3))))
        precedent s)))
  (cond (faute) ((not (cdr sommets)) "deux points au moins sont attendus")))

(defun plv-projet:demande (raccord origine / forme)
  "A request with its distance from the profile's origin; a number alone is the radius of a circle."
  (cond
    ((not raccord) nil)
    ((numberp raccord) (list "C" "R" raccord))
    ((= (cadr raccord) "P") (list (car raccord) "P" (- (caddr raccord) origine) (cadddr raccord)))
    (T raccord)))

(defun plv-projet (profil genre sommets / origine raccords entites)
  "Draws a project line of vertices (station altitude [request]) and attaches it to a kind of line; gives its entities,
or nil after a message. Requests: a radius, or (\"C\" or \"P\", then \"R\" radius, \"L\" length or \"P\" station altitude)."
  (setq origine (plgxd profil "DCUMDEB")
        sommets (mapcar '(lambda (s) (list (- (car s) origine) (cadr s) (plv-projet:demande (caddr s) origine))) sommets)
        raccords (cond ((plv-projet:faute sommets (cadr (pl_InfosTn profil)))) ((plv-trace:raccords sommets))))
  (cond
    ((not (plv-support profil genre)) (plv-erreur (strcat "ce profil n'a pas de support pour le genre " genre)))
    ((eq (type raccords) 'STR) (plv-erreur raccords))
    (T
     (plv-creer-calques)
     (setq entites (plv-tracer-projet profil sommets raccords))
     (plv-attacher profil genre entites)
     (plv-projet:dire profil genre sommets raccords)
     entites)))

(defun plv-projet:dire (profil genre sommets raccords / nombre)
  (setq nombre (length (vl-remove nil raccords)))
  (plv-dire (strcat "Ligne de projet " (plv-genre genre) ": " (itoa (length sommets)) " sommets, "
                    (plv-reel (- (car (plv-dernier sommets)) (caar sommets)) 2) " m, "
                    (itoa nombre) (if (> nombre 1) " raccordements." " raccordement."))))

(defun plv-attacher (profil genre entites / jeu deja)
  "Makes curves project elements of a kind; those that it holds already are only marked."
  (setq jeu (ssadd) deja (plv-elements:enregistres profil genre))
  (foreach e entites (if (not (member e deja)) (ssadd e jeu) (plsxd e "ELEMDUPROJET" 1)))
  (if (> (sslength jeu) 0) (pl_elem_prj profil genre jeu)))

(defun plv-projet-pentes (profil genre station altitude troncons / sommets)
  "A project line by stretches (slope-in-percent length [request-at-its-end]) from a station and an altitude."
  (setq sommets (list (list station altitude)))
  (foreach p troncons
    (setq station (+ station (cadr p))
          altitude (+ altitude (* 0.01 (car p) (cadr p)))
          sommets (cons (list station altitude (caddr p)) sommets)))
  (plv-projet profil genre (reverse sommets)))

(setq plv-projet:courbes "LINE,LWPOLYLINE,POLYLINE,SPLINE")

(defun plv-projet-existant (profil genre jeu / i entites refusees)
  "Takes existing curves for project elements; gives them, or nil after a message."
  (setq i 0 refusees 0)
  (repeat (if jeu (sslength jeu) 0)
    (if (wcmatch (plv-cle 0 (entget (ssname jeu i))) plv-projet:courbes)
      (setq entites (cons (ssname jeu i) entites))
      (setq refusees (1+ refusees)))
    (setq i (1+ i)))
  (if (> refusees 0) (plv-dire (strcat (itoa refusees) " entites laissees: ligne, polyligne ou spline attendue.")))
  (cond
    ((not (plv-support profil genre)) (plv-erreur (strcat "ce profil n'a pas de support pour le genre " genre)))
    ((not entites) (plv-erreur "aucune courbe choisie"))
    (T (plv-attacher profil genre (reverse entites)) (reverse entites))))
