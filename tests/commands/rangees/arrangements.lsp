;; Objects repeated, aligned, put above others, brought back; faces; contours.

(commun
  (preparer
    (load "outils.lsp")
    (defun tous (type / s i r) (if (setq s (ssget "X" (list (cons 0 type)))) (repeat (setq i (sslength s)) (setq r (cons (ssname s (setq i (1- i))) r)))) (reverse r))
    (defun arrondi (p) (mapcar '(lambda (v) (atof (rtos v 2 6))) p))))

(situation "RowsAndColumns")
(preparer (circle '(0. 0. 0.) 1.) (setq c (entlast)))
((progn (command "_-ARRAY" c "" "_R" 2 3 10 -5) (vl-sort (mapcar '(lambda (e) (g 10 e)) (tous "CIRCLE")) '(lambda (a b) (< (+ (car a) (* 100 (cadr a))) (+ (car b) (* 100 (cadr b)))))))
 ((-10.0 0.0 0.0) (-5.0 0.0 0.0) (0.0 0.0 0.0) (-10.0 10.0 0.0) (-5.0 10.0 0.0) (0.0 10.0 0.0)))
;; one row: its distance isn't asked for
((progn (circle '(0. 50. 0.) 1.) (command "_ARRAY" (entlast) "" "" 1 2 7) (list (getvar "CMDACTIVE") (last-g 10))) (0 (7.0 50.0 0.0)))
(dit (command "_ARRAY" c "" "_R" 1000 1000 1 1) "plus de 100000 objets")

(situation "AroundACentre")
(preparer (line '(10. 0. 0.) '(12. 0. 0.)))
((progn (command "_-ARRAY" (entlast) "" "_P" "0,0" 4 360 "_Y") (mapcar 'arrondi (list (last-g 10) (last-g 11)))) ((0.0 -10.0 0.0) (0.0 -12.0 0.0)))
((length (tous "LINE")) 4)
;; over half a turn the last one stands at its end; not turned, the line stays level
(preparer (line '(20. 0. 0.) '(22. 0. 0.)))
((progn (command "_ARRAY" (entlast) "" "_P" "0,0" 3 180 "_N") (mapcar 'arrondi (list (last-g 10) (last-g 11)))) ((-20.0 0.0 0.0) (-18.0 0.0 0.0)))

(situation "AlignedByPairsOfPoints")
(preparer (line '(0. 0. 0.) '(10. 0. 0.)) (setq l (entlast)))
((progn (command "_ALIGN" l "" "0,0" "5,5" "10,0" "5,25" "" "_Y") (mapcar 'arrondi (list (g 10 l) (g 11 l)))) ((5.0 5.0 0.0) (5.0 25.0 0.0)))
((progn (command "_ALIGN" l "" "5,5" "0,0" "") (mapcar 'arrondi (list (g 10 l) (g 11 l)))) ((0.0 0.0 0.0) (0.0 20.0 0.0)))

(situation "OrderOfDrawing")
(preparer
  (foreach x '(1. 2. 3.) (circle (list x 0. 0.) 1.))
  (defun ordre (/ d) ; circles by the places that the table gives them
    (setq d (entget (cdr (assoc 360 (member '(102 . "{ACAD_XDICTIONARY") (entget (cdr (assoc 330 (entget (entlast)))))))))
          d (entget (cdr (assoc 360 (member '(3 . "ACAD_SORTENTS") d)))) paires nil)
    (while (setq d (member (assoc 331 d) d)) (setq paires (cons (list (cdr (assoc 5 d)) (car (g 10 (cdar d)))) paires) d (cdr d)))
    (mapcar 'cadr (vl-sort paires '(lambda (a b) (< (car a) (car b)))))))
((progn (setq un (vl-some '(lambda (e) (if (= 1.0 (car (g 10 e))) e)) (tous "CIRCLE"))) (command "_DRAWORDER" un "" "_F") (ordre)) (2.0 3.0 1.0))
((progn (setq trois (vl-some '(lambda (e) (if (= 3.0 (car (g 10 e))) e)) (tous "CIRCLE"))) (command "_DRAWORDER" trois "" "_B") (ordre)) (3.0 2.0 1.0))
((progn (command "_DRAWORDER" trois "" "_A" un) (ordre)) (2.0 1.0 3.0))
((progn (command "_DRAWORDER" trois "" "_U" un) (ordre)) (2.0 3.0 1.0))

(situation "WhatWasErasedComesBack")
(preparer (circle '(0. 0. 0.) 1.) (setq c (entlast)) (command "_ERASE" c ""))
((progn (command "_OOPS") (g 40 c)) 1.0)
(dit (command "_OOPS") "rien n'a été effacé")
;; a selection that a program has set is all that the command asks
((progn (sssetfirst nil (ssadd c)) (command "_ERASE") (list (getvar "CMDACTIVE") (entget c))) (0 nil))

(situation "FacesAndContours")
((progn (command "_3DFACE" "0,0" "10,0" "10,10,5" "0,10" "0,20" "10,20" "") (length (tous "3DFACE"))) 2)
((mapcar '(lambda (k) (last-g k)) '(10 11 12 13)) ((10.0 10.0 5.0) (0.0 10.0 0.0) (0.0 20.0 0.0) (10.0 20.0 0.0)))
(preparer (command "_RECTANG" "100,0" "120,10") (setq r (entlast)))
((progn (command "_-BOUNDARY" "110,5" "") (list (eq r (entlast)) (last-g 0) (last-g 70) (last-g 10))) (nil "LWPOLYLINE" 1 (100.0 0.0)))
;; the first form of HATCH: pattern, scale, angle, objects
((progn (command "_HATCH" "ANSI31" 2 45 r "") (list (getvar "CMDACTIVE") (last-g 0) (last-g 2) (last-g 41))) (0 "HATCH" "ANSI31" 2.0))
((progn (command "_HATCH" "SOLID" r "") (last-g 2)) "SOLID")
