;; Blocks that stand on a profile, and their attributes: manholes, pipes, whatever a user placed.
;; The profile's own references are no such blocks.

(defun plv-blocs (profil / origine longueur haut)
  "References with attributes that stand over a profile, from left to right."
  (setq origine (plv-origine profil)
        longueur (plv-longueur-profil profil)
        haut (+ (cadr origine) (* 20.0 (plv-ttxt profil)) (plv-hauteur-profil profil)))
  (vl-sort
    (vl-remove-if-not '(lambda (e) (and (plv-blocs:dessus (entget e) origine longueur haut) (not (plv-profil-p e))))
      (reverse (plv-entites-du-jeu (ssget "X" '((0 . "INSERT") (66 . 1))))))
    '(lambda (a b) (< (car (plv-origine a)) (car (plv-origine b))))))

(defun plv-blocs:dessus (groupes origine longueur haut / p)
  (setq p (plv-cle 10 groupes))
  (and (/= (strcase (plv-cle 2 groupes)) plv-bloc-support)
       (<= (- (car origine) 1e-6) (car p) (+ (car origine) longueur 1e-6))
       (<= (- (cadr origine) 1e-6) (cadr p) haut)))

(defun plv-blocs:attributs (bloc / e liste)
  (setq e (entnext bloc))
  (while (and e (= (plv-type e) "ATTRIB")) (setq liste (cons e liste) e (entnext e)))
  (reverse liste))

(defun plv-attributs (bloc)
  "(tag . text) of each attribute of a reference."
  (mapcar '(lambda (e) (cons (plv-cle 2 (entget e)) (plv-cle 1 (entget e)))) (plv-blocs:attributs bloc)))

(defun plv-boites-attributs (profil)
  "The boxes of the words of blocks."
  (apply 'append (mapcar '(lambda (bloc) (mapcar 'plv-boite (plv-blocs:attributs bloc))) (plv-blocs profil))))
