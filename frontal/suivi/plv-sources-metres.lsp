;; The sources of what is measured: lines with the ground over them, depth classes, networks and trenches, fixed elements.
;; Shared in the room: plv-sources:*

(defun plv-sources:mesurees (profil genre)
  (plv-lire-une-fois (list "lignes" profil genre) '(lambda () (plv-lignes-mesurees profil genre nil))))

(defun plv-sources:lignes (profil fait) (list (plv-sources:mesurees profil (plv-fait-genre fait))))

(defun plv-sources:contours (profil fait)
  "What the outlines of hatches follow, vertex by vertex."
  (list (plv-lignes-mesurees profil (plv-fait-genre fait) T)))

(defun plv-sources:arcs-lignes (profil fait) (list (plv-arcs-mesures profil (plv-fait-genre fait))))

(defun plv-sources:sol-contours (profil fait / etendue)
  (setq etendue (plv-etendue-mesuree (plv-sources:mesurees profil (plv-fait-genre fait))))
  (list (if etendue (plv-terrain-mesure profil etendue T))))

(defun plv-sources:lignes-jointes (profil fait)
  "For what doesn't show where lines are cut."
  (list (plv-joindre-lignes (plv-sources:mesurees profil (plv-fait-genre fait)))))

(defun plv-sources:sol-lignes (profil fait / genre etendue)
  (setq genre (plv-fait-genre fait)
        etendue (plv-etendue-mesuree (plv-sources:mesurees profil genre)))
  (list (if etendue (plv-lire-une-fois (list "sol" profil genre) '(lambda () (plv-terrain-mesure profil etendue nil))))))

(defun plv-sources:plans-lignes (profil fait / etendue)
  "The planes over which the lines of a kind are drawn."
  (setq etendue (plv-etendue-mesuree (plv-sources:mesurees profil (plv-fait-genre fait))))
  (list
    (if etendue
      (mapcar '(lambda (s) (list (max (plv-plan-debut s) (plv-debut etendue)) (plv-plan-altitude s)))
        (vl-remove-if '(lambda (s) (or (<= (plv-section-fin s) (plv-debut etendue)) (>= (plv-plan-debut s) (plv-fin etendue))))
          (plv-sections-de-plan profil))))))

(defun plv-sources:reseau (profil fait) (list (plv-reseau-lu profil (plv-fait-genre fait))))

(defun plv-sources:reseau-ecrit (profil fait)
  "What a row shows."
  (list (plv-premiere-station profil) (plv-reseau-de-rangee profil (plv-rangee-infos (plv-sources:rangee fait)))))

(defun plv-sources:tranchees (profil fait / genre)
  "The rules, the ground of the profile, and the others that the rules name."
  (setq genre (plv-fait-genre fait))
  (list (plv-tranchees-regles profil genre) (plv-points-tn profil) (plv-tranchees-sols profil genre)))

(defun plv-sources:prix (profil fait / chemin)
  "Of a file that isn't there nothing is known."
  (if (setq chemin (findfile (cond ((car (plv-fait-reponses fait))) ("")))) (plv-lire-lignes chemin)))

(defun plv-sources:toutes-classes () (plv-lire-une-fois (list "classes") '(lambda () (plv-classes-profondeur))))

(defun plv-sources:classes (profil fait) (list (plv-sources:toutes-classes)))

(defun plv-sources:profondeurs (profil genre / origine lues)
  "(least greatest) of all lines of a kind; nil beside the ground."
  (setq origine (plv-premiere-station profil)
        lues (apply 'append
               (mapcar '(lambda (ligne) (et_profondeurs profil (mapcar '(lambda (p) (list (+ origine (car p)) (cadr p))) ligne)))
                 (plv-sources:mesurees profil genre))))
  (if lues (list (apply 'min (mapcar 'cadr lues)) (apply 'max (mapcar 'cadr lues)))))

(defun plv-sources:classe-vue (classe moindre plus / debut fin)
  "What is seen of a class between two depths: limits beyond them don't count, nor a class that lies beyond them as a whole."
  (setq debut (atof (nth 1 classe)) fin (atof (nth 2 classe)))
  (if (and (< debut (+ plus 1e-6)) (> fin (- moindre 1e-6)))
    (append (list (car classe) (if (> debut (- moindre 1e-6)) debut) (if (< fin (+ plus 1e-6)) fin)) (cdddr classe))))

(defun plv-sources:classes-vues (profil fait / bornes)
  "Those in which the lines lie."
  (list
    (if (setq bornes (plv-sources:profondeurs profil (plv-fait-genre fait)))
      (vl-remove nil (mapcar '(lambda (c) (plv-sources:classe-vue c (car bornes) (cadr bornes))) (plv-sources:toutes-classes)))
      (plv-sources:toutes-classes))))

(defun plv-sources:fixe (profil groupe)
  "What a group of the record of fixed elements tells: an abscissa, or an entity with its attributes."
  (cond ((= (car groupe) 10) (list (- (cadr groupe) (car (plv-origine profil)))))
        ((and (= (car groupe) 330) (plv-existe (cdr groupe)))
         (cons (plv-type (cdr groupe)) (if (= (plv-type (cdr groupe)) "INSERT") (plv-sources:bloc profil (cdr groupe)))))))

(defun plv-sources:fixes (profil fait)
  (list
    (vl-remove nil
      (mapcar '(lambda (g) (plv-sources:fixe profil g))
        (apply 'append (mapcar '(lambda (genre) (plv-statiques-du-genre profil genre)) (plv-genres)))))))
