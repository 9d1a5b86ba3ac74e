;; PLV-NOUVEAU: a profile from a ground file, in one command or one call.
;; Nothing is drawn before everything that was given has been understood.

(defun plv-nouveau:plan-valable (plan longueur)
  (and (numberp (car plan)) (numberp (cadr plan)) (>= (car plan) 0.0) (< (car plan) longueur)))

(defun plv-nouveau:plans (plans points echv hauteur-max / longueur)
  "The planes that were given, checked, or the proposed ones; nil after a message."
  (setq longueur (car (plv-dernier points)))
  (cond
    ((not plans) (plv-plans-proposes points echv hauteur-max))
    ((not (equal (caar plans) 0.0 1e-9)) (plv-erreur "le premier plan de comparaison commence a la distance 0"))
    ((not (vl-every '(lambda (p) (plv-nouveau:plan-valable p longueur)) plans))
     (plv-erreur "un plan de comparaison a une distance dans le profil et une altitude"))
    ((not (apply '< (mapcar 'car plans))) (plv-erreur "les plans de comparaison vont par distances croissantes"))
    (T (mapcar '(lambda (p) (list (float (car p)) (float (cadr p)))) plans))))

(defun plv-nouveau:couper (points plans / resultat reste precedent d)
  "The points with one added wherever a plane changes between two of them."
  (foreach plan (cdr plans)
    (setq d (car plan) resultat nil precedent nil)
    (foreach p points
      (if (and precedent (< (car precedent) (- d 1e-6)) (> (car p) (+ d 1e-6)))
        (setq resultat
          (cons (list d (+ (cadr precedent) (* (- (cadr p) (cadr precedent)) (/ (- d (car precedent)) (- (car p) (car precedent))))) "")
                resultat)))
      (setq resultat (cons p resultat) precedent p))
    (setq points (reverse resultat)))
  points)

(defun plv-nouveau (chemin numero point echv ttxt hauteur-max plans / trouve terrain points profil)
  "Creates a profile and gives its block reference, or nil after a message. nil for an argument takes its default:
number the next one, insertion (0 0), vertical scale 10, text height 2.5, drawn height at most 100 text heights,
planes proposed; planes otherwise ((distance altitude) ...)."
  (setq echv (cond (echv) (10.0))
        ttxt (cond (ttxt) (2.5))
        numero (cond (numero) ((itoa (plv-profil:identifiant))))
        point (cond (point) ('(0.0 0.0 0.0)))
        hauteur-max (cond (hauteur-max) ((* 60.0 ttxt))))
  (cond
    ((not (and (> echv 0.0) (> ttxt 0.0) (> hauteur-max 0.0)))
     (plv-erreur "l'echelle, la hauteur de texte et la hauteur maximale sont des nombres positifs"))
    ((plv-profil-de-numero numero) (plv-erreur (strcat "le dessin a deja un profil numero " numero)))
    ((not (setq trouve (plv-fichier-existant chemin))) nil)
    ((not (setq terrain (plv-lire-terrain trouve))) nil)
    ((not (setq points (plv-cle 'points terrain)
                plans (plv-nouveau:plans plans points echv hauteur-max))) nil)
    (T
     (setq points (plv-nouveau:couper points plans)
           profil (plv-creer-profil numero point (plv-cle 'origine terrain) points echv ttxt plans))
     (plv-habiller-profil profil point points echv ttxt plans)
     (plv-dire (strcat "Profil " numero ": " (itoa (length points)) " points, "
                       (plv-reel (car (plv-dernier points)) 2) " m, "
                       (itoa (length plans)) (if (cdr plans) " plans de comparaison." " plan de comparaison.")))
     profil)))

(defun plv-nouveau:demander-plans (longueur / choix plans distance altitude)
  "nil for proposed planes, or the planes typed by the user."
  (if (= (plv-demander-mot "Plans de comparaison" '("Automatiques" "Saisis") "Automatiques") "Saisis")
    (progn
      (setq distance 0.0)
      (while distance
        (setq altitude (getreal (strcat "\nAltitude du plan a partir de " (plv-reel distance 2) ": ")))
        (if altitude (setq plans (cons (list distance altitude) plans)))
        (initget 6)
        (setq distance (getreal "\nDistance du plan suivant <fin>: ")))
      (reverse plans))))

(defun c:plv-nouveau (/ chemin numero point echv ttxt hauteur-max plans)
  (if (setq chemin (plv-demander-fichier "Fichier du terrain naturel"))
    (progn
      (setq numero (plv-demander-texte "Numero du profil" (itoa (plv-profil:identifiant)))
            point (cond ((getpoint "\nPoint d'insertion <0,0>: ")) ('(0.0 0.0 0.0)))
            echv (plv-demander-reel "Echelle verticale" 10.0)
            ttxt (plv-demander-reel "Hauteur de texte" 2.5)
            hauteur-max (plv-demander-reel "Hauteur dessinee maximale" (* 60.0 ttxt))
            plans (plv-nouveau:demander-plans nil))
      (plv-nouveau chemin numero point echv ttxt hauteur-max plans)))
  (princ))
