;; Another ground for a profile that is there: its planes stay, the sections are drawn anew, what is attached stands where it stood.

(defun plv-changer:au-dela (profil longueur)
  "Whether something attached to the profile reaches beyond a length."
  (vl-some '(lambda (genre) (vl-some '(lambda (e) (> (plv-fin (plv-etendue-courbe profil e)) (+ longueur 1e-6))) (plv-elements profil genre)))
           (plv-genres)))

(defun plv-refus-terrain (profil longueur / plan)
  "Why a profile can't have a ground of that length; nil when it can."
  (setq plan (plv-dernier (plv-plans profil)))
  (cond
    ((<= longueur (+ (plv-plan-debut plan) 1e-6))
     (strcat "le terrain finit avant le plan de comparaison qui commence à " (plv-reel (plv-plan-debut plan) 2) " m: PLV-PC l'ôte"))
    ((plv-changer:au-dela profil longueur)
     (strcat "le terrain ne fait plus que " (plv-reel longueur 2) " m, et des lignes attachées au profil vont plus loin"))))

(defun plv-changer-terrain (profil points lacunes / plans faute longueur)
  "Gives the profile these points (distance altitude name) and gaps, from the same origin; the profile, or nil after a message."
  (setq plans (plv-plans profil) longueur (car (plv-dernier points)))
  (if (setq faute (plv-refus-terrain profil longueur))
    (plv-erreur faute)
    (progn
      (setq points (plv-points-aux-plans points plans))
      (plv-ecrire-terrain profil points)
      (plv-ecrire-noms profil points)
      (plsxd profil "LONGUEUR" (float longueur))
      (plv-changer:sections profil points longueur)
      (plv-ecrire-lacunes profil lacunes)
      (plv-refaire-habillage profil)
      (plv-noter-fait profil "TERRAIN" nil nil nil)
      (plv-changer:dire-plans profil points)
      profil)))

(defun plv-changer:sections (profil points longueur / sections fin)
  (setq sections (plv-sections-de-plan profil))
  (while sections
    (setq fin (if (cdr sections) (plv-plan-debut (cadr sections)) longueur))
    (plv-refaire-section profil points
      (list (plv-plan-debut (car sections)) (plv-plan-altitude (car sections)) (- fin (plv-plan-debut (car sections)))
            (plv-section-entite (car sections))))
    (setq sections (cdr sections))))

(defun plv-changer:dire-plans (profil points / plans bas)
  "Tells planes above their ground."
  (setq plans (plv-plans profil))
  (foreach plan plans
    (setq bas (vl-remove-if-not '(lambda (p) (and (eq (plv-plan-en plans (car p)) plan) (< (cadr p) (plv-plan-altitude plan)))) points))
    (if bas
      (plv-dire (strcat "Le terrain passe sous le plan " (plv-plan-en-texte plan) ": PLV-PC le change.")))))
