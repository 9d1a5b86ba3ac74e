;; The command PLV-PROJET: its questions. The work is done by the functions of plv-projet and plv-projet-fichier.

(defun plv-demander-couple (question / texte nombres)
  "Two numbers typed as a,b; nil for an empty answer. Asked again until it can be read."
  (while (and (/= (setq texte (getstring (strcat "\n" question ": "))) "")
              (not (and (= (length (setq nombres (mapcar 'plv-nombre (plv-couper texte ",")))) 2) (not (member nil nombres)))))
    (setq nombres nil)
    (plv-dire "Deux nombres separes par une virgule sont attendus, avec un point decimal."))
  nombres)

(defun plv-demander-nombre (question) (initget 1) (getreal (strcat "\n" question ": ")))

(defun plv-projet:demander-points (/ sommets couple)
  (while (setq couple (plv-demander-couple (if sommets "Station,altitude suivante <fin>" "Station,altitude du premier point")))
    (setq sommets (cons couple sommets)))
  (plv-projet:demander-raccords (reverse sommets)))

(defun plv-projet:demander-pentes (/ depart pente longueur sommets)
  (if (setq depart (plv-demander-couple "Station,altitude du premier point"))
    (progn
      (setq sommets (list depart))
      (while (setq pente (getreal "\nPente en % <fin>: "))
        (initget 7)
        (setq longueur (getreal "\nLongueur horizontale: ")
              depart (list (+ (car depart) longueur) (+ (cadr depart) (* 0.01 pente longueur)))
              sommets (cons depart sommets)))
      (plv-projet:demander-raccords (reverse sommets)))))

(defun plv-projet:demander-raccords (sommets / defaut)
  "Asks for the vertical curve at every vertex where the slope changes."
  (setq defaut "Aucun")
  (if (cddr sommets)
    (append
      (list (car sommets))
      (mapcar
        '(lambda (avant s apres)
           (if (equal (plv-raccords:pente avant s) (plv-raccords:pente s apres) 1e-9)
             s
             (append s (list (plv-projet:demander-raccord s)))))
        sommets (cdr sommets) (cddr sommets))
      (list (plv-dernier sommets)))
    sommets))

(defun plv-projet:demander-raccord (sommet / mesure valeur)
  "The request at one vertex; the measure that was chosen is the next one's default."
  (setq mesure (plv-demander-mot (strcat "Raccordement a la station " (plv-reel (car sommet) 2)) '("Rayon" "Longueur" "Point" "Aucun") defaut)
        defaut mesure)
  (if (/= mesure "Aucun")
    (progn
      (initget 7)
      (setq valeur
        (cond
          ((= mesure "Rayon") (list "R" (getreal "\nRayon: ")))
          ((= mesure "Longueur") (list "L" (getreal "\nLongueur du raccordement: ")))
          ((setq valeur (plv-demander-couple "Station,altitude du point de passage")) (cons "P" valeur))))
      (if valeur
        (cons (substr (plv-demander-mot "Forme" '("Circulaire" "Parabolique") "Circulaire") 1 1) valeur)))))

(defun c:plv-projet (/ profil genre maniere sommets chemin)
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq genre (plv-demander-genre "Projet")
            maniere (plv-demander-mot "Tracer par" '("POints" "PEntes" "Fichier" "Existante") "POints"))
      (cond
        ((= maniere "Fichier")
         (if (setq chemin (plv-demander-fichier "Fichier du projet")) (plv-projet-fichier profil genre chemin)))
        ((= maniere "Existante")
         (plv-dire "Courbes du projet:")
         (plv-projet-existant profil genre (ssget)))
        ((setq sommets (if (= maniere "PEntes") (plv-projet:demander-pentes) (plv-projet:demander-points)))
         (plv-projet profil genre sommets)))))
  (princ))
