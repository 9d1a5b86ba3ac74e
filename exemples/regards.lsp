;; Places the manhole block, with its attributes, on the ground at every point whose name begins with "Regard".
;; An example of a program on a profile: (placer-regards (plv-profil-de-numero "1"))

(defun placer-regards:attribut (point hauteur tag texte)
  (entmake (list '(0 . "ATTRIB") '(8 . "PLV-PROFIL") (cons 10 point) (cons 40 hauteur) (cons 1 texte) (cons 2 tag) '(70 . 0))))

(defun placer-regards:un (profil p / origine plan x y)
  (setq origine (plv-cle 10 (entget profil))
        plan (plv-plan-en (plv-tables:plans profil) (car p))
        x (+ (car origine) (car p))
        y (plv-profil:ordonnee (cadr p) plan (plgxd profil "ECHV") (cadr origine)))
  (entmake (list '(0 . "INSERT") '(8 . "PLV-PROFIL") '(66 . 1) '(2 . "REGARD") (cons 10 (plv-point x y))))
  (placer-regards:attribut (plv-point (- x 0.9) (+ y 4.5)) 1.8 "NUM" (substr (caddr p) 8))
  (placer-regards:attribut (plv-point (- x 0.9) (+ y 2.0)) 1.4 "DN" "300")
  (entmake '((0 . "SEQEND") (8 . "PLV-PROFIL"))))

(defun placer-regards (profil / nombre)
  (setq nombre 0)
  (foreach p (plv-matrices:points profil)
    (if (wcmatch (caddr p) "Regard*")
      (progn (placer-regards:un profil p) (setq nombre (1+ nombre)))))
  (plv-dire (strcat (itoa nombre) " regards places."))
  (princ))

(defun importer-regard ()
  "Defines the block REGARD from its file, without placing it."
  (command "_.-INSERT" "REGARD=blocs/regard.dxf")
  (command))
