;; What is derived of a profile: tables with their rows, dimensions, hatches, legends, what is carried onto the plan, files. The table has
;; a line for each kind; who tells the state, makes anew or registers walks it. A new kind is a line here, the functions it names, and
;; one call of plv-noter-fait where it is made.
;; Shared in the room: plv-choses:*

;; kind, in the order in which they are made anew;
;; its words (profile fact); from what: names of sources, or a function (profile fact) that gives them;
;; its entities (profile fact), nil when it isn't there; those that are there (profile), as facts without sources, nil for files;
;; why it can't be made anew (profile fact), nil for no reason;
;; how anew (profile facts): all stale ones of a kind at once;
;; how what a hand has done is kept: before, (profile facts) gives the facts to make anew and gestures; after, (profile gestures) does them
;; again and gives in words what it could not. nil for a kind of which nothing is kept;
;; what may have changed without a thing coming out otherwise: (names of sources, a function (profile fact) that tells whether it would come
;; out as it is). nil for a kind that always does when a source has changed
(setq plv-choses:table
  '(("TERRAIN" plv-choses:mots-terrain ("releve" "traits")
     plv-choses:traits plv-choses:terrain nil plv-refaire-terrain nil)
    ("TABLEAUX" plv-choses:mots-tableaux ("definition" "textes" "longueur")
     plv-choses:references plv-choses:tableaux nil plv-refaire-tableaux (plv-lever-tableaux plv-remettre-tables))
    ("RAPPELS" plv-choses:mots-rappels ("distances" "altitudes" "plans" "echelle")
     plv-choses:rappels nil nil plv-refaire-rappels nil)
    ("RANGEE" plv-choses:mots-rangee plv-choses:sources-rangee
     plv-choses:reference nil nil plv-refaire-rangees (plv-lever-rangees plv-remettre-tables))
    ("COTES" plv-choses:mots-cotes ("echelle" "textes" "plans" "courbe" "sol-courbe" "voisines")
     plv-choses:textes plv-choses:cotes nil plv-refaire-cotes (plv-lever-cotes plv-remettre-cotes)
     (("echelle" "plans" "courbe" "sol-courbe" "voisines") plv-cotes-tenues-p))
    ("HABILLAGE" plv-choses:mots-habillage ("style" "echelle" "textes" "plans" "origine" "terrain" "terrains" "projets" "blocs" "reseaux")
     plv-choses:habillage nil nil plv-refaire-habillages nil)
    ("TRANCHEES" plv-choses:mots-tranchees ("echelle" "plans" "textes" "reseau" "tranchees")
     plv-choses:tranchees nil plv-choses:sans-reseau plv-refaire-tranchees nil)
    ("RESEAU" plv-choses:mots-reseau ("echelle" "textes" "plans" "reseau")
     plv-choses:reseau nil nil plv-refaire-reseaux nil)
    ("COUPES" plv-choses:mots-coupes ("echelle" "textes" "reseau" "tranchees")
     plv-choses:coupes nil plv-choses:sans-reseau plv-refaire-coupes nil)
    ("HACHURES" plv-choses:mots-hachures ("classes-vues" "contours" "arcs-lignes" "sol-contours" "plans-lignes")
     plv-choses:surfaces plv-choses:hachures plv-choses:sans-ligne plv-refaire-hachures nil)
    ("LEGENDE" plv-choses:mots-legende ("numero" "textes" "classes" "lignes-jointes" "arcs-lignes" "sol-lignes")
     plv-choses:blocs plv-choses:legendes plv-choses:sans-ligne plv-refaire-legendes nil
     (("classes" "classes-vues" "lignes-jointes" "arcs-lignes" "sol-lignes") plv-legende-tenue-p))
    ("PLAN" plv-choses:mots-plan ("axe" "fleches" "blocs-portes" "textes")
     plv-choses:portees plv-choses:plan plv-choses:sans-axe plv-refaire-plan nil)
    ("CLASSEUR" plv-choses:mots-classeur ("fichier" "numero" "origine" "classes" "lignes" "arcs-lignes" "sol-lignes" "fixes")
     plv-choses:du-fichier nil plv-choses:sans-ligne plv-refaire-classeurs nil)
    ("BORDEREAU" plv-choses:mots-bordereau ("fichier" "numero" "reseau" "tranchees" "prix")
     plv-choses:du-fichier nil plv-choses:sans-reseau plv-refaire-bordereaux nil)
    ("EXPORT" plv-choses:mots-export plv-choses:sources-export
     plv-choses:du-fichier nil plv-choses:sans-projet plv-refaire-exports nil)
    ("PAGE" plv-choses:mots-page ("fichier" "numero" "origine" "terrain" "terrains" "plans" "projets" "blocs")
     plv-choses:du-fichier nil nil plv-refaire-pages nil)
    ("FEUILLES" plv-choses:mots-feuilles ("fichier" "numero" "dessin" "couleurs")
     plv-choses:du-fichier nil nil plv-refaire-feuilles nil)))

