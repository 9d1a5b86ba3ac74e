;; PLV-PRESENTATIONS: the sheets of PLV-FEUILLES as layouts of the drawing, with viewports at scale, so that other programs plot the same.
;; All is placed in millimetres from the lower left corner of the sheet. A placing of a sheet is (k top at lefts), k millimetres of
;; paper for a drawing unit, top the paper's height of the highest ordinate, at the abscissa of the row of views, lefts those of the views.
;; Shared in the room: plv-presentations:*

(setq plv-presentations:cle "PLV_PRESENTATIONS" plv-presentations:fenetres "KAVEL-FENETRES" plv-presentations:coupure "KAVEL-COUPURE"
      plv-presentations:vue 32864)

;; --- where the parts of a sheet stand, as tracer-feuilles places them

(defun plv-presentations:lefts (feuille / x lefts)
  "The left edges of the views in drawing units; labels of an axis stand before the last one."
  (setq x 0.0)
  (foreach v (cadr feuille)
    (if (and (eq v (plv-dernier (cadr feuille))) (nth 4 feuille)) (setq x (max x (car (nth 4 feuille)))))
    (setq lefts (cons x lefts) x (+ x (- (caddr v) (car v)))))
  (reverse lefts))

(defun plv-presentations:encarts (feuille lefts / x)
  "The insets as boxes of the row: (x1 y1 x2 y2)."
  (setq x (- (plv-dernier lefts) (car (plv-dernier (cadr feuille)))))
  (mapcar '(lambda (e) (list (+ (car e) (nth 4 e) x) (+ (cadr e) (nth 5 e)) (+ (caddr e) (nth 4 e) x) (+ (cadddr e) (nth 5 e)))) (nth 3 feuille)))

(defun plv-presentations:placer (feuille place / k lefts boites bas haut hauteur)
  (setq k (/ 1000.0 (car feuille)) lefts (plv-presentations:lefts feuille)
        boites (append (mapcar '(lambda (v l) (list l (cadr v) (+ l (- (caddr v) (car v))) (cadddr v))) (cadr feuille) lefts)
                 (plv-presentations:encarts feuille lefts))
        bas (apply 'min (mapcar 'cadr boites)) haut (apply 'max (mapcar 'plv-boite-haut boites))
        hauteur (- (plv-place-hauteur place) (if (nth 5 feuille) (+ (car (nth 5 feuille)) (plv-bande-jeu)) 0.0)))
  (list k (+ (plv-place-bas place) (* 0.5 (+ hauteur (* k (- haut bas)))))
        (- (plv-place-gauche place) (* k (apply 'min (cons 0.0 (mapcar 'car boites))))) lefts haut))

(defun plv-presentations:y (placement ordonnee) (- (cadr placement) (* (car placement) (- (nth 4 placement) ordonnee))))

(defun plv-presentations:x (feuille placement rang abscisse)
  "Of an abscissa of the drawing as the view of a number shows it."
  (+ (caddr placement) (* (car placement) (+ (nth rang (cadddr placement)) (- abscisse (car (nth rang (cadr feuille))))))))

;; --- what is drawn in the paper's space

