;; What is asked of a surface: an axis, sources, limits. A request is an association list
;;   (axe entity ...)  curves of the drawing that follow one another, or (fichier-axe "PATH" rank) a line of a file
;;   (inverse . T) against the direction of the first one, or of the line
;;   (depart . station) of the axis's first point
;;   (sources (word value ...) ...)  ("calques" "PATTERNS") ("objets" entity ...) ("fichier" "PATH" word ...) ("axe")
;;   (tolerance . metres) (arete . metres) (pres . metres) (attribut . "TAG") (zero . T) (contour entity ...) (trous entity ...)
;; Layers are looked through each time, so that what is added to them counts.

(defun plv-mnt-demande (axe inverse depart sources options)
  "axe: entities, or a pair (fichier-axe \"PATH\" rank); options: pairs (key . value) as above."
  (append (list (if (eq (car axe) 'fichier-axe) axe (cons 'axe axe)) (cons 'inverse inverse) (cons 'depart (float depart)) (cons 'sources sources)) options))

(defun plv-mnt-avec-axe (demande entites)
  "The request for other curves."
  (cons (cons 'axe entites) (vl-remove-if '(lambda (p) (member (car p) '(axe fichier-axe))) demande)))

(defun plv-mnt:retourner (axe / retour)
  "The axis the other way: each arc belongs to its other end, and turns to the other side."
  (setq retour (reverse axe))
  (append (mapcar '(lambda (s suivant) (list (car s) (cadr s) (caddr s) (- (cadddr suivant)))) retour (cdr retour))
          (list (plv-dernier retour))))

(defun plv-mnt:axe-du-fichier (demande / lignes ligne)
  (setq lignes (et_axes_fichier (plv-fichier-existant (car (plv-cle 'fichier-axe demande))) (plv-mnt-systeme)))
  (cond
    ((not (listp lignes)) lignes)
    ((setq ligne (nth (fix (cadr (plv-cle 'fichier-axe demande))) lignes))
     (if (plv-cle 'inverse demande) (plv-mnt:retourner (cadr ligne)) (cadr ligne)))
    (T (strcat (car (plv-cle 'fichier-axe demande)) ": la ligne de l'axe n'y est plus"))))

(defun plv-mnt-axe (demande / lu)
  "The axis as et_terrain takes it; nil after a message."
  (setq lu (if (plv-cle 'fichier-axe demande)
             (plv-mnt:axe-du-fichier demande)
             (et_axe (plv-mnt:jeu (plv-cle 'axe demande)) (plv-cle 'inverse demande))))
  (cond ((not lu) (plv-erreur "l'axe n'est plus dans le dessin")) ((listp lu) lu) (T (plv-erreur lu))))

;; --- as et_terrain takes them

(defun plv-mnt-filtre (calques)
  "What a selection by layers takes: model space, without what the profiles have drawn."
  (list (cons 8 calques) '(410 . "Model") '(-4 . "<NOT") '(8 . "PLV-*") '(-4 . "NOT>")))

(defun plv-mnt:chemin (nom)
  "A file, or a folder of tiles."
  (if (vl-file-directory-p nom) nom (plv-fichier-existant nom)))

(defun plv-mnt:source (source / jeu entites)
  "The source as et_terrain takes it; nil after a message."
  (cond
    ((= (car source) "calques")
     (if (setq jeu (ssget "X" (plv-mnt-filtre (cadr source))))
       (list "dessin" jeu)
       (plv-erreur (strcat "rien sur les calques " (cadr source)))))
    ((= (car source) "objets")
     (if (setq entites (vl-remove-if-not 'plv-existe (cdr source)))
       (list "dessin" (plv-jeu entites))
       (plv-erreur "les objets de la surface ne sont plus dans le dessin")))
    ((= (car source) "axe") source)
    ((plv-mnt:chemin (cadr source))
     (vl-list* "fichier" (plv-mnt:chemin (cadr source)) (cddr source)))))

(defun plv-mnt-sources (demande / lues)
  (if (not (member nil (setq lues (mapcar 'plv-mnt:source (plv-cle 'sources demande))))) lues))

(defun plv-mnt:jeu (entites) (plv-jeu (vl-remove-if-not 'plv-existe entites)))

(defun plv-mnt-options (demande)
  (append
    (vl-remove nil
      (mapcar '(lambda (cle) (if (plv-cle cle demande) (list (strcase (vl-symbol-name cle) T) (plv-cle cle demande))))
              '(tolerance arete pres attribut zero)))
    (vl-remove nil
      (mapcar '(lambda (cle) (if (plv-cle cle demande) (list (strcase (vl-symbol-name cle) T) (plv-mnt:jeu (plv-cle cle demande)))))
              '(contour trous)))
    (if (plv-mnt-systeme) (list (list "systeme" (plv-mnt-systeme))))
    (if (plv-cle 'axe demande) (list (list "sauf" (plv-mnt:jeu (plv-cle 'axe demande)))))))
