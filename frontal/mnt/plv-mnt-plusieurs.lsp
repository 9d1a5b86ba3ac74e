;; PLV-TERRAIN Plusieurs: a profile for each curve of a layer, one below the other. The surface is made once for all of them.
;; Shared in the room: plv-mnt:axes-du-calque

(setq plv-mnt:loin 50.0) ; a text farther than this from an axis, in metres, doesn't name it

(defun plv-mnt:axes-du-calque (calque)
  "The curves of a layer, in the order of their making."
  (reverse
    (plv-entites-du-jeu
      (ssget "X" (append '((0 . "LWPOLYLINE,POLYLINE,LINE,ARC,SPLINE")) (plv-mnt-filtre calque))))))

;; --- names: of each axis the nearest text, of texts that lie nearest to several the nearest axis

(defun plv-mnt:textes (calque)
  "The texts of a layer, and the attributes of its blocks, as (text point)."
  (vl-remove-if '(lambda (texte) (= (car texte) ""))
    (apply 'append
      (mapcar '(lambda (e) (if (= (plv-type e) "INSERT") (plv-mnt:attributs e) (list (plv-mnt:texte (entget e)))))
              (plv-entites-du-jeu (ssget "X" (append '((0 . "TEXT,MTEXT,INSERT")) (plv-mnt-filtre calque))))))))

(defun plv-mnt:texte (groupes) (list (vl-string-trim " " (plv-cle 1 groupes)) (plv-cle 10 groupes)))

(defun plv-mnt:attributs (bloc / e groupes textes)
  (setq e (entnext bloc))
  (while (and e (= (plv-cle 0 (setq groupes (entget e))) "ATTRIB"))
    (setq textes (cons (list (plv-cle 1 groupes) (plv-origine bloc)) textes) e (entnext e)))
  textes)

(defun plv-mnt:eloignement (axe point / proche)
  (setq proche (vlax-curve-getClosestPointTo axe point))
  (distance (list (car proche) (cadr proche)) (list (car point) (cadr point))))

(defun plv-mnt:couples (axes textes / couples d)
  "(distance axis text) of every text near an axis, the nearest first."
  (foreach axe axes
    (foreach texte textes
      (if (<= (setq d (plv-mnt:eloignement axe (cadr texte))) plv-mnt:loin)
        (setq couples (cons (list d axe (car texte)) couples)))))
  (vl-sort couples '(lambda (a b) (< (car a) (car b)))))

(defun plv-mnt:noms (axes textes / pris noms)
  "For each axis its name, nil without one."
  (foreach c (plv-mnt:couples axes textes)
    (if (not (or (assoc (cadr c) noms) (member (strcase (caddr c)) pris)))
      (setq noms (cons (cons (cadr c) (caddr c)) noms) pris (cons (strcase (caddr c)) pris))))
  (mapcar '(lambda (axe) (plv-cle axe noms)) axes))

;; --- the profiles

(defun plv-mnt:numero-libre (nom / rang)
  "The name, or the next number; a name that a profile has gets a number behind it."
  (cond
    ((not nom) (itoa (plv-identifiant-libre)))
    ((not (plv-profil-de-numero nom)) nom)
    (T (setq rang 2)
       (while (plv-profil-de-numero (strcat nom "-" (itoa rang))) (setq rang (1+ rang)))
       (strcat nom "-" (itoa rang)))))

(defun plv-mnt:poser (demande axe profil nom point echv ttxt hauteur-max / plv-mnt:lu)
  "The profile of one axis, from what the cut has given; nil after a message that names the axis."
  (if (listp profil)
    (progn
      (setq plv-mnt:lu (cons (cons 'axe axe) (plv-mnt-terrain profil (plv-cle 'depart demande))))
      (plv-nouveau-axe (cons demande plv-mnt:lu) '(lambda () plv-mnt:lu) nom point echv ttxt hauteur-max nil 'plv-mnt-achever))
    (plv-erreur (strcat "axe " nom ": " profil))))

(defun plv-mnt-plusieurs (calque demande point echv ttxt hauteur-max / entites axes reponse pas profil faits)
  "Profiles of all curves of a layer, by a request without axis; those that were made, or nil after a message."
  (cond
    ((not (setq entites (plv-mnt:axes-du-calque calque))) (plv-erreur (strcat "aucune courbe sur le calque " calque)))
    ((member nil (setq axes (mapcar '(lambda (e) (plv-mnt-axe (plv-mnt-avec-axe demande (list e)))) entites))) nil)
    ((setq reponse (plv-mnt-couper axes (plv-mnt-avec-axe demande entites)))
     (setq pas (+ hauteur-max (* 80.0 ttxt)))
     (foreach e (plv-mnt:ranges entites (plv-mnt:noms entites (plv-mnt:textes calque)) axes (plv-mnt-profils reponse))
       (if (setq profil (apply 'plv-mnt:poser (append (list (plv-mnt-avec-axe demande (list (car e)))) (cddr e)
                                                      (list (plv-mnt:numero-libre (cadr e)) point echv ttxt hauteur-max))))
         (setq faits (cons profil faits) point (list (car point) (- (cadr point) pas) 0.0))))
     (plv-dire (strcat (plv-compte (length faits) "profil") " sur " (plv-compte (length axes) "axe") "."))
     (reverse faits))))

(defun plv-mnt:ranges (entites noms axes profils)
  "(entity name axis profile) of each, those with a name in the order of names, then the others."
  (vl-sort (mapcar 'list entites noms axes profils)
    '(lambda (a b) (and (cadr a) (or (not (cadr b)) (< (strcase (cadr a)) (strcase (cadr b))))))))
