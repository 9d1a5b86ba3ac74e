;; Rows about blocks that stand on a profile: their attributes, by the tags between the row's braces.

(setq plv-blocs:propres '("PLV_PROFIL" "PLV_SUPPORT"))

(defun plv-blocs (profil / jeu i point haut longueur liste)
  "References with attributes that stand over a profile, from left to right."
  (setq point (plv-cle 10 (entget profil))
        longueur (cadr (pl_InfosTn profil))
        haut (+ (cadr point) (* 20.0 (plgxd profil "TTXT"))
                (plv-habillage:hauteur (plv-points-tn profil) (plgxd profil "ECHV") (plv-tables:plans profil)))
        i 0)
  (if (setq jeu (ssget "X" '((0 . "INSERT") (66 . 1))))
    (repeat (sslength jeu)
      (if (plv-blocs:dessus (entget (ssname jeu i)) point longueur haut) (setq liste (cons (ssname jeu i) liste)))
      (setq i (1+ i))))
  (vl-sort liste '(lambda (a b) (< (cadr (assoc 10 (entget a))) (cadr (assoc 10 (entget b)))))))

(defun plv-blocs:dessus (groupes point longueur haut / p)
  (setq p (plv-cle 10 groupes))
  (and (not (member (strcase (plv-cle 2 groupes)) plv-blocs:propres))
       (<= (- (car point) 1e-6) (car p) (+ (car point) longueur 1e-6))
       (<= (- (cadr point) 1e-6) (cadr p) haut)))

(defun plv-attributs (bloc / e groupes liste)
  "(tag . text) of each attribute of a reference."
  (setq e (entnext bloc))
  (while (and e (= (plv-cle 0 (setq groupes (entget e))) "ATTRIB"))
    (setq liste (cons (cons (plv-cle 2 groupes) (plv-cle 1 groupes)) liste) e (entnext e)))
  (reverse liste))

(defun plv-remplir:etiquettes (infos)
  "The tags of a row's braces, between blanks, tabs and bars."
  (vl-remove "" (plv-couper (vl-string-translate "|\t" "  " infos) " ")))

(defun plv-remplir:attributs (points contexte / origine etiquettes d precedent texte)
  "One upright text for each block: the values of the row's tags."
  (setq origine (cadr (assoc 10 (entget (plv-cle 'profil contexte))))
        etiquettes (plv-remplir:etiquettes (plv-cle 'infos contexte)))
  (foreach bloc (plv-blocs (plv-cle 'profil contexte))
    (setq d (- (cadr (assoc 10 (entget bloc))) origine)
          texte (plv-joindre (vl-remove nil (mapcar '(lambda (tag) (plv-cle tag (plv-attributs bloc))) etiquettes)) " "))
    (cond
      ((= texte ""))
      ((and precedent (< (- d precedent) (* 1.3 (plv-cle 'ttxt contexte)))) (plv-laisser 1))
      (T (pl_TexteVertical (- d (* 0.2 (plv-cle 'ttxt contexte))) texte) (setq precedent d)))))

(defun plv-remplir:attributs-auto (points contexte / jeu)
  (setq jeu (ssadd))
  (foreach bloc (plv-blocs (plv-cle 'profil contexte)) (ssadd bloc jeu))
  (if (> (sslength jeu) 0) (pl_CotAttribsAuto jeu)))

(defun plv-bloc-place (profil bloc / textes)
  "Writes the attributes of a block just placed into the rows that take them; the texts go when the tables are redrawn."
  (if (and (plv-tables:references profil) (setq textes (plv-avec-calque "PLV-MATRICE" '(lambda () (pl_NotifInsertBlock bloc)))))
    (plv-tables:noter-ajouts profil (mapcar 'cdr textes))))
