;; The natural ground that is kept with a profile: points (distance altitude) and the names of those that have one.
;; The ground lines that are drawn from it are those of plv-profil.

(defun plv-ecrire-terrain (profil points / precedent groupes)
  "For each point the distance from the one before, and the altitude. All at once: pl_add_xdata reads and writes the whole
record for each point."
  (setq precedent 0.0)
  (foreach point points
    (setq groupes (vl-list* (cons 1040 (float (cadr point))) (cons 1040 (float (- (car point) precedent))) groupes)
          precedent (car point)))
  (plv-ecrire-donnees profil plv-app-terrain (reverse groupes)))

(defun plv-points-tn (profil)
  "Points (distance altitude 0.0) as the module reads them: steps and altitudes. pl_PointTn reads the whole record for each
point."
  (plv-lire-une-fois (list "points-tn" profil) '(lambda () (plv-terrain:points profil))))

(defun plv-terrain:points (profil / donnees d points)
  (setq d 0.0
        donnees (mapcar '(lambda (g) (if (numberp (cdr g)) (float (cdr g)) 0.0)) (plv-donnees profil plv-app-terrain)))
  (while (cdr donnees)
    (setq d (+ d (car donnees))
          points (cons (list d (cadr donnees) 0.0) points)
          donnees (cddr donnees)))
  (reverse points))

(defun plv-refus-sans-terrain () "ce profil n'a pas de terrain naturel")

(defun plv-longueur-profil (profil)
  (plv-lire-une-fois (list "longueur-profil" profil) '(lambda () (cadr (pl_InfosTn profil)))))

(defun plv-longueur-terrain (profil)
  "As the record of the ground has it, without the module."
  (cond ((car (plv-dernier (plv-points-tn profil)))) (0.0)))

(defun plv-altitude-tn (points d / autour)
  "Altitude of the ground points at a distance, nil outside them."
  (setq autour
    (vl-remove nil
      (mapcar '(lambda (a b) (if (and (>= d (- (car a) 1e-6)) (<= d (+ (car b) 1e-6)) (> (car b) (car a))) (list a b)))
              points (cdr points))))
  (if autour (plv-interpoler (car autour) d)))

(defun plv-hauteur-terrain (points echv plans)
  "The drawn height of the highest ground point, in drawing units."
  (apply 'max (cons 0.0 (mapcar '(lambda (p) (plv-ordonnee (cadr p) (plv-plan-en plans (car p)) echv 0.0)) points))))

(defun plv-hauteur-profil (profil) (plv-hauteur-terrain (plv-points-tn profil) (plv-echv profil) (plv-plans profil)))

;; --- names

(defun plv-ecrire-noms (profil points)
  (plv-ecrire-enregistrement profil "PLV_NOMS_TN" (mapcar '(lambda (p) (cons 300 (plv-point-nom p))) points)))

(defun plv-noms-tn (profil) (plv-cles 300 (plv-enregistrement profil "PLV_NOMS_TN")))

(defun plv-points-nommes (profil)
  "The ground as (distance altitude name number), numbers from 1."
  (plv-lire-une-fois (list "points-nommes" profil) '(lambda () (plv-terrain:points-nommes profil))))

(defun plv-terrain:points-nommes (profil / noms numero points)
  (setq noms (plv-noms-tn profil) numero 0)
  (foreach p (plv-points-tn profil)
    (setq numero (1+ numero)
          points (cons (list (car p) (cadr p) (cond ((car noms)) ("")) numero) points)
          noms (cdr noms)))
  (reverse points))

(defun plv-point-nom (point) (caddr point))
(defun plv-point-numero (point) (cadddr point))

;; --- gaps: the ground record has none, they are kept beside it for whoever takes the ground out again. The chain of ground
;; lines goes on over a gap, where its lines can't be seen.

(defun plv-ecrire-lacunes (profil lacunes)
  "lacunes: stretches (from to)."
  (plv-ecrire-enregistrement profil "PLV_LACUNES"
    (mapcar '(lambda (l) (list 10 (plv-debut l) (plv-fin l) 0.0)) lacunes))
  (plv-ouvrir-lacunes profil))

(defun plv-terrain:dans-lacune (lacunes debut fin)
  (vl-some '(lambda (l) (and (>= debut (- (plv-debut l) 2e-6)) (<= fin (+ (plv-fin l) 2e-6)))) lacunes))

(defun plv-ouvrir-lacunes (profil / lacunes x0 groupes)
  "Hides the ground lines that stand over gaps."
  (setq lacunes (plv-lacunes profil) x0 (car (plv-origine profil)))
  (foreach ligne (if lacunes (apply 'append (mapcar 'plv-lignes-du-plan (plv-entites-plans profil))))
    (setq groupes (entget ligne))
    (if (plv-terrain:dans-lacune lacunes (- (cadr (assoc 10 groupes)) x0) (- (cadr (assoc 11 groupes)) x0))
      (entmod (append groupes '((60 . 1)))))))

(defun plv-lacunes (profil) (mapcar 'cdr (plv-enregistrement profil "PLV_LACUNES")))
