;; What the cells of a table are made from, as values: the points that have cells, what is known there, the project line's slopes.
;; Rows say in plv-types which of them they show.

(defun plv-points-cotes (profil / points)
  "The points that have cells in the tables that are drawn."
  (setq points (plv-points-nommes profil))
  (plv-points-gardes points (plv-contexte profil points (plv-choix-tout profil))))

(defun plv-genre-de-rangee (profil rangee)
  "The kind of line whose project a row shows; nil for none."
  (plv-remplir:genre-projet (list (cons 'profil profil) (cons 'infos (plv-rangee-infos rangee)))))

(defun plv-altitudes-projet (profil genre points / situes plans)
  "Altitudes of a project line at points, nil where it is not."
  (setq situes (plv-elements-situes profil genre) plans (plv-plans profil))
  (mapcar '(lambda (p) (plv-altitude-projet profil situes plans (car p))) points))

(defun plv-pentes-projet (profil genre / situes plans)
  "The slope pieces of a project line, (from to slope radius altitudes): two altitudes say where a straight one is, ten what a curved
one is."
  (setq situes (plv-elements-situes profil genre) plans (plv-plans profil))
  (mapcar
    '(lambda (piece)
       (list (plv-debut piece) (plv-fin piece) (plv-pente-valeur piece)
             (if (plv-pente-droite-p piece) 0.0 (cond ((plv-rayon-de-piece profil piece)) (0.0)))
             (mapcar '(lambda (part) (plv-altitude-projet profil situes plans (+ (plv-debut piece) (* part (plv-longueur piece)))))
               (if (plv-pente-droite-p piece) '(0.0 1.0) '(0.0 0.1 0.2 0.3 0.4 0.5 0.6 0.7 0.8 0.9 1.0)))))
    (plv-elements-de-pente profil genre)))

;; --- what is noted of tables that have been drawn

(defun plv-rangees-de-table (reference / rang faits)
  "The rows of a table, as facts, each by its number from 0."
  (setq rang -1)
  (foreach rangee (plv-matrice-rangees (plv-matrice reference))
    (setq rang (1+ rang) faits (cons (plv-fait "RANGEE" (itoa rang) reference nil) faits)))
  (reverse faits))

(defun plv-tables-faites (profil chemin tout)
  (vl-list*
    (plv-fait "TABLEAUX" nil nil (list chemin (if tout "Tous" "Espaces")))
    (plv-fait "RAPPELS" nil nil nil)
    (apply 'append (mapcar 'plv-rangees-de-table (plv-tables profil)))))
