;; The form of PLV-STYLE: what each layer and line would look like, and the texts on paper.

(setq plv-style-fiche:fichier "Fichier...")

(defun plv-style-fiche:noms ()
  "One's own styles, the shipped ones, a file."
  (plv-uniques
    (append (mapcar 'vl-filename-base (vl-directory-files (strcat (plv-dossier-reglages) "/styles") "*.txt" 1))
            (mapcar 'car plv-style:livres) (list plv-style-fiche:fichier))))

(defun plv-style-fiche:champs ()
  (list
    (list "style" "Style" "mot" (plv-style-fiche:propose) (plv-style-fiche:noms) T)
    '("fichier" "Fichier du style" "lire" "" "Styles (*.txt);;Tous (*)")
    (list "couleurs" "Tracé en" "mot" (if (plv-style-gris-p) "Gris" "Couleurs") '("Couleurs" "Gris") T)
    (list "echelle" "Dénominateur de l'échelle du papier" "nombre" (plv-reel (plv-style:echelle-proposee) 0) nil T)))

(defun plv-style-fiche:propose ()
  "The drawing's style when it has a name of the list."
  (cond ((car (member (plv-style-nom) (plv-style-fiche:noms)))) ((car (plv-style-fiche:noms)))))

(defun plv-style-fiche:nom (valeurs)
  (if (= (plv-cle "style" valeurs) plv-style-fiche:fichier) (cond ((plv-fiche-fichier valeurs "fichier")) ("")) (plv-cle "style" valeurs)))

(defun plv-style-fiche:lire (valeurs / chemin)
  (if (setq chemin (plv-fichier-de-style (plv-style-fiche:nom valeurs))) (plv-lire-style chemin)))

;; --- samples, in pixels: a stroke and the name of its layer or kind

(setq plv-style-fiche:pixels 4.0) ; to a millimetre

(defun plv-style-fiche:hexa (rgb / texte)
  (setq texte "")
  (repeat 6
    (setq texte (strcat (substr plv-style:chiffres (1+ (rem rgb 16)) 1) texte) rgb (/ rgb 16)))
  (strcat "#" texte))

;; the first colours of the index, as screens have them on a light ground
(setq plv-style-fiche:indices '(("1" . "#E00000") ("2" . "#C0A000") ("3" . "#00A000") ("4" . "#00A0A0") ("5" . "#0000E0") ("6" . "#C000C0")))

(defun plv-style-fiche:couleur (champs gris / couleur)
  (setq couleur (plv-style-couleur (cadr champs)))
  (if gris (setq couleur (plv-style:gris champs couleur)))
  (cond
    ((cdr couleur) (plv-style-fiche:hexa (cdr couleur)))
    ((plv-cle (itoa (car couleur)) plv-style-fiche:indices))
    ((= (car couleur) 7) "#000000")
    ("#808080")))

(defun plv-style-fiche:role (champs gris)
  (plv-joindre
    (vl-list* (plv-style-fiche:couleur champs gris) (rtos (* plv-style-fiche:pixels (plv-nombre (cadddr champs))) 2 2)
      (mapcar '(lambda (mm) (rtos (* plv-style-fiche:pixels mm) 2 2)) (cdr (assoc (strcase (caddr champs) T) plv-style:traits))))
    " "))

(defun plv-style-fiche:image (rangees gris / y items champs)
  (setq y -8.0)
  (foreach r rangees
    (setq champs (plv-style-champs r))
    (if (member (car champs) '("calque" "ligne"))
      (setq items (vl-list* (list "texte" "autre" (list 180.0 (- y 4.0)) (strcat (if (= (car champs) "ligne") "ligne " "") (cadr champs)))
                            (list "trait" (plv-style-fiche:role (cdr champs) gris) (list (list 10.0 y) (list 170.0 y))) items)
            y (- y 18.0))))
  (list "" "tableau" (reverse items) 0.0))

(defun plv-style-fiche:dire (rangees echelle / texte)
  (setq texte (cdr (assoc "texte" (mapcar 'plv-style-champs rangees))))
  (append
    (if texte
      (list (strcat "Textes de " (cadr texte) " mm sur le papier, police " (car texte)
                    (if echelle (strcat ", " (plv-reel (* 0.001 echelle (plv-nombre (cadr texte))) 2) " dans le dessin") "") ".")))
    (vl-remove nil
      (mapcar
        '(lambda (r / champs)
           (setq champs (plv-style-champs r))
           (cond ((= (car champs) "libelle") (strcat "Libellé " (cadr champs) ": " (caddr champs)))
                 ((= (car champs) "grille") (strcat "Grille: " (cadr champs) " mm au moins entre deux traits."))
                 ((= (car champs) "legende") "Légende des lignes.")))
        rangees))))

(defun plv-style-fiche:regarder (valeurs / lu echelle)
  (setq lu (plv-essayer 'plv-style-fiche:lire (list valeurs)) echelle (plv-fiche-nombre valeurs "echelle"))
  (plv-regard
    (append
      (if (not (car lu)) (list (list (if (= (plv-cle "style" valeurs) plv-style-fiche:fichier) "fichier" "style") (cond ((cadr lu)) ("un style est attendu")))))
      (if (and echelle (<= echelle 0.0)) '(("echelle" "un nombre positif est attendu"))))
    (if (car lu) (list (plv-style-fiche:image (car lu) (= (plv-cle "couleurs" valeurs) "Gris"))))
    (if (car lu) (plv-style-fiche:dire (car lu) echelle))
    (if (/= (plv-cle "style" valeurs) plv-style-fiche:fichier) '("fichier"))
    nil))

(defun plv-style-fiche:faire (valeurs)
  (plv-style (plv-style-fiche:nom valeurs) (= (plv-cle "couleurs" valeurs) "Gris") (plv-fiche-nombre valeurs "echelle")))

(plv-declarer-fiche "PLV-STYLE" "Style du dessin" "Appliquer" 'plv-style-fiche:champs 'plv-style-fiche:regarder 'plv-style-fiche:faire)
