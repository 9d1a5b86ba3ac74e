;; PLV-TERRAIN AJouter and Retirer: further grounds of a profile, cut from a surface along its axis or read from a file.
;; Shared in the room: plv-mnt:refus-nom

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
    ((not (plv-profil-sain profil)) nil)
    ((setq faute (plv-mnt:refus-nom nom)) (plv-erreur faute))
    ((not (setq morceaux (plv-mnt:dans-profil profil morceaux))) (plv-erreur (strcat "le terrain " nom " n'est nulle part sur le profil")))
    (T
     (plv-ecrire-terrains profil
       (if (plv-terrain-nomme profil nom)
         (subst (plv-terrain nom role morceaux) (plv-terrain-nomme profil nom) (plv-terrains profil))
         (append (plv-terrains profil) (list (plv-terrain nom role morceaux)))))
     (plv-refaire-tables profil)
     (plv-dire (strcat "Terrain " nom ": " (plv-compte (apply '+ (mapcar 'length morceaux)) "point") ", de la station "
                       (plv-reel (+ (plv-premiere-station profil) (car (car (car morceaux)))) 2) " à "
                       (plv-reel (+ (plv-premiere-station profil) (car (plv-dernier (plv-dernier morceaux)))) 2) "."))
     (plv-dire-sous-plans profil (strcat "le terrain " nom) (plv-terrain-morceaux (plv-terrain-nomme profil nom)))
     profil)))

(defun plv-mnt-ajouter-surface (profil nom role demande / morceaux)
  "Gives a profile the ground of a surface along its axis, and keeps the request; the profile, or nil after a message."
  (if (and (setq morceaux (plv-mnt-morceaux-de-surface profil demande)) (plv-mnt-ajouter profil nom role morceaux))
    (progn (plv-mnt-garder-sous profil (plv-mnt-cle-terrain nom) demande) profil)))

;; --- cut again

(defun plv-mnt-autres-gardes (profil)
  "The further grounds that came of a surface."
  (vl-remove-if-not '(lambda (terrain) (plv-enregistrement profil (plv-mnt-cle-terrain (plv-terrain-nom terrain)))) (plv-terrains profil)))

(defun plv-mnt:dire-autre (terrain nouveau / anciens nouveaux ecarts)
  (setq anciens (apply 'append (plv-terrain-morceaux terrain)) nouveaux (apply 'append (plv-terrain-morceaux nouveau))
        ecarts (plv-mnt-comparer nouveaux anciens))
  (if (> (cadr (plv-mnt-comparer anciens nouveaux)) (cadr ecarts)) (setq ecarts (cons (car ecarts) (cdr (plv-mnt-comparer anciens nouveaux)))))
  (if (> (cadr ecarts) 1e-3)
    (plv-dire (strcat "Terrain " (plv-terrain-nom terrain) ": de " (plv-reel (cadr ecarts) 3) " m au plus."))
    (plv-dire (strcat "Terrain " (plv-terrain-nom terrain) ": il n'a pas changé."))))

(defun plv-mnt-actualiser-autre (profil terrain / nom morceaux)
  "Cuts the surface of a further ground again; the profile, or nil after a message."
  (setq nom (plv-terrain-nom terrain))
  (if (and (setq morceaux (plv-mnt-morceaux-de-surface profil (plv-mnt-demande-sous profil (plv-mnt-cle-terrain nom))))
           (plv-mnt-ajouter profil nom (plv-terrain-role terrain) morceaux))
    (progn (plv-mnt:dire-autre terrain (plv-terrain-nomme profil nom)) profil)))

(defun plv-mnt-retirer (profil nom / terrain)
  (if (and (plv-profil-sain profil) (setq terrain (plv-terrain-nomme profil nom)))
    (progn
      (dictremove (plv-dictionnaire profil) (plv-mnt-cle-terrain (plv-terrain-nom terrain)))
      (plv-ecrire-terrains profil (vl-remove terrain (plv-terrains profil)))
      (plv-refaire-tables profil)
      (plv-dire (strcat "Terrain " (plv-terrain-nom terrain) " retiré."))
      profil)
    (plv-erreur (strcat "ce profil n'a pas de terrain " nom))))

;; --- questions

(defun plv-mnt:lire-fichier (/ chemin axe terrain)
  "The ground of a file along an axis; of LandXML alignment and ground are chosen. nil after a message."
  (if (setq chemin (plv-demander-fichier "Fichier du terrain"))
    (plv-prendre-fichier "leve" chemin
      (cond
        ((not (plv-landxml-p chemin)) (plv-lire-terrain chemin))
        ((and (setq axe (plv-landxml-choisir-axe chemin)) (setq terrain (plv-landxml-choisir-terrain axe)))
         (plv-landxml-terrain chemin axe terrain))))))

(defun plv-mnt-demander-ajout (/ profil nom role lu sources)
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq role (plv-demander-mot "Rôle" (plv-roles-terrain) "Rocher")
            nom (plv-demander-texte "Nom du terrain" role))
      (if (= (plv-demander-mot "Le lire de" '("Surface" "Fichier") "Surface") "Fichier")
        (if (setq lu (plv-mnt:lire-fichier)) (plv-mnt-ajouter profil nom role (plv-mnt-morceaux-de-fichier profil lu)))
        (if (setq sources (plv-mnt-demander-sources))
          (plv-mnt-ajouter-surface profil nom role (cons (cons 'sources sources) (plv-mnt-demander-options))))))))

(defun plv-mnt-demander-retrait (/ profil noms)
  (if (setq profil (plv-choisir-profil))
    (if (setq noms (mapcar 'plv-terrain-nom (plv-terrains profil)))
      (plv-mnt-retirer profil (plv-demander-texte (strcat "Nom du terrain (" (plv-joindre noms ", ") ")") (plv-dernier noms)))
      (plv-erreur "ce profil n'a pas d'autre terrain"))))
