;; PLV-EXPORT: ground and project lines of profiles as LandXML 1.2, or as delimited text that PLV-NOUVEAU and PLV-PROJET
;; read. Stations are those of the profile, altitudes in metres.

;; --- vertices; the request of an unsymmetric parabola is ("U" length-before length-after)

(defun plv-export:parabole-p (sommet) (and (plv-demande-de sommet) (= (plv-demande-forme (plv-demande-de sommet)) "P")))

(defun plv-export:longueur (sommet) (plv-demande-valeur (plv-demande-de sommet)))

(defun plv-export:fin-de (sommet) (+ (car sommet) (* 0.5 (plv-export:longueur sommet))))
(defun plv-export:debut-de (sommet) (- (car sommet) (* 0.5 (plv-export:longueur sommet))))

(defun plv-export:moities-p (a b)
  "T for two parabolas that touch where the tangents before and after them meet: one unsymmetric parabola."
  (and (plv-export:parabole-p a) (plv-export:parabole-p b) (equal (plv-export:fin-de a) (plv-export:debut-de b) 1e-6)))

(defun plv-export:reunir (avant a b apres / d z1 z2)
  "The unsymmetric parabola of two touching ones, nil when it is none."
  (setq d (plv-export:fin-de a)
        z1 (+ (cadr a) (* (plv-pente avant a) (- d (car a))))
        z2 (+ (cadr b) (* (plv-pente b apres) (- d (car b)))))
  (if (equal z1 z2 1e-6) (list d (* 0.5 (+ z1 z2)) (list "U" (plv-export:longueur a) (plv-export:longueur b)))))

(defun plv-export:dissymetriques (sommets / reste faits u)
  "The vertices with touching halves of parabolas put together."
  (setq faits (list (car sommets)) reste (cdr sommets))
  (while reste
    (if (and (cddr reste) (plv-export:moities-p (car reste) (cadr reste))
             (setq u (plv-export:reunir (car faits) (car reste) (cadr reste) (caddr reste))))
      (setq faits (cons u faits) reste (cddr reste))
      (setq faits (cons (car reste) faits) reste (cdr reste))))
  (reverse faits))

;; --- LandXML

(defun plv-export:sommet (s origine / demande)
  "A vertex as landxml-ecrire takes it."
  (setq demande (plv-demande-de s))
  (append (list (+ origine (car s)) (cadr s))
          (cond ((not demande) nil)
                ((= (plv-demande-forme demande) "U") demande)
                (T (list (plv-demande-forme demande) (plv-demande-valeur demande))))))

(defun plv-export:projets (profil origine / projets rang)
  (foreach genre (plv-genres-du-projet profil)
    (setq rang 0)
    (foreach sommets (plv-projet-sommets profil genre)
      (setq rang (1+ rang)
            projets (cons (list (cons 'nom (if (= rang 1) genre (strcat genre " (" (itoa rang) ")")))
                                (cons 'sommets (mapcar '(lambda (s) (plv-export:sommet s origine))
                                                       (plv-export:dissymetriques sommets))))
                          projets))))
  (reverse projets))

