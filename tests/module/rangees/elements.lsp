;; Elements of a profile: project lists, static elements, listings, edits, dimensions, and what a change of sections does.
;; The user's answers are typed, entities as expressions.

(commun (preparer (load "outils.lsp") (load "profil.lsp") (load "matrice.lsp") (load "supports.lsp")))

(situation "ProjectListsFromLisp")
(preparer (setq a (ligne 100.0 60.0 200.0 60.0) b (ligne 100.0 70.0 200.0 70.0) c (ligne 100.0 80.0 200.0 80.0)))
((progn (pl_elem_prj prf "V" a b) (equal (projet rv) (list a b))) T)
((marque-de a) nil) ; names are not marked
((progn (pl_elem_prj prf "V" c a) (length (projet rv))) 2) ; the last is listed: none is added
((progn (pl_elem_prj prf "V" a c) (length (projet rv))) 4) ; it isn't: all are
((progn (setq s (ssadd)) (ssadd a s) (pl_elem_prj prf "V" s) (length (projet rv))) 5)
((marque-de a) 1)
((progn (pl_elem_prj prf "ROUTE" a) (pl_elem_prj prf "A" a) (pl_elem_prj prf 1 a) (length (projet rv))) 5)

(situation "ProjectListsByTheUser")
(preparer (setq a (ligne 100.0 60.0 200.0 60.0) b (ligne 100.0 70.0 200.0 70.0)))
(tape ("(pl_assoc_prj rv)" "(list a '(150.0 60.0))" "Projet" "(list b '(150.0 70.0))" "" "Non" "(list b '(1.0 1.0))" "" "")
  "Enlever  Redessiner Projet Non_projet <element à ajouter>")
((equal (projet rv) (list a b)) T)
((marque-de a) nil)
((marque-de b) 0)
;; "Voir" is offered and does nothing: what is picked after it is still added.
(preparer (setq c (ligne 100.0 80.0 200.0 80.0)))
(tape ("(pl_assoc_prj rv)" "Voir" "(list c '(150.0 80.0))" "" ""))
((equal (projet rv) (list a b c)) T)
(tape ("(pl_assoc_prj rv)" "Enlever" "(list a '(150.0 60.0))" "Tout" "" "")
  "Ajouter / enlever Tout  / Redessiner / Projet / Non_projet <element a enlever>")
((projet rv) nil)
((marque-de a) 0)
;; A cancel leaves the record, not the flags.
(tape ("(pl_assoc_prj rv)" "Projet" "(list b '(150.0 70.0))"))
((projet rv) nil)
((marque-de b) 1)

(situation "StaticGroupsFromLispAndByTheUser")
(preparer (setq a (point) b (point)))
((progn (pl_elem_ponct prf "V" '(140.0 77.0) a 5 b) (mapcar 'car (statiques rv))) (102 10 102 330 330 102 102))
((cdr (assoc 10 (statiques rv))) (40.0 77.0 0.0))
((progn (pl_elem_ponct prf "V" '(140.0 0.0) a) (pl_elem_ponct prf "A" '(1.0 0.0) a) (length (statiques rv))) 13)
;; The place isn't tested: what is no point stands at the origin of the drawing.
((progn (pl_elem_ponct prf "V" "ici" a) (cdr (assoc 10 (reverse (statiques rv))))) (-100.0 0.0 0.0))
(tape ("(pl_efix prf \"P\")" "150.0,60.0" "(list a '(0.0 0.0))" "" "D" "150.0005,0" "(list b '(0.0 0.0))" "" "F" "")
  "Enlever Doublons Reset Fin Voir <position des éléments>:")
