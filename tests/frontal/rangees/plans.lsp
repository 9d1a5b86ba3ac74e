;; PLV-PC on a profile with dimensions: whatever series of planes is added, changed and removed, each dimension stands at its altitude
;; over the plane of its section, and has a twin at a change of section only. Distances of the ground are sums of differences, those of
;; planes are what was asked: they part in their last digits.

(commun
  (fichier "g.csv" "distance;altitude\n0;99\n59.58;98\n193.54;100\n239;99\n270.31;101.25\n301.1;99.75\n340;100\n")
  (preparer
    (setq echelle 10.0 premier 90.0
          distances '(59.58 193.54 239.0 270.31 301.1))
    (defun commencer (point)
      (setq pr (plv-nouveau "<dossier>g.csv" "P1" point echelle 2.5 nil (list (list 0.0 premier)))
            voirie (plv-projet pr "Voirie" '((0.0 99.5) (340.0 99.5))))
      (dialoguer '(lambda () (plv-cotes pr "Voirie" 1.5707963 "Hauteurs"))
                 (list (list (car voirie) (list (+ 1.0 (car point)) (cadr point) 0.0)) ""))
      (setq depart (groupes)))

    ;; (distance ((altitude text ...) ...)): the live entities of a group, first those on the left of a change, then the twins
    (defun vivant (e) (if (entget e) (cons (cdr (assoc 1 (entget e))) (caddr (assoc 11 (entget e))))))
    (defun groupes (/ liste d listes ids profondeur)
      (setq profondeur 0)
      (foreach g (plv-enregistrement (plv-support pr "Voirie") "ELEMS_STATIQUES_KAVEL")
        (cond
          ((equal g '(102 . "{")) (setq profondeur (1+ profondeur)) (if (= profondeur 1) (setq listes nil) (setq ids nil)))
          ((= (car g) 10) (setq d (cadr g)))
          ((= (car g) 330) (setq ids (cons (vivant (cdr g)) ids)))
          (T (setq profondeur (1- profondeur))
             (if (= profondeur 0)
               (setq liste (cons (list d (reverse listes)) liste))
               (setq listes (cons (vl-remove nil (reverse ids)) listes))))))
      (reverse liste))

    ;; the planes as they should be, apart from the drawing: (distance . altitude), rising
    (setq plans (list (cons 0.0 premier)))
    (defun plan-avant (d / z) (foreach p plans (if (or (< (+ (car p) 1e-6) d) (not z)) (setq z (cdr p)))) z)
    (defun plan-apres (d / z) (foreach p plans (if (<= (car p) (+ d 1e-6)) (setq z (cdr p)))) z)
    (defun changement (d) (vl-some '(lambda (p) (and (> (car p) 0.0) (equal (car p) d 1e-6))) plans))
    (defun agir (operation d z)
      (plv-pc pr operation d z)
      (setq plans (vl-remove-if '(lambda (p) (equal (car p) d 1e-6)) plans))
      (if z (setq plans (vl-sort (cons (cons d z) plans) '(lambda (a b) (< (car a) (car b)))))))

    (defun a-sa-place (depart trouve z) (and (= (car depart) (car trouve))
                                             (equal (cdr trouve) (+ (cdr depart) (* echelle (- premier z))) 1e-4)))
    (defun tous-a-leur-place (avant apres z) (and (= (length avant) (length apres)) (not (member nil (mapcar '(lambda (a b) (a-sa-place a b z)) avant apres)))))
    ;; distances of the groups that don't stand as they should
    (defun deplaces ( / fautes)
      (mapcar '(lambda (avant maintenant / d elements)
                 (setq d (car avant) elements (car (cadr avant)))
                 (if (not (and (tous-a-leur-place elements (car (cadr maintenant)) (plan-avant d))
                               (tous-a-leur-place (if (changement d) elements) (cadr (cadr maintenant)) (plan-apres d))))
                   (setq fautes (cons d fautes))))
              depart (groupes))
      fautes)))

(situation "ADimensionAtAChangeFollowsBothPlanes")
(preparer (commencer '(0.0 0.0 0.0)))
((length depart) 7)
(preparer (agir "A" 193.54 85.0))
((deplaces) nil)
(preparer (agir "M" 193.54 86.0))
((deplaces) nil)
(preparer (agir "S" 193.54 nil))
((deplaces) nil)
(preparer (agir "M" 0.0 89.0))
((deplaces) nil)

(situation "SeriesOfChangesLeaveNothingBehind")
(tableau (point graine)
  ((0.0 0.0 0.0) 1) ((0.0 0.0 0.0) 2) ((1000.37 500.0 0.0) 3) ((1000.37 500.0 0.0) 4)
  ((652000.37 6861234.5 0.0) 5) ((652000.37 6861234.5 0.0) 6) ((1852340.5 3166420.25 0.0) 7) ((1852340.5 3166420.25 0.0) 8))
(preparer
  (setq hasard graine)
  (defun suivant (n) (setq hasard (rem (+ (* hasard 7141) 54773) 259200)) (rem hasard n))
  ;; no plane as high as a neighbour: its removal would not be seen
  (defun altitude () (setq essai (+ 80.0 (* 0.25 (suivant 64)))) (if (member essai (mapcar 'cdr plans)) (altitude) essai))
  (defun changer (/ d)
    (setq d (nth (suivant 5) distances))
    (cond ((not (changement d)) (agir "A" d (altitude)))
          ((= (suivant 2) 0) (agir "S" d nil))
          ((= (suivant 3) 0) (agir "M" 0.0 (altitude)))
          (T (agir "M" d (altitude)))))
  (commencer 'point)
  (setq fautes nil)
  (repeat 12 (changer) (setq fautes (append (deplaces) fautes))))
(fautes nil)

;; Few altitudes, so that neighbours are often equally high: a plane like its neighbour goes with its twins, and joints don't
;; cross a plane that stays.
(situation "NeighboursMayBeEquallyHigh")
(tableau (point graine)
  ((0.0 0.0 0.0) 1) ((0.0 0.0 0.0) 2) ((1000.37 500.0 0.0) 3) ((652000.37 6861234.5 0.0) 4) ((1852340.5 3166420.25 0.0) 5))
(preparer
  (setq hasard graine)
  (defun suivant (n) (setq hasard (rem (+ (* hasard 7141) 54773) 259200)) (rem hasard n))
  (defun altitude () (+ premier (suivant 2)))
  (defun changer (/ d)
    (setq d (nth (suivant 5) distances))
    (cond ((not (changement d)) (agir "A" d (altitude)))
          ((= (suivant 2) 0) (agir "S" d nil))
          (T (agir "M" d (altitude)))))
  (commencer 'point)
  ;; every curve lies over one plane, at its altitude
  (defun altitudes ()
    (mapcar '(lambda (d) (plv-altitude-projet pr (plv-elements-situes pr "Voirie") (plv-plans pr) d)) '(5.0 30.0 90.0 150.0 220.0)))
  (setq fautes nil avant (altitudes))
  (repeat 16
    (changer)
    (setq fautes (append (deplaces) fautes))
    (if (not (vl-every 'plv-situe-plan (plv-elements-situes pr "Voirie"))) (setq fautes (cons 'straddles fautes)))
    (if (not (equal (altitudes) avant 1e-4)) (setq fautes (cons 'altitude fautes)))))
(fautes nil)
((equal (mapcar 'cons (mapcar 'car (plv-plans pr)) (mapcar 'cadr (plv-plans pr))) plans 1e-6) T)

;; Reference lines are found by their abscissa in the drawing: far from the origin it gives a distance with other last digits
;; than the plane's own.
(situation "ReferenceLinesReachTheGroundWhereAPlaneChanges")
(tableau (point) ((0.0 0.0 0.0)) ((652000.37 6861234.5 0.0)) ((1852340.5 3166420.25 0.0)))
(fichier "m.txt" "T - 6.0 4 Altitude\n")
(preparer
  (commencer 'point)
  (plv-matrices pr "<dossier>m.txt" T)
  ;; the ground's altitude as the reference lines show it, over the plane before
  (defun montrees ()
    (vl-sort (mapcar '(lambda (g / d) (setq d (- (cadr (assoc 10 g)) (car 'point)))
                        (list (/ (fix (+ 0.5 (* 100.0 d))) 100.0)
                              (/ (fix (+ 0.5 (* 100.0 (+ (plan-avant d) (/ (- (caddr (assoc 10 g)) (cadr 'point)) echelle))))) 100.0)))
                     (mapcar 'entget (plv-lignes-rappel pr)))
             '(lambda (a b) (< (car a) (car b)))))
  (agir "A" 193.54 85.0) (agir "A" 239.0 88.0) (agir "A" 301.1 84.0) (agir "A" 59.58 80.0) (agir "M" 239.0 70.0))
((montrees) ((0.0 99.0) (59.58 98.0) (193.54 100.0) (239.0 99.0) (270.31 101.25) (301.1 99.75) (340.0 100.0)))

;; The halves into which a plane had cut an arc are joined when it goes; two arcs that another program drew stay two.
(situation "AnArcIsOneAgainWhenThePlaneGoes")
(tableau (point) ((0.0 0.0 0.0)) ((652000.37 6861234.5 0.0)))
(preparer
  (commencer 'point)
  (defun arcs (points)
    (entmakex (append '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline")) (list (cons 90 (length points))) '((70 . 0))
                      (apply 'append (mapcar '(lambda (p) (list (list 10 (+ (car 'point) (car p)) (+ (cadr 'point) (cadr p))) (cons 42 (caddr p)))) points)))))
  (defun pieces (genre) (mapcar '(lambda (p) (list (plv-reel (car p) 2) (plv-reel (cadr p) 2))) (plv-elements-de-pente pr genre)))
  (plv-projet-existant pr "AEp" (plv-jeu (list (arcs '((5.0 100.0 0.1) (50.0 90.0 0.0))))))
  (plv-projet-existant pr "Generique" (plv-jeu (list (arcs '((5.0 100.0 0.1) (25.0 95.0 0.2) (50.0 90.0 0.0))))))
  (setq r (plv-reel (plv-rayon-de-piece pr (car (plv-elements-de-pente pr "AEp"))) 1))
  (agir "A" 20.0 82.0))
((pieces "AEp") (("5.00" "20.00") ("20.00" "50.00")))
(preparer (agir "S" 20.0 nil))
((pieces "AEp") (("5.00" "50.00")))
((= r (plv-reel (plv-rayon-de-piece pr (car (plv-elements-de-pente pr "AEp"))) 1)) T)
((pieces "Generique") (("5.00" "25.00") ("25.00" "50.00")))

;; Planes as a new profile would have them, whatever there was, if nothing lies beneath the ground; curves stay where they are.
(situation "PlanesAreProposedAnew")
(fichier "pente.csv" "distance;altitude\n0;100\n50;80\n100;60\n150;40\n")
(tableau (hauteur) (150.0) (220.0) (1000.0))
(preparer
  (setq n (plv-nouveau "<dossier>pente.csv" "N" '(0.0 3000.0 0.0) 10.0 2.5 hauteur nil)
        q (plv-nouveau "<dossier>pente.csv" "Q" '(0.0 6000.0 0.0) 10.0 2.5 300.0 '((0.0 10.0) (37.0 25.0) (90.0 12.0))))
  (plv-projet q "Projet" '((0.0 102.0) (150.0 42.0)))
  (plv-pc-proposer q hauteur))
((equal (plv-plans q) (plv-plans n) 1e-6) T)
((equal (plv-altitude-projet q (plv-elements-situes q "Projet") (plv-plans q) 75.0) 72.0 1e-6) T)
((plv-refus-profil q) nil)
