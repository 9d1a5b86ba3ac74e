;; Tables under a profile: drawing them through the module, and erasing what an earlier drawing left.
;; Each table keeps its entities in a group; the group makes the one selection that erases it.

(defun plv-tables:blocs-cites (/ bloc e cites)
  "Names of the blocks that stand in other blocks."
  (setq bloc (tblnext "BLOCK" T))
  (while bloc
    (setq e (plv-cle -2 bloc))
    (while e
      (if (= (plv-type e) "INSERT") (setq cites (cons (plv-cle 2 (entget e)) cites)))
      (setq e (entnext e)))
    (setq bloc (tblnext "BLOCK")))
  cites)

(defun plv-tables:effacer-blocs (noms / cites bloc)
  "Takes away the definitions of title columns to which nothing refers any more; a copied table shares its original's."
  (setq cites (plv-tables:blocs-cites))
  (foreach nom noms
    (if (and (not (member nom cites)) (not (ssget "X" (list '(0 . "INSERT") (cons 2 (strcat "`" nom)))))
             (setq bloc (tblobjname "BLOCK" nom)))
      (entdel (plv-cle 330 (entget bloc))))))

(defun plv-tables-posees (profil ajouts / references)
  "What the tables of a profile consist of, with what the front-end added: (entities groups blocks)."
  (setq references (vl-remove-if-not 'plv-existe (plv-references-tables profil)))
  (list (append (apply 'append (mapcar 'plv-entites-table references)) references ajouts)
        (vl-remove nil (mapcar 'plv-groupe-table references))
        (plv-uniques (mapcar '(lambda (r) (plv-cle 2 (entget r))) references))))

(defun plv-effacer-posees (posees)
  (plv-effacer (car posees))
  (plv-effacer (cadr posees))
  (plv-tables:effacer-blocs (caddr posees)))

(defun plv-effacer-tables (profil)
  (plv-effacer-posees (plv-tables-posees profil (plv-ajouts-tables profil)))
  (plv-oublier-ajouts profil)
  (plv-presenter-tables profil))

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

(defun plv-tables:filet (e / groupes)
  "A rule as the titles are: on the layer of tables and with its look; the module draws it on layer 0."
  (setq groupes (vl-remove-if '(lambda (g) (member (car g) '(8 62))) (entget e)))
  (entmod (append groupes (list (cons 8 (plv-calque "PLV-MATRICE")) '(62 . 256)))))

(defun plv-tables:filets (reference) (foreach e (cdr (plv-sans-dernier (plv-matrice-filets (plv-matrice reference)))) (plv-tables:filet e)))

(defun plv-dessiner-tables (profil / ttxt point)
  "Draws the tables of the definitions that are loaded, still empty."
  (setq ttxt (plv-ttxt profil)
        point (plv-origine profil))
  (pl_DessinerMatrices profil (plv-point (car point) (- (cadr point) (* 2.5 ttxt))) ttxt ttxt)
  (pl_updLargeurLignes (plv-largeur-tables profil))
  (foreach reference (plv-references-tables profil) (plv-tables:filets reference)))
