;; PLV-MATRICES: draws the tables of a definition file under a profile and fills every row.
;; Drawing again replaces what an earlier call drew.

(defun plv-matrices (profil chemin tout / trouve points contexte gardes bilan)
  "Draws and fills; gives the profile, or nil after a message. tout: every point has its cells, however close."
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((not (setq trouve (plv-fichier-existant chemin))) nil)
    ((not (setq points (plv-points-nommes profil))) (plv-erreur (plv-refus-sans-terrain)))
    ((not (plv-dessiner-tables profil trouve)) nil)
    (T
     (setq contexte (plv-contexte profil points)
           gardes (plv-points-gardes points contexte tout)
           bilan (cond ((plv-avec-calque "PLV-MATRICE" '(lambda () (plv-remplir-tables gardes contexte)))) ((plv-bilan 0 nil nil))))
     (plv-noter-ajouts profil (append (plv-tracer-rappels profil gardes) (plv-tracer-bords profil) (plv-bilan-ajouts bilan)))
     (plv-noter-choix profil tout)
     (plv-matrices:dire (length gardes) (+ (- (length points) (length gardes)) (plv-bilan-laisses bilan)) (plv-bilan-vides bilan))
     profil)))

(defun plv-matrices:dire (cotes laisses vides)
  (if vides (plv-dire (strcat "Lignes laissées vides: " (plv-joindre vides ", ") ".")))
  (plv-dire (strcat "Matrices: " (itoa cotes) " points cotés"
                    (if (> laisses 0)
                      (strcat ", " (itoa laisses) " laissés faute de place (option Tous pour tout garder).")
                      "."))))

(defun c:plv-matrices (/ profil chemin tout)
  (if (and (setq profil (plv-choisir-profil))
           (setq chemin (plv-demander-fichier "Fichier de définition des matrices")))
    (progn
      (setq tout (= (plv-demander-mot "Points à coter" '("Espaces" "Tous") "Espaces") "Tous"))
      (plv-matrices profil chemin tout)))
  (princ))
