;; Functions that draw, and that say what the last entity is in few characters.
;; Tests of the bare host load them, those in C++ as well.

(setvar "DIMZIN" 0)
(defun line (a b) (entmakex (list '(0 . "LINE") (cons 10 a) (cons 11 b))))
(defun circle (c r) (entmakex (list '(0 . "CIRCLE") (cons 10 c) (cons 40 r))))
(defun text (p s) (entmakex (list '(0 . "TEXT") (cons 10 p) '(40 . 2.5) (cons 1 s))))
(defun g (code e) (cdr (assoc code (entget e))))
(defun last-g (code) (g code (entlast)))
(defun kinds (ss / i l) (if ss (repeat (setq i (sslength ss)) (setq l (cons (g 0 (ssname ss (setq i (1- i)))) l)))))
(defun layers (ss / i l) (if ss (repeat (setq i (sslength ss)) (setq l (cons (g 8 (ssname ss (setq i (1- i)))) l)))))
(defun count (/ s) (if (setq s (ssget "X")) (sslength s) 0))
