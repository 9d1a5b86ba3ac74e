;; The form of PLV-TERRAIN: axis and surface in plan, the ground that they give beside it, and the profile that is made of them. What was read is
;; kept while the answers about axis and surface stay the same. The command's other words are choices of the same form, see plv-mnt-fiche-mots.
;; Shared in the room: plv-mnt-fiche:*

;; what a row of sources is, and its word in a request
(setq plv-mnt-fiche:mots '(("Calques" "calques") ("Fichier" "fichier") ("Objets choisis" "objets") ("Altitudes de l'axe" "axe"))
      plv-mnt-fiche:echange "colonnes YX")

(defun plv-mnt-fiche:champs ()
  (append (plv-mnt-fiche:champs-des-mots) (plv-mnt-fiche:champs-de-profil)))

(defun plv-mnt-fiche:champs-de-profil ()
  (list
    '("axe" "Axe" "mot" "Dessin" ("Dessin" "Fichier"))
    '("courbes" "Courbes de l'axe" "objets" nil "LWPOLYLINE,POLYLINE,LINE,ARC,SPLINE,ELLIPSE,CIRCLE")
    '("fichier-axe" "Fichier de l'axe" "lire" "" "Lignes (*.geojson *.gpx *.kml *.shp *.gpkg *.xml);;Tous (*)")
    '("ligne" "Ligne du fichier" "mot" "" nil)
    (plv-champ-nombre "depart" "Station de départ" 0.0 2)
    '("inverse" "En sens inverse" "oui" nil nil)
    (list "sources" "Surface, d'une source ou de plusieurs" "rangees" '(("Calques" "*" ""))
      (list (list "Source" "mot" (mapcar 'car plv-mnt-fiche:mots))
            '("Calques, * permis; fichier ou dossier" "lire" "Surfaces (*.csv *.txt *.tif *.asc *.vrt *.xml *.shp *.gpkg *.geojson);;Tous (*)")
            '("Du fichier" "mot" (""))))
    '("objets" "Points, lignes et faces" "objets" nil "*")
    (list "systeme" "Système du dessin, code EPSG" "texte" (plv-mnt-fiche:systeme-propose) nil)
    (plv-champ-nombre "tolerance" "Écart permis au terrain" 0.01 3)
    '("arete" "Plus longue arête, ou rien" "texte" "" nil)
    (plv-champ-du-dessin "numero" "Numéro du profil" (itoa (plv-identifiant-libre)))
    '("insertion" "Point d'insertion, ou rien" "point" "" nil)
    (plv-champ-nombre "echv" "Échelle verticale" 10.0 2)
    (plv-champ-nombre "ttxt" "Hauteur de texte" 2.5 2)))

(defun plv-mnt-fiche:systeme-propose (/ trouves)
  (cond
    ((plv-mnt-systeme))
    ((and (listp (setq trouves (plv-mnt-systemes-du-dessin))) trouves) (caar trouves))
    ("")))

;; --- answers

(defun plv-mnt-fiche:axe-fichier-p (valeurs) (= (plv-cle "axe" valeurs) "Fichier"))

;; --- the rows of sources: (what where detail)

(defun plv-mnt-fiche:mot (rangee) (cadr (assoc (car rangee) plv-mnt-fiche:mots)))

(defun plv-mnt-fiche:chemin (rangee)
  "The file or folder of a row; nil where there is none."
  (if (= (plv-mnt-fiche:mot rangee) "fichier")
    (cond ((findfile (cadr rangee))) ((vl-file-directory-p (cadr rangee)) (cadr rangee)))))

(defun plv-mnt-fiche:nature (rangee / chemin)
  "What its file is, see et_fichier; nil without one, or for a folder."
  (if (and (setq chemin (plv-mnt-fiche:chemin rangee)) (not (vl-file-directory-p chemin))) (et_fichier chemin)))

(defun plv-mnt-fiche:details (rangee / nature)
  "The words that say what is taken of a file."
  (setq nature (plv-mnt-fiche:nature rangee))
  (cond
    ((equal nature '("points")) (list plv-mnt-fiche:echange))
    ((and (listp nature) (= (car nature) "landxml") (listp (et_surfaces (plv-mnt-fiche:chemin rangee)))) (et_surfaces (plv-mnt-fiche:chemin rangee)))))

(defun plv-mnt-fiche:mots-du-fichier (rangee / details)
  "The words behind the file in a request."
  (setq details (plv-mnt-fiche:details rangee))
  (cond
    ((equal details (list plv-mnt-fiche:echange)) (if (= (caddr rangee) plv-mnt-fiche:echange) '("echanger")))
    (details (list (strcat "surface:" (if (= (caddr rangee) "") (car details) (caddr rangee)))))))

(defun plv-mnt-fiche:source (rangee objets / mot)
  "A row as a request has it."
  (setq mot (plv-mnt-fiche:mot rangee))
  (cond
    ((= mot "calques") (list "calques" (cadr rangee)))
    ((= mot "fichier") (vl-list* "fichier" (plv-mnt-fiche:chemin rangee) (plv-mnt-fiche:mots-du-fichier rangee)))
    ((= mot "objets") (cons "objets" objets))
    ('("axe"))))

(defun plv-mnt-fiche:faute-source (rangee objets / mot)
  (setq mot (plv-mnt-fiche:mot rangee))
  (cond
    ((not mot) "une source de la liste est attendue")
    ((and (member mot '("calques" "fichier")) (= (cadr rangee) "")) (if (= mot "calques") "des calques sont attendus" "un fichier est attendu"))
    ((and (= mot "fichier") (not (plv-mnt-fiche:chemin rangee))) (strcat "fichier introuvable: " (cadr rangee)))
    ((and (= mot "objets") (not objets)) "les objets sont à choisir dans le dessin")
    ((and (/= (caddr rangee) "") (not (member (caddr rangee) (plv-mnt-fiche:details rangee))))
     (strcat (caddr rangee) " n'est pas de ce fichier"))))

(defun plv-mnt-fiche:faute-sources (rangees objets / numero faute)
  "The first fault, with its row; nil for none."
  (setq numero 0)
  (foreach r rangees
    (setq numero (1+ numero))
    (if (and (not faute) (setq faute (plv-mnt-fiche:faute-source r objets))) (setq faute (strcat "rangée " (itoa numero) ": " faute))))
  (cond (faute) ((not rangees) "une source au moins est attendue")))

(defun plv-mnt-fiche:de-mot-p (valeurs mot) (vl-some '(lambda (r) (= (plv-mnt-fiche:mot r) mot)) (plv-cle "sources" valeurs)))

(defun plv-mnt-fiche:lignes (valeurs / chemin)
  "The lines of the file of the axis; a text for what is wrong with it, nil without one."
  (if (and (plv-mnt-fiche:axe-fichier-p valeurs) (setq chemin (plv-fiche-fichier valeurs "fichier-axe")) (findfile chemin))
    (et_axes_fichier chemin (plv-mnt-systeme))))

(defun plv-mnt-fiche:axe (valeurs lignes / rang)
  "The axis as a request has it; nil without one."
  (cond
    ((not (plv-mnt-fiche:axe-fichier-p valeurs)) (plv-fiche-objets valeurs "courbes"))
    ((and (listp lignes) lignes)
     (setq rang (cond ((vl-position (plv-cle "ligne" valeurs) (mapcar 'car lignes))) (0)))
     (list 'fichier-axe (plv-fiche-fichier valeurs "fichier-axe") rang))))

(defun plv-mnt-fiche:sources (valeurs)
  (mapcar '(lambda (r) (plv-mnt-fiche:source r (plv-fiche-objets valeurs "objets"))) (plv-cle "sources" valeurs)))

(defun plv-mnt-fiche:options (valeurs)
  (append
    (list (cons 'tolerance (cond ((plv-fiche-nombre valeurs "tolerance")) (0.01))))
    (if (plv-fiche-nombre valeurs "arete") (list (cons 'arete (plv-fiche-nombre valeurs "arete"))))))

(defun plv-mnt-fiche:fautes-surface (valeurs / faute)
  (append
    (if (setq faute (plv-mnt-fiche:faute-sources (plv-cle "sources" valeurs) (plv-fiche-objets valeurs "objets"))) (list (list "sources" faute)))
    (if (and (/= (plv-cle "arete" valeurs) "") (not (plv-fiche-nombre valeurs "arete"))) '(("arete" "un nombre est attendu")))))

(defun plv-mnt-fiche:fautes (valeurs lignes axe)
  (append
    (cond
      ((= (type lignes) 'STR) (list (list "fichier-axe" lignes)))
      ((not axe) (list (if (plv-mnt-fiche:axe-fichier-p valeurs) '("fichier-axe" "un fichier est attendu") '("courbes" "des courbes du dessin sont attendues")))))
    (plv-mnt-fiche:fautes-surface valeurs)
    (if (plv-profil-de-numero (plv-cle "numero" valeurs)) '(("numero" "le dessin a déjà un profil de ce numéro")))))

(defun plv-mnt-fiche:caches (valeurs)
  (append
    (if (plv-mnt-fiche:axe-fichier-p valeurs) '("courbes") '("fichier-axe" "ligne"))
    (if (not (plv-mnt-fiche:de-mot-p valeurs "objets")) '("objets"))
    (if (or (plv-mnt-systeme) (not (plv-mnt-fiche:geo-p valeurs))) '("systeme"))))

(defun plv-mnt-fiche:geo-p (valeurs / chemin)
  "Whether a file tells its coordinate system."
  (vl-some '(lambda (nature) (and (listp nature) (cdr nature)))
    (append
      (if (and (plv-mnt-fiche:axe-fichier-p valeurs) (setq chemin (plv-fiche-fichier valeurs "fichier-axe")) (findfile chemin)) (list (et_fichier chemin)))
      (mapcar 'plv-mnt-fiche:nature (plv-cle "sources" valeurs)))))

(defun plv-mnt-fiche:code (valeurs / trouve)
  "The code that was typed, when it is one; nil for none."
  (if (and (/= (plv-cle "systeme" valeurs) "") (listp (setq trouve (et_systemes (plv-mnt-code (plv-cle "systeme" valeurs)))))) (car (car trouve))))

;; --- the look

(setq plv-mnt-fiche:lu nil plv-mnt-fiche:montres 4000)

(defun plv-mnt-fiche:lire (demande / cle)
  "(ground complaint triangles) of a request."
  (setq cle (list demande (plv-mnt-systeme)))
  (if (not (equal cle (car plv-mnt-fiche:lu)))
    (setq plv-mnt-fiche:lu (cons cle (append (plv-essayer 'plv-mnt-lire (list demande)) (list (plv-mnt-fiche:triangles demande))))))
  (cdr plv-mnt-fiche:lu))

(defun plv-mnt-fiche:triangles (demande / sources triangles)
  (setq sources (car (plv-essayer 'plv-mnt-sources (list demande))))
  (if sources (setq triangles (et_triangles sources (plv-mnt-options demande) plv-mnt-fiche:montres)))
  (if (listp triangles) triangles))

(defun plv-mnt-fiche:plan (lu axe)
  (plv-image-plan "en plan"
    (append
      (plv-image-traits "surface" (mapcar '(lambda (tri) (mapcar '(lambda (p) (list (car p) (cadr p))) (append tri (list (car tri))))) (caddr lu)))
      (if axe (plv-image-traits "axe" (list (plv-mnt-fiche:points axe)))))))

(defun plv-mnt-fiche:points (axe)
  "An axis as points; an arc by its middle too."
  (append
    (apply 'append
      (mapcar
        '(lambda (a b / bulbe)
           (setq bulbe (* 0.5 (cadddr a)))
           (list (list (car a) (cadr a))
                 (list (+ (* 0.5 (+ (car a) (car b))) (* bulbe (- (cadr b) (cadr a)))) (- (* 0.5 (+ (cadr a) (cadr b))) (* bulbe (- (car b) (car a)))))))
        axe (cdr axe)))
    (list (plv-premiers (plv-dernier axe) 2))))

(defun plv-mnt-fiche:coupe (terrain)
  (list "profil" "profil" (plv-image-traits "terrain" (list (mapcar '(lambda (p) (list (car p) (cadr p))) (plv-cle 'points terrain)))) (plv-cle 'origine terrain)))

(defun plv-mnt-fiche:dire (terrain)
  (list
    (strcat (plv-compte (length (plv-cle 'points terrain)) "point") " de la station " (plv-reel (plv-cle 'origine terrain) 2) " à "
            (plv-reel (+ (plv-cle 'origine terrain) (car (plv-dernier (plv-cle 'points terrain)))) 2)
            (if (plv-cle 'lacunes terrain) (strcat ", " (plv-compte (length (plv-cle 'lacunes terrain)) "lacune")) "") ".")))

(defun plv-mnt-fiche:demande (valeurs lignes)
  (plv-mnt-demande (plv-mnt-fiche:axe valeurs lignes) (plv-cle "inverse" valeurs) (plv-fiche-nombre valeurs "depart")
    (plv-mnt-fiche:sources valeurs) (plv-mnt-fiche:options valeurs)))

(defun plv-mnt-fiche:regarder (valeurs / plv-mnt-systeme-essaye)
  (setq plv-mnt-systeme-essaye (plv-mnt-fiche:code valeurs))
  (if (plv-mnt-fiche:nouveau-p valeurs) (plv-mnt-fiche:regarder-profil valeurs) (plv-mnt-fiche:regarder-mot valeurs)))

(defun plv-mnt-fiche:regarder-profil (valeurs / lignes fautes lu axe)
  (setq lignes (plv-mnt-fiche:lignes valeurs)
        axe (plv-mnt-fiche:axe valeurs lignes)
        fautes (plv-mnt-fiche:fautes valeurs lignes axe))
  (if (and (not fautes) (plv-fiche-nombre valeurs "depart"))
    (setq lu (plv-mnt-fiche:lire (plv-mnt-fiche:demande valeurs lignes)) axe (plv-cle 'axe (car lu))))
  (plv-regard
    (cond (fautes) ((and lu (not (car lu))) (list (list "sources" (cond ((cadr lu)) ("cette surface ne peut pas être lue"))))))
    (if (car lu) (list (plv-mnt-fiche:plan lu axe) (plv-mnt-fiche:coupe (car lu))))
    (if (car lu) (plv-mnt-fiche:dire (car lu)))
    (append (plv-mnt-fiche:caches valeurs) (plv-mnt-fiche:caches-des-mots valeurs))
    (cons (cons "ligne" (if (listp lignes) (mapcar 'car lignes))) (plv-mnt-fiche:choix-sources valeurs))))

(defun plv-mnt-fiche:choix-sources (valeurs)
  (list (list "sources" (vl-list* 2 "" (plv-uniques (apply 'append (mapcar 'plv-mnt-fiche:details (plv-cle "sources" valeurs))))))))

;; --- doing

(defun plv-mnt-fiche:place (valeurs demande / axe)
  "Where the profile stands: as it was typed, else out of the axis's way."
  (cond
    ((plv-fiche-point valeurs "insertion"))
    ((and (setq axe (car (plv-essayer 'plv-mnt-axe (list demande)))) (setq axe (plv-mnt-insertion axe))) axe)
    ('(0.0 0.0 0.0))))

(defun plv-mnt-fiche:faire (valeurs / code)
  (if (and (not (plv-mnt-systeme)) (plv-mnt-fiche:geo-p valeurs) (setq code (plv-mnt-fiche:code valeurs))) (plv-mnt-ecrire-systeme code))
  (if (plv-mnt-fiche:nouveau-p valeurs) (plv-mnt-fiche:faire-profil valeurs) (plv-mnt-fiche:faire-mot valeurs)))

(defun plv-mnt-fiche:faire-profil (valeurs / demande)
  (setq demande (plv-mnt-fiche:demande valeurs (plv-mnt-fiche:lignes valeurs)))
  (plv-mnt-profil demande (plv-cle "numero" valeurs) (plv-mnt-fiche:place valeurs demande) (plv-fiche-nombre valeurs "echv") (plv-fiche-nombre valeurs "ttxt") nil nil))

(plv-declarer-fiche "PLV-TERRAIN" "Terrain d'une surface" "Faire" 'plv-mnt-fiche:champs 'plv-mnt-fiche:regarder 'plv-mnt-fiche:faire)
