;; Layers and entities of the front-end. Everything that it draws stands on a layer of its own kind.
;; The makers give the entity's name.

;; name, colour, line weight in hundredths of a millimetre
(setq plv-calques
  '(("PLV-PROFIL" 7 25) ("PLV-TN" 3 50) ("PLV-PLANS" 4 35) ("PLV-AXE" 7 25) ("PLV-RAPPELS" 8 13)
    ("PLV-MATRICE" 7 18) ("PLV-TITRES" 7 25) ("PLV-PROJET" 1 50) ("PLV-COTES" 1 18) ("PLV-PLAN" 6 25)
    ("PLV-HACHURES" 7 13) ("PLV-LEGENDE" 7 18)))

(defun plv-creer-calques ()
  (foreach calque plv-calques
    (if (not (tblsearch "LAYER" (car calque)))
      (entmake (list '(0 . "LAYER") (cons 2 (car calque)) '(70 . 0) (cons 62 (cadr calque)) '(6 . "Continuous")
                     (cons 370 (caddr calque)))))))

(defun plv-avec-calque (calque fonction / ancien resultat)
  "Runs a function while the layer is current; the former one is current again afterwards."
  (setq ancien (getvar "CLAYER"))
  (setvar "CLAYER" calque)
  (setq resultat (vl-catch-all-apply fonction '()))
  (setvar "CLAYER" ancien)
  (if (vl-catch-all-error-p resultat)
    (plv-erreur (vl-catch-all-error-message resultat))
    resultat))

(defun plv-point (x y) (list (float x) (float y) 0.0))

(defun plv-ligne (calque depart arrivee)
  (entmakex (list '(0 . "LINE") (cons 8 calque) (cons 10 depart) (cons 11 arrivee))))

;; justification: 0 left, 1 centred, 2 right; rotation in radians
(defun plv-texte (calque point hauteur texte justification rotation)
  (entmakex
    (append
      (list '(0 . "TEXT") (cons 8 calque) (cons 10 point) (cons 40 hauteur) (cons 1 texte) (cons 50 rotation))
      (if (= justification 0) nil (list (cons 72 justification) (cons 11 point))))))

(defun plv-largeur-texte (texte hauteur / coins)
  "Width of a text in drawing units."
  (if (setq coins (textbox (list (cons 1 texte) (cons 40 hauteur))))
    (- (caadr coins) (caar coins))
    0.0))

(defun plv-handle (entite) (plv-cle 5 (entget entite)))

(defun plv-bloc-vide (nom)
  "Defines a block without graphics, once."
  (if (not (tblsearch "BLOCK" nom))
    (progn
      (entmake (list '(0 . "BLOCK") (cons 2 nom) '(70 . 0) '(10 0.0 0.0 0.0)))
      (entmake '((0 . "ENDBLK"))))))

(defun plv-inserer (calque nom point)
  (entmakex (list '(0 . "INSERT") (cons 8 calque) (cons 2 nom) (cons 10 point))))

;; --- records of the front-end in extension dictionaries

(defun plv-dictionnaire (entite / groupes trouve dict)
  "The extension dictionary of an entity, made when it has none."
  (setq groupes (entget entite))
  (cond
    ((setq trouve (member '(102 . "{ACAD_XDICTIONARY") groupes)) (cdr (cadr trouve)))
    (T
     (setq dict (entmakex '((0 . "DICTIONARY") (100 . "AcDbDictionary") (280 . 1) (281 . 1))))
     (entmod (append (list (car groupes) (cadr groupes) (cons 102 "{ACAD_XDICTIONARY") (cons 360 dict) '(102 . "}"))
                     (cddr groupes)))
     dict)))

(defun plv-enregistrement (entite cle / trouve)
  "The groups of a record in the extension dictionary of an entity; nil when it has none. Nothing is made."
  (if (setq trouve (member '(102 . "{ACAD_XDICTIONARY") (entget entite)))
    (vl-remove-if '(lambda (g) (= (car g) 280))
      (cdr (member '(100 . "AcDbXrecord") (dictsearch (cdr (cadr trouve)) cle))))))

(defun plv-ecrire-enregistrement (entite cle groupes / dict)
  "Replaces a record."
  (setq dict (plv-dictionnaire entite))
  (dictremove dict cle)
  (dictadd dict cle (entmakex (append '((0 . "XRECORD") (100 . "AcDbXrecord") (280 . 1)) groupes))))

;; --- entities that a piece of work adds

(defun plv-ajouts-de (fonction / ajouts:marque ajouts:e ajouts:liste)
  "Runs a function and gives the entities that it left in the drawing, oldest first."
  (setq ajouts:marque (entlast))
  (apply fonction '())
  (setq ajouts:e (if ajouts:marque (entnext ajouts:marque) (entnext)))
  (while ajouts:e
    (if (not (member (plv-cle 0 (entget ajouts:e)) '("ATTRIB" "SEQEND" "VERTEX"))) (setq ajouts:liste (cons ajouts:e ajouts:liste)))
    (setq ajouts:e (entnext ajouts:e)))
  (reverse ajouts:liste))

(defun plv-effacer (entites)
  (foreach e entites (if (and e (entget e)) (entdel e))))
