;; The command PLV-TERRAIN: its questions.

(defun plv-mnt:selectionner (texte filtre / jeu)
  (plv-dire texte)
  (if (setq jeu (ssget filtre)) (plv-entites-du-jeu jeu)))

(defun plv-mnt:demander-axe ()
  (cond ((plv-mnt:selectionner "Axe (polyligne, lignes, arcs, spline):"
           '((0 . "LWPOLYLINE,POLYLINE,LINE,ARC,SPLINE,ELLIPSE,CIRCLE"))))
        ((plv-erreur "une courbe est attendue pour l'axe"))))

(defun plv-mnt:demander-source (mot / reponse)
  "A source; nil when there is none."
  (cond
    ((= mot "Calques")
     (if (/= (setq reponse (plv-demander-texte "Calques, séparés par des virgules, * permis" "*")) "") (list "calques" reponse)))
    ((= mot "Sélection")
     (if (setq reponse (plv-mnt:selectionner "Points, blocs, textes, lignes et faces de la surface:" nil)) (cons "objets" reponse)))
    ((= mot "Fichier")
     (if (setq reponse (plv-demander-fichier "Fichier de la surface"))
       (if (= (plv-demander-mot "Premières colonnes" '("XY" "YX") "XY") "YX") (list "fichier" reponse "echanger") (list "fichier" reponse))))))

(defun plv-mnt:demander-sources (/ mot source sources)
  "The sources; nil after a message."
  (setq mot (plv-demander-mot "Surface" '("Calques" "Sélection" "Fichier") "Calques"))
  (while (and mot (/= mot "Non"))
    (if (setq source (plv-mnt:demander-source mot))
      (setq sources (cons source sources) mot (plv-demander-mot "Autre source" '("Calques" "Sélection" "Fichier" "Non") "Non"))
      (setq mot nil)))
  (if mot (reverse sources)))

(defun plv-mnt:positif (question / valeur)
  (initget 4)
  (setq valeur (getreal (strcat "\n" question ": ")))
  (if (and valeur (> valeur 0.0)) valeur))

(defun plv-mnt:demander-options (/ mot options valeur)
  "Pairs of a request; until Enter."
  (setq mot "")
  (while (/= mot "Continuer")
    (setq mot (plv-demander-mot "Réglages" '("Arête" "COntour" "Trous" "TOlérance" "ATtribut" "Zéro" "Continuer") "Continuer")
          valeur
           (cond
             ((= mot "Arête") (cons 'arete (plv-mnt:positif "Plus longue arête d'un triangle <sans limite>")))
             ((= mot "COntour") (cons 'contour (plv-mnt:selectionner "Lignes fermées qui entourent la surface:" nil)))
             ((= mot "Trous") (cons 'trous (plv-mnt:selectionner "Lignes fermées sans surface:" nil)))
             ((= mot "TOlérance") (cons 'tolerance (plv-demander-nombre-libre "Écart permis au terrain, 0 garde tous les points" 0.01 3)))
             ((= mot "ATtribut") (cons 'attribut (plv-demander-texte "Étiquette de l'attribut d'altitude" nil)))
             ((= mot "Zéro") '(zero . T))))
    (if (and valeur (cdr valeur)) (setq options (cons valeur options))))
  options)

(defun plv-mnt:demander (/ axe depart inverse sources)
  "A request; nil after a message."
  (if (setq axe (plv-mnt:demander-axe))
    (progn
      (setq depart (plv-demander-nombre-libre "Station de départ" 0.0 2)
            inverse (= (plv-demander-mot "Sens de l'axe" '("Tracé" "Inverse") "Tracé") "Inverse"))
      (if (setq sources (plv-mnt:demander-sources))
        (plv-mnt-demande axe inverse depart sources (plv-mnt:demander-options))))))

(defun plv-mnt:nouveau (/ plv-mnt:demande plv-mnt:lu)
  "The ground is known before the profile's own questions come."
  (if (and (setq plv-mnt:demande (plv-mnt:demander)) (setq plv-mnt:lu (plv-mnt-lire plv-mnt:demande)))
    (plv-nouveau-demander '(lambda () plv-mnt:lu) (itoa (plv-identifiant-libre)) 'plv-mnt-achever
      (cons plv-mnt:demande plv-mnt:lu))))

(defun plv-mnt:controler (/ sources)
  (if (setq sources (plv-mnt:demander-sources))
    (plv-mnt-controler (plv-mnt-demande nil nil 0.0 sources nil) (plv-demander-reel "Taille des marques" 1.0))))

(defun c:plv-terrain (/ mot)
  "Crée un profil où un axe en plan traverse une surface: points, lignes, faces, fichiers."
  (setq mot (plv-demander-mot "Terrain" '("Nouveau" "Contrôler") "Nouveau"))
  (cond
    ((= mot "Nouveau") (plv-mnt:nouveau))
    ((= mot "Contrôler") (plv-mnt:controler)))
  (princ))
