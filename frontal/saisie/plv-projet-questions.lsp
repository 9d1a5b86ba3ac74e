;; The command PLV-PROJET: its questions. The work is done by plv-projet and plv-projet-fichier.

(defun plv-saisie:demander-points (/ sommets couple)
  (while (setq couple (plv-demander-couple (if sommets "Station,altitude suivante <fin>" "Station,altitude du premier point")))
    (setq sommets (cons couple sommets)))
  (if sommets (plv-saisie:demander-raccords (reverse sommets))))

(defun plv-saisie:demander-pentes (/ depart pente longueur sommets)
  (if (setq depart (plv-demander-couple "Station,altitude du premier point"))
    (progn
      (setq sommets (list depart))
      (while (setq pente (getreal "\nPente en % <fin>: "))
        (initget 7)
        (setq longueur (getreal "\nLongueur horizontale: ")
              depart (list (+ (car depart) longueur) (+ (cadr depart) (* 0.01 pente longueur)))
              sommets (cons depart sommets)))
      (plv-saisie:demander-raccords (reverse sommets)))))

(defun plv-saisie:demander-raccords (sommets / mesure faits)
  "Asks for the vertical curve at every vertex where the slope changes; the measure that was chosen is proposed next."
  (setq mesure "Aucun" faits (list (car sommets)))
  (while (cddr sommets)
    (if (equal (plv-pente (car sommets) (cadr sommets)) (plv-pente (cadr sommets) (caddr sommets)) 1e-9)
      (setq faits (cons (cadr sommets) faits))
      (setq mesure (plv-saisie:demander-mesure (cadr sommets) mesure)
            faits (cons (append (cadr sommets) (list (plv-saisie:demander-raccord mesure))) faits)))
    (setq sommets (cdr sommets)))
  (append (reverse faits) (cdr sommets)))

(defun plv-saisie:demander-mesure (sommet defaut)
  (plv-demander-mot (strcat "Raccordement à la station " (plv-reel (car sommet) 2)) '("Rayon" "Longueur" "Point" "Aucun") defaut))

(defun plv-saisie:demander-valeur (mesure / point)
  "The measure's key and its numbers; nil for no curve."
  (initget 7)
  (cond
    ((= mesure "Rayon") (list "R" (getreal "\nRayon: ")))
    ((= mesure "Longueur") (list "L" (getreal "\nLongueur du raccordement: ")))
    ((setq point (plv-demander-couple "Station,altitude du point de passage")) (cons "P" point))))

(defun plv-saisie:demander-raccord (mesure / valeur)
  "The request of a measure, nil for no curve."
  (if (and (/= mesure "Aucun") (setq valeur (plv-saisie:demander-valeur mesure)))
    (cons (substr (plv-demander-mot "Forme" '("Circulaire" "Parabolique") "Circulaire") 1 1) valeur)))

(defun plv-saisie:demander-sommets (profil maniere)
  "The vertices (station altitude request) in one of the ways."
  (cond ((= maniere "PEntes") (plv-saisie:demander-pentes))
        ((= maniere "Dessiner") (plv-saisie:dessiner profil))
        ((plv-saisie:demander-points))))

(defun plv-saisie:dessiner (profil / origine)
  (setq origine (plv-premiere-station profil))
  (mapcar '(lambda (s) (cons (+ origine (car s)) (cdr s))) (plv-dessiner-sommets profil)))

(defun c:plv-projet (/ profil genre maniere sommets chemin)
  "Trace une ligne de projet et l'attache au profil, par sommets tapés, désignés ou lus dans un fichier."
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq genre (plv-demander-genre "Projet")
            maniere (plv-demander-mot "Tracer par" '("POints" "PEntes" "Dessiner" "Fichier" "Existante") "POints"))
      (cond
        ((= maniere "Fichier")
         (if (setq chemin (plv-demander-fichier "Fichier du projet")) (plv-projet-fichier profil genre chemin)))
        ((= maniere "Existante")
         (plv-dire "Courbes du projet:")
         (plv-projet-existant profil genre (ssget)))
        ((setq sommets (plv-saisie:demander-sommets profil maniere))
         (plv-projet profil genre sommets)))))
  (princ))

(defun c:plv-dessiner (/ profil genre sommets)
  "Dessine une ligne de projet à la souris, sommet par sommet, ses nombres tapés à tout moment."
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq genre (plv-demander-genre "Projet"))
      (if (setq sommets (plv-saisie:dessiner profil)) (plv-projet profil genre sommets))))
  (princ))
