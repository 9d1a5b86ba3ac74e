;; What is told of a proposed line, and what is asked of one before it is sought.
;; Shared in the room: plv-optimal:dire plv-optimal:attacher plv-optimal:refus plv-optimal:rangee

(defun plv-optimal:rangee (textes) (plv-colonnes textes '(12 12 12 12 12)))

(defun plv-optimal:dire (profil suites minimum maximum bandes / hors)
  "What the line is, and where it leaves the depths: bandes are stretches (from to least greatest) with others."
  (setq hors (plv-optimal:hors-tranches (plv-points-tn profil) suites
               (plv-optimal:tranches minimum maximum bandes (caaar suites) (car (plv-dernier (plv-dernier suites))))))
  (plv-dire (strcat "Ligne optimale: " (itoa (apply '+ (mapcar 'length suites))) " sommets, profondeurs demandées "
                    (plv-reel minimum 2) " à " (plv-reel maximum 2) " m" (if bandes ", d'autres par endroits." ".")))
  (if hors
    (plv-optimal:dire-hors hors (plv-premiere-station profil))
    (plv-dire "Toute la ligne est dans les profondeurs demandées."))
  (plv-optimal:dire-sous-plan profil suites))

(defun plv-optimal:dire-hors (hors origine)
  (plv-dire "Hors des profondeurs demandées:")
  (plv-optimal:rangee '("début" "fin" "longueur" "profondeur" "écart"))
  (foreach h hors
    (plv-optimal:rangee
      (mapcar '(lambda (valeur) (plv-reel valeur 3))
        (list (+ origine (plv-debut h)) (+ origine (plv-fin h)) (plv-longueur h) (plv-hors-extreme h)
              (plv-optimal:ecart (plv-hors-extreme h) (car (plv-hors-bande h)) (cadr (plv-hors-bande h))))))))

(defun plv-optimal:dire-sous-plan (profil suites / plans fin d)
  "A line that falls below its plane runs through the tables."
  (setq plans (plv-plans profil) fin (plv-longueur-profil profil)
        d (vl-some '(lambda (suite) (vl-some 'plv-optimal:descente (plv-optimal:sur-plans plans fin suite))) suites))
  (if d
    (plv-dire (strcat "À la station " (plv-reel (+ (plv-premiere-station profil) d) 3)
                      " elle descend sous le plan de comparaison: PLV-PC en ajoute un plus bas."))))

(defun plv-optimal:attacher (profil genre suite / origine)
  (setq origine (plv-premiere-station profil))
  (plv-projet profil genre (mapcar '(lambda (s) (list (+ origine (car s)) (cadr s))) suite)))

(defun plv-optimal:refus (profil genre depart arrivee)
  (cond
    ((plv-refus-profil profil))
    ((plv-refus-genre-projet genre))
    ((not (plv-support profil genre)) (plv-refus-support genre))
    ((not (cdr (plv-points-tn profil))) (plv-refus-sans-terrain))
    ((not (< -1e-6 (car depart) (- (car arrivee) 1e-3) (+ (plv-longueur-profil profil) 1e-6)))
     "le départ et l'arrivée sont dans le profil, de gauche à droite")))

