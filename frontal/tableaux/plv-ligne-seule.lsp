;; PL-CPLM: one row of a table filled again, from the entry of the profile's menu.
;; What stands in the row goes first; frame, rules, borders and reference lines stay.

(defun plv-seule:bande (reference rang / matrice haut suivantes e)
  "(top bottom) of a row, as drawing ordinates."
  (setq matrice (plv-matrice reference)
        e (plv-matrice-echelle matrice)
        haut (cadr (plv-origine reference))
        suivantes (plv-matrice-rangees matrice))
  (repeat rang
    (setq haut (- haut (* e (plv-rangee-hauteur (car suivantes)))) suivantes (cdr suivantes)))
  (list haut (- haut (* e (plv-rangee-hauteur (car suivantes))))))

(defun plv-boite-rangee (profil reference rang / bande x)
  "What a row covers: (x1 y1 x2 y2)."
  (setq bande (plv-seule:bande reference rang) x (car (plv-origine reference)))
  (list x (cadr bande) (+ x (plv-largeur-tables profil)) (car bande)))

(defun plv-seule:ordonnees (groupes / c)
  "The ordinates by which an entity belongs to a row."
  (setq c (caddr (assoc 10 groupes)))
  (cond
    ((= (plv-cle 0 groupes) "LINE") (list c (caddr (assoc 11 groupes))))
    ((= (plv-cle 0 groupes) "ARC")
     (list (+ c (* (plv-cle 40 groupes) (sin (plv-cle 50 groupes)))) (+ c (* (plv-cle 40 groupes) (sin (plv-cle 51 groupes))))))
    ((= (plv-cle 0 groupes) "TEXT")
     (list (if (= (+ (cond ((plv-cle 72 groupes)) (0)) (cond ((plv-cle 73 groupes)) (0))) 0) c (caddr (assoc 11 groupes)))))
    ((= (plv-cle 0 groupes) "INSERT") (list c))))

(defun plv-seule:dans-p (e bande bord / groupes ordonnees)
  (setq groupes (entget e) ordonnees (plv-seule:ordonnees groupes))
  (and ordonnees
       (not (plv-rappel-p groupes))
       (not (and (= (plv-cle 0 groupes) "LINE") (equal (cadr (assoc 10 groupes)) bord 1e-6)))
       (vl-every '(lambda (y) (<= (- (cadr bande) 1e-6) y (+ (car bande) 1e-6))) ordonnees)))

(defun plv-seule:vider (profil reference rang / bande bord gardes)
  (setq bande (plv-seule:bande reference rang)
        bord (+ (car (plv-origine reference)) (plv-largeur-tables profil))
        gardes (cons reference (plv-matrice-filets (plv-matrice reference))))
  (foreach e (append (plv-entites-table reference) (plv-ajouts-tables profil))
    (if (and (entget e) (not (member e gardes)) (plv-seule:dans-p e bande bord)) (entdel e))))

(defun plv-seule:remplir (profil reference rang / points contexte gardes bilan)
  (setq points (plv-points-nommes profil)
        contexte (plv-contexte-de-rangee (plv-contexte profil points (plv-choix-tout profil)) reference rang)
        gardes (plv-points-gardes points contexte)
        bilan (plv-avec-calque "PLV-MATRICE" '(lambda () (plv-remplir-ligne gardes contexte))))
  (plv-noter-ajouts profil (plv-bilan-ajouts bilan))
  bilan)

(defun plv-remplir-rangee (profil reference rang / bilan)
  "Fills a row of the current profile's tables again, counted from 0; what is said of it, nil when there is no such row."
  (if (pl_SelectLigne (plv-matrice-nom reference) rang)
    (progn
      (plv-seule:vider profil reference rang)
      (setq bilan (plv-seule:remplir profil reference rang))
      (plv-noter-fait profil "RANGEE" (itoa rang) reference nil)
      bilan)))

(defun PL-CPLM (nom rang / profil reference bilan)
  "Fills the row of a table again, rows counted from 1."
  (if (setq profil (plv-profil-courant))
    (progn
      (setq reference (car (vl-member-if '(lambda (r) (= (strcase (plv-matrice-nom r)) (strcase nom))) (plv-tables profil))))
      (if (and reference (setq bilan (plv-remplir-rangee profil reference (1- rang))))
        (plv-dire (strcat "Ligne " (pl_textlignemat) (if (plv-bilan-vides bilan) ": laissée vide." ": remplie.")))
        (plv-erreur (strcat "pas de ligne " (itoa rang) " dans la matrice " nom)))))
  (princ))
