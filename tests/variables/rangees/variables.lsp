;; System variables: types, limits, and what they follow from.
;; Run by the variables_tests program.

(situation "AreReadAndSet")
((getvar "osmode") 4133)
((setvar 'OSMODE 0) 0)
((getvar 'osmode) 0)
((getvar "ABSENTE") nil)
(erreur (setvar "ABSENTE" 1) "variable setting rejected: \"ABSENTE\" 1")
(erreur (setvar "ORTHOMODE" 2) "variable setting rejected: \"ORTHOMODE\" 2")
(erreur (setvar "OSMODE" "x") "variable setting rejected: \"OSMODE\" \"x\"")
(erreur (setvar "ACADVER" "9") "variable setting rejected: \"ACADVER\" \"9\"")
(erreur (getvar 3) "bad argument type: (or stringp symbolp): 3")
((progn (setvar "TEXTSIZE" 3) (getvar "TEXTSIZE")) 3.0)
((progn (setvar "USERR3" 1.25) (getvar "USERR3")) 1.25)
((progn (setvar "USERS2" "été") (getvar "USERS2")) "été")
((getvar "DIMSCALE") 1.0)
((progn (setvar "DIMTXT" 2) (getvar "DIMTXT")) 2.0)
((substr (getvar "ACADVER") 1 2) "22")
((list (getvar "INSUNITS") (getvar "TILEMODE") (getvar "CVPORT") (getvar "CTAB")) (6 1 2 "Model"))
((progn (setvar "LASTPOINT" '(1 2)) (getvar "LASTPOINT")) (1.0 2.0 0.0))
((type (getvar "MILLISECS")) INT)
((< 20200101.0 (getvar "CDATE") 21000101.0) T)
((< 2458849.0 (getvar "DATE") 2488070.0) T)

;; Settings of windows and commands that this host doesn't have keep what programs give them.
(situation "AreKeptForPrograms")
(tableau (name value)
  ("SORTENTS" 96) ("DYNMODE" -3) ("UCSFOLLOW" 1) ("SHORTCUTMENU" 0) ("HPNAME" "ANSI37") ("HPANG" 0.5) ("DONUTID" 2.0) ("CANNOSCALEVALUE" 0.01))
((progn (setvar name value) (getvar name)) value)
(erreur (setvar "EDGEMODE" 2) "variable setting rejected: \"EDGEMODE\" 2")

;; Every setting that programs save, set and set back, with the value of a new session.
(situation "WhatProgramsSetIsKnown")
(tableau (name value other)
  ("LWDEFAULT" 25 30) ("GRIPSIZE" 5 9) ("PLQUIET" 0 1) ("DIMFIT" 3 5) ("DIMUNIT" 2 4) ("OFFSETGAPTYPE" 0 1) ("PICKDRAG" 2 0)
  ("TSTACKALIGN" 1 2) ("WIPEOUTFRAME" 0 1) ("SELECTIONCYCLING" -2 0) ("BACKGROUNDPLOT" 2 0) ("XREFNOTIFY" 2 0) ("QPMODE" -1 0)
  ("POLARDIST" 0.0 2.5) ("XLOADPATH" "" "/tmp") ("TEXTOUTPUTFILEFORMAT" 0 1))
((list (getvar name) (progn (setvar name other) (getvar name))) (value other))
((list (getvar "SNAPBASE") (progn (setvar "SNAPBASE" '(1.0 2.0)) (getvar "SNAPBASE")) (getvar "HPORIGIN")) ((0.0 0.0) (1.0 2.0) (0.0 0.0)))
((vl-remove-if 'getvar
   '("ACADPREFIX" "MYDOCUMENTSPREFIX" "ROAMABLEROOTPREFIX" "LOCALROOTPREFIX" "SAVEFILEPATH" "VSMIN" "VSMAX" "TARGET" "DIASTAT" "WRITESTAT" "FRONTZ"))
 nil)
(erreur (setvar "WRITESTAT" 0) "variable setting rejected: \"WRITESTAT\" 0")
((progn (command "_ZOOM" "_C" "10,20" "40") (list (getvar "VSMIN") (getvar "VSMAX"))) ((-10.0 0.0 0.0) (30.0 40.0 0.0)))

(situation "SayWhatWasMeasured")
((list (type (getvar "LOGINNAME")) (getvar "CPROFILE") (getvar "VIEWDIR") (getvar "DBMOD")) (STR "Kavel" (0.0 0.0 1.0) 0))
((progn (command "_DIST" "0,0" "3,4") (getvar "DISTANCE")) 5.0)
((progn (command "_CIRCLE" "0,0" 2.0) (command "_LIST" (entlast) "") (equal (getvar "AREA") (* 4 pi) 1e-9)) T)
((equal (getvar "PERIMETER") (* 4 pi) 1e-9) T)

(situation "FollowFromTheDrawing")
(preparer (load "outils.lsp"))
(erreur (setvar "CLAYER" "absent") "variable setting rejected: \"CLAYER\" \"absent\"")
((progn (line '(-1. -2. 0.) '(3. 4. 0.)) (list (getvar "EXTMIN") (getvar "EXTMAX"))) ((-1.0 -2.0 0.0) (3.0 4.0 0.0)))
((getvar "CECOLOR") "BYLAYER")
((progn (setvar "CECOLOR" "rouge") (getvar "CECOLOR")) "1")
((progn (command "LINE" '(0 0) '(1 0) "") (last-g 62)) 1)
(erreur (setvar "CELTYPE" "absent") "variable setting rejected: \"CELTYPE\" \"absent\"")
((getvar "DWGNAME") "Dessin1.dxf")
((getvar "DWGTITLED") 0)
((progn (setvar "ANGBASE" 1.0) (rtos (getvar "ANGBASE") 2 4)) "1.0000")
((trans '(1. 2. 3.) 0 1) (1.0 2.0 3.0))
((trans '(1. 2. 3.) '(0. 0. -1.) 0) (-1.0 2.0 -3.0))
(erreur (trans '(1. 2. 3.) 0 7) "bad argument value: 7")
(erreur (startapp "rm") "SECURELOAD refuse de charger rm")

(situation "EveryOneCanBeRead")
((vl-remove-if 'getvar
   '("PICKBOX" "VIEWSIZE" "VIEWCTR" "SCREENSIZE" "PLATFORM" "LOCALE" "TEMPPREFIX" "UNDOCTL" "WORLDUCS" "UCSNAME" "PDMODE"
     "LTSCALE" "FILLMODE" "MIRRTEXT" "DBMOD" "SPLINESEGS" "PLINEWID" "DELOBJ" "DIMZIN" "DIMSTYLE" "MEASUREMENT" "DWGPREFIX"
     "SAVENAME"))
 nil)
