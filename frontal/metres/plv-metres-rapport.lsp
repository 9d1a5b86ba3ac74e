;; What PLV-METRES prints: a table of the depth sections of each profile, and the control of their surfaces.
;; The control measures polygons between the two lines with the module's own area, and compares.
;; Shared in the room: plv-metres:*

(setq plv-metres:largeurs '(12 12 11 18 12 13 13))

(defun plv-metres:rangee (textes) (plv-colonnes textes plv-metres:largeurs))

(defun plv-metres:dire (profil genre classes troncons / origine sommes)
  (setq origine (plv-premiere-station profil)
        sommes (mapcar '(lambda (somme) (plv-reel somme 3)) (plv-metres:sommes troncons classes)))
  (plv-dire (strcat "Profil " (plv-numero-profil profil) ", " genre ": " (itoa (length troncons))
                    (if (cdr troncons) " tronçons" " tronçon")))
  (plv-metres:rangee '("début" "fin" "longueur" "classe" "prof. moy." "surface m2" "volume m3"))
  (foreach s troncons (plv-metres:dire-troncon s origine classes))
  (plv-metres:rangee (list "total" "" (car sommes) "" "" (cadr sommes) (caddr sommes)))
  (plv-metres:dire-recouvrement troncons)
  (plv-metres:controle profil troncons))

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

;; --- control

(defun plv-metres:non-enterre-p (troncon) (= (plv-troncon-classe troncon) 0))

(defun plv-metres:suite-p (a b)
  "T when b follows a without a gap on the same side of the ground."
  (and (equal (plv-troncon-fin a) (plv-troncon-debut b) 1e-7) (eq (plv-metres:non-enterre-p a) (plv-metres:non-enterre-p b))))

(defun plv-metres:suites (troncons / suites)
  "The depth sections in runs without gaps."
  (foreach s troncons
    (if (and suites (plv-metres:suite-p (caar suites) s))
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
  "The area between the lines over depth sections without a gap; the ground's own points count where they are known."
  (setq bas (apply 'append (mapcar 'plv-troncon-projet suite))
        haut (if terrain
               (plv-ligne-entre terrain (plv-troncon-debut (car suite)) (plv-troncon-fin (plv-dernier suite)))
               (apply 'append (mapcar 'plv-troncon-terrain suite)))
        polygone (plv-metres:polygone (append haut (reverse bas)))
        aire (pl_areacalc polygone 1.0))
  (entdel polygone)
  (cond (aire) (0.0)))

(defun plv-metres:controle (profil troncons / terrain suites surfaces lignes ecart juste)
  "Prints the control line; T when both ways agree within 1e-9, or, for lines that coincide, within a square millimetre."
  (setq terrain (plv-metres:terrain profil)
        suites (plv-metres:suites troncons)
        surfaces (plv-metres:somme suites '(lambda (suite) (plv-metres:somme suite 'plv-troncon-surface)))
        lignes (plv-metres:somme suites '(lambda (suite) (plv-metres:aire-entre terrain suite)))
        ecart (abs (- surfaces lignes))
        juste (or (<= ecart (* 1e-9 lignes))
                  (and (< ecart 1e-6) (< lignes (* 1e-3 (plv-metres:somme troncons 'plv-troncon-longueur))))))
  (plv-dire (strcat "Contrôle: tronçons " (plv-reel surfaces 6) " m2, entre les lignes " (plv-reel lignes 6) " m2, écart relatif "
                    (rtos (/ ecart (max 1.0 lignes)) 1 1) (if juste ": juste." ": FAUX.")))
  (or juste (plv-erreur "les surfaces des tronçons ne font pas celle entre les lignes")))
