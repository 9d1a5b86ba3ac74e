;; What PLV-METRES prints: a table of the depth sections of each profile.
;; Shared in the room: plv-metres:*

(setq plv-metres:largeurs '(12 12 11 18 12 13 13))

(defun plv-metres:rangee (textes) (plv-colonnes textes plv-metres:largeurs))

(defun plv-metres:dire (profil genre classes troncons / origine sommes)
  (setq origine (plv-premiere-station profil)
        troncons (vl-remove-if-not 'plv-metres:visible-p troncons)
        sommes (mapcar '(lambda (somme) (plv-reel somme 3)) (plv-metres:sommes troncons classes)))
  (plv-dire (strcat "Profil " (plv-numero-profil profil) ", " genre ": " (plv-compte (length troncons) "tronçon")))
  (plv-metres:rangee '("début" "fin" "longueur" "classe" "prof. moy." "surface m2" "volume m3"))
  (foreach s troncons (plv-metres:dire-troncon s origine classes))
  (plv-metres:rangee (list "total" "" (car sommes) "" "" (cadr sommes) (caddr sommes)))
  (plv-metres:dire-recouvrement troncons))

(defun plv-metres:dire-troncon (s origine classes / longueur)
  (setq longueur (plv-troncon-longueur s))
  (plv-metres:rangee
    (list (plv-reel (+ origine (plv-troncon-debut s)) 3) (plv-reel (+ origine (plv-troncon-fin s)) 3) (plv-reel longueur 3)
          (plv-metres:libelle (plv-troncon-classe s) classes)
          (plv-reel (/ (plv-troncon-surface s) (if (< (abs longueur) 1e-8) 1.0 longueur)) 3)
          (plv-reel (plv-troncon-surface s) 3)
          (plv-reel (plv-metres:volume s classes) 3))))

(defun plv-metres:dire-recouvrement (troncons)
  (if (vl-some '(lambda (a b) (< (plv-troncon-debut b) (- (plv-troncon-fin a) 1e-5))) troncons (cdr troncons))
    (plv-dire "Attention: des lignes de projet se recouvrent, leurs métrés s'ajoutent.")))
