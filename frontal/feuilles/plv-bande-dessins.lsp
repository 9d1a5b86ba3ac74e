;; What is drawn over the plan above a profile: north, a scale bar and, of several sheets, a key plan. Each stands in a corner that the axis leaves
;; free, for it hides what is beneath. On the paper: x and y in millimetres from the lower left corner of the room.
;; Shared in the room: plv-bande:*

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

(defun plv-bande:metres (echelle) "Half a scale bar, a round length of at most 20 mm." (cond ((plv-bande:ronde (* 0.02 echelle))) (1.0)))

(defun plv-bande:barre (x y echelle / metres mm)
  (setq metres (plv-bande:metres echelle) mm (/ (* 1000.0 metres) echelle))
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

;; --- corners: a box is (left bottom right top)

(defun plv-bande:semer (a b / i points)
  "Points from one to another."
  (setq i 0)
  (repeat 41 (setq points (cons (mapcar '(lambda (u v) (+ u (* (/ i 40.0) (- v u)))) a b) points) i (1+ i)))
  points)

(defun plv-bande:a-garder (plan part mis)
  "Points of the paper that are to be seen: those of the axis, of its cuts and of its stations. mis: where a point of the drawing stands."
  (append
    (mapcar mis (plv-bande:chemin (car part) (cadr part) (caddr part)))
    (apply 'append
      (mapcar '(lambda (l) (plv-bande:semer (mis (list (car l) (cadr l))) (mis (list (caddr l) (cadddr l))))) (nth 5 plan)))
    (apply 'append
      (mapcar '(lambda (e / p l)
                 (setq p (mis e) l (* 0.5 (plv-largeur-texte (caddr e) 2.5)))
                 (apply 'append (mapcar '(lambda (x) (list (list (+ (car p) x) (cadr p)) (list (+ (car p) x) (+ (cadr p) 2.5)))) (list (- l) 0.0 l))))
        (nth 6 plan)))))

(defun plv-bande:libre-p (boite garder prises)
  "Whether a box hides nothing and keeps clear of those that are taken."
  (and (not (vl-some '(lambda (p) (and (< (car boite) (car p) (caddr boite)) (< (cadr boite) (cadr p) (cadddr boite)))) garder))
       (plv-bande:seule-p boite prises)))

(defun plv-bande:seule-p (boite prises)
  (not (vl-some '(lambda (b) (and (< (car boite) (caddr b)) (< (car b) (caddr boite)) (< (cadr boite) (cadddr b)) (< (cadr b) (cadddr boite)))) prises)))

(defun plv-bande:coin (coins l h bande garder prises / boites)
  "The box of a size in the first corner of a band that is free, else in the first that is not taken."
  (setq boites
    (mapcar
      '(lambda (c / x y)
         (setq x (if (= (substr c 1 1) "G") (car bande) (- (caddr bande) l)) y (if (= (substr c 2 1) "B") (cadr bande) (- (cadddr bande) h)))
         (list x y (+ x l) (+ y h)))
      coins))
  (cond
    ((car (vl-member-if '(lambda (b) (plv-bande:libre-p b garder prises)) boites)))
    ((car (vl-member-if '(lambda (b) (plv-bande:seule-p b prises)) boites)))
    ((car boites))))

(defun plv-bande:blanc (b) (list "B" (car b) (cadr b) (caddr b) (cadr b) (caddr b) (cadddr b) (car b) (cadddr b)))

(defun plv-bande:meubler (bande garder part echelle longueur cle / nord situation barre)
  "North, key plan where one is asked for, and scale bar, on white."
  (setq nord (plv-bande:coin '("DH" "DB" "GH" "GB") 18.0 22.0 bande garder nil)
        situation (if cle (plv-bande:coin '("GH" "GB" "DB" "DH") 44.0 28.0 bande garder (list nord)))
        barre (plv-bande:coin '("GB" "DB" "GH" "DH") (+ 10.0 (/ (* 2000.0 (plv-bande:metres echelle)) echelle)) 8.0 bande garder
                (vl-remove nil (list nord situation))))
  (append
    (list (plv-bande:blanc nord) (plv-bande:blanc barre))
    (plv-bande:nord (+ (car nord) 9.0) (+ (cadr nord) 10.0) (cadddr part))
    (plv-bande:barre (+ (car barre) 4.0) (+ (cadr barre) 2.0) echelle)
    (if cle (plv-bande:situation (car part) part longueur (+ (car situation) 2.0) (+ (cadr situation) 2.0)))))

(defun plv-bande-dessins (mesures feuille place debut fin / longueur plan part haut placement rang x y)
  "What is drawn over the plan of a sheet between two cuts, nil for an end of the profile."
  (setq longueur (plv-longueur-profil (plv-cle 'profil mesures)) plan (nth 5 feuille) haut (plv-place-hauteur place)
        part (plv-bande:part mesures (cond (debut) (0.0)) (cond (fin) (longueur)))
        placement (plv-presentations:placer feuille place) rang (1- (length (cadr feuille)))
        x (- (plv-presentations:x feuille placement rang (nth 4 plan)) (plv-place-gauche place)) y (- haut (* 0.5 (car plan))))
  (append
    (plv-bande:meubler (list 0.0 (- haut (car plan)) (plv-place-largeur place) haut)
      (plv-bande:a-garder plan part '(lambda (p) (plv-presentations:du-plan plan p x y (car placement)))) part (car feuille) longueur (or debut fin))
    ;; The frame goes over what was blanked.
    (list (plv-bande:cadre 0.0 (- haut (car plan)) (plv-place-largeur place) haut))))

(defun plv-bande:cadre (x1 y1 x2 y2) (plv-bande:trait 0.25 (list (list x1 y2) (list x2 y2) (list x2 y1) (list x1 y1) (list x1 y2))))
