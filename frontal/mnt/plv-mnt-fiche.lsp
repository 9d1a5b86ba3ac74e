;; The form of PLV-TERRAIN: axis and surface in plan, the ground that they give beside it, and the profile that is made of them. What was read is
;; kept while the answers about axis and surface stay the same.

(defun plv-mnt-fiche:champs ()
  (list
    '("axe" "Axe" "mot" "Dessin" ("Dessin" "Fichier"))
    '("courbes" "Courbes de l'axe" "objets" nil "LWPOLYLINE,POLYLINE,LINE,ARC,SPLINE,ELLIPSE,CIRCLE")
    '("fichier-axe" "Fichier de l'axe" "lire" "" "Lignes (*.geojson *.gpx *.kml *.shp *.gpkg *.xml);;Tous (*)")
    '("ligne" "Ligne du fichier" "mot" "" nil)
    (plv-champ-nombre "depart" "Station de départ" 0.0 2)
    '("inverse" "En sens inverse" "oui" nil nil)
    '("source" "Surface" "mot" "Calques" ("Calques" "Objets" "Fichier" "Fichier et calques" "Altitudes de l'axe"))
    '("calques" "Calques, * permis" "texte" "*" nil)
    '("objets" "Points, lignes et faces" "objets" nil "*")
    '("fichier" "Fichier, ou dossier de dalles" "lire" "" "Surfaces (*.csv *.txt *.tif *.asc *.vrt *.xml *.shp *.gpkg *.geojson);;Tous (*)")
    '("surface" "Surface du fichier" "mot" "" nil)
    (list "systeme" "Système du dessin, code EPSG" "texte" (plv-mnt-fiche:systeme-propose) nil)
    (plv-champ-nombre "tolerance" "Écart permis au terrain" 0.01 3)
    '("arete" "Plus longue arête, ou rien" "texte" "" nil)
    (list "numero" "Numéro du profil" "texte" (itoa (plv-identifiant-libre)) nil)
    '("insertion" "Point d'insertion, ou rien" "texte" "" nil)
    (plv-champ-nombre "echv" "Échelle verticale" 10.0 2)
    (plv-champ-nombre "ttxt" "Hauteur de texte" 2.5 2)))

(defun plv-mnt-fiche:systeme-propose (/ trouves)
  (cond
    ((plv-mnt-systeme))
    ((and (listp (setq trouves (plv-mnt-systemes-du-dessin))) trouves) (caar trouves))
    ("")))

;; --- answers

(defun plv-mnt-fiche:axe-fichier-p (valeurs) (= (plv-cle "axe" valeurs) "Fichier"))
(defun plv-mnt-fiche:source (valeurs) (plv-cle "source" valeurs))
(defun plv-mnt-fiche:fichier-p (valeurs) (wcmatch (plv-mnt-fiche:source valeurs) "Fichier*"))

(defun plv-mnt-fiche:lignes (valeurs / chemin)
  "The lines of the file of the axis; a text for what is wrong with it, nil without one."
  (if (and (plv-mnt-fiche:axe-fichier-p valeurs) (setq chemin (plv-fiche-fichier valeurs "fichier-axe")) (findfile chemin))
    (et_axes_fichier chemin (plv-mnt-systeme))))

(defun plv-mnt-fiche:surfaces (valeurs / chemin noms)
  "The names of the surfaces of a LandXML file."
  (if (and (plv-mnt-fiche:fichier-p valeurs) (setq chemin (plv-fiche-fichier valeurs "fichier")) (findfile chemin)
           (not (vl-file-directory-p chemin)) (listp (et_fichier chemin)) (= (car (et_fichier chemin)) "landxml"))
    (if (listp (setq noms (et_surfaces chemin))) noms)))

