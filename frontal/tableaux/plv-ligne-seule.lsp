;; PL-CPLM: one row of a table filled again, from the entry of the profile's menu.
;; What isn't right in the row goes first; frame, rules, borders and reference lines stay.

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

(defun plv-entites-des-tables (profil)
  "What stands in tables; groups stand for their members."
  (append (plv-ajouts-tables profil) (mapcar 'plv-groupe-table (plv-tables profil))))

(defun plv-seule:bord-p (e bord / groupes)
  (setq groupes (entget e))
  (and (= (plv-cle 0 groupes) "LINE") (equal (cadr (assoc 10 groupes)) bord 1e-6)))

(defun plv-seule:bords (profil / bord)
  "The right sides of the tables."
  (setq bord (+ (car (plv-origine profil)) (plv-largeur-tables profil)))
  (vl-remove-if-not '(lambda (e) (plv-seule:bord-p e bord)) (plv-ajouts-sur-calque profil "PLV-MATRICE")))

(defun plv-seule:gardees (profil)
  "What stays when rows are filled: titles, rules and right sides."
  (append (plv-seule:bords profil)
    (apply 'append (mapcar '(lambda (r) (cons r (vl-remove (plv-groupe-table r) (plv-matrice-filets (plv-matrice r))))) (plv-tables profil)))))

;; --- rows as (reference rank). What was put in each is kept with the reference, see et_noter_rangees

(defun plv-rangees-de (reference / rang rangees)
  (setq rang (cond ((plv-matrice-nombre (plv-matrice reference))) (0)))
  (repeat rang (setq rang (1- rang) rangees (cons (list reference rang) rangees)))
  rangees)

(defun plv-rangees-des-tables (profil) (apply 'append (mapcar 'plv-rangees-de (plv-tables profil))))

(defun plv-rangee-etude (rangee)
  "A row as the studies take it."
  (vl-list* (car rangee) (strcat "PLV_TEXTES_" (itoa (cadr rangee))) (car (plv-origine (car rangee))) (plv-seule:bande (car rangee) (cadr rangee))))

(defun plv-noter-rangees (profil)
  "What stands in the rows was put there."
  (et_noter_rangees (plv-entites-des-tables profil) (plv-seule:gardees profil) (mapcar 'plv-rangee-etude (plv-rangees-des-tables profil))))

(defun plv-renoter-rangees (profil rangees nouvelles)
  "So were entities that are new."
  (et_renoter (plv-entites-des-tables profil) nouvelles (mapcar 'plv-rangee-etude rangees)))

;; --- what isn't right in rows, see et_a_corriger: (touched things-to-take-away what-to-write), what to write being T for a whole row, else
;; points or slope pieces

(setq plv-seule:ecart 0.7) ; of an upright number from its point, in text heights

(defun plv-seule:cases (profil rangee points / lue x ecart)
  "(point-or-piece cell) of a row whose cells, or pieces, stand alone; nil for others."
  (setq lue (plv-rangee (car rangee) (cadr rangee)) x (car (plv-origine (car rangee)))
        ecart (* plv-seule:ecart (plv-matrice-echelle (plv-matrice (car rangee)))))
  (cond
    ((plv-cellules-p lue) (mapcar '(lambda (c) (list (car c) (list (+ x (caar c) ecart) (cadr c)))) (plv-cellules profil lue points)))
    ((plv-rangee-de-pentes-p lue)
     (mapcar '(lambda (c) (list (car c) (vl-list* (+ x (car (cadr c))) (+ x (cadr (cadr c))) (cddr (cadr c))))) (plv-pieces-et-mots profil lue)))))

(defun plv-seule:trouver (lue cases / numeros)
  "What the study has found, with what its numbers mean."
  (if (cadr lue)
    (list (car lue) (cddr lue) T)
    (progn
      (setq numeros (vl-remove nil (mapcar 'car (cddr lue))))
      (list (car lue) (vl-remove nil (mapcar 'cadr (cddr lue))) (mapcar '(lambda (i) (car (nth i cases))) numeros)))))

(defun plv-a-corriger (profil rangees points / cases entites etudes)
  "points: those that have cells."
  (setq cases (mapcar '(lambda (r) (plv-seule:cases profil r points)) rangees)
        entites (plv-entites-des-tables profil)
        etudes (mapcar '(lambda (r c) (append (plv-rangee-etude r) (if c (list (mapcar 'cadr c))))) rangees cases))
  (mapcar 'plv-seule:trouver
    (cond ((et_a_corriger entites T etudes)) ((et_a_corriger entites (plv-seule:gardees profil) etudes)))
    cases))

(defun plv-touchee-p (lue) "Whether a hand has changed a text of a row." (car lue))
(defun plv-seule:fausses (lue) (cadr lue))
(defun plv-seule:a-ecrire (lue) (caddr lue))

(defun plv-seule:remplir (rangee choix points contexte)
  (setq contexte (plv-contexte-de-rangee contexte (car rangee) (cadr rangee)))
  (cond
    ((not choix) (plv-bilan 0 nil nil))
    ((eq choix T) (plv-remplir-ligne points contexte))
    ((plv-cellules-p (plv-rangee (car rangee) (cadr rangee))) (plv-remplir-ligne choix contexte))
    (T (plv-remplir-ligne points (cons (cons 'pieces choix) contexte)))))

(defun plv-seule:corriger (rangee lue points contexte)
  "What is said of a row that was filled, or of its cells that weren't right; nil when there is no such row."
  (if (pl_SelectLigne (plv-matrice-nom (car rangee)) (cadr rangee))
    (progn
      (plv-effacer (plv-seule:fausses lue))
      (plv-seule:remplir rangee (plv-seule:a-ecrire lue) points contexte))))

(defun plv-remplir-rangees (profil rangees points lues / contexte faits)
  "Fills rows of the tables that the module has loaded again, as they were found; what is said of each."
  (setq contexte (plv-contexte profil (plv-points-nommes profil) (plv-choix-tout profil))
        faits (plv-executer
                '(lambda ()
                   (plv-avec-calque "PLV-MATRICE"
                     '(lambda () (mapcar '(lambda (r lue) (plv-seule:corriger r lue points contexte)) rangees lues))))))
  (plv-noter-ajouts profil (apply 'append (mapcar 'plv-bilan-ajouts (car faits))))
  (plv-renoter-rangees profil rangees (cadr faits))
  (plv-presenter-tables profil)
  (car faits))

(defun plv-remplir-rangee (profil reference rang / points)
  "One row, counted from 0; nil when there is no such row."
  (setq points (plv-points-cotes profil))
  (if (plv-rangee reference rang)
    (car (plv-remplir-rangees profil (list (list reference rang)) points (plv-a-corriger profil (list (list reference rang)) points)))))

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
