;; A kind's line given and taken as a table: what PLV-SOMMETS, the window's table and other programs call. Each change draws the line again,
;; all or nothing.
;; Shared in the room: plv-sommets-table:essai

(defun plv-ligne-editer (profil genre editer:changer / faute suites essai)
  "Draws a kind's line again as a function of its runs, and of the profile's ground, gives them, or the text of why not. Its entities, or nil
after a message."
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((setq faute (plv-ligne-refus profil genre)) (plv-erreur faute))
    ((not (setq suites (plv-lire-ligne profil genre))) (plv-erreur (strcat "ce profil n'a pas de ligne " genre)))
    ((= (type (setq essai (apply editer:changer (list suites (plv-sol (plv-points-tn profil)))))) 'STR) (plv-erreur essai))
    ((plv-ligne-ecrire profil genre essai))))

(defun plv-sommets-table:essai (profil suites changements / essai sol origine)
  "The runs with every (number field text), or the text of the first that can't be."
  (setq essai suites sol (plv-sol (plv-points-tn profil)) origine (plv-premiere-station profil))
  (foreach c changements
    (if (listp essai) (setq essai (plv-ligne-corriger essai (car c) (cadr c) (caddr c) sol origine))))
  (cond ((= (type essai) 'STR) essai) ((plv-ligne-faute profil essai)) (essai)))

(defun plv-sommets-corriger (profil genre changements)
  "Gives values (number field text) to vertices. The line's entities, or nil after a message."
  (plv-ligne-editer profil genre '(lambda (suites sol) (plv-sommets-table:essai profil suites changements))))

(defun plv-sommets-remplacer (profil genre lignes nom / suites)
  "The line of text lines, station;altitude;raccordement;forme, in place of the one that is there, an empty line between its runs; nom: as
messages call them."
  (setq suites (mapcar '(lambda (l) (plv-sommets-des-lignes l nom)) (plv-sommets-table:groupes lignes)))
  (if (not (member nil suites))
    (plv-ligne-ecrire profil genre
      (mapcar '(lambda (suite) (plv-sommets-table:en-distances suite (plv-premiere-station profil))) suites))))

(defun plv-sommets-table:en-distances (suite origine)
  "In the order of stations: a spreadsheet may have them in another one."
  (mapcar '(lambda (s) (plv-sommet-de-ligne (- (car s) origine) (cadr s) (plv-demande-en-distances (plv-demande-de s) origine) nil))
    (vl-sort suite '(lambda (a b) (< (car a) (car b))))))

(defun plv-sommets-table:groupes (lignes / groupes groupe)
  "The lines apart where there are empty ones."
  (foreach l (append lignes '(""))
    (if (= (vl-string-trim " \t;" l) "")
      (if groupe (setq groupes (cons (reverse groupe) groupes) groupe nil))
      (setq groupe (cons l groupe))))
  (reverse groupes))

(defun plv-sommets-lignes (profil genre / origine sol lignes)
  "The line as such text, what else is in the table behind it."
  (setq origine (plv-premiere-station profil) sol (plv-sol (plv-points-tn profil)))
  (foreach suite (plv-lire-ligne profil genre)
    (setq lignes (append lignes (if lignes '("")) (plv-sommets-table:lignes suite (plv-ligne-rangees sol (list suite)) origine))))
  (cons (plv-sommets-table:titres) lignes))

(setq plv-sommets-table:de-plus '("Profondeur" "Entree" "Sortie" "Longueur" "Rayon" "Raccordement" "Debut" "Fin" "Extremum"))

(defun plv-sommets-table:titres ()
  (plv-ligne-csv (cons (car (plv-sommets-en-lignes nil 0.0))
    '("profondeur" "entrée %" "sortie %" "longueur" "rayon" "longueur du raccordement" "début" "fin" "point haut ou bas"))))

(defun plv-sommets-table:lignes (suite rangees origine)
  (mapcar
    '(lambda (ligne rangee)
       (plv-ligne-csv
         (cons ligne (mapcar '(lambda (c) (plv-remplacer (plv-rangee-texte rangee c origine) " ; " " ")) plv-sommets-table:de-plus))))
    (cdr (plv-sommets-en-lignes suite origine)) rangees))
