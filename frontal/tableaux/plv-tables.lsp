;; Tables under a profile: drawing them through the module, and erasing what an earlier drawing left.
;; Each table keeps its entities in a group; the group makes the one selection that erases it.

(defun plv-effacer-tables (profil / groupe)
  "Erases the tables of a profile with everything that was written in them, and what the front-end added."
  (foreach reference (plv-references-tables profil)
    (if (plv-existe reference)
      (progn
        (setq groupe (plv-groupe-table reference))
        (plv-effacer (plv-entites-table reference))
        (plv-effacer (list reference groupe)))))
  (plv-effacer-ajouts profil))

;; --- whether every point had its cells, kept for a row that is filled again later

(defun plv-noter-choix (profil tout) (plv-ecrire-enregistrement profil "PLV_TABLES" (list (cons 90 (if tout 1 0)))))

(defun plv-choix-tout (profil) (= (plv-cle 90 (plv-enregistrement profil "PLV_TABLES")) 1))

;; --- drawing

(defun plv-largeur-tables (profil)
  "Length of the rules: one text height beyond the profile, so that the texts of the last point stand inside."
  (+ (plv-longueur-profil profil) (plv-ttxt profil)))

(defun plv-tracer-bords (profil / largeur)
  "The upright right side of each table; their names. On the left the title column closes it."
  (setq largeur (plv-largeur-tables profil))
  (mapcar
    '(lambda (reference / matrice point x)
       (setq matrice (plv-matrice reference)
             point (plv-origine reference)
             x (+ (car point) largeur))
       (plv-ligne "PLV-MATRICE" (plv-point x (cadr point))
         (plv-point x (- (cadr point) (* (plv-matrice-echelle matrice) (plv-hauteur-rangees (plv-matrice-rangees matrice)))))))
    (plv-references-tables profil)))

(defun plv-dessiner-tables (profil chemin / ttxt point)
  "Reads the definitions and draws empty tables under the profile; nil after a message."
  (setq ttxt (plv-ttxt profil)
        point (plv-origine profil))
  (cond
    ((not (pl_LireMatriceKavel chemin))
     (plv-erreur (strcat chemin ": aucune ligne de matrice; attendu: NOM - hauteur type {infos} libellé")))
    (T
     (plv-effacer-tables profil)
     (plv-avec-calque "PLV-MATRICE"
       '(lambda ()
          (pl_DessinerMatrices profil (plv-point (car point) (- (cadr point) (* 2.5 ttxt))) ttxt ttxt)
          (pl_updLargeurLignes (plv-largeur-tables profil)))))))
