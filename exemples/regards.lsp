;; Places the manhole block, with its attributes, on the ground at every point whose name begins with "Regard".
;; Each one is attached to the sewer's support, so that it follows a change of plane, and enters the rows that take
;; attributes. An example of a program on a profile: (placer-regards (plv-profil-de-numero "1"))

(defun placer-regards:attribut (point hauteur tag texte)
  ;; Centred on the manhole: the rows write an attribute at its place.
  (entmake (list '(0 . "ATTRIB") '(8 . "PLV-PROFIL") (cons 10 point) (cons 11 point) (cons 40 hauteur) (cons 1 texte)
                 (cons 2 tag) '(70 . 0) '(72 . 1))))

(defun placer-regards:un (profil p / origine plan x y bloc)
  (setq origine (plv-cle 10 (entget profil))
        plan (plv-plan-en (plv-plans profil) (car p))
        x (+ (car origine) (car p))
        y (plv-ordonnee (cadr p) plan (plgxd profil "ECHV") (cadr origine)))
  (entmake (list '(0 . "INSERT") '(8 . "PLV-PROFIL") '(66 . 1) '(2 . "REGARD") (cons 10 (plv-point x y))))
  ;; Above the dimensions, which are above the ground.
  (placer-regards:attribut (plv-point x (+ y 20.0)) 1.8 "NUM" (substr (caddr p) 8))
  (placer-regards:attribut (plv-point x (+ y 17.5)) 1.8 "DN" "300")
  (entmake '((0 . "SEQEND") (8 . "PLV-PROFIL")))
  (setq bloc (entlast))
  (pl_elem_ponct profil "Assainissement" (plv-point x y) bloc)
  (plv-bloc-place profil bloc))

(defun placer-regards (profil / nombre)
  (setq nombre 0)
  (pl_ChoixProfil profil)
  (foreach p (plv-points-nommes profil)
    (if (wcmatch (caddr p) "Regard*")
      (progn (placer-regards:un profil p) (setq nombre (1+ nombre)))))
  (plv-dire (strcat (itoa nombre) " regards places."))
  (princ))

(defun importer-regard ()
  "Defines the block REGARD from its file, without placing it."
  (command "_.-INSERT" "REGARD=blocs/regard.dxf")
  (command))
