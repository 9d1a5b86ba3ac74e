;; The form of PLV-FEUILLES: how many sheets a format and a scale give, and which part of the profile stands on each.

(defun plv-feuilles-fiche:champs (/ profils)
  (if (setq profils (plv-profils))
    (list
      (list "profils" "Profils" "mots" (mapcar 'plv-numero-profil profils) (mapcar 'plv-numero-profil profils))
      (list "format" "Format" "mot" "A3" (append '("A3") plv-feuilles:formats '("Fichier")))
      '("modele" "Dessin modèle" "lire" "" "Dessins (*.dxf)")
      (list "echelle" "Échelle" "mot" "La plus grande" (cons "La plus grande" (mapcar 'plv-feuilles:nombre plv-feuilles:echelles)))
      (list "titre" "Titre de l'affaire" "texte" (plv-nom-dessin) nil)
      '("fichier" "Fichier PDF, ou rien pour l'aperçu" "ecrire" "feuilles.pdf" "PDF (*.pdf)"))
    (plv-erreur (plv-refus-sans-profil))))

(defun plv-feuilles-fiche:modele (valeurs)
  (if (= (plv-cle "format" valeurs) "Fichier") (cond ((plv-fiche-fichier valeurs "modele")) ("")) (plv-feuilles:modele (plv-cle "format" valeurs))))

(defun plv-feuilles-fiche:echelle (valeurs) (plv-nombre (plv-cle "echelle" valeurs)))

(defun plv-feuilles-fiche:profils (valeurs) (mapcar 'plv-profil-de-numero (plv-cle "profils" valeurs)))

(defun plv-feuilles-fiche:preparer (valeurs)
  (plv-feuilles:preparer (plv-feuilles-fiche:profils valeurs) (plv-feuilles-fiche:modele valeurs) (plv-feuilles-fiche:echelle valeurs)
    (plv-cle "titre" valeurs)))

(defun plv-feuilles-fiche:cadre (boite / x1 y1 x2 y2)
  (mapcar 'set '(x1 y1 x2 y2) boite)
  (list (list x1 y1) (list x2 y1) (list x2 y2) (list x1 y2) (list x1 y1)))

(defun plv-feuilles-fiche:image (fait)
  "The windows of the sheets one below the other, as they lie in the drawing."
  (plv-image-plan "ce que montrent les feuilles"
    (apply 'append
      (mapcar '(lambda (feuille) (plv-image-traits "projet" (mapcar '(lambda (vue) (plv-feuilles-fiche:cadre (plv-premiers vue 4))) (cadr feuille))))
        (cddr fait)))))

(defun plv-feuilles-fiche:regarder (valeurs / fait)
  (if (plv-cle "profils" valeurs) (setq fait (plv-essayer 'plv-feuilles-fiche:preparer (list valeurs))))
  (plv-regard
    (if (and fait (not (car fait)))
      (list (list (if (= (plv-cle "format" valeurs) "Fichier") "modele" "echelle") (cond ((cadr fait)) ("ces feuilles ne vont pas")))))
    (if (car fait) (list (plv-feuilles-fiche:image (car fait))))
    (if (car fait)
      (cons (strcat (plv-compte (length (cddr (car fait))) "feuille") " au 1:" (plv-feuilles:nombre (car (car fait))) ".")
            (mapcar '(lambda (f) (cond ((plv-cle "<SIGNET>" (caddr f))) (""))) (plv-premiers (cddr (car fait)) 8))))
    (if (/= (plv-cle "format" valeurs) "Fichier") '("modele"))
    nil))

(defun plv-feuilles-fiche:faire (valeurs / profils)
  (setq profils (plv-feuilles-fiche:profils valeurs))
  (plv-avant-sortie profils)
  (if (= (plv-cle "fichier" valeurs) "")
    (plv-apercu profils (plv-feuilles-fiche:modele valeurs) (plv-feuilles-fiche:echelle valeurs) (plv-cle "titre" valeurs))
    (plv-feuilles profils (plv-feuilles-fiche:modele valeurs) (plv-feuilles-fiche:echelle valeurs) (plv-cle "titre" valeurs) (plv-cle "fichier" valeurs))))

(plv-declarer-fiche "PLV-FEUILLES" "Feuilles" "Tracer" 'plv-feuilles-fiche:champs 'plv-feuilles-fiche:regarder 'plv-feuilles-fiche:faire)
