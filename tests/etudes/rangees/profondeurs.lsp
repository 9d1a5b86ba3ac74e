;; Depths of a line under the ground, as they are published: ground 0 m at 100, 40 m at 102, 100 m at 101; the first station is 1000.

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
    (foreach d '((0.0 100.0) (40.0 102.0) (60.0 101.0)) (pl_add_xdata (car d) (cadr d) (cdr (assoc 5 (entget p)))))))

(situation "ArePublished")
((et_profondeurs p '((1000 99) (1100 99))) ((1000.0 1.0) (1040.0 3.0)))
((et_profondeurs p '((1000.0 99.0) (1100.0 101.0))) ((1100.0 0.0) (1040.0 2.2)))
((et_profondeurs p '((1000.0 99.0) (1101.0 99.0))) nil)
((et_profondeurs p '((1000.0 99.0) (1100.0 "x"))) nil)
((et_profondeurs p '((1000.0 99.0))) nil)
((et_profondeurs p nil) nil)
((et_profondeurs p 3) nil)
((et_profondeurs p) nil)
((et_profondeurs) nil)
((et_profondeurs "p" '((1000.0 99.0) (1100.0 99.0))) nil)

;; Both plug-ins number their functions from 0: a call reaches the one that published it.
(situation "PluginsDoNotMeetInTheirNumbers")
((car (car (et_aide))) "et_aide")
((vl-every '(lambda (r) (boundp (read (car r)))) (et_aide)) T)
(preparer (pl_li '(0.0 0.0) '(1.0 1.0)))
((cdr (assoc 0 (entget (entlast)))) "LINE")
