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

(defun plv-seule:a-vider-p (e bord gardes / groupes)
  "Rules, reference lines and the right border stay."
  (setq groupes (entget e))
  (not
    (or (member e gardes) (plv-rappel-p groupes)
        (and (= (plv-cle 0 groupes) "LINE") (equal (cadr (assoc 10 groupes)) bord 1e-6)))))

(defun plv-entites-rangee (profil reference rang / bande bord gardes)
  "What stands in a row."
  (setq bande (plv-seule:bande reference rang)
        bord (+ (car (plv-origine reference)) (plv-largeur-tables profil))
        gardes (cons reference (plv-matrice-filets (plv-matrice reference))))
  (vl-remove-if-not '(lambda (e) (plv-seule:a-vider-p e bord gardes))
    (et_dans_bande (append (plv-entites-table reference) (plv-ajouts-tables profil)) (car bande) (cadr bande))))

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
      (plv-effacer (plv-entites-rangee profil reference rang))
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
