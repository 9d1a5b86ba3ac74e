;; What programs share: values between drawings, commands loaded at their first call, room for extended data, views.

(commun (preparer (load "outils.lsp")))

(situation "ValuesOfAllDrawings")
((vl-bb-ref 'essai) nil)
((vl-bb-set 'essai '(1 2.5 "été" (a . "b"))) (1 2.5 "été" (A . "b")))
((equal (vl-bb-ref 'essai) '(1 2.5 "été" (a . "b"))) T)
((progn (vl-doc-set 'mien 3) (list mien (vl-doc-ref 'mien))) (3 3))
(erreur (vl-bb-ref "essai") "bad argument type: symbolp \"essai\"")
(erreur (vl-exit-with-error "assez") "assez")

(situation "CommandsLoadedAtTheirFirstCall")
(fichier "tard.lsp" "(setq charges (1+ (cond (charges) (0)))) (defun c:tard () (setq appels (1+ (cond (appels) (0)))) 'fait)")
((autoload "<dossier>tard.lsp" '("TARD")) nil)
(charges nil)
((list (c:tard) (c:tard) charges appels) (FAIT FAIT 1 2))

(situation "RoomForExtendedData")
(preparer (regapp "UN") (entmake '((0 . "POINT") (10 0. 0. 0.))) (setq e (entlast) plein (xdroom e)))
(plein 16383)
((progn (entmod (append (entget e) '((-3 ("UN" (1000 . "abcd") (1040 . 2.5) (1070 . 3)))))) (- plein (xdroom e)))
 28)
((xdsize '(("UN" (1000 . "abcd") (1040 . 2.5) (1070 . 3)))) 28)

(situation "NamesOfCommandsAndViews")
((list (getcname "LINE") (getcname "_LINE") (getcname "ABSENTE")) ("_LINE" "LINE" nil))
((vports) ((2 (0.0 0.0) (1.0 1.0))))
((progn (setview '((0 . "VIEW") (10 5.0 6.0) (40 . 30.0))) (list (getvar "VIEWCTR") (getvar "VIEWSIZE"))) ((5.0 6.0 0.0) 30.0))
