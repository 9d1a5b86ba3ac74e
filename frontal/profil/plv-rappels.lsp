;; Reference lines from the ground down to its plane, and the list of everything that stands under a profile outside the
;; groups of its tables: these lines, slopes, attributes. The list is kept with the profile, so that it goes with the tables.

(setq plv-rappels:cle "PLV_RAPPELS" plv-rappels:calque "PLV-RAPPELS")

(defun plv-ajouts-tables (profil) (plv-entites-enregistrees profil plv-rappels:cle))

(defun plv-noter-ajouts (profil entites)
  (plv-enregistrer-entites profil plv-rappels:cle (plv-uniques (append (plv-ajouts-tables profil) entites))))

(defun plv-oublier-ajouts (profil) (dictremove (plv-dictionnaire profil) plv-rappels:cle))

(defun plv-rappel-p (groupes) (= (plv-cle 8 groupes) (plv-calque plv-rappels:calque)))

(defun plv-tracer-rappels (profil points / cadre)
  "Thin lines at the points that have cells; their names."
  (setq cadre (plv-cadre profil))
  (mapcar
    '(lambda (p)
       (plv-ligne plv-rappels:calque
         (plv-vers-dessin cadre (car p) (cadr p))
         (plv-point (plv-abscisse cadre (car p)) (cadr (plv-cadre-origine cadre)))))
    points))

(defun plv-lignes-rappel (profil)
  "The reference lines."
  (vl-remove-if-not '(lambda (e) (plv-rappel-p (entget e))) (plv-ajouts-tables profil)))

(defun plv-rappels:lignes (profil) (mapcar 'entget (plv-lignes-rappel profil)))

(defun plv-distances-rappels (profil / cadre)
  "Where reference lines stand, growing; nil without any."
  (setq cadre (plv-cadre profil))
  (vl-sort (mapcar '(lambda (g) (plv-distance cadre (plv-cle 10 g))) (plv-rappels:lignes profil)) '<))

(defun plv-ajuster-rappels (profil / cadre points d z)
  "Tops of the reference lines back on the ground, after a change of plane or of the ground."
  (setq cadre (plv-cadre profil) points (plv-points-tn profil))
  (foreach groupes (plv-rappels:lignes profil)
    (setq d (plv-distance cadre (plv-cle 10 groupes)))
    (if (setq z (plv-altitude-tn points d))
      (entmod (subst (cons 10 (plv-vers-dessin cadre d z)) (assoc 10 groupes) groupes))))
  (plv-noter-fait profil "RAPPELS" nil nil nil))
