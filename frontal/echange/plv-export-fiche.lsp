;; The form of PLV-EXPORT.

(defun plv-export-fiche:champs (/ profils)
  (if (setq profils (plv-profils))
    (list
      '("contenu" "Donner" "mot" "LandXML" ("LandXML" "Terrain" "Projet" "Autre terrain"))
      (list "profils" "Profils" "mots" (mapcar 'plv-numero-profil profils) (mapcar 'plv-numero-profil profils))
      (plv-champ-profil)
      (plv-champ-genre-trace "Genre de ligne" (plv-genres))
      (list "nom" "Nom du terrain" "mot" "" (mapcar 'plv-terrain-nom (plv-terrains (car profils))))
      '("fichier" "Fichier à écrire" "ecrire" "profil.xml" "LandXML ou textes (*.xml *.csv);;Tous (*)"))
    (plv-erreur (plv-refus-sans-profil))))

(defun plv-export-fiche:contenu (valeurs) (plv-cle "contenu" valeurs))

(defun plv-export-fiche:fautes (valeurs contenu / profil)
  (setq profil (plv-fiche-profil valeurs))
  (append
    (if (= (plv-cle "fichier" valeurs) "") '(("fichier" "un nom de fichier est attendu")))
    (if (and (= contenu "Projet") (not (plv-elements profil (plv-cle "genre" valeurs))))
      (list (list "genre" (strcat "pas de ligne de projet du genre " (plv-cle "genre" valeurs)))))
    (if (and (= contenu "Autre terrain") (not (plv-terrain-nomme profil (cond ((plv-cle "nom" valeurs)) ("")))))
      '(("nom" "ce profil n'a pas d'autre terrain: PLV-TERRAIN AJouter en donne")))))

(defun plv-export-fiche:regarder (valeurs / contenu profil)
  (setq contenu (plv-export-fiche:contenu valeurs) profil (plv-fiche-profil valeurs))
  (plv-regard (plv-export-fiche:fautes valeurs contenu)
    (list (plv-image-profil profil (plv-traits-profil profil)))
    nil
    (append (if (/= contenu "LandXML") '("profils") '("profil")) (if (/= contenu "Projet") '("genre")) (if (/= contenu "Autre terrain") '("nom")))
    (list (cons "nom" (mapcar 'plv-terrain-nom (plv-terrains profil))))))

(defun plv-export-fiche:faire (valeurs / contenu profil fichier)
  (setq contenu (plv-export-fiche:contenu valeurs) profil (plv-fiche-profil valeurs) fichier (plv-cle "fichier" valeurs))
  (cond
    ((= contenu "LandXML") (plv-export-landxml (mapcar 'plv-profil-de-numero (plv-cle "profils" valeurs)) fichier))
    ((= contenu "Terrain") (plv-export-terrain profil fichier))
    ((= contenu "Projet") (plv-export-projet profil (plv-cle "genre" valeurs) fichier))
    (T (plv-export-autre-terrain profil (plv-cle "nom" valeurs) fichier))))

(plv-declarer-fiche "PLV-EXPORT" "Exporter" "Écrire" 'plv-export-fiche:champs 'plv-export-fiche:regarder 'plv-export-fiche:faire)
