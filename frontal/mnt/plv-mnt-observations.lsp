;; PLV-TERRAIN OBservations: where the axis meets named objects the ground gets a point with their name, which the row of observations
;; shows. The point lies on the ground as it is. What was asked is kept, so that Actualiser asks it again.
;; Shared in the room: plv-mnt:rencontres

(setq plv-mnt:cle-observations "PLV_MNT_OBSERVATIONS")

(defun plv-mnt-observations-gardees (profil / groupes)
  "(layers distance); nil without any."
  (if (setq groupes (plv-enregistrement profil plv-mnt:cle-observations)) (list (plv-cle 300 groupes) (plv-cle 40 groupes))))

(defun plv-mnt:axe-du-profil (profil) (if (plv-axe-plan profil) (et_axe (plv-jeu (list (plv-axe-plan profil))))))

(defun plv-mnt:rencontres (profil calques eloignement / jeu axe)
  "(distance name) along the profile."
  (setq axe (plv-mnt:axe-du-profil profil) jeu (ssget "X" (plv-mnt-filtre calques)))
  (if (and (listp axe) jeu)
    (progn
      (ssdel (plv-axe-plan profil) jeu)
      (vl-remove-if '(lambda (r) (> (car r) (+ (plv-longueur-profil profil) 1e-6))) (et_rencontres axe jeu eloignement)))))

(defun plv-mnt:nommer (points rencontre / d fait resultat avant)
  "The points (distance altitude name) with the name at its distance: of a point that is there and has none, or of one more. Not twice."
  (setq d (car rencontre))
  (foreach p points
    (cond
      (fait)
      ((equal (car p) d 1e-3)
       (if (= (caddr p) "") (setq p (list (car p) (cadr p) (cadr rencontre)) fait T) (setq fait (= (caddr p) (cadr rencontre)))))
      ((and avant (< (car avant) d (car p)))
       (setq resultat (cons (list d (plv-interpoler (list avant p) d) (cadr rencontre)) resultat) fait T)))
    (setq resultat (cons p resultat) avant p))
  (reverse resultat))

(defun plv-mnt-observer (profil calques eloignement / rencontres points)
  "Names ground points after what the axis meets; the number of meetings, or nil after a message."
  (cond
    ((not (plv-axe-plan profil)) (plv-erreur "ce profil n'a pas d'axe en plan: PLV-AXE lui en donne un"))
    ((not (setq rencontres (plv-mnt:rencontres profil calques eloignement)))
     (plv-erreur (strcat "l'axe ne rencontre rien sur les calques " calques)))
    (T
     (setq points (mapcar '(lambda (p) (list (car p) (cadr p) (plv-point-nom p))) (plv-points-nommes profil)))
     (foreach r rencontres (setq points (plv-mnt:nommer points r)))
     (plv-changer-terrain profil points (mapcar '(lambda (l) (list (car l) (cadr l))) (plv-lacunes profil)))
     (plv-ecrire-enregistrement profil plv-mnt:cle-observations (list (cons 300 calques) (cons 40 (float eloignement))))
     (plv-refaire-tables profil)
     (plv-dire (strcat (plv-compte (length rencontres) "observation") ": "
                       (plv-joindre (mapcar '(lambda (r) (strcat (cadr r) " à " (plv-reel (+ (plv-premiere-station profil) (car r)) 2))) rencontres) ", ") "."))
     (length rencontres))))

(defun plv-mnt-demander-observations (/ profil calques)
  (if (setq profil (plv-choisir-profil))
    (if (/= (setq calques (plv-demander-texte "Calques des objets que l'axe rencontre" nil)) "")
      (plv-mnt-observer profil calques (plv-demander-reel "Blocs et textes à cette distance de l'axe au plus" 2.0))
      (plv-erreur "un nom de calque est attendu"))))
