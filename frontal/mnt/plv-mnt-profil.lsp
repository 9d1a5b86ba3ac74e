;; The profile of a surface: made as any other on its ground, with its axis in plan and the request that it came of.

(setq plv-mnt-enregistrement "PLV_MNT" plv-mnt:calque "PLV-PLAN")

;; --- the axis in plan: the picked polyline itself, or one drawn like it from where the ground begins

(defun plv-mnt:meme-polyligne (demande terrain / groupes)
  "The one light polyline that the profile can name: in its direction, and with ground from its first vertex on."
  (if (and (plv-cle 'axe demande) (not (cdr (plv-cle 'axe demande))) (not (plv-cle 'inverse demande)) (equal (plv-cle 'debut terrain) 0.0 1e-6)
           (= (plv-type (car (plv-cle 'axe demande))) "LWPOLYLINE"))
    (progn
      (setq groupes (entget (car (plv-cle 'axe demande))))
      (if (= (logand 1 (cond ((plv-cle 70 groupes)) (0))) 0) (car (plv-cle 'axe demande))))))

(defun plv-mnt:dessiner-axe (axe)
  (entmakex
    (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") (cons 8 (plv-calque plv-mnt:calque)) '(100 . "AcDbPolyline")
                  (cons 90 (length axe)) '(70 . 0))
            (apply 'append
              (mapcar '(lambda (s) (list (list 10 (car s) (cadr s)) (cons 42 (cadddr s)))) axe)))))

(defun plv-mnt-axe-en-plan (demande terrain)
  (cond
    ((plv-mnt:meme-polyligne demande terrain))
    ((plv-mnt:dessiner-axe (et_axe_depuis (plv-cle 'axe terrain) (plv-cle 'debut terrain))))))

;; --- the request, kept: each key with its value as texts, reals and entities

(defun plv-mnt:groupe (valeur)
  (cond
    ((= (type valeur) 'ENAME) (cons 330 valeur))
    ((numberp valeur) (cons 40 (float valeur)))
    ((= (type valeur) 'STR) (cons 300 valeur))
    (T '(290 . 1))))

(defun plv-mnt:groupes (cle valeur)
  "A key, group 1, and what belongs to it."
  (if valeur
    (cons (cons 1 (vl-symbol-name cle)) (mapcar 'plv-mnt:groupe (if (listp valeur) valeur (list valeur))))))

(defun plv-mnt-cle-terrain (nom) "Where the request of a further ground is kept." (strcat plv-mnt-enregistrement "_" (strcase nom)))

(defun plv-mnt-garder (profil demande) (plv-mnt-garder-sous profil plv-mnt-enregistrement demande))

(defun plv-mnt-garder-sous (profil cle-record demande)
  (plv-ecrire-enregistrement profil cle-record
    (append
      (apply 'append
        (mapcar '(lambda (cle) (plv-mnt:groupes cle (plv-cle cle demande)))
                '(axe fichier-axe inverse depart tolerance arete pres attribut zero contour trous)))
      (apply 'append (mapcar '(lambda (s) (plv-mnt:groupes 'source s)) (plv-cle 'sources demande))))))

;; --- the profile

(defun plv-mnt-achever (profil demande-et-terrain / demande terrain)
  "What a profile has beside its ground when it comes of a surface."
  (setq demande (car demande-et-terrain) terrain (cdr demande-et-terrain))
  (plv-associer-axe profil (plv-mnt-axe-en-plan demande terrain))
  (plv-mnt-garder profil demande))

(defun plv-mnt-profil (demande numero point echv ttxt hauteur-max plans / plv-mnt:lu)
  "A profile of a request, see plv-mnt-demande; nil after a message. The other arguments are those of plv-nouveau."
  (if (setq plv-mnt:lu (plv-mnt-lire demande))
    (plv-nouveau-axe (cons demande plv-mnt:lu) '(lambda () plv-mnt:lu) numero point echv ttxt hauteur-max plans 'plv-mnt-achever)))
