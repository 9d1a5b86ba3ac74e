;; Crossings from the plan: lines that cross the axis in plan become crossings of the network, each with a level and a diameter that is
;; asked for; the one before is proposed.

(defun plv-reseau-plan:rencontres (profil jeu / axe)
  "(station name) of what the axis meets; nil after a message."
  (cond
    ((not (plv-axe-plan profil)) (plv-erreur "ce profil n'a pas d'axe en plan: PLV-AXE lui en donne un"))
    ((not jeu) (plv-erreur "aucune ligne choisie"))
    ((eq (type (setq axe (et_axe (plv-jeu (list (plv-axe-plan profil)))))) 'STR) (plv-erreur axe))
    ((mapcar '(lambda (r) (list (+ (plv-premiere-station profil) (car r)) (cadr r)))
       (vl-remove-if '(lambda (r) (> (car r) (+ (plv-longueur-profil profil) 1e-6))) (et_rencontres axe jeu 0.0))))
    (T (plv-erreur "aucune de ces lignes ne croise l'axe"))))

(defun plv-reseau-plan:nom (rangees nom / n essai)
  "The name, with a number when a crossing of the network has it already."
  (setq n 1 essai nom)
  (while (vl-some '(lambda (r) (wcmatch (strcase r) (strcat "CROISEMENT;" (strcase essai) ";*"))) rangees)
    (setq n (1+ n) essai (strcat nom " " (itoa n))))
  essai)

(defun plv-reseau-croisements-du-plan (profil genre rangees jeu / altitude diametre)
  "The rows with a crossing for each line that crosses the axis in plan; nil after a message."
  (setq altitude (- (car (mapcar 'cadr (plv-points-tn profil))) 1.0) diametre 100.0)
  (foreach r (plv-reseau-plan:rencontres profil jeu)
    (setq altitude (plv-demander-nombre-libre (strcat "Station " (plv-reel (car r) 2) ", " (cadr r) ": altitude de l'axe") altitude 3)
          diametre (plv-demander-nombre-libre "Diamètre en mm" diametre 0)
          rangees (append rangees
                    (list (plv-joindre (list "croisement" (plv-reseau-plan:nom rangees (cadr r)) (rtos (car r) 2 6) (rtos altitude 2 6) (rtos diametre 2 6)) ";")))))
  rangees)
