;; The fields of forms that take a LandXML file: once the file is chosen, its grounds or its project lines are listed and one of them is taken. What was read
;; is kept while the file stays the same.

(setq plv-landxml-fiche:lu nil)

(defun plv-landxml-fiche:chemin (valeurs cle / chemin)
  "The LandXML file of a field; nil for another file."
  (if (and (setq chemin (plv-fiche-fichier valeurs cle)) (findfile chemin) (not (vl-file-directory-p chemin)) (plv-landxml-p chemin)) chemin))

(defun plv-landxml-fiche:libre (nom pris / n essai)
  "The name, or with a number the first that isn't taken."
  (setq n 1 essai nom)
  (while (assoc essai pris) (setq n (1+ n) essai (strcat nom " (" (itoa n) ")")))
  essai)

(defun plv-landxml-fiche:distincts (nommes)
  "Each name once: those that come again are numbered."
  (reverse (plv-plier '(lambda (faits x) (cons (cons (plv-landxml-fiche:libre (car x) faits) (cdr x)) faits)) nil nommes)))

(defun plv-landxml-fiche:lire (chemin quoi / cle)
  "What a function gives of a file, (name ...) each; nil after a complaint."
  (setq cle (list chemin (vl-file-systime chemin) quoi))
  (if (not (equal cle (car plv-landxml-fiche:lu)))
    (setq plv-landxml-fiche:lu (cons cle (plv-essayer '(lambda (c) (plv-landxml-fiche:distincts (apply quoi (list c)))) (list chemin)))))
  (cond ((cadr plv-landxml-fiche:lu)) ((caddr plv-landxml-fiche:lu) (plv-erreur (caddr plv-landxml-fiche:lu)))))

(defun plv-landxml-fiche:choix (valeurs cle quoi / chemin)
  (if (setq chemin (plv-landxml-fiche:chemin valeurs cle)) (plv-landxml-fiche:lire chemin quoi)))

;; --- what forms call; cle is the field of the file

(defun plv-champ-landxml (cle libelle) (list cle libelle "mot" "" nil T))

(defun plv-fiche-terrains (valeurs cle) (plv-landxml-fiche:choix valeurs cle 'plv-landxml-terrains-nommes))

(defun plv-fiche-lignes (valeurs cle) (plv-landxml-fiche:choix valeurs cle 'plv-landxml-lignes-nommees))

(defun plv-fiche-choisi (valeurs cle choix)
  "The one that the answer names, else the first."
  (cond ((assoc (plv-cle cle valeurs) choix)) ((car choix))))

(defun plv-fiche-lire-terrain (valeurs cle cle-du-choix / choisi)
  "The ground of any file, see plv-lire-terrain; nil after a complaint."
  (cond
    ((not (plv-fiche-fichier valeurs cle)) (plv-erreur "un fichier est attendu"))
    ((not (plv-landxml-fiche:chemin valeurs cle)) (plv-lire-terrain (plv-fiche-fichier valeurs cle)))
    ((setq choisi (plv-fiche-choisi valeurs cle-du-choix (plv-fiche-terrains valeurs cle)))
     (plv-landxml-terrain (plv-fiche-fichier valeurs cle) (cadr choisi) (caddr choisi)))))
