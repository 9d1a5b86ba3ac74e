;; Figures given by a few points, marks along curves, and areas.

(commun (preparer (load "outils.lsp")
  (defun points (/ i s l) (setq i -1 s (ssget "X" '((0 . "POINT"))))
    (repeat (if s (sslength s) 0) (setq l (cons (cdr (assoc 10 (entget (ssname s (setq i (1+ i)))))) l)))
    (vl-sort l '(lambda (a b) (< (car a) (car b)))))))

(situation "EllipsesHaveTheirLongerAxisFirst")
(tableau (answers axis ratio)
  ('("0,0" "10,0" "2") '(5.0 0.0 0.0) 0.4)
  ('("0,0" "4,0" "4") '(0.0 4.0 0.0) 0.5)
  ('("C" "1,1" "1,7" "3") '(0.0 6.0 0.0) 0.5))
(preparer (apply 'command (cons "_ELLIPSE" answers)))
((list (equal (last-g 11) axis 1e-9) (equal (last-g 40) ratio 1e-9)) (T T))

(situation "FiguresOfPoints")
((progn (command "_POLYGON" 4 "0,0" "_C" 5.0) (list (last-g 90) (last-g 70) (equal (last-g 10) '(-5.0 -5.0) 1e-9))) (4 1 T))
((progn (command "_DONUT" 2.0 4.0 "10,10" "") (list (last-g 0) (last-g 40) (last-g 42) (last-g 10))) ("LWPOLYLINE" 1.0 1.0 (8.5 10.0)))
((progn (command "_SOLID" "0,0" "4,0" "0,4" "") (list (last-g 0) (equal (last-g 12) (last-g 13)))) ("SOLID" T))
((progn (command "_RAY" "0,0" "3,4" "") (list (last-g 0) (equal (last-g 11) '(0.6 0.8 0.0) 1e-12))) ("RAY" T))
((progn (command "_XLINE" "_V" "3,4" "") (list (last-g 10) (last-g 11))) ((3.0 4.0 0.0) (0.0 1.0 0.0)))

(situation "MarksAlongCurves")
(preparer (line '(0. 0. 0.) '(10. 0. 0.)) (setq e (entlast)))
((progn (command "_DIVIDE" (list e '(1. 0. 0.)) 4) (points)) ((2.5 0.0 0.0) (5.0 0.0 0.0) (7.5 0.0 0.0)))
((progn (command "_ERASE" (ssget "X" '((0 . "POINT"))) "") (command "_MEASURE" (list e '(9. 0. 0.)) 4.0) (points)) ((2.0 0.0 0.0) (6.0 0.0 0.0)))
((progn (command "_ERASE" (ssget "X" '((0 . "POINT"))) "") (circle '(0. 0. 0.) 2.) (command "_DIVIDE" (list (entlast) '(2. 0. 0.)) 3) (length (points))) 3)
((progn
   (entmake '((0 . "BLOCK") (2 . "B") (70 . 0) (10 0. 0. 0.))) (entmake '((0 . "CIRCLE") (10 0. 0. 0.) (40 . 1.))) (entmake '((0 . "ENDBLK")))
   (line '(0. 0. 0.) '(0. 9. 0.)) (command "_MEASURE" (list (entlast) '(0. 1. 0.)) "_B" "B" "_Y" 3.0)
   (list (sslength (ssget "X" '((0 . "INSERT")))) (equal (last-g 50) (* 0.5 pi) 1e-9)))
 (2 T))

(situation "Areas")
((progn (command "_AREA" "652000,6861000" "652010,6861000" "652010,6861005" "652000,6861005" "") (list (getvar "AREA") (getvar "PERIMETER"))) (50.0 30.0))
((progn (circle '(0. 0. 0.) 2.) (command "_AREA" "_O" (list (entlast) '(2. 0. 0.))) (equal (getvar "AREA") (* 4 pi) 1e-9)) T)
