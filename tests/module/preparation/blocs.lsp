;; Blocks: B is a line of 4 by 2, R has a variable and a constant attribute, vanne hangs 4 below its point.

(entmake '((0 . "BLOCK") (2 . "B") (70 . 0) (10 0.0 0.0 0.0)))
(entmake '((0 . "LINE") (10 0.0 0.0 0.0) (11 4.0 -2.0 0.0)))
(entmake '((0 . "ENDBLK")))
(entmake '((0 . "BLOCK") (2 . "R") (70 . 2) (10 0.0 0.0 0.0)))
(entmake '((0 . "ATTDEF") (10 1.0 0.0 0.0) (40 . 1.0) (1 . "defaut") (2 . "DN") (3 . "") (70 . 0)))
(entmake '((0 . "ATTDEF") (10 2.0 0.0 0.0) (40 . 1.0) (1 . "fixe") (2 . "FIXE") (3 . "") (70 . 2)))
(entmake '((0 . "ENDBLK")))
(entmake '((0 . "BLOCK") (2 . "vanne") (70 . 0) (10 0.0 0.0 0.0)))
(entmake '((0 . "LINE") (10 -1.0 0.0 0.0) (11 1.0 -4.0 0.0)))
(entmake '((0 . "ENDBLK")))
