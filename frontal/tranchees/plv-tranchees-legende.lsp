;; What the colours of hatched trenches mean: a legend of their depth classes, with what is dug in each. It stands with the hatches, and is made
;; anew with them.
;; Shared in the room: plv-tranchees-legende:*

(setq plv-tranchees-legende:colonnes '(("" 5.0) ("Profondeur" 15.0) ("Longueur (m)" 12.0) ("Fouille (m3)" 12.0))
      plv-tranchees-legende:titre "Profondeur ")

(defun plv-tranchees-legende:classes (mesures)
  "(words volume) of each depth class, as the measures have them."
  (vl-remove nil
    (mapcar
      '(lambda (colonne volume)
         (if (wcmatch (car colonne) (strcat plv-tranchees-legende:titre "*"))
           (list (substr (car colonne) (1+ (strlen plv-tranchees-legende:titre))) volume)))
      (plv-tranchees-colonnes mesures) (plv-ouvrage-valeurs (plv-tranchees-total mesures)))))

(defun plv-tranchees-legende:longueur (morceaux classe)
  "In plan, of the pieces of a class; nil for all. Pits count for what they are long."
  (apply '+
    (cons 0.0
      (mapcar '(lambda (m) (- (plv-bout-station (plv-morceau-fin m)) (plv-bout-station (plv-morceau-debut m))))
        (vl-remove-if-not '(lambda (m) (or (not classe) (= (plv-morceau-classe m) classe))) morceaux)))))

(defun plv-tranchees-legende:rangee (couleur mots longueur volume)
  (list couleur mots (if longueur (plv-reel longueur 2) "") (if volume (plv-reel volume 2) "")))

(defun plv-tranchees-legende:rangees (morceaux mesures tout / classe rangees)
  "The classes that are there, their total, and on demand what is hatched apart of them."
  (setq classe -1)
  (foreach c (plv-tranchees-legende:classes mesures)
    (setq classe (1+ classe))
    (if (vl-some '(lambda (m) (= (plv-morceau-classe m) classe)) morceaux)
      (setq rangees
        (cons (plv-tranchees-legende:rangee (plv-tranchees-couleur classe) (car c) (plv-tranchees-legende:longueur morceaux classe) (cadr c))
          rangees))))
  (append (reverse rangees)
    (list (plv-tranchees-legende:rangee nil "Total" (plv-tranchees-legende:longueur morceaux nil) (plv-tranchees-valeur mesures (plv-tranchees-total mesures) "Fouille")))
    (if tout (mapcar '(lambda (c) (plv-tranchees-legende:rangee (car c) (cadr c) nil nil)) (plv-tranchees-couches)))))

(defun plv-tranchees-legende:poser (profil genre morceaux tout point / mesures)
  "The reference; nil after a message."
  (if (setq mesures (plv-tranchees profil genre))
    (plv-poser-legende-de-tranchees profil genre plv-tranchees-legende:colonnes (plv-tranchees-legende:rangees morceaux mesures tout)
      (plv-tranchees-clarte) point)))
