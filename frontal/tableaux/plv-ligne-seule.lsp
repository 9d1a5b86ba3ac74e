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
    (et_dans_bande (cons (plv-groupe-table reference) (plv-ajouts-tables profil)) (car bande) (cadr bande))))

(defun plv-seule:remplir (profil points contexte / bilan)
  (setq bilan (plv-avec-calque "PLV-MATRICE" '(lambda () (plv-remplir-ligne points contexte))))
  (plv-noter-ajouts profil (plv-bilan-ajouts bilan))
  (plv-presenter-tables profil)
  bilan)

;; --- cells that stand alone: only those whose text changes are written again

(defun plv-seule:en-regard-p (textes cellules / ecart)
  "Whether each text (x words entity) stands at the point of its cell, all at the same distance from it."
  (if (and textes (= (length textes) (length cellules)))
    (progn
      (setq ecart (- (caar textes) (car (caar cellules))))
      (vl-every '(lambda (texte cellule) (equal (- (car texte) (car (car cellule))) ecart 1e-6)) textes cellules))))

(defun plv-seule:corriger (profil reference rang contexte points / rangee entites textes cellules fausses)
  "Writes again what isn't right in a row of cells that stand alone; what is said of it, nil for a row that has to be filled as a whole."
  (setq rangee (plv-rangee reference rang))
  (if (plv-cellules-p rangee)
    (progn
      (setq entites (plv-entites-rangee profil reference rang) textes (et_textes entites) cellules (plv-cellules profil rangee points))
      (if (and (= (length textes) (length entites)) (plv-seule:en-regard-p textes cellules))
        (progn
          (setq fausses (vl-remove-if '(lambda (paire) (= (cadr (car paire)) (cadr (cadr paire)))) (mapcar 'list textes cellules)))
          (plv-effacer (mapcar '(lambda (paire) (caddr (car paire))) fausses))
          (plv-seule:remplir profil (mapcar '(lambda (paire) (car (cadr paire))) fausses) contexte))))))

(defun plv-remplir-rangee (profil reference rang / points contexte)
  "Fills a row of the tables that the module has loaded again, counted from 0; what is said of it, nil when there is no such row."
  (if (pl_SelectLigne (plv-matrice-nom reference) rang)
    (progn
      (setq points (plv-points-nommes profil)
            contexte (plv-contexte-de-rangee (plv-contexte profil points (plv-choix-tout profil)) reference rang)
            points (plv-points-gardes points contexte))
      (cond
        ((plv-seule:corriger profil reference rang contexte points))
        (T (plv-effacer (plv-entites-rangee profil reference rang)) (plv-seule:remplir profil points contexte))))))

(defun PL-CPLM (nom rang / profil reference bilan)
  "Fills the row of a table again, rows counted from 1."
  (if (setq profil (plv-profil-courant))
    (progn
      (setq reference (car (vl-member-if '(lambda (r) (= (strcase (plv-matrice-nom r)) (strcase nom))) (plv-tables profil))))
      (if (and reference (setq bilan (plv-remplir-rangee profil reference (1- rang))))
        (progn
          (plv-noter-fait profil "RANGEE" (itoa (1- rang)) reference nil)
          (plv-dire (strcat "Ligne " (pl_textlignemat) (if (plv-bilan-vides bilan) ": laissée vide." ": remplie."))))
        (plv-erreur (strcat "pas de ligne " (itoa rang) " dans la matrice " nom)))))
  (princ))
