;; Circles that touch, fences, leaders, line types from files, attributes brought up to date, the current layer off, plots.

(commun
  (preparer
    (load "outils.lsp")
    (defun arrondi (l) (mapcar '(lambda (v) (/ (fix (+ (* 1000 v) (if (< v 0) -0.5 0.5))) 1000.0)) l))
    (defun cercle () (append (arrondi (g 10 (entlast))) (list (g 40 (entlast)))))
    (defun combien (filtre / s) (if (setq s (ssget "X" filtre)) (sslength s) 0))))

;; Between two lines the centre is as far from both; beside a circle as far from its centre as both radii.
(situation "ACircleTouchesTwoObjects")
(preparer
  (command "_LINE" "0,0" "10,0" "") (setq a (entlast))
  (command "_LINE" "0,0" "0,10" "") (setq b (entlast))
  (command "_CIRCLE" "20,0" "5") (setq c (entlast))
  (command "_PLINE" "30,0" "40,0" "40,10" "") (setq p (entlast)))
((progn (command "_CIRCLE" "_T" (list a '(5 0 0)) (list b '(0 5 0)) 2.0) (cercle)) (2.0 2.0 0.0 2.0))
((progn (command "_CIRCLE" "_T" (list a '(9 0 0)) (list c '(15 1 0)) 3.0) (equal (distance (g 10 (entlast)) '(20 0 0)) 8.0 1e-9)) T)
((progn (command "_CIRCLE" "_T" (list p '(35 0 0)) (list p '(40 5 0)) 2.0) (cercle)) (38.0 2.0 0.0 2.0))
(preparer (command "_LINE" "0,50" "10,50" "") (setq d (entlast)))
(dit (command "_CIRCLE" "_T" (list a '(5 0 0)) (list d '(5 50 0)) 2.0) "Aucun cercle de ce rayon ne touche les deux objets.")

(situation "AFenceTrimsAndExtendsWhatItCrosses")
(preparer
  (foreach x '(0 10 12 14 30) (command "_LINE" (list x 0) (list x 30) ""))
  (command "_LINE" "-5,10" "40,10" "") (setq h1 (entlast))
  (command "_LINE" "-5,20" "40,20" "") (setq h2 (entlast))
  (setq n (combien '((0 . "LINE")))))
;; between both limits the three in the middle lose a piece and become two each
((progn (command "_TRIM" h1 h2 "" "_F" "8,15" "20,15" "" "") (- (combien '((0 . "LINE"))) n)) 3)
(preparer (foreach x '(50 52) (command "_LINE" (list x 0) (list x 5) "")) (command "_LINE" "45,10" "60,10" "") (setq h (entlast)))
((progn (command "_EXTEND" h "" "_F" "49,4" "55,4" "" "") (combien '((0 . "LINE") (-4 . "=,=,*") (11 50.0 10.0 0.0)))) 1)
((combien '((0 . "LINE") (-4 . "=,=,*") (11 52.0 10.0 0.0))) 1)

(situation "LeadersHaveTheirText")
(preparer (command "_LEADER" "0,0" "5,5" "" "Regard R1" "DN 1000" "") (setq l (entlast) m (g 340 l)))
((list (g 0 l) (g 76 l) (g 73 l) (g 0 m) (g 1 m) (g 71 m)) ("LEADER" 2 0 "MTEXT" "Regard R1\\PDN 1000" 4))
((progn (command "_QLEADER" "0,0" "-5,5" "" "0" "" ) (list (g 0 (entlast)) (g 73 (entlast)) (g 340 (entlast)))) ("LEADER" 3 nil))
((progn (command "_LEADER" "0,0" "-5,5" "_A" "à gauche" "") (g 71 (g 340 (entlast)))) 6)

(situation "LineTypesComeFromFiles")
(fichier "types.lin" ";; rien\n*GAZ,Conduite ----GAZ----\nA,12.7,-5.08,[\"GAZ\",STANDARD,S=2.54,R=0.0,X=-2.54,Y=-1.27],-6.35\n*MUR,Mur\nA,3,-1\n")
(preparer (defun traits (nom) (mapcar 'cdr (vl-remove-if-not '(lambda (x) (= (car x) 49)) (entget (tblobjname "LTYPE" nom))))))
((progn (command "_-LINETYPE" "_L" "*" "<dossier>types.lin" "") (list (traits "GAZ") (traits "mur"))) ((12.7 -5.08 -6.35) (3.0 -1.0)))
((list (g 9 (tblobjname "LTYPE" "GAZ")) (g 46 (tblobjname "LTYPE" "GAZ")) (g 0 (g 340 (tblobjname "LTYPE" "GAZ")))) ("GAZ" 2.54 "STYLE"))
(dit (command "_-LINETYPE" "_L" "RIEN" "<dossier>types.lin" "") "Aucun type de ligne du fichier ne correspond à \"RIEN\".")
(fichier "mauvais.lin" "*X,x\nB,1,-1\n")
(dit (command "_-LINETYPE" "_L" "*" "<dossier>mauvais.lin" "") "ligne 2: A et des longueurs attendus, \"B,1,-1\" trouvé")

(situation "AttributesFollowTheirBlock")
(preparer
  (defun attributs (e / l) (while (and (setq e (entnext e)) (= (g 0 e) "ATTRIB")) (setq l (cons (list (g 2 e) (g 1 e) (g 40 e)) l))) (reverse l))
  (defun bloc (definitions)
    (entmake '((0 . "BLOCK") (2 . "RG") (70 . 2) (10 0.0 0.0 0.0)))
    (foreach d definitions (entmake (list '(0 . "ATTDEF") '(10 0. 1. 0.) (cons 40 (caddr d)) (cons 1 (cadr d)) (cons 2 (car d)) (cons 3 (car d)) '(70 . 0))))
    (entmake '((0 . "ENDBLK"))))
  (bloc '(("NOM" "?" 1.0) ("VIEUX" "x" 1.0)))
  (command "_INSERT" "RG" "50,50" "1" "1" "0" "R12" "y") (setq i (entlast))
  (bloc '(("COTE" "100.0" 2.0) ("NOM" "?" 2.0))))
((progn (command "_ATTSYNC" "_N" "RG") (attributs i)) (("COTE" "100.0" 2.0) ("NOM" "R12" 2.0)))
((g 0 (entnext (entnext (entnext i)))) "SEQEND")
;; taken apart the block leaves its definitions
((progn (command "_EXPLODE" i) (combien '((0 . "ATTDEF")))) 2)

(situation "TheCurrentLayerGoesOffWhenConfirmed")
(preparer (command "_-LAYER" "_N" "X" "") (defun couleurs () (mapcar '(lambda (n) (cdr (assoc 62 (tblsearch "LAYER" n)))) '("0" "X"))))
((progn (command "_-LAYER" "_OFF" "*" "_N" "") (couleurs)) (7 -7))
((progn (command "_-LAYER" "_ON" "*" "_OFF" "*" "_Y" "") (couleurs)) (-7 -7))

(situation "PlacesOfObjectsNearAPoint")
(preparer (command "_LINE" "0,0" "10,0" "") (command "_CIRCLE" "20,0" "5") (setvar "VIEWSIZE" 100.0))
((osnap '(0.1 0.1 0) "_end") (0.0 0.0 0.0))
((osnap '(5.2 0.1 0) "mil,ext") (5.0 0.0 0.0))
((osnap '(24.9 0.1 0) "_qua") (25.0 0.0 0.0))
((osnap '(50 50 0) "_end,_mid") nil)

(situation "PlotsAnswerAsProgramsAsk")
(preparer (command "_LINE" "0,0" "100,50" ""))
(dit (command "_-PLOT" "_Y" "Model" "DWG To PDF.pc3" "ISO_full_bleed_A3_(420.00_x_297.00_MM)" "_M" "_L" "_N" "_E" "1=0.5" "_C" "_Y" "monochrome.ctb" "_Y" "" "<dossier>essai" "_N" "_Y")
  "Tracé: <dossier>essai.pdf")
((> (vl-file-size "<dossier>essai.pdf") 500) T)
(dit (command "_-PLOT" "_N" "" "" "PNG" "_Y" "<dossier>essai.png" "_N" "_N") "")
((findfile "<dossier>essai.png") nil)
(dit (command "_-PLOT" "_N" "" "" "" "" "") "un nom de fichier est attendu")
