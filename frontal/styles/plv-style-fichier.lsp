;; Style files: rows of fields between semicolons, of which the first word says what the row is. docs/formats.md describes them.
;; A row is kept as it is written; what is read of it is checked here, once.
;; Shared in the room: plv-style:*

;; word, least and greatest number of fields behind it, what checks them: the text of a fault, or nil
(setq plv-style:rangees
  '(("calque" 4 5 plv-style:faute-trait) ("ligne" 4 5 plv-style:faute-trait-genre) ("texte" 2 2 plv-style:faute-texte) ("titres" 1 1 plv-style:faute-police)
    ("grille" 1 1 plv-style:faute-nombres) ("sol" 1 2 plv-style:faute-nombres) ("libelle" 2 2 plv-style:faute-libelle)
    ("legende" 1 1 plv-style:faute-legende) ("tableau" 2 2 plv-style:faute-tableau)))

(setq plv-style:livres '(("Route" "style-route.txt") ("Assainissement" "style-assainissement.txt") ("Eau-potable" "style-eau-potable.txt")
                         ("Monochrome" "style-monochrome.txt")))

;; the line types that a style may name: dashes and gaps in millimetres on paper
(setq plv-style:traits '(("continu") ("tirets" 3.0 -1.5) ("points" 0.0 -1.0) ("mixte" 6.0 -1.5 0.0 -1.5) ("longs" 8.0 -2.0)))

;; the labels that a style may ask for, and the marks of their patterns
(setq plv-style:libelles '(("pente" "<P>" "<L>") ("courbe" "<R>" "<L>" "<T>") ("haut" "<Z>" "<PK>") ("bas" "<Z>" "<PK>")))

(setq plv-style:ajouts-de-tableau '("cadre" "zebre" "fleches"))

;; --- a colour: (index) or (index . true colour)

(setq plv-style:chiffres "0123456789ABCDEF")

(defun plv-style:hexa (texte / n)
  (setq n 0)
  (while (/= texte "")
    (setq n (+ (* 16 n) (vl-string-search (substr texte 1 1) plv-style:chiffres)) texte (substr texte 2)))
  n)

(defun plv-style-couleur (texte)
  "#RRGGBB, noir, or a colour's number; nil for anything else."
  (setq texte (strcase texte))
  (cond
    ((= texte "NOIR") '(7))
    ((and (= (strlen texte) 7) (= (substr texte 1 1) "#") (wcmatch (substr texte 2) "~*[~0-9A-F]*")) (cons 7 (plv-style:hexa (substr texte 2))))
    ((and (wcmatch texte "#,##,###") (< 0 (atoi texte) 256)) (list (atoi texte)))))

;; --- the fields of a row: where they are wrong

(defun plv-style:nombre-entre (texte bas haut / n)
  (if (and (setq n (plv-nombre texte)) (<= bas n haut)) n))

(defun plv-style:faute-trait (champs)
  "(name colour line-type weight [grey])"
  (cond
    ((= (car champs) "") "un nom de calque est attendu")
    ((not (plv-style-couleur (cadr champs))) (strcat "couleur \"" (cadr champs) "\": #RRVVBB, noir ou un numéro de 1 à 255 est attendu"))
    ((not (assoc (strcase (caddr champs) T) plv-style:traits))
     (strcat "trait \"" (caddr champs) "\": " (plv-joindre (mapcar 'car plv-style:traits) ", ") " est attendu"))
    ((not (plv-style:nombre-entre (cadddr champs) 0.0 2.11)) (strcat "épaisseur \"" (cadddr champs) "\": de 0 à 2.11 mm est attendu"))
    ((and (nth 4 champs) (not (plv-style:nombre-entre (nth 4 champs) 0.0 100.0))) (strcat "gris \"" (nth 4 champs) "\": de 0 à 100 est attendu"))))

(defun plv-style:faute-trait-genre (champs)
  (cond ((plv-refus-genre-projet (plv-genre (car champs)))) ((plv-style:faute-trait champs))))

(defun plv-style:faute-police (champs) (if (= (car champs) "") "un fichier de police est attendu"))

(defun plv-style:faute-texte (champs)
  "(font height)"
  (cond
    ((plv-style:faute-police champs))
    ((not (plv-style:nombre-entre (cadr champs) 2.5 20.0))
     (strcat "hauteur \"" (cadr champs) "\": de 2.5 à 20 mm est attendu, les petits textes en ont 0.72 fois autant"))))

(defun plv-style:faute-nombres (champs)
  (if (not (vl-every '(lambda (c) (plv-style:nombre-entre c 0.0 255.0)) champs)) "un nombre de 0 à 255 est attendu"))

(defun plv-style:faute-libelle (champs / marques)
  (setq marques (cdr (assoc (car champs) plv-style:libelles)))
  (cond
    ((not marques) (strcat "libellé \"" (car champs) "\": " (plv-joindre (mapcar 'car plv-style:libelles) ", ") " est attendu"))
    ((not (vl-some '(lambda (m) (vl-string-search m (cadr champs))) marques))
     (strcat "motif \"" (cadr champs) "\": une marque est attendue, " (plv-joindre marques ", ")))))

(defun plv-style:faute-legende (champs) (if (/= (car champs) "lignes") (strcat "légende \"" (car champs) "\": lignes est attendu")))

(defun plv-style:faute-tableau (champs)
  (cond
    ((not (member (car champs) plv-style:ajouts-de-tableau))
     (strcat "tableau \"" (car champs) "\": " (plv-joindre plv-style:ajouts-de-tableau ", ") " est attendu"))
    ((plv-style:faute-nombres (cdr champs)))))

(defun plv-style:faute (champs / rangee)
  "What is wrong with a row; nil for nothing."
  (setq rangee (assoc (car champs) plv-style:rangees))
  (cond
    ((not rangee) (strcat "\"" (car champs) "\" inconnu: " (plv-joindre (mapcar 'car plv-style:rangees) ", ") " est attendu"))
    ((not (<= (cadr rangee) (length (cdr champs)) (caddr rangee)))
     (strcat (car champs) ": " (itoa (cadr rangee)) " champs sont attendus, " (itoa (length (cdr champs))) " sont donnés"))
    ((apply (cadddr rangee) (list (cdr champs))))))

;; --- the file

(defun plv-style-champs (ligne) (plv-couper ligne ";"))

(defun plv-lire-style (chemin / numero faute rangees)
  "The rows of a style file as texts; nil after a message that says the line."
  (setq numero 0)
  (foreach ligne (plv-lire-lignes chemin)
    (setq numero (1+ numero))
    (if (not (or faute (plv-ligne-muette ligne)))
      (if (setq faute (plv-style:faute (plv-style-champs ligne)))
        (plv-erreur (strcat chemin ", ligne " (itoa numero) ": " faute))
        (setq rangees (cons ligne rangees)))))
  (cond
    (faute nil)
    ((reverse rangees))
    (T (plv-erreur (strcat chemin ": aucune rangée de style")))))

(defun plv-fichier-de-style (nom / livre)
  "The path of a style: one's own in the folder styles of the settings, a shipped one, or a file; nil after a message."
  (setq livre (car (vl-member-if '(lambda (l) (= (strcase (car l)) (strcase nom))) plv-style:livres)))
  (cond
    ((findfile (strcat (plv-dossier-reglages) "/styles/" nom ".txt")))
    ((if livre (findfile (cadr livre))))
    ((plv-fichier-existant nom))))
