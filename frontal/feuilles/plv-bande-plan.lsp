;; The plan above a profile: the drawing about the axis in plan, turned so that the part of a sheet runs from its left cut to its right
;; one, with match lines and stations. What is drawn over it stands in plv-bande-dessins.
;; Measures, as plv-feuilles makes them, have the keys profil x0.
;; Shared in the room: plv-bande:*

(setq plv-bande:moins 40.0 plv-bande:plus 110.0 plv-bande:fraction 0.35 plv-bande:jeu 4.0 plv-bande:pas '(10.0 20.0 25.0 50.0 100.0 200.0 500.0 1000.0 2000.0))

(defun plv-bande-jeu () "What lies between a plan and the profile, in millimetres." plv-bande:jeu)

(defun plv-bande-segments (mesures / axe)
  "The segments of the profile's axis in plan; nil without one."
  (if (setq axe (plv-axe-plan (plv-cle 'profil mesures))) (plv-axe-segments axe)))

(defun plv-bande-hauteur (mesures hauteur-mm profil-mm)
  "What a plan has of a room in millimetres that a profile leaves so much of; nil for no plan, or no room."
  (if (plv-bande-segments mesures)
    (if (>= (- hauteur-mm profil-mm plv-bande:jeu) plv-bande:moins)
      (min plv-bande:plus (max plv-bande:moins (* plv-bande:fraction hauteur-mm)) (- hauteur-mm profil-mm plv-bande:jeu)))))

(defun plv-bande-voulue (mesures) "The least height that a plan asks for, with its gap." (if (plv-bande-segments mesures) (+ plv-bande:moins plv-bande:jeu) 0.0))

;; --- a part of the axis: (segments from to direction)

(defun plv-bande:point (part d) (plv-lieu-point (plv-axe-en (car part) d)))

(defun plv-bande:ordonnee (part p / a)
  "The distance of a point from the chord of the axis, to the left."
  (setq a (plv-bande:point part (cadr part)))
  (* (distance a p) (sin (- (angle a p) (cadddr part)))))

(defun plv-bande:ecarts (part / i d ecarts)
  "The least and the greatest distance of the axis from its chord."
  (setq i 0 ecarts '(0.0))
  (repeat 41
    (setq d (+ (cadr part) (* (/ i 40.0) (- (caddr part) (cadr part)))) i (1+ i)
          ecarts (cons (plv-bande:ordonnee part (plv-bande:point part d)) ecarts)))
  (list (apply 'min ecarts) (apply 'max ecarts)))

(defun plv-bande:part (mesures debut fin / segments a b)
  (setq segments (plv-bande-segments mesures)
        a (plv-lieu-point (plv-axe-en segments debut)) b (plv-lieu-point (plv-axe-en segments fin)))
  (list segments debut fin (if (> (distance a b) 1e-6) (angle a b) 0.0)))

;; --- what is drawn over the plan: (x1 y1 x2 y2 [C]) and (x y text)

(defun plv-bande:travers (part d demi couper / lieu p q)
  "A line across the axis, half as long as that."
  (setq lieu (plv-axe-en (car part) d)
        p (polar (plv-lieu-point lieu) (+ (plv-lieu-direction lieu) (* 0.5 pi)) demi)
        q (polar (plv-lieu-point lieu) (- (plv-lieu-direction lieu) (* 0.5 pi)) demi))
  (append (list (car p) (cadr p) (car q) (cadr q)) (if couper '("C"))))

;; Above and below a tick, from the axis to the feet of a station 2.5 mm high, what is to be free above these, and how far from the line of a cut a station
;; is written, all in millimetres.
(setq plv-bande:dessus 3.0 plv-bande:dessous -5.5 plv-bande:libre 3.0 plv-bande:a-part 6.0)

(defun plv-bande:a-cote (part d ecart / lieu)
  (polar (plv-lieu-point (setq lieu (plv-axe-en (car part) d))) (+ (plv-lieu-direction lieu) (* 0.5 pi)) ecart))

(defun plv-bande:etiquette (part d milieu hauteur mm texte / p)
  "A station above the axis, below it where the band, so high about its middle, ends above."
  (setq p (plv-bande:a-cote part d (* plv-bande:dessus mm)))
  (if (> (+ (plv-bande:ordonnee part p) (* plv-bande:libre mm)) (+ milieu (* 0.5 hauteur mm)))
    (setq p (plv-bande:a-cote part d (* plv-bande:dessous mm))))
  (list (car p) (cadr p) texte))

(defun plv-bande:stations (profil part mm coupes / pas s rondes)
  "The round stations of a part, 30 mm of paper apart at least, and not at the line of a cut; mm: a millimetre in drawing units."
  (setq pas (cond ((car (vl-member-if '(lambda (p) (>= p (* 30.0 mm))) plv-bande:pas))) ((plv-dernier plv-bande:pas)))
        s (* pas (1+ (plv-partie-entiere (/ (+ (plv-premiere-station profil) (cadr part) -1e-6) pas)))))
  (while (<= (- s (plv-premiere-station profil)) (+ (caddr part) 1e-6))
    (setq rondes (cons (- s (plv-premiere-station profil)) rondes) s (+ s pas)))
  (vl-remove-if '(lambda (d) (vl-some '(lambda (c) (< (abs (- d c)) (* plv-bande:a-part mm))) coupes)) (reverse rondes)))

(defun plv-bande-plan (mesures echelle hauteur debut fin / profil part ecarts milieu mm a stations longueur)
  "The plan of a sheet between two cuts, nil for an end of the profile, as tracer-feuilles takes it."
  (setq profil (plv-cle 'profil mesures) longueur (plv-longueur-profil profil) mm (* 0.001 echelle)
        part (plv-bande:part mesures (cond (debut) (0.0)) (cond (fin) (longueur)))
        ecarts (plv-bande:ecarts part) milieu (* 0.5 (+ (car ecarts) (cadr ecarts)))
        a (polar (plv-bande:point part (cadr part)) (+ (cadddr part) (* 0.5 pi)) milieu)
        stations (plv-bande:stations profil part mm (vl-remove nil (list debut fin))))
  (if (> (- (cadr ecarts) (car ecarts)) (* hauteur mm))
    (plv-dire (strcat "attention: profil " (plv-numero-profil profil) ", l'axe en plan tourne trop pour sa bande de " (plv-reel hauteur 0) " mm, qui le coupe.")))
  (list hauteur (car a) (cadr a) (cadddr part) (+ (plv-cle 'x0 mesures) (cadr part))
    (append
      (mapcar '(lambda (d) (plv-bande:travers part d (* 0.45 hauteur mm) T)) (vl-remove nil (list debut fin)))
      (mapcar '(lambda (d) (plv-bande:travers part d (* 1.5 mm) nil)) stations))
    (mapcar '(lambda (d) (plv-bande:etiquette part d milieu hauteur mm (plv-reel (+ (plv-premiere-station profil) d) 0))) stations)))
