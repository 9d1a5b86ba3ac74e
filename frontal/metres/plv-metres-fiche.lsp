;; The forms of PLV-METRES and PLV-LEGENDE: lines and depth classes, and the quantities at once.

(defun plv-metres-fiche:profils (valeurs) (mapcar 'plv-profil-de-numero (plv-cle "profils" valeurs)))

(defun plv-metres-fiche:genres (profils)
  "The kinds that have a line on one of the profiles."
  (vl-remove-if-not '(lambda (g) (plv-metres-fiche:avec-ligne profils g)) (plv-genres-projet)))

(defun plv-metres-fiche:champs (/ profils)
  (if (setq profils (plv-profils))
    (list
      (list "profils" "Profils" "mots" (mapcar 'plv-numero-profil profils) (mapcar 'plv-numero-profil profils))
      (list "lignes" "Lignes" "mots" (list (plv-genre-propose (car profils))) (plv-genres-projet))
      (list "classes" "Classes de profondeur" "rangees" (plv-classes-reglees)
        '(("Jusqu'à (m)" "nombre" nil) ("Largeur (m)" "nombre" nil) ("Lit de pose (m)" "nombre" nil) ("Couleur" "nombre" nil)))
      '("classeur" "Classeur, ou rien" "ecrire" "" "Classeurs (*.xlsx)")
      '("hachurer" "Hachurer les classes" "oui" T nil))
    (plv-erreur (plv-refus-sans-profil))))

(defun plv-metres-fiche:avec-ligne (profils genre) (vl-remove-if-not '(lambda (p) (plv-elements p genre)) profils))

(defun plv-metres-fiche:image (profil genres)
  (plv-image-profil profil
    (append (plv-traits-profil profil)
      (apply 'append (mapcar '(lambda (g) (plv-image-traits "projet" (plv-traits-de-ligne profil g))) genres)))))

;; --- the result: a table in pixels

(setq plv-metres-fiche:colonnes '(4.0 110.0 205.0 295.0 380.0))

(defun plv-metres-fiche:rangee (y textes)
  (mapcar '(lambda (x texte) (list "texte" "autre" (list x y) texte)) plv-metres-fiche:colonnes textes))

(defun plv-metres-fiche:textes (genre resultat)
  (vl-list* genre (car resultat) (mapcar '(lambda (n) (plv-reel n 2)) (cdr resultat))))

(defun plv-metres-fiche:tableau (resultats / y items)
  "resultats: (kind . rows of plv-metres-prevus) each."
  (setq y -14.0 items (plv-metres-fiche:rangee y '("" "Profondeur (m)" "Longueur (m)" "Surface (m2)" "Volume (m3)")))
  (foreach r resultats
    (foreach rangee (cdr r)
      (setq y (- y 18.0)
            items (append items
                    (if (eq rangee (cadr r)) (list (list "trait" "autre" (list (list 0.0 (+ y 14.0)) (list 465.0 (+ y 14.0))))))
                    (plv-metres-fiche:rangee y (plv-metres-fiche:textes (if (eq rangee (cadr r)) (car r) "") rangee))))))
  (list "" "tableau" (append items (list (list "trait" "autre" (list (list 0.0 0.0) (list 465.0 0.0))))) 0.0))

(defun plv-metres-fiche:resultats (profils genres classes)
  "(results complaint): of each kind what would be measured."
  (plv-essayer
    '(lambda ()
       (mapcar '(lambda (genre) (cons genre (plv-metres-prevus (plv-metres-fiche:avec-ligne profils genre) genre classes))) genres))
    nil))

(defun plv-metres-fiche:fautes (valeurs profils genres / classeur sans)
  (setq classeur (plv-cle "classeur" valeurs)
        sans (vl-remove-if '(lambda (g) (member g genres)) (plv-cle "lignes" valeurs)))
  (append
    (if (and profils sans) (list (list "lignes" (plv-refus-sans-ligne (car sans) profils))))
    (if (plv-refus-classes (plv-cle "classes" valeurs)) (list (list "classes" (plv-refus-classes (plv-cle "classes" valeurs)))))
    (if (and (/= classeur "") (plv-metres:chemin-faux classeur)) (list (list "classeur" (plv-metres:chemin-faux classeur))))))

(defun plv-metres-fiche:regarder (valeurs / profils genres fautes vus)
  (setq profils (plv-metres-fiche:profils valeurs)
        genres (vl-remove-if-not '(lambda (g) (member g (plv-cle "lignes" valeurs))) (plv-metres-fiche:genres profils))
        fautes (plv-metres-fiche:fautes valeurs profils genres))
  (if (and genres (not (assoc "classes" fautes)))
    (setq vus (plv-metres-fiche:resultats profils genres (plv-classes-de-rangees (plv-cle "classes" valeurs)))))
  (plv-regard
    (append fautes (if (and vus (cadr vus)) (list (list "lignes" (cadr vus)))))
    (if genres
      (append (list (plv-metres-fiche:image (car (plv-metres-fiche:avec-ligne profils (car genres))) genres))
              (if (car vus) (list (plv-metres-fiche:tableau (car vus))))))
    nil nil (list (cons "lignes" (plv-metres-fiche:genres profils)))))

(defun plv-metres-fiche:classeur (valeurs genre / chemin)
  "The workbook of a kind: with its name where there are several."
  (if (setq chemin (plv-fiche-fichier valeurs "classeur"))
    (if (cdr (plv-cle "lignes" valeurs))
      (strcat (if (vl-filename-extension chemin) (substr chemin 1 (- (strlen chemin) (strlen (vl-filename-extension chemin)))) chemin) "-" genre ".xlsx")
      chemin)))

(defun plv-metres-fiche:faire (valeurs / profils)
  (setq profils (plv-metres-fiche:profils valeurs))
  (if (plv-regler-classes (plv-cle "classes" valeurs))
    (mapcar
      '(lambda (genre)
         (plv-metres (mapcar 'plv-numero-profil (plv-metres-fiche:avec-ligne profils genre)) genre (plv-metres-fiche:classeur valeurs genre)
           (plv-cle "hachurer" valeurs)))
      (plv-cle "lignes" valeurs))))

(plv-declarer-fiche "PLV-METRES" "Métrés" "Mesurer" 'plv-metres-fiche:champs 'plv-metres-fiche:regarder 'plv-metres-fiche:faire)

;; --- the legend

(defun plv-legende-fiche:champs (/ champs)
  (if (setq champs (plv-champs-avec-profil nil))
    (append champs (list (plv-champ-genre-trace "Genre de projet" (plv-genres-projet))))))

(defun plv-legende-fiche:regarder (valeurs / profil genre)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs))
  (plv-regard
    (if (not (plv-elements profil genre)) (list (list "genre" (plv-refus-sans-ligne genre (list profil)))))
    (list (plv-metres-fiche:image profil (list genre))) nil nil nil))

(defun plv-legende-fiche:faire (valeurs) (plv-legende (plv-fiche-profil valeurs) (plv-cle "genre" valeurs) nil))

(plv-declarer-fiche "PLV-LEGENDE" "Légende des classes" "Dessiner" 'plv-legende-fiche:champs 'plv-legende-fiche:regarder 'plv-legende-fiche:faire)
