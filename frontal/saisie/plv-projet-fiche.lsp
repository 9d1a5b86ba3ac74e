;; The form of PLV-PROJET: a line as a table of vertices with their vertical curves, or of a file, or curves of the drawing. Vertices are dragged in
;; the picture.

(setq plv-projet-fiche:champs-de
  '(("Sommets" "sommets") ("Fichier" "fichier") ("Courbes du dessin" "courbes") ("Courbes reconnues" "courbes" "ecart")))

(defun plv-projet-fiche:champs ()
  (plv-champs-avec-profil
    (list
      (list "genre" "Genre de ligne" "mot" "Projet" (plv-genres))
      (list "maniere" "Ligne" "mot" "Sommets" (mapcar 'car plv-projet-fiche:champs-de))
      '("fichier" "Fichier du projet" "lire" "" "Projets (*.csv *.txt *.xml *.xlsx);;Tous (*)")
      (plv-champ-landxml "ligne" "Ligne du fichier")
      '("courbes" "Courbes" "objets" nil "LINE,LWPOLYLINE,POLYLINE,SPLINE,ARC")
      (plv-champ-nombre "ecart" "Écart admis en m" 0.01 4)
      '("sommets" "Sommets" "rangees" nil
        (("Station" "nombre" nil) ("Altitude" "nombre" nil) ("Rayon, L long. ou @alt." "texte" nil) ("Forme" "mot" ("" "C" "P"))))
      (list "seconde" "La ligne de ce genre est là" "mot" "Remplacer" (plv-seconde-manieres)))))

(defun plv-projet-fiche:maniere (valeurs) (plv-cle "maniere" valeurs))

(defun plv-projet-fiche:ou (valeurs) "The field that the line comes of." (cadr (assoc (plv-projet-fiche:maniere valeurs) plv-projet-fiche:champs-de)))

(defun plv-projet-fiche:sommets (profil valeurs lignes)
  "The vertices of the table or of the file, as plv-projet takes them; lignes: of a LandXML file. nil after a complaint, and for what has none to show."
  (cond
    ((= (plv-projet-fiche:ou valeurs) "sommets")
     (if (plv-cle "sommets" valeurs)
       (plv-sommets-des-lignes (mapcar 'plv-ligne-csv (plv-cle "sommets" valeurs)) "table")
       (plv-erreur "deux sommets au moins sont attendus")))
    ((= (plv-projet-fiche:ou valeurs) "courbes")
     (if (not (plv-fiche-objets valeurs "courbes")) (plv-erreur "des courbes du dessin sont attendues")))
    ((not (plv-fiche-fichier valeurs "fichier")) (plv-erreur "un fichier est attendu"))
    (lignes (plv-landxml-sommets-sur profil (cadr (plv-fiche-choisi valeurs "ligne" lignes))))
    ((plv-sommets-du-fichier (plv-fiche-fichier valeurs "fichier")))))

(defun plv-projet-fiche:suite (profil sommets / origine)
  "Vertices of stations as those of a line, by distance."
  (setq origine (plv-premiere-station profil))
  (mapcar '(lambda (s) (plv-sommet-de-ligne (- (car s) origine) (cadr s) (plv-demande-en-distances (plv-demande-de s) origine) nil)) sommets))

(defun plv-projet-fiche:points (suite / raccords)
  (setq raccords (plv-raccords suite))
  (if (listp raccords) (plv-suite-en-points suite raccords) (mapcar '(lambda (s) (list (car s) (cadr s))) suite)))

(defun plv-projet-fiche:places (origine rangees)
  "Where the rows of the table are; nil for one that can't be read."
  (mapcar
    '(lambda (r)
       (if (and (plv-nombre-station (car r)) (plv-nombre (cadr r))) (list (- (plv-nombre-station (car r)) origine) (plv-nombre (cadr r)))))
    rangees))

(defun plv-projet-fiche:image (profil valeurs suite)
  (plv-image-profil profil
    (append (plv-traits-profil profil)
            (if (cdr suite) (plv-image-traits "projet" (list (plv-projet-fiche:points suite))))
            (if (= (plv-projet-fiche:ou valeurs) "sommets")
              (plv-poignees-de-rangees "sommets" (plv-projet-fiche:places (plv-premiere-station profil) (plv-cle "sommets" valeurs)))))))

(defun plv-projet-fiche:caches (profil valeurs lignes)
  (append
    (vl-remove-if '(lambda (c) (member c (assoc (plv-projet-fiche:maniere valeurs) plv-projet-fiche:champs-de))) '("sommets" "fichier" "courbes" "ecart"))
    (if (not (cdr lignes)) '("ligne"))
    (if (not (plv-elements-du-projet profil (plv-cle "genre" valeurs))) '("seconde"))))

(defun plv-projet-fiche:lignes (valeurs)
  (if (= (plv-projet-fiche:ou valeurs) "fichier") (plv-fiche-lignes valeurs "fichier")))

(defun plv-projet-fiche:regarder (valeurs / profil lignes lu suite faute)
  (setq profil (plv-fiche-profil valeurs) lignes (plv-essayer 'plv-projet-fiche:lignes (list valeurs))
        lu (if (cadr lignes) lignes (plv-essayer 'plv-projet-fiche:sommets (list profil valeurs (car lignes))))
        suite (if (car lu) (plv-projet-fiche:suite profil (car lu)))
        faute (cond ((cadr lu)) (suite (plv-ligne-faute profil (list suite)))))
  (plv-regard
    (if faute (list (list (plv-projet-fiche:ou valeurs) faute)))
    (list (plv-projet-fiche:image profil valeurs suite))
    nil
    (plv-projet-fiche:caches profil valeurs (car lignes))
    (list (cons "ligne" (mapcar 'car (car lignes))))))

(defun plv-projet-fiche:tracer (profil genre valeurs / maniere)
  (setq maniere (plv-projet-fiche:maniere valeurs))
  (cond
    ((= maniere "Courbes du dessin") (plv-projet-existant profil genre (plv-jeu (plv-fiche-objets valeurs "courbes"))))
    ((= maniere "Courbes reconnues")
     (plv-projet-reconnu profil genre (plv-jeu (plv-fiche-objets valeurs "courbes")) (plv-fiche-nombre valeurs "ecart")))
    (T (plv-projet profil genre (plv-projet-fiche:sommets profil valeurs (plv-projet-fiche:lignes valeurs))))))

(defun plv-projet-fiche:faire (valeurs / profil genre)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs))
  (plv-seconde-tracer profil genre (if (plv-elements-du-projet profil genre) (plv-cle "seconde" valeurs) "Ajouter")
    '(lambda () (plv-projet-fiche:tracer profil genre valeurs))))

(plv-declarer-fiche "PLV-PROJET" "Ligne de projet" "Tracer" 'plv-projet-fiche:champs 'plv-projet-fiche:regarder 'plv-projet-fiche:faire)
