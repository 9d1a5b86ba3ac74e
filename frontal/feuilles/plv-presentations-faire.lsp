;; Layouts made and taken away: a block that is a paper space, the layout that names it, and the title block as a block of its own.
;; Shared in the room: plv-presentations:*

(defun plv-presentations:dictionnaire () (cdr (assoc -1 (dictsearch (namedobjdict) "ACAD_LAYOUT"))))

(defun plv-presentations:bloc-libre (/ n)
  (setq n 0)
  (while (tblsearch "BLOCK" (strcat "*Paper_Space" (itoa n))) (setq n (1+ n)))
  (strcat "*Paper_Space" (itoa n)))

(defun plv-presentations:table (/ nom)
  "The plot table that a layout names, greys by the name that other programs have for them."
  (if (= (setq nom (plv-couleurs-d-un-layout)) "Gris") "Grayscale.ctb" nom))

(defun plv-presentations:layout (nom espace largeur hauteur rang)
  (entmakex
    (list '(0 . "LAYOUT") '(100 . "AcDbPlotSettings") '(1 . "") '(2 . "none_device") '(4 . "") '(6 . "") '(40 . 0.0) '(41 . 0.0) '(42 . 0.0) '(43 . 0.0)
          (cons 44 largeur) (cons 45 hauteur) '(46 . 0.0) '(47 . 0.0) '(48 . 0.0) '(49 . 0.0) '(140 . 0.0) '(141 . 0.0) '(142 . 1.0) '(143 . 1.0)
          '(70 . 688) '(72 . 1) '(73 . 0) '(74 . 5) (cons 7 (plv-presentations:table)) '(75 . 16) '(147 . 1.0) '(148 . 0.0) '(149 . 0.0) '(100 . "AcDbLayout") (cons 1 nom) '(70 . 1)
          (cons 71 rang) '(10 0.0 0.0 0.0) (list 11 largeur hauteur 0.0) '(12 0.0 0.0 0.0) '(14 0.0 0.0 0.0) (list 15 largeur hauteur 0.0) '(146 . 0.0)
          '(13 0.0 0.0 0.0) '(16 1.0 0.0 0.0) '(17 0.0 1.0 0.0) '(76 . 0) (cons 330 espace))))

(defun plv-presentations:cartouche (modele textes nom / fichier)
  "Defines the template with its texts as a block."
  (setq fichier (vl-filename-mktemp "plv.dxf"))
  (modele-remplir modele textes fichier)
  (command "_.-INSERT" (strcat nom "=" fichier))
  (command)
  (vl-file-delete fichier))

(defun plv-presentations:du-dessin (feuille place geles / placement rang numero)
  "The viewports of a sheet, with what is drawn at their places."
  (setq placement (plv-presentations:placer feuille place) rang (plv-presentations:vues feuille placement geles)
        numero (plv-presentations:legendes feuille placement rang))
  (plv-presentations:axe feuille placement rang)
  (plv-presentations:plan feuille place placement rang numero))

