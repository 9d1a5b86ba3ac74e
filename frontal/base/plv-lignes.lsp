;; Lines of delimited text, read and written: the separator is recognised, then each line is cut into fields.
;; Comma, semicolon, tab or blanks; a comma between digits is a decimal comma when another separator is there.

(defun plv-lire-lignes (chemin / fichier ligne lignes)
  "Every line of a file; nil when it can't be opened, (\"\") for an empty one."
  (if (setq fichier (open chemin "r"))
    (progn
      (while (setq ligne (read-line fichier)) (setq lignes (cons ligne lignes)))
      (close fichier)
      (cond ((reverse lignes)) ('(""))))))

(defun plv-ligne-muette (ligne)
  "T for an empty line and for a comment."
  (or (= (vl-string-trim " \t" ligne) "") (wcmatch (vl-string-left-trim " \t" ligne) "[#;]*")))

(defun plv-refus-ligne (chemin numero ligne attendu)
  (plv-erreur (strcat chemin ", ligne " (itoa numero) " illisible: \"" ligne "\"; " attendu)))

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

(defun plv-couper (ligne separateur / champs fin)
  "The fields of a line without the blanks around them; runs of blanks are one separator."
  (if (= separateur " ")
    (progn
      (setq ligne (vl-string-trim " \t" ligne))
      (while (/= ligne "")
        (setq fin (cond ((vl-string-search " " ligne)) ((strlen ligne)))
              champs (cons (substr ligne 1 fin) champs)
              ligne (vl-string-left-trim " \t" (substr ligne (1+ fin)))))
      (reverse champs))
    (progn
      (while (setq fin (vl-string-search separateur ligne))
        (setq champs (cons (vl-string-trim " \t\"" (substr ligne 1 fin)) champs)
              ligne (substr ligne (+ fin 2))))
      (reverse (cons (vl-string-trim " \t\"" ligne) champs)))))

;; --- writing

(defun plv-ligne-csv (textes) (plv-joindre textes ";"))

(defun plv-ecrire-lignes (fichier lignes / ecrit)
  "Writes lines, completely or not at all; the former file becomes .bak. T, or nil after a message."
  (if (vl-catch-all-error-p (setq ecrit (vl-catch-all-apply 'texte-ecrire (list fichier lignes))))
    (plv-erreur (vl-catch-all-error-message ecrit))
    (progn (plv-dire (strcat fichier ": " (plv-compte (1- (length lignes)) "ligne") ".")) T)))
