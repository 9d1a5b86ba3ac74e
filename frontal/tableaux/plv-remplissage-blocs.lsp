;; Rows about blocks that stand on a profile: their attributes, by the tags between the row's braces.
;; Shared in the room: plv-remplir:*

(defun plv-attributs:etiquettes (infos)
  "The tags of a row's braces, between blanks, tabs and bars."
  (vl-remove "" (plv-couper (vl-string-translate "|\t" "  " infos) " ")))

(defun plv-attributs:texte (bloc etiquettes)
  (plv-joindre (vl-remove nil (mapcar '(lambda (tag) (plv-cle tag (plv-attributs bloc))) etiquettes)) " "))

(defun plv-remplir:attributs-places (contexte / origine etiquettes)
  "(distance text) of each block that has one of the row's tags."
  (setq origine (car (plv-origine (plv-cle 'profil contexte))) etiquettes (plv-attributs:etiquettes (plv-cle 'infos contexte)))
  (vl-remove-if '(lambda (p) (= (cadr p) ""))
    (mapcar '(lambda (bloc) (list (- (car (plv-origine bloc)) origine) (plv-attributs:texte bloc etiquettes)))
      (plv-blocs (plv-cle 'profil contexte)))))

(defun plv-remplir:attributs-ecrits (contexte / ecrits)
  "Those that have room after the one before."
  (foreach p (plv-remplir:attributs-places contexte)
    (if (not (and ecrits (< (- (car p) (caar ecrits)) (* 1.3 (plv-cle 'ttxt contexte))))) (setq ecrits (cons p ecrits))))
  (reverse ecrits))

(defun plv-remplir:attributs (points contexte / ecrits)
  "One upright text for each block: the values of the row's tags."
  (setq ecrits (plv-remplir:attributs-ecrits contexte))
  (foreach p ecrits (pl_TexteVertical (- (car p) (* 0.2 (plv-cle 'ttxt contexte))) (cadr p)))
  (- (length (plv-remplir:attributs-places contexte)) (length ecrits)))

(defun plv-remplir:attributs-auto (points contexte / blocs)
  (if (setq blocs (plv-blocs (plv-cle 'profil contexte))) (pl_CotAttribsAuto (plv-jeu blocs)))
  0)

(defun plv-bloc-place (profil bloc / textes)
  "Writes the attributes of a block just placed into the rows that take them; the texts go when the tables are redrawn."
  (if (and (plv-references-tables profil) (setq textes (plv-avec-calque "PLV-MATRICE" '(lambda () (pl_NotifInsertBlock bloc)))))
    (progn
      (plv-noter-ajouts profil (mapcar 'cdr textes))
      (plv-renoter-rangees profil (plv-rangees-des-tables profil) (mapcar 'cdr textes)))))
