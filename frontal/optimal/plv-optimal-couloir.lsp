;; The corridor of a proposed line and the windows that prove it, drawn over the planes of the profile on a layer of their own.
;; They are only to be looked at: nothing is attached. A new corridor of a profile replaces its former one.
;; Shared in the room: plv-optimal:dessiner-couloir

(setq plv-couloir:calque "PLV-COULOIR" plv-couloir:cle "COULOIR")

(defun plv-couloir:du-profil (profil / numero)
  "What was drawn of a profile's corridor."
  (setq numero (plv-numero-profil profil))
  (vl-remove-if-not '(lambda (e) (equal (plgxd e plv-couloir:cle) numero))
    (plv-entites-du-jeu (ssget "X" (list '(0 . "LWPOLYLINE") (cons 8 (plv-calque plv-couloir:calque)))))))

(defun plv-couloir:polyligne (profil points / e)
  (setq e (plv-polyligne plv-couloir:calque points))
  (plsxd e plv-couloir:cle (plv-numero-profil profil))
  e)

(defun plv-couloir:tracer (profil cadre fin ligne)
  (foreach morceau (plv-optimal:sur-plans (plv-cadre-plans cadre) fin ligne)
    (plv-couloir:polyligne profil
      (mapcar '(lambda (p) (plv-vers-dessin-sur cadre (car morceau) (car p) (cadr p))) (cadr morceau)))))

(defun plv-optimal:dessiner-couloir (profil limites fenetres / cadre fin)
  "Draws the corridor's limits and its windows, all as lists of (distance altitude)."
  (setq cadre (plv-cadre profil) fin (plv-longueur-profil profil))
  (plv-creer-calques)
  (plv-effacer (plv-couloir:du-profil profil))
  (foreach ligne (append limites (apply 'append fenetres))
    (plv-couloir:tracer profil cadre fin ligne)))
