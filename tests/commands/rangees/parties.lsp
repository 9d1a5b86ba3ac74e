;; Commands on parts of objects and of drawings: STRETCH, LENGTHEN, MATCHPROP, ATTDEF, WBLOCK, the clipboard, HATCH, dimensions.

(commun
  (preparer
    (load "outils.lsp")
    (defun bouts (e) (list (g 10 e) (g 11 e)))
    (defun sommets (e) (mapcar 'cdr (vl-remove-if-not '(lambda (x) (= (car x) 10)) (entget e))))
    (defun combien (filtre / s) (if (setq s (ssget "X" filtre)) (sslength s) 0))))

(situation "StretchMovesWhatIsInTheWindow")
(preparer
  (command "_LINE" "0,0" "10,0" "") (setq l (entlast))
  (command "_PLINE" "0,5" "10,5" "10,8" "0,8" "_C") (setq p (entlast))
  (command "_CIRCLE" "9,2" "1") (setq c (entlast))
  (command "_CIRCLE" "2,2" "1") (setq loin (entlast))
  (command "_ARC" "0,20" "5,25" "10,20") (setq a (entlast))
  (command "_STRETCH" "_C" "8,-1" "12,30" "" "0,0" "3,1"))
((bouts l) ((0.0 0.0 0.0) (13.0 1.0 0.0)))
((sommets p) ((0.0 5.0) (13.0 6.0) (13.0 9.0) (0.0 8.0)))
((list (g 10 c) (g 10 loin)) ((12.0 3.0 0.0) (2.0 2.0 0.0)))
;; half a circle still, from its old start to its new end
((mapcar '(lambda (p) (mapcar '(lambda (v) (rtos v 2 6)) p)) (list (vlax-curve-getStartPoint a) (vlax-curve-getEndPoint a)))
 (("13.000000" "21.000000" "0.000000") ("0.000000" "20.000000" "0.000000")))
((rtos (- (g 51 a) (g 50 a)) 2 6) "3.141593")
(preparer
  (command "_DIMLINEAR" "0,-20" "10,-20" "5,-30") (setq d (entlast) avant (g 2 d))
  (command "_STRETCH" "_CP" "8,-21" "12,-21" "12,-19" "8,-19" "" "" "_D" "4,0"))
((list (g 42 d) (= avant (g 2 d))) (14.0 nil))
((progn (setq e (tblobjname "BLOCK" (g 2 d))) (while (and e (/= (g 0 e) "MTEXT")) (setq e (entnext e))) (g 1 e)) "14,00")

(situation "LengthsAreGiven")
(preparer (command "_LINE" "0,0" "10,0" "") (setq l (entlast)) (command "_PLINE" "0,5" "10,5" "10,8" "") (setq p (entlast)))
((progn (command "_LENGTHEN" "_DE" "5" (list l '(9.0 0.0 0.0)) (list l '(1.0 0.0 0.0)) "") (bouts l)) ((-5.0 0.0 0.0) (15.0 0.0 0.0)))
((progn (command "_LENGTHEN" "_P" "50" (list l '(14.0 0.0 0.0)) "") (bouts l)) ((-5.0 0.0 0.0) (5.0 0.0 0.0)))
((progn (command "_LENGTHEN" "_T" "20" (list p '(10.0 7.0 0.0)) "") (last (sommets p))) (10.0 15.0))
;; the last segment can't be shorter than nothing
((progn (command "_LENGTHEN" "_T" "5" (list p '(10.0 7.0 0.0)) "") (last (sommets p))) (10.0 15.0))

(situation "PropertiesAreTakenOver")
(preparer
  (command "_LINE" "0,0" "10,0" "") (setq l (entlast))
  (command "_CHPROP" l "" "_C" "3" "_LT" "CONTINUOUS" "")
  (command "_TEXT" "0,0" "3" "0" "a") (setq grand (entlast))
  (command "_TEXT" "0,5" "1" "0" "b") (setq petit (entlast))
  (command "_MATCHPROP" l grand petit "")
  (command "_MATCHPROP" grand petit ""))
((list (g 62 grand) (g 62 petit) (g 40 petit) (g 1 petit)) (3 3 3.0 "b"))

(situation "AttributesAreDefined")
(preparer
  (command "_ATTDEF" "_I" "" "num" "Numéro du regard" "R1" "_J" "_MC" "1,2" "2.5" "0") (setq a (entlast))
  (command "_CIRCLE" "0,0" "4")
  (command "_BLOCK" "REGARD" "0,0" "_ALL" "")
  (command "_INSERT" "REGARD" "50,50" "1" "1" "0" "R7"))
((list (g 2 (entnext (entlast))) (g 1 (entnext (entlast))) (g 70 (entnext (entlast)))) ("NUM" "R7" 1))

(situation "PartsBecomeDrawings")
(preparer
  (command "_LINE" "10,10" "20,10" "") (setq l (entlast))
  (command "_CIRCLE" "50,50" "3")
  (command "_BLOCK" "ROND" "50,50" "_L" "")
  (command "_INSERT" "ROND" "0,0" "1" "1" "0")
  (command "_WBLOCK" "<dossier>trait" "" "10,10" l "")
  (command "_WBLOCK" "<dossier>rond" "ROND"))
((list (entget l) (combien nil)) (nil 1))
(preparer (command "_INSERT" "<dossier>trait" "5,5" "1" "1" "0") (setq e (entnext (tblobjname "BLOCK" "trait"))))
((bouts e) ((0.0 0.0 0.0) (10.0 0.0 0.0)))
(preparer (command "_INSERT" "R2=<dossier>rond" "5,5" "1" "1" "0"))
((g 10 (entnext (tblobjname "BLOCK" "R2"))) (0.0 0.0 0.0))
(preparer (command "_COPYBASE" "0,0" "_ALL" "") (command "_PASTECLIP" "100,100"))
((combien nil) 6)
((g 10 (entlast)) (105.0 105.0 0.0))

(situation "AreasAreHatched")
(preparer
  (command "_PLINE" "0,0" "40,0" "40,20" "0,20" "_C")
  (command "_CIRCLE" "10,10" "5")
  (command "_-HATCH" "_P" "ANSI31" "2" "0" "30,10" "") (setq h (entlast)))
;; the circle is an island
((list (g 0 h) (g 2 h) (g 91 h) (g 41 h) (g 78 h) (g 53 h)) ("HATCH" "ANSI31" 2 2.0 1 0.785398))
((mapcar '(lambda (x) (rtos x 2 5)) (list (g 45 h) (g 46 h))) ("-4.49013" "4.49013"))
(preparer
  (command "_LINE" "60,0" "80,0" "") (setq a (entlast))
  (command "_LINE" "70,15" "60,0" "") (setq b (entlast))
  (command "_LINE" "80,0" "70,15" "") (setq c (entlast))
  (command "_-HATCH" "_P" "_S" "_S" a b c "" ""))
((list (g 0 (entlast)) (g 2 (entlast)) (g 91 (entlast)) (g 93 (entlast))) ("HATCH" "SOLID" 1 3))
(preparer (command "_ERASE" b "") (setq n (combien '((0 . "HATCH")))) (command "_-HATCH" "_S" a c "" ""))
((= n (combien '((0 . "HATCH")))) T)
