;; The records that the module keeps of drawn tables: with the profile the list of their block references, with each reference
;; INFO_MATRICE. The module writes both; here they are read, and nowhere else in the front-end.

(setq plv-matrice:liste "VARDANE_MATRICES" plv-matrice:marque 1425781 plv-matrice:cle "INFO_MATRICE")

(defun plv-liste-tables (profil) (plv-enregistrement profil plv-matrice:liste))

(defun plv-remettre-liste-tables (profil liste)
  "The list as it was before tables were drawn."
  (if liste
    (plv-ecrire-enregistrement profil plv-matrice:liste liste)
    (dictremove (plv-dictionnaire profil) plv-matrice:liste)))

(defun plv-references-tables (profil)
  "Block references of the tables that are stored with the profile, those that are gone from the drawing too."
  (plv-cles 330 (cdr (member (cons 90 plv-matrice:marque) (plv-liste-tables profil)))))

(defun plv-tables (profil)
  "Those that are still in the drawing, with their record."
  (vl-remove-if-not '(lambda (r) (and (plv-existe r) (plv-matrice-nom r))) (plv-references-tables profil)))

(defun plv-oublier-tables (profil / groupes)
  "Drops the tables that are gone from the list."
  (setq groupes (plv-enregistrement profil plv-matrice:liste))
  (if (vl-some '(lambda (g) (and (= (car g) 330) (not (plv-existe (cdr g))))) groupes)
    (plv-ecrire-enregistrement profil plv-matrice:liste
      (vl-remove-if '(lambda (g) (and (= (car g) 330) (not (plv-existe (cdr g))))) groupes))))

;; --- a table: name, scale, text style, number of rows, eight groups for each row, rules, group of the entities

(defun plv-matrice (reference) (plv-enregistrement reference plv-matrice:cle))

(defun plv-matrice-nom (reference) (plv-cle 300 (plv-matrice reference)))
(defun plv-matrice-echelle (matrice) (plv-cle 40 matrice))
(defun plv-matrice-nombre (matrice) (plv-cle 90 matrice))

(defun plv-matrice-filets (matrice)
  "The rules, with the style before them and the group after them."
  (plv-cles 330 matrice))

(defun plv-groupe-table (reference)
  "The group that holds what stands in a table."
  (plv-dernier (plv-matrice-filets (plv-matrice reference))))

(defun plv-entites-table (reference / groupe)
  (if (setq groupe (plv-groupe-table reference)) (plv-cles 340 (entget groupe))))

;; --- its rows: (index id name height decimals type label infos), heights in units of the table's scale

(defun plv-matrice-rangees (matrice / groupes rangees)
  (setq groupes (mapcar 'cdr (cddddr matrice)))
  (repeat (cond ((plv-matrice-nombre matrice)) (0))
    (setq rangees (cons groupes rangees))
    (repeat 8 (setq groupes (cdr groupes))))
  (reverse rangees))

(defun plv-rangee-nom (rangee) (nth 2 rangee))
(defun plv-rangee-hauteur (rangee) (nth 3 rangee))
(defun plv-rangee-decimales (rangee) (nth 4 rangee))
(defun plv-rangee-nature (rangee) (nth 5 rangee))
(defun plv-rangee-libelle (rangee) (nth 6 rangee))
(defun plv-rangee-infos (rangee)
  "The text between braces of the row's definition."
  (nth 7 rangee))

(defun plv-rangee (reference rang) (nth rang (plv-matrice-rangees (plv-matrice reference))))

(defun plv-hauteur-rangees (rangees) (apply '+ (cons 0.0 (mapcar 'plv-rangee-hauteur rangees))))
