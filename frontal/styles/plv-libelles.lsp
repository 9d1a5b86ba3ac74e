;; Labels of project lines: slopes along the line where there is room, else above the profile; curves, high and low points above it, each
;; with a leader to its place. What stands above is moved apart along rows; no label is left out without a word.
;; Shared in the room: plv-libelles:*

;; --- a label: (places lines anchor), places as (box text angle) in the order in which it likes them, the lines that it has above the
;; profile, and the point that it is about

(defun plv-libelles:places (libelle) (car libelle))
(defun plv-libelles:lignes (libelle) (cadr libelle))
(defun plv-libelles:ancre (libelle) (caddr libelle))

(defun plv-libelles:remplir (motif marques)
  "A pattern with its marks (mark . text) replaced."
  (foreach m marques (setq motif (plv-remplacer motif (car m) (cdr m))))
  motif)

;; --- what a line is made of: (profile kind situated-elements planes frame)

(defun plv-libelles:trace (profil genre / plans)
  (setq plans (plv-plans profil))
  (list profil genre (plv-elements-situes profil genre) plans (plv-cadre-sur profil plans)))

(defun plv-libelles:altitude (tracee d) (plv-altitude-projet (car tracee) (caddr tracee) (cadddr tracee) d))

(defun plv-libelles:point (tracee d / z)
  "Where a line is drawn at a distance; nil where it isn't."
  (if (setq z (plv-libelles:altitude tracee d)) (plv-vers-dessin (nth 4 tracee) d z)))

;; --- slopes

