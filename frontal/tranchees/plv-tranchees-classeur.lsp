;; The workbook of trenches, and the file of prices: rows désignation;unité;prix, which the program writes with the prices empty.

(defun plv-bordereau:lot (profil genre / demande)
  "A network as the workbook takes it; a text that says what is missing."
  (setq demande (plv-tranchees:demande profil genre))
  (if (listp demande)
    (append (list (strcat (plv-numero-profil profil) " " genre)) demande (list (plv-gravitaire-p genre)))
    (strcat "profil " (plv-numero-profil profil) ": " demande)))

(defun plv-bordereau:date (/ date)
  (setq date (rtos (fix (getvar "CDATE")) 2 0))
  (strcat (substr date 7 2) "/" (substr date 5 2) "/" (substr date 1 4)))

(defun plv-bordereau:ecrire (lots chemin prix / neuf fait)
  "Writes it beside its place, which it takes when it is whole; the articles without a price, or a text."
  (setq neuf (strcat chemin ".nouveau.xlsx")
        fait (et_tranchees_classeur neuf lots prix (getvar "DWGNAME") (plv-bordereau:date)))
  (cond
    ((/= (type fait) 'LIST) (cond (fait) ("le classeur n'a pas pu être écrit")))
    ((vl-catch-all-error-p (setq neuf (vl-catch-all-apply 'fichier-remplacer (list neuf chemin)))) (vl-catch-all-error-message neuf))
    (T (list (car fait)))))

;; --- the answers that made it: the file of prices, then number and kind of each network

(defun plv-bordereau:reponses (couples prix)
  (cons (cond (prix) ("")) (apply 'append (mapcar '(lambda (c) (list (plv-numero-profil (car c)) (cadr c))) couples))))

(defun plv-bordereau-prix (reponses) (if (/= (car reponses) "") (car reponses)))

(defun plv-bordereau-couples (reponses / couples)
  (setq reponses (cdr reponses))
  (while (cdr reponses)
    (setq couples (cons (list (plv-profil-de-numero (car reponses)) (cadr reponses)) couples) reponses (cddr reponses)))
  (vl-remove-if-not 'car (reverse couples)))

(defun plv-bordereau:noter (couples chemin prix)
  (foreach couple couples
    (plv-noter-fait (car couple) "BORDEREAU" (strcat (cadr couple) " " chemin) nil (plv-bordereau:reponses couples prix))))

(defun plv-tranchees-classeur (couples chemin prix / lots faute fait rangees)
  "Writes the workbook of networks, (profile kind) each, with the prices of a file (nil for none); the articles without a price as a list
in a list, or nil after a message."
  (setq chemin (if (vl-filename-extension chemin) chemin (strcat chemin ".xlsx"))
        lots (mapcar '(lambda (c) (plv-bordereau:lot (car c) (cadr c))) couples)
        faute (vl-some '(lambda (l) (if (eq (type l) 'STR) l)) lots))
  (cond
    (faute (plv-erreur faute))
    ((and prix (not (setq rangees (plv-reseau-lire-fichier prix)))) nil)
    ((eq (type (setq fait (plv-bordereau:ecrire lots chemin rangees))) 'STR) (plv-erreur fait))
    (T
     (plv-bordereau:noter couples chemin prix)
     (plv-dire (strcat "Classeur: " chemin))
     (if (and prix (car fait)) (plv-dire (strcat "Sans prix: " (plv-joindre (car fait) ", ") ".")))
     fait)))

;; --- prices to fill in

(defun plv-bordereau:rangee (article anciennes / ancienne)
  "A row for an article, the one of the file where it has one."
  (setq ancienne (car (vl-member-if '(lambda (r) (= (strcase (car (plv-couper r ";"))) (strcase (car article)))) anciennes)))
  (cond (ancienne) ((strcat (car article) ";" (cadr article) ";"))))

(defun plv-tranchees-ecrire-prix (couples chemin / lots faute articles anciennes)
  "A file with a row for each article, to be filled in; a price that the file has already stays. T, or nil after a message."
  (setq lots (mapcar '(lambda (c) (plv-bordereau:lot (car c) (cadr c))) couples)
        faute (vl-some '(lambda (l) (if (eq (type l) 'STR) l)) lots)
        articles (if faute faute (et_tranchees_articles lots))
        anciennes (if (findfile chemin) (plv-lire-lignes (findfile chemin))))
  (if (eq (type articles) 'STR)
    (plv-erreur articles)
    (plv-ecrire-lignes chemin (cons "désignation;unité;prix" (mapcar '(lambda (a) (plv-bordereau:rangee a anciennes)) articles)))))
