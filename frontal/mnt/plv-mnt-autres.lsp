;; PLV-TERRAIN AJouter and Retirer: further grounds of a profile, cut from a surface along its axis or read from a file.

(defun plv-mnt:decaler (morceaux ecart)
  (mapcar '(lambda (m) (mapcar '(lambda (p) (list (+ (car p) ecart) (cadr p))) m)) morceaux))

(defun plv-mnt:dans-profil (profil morceaux / longueur)
  "What of the pieces lies along the profile."
  (setq longueur (plv-longueur-profil profil))
  (vl-remove nil
    (mapcar '(lambda (m / a b)
               (setq a (max 0.0 (caar m)) b (min longueur (car (plv-dernier m))))
               (if (> (- b a) 1e-6) (plv-ligne-entre m a b)))
            morceaux)))

(defun plv-mnt-morceaux-de-surface (profil demande / gardee axe reponse coupe)
  "Pieces of a surface along the axis of a profile, as distances of the profile; nil after a message."
  (cond
    ((setq gardee (plv-mnt-demande-gardee profil))
     (setq demande (append (vl-remove-if-not '(lambda (p) (member (car p) '(axe fichier-axe inverse depart))) gardee) demande)))
    ((plv-axe-plan profil)
     (setq demande (append (list (list 'axe (plv-axe-plan profil)) (cons 'depart (plv-premiere-station profil))) demande)))
    (T (plv-erreur "ce profil n'a pas d'axe en plan: PLV-AXE lui en donne un") (setq demande nil)))
  (if (and demande (setq axe (plv-mnt-axe demande)) (setq reponse (plv-mnt-couper (list axe) demande)))
    (if (listp (setq coupe (car (plv-mnt-profils reponse))))
      (plv-mnt:decaler (cdr coupe) (- (plv-cle 'depart demande) (plv-premiere-station profil)))
      (plv-erreur coupe))))

(defun plv-mnt:morceaux (terrain / points morceaux)
  "The pieces of a ground as plv-lire-terrain gives it."
  (setq points (plv-cle 'points terrain))
  (foreach lacune (plv-cle 'lacunes terrain)
    (setq morceaux (cons (vl-remove-if '(lambda (p) (> (car p) (+ (plv-debut lacune) 1e-6))) points) morceaux)
          points (vl-remove-if '(lambda (p) (< (car p) (- (plv-fin lacune) 1e-6))) points)))
  (reverse (cons points morceaux)))

(defun plv-mnt-morceaux-de-fichier (profil terrain)
  "Pieces of a ground that was read, as distances of the profile: its stations are those of the profile."
  (plv-mnt:decaler (plv-mnt:morceaux terrain) (- (plv-cle 'origine terrain) (plv-premiere-station profil))))

(defun plv-mnt:refus-nom (nom)
  (if (or (= nom "") (= (strcase nom) "TN") (not (snvalid (strcat "PLV-TN-" nom))))
    (strcat "nom de terrain refusé: \"" nom "\"; des lettres, des chiffres, - et _ sont permis")))

(defun plv-mnt-ajouter (profil nom role morceaux / faute)
  "Gives a profile a further ground, in place of one of that name; the profile, or nil after a message."
  (cond
    ((setq faute (plv-mnt:refus-nom nom)) (plv-erreur faute))
    ((not (setq morceaux (plv-mnt:dans-profil profil morceaux))) (plv-erreur (strcat "le terrain " nom " n'est nulle part sur le profil")))
    (T
     (plv-ecrire-terrains profil
       (append (vl-remove (plv-terrain-nomme profil nom) (plv-terrains profil)) (list (plv-terrain nom role morceaux))))
     (plv-refaire-tables profil)
     (plv-dire (strcat "Terrain " nom ": " (plv-compte (apply '+ (mapcar 'length morceaux)) "point") ", de la station "
                       (plv-reel (+ (plv-premiere-station profil) (car (car (car morceaux)))) 2) " à "
                       (plv-reel (+ (plv-premiere-station profil) (car (plv-dernier (plv-dernier morceaux)))) 2) "."))
     profil)))

(defun plv-mnt-retirer (profil nom / terrain)
  (if (setq terrain (plv-terrain-nomme profil nom))
    (progn
      (plv-ecrire-terrains profil (vl-remove terrain (plv-terrains profil)))
      (plv-refaire-tables profil)
      (plv-dire (strcat "Terrain " (plv-terrain-nom terrain) " retiré."))
      profil)
    (plv-erreur (strcat "ce profil n'a pas de terrain " nom))))

;; --- questions

(defun plv-mnt:lire-fichier (/ chemin axe terrain)
  "The ground of a file along an axis; of LandXML alignment and ground are chosen. nil after a message."
  (if (setq chemin (plv-demander-fichier "Fichier du terrain"))
    (cond
      ((not (plv-landxml-p chemin)) (plv-lire-terrain chemin))
      ((and (setq axe (plv-landxml-choisir-axe chemin)) (setq terrain (plv-landxml-choisir-terrain axe)))
       (plv-landxml-terrain chemin axe terrain)))))

(defun plv-mnt-demander-ajout (/ profil nom role lu morceaux sources)
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq role (plv-demander-mot "Rôle" (plv-roles-terrain) "Rocher")
            nom (plv-demander-texte "Nom du terrain" role)
            morceaux
             (if (= (plv-demander-mot "Le lire de" '("Surface" "Fichier") "Surface") "Fichier")
               (if (setq lu (plv-mnt:lire-fichier)) (plv-mnt-morceaux-de-fichier profil lu))
               (if (setq sources (plv-mnt-demander-sources))
                 (plv-mnt-morceaux-de-surface profil (cons (cons 'sources sources) (plv-mnt-demander-options))))))
      (if morceaux (plv-mnt-ajouter profil nom role morceaux)))))

(defun plv-mnt-demander-retrait (/ profil noms)
  (if (setq profil (plv-choisir-profil))
    (if (setq noms (mapcar 'plv-terrain-nom (plv-terrains profil)))
      (plv-mnt-retirer profil (plv-demander-texte (strcat "Nom du terrain (" (plv-joindre noms ", ") ")") (plv-dernier noms)))
      (plv-erreur "ce profil n'a pas d'autre terrain"))))