((mapcar 'car (statiques rp)) (102 10 102 330 102 102 330 102 102))
((cadr (assoc 10 (statiques rp))) 50.0)
;; Without its base the group keeps what was its duplicates, as its base.
(tape ("(pl_efix prf \"P\")" "E" "(list a '(0.0 0.0))" "F" ""))
((mapcar 'car (statiques rp)) (102 10 102 330 102 102))
((equal (cdr (assoc 330 (statiques rp))) b) T)
(tape ("(pl_efix prf \"P\")" "R" "F" ""))
((statiques rp) nil)
(dit (pl_dumpdata prf) "\nVoirie\nElements statiques 0 " "Génér")

(situation "Listings")
(preparer
  (setq a (ligne 90.0 60.0 210.0 180.0) b (poly '((100.0 90.0) (180.0 50.0) (180.0 50.0) (260.0 90.0)))
        v (ligne 150.0 10.0 150.0 20.0) sa (ssadd a) sb (ssadd b) st (ssadd a))
  (ssadd v st)
  (ssadd b st))
((pl_yat a 100) 70.0)
((pl_yat a 300.0) nil)
((pl_yat b 140.0) 70.0)
((pl_yat prf 1.0) nil)
((pl_PointsPrjRef prf sa sb) ((100.0 70.0 90.0) (140.0 110.0 70.0) (200.0 170.0 60.0)))
((length (setq l (pl_glp prf st))) 4)
;; The plane is that of the first section for any X beyond the origin.
((car l) ((-10.0 101.0) (110.0 113.0) 0.1))
((caddr (cadr l)) 1.0e+36)
((mapcar 'rtos (mapcar 'caddr (cddr l))) ("-0.0500" "0.0500"))
;; The plane is looked up at the smaller of the end's Y, 90, and the start's X, 150: left of the profile, the last plane.
(preparer (setq c (ligne 150.0 60.0 200.0 90.0) sc (ssadd c)))
((mapcar 'cadr (reverse (cdr (reverse (car (pl_glp prf sc)))))) (101.0 104.0))

(situation "AltitudesOfPickedCurves")
(preparer (setq a (ligne 190.0 60.0 90.0 60.0) b (ligne 150.0 40.0 260.0 40.0)))
(tape ("(setq r (pl_listerAltitudes prf))" "(list a '(150.0 60.0))" "(list b '(220.0 40.0))" "" ""))
(r ((0.0 96.0) (40.0 96.0) (100.0 99.0) (150.0 99.0)))
(preparer
  (entmake '((0 . "ARC") (10 140.0 50.0 0.0) (40 . 20.0) (50 . 0.0) (51 . 3.141592653589793)))
  (setq arc (entlast))
  (marque))
(tape ("(setq r (pl_listerAltitudes prf))" "(list arc '(140.0 70.0))" "" ""))
((list (length r) (rtos (cadar r) 2 3) (vu)) (1 "97.000" ("LWPOLYLINE" "LWPOLYLINE")))

(situation "SlopesAndLengths")
(preparer (setq a (ligne 0.0 0.0 100.0 10.0) b (poly '((0.0 50.0) (50.0 50.0) (100.0 60.0)))))
(tape ("(pl_modifpente 10.0)" "(list a '(80.0 8.0))" "2" "(list a '(10.0 0.0))" "" "(list b '(50.0 50.0))" "4" "" "")
  "Pente  [1.0000 %]")
((y a 11) 10.0)
((y a 10) -10.0)
((sommets b) ((0.0 30.0) (50.0 50.0) (100.0 60.0)))
(preparer (setq c (ligne 0.0 0.0 30.0 400.0)))
(tape ("(pl_modifLongueur 10)" "(list c '(29.0 0.0))" "-100" "" ""))
((decrire c) "LINE -30.00,-400.00 30.00,400.00")
(tape ("(pl_modifpente 0)" ""))
(tape ("(pl_modifpente 10.0)" "(list c '(0.0 0.0))")) ; cancelled: nothing is written
((decrire c) "LINE -30.00,-400.00 30.00,400.00")
;; Lines y = 0 and y = x through (10, 0) and a point on their bisector's circle of radius 5.
((rtos (pl_rayraccpt '(0.0 0.0) '(10.0 0.0) '(0.0 0.0) '(0.0 10.0)
                     (list (- 5.0 (* 5.0 (cos (/ pi 4)))) (- 5.0 (* 5.0 (sin (/ pi 4))))) 1.0) 2 6)
 "5.000000")
((pl_rayraccpt '(0.0 0.0) '(10.0 0.0) '(0.0 1.0) '(10.0 1.0) '(5.0 0.5) 1.0) nil)
((pl_rayraccpt '(0.0 0.0) '(10.0 0.0)) nil)

(situation "Dimensions")
(preparer (setq a (ligne 190.0 120.0 90.0 120.0)) (marque))
(tape ("(setq r (pl_cotauto prf \"V\" -4.0 0.0))" "(list a '(150.0 120.0))" "" "")
  "Selectionnez les éléments que vous voulez coter")
((list (sslength r) (equal (projet rv) (list a)) (marque-de a)) (1 T 1))
((vu) ("102.00 @100.00,46.00 h2.50 r0 4/2" "102.00 @140.00,46.00 h2.50 r0 4/2" "+2.00 @100.00,125.00 h2.50 r0 0/2"
       "+0.00 @140.00,125.00 h2.50 r0 0/2"))
((mapcar 'car (statiques rv)) (102 10 102 330 102 102 102 10 102 330 102 102))
(preparer (marque))
(tape ("(setq r (pl_cotauto prf \"V\" -4.0 0.0 1 0))" "(list a '(150.0 120.0))" "" ""))
((length (vu)) 2)
((pl_cotauto prf "V" -4 0.0) nil)
;; Of a flag only 16 bits count: 65536 is no.
(preparer (marque))
(tape ("(setq r (pl_cotauto prf \"V\" -4.0 0.0 65536 0))" "(list a '(150.0 120.0))" "" ""))
((vu) nil)

;; The section at 100 m, as its chain already has it, is added: its plane is 5 m above the one before.
(situation "AnAddedBreakCutsAndShifts")
(preparer
  (setq a (poly '((120.0 100.0) (180.0 100.0) (240.0 160.0))) b (ligne 210.0 100.0 230.0 100.0)
        c (ligne 110.0 90.0 200.0 90.0) s (point) tt (point))
  (pl_elem_prj prf "V" a b c) (pl_elem_ponct prf "V" '(200.0 0.0) s) (pl_elem_ponct prf "V" '(230.0 0.0) tt) (marque)
  (pl_chg_pc prf "Ajout" 200.0 100.0 0.0))
((sommets a) ((120.0 100.0) (180.0 100.0) (200.0 120.0)))
((length (projet rv)) 4)
((sommets (nth 3 (projet rv))) ((200.0 70.0) (240.0 110.0)))
((list (y b 10) (y c 10)) (50.0 90.0))
((list (y s 10) (y tt 10)) (0.0 -50.0))
((mapcar 'car (statiques rv)) (102 10 102 330 102 102 330 102 102 102 10 102 330 102 102))
;; The same break goes again: from the chain first.
(preparer (plsxd pc1 "NEXT-PC" 0) (plsxd pc1 "DISTANCE" 150.0) (pl_chg_pc prf "S" 200.0 0.0 100.0))
((sommets a) ((120.0 100.0) (180.0 100.0) (200.0 120.0) (200.0 120.0) (240.0 160.0)))

(situation "AnAddedBreakCutsAlsoWhenNothingIsShifted")
(preparer (setq a (poly '((120.0 100.0) (240.0 100.0)))) (pl_elem_prj prf "V" a) (pl_chg_pc prf "Ajout" 200.0 95.0 0.0))
((mapcar 'sommets (projet rv)) (((120.0 100.0) (200.0 100.0)) ((200.0 100.0) (240.0 100.0))))

(situation "AChangedBreakMovesItsStretch")
(preparer
  (setq a (ligne 120.0 100.0 180.0 100.0) b (ligne 200.0 100.0 230.0 100.0) c (ligne 180.0 100.0 230.0 100.0))
  (pl_elem_prj prf "V" a b c)
  (pl_chg_pc prf "M" 200.0 100.0 102.0))
((mapcar '(lambda (e) (y e 10)) (list a b c)) (100.0 80.0 100.0))
((progn (pl_chg_pc prf "M" 200.0 100.0 100.0) (pl_chg_pc prf "X" 200.0 1.0 2.0) (y b 10)) 80.0)

(situation "TransferAcrossSectionsAndTrim")
(preparer (setq a (poly '((80.0 100.0) (180.0 100.0) (270.0 190.0)))) (marque))
(tape ("(pl_repspc prf)" "(list a '(150.0 100.0))" "" ""))
((sommets a) ((100.0 100.0) (180.0 100.0) (200.0 120.0)))
((mapcar 'sommets (depuis repere)) (((200.0 70.0) (250.0 120.0))))
(preparer (setq b (poly '((120.0 100.0) (230.0 100.0)))) (marque))
(tape ("(pl_repspc prf)" "(list b '(150.0 100.0))" "" "") (sauf "QQue chose"))
((sommets b) ((120.0 100.0) (200.0 100.0)))
((mapcar 'sommets (depuis repere)) (((200.0 50.0) (230.0 50.0))))
;; A pick outside the stretches of the curve: it is trimmed, and that is all.
(preparer
  (setq pc3 (point))
  (plsxd pc3 "DISTANCE" 50.0) (plsxd pc3 "PC" 90.0) (plsxd pc2 "NEXT-PC" pc3)
  (setq d (poly '((210.0 100.0) (290.0 100.0)))))
(tape ("(pl_repspc prf)" "(list d '(120.0 100.0))" "" "") "\nQQue chose ne va pas !")
((sommets d) ((210.0 100.0) (250.0 100.0)))

;; 5,000 points of ground against 50 polylines of 2,000 vertices.
(situation "ListingsOfManyCurvesHaveEveryPoint")
(preparer
  (setq grand (reference "PROFIL" "NUMPL" "G" 0.0) l nil i 0)
  (plsxd grand "PRPC" pc2) (plsxd grand "ECHV" 1.0)
  (while (< i 5000) (setq l (cons '(1040 . 0.4) (cons '(1040 . 100.0) l)) i (1+ i)))
  (entmod (append (entget grand) (list (list -3 (cons "KELMONT_PLV2" l)))))
  (setq toutes (ssadd) memes (ssadd) k 0.0)
  (repeat 50
    (setq l nil i 1999)
    (while (>= i 0) (setq l (cons (list (float i) (+ k (rem i 3))) l) i (1- i)))
    (poly l)
    (ssadd (entlast) toutes) (ssadd (entlast) memes)
    (setq k (1+ k))))
((length (pl_PointsPrjRef grand toutes memes)) 4997)
(tape ("(setq r (pl_listerAltitudes grand))" "TOUT" "" ""))
((length r) 4997)
