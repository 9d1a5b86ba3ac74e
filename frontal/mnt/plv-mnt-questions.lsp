;; The command PLV-TERRAIN: its questions.

(defun plv-mnt:selectionner (texte filtre / jeu)
  (plv-dire texte)
  (if (setq jeu (ssget filtre)) (plv-entites-du-jeu jeu)))

(defun plv-mnt:demander-axe-du-dessin ()
  (cond ((plv-mnt:selectionner "Axe (polyligne, lignes, arcs, spline):"
           '((0 . "LWPOLYLINE,POLYLINE,LINE,ARC,SPLINE,ELLIPSE,CIRCLE"))))
        ((plv-erreur "une courbe est attendue pour l'axe"))))

(defun plv-mnt:choisir (question noms / rang)
  "The rank of one of some names, from 0; one alone is not asked for. nil after a message."
  (setq rang 0)
  (if (cdr noms)
    (progn
      (foreach nom noms (plv-dire (strcat "  " (itoa (setq rang (1+ rang))) "  " nom)))
      (initget 6)
      (setq rang (1- (cond ((getint (strcat "\n" question " <1>: "))) (1))))))
  (cond ((nth rang noms) rang)
        (T (plv-erreur (strcat "il n'y a pas de numéro " (itoa (1+ rang)))))))

(defun plv-mnt:choisir-ligne (chemin lignes / rang)
  "A line of a file as an axis; nil after a message. The start that the file tells is proposed."
  (if (setq rang (plv-mnt:choisir "Numéro de la ligne" (mapcar 'car lignes)))
    (progn (setq plv-mnt:depart-propose (caddr (nth rang lignes))) (list 'fichier-axe chemin rang))))

(setq plv-mnt:depart-propose 0.0)

(defun plv-mnt:demander-axe-du-fichier (/ chemin lignes)
  (if (and (setq chemin (plv-demander-fichier "Fichier de l'axe")) (plv-mnt-systeme-pour chemin nil))
    (if (listp (setq lignes (et_axes_fichier chemin (plv-mnt-systeme))))
      (plv-mnt:choisir-ligne chemin lignes)
      (plv-erreur lignes))))

(defun plv-mnt:demander-axe ()
  (if (= (plv-demander-mot "Axe" '("Dessin" "Fichier") "Dessin") "Fichier")
    (plv-mnt:demander-axe-du-fichier)
    (plv-mnt:demander-axe-du-dessin)))

(defun plv-mnt:demander-chemin (/ nom)
  (if (/= (setq nom (plv-demander-texte "Fichier de la surface, ou dossier de dalles" nil)) "")
    (if (vl-file-directory-p nom) nom (plv-fichier-existant nom))
    (plv-erreur "nom de fichier attendu")))

(defun plv-mnt:ordre-propose (chemin / coins)
  "YX for points that only meet what the drawing holds when they are exchanged."
  (setq coins (mapcar '(lambda (c) (list (car c) (cadr c) 0.0 0.0)) (list (getvar "EXTMIN") (getvar "EXTMAX"))))
  (if (and (apply '< (mapcar 'car coins)) (= (et_ordre chemin coins) "YX")) "YX" "XY"))

(defun plv-mnt:demander-fichier (/ chemin)
  "A file as a source; of a point list the order of its columns is asked, of LandXML the surface."
  (if (and (setq chemin (plv-mnt:demander-chemin)) (plv-mnt-systeme-pour chemin nil))
    (cond
      ((equal (et_fichier chemin) '("points"))
       (if (= (plv-demander-mot "Premières colonnes" '("XY" "YX") (plv-mnt:ordre-propose chemin)) "YX") (list "fichier" chemin "echanger") (list "fichier" chemin)))
      ((= (car (et_fichier chemin)) "landxml") (plv-mnt:demander-surface chemin (et_surfaces chemin)))
      (T (list "fichier" chemin)))))

(defun plv-mnt:demander-surface (chemin noms / rang)
  (cond
    ((not noms) (plv-erreur (strcat chemin ": pas de surface dans ce fichier LandXML")))
    ((not (listp noms)) (plv-erreur noms))
    ((setq rang (plv-mnt:choisir "Numéro de la surface" noms)) (list "fichier" chemin (strcat "surface:" (nth rang noms))))))

(defun plv-mnt:demander-source (mot / reponse)
  "A source; nil when there is none."
  (cond
    ((= mot "Calques")
     (if (/= (setq reponse (plv-demander-texte "Calques, séparés par des virgules, * permis" "*")) "") (list "calques" reponse)))
    ((= mot "Sélection")
     (if (setq reponse (plv-mnt:selectionner "Points, blocs, textes, lignes et faces de la surface:" nil)) (cons "objets" reponse)))
    ((= mot "Fichier") (plv-mnt:demander-fichier))
    ((= mot "Axe") '("axe"))))

(defun plv-mnt-demander-sources (/ mot source sources)
  "The sources; nil after a message."
  (setq mot (plv-demander-mot "Surface" '("Calques" "Sélection" "Fichier" "Axe") "Calques"))
  (while (and mot (/= mot "Non"))
    (if (setq source (plv-mnt:demander-source mot))
      (setq sources (cons source sources) mot (plv-demander-mot "Autre source" '("Calques" "Sélection" "Fichier" "Axe" "Non") "Non"))
      (setq mot nil)))
  (if mot (reverse sources)))

(defun plv-mnt:positif (question / valeur)
  (initget 4)
  (setq valeur (getreal (strcat "\n" question ": ")))
  (if (and valeur (> valeur 0.0)) valeur))

(defun plv-mnt-demander-options (/ mot options valeur)
  "Pairs of a request; until Enter."
  (setq mot "")
  (while (/= mot "Continuer")
    (setq mot (plv-demander-mot "Réglages" '("Arête" "COntour" "Trous" "Près" "TOlérance" "ATtribut" "Zéro" "Continuer") "Continuer")
          valeur
           (cond
             ((= mot "Arête") (cons 'arete (plv-mnt:positif "Plus longue arête d'un triangle <sans limite>")))
             ((= mot "COntour") (cons 'contour (plv-mnt:selectionner "Lignes fermées qui entourent la surface:" nil)))
             ((= mot "Trous") (cons 'trous (plv-mnt:selectionner "Lignes fermées sans surface:" nil)))
             ((= mot "Près") (cons 'pres (plv-mnt:positif "Au lieu d'une surface, les points à cette distance de l'axe au plus <non>")))
             ((= mot "TOlérance") (cons 'tolerance (plv-demander-nombre-libre "Écart permis au terrain, 0 garde tous les points" 0.01 3)))
             ((= mot "ATtribut") (cons 'attribut (plv-demander-texte "Étiquette de l'attribut d'altitude" nil)))
             ((= mot "Zéro") '(zero . T))))
    (if (and valeur (cdr valeur)) (setq options (cons valeur options))))
  options)

(defun plv-mnt:demander (/ axe depart inverse sources)
  "A request; nil after a message."
  (setq plv-mnt:depart-propose 0.0)
  (if (setq axe (plv-mnt:demander-axe))
    (progn
      (setq depart (plv-demander-nombre-libre "Station de départ" plv-mnt:depart-propose 2)
            inverse (= (plv-demander-mot "Sens de l'axe" '("Tracé" "Inverse") "Tracé") "Inverse"))
      (if (setq sources (plv-mnt-demander-sources))
        (plv-mnt-demande axe inverse depart sources (plv-mnt-demander-options))))))

(defun plv-mnt:nouveau (/ plv-mnt:demande plv-mnt:lu)
  "The ground is known before the profile's own questions come."
  (if (and (setq plv-mnt:demande (plv-mnt:demander)) (setq plv-mnt:lu (plv-mnt-lire plv-mnt:demande)))
    (plv-nouveau-demander '(lambda () plv-mnt:lu) (itoa (plv-identifiant-libre)) 'plv-mnt-achever
      (cons plv-mnt:demande plv-mnt:lu) (plv-mnt-insertion (plv-cle 'axe plv-mnt:lu)))))

(defun plv-mnt-insertion (axe / points bas haut)
  "Above the axis and what lies in the drawing, where that is far from the origin: a profile there would be out of sight. nil elsewhere."
  (setq points (append axe (if (< (car (getvar "EXTMIN")) (car (getvar "EXTMAX"))) (list (getvar "EXTMIN") (getvar "EXTMAX")))))
  (if points
    (progn
      (setq bas (list (apply 'min (mapcar 'car points)) (apply 'min (mapcar 'cadr points)))
            haut (list (apply 'max (mapcar 'car points)) (apply 'max (mapcar 'cadr points))))
      (if (> (distance bas '(0.0 0.0)) (* 10.0 (distance bas haut)))
        (list (* 10.0 (fix (/ (car bas) 10.0))) (* 10.0 (fix (/ (+ (cadr haut) 300.0) 10.0))) 0.0)))))

(defun plv-mnt:voir (/ sources)
  (if (setq sources (plv-mnt-demander-sources))
    (plv-mnt-voir (plv-mnt-demande nil nil 0.0 sources (plv-mnt-demander-options)))))

(defun plv-mnt:controler (/ sources)
  (if (setq sources (plv-mnt-demander-sources))
    (plv-mnt-controler (plv-mnt-demande nil nil 0.0 sources nil) (plv-demander-reel "Taille des marques" 1.0))))

(defun plv-mnt:plusieurs (/ calque sources options point echv ttxt)
  (setq calque (plv-demander-texte "Calque des axes" nil))
  (if (setq sources (plv-mnt-demander-sources))
    (progn
      (setq options (plv-mnt-demander-options)
            point (plv-demander-insertion "Point d'insertion du premier" (plv-mnt-insertion nil))
            echv (plv-demander-reel "Échelle verticale" 10.0)
            ttxt (plv-demander-reel "Hauteur de texte" 2.5))
      (plv-mnt-plusieurs calque (plv-mnt-demande nil nil 0.0 sources options) point echv ttxt
        (plv-demander-reel "Hauteur dessinée maximale" (* 60.0 ttxt))))))

(defun plv-mnt:actualiser (/ profils)
  "One profile, or all that came of a surface."
  (if (setq profils (plv-demander-profils))
    (mapcar 'plv-mnt-actualiser (cond ((vl-remove-if-not 'plv-mnt-actualisable-p profils)) (profils)))))

(defun c:plv-terrain (/ mot)
  "Crée un profil où un axe en plan traverse une surface: points, lignes, faces, fichiers."
  (setq mot (plv-demander-mot "Terrain" '("Nouveau" "Plusieurs" "ACtualiser" "AJouter" "Retirer" "Observations" "Voir" "Contrôler" "Système") "Nouveau"))
  (cond
    ((= mot "Nouveau") (plv-mnt:nouveau))
    ((= mot "Plusieurs") (plv-mnt:plusieurs))
    ((= mot "ACtualiser") (plv-mnt:actualiser))
    ((= mot "AJouter") (plv-mnt-demander-ajout))
    ((= mot "Retirer") (plv-mnt-demander-retrait))
    ((= mot "Observations") (plv-mnt-demander-observations))
    ((= mot "Voir") (plv-mnt:voir))
    ((= mot "Contrôler") (plv-mnt:controler))
    ((= mot "Système") (plv-mnt-demander-systeme (cond ((plv-mnt-systeme) (et_systemes (plv-mnt-systeme))) (T (plv-mnt-systemes-du-dessin))))))
  (princ))
