;; PlKavelVersPlan: equipment, slopes and directions of a profile onto its axis in plan.
;; What an earlier call drew is listed with the profile and goes first.

(setq plv-vers-plan:cle "PLV_VERS_PLAN" plv-vers-plan:calque "PLV-PLAN")

(defun plv-vers-plan:a-cote (segments d ecart / lieu)
  "The point beside the axis at a distance, to the left."
  (setq lieu (plv-axe-en segments d))
  (polar (plv-lieu-point lieu) (+ (plv-lieu-direction lieu) (* 0.5 pi)) ecart))

(defun plv-vers-plan:fleche (segments piece ttxt / milieu demi)
  "An arrow down the slope with its figure, half way along a slope piece."
  (setq milieu (plv-milieu piece)
        demi (* (if (< (plv-pente-valeur piece) 0.0) 1.0 -1.0) (min (* 4.0 ttxt) (* 0.45 (plv-longueur piece)))))
  (pl_fleche (plv-vers-plan:a-cote segments (- milieu demi) (* 1.5 ttxt))
             (plv-vers-plan:a-cote segments (+ milieu demi) (* 1.5 ttxt))
             (* 0.8 ttxt) (strcat (plv-reel (abs (* 100.0 (plv-pente-valeur piece))) 2) " %")))

(defun plv-vers-plan:bloc (segments bloc d ttxt / groupes lieu point direction rang)
  "The same block on the axis, with its attributes beside it."
  (setq groupes (entget bloc)
        lieu (plv-axe-en segments d)
        direction (plv-lieu-direction lieu)
        point (plv-point (car (plv-lieu-point lieu)) (cadr (plv-lieu-point lieu)))
        rang 0)
  (entmake (list '(0 . "INSERT") (cons 8 (plv-calque plv-vers-plan:calque)) '(66 . 1) (cons 2 (plv-cle 2 groupes)) (cons 10 point)
                 (cons 41 (cond ((plv-cle 41 groupes)) (1.0))) (cons 42 (cond ((plv-cle 42 groupes)) (1.0)))))
  (foreach a (plv-attributs bloc)
    (entmake (list '(0 . "ATTRIB") (cons 8 (plv-calque plv-vers-plan:calque)) (cons 1 (cdr a)) (cons 2 (car a)) '(70 . 0) (cons 40 (* 0.7 ttxt))
                   (cons 10 (polar (polar point (- direction (* 0.5 pi)) (* ttxt (+ 1.6 rang))) direction (* -0.7 ttxt)))
                   (cons 50 direction)))
    (setq rang (1+ rang)))
  (entmake (list '(0 . "SEQEND") (cons 8 (plv-calque plv-vers-plan:calque)))))

(defun plv-pentes-portees (profil / genre)
  "The slope pieces of the first project line that have an arrow."
  (if (setq genre (car (plv-genres-du-projet profil)))
    (vl-remove-if-not
      '(lambda (p) (and (plv-pente-droite-p p) (> (abs (plv-pente-valeur p)) 5e-5) (> (plv-longueur p) (* 5.0 (plv-ttxt profil)))))
      (plv-elements-de-pente profil genre))))

(defun plv-vers-plan:dessiner (profil segments ttxt / origine)
  (setq origine (car (plv-origine profil)))
  (foreach piece (plv-pentes-portees profil) (plv-vers-plan:fleche segments piece ttxt))
  (foreach bloc (plv-blocs profil)
    (plv-vers-plan:bloc segments bloc (- (car (plv-origine bloc)) origine) ttxt)))

(defun plv-portes-sur-plan (profil)
  "What an earlier call drew on the axis."
  (plv-entites-enregistrees profil plv-vers-plan:cle))

(defun plv-vers-plan (profil / axe entites)
  "Draws on the axis of the profile; gives the entities, or nil after a message."
  (plv-creer-calques)
  (if (setq axe (plv-axe-plan profil))
    (progn
      (plv-effacer (plv-portes-sur-plan profil))
      (setq entites
        (plv-ajouts-de
          '(lambda ()
             (plv-avec-calque plv-vers-plan:calque
               '(lambda () (plv-vers-plan:dessiner profil (plv-axe-segments axe) (plv-ttxt profil)))))))
      (plv-enregistrer-entites profil plv-vers-plan:cle entites)
      (plv-noter-fait profil "PLAN" nil nil nil)
      (plv-dire (strcat (plv-compte (length entites) "entité portée") " sur l'axe en plan."))
      entites)
    (plv-erreur "ce profil n'a pas d'axe en plan: PLV-AXE en associe un")))

(defun c:PlKavelVersPlan (/ profil)
  "Reporte sur l'axe en plan les éléments d'un profil."
  (if (setq profil (plv-profil-courant))
    (progn
      (if (not (plv-axe-plan profil)) (plv-demander-axe profil))
      (plv-vers-plan profil)))
  (princ))