;; the kinds whose making changes nothing of which other things are made
(setq plv-choses-sans-lecteur '("RAPPELS" "RANGEE"))

(setq plv-choses-fichiers '("CLASSEUR" "BORDEREAU" "EXPORT" "PAGE" "FEUILLES"))

(defun plv-chose-fichier-p (fait) (member (plv-fait-chose fait) plv-choses-fichiers))

(defun plv-choses:ligne (fait) (assoc (plv-fait-chose fait) plv-choses:table))

(defun plv-choses:appeler (rang profil fait / fonction)
  "What a function of the kind's line gives; nil where it has none."
  (if (setq fonction (nth rang (plv-choses:ligne fait))) (apply fonction (list profil fait))))

(defun plv-choses () "The kinds, in their order." (mapcar 'car plv-choses:table))

(defun plv-chose-en-mots (profil fait) (plv-choses:appeler 1 profil fait))

(defun plv-chose-sources (profil fait / sources)
  "The names of a thing's sources."
  (setq sources (nth 2 (plv-choses:ligne fait)))
  (if (listp sources) sources (apply sources (list profil fait))))

(defun plv-chose-entites (profil fait) (plv-choses:appeler 3 profil fait))

(defun plv-choses-trouvees (profil)
  "Everything that is there, as facts."
  (apply 'append
    (mapcar '(lambda (ligne) (if (nth 4 ligne) (apply (nth 4 ligne) (list profil)))) plv-choses:table)))

(defun plv-chose-refus (profil fait) (plv-choses:appeler 5 profil fait))

(defun plv-chose-refaire (chose) (nth 6 (assoc chose plv-choses:table)))

(defun plv-chose-tenue-p (profil fait changees / essai tenue)
  "Whether a thing would come out as it is, though sources of these names have changed; not where that can't be worked out."
  (setq essai (nth 8 (plv-choses:ligne fait)))
  (if (and essai (vl-every '(lambda (nom) (member nom (car essai))) changees))
    (progn
      (setq tenue (vl-catch-all-apply (cadr essai) (list profil fait)))
      (if (not (vl-catch-all-error-p tenue)) tenue))))

(defun plv-chose-lever (chose) (car (nth 7 (assoc chose plv-choses:table))))
(defun plv-chose-remettre (chose) (cadr (nth 7 (assoc chose plv-choses:table))))

;; --- the ground lines, which are true while they are what their record says

(defun plv-choses:mots-terrain (profil fait) "Terrain dessiné")
(defun plv-choses:traits (profil fait)
  (cond ((vl-remove nil (mapcar 'car (plv-sources:ecarts profil)))) ((plv-entites-plans profil))))

(defun plv-choses:terrain (profil / fait)
  "In drawings that don't say what they were drawn of, they were drawn of the record."
  (setq fait (plv-fait "TERRAIN" nil nil nil))
  (list
    (plv-fait-releve fait (getvar "DATE")
      (list (cons "releve" (plv-source-empreinte profil fait "releve")) (cons "traits" (et_empreinte '(nil)))) (plv-handle profil))))

;; --- tables and rows; a row is known by its table's reference and its number from 0

(defun plv-choses:mots-tableaux (profil fait) "Tableaux")
(defun plv-choses:references (profil fait) (plv-tables profil))
(defun plv-choses:tableaux (profil)
  (if (plv-tables profil) (list (plv-fait "TABLEAUX" nil nil (list "" (if (plv-choix-tout profil) "Tous" "Espaces"))))))

(defun plv-choses:mots-rappels (profil fait) "Lignes de rappel")
(defun plv-choses:rappels (profil fait) (plv-lignes-rappel profil))

(defun plv-choses:rangee (fait) (plv-sources:rangee fait))

(defun plv-choses:mots-rangee (profil fait / rangee)
  (setq rangee (plv-choses:rangee fait))
  (strcat "Rangée " (if (= (plv-rangee-libelle rangee) "") (plv-rangee-nom rangee) (plv-rangee-libelle rangee))))

(defun plv-choses:sources-rangee (profil fait)
  (vl-list* "textes" "longueur" (plv-sources-de-type (plv-rangee-nature (plv-choses:rangee fait)))))

(defun plv-choses:tables-la (profil) (plv-lire-une-fois (list "tables" profil) '(lambda () (plv-tables profil))))

(defun plv-choses:reference (profil fait)
  (if (and (member (plv-fait-entite fait) (plv-choses:tables-la profil)) (plv-choses:rangee fait)) (list (plv-fait-entite fait))))

;; --- dimensions, curve by curve

(defun plv-choses:mots-cotes (profil fait / genre)
  (if (plv-existe (plv-fait-entite fait))
    (strcat "Cotes de " (if (setq genre (plv-genre-de profil (plv-fait-entite fait))) (strcat "la ligne " genre) "la courbe")
            " (" (plv-type (plv-fait-entite fait)) " " (plv-handle (plv-fait-entite fait)) ")")
    "Cotes d'une courbe effacée"))

(defun plv-choses:textes (profil fait / courbe)
  "The dimensions of the curve, or those whose curve is gone."
  (setq courbe (if (plv-existe (plv-fait-entite fait)) (plv-fait-entite fait)))
  (vl-remove-if-not '(lambda (c) (eq (plv-cote-courbe c) courbe)) (plv-cotes-du-profil profil)))

(defun plv-courbes-cotees (profil)
  "The curves that have dimensions, nil among them when one is gone."
  (plv-uniques (mapcar 'plv-cote-courbe (plv-cotes-du-profil profil))))

(defun plv-courbes-cotees-du-genre (profil genre)
  (vl-remove-if-not '(lambda (e) (and e (= (plv-genre-de profil e) genre))) (plv-courbes-cotees profil)))

(defun plv-choses:cotes (profil) (mapcar '(lambda (courbe) (plv-fait "COTES" nil courbe nil)) (plv-courbes-cotees profil)))

(defun plv-chose-orpheline-p (fait)
  "Whether the curve of dimensions is gone."
  (and (= (plv-fait-chose fait) "COTES") (not (plv-existe (plv-fait-entite fait)))))

;; --- what the drawing's style adds to a profile

(defun plv-choses:mots-habillage (profil fait) "Grille, libellés et légende des lignes")
(defun plv-choses:habillage (profil fait) (plv-entites-habillage profil))

;; --- networks

(defun plv-choses:mots-reseau (profil fait) (strcat "Réseau " (plv-fait-genre fait)))
(defun plv-choses:reseau (profil fait) (plv-traces-reseau profil (plv-fait-genre fait)))

(defun plv-choses:mots-tranchees (profil fait) (strcat "Tranchées " (plv-fait-genre fait)))
(defun plv-choses:tranchees (profil fait) (plv-traces-tranchees profil (plv-fait-genre fait)))

(defun plv-choses:mots-coupes (profil fait) (strcat "Coupes de tranchées " (plv-fait-genre fait)))
(defun plv-choses:coupes (profil fait) (plv-traces-coupes profil (plv-fait-genre fait)))

(defun plv-choses:sans-reseau (profil fait)
  (cond
    ((not (plv-reseau-rangees profil (plv-fait-genre fait))) (strcat "il n'y a plus de réseau " (plv-fait-genre fait)))
    ((not (plv-tranchees-regles profil (plv-fait-genre fait))) (strcat "il n'y a plus de règles de tranchées " (plv-fait-genre fait)))))

;; --- quantities

(defun plv-choses:mots-hachures (profil fait) (strcat "Hachures " (plv-fait-genre fait)))
(defun plv-choses:surfaces (profil fait) (plv-hachures-du-profil profil (plv-fait-genre fait)))
(defun plv-choses:hachures (profil)
  (mapcar '(lambda (genre) (plv-fait "HACHURES" genre nil nil))
    (vl-remove-if-not '(lambda (genre) (plv-hachures-du-profil profil genre)) (plv-genres-projet))))

(defun plv-choses:sans-ligne (profil fait)
  (if (not (plv-elements profil (plv-fait-genre fait))) (strcat "il n'y a plus de ligne " (plv-fait-genre fait))))

(defun plv-choses:mots-legende (profil fait) (strcat "Légende " (plv-fait-genre fait)))
(defun plv-choses:blocs (profil fait) (plv-cle (plv-fait-genre fait) (plv-choses:legendes-par-genre profil)))
(defun plv-choses:legendes-par-genre (profil)
  (plv-lire-une-fois (list "legendes" profil) '(lambda () (plv-legendes-par-genre profil))))
(defun plv-choses:legendes (profil)
  (mapcar '(lambda (genre) (plv-fait "LEGENDE" (car genre) nil nil)) (plv-choses:legendes-par-genre profil)))

;; --- the axis in plan

(defun plv-choses:mots-plan (profil fait) "Report sur l'axe en plan")
(defun plv-choses:portees (profil fait) (plv-portes-sur-plan profil))
(defun plv-choses:plan (profil) (if (plv-portes-sur-plan profil) (list (plv-fait "PLAN" nil nil nil))))
(defun plv-choses:sans-axe (profil fait) (if (not (plv-axe-plan profil)) "il n'y a plus d'axe en plan"))

;; --- files. A copied profile has its original's facts, but the files are not made of it.

(defun plv-choses:du-fichier (profil fait)
  (if (and (= (plv-fait-profil fait) (plv-handle profil)) (findfile (plv-fait-fichier fait))) (list profil)))

(defun plv-choses:mots-classeur (profil fait) (strcat "Classeur " (plv-fait-fichier fait)))
(defun plv-choses:mots-bordereau (profil fait) (strcat "Bordereau " (plv-fait-fichier fait)))
(defun plv-choses:mots-export (profil fait) (strcat "Export " (plv-fait-fichier fait)))
(defun plv-choses:mots-page (profil fait) (strcat "Page " (plv-fait-fichier fait)))
(defun plv-choses:mots-feuilles (profil fait) (strcat "Feuilles " (plv-fait-fichier fait)))

(defun plv-choses:sources-export (profil fait / contenu)
  "Of a LandXML file, of a ground file, of the file of a project line, which is named by its kind."
  (setq contenu (plv-fait-genre fait))
  (cond
    ((= contenu "Landxml") '("fichier" "numero" "origine" "terrain" "projets"))
    ((= contenu "Terrain") '("fichier" "origine" "terrain"))
    (T '("fichier" "origine" "projet"))))

(defun plv-choses:sans-projet (profil fait)
  (if (and (plv-genre (plv-fait-genre fait)) (not (plv-elements-du-projet profil (plv-fait-genre fait))))
    (strcat "il n'y a plus de ligne " (plv-fait-genre fait))))
