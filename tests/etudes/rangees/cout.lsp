;; The line of least cost between manholes: a ground of 100 m at 10 m that falls by 1 %; the first station is 1000.

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
    (foreach d '((0.0 10.0) (100.0 9.0)) (pl_add_xdata (car d) (cadr d) (cdr (assoc 5 (entget p)))))
    (setq fouille '("fouille" 5.0 1.0 10.0))))

;; 1 m deep everywhere: 100 m3 at 10, two manholes of 200 + 50 x 1.
(situation "TheCostOfATrench")
(preparer (setq r (et_ligneCout p 1.0 2.0 1000.0 1100.0 nil (list fouille '("regard" 200.0 50.0)))))
((equal (car r) '((1000.0 10.0 9.0 9.0) (1100.0 9.0 8.0 8.0)) 1e-9) T)
((equal (car (cadr r)) 1500.0 1e-6) T)
((<= 1490.0 (cadr (cadr r)) 1500.0) T)
((equal (caddr r) '((100.0) 0.0 2.0 2.0 0.0 0.0 0.0) 1e-6) T)

;; At 2 m to 1.5 m of depth, with shoring of two faces from 1.8 m on: 40 m of 1.9 m on average.
(situation "ClassesAndShoringAreCutWhereTheyBegin")
(preparer (setq r (et_ligneCout p 1.0 3.0 '(1000.0 8.0) '(1100.0 7.5) nil '(("fouille" 1.6 1.0 10.0) ("fouille" 9.0 2.0 10.0) ("blindage" 1.8 5.0)))))
((equal (caddr r) '((31.0 288.0) 152.0 2.0 3.5 0.0 0.0 0.0) 1e-6) T)
((equal (car (cadr r)) (+ 310.0 2880.0 760.0) 1e-6) T)

;; It may fall by half a per cent, the ground falls by one: with drops of half a metre it follows the ground, else it begins deeper.
(situation "ADropIsCheaperThanATrench")
(tableau (chute chutes) ('("chute" 1.0 0.5) 1.0) ('("chute" 1.0 0.0) 0.0) ('("chute" 900.0 0.5) 0.0))
(preparer (setq r (et_ligneCout p 0.5 1.0 1000.0 1100.0 '(("pente" -0.005 -0.001)) (list fouille chute '("station" 1050.0)))))
((nth 4 (caddr r)) chutes)

;; Water that has to fall by 2 % leaves the band of half a metre after 50 m.
(situation "HowFarALineComes")
((equal (et_ligneCout p 1.0 1.5 1000.0 1100.0 '(("pente" -0.03 -0.02)) (list fouille '("station" 1040.0) '("station" 1060.0)))
        '(nil (1040.0 1060.0)) 1e-9) T)
((nth 5 (caddr (et_ligneCout p 1.0 1.5 1000.0 1100.0 '(("pente" -0.03 -0.02))
                  (list fouille '("station" 1040.0) '("station" 1060.0) '("pompage" 500.0 10.0))))) 2.0)

(situation "ManholesWithinASpacing")
(preparer (setq r (et_ligneCout p 1.0 2.0 1000.0 1100.0 nil (list fouille '("regard" 100.0 0.0) '("espacement" 40.0 5.0)))))
((length (car r)) 4)
((<= (apply 'max (mapcar '(lambda (a b) (- (car b) (car a))) (car r) (cdr (car r)))) 40.0) T)

(situation "FreeAltitudesAreProvenWhereRoundOnesLoseAtEachRun")
(preparer
  (setq stations (mapcar '(lambda (x) (list "station" x)) '(1010.0 1020.0 1030.0 1040.0 1050.0 1060.0 1070.0 1080.0 1090.0))
        r (et_ligneCout p 0.5 9.0 1000.0 1100.0 '(("pente" -1.0 -0.0105)) (cons fouille stations))
        ronde (et_ligneCout p 0.5 9.0 1000.0 1100.0 '(("pente" -1.0 -0.0105) ("arrondi" 0.01 0.0)) (cons fouille stations))))
((> (cadr (cadr r)) (* 0.999 (car (cadr r)))) T)
((equal (caddr (cadr r)) (car (cadr ronde)) 1e-6) T)
((< (car (cadr r)) (* 0.999 (car (cadr ronde)))) T)
((and (<= (cadr (cadr ronde)) (car (cadr r))) (> (cadr (cadr ronde)) (* 0.999 (car (cadr r))))) T)

(situation "NothingForWhatCantBe")
(tableau (ouvrages) (nil) ('(("fouille" 2.0 1.0 10.0) ("fouille" 4.0 1.0 5.0))) ('(("fouille" 0.0 1.0 10.0))) ('(("mur" 1.0))) ('(("fouille" 2.0 1.0))))
((et_ligneCout p 1.0 2.0 1000.0 1100.0 nil ouvrages) nil)
