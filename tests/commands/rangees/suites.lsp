;; Dimensions in chains, of angles and ordinates; layers that go; curves joined; groups; sizes of texts; blocks in rows.

(commun
  (preparer
    (load "outils.lsp")
    (defun tous (filtre / s i r) (if (setq s (ssget "X" filtre)) (repeat (setq i (sslength s)) (setq r (cons (ssname s (setq i (1- i))) r)))) r)
    (defun texte (p calque) (entmakex (list '(0 . "TEXT") (cons 8 calque) (cons 10 p) '(40 . 2.0) '(1 . "a"))))
    ;; what the last dimension shows
    (defun dit-la-cote (/ e) (setq e (cdr (assoc -2 (tblsearch "BLOCK" (last-g 2))))) (while (/= (cdr (assoc 0 (entget e))) "MTEXT") (setq e (entnext e))) (cdr (assoc 1 (entget e))))
    (defun mesure () (cdr (assoc 42 (entget (entlast)))))))

;; 4 and 3 m measured one after the other on one line, then 12 m from the first point, a step of DIMDLI farther out.
(situation "DimensionsGoOnFromTheLastOne")
(preparer (setvar "DIMDLI" 5.0) (command "_DIMLINEAR" "0,0" "4,0" "0,10") (command "_DIMCONTINUE" "7,1" "" ""))
((list (mesure) (last-g 13) (last-g 10)) (3.0 (4.0 0.0 0.0) (7.0 10.0 0.0)))
(preparer (command "_DIMBASELINE" "16,1" "" ""))
((list (mesure) (last-g 13) (cadr (last-g 10))) (12.0 (4.0 0.0 0.0) 15.0))
;; chosen; below what is measured the step goes down
(preparer (command "_DIMLINEAR" "0,0" "4,0" "0,-10") (setq d (entlast)) (command "_LINE" "50,50" "60,60" "") (command "_DIMBASELINE" "9,0" "" ""))
((list (mesure) (cadr (last-g 10))) (9.0 -15.0))
(preparer (command "_DIMALIGNED" "0,0" "3,4" "5,0") (command "_DIMCONTINUE" "6,8" "" ""))
((equal (mesure) 5.0 1e-9) T)
((and (tblsearch "DIMSTYLE" (last-g 3)) T) T)
((length (tous '((0 . "DIMENSION")))) 7)

(situation "AnglesAndOrdinates")
(preparer (line '(0. 0. 0.) '(10. 0. 0.)) (setq a (entlast)) (line '(2. 2. 0.) '(8. 8. 0.)) (setq b (entlast))
          (command "_DIMANGULAR" (list a '(5. 0. 0.)) (list b '(5. 5. 0.)) "6,2"))
((list (dit-la-cote) (equal (last-g 15) '(0.0 0.0 0.0) 1e-9) (last-g 70)) ("45°" T 37))
(preparer (command "_DIMANGULAR" "" "0,0" "5,0" "0,5" "4,4"))
((dit-la-cote) "90°")
(preparer (command "_DIMORDINATE" "7,3" "7,9") (setq x (mesure)) (command "_DIMORDINATE" "7,3" "_Y" "12,3"))
((list x (mesure)) (7.0 3.0))

;; What is in blocks goes as well; a current or fixed layer stays; nothing is done without the last word.
(situation "LayersGo")
(preparer
  (foreach n '("A" "B" "C") (command "_-LAYER" "_N" n ""))
  (entmake '((0 . "BLOCK") (2 . "Q") (70 . 0) (10 0. 0. 0.))) (entmake '((0 . "CIRCLE") (8 . "A") (10 0. 0. 0.) (40 . 1.)))
  (entmake '((0 . "LINE") (8 . "B") (10 0. 0. 0.) (11 1. 0. 0.))) (entmake '((0 . "ENDBLK")))
  (texte '(0. 0. 0.) "A") (texte '(0. 5. 0.) "B") (texte '(0. 9. 0.) "C")
  (defun du-bloc (/ e r) (setq e (cdr (assoc -2 (tblsearch "BLOCK" "Q")))) (while e (setq r (cons (cdr (assoc 8 (entget e))) r) e (entnext e))) (reverse r)))
((progn (command "_-LAYDEL" "_N" "A" "" "_N") (list (length (tous nil)) (and (tblsearch "LAYER" "A") T))) (3 T))
((progn (command "_-LAYDEL" "_N" "A" "" "_Y") (list (length (tous nil)) (tblsearch "LAYER" "A") (du-bloc))) (2 nil ("B")))
((progn (command "_-LAYMRG" "_N" "B" "" "_N" "C" "_Y") (list (mapcar '(lambda (e) (cdr (assoc 8 (entget e)))) (tous nil)) (tblsearch "LAYER" "B") (du-bloc)))
 (("C" "C") nil ("C")))
((progn (command "_.U") (and (tblsearch "LAYER" "B") T)) T)
(tableau (answers message)
  ('("_N" "0") "Le calque 0 ne peut pas être supprimé.") ('("_N" "nulle") "Calque inconnu: nulle"))
(dit (vl-catch-all-apply 'command (cons "_-LAYDEL" answers)) message)

(situation "CurvesAreJoined")
(preparer (line '(0. 0. 0.) '(4. 0. 0.)) (setq a (entlast)) (line '(6. 0. 0.) '(9. 0. 0.)) (setq b (entlast)) (command "_JOIN" a b ""))
((list (length (tous nil)) (last-g 10) (last-g 11)) (1 (0.0 0.0 0.0) (9.0 0.0 0.0)))
(preparer (line '(9. 0. 0.) '(9. 5. 0.)) (setq c (entlast)) (line '(20. 20. 0.) '(30. 21. 0.)) (setq seule (entlast)) (command "_JOIN" a c seule ""))
((list (mapcar '(lambda (e) (cdr (assoc 0 (entget e)))) (vl-sort (tous nil) '(lambda (x y) (< (cdr (assoc 0 (entget x))) (cdr (assoc 0 (entget y))))))) (cdr (assoc 90 (entget (car (tous '((0 . "LWPOLYLINE")))))))) (("LINE" "LWPOLYLINE") 3))
((progn (command "_REVERSE" seule "") (cdr (assoc 10 (entget seule)))) (30.0 21.0 0.0))

(situation "GroupsByCommand")
(preparer (circle '(0. 0. 0.) 1.) (setq a (entlast)) (circle '(9. 0. 0.) 1.) (setq b (entlast))
  (defun membres (nom / g) (if (setq g (dictsearch (cdr (assoc -1 (dictsearch (namedobjdict) "ACAD_GROUP"))) nom)) (length (vl-remove-if-not '(lambda (p) (= (car p) 340)) g)))))
((progn (command "_-GROUP" "_C" "RONDS" "deux ronds" a b "") (membres "RONDS")) 2)
((progn (command "_-GROUP" "_R" "RONDS" a "") (membres "RONDS")) 1)
((progn (command "_-GROUP" "_E" "RONDS") (list (membres "RONDS") (length (tous nil)))) (nil 2))

(situation "SizesOfTexts")
(preparer (setq a (texte '(1. 1. 0.) "0") b (texte '(5. 5. 0.) "0")))
((progn (command "_SCALETEXT" a "" "" 3.5) (list (cdr (assoc 40 (entget a))) (cdr (assoc 10 (entget a))))) (3.5 (1.0 1.0 0.0)))
((progn (command "_SCALETEXT" a b "" "_E" "_S" 2.0) (list (cdr (assoc 40 (entget a))) (cdr (assoc 40 (entget b))))) (7.0 4.0))

(situation "BlocksInRowsAndCopiesOnLayers")
(preparer (entmake '((0 . "BLOCK") (2 . "R") (70 . 0) (10 0. 0. 0.))) (entmake '((0 . "CIRCLE") (10 0. 0. 0.) (40 . 1.))) (entmake '((0 . "ENDBLK")))
  (command "_MINSERT" "R" "5,5" 1 1 0 2 3 10.0 20.0))
((mapcar 'last-g '(70 71 44 45)) (3 2 20.0 10.0))
((progn (command "_EXPLODE" (entlast)) (length (tous '((0 . "CIRCLE"))))) 0)
(preparer (circle '(0. 0. 0.) 3.) (setq c (entlast)) (command "_-LAYER" "_N" "L" "") (command "_COPYTOLAYER" c "" "_N" "L" "0,0" "5,0"))
((list (last-g 8) (last-g 10) (cdr (assoc 8 (entget c)))) ("L" (5.0 0.0 0.0) "0"))
