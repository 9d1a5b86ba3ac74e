;; Legends drawn: a table as a block from (0 0), its upper left corner, in text heights times h.
;; A column is (title width), the first one the colour's; a row (colour text ...), the colour nil for none.
;; Shared in the room: plv-legende:*

(setq plv-legende:cle-profil "LEGENDEPROFIL" plv-legende:calque "PLV-LEGENDE")


(defun plv-legende:trait (x1 y1 x2 y2)
  (entmake (list '(0 . "LINE") (cons 8 (plv-calque plv-legende:calque)) (cons 10 (plv-point x1 y1)) (cons 11 (plv-point x2 y2)))))

(defun plv-legende:ecrire (x y h texte justification)
  (entmake
    (append
      (list '(0 . "TEXT") (cons 8 (plv-calque plv-legende:calque)) (cons 10 (plv-point x y)) (cons 40 h) (cons 1 texte))
      (plv-style-de-texte)
      (if (= justification 0) nil (list (cons 72 justification) (cons 11 (plv-point x y)))))))

(defun plv-legende:pastille (x1 y1 x2 y2 couleur clarte)
  "A filled rectangle as clear as the hatches that it stands for, in an outline."
  (entmake
    (list '(0 . "HATCH") '(100 . "AcDbEntity") (cons 8 (plv-calque plv-legende:calque)) (cons 62 couleur)
          (cons 440 clarte) '(100 . "AcDbHatch")
          '(10 0.0 0.0 0.0) '(210 0.0 0.0 1.0) '(2 . "SOLID") '(70 . 1) '(71 . 0) '(91 . 1) '(92 . 3) '(72 . 0) '(73 . 1) '(93 . 4)
          (list 10 x1 y1) (list 10 x2 y1) (list 10 x2 y2) (list 10 x1 y2) '(97 . 0) '(75 . 0) '(76 . 1) '(98 . 0)))
  (plv-legende:trait x1 y1 x2 y1)
  (plv-legende:trait x1 y2 x2 y2)
  (plv-legende:trait x1 y1 x1 y2)
  (plv-legende:trait x2 y1 x2 y2))

(defun plv-legende:bords (colonnes h)
  "Abscissas of the upright lines."
  (reverse (plv-plier '(lambda (bords largeur) (cons (+ (car bords) (* h largeur)) bords)) '(0.0) (mapcar 'cadr colonnes))))

;; --- figures of a column stand with their decimal points one above another, the widest in the middle

(defun plv-legende:figure-p (texte) (and (wcmatch texte "*#.#*") (distof texte 2)))

(defun plv-legende:parts (textes h / parts)
  "The greatest widths before the point and from it on of a column's figures; nil without figures."
  (setq parts (mapcar '(lambda (texte) (plv-autour-du-point texte h)) (vl-remove-if-not 'plv-legende:figure-p textes)))
  (if parts (list (apply 'max (mapcar 'car parts)) (apply 'max (mapcar 'cadr parts)))))

(defun plv-legende:colonnes-de (rangees)
  "The texts of each column, from those of each row."
  (if (car rangees) (cons (mapcar 'car rangees) (plv-legende:colonnes-de (mapcar 'cdr rangees)))))

(defun plv-legende:decalage (texte parts h / siennes)
  "How far to the right of the middle of its column a text stands."
  (if (and parts (plv-legende:figure-p texte))
    (progn
      (setq siennes (plv-autour-du-point texte h))
      (* 0.5 (+ (- (car parts) (car siennes)) (- (cadr siennes) (cadr parts)))))
    0.0))

(defun plv-legende:dessiner-rangee (rangee y h bords parts clarte)
  "A row whose lower line is at y."
  (if (car rangee) (plv-legende:pastille h (+ y (* 0.5 h)) (* 4.0 h) (+ y (* 1.5 h)) (car rangee) clarte))
  (setq bords (cdr bords))
  (mapcar
    '(lambda (texte a b p) (plv-legende:ecrire (+ (* 0.5 (+ a b)) (plv-legende:decalage texte p h)) (+ y (* 0.5 h)) h texte 1))
    (cdr rangee) bords (cdr bords) parts))

(defun plv-legende:dessiner (titre colonnes rangees h clarte / bords largeur y parts)
  (setq bords (plv-legende:bords colonnes h) largeur (plv-dernier bords) y 0.0
        parts (mapcar '(lambda (textes) (plv-legende:parts textes h)) (plv-legende:colonnes-de (mapcar 'cdr rangees))))
  (plv-legende:trait 0.0 0.0 largeur 0.0)
  (plv-legende:ecrire (* 0.5 largeur) (* -2.1 h) (* 1.2 h) titre 1)
  (setq y (* -3.0 h))
  (plv-legende:trait 0.0 y largeur y)
  (foreach rangee (cons (cons nil (mapcar 'car (cdr colonnes))) rangees)
    (setq y (- y (* 2.0 h)))
    (plv-legende:dessiner-rangee rangee y h bords parts clarte)
    (plv-legende:trait 0.0 y largeur y))
  (foreach x bords
    (plv-legende:trait x (if (or (= x 0.0) (equal x largeur 1e-6)) 0.0 (* -3.0 h)) x y)))

(defun plv-poser-legende (profil nom titre colonnes rangees clarte point genre cle / reference)
  "Defines the block of a legend, clarity being that of its colours, and inserts it; the reference, which names profile and kind, the kind
under a key."
  (entmake (list '(0 . "BLOCK") (cons 2 nom) '(70 . 0) '(10 0.0 0.0 0.0)))
  (plv-legende:dessiner titre colonnes rangees (plv-ttxt profil) clarte)
  (entmake '((0 . "ENDBLK")))
  (setq reference (plv-inserer plv-legende:calque nom point))
  (plv-ecrire-cles reference (list (list plv-legende:cle-profil profil) (list cle genre)))
  reference)
