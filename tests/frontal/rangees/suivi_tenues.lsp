;; Things whose sources have changed and that would come out as they are: PLV-ETAT doesn't name them, nor does it pass over what would differ.
;; The ground has a point every ten metres over 50 m, in two sections; a line with a vertex at each lies below it.

(commun
  (fichier "g.csv" "distance;altitude;nom\n100;50;\n110;51;\n120;49.5;\n130;47.5;\n140;46.5;\n150;46;\n")
  (fichier "court.csv" "distance;altitude;nom\n100;50;\n104;51;\n109;49.5;\n111;49.5;\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "12" '(1000.0 500.0 0.0) 10.0 2.5 150.0 '((0.0 30.0) (30.0 25.0))))
    (plv-projet p "Projet" '((100.0 48.0) (110.0 47.1) (120.0 46.005) (130.0 45.0) (140.0 44.2) (150.0 43.0)))
    (setq ligne (car (plv-elements-du-projet p "Projet")))
    (defun coter () (plv-coter p "Projet" (* 0.5 pi) "Toutes" (plv-elements-du-projet p "Projet")))
    ;; a vertex between the first two of a curve, an ordinate from the straight line
    (defun plier (e x dy / g points)
      (setq g (entget e) points (vl-remove-if-not '(lambda (q) (= (car q) 10)) g))
      (entmod
        (append (subst (cons 90 (1+ (length points))) (assoc 90 g) (vl-remove-if '(lambda (q) (member (car q) '(10 40 41 42 91 210))) g))
          (list (car points) (list 10 x (+ dy (plv-interpoler (mapcar 'cdr (plv-premiers points 2)) x)))) (cdr points))))
    (defun cote (n) (nth n (plv-cotes-du-profil p)))
    (defun vieilles (chose)
      (vl-remove-if-not '(lambda (e) (and (plv-etat-a-refaire-p e) (= (plv-fait-chose (plv-etat-fait e)) chose))) (plv-etats p)))
    (defun tenues () (vl-remove-if-not 'plv-etat-tenu-p (plv-etats p)))
    (defun textes () (mapcar '(lambda (c) (vl-remove-if '(lambda (g) (member (car g) '(-1 5 330))) (entget c))) (plv-cotes-du-profil p)))))

(situation "OfDimensions")
(tableau (edition marquees)
  ;; nothing stands between the ground points
  ((plier ligne 1005.0 -3.0) 0)
  ;; so high that the altitudes must go up
  ((plier ligne 1005.0 400.0) 1)
  ;; beside the point of a dimension, within its text
  ((plier ligne 1010.5 60.0) 1)
  ;; a point on the straight ground, too near to the next one for a dimension of its own; then one that has room
  ((plv-leve p "I" 101.0 50.1 nil) 0)
  ((plv-leve p "I" 105.0 50.5 nil) 1)
  ;; what a hand has moved, written or coloured stays so
  ((progn (plv-deplacer-texte (cote 1) '(0.0 2.0)) (plv-refaire-geste (cote 2) nil "48" 5) (plier ligne 1005.0 -3.0)) 0)
  ;; what a hand has turned or taken away would come back
  ((progn (entdel (cote 0)) (plier (plv-cote-courbe (cote 0)) 1005.0 -3.0)) 1)
  ((progn (command "_.ROTATE" (cote 0) "" '(0.0 0.0) 20.0) (plier (plv-cote-courbe (cote 0)) 1005.0 -3.0)) 1)
  ;; a plane that is changed takes them along, one that cuts their curve too
  ((plv-pc p "M" 140.0 22.0) 0)
  ((plv-pc p "A" 110.0 28.0) 1)
  ((plv-pc p "A" 115.0 28.0) 0)
  ;; the line beside it, and a line that is none any more
  ((plier (cadr (plv-elements-du-projet p "Projet")) 1035.0 -3.0) 0)
  ((progn (plv-ecrire-elements p "Projet" (vl-remove ligne (plv-elements p "Projet"))) (plier ligne 1005.0 -3.0)) 1)
  ;; texts of another height
  ((plsxd p "TTXT" 2.0) T))
(preparer (coter) edition)
((if (eq marquees T) (< 0 (length (vieilles "COTES"))) (= (< 0 (length (vieilles "COTES"))) (< 0 marquees))) T)
;; which is what an update changes, and what it changes is true then
(preparer (setq avant (textes)) (plv-actualiser (list p)))
((if (numberp marquees) (= (equal avant (textes)) (= 0 marquees)) T) T)
((vieilles "COTES") nil)

(situation "AreAskedWithoutATrace")
(preparer (coter) (plier ligne 1005.0 -3.0) (setq avant (mapcar 'entget (plv-entites-du-jeu (ssget "X"))) dernier (entlast)))
((length (tenues)) 1)
((equal avant (mapcar 'entget (plv-entites-du-jeu (ssget "X")))) T)
((eq dernier (entlast)) T)
(dit (plv-actualiser (list p)) "Tout était à jour.")
;; an update of something else notes what they are made of now
(preparer (plv-export-terrain p "<dossier>tn.csv") (plv-leve p "C" 150.0 46.2 nil))
((plv-actualiser (list p)) T)
((tenues) nil)

(situation "WhatTheModuleWritesIsForeseen")
(preparer
  (setq sens (* 0.5 pi))
  (defun memes-p (courbe / ecrites prevues)
    (setq prevues (plv-cotes-prevues:de-courbe p (list "Projet" sens "Toutes") courbe)
          ecrites (mapcar 'plv-pose-de (plv-cotes:ecrire p "Projet" sens "Toutes" courbe)))
    (list (length prevues)
          (equal (mapcar '(lambda (q) (list (plv-pose-altitude-p q) (plv-premiers (plv-pose-point q) 2) (plv-pose-mots q) (plv-pose-rotation q))) prevues)
                 (mapcar '(lambda (q) (list (plv-pose-altitude-p q) (plv-premiers (plv-pose-point q) 2) (plv-pose-mots q) (plv-pose-rotation q))) ecrites) 1e-9)
          (equal (mapcar '(lambda (q) (plv-pose-boite (plv-poses:avec-boite q))) prevues) (mapcar '(lambda (q) (plv-pose-boite (plv-poses:avec-boite q))) ecrites) 1e-9))))
;; altitudes that end on half a centimetre at a vertex
((memes-p ligne) (8 T T))
((memes-p (cadr (plv-elements p "Projet"))) (6 T T))
(preparer (setq sens 0.0))
((memes-p ligne) (8 T T))
;; a vertical curve, which is a spline, and arcs, of which chords are taken
(preparer
  (plv-projet p "Voirie" '((100.0 50.0) (120.0 48.0 80.0) (150.0 49.0)))
  (setq arcs (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 3) (70 . 0) (10 1002.0 670.0) (42 . 0.1) (10 1018.0 660.0) (42 . -0.2)
    (10 1029.0 650.0) (42 . 0.0))))
  (plv-admettre p "AEp" (list arcs)))
((mapcar 'plv-type (plv-elements p "Voirie")) ("LWPOLYLINE" "SPLINE" "LWPOLYLINE" "LWPOLYLINE"))
((vl-every '(lambda (e) (equal (cdr (memes-p e)) '(T T))) (plv-elements p "Voirie")) T)
((list (plv-type arcs) (< 3 (length (plv-forme-des-cordes arcs))) (memes-p arcs)) ("LWPOLYLINE" T (4 T T)))
((list (et_cotes p p 0.0) (et_cotes ligne ligne 0.0) (et_cotes p ligne) (et_morceaux p)) (nil nil nil nil))

(situation "OfALegend")
(tableau (edition vieille)
  ;; a plane that cuts a straight line, one that cuts an arc into other chords: the figures have two decimals
  ((plv-pc p "A" 110.0 28.0) nil)
  ((plv-pc p "A" 121.0 28.0) nil)
  ;; a vertex on the line, one beneath it
  ((plier (car (plv-elements-du-projet p "Voirie")) 1005.0 0.0) nil)
  ((plier (car (plv-elements-du-projet p "Voirie")) 1005.0 -0.0001) nil)
  ((plier (car (plv-elements-du-projet p "Voirie")) 1005.0 -1.0) T)
  ((plv-leve p "C" 120.0 49.4 nil) T)
  ;; the end of a class that all of the line lies above is written, the next class isn't
  ((plv-regler-classes '(("1.00" "0.60" "0.00" "1") ("2.00" "0.80" "0.00" "2") ("6.00" "1.00" "0.00" "3"))) T)
  ((plv-regler-classes '(("1.00" "0.60" "0.00" "1") ("2.00" "0.80" "0.00" "2") ("5.00" "1.00" "0.00" "3") ("7.00" "1.20" "0.00" "4"))) nil)
  ((plv-regler-classes '(("1.00" "0.60" "0.00" "5") ("2.00" "0.80" "0.00" "2") ("5.00" "1.00" "0.00" "3"))) nil)
  ((plv-regler-classes '(("1.00" "0.60" "0.00" "1") ("2.00" "0.80" "0.00" "5") ("5.00" "1.00" "0.00" "3"))) T))
(preparer (plv-regler-classes '(("1.00" "0.60" "0.00" "1") ("2.00" "0.80" "0.00" "2") ("5.00" "1.00" "0.00" "3"))) (plv-projet p "Voirie" '((100.0 48.5) (120.0 47.0 80.0) (150.0 44.0))) (plv-legende p "Voirie" nil) edition)
((< 0 (length (vieilles "LEGENDE"))) vieille)

(situation "WhatCannotBeWorkedOutIsStale")
(preparer
  (plv-projet p "Voirie" '((100.0 48.5) (150.0 44.0))) (plv-legende p "Voirie" nil) (plv-pc p "A" 110.0 28.0)
  (plier (car (plv-elements-du-projet p "Voirie")) 1005.0 -0.0001))
((vieilles "LEGENDE") nil)
(preparer (defun plv-legende-prevue (profil genre classes) (/ 1 0)))
((length (vieilles "LEGENDE")) 1)

;; A short profile has marks without room for their stations, and a row of a line that isn't there has no distances.
(situation "OfStationsThatAreNotWritten")
(fichier "t.txt" "U - 2.0 10 Reperes\nU - 5.0 17 {Voirie} Cumulees\nU - 5.0 3 Cumulees")
(preparer
  (setq p (plv-nouveau "<dossier>court.csv" "13" '(1000.0 500.0 0.0) 10.0 2.5 150.0 nil))
  (plv-matrices p "<dossier>t.txt" T)
  (plsxd p "DCUMDEB" 0.0)
  (defun rangees () (mapcar '(lambda (e) (plv-fait-precision (plv-etat-fait e))) (vieilles "RANGEE"))))
((plv-reperes-ecrits p) ((0.0 nil)))
((rangees) ("2"))
;; marks that stand elsewhere
(preparer (plsxd p "DCUMDEB" 3.0))
((rangees) ("0" "2"))
(preparer (plsxd p "DCUMDEB" 0.0) (plv-projet p "Voirie" '((0.0 48.0) (4.0 47.0) (9.0 46.0))) (plv-actualiser (list p)) (plsxd p "DCUMDEB" 10.0))
((if (member "1" (rangees)) T) T)
