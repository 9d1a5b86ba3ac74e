;; The plot table of sheets: the one that the model's layout names, which the window's plot form proposes, too; where it names none, grey for
;; a style in greys.

(setq plv-couleurs:mots '("Couleurs" "Gris" "Noir"))

(defun plv-couleurs:layout () (dictsearch (cdr (assoc -1 (dictsearch (namedobjdict) "ACAD_LAYOUT"))) "Model"))

(defun plv-couleurs:nommee (/ layout)
  (if (setq layout (plv-couleurs:layout)) (vl-filename-base (cond ((plv-cle 7 layout)) (""))) ""))

(defun plv-couleurs-sans-table-p () (= (plv-couleurs:nommee) ""))

(defun plv-couleurs-d-un-layout (/ nommee)
  "What a layout that is made of a sheet names."
  (cond ((/= (setq nommee (plv-couleurs:nommee)) "") nommee) ((plv-dessin-en-gris-p) "Gris") ("")))

(defun plv-couleurs-des-feuilles (/ nom)
  "The name of the table that sheets are plotted with."
  (if (= (setq nom (plv-couleurs-d-un-layout)) "") "Couleurs" nom))

(defun plv-couleurs-fichier (nom / connu)
  "The file of a table, one's own before the program's; nil for what is no file."
  (if (setq connu (car (vl-member-if '(lambda (n) (plv-couleurs:egales-p n nom)) (tables-de-trace))))
    (cond ((findfile (strcat (plv-dossier-reglages) "/traces/" connu ".txt"))) ((findfile (strcat "trace-" connu ".txt"))))))

(defun plv-couleurs:egales-p (a b) (= (strcase a) (strcase b)))

(defun plv-couleurs-proposees (/ noms actuelle)
  "The names to choose from, with the one that the drawing has from elsewhere."
  (setq noms (append plv-couleurs:mots (tables-de-trace)) actuelle (plv-couleurs-des-feuilles))
  (if (vl-some '(lambda (n) (plv-couleurs:egales-p n actuelle)) noms) noms (append noms (list actuelle))))

(defun plv-couleurs-proposee (nom)
  "The proposed name that a text means; nil for none."
  (car (vl-member-if '(lambda (n) (plv-couleurs:egales-p n nom)) (plv-couleurs-proposees))))

(defun plv-couleurs:avec (layout nom / marque)
  (setq marque '(100 . "AcDbPlotSettings"))
  (apply 'append (mapcar '(lambda (g) (cond ((equal g marque) (list marque (cons 7 nom))) ((/= (car g) 7) (list g)))) layout)))

(defun plv-choisir-couleurs (nom)
  "Has the drawing keep another table than the present one."
  (if (not (plv-couleurs:egales-p nom (plv-couleurs-des-feuilles))) (entmod (plv-couleurs:avec (plv-couleurs:layout) nom))))

(defun plv-demander-couleurs (/ nom trouve)
  "Asked again until it is one of those that there are."
  (while (not trouve)
    (setq nom (plv-demander-texte (strcat "Table de tracé (" (plv-joindre (plv-couleurs-proposees) ", ") ")") (plv-couleurs-des-feuilles))
          trouve (plv-couleurs-proposee nom))
    (if (not trouve) (plv-dire (strcat "Il n'y a pas de table de tracé " nom "."))))
  (plv-choisir-couleurs trouve))
