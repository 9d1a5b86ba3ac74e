;; PLV-PC: adds, changes or removes a reference plane. The chain first, then the ground of its sections; then the module
;; moves and cuts what is attached; last come the dressing and the reference lines of the tables.

(defun plv-pc:sections (profil / entite debut sections)
  "The sections as (start altitude length entity)."
  (setq entite (plgxd profil "PRPC") debut 0.0)
  (while entite
    (setq sections (cons (list debut (plgxd entite "PC") (plgxd entite "DISTANCE") entite) sections)
          debut (+ debut (plgxd entite "DISTANCE"))
          entite (plgxd entite "NEXT-PC")))
  (reverse sections))

(defun plv-pc:fin (section) (+ (car section) (caddr section)))

(defun plv-pc:section (sections distance / trouvee)
  "The section that begins at a distance, else the one that holds it, nil outside."
  (foreach s sections
    (if (and (>= distance (- (car s) 1e-6)) (< distance (- (plv-pc:fin s) 1e-6))) (setq trouvee s)))
  trouvee)

(defun plv-pc:lignes (plan / ligne suivante)
  (setq ligne (plgxd plan "PRLI"))
  (while ligne
    (setq suivante (cons ligne suivante) ligne (plgxd ligne "NEXTLI")))
  suivante)

(defun plv-pc:refaire (profil points section / point plan groupes lignes)
  "Writes a section into its plane's entity and draws its ground anew."
  (setq point (plv-cle 10 (entget profil)) plan (cadddr section))
  (plv-effacer (plv-pc:lignes plan))
  (plv-profil:cles plan (list (list "DISTANCE" (float (caddr section))) (list "PC" (float (cadr section)))))
  (setq groupes (entget plan))
  (entmod
    (subst (cons 10 (plv-point (+ (car point) (car section)) (cadr point))) (assoc 10 groupes)
      (subst (cons 11 (plv-point (+ (car point) (plv-pc:fin section)) (cadr point))) (assoc 11 groupes) groupes)))
  (setq lignes (plv-profil:lignes point points (plgxd profil "ECHV") section (plv-pc:fin section)))
  (if lignes (plsxd plan "PRLI" (car lignes)) (plv-oter-cle plan "PRLI")))

(defun plv-pc:enchainer (entite suivante)
  (if suivante (plsxd entite "NEXT-PC" suivante) (plv-oter-cle entite "NEXT-PC")))

(defun plv-pc:points (profil plans) (plv-nouveau:couper (plv-points-tn profil) plans))

;; --- the three operations; each gives T when the chain was changed

(defun plv-pc:ajouter (profil section distance altitude / plans points fin nouvelle suivante)
  (setq fin (plv-pc:fin section)
        plans (append (plv-tables:plans profil) (list (list distance altitude)))
        points (plv-pc:points profil plans)
        suivante (plgxd (cadddr section) "NEXT-PC"))
  (plv-pc:refaire profil points (list (car section) (cadr section) (- distance (car section)) (cadddr section)))
  (setq nouvelle (plv-profil:plan (plv-cle 10 (entget profil)) points (plgxd profil "ECHV") (list distance altitude) fin))
  (if suivante (plsxd nouvelle "NEXT-PC" suivante))
  (plsxd (cadddr section) "NEXT-PC" nouvelle))

(defun plv-pc:modifier (profil section altitude)
  (plv-pc:refaire profil (plv-pc:points profil (plv-tables:plans profil)) (list (car section) altitude (caddr section) (cadddr section))))

