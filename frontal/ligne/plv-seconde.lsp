;; A line where a kind has one already: in its place, behind it, as a variant, or over it. A person is asked; a script's next line would be taken
;; for the answer, so that scripts get the line added, as ever, unless they say otherwise.

(setq plv-seconde:manieres '("Remplacer" "Suite" "Variante" "Ajouter") plv-seconde:reglee nil)

(defun plv-regler-seconde (maniere)
  "What is done unasked: one of the words, \"Demander\" to be asked always, nil for the question to persons alone."
  (setq plv-seconde:reglee maniere))

(defun plv-seconde-manieres () plv-seconde:manieres)

(defun plv-seconde-maniere (profil genre)
  "How a new line of a kind goes with the one that is there."
  (cond
    ((not (plv-elements-du-projet profil genre)) "Ajouter")
    ((member plv-seconde:reglee plv-seconde:manieres) plv-seconde:reglee)
    ((and (not plv-seconde:reglee) (plv-script-p)) "Ajouter")
    ((plv-demander-mot (strcat "Il y a déjà une ligne " genre) plv-seconde:manieres "Remplacer"))))

(defun plv-seconde-tracer (profil genre seconde:maniere seconde:tracer / anciens entites faute)
  "Has a line drawn by a function, which gives its entities or nil after a message, and brings it together with the one that is
there. Its entities, T for a variant; nil after a message, and the former line is as it was."
  (setq anciens (plv-elements-du-projet profil genre))
  (cond
    ((and (= seconde:maniere "Variante") (not (plv-optimal-place-variante-p profil))) nil)
    ((not (setq entites (apply seconde:tracer nil))) nil)
    ((= seconde:maniere "Remplacer")
     (plv-effacer-courbes profil (vl-remove-if '(lambda (e) (member e entites)) anciens))
     (plv-dire (strcat "La ligne " genre " est remplacée."))
     entites)
    ((= seconde:maniere "Variante") (plv-seconde:en-variante profil genre entites))
    ((and (= seconde:maniere "Suite") (setq faute (plv-ligne-faute profil (plv-lire-ligne profil genre))))
     (plv-effacer-courbes profil entites)
     (plv-erreur faute))
    (entites)))

(defun plv-seconde:en-variante (profil genre entites)
  "The drawn line becomes a variant."
  (plv-variante-garder profil genre (plv-sommets-des-situes profil (plv-courbes-situees profil entites)))
  (plv-effacer-courbes profil entites)
  T)
