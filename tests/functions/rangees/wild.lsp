;; Functions of the host that programs use: each exists and has a help line; DIESEL, the string language of menus.
;; Dialogs answered from the command line.

(situation "FindTheirFunctions")
(preparer
  (setq names
    '(load_dialog new_dialog action_tile set_tile get_tile start_list add_list end_list mode_tile start_dialog
      done_dialog unload_dialog defun setq if princ = cons car list progn strcat cdr quote cond mapcar while and
      lambda assoc foreach + - * not /= cadr 1+ < type / > or null length subst 1- apply member reverse itoa append
      strcase repeat substr nth fix equal rtos strlen eval caddr listp read function <= >= atoi atom eq rem abs last
      terpri set ascii chr zerop numberp sin cos sqrt atan exp log expt max min float gcd logand logior lsh boole ~
      minusp atof boundp cddr caar cadar cdar caadr cadddr cdadr cdddr cddddr atoms-family defun-q exit quit
      vl-catch-all-apply vl-catch-all-error-p vl-catch-all-error-message vl-remove vl-remove-if vl-remove-if-not
      vl-sort vl-sort-i vl-some vl-every vl-position vl-member-if vl-consp vl-list-length vl-string-search
      vl-string-subst vl-string-trim vl-string-left-trim vl-string-right-trim vl-string-position vl-string->list
      vl-list->string vl-princ-to-string vl-prin1-to-string vl-symbol-name vl-symbol-value vl-bt vl-propagate wcmatch
      acad_strlsort cvunit angtos angtof distof trace untrace open close read-line write-line read-char write-char
      print prin1 prompt findfile load getenv setenv vl-directory-files vl-file-delete vl-file-rename vl-file-size
      vl-file-directory-p vl-filename-base vl-filename-directory vl-filename-extension vl-filename-mktemp vl-mkdir
      vl-registry-read vl-load-com getvar setvar ver startapp gc entget entmod entupd entnext entlast entdel entmake
      entmakex handent ssget sslength ssname ssadd ssdel ssmemb ssnamex sssetfirst tblsearch tblnext tblobjname
      namedobjdict dictsearch dictnext dictadd dictremove dictrename regapp textbox trans distance angle polar inters
      command vl-cmdf command-s arxload arxunload layoutlist initget getkword getpoint getcorner getdist getangle
      getorient getint getreal getstring entsel nentsel getfiled alert grdraw grvecs grtext grread redraw menucmd
      vlax-curve-getStartPoint vlax-curve-getEndPoint vlax-curve-getStartParam vlax-curve-getEndParam
      vlax-curve-getPointAtDist vlax-curve-getPointAtParam vlax-curve-getParamAtPoint vlax-curve-getParamAtDist
      vlax-curve-getDistAtParam vlax-curve-getDistAtPoint vlax-curve-getClosestPointTo vlax-curve-getFirstDeriv
      vlax-curve-getArea vlax-curve-isClosed)))
