;; The form of PLV-NOUVEAU: the ground of a survey with the planes that would be proposed. A place that isn't told is clicked afterwards.

(defun plv-nouveau-fiche:champs ()
  (list
    '("fichier" "Fichier du terrain naturel" "lire" "" "Levés (*.csv *.txt *.xlsx *.xml);;Tous (*)" T)
    (plv-champ-landxml "terrain" "Axe et terrain du fichier")
    '("projets" "Tracer aussi les lignes de projet de l'axe" "oui" T nil)
    (plv-champ-du-dessin "numero" "Numéro du profil" (itoa (plv-identifiant-libre)))
    '("insertion" "Point d'insertion, ou rien pour le cliquer" "point" "" nil)
    (plv-champ-nombre "echv" "Échelle verticale" 10.0 2)
    (plv-champ-nombre "ttxt" "Hauteur de texte" 2.5 2)
    '("hauteur" "Hauteur dessinée maximale, ou rien" "texte" "" nil)))

(defun plv-nouveau-fiche:hauteur (valeurs)
  "The greatest drawn height; nil for one that follows the texts."
  (if (/= (plv-cle "hauteur" valeurs) "") (plv-fiche-nombre valeurs "hauteur")))

(defun plv-nouveau-fiche:plans (valeurs terrain)
  (plv-plans-proposes (plv-cle 'points terrain) (plv-fiche-nombre valeurs "echv")
    (cond ((plv-nouveau-fiche:hauteur valeurs)) ((* 60.0 (plv-fiche-nombre valeurs "ttxt")))) nil))

(defun plv-nouveau-fiche:positif-p (valeurs cle) (and (plv-fiche-nombre valeurs cle) (> (plv-fiche-nombre valeurs cle) 0.0)))

(defun plv-nouveau-fiche:fautes (valeurs lu)
  (append
    (if (not (car lu)) (list (list "fichier" (cond ((cadr lu)) ("ce fichier ne donne pas de terrain")))))
    (if (= (plv-cle "numero" valeurs) "") '(("numero" "un numéro est attendu")))
    (if (plv-profil-de-numero (plv-cle "numero" valeurs)) '(("numero" "le dessin a déjà un profil de ce numéro")))
    (apply 'append
      (mapcar '(lambda (cle) (if (not (plv-nouveau-fiche:positif-p valeurs cle)) (list (list cle "un nombre positif est attendu"))))
        (append '("echv" "ttxt") (if (/= (plv-cle "hauteur" valeurs) "") '("hauteur")))))))

(defun plv-nouveau-fiche:traits-plans (plans longueur)
  (mapcar '(lambda (a b) (list (list (car a) (cadr a)) (list (car b) (cadr a)))) plans (append (cdr plans) (list (list longueur)))))

(defun plv-nouveau-fiche:image (terrain plans / points)
  (setq points (mapcar '(lambda (p) (list (car p) (cadr p))) (plv-cle 'points terrain)))
  (list "" "profil"
    (append (plv-image-traits "plan" (plv-nouveau-fiche:traits-plans plans (car (plv-dernier points))))
            (mapcar '(lambda (p) (list "texte" "plan" (list (car p) (cadr p)) (plv-reel (cadr p) 2))) plans)
            (plv-image-traits "terrain" (list points)))
    (plv-cle 'origine terrain)))

(defun plv-nouveau-fiche:dire (terrain plans / points)
  (setq points (plv-cle 'points terrain))
  (strcat (plv-compte (length points) "point") ", " (plv-reel (car (plv-dernier points)) 2) " m depuis la station "
          (plv-reel (plv-cle 'origine terrain) 2) ", " (itoa (length plans)) (if (cdr plans) " plans de comparaison." " plan de comparaison.")))

(defun plv-nouveau-fiche:regarder (valeurs / terrains lu fautes plans)
  (setq terrains (car (plv-essayer 'plv-fiche-terrains (list valeurs "fichier")))
        lu (plv-essayer 'plv-fiche-lire-terrain (list valeurs "fichier" "terrain"))
        fautes (plv-nouveau-fiche:fautes valeurs lu))
  (if (not (or (assoc "fichier" fautes) (assoc "echv" fautes) (assoc "ttxt" fautes) (assoc "hauteur" fautes)))
    (setq plans (plv-nouveau-fiche:plans valeurs (car lu))))
  (plv-regard
    fautes
    (if plans (list (plv-nouveau-fiche:image (car lu) plans)))
    (if plans (list (plv-nouveau-fiche:dire (car lu) plans)))
    (append (if (not (cdr terrains)) '("terrain")) (if (not (plv-cle 'projets (cadr (plv-fiche-choisi valeurs "terrain" terrains)))) '("projets")))
    (list (cons "terrain" (mapcar 'car terrains)))))

(defun plv-nouveau-fiche:faire (valeurs / plv-nouveau-fiche:lu axe profil)
  (setq plv-nouveau-fiche:lu (plv-fiche-lire-terrain valeurs "fichier" "terrain")
        axe (cadr (plv-fiche-choisi valeurs "terrain" (plv-fiche-terrains valeurs "fichier")))
        profil (plv-nouveau-axe axe '(lambda () plv-nouveau-fiche:lu) (plv-cle "numero" valeurs)
                 (cond ((plv-fiche-point valeurs "insertion")) ((plv-demander-insertion "Point d'insertion" nil)))
                 (plv-fiche-nombre valeurs "echv") (plv-fiche-nombre valeurs "ttxt") (plv-nouveau-fiche:hauteur valeurs) nil
                 (if (plv-cle "projets" valeurs) 'plv-landxml-projets '(lambda (p a) nil))))
  (plv-prendre-fichier "leve" (findfile (plv-cle "fichier" valeurs)) profil)
  (if profil (plv-avec-variable "CMDECHO" 0 '(lambda () (command "_.ZOOM" "_E"))))
  profil)

(plv-declarer-fiche "PLV-NOUVEAU" "Nouveau profil" "Créer" 'plv-nouveau-fiche:champs 'plv-nouveau-fiche:regarder 'plv-nouveau-fiche:faire)
