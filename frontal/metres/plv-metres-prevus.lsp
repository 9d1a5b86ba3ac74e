;; What a measure would find, worked out from the lines as they are drawn, without the module and without drawing anything: what a form shows while it is
;; filled in. The slices are those of the control.
;; Shared in the room: plv-metres:* plv-lots:*

(defun plv-metres-prevus:de-ligne (cadre terrain entite limites)
  "The slices of a line; none for one that can't be measured."
  (if (not (plv-lots:faute cadre terrain entite (plv-mise-en-forme entite cadre nil)))
    (plv-controle:tranches (plv-traces:profondeurs terrain (plv-traces:pieces cadre entite nil)) limites)))

(defun plv-metres-prevus:tranches (profil genre limites / cadre terrain)
  "The slices (from to depth) of all lines of a kind; nil after a complaint."
  (setq cadre (plv-cadre profil) terrain (plv-lots:terrain profil cadre))
  (if (car terrain)
    (plv-erreur (car terrain))
    (apply 'append (mapcar '(lambda (e) (plv-metres-prevus:de-ligne cadre (cadr terrain) e limites)) (plv-elements profil genre)))))

(defun plv-metres-prevus:classe (tranches numero classes / siennes surface)
  "(words length surface volume) of one class."
  (setq siennes (vl-remove-if-not '(lambda (u) (= (plv-controle:classe (caddr u) classes) numero)) tranches)
        surface (plv-controle:total siennes 'plv-controle:surface))
  (list (plv-metres:libelle numero classes) (plv-controle:total siennes 'plv-longueur) surface (* surface (plv-metres:largeur numero classes))))

(defun plv-metres-prevus (profils genre classes / limites tranches numero rangees)
  "(words length surface volume) of each class that occurs on the lines of a kind of profiles, then of all; nil after a complaint."
  (setq limites (plv-controle:limites classes)
        tranches (apply 'append (mapcar '(lambda (p) (plv-metres-prevus:tranches p genre limites)) profils))
        numero -1)
  (repeat (+ 2 (length classes))
    (setq numero (1+ numero) rangees (cons (plv-metres-prevus:classe tranches numero classes) rangees)))
  (setq rangees (vl-remove-if '(lambda (r) (< (cadr r) 1e-5)) (reverse rangees)))
  (if rangees (append rangees (list (cons "total" (apply 'mapcar (cons '+ (mapcar 'cdr rangees))))))))