((vl-remove-if '(lambda (name) (member (type (eval name)) '(SUBR FSUBR))) names) nil)
((vl-remove-if 'aide names) nil)

(situation "EvaluateMenuExpressions")
(preparer (setvar "USERI1" 7))
((menucmd "M=$(+,1,2.5)") "3.5")
((menucmd "M=a $(if,$(=,$(getvar,useri1),7),\"oui, $(x)\",non) b") "a oui, $(x) b")
((menucmd "M=$(edtime,2451545.5,DD/MO/YYYY HH:MM:SS)") "01/01/2000 12:00:00")
((menucmd "M=$(edtime,2460000.75,DDDD D MONTH YY H:MM am/pm)") "vendredi 24 février 23 6:00 pm")
((menucmd "M=$(substr,déjà vu,2,3)$(strlen,déjà)$(upper,é)") "éjà4É")
((menucmd "M=$(index,1,\"a,b,c\")$(nth,2,x,y,z)$(fix,3.9)") "bz3")
((menucmd "M=$(rtos,17.5,4,2) $(angtos,3.14159265358979,0,2) $(eval,\"$(*,2,3)\")") "1'-5 1/2\" 180 6")
((menucmd "M=$(and,6,3) $(or,6,1) $(xor,6,3) $(eq,a,a) $(>=,2,3)") "2 7 5 1 0")
((menucmd "M=$(foo,1) $(fix,a) $(+,1") "$(FOO)?? $(FIX,??) $?")
((menucmd "P1=*") nil)

;; A dialog answered from the command line: values, lists, radio buttons, actions and both ends.
(situation "AskWithDialogs")
(fichier "essai.dcl" "// un dialogue
    champ : edit_box { edit_width = 8; }
    essai : dialog { label = \"Essai\";
      : champ { key = \"pas\"; label = \"&Pas\"; value = \"10\"; }
      : boxed_radio_row { label = \"Sens\"; key = \"sens\"; value = \"haut\";
        : radio_button { key = \"haut\"; label = \"Haut\"; } : radio_button { key = \"bas\"; label = \"Bas\"; } }
      : list_box { key = \"calques\"; label = \"Calques\"; multiple_select = true; list = \"A\\nB\"; }
      : row { : toggle { key = \"tout\"; label = \"Tout\"; } : button { key = \"plus\"; label = \"Plus\"; } }
      ok_cancel; }")
(preparer (setq n (load_dialog "<dossier>essai.dcl") r nil))
((numberp n) T)
((load_dialog "absent.dcl") -1)
((new_dialog "absent" n) nil)
((new_dialog "essai" n) T)
((list (get_tile "pas") (get_tile "sens") (get_tile "tout") (get_tile "calques") (get_tile "absent")
   (get_attr "pas" "edit_width"))
 ("10" "haut" "0" "" nil "8"))
((progn (start_list "calques") (mapcar 'add_list '("X" "Y" "Z")) (end_list) (set_tile "calques" "0 2") (get_tile "calques"))
 "0 2")
((progn (action_tile "plus" "(set_tile \"pas\" (itoa (1+ (atoi (get_tile \"pas\")))))")
   (action_tile "sens" "(setq r (list $key $value))") (action_tile "accept" "(setq p (get_tile \"pas\")) (done_dialog 5)"))
 T)
(demande (progn (setq s (start_dialog)) (list s p r)) ("Pas=20" "Plus" "Bas=Oui" "OK") (5 "21" ("sens" "bas")))
(preparer (new_dialog "essai" n))
(demande (start_dialog) ("Annuler") 0)
((start_dialog) nil)
;; predefined tiles, an empty value, pictures that are drawn and clicked
(fichier "images.dcl" "dcl_settings : default_dcl_settings { audit_level = 0; }
    images : dialog { label = \"Images\"; : edit12_box { key = \"nom\"; label = \"Nom\"; value = \"\"; }
      : image { key = \"vue\"; width = 20; aspect_ratio = 0.5; color = 0; } : image_button { key = \"choix\"; width = 10; height = 4; } ok_only; }")
(preparer (setq n (load_dialog "<dossier>images.dcl") r nil) (new_dialog "images" n))
((list (get_tile "nom") (dimx_tile "vue") (dimy_tile "vue") (dimx_tile "choix") (dimy_tile "choix") (dimx_tile "nom")) ("" 139 69 69 59 nil))
((list (start_image "vue") (fill_image 0 0 10 10 1) (vector_image 0 0 139 69 5) (slide_image 0 0 9 9 "x") (end_image) (start_image "nom"))
 ("vue" 1 5 "x" nil nil))
(preparer (action_tile "choix" "(setq r $key)"))
(demande (progn (start_dialog) r) ("choix" "OK") "choix")
(fichier "essai.dcl" "essai : dialog {\n  label = \"x\";\n  : bouton { }\n}")
(dit (load_dialog "<dossier>essai.dcl") "ligne 3: un type connu au lieu de bouton attendu")