(defun plv-presentations:trait (points poids trait)
  (mapcar
    '(lambda (a b)
       (entmake (list '(0 . "LINE") '(67 . 1) '(8 . "0") (cons 370 poids) (cons 6 trait) (list 10 (car a) (cadr a) 0.0) (list 11 (car b) (cadr b) 0.0))))
    points (cdr points)))

(defun plv-presentations:texte (x y hauteur cote texte tourne)
  "cote: 0 left end, 1 middle, 2 right end at the point."
  (entmake
    (append (list '(0 . "TEXT") '(67 . 1) '(8 . "0") (list 10 x y 0.0) (cons 40 hauteur) (cons 1 texte) (cons 50 tourne))
      (plv-style-de-texte)
      (if (= cote 0) nil (list (cons 72 cote) (list 11 x y 0.0))))))

(defun plv-presentations:aplat (points couleur)
  (entmake
    (append
      (list '(0 . "HATCH") '(100 . "AcDbEntity") '(67 . 1) '(8 . "0") (cons 62 couleur) '(100 . "AcDbHatch")
            '(10 0.0 0.0 0.0) '(210 0.0 0.0 1.0) '(2 . "SOLID") '(70 . 1) '(71 . 0) '(91 . 1) '(92 . 3) '(72 . 0) '(73 . 1) (cons 93 (length points)))
      (mapcar '(lambda (p) (list 10 (car p) (cadr p))) points)
      '((97 . 0) (75 . 0) (76 . 1) (98 . 0)))))

(defun plv-presentations:fenetre (numero x1 y1 x2 y2 vue cible tourne hauteur geles)
  "A viewport between two corners of the paper: the point of the view at its middle, target, turn and height of the model, and the layers that are
frozen in it."
  (entmake
    (append (list '(0 . "VIEWPORT") '(100 . "AcDbEntity") '(67 . 1) (cons 8 plv-presentations:fenetres) '(100 . "AcDbViewport")
          (list 10 (* 0.5 (+ x1 x2)) (* 0.5 (+ y1 y2)) 0.0) (cons 40 (- x2 x1)) (cons 41 (- y2 y1)) (cons 68 numero) (cons 69 numero)
          (list 12 (car vue) (cadr vue) 0.0) '(16 0.0 0.0 1.0) (list 17 (car cible) (cadr cible) 0.0) (cons 45 hauteur) (cons 51 tourne)
          (cons 90 plv-presentations:vue))
      (mapcar '(lambda (calque) (cons 331 (tblobjname "LAYER" calque))) geles))))

(defun plv-presentations:de-face (numero boite x y k geles)
  "A viewport of a box of the drawing whose lower left corner stands at a place of the paper."
  (plv-presentations:fenetre numero x y (+ x (* k (- (caddr boite) (car boite)))) (+ y (* k (- (plv-boite-haut boite) (cadr boite))))
    (list (* 0.5 (+ (car boite) (caddr boite))) (* 0.5 (+ (cadr boite) (plv-boite-haut boite)))) '(0.0 0.0) 0.0 (- (plv-boite-haut boite) (cadr boite)) geles))

(defun plv-presentations:vues (feuille placement geles / rang x)
  (setq rang -1)
  (foreach v (cadr feuille)
    (setq rang (1+ rang))
    (plv-presentations:de-face (+ 2 rang) v (plv-presentations:x feuille placement rang (car v)) (plv-presentations:y placement (cadr v)) (car placement)
      (if (eq v (plv-dernier (cadr feuille))) geles))
    (foreach coupure (vl-remove-if-not 'listp (cddddr v))
      (setq x (plv-presentations:x feuille placement rang (car coupure)))
      (plv-presentations:trait
        (list (list x (- (plv-presentations:y placement (cadr coupure)) 3.0)) (list x (+ (plv-presentations:y placement (caddr coupure)) 3.0)))
        35 plv-presentations:coupure)))
  rang)

(defun plv-presentations:legendes (feuille placement rang / numero)
  (setq numero (+ 2 rang))
  (foreach e (nth 3 feuille)
    (setq numero (1+ numero))
    (plv-presentations:de-face numero e (plv-presentations:x feuille placement rang (+ (car e) (nth 4 e)))
      (plv-presentations:y placement (+ (cadr e) (nth 5 e))) (car placement) nil))
  numero)

(defun plv-presentations:axe (feuille placement rang / axe x y k h)
  "The graduated axis after a cut, as sheets have it: it ends in ticks of half a text height."
  (if (setq axe (nth 4 feuille))
    (progn
      (setq x (plv-presentations:x feuille placement rang (car (nth rang (cadr feuille)))) k (car placement) h (* k (cadddr axe)))
      (plv-presentations:trait (list (list x (plv-presentations:y placement (cadr axe))) (list x (plv-presentations:y placement (caddr axe)))) 25 "Continuous")
      (foreach g (cddddr axe)
        (setq y (plv-presentations:y placement (car g)))
        (plv-presentations:trait (list (list (- x (* 0.5 h)) y) (list x y)) 25 "Continuous")
        (plv-presentations:texte (- x h) (- y (* 0.5 h)) h 2 (cdr g) 0.0)))))

(defun plv-presentations:plan (feuille place placement rang numero / plan haut bas x lieu)
  "The viewport of the plan, and its lines and stations where they are seen."
  (if (setq plan (nth 5 feuille))
    (progn
      (setq haut (+ (plv-place-bas place) (plv-place-hauteur place)) bas (- haut (car plan))
            x (plv-presentations:x feuille placement rang (nth 4 plan)))
      (plv-presentations:fenetre (1+ numero) (plv-place-gauche place) bas (+ (plv-place-gauche place) (plv-place-largeur place)) haut
        (list (/ (- (+ (plv-place-gauche place) (* 0.5 (plv-place-largeur place))) x) (car placement)) 0.0)
        (list (cadr plan) (caddr plan)) (- (cadddr plan)) (/ (car plan) (car placement)) nil)
      (foreach l (nth 5 plan)
        (plv-presentations:trait
          (plv-presentations:couper
            (mapcar '(lambda (p) (plv-presentations:du-plan plan p x (* 0.5 (+ haut bas)) (car placement)))
              (list (list (car l) (cadr l)) (list (caddr l) (cadddr l))))
            bas haut)
          (if (nth 4 l) 35 13) (if (nth 4 l) plv-presentations:coupure "Continuous")))
      (foreach l (nth 6 plan)
        (setq lieu (plv-presentations:du-plan plan l x (* 0.5 (+ haut bas)) (car placement)))
        (if (< bas (cadr lieu) (- haut 2.5)) (plv-presentations:texte (car lieu) (cadr lieu) 2.5 1 (caddr l) 0.0))))))

(defun plv-presentations:couper (bouts bas haut / a b)
  "What of a line is between two heights of the paper; nil for nothing."
  (setq a (car bouts) b (cadr bouts))
  (if (and (< (min (cadr a) (cadr b)) haut) (> (max (cadr a) (cadr b)) bas))
    (mapcar
      '(lambda (p / y)
         (setq y (plv-entre (cadr p) bas haut))
         (if (equal y (cadr p) 1e-9) p (list (plv-interpoler (list (list (cadr a) (car a)) (list (cadr b) (car b))) y) y)))
      bouts)))

(defun plv-presentations:du-plan (plan p x y k / d)
  "Where a point of the drawing stands on the paper, the plan's own point at (x y)."
  (setq d (list (- (car p) (cadr plan)) (- (cadr p) (caddr plan))))
  (polar (list x y) (- (angle '(0.0 0.0) d) (cadddr plan)) (* k (distance '(0.0 0.0) d))))

(defun plv-presentations:paires (nombres) (if (cdr nombres) (cons (list (car nombres) (cadr nombres)) (plv-presentations:paires (cddr nombres)))))

(defun plv-presentations:dessin (place dessin / points)
  "One of the drawings on the sheet itself."
  (setq points (mapcar '(lambda (p) (list (+ (car p) (plv-place-gauche place)) (+ (cadr p) (plv-place-bas place))))
                 (plv-presentations:paires (plv-sans-premiers (cdr dessin) (cond ((member (car dessin) '("L" "I")) 1) ((= (car dessin) "T") 3) (0))))))
  (cond
    ((= (car dessin) "I")
     (plv-logo-image (cadr dessin)
       (mapcar '+ (cddr dessin) (list (plv-place-gauche place) (plv-place-bas place) (plv-place-gauche place) (plv-place-bas place)))))
    ((= (car dessin) "L") (plv-presentations:trait points (fix (+ 0.5 (* 100.0 (cadr dessin)))) "Continuous"))
    ((= (car dessin) "T") (plv-presentations:texte (caar points) (cadar points) (cadr dessin) (caddr dessin) (cadddr dessin) (cond ((nth 6 dessin)) (0.0))))
    (T (plv-presentations:aplat points (if (= (car dessin) "A") 7 255)))))
