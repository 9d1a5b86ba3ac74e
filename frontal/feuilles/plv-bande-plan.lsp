;; The plan above a profile: the drawing about the axis in plan, turned so that the part of a sheet runs from its left cut to its right
;; one, with match lines, stations, north, a scale bar and, of several sheets, a key plan.
;; Measures, as plv-feuilles makes them, have the keys profil x0.

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

(defun plv-bande:ecarts (part / a i d ecarts p)
  "The least and the greatest distance of the axis from its chord, to the left."
  (setq a (plv-bande:point part (cadr part)) i 0 ecarts '(0.0))
  (repeat 41
    (setq d (+ (cadr part) (* (/ i 40.0) (- (caddr part) (cadr part)))) p (plv-bande:point part d) i (1+ i)
          ecarts (cons (* (distance a p) (sin (- (angle a p) (cadddr part)))) ecarts)))
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

(defun plv-bande:etiquette (part d ecart texte / lieu p)
  (setq lieu (plv-axe-en (car part) d)
        p (polar (plv-lieu-point lieu) (+ (plv-lieu-direction lieu) (* 0.5 pi)) ecart))
  (list (car p) (cadr p) texte))

(defun plv-bande:stations (profil part mm / pas s rondes)
  "The round stations of a part, 30 mm of paper apart at least; mm: a millimetre in drawing units."
  (setq pas (cond ((car (vl-member-if '(lambda (p) (>= p (* 30.0 mm))) plv-bande:pas))) ((plv-dernier plv-bande:pas)))
        s (* pas (1+ (plv-partie-entiere (/ (+ (plv-premiere-station profil) (cadr part) -1e-6) pas)))))
  (while (<= (- s (plv-premiere-station profil)) (+ (caddr part) 1e-6))
    (setq rondes (cons (- s (plv-premiere-station profil)) rondes) s (+ s pas)))
  (reverse rondes))

(defun plv-bande-plan (mesures echelle hauteur debut fin / profil part ecarts milieu mm a stations longueur)
  "The plan of a sheet between two cuts, nil for an end of the profile, as tracer-feuilles takes it."
  (setq profil (plv-cle 'profil mesures) longueur (plv-longueur-profil profil) mm (* 0.001 echelle)
        part (plv-bande:part mesures (cond (debut) (0.0)) (cond (fin) (longueur)))
        ecarts (plv-bande:ecarts part) milieu (* 0.5 (+ (car ecarts) (cadr ecarts)))
        a (polar (plv-bande:point part (cadr part)) (+ (cadddr part) (* 0.5 pi)) milieu)
        stations (plv-bande:stations profil part mm))
  (if (> (- (cadr ecarts) (car ecarts)) (* hauteur mm))
    (plv-dire (strcat "attention: profil " (plv-numero-profil profil) ", l'axe en plan tourne trop pour sa bande de " (plv-reel hauteur 0) " mm, qui le coupe.")))
  (list hauteur (car a) (cadr a) (cadddr part) (+ (plv-cle 'x0 mesures) (cadr part))
    (append
      (mapcar '(lambda (d) (plv-bande:travers part d (* 0.45 hauteur mm) T)) (vl-remove nil (list debut fin)))
      (mapcar '(lambda (d) (plv-bande:travers part d (* 1.5 mm) nil)) stations))
    (mapcar '(lambda (d) (plv-bande:etiquette part d (* 3.0 mm) (plv-reel (+ (plv-premiere-station profil) d) 0))) stations)))

;; --- on the paper: x and y in millimetres from the lower left corner of the room

(defun plv-bande:trait (poids points) (vl-list* "L" poids (apply 'append points)))

(defun plv-bande:nord (x y tourne / nord sud bout)
  "An arrow of 14 mm about a place, for a plan that was turned back by an angle."
  (setq nord (- (* 0.5 pi) tourne) sud (+ nord pi) bout (polar (list x y) nord 7.0))
  (list (plv-bande:trait 0.25 (list (polar (list x y) sud 7.0) bout))
        (cons "A" (apply 'append (list bout (polar bout (- sud 0.35) 4.0) (polar bout sud 2.8) (polar bout (+ sud 0.35) 4.0))))
        (vl-list* "T" 2.5 1 "N" (mapcar '+ (polar bout nord 2.6) '(0.0 -1.2)))))

(defun plv-bande:ronde (longueur)
  "The greatest round length that is no longer."
  (plv-dernier (vl-remove-if '(lambda (p) (> p longueur)) (append '(1.0 2.0 5.0) plv-bande:pas))))

(defun plv-bande:barre (x y echelle / metres mm)
  "A bar of two round halves, at most 40 mm long."
  (setq metres (cond ((plv-bande:ronde (* 0.02 echelle))) (1.0)) mm (/ (* 1000.0 metres) echelle))
  (list (list "A" x y (+ x mm) y (+ x mm) (+ y 1.2) x (+ y 1.2))
        (plv-bande:trait 0.13 (list (list x y) (list (+ x mm mm) y) (list (+ x mm mm) (+ y 1.2)) (list x (+ y 1.2)) (list x y)))
        (list "T" 1.8 1 "0" x (+ y 2.2)) (list "T" 1.8 1 (plv-reel metres 0) (+ x mm) (+ y 2.2))
        (list "T" 1.8 1 (strcat (plv-reel (* 2.0 metres) 0) " m") (+ x mm mm) (+ y 2.2))))

(defun plv-bande:chemin (segments a b / i points)
  "Points of the axis between two distances."
  (setq i 0)
  (repeat 61 (setq points (cons (plv-lieu-point (plv-axe-en segments (+ a (* (/ i 60.0) (- b a))))) points) i (1+ i)))
  points)

(defun plv-bande:cadrer (points tous x y largeur hauteur / gauche bas facteur)
  "Points of the drawing within a box of the paper, as all of the axis fits into it."
  (setq gauche (apply 'min (mapcar 'car tous)) bas (apply 'min (mapcar 'cadr tous))
        facteur (min (/ largeur (max 1e-6 (- (apply 'max (mapcar 'car tous)) gauche))) (/ hauteur (max 1e-6 (- (apply 'max (mapcar 'cadr tous)) bas)))))
  (mapcar '(lambda (p) (list (+ x (* facteur (- (car p) gauche))) (+ y (* facteur (- (cadr p) bas))))) points))

(defun plv-bande:situation (segments part longueur x y / tous)
  "A key plan of 40 by 24 mm: the whole axis, that of the sheet heavy. North is above."
  (setq tous (plv-bande:chemin segments 0.0 longueur))
  (list (list "B" x y (+ x 40.0) y (+ x 40.0) (+ y 24.0) x (+ y 24.0))
        (plv-bande:trait 0.13 (list (list x y) (list (+ x 40.0) y) (list (+ x 40.0) (+ y 24.0)) (list x (+ y 24.0)) (list x y)))
        (plv-bande:trait 0.13 (plv-bande:cadrer tous tous (+ x 4.0) (+ y 3.0) 32.0 15.0))
        (plv-bande:trait 0.7 (plv-bande:cadrer (plv-bande:chemin segments (cadr part) (caddr part)) tous (+ x 4.0) (+ y 3.0) 32.0 15.0))
        (list "T" 1.8 0 "Situation" (+ x 1.5) (+ y 21.0))))

(defun plv-bande-dessins (mesures echelle largeur hauteur-place hauteur debut fin / part haut longueur)
  "North, scale bar and key plan of a plan of that height at the top of a room."
  (setq longueur (plv-longueur-profil (plv-cle 'profil mesures))
        part (plv-bande:part mesures (cond (debut) (0.0)) (cond (fin) (longueur))) haut hauteur-place)
  (append
    (list (list "B" (- largeur 18.0) (- haut 22.0) largeur (- haut 22.0) largeur haut (- largeur 18.0) haut)
          (list "B" 0.0 (- haut hauteur) 54.0 (- haut hauteur) 54.0 (+ (- haut hauteur) 8.0) 0.0 (+ (- haut hauteur) 8.0)))
    (plv-bande:nord (- largeur 9.0) (- haut 12.0) (cadddr part))
    (plv-bande:barre 4.0 (+ (- haut hauteur) 2.0) echelle)
    (if (or debut fin) (plv-bande:situation (car part) part longueur 2.0 (- haut 26.0)))
    ;; The frame goes over what was blanked.
    (list (plv-bande:trait 0.25 (list (list 0.0 haut) (list largeur haut) (list largeur (- haut hauteur)) (list 0.0 (- haut hauteur)) (list 0.0 haut))))))