(defun plv-presentations:contenu (feuille place nom geles / largeur hauteur)
  "What a layout holds, drawn into the block that is open."
  (setq largeur (car (plv-place-feuille place)) hauteur (cadr (plv-place-feuille place)))
  (plv-presentations:fenetre 1 0.0 0.0 largeur hauteur (list (* 0.5 largeur) (* 0.5 hauteur)) '(0.0 0.0) 0.0 hauteur nil)
  (if (cadr feuille) (plv-presentations:du-dessin feuille place geles))
  (foreach dessin (nth 6 feuille) (plv-presentations:dessin place dessin))
  (entmake (list '(0 . "INSERT") '(67 . 1) '(8 . "0") (cons 2 nom) (cons 10 (mapcar '- (append (plv-place-coin place) '(0.0)))))))

(defun plv-presentations:une (feuille modele place rang geles / nom bloc espace layout)
  "The layout of a sheet, whose view of the profile freezes layers; its name."
  (setq nom (plv-presentations:nom-libre rang) bloc (plv-presentations:bloc-libre))
  (plv-presentations:cartouche modele (caddr feuille) (plv-presentations:titre nom))
  (entmake (list '(0 . "BLOCK") (cons 2 bloc) '(70 . 0) '(10 0.0 0.0 0.0)))
  (plv-presentations:contenu feuille place (plv-presentations:titre nom) geles)
  (entmake '((0 . "ENDBLK")))
  (setq espace (cdr (assoc 330 (entget (tblobjname "BLOCK" bloc))))
        layout (plv-presentations:layout nom espace (car (plv-place-feuille place)) (cadr (plv-place-feuille place)) (+ 100 rang)))
  (entmod (append (vl-remove-if '(lambda (g) (= (car g) 340)) (entget espace)) (list (cons 340 layout))))
  (dictadd (plv-presentations:dictionnaire) nom layout)
  nom)

(defun plv-presentations:caches (feuille)
  "What a sheet doesn't show."
  (if (cadr feuille) (vl-remove-if 'listp (cddddr (plv-dernier (cadr feuille))))))

;; --- those of an earlier call

(defun plv-presentations:nom-libre (rang / nom)
  "The name of a sheet's layout, one that no layout of another hand has."
  (setq nom (strcat "Feuille " (itoa rang)))
  (while (dictsearch (plv-presentations:dictionnaire) nom) (setq nom (strcat nom "_")))
  nom)

(defun plv-presentations:titre (nom)
  "The block that holds the title block of a layout."
  (strcat "KAVEL_FEUILLE_" (substr nom (1+ (strlen "Feuille ")))))

(defun plv-presentations:oter (nom / trouve bloc)
  (if (setq trouve (dictsearch (plv-presentations:dictionnaire) nom))
    (progn
      (dictremove (plv-presentations:dictionnaire) nom)
      (entdel (plv-dernier (plv-cles 330 trouve)))))
  (if (setq bloc (tblobjname "BLOCK" (plv-presentations:titre nom))) (entdel (plv-cle 330 (entget bloc)))))

(defun plv-presentations:preparer ()
  "The layer of the viewports' frames, which isn't plotted, and the line type of cuts."
  (plv-calque-propre plv-presentations:fenetres 8 "Continuous")
  (entmod (append (vl-remove-if '(lambda (g) (= (car g) 290)) (entget (tblobjname "LAYER" plv-presentations:fenetres))) '((290 . 0))))
  (if (not (tblsearch "LTYPE" plv-presentations:coupure))
    (entmake (list '(0 . "LTYPE") '(100 . "AcDbSymbolTableRecord") '(100 . "AcDbLinetypeTableRecord") (cons 2 plv-presentations:coupure) '(70 . 0)
                   '(3 . "____ . ____") '(72 . 65) '(73 . 4) '(40 . 12.0) '(49 . 8.0) '(74 . 0) '(49 . -1.5) '(74 . 0) '(49 . 1.0) '(74 . 0) '(49 . -1.5)
                   '(74 . 0)))))

(defun plv-presentations:toutes (feuilles modele / place noms caches)
  "The layouts of sheets; their names."
  (plv-montrer-caches)
  (plv-presentations:preparer)
  (foreach nom (plv-cles 300 (plv-enregistrement-du-dessin plv-presentations:cle)) (plv-presentations:oter nom))
  (setq place (plv-feuilles:place modele) caches (plv-cacher (mapcar 'plv-presentations:caches feuilles)))
  (foreach f feuilles
    (setq noms (cons (plv-presentations:une f modele place (1+ (length noms)) (nth (length noms) caches)) noms)))
  (plv-ecrire-enregistrement-du-dessin plv-presentations:cle (mapcar '(lambda (nom) (cons 300 nom)) (reverse noms)))
  (reverse noms))

(defun plv-presentations:faire (profils modele echelle titre liste / fait)
  "(scale layout ...); nil after a message."
  (plv-accorder-copies)
  (if (setq fait (plv-feuilles:preparer profils modele echelle titre liste)) (cons (car fait) (plv-presentations:toutes (cddr fait) modele))))

(defun plv-presentations (profils modele echelle titre liste / fait)
  "The sheets as layouts, in place of those of an earlier call; their names, or nil after a message."
  (setq fait (plv-en-un-pas '(lambda () (plv-presentations:faire profils (plv-feuilles:modele modele) echelle titre liste))))
  (if fait (plv-dire (strcat "Présentations: " (plv-joindre (cdr fait) ", ") ", au 1:" (plv-feuilles:nombre (car fait)) ".")))
  (cdr fait))

(defun c:plv-presentations (/ demande)
  "Fait des feuilles des présentations du dessin, que d'autres programmes tracent."
  (if (setq demande (plv-feuilles:demander)) (apply 'plv-presentations demande))
  (princ))
