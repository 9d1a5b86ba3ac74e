;; Reference lines from the ground down to its plane, and the list of everything that stands under a profile outside the
;; groups of its tables: these lines, slopes, attributes. The list is kept with the profile, so that it goes with the tables.

(setq plv-rappels:cle "PLV_RAPPELS" plv-rappels:calque "PLV-RAPPELS")

(defun plv-ajouts-tables (profil) (plv-entites-enregistrees profil plv-rappels:cle))

(defun plv-noter-ajouts (profil entites / notees la)
  "Adds entities to the list, from which those that are gone go."
  (setq notees (plv-cles 330 (plv-enregistrement profil plv-rappels:cle))
        la (plv-ajouts-tables profil)
        entites (et_hors entites la))
  (if (or entites (/= (length la) (length notees)))
    (plv-enregistrer-entites profil plv-rappels:cle (append la entites))))

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

(defun plv-ajouts-sur-calque (profil calque) (et_entites profil plv-rappels:cle (plv-calque calque)))

(defun plv-lignes-rappel (profil) "The reference lines." (plv-ajouts-sur-calque profil plv-rappels:calque))

(defun plv-distances-rappels (profil / cadre)
  "Where reference lines stand, growing; nil without any."
  (setq cadre (plv-cadre profil))
  (vl-sort (mapcar '(lambda (haut) (plv-distance cadre haut)) (et_departs (plv-lignes-rappel profil))) '<))

(defun plv-rappels:avancer (points d)
  "The ground from the stretch that reaches a distance."
  (while (and (cdr points) (or (< (car (cadr points)) (- d 1e-6)) (<= (car (cadr points)) (car (car points))))) (setq points (cdr points)))
  points)

(defun plv-rappels:poser (ligne depart haut / groupes)
  "The top of a reference line where it should be."
  (if (not (equal depart haut 1e-9))
    (progn
      (setq groupes (entget ligne))
      (entmod (subst (cons 10 haut) (assoc 10 groupes) groupes)))))

(defun plv-poser-rappels (profil / cadre points reste lignes departs d)
  "Tops of the reference lines back on the ground. They stand from left to right."
  (setq cadre (plv-cadre profil) points (plv-points-tn profil) reste points
        lignes (plv-lignes-rappel profil) departs (et_departs lignes))
  (foreach ligne lignes
    (setq d (plv-distance cadre (car departs))
          reste (plv-rappels:avancer (if (< d (car (car reste))) points reste) d))
    (if (and (cdr reste) (>= d (- (car (car reste)) 1e-6)))
      (plv-rappels:poser ligne (car departs) (plv-vers-dessin cadre d (plv-interpoler reste d))))
    (setq departs (cdr departs))))

(defun plv-ajuster-rappels (profil)
  "The same after a change of plane or of the ground. Whether they stand where points have cells is another question, which stays open."
  (plv-poser-rappels profil)
  (if (vl-some '(lambda (f) (and (= (plv-fait-chose f) "RAPPELS") (plv-source-vraie-p profil f "distances"))) (plv-faits profil))
    (plv-noter-fait profil "RAPPELS" nil nil nil)))
