;; The control of the quantities: lines are brought into a form that the module measures as they are drawn, and those that can't be
;; are named; what it doesn't measure as it is drawn stops the command, which then writes nothing.

(commun
  (fichier "g.csv" "distance;altitude\n0;100\n100;100\n")
  (fichier "m.xlsx" "the former one")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "1" '(0.0 0.0 0.0) 10.0 2.5 200.0 '((0.0 90.0) (50.0 92.0))))
    (defun poly (points)
      (entmakex (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(100 . "AcDbPolyline") (cons 90 (length points)) '(70 . 0))
                        (mapcar '(lambda (q) (cons 10 q)) points))))
    (defun attacher (genre points) (plv-attacher p genre (list (poly points))))
    (defun hachures () (mapcar 'plv-handle (plv-entites-du-jeu (ssget "X" '((0 . "HATCH"))))))
    (defun classeur (/ f l) (setq f (open "<dossier>m.xlsx" "r") l (read-line f)) (close f) l)
    (defun groupes ()
      (length (vl-remove-if-not '(lambda (g) (and (= (car g) 350) (entget (cdr g)))) (dictsearch (namedobjdict) "ACAD_GROUP"))))))

(situation "LinesOfAnyFormAreMeasuredAsDrawn")
(tableau (preparation sommes texte)
  ;; (class surface ...) worked out by hand. Over a change of plane: 1.5 m under the ground, then 0.5 m above it
  ((attacher "Voirie" '((0.0 85.0) (40.0 85.0) (100.0 85.0))) ((2 . 75.0) (0 . 25.0)) "juste")
  ;; the Y of the change of plane drawn as an upright: 1.5 m all along
  ((attacher "Voirie" '((100.0 65.0) (50.0 65.0) (50.0 85.0) (0.0 85.0))) ((2 . 75.0) (2 . 75.0)) "juste")
  ;; a hole in an attached terrain
  ((progn
     (attacher "TN" '((0.0 100.0) (30.0 100.0))) (attacher "TN" '((40.0 100.0) (50.0 100.0)))
     (attacher "Voirie" '((0.0 85.0) (49.0 85.0))))
   ((2 . 45.0) (2 . 13.5)) "sans terrain, pas mesurée de 30.000 à 40.000")
  ;; an arc of 35 m, 5.25 units high: 70 m2 and its segment
  ((plv-attacher p "Voirie"
     (list (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0)
                       (10 5.0 80.0) (42 . 0.3) (10 40.0 80.0)))))
   ((3 . 0.0) (4 . 82.467747) (3 . 0.0)) "juste")
  ;; drops: within the class that the line comes back to, and down a manhole
  ((attacher "Voirie" '((0.0 88.0) (25.0 88.0) (25.0 72.0) (50.0 88.0)))
   ((2 . 30.0) (3 . 0.0) (4 . 30.0) (3 . 13.671875) (2 . 6.328125)) "juste")
  ;; an upright of the ground
  ((progn
     (attacher "TN" '((0.0 100.0) (20.0 100.0) (20.0 90.0) (50.0 90.0)))
     (attacher "Voirie" '((0.0 82.0) (50.0 82.0))))
   ((3 . 36.0) (2 . 0.0) (1 . 24.0)) "juste")
  ;; at another height, seen from behind, an old polyline
  ((plv-attacher p "Voirie" (list (plv-ligne "0" '(0.0 85.0 7.0) '(40.0 85.0 7.0)))) ((2 . 60.0)) "juste")
  ((plv-attacher p "Voirie"
     (list (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0) (10 0.0 85.0) (10 -40.0 85.0) (210 0.0 0.0 -1.0)))))
   ((2 . 60.0)) "juste")
  ((progn
     (entmake '((0 . "POLYLINE") (66 . 1) (10 0.0 0.0 3.0) (70 . 0)))
     (foreach x '(40.0 0.0) (entmake (list '(0 . "VERTEX") (list 10 x 85.0 3.0))))
     (entmake '((0 . "SEQEND")))
     (plv-attacher p "Voirie" (list (entlast))))
   ((2 . 60.0)) "juste"))
(preparer preparation (setq avant (mapcar 'entget (append (plv-elements p "Voirie") (plv-elements p "TN"))) compte (sslength (ssget "X"))))
(dit (setq m (plv-metres nil "Voirie" nil nil)) texte "juste" (sauf "FAUX"))
((equal (mapcar '(lambda (s) (cons (plv-troncon-classe s) (plv-troncon-surface s))) (plv-mesure-troncons (car (plv-mesures-profils m)))) 'sommes 1e-4)
 T)
;; the drawing keeps its lines, and nothing else
((equal (mapcar 'entget (append (plv-elements p "Voirie") (plv-elements p "TN"))) avant) T)
((= (sslength (ssget "X")) compte) T)

;; The same lines with that form taken away: the control finds what the module makes of them.
(situation "WhatIsNotMeasuredAsDrawnStops")
(tableau (preparation texte)
  ;; over a change of plane: the module leaves out one half
  ((attacher "Voirie" '((0.0 85.0) (40.0 85.0) (100.0 85.0))) "les tronçons ont 50.000 m, la ligne en a 100.000")
  ;; a hole in an attached terrain
  ((progn
     (attacher "TN" '((0.0 100.0) (30.0 100.0))) (attacher "TN" '((40.0 100.0) (50.0 100.0)))
     (attacher "Voirie" '((0.0 85.0) (49.0 85.0))))
   "les tronçons ont 49.000 m, la ligne en a 39.000")
  ;; arcs, of which the module takes the chords
  ((plv-attacher p "Voirie"
     (list (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0)
                       (10 5.0 80.0) (42 . 0.3) (10 40.0 80.0)))))
   "le tronçon de 5.000 à")
  ;; a drop by which a line comes back to the class it left
  ((attacher "Voirie" '((0.0 88.0) (25.0 88.0) (25.0 72.0) (50.0 88.0))) "n'a pas la classe ou la surface"))
(preparer
  (attacher "AEp" '((0.0 85.0) (50.0 85.0)))
  (plv-metres nil "AEp" nil T)
  (defun plv-lots:formes (cadre entite mise etendues) (list entite))
  preparation
  (setq avant (list (hachures) (groupes))))
((> (length (car avant)) 0) T)
(refuse (plv-metres nil "Voirie" "<dossier>m.xlsx" T) ": FAUX." "métrés du profil 1, Voirie: " texte (sauf "Classeur"))
((equal avant (list (hachures) (groupes))) T)
((classeur) "the former one")
(refuse (plv-legende p "Voirie" nil) texte)
((ssget "X" '((2 . "PLV_LEGENDE*"))) nil)
((equal avant (list (hachures) (groupes))) T)

;; Hatches that were there stay when the line is changed into one that fails.
(situation "FormerHatchesStay")
(preparer
  (defun plv-lots:formes (cadre entite mise etendues) (list entite))
  (attacher "Voirie" '((0.0 85.0) (50.0 85.0)))
  (plv-metres nil "Voirie" "<dossier>m.xlsx" T)
  (setq avant (hachures))
  (attacher "Voirie" '((0.0 65.0) (40.0 65.0) (100.0 65.0))))
(refuse (plv-metres nil "Voirie" "<dossier>m.xlsx" T) "FAUX")
((and avant (equal avant (hachures))) T)

(situation "ALineThatCannotBeMeasuredIsNamed")
(preparer
  (setq q (plv-nouveau "<dossier>g.csv" "2" '(0.0 500.0 0.0) 10.0 2.5 200.0 '((0.0 90.0))))
  (attacher "Voirie" '((0.0 85.0) (50.0 85.0)))
  (attacher "Voirie" '((300.0 85.0) (350.0 85.0)))
  (attacher "Voirie" '((60.0 70.0) (60.0 75.0)))
  (attacher "Voirie" '((55.0 65.0) (100.0 65.0)))
  (setq e (poly '((200.0 585.0) (250.0 585.0))))
  (plv-attacher q "Voirie" (list e))
  (setq avant (plv-elements p "Voirie")))
(dit (setq m (plv-metres nil "Voirie" "<dossier>m.xlsx" nil))
  "profil 1, Voirie: la polyligne" "pas au droit du terrain" "pas de longueur le long du profil"
  "profil 2, Voirie: la polyligne" "Profil 1, Voirie: 2 tronçons" ": juste." "Classeur: " (sauf "Profil 2" "argument"))
((length (plv-mesures-profils m)) 1)
((equal (plv-elements p "Voirie") avant) T)
((equal (plv-elements q "Voirie") (list e)) T)
((/= (classeur) "the former one") T)

(situation "SectionsOfNoLengthAreNotListed")
(preparer (attacher "Voirie" '((0.0 90.0) (50.0 80.0))) (setq m (plv-metres nil "Voirie" nil nil)))
;; it begins at the limit of a class: the module starts in that class
((plv-troncon-longueur (car (plv-mesure-troncons (car (plv-mesures-profils m))))) 0.0)
(dit (plv-metres nil "Voirie" nil nil) "Profil 1, Voirie: 2 tronçons" "1.00 à 1.50" "1.50 à 2.00" (sauf "0.00 à 1.00"))
(preparer
  (plv-legende p "Voirie" nil)
  (setq e (cdr (assoc -2 (tblsearch "BLOCK" (cdr (assoc 2 (entget (car (plv-legendes-du-profil p)))))))) textes nil)
  (while e (if (= (plv-type e) "TEXT") (setq textes (cons (cdr (assoc 1 (entget e))) textes))) (setq e (entnext e))))
((list (member "0.00 a 1.00" textes) (not (member "1.00 a 1.50" textes))) (nil nil))

(situation "AnExtensionIsNoNameOfAWorkbook")
(tableau (nom) (".xlsx") ("") ("<dossier>.xlsx") ("<dossier>"))
(preparer (attacher "Voirie" '((0.0 85.0) (50.0 85.0))))
(refuse (plv-metres nil "Voirie" nom nil) "un nom est attendu pour le classeur")
((findfile "<dossier>.xlsx") nil)

(situation "EachKindHasALegendOfItsOwn")
(preparer
  (attacher "Voirie" '((0.0 85.0) (50.0 85.0)))
  (attacher "AEp" '((0.0 75.0) (50.0 75.0)))
  (setq a (plv-legende p "Voirie" nil) b (plv-legende p "AEp" nil) c (plv-legende p "Voirie" '(0.0 300.0 0.0))))
((list (entget a) (not (entget b)) (not (entget c))) (nil nil nil))
((sslength (ssget "X" '((0 . "INSERT") (2 . "PLV_LEGENDE*")))) 2)
;; beside the first one, not upon it
((> (- (car (plv-origine b)) 100.0) (* 50.0 2.5)) T)
((equal (plv-legendes-du-profil p) (list c b)) T)

;; One line that can't be measured made the dialog give up every profile that was picked with it.
(situation "TheDialogMeasuresTheOthers")
(preparer
  (setq q (plv-nouveau "<dossier>g.csv" "A/B" '(0.0 500.0 0.0) 10.0 2.5 200.0 '((0.0 90.0))))
  (attacher "Voirie" '((300.0 85.0) (350.0 85.0)))
  (plv-attacher q "Voirie" (list (poly '((0.0 585.0) (20.0 585.0) (20.0 575.0) (100.0 575.0)))))
  (setq avant (list (entget p) (plv-enregistrement-elements (plv-support p "Voirie")) (plv-enregistrement-elements (plv-support q "Voirie")))))
(tape ("CUBPL" "AjouterProfils" "!p" "!q" "" "Fermer")
  "profil 1, Voirie: la polyligne" "ne se mesure pas: pas au droit du terrain" "La feuille du profil A/B s'appelle A_B."
  ;; 20 m of 1.5 m, 80 m of 2.5 m
  "20.000   2 -      1.500" "24.000   30.000" "100.000  4 -      2.500  300.000  200.000" (sauf "invalid"))
((equal (list (entget p) (plv-enregistrement-elements (plv-support p "Voirie")) (plv-enregistrement-elements (plv-support q "Voirie"))) avant) T)
((plv-numero-profil q) "A/B")

;; A drop that leans takes some square micrometres, wherever the profile stands: the control doesn't take them for a fault.
(situation "DeepDropsAreRight")
(fichier "d.csv" "distance;altitude\n0;99.33\n6.6;99.21\n6.6;99\n100;99.03\n")
(tableau (point) ((0.0 0.0 0.0)) ((652000.37 6861234.5 0.0)) ((1852340.5 3166420.25 0.0)))
(preparer
  (setq q (plv-nouveau "<dossier>d.csv" "Q" 'point 10.0 2.5 200.0 '((0.0 93.5) (6.6 92.5))))
  (plv-attacher q "Voirie"
    (list (poly (mapcar '(lambda (s) (list (+ (car s) (car 'point)) (+ (cadr s) (cadr 'point))))
                        '((63.7 45.5) (55.0 22.7) (47.0 24.0) (47.0 63.4) (6.6 56.4) (6.6 46.4) (1.6 45.5)))))))
(dit (setq m (plv-metres '("Q") "Voirie" nil nil)) ": juste.")
;; worked out in fractions; sections of no length stand at the drops
((vl-remove "0" (mapcar '(lambda (s) (rtos (plv-troncon-surface s) 2 4)) (plv-mesure-troncons (car (plv-mesures-profils m)))))
 ("5.8023" "20.8661" "37.3017" "13.3717" "9.5512" "0.24"))
