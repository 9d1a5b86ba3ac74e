;; The kinds of line that a profile has. Whoever lists, asks for or looks up a kind walks this table.
;; Its order is the module's: supports are made in it and the quantities' dialog offers the project lines in it.

;; word shown to the user, key of the support with the profile, rank in questions. The module knows the words without regard
;; to case; "TN" is the terrain that curves are attached to, and no project line.
(setq plv-genres:table
  '(("TN" "HTN" 7) ("Assainissement" "HASS" 2) ("Voirie" "HVOIRIE" 1) ("AEp" "HAEP" 3) ("Generique" "HGEN" 6)
    ("Terrassements" "HTERRA" 4) ("Projet" "HPROJ" 5)))

(defun plv-cles-genres () (mapcar 'cadr plv-genres:table))

(defun plv-genres ()
  "The words in the order of questions and lists."
  (mapcar 'car (vl-sort plv-genres:table '(lambda (a b) (< (caddr a) (caddr b))))))

(defun plv-genres-projet ()
  "The words of project lines, in the module's order."
  (vl-remove "TN" (mapcar 'car plv-genres:table)))

(defun plv-genre (mot)
  "The kind of line of a word, spelled as the table has it; nil for another word."
  (car (vl-member-if '(lambda (g) (= (strcase g) (strcase mot))) (plv-genres))))

(defun plv-cle-genre (genre) (cadr (assoc (plv-genre genre) plv-genres:table)))

(defun plv-demander-genre (defaut) (plv-demander-mot "Genre de ligne" (plv-genres) defaut))

(defun plv-demander-genre-projet (defaut) (plv-demander-mot "Genre de projet" (plv-genres-projet) defaut))

(defun plv-refus-genre-projet (genre)
  "The text for a kind that is no project line, nil for one that is."
  (if (not (member genre (plv-genres-projet)))
    (strcat "un genre de projet est attendu: " (plv-joindre (plv-genres-projet) " "))))
