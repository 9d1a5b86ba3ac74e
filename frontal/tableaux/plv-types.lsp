;; The kinds of rows that a table may have. Whoever fills rows, spaces points or tells where a row's entities stand asks here;
;; a new kind is a line of this table and a filler.
;; Shared in the room: plv-types:remplisseur plv-types:hors-groupe plv-types:espacement

;; number in the definition file (the place in the system's list of kinds), label,
;; filler: see plv-remplissage,
;; T when its writers, or some of them, leave entities outside the table's group,
;; what tells how far apart its points must stand, see plv-espacement; nil for a row that asks nothing,
;; the sources of its cells, as the room suivi names them
(setq plv-types:table
  '((0 "Numéros" plv-remplir:numeros nil plv-espacement:numeros ("numeros"))
    (1 "Numéros verticaux" plv-remplir:numeros-verticaux nil plv-espacement:verticaux ("numeros"))
    (2 "Distances partielles" plv-remplir:distances-partielles nil plv-espacement:partielles ("distances"))
    (3 "Distances cumulées" plv-remplir:distances-cumulees nil plv-espacement:verticaux ("distances" "origine"))
    (4 "Altitudes du terrain" plv-remplir:altitudes-tn nil plv-espacement:verticaux ("terrain-ecrit"))
    (5 "Altitudes du projet" plv-remplir:altitudes-projet nil plv-espacement:verticaux ("projet-ecrit"))
    (6 "Profondeurs" plv-remplir:profondeurs nil plv-espacement:verticaux ("profondeurs-ecrites"))
    (7 "Tracé en plan" plv-remplir:plan T nil ("tournants"))
    (8 "Observations" plv-remplir:observations nil nil ("noms"))
    (9 "Dévers" plv-remplir:devers T nil ("devers"))
    (10 "Repères" plv-remplir:reperes nil nil ("origine"))
    (11 "Attributs" plv-remplir:attributs nil nil ("attributs"))
    (12 "Pentes et rampes" plv-remplir:pentes T nil ("pentes-ecrites"))
    (13 "Pentes en m/m" plv-remplir:pentes-normales T nil ("pentes-ecrites"))
    (14 "Pentes en %" plv-remplir:pentes-pourcent T nil ("pentes-ecrites"))
    (15 "Pentes en pour mille" plv-remplir:pentes-pourmilles T nil ("pentes-ecrites"))
    (16 "Distances partielles du projet" plv-remplir:partielles-projet nil nil ("bornes-projet"))
    (17 "Distances cumulées du projet" plv-remplir:cumulees-projet nil nil ("bornes-projet" "origine"))
    (500 "Altitudes d'un autre terrain" plv-remplir:altitudes-terrain nil plv-espacement:verticaux ("distances" "terrains"))
    (501 "Différences de deux terrains" plv-remplir:differences-terrains nil plv-espacement:verticaux ("distances" "altitudes" "terrains"))
    (502 "Regards" plv-remplir:regards nil nil ("reseau-ecrit"))
    (503 "Tampons des regards" plv-remplir:tampons nil nil ("reseau-ecrit"))
    (504 "Fils d'eau" plv-remplir:fils-d-eau nil nil ("reseau-ecrit"))
    (505 "Profondeurs des regards" plv-remplir:profondeurs-regards nil nil ("reseau-ecrit"))
    (506 "Couverture du tuyau" plv-remplir:couverture nil plv-espacement:verticaux ("altitudes" "reseau-ecrit"))
    (507 "Tuyaux" plv-remplir:tuyaux nil nil ("reseau-ecrit"))
    (508 "Pentes des tuyaux" plv-remplir:pentes-tuyaux nil nil ("reseau-ecrit"))
    (509 "Longueurs des tuyaux" plv-remplir:longueurs-tuyaux nil nil ("reseau-ecrit"))
    (510 "Sens de l'écoulement" plv-remplir:ecoulement T nil ("reseau-ecrit"))
    (402 "Attributs horizontaux" plv-remplir:attributs-auto T nil ("blocs"))
    (403 "Attributs verticaux" plv-remplir:attributs-auto T nil ("blocs"))))

(defun plv-types:ligne (numero) (assoc numero plv-types:table))
(defun plv-types:remplisseur (numero) (nth 2 (plv-types:ligne numero)))
(defun plv-types:hors-groupe (numero) (nth 3 (plv-types:ligne numero)))
(defun plv-types:espacement (numero) (nth 4 (plv-types:ligne numero)))
(defun plv-sources-de-type (numero) (nth 5 (plv-types:ligne numero)))

(defun plv-types-libelles () (mapcar 'cadr plv-types:table))
(defun plv-type-libelle (numero) (cond ((cadr (plv-types:ligne numero))) ("")))
(defun plv-type-de-libelle (libelle)
  "The number of a kind by its label; nil for none."
  (car (car (vl-member-if '(lambda (l) (= (cadr l) libelle)) plv-types:table))))