(defun plv-mnt-fiche:axe (valeurs lignes / rang)
  "The axis as a request has it; nil without one."
  (cond
    ((not (plv-mnt-fiche:axe-fichier-p valeurs)) (plv-fiche-objets valeurs "courbes"))
    ((and (listp lignes) lignes)
     (setq rang (cond ((vl-position (plv-cle "ligne" valeurs) (mapcar 'car lignes))) (0)))
     (list 'fichier-axe (plv-fiche-fichier valeurs "fichier-axe") rang))))

(defun plv-mnt-fiche:sources (valeurs surfaces / mot)
  (setq mot (plv-mnt-fiche:source valeurs))
  (cond
    ((= mot "Calques") (list (list "calques" (plv-cle "calques" valeurs))))
    ((= mot "Objets") (if (plv-fiche-objets valeurs "objets") (list (cons "objets" (plv-fiche-objets valeurs "objets")))))
    ((= mot "Altitudes de l'axe") '(("axe")))
    ((plv-fiche-fichier valeurs "fichier")
     (cons (plv-mnt-fiche:source-fichier valeurs surfaces) (if (/= mot "Fichier") (list (list "calques" (plv-cle "calques" valeurs))))))))

(defun plv-mnt-fiche:source-fichier (valeurs surfaces)
  (append (list "fichier" (plv-fiche-fichier valeurs "fichier"))
          (if surfaces (list (strcat "surface:" (cond ((car (member (plv-cle "surface" valeurs) surfaces))) ((car surfaces))))))))

(defun plv-mnt-fiche:options (valeurs)
  (append
    (list (cons 'tolerance (cond ((plv-fiche-nombre valeurs "tolerance")) (0.01))))
    (if (plv-fiche-nombre valeurs "arete") (list (cons 'arete (plv-fiche-nombre valeurs "arete"))))))

(defun plv-mnt-fiche:insertion (valeurs)
  (if (= (plv-cle "insertion" valeurs) "") '(0.0 0.0) (plv-couple (plv-cle "insertion" valeurs))))

(defun plv-mnt-fiche:fautes (valeurs lignes axe sources)
  (append
    (cond
      ((= (type lignes) 'STR) (list (list "fichier-axe" lignes)))
      ((not axe) (list (if (plv-mnt-fiche:axe-fichier-p valeurs) '("fichier-axe" "un fichier est attendu") '("courbes" "des courbes du dessin sont attendues")))))
    (if (not sources) (list (list (if (= (plv-mnt-fiche:source valeurs) "Objets") "objets" "fichier") "une surface est attendue")))
    (if (not (plv-mnt-fiche:insertion valeurs)) '(("insertion" "deux nombres x,y sont attendus")))
    (if (and (/= (plv-cle "arete" valeurs) "") (not (plv-fiche-nombre valeurs "arete"))) '(("arete" "un nombre est attendu")))
    (if (plv-profil-de-numero (plv-cle "numero" valeurs)) '(("numero" "le dessin a déjà un profil de ce numéro")))))

(defun plv-mnt-fiche:caches (valeurs surfaces)
  (append
    (if (plv-mnt-fiche:axe-fichier-p valeurs) '("courbes") '("fichier-axe" "ligne"))
    (if (not (wcmatch (plv-mnt-fiche:source valeurs) "*alques")) '("calques"))
    (if (/= (plv-mnt-fiche:source valeurs) "Objets") '("objets"))
    (if (not (plv-mnt-fiche:fichier-p valeurs)) '("fichier"))
    (if (not surfaces) '("surface"))
    (if (or (plv-mnt-systeme) (not (plv-mnt-fiche:geo-p valeurs))) '("systeme"))))

(defun plv-mnt-fiche:geo-p (valeurs)
  "Whether a file tells its coordinate system."
  (vl-some
    '(lambda (cle / chemin nature)
       (and (setq chemin (plv-fiche-fichier valeurs cle)) (findfile chemin) (listp (setq nature (et_fichier chemin))) (cdr nature)))
    (append (if (plv-mnt-fiche:axe-fichier-p valeurs) '("fichier-axe")) (if (plv-mnt-fiche:fichier-p valeurs) '("fichier")))))

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

(defun plv-mnt-fiche:demande (valeurs lignes surfaces)
  (plv-mnt-demande (plv-mnt-fiche:axe valeurs lignes) (plv-cle "inverse" valeurs) (plv-fiche-nombre valeurs "depart")
    (plv-mnt-fiche:sources valeurs surfaces) (plv-mnt-fiche:options valeurs)))

(defun plv-mnt-fiche:regarder (valeurs / plv-mnt-systeme-essaye lignes surfaces fautes lu axe)
  (setq plv-mnt-systeme-essaye (plv-mnt-fiche:code valeurs)
        lignes (plv-mnt-fiche:lignes valeurs) surfaces (plv-mnt-fiche:surfaces valeurs)
        axe (plv-mnt-fiche:axe valeurs lignes)
        fautes (plv-mnt-fiche:fautes valeurs lignes axe (plv-mnt-fiche:sources valeurs surfaces)))
  (if (and (not fautes) (plv-fiche-nombre valeurs "depart"))
    (setq lu (plv-mnt-fiche:lire (plv-mnt-fiche:demande valeurs lignes surfaces)) axe (plv-cle 'axe (car lu))))
  (plv-regard
    (cond (fautes) ((and lu (not (car lu))) (list (list "source" (cond ((cadr lu)) ("cette surface ne peut pas être lue"))))))
    (if (car lu) (list (plv-mnt-fiche:plan lu axe) (plv-mnt-fiche:coupe (car lu))))
    (if (car lu) (plv-mnt-fiche:dire (car lu)))
    (plv-mnt-fiche:caches valeurs surfaces)
    (list (cons "ligne" (if (listp lignes) (mapcar 'car lignes))) (cons "surface" surfaces))))

;; --- doing

(defun plv-mnt-fiche:place (valeurs demande / axe)
  "Where the profile stands: as it was typed, else out of the axis's way."
  (if (= (plv-cle "insertion" valeurs) "") (setq axe (car (plv-essayer 'plv-mnt-axe (list demande)))))
  (append (plv-premiers (cond ((if axe (plv-mnt-insertion axe))) ((plv-mnt-fiche:insertion valeurs))) 2) '(0.0)))

(defun plv-mnt-fiche:faire (valeurs / code demande)
  (if (and (not (plv-mnt-systeme)) (plv-mnt-fiche:geo-p valeurs) (setq code (plv-mnt-fiche:code valeurs))) (plv-mnt-ecrire-systeme code))
  (setq demande (plv-mnt-fiche:demande valeurs (plv-mnt-fiche:lignes valeurs) (plv-mnt-fiche:surfaces valeurs)))
  (plv-mnt-profil demande (plv-cle "numero" valeurs) (plv-mnt-fiche:place valeurs demande) (plv-fiche-nombre valeurs "echv") (plv-fiche-nombre valeurs "ttxt") nil nil))

(plv-declarer-fiche "PLV-TERRAIN" "Profil d'une surface" "Créer" 'plv-mnt-fiche:champs 'plv-mnt-fiche:regarder 'plv-mnt-fiche:faire)
