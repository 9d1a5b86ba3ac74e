;; The line of fewest vertices as it is published: ground 0 m at 100, 40 m at 102, 100 m at 101; the first station is 1000.
;; Between 1 and 2 m the ridge at 40 m leaves room for one run, between 1.0 and 1.2 m it doesn't.

(commun
  (preparer
    (regapp "PLV2_DATA") (regapp "KELMONT_PLV2")
    (entmake '((0 . "BLOCK") (2 . "P") (70 . 2) (10 0.0 0.0 0.0)))
    (entmake '((0 . "ENDBLK")))
    (entmake '((0 . "INSERT") (2 . "P") (66 . 1) (10 0.0 0.0 0.0)))
    (entmake '((0 . "ATTRIB") (10 0.0 0.0 0.0) (40 . 1.0) (1 . "1") (2 . "NUMPL") (70 . 0)))
    (entmake '((0 . "SEQEND")))
    (setq p (entlast))
    (plsxd p "DCUMDEB" 1000.0)
    (foreach d '((0.0 100.0) (40.0 102.0) (60.0 101.0)) (pl_add_xdata (car d) (cadr d) (cdr (assoc 5 (entget p)))))
    (defun sommets (r) (mapcar 'length (car r)))
    (defun fenetres (r) (mapcar 'length (cadr r)))))

(situation "FewestVertices")
(tableau (de a depart arrivee n-sommets n-fenetres)
  (1 3 1000 1100.0 2 0) (1.0 1.2 1000.0 1100.0 3 1) (1 1.2 '(1000 99) '(1100.0 99.9) 3 1)
  (1.0 1.0 1000.0 1100.0 3 1) (1.0 1.2 1000.0 1040.0 2 0) (1.0 1.2 1050.0 1060.0 2 0))
(preparer (setq r (et_ligne p de a depart arrivee)))
((sommets r) (n-sommets))
((fenetres r) (n-fenetres))
((<= (- de 1e-9) (cadr (car (et_profondeurs p (caar r)))) (cadr (cadr (et_profondeurs p (caar r)))) (+ a 1e-9)) T)

;; Parallel to the ground all of the area is 100 m times the depth; the line stands where the ground bends.
(situation "TheAreaIsThatOfTheLine")
(preparer (setq r (et_ligne p 1.0 1.0 1000.0 1100.0)))
((equal (caddr r) '(100.0 100.0) 1e-6) T)
((equal (caar r) '((1000.0 99.0) (1040.0 101.0) (1100.0 100.0)) 1e-6) T)
((equal (et_couloir p 1.0 2.0 1000.0 '(1100.0 99.5))
        '(((1000.0 98.0) (1040.0 100.0) (1100.0 99.0) (1100.0 99.5)) ((1000.0 99.0) (1040.0 101.0) (1100.0 100.0) (1100.0 99.5))) 1e-9) T)

;; An end half a metre too high; the line that leaves the band least leaves it by half of that.
(situation "WhatContradictsItselfIsNamed")
(preparer (setq r (et_ligne p 1.0 2.0 '(1000.0 99.5) 1100.0)))
((equal (nth 4 r) '(0.5 (1000.0 "bout" 99.5) (1000.0 "profondeur moindre" 1.0)) 1e-9) T)
((equal (car (caar r)) '(1000.0 99.25) 1e-6) T)
;; an end at the band's lower limit, where a crossing shuts the band: it would have to be 0.1 m lower
((equal (nth 4 (et_ligne p 1.0 2.0 1000.0 '(1040.0 100.0) '(("croisement" 1030.0 1050.0 99.9 103.0))))
        '(0.1 (1040.0 "profondeur plus grande" 2.0) (1040.0 "dessous" 99.9)) 1e-9) T)
((nth 4 (et_ligne p 1.0 2.0 1000.0 1100.0)) nil)
((nth 3 (et_ligne p 1.0 2.0 1000.0 1100.0)) T)

(situation "WhatCannotBeIsNil")
(tableau (appel)
  ((et_ligne)) ((et_ligne p)) ((et_ligne p 1.0)) ((et_ligne p 1.0 2.0 1000.0)) ((et_ligne 3 1.0 2.0 1000.0 1100.0))
  ((et_ligne p 2.0 1.0 1000.0 1100.0)) ((et_ligne p 1.0 2.0 1100.0 1000.0)) ((et_ligne p 1.0 2.0 999.0 1100.0))
  ((et_ligne p 1.0 2.0 1000.0 1101.0)) ((et_ligne p 1.0 2.0 1000.0 '(1100.0)))
  ((et_ligne p 1.0 2.0 1000.0 "x")) ((et_ligne p "x" 2.0 1000.0 1100.0)) ((et_couloir p 2.0 1.0 1000.0 1100.0))
  ((et_ligne p 1.0 2.0 1000.0 1100.0 3)) ((et_ligne p 1.0 2.0 1000.0 1100.0 '(3)))  ((et_ligne p 1.0 2.0 1000.0 1100.0 '(("point" 1000.0))))
  ((et_ligne p 1.0 2.0 1000.0 1100.0 '(("puits" 1000.0)))) ((et_ligne p 1.0 2.0 1000.0 1100.0 '(("pente" 2 1)))))
(appel nil)

;; Slopes of whole per mille come to whole centimetres after 10 m; the ground bends after 40 and 60 m, and runs break between.
(situation "CentimetresAndPerMilleBothInANarrowBand")
(preparer (setq r (et_ligne p 1.0 1.08 1000.0 1100.0 '(("arrondi" 0.01 0.001)))))
((null r) nil)
((vl-every '(lambda (s) (equal (* 100 (cadr s)) (atof (rtos (* 100 (cadr s)) 2 0)) 1e-6)) (caar r)) T)
((vl-every '(lambda (s suivant / m) (setq m (* 1000 (/ (- (cadr suivant) (cadr s)) (- (car suivant) (car s)))))
              (equal m (atof (rtos m 2 0)) 1e-4)) (caar r) (cdaar r)) T)

;; Steps and lengths beyond all measure find no line, and take neither time nor memory for it.
(situation "NoNumberOfAConstraintIsTooMuch")
(tableau (c)
  (("arrondi" 1e-9 1.0)) (("arrondi" 1e-300 1e-300)) (("arrondi" 1e9 0.0)) (("arrondi" 1e9 1e9)) (("longueur" 1e9)))
((et_ligne p 1.0 1.2 1000.0 1100.0 (list 'c)) nil)
