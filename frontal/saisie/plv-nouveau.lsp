;; PLV-NOUVEAU: a profile from a ground file, in one command or one call.
;; Nothing is drawn before everything that was given has been understood.

(defun plv-nouveau:plan-valable (plan longueur)
  (and (numberp (plv-plan-debut plan)) (numberp (plv-plan-altitude plan)) (>= (plv-plan-debut plan) 0.0) (< (plv-plan-debut plan) longueur)))

(defun plv-nouveau:plans (plans points echv hauteur-max / longueur)
  "The planes that were given, checked, or the proposed ones; nil after a message."
  (setq longueur (car (plv-dernier points)))
  (cond
    ((not plans) (plv-plans-proposes points echv hauteur-max nil))
    ((not (equal (plv-plan-debut (car plans)) 0.0 1e-9)) (plv-erreur "le premier plan de comparaison commence à la distance 0"))
    ((not (vl-every '(lambda (p) (plv-nouveau:plan-valable p longueur)) plans))
     (plv-erreur "un plan de comparaison a une distance dans le profil et une altitude"))
    ((not (apply '< (mapcar 'plv-plan-debut plans))) (plv-erreur "les plans de comparaison vont par distances croissantes"))
    (T (mapcar '(lambda (p) (list (float (plv-plan-debut p)) (float (plv-plan-altitude p)))) plans))))

(defun plv-nouveau (chemin numero point echv ttxt hauteur-max plans / trouve axe)
  "Creates a profile and gives its block reference, or nil after a message. nil for an argument takes its default:
number the next one, insertion (0 0), vertical scale 10, text height 2.5, drawn height at most 60 text heights,
planes proposed; planes otherwise ((distance altitude) ...). Of a LandXML file the first alignment is taken, with its
project lines."
  (cond
    ((not (setq trouve (plv-fichier-existant chemin))) nil)
    ((not (plv-landxml-p trouve))
     (plv-nouveau-sur '(lambda () (plv-lire-terrain trouve)) numero point echv ttxt hauteur-max plans))
    ((setq axe (plv-landxml-premier-axe trouve))
     (plv-nouveau-axe axe '(lambda () (plv-landxml-terrain trouve axe (car (plv-landxml-terrains axe))))
       numero point echv ttxt hauteur-max plans 'plv-landxml-projets))))

(defun plv-nouveau-axe (axe lecture numero point echv ttxt hauteur-max plans projets / profil)
  "A profile on a ground, and what `projets` draws of the alignment's project lines."
  (if (setq profil (plv-nouveau-sur lecture numero point echv ttxt hauteur-max plans))
    (apply projets (list profil axe)))
  profil)

(defun plv-nouveau-sur (lecture numero point echv ttxt hauteur-max plans / terrain points profil)
  "plv-nouveau on the ground that a function reads, once the other arguments are good."
  (setq echv (cond (echv) (10.0))
        ttxt (cond (ttxt) (2.5))
        numero (cond (numero) ((itoa (plv-identifiant-libre))))
        point (cond (point) ('(0.0 0.0 0.0)))
        hauteur-max (cond (hauteur-max) ((* 60.0 ttxt))))
  (cond
    ((not (and (> echv 0.0) (> ttxt 0.0) (> hauteur-max 0.0)))
     (plv-erreur "l'échelle, la hauteur de texte et la hauteur maximale sont des nombres positifs"))
    ((plv-profil-de-numero numero) (plv-erreur (strcat "le dessin a déjà un profil numéro " numero)))
    ((not (setq terrain (apply lecture '()))) nil)
    ((not (setq points (plv-cle 'points terrain)
                plans (plv-nouveau:plans plans points echv hauteur-max))) nil)
    (T
     (setq points (plv-points-aux-plans points plans)
           profil (plv-creer-profil numero point (plv-cle 'origine terrain) points echv ttxt plans))
     (plv-habiller-profil profil point points echv ttxt plans)
     (if (plv-cle 'lacunes terrain) (plv-ecrire-lacunes profil (plv-cle 'lacunes terrain)))
     (plv-dire (strcat "Profil " numero ": " (itoa (length points)) " points, "
                       (plv-reel (car (plv-dernier points)) 2) " m, "
                       (itoa (length plans)) (if (cdr plans) " plans de comparaison." " plan de comparaison.")))
     profil)))

(defun plv-nouveau:demander-plans (/ plans d altitude)
  "nil for proposed planes, or the planes typed by the user."
  (if (= (plv-demander-mot "Plans de comparaison" '("Automatiques" "Saisis") "Automatiques") "Saisis")
    (progn
      (setq d 0.0)
      (while d
        (setq altitude (getreal (strcat "\nAltitude du plan à partir de " (plv-reel d 2) ": ")))
        (if altitude (setq plans (cons (list d altitude) plans)))
        (initget 6)
        (setq d (getreal "\nDistance du plan suivant <fin>: ")))
      (reverse plans))))

(defun plv-demander-insertion (question propose)
  (setq propose (cond (propose) ('(0.0 0.0 0.0))))
  (cond ((getpoint (strcat "\n" question " <" (plv-reel (car propose) 0) "," (plv-reel (cadr propose) 0) ">: "))) (propose)))

(defun plv-nouveau:demander-numero (propose / numero)
  "A person is asked again while a profile has it; a script learns it at the end, as ever."
  (setq numero (plv-demander-texte "Numéro du profil" propose))
  (while (and (plv-profil-de-numero numero) (not (plv-script-p)))
    (plv-dire (strcat "Le dessin a déjà un profil numéro " numero "."))
    (setq numero (plv-demander-texte "Numéro du profil" propose)))
  numero)

(defun plv-nouveau-demander (lecture numero projets axe propose / point echv ttxt hauteur-max)
  "The questions that follow the ground's, and the profile. propose: an insertion, (0 0) for nil."
  (setq numero (plv-nouveau:demander-numero numero)
        point (plv-demander-insertion "Point d'insertion" propose)
        echv (plv-demander-reel "Échelle verticale" 10.0)
        ttxt (plv-demander-reel "Hauteur de texte" 2.5)
        hauteur-max (plv-demander-reel "Hauteur dessinée maximale" (* 60.0 ttxt)))
  (plv-nouveau-axe axe lecture numero point echv ttxt hauteur-max (plv-nouveau:demander-plans) projets))

(defun plv-nouveau:landxml (chemin / axe plv-nouveau:terrain)
  "Alignment and ground are chosen, and read, before anything else is asked."
  (if (and (setq axe (plv-landxml-choisir-axe chemin))
           (setq plv-nouveau:terrain (plv-nouveau:lire-axe chemin axe)))
    (plv-nouveau-demander '(lambda () plv-nouveau:terrain) (plv-landxml-numero axe) 'plv-landxml-demander-projets axe nil)))

(defun plv-nouveau:lire-axe (chemin axe / terrain)
  (if (plv-cle 'terrains axe)
    (if (setq terrain (plv-landxml-choisir-terrain axe)) (plv-landxml-terrain chemin axe terrain))
    (plv-landxml-demander-terrain axe)))

(defun c:plv-nouveau (/ chemin)
  "Crée un profil d'un levé: texte, classeur ou LandXML."
  (if (setq chemin (plv-demander-fichier "Fichier du terrain naturel"))
    (plv-prendre-fichier "leve" chemin
      (if (plv-landxml-p chemin)
        (plv-nouveau:landxml chemin)
        (plv-nouveau-demander '(lambda () (plv-lire-terrain chemin)) (itoa (plv-identifiant-libre)) '(lambda (profil axe) nil) nil nil))))
  (princ))
