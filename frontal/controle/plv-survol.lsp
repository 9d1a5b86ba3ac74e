;; What lies under the cursor, in words: the lines of a profile with station, altitude and slope, other entities with their kind.
;; Nothing here changes the drawing. Profiles are read once, see plv-bureau.

;; --- other entities

(defun plv-survol:nom (groupes / genre)
  (setq genre (plv-cle 0 groupes))
  (cond
    ((= genre "INSERT") (strcat "Bloc " (plv-cle 2 groupes)))
    ((member genre '("TEXT" "MTEXT")) (strcat "Texte « " (plv-abrege (plv-cle 1 groupes)) " »"))
    ((plv-nom-de-type genre))))

(defun plv-survol:ordinaire (groupes) (strcat (plv-survol:nom groupes) ", calque " (plv-cle 8 groupes)))

;; --- profiles

(defun plv-survol:de (lu)
  "Names the profile where there are several."
  (if (cdr (plv-bureau:lus)) (strcat " du profil " (plv-cle 'numero lu)) ""))

(defun plv-survol:pk (lu d) (pl_distToPk (+ d (plv-cle 'origine lu))))

(defun plv-survol:etendue (lu debut fin) (strcat ", " (plv-survol:pk lu debut) " à " (plv-survol:pk lu fin)))

(defun plv-survol:lieu (lu d altitude)
  (strcat (plv-survol:de lu) ", " (plv-survol:pk lu d) (if altitude (strcat ", altitude " (plv-reel altitude 2)) "")))

(defun plv-survol:pente (pente) (strcat ", pente " (plv-reel (* 100.0 pente) 2) " %"))

(defun plv-survol:piece (lu piece / rayon)
  "The slope of a straight piece, the radius of a vertical curve."
  (cond
    ((not piece) "")
    ((plv-pente-droite-p piece) (plv-survol:pente (plv-pente-valeur piece)))
    ((setq rayon (plv-rayon-de-piece (plv-cle 'profil lu) piece)) (strcat ", rayon " (plv-reel rayon 2)))
    ("")))

(defun plv-survol:altitude (lu entite pieces d / debut fin y plan)
  "Of a curve at a distance; nil where the curve isn't found."
  (setq debut (apply 'min (mapcar 'plv-debut pieces)) fin (apply 'max (mapcar 'plv-fin pieces))
        y (pl_yat entite (plv-abscisse (plv-cle 'cadre lu) (plv-entre d (+ debut 1e-6) (- fin 1e-6))))
        plan (cond ((plv-plan-de (plv-bureau:plans-lus lu) debut fin)) ((plv-plan-en (plv-bureau:plans-lus lu) d))))
  (if y (plv-altitude-dessinee (plv-cle 'cadre lu) plan y)))

(defun plv-survol:element (lu entite genre point / pieces d)
  (setq pieces (plv-pentes-de (plv-cle 'profil lu) entite) d (plv-distance (plv-cle 'cadre lu) point))
  (if pieces
    (progn
      (setq d (plv-entre d (apply 'min (mapcar 'plv-debut pieces)) (apply 'max (mapcar 'plv-fin pieces))))
      (strcat "Ligne " genre (plv-survol:lieu lu d (plv-survol:altitude lu entite pieces d))
              (plv-survol:piece lu (car (vl-member-if '(lambda (p) (<= (plv-debut p) d (plv-fin p))) pieces)))))
    (strcat "Ligne " genre (plv-survol:de lu))))

(defun plv-survol:sur-terrain-p (lu point plan / d)
  "Whether an end of a line is on the ground, as drawn over a plane."
  (setq d (plv-distance (plv-cle 'cadre lu) point))
  (equal (plv-altitude-tn (plv-cle 'points lu) d) (plv-altitude-dessinee (plv-cle 'cadre lu) plan (cadr point)) 1e-3))

(defun plv-survol:terrain (lu groupes point / bouts d1 d2 d plan)
  "A line of the ground: both ends are on it."
  (if (= (plv-cle 0 groupes) "LINE")
    (progn
      (setq bouts (plv-gauche-droite (list (plv-cle 10 groupes) (plv-cle 11 groupes)))
            d1 (plv-distance (plv-cle 'cadre lu) (car bouts)) d2 (plv-distance (plv-cle 'cadre lu) (cadr bouts))
            plan (plv-plan-de (plv-bureau:plans-lus lu) d1 d2)
            d (plv-entre (plv-distance (plv-cle 'cadre lu) point) d1 d2))
      (if (and plan (< d1 d2) (vl-every '(lambda (b) (plv-survol:sur-terrain-p lu b plan)) bouts))
        (strcat "Terrain naturel" (plv-survol:lieu lu d (plv-altitude-tn (plv-cle 'points lu) d))
                (plv-survol:pente (/ (plv-pente (car bouts) (cadr bouts)) (plv-cadre-echv (plv-cle 'cadre lu)))))))))

(defun plv-survol:plan (lu section)
  (strcat "Plan de comparaison " (plv-reel (plv-plan-altitude section) 2) (plv-survol:de lu)
          (plv-survol:etendue lu (plv-plan-debut section) (plv-section-fin section))))

(defun plv-survol:groupes (groupes)
  "The groups that an entity belongs to."
  (mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) 330)) groupes)))

(defun plv-survol:table (lu groupes / siens reference)
  (setq siens (plv-survol:groupes groupes)
        reference (car (vl-member-if '(lambda (r) (member (plv-groupe-table r) siens)) (plv-cle 'tables lu))))
  (if reference (strcat "Matrice " (plv-matrice-nom reference) (plv-survol:de lu))))

(defun plv-survol:de-profil (lu entite groupes point / trouve)
  "What an entity is in a profile; nil for nothing of it."
  (cond
    ((eq entite (plv-cle 'profil lu)) (strcat "Profil " (plv-cle 'numero lu) (plv-survol:etendue lu 0.0 (plv-cle 'longueur lu))))
    ((setq trouve (assoc entite (plv-cle 'elements lu))) (plv-survol:element lu entite (cdr trouve) point))
    ((setq trouve (car (vl-member-if '(lambda (s) (eq (plv-section-entite s) entite)) (plv-cle 'sections lu)))) (plv-survol:plan lu trouve))
    ((plv-survol:terrain lu groupes point))
    ((plv-survol:table lu groupes))))

(defun plv-bureau-survol (handle x y / entite groupes)
  "What an entity is at a point, in words; nil for none."
  (if (and (setq entite (handent handle)) (setq groupes (entget entite)))
    (cond
      ((vl-some '(lambda (lu) (plv-survol:de-profil lu entite groupes (list x y))) (plv-bureau:lus)))
      ((plv-survol:ordinaire groupes)))))
