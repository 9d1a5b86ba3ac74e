;; PLV-PAGE: profiles as one page to share, without network: the drawing is read by finger, mouse or keys, with tables to copy. The page
;; itself is page.html; here its data are gathered.

(defun plv-page:modele () (strcat (vl-filename-directory (findfile "kavel.lsp")) "/page/page.html"))

;; --- curves: pieces, each with its distances and its altitudes

(defun plv-page:morceau (points)
  (plv-json-objet
    (list (cons "d" (plv-json-nombres (mapcar 'car points) 4)) (cons "z" (plv-json-nombres (mapcar 'cadr points) 4)))))

(defun plv-page:morceaux (lignes) (plv-json-liste (mapcar 'plv-page:morceau (vl-remove-if-not 'cdr lignes))))

(defun plv-page:terrain (profil / points morceaux)
  "The ground's pieces, between its gaps."
  (setq points (plv-points-nommes profil))
  (foreach lacune (plv-lacunes profil)
    (setq morceaux (cons (vl-remove-if '(lambda (p) (> (car p) (+ (plv-debut lacune) 1e-6))) points) morceaux)
          points (vl-remove-if '(lambda (p) (< (car p) (- (plv-fin lacune) 1e-6))) points)))
  (reverse (cons points morceaux)))

(defun plv-page:genres (profil)
  (vl-remove-if '(lambda (genre) (or (= genre "TN") (not (plv-elements profil genre)))) (plv-genres)))

(defun plv-page:ligne (nom lignes) (plv-json-objet (list (cons "nom" (plv-json-texte nom)) (cons "morceaux" (plv-page:morceaux lignes)))))

(defun plv-page:plans (profil)
  (mapcar '(lambda (s) (plv-json-nombres (list (plv-plan-debut s) (plv-plan-altitude s) (plv-section-fin s)) 3)) (plv-sections-de-plan profil)))

;; --- tables: (title headings rows), all texts. Rooms above may have more, see plv-declarer-table-de-page.

(setq plv-page:faiseurs '(plv-page:metres plv-page:blocs))

(defun plv-declarer-table-de-page (fonction)
  "A function (profile) that gives tables."
  (setq plv-page:faiseurs (append (vl-remove fonction plv-page:faiseurs) (list fonction))))

(defun plv-page:metres (profil)
  (vl-remove nil
    (mapcar
      '(lambda (genre / rangees)
         (if (setq rangees (car (plv-essayer 'plv-rangees-de-classes (list profil genre))))
           (list (strcat "Métrés " genre) '("Profondeur" "Longueur m" "Surface m2" "Volume m3") (mapcar 'cdr rangees))))
      (vl-remove-if-not '(lambda (genre) (plv-elements profil genre)) (plv-genres-projet)))))

(defun plv-page:blocs (profil / cadre blocs etiquettes)
  (setq cadre (plv-cadre profil) blocs (plv-blocs profil)
        etiquettes (plv-uniques (apply 'append (mapcar '(lambda (b) (mapcar 'car (plv-attributs b))) blocs))))
  (if etiquettes
    (list (list "Blocs posés" (cons "Station" etiquettes) (mapcar '(lambda (b) (plv-page:bloc profil cadre b etiquettes)) blocs)))))

(defun plv-page:bloc (profil cadre bloc etiquettes / attributs)
  (setq attributs (plv-attributs bloc))
  (cons (plv-reel (+ (plv-premiere-station profil) (plv-distance cadre (plv-origine bloc))) 2)
        (mapcar '(lambda (e) (cond ((plv-cle e attributs)) (""))) etiquettes)))

(defun plv-page:table (table)
  (plv-json-objet
    (list (cons "titre" (plv-json-texte (car table))) (cons "entetes" (plv-json-textes (cadr table)))
          (cons "rangees" (plv-json-liste (mapcar 'plv-json-textes (caddr table)))))))

(defun plv-page:tables (profil) (apply 'append (mapcar '(lambda (faiseur) (apply faiseur (list profil))) plv-page:faiseurs)))

;; --- the page

(defun plv-page:profil (profil)
  (plv-json-objet
    (list (cons "numero" (plv-json-texte (plv-numero-profil profil)))
          (cons "origine" (plv-json-nombre (plv-premiere-station profil) 4))
          (cons "longueur" (plv-json-nombre (plv-longueur-profil profil) 4))
          (cons "terrain" (plv-page:morceaux (plv-page:terrain profil)))
          (cons "noms" (plv-json-textes (mapcar 'plv-point-nom (plv-points-nommes profil))))
          (cons "plans" (plv-json-liste (plv-page:plans profil)))
          (cons "lignes"
            (plv-json-liste (mapcar '(lambda (genre) (plv-page:ligne genre (plv-lignes-mesurees profil genre nil))) (plv-page:genres profil))))
          (cons "terrains" (plv-json-liste (mapcar '(lambda (te) (plv-page:ligne (plv-terrain-nom te) (plv-terrain-morceaux te))) (plv-terrains profil))))
          (cons "tables" (plv-json-liste (mapcar 'plv-page:table (plv-page:tables profil)))))))

(defun plv-page:donnees (profils titre)
  (plv-json-objet
    (list (cons "titre" (plv-json-texte titre)) (cons "dessin" (plv-json-texte (getvar "DWGNAME")))
          (cons "date" (plv-json-texte (menucmd "M=$(edtime,$(getvar,date),DD/MO/YYYY)")))
          (cons "profils" (plv-json-liste (mapcar 'plv-page:profil profils))))))

(defun plv-page:lignes (donnees)
  "The lines of the page, the data in their place."
  (mapcar '(lambda (ligne) (if (vl-string-search "@DONNEES@" ligne) (plv-remplacer ligne "@DONNEES@" donnees) ligne)) (plv-lire-lignes (plv-page:modele))))

(defun plv-page (profils fichier / donnees)
  "Writes profiles as a page; T, or nil after a message."
  (cond
    ((not profils) (plv-erreur (plv-refus-sans-profil)))
    ((not (vl-every 'plv-profil-sain profils)) nil)
    ((not (vl-every '(lambda (p) (cdr (plv-points-tn p))) profils)) (plv-erreur (plv-refus-sans-terrain)))
    (T
     (setq donnees (plv-page:donnees profils (plv-nom-dessin)))
     (texte-ecrire fichier (plv-page:lignes donnees) T)
     (foreach p profils (plv-noter-fait p "PAGE" (strcat "Page " fichier) nil nil))
     (plv-dire (strcat fichier ": " (plv-compte (length profils) "profil") "."))
     T)))

(defun c:plv-page (/ profils)
  "Écrit des profils en une page à partager, lue au doigt ou à la souris dans un navigateur."
  (if (setq profils (plv-demander-profils))
    (plv-page profils (plv-demander-texte "Page à écrire" "profil.html")))
  (princ))
