;; Where a profile is cut into sheets: at points that have cells, where little is torn; the last sheet leaves its legends room.
;; Measures are those of plv-feuilles-mesures.
;; Shared in the room: plv-feuilles:*

(defun plv-feuilles:rondes (profil / fin pas s rondes)
  "The distances of round stations, some thousand at most."
  (setq fin (+ (plv-premiere-station profil) (plv-longueur-profil profil)) pas 1.0)
  (while (> (/ (plv-longueur-profil profil) pas) 2000.0) (setq pas (* 10.0 pas)))
  (setq s (* pas (1+ (plv-partie-entiere (/ (plv-premiere-station profil) pas)))))
  (while (< s fin) (setq rondes (cons (- s (plv-premiere-station profil)) rondes) s (+ s pas)))
  (reverse rondes))

(defun plv-feuilles:abscisses (profil)
  "Where a profile may be cut: the points that have cells, without tables round stations; distances."
  (cond ((plv-distances-rappels profil)) ((plv-feuilles:rondes profil))))

(defun plv-feuilles:dechire (d couches recouvrement)
  "How much of texts is cut through at the edges of two sheets, or lies under the line of the cut without standing on it; a length."
  (apply '+
    (mapcar
      '(lambda (c)
         (if (or (< (plv-debut c) (+ d recouvrement) (plv-fin c)) (< (plv-debut c) (- d recouvrement) (plv-fin c))
                 (and (< (plv-debut c) d (plv-fin c)) (> (abs (- (plv-milieu c) d)) 0.005)))
           (plv-longueur c)
           0.0))
      couches)))

(defun plv-feuilles:moins-dechiree (places couches recouvrement / trouve mieux texte)
  "Of places the last one that tears least."
  (foreach d places
    (setq texte (plv-feuilles:dechire d couches recouvrement))
    (if (or (not trouve) (<= texte (+ mieux 1e-6))) (setq trouve d mieux texte)))
  trouve)

(defun plv-feuilles:coupure (mesures precedente limite / places debut)
  "Where a sheet ends: of the points in its last fifth the last one that tears least, else the last point that fits; the last whole metre
where there are none."
  (setq debut (+ precedente (* 0.8 (- limite precedente)))
        places (vl-remove-if-not '(lambda (d) (and (<= d limite) (> d (+ precedente (* 0.5 (- limite precedente))))))
                 (plv-feuilles:abscisses (plv-cle 'profil mesures))))
  (cond
    ((plv-feuilles:moins-dechiree (vl-remove-if-not '(lambda (d) (> d debut)) places)
       (vl-remove-if '(lambda (c) (< (plv-fin c) (- debut (plv-cle 'recouvrement mesures)))) (plv-cle 'couches mesures))
       (plv-cle 'recouvrement mesures)))
    ((plv-dernier places))
    ((float (fix limite)))))

(defun plv-feuilles:bande (mesures)
  "Width of what stands before a part that begins at a cut: the titles again, and the labels of an axis."
  (max (if (plv-cle 'titres mesures) (- (plv-feuilles:titres-droite mesures) (plv-cle 'gauche mesures)) 0.0)
       (plv-encarts-axe-largeur (plv-cle 'profil mesures))))

(defun plv-feuilles:coupures-pleines (mesures largeur / recouvrement coupures place fin d)
  "Distances at which a profile is cut for sheets of this width in drawing units, each as full as can be; T when it can't be."
  (setq recouvrement (plv-cle 'recouvrement mesures)
        fin (- (plv-cle 'droite mesures) (plv-cle 'x0 mesures))
        d (- (plv-cle 'gauche mesures) (plv-cle 'x0 mesures))
        place (- largeur recouvrement))
  (while (and (not (eq coupures T)) (> (- fin d) (if coupures (+ place recouvrement) largeur)))
    (setq d (plv-feuilles:coupure mesures (cond ((car coupures)) (0.0)) (+ d place)))
    (if (<= d (cond ((car coupures)) (0.0)))
      (setq coupures T)
      (setq coupures (cons d coupures)
            place (- largeur (plv-feuilles:bande mesures) (* 2.0 recouvrement)))))
  (if (eq coupures T) T (reverse coupures)))

;; --- legends on the last sheet

(defun plv-feuilles:encarts (mesures coupures largeur hauteur / gauche)
  "The insets of the last sheet, of that size in drawing units; T when it hasn't the room."
  (setq gauche (if coupures
                 (- (+ (plv-cle 'x0 mesures) (plv-dernier coupures)) (plv-cle 'recouvrement mesures) (plv-feuilles:bande mesures))
                 (plv-cle 'gauche mesures)))
  (plv-encarts mesures (- largeur (- (plv-cle 'droite mesures) gauche)) (- hauteur (- (plv-cle 'haut mesures) (plv-cle 'bas mesures)))))

(defun plv-feuilles:avec-legendes-p (mesures coupures largeur hauteur) (not (eq (plv-feuilles:encarts mesures coupures largeur hauteur) T)))

(defun plv-feuilles:coupures (mesures largeur hauteur / coupures egales)
  "The cuts for sheets of this size; T when there can be none. One more where the legends would have a sheet for themselves; balanced,
with room for the legends on the last sheet where they don't stand beneath."
  (setq coupures (plv-feuilles:coupures-pleines mesures largeur))
  (cond
    ((not (and coupures (listp coupures) (plv-feuilles:avec-legendes-p mesures coupures largeur hauteur)))
     (plv-feuilles:pour-legendes mesures coupures largeur hauteur))
    ((plv-feuilles:avec-legendes-p mesures (setq egales (plv-coupures-egales mesures largeur coupures 0.0)) largeur hauteur) egales)
    ((plv-feuilles:avec-legendes-p mesures (setq egales (plv-coupures-egales mesures largeur coupures (plv-encarts-longueur mesures))) largeur hauteur) egales)
    (T coupures)))

(defun plv-feuilles:pour-legendes (mesures coupures largeur hauteur / debut d)
  "Cuts with one more in the last part, where the legends haven't the room beside it."
  (if (and (listp coupures) (eq (plv-feuilles:encarts mesures coupures largeur hauteur) T))
    (progn
      (setq debut (cond ((plv-dernier coupures)) (0.0))
            d (plv-feuilles:coupure mesures debut (* 0.5 (+ debut (plv-longueur-profil (plv-cle 'profil mesures))))))
      (if (> d debut) (append coupures (list d)) coupures))
    coupures))
