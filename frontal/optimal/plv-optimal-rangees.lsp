;; Rows of what is asked of a proposed line: of a file, or typed one by one. A row is understood by a function of its text, which
;; gives what it says, or a text that says what is expected.
;; Shared in the room: plv-optimal:lire-rangees plv-optimal:demander-rangees plv-optimal:sans-vides

(defun plv-optimal:sans-vides (champs)
  "Without the empty fields at the end, which spreadsheets add."
  (while (and champs (= (plv-dernier champs) "")) (setq champs (plv-sans-dernier champs)))
  champs)

(defun plv-rangees:commentaire-p (ligne)
  "T for an empty row and for a comment; an empty first field isn't one."
  (setq ligne (vl-string-trim " \t" ligne))
  (or (= ligne "") (wcmatch ligne "[#]*")))

(defun plv-optimal:lire-rangees (chemin comprendre titre vide / numero lignes rangees rangee faute)
  "What the rows of a file say; nil after a message. A heading row (titre: a pattern in capitals) is passed over; vide is told of a
file without rows."
  (setq numero 0 lignes (plv-lire-lignes chemin))
  (while (and lignes (not faute))
    (setq numero (1+ numero))
    (if (not (or (plv-rangees:commentaire-p (car lignes)) (wcmatch (strcase (car lignes)) titre)))
      (if (eq (type (setq rangee (apply comprendre (list (car lignes))))) 'STR)
        (progn (plv-refus-ligne chemin numero (car lignes) rangee) (setq faute T))
        (setq rangees (cons rangee rangees))))
    (setq lignes (cdr lignes)))
  (cond (faute nil)
        ((reverse rangees))
        (T (plv-erreur (strcat chemin ": " vide)))))

(defun plv-optimal:demander-rangees (question comprendre lire / reponse lues rangees)
  "Rows and files of them, until an empty answer."
  (while (/= (setq reponse (plv-demander-texte question nil)) "")
    (if (vl-string-search ";" reponse)
      (if (eq (type (setq lues (apply comprendre (list reponse)))) 'STR) (plv-dire lues) (setq rangees (cons lues rangees)))
      (if (setq lues (plv-fichier-existant reponse)) (setq rangees (append (reverse (apply lire (list lues))) rangees)))))
  (reverse rangees))
