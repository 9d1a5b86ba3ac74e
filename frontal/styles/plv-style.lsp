;; The style of the drawing: its rows in the record PLV_STYLE of the named objects, from which layers, line types and the text style are
;; made, those of new layers too. They are ordinary ones: whoever opens the drawing sees them.
;; Shared in the room: plv-style:*

;; --- the record: 300 name, 301 C colours or G grey, 40 the scale of the paper, 1 a row

(defun plv-style:groupes () (plv-enregistrement-du-dessin plv-cle-style))

(defun plv-style-nom () "The name of the drawing's style; nil without one." (plv-cle 300 (plv-style:groupes)))
(defun plv-style-echelle () "The denominator of the scale for which it was applied." (plv-cle 40 (plv-style:groupes)))
(defun plv-style-gris-p () (= (plv-cle 301 (plv-style:groupes)) "G"))

(defun plv-style:ecrire (nom gris echelle rangees)
  (plv-ecrire-enregistrement-du-dessin plv-cle-style
    (vl-list* (cons 300 nom) (cons 301 (if gris "G" "C")) (cons 40 (float echelle)) (mapcar '(lambda (r) (cons 1 r)) rangees))))

(defun plv-style:rangees-de (mot)
  "The fields of the rows of a word, without it."
  (mapcar 'cdr
    (vl-remove-if-not '(lambda (champs) (= (car champs) mot)) (mapcar 'plv-style-champs (plv-rangees-de-style)))))

(defun plv-style:rangee (mot) (car (plv-style:rangees-de mot)))

(defun plv-style-libelle (nom) "The pattern of a label; nil when the style has none." (cadr (assoc nom (plv-style:rangees-de "libelle"))))

(defun plv-style-tableau (nom / rangee)
  "The number of what is added to tables; nil without it."
  (if (setq rangee (assoc nom (plv-style:rangees-de "tableau"))) (plv-nombre (cadr rangee))))

(defun plv-style-grille () "The least distance of two lines of the grid in millimetres; nil for no grid."
  (if (plv-style:rangee "grille") (plv-nombre (car (plv-style:rangee "grille")))))

(defun plv-style-sol (/ champs)
  "(thickness-in-millimetres opacity) of the tone of the ground; nil without it."
  (if (setq champs (plv-style:rangee "sol"))
    (list (plv-nombre (car champs)) (if (cadr champs) (fix (plv-nombre (cadr champs))) 70))))

(defun plv-style-legende-p () (plv-style:rangee "legende"))

(defun plv-mm (millimetres) "Millimetres of paper in drawing units." (* 0.001 millimetres (plv-style-echelle)))

;; --- colours

(defun plv-style:canaux (rgb) (list (/ rgb 65536) (rem (/ rgb 256) 256) (rem rgb 256)))

(defun plv-style:rgb (r g b) (+ (* 65536 r) (* 256 g) b))

(defun plv-style:gris (champs couleur / canaux niveau)
  "The grey of a row: as it says, else as light as its colour."
  (setq canaux (if (cdr couleur) (plv-style:canaux (cdr couleur)))
        niveau (cond
                 ((nth 4 champs) (fix (* 2.55 (plv-nombre (nth 4 champs)))))
                 (canaux (fix (+ (* 0.30 (car canaux)) (* 0.59 (cadr canaux)) (* 0.11 (caddr canaux)))))
                 (T 0)))
  (if (= niveau 0) '(7) (cons 7 (plv-style:rgb niveau niveau niveau))))

(defun plv-style:couleur (champs / couleur)
  (setq couleur (plv-style-couleur (cadr champs)))
  (if (plv-style-gris-p) (plv-style:gris champs couleur) couleur))

;; --- line types, as long on paper as the style says

(defun plv-style:nom-trait (trait) (if (= trait "continu") "Continuous" (strcat "KAVEL-" (strcase trait) "-STYLE")))

(defun plv-style:elements (trait)
  (apply 'append (mapcar '(lambda (mm) (list (cons 49 (plv-mm mm)) '(74 . 0))) (cdr (assoc trait plv-style:traits)))))

(defun plv-style:trait (trait / nom elements groupes)
  "The name of a line type, made or brought to the scale."
  (setq trait (strcase trait T) nom (plv-style:nom-trait trait) elements (plv-style:elements trait))
  (if elements
    (progn
      (setq groupes
        (append
          (list '(100 . "AcDbSymbolTableRecord") '(100 . "AcDbLinetypeTableRecord") (cons 2 nom) '(70 . 0) (cons 3 trait) '(72 . 65)
                (cons 73 (/ (length elements) 2))
                (cons 40 (apply '+ (mapcar '(lambda (mm) (abs (plv-mm mm))) (cdr (assoc trait plv-style:traits))))))
          elements))
      (if (tblsearch "LTYPE" nom)
        (entmod (cons (cons -1 (tblobjname "LTYPE" nom)) (cons '(0 . "LTYPE") groupes)))
        (entmake (cons '(0 . "LTYPE") groupes)))))
  nom)

;; --- layers

(setq plv-style:epaisseurs '(0 5 9 13 15 18 20 25 30 35 40 50 53 60 70 80 90 100 106 120 140 158 200 211))

(defun plv-style:poids (texte)
  "The line weight of a text in millimetres that drawings know, in hundredths of them."
  (plv-style:proche (fix (+ 0.5 (* 100.0 (plv-nombre texte)))) plv-style:epaisseurs))

(defun plv-style:proche (valeur valeurs / trouve)
  (foreach v valeurs (if (or (not trouve) (< (abs (- v valeur)) (abs (- trouve valeur)))) (setq trouve v)))
  trouve)

(defun plv-style:numero (calque numero)
  "A colour's number in the place of a true colour: by the command, since a group that isn't given stays."
  (plv-avec-variable "CMDECHO" 0 '(lambda () (command "_.-LAYER" "_Color" (itoa numero) calque ""))))

(defun plv-style:donner (calque champs / groupes couleur)
  "Colour, line type and weight of a row to a layer."
  (setq couleur (plv-style:couleur champs))
  (if (and (not (cdr couleur)) (assoc 420 (entget (tblobjname "LAYER" calque)))) (plv-style:numero calque (car couleur)))
  (setq groupes (vl-remove-if '(lambda (g) (member (car g) '(62 420 6 370))) (entget (tblobjname "LAYER" calque))))
  (entmod
    (append groupes
      (list (cons 62 (car couleur)) (cons 6 (plv-style:trait (caddr champs))) (cons 370 (plv-style:poids (cadddr champs))))
      (if (cdr couleur) (list (cons 420 (cdr couleur)))))))

(defun plv-style:rangee-du-calque (nom)
  "The row of a layer by the name that it was made with, of a copy that of its layer; rows may have jokers, the last one that fits counts."
  (setq nom (cond ((plv-original-de-copie nom)) (nom)))
  (plv-dernier
    (vl-remove-if-not '(lambda (champs) (wcmatch (strcase nom) (strcase (car champs))))
      (append (plv-style:rangees-de "calque")
              (mapcar '(lambda (l) (cons (plv-style-calque-du-genre (car l)) (cdr l))) (plv-style:rangees-de "ligne"))))))

(defun plv-habiller-calque (nom calque / champs)
  (if (and (plv-style-nom) (setq champs (plv-style:rangee-du-calque nom))) (plv-style:donner calque champs)))

(plv-donner-apparence 'plv-habiller-calque)

(defun plv-habiller-calques () (foreach c (plv-calques-du-dessin) (plv-habiller-calque (car c) (cadr c))))

;; --- project lines: each kind on a layer of its own, where the style has a row for it; in a drawing without a style the kinds that
;; aren't the road, so that lines of one profile are told apart

;; kind, colour, line type
(setq plv-style:genres '(("Terrassements" 30 "Continuous") ("Assainissement" 94 "KAVEL-LONGS") ("AEp" 150 "KAVEL-MIXTE") ("Generique" 200 "KAVEL-TIRETS")))

(defun plv-style-calque-du-genre (genre) (strcat "PLV-PROJET-" (strcase genre)))

(defun plv-style:de-projet-p (entite)
  (wcmatch (strcase (plv-cle 8 (entget entite))) (strcat (strcase (plv-calque "PLV-PROJET")) ",PLV-PROJET-*")))

(defun plv-style:calque-du-genre (genre / habille aspect)
  "The layer on which lines of a kind belong, made when there is none."
  (setq habille (assoc (strcase genre) (mapcar '(lambda (l) (cons (strcase (car l)) l)) (plv-style:rangees-de "ligne")))
        aspect (assoc (strcase genre) (mapcar '(lambda (g) (cons (strcase (car g)) (cdr g))) plv-style:genres)))
  (cond
    (habille (plv-calque-propre (plv-style-calque-du-genre genre) 7 "Continuous"))
    ((and aspect (not (plv-style-nom))) (plv-calque-propre (plv-style-calque-du-genre genre) (cadr aspect) (caddr aspect)))
    ((plv-calque "PLV-PROJET"))))

(defun plv-ranger-genre (profil genre / calque groupes)
  "The lines of a kind that stand on the layers of the front-end, on the kind's."
  (if (plv-elements profil genre) (setq calque (plv-style:calque-du-genre genre)))
  (foreach e (plv-elements profil genre)
    (setq groupes (entget e))
    (if (and (plv-style:de-projet-p e) (/= (plv-cle 8 groupes) calque)) (entmod (subst (cons 8 calque) (assoc 8 groupes) groupes)))))

(defun plv-ranger-lignes (profil) (foreach genre (plv-genres-projet) (plv-ranger-genre profil genre)))

;; --- texts

(defun plv-style-police () "The font of the drawing's style; nil without one." (car (plv-style:rangee "texte")))

(defun plv-style-hauteur () "The height of texts on paper in millimetres." (cond ((plv-style:rangee "texte") (plv-nombre (cadr (plv-style:rangee "texte")))) (2.5)))

(defun plv-style-titres () "The font of the titles of rows; nil where they are written as all else is." (car (plv-style:rangee "titres")))

(defun plv-style:police (nom police / groupes)
  "Makes a text style, or gives it another font."
  (setq groupes
    (list '(100 . "AcDbSymbolTableRecord") '(100 . "AcDbTextStyleTableRecord") (cons 2 nom) '(70 . 0) '(40 . 0.0) '(41 . 1.0)
          '(50 . 0.0) '(71 . 0) '(42 . 2.5) (cons 3 police) '(4 . "")))
  (if (tblsearch "STYLE" nom)
    (entmod (vl-list* (cons -1 (tblobjname "STYLE" nom)) '(0 . "STYLE") groupes))
    (entmake (cons '(0 . "STYLE") groupes))))

(defun plv-habiller-texte ()
  "The text styles of profiles."
  (if (plv-style-police) (plv-style:police plv-texte-style (plv-style-police)))
  (if (plv-style-titres) (plv-style:police plv-texte-titres (plv-style-titres))))