(defun plv-export:morceaux (profil origine / points morceaux)
  "The ground in pieces, as it came: points (station altitude) between its gaps."
  (setq points (plv-points-tn profil))
  (foreach lacune (plv-lacunes profil)
    (setq morceaux (cons (vl-remove-if '(lambda (p) (> (car p) (+ (plv-debut lacune) 1e-6))) points) morceaux)
          points (vl-remove-if '(lambda (p) (< (car p) (- (plv-fin lacune) 1e-6))) points)))
  (mapcar
    '(lambda (morceau) (mapcar '(lambda (p) (list (+ origine (car p)) (cadr p))) morceau))
    (reverse (cons points morceaux))))

(defun plv-export:autre-terrain (terrain origine)
  (list (cons 'nom (plv-terrain-nom terrain)) '(etat . "")
        (cons 'troncons
          (mapcar '(lambda (morceau) (mapcar '(lambda (p) (list (+ origine (car p)) (cadr p))) morceau)) (plv-terrain-morceaux terrain)))))

(defun plv-export:plan (profil / segments)
  "The vertices (x y bulge) of the axis in plan; nil without one."
  (if (and (plv-axe-plan profil) (setq segments (plv-axe-segments (plv-axe-plan profil))))
    (append (mapcar '(lambda (s) (plv-export:sommet-plan (plv-segment-depart s) (plv-segment-bulbe s))) segments)
            (list (plv-export:sommet-plan (plv-segment-arrivee (plv-dernier segments)) 0.0)))))

(defun plv-export:sommet-plan (point bulbe) (list (float (car point)) (float (cadr point)) (float bulbe)))

(defun plv-export:axe (profil / origine)
  (setq origine (plv-premiere-station profil))
  (list (cons 'nom (plv-numero-profil profil))
        (cons 'origine origine)
        (cons 'plan (plv-export:plan profil))
        (cons 'terrains
          (cons (list '(nom . "Terrain naturel") '(etat . "existing")
                      (cons 'troncons (plv-export:morceaux profil origine)))
                (mapcar '(lambda (terrain) (plv-export:autre-terrain terrain origine)) (plv-terrains profil))))
        (cons 'projets (plv-export:projets profil origine))))

(defun plv-export-landxml (profils fichier / ecrit)
  "Writes profiles as the alignments of a LandXML file; T, or nil after a message."
  (cond
    ((not (vl-every 'plv-profil-sain profils)) nil)
    ((vl-catch-all-error-p
       (setq ecrit (vl-catch-all-apply 'landxml-ecrire (list fichier (plv-nom-dessin) (mapcar 'plv-export:axe profils)))))
     (plv-erreur (vl-catch-all-error-message ecrit)))
    (T
     (plv-dire (strcat fichier ": " (plv-compte (length profils) "profil") ", LandXML 1.2."))
     (foreach p profils (plv-noter-fait p "EXPORT" (strcat "Landxml " fichier) nil nil))
     T)))

;; --- delimited text

(defun plv-export:ecrire (profil contenu fichier lignes)
  "Writes the lines of a content; T, or nil after a message."
  (if (plv-ecrire-lignes fichier lignes)
    (progn (plv-noter-fait profil "EXPORT" (strcat contenu " " fichier) nil nil) T)))

(defun plv-export-terrain (profil fichier / origine)
  "The ground as distance;altitude;nom lines."
  (setq origine (plv-premiere-station profil))
  (plv-export:ecrire profil "Terrain" fichier
    (cons "distance;altitude;nom"
      (mapcar
        '(lambda (p)
           (plv-ligne-csv
             (list (plv-reel (+ origine (car p)) 6) (plv-reel (cadr p) 6) (plv-remplacer (plv-point-nom p) ";" ","))))
        (plv-points-nommes profil)))))

(defun plv-export-autre-terrain (profil nom fichier / origine terrain)
  "A further ground as distance;altitude;nom lines, with an empty line between its pieces."
  (setq origine (plv-premiere-station profil))
  (if (setq terrain (plv-terrain-nomme profil nom))
    (plv-ecrire-lignes fichier
      (cons "distance;altitude;nom"
        (cdr
          (apply 'append
            (mapcar
              '(lambda (morceau)
                 (cons "" (mapcar '(lambda (p) (plv-ligne-csv (list (plv-reel (+ origine (car p)) 6) (plv-reel (cadr p) 6) ""))) morceau)))
              (plv-terrain-morceaux terrain))))))
    (plv-erreur (strcat "ce profil n'a pas de terrain " nom))))

(defun plv-export-projet (profil genre fichier / origine suites)
  "The project line of a kind as station;altitude;raccordement;forme lines; the first run when it has gaps."
  (setq origine (plv-premiere-station profil) suites (plv-projet-sommets profil genre))
  (cond
    ((not suites) (plv-erreur (strcat "pas de ligne de projet du genre " genre)))
    (T
     (if (cdr suites) (plv-dire "La ligne de projet est interrompue: sa première partie est écrite."))
     (plv-export:ecrire profil genre fichier
       (plv-sommets-en-lignes (car suites) origine)))))

;; --- the command

(defun plv-export:texte (/ profil contenu genre nom fichier)
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq contenu (plv-demander-mot "Contenu" '("Terrain" "Projet" "Autre") "Terrain"))
      (if (= contenu "Autre") (setq nom (plv-demander-texte "Nom du terrain" (cond ((plv-terrain-nom (car (plv-terrains profil)))) ("")))))
      (if (= contenu "Projet") (setq genre (plv-demander-genre (plv-genre-propose profil))))
      (setq fichier (plv-demander-texte "Fichier à écrire" "profil.csv"))
      (cond
        (nom (plv-export-autre-terrain profil nom fichier))
        (genre (plv-export-projet profil genre fichier))
        (T (plv-export-terrain profil fichier))))))

(defun c:plv-export (/ profils)
  "Donne les profils à d'autres programmes, en LandXML ou en textes."
  (if (= (plv-demander-mot "Format" '("Landxml" "Texte") "Landxml") "Texte")
    (plv-export:texte)
    (if (setq profils (plv-demander-profils))
      (plv-export-landxml profils (plv-demander-texte "Fichier à écrire" "profil.xml"))))
  (princ))
