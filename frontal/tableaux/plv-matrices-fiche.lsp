;; The form of PLV-MATRICES: a definition that is composed, from a shipped one, one's own, a file or the drawn tables, and how its tables would
;; look under the profile.

(defun plv-matrices-fiche:definition (profil)
  "The definition of the tables that are drawn, that for roads before there are any; empty where it isn't known."
  (cond ((not profil) "") ((not (plv-tables profil)) "route") ((plv-matrices:fichier profil))))

(defun plv-matrices-fiche:champs (/ profil definition)
  (setq profil (plv-profil-propose)
        definition (plv-matrices-fiche:definition profil))
  (plv-champs-avec-profil
    (list
      (list "modele" "Modèle" "mot" (cond ((car (member definition (plv-modeles)))) ("")) (cons "" (plv-modeles)) T)
      (list "fichier" "Fichier de définition" "lire" (if (member definition (plv-modeles)) "" definition) "Définitions (*.txt);;Tous (*)" T)
      (list "rangees" "Rangées" "rangees" (if profil (plv-matrices-fiche:dessinees profil))
            (list '("Tableau" "texte" nil) (list "Contenu" "image" (plv-types-en-images)) '("Hauteur" "nombre" nil)
                  '("Ligne, attribut ou terrain" "texte" nil) '("Titre" "texte" nil) '("Décimales" "nombre" nil)))
      '("nom" "Garder comme modèle" "texte" "" nil)
      '("tout" "Coter tous les points, même serrés" "oui" nil nil))))

(defun plv-matrices-fiche:dessinees (profil)
  "The rows that are drawn, else those of the definition for roads."
  (cond
    ((apply 'append (mapcar 'plv-matrices-fiche:de-table (plv-tables profil))))
    ((plv-chemin-definition "route") (plv-modele-rangees (plv-chemin-definition "route")))))

(defun plv-matrices-fiche:de-table (reference)
  (mapcar
    '(lambda (r)
       (list (plv-matrice-nom reference) (plv-type-libelle (plv-rangee-nature r)) (rtos (plv-rangee-hauteur r) 2 2)
             (vl-string-trim "{} " (plv-rangee-infos r)) (plv-rangee-libelle r) (itoa (plv-rangee-decimales r))))
    (plv-matrice-rangees (plv-matrice reference))))

;; --- answers

(defun plv-matrices-fiche:faute (rangees / numero faute)
  (setq numero 0)
  (foreach r rangees
    (setq numero (1+ numero))
    (if (and (not faute) (setq faute (plv-matrices-fiche:faute-de r))) (setq faute (strcat "rangée " (itoa numero) ": " faute))))
  (cond (faute) ((not rangees) "une rangée au moins est attendue")))

(defun plv-matrices-fiche:faute-de (rangee)
  (cond
    ((or (= (car rangee) "") (wcmatch (car rangee) "*[ ;{}]*")) "le nom du tableau est un mot")
    ((not (plv-type-de-libelle (cadr rangee))) "un contenu de la liste est attendu")
    ((not (and (plv-nombre (caddr rangee)) (> (plv-nombre (caddr rangee)) 0.0))) "une hauteur positive est attendue")
    ((wcmatch (cadddr rangee) "*[{}]*") "sans accolades")
    ((not (or (member (nth 5 rangee) '(nil "")) (wcmatch (nth 5 rangee) "#"))) "de 0 à 9 décimales sont attendues")))

(defun plv-matrices-fiche:source (valeurs)
  "The definition that was chosen: its name or path; empty for none."
  (cond ((/= (plv-cle "fichier" valeurs) "") (plv-cle "fichier" valeurs)) ((plv-cle "modele" valeurs))))

(defun plv-matrices-fiche:comme-p (valeurs / chemin)
  "Whether the rows are those of the chosen definition."
  (and (setq chemin (plv-chemin-definition (plv-matrices-fiche:source valeurs)))
       (equal (plv-modele-lignes (plv-modele-rangees chemin)) (plv-modele-lignes (plv-cle "rangees" valeurs)))))

(defun plv-matrices-fiche:fautes (valeurs / faute)
  (cond
    ((setq faute (plv-matrices-fiche:faute (plv-cle "rangees" valeurs))) (list (list "rangees" faute)))
    ((wcmatch (plv-cle "nom" valeurs) "*[/\\:]*") '(("nom" "un nom sans chemin est attendu")))
    ((and (= (plv-cle "nom" valeurs) "") (not (plv-matrices-fiche:comme-p valeurs)))
     '(("nom" "un nom, sous lequel ces rangées sont gardées")))))

;; --- the look: tables below each other, each row with what its first cells would say

(defun plv-matrices-fiche:valeur (profil rangee point / nature)
  "What a row says at a point; dots where that isn't one text."
  (setq nature (plv-type-de-libelle (cadr rangee)))
  (cond
    ((member nature '(0 1)) (itoa (plv-point-numero point)))
    ((= nature 3) (plv-reel (+ (plv-premiere-station profil) (car point)) (plv-decimales-de-texte (nth 5 rangee))))
    ((member nature '(4 5 6)) (cond ((cadar (plv-cellules profil (plv-matrices-fiche:rangee nature rangee) (list point)))) ("")))
    ((= nature 8) (plv-point-nom point))
    ("...")))

(defun plv-matrices-fiche:rangee (nature rangee)
  "A row as the module keeps it."
  (list 0 "" (car rangee) 0.0 (plv-decimales-de-texte (nth 5 rangee)) nature (nth 4 rangee) (cadddr rangee)))

(defun plv-matrices-fiche:cadre (x1 y1 x2 y2) (list (list x1 y1) (list x2 y1) (list x2 y2) (list x1 y2) (list x1 y1)))

(setq plv-matrices-fiche:titres 190.0 plv-matrices-fiche:cases '(196.0 276.0 356.0 436.0 516.0))

(defun plv-matrices-fiche:trait-rangee (profil rangee y h points / milieu)
  (setq milieu (- y (* 0.5 h) 4.0))
  (append
    (plv-image-traits "autre"
      (list (plv-matrices-fiche:cadre 0.0 y plv-matrices-fiche:titres (- y h))
            (plv-matrices-fiche:cadre plv-matrices-fiche:titres y 590.0 (- y h))))
    (list (list "texte" "autre" (list 3.0 milieu) (nth 4 rangee)))
    (mapcar '(lambda (p x) (list "texte" "autre" (list x milieu) (plv-matrices-fiche:valeur profil rangee p)))
      points plv-matrices-fiche:cases)))

(defun plv-matrices-fiche:image (profil rangees / y h table points items)
  "In pixels: rows in proportion to their heights, high enough for a text."
  (setq y 0.0 points (plv-premiers (plv-points-nommes profil) 5))
  (foreach r rangees
    (if (and table (/= table (car r))) (setq y (- y 12.0)))
    (setq table (car r) h (max 20.0 (* 5.0 (plv-nombre (caddr r))))
          items (append items (plv-matrices-fiche:trait-rangee profil r y h points)) y (- y h)))
  (list "" "tableau" items 0.0))

(defun plv-matrices-fiche:reprises (valeurs / champ chemin)
  "The rows of a definition that has just been chosen; of a name and a file the other one goes."
  (if (and (setq champ (car (member (plv-cle "*" valeurs) '("modele" "fichier")))) (setq chemin (plv-chemin-definition (plv-cle champ valeurs))))
    (list (list "rangees" (plv-modele-rangees chemin)) (list (if (= champ "modele") "fichier" "modele") ""))))

(defun plv-matrices-fiche:regarder (valeurs / profil fautes)
  (setq profil (plv-fiche-profil valeurs) fautes (plv-matrices-fiche:fautes valeurs))
  (plv-regard-avec-valeurs
    (plv-regard fautes
      (if (not (assoc "rangees" fautes)) (list (plv-matrices-fiche:image profil (plv-cle "rangees" valeurs))))
      nil nil nil)
    (plv-matrices-fiche:reprises valeurs)))

(defun plv-matrices-fiche:faire (valeurs / nom)
  (setq nom (plv-cle "nom" valeurs))
  (cond
    ((= nom "")
     (plv-matrices-prises (plv-matrices-fiche:source valeurs)
       (plv-matrices (plv-fiche-profil valeurs) (plv-matrices-fiche:source valeurs) (plv-cle "tout" valeurs))))
    ((plv-garder-modele nom (plv-modele-lignes (plv-cle "rangees" valeurs)))
     (plv-matrices (plv-fiche-profil valeurs) nom (plv-cle "tout" valeurs)))))

(plv-declarer-fiche "PLV-MATRICES" "Matrices du profil" "Dessiner" 'plv-matrices-fiche:champs 'plv-matrices-fiche:regarder 'plv-matrices-fiche:faire)