(defun plv-pc:supprimer (profil precedente section / points)
  ;; Before the chain changes: the starts of the sections behind are counted along it.
  (setq points (plv-pc:points profil (vl-remove-if '(lambda (plan) (equal (car plan) (car section) 1e-6)) (plv-tables:plans profil))))
  (plv-pc:enchainer (cadddr precedente) (plgxd (cadddr section) "NEXT-PC"))
  (plv-effacer (cons (cadddr section) (plv-pc:lignes (cadddr section))))
  (plv-pc:refaire profil points
    (list (car precedente) (cadr precedente) (+ (caddr precedente) (caddr section)) (cadddr precedente))))

;; --- project elements that a new plane cuts: the new piece gets the keys of the old one, which the cut doesn't copy

(defun plv-pc:traverses (profil distance / x y traverses)
  "What the plane's upright meets, as (ordinate (key value) ...)."
  (setq x (+ (cadr (assoc 10 (entget profil))) distance))
  (foreach genre (mapcar 'car plv-elements:genres)
    (foreach e (plv-elements:enregistres profil genre)
      (if (setq y (pl_yat e x))
        (setq traverses
          (cons (cons y (vl-remove-if-not 'cadr (mapcar '(lambda (c) (list c (plgxd e c))) '("ELEMDUPROJET" "RAYON" "RACCORD"))))
                traverses)))))
  traverses)

(defun plv-pc:reporter-cles (profil distance traverses decalage / x y)
  (setq x (+ (cadr (assoc 10 (entget profil))) distance))
  (foreach genre (mapcar 'car plv-elements:genres)
    (foreach e (plv-elements:enregistres profil genre)
      (if (and (not (plgxd e "ELEMDUPROJET")) (setq y (cond ((pl_yat e x)) ((pl_yat e (+ x 1e-7))) ((pl_yat e (- x 1e-7))))))
        (foreach tr traverses
          (if (or (equal (+ (car tr) decalage) y 1e-4) (equal (car tr) y 1e-4)) (plv-profil:cles e (cdr tr))))))))

;; --- afterwards

(defun plv-pc:rappels (profil / point echv plans points groupes d z)
  "Tops of the reference lines back on the ground."
  (setq point (plv-cle 10 (entget profil)) echv (plgxd profil "ECHV") plans (plv-tables:plans profil) points (plv-points-tn profil))
  (foreach g (plv-enregistrement profil "PLV_RAPPELS")
    (setq groupes (entget (cdr g)))
    (if (= (plv-cle 8 groupes) "PLV-RAPPELS")
      (progn
        (setq d (- (cadr (assoc 10 groupes)) (car point)))
        (if (setq z (plv-altitude-tn points d))
          (entmod (subst (cons 10 (plv-point (+ (car point) d) (plv-profil:ordonnee z (plv-plan-en plans d) echv (cadr point))))
                         (assoc 10 groupes) groupes)))))))

(defun plv-altitude-tn (points d / z)
  "Altitude of the ground points at a distance, nil outside them."
  (mapcar '(lambda (a b)
             (if (and (not z) (>= d (- (car a) 1e-6)) (<= d (+ (car b) 1e-6)) (> (car b) (car a)))
               (setq z (plv-trace:altitude (list a b) d))))
    points (cdr points))
  z)

(defun plv-pc:finir (profil)
  (plv-habiller-profil profil (plv-cle 10 (entget profil)) (plv-points-tn profil) (plgxd profil "ECHV") (plgxd profil "TTXT")
    (plv-tables:plans profil))
  (plv-pc:rappels profil))

(defun plv-pc:faute (operation sections section distance altitude)
  "The text of what can't be done, nil for nothing."
  (cond
    ((not section) "la station n'est pas dans le profil")
    ((and (/= operation "S") (not (numberp altitude))) "l'altitude du plan est attendue")
    ((and (= operation "A") (equal distance (car section) 1e-6)) "un plan commence deja a cette station")
    ((and (= operation "S") (eq section (car sections))) "le premier plan ne peut pas etre supprime")))

(defun plv-pc (profil operation station altitude / sections section distance x faute)
  "Adds (\"A\"), changes (\"M\") or removes (\"S\") the plane at a station; a change or a removal concerns the plane that
governs there. Gives the profile, or nil after a message."
  (setq distance (- (float station) (plgxd profil "DCUMDEB"))
        sections (plv-pc:sections profil)
        section (plv-pc:section sections distance)
        faute (plv-pc:faute operation sections section distance altitude))
  (cond
    (faute (plv-erreur faute))
    ((not (plv-statiques-verifies profil)) nil)
    (T
     (if (/= operation "A") (setq distance (car section)))
     (setq x (+ (cadr (assoc 10 (entget profil))) distance))
     (plv-pc:changer profil operation sections section distance x (if altitude (float altitude)))
     (plv-pc:finir profil)
     (plv-dire (strcat "Plans de comparaison: " (plv-rapport:plans profil) "."))
     profil)))

(defun plv-pc:changer (profil operation sections section distance x altitude / traverses)
  (cond
    ((= operation "A")
     (setq traverses (plv-pc:traverses profil distance))
     (plv-pc:ajouter profil section distance altitude)
     (pl_chg_pc profil "A" x altitude 0.0)
     (plv-pc:reporter-cles profil distance traverses (* (- (cadr section) altitude) (plgxd profil "ECHV"))))
    ((= operation "M")
     (plv-pc:modifier profil section altitude)
     (pl_chg_pc profil "M" x (cadr section) altitude))
    (T
     (plv-pc:supprimer profil (nth (1- (vl-position section sections)) sections) section)
     (pl_chg_pc profil "S" x 0.0 (cadr section)))))

(defun c:plv-pc (/ profil operation station altitude)
  (if (setq profil (plv-choisir-profil))
    (progn
      (plv-dire (strcat "Plans de comparaison: " (plv-rapport:plans profil) "."))
      (setq operation (substr (plv-demander-mot "Plan de comparaison" '("Ajouter" "Modifier" "Supprimer") "Ajouter") 1 1)
            station (plv-demander-nombre "Station")
            altitude (if (/= operation "S") (plv-demander-nombre "Altitude du plan")))
      (plv-pc profil operation station altitude)))
  (princ))