(setq plv-libelles:parts '(0.5 0.4 0.6 0.3 0.7 0.2 0.8))

(defun plv-libelles:marques-pente (piece)
  (list (cons "<P>" (plv-reel (abs (* 100.0 (plv-pente-valeur piece))) 2)) (cons "<L>" (plv-reel (plv-longueur piece) 2))))

(defun plv-libelles:ecart (texte h)
  "From a line to the middle of a text along it, whose box keeps clear of the line."
  (max (* 1.1 h) (+ (* 0.25 h) (* 0.5 (cadddr (plv-boite-au-milieu '(0.0 0.0) 0.0 texte h (* 0.6 h)))))))

(defun plv-libelles:place-pente (tracee piece texte part cote / h largeur ecart a d p demi)
  "A place along a straight piece, above it for 1, below it for -1; nil where it doesn't lie on it and over one plane, and beneath that."
  (setq h (plv-ttxt (car tracee)) largeur (plv-largeur-texte texte h) ecart (* cote (plv-libelles:ecart texte h))
        a (atan (* (plv-echv (car tracee)) (plv-pente-valeur piece)))
        d (+ (plv-debut piece) (* part (plv-longueur piece)))
        demi (+ (* 0.5 largeur (cos a)) (* h (abs (sin a)))))
  (if (and (> (- d demi) (plv-debut piece)) (< (+ d demi) (plv-fin piece))
           (plv-plan-de (cadddr tracee) (- d demi) (+ d demi)) (setq p (plv-libelles:point tracee d))
           (> (+ (cadr p) (* ecart (cos a)) (* -0.5 largeur (abs (sin a))) (* -0.75 h (cos a))) (cadr (plv-origine (car tracee)))))
    (list (plv-boite-au-milieu (list (- (car p) (* ecart (sin a))) (+ (cadr p) (* ecart (cos a)))) a texte h (* 0.6 h)) texte a)))

(defun plv-libelles:places-pente (tracee piece textes / places place)
  (foreach texte textes
    (foreach cote '(1 -1)
      (foreach part plv-libelles:parts
        (if (setq place (plv-libelles:place-pente tracee piece texte part cote)) (setq places (cons place places))))))
  (reverse places))

(defun plv-libelles:pente (tracee motif piece / texte)
  "The label of a straight piece: with its length, else the slope alone."
  (setq texte (plv-libelles:remplir motif (plv-libelles:marques-pente piece)))
  (list (plv-libelles:places-pente tracee piece
          (plv-uniques (list texte (strcat (plv-reel (abs (* 100.0 (plv-pente-valeur piece))) 2) " %"))))
        (list texte) (plv-libelles:point tracee (plv-milieu piece))))

;; --- curves

(defun plv-libelles:courbe (tracee motif piece / rayon)
  (if (setq rayon (plv-rayon-de-piece (car tracee) piece))
    (list nil
          (plv-couper
            (plv-libelles:remplir motif
              (list (cons "<R>" (plv-reel rayon 0)) (cons "<L>" (plv-reel (plv-longueur piece) 2)) (cons "<T>" (plv-reel (* 0.5 (plv-longueur piece)) 2))))
            "|")
          (plv-libelles:point tracee (plv-milieu piece)))))

;; --- high and low points

(defun plv-libelles:pentes-aux-bouts (tracee piece / d l z)
  "The slopes at both ends of a piece: of a curve those of the parabola through its ends and middle."
  (if (plv-pente-droite-p piece)
    (list (plv-pente-valeur piece) (plv-pente-valeur piece))
    (progn
      (setq d (plv-debut piece) l (plv-longueur piece)
            z (mapcar '(lambda (t1) (plv-libelles:altitude tracee (+ d (* t1 l)))) '(0.0 0.5 1.0)))
      (if (not (member nil z))
        (list (/ (- (* 4.0 (cadr z)) (* 3.0 (car z)) (caddr z)) l) (/ (+ (* 3.0 (caddr z)) (car z) (* -4.0 (cadr z))) l))))))

(setq plv-libelles:plat 1e-5)

(defun plv-libelles:signe (pente) (cond ((> pente plv-libelles:plat) 1) ((< pente (- plv-libelles:plat)) -1) (0)))

(defun plv-libelles:extremes (tracee pieces / avant bouts extremes)
  "(distance T-for-high) where the line changes from rising to falling or the other way."
  (foreach piece pieces
    (if (setq bouts (plv-libelles:pentes-aux-bouts tracee piece))
      (progn
        (if (and avant (equal (car avant) (plv-debut piece) 1e-6) (< (* (plv-libelles:signe (cadr avant)) (plv-libelles:signe (car bouts))) 0))
          (setq extremes (cons (list (plv-debut piece) (> (cadr avant) 0.0)) extremes)))
        (if (< (* (plv-libelles:signe (car bouts)) (plv-libelles:signe (cadr bouts))) 0)
          (setq extremes
            (cons (list (+ (plv-debut piece) (* (plv-longueur piece) (/ (car bouts) (- (car bouts) (cadr bouts))))) (> (car bouts) 0.0)) extremes)))
        (setq avant (list (plv-fin piece) (cadr bouts))))
      (setq avant nil)))
  (reverse extremes))

(defun plv-libelles:extreme (tracee extreme / motif z)
  (if (and (setq motif (plv-style-libelle (if (cadr extreme) "haut" "bas"))) (setq z (plv-libelles:altitude tracee (car extreme))))
    (list nil
          (plv-couper
            (plv-libelles:remplir motif
              (list (cons "<Z>" (plv-reel z 2)) (cons "<PK>" (plv-reel (+ (plv-premiere-station (car tracee)) (car extreme)) 2))))
            "|")
          (plv-libelles:point tracee (car extreme)))))

;; --- all of a profile

(defun plv-libelles:pieces (profil genre / fin)
  (setq fin (plv-longueur-profil profil))
  (vl-remove-if '(lambda (p) (< (plv-longueur p) 1e-3))
    (mapcar '(lambda (p) (vl-list* (max 0.0 (plv-debut p)) (min fin (plv-fin p)) (cddr p))) (plv-elements-de-pente profil genre))))

(defun plv-libelles:du-genre (profil genre / tracee pieces)
  "Slopes of a line that has a network stand with its pipes."
  (setq tracee (plv-libelles:trace profil genre) pieces (plv-libelles:pieces profil genre))
  (append
    (if (and (plv-style-libelle "pente") (not (member genre (plv-genres-de-reseau profil))))
      (mapcar '(lambda (p) (plv-libelles:pente tracee (plv-style-libelle "pente") p)) (vl-remove-if-not 'plv-pente-droite-p pieces)))
    (if (plv-style-libelle "courbe")
      (mapcar '(lambda (p) (plv-libelles:courbe tracee (plv-style-libelle "courbe") p)) (vl-remove-if 'plv-pente-droite-p pieces)))
    (mapcar '(lambda (e) (plv-libelles:extreme tracee e)) (plv-libelles:extremes tracee pieces))))

(defun plv-libelles (profil)
  "The labels of all project lines."
  (vl-remove-if-not 'caddr
    (vl-remove nil (apply 'append (mapcar '(lambda (genre) (plv-libelles:du-genre profil genre)) (plv-genres-du-projet profil))))))
