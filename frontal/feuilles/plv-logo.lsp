;; The logo of the title block: a picture file that the drawing names, and its place on a template.
;; Shared in the room: plv-logo:*

;; the field of the record; its path is one from the drawing's folder where the file lies in it
(setq plv-logo:mot "Logo" plv-logo:dictionnaire "ACAD_IMAGE_DICT" plv-logo:variables "ACAD_IMAGE_VARS")

(defun plv-logo () "The file of the logo; empty without one." (plv-cartouche-texte plv-logo:mot))

(defun plv-logo-chemin ()
  "The path of the file for whoever doesn't know the drawing's folder."
  (cond ((= (plv-logo) "") "") ((findfile (strcat (getvar "DWGPREFIX") (plv-logo)))) ((plv-logo))))

(defun plv-logo:relatif (fichier / dossier nom)
  "The path from the drawing's folder of a file that lies in it; any other one as it is found."
  (if (and (eq (type (taille-image fichier)) 'STR) (findfile fichier)) (setq fichier (findfile fichier)))
  (setq dossier (vl-string-translate "\\" "/" (getvar "DWGPREFIX")) nom (vl-string-translate "\\" "/" fichier))
  (if (and (/= dossier "") (> (strlen nom) (strlen dossier)) (= (strcase (substr nom 1 (strlen dossier))) (strcase dossier)))
    (substr nom (1+ (strlen dossier)))
    fichier))

(defun plv-logo-refus (fichier / taille)
  "Why a file can't be the logo; nil when it can, or for none."
  (if (and (/= fichier "") (eq (type (setq taille (taille-image (plv-logo:relatif fichier)))) 'STR))
    (strcat "logo " fichier ": " taille)))

(defun plv-logo-noter (fichier / refus)
  "Gives the title block its logo, an empty name takes it away; nil after a message."
  (if (setq refus (plv-logo-refus fichier))
    (plv-erreur refus)
    (progn (plv-cartouche-noter plv-logo:mot (if (= fichier "") "" (plv-logo:relatif fichier))) T)))

;; --- on sheets

(defun plv-logo:boite (taille place / k x y)
  "Where a picture of that size in points stands in the middle of its room, (x y width height): two corners."
  (setq k (min (/ (caddr place) (car taille)) (/ (cadddr place) (cadr taille)))
        x (+ (car place) (* 0.5 (- (caddr place) (* k (car taille))))) y (+ (cadr place) (* 0.5 (- (cadddr place) (* k (cadr taille))))))
  (list x y (+ x (* k (car taille))) (+ y (* k (cadr taille)))))

(defun plv-logo-dessin (place / taille)
  "The logo as something drawn on a sheet; nil without one, told where it can't be shown."
  (if (/= (plv-logo) "")
    (cond
      ((eq (type (setq taille (taille-image (plv-logo)))) 'STR) (plv-logo:sans (strcat "logo " (plv-logo) ": " taille)))
      ((not place) (plv-logo:sans "le modèle n'a pas de place pour le logo, une polyligne fermée du calque LOGO"))
      (T (vl-list* "I" (plv-logo) (plv-logo:boite taille place))))))

(defun plv-logo:sans (pourquoi) (plv-dire (strcat "attention: " pourquoi "; les feuilles sont faites sans lui.")) nil)

;; --- in layouts

(defun plv-logo:sous-dictionnaire (nom / trouve)
  (if (setq trouve (dictsearch (namedobjdict) nom))
    (plv-cle -1 trouve)
    (dictadd (namedobjdict) nom (entmakex '((0 . "DICTIONARY") (100 . "AcDbDictionary"))))))

(defun plv-logo:sans-cadres ()
  "Frames of pictures aren't drawn, in a drawing that had none."
  (if (not (or (dictsearch (namedobjdict) plv-logo:dictionnaire) (dictsearch (namedobjdict) plv-logo:variables)))
    (dictadd (namedobjdict) plv-logo:variables
      (entmakex '((0 . "RASTERVARIABLES") (100 . "AcDbRasterVariables") (90 . 0) (70 . 0) (71 . 1) (72 . 5))))))

(defun plv-logo:definition (fichier taille / images nom trouve)
  "The definition of a picture, that of an earlier layout where it is the same."
  (plv-logo:sans-cadres)
  (setq images (plv-logo:sous-dictionnaire plv-logo:dictionnaire) nom (strcat "KAVEL_" (strcase (vl-filename-base fichier))))
  (if (and (setq trouve (dictsearch images nom)) (/= (plv-cle 1 trouve) fichier)) (progn (dictremove images nom) (setq trouve nil)))
  (if trouve
    (plv-cle -1 trouve)
    (dictadd images nom
      (entmakex
        (list '(0 . "IMAGEDEF") '(100 . "AcDbRasterImageDef") '(90 . 0) (cons 1 fichier) (list 10 (car taille) (cadr taille)) '(11 1.0 1.0)
              '(280 . 1) '(281 . 2))))))

(defun plv-logo-image (fichier coins / taille large haut)
  "Makes the IMAGE between two corners of the paper (x1 y1 x2 y2)."
  (if (listp (setq taille (taille-image fichier)))
    (progn
      (setq large (/ (- (caddr coins) (car coins)) (car taille)) haut (/ (- (cadddr coins) (cadr coins)) (cadr taille)))
      (entmake
        (list '(0 . "IMAGE") '(100 . "AcDbEntity") '(67 . 1) '(8 . "0") '(100 . "AcDbRasterImage") '(90 . 0)
              (list 10 (car coins) (cadr coins) 0.0) (list 11 large 0.0 0.0) (list 12 0.0 haut 0.0) (list 13 (car taille) (cadr taille))
              (cons 340 (plv-logo:definition fichier taille)) '(70 . 7) '(280 . 0) '(281 . 50) '(282 . 50) '(283 . 0) '(71 . 1) '(91 . 2)
              '(14 -0.5 -0.5) (list 14 (- (car taille) 0.5) (- (cadr taille) 0.5)))))))
