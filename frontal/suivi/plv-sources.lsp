;; The sources of what is derived of a profile. Each has a name, which stands in the drawing, the words by which users know it, and a
;; function (profile fact) that gives its values: lists of numbers, texts and entities. Two fingerprints of a source are equal while
;; nothing of it changes that a thing shows; a source without values is one of which nothing can be known now.
;; Shared in the room: plv-sources:*

(setq plv-sources:table
  '(("echelle" "l'échelle verticale" plv-sources:echelle)
    ("origine" "la première station" plv-sources:origine)
    ("longueur" "la longueur du profil" plv-sources:longueur)
    ("definition" "le fichier de définition" plv-sources:definition)
    ("distances" "les points du terrain" plv-sources:distances)
    ("altitudes" "le terrain naturel" plv-sources:altitudes)
    ("numeros" "les points du terrain" plv-sources:numeros)
    ("noms" "les noms des points" plv-sources:noms)
    ("terrain" "le terrain naturel" plv-sources:terrain)
    ("terrains" "les autres terrains" plv-sources:terrains)
    ("releve" "le levé" plv-sources:releve)
    ("traits" "des traits du terrain ont été déplacés ou effacés" plv-sources:traits)
    ("terrain-ecrit" "le terrain naturel" plv-sources:cellules)
    ("projet-ecrit" "la ligne de projet" plv-sources:cellules)
    ("profondeurs-ecrites" "le terrain ou la ligne de projet" plv-sources:cellules)
    ("pentes-ecrites" "la ligne de projet" plv-sources:pentes-ecrites)
    ("bornes-projet" "la ligne de projet" plv-sources:bornes-projet)
    ("projets" "les lignes de projet" plv-sources:projets)
    ("projet" "la ligne de projet" plv-sources:projet)
    ("fleches" "la ligne de projet" plv-sources:fleches)
    ("attributs" "les blocs posés" plv-sources:attributs)
    ("blocs" "les blocs posés" plv-sources:blocs)
    ("blocs-portes" "les blocs posés" plv-sources:blocs-portes)
    ("axe" "l'axe en plan" plv-sources:axe)
    ("tournants" "l'axe en plan" plv-sources:tournants)
    ("devers" "les dévers" plv-sources:devers)
    ("plans" "les plans de comparaison" plv-sources:plans)
    ("courbe" "la courbe" plv-sources:courbe)
    ("sol-courbe" "le terrain naturel" plv-sources:sol-courbe)
    ("voisines" "les courbes cotées à côté" plv-sources:voisines)
    ("lignes" "la ligne mesurée" plv-sources:lignes)
    ("contours" "la ligne mesurée" plv-sources:contours)
    ("arcs-lignes" "la ligne mesurée" plv-sources:arcs-lignes)
    ("sol-contours" "le terrain naturel" plv-sources:sol-contours)
    ("lignes-jointes" "la ligne mesurée" plv-sources:lignes-jointes)
    ("sol-lignes" "le terrain naturel" plv-sources:sol-lignes)
    ("plans-lignes" "les plans de comparaison" plv-sources:plans-lignes)
    ("reseau" "le réseau, sa ligne ou le terrain" plv-sources:reseau)
    ("reseau-ecrit" "le réseau, sa ligne ou le terrain" plv-sources:reseau-ecrit)
    ("tranchees" "les types de tranchées, ou un sol qu'ils nomment" plv-sources:tranchees)
    ("prix" "les prix" plv-sources:prix)
    ("classes" "les classes de profondeur" plv-sources:classes)
    ("classes-vues" "les classes de profondeur" plv-sources:classes-vues)
    ("fixes" "les éléments fixes" plv-sources:fixes)
    ("numero" "le numéro du profil" plv-sources:numero)
    ("textes" "la hauteur des textes" plv-sources:textes)
    ("style" "le style du dessin" plv-sources:style)
    ("fichier" "le fichier lui-même" plv-sources:fichier)
    ("couleurs" "la table de tracé" plv-sources:couleurs)
    ("reseaux" "les réseaux" plv-sources:reseaux)
    ("dessin" "le dessin du profil" plv-sources:dessin)))

(defun plv-source-en-mots (nom) (cond ((cadr (assoc nom plv-sources:table))) (nom)))

