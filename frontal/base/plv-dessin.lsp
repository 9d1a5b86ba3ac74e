;; Layers and entities of the front-end. Everything that it draws stands on a layer of its own kind: each layer is marked with
;; the name that it was made with, by which it is found again after a renaming. The makers give the entity's name.

;; name, colour, line weight in hundredths of a millimetre; a style (room styles) gives them others
(setq plv-calques
  '(("PLV-PROFIL" 7 25) ("PLV-TN" 34 50) ("PLV-PLANS" 154 35) ("PLV-AXE" 7 25) ("PLV-RAPPELS" 8 13)
    ("PLV-MATRICE" 7 18) ("PLV-TITRES" 7 25) ("PLV-PROJET" 12 50) ("PLV-COTES" 12 18) ("PLV-PLAN" 6 25)
    ("PLV-HACHURES" 7 13) ("PLV-LEGENDE" 7 18) ("PLV-COULOIR" 5 13) ("PLV-CONTROLE" 1 18) ("PLV-MNT" 8 9)))

;; Layers of what a style adds, which are made when it is drawn.
(setq plv-calques-styles
  '(("PLV-GRILLE" 8 13) ("PLV-SOL" 34 0) ("PLV-LIBELLES" 7 13) ("PLV-CADRES" 7 25) ("PLV-ZEBRES" 154 0)))

;; Variants of a line stand on layers of their own, which are made when one is drawn.
(setq plv-calques-variantes
  (mapcar '(lambda (n couleur) (list (strcat "PLV-VARIANTE-" (itoa n)) couleur 25)) '(1 2 3 4 5 6) '(30 140 200 82 40 170)))

;; So do networks.
(setq plv-calques-reseaux '(("PLV-TUYAUX" 150 35) ("PLV-REGARDS" 32 35) ("PLV-CROISEMENTS" 6 25) ("PLV-TRANCHEES" 8 18)))

(setq plv-calques:cle "CALQUE")

(defun plv-calques:declare (nom)
  (vl-some '(lambda (calques) (assoc nom calques)) (list plv-calques plv-calques-styles plv-calques-variantes plv-calques-reseaux)))

(defun plv-calques:marque (entite) (cdr (plv-cle plv-calques:cle (plv-paires entite))))

(defun plv-calques:marquer (calque)
  (plv-ecrire-donnees (tblobjname "LAYER" (car calque)) plv-app-cles
    (list (cons 1000 plv-calques:cle) (cons 1000 (car calque)))))

;; What gives a new layer the look that the drawing's style wants: a function (name-it-was-made-with name-it-has); nil for none.
(setq plv-calques:apparence nil)

(defun plv-donner-apparence (fonction) (setq plv-calques:apparence fonction))

(defun plv-calques:habiller (nom) (if plv-calques:apparence (apply plv-calques:apparence (list nom nom))))

(defun plv-calques:creer (calque)
  (regapp plv-app-cles)
  (entmake (list '(0 . "LAYER") (cons 2 (car calque)) '(70 . 0) (cons 62 (cadr calque)) '(6 . "Continuous") (cons 370 (caddr calque))))
  (plv-calques:marquer calque)
  (plv-calques:habiller (car calque)))

(defun plv-calques-du-dessin (/ calque marque trouves)
  "The front-end's layers that the drawing has: (name-it-was-made-with name-it-has) each."
  (setq calque (tblnext "LAYER" T))
  (while calque
    (if (setq marque (plv-calques:marque (tblobjname "LAYER" (plv-cle 2 calque))))
      (setq trouves (cons (list marque (plv-cle 2 calque)) trouves)))
    (setq calque (tblnext "LAYER")))
  (reverse trouves))

(defun plv-calques:renomme (nom / calque trouve)
  "The name that a layer has now."
  (setq calque (tblnext "LAYER" T))
  (while (and calque (not trouve))
    (if (= (plv-calques:marque (tblobjname "LAYER" (plv-cle 2 calque))) nom) (setq trouve (plv-cle 2 calque)))
    (setq calque (tblnext "LAYER")))
  trouve)

(defun plv-calque (nom)
  "The layer that bears one of the names above, or bore it when it was made; it is made when there is none."
  (cond
    ((or (tblsearch "LAYER" nom) (not (plv-calques:declare nom))) nom)
    ((plv-calques:renomme nom))
    (T (plv-calques:creer (plv-calques:declare nom)) nom)))

(defun plv-calque-propre (nom couleur trait)
  "A layer that isn't one of those above, made with this colour and line type when there is none."
  (cond
    ((tblsearch "LAYER" nom) nom)
    ((plv-calques:renomme nom))
    (T
     (plv-calques:trait trait)
     (regapp plv-app-cles)
     (entmake (list '(0 . "LAYER") (cons 2 nom) '(70 . 0) (cons 62 couleur) (cons 6 trait) '(370 . 35)))
     (plv-calques:marquer (list nom))
     (plv-calques:habiller nom)
     nom)))

;; dashes and gaps in drawing units of the line types that the front-end makes
(setq plv-calques:traits '(("KAVEL-TIRETS" "__ __ __" 3.0 -2.0) ("KAVEL-LONGS" "____ ____" 8.0 -2.0) ("KAVEL-MIXTE" "____ _ ____" 8.0 -2.0 2.0 -2.0)))

(defun plv-calques:trait (nom / trait)
  "Makes the line type, unless the drawing has one of the name."
  (if (and (setq trait (assoc nom plv-calques:traits)) (not (tblsearch "LTYPE" nom)))
    (entmake
      (append
        (list '(0 . "LTYPE") '(100 . "AcDbSymbolTableRecord") '(100 . "AcDbLinetypeTableRecord") (cons 2 nom) '(70 . 0) (cons 3 (cadr trait))
              '(72 . 65) (cons 73 (length (cddr trait))) (cons 40 (apply '+ (mapcar 'abs (cddr trait)))))
        (apply 'append (mapcar '(lambda (d) (list (cons 49 d) '(74 . 0))) (cddr trait)))))))

(defun plv-creer-calques ()
  "All layers, also those of a drawing whose layers have no mark yet."
  (regapp plv-app-cles)
  (foreach calque plv-calques
    (if (and (= (plv-calque (car calque)) (car calque)) (not (plv-calques:marque (tblobjname "LAYER" (car calque)))))
      (plv-calques:marquer calque))))

;; the text style of profiles and that of the titles of rows, which a style of the drawing makes
(setq plv-texte-style "KAVEL-TEXTE" plv-texte-titres "KAVEL-TITRES")

(defun plv-style-de-texte ()
  "The text style of profiles as a group, in a list; nil in a drawing without it."
  (if (tblsearch "STYLE" plv-texte-style) (list (cons 7 plv-texte-style))))

(defun plv-avec-variable (nom valeur fonction / ancienne resultat)
  "Runs a function while a variable has a value; the former one is back afterwards."
  (setq ancienne (getvar nom))
  (setvar nom valeur)
  (setq resultat (vl-catch-all-apply fonction '()))
  (setvar nom ancienne)
  (if (vl-catch-all-error-p resultat)
    (plv-erreur (vl-catch-all-error-message resultat))
    resultat))

(defun plv-avec-texte (fonction)
  "Runs a function while the text style of profiles is current, in a drawing that has it."
  (if (plv-style-de-texte) (plv-avec-variable "TEXTSTYLE" plv-texte-style fonction) (apply fonction '())))

(defun plv-avec-calque (avec:calque avec:fonction)
  "Runs a function while the layer is current, and the text style of profiles."
  (plv-avec-variable "CLAYER" (plv-calque avec:calque) '(lambda () (plv-avec-texte avec:fonction))))

(defun plv-point (x y) (list (float x) (float y) 0.0))

(defun plv-ligne (calque depart arrivee)
  (entmakex (list '(0 . "LINE") (cons 8 (plv-calque calque)) (cons 10 depart) (cons 11 arrivee))))

;; justification: 0 left, 1 centred, 2 right; rotation in radians
(defun plv-texte (calque point hauteur texte justification rotation)
  (entmakex
    (append
      (list '(0 . "TEXT") (cons 8 (plv-calque calque)) (cons 10 point) (cons 40 hauteur) (cons 1 texte) (cons 50 rotation))
      (plv-style-de-texte)
      (if (= justification 0) nil (list (cons 72 justification) (cons 11 point))))))

(defun plv-texte-au-milieu (calque point hauteur texte rotation)
  "A text whose middle is at a point."
  (entmakex
    (append
      (list '(0 . "TEXT") (cons 8 (plv-calque calque)) (list 10 (car point) (cadr point) 0.0) (cons 40 hauteur) (cons 1 texte) (cons 50 rotation)
            '(72 . 1) (list 11 (car point) (cadr point) 0.0) '(73 . 2))
      (plv-style-de-texte))))

(defun plv-cadre-texte (texte hauteur) "Two corners of what a text covers, from its base line; nil for nothing." (textbox (vl-list* (cons 1 texte) (cons 40 hauteur) (plv-style-de-texte))))

(defun plv-largeur-texte (texte hauteur / coins)
  "Width of a text in drawing units."
  (if (setq coins (plv-cadre-texte texte hauteur)) (- (caadr coins) (caar coins)) 0.0))

(defun plv-autour-du-point (texte hauteur / coins point)
  "Widths of a number's text up to its decimal point and behind it."
  (setq coins (plv-cadre-texte texte hauteur)
        point (caadr (plv-cadre-texte (substr texte 1 (1+ (vl-string-search "." texte))) hauteur)))
  (list (- point (caar coins)) (- (caadr coins) point)))

(defun plv-boite-au-milieu (centre sens texte hauteur marge / coins)
  "The box (x y width height angle) of a text whose middle, that of its capitals, is given; letters below the base line count, and margins to
the sides and half of them above and beneath."
  (setq coins (plv-cadre-texte texte hauteur))
  (list (car centre) (cadr centre)
    (+ marge (if coins (- (caadr coins) (caar coins)) 0.0))
    (+ (* 0.5 marge) (if coins (* 2.0 (max (- (cadadr coins) (* 0.5 hauteur)) (- (* 0.5 hauteur) (cadar coins)))) hauteur))
    sens))

(defun plv-polyligne (calque points)
  "A light polyline through points of the drawing."
  (entmakex
    (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") (cons 8 (plv-calque calque)) '(100 . "AcDbPolyline") (cons 90 (length points)) '(70 . 0))
            (mapcar '(lambda (p) (list 10 (car p) (cadr p))) points))))

(defun plv-aplat (calque points opacite)
  "A filled figure through points of the drawing; opacite: 0 unseen, 255 hides what is below."
  (entmakex
    (append
      (list '(0 . "HATCH") '(100 . "AcDbEntity") (cons 8 (plv-calque calque)) (cons 440 (+ 33554432 opacite)) '(100 . "AcDbHatch")
            '(10 0.0 0.0 0.0) '(210 0.0 0.0 1.0) '(2 . "SOLID") '(70 . 1) '(71 . 0) '(91 . 1) '(92 . 3) '(72 . 0) '(73 . 1)
            (cons 93 (length points)))
      (mapcar '(lambda (p) (list 10 (car p) (cadr p))) points)
      '((97 . 0) (75 . 0) (76 . 1) (98 . 0)))))

(defun plv-origine (entite)
  "Where a block reference is inserted: a profile's corner, a table's."
  (plv-cle 10 (entget entite)))

(defun plv-type (entite) (plv-cle 0 (entget entite)))

(defun plv-existe (entite)
  "T for an entity of the drawing; a damaged record may hold anything in its place."
  (and (= (type entite) 'ENAME) (entget entite)))

(defun plv-entites-du-jeu (jeu / i entites)
  "The entities of a selection set, in its order; nil for none."
  (setq i 0)
  (repeat (if jeu (sslength jeu) 0) (setq entites (cons (ssname jeu i) entites) i (1+ i)))
  (reverse entites))

(defun plv-jeu (entites / jeu)
  "A selection set of these entities."
  (setq jeu (ssadd))
  (foreach e entites (ssadd e jeu))
  jeu)

(defun plv-handle (entite) (plv-cle 5 (entget entite)))

(defun plv-bloc-vide (nom)
  "Defines a block without graphics, once."
  (if (not (tblsearch "BLOCK" nom))
    (progn
      (entmake (list '(0 . "BLOCK") (cons 2 nom) '(70 . 0) '(10 0.0 0.0 0.0)))
      (entmake '((0 . "ENDBLK"))))))

(defun plv-inserer (calque nom point)
  (entmakex (list '(0 . "INSERT") (cons 8 (plv-calque calque)) (cons 2 nom) (cons 10 point))))

;; --- entities that a piece of work adds

(defun plv-executer (fonction / executer:marque executer:valeur executer:e executer:ajouts)
  "Runs a function; its value and the entities that it left in the drawing, oldest first: (value entities)."
  (setq executer:marque (entlast)
        executer:valeur (apply fonction '())
        executer:e (if executer:marque (entnext executer:marque) (entnext)))
  (while executer:e
    (if (not (member (plv-type executer:e) '("ATTRIB" "SEQEND" "VERTEX"))) (setq executer:ajouts (cons executer:e executer:ajouts)))
    (setq executer:e (entnext executer:e)))
  (list executer:valeur (reverse executer:ajouts)))

(defun plv-ajouts-de (fonction)
  "The entities that a function leaves in the drawing."
  (cadr (plv-executer fonction)))

(defun plv-effacer (entites)
  (foreach e entites (if (plv-existe e) (entdel e))))

(defun plv-en-un-pas (pas:fonction / pas:fait)
  "What a function gives that calls commands, as one step that can be undone; nil after the message of an error."
  (plv-avec-variable "CMDECHO" 0 '(lambda () (command "_.UNDO" "_Begin")))
  (setq pas:fait (vl-catch-all-apply pas:fonction '()))
  (plv-avec-variable "CMDECHO" 0 '(lambda () (command "_.UNDO" "_End")))
  (if (vl-catch-all-error-p pas:fait) (plv-erreur (vl-catch-all-error-message pas:fait)) pas:fait))
