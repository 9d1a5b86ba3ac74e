;; The form of PLV-PROJET: a line as a table of vertices with their vertical curves, or of a file, or curves of the drawing.

(defun plv-projet-fiche:champs ()
  (plv-champs-avec-profil
    (list
      (list "genre" "Genre de ligne" "mot" "Projet" (plv-genres))
      '("maniere" "Ligne" "mot" "Sommets" ("Sommets" "Fichier" "Courbes du dessin"))
      '("fichier" "Fichier du projet" "lire" "" "Projets (*.csv *.txt *.xml *.xlsx);;Tous (*)")
      '("courbes" "Courbes" "objets" nil "LINE,LWPOLYLINE,POLYLINE,SPLINE,ARC")
      '("sommets" "Sommets" "rangees" nil
        (("Station" "nombre" nil) ("Altitude" "nombre" nil) ("Rayon, L long. ou @alt." "texte" nil) ("Forme" "mot" ("" "C" "P"))))
      '("remplacer" "Remplacer la ligne de ce genre" "oui" T nil))))

(defun plv-projet-fiche:maniere (valeurs) (plv-cle "maniere" valeurs))

(defun plv-projet-fiche:landxml-p (valeurs / chemin)
  (and (setq chemin (plv-fiche-fichier valeurs "fichier")) (findfile chemin) (plv-landxml-p chemin)))

(defun plv-projet-fiche:sommets (valeurs)
  "The vertices of the table or of the file, as plv-projet takes them; nil after a complaint, and for what has none to show."
  (cond
    ((= (plv-projet-fiche:maniere valeurs) "Sommets")
     (if (plv-cle "sommets" valeurs)
       (plv-sommets-des-lignes (mapcar 'plv-ligne-csv (plv-cle "sommets" valeurs)) "table")
       (plv-erreur "deux sommets au moins sont attendus")))
    ((= (plv-projet-fiche:maniere valeurs) "Courbes du dessin")
     (if (not (plv-fiche-objets valeurs "courbes")) (plv-erreur "des courbes du dessin sont attendues")))
    ((not (plv-fiche-fichier valeurs "fichier")) (plv-erreur "un fichier est attendu"))
    ((not (plv-projet-fiche:landxml-p valeurs)) (plv-sommets-du-fichier (plv-fiche-fichier valeurs "fichier")))))

(defun plv-projet-fiche:suite (profil sommets / origine)
  "Vertices of stations as those of a line, by distance."
  (setq origine (plv-premiere-station profil))
  (mapcar '(lambda (s) (plv-sommet-de-ligne (- (car s) origine) (cadr s) (plv-demande-en-distances (plv-demande-de s) origine) nil)) sommets))

(defun plv-projet-fiche:ou (valeurs)
  (cdr (assoc (plv-projet-fiche:maniere valeurs) '(("Sommets" . "sommets") ("Fichier" . "fichier") ("Courbes du dessin" . "courbes")))))

(defun plv-projet-fiche:points (suite / raccords)
  (setq raccords (plv-raccords suite))
  (if (listp raccords) (plv-suite-en-points suite raccords) (mapcar '(lambda (s) (list (car s) (cadr s))) suite)))

(defun plv-projet-fiche:regarder (valeurs / profil lu suite faute)
  (setq profil (plv-fiche-profil valeurs) lu (plv-essayer 'plv-projet-fiche:sommets (list valeurs))
        suite (if (car lu) (plv-projet-fiche:suite profil (car lu)))
        faute (cond ((cadr lu)) (suite (plv-ligne-faute profil (list suite)))))
  (plv-regard
    (if faute (list (list (plv-projet-fiche:ou valeurs) faute)))
    (list (plv-image-profil profil
            (append (plv-traits-profil profil) (if (cdr suite) (plv-image-traits "projet" (list (plv-projet-fiche:points suite)))))))
    nil
    (append (vl-remove (plv-projet-fiche:ou valeurs) '("sommets" "fichier" "courbes"))
            (if (not (plv-elements-du-projet profil (plv-cle "genre" valeurs))) '("remplacer")))
    nil))

(defun plv-projet-fiche:faire (valeurs / profil genre anciens fait)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs)
        anciens (if (plv-cle "remplacer" valeurs) (plv-elements-du-projet profil genre))
        fait
         (cond
           ((= (plv-projet-fiche:maniere valeurs) "Fichier") (plv-projet-fichier profil genre (plv-fiche-fichier valeurs "fichier")))
           ((= (plv-projet-fiche:maniere valeurs) "Sommets") (plv-projet profil genre (plv-projet-fiche:sommets valeurs)))
           (T (plv-projet-existant profil genre (plv-jeu (plv-fiche-objets valeurs "courbes"))))))
  (if (and fait anciens) (plv-effacer-courbes profil (vl-remove-if '(lambda (e) (member e fait)) anciens)))
  fait)

(plv-declarer-fiche "PLV-PROJET" "Ligne de projet" "Tracer" 'plv-projet-fiche:champs 'plv-projet-fiche:regarder 'plv-projet-fiche:faire)
