;; Rows about a project line: altitudes, depths, slopes in four wordings, distances of its elements.
;; The text between braces names the kind of line, {Voirie}; without it the first kind that has a project line serves.
;; Shared in the room: plv-remplir:*

(defun plv-remplir:genre-projet (contexte / genres)
  (setq genres (plv-genres-du-projet (plv-cle 'profil contexte)))
  (cond ((car (member (plv-genre (vl-string-trim " " (plv-cle 'infos contexte))) genres))) ((car genres))))

(defun plv-remplir:sur-projet (points contexte fonction / genre profil situes plans z)
  "Calls the function with each point that the project line reaches and its altitude there."
  (if (setq genre (plv-remplir:genre-projet contexte))
    (progn
      (setq profil (plv-cle 'profil contexte)
            situes (plv-elements-situes profil genre)
            plans (plv-plans profil))
      (foreach p points
        (if (setq z (plv-altitude-projet profil situes plans (car p))) (apply fonction (list p z))))
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

(defun plv-redaction:sens (pente)
  (cond ((equal pente 0.0 5e-5) "Palier") ((> pente 0.0) "Rampe") ("Pente")))

(defun plv-redaction:en-mots (pente longueur / sens valeur)
  (setq sens (plv-redaction:sens pente)
        valeur (strcat (plv-reel (abs (* 100.0 pente)) 2) " %"))
  (if (= sens "Palier")
    (list (strcat sens " sur " (plv-reel longueur 2) " m") sens)
    (list (strcat sens " " valeur " sur " (plv-reel longueur 2) " m") (strcat sens " " valeur) valeur)))

(defun plv-remplir:pentes (points contexte) (plv-redaction:rangee contexte 'plv-redaction:en-mots))

(defun plv-remplir:pentes-normales (points contexte)
  (plv-redaction:rangee contexte
    '(lambda (pente longueur) (list (strcat (plv-remplir:signe pente 4) " m/m") (plv-remplir:signe pente 4)))))

(defun plv-remplir:pentes-pourcent (points contexte)
  (plv-redaction:rangee contexte '(lambda (pente longueur) (list (strcat (plv-remplir:signe (* 100.0 pente) 2) " %")))))

(defun plv-remplir:pentes-pourmilles (points contexte)
  (plv-redaction:rangee contexte '(lambda (pente longueur) (list (strcat (plv-remplir:signe (* 1000.0 pente) 1) " \U+2030")))))

(defun plv-remplir:pieces (contexte genre / fin)
  "The slope pieces within the profile: curves that are only attached may run past it."
  (setq fin (plv-cle 'longueur contexte))
  (vl-remove-if '(lambda (p) (< (plv-longueur p) 1e-6))
    (mapcar '(lambda (p) (vl-list* (max 0.0 (plv-debut p)) (min fin (plv-fin p)) (cddr p)))
            (plv-elements-de-pente (plv-cle 'profil contexte) genre))))

(defun plv-redaction:rangee (contexte redaction / genre)
  "A slanting line with its wording for each slope, a cell with its radius for each vertical curve."
  (if (setq genre (plv-remplir:genre-projet contexte))
    (plv-remplir:somme
      '(lambda (piece)
         (if (plv-pente-droite-p piece)
           (plv-redaction:droite piece (apply redaction (list (plv-pente-valeur piece) (plv-longueur piece))) contexte)
           (plv-redaction:courbe piece contexte)))
      (plv-remplir:pieces contexte genre))))

(defun plv-redaction:droite (piece textes contexte / pente texte f1 f2)
  ;; The line stays in the lower part of the row, so that its text has the room above it.
  (setq pente (plv-pente-valeur piece)
        f1 (cond ((equal pente 0.0 5e-5) 0.22) ((> pente 0.0) 0.1) (0.34))
        f2 (- 0.44 f1)
        texte (plv-remplir:qui-tient textes (* 0.95 (plv-longueur piece)) contexte))
  (pl_TexteMultipleCentre (plv-debut piece) (plv-fin piece) "|")
  (if texte
    (pl_ligneMatrice (plv-debut piece) f1 (plv-fin piece) f2 texte)
    (pl_ligneMatrice (plv-debut piece) f1 (plv-fin piece) f2))
  (plv-remplir:manque texte))

(defun plv-redaction:courbe (piece contexte / rayon texte)
  (if (setq rayon (plv-rayon-de-piece (plv-cle 'profil contexte) piece))
    ;; A cell narrows its text to 0.6 and lowers it to 0.7.
    (setq texte (plv-remplir:qui-tient
                  (list (strcat "R=" (plv-reel rayon 0) " L=" (plv-reel (plv-longueur piece) 2)) (strcat "R=" (plv-reel rayon 0)))
                  (/ (plv-longueur piece) 0.65) contexte)))
  (pl_TexteMultipleCentre (plv-debut piece) (plv-fin piece) (cond (texte) ("|")))
  (if rayon (plv-remplir:manque texte) 0))

;; --- distances of the elements

(defun plv-remplir:bornes (contexte genre / bornes)
  "Distances where slope pieces begin and end, each once, as points."
  (foreach d (vl-sort (apply 'append (mapcar '(lambda (p) (list (plv-debut p) (plv-fin p))) (plv-remplir:pieces contexte genre))) '<)
    (if (not (and bornes (equal d (caar bornes) 1e-6))) (setq bornes (cons (list d) bornes))))
  (reverse bornes))

(defun plv-remplir:partielles-projet (points contexte / genre bornes gardees)
  (if (setq genre (plv-remplir:genre-projet contexte))
    (progn
      (setq bornes (plv-remplir:bornes contexte genre)
            gardees (if (or (plv-cle 'tout contexte) (not bornes))
                      bornes
                      (plv-espacer bornes (plv-espacement:partielles bornes (plv-cle 'ttxt contexte)))))
      (if bornes (plv-remplir:partielles (mapcar 'car gardees)))
      (- (length bornes) (length gardees)))))

(defun plv-remplir:cumulees-projet (points contexte / genre bornes)
  (if (setq genre (plv-remplir:genre-projet contexte))
    (progn
      (if (setq bornes (plv-remplir:bornes contexte genre))
        (foreach d (plv-espacer bornes (plv-espacement:verticaux bornes (plv-cle 'ttxt contexte)))
          (plv-remplir:cumulee (car d) contexte)))
      0)))
