;; Reference lines from the ground down to its plane, and the list of everything that stands under a profile outside the
;; groups of its tables: these lines, slopes, attributes. The list is kept with the profile, so that it goes with the tables.

(setq plv-rappels:cle "PLV_RAPPELS" plv-rappels:calque "PLV-RAPPELS")

(defun plv-ajouts-tables (profil) (plv-entites-enregistrees profil plv-rappels:cle))

(defun plv-noter-ajouts (profil entites / notees la)
  "Adds entities to the list, from which those that are gone go."
  (setq notees (plv-cles 330 (plv-enregistrement profil plv-rappels:cle))
        la (plv-ajouts-tables profil)
        entites (if la (vl-remove-if '(lambda (e) (member e la)) entites) entites))
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

(defun plv-rappels:lignes (profil) (mapcar 'entget (plv-lignes-rappel profil)))

(defun plv-distances-rappels (profil / cadre)
  "Where reference lines stand, growing; nil without any."
  (setq cadre (plv-cadre profil))
  (vl-sort (mapcar '(lambda (g) (plv-distance cadre (plv-cle 10 g))) (plv-rappels:lignes profil)) '<))

(defun plv-rappels:avancer (points d)
  "The ground from the stretch that reaches a distance."
  (while (and (cdr points) (or (< (car (cadr points)) (- d 1e-6)) (<= (car (cadr points)) (car (car points))))) (setq points (cdr points)))
  points)

(defun plv-rappels:poser (groupes cadre d z / haut)
  "The top of a reference line at an altitude."
  (setq haut (plv-vers-dessin cadre d z))
  (if (not (equal haut (plv-cle 10 groupes) 1e-9)) (entmod (subst (cons 10 haut) (assoc 10 groupes) groupes))))

(defun plv-ajuster-rappels (profil / cadre points reste d)
  "Tops of the reference lines back on the ground, after a change of plane or of the ground. They stand from left to right. Whether they
stand where points have cells is another question, which stays open."
  (setq cadre (plv-cadre profil) points (plv-points-tn profil) reste points)
  (foreach groupes (plv-rappels:lignes profil)
    (setq d (plv-distance cadre (plv-cle 10 groupes))
          reste (plv-rappels:avancer (if (< d (car (car reste))) points reste) d))
    (if (and (cdr reste) (>= d (- (car (car reste)) 1e-6))) (plv-rappels:poser groupes cadre d (plv-interpoler reste d))))
  (if (vl-some '(lambda (f) (and (= (plv-fait-chose f) "RAPPELS") (plv-source-vraie-p profil f "distances"))) (plv-faits profil))
    (plv-noter-fait profil "RAPPELS" nil nil nil)))
