;; What the form of PLV-TERRAIN does beside a new profile, as the command's other words do: a line of the table for each.
;; Shared in the room: plv-mnt-fiche:*

(setq plv-mnt-fiche:surface '("sources" "objets" "systeme" "tolerance" "arete")
      plv-mnt-fiche:place-de '("insertion" "echv" "ttxt"))

;; words, fields, look (answers) as (faults pictures texts), do (answers); of a new profile the form itself knows the rest
(setq plv-mnt-fiche:actions
  (list
    (list "Un nouveau profil"
      (append '("axe" "courbes" "fichier-axe" "ligne" "depart" "inverse" "numero") plv-mnt-fiche:surface plv-mnt-fiche:place-de) nil nil)
    (list "Un profil par axe d'un calque" (append '("calque") plv-mnt-fiche:surface plv-mnt-fiche:place-de)
      'plv-mnt-fiche:voir-plusieurs 'plv-mnt-fiche:plusieurs)
    (list "Actualiser un profil" '("profil") 'plv-mnt-fiche:voir-actualiser '(lambda (v) (plv-mnt-actualiser (plv-fiche-profil v))))
    (list "Ajouter un autre terrain" (append '("profil" "role" "nom" "de" "leve" "terrain-du-fichier") plv-mnt-fiche:surface)
      'plv-mnt-fiche:voir-ajout 'plv-mnt-fiche:ajouter)
    (list "Retirer un autre terrain" '("profil" "terrain") 'plv-mnt-fiche:voir-retrait
      '(lambda (v) (plv-mnt-retirer (plv-fiche-profil v) (plv-cle "terrain" v))))
    (list "Nommer ce que l'axe rencontre" '("profil" "calque" "distance") 'plv-mnt-fiche:voir-observations
      '(lambda (v) (plv-mnt-observer (plv-fiche-profil v) (plv-cle "calque" v) (plv-fiche-nombre v "distance"))))
    (list "Voir la surface" plv-mnt-fiche:surface 'plv-mnt-fiche:voir-surface '(lambda (v) (plv-mnt-voir (plv-mnt-fiche:sans-axe v))))
    (list "Contrôler la surface" (append plv-mnt-fiche:surface '("taille")) 'plv-mnt-fiche:voir-surface
      '(lambda (v) (plv-mnt-controler (plv-mnt-fiche:sans-axe v) (plv-fiche-nombre v "taille"))))
    (list "Système de coordonnées" '("systeme") 'plv-mnt-fiche:voir-systeme '(lambda (v) (plv-mnt-ecrire-systeme (plv-mnt-fiche:code v))))))

(defun plv-mnt-fiche:action (valeurs) (cond ((assoc (plv-cle "quoi" valeurs) plv-mnt-fiche:actions)) ((car plv-mnt-fiche:actions))))

(defun plv-mnt-fiche:nouveau-p (valeurs) (eq (plv-mnt-fiche:action valeurs) (car plv-mnt-fiche:actions)))

(defun plv-mnt-fiche:champs-des-mots (/ propose)
  (setq propose (plv-profil-propose))
  (list
    (list "quoi" "Faire" "mot" (caar plv-mnt-fiche:actions) (mapcar 'car plv-mnt-fiche:actions) T)
    (list "profil" "Profil" "profil" (if propose (plv-numero-profil propose) "") (mapcar 'plv-numero-profil (plv-profils)))
    '("calque" "Calques, * permis" "texte" "*" nil)
    (list "role" "Rôle" "mot" "Rocher" (plv-roles-terrain))
    '("nom" "Nom du terrain, ou rien pour son rôle" "texte" "" nil T)
    '("de" "Le lire de" "mot" "Surface" ("Surface" "Fichier"))
    '("leve" "Fichier du terrain" "lire" "" "Levés (*.csv *.txt *.xml);;Tous (*)")
    (plv-champ-landxml "terrain-du-fichier" "Axe et terrain du fichier")
    '("terrain" "Terrain" "mot" "" nil T)
    (plv-champ-nombre "distance" "Blocs et textes à cette distance de l'axe au plus" 2.0 2)
    (plv-champ-nombre "taille" "Taille des marques" 1.0 2)))

;; --- which fields matter

(defun plv-mnt-fiche:caches-des-mots (valeurs / vus)
  (setq vus (cons "quoi" (cadr (plv-mnt-fiche:action valeurs))))
  (vl-remove-if '(lambda (cle) (member cle vus))
    (mapcar 'car (append (plv-mnt-fiche:champs-des-mots) (plv-mnt-fiche:champs-de-profil)))))

(defun plv-mnt-fiche:lu-de-fichier-p (valeurs) (and (member "de" (cadr (plv-mnt-fiche:action valeurs))) (= (plv-cle "de" valeurs) "Fichier")))

(defun plv-mnt-fiche:caches-du-mot (valeurs)
  (append
    (plv-mnt-fiche:caches-des-mots valeurs)
    (if (not (plv-mnt-fiche:de-mot-p valeurs "objets")) '("objets"))
    (if (and (member "sources" (cadr (plv-mnt-fiche:action valeurs))) (or (plv-mnt-systeme) (not (plv-mnt-fiche:geo-p valeurs)))) '("systeme"))
    (cond
      ((plv-mnt-fiche:lu-de-fichier-p valeurs)
       (append plv-mnt-fiche:surface (if (not (cdr (plv-mnt-fiche:terrains-du-fichier valeurs))) '("terrain-du-fichier"))))
      ((member "de" (cadr (plv-mnt-fiche:action valeurs))) '("leve" "terrain-du-fichier")))))

;; --- the looks

(defun plv-mnt-fiche:regarder-mot (valeurs / vu profil)
  (setq vu (if (and (member "profil" (cadr (plv-mnt-fiche:action valeurs))) (not (plv-fiche-profil valeurs)))
             (list (list (list "profil" (plv-refus-sans-profil))))
             (apply (caddr (plv-mnt-fiche:action valeurs)) (list valeurs)))
        profil (plv-fiche-profil valeurs))
  (plv-regard (car vu) (cadr vu) (caddr vu) (plv-mnt-fiche:caches-du-mot valeurs)
    (append (plv-mnt-fiche:choix-sources valeurs)
      (list (cons "terrain-du-fichier" (mapcar 'car (plv-mnt-fiche:terrains-du-fichier valeurs))))
      (if profil (list (cons "terrain" (mapcar 'plv-terrain-nom (plv-terrains profil))))))))

(defun plv-mnt-fiche:sans-axe (valeurs)
  (plv-mnt-demande nil nil 0.0 (plv-mnt-fiche:sources valeurs) (plv-mnt-fiche:options valeurs)))

(defun plv-mnt-fiche:voir-surface (valeurs / fautes triangles)
  "The triangles in plan, and axes over them."
  (if (not (setq fautes (plv-mnt-fiche:fautes-surface valeurs)))
    (setq triangles (plv-mnt-fiche:triangles (plv-mnt-fiche:sans-axe valeurs))))
  (list
    (cond (fautes) ((not triangles) '(("sources" "cette source n'a pas de triangles"))))
    (if triangles (list (plv-mnt-fiche:plan (list nil nil triangles) nil)))
    (if triangles (list (strcat (plv-compte (length triangles) "triangle") (if (< (length triangles) plv-mnt-fiche:montres) "." " au moins."))))))

(defun plv-mnt-fiche:voir-plusieurs (valeurs / vu axes)
  (setq vu (plv-mnt-fiche:voir-surface valeurs) axes (plv-mnt:axes-du-calque (plv-cle "calque" valeurs)))
  (list
    (append (if (not axes) '(("calque" "aucune courbe sur ce calque"))) (vl-remove-if '(lambda (f) (wcmatch (cadr f) "*pas de triangles")) (car vu)))
    (cadr vu)
    (cons (strcat (plv-compte (length axes) "axe") " sur ce calque.") (caddr vu))))

(defun plv-mnt-fiche:image (profil lignes)
  (list (plv-image-profil profil (append (plv-traits-profil profil) (plv-image-traits "projet" lignes)))))

(defun plv-mnt-fiche:voir-actualiser (valeurs / profil)
  (setq profil (plv-fiche-profil valeurs))
  (list (if (not (plv-mnt-actualisable-p profil)) '(("profil" "ce profil ne vient pas d'une surface")))
        (plv-mnt-fiche:image profil nil) nil))

(defun plv-mnt-fiche:terrains-du-fichier (valeurs)
  "Those of a LandXML file, one of which is chosen when there are several."
  (if (plv-mnt-fiche:lu-de-fichier-p valeurs) (car (plv-essayer 'plv-fiche-terrains (list valeurs "leve")))))

(defun plv-mnt-fiche:morceaux-du-fichier (valeurs profil)
  (plv-mnt-morceaux-de-fichier profil (plv-fiche-lire-terrain valeurs "leve" "terrain-du-fichier")))

(defun plv-mnt-fiche:terrain-lu (valeurs profil)
  "((pieces) complaint) of the ground that is to be added."
  (plv-essayer
    '(lambda ()
       (if (plv-mnt-fiche:lu-de-fichier-p valeurs)
         (plv-mnt-fiche:morceaux-du-fichier valeurs profil)
         (plv-mnt-morceaux-de-surface profil (plv-mnt-fiche:pour-ajout valeurs))))
    nil))

(defun plv-mnt-fiche:pour-ajout (valeurs) (cons (cons 'sources (plv-mnt-fiche:sources valeurs)) (plv-mnt-fiche:options valeurs)))

(defun plv-mnt-fiche:nom (valeurs) (if (= (plv-cle "nom" valeurs) "") (plv-cle "role" valeurs) (plv-cle "nom" valeurs)))

(defun plv-mnt-fiche:voir-ajout (valeurs / profil fautes lu)
  (setq profil (plv-fiche-profil valeurs)
        fautes (append
                 (if (plv-mnt:refus-nom (plv-mnt-fiche:nom valeurs)) (list (list "nom" (plv-mnt:refus-nom (plv-mnt-fiche:nom valeurs)))))
                 (cond
                   ((not (plv-mnt-fiche:lu-de-fichier-p valeurs)) (plv-mnt-fiche:fautes-surface valeurs))
                   ((not (plv-fiche-fichier valeurs "leve")) '(("leve" "un fichier est attendu"))))))
  (if (not fautes) (setq lu (plv-mnt-fiche:terrain-lu valeurs profil)))
  (list
    (cond
      (fautes)
      ((not (car lu)) (list (list (if (plv-mnt-fiche:lu-de-fichier-p valeurs) "leve" "sources") (cond ((cadr lu)) ("ce terrain n'est nulle part sur le profil"))))))
    (plv-mnt-fiche:image profil (mapcar '(lambda (m) (mapcar '(lambda (p) (list (car p) (cadr p))) m)) (car lu)))
    nil))

(defun plv-mnt-fiche:ajouter (valeurs / profil nom role)
  (setq profil (plv-fiche-profil valeurs) nom (plv-mnt-fiche:nom valeurs) role (plv-cle "role" valeurs))
  (if (plv-mnt-fiche:lu-de-fichier-p valeurs)
    (plv-prendre-fichier "leve" (plv-fiche-fichier valeurs "leve")
      (plv-mnt-ajouter profil nom role (plv-mnt-fiche:morceaux-du-fichier valeurs profil)))
    (plv-mnt-ajouter-surface profil nom role (plv-mnt-fiche:pour-ajout valeurs))))

(defun plv-mnt-fiche:voir-retrait (valeurs / profil terrain)
  (setq profil (plv-fiche-profil valeurs) terrain (plv-terrain-nomme profil (plv-cle "terrain" valeurs)))
  (list
    (cond
      ((not (plv-terrains profil)) '(("profil" "ce profil n'a pas d'autre terrain")))
      ((not terrain) '(("terrain" "un terrain de la liste est attendu"))))
    (plv-mnt-fiche:image profil (if terrain (plv-terrain-morceaux terrain)))
    nil))

(defun plv-mnt-fiche:voir-observations (valeurs / profil rencontres)
  (setq profil (plv-fiche-profil valeurs)
        rencontres (if (plv-axe-plan profil) (plv-mnt:rencontres profil (plv-cle "calque" valeurs) (cond ((plv-fiche-nombre valeurs "distance")) (0.0)))))
  (list
    (cond
      ((not (plv-axe-plan profil)) '(("profil" "ce profil n'a pas d'axe en plan: PLV-AXE lui en donne un")))
      ((not rencontres) '(("calque" "l'axe ne rencontre rien sur ces calques"))))
    (plv-mnt-fiche:image profil nil)
    (mapcar '(lambda (r) (strcat (cadr r) " à " (plv-reel (+ (plv-premiere-station profil) (car r)) 2))) (plv-premiers rencontres 8))))

(defun plv-mnt-fiche:voir-systeme (valeurs / code)
  (setq code (plv-mnt-fiche:code valeurs))
  (list (if (not code) '(("systeme" "un code EPSG connu est attendu, 2154 par exemple"))) nil
        (if code (list (strcat (plv-mnt:ligne-systeme (car (et_systemes code))) ".")))))

;; --- doing

(defun plv-mnt-fiche:plusieurs (valeurs / ttxt)
  (setq ttxt (plv-fiche-nombre valeurs "ttxt"))
  (plv-mnt-plusieurs (plv-cle "calque" valeurs) (plv-mnt-fiche:sans-axe valeurs)
    (cond ((plv-fiche-point valeurs "insertion")) ((plv-mnt-insertion nil)) ('(0.0 0.0 0.0)))
    (plv-fiche-nombre valeurs "echv") ttxt (* 60.0 ttxt)))

(defun plv-mnt-fiche:faire-mot (valeurs) (apply (cadddr (plv-mnt-fiche:action valeurs)) (list valeurs)))
