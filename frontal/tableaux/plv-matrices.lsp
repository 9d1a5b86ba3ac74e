;; PLV-MATRICES: draws the tables of a definition file under a profile and fills every row.
;; Drawing again replaces what an earlier call drew.

(defun plv-matrices:points (profil / noms nom i)
  "The ground as (distance altitude name number)."
  (setq noms (plv-noms-tn profil) i 0)
  (mapcar
    '(lambda (p)
       (setq i (1+ i) nom (cond ((car noms)) ("")) noms (cdr noms))
       (list (car p) (cadr p) nom i))
    (plv-points-tn profil)))

(defun plv-matrices:contexte (profil points)
  (list (cons 'profil profil)
        (cons 'ttxt (plgxd profil "TTXT"))
        (cons 'origine (plgxd profil "DCUMDEB"))
        (cons 'longueur (car (plv-dernier points)))
        (cons 'nommes (vl-remove-if '(lambda (p) (= (caddr p) "")) points))))

(defun plv-matrices:gardes (points contexte tout)
  "The points that get cells."
  (if tout points (plv-espacer points (plv-espacement-necessaire (plv-tables:genres) points (plv-cle 'ttxt contexte)))))

(defun plv-matrices (profil chemin tout / trouve points contexte gardes ajouts)
  "Draws and fills; gives the profile, or nil after a message. tout: every point has its cells, however close."
  (setq plv-laissees 0)
  (cond
    ((not (setq trouve (plv-fichier-existant chemin))) nil)
    ((not (setq points (plv-matrices:points profil))) (plv-erreur "ce profil n'a pas de terrain naturel"))
    ((not (plv-dessiner-tables profil trouve)) nil)
    (T
     (setq contexte (plv-matrices:contexte profil points)
           gardes (plv-matrices:gardes points contexte tout))
     (plv-laisser (- (length points) (length gardes)))
     (setq ajouts (plv-avec-calque "PLV-MATRICE" '(lambda () (plv-remplir-tables gardes contexte))))
     (plv-tables:noter-ajouts profil (append (plv-tables:rappels profil gardes) (plv-tables:bords profil) ajouts))
     (plv-tables:noter-choix profil tout)
     (plv-dire (strcat "Matrices: " (itoa (length gardes)) " points cotes"
                       (if (> plv-laissees 0)
                         (strcat ", " (itoa plv-laissees) " laisses faute de place (option Tous pour tout garder).")
                         ".")))
     profil)))

(defun c:plv-matrices (/ profil chemin tout)
  (if (and (setq profil (plv-choisir-profil))
           (setq chemin (plv-demander-fichier "Fichier de definition des matrices")))
    (progn
      (setq tout (= (plv-demander-mot "Points a coter" '("Espaces" "Tous") "Espaces") "Tous"))
      (plv-matrices profil chemin tout)))
  (princ))
