;; Manholes that stand in two profiles: a row names the profile to which the manhole belongs, where the same name has to be found with the
;; same cover and bottom. The branch may arrive higher, as at a drop; lower than the bottom it can't.

(defun plv-branches:au-regard (genre noeud autre / reseau leur ecart)
  "What isn't the same in the other profile; nil for nothing."
  (setq reseau (plv-reseau-lu autre genre))
  (cond
    ((eq (type reseau) 'STR) (strcat "le réseau du profil " (plv-numero-profil autre) " ne se lit pas: " reseau))
    ((not (setq leur (plv-noeud-nomme reseau (plv-noeud-nom noeud)))) (strcat "le profil " (plv-numero-profil autre) " n'a pas ce regard"))
    ((> (setq ecart (abs (- (plv-noeud-tampon noeud) (plv-noeud-tampon leur)))) 0.0051)
     (strcat "son tampon est à " (plv-reel (plv-noeud-tampon noeud) 3) ", à " (plv-reel (plv-noeud-tampon leur) 3) " dans le profil " (plv-numero-profil autre)))
    ((< (plv-noeud-fond noeud) (- (plv-noeud-fond leur) 1e-6))
     (strcat "la branche y est à " (plv-reel (plv-noeud-fond noeud) 3) ", plus bas que le fond " (plv-reel (plv-noeud-fond leur) 3) " dans le profil "
             (plv-numero-profil autre)))))

(defun plv-branches:de (genre noeud / autre texte)
  (setq autre (plv-profil-de-numero (plv-noeud-profil noeud))
        texte (if autre (plv-branches:au-regard genre noeud autre) (plv-refus-numero (plv-noeud-profil noeud))))
  (if texte (list (plv-noeud-station noeud) (strcat "regard " (plv-noeud-nom noeud) ": " texte))))

(defun plv-reseau-branches (profil genre / reseau)
  "Warnings (station text) of manholes that belong to other profiles."
  (setq reseau (plv-reseau-lu profil genre))
  (vl-remove nil
    (mapcar '(lambda (n) (plv-branches:de genre n))
      (vl-remove-if '(lambda (n) (= (plv-noeud-profil n) "")) (plv-reseau-regards reseau)))))
