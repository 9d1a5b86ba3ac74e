; Entities, tables, dictionaries, selections and curves.
(setq e (entmakex '((0 . "LINE") (10 0. 0. 0.) (11 3. 4. 0.))))
(entmod (subst '(11 1. 1. 1.) (assoc 11 (entget e)) (entget e)))
(entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 2) (70 . 0) (10 0. 0.) (42 . 1.) (10 1. 1.)))
(vlax-curve-getDistAtParam (entlast) 0.5) (vlax-curve-getClosestPointTo e '(2. 2. 0.))
(ssget "X" '((0 . "LINE") (-4 . "<OR") (8 . "0") (62 . 1) (-4 . "OR>"))) (ssget "C" '(0. 0.) '(5. 5.))
(tblsearch "LAYER" "0") (tblnext "STYLE" T) (namedobjdict) (dictadd (namedobjdict) "X" (entmakex '((0 . "XRECORD") (100 . "AcDbXrecord") (1 . "a"))))
(regapp "ESSAI") (entmod (append (entget e) '((-3 ("ESSAI" (1000 . "t") (1070 . 3)))))) (entget e '("*"))
(trans '(1. 2. 3.) 0 e) (textbox '((1 . "abc") (40 . 2.5))) (getvar "CLAYER") (setvar "OSMODE" 0) (entdel e)
