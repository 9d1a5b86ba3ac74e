;; The ground of a new profile: of a LandXML file or of any ground file. A ground of LandXML is a list of pieces; an
;; alignment without one takes its first project line for it.

(setq plv-landxml:ecart 1e-6) ; pieces that are closer than this in metres go on without a gap

(defun plv-landxml:lacunes (terrain / fin lacunes)
  "Between the pieces of a ground: stretches (from to) of stations."
  (foreach piece (plv-cle 'troncons terrain)
    (if (and fin (> (caar piece) (+ fin plv-landxml:ecart))) (setq lacunes (cons (list fin (caar piece)) lacunes)))
    (setq fin (car (plv-dernier piece))))
  (reverse lacunes))

(defun plv-landxml:dire-lacunes (lacunes)
  (foreach l lacunes
    (plv-dire (strcat "Terrain absent entre les stations " (plv-reel (plv-debut l) 2) " et " (plv-reel (plv-fin l) 2) ": laissé ouvert."))))

(defun plv-landxml:releves (points) (mapcar '(lambda (p) (plv-releve (car p) (cadr p) "")) points))

(defun plv-landxml:points-projet (projet / sommets)
  "Points on the project line, at its vertices and along its curves."
  (setq sommets (plv-landxml-sommets projet))
  (apply 'append (mapcar 'plv-points-partie (plv-parties sommets (plv-raccords sommets)))))

(defun plv-landxml:sur-terrain (chemin terrain / lacunes lu origine)
  (setq lacunes (plv-landxml:lacunes terrain))
  (plv-landxml:dire-lacunes lacunes)
  (if (setq lu (plv-terrain-depuis chemin (plv-landxml:releves (apply 'append (plv-cle 'troncons terrain)))))
    (progn
      (setq origine (plv-cle 'origine lu))
      (cons (cons 'lacunes (mapcar '(lambda (l) (list (- (plv-debut l) origine) (- (plv-fin l) origine))) lacunes)) lu))))

(defun plv-landxml-terrain (chemin axe terrain)
  "A ground as plv-lire-terrain gives it; terrain nil for an alignment without one."
  (if terrain
    (plv-landxml:sur-terrain chemin terrain)
    (progn
      (plv-dire (strcat "L'axe " (plv-cle 'nom axe) " n'a pas de terrain: le terrain suit la ligne de projet."))
      (plv-terrain-depuis chemin (plv-landxml:releves (plv-landxml:points-projet (car (plv-cle 'projets axe))))))))

(defun plv-landxml-terrain-par-defaut (chemin / axe)
  (if (setq axe (plv-landxml-premier-axe chemin))
    (plv-landxml-terrain chemin axe (car (plv-landxml-terrains axe)))))

(defun plv-lire-terrain (chemin)
  "The ground of a file of any kind, see plv-terrain; nil after a message."
  (cond
    ((plv-landxml-p chemin) (plv-landxml-terrain-par-defaut chemin))
    ((plv-refus-de-surface chemin) (plv-erreur (plv-refus-de-surface chemin)))
    (T (plv-lire-terrain-texte chemin))))

(defun plv-landxml-demander-terrain (axe / chemin)
  "For an alignment without ground: the ground of another file, or of the project line."
  (setq chemin (plv-demander-texte "L'axe n'a pas de terrain. Fichier du terrain naturel" "suivre le projet"))
  (cond
    ((= chemin "suivre le projet") (plv-landxml-terrain chemin axe nil))
    ((setq chemin (plv-fichier-existant chemin)) (plv-lire-terrain chemin))))

;; --- all that a file gives

(defun plv-landxml-terrains-nommes (chemin)
  "(name axis ground) each; ground nil where an alignment has none and its first project line stands for it. nil after a message."
  (apply 'append (mapcar 'plv-landxml:terrains-de (plv-landxml:axes-utiles chemin (plv-landxml chemin)))))

(defun plv-landxml:terrains-de (axe)
  (if (plv-cle 'terrains axe)
    (mapcar '(lambda (terrain) (list (strcat (plv-cle 'nom axe) " / " (plv-cle 'nom terrain)) axe terrain)) (plv-landxml-terrains axe))
    (list (list (strcat (plv-cle 'nom axe) " / suivre le projet") axe nil))))

(defun plv-landxml-choisir-un-terrain (chemin / terrains choisi)
  "The ground of a file, asked for where there are several; nil after a message."
  (setq terrains (plv-landxml-terrains-nommes chemin))
  (if (setq choisi (plv-landxml:choisir "Numéro du terrain" (mapcar 'car terrains) terrains))
    (plv-landxml-terrain chemin (cadr choisi) (caddr choisi))))
