;; Tables under a profile: drawing them through the module, and erasing what an earlier drawing left.
;; Each matrix keeps its entities in a group; the group makes the one selection that erases it.

(defun plv-tables:references (profil / record)
  "Block references of the matrices that are stored with the profile."
  (setq record (dictsearch (plv-dictionnaire profil) "VARDANE_MATRICES"))
  (mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) 330)) (cdr (member '(90 . 1425781) record)))))

(defun plv-tables:groupe (reference / record)
  "The group of a drawn matrix: the last reference of its record."
  (setq record (vl-remove-if-not '(lambda (g) (= (car g) 330)) (dictsearch (plv-dictionnaire reference) "INFO_MATRICE")))
  (cdr (plv-dernier record)))

(defun plv-tables:membres (groupe)
  (if groupe (mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) 340)) (entget groupe)))))

(defun plv-effacer-tables (profil / groupe)
  "Erases the tables of a profile with everything that was written in them, and what the front-end added."
  (foreach reference (plv-tables:references profil)
    (if (entget reference)
      (progn
        (setq groupe (plv-tables:groupe reference))
        (foreach membre (plv-tables:membres groupe) (if (entget membre) (entdel membre)))
        (if (entget reference) (entdel reference))
        (if (and groupe (entget groupe)) (entdel groupe)))))
  (plv-tables:effacer-ajouts profil))

;; --- what stands outside the tables' groups (reference lines, slopes, attributes), listed with the profile

(defun plv-tables:ajouts (profil)
  (vl-remove-if-not 'entget
    (mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) 330)) (plv-enregistrement profil "PLV_RAPPELS")))))

(defun plv-tables:effacer-ajouts (profil)
  (plv-effacer (plv-tables:ajouts profil))
  (dictremove (plv-dictionnaire profil) "PLV_RAPPELS"))

(defun plv-tables:noter-ajouts (profil entites)
  (plv-ecrire-enregistrement profil "PLV_RAPPELS"
    (mapcar '(lambda (e) (cons 330 e)) (plv-uniques (append (plv-tables:ajouts profil) entites)))))

(defun plv-tables:noter-choix (profil tout)
  "Keeps whether every point had its cells, for a row that is filled again later."
  (plv-ecrire-enregistrement profil "PLV_TABLES" (list (cons 90 (if tout 1 0)))))

(defun plv-tables:plans (profil / entite plans debut handle)
  "Sections (start altitude) from the chain of reference planes."
  (setq entite (plgxd profil "PRPC") debut 0.0)
  (while entite
    (setq plans (cons (list debut (plgxd entite "PC")) plans)
          debut (+ debut (plgxd entite "DISTANCE"))
          entite (plgxd entite "NEXT-PC")))
  (reverse plans))

(defun plv-tables:rappels (profil points / point echv plans)
  "Thin lines from the ground down to its plane at the points that have cells; their names."
  (setq point (plv-cle 10 (entget profil))
        echv (plgxd profil "ECHV")
        plans (plv-tables:plans profil))
  (mapcar
    '(lambda (p)
       (plv-ligne "PLV-RAPPELS"
         (plv-point (+ (car point) (car p)) (plv-profil:ordonnee (cadr p) (plv-plan-en plans (car p)) echv (cadr point)))
         (plv-point (+ (car point) (car p)) (cadr point))))
    points))

(defun plv-tables:largeur (profil)
  "Length of the rules: one text height beyond the profile, so that the texts of the last point stand inside."
  (+ (cadr (pl_InfosTn profil)) (plgxd profil "TTXT")))

(defun plv-tables:bords (profil / largeur)
  "The upright right side of each table; their names. On the left the title column closes it."
  (setq largeur (plv-tables:largeur profil))
  (mapcar
    '(lambda (reference / record point x)
       (setq record (dictsearch (plv-dictionnaire reference) "INFO_MATRICE")
             point (plv-cle 10 (entget reference))
             x (+ (car point) largeur))
       (plv-ligne "PLV-MATRICE" (plv-point x (cadr point))
         (plv-point x (- (cadr point) (* (plv-cle 40 record) (plv-tables:hauteur record))))))
    (plv-tables:references profil)))

(defun plv-tables:hauteur (record / somme)
  "Height of a stored matrix in text heights: the sum of its rows' heights, all reals but the first."
  (setq somme 0.0)
  (foreach g (cdr (member (assoc 40 record) record))
    (if (= (car g) 40) (setq somme (+ somme (cdr g)))))
  somme)

(defun plv-dessiner-tables (profil chemin / ttxt point)
  "Reads the definitions and draws empty tables under the profile; nil after a message."
  (setq ttxt (plgxd profil "TTXT")
        point (plv-cle 10 (entget profil)))
  (cond
    ((not (pl_LireMatriceKavel chemin))
     (plv-erreur (strcat chemin ": aucune ligne de matrice; attendu: NOM - hauteur type {infos} libelle")))
    (T
     (plv-effacer-tables profil)
     (plv-avec-calque "PLV-MATRICE"
       '(lambda ()
          (pl_DessinerMatrices profil (plv-point (car point) (- (cadr point) (* 2.5 ttxt))) ttxt ttxt)
          (pl_updLargeurLignes (plv-tables:largeur profil)))))))
