;; Networks in files: rows of text, as the drawing keeps them.

(defun plv-reseau-lire-fichier (chemin / trouve)
  "The rows of a file; nil after a message."
  (if (setq trouve (plv-fichier-existant chemin)) (plv-lire-lignes trouve)))

(defun plv-reseau-exporter (profil genre chemin / rangees)
  "Writes the network of a kind of line; T, or nil after a message."
  (if (setq rangees (plv-reseau-rangees profil genre))
    (plv-ecrire-lignes chemin rangees)
    (plv-erreur (plv-reseau-refus genre))))
