;; Lines of delimited text, read and written: the separator is recognised, then each line is cut into fields.
;; Comma, semicolon, tab or blanks; a comma between digits is a decimal comma when another separator is there.

(defun plv-lire-lignes (chemin)
  "Every line of a file, of the first sheet of a workbook; nil after a message when it can't be read, (\"\") for an empty one."
  (if (wcmatch (strcase chemin) "*`.XLSX") (plv-lignes:classeur chemin) (plv-lignes:texte chemin)))

(defun plv-lignes:classeur (chemin / lignes)
  (setq lignes (vl-catch-all-apply 'classeur-lire (list chemin)))
  (cond ((vl-catch-all-error-p lignes) (plv-erreur (vl-catch-all-error-message lignes)))
        (lignes)
        ('(""))))

(defun plv-lignes:texte (chemin / fichier ligne lignes)
  (if (not (setq fichier (open chemin "r")))
    (plv-erreur (strcat "lecture impossible: " chemin))
    (progn
      (while (setq ligne (read-line fichier)) (setq lignes (cons ligne lignes)))
      (close fichier)
      (cond ((reverse lignes)) ('(""))))))

(defun plv-ligne-muette (ligne)
  "T for an empty line and for a comment."
  (or (= (vl-string-trim " \t" ligne) "") (wcmatch (vl-string-left-trim " \t" ligne) "[#;]*")))

(defun plv-refus-ligne (chemin numero ligne attendu)
  (plv-erreur (strcat chemin ", ligne " (itoa numero) " illisible: \"" (plv-abrege ligne) "\"; " attendu)))

(defun plv-abrege (texte)
  "The text, cut to 80 characters for a message."
  (if (> (strlen texte) 80) (strcat (substr texte 1 77) "...") texte))

(defun plv-separateur (ligne)
  "The separator of the fields of a line: \";\" \"\\t\" \",\" or \" \"."
  (setq ligne (vl-string-trim " \t" ligne))
  (cond
    ((vl-string-search ";" ligne) ";")
    ((vl-string-search "\t" ligne) "\t")
    ((vl-string-search ", " ligne) ",")
    ((and (vl-string-search "," ligne) (not (vl-string-search " " ligne))) ",")
    ((wcmatch ligne "*[A-Za-z]*`,*") ",")
    (T " ")))

(defun plv-couper (ligne separateur / champs)
  "The fields of a line without the blanks around them; runs of blanks are one separator."
  (setq champs (plv-couper:bruts ligne separateur))
  (if (= separateur " ")
    (vl-remove "" (mapcar '(lambda (champ) (vl-string-trim " \t" champ)) champs))
    (mapcar '(lambda (champ) (vl-string-trim " \t\"" champ)) champs)))

(setq plv-couper:courte 1000)

(defun plv-couper:bruts (ligne separateur / milieu)
  "The fields as they stand. A long line is cut into halves, since each cut copies the rest of its line."
  (if (<= (strlen ligne) plv-couper:courte)
    (plv-couper:un-a-un ligne separateur)
    (progn
      (setq milieu (/ (strlen ligne) 2))
      (plv-couper:joints (plv-couper:bruts (substr ligne 1 milieu) separateur)
                         (plv-couper:bruts (substr ligne (1+ milieu)) separateur)))))

(defun plv-couper:joints (gauche droite)
  "Both lists, the last field of the one and the first of the other being one field."
  (setq gauche (reverse gauche))
  (append (reverse (cdr gauche)) (cons (strcat (car gauche) (car droite)) (cdr droite))))

(defun plv-couper:un-a-un (ligne separateur / champs fin)
  (while (setq fin (vl-string-search separateur ligne))
    (setq champs (cons (substr ligne 1 fin) champs)
          ligne (substr ligne (+ fin (strlen separateur) 1))))
  (reverse (cons ligne champs)))

;; --- writing

(defun plv-ligne-csv (textes) (plv-joindre textes ";"))

(defun plv-ecrire-lignes (fichier lignes / ecrit)
  "Writes lines, completely or not at all; the former file becomes .bak. T, or nil after a message."
  (if (vl-catch-all-error-p (setq ecrit (vl-catch-all-apply 'texte-ecrire (list fichier lignes))))
    (plv-erreur (vl-catch-all-error-message ecrit))
    (progn (plv-dire (strcat fichier ": " (plv-compte (1- (length lignes)) "ligne") ".")) T)))

(defun plv-dossier-reglages ()
  "Where the user's own things are kept."
  (cond ((getenv "KAVEL_CHEMIN"))
        ((getenv "XDG_DATA_HOME") (strcat (getenv "XDG_DATA_HOME") "/kavel"))
        ((getenv "HOME") (strcat (getenv "HOME") "/.local/share/kavel"))
        (".")))
