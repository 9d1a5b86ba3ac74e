;; Rows about blocks that stand on a profile: their attributes, by the tags between the row's braces.
;; Shared in the room: plv-remplir:*

(defun plv-attributs:etiquettes (infos)
  "The tags of a row's braces, between blanks, tabs and bars."
  (vl-remove "" (plv-couper (vl-string-translate "|\t" "  " infos) " ")))

(defun plv-attributs:texte (bloc etiquettes)
  (plv-joindre (vl-remove nil (mapcar '(lambda (tag) (plv-cle tag (plv-attributs bloc))) etiquettes)) " "))

(defun plv-remplir:attributs (points contexte / origine ttxt d precedent texte laisses)
  "One upright text for each block: the values of the row's tags."
  (setq origine (car (plv-origine (plv-cle 'profil contexte)))
        ttxt (plv-cle 'ttxt contexte)
        laisses 0)
  (foreach bloc (plv-blocs (plv-cle 'profil contexte))
    (setq d (- (car (plv-origine bloc)) origine)
          texte (plv-attributs:texte bloc (plv-attributs:etiquettes (plv-cle 'infos contexte))))
    (cond
      ((= texte ""))
      ((and precedent (< (- d precedent) (* 1.3 ttxt))) (setq laisses (1+ laisses)))
      (T (pl_TexteVertical (- d (* 0.2 ttxt)) texte) (setq precedent d))))
  laisses)

(defun plv-remplir:attributs-auto (points contexte / blocs)
  (if (setq blocs (plv-blocs (plv-cle 'profil contexte))) (pl_CotAttribsAuto (plv-jeu blocs)))
  0)

(defun plv-bloc-place (profil bloc / textes)
  "Writes the attributes of a block just placed into the rows that take them; the texts go when the tables are redrawn."
  (if (and (plv-references-tables profil) (setq textes (plv-avec-calque "PLV-MATRICE" '(lambda () (pl_NotifInsertBlock bloc)))))
    (plv-noter-ajouts profil (mapcar 'cdr textes))))
