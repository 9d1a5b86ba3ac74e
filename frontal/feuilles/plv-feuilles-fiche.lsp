;; The forms of PLV-FEUILLES, PLV-APERCU and PLV-PRESENTATIONS: how many sheets a format and a scale give, and which part of the profile stands on each.

(defun plv-feuilles-fiche:champs (/ profils)
  (if (setq profils (plv-profils))
    (list
      (list "profils" "Profils" "mots" (mapcar 'plv-numero-profil profils) (mapcar 'plv-numero-profil profils))
      (list "format" "Format" "mot" "A3" (append '("A3") plv-feuilles:formats '("Fichier")))
      '("modele" "Dessin modèle" "lire" "" "Dessins (*.dxf)")
      (list "echelle" "Échelle" "mot" "La plus grande" (cons "La plus grande" (mapcar 'plv-feuilles:nombre plv-feuilles:echelles)))
      (plv-champ-du-dessin "titre" "Titre de l'affaire" (plv-nom-dessin))
      '("liste" "Liste des feuilles" "oui" nil nil)
      (list "couleurs" "Table de tracé" "mot" (plv-couleurs-proposee (plv-couleurs-des-feuilles)) (plv-couleurs-proposees) T)
      '("fichier" "Fichier PDF" "ecrire" "feuilles.pdf" "PDF (*.pdf)"))
    (plv-erreur (plv-refus-sans-profil))))

(defun plv-feuilles-fiche:modele (valeurs)
  (if (= (plv-cle "format" valeurs) "Fichier") (cond ((plv-fiche-fichier valeurs "modele")) ("")) (plv-feuilles:modele (plv-cle "format" valeurs))))

(defun plv-feuilles-fiche:echelle (valeurs) (plv-nombre (plv-cle "echelle" valeurs)))

(defun plv-feuilles-fiche:profils (valeurs) (mapcar 'plv-profil-de-numero (plv-cle "profils" valeurs)))

(defun plv-feuilles-fiche:preparer (valeurs)
  (plv-feuilles:preparer (plv-feuilles-fiche:profils valeurs) (plv-feuilles-fiche:modele valeurs) (plv-feuilles-fiche:echelle valeurs)
    (plv-cle "titre" valeurs) (plv-cle "liste" valeurs)))

(defun plv-feuilles-fiche:cadre (boite / x1 y1 x2 y2)
  (mapcar 'set '(x1 y1 x2 y2) boite)
  (list (list x1 y1) (list x2 y1) (list x2 y2) (list x1 y2) (list x1 y1)))

(defun plv-feuilles-fiche:dessin (profil)
  "Ground and planes as they lie in the drawing."
  (apply 'append
    (mapcar
      '(lambda (plan)
         (append
           (plv-image-traits "plan" (list (plv-feuilles-fiche:bouts plan)))
           (plv-image-traits "terrain" (mapcar 'plv-feuilles-fiche:bouts (plv-lignes-du-plan plan)))))
      (plv-entites-plans profil))))

(defun plv-feuilles-fiche:bouts (ligne / groupes)
  (setq groupes (entget ligne))
  (mapcar '(lambda (code / p) (list (car (setq p (plv-cle code groupes))) (cadr p))) '(10 11)))

(defun plv-feuilles-fiche:image (profils fait)
  "The profiles, and the windows of the sheets over them, as they lie in the drawing."
  (plv-image-plan "ce que montrent les feuilles"
    (append
      (apply 'append (mapcar 'plv-feuilles-fiche:dessin profils))
      (apply 'append
        (mapcar '(lambda (feuille) (plv-image-traits "projet" (mapcar '(lambda (vue) (plv-feuilles-fiche:cadre (plv-premiers vue 4))) (cadr feuille))))
          (cddr fait))))))

(defun plv-feuilles-fiche:regarder (valeurs / fait)
  (if (plv-cle "profils" valeurs) (setq fait (plv-essayer 'plv-feuilles-fiche:preparer (list valeurs))))
  (plv-regard
    (if (and fait (not (car fait)))
      (list (list (if (= (plv-cle "format" valeurs) "Fichier") "modele" "echelle") (cond ((cadr fait)) ("ces feuilles ne vont pas")))))
    (if (car fait) (list (plv-feuilles-fiche:image (plv-feuilles-fiche:profils valeurs) (car fait))))
    (if (car fait)
      (cons (strcat (plv-compte (length (cddr (car fait))) "feuille") " au 1:" (plv-feuilles:nombre (car (car fait))) ".")
            (mapcar '(lambda (f) (cond ((plv-cle "<SIGNET>" (caddr f))) (""))) (plv-premiers (cddr (car fait)) 8))))
    (if (/= (plv-cle "format" valeurs) "Fichier") '("modele"))
    nil))

(defun plv-feuilles-fiche:appeler (fonction valeurs suite / profils)
  "A function of sheets with what is asked of all, and what follows."
  (setq profils (plv-feuilles-fiche:profils valeurs))
  (plv-avant-sortie profils)
  (plv-choisir-couleurs (plv-cle "couleurs" valeurs))
  (apply fonction
    (append (list profils (plv-feuilles-fiche:modele valeurs) (plv-feuilles-fiche:echelle valeurs) (plv-cle "titre" valeurs)
              (plv-cle "liste" valeurs))
      suite)))

(defun plv-feuilles-fiche:regarder-pdf (valeurs / regard)
  (setq regard (plv-feuilles-fiche:regarder valeurs))
  (if (= (plv-cle "fichier" valeurs) "") (cons (append (car regard) '(("fichier" "un nom de fichier est attendu"))) (cdr regard)) regard))

(defun plv-feuilles-fiche:faire (valeurs) (plv-feuilles-fiche:appeler 'plv-feuilles-et-liste valeurs (list (plv-cle "fichier" valeurs))))

(plv-declarer-fiche "PLV-FEUILLES" "Feuilles" "Tracer" 'plv-feuilles-fiche:champs 'plv-feuilles-fiche:regarder-pdf 'plv-feuilles-fiche:faire)

;; --- the same without a file

(defun plv-feuilles-fiche:champs-sans-fichier (/ champs)
  (if (setq champs (plv-feuilles-fiche:champs)) (vl-remove (assoc "fichier" champs) champs)))

(plv-declarer-fiche "PLV-APERCU" "Aperçu des feuilles" "Montrer" 'plv-feuilles-fiche:champs-sans-fichier 'plv-feuilles-fiche:regarder
  '(lambda (valeurs) (plv-feuilles-fiche:appeler 'plv-apercu valeurs nil)))

(plv-declarer-fiche "PLV-PRESENTATIONS" "Feuilles en présentations" "Faire" 'plv-feuilles-fiche:champs-sans-fichier 'plv-feuilles-fiche:regarder
  '(lambda (valeurs) (plv-feuilles-fiche:appeler 'plv-presentations valeurs nil)))
