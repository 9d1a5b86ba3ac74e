;; The tables of a page: (title headings rows), all texts: quantities, networks, blocks, the sheets that were plotted.

(setq plv-page-tables:faiseurs '(plv-page-tables:metres plv-page-tables:reseaux plv-page-tables:blocs plv-page-tables:feuilles))

(defun plv-page-tables (profil) (apply 'append (mapcar '(lambda (faiseur) (apply faiseur (list profil))) plv-page-tables:faiseurs)))

(defun plv-page-tables:metres (profil)
  (vl-remove nil
    (mapcar
      '(lambda (genre / rangees)
         (if (setq rangees (car (plv-essayer 'plv-rangees-de-classes (list profil genre))))
           (list (strcat "Métrés " genre) '("Profondeur" "Longueur m" "Surface m2" "Volume m3") (mapcar 'cdr rangees))))
      (vl-remove-if-not '(lambda (genre) (plv-elements profil genre)) (plv-genres-projet)))))

;; --- networks

(defun plv-page-tables:reseaux (profil)
  (apply 'append
    (mapcar
      '(lambda (genre / reseau)
         (setq reseau (plv-reseau-lu profil genre))
         (if (listp reseau)
           (list
             (list (strcat "Regards " genre) '("Regard" "Station" "Tampon" "Arrivée" "Départ" "Profondeur") (mapcar 'plv-page-tables:regard (plv-reseau-regards reseau)))
             (list (strcat "Tuyaux " genre) '("Tuyau" "Longueur m" "Pente %" "Diamètre" "Matériau") (mapcar 'plv-page-tables:tuyau (plv-reseau-tuyaux reseau))))))
      (plv-genres-de-reseau profil))))

(defun plv-page-tables:altitude (z) (if z (plv-reel z 3) ""))

(defun plv-page-tables:regard (n)
  (list (plv-noeud-nom n) (plv-reel (plv-noeud-station n) 2) (plv-page-tables:altitude (plv-noeud-tampon n)) (plv-page-tables:altitude (plv-noeud-arrivee n))
        (plv-page-tables:altitude (plv-noeud-depart n)) (plv-reel (- (plv-noeud-tampon n) (plv-noeud-fond n)) 2)))

(defun plv-page-tables:tuyau (tuyau)
  (list (strcat (plv-tuyau-de tuyau) " - " (plv-tuyau-a tuyau)) (plv-reel (plv-tuyau-longueur tuyau) 2) (plv-reel (* 100.0 (plv-tuyau-pente tuyau)) 3)
        (plv-page-tables:mot (plv-tuyau-diametre tuyau)) (plv-page-tables:mot (plv-tuyau-materiau tuyau))))

(defun plv-page-tables:mot (valeur) (cond ((not valeur) "") ((numberp valeur) (plv-reel valeur 0)) (valeur)))

;; --- blocks

(defun plv-page-tables:blocs (profil / cadre blocs etiquettes)
  (setq cadre (plv-cadre profil) blocs (plv-blocs profil)
        etiquettes (plv-uniques (apply 'append (mapcar '(lambda (b) (mapcar 'car (plv-attributs b))) blocs))))
  (if etiquettes
    (list (list "Blocs posés" (cons "Station" etiquettes) (mapcar '(lambda (b) (plv-page-tables:bloc profil cadre b etiquettes)) blocs)))))

(defun plv-page-tables:bloc (profil cadre bloc etiquettes / attributs)
  (setq attributs (plv-attributs bloc))
  (cons (plv-reel (+ (plv-premiere-station profil) (plv-distance cadre (plv-origine bloc))) 2)
        (mapcar '(lambda (e) (cond ((plv-cle e attributs)) (""))) etiquettes)))

;; --- sheets: the files that were plotted of the profile

(defun plv-page-tables:feuilles (profil / faits)
  (setq faits (vl-remove-if-not '(lambda (f) (= (plv-fait-chose f) "FEUILLES")) (plv-faits profil)))
  (if faits
    (list (list "Feuilles" '("Fichier" "Échelle" "Titre")
            (mapcar '(lambda (f) (list (plv-fait-fichier f) (strcat "1:" (cond ((cadr (plv-fait-reponses f))) (""))) (cond ((caddr (plv-fait-reponses f))) ("")))) faits)))))
