;; As many cuts as a profile needs, so that its sheets are about as full as one another and few texts are torn: of the places near those of equal
;; sheets the ones of least cost together. A torn label costs as much as a sheet that is a seventh fuller or emptier than the others.

(setq plv-equilibre:prix-du-texte 0.002 plv-equilibre:fenetre 0.2 plv-equilibre:plus 12)

(defun plv-equilibre:capacites (mesures largeur coupures reserve / recouvrement milieu)
  "What the sheets between so many cuts hold at most; the last one keeps a width free."
  (setq recouvrement (plv-cle 'recouvrement mesures) milieu (- largeur (plv-feuilles:bande mesures) (* 2.0 recouvrement)))
  (append
    (list (- (+ largeur (plv-cle 'gauche mesures)) recouvrement (plv-cle 'x0 mesures)))
    (mapcar '(lambda (d) milieu) (cdr coupures))
    (list (+ milieu recouvrement (- reserve) (- (plv-longueur-profil (plv-cle 'profil mesures)) (- (plv-cle 'droite mesures) (plv-cle 'x0 mesures)))))))

(defun plv-equilibre:prix (mesures d)
  "Of what a cut tears, in sheets squared."
  (* plv-equilibre:prix-du-texte
     (/ (plv-feuilles:dechire d (plv-cle 'couches mesures) (plv-cle 'recouvrement mesures)) (plv-ttxt (plv-cle 'profil mesures)))))

(defun plv-equilibre:places (mesures places cible ecart / prises)
  "(distance price) of the cheapest places near a distance."
  (setq prises (vl-remove-if '(lambda (d) (> (abs (- d cible)) ecart)) places)
        prises (mapcar '(lambda (d) (list d (plv-equilibre:prix mesures d))) prises)
        prises (vl-sort prises
                 '(lambda (a b) (< (+ (cadr a) (/ (abs (- (car a) cible)) ecart 10.0)) (+ (cadr b) (/ (abs (- (car b) cible)) ecart 10.0))))))
  (plv-premiers prises plv-equilibre:plus))

(defun plv-equilibre:ecart (debut fin capacite part)
  "The price of a sheet, nil for one that can't hold that; part: what the sheets would be filled to if they were equal."
  (if (<= (- fin debut) (+ capacite 1e-6)) (expt (- (/ (- fin debut) capacite) part) 2)))

(defun plv-equilibre:suite (chemins place capacite part / mieux prix)
  "The cheapest of paths (price distance ...) that goes on to a place, with it; nil for none."
  (foreach c chemins
    (setq prix (plv-equilibre:ecart (cond ((cadr c)) (0.0)) (car place) capacite part))
    (if (and prix (> (car place) (cond ((cadr c)) (0.0))))
      (progn
        (setq prix (+ prix (car c) (cadr place)))
        (if (or (not mieux) (< prix (car mieux))) (setq mieux (vl-list* prix (car place) (cdr c)))))))
  mieux)

(defun plv-coupures-egales (mesures largeur coupures reserve / capacites longueur part places chemins cible)
  "The same number of cuts for sheets of a width, balanced, with a width of the last one left free; those given where there are none."
  (setq capacites (plv-equilibre:capacites mesures largeur coupures reserve) longueur (plv-longueur-profil (plv-cle 'profil mesures))
        part (/ longueur (apply '+ capacites)) places (plv-feuilles:abscisses (plv-cle 'profil mesures)) chemins '((0.0)) cible 0.0)
  (foreach capacite (reverse (cdr (reverse capacites)))
    (setq cible (+ cible (* part capacite))
          chemins
           (vl-remove nil
             (mapcar '(lambda (place) (plv-equilibre:suite chemins place capacite part))
               (plv-equilibre:places mesures places cible (* plv-equilibre:fenetre capacite))))))
  (setq chemins (plv-equilibre:suite chemins (list longueur 0.0) (plv-dernier capacites) part))
  (if chemins (reverse (cddr chemins)) coupures))
