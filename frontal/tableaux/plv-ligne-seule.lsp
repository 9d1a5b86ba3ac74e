;; PL-CPLM: one row of a table filled again, from the entry of the profile's menu.
;; What stands in the row goes first; frame, rules, borders and reference lines stay.

(defun plv-seule:bande (reference rang / groupes e haut)
  "(top bottom) of a row, as drawing ordinates."
  (setq groupes (plv-enregistrement reference "INFO_MATRICE")
        e (plv-cle 40 groupes)
        haut (caddr (assoc 10 (entget reference)))
        groupes (cdr (member (assoc 40 groupes) groupes)))
  (repeat rang
    (setq haut (- haut (* e (plv-cle 40 groupes))) groupes (cdr (member (assoc 40 groupes) groupes))))
  (list haut (- haut (* e (plv-cle 40 groupes)))))

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

(defun plv-seule:dans (e bande bord / groupes ordonnees)
  (setq groupes (entget e) ordonnees (plv-seule:ordonnees groupes))
  (and ordonnees
       (/= (plv-cle 8 groupes) "PLV-RAPPELS")
       (not (and (= (plv-cle 0 groupes) "LINE") (equal (cadr (assoc 10 groupes)) bord 1e-6)))
       (vl-every '(lambda (y) (<= (- (cadr bande) 1e-6) y (+ (car bande) 1e-6))) ordonnees)))

(defun plv-seule:filets (reference)
  "The rules of a table and its own block reference."
  (cons reference (mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) 330)) (plv-enregistrement reference "INFO_MATRICE")))))

(defun plv-seule:vider (profil reference rang / bande bord gardes)
  (setq bande (plv-seule:bande reference rang)
        bord (+ (cadr (assoc 10 (entget reference))) (plv-tables:largeur profil))
        gardes (plv-seule:filets reference))
  (foreach e (append (plv-tables:membres (plv-tables:groupe reference)) (plv-tables:ajouts profil))
    (if (and (entget e) (not (member e gardes)) (plv-seule:dans e bande bord)) (entdel e))))

(defun plv-seule:remplir (profil reference rang / points contexte tout ajouts plv-vides)
  (setq plv-laissees 0
        points (plv-matrices:points profil)
        contexte (cons (cons 'infos (plv-remplir:infos reference rang)) (plv-matrices:contexte profil points))
        tout (= (plv-cle 90 (plv-enregistrement profil "PLV_TABLES")) 1)
        points (plv-seule:points points contexte tout reference rang)
        ajouts (plv-avec-calque "PLV-MATRICE" '(lambda () (plv-remplir-ligne points contexte))))
  (plv-tables:noter-ajouts profil ajouts)
  (plv-dire (strcat "Ligne " (pl_textlignemat) (if plv-vides ": laissee vide." ": remplie."))))

(defun plv-seule:points (points contexte tout reference rang / gardes)
  "The points that get cells; looking at all rows loses the selection, which is taken again."
  (setq gardes (plv-matrices:gardes points contexte tout))
  (pl_SelectLigne (plv-seule:nom reference) rang)
  gardes)

(defun plv-seule:nom (reference) (plv-cle 300 (plv-enregistrement reference "INFO_MATRICE")))

(defun PL-CPLM (nom rang / profil reference)
  "Fills the row of a table again, rows counted from 1."
  (if (setq profil (plv-profil-courant))
    (progn
      (foreach r (plv-tables:references profil)
        (if (= (strcase (plv-seule:nom r)) (strcase nom)) (setq reference r)))
      (if (and reference (pl_SelectLigne nom (1- rang)))
        (progn (plv-seule:vider profil reference (1- rang)) (plv-seule:remplir profil reference (1- rang)))
        (plv-erreur (strcat "pas de ligne " (itoa rang) " dans la matrice " nom)))))
  (princ))
