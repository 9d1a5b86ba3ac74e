;; A project line in a text file, or in LandXML.

(defun plv-projet-fichier (profil genre chemin / trouve sommets)
  "Draws the project line of a file, text or LandXML; gives its entities, or nil after a message."
  (cond
    ((not (setq trouve (plv-fichier-existant chemin))) nil)
    ((plv-landxml-p trouve) (plv-landxml-projet-fichier profil genre trouve))
    ((setq sommets (plv-sommets-du-fichier trouve)) (plv-projet profil genre sommets))))
