;; How low a profile goes besides its ground: rooms say what they draw, so that planes are laid beneath it, and it is told what isn't above them.

;; functions of a profile that give lines of (distance altitude)
(setq plv-niveaux:fonctions nil)

(defun plv-declarer-niveaux (fonction)
  (if (not (member fonction plv-niveaux:fonctions)) (setq plv-niveaux:fonctions (cons fonction plv-niveaux:fonctions))))

(defun plv-niveaux (profil)
  "The further grounds, and what rooms have declared."
  (append (apply 'append (mapcar 'plv-terrain-morceaux (plv-terrains profil)))
          (apply 'append (mapcar '(lambda (f) (apply f (list profil))) plv-niveaux:fonctions))))

(defun plv-niveaux:sous-section (section ligne / a b)
  "Points (distance depth) of what of a line is drawn below the plane of a section."
  (setq a (max (plv-plan-debut section) (caar ligne)) b (min (plv-section-fin section) (car (plv-dernier ligne))))
  (if (> (- b a) 1e-6)
    (vl-remove-if-not '(lambda (p) (> (cadr p) 1e-6))
      (mapcar '(lambda (p) (list (car p) (- (plv-plan-altitude section) (cadr p)))) (plv-ligne-entre ligne a b)))))

(defun plv-sous-plans (profil lignes)
  "Points (distance depth) of lines that are drawn below their planes, plane by plane."
  (apply 'append
    (mapcar '(lambda (section) (apply 'append (mapcar '(lambda (l) (plv-niveaux:sous-section section l)) lignes)))
      (plv-sections-de-plan profil))))

(defun plv-dire-sous-plans (profil sujet lignes / dessous pire)
  "Tells where lines are drawn lowest below their plane: there they run through the tables."
  (if (setq dessous (plv-sous-plans profil lignes))
    (progn
      (setq pire (car (vl-sort dessous '(lambda (a b) (> (cadr a) (cadr b))))))
      (plv-dire (strcat "À la station " (plv-reel (+ (plv-premiere-station profil) (car pire)) 3) " " sujet " descend à " (plv-reel (cadr pire) 2)
                        " m sous le plan de comparaison: PLV-PC Proposer en tient compte.")))))
