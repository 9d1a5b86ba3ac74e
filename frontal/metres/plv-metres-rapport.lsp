;; What PLV-METRES prints: a table of the sections of each profile, and the control of their surfaces.
;; The control measures polygons between the two lines with the module's own area, and compares.

(defun plv-metres:colonnes (textes largeurs)
  "A line of a table, columns to the right."
  (plv-dire
    (apply 'strcat
      (mapcar '(lambda (texte largeur) (while (< (strlen texte) largeur) (setq texte (strcat " " texte))) texte) textes largeurs))))

(defun plv-metres:rangee (textes) (plv-metres:colonnes textes '(12 12 11 18 12 13 13)))

(defun plv-metres:dire (profil genre classes troncons / origine longueur)
  (setq origine (plgxd profil "DCUMDEB"))
  (plv-dire (strcat "Profil " (plv-numero-profil profil) ", " genre ": " (itoa (length troncons))
                    (if (cdr troncons) " troncons" " troncon")))
  (plv-metres:rangee '("debut" "fin" "longueur" "classe" "prof. moy." "surface m2" "volume m3"))
  (foreach s troncons
    (setq longueur (plv-metres:longueur s))
    (plv-metres:rangee
      (list (plv-reel (+ origine (cadr s)) 3) (plv-reel (+ origine (caddr s)) 3) (plv-reel longueur 3)
            (plv-metres:libelle (car s) classes)
            (plv-reel (/ (cadddr s) (if (< (abs longueur) 1e-8) 1.0 longueur)) 3) (plv-reel (cadddr s) 3)
            (plv-reel (plv-metres:volume s classes) 3))))
  (plv-metres:rangee
    (list "total" "" (plv-reel (plv-metres:total troncons 'plv-metres:longueur) 3) "" ""
          (plv-reel (plv-metres:total troncons 'cadddr) 3)
          (plv-reel (plv-metres:total troncons '(lambda (s) (plv-metres:volume s classes))) 3)))
  (plv-metres:dire-recouvrement troncons)
  (plv-metres:controle profil troncons))

(defun plv-metres:dire-recouvrement (troncons / doubles)
  (setq doubles (vl-remove nil (mapcar '(lambda (a b) (if (< (cadr b) (- (caddr a) 1e-5)) b)) troncons (cdr troncons))))
  (if doubles (plv-dire "Attention: des lignes de projet se recouvrent, leurs metres s'ajoutent.")))

;; --- control

(defun plv-metres:suites (troncons / suites)
  "Sections that follow one another without a gap on the same side of the ground, together."
  (foreach s troncons
    (if (and suites (equal (caddr (caar suites)) (cadr s) 1e-7) (eq (= (car (caar suites)) 0) (= (car s) 0)))
      (setq suites (cons (cons s (car suites)) (cdr suites)))
      (setq suites (cons (list s) suites))))
  (reverse (mapcar 'reverse suites)))

(defun plv-metres:polygone (points / premier)
  "A closed polyline, near the drawing's origin."
  (setq premier (car points))
  (entmakex
    (append
      (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(100 . "AcDbPolyline") (cons 90 (length points)) '(70 . 1))
      (mapcar '(lambda (p) (list 10 (- (car p) (car premier)) (- (cadr p) (cadr premier)))) points))))

(defun plv-metres:aire-entre (terrain suite / haut bas polygone aire)
  "The area between the lines over sections without a gap; the ground's own points count where they are known."
  (setq bas (apply 'append (mapcar '(lambda (s) (nth 5 s)) suite))
        haut (if terrain
               (plv-metres:entre terrain (cadr (car suite)) (caddr (plv-dernier suite)))
               (apply 'append (mapcar '(lambda (s) (nth 4 s)) suite)))
        polygone (plv-metres:polygone (append haut (reverse bas)))
        aire (pl_areacalc polygone 1.0))
  (entdel polygone)
  (cond (aire) (0.0)))

(defun plv-metres:controle (profil troncons / terrain sections lignes ecart juste)
  "Prints the control line; T when both ways agree within 1e-9, or, for lines that coincide, within a square millimetre."
  (setq terrain (plv-metres:terrain profil) sections 0.0 lignes 0.0)
  (foreach suite (plv-metres:suites troncons)
    (setq sections (+ sections (plv-metres:total suite 'cadddr))
          lignes (+ lignes (plv-metres:aire-entre terrain suite))))
  (setq ecart (abs (- sections lignes))
        juste (or (<= ecart (* 1e-9 lignes))
                  (and (< ecart 1e-6) (< lignes (* 1e-3 (plv-metres:total troncons 'plv-metres:longueur))))))
  (plv-dire (strcat "Controle: troncons " (plv-reel sections 6) " m2, entre les lignes " (plv-reel lignes 6) " m2, ecart relatif "
                    (rtos (/ ecart (max 1.0 lignes)) 1 1) (if juste ": juste." ": FAUX.")))
  (or juste (plv-erreur "les surfaces des troncons ne font pas celle entre les lignes")))
