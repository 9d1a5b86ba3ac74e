;; A kind's line given and taken as a table: what PLV-SOMMETS, the window's table and other programs call. Each change draws the line again,
;; all or nothing.

(defun plv-ligne-editer (profil genre editer:changer / suites essai)
  "Draws a kind's line again as a function of its runs, and of the profile's ground, gives them, or the text of why not. Its entities, or nil
after a message."
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((not (setq suites (plv-lire-ligne profil genre))) (plv-erreur (strcat "ce profil n'a pas de ligne " genre)))
    ((= (type (setq essai (apply editer:changer (list suites (plv-sol (plv-points-tn profil)))))) 'STR) (plv-erreur essai))
    ((plv-ligne-ecrire profil genre essai))))

(defun plv-sommets-table:essai (profil suites changements / essai sol origine)
  "The runs with every (number field text), or the text of the first that can't be."
  (setq essai suites sol (plv-sol (plv-points-tn profil)) origine (plv-premiere-station profil))
  (foreach c changements
    (if (listp essai) (setq essai (plv-ligne-corriger essai (car c) (cadr c) (caddr c) sol origine))))
  (cond ((= (type essai) 'STR) essai) ((plv-ligne-faute profil essai)) (essai)))

(defun plv-sommets-faute (profil genre changements / suites essai)
  "Why values (number field text) can't be given, all together; nil when they can. Nothing is drawn."
  (setq suites (plv-lire-ligne profil genre)
        essai (if suites (plv-sommets-table:essai profil suites changements) "la ligne n'est plus là"))
  (if (= (type essai) 'STR) essai))

(defun plv-sommets-corriger (profil genre changements)
  "Gives values (number field text) to vertices. The line's entities, or nil after a message."
  (plv-ligne-editer profil genre '(lambda (suites sol) (plv-sommets-table:essai profil suites changements))))

(defun plv-sommets-remplacer (profil genre lignes nom / sommets origine)
  "The line of text lines, station;altitude;raccordement;forme, in place of the one that is there; nom: as messages call them."
  (if (setq sommets (plv-sommets-des-lignes lignes nom))
    (progn
      (setq origine (plv-premiere-station profil))
      (plv-ligne-ecrire profil genre
        (list (mapcar '(lambda (s) (plv-sommet-de-ligne (- (car s) origine) (cadr s) (plv-demande-en-distances (plv-demande-de s) origine) nil)) sommets))))))

(defun plv-sommets-lignes (profil genre / origine suites)
  "The line as such text, what else is in the table behind it; its runs one after the other."
  (setq origine (plv-premiere-station profil) suites (plv-lire-ligne profil genre))
  (plv-sommets-table:completer
    (plv-sommets-en-lignes (apply 'append suites) origine)
    (plv-ligne-rangees (plv-sol (plv-points-tn profil)) suites) origine))

(setq plv-sommets-table:de-plus '("Profondeur" "Entree" "Sortie" "Longueur" "Rayon" "Raccordement" "Debut" "Fin" "Extremum"))

(defun plv-sommets-table:completer (lignes rangees origine)
  (cons
    (plv-ligne-csv (cons (car lignes) '("profondeur" "entrée %" "sortie %" "longueur" "rayon" "longueur du raccordement" "début" "fin" "point haut ou bas")))
    (mapcar
      '(lambda (ligne rangee)
         (plv-ligne-csv
           (cons ligne (mapcar '(lambda (c) (plv-remplacer (plv-rangee-texte rangee c origine) " ; " " ")) plv-sommets-table:de-plus))))
      (cdr lignes) rangees)))
