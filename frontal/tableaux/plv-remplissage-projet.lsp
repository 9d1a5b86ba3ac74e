;; Rows about a project line: altitudes, depths, slopes in four wordings, distances of its elements.
;; The text between braces names the kind of line, {Voirie}; without it the first kind that has a project line serves.
;; Shared in the room: plv-remplir:* plv-redaction:*

(defun plv-remplir:genre-projet (contexte / genres)
  (setq genres (plv-genres-du-projet (plv-cle 'profil contexte)))
  (cond ((car (member (plv-genre (vl-string-trim " " (plv-cle 'infos contexte))) genres))) ((car genres))))

(defun plv-remplir:sur-projet (points contexte fonction / genre)
  "Calls the function with each point that the project line reaches and its altitude there."
  (if (setq genre (plv-remplir:genre-projet contexte))
    (progn
      (mapcar '(lambda (p z) (if z (apply fonction (list p z)))) points (plv-altitudes-projet (plv-cle 'profil contexte) genre points))
      0)))

(defun plv-remplir:altitudes-projet (points contexte)
  (plv-remplir:sur-projet points contexte '(lambda (p z) (plv-remplir:nombre (car p) z contexte))))

(defun plv-remplir:profondeurs (points contexte)
  ;; Positive below the ground.
  (plv-remplir:sur-projet points contexte '(lambda (p z) (plv-remplir:nombre (car p) (- (cadr p) z) contexte))))

;; --- slopes; a wording gives the texts for a slope over a length, from the longest to the shortest

(defun plv-remplir:signe (valeur decimales / texte)
  "With its sign; zero has none."
  (setq texte (plv-reel valeur decimales))
  (if (> (atof texte) 0.0) (strcat "+" texte) texte))

(defun plv-redaction:montee (pente) (cond ((equal pente 0.0 5e-5) 0) ((> pente 0.0) 1) (-1)))

(defun plv-redaction:sens (pente) (plv-cle (plv-redaction:montee pente) '((0 . "Palier") (1 . "Rampe") (-1 . "Pente"))))

(defun plv-redaction:en-mots (pente longueur / sens valeur)
  (setq sens (plv-redaction:sens pente)
        valeur (strcat (plv-reel (abs (* 100.0 pente)) 2) " %"))
  (if (= sens "Palier")
    (list (strcat sens " sur " (plv-reel longueur 2) " m") sens)
    (list (strcat sens " " valeur " sur " (plv-reel longueur 2) " m") (strcat sens " " valeur) valeur)))

(defun plv-redaction:normale (pente longueur) (list (strcat (plv-remplir:signe pente 4) " m/m") (plv-remplir:signe pente 4)))

(defun plv-redaction:pourcent (pente longueur) (list (strcat (plv-remplir:signe (* 100.0 pente) 2) " %")))

(defun plv-redaction:pour-mille (pente longueur) (list (strcat (plv-remplir:signe (* 1000.0 pente) 1) " \U+2030")))

(setq plv-redactions
  '((12 . plv-redaction:en-mots) (13 . plv-redaction:normale) (14 . plv-redaction:pourcent) (15 . plv-redaction:pour-mille)))

(defun plv-remplir:pentes (points contexte) (plv-redaction:rangee contexte 12))
(defun plv-remplir:pentes-normales (points contexte) (plv-redaction:rangee contexte 13))
(defun plv-remplir:pentes-pourcent (points contexte) (plv-redaction:rangee contexte 14))
(defun plv-remplir:pentes-pourmilles (points contexte) (plv-redaction:rangee contexte 15))

(defun plv-remplir:pieces (contexte genre / fin)
  "The slope pieces within the profile: curves that are only attached may run past it."
  (setq fin (plv-cle 'longueur contexte))
  (vl-remove-if '(lambda (p) (< (plv-longueur p) 1e-6))
    (mapcar '(lambda (p) (vl-list* (max 0.0 (plv-debut p)) (min fin (plv-fin p)) (cddr p)))
            (plv-elements-de-pente (plv-cle 'profil contexte) genre))))

(defun plv-redaction:texte (piece nature contexte)
  "The longest wording of a straight piece in a kind of row that its cell holds; nil for none."
  (plv-remplir:qui-tient (apply (plv-cle nature plv-redactions) (list (plv-pente-valeur piece) (plv-longueur piece)))
    (* 0.95 (plv-longueur piece)) contexte))

(defun plv-redaction:texte-courbe (piece rayon contexte)
  ;; A cell narrows its text to 0.6 and lowers it to 0.7.
  (plv-remplir:qui-tient
    (list (strcat "R=" (plv-reel rayon 0) " L=" (plv-reel (plv-longueur piece) 2)) (strcat "R=" (plv-reel rayon 0)))
    (/ (plv-longueur piece) 0.65) contexte))

(defun plv-redaction:rangee (contexte nature / genre)
  "A slanting line with its wording for each slope, a cell with its radius for each vertical curve; of all pieces, or of those that are
asked for."
  (if (setq genre (plv-remplir:genre-projet contexte))
    (plv-remplir:somme
      '(lambda (piece)
         (if (plv-pente-droite-p piece)
           (plv-redaction:droite piece (plv-redaction:texte piece nature contexte))
           (plv-redaction:courbe piece contexte)))
      (cond ((plv-cle 'pieces contexte)) ((plv-remplir:pieces contexte genre))))))

(defun plv-redaction:droite (piece texte / pente f1 f2)
  ;; The line stays in the lower part of the row, so that its text has the room above it.
  (setq pente (plv-pente-valeur piece)
        f1 (plv-cle (plv-redaction:montee pente) '((0 . 0.22) (1 . 0.1) (-1 . 0.34)))
        f2 (- 0.44 f1))
  (pl_TexteMultipleCentre (plv-debut piece) (plv-fin piece) "|")
  (if texte
    (pl_ligneMatrice (plv-debut piece) f1 (plv-fin piece) f2 texte)
    (pl_ligneMatrice (plv-debut piece) f1 (plv-fin piece) f2))
  (plv-remplir:manque texte))

(defun plv-redaction:courbe (piece contexte / rayon texte)
  (if (setq rayon (plv-rayon-de-piece (plv-cle 'profil contexte) piece))
    (setq texte (plv-redaction:texte-courbe piece rayon contexte)))
  (pl_TexteMultipleCentre (plv-debut piece) (plv-fin piece) (cond (texte) ("|")))
  (if rayon (plv-remplir:manque texte) 0))

;; --- distances of the elements

(defun plv-remplir:bornes (contexte genre / bornes)
  "Distances where slope pieces begin and end, each once, as points."
  (foreach d (vl-sort (apply 'append (mapcar '(lambda (p) (list (plv-debut p) (plv-fin p))) (plv-remplir:pieces contexte genre))) '<)
    (if (not (and bornes (equal d (caar bornes) 1e-6))) (setq bornes (cons (list d) bornes))))
  (reverse bornes))

(defun plv-remplir:bornes-partielles (contexte genre / bornes)
  "Those that a row of partial distances shows."
  (setq bornes (plv-remplir:bornes contexte genre))
  (if (or (plv-cle 'tout contexte) (not bornes))
    bornes
    (plv-espacer bornes (plv-espacement:partielles bornes (plv-cle 'ttxt contexte)))))

(defun plv-remplir:partielles-projet (points contexte / genre gardees)
  (if (setq genre (plv-remplir:genre-projet contexte))
    (progn
      (if (setq gardees (plv-remplir:bornes-partielles contexte genre)) (plv-remplir:partielles (mapcar 'car gardees)))
      (- (length (plv-remplir:bornes contexte genre)) (length gardees)))))

(defun plv-remplir:bornes-cumulees (contexte genre / bornes)
  "Those that a row of cumulated distances shows."
  (if (setq bornes (plv-remplir:bornes contexte genre))
    (plv-espacer bornes (plv-espacement:verticaux bornes (plv-cle 'ttxt contexte)))))

(defun plv-remplir:cumulees-projet (points contexte / genre)
  (if (setq genre (plv-remplir:genre-projet contexte))
    (progn
      (foreach d (plv-remplir:bornes-cumulees contexte genre) (plv-remplir:cumulee (car d) contexte))
      0)))
