;; What programs of other makers use besides entities: nested picks, the selection that they set, commands of their own names, files.

(commun (preparer (load "outils.lsp")))

(situation "NestedPicksAreTransformed")
(preparer
  (entmake '((0 . "BLOCK") (2 . "B") (70 . 0) (10 0. 0. 0.)))
  (entmake '((0 . "LINE") (10 0. 0. 0.) (11 10. 0. 0.)))
  (entmake '((0 . "ENDBLK")))
  (setq i (entmakex '((0 . "INSERT") (2 . "B") (10 100. 50. 0.) (50 . 1.5707963267948966) (41 . 2.) (42 . 2.) (43 . 2.))))
  (setq n (nentselp '(100. 55. 0.))))
((list (g 0 (car n)) (equal (cadddr n) (list i))) ("LINE" T))
;; a point of the block, as a column, becomes one of the drawing
((mapcar '(lambda (row) (rtos (apply '+ (mapcar '* row '(10. 0. 0. 1.))) 2 6)) (caddr n)) ("100.000000" "70.000000" "0.000000" "1.000000"))
((nentselp '(0. 0. 0.)) nil)

(situation "CommandsUseASelectionThatAProgramSets")
(preparer (line '(0. 0. 0.) '(1. 0. 0.)) (setq l (entlast)) (circle '(5. 5. 0.) 1.) (setq c (entlast)))
((progn (sssetfirst nil (ssadd l)) (command "_MOVE" "0,0" "0,7") (list (g 10 l) (g 10 c))) ((0.0 7.0 0.0) (5.0 5.0 0.0)))
;; once: the next command asks
((progn (command "_MOVE" c "" "0,0" "1,1") (list (g 10 l) (g 10 c))) ((0.0 7.0 0.0) (6.0 6.0 0.0)))

(situation "CommandsGiveWayToPrograms")
(preparer (defun c:point () (setq essai 'mien)) (command "_UNDEFINE" "POINT"))
((progn (command "_POINT" "3,3") (entlast)) nil)
((progn (command "_.POINT" "3,3") (last-g 10)) (3.0 3.0 0.0))
((progn (command "_REDEFINE" "_POINT") (command "_POINT" "4,4") (last-g 10)) (4.0 4.0 0.0))

(situation "FilesAreFoundWhateverTheCase")
(fichier "Données Été.TXT" "un\n")
((progn (setq f (open "<dossier>donnÉes été.txt" "r") l (read-line f)) (close f) l) "un")
((null (findfile "<dossier>DONNÉES ÉTÉ.txt")) nil)
;; what is written has the name that was given
((progn (close (setq f (open "<dossier>DONNÉES ÉTÉ.txt" "w"))) (vl-file-size "<dossier>Données Été.TXT")) 3)

(situation "SecondDerivativesOfCurves")
(preparer
  (entmake '((0 . "ARC") (10 5. 5. 0.) (40 . 2.) (50 . 0.) (51 . 3.))) (setq a (entlast))
  (line '(0. 0. 0.) '(4. 2. 0.)) (setq l (entlast))
  (entmake '((0 . "SPLINE") (100 . "AcDbEntity") (100 . "AcDbSpline") (70 . 8) (71 . 2) (72 . 6) (73 . 3) (74 . 0)
             (40 . 0.) (40 . 0.) (40 . 0.) (40 . 1.) (40 . 1.) (40 . 1.) (10 0. 0. 0.) (10 1. 2. 0.) (10 2. 0. 0.))) (setq s (entlast)))
((equal (vlax-curve-getSecondDeriv a 1.) (list (* -2. (cos 1.)) (* -2. (sin 1.)) 0.) 1e-12) T)
((vlax-curve-getSecondDeriv l 0.5) (0.0 0.0 0.0))
;; y = 4 t (1 - t)
((equal (vlax-curve-getSecondDeriv s 0.25) '(0. -8. 0.) 1e-9) T)

;; What programs call about themselves, in passing.
(situation "ProgramsKeepSettingsAndEnd")
((list (getcfg "AppData/essai/a") (setcfg "AppData/essai/a" "12") (getcfg "appdata/ESSAI/A") (setcfg "Autre/a" "1")) ("" "12" "12" nil))
((progn (vl-registry-write "HKCU\\X\\Un" "n" "1") (vl-registry-write "HKCU\\X\\Deux" "m" "2") (vl-registry-descendents "HKCU\\X")) ("DEUX" "UN"))
((vl-registry-descendents "HKCU\\X\\Un" T) ("N"))
(preparer (defun c:fin () (setq avant T) (vl-exit-with-value 7) (setq apres T)))
((vl-catch-all-error-p (vl-catch-all-apply 'c:fin)) T)
((list avant apres) (T nil))
((progn (line '(0. 0. 0.) '(1. 0. 0.)) (acad-push-dbmod) (command "_UNDO" "1") (acad-pop-dbmod)) T)
((acad-pop-dbmod) nil)
;; groups with their applications, bare and as entget lists them
((list (xdsize '(-3 ("A" (1000 . "abcd")))) (xdsize '(("A" (1000 . "abcd"))))) (13 13))

(situation "RequestsThatNeedNoWorkAreKnown")
((vl-remove-if '(lambda (f) (car (atoms-family 1 (list f))))
   '("initdia" "setfunhelp" "help" "grclear" "menugroup" "vmon" "alloc" "expand" "*push-error-using-command*" "*pop-error-mode*"
     "vl-vlx-loaded-p" "vl-acad-defun" "vl-arx-import" "vl-load-all" "acdimenableupdate" "tablet" "pragma"))
 nil)
