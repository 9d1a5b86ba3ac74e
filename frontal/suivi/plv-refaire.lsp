;; How each kind of thing is made anew, by the very functions that made it: (profile facts) for the stale ones of a kind. Each gives
;; something, or nil after a message when it couldn't.

;; --- the ground lines: of a record that has changed they are drawn, else what was dragged is the ground now

(defun plv-refaire-terrain (profil faits / fait avant)
  (setq fait (car faits) avant (plv-points-tn profil))
  (if (= (plv-source-empreinte profil fait "releve") (plv-cle "releve" (plv-fait-sources fait)))
    (progn (plv-reprendre-terrain profil) (plv-suivre-sol:dire profil avant))
    (progn
      (plv-retracer-terrain profil)
      (if (plv-entites-habillage profil) (plv-rehabiller profil))))
  T)

;; --- tables. A definition file that is gone is written again of what the drawn tables say of their rows.

(defun plv-refaire:definition (profil)
  "The lines of a definition file for the tables that are drawn."
  (apply 'append
    (mapcar
      '(lambda (reference)
         (mapcar '(lambda (r) (plv-refaire:rangee (plv-matrice-nom reference) r)) (plv-matrice-rangees (plv-matrice reference))))
      (plv-tables profil))))

(defun plv-refaire:rangee (nom rangee)
  (strcat nom " " (plv-decimales-en-mot (plv-rangee-decimales rangee)) " " (rtos (plv-rangee-hauteur rangee) 2 8) " " (itoa (plv-rangee-nature rangee))
          (if (= (plv-rangee-infos rangee) "") "" (strcat " {" (plv-rangee-infos rangee) "}")) " " (plv-rangee-libelle rangee)))

(defun plv-refaire:fichier (profil chemin / provisoire)
  "The definition file, or a temporary one that says the same as the drawing: (name temporary)."
  (if (plv-chemin-definition chemin)
    (list chemin nil)
    (progn
      (setq provisoire (vl-filename-mktemp "plv.txt"))
      (texte-ecrire provisoire (plv-refaire:definition profil))
      (list provisoire T))))

(defun plv-refaire-tableaux (profil faits / chemin tout fichier fait)
  (setq chemin (car (plv-fait-reponses (car faits))) tout (= (cadr (plv-fait-reponses (car faits))) "Tous")
        fichier (plv-refaire:fichier profil chemin)
        fait (plv-matrices profil (car fichier) tout))
  (if (cadr fichier)
    (progn
      (vl-file-delete (car fichier))
      (if fait (plv-noter-fait profil "TABLEAUX" nil nil (list chemin (if tout "Tous" "Espaces"))))))
  fait)

(defun plv-refaire-rappels (profil faits / points)
  "Their tops back on the ground; new ones where other points have cells now."
  (setq points (plv-points-cotes profil))
  (if (equal (plv-distances-rappels profil) (mapcar 'car points) 1e-6)
    (plv-poser-rappels profil)
    (progn
      (plv-effacer (plv-lignes-rappel profil))
      (plv-noter-ajouts profil (plv-tracer-rappels profil points))))
  (plv-noter-fait profil "RAPPELS" nil nil nil)
  T)

(defun plv-refaire-rangees (profil faits / courant bilans)
  (setq courant plv-courant)
  (pl_ChoixProfil profil)
  (setq bilans (plv-remplir-rangees profil (mapcar 'plv-rangee-de-fait faits) (plv-sources:points profil) (plv-rangees-lues profil faits)))
  (if (and courant (not (eq courant profil))) (plv-reprendre-courant))
  (plv-noter-faits profil faits)
  (not (member nil bilans)))

;; --- dimensions: all of them at once, since each row stands clear of the others

(defun plv-refaire-cotes (profil faits / lots)
  (setq lots (plv-cotes-a-refaire profil))
  (plv-effacer-cotes (plv-cotes-du-profil profil))
  (plv-oublier-fixes-effaces profil)
  (if (plv-entites-habillage profil) (plv-rehabiller profil))
  (foreach lot lots (plv-coter profil (plv-lot-genre lot) (plv-lot-rotation lot) (plv-lot-lesquelles lot) (plv-lot-courbes lot)))
  T)

;; --- what the drawing's style adds to a profile

(defun plv-refaire-habillages (profil faits) (plv-rehabiller profil) T)

;; --- trenches, which draw their network over them, and the other networks

(defun plv-refaire-tranchees (profil faits)
  (vl-every '(lambda (f) (plv-hachurer-tranchees profil (plv-fait-genre f) (= (car (plv-fait-reponses f)) "Tout"))) faits))

(defun plv-refaire:refait-p (profil fait)
  "Whether the thing has been noted since the fact was read."
  (vl-some '(lambda (f) (and (plv-meme-chose-p f fait) (/= (plv-fait-date f) (plv-fait-date fait)))) (plv-faits profil)))

(defun plv-refaire-reseaux (profil faits)
  (vl-every '(lambda (f) (or (plv-refaire:refait-p profil f) (plv-dessiner-reseau profil (plv-fait-genre f)))) faits))

(defun plv-refaire-coupes (profil faits)
  (vl-every '(lambda (f) (plv-couper-tranchees profil (plv-fait-genre f) (plv-coupes-point profil (plv-fait-reponses f)))) faits))

;; --- quantities

(defun plv-refaire-hachures (profil faits)
  (vl-every '(lambda (f) (plv-metrer (list profil) (plv-fait-genre f) nil T nil)) faits))

(defun plv-refaire-legendes (profil faits)
  "Each where it stands."
  (vl-every
    '(lambda (f) (plv-legende profil (plv-fait-genre f) (plv-origine (car (plv-legendes-du-genre profil (plv-fait-genre f))))))
    faits))

(defun plv-refaire-plan (profil faits) (plv-vers-plan profil))

;; --- files: one is made of all profiles that have it

(defun plv-refaire:profils (fait)
  "The profiles that a file is made of."
  (vl-remove-if-not
    '(lambda (p) (vl-some '(lambda (f) (and (plv-meme-chose-p f fait) (= (plv-fait-profil f) (plv-handle p)))) (plv-faits p)))
    (plv-profils)))

(defun plv-refaire-classeurs (profil faits)
  (vl-every '(lambda (f) (plv-metrer (plv-refaire:profils f) (plv-fait-genre f) (plv-fait-fichier f) nil nil)) faits))

(defun plv-refaire-bordereaux (profil faits)
  (vl-every
    '(lambda (f) (plv-tranchees-classeur (plv-bordereau-couples (plv-fait-reponses f)) (plv-fait-fichier f) (plv-bordereau-prix (plv-fait-reponses f))))
    faits))

(defun plv-refaire-exports (profil faits)
  (vl-every
    '(lambda (f)
       (cond
         ((= (plv-fait-genre f) "Landxml") (plv-export-landxml (plv-refaire:profils f) (plv-fait-fichier f)))
         ((= (plv-fait-genre f) "Terrain") (plv-export-terrain profil (plv-fait-fichier f)))
         (T (plv-export-projet profil (plv-fait-genre f) (plv-fait-fichier f)))))
    faits))

(defun plv-refaire-pages (profil faits)
  (vl-every '(lambda (f) (plv-page (plv-refaire:profils f) (plv-fait-fichier f))) faits))

(defun plv-refaire-feuilles (profil faits)
  (vl-every
    '(lambda (f / reponses)
       (setq reponses (plv-fait-reponses f))
       (plv-feuilles-et-liste (plv-refaire:profils f) (car reponses) (distof (cadr reponses) 2) (caddr reponses) (cadddr reponses) (plv-fait-fichier f)))
    faits))
