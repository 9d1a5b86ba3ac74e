;; PlKavelVersPlan: equipment, slopes and directions of a profile onto its axis in plan.
;; What an earlier call drew is listed with the profile and goes first.

(defun plv-plan:a-cote (segments d ecart / lieu)
  "The point beside the axis at a distance, to the left; the direction too."
  (setq lieu (plv-axe-en segments d))
  (list (polar (car lieu) (+ (cadr lieu) (* 0.5 pi)) ecart) (cadr lieu)))

(defun plv-plan:fleche (segments tr ttxt / milieu demi sens a b)
  "An arrow down the slope with its figure, half way along a stretch."
  (setq milieu (* 0.5 (+ (car tr) (cadr tr)))
        demi (* (if (< (caddr tr) 0.0) 1.0 -1.0) (min (* 4.0 ttxt) (* 0.45 (- (cadr tr) (car tr)))))
        a (car (plv-plan:a-cote segments (- milieu demi) (* 1.5 ttxt)))
        b (car (plv-plan:a-cote segments (+ milieu demi) (* 1.5 ttxt))))
  (pl_fleche a b (* 0.8 ttxt) (strcat (plv-reel (abs (* 100.0 (caddr tr))) 2) " %")))

(defun plv-plan:bloc (segments bloc d ttxt / groupes lieu rang)
  "The same block on the axis, with its attributes beside it."
  (setq groupes (entget bloc) lieu (plv-axe-en segments d) rang 0)
  (entmake (list '(0 . "INSERT") '(8 . "PLV-PLAN") '(66 . 1) (cons 2 (plv-cle 2 groupes))
                 (cons 10 (plv-point (caar lieu) (cadar lieu)))
                 (cons 41 (cond ((plv-cle 41 groupes)) (1.0))) (cons 42 (cond ((plv-cle 42 groupes)) (1.0)))))
  (foreach a (plv-attributs bloc)
    (entmake (list '(0 . "ATTRIB") '(8 . "PLV-PLAN") (cons 1 (cdr a)) (cons 2 (car a)) '(70 . 0) (cons 40 (* 0.7 ttxt))
                   (cons 10 (polar (polar (plv-point (caar lieu) (cadar lieu)) (- (cadr lieu) (* 0.5 pi)) (* ttxt (+ 1.6 rang))) (cadr lieu) (* -0.7 ttxt)))
                   (cons 50 (cadr lieu))))
    (setq rang (1+ rang)))
  (entmake '((0 . "SEQEND") (8 . "PLV-PLAN"))))

(defun plv-plan:dessiner (profil segments genre ttxt / origine)
  (setq origine (cadr (assoc 10 (entget profil))))
  (foreach tr (if genre (plv-troncons profil genre))
    (if (and (numberp (caddr tr)) (> (abs (caddr tr)) 5e-5) (> (- (cadr tr) (car tr)) (* 5.0 ttxt)))
      (plv-plan:fleche segments tr ttxt)))
  (foreach bloc (plv-blocs profil)
    (plv-plan:bloc segments bloc (- (cadr (assoc 10 (entget bloc))) origine) ttxt)))

(defun plv-vers-plan (profil / axe entites)
  "Draws on the axis of the profile; gives the entities, or nil after a message."
  (plv-creer-calques)
  (if (setq axe (plv-axe-plan profil))
    (progn
      (plv-effacer (mapcar 'cdr (plv-enregistrement profil "PLV_VERS_PLAN")))
      (setq entites
        (plv-ajouts-de
          '(lambda ()
             (plv-avec-calque "PLV-PLAN"
               '(lambda () (plv-plan:dessiner profil (plv-axe-segments axe) (car (plv-genres-du-projet profil)) (plgxd profil "TTXT")))))))
      (plv-ecrire-enregistrement profil "PLV_VERS_PLAN" (mapcar '(lambda (e) (cons 330 e)) entites))
      (plv-dire (strcat (itoa (length entites)) " entites portees sur l'axe en plan."))
      entites)
    (plv-erreur "ce profil n'a pas d'axe en plan: PLV-AXE en associe un")))

(defun c:PlKavelVersPlan (/ profil choix)
  (if (setq profil (plv-profil-courant))
    (progn
      (if (and (not (plv-axe-plan profil)) (setq choix (entsel "\nPolyligne de l'axe en plan: ")))
        (plv-associer-axe profil (car choix)))
      (plv-vers-plan profil)))
  (princ))