(setq plv-sources:aspects '("dessin"))

;; those that are the same for all things of a profile
(setq plv-sources:du-profil '("echelle" "longueur" "distances" "altitudes" "numeros" "noms" "terrain" "terrains" "releve" "plans" "textes"))

(defun plv-sources:cle (profil fait nom / rangee)
  "What a fingerprint is kept under while readings are kept: rows that show the same share it. nil for one of the thing's own."
  (cond
    ((member nom plv-sources:du-profil) (list nom profil))
    ((and (= (plv-fait-chose fait) "RANGEE") (setq rangee (plv-sources:rangee fait)))
     (list nom profil (plv-rangee-nature rangee) (plv-rangee-decimales rangee) (plv-rangee-infos rangee)))))

(defun plv-source-empreinte (profil fait nom / cle)
  "The fingerprint of a source now; nil when nothing can be known of it."
  (if (setq cle (plv-sources:cle profil fait nom))
    (plv-lire-une-fois cle '(lambda () (plv-sources:empreinte profil fait nom)))
    (plv-sources:empreinte profil fait nom)))

(defun plv-sources:empreinte (profil fait nom / fonction valeurs)
  (if (and (setq fonction (caddr (assoc nom plv-sources:table)))
           (setq valeurs (apply fonction (list profil fait))))
    (et_empreinte valeurs (plv-origine profil) (if (member nom plv-sources:aspects) T))))

;; --- the profile

(defun plv-sources:echelle (profil fait) (list (plv-echv profil)))
(defun plv-sources:origine (profil fait)
  "Of a row without stations the places of its marks, if it has any."
  (if (and (= (plv-fait-chose fait) "RANGEE") (not (plv-suit-origine-p profil (plv-sources:rangee fait))))
    (list (if (= (plv-rangee-nature (plv-sources:rangee fait)) 10) (mapcar 'car (plv-reperes-ecrits profil))))
    (list (plv-premiere-station profil))))

(defun plv-sources:longueur (profil fait) (list (plv-longueur-profil profil)))

(defun plv-sources:numero (profil fait) (list (plv-numero-profil profil)))

(defun plv-sources:textes (profil fait)
  "With what the drawing's style says of texts and tables."
  (cons (plv-ttxt profil) (vl-remove-if-not '(lambda (r) (wcmatch r "texte;*,titres;*,tableau;*")) (plv-rangees-de-style))))

(defun plv-sources:style (profil fait) (plv-rangees-de-style))

(defun plv-sources:plans (profil fait) (plv-plans profil))

(defun plv-sources:terrain (profil fait)
  (list (plv-points-tn profil) (plv-noms-tn profil) (plv-lacunes profil)))

(defun plv-sources:terrains (profil fait) (plv-terrains profil))

(defun plv-sources:releve (profil fait) (list (plv-points-tn profil)))

(defun plv-sources:ecarts (profil) (plv-lire-une-fois (list "traits" profil) '(lambda () (plv-ecarts-terrain profil))))

(defun plv-sources:traits (profil fait)
  "What the ground lines differ in from their record."
  (list (mapcar '(lambda (ecart) (list (cadr ecart) (caddr ecart))) (plv-sources:ecarts profil))))

(defun plv-sources:segments (profil origine / axe)
  "The segments of the axis in plan, their points from an origin."
  (mapcar
    '(lambda (s)
       (list (plv-debut s) (plv-fin s) (mapcar '- (plv-segment-depart s) origine) (mapcar '- (plv-segment-arrivee s) origine) (plv-segment-bulbe s)))
    (if (setq axe (plv-axe-plan profil)) (plv-axe-segments axe))))

(defun plv-sources:premier-point (entite / g)
  (setq g (plv-cle 10 (entget entite)))
  (list (car g) (cadr g)))

(defun plv-sources:axe (profil fait / portees)
  "From the first of the entities that were carried onto it, with which it may be moved."
  (if (setq portees (plv-portes-sur-plan profil))
    (list (plv-sources:segments profil (plv-sources:premier-point (car portees))))))

(defun plv-sources:tournants (profil fait / axe)
  "From its own start: lengths, radii and changes of direction stay wherever it is."
  (list (if (setq axe (plv-axe-plan profil)) (plv-sources:segments profil (plv-segment-depart (car (plv-axe-segments axe)))))))

(defun plv-sources:devers (profil fait) (list (plv-devers-du-profil profil)))

(defun plv-sources:bloc (profil bloc)
  (cons (- (car (plv-origine bloc)) (car (plv-origine profil))) (mapcar '(lambda (a) (list (car a) (cdr a))) (plv-attributs bloc))))

(defun plv-sources:blocs (profil fait)
  (list (mapcar '(lambda (b) (plv-sources:bloc profil b)) (plv-blocs profil))))

(defun plv-sources:blocs-portes (profil fait)
  "With the looks that they have on the axis in plan."
  (list
    (mapcar
      '(lambda (b / g)
         (setq g (entget b))
         (list (plv-cle 2 g) (cond ((plv-cle 41 g)) (1.0)) (cond ((plv-cle 42 g)) (1.0)) (plv-sources:bloc profil b)))
      (plv-blocs profil))))

;; --- tables and their rows

(defun plv-sources:definition (profil fait / chemin)
  "Of a file that isn't there nothing is known: the tables in the drawing say how they are made."
  (if (setq chemin (plv-chemin-definition (cond ((car (plv-fait-reponses fait))) ("")))) (plv-lire-lignes chemin)))

(defun plv-sources:points (profil)
  (plv-lire-une-fois (list "points" profil) '(lambda () (plv-points-cotes profil))))

(defun plv-sources:distances (profil fait) (mapcar 'car (plv-sources:points profil)))
(defun plv-sources:altitudes (profil fait) (mapcar '(lambda (p) (list (car p) (cadr p))) (plv-sources:points profil)))
(defun plv-sources:numeros (profil fait) (mapcar '(lambda (p) (list (car p) (plv-point-numero p))) (plv-sources:points profil)))

(defun plv-sources:noms (profil fait / origine)
  "Those that have room, with the stations that stand beside them."
  (setq origine (plv-premiere-station profil))
  (list (mapcar '(lambda (p) (list (car p) (+ origine (car p)) (plv-point-nom p))) (plv-observations-ecrites profil))))

(defun plv-sources:rangees (reference)
  (plv-lire-une-fois (list "rangees" reference) '(lambda () (plv-matrice-rangees (plv-matrice reference)))))

(defun plv-sources:rangee (fait) (nth (atoi (plv-fait-precision fait)) (plv-sources:rangees (plv-fait-entite fait))))

(defun plv-sources:genre (profil fait)
  "The kind of line whose project a row shows."
  (plv-genre-de-rangee profil (plv-sources:rangee fait)))

(defun plv-sources:cellules (profil fait)
  (list (mapcar '(lambda (c) (list (car (car c)) (cadr c))) (plv-cellules profil (plv-sources:rangee fait) (plv-sources:points profil)))))

(defun plv-sources:pentes-ecrites (profil fait / genre)
  (list
    (if (setq genre (plv-sources:genre profil fait))
      (plv-pentes-ecrites profil genre (plv-rangee-nature (plv-sources:rangee fait))))))

(defun plv-sources:attributs (profil fait) (list (plv-attributs-ecrits profil (plv-sources:rangee fait))))

(defun plv-sources:bornes-projet (profil fait / genre)
  "Where slopes begin and end, as far as the row shows it."
  (list
    (if (setq genre (plv-sources:genre profil fait)) (plv-bornes-ecrites profil genre (plv-rangee-nature (plv-sources:rangee fait))))))

(defun plv-sources:fleches (profil fait)
  "The slopes that are carried onto the plan, as they are written there."
  (list
    (mapcar '(lambda (p) (list (plv-debut p) (plv-fin p) (plv-reel (* 100.0 (plv-pente-valeur p)) 2))) (plv-pentes-portees profil))))

(defun plv-sources:projets (profil fait)
  (list (mapcar '(lambda (genre) (list genre (plv-sources:trace profil genre))) (plv-genres-du-projet profil))))

(defun plv-sources:trace (profil genre)
  (plv-lire-une-fois (list "trace" profil genre) '(lambda () (plv-trace-projet profil genre))))

(defun plv-sources:projet (profil fait) (list (plv-sources:trace profil (plv-fait-genre fait))))

;; --- a curve with its dimensions

(defun plv-sources:courbe (profil fait) (list (plv-fait-entite fait)))

(defun plv-sources:sol-courbe (profil fait / etendue points a b)
  "The ground over the curve, and how high the ground is drawn: the altitudes stand over all of it."
  (setq etendue (plv-etendue-courbe profil (plv-fait-entite fait))
        points (plv-points-tn profil)
        a (max (plv-debut etendue) (caar points)) b (min (plv-fin etendue) (car (plv-dernier points))))
  (list (plv-hauteur-profil profil) (if (< a b) (plv-ligne-entre points a b))))

(defun plv-sources:voisines (profil fait / courbe etendue portee)
  "From where to where the other curves of its kind go whose dimensions stand in the same rows, where they may stand in each other's way."
  (setq courbe (plv-fait-entite fait) etendue (plv-etendue-courbe profil courbe) portee (* 8.0 (plv-ttxt profil)))
  (list
    (vl-sort
      (vl-remove-if '(lambda (e) (or (> (plv-debut e) (+ (plv-fin etendue) portee)) (< (plv-fin e) (- (plv-debut etendue) portee))))
        (mapcar '(lambda (c) (plv-etendue-courbe profil c)) (vl-remove courbe (plv-courbes-cotees-du-genre profil (plv-genre-de profil courbe)))))
      '(lambda (a b) (< (plv-debut a) (plv-debut b))))))

;; --- files. An update that is undone leaves its files: the drawing then knows of others than those that are there.

(defun plv-sources:fichier (profil fait / chemin)
  (if (setq chemin (findfile (plv-fait-fichier fait))) (list (vl-file-size chemin) (vl-file-systime chemin))))

(defun plv-sources:reseaux (profil fait) (list (plv-genres-de-reseau profil)))

(defun plv-sources:dessin (profil fait) (append (plv-entites-dessinees profil) (plv-legendes-du-profil profil)))

(defun plv-sources:couleurs (profil fait / nom fichier)
  "The plot table by its name and what it says."
  (setq nom (plv-couleurs-des-feuilles) fichier (plv-couleurs-fichier nom))
  (list (strcase nom) (if fichier (plv-lire-lignes fichier))))
