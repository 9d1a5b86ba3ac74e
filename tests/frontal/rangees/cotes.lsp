;; CotAutoKavel: dimensions clear of each other, of the line and of the ground, replaced, and gone with their line.

(commun
  (fichier "g.csv" "distance;altitude\n0;50\n10;53.671\n20;49.5\n20;46\n30;45\n50;43\n60;43\n70;44\n100;45\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "1" '(1000.0 500.0 0.0) 10.0 2.5 50.0 nil))
    (plv-choix-profil p)
    (defun cotes (/ s) (plv-entites-du-jeu (ssget "X" '((0 . "TEXT") (8 . "PLV-COTES")))))
    (defun combien (motif / s) (if (setq s (ssget "X" (list '(0 . "TEXT") '(8 . "PLV-COTES") (cons 1 motif)))) (sslength s) 0))
    (defun boite (e / c) (setq c (etendue-tracee (list e))) (append (car c) (cadr c)))
    (defun entre (valeur bas haut) (max bas (min haut valeur)))
    (defun y-en (g x / a b)
      (setq a (cdr (assoc 10 g)) b (cdr (assoc 11 g)))
      (+ (cadr a) (* (- (cadr b) (cadr a)) (/ (- x (car a)) (- (car b) (car a))))))
    ;; what an entity covers within the sides of a box: a line its stretch between them
    (defun dedans (e b / g o)
      (setq g (entget e) o (boite e))
      (if (and (= (cdr (assoc 0 g)) "LINE") (/= (car o) (caddr o)))
        (progn
          (setq g (mapcar '(lambda (x) (y-en g (entre x (car o) (caddr o)))) (list (car b) (caddr b))))
          (list (car o) (apply 'min g) (caddr o) (apply 'max g)))
        o))
    (defun touche (e autres / b o)
      (setq b (boite e))
      (vl-remove-if-not
        '(lambda (a)
           (setq o (dedans a b))
           (and (not (eq a e)) (< (car b) (caddr o)) (< (car o) (caddr b)) (< (cadr b) (cadddr o)) (< (cadr o) (cadddr b))))
        autres))
    (defun conflits (/ autres)
      (setq autres (append (cotes) (plv-entites-du-jeu (ssget "X" '((8 . "PLV-TN,PLV-TITRES"))))))
      (vl-remove nil (mapcar '(lambda (e / faute) (if (setq faute (touche e autres)) (cons (plv-cle 1 (entget e)) (mapcar 'plv-type faute)))) (cotes))))
    (defun groupes () (length (vl-remove-if-not 'entget (plv-cles 350 (dictsearch (namedobjdict) "ACAD_GROUP")))))
    (defun coter (genre) (plv-coter p genre (* 0.5 pi) "Toutes" (plv-elements-du-projet p genre)))))

(situation "StandClearAndAreReplaced")
(preparer (plv-projet p "Projet" '((0.0 58.0) (30.0 45.0) (100.0 48.0))) (setq els (plv-elements-du-projet p "Projet")))
(tape ("(CotAutoKavel)" "Projet" "Toutes" "(list (car els) '(1001.0 0.0))" "(list (cadr els) '(1060.0 0.0))"
       "(list (caddr els) '(1060.0 0.0))" "") "14 cotes, 6 laissées faute de place.")
((conflits) nil)
;; 4 mm under the ground, which the module writes with a minus
((list (combien "-0.00") (combien "+0.00")) (0 1))
(preparer (setq n (length (cotes)) g (groupes)))
(tape ("(CotAutoKavel)" "Projet" "Toutes" "(list (car els) '(1001.0 0.0))" ""))
((= n (length (cotes))) T)
((<= (groupes) g) T)
;; a second line has rows of its own
(preparer (plv-projet p "AEp" '((0.0 48.0) (100.0 42.0))) (coter "AEp"))
((> (length (cotes)) (+ n 6)) T)
((conflits) nil)
;; a plane that comes, changes and goes: the rows stay clear, nothing is left over. A height at the change keeps to its section
;; and its twin to the other, so that ground and lines of both are beside them.
(preparer (plv-pc p "A" 60.0 38.0))
((vl-remove-if '(lambda (c) (member "LINE" c)) (conflits)) nil)
(preparer (plv-pc p "M" 60.0 35.0))
((vl-remove-if '(lambda (c) (member "LINE" c)) (conflits)) nil)
(preparer (coter "Projet") (coter "AEp") (setq n (length (cotes))) (coter "Projet") (coter "AEp"))
((= n (length (cotes))) T)
((conflits) nil)
(preparer (plv-pc p "S" 60.0 nil))
((conflits) nil)

(situation "AreRefusedWhereTheModuleWouldMisplaceThem")
(preparer
  (plv-projet p "Projet" '((0.0 50.0) (100.0 45.0)))
  (plv-pc p "A" 60.0 35.0)
  (setq longue (plv-ligne "0" '(1000.0 560.0 0.0) '(1100.0 560.0 0.0))
        arc (entmakex '((0 . "ARC") (10 1050.0 500.0 0.0) (40 . 20.0) (50 . 0.5) (51 . 2.5)))
        loin (plv-ligne "0" '(0.0 0.0 0.0) '(50.0 0.0 0.0))))
(tape ("(CotAutoKavel)" "Projet" "Toutes" "(list longue '(1010.0 560.0))" "(list arc '(1050.0 520.0))" "(list loin '(1.0 0.0))" "")
  "plusieurs plans de comparaison" "Arc: ligne, polyligne ou spline attendue" "n'est pas sur le profil")
((cotes) nil)
((member longue (plv-elements p "Projet")) nil)

(situation "GoWithTheirLine")
(preparer (plv-projet p "AEp" '((0.0 49.0) (100.0 42.0))) (coter "AEp"))
((> (length (cotes)) 8) T)
(tape ("PLV-OPTIMAL" "AEp" "Remplacer" "0.8" "1.6" "" "" "Non"))
((cotes) nil)
;; those of a copied profile are its own
(preparer
  (coter "AEp")
  (setq n (length (cotes)))
  (command "_COPY" (ssget "X") "" '(0.0 0.0) '(0.0 -500.0))
  (setq copie (car (vl-remove p (plv-profils))))
  (plv-effacer-courbes copie (plv-elements-du-projet copie "AEp")))
((= n (length (cotes)) (length (plv-cotes-du-profil p))) T)

;; An arc of 1 m under its chord at 45 m; at the ground points 50 and 60 the ground is at 43 m.
(situation "ArcsAreReadAlongTheArc")
(tableau (genre) ("LWPOLYLINE") ("POLYLINE"))
(preparer
  (setq p (plv-nouveau "<dossier>g.csv" "2" '(1000.0 5000.0 0.0) 10.0 2.5 150.0 '((0.0 30.0))))
  (plv-choix-profil p)
  (setq a (plv-vers-dessin (plv-cadre p) 0.0 45.0) b (plv-vers-dessin (plv-cadre p) 100.0 45.0))
  (if (= genre "LWPOLYLINE")
    (entmake (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(100 . "AcDbPolyline") '(90 . 2) '(70 . 0)
                   (list 10 (car a) (cadr a)) '(42 . 0.2) (list 10 (car b) (cadr b)) '(42 . 0.0)))
    (progn
      (entmake '((0 . "POLYLINE") (66 . 1) (10 0.0 0.0 0.0) (70 . 0)))
      (entmake (list '(0 . "VERTEX") (list 10 (car a) (cadr a) 0.0) '(42 . 0.2)))
      (entmake (list '(0 . "VERTEX") (list 10 (car b) (cadr b) 0.0)))
      (entmake '((0 . "SEQEND")))))
  (setq e (if (= genre "POLYLINE") (car (plv-entites-du-jeu (ssget "X" '((0 . "POLYLINE"))))) (entlast)) avant (length (plv-entites-du-jeu (ssget "X")))))
(tape ("(CotAutoKavel)" "AEp" "Toutes" "(list e '(1050.0 0.0))" "") "16 cotes.")
((list (combien "44.00") (combien "+1.00") (combien "44.04") (combien "+1.04")) (1 1 1 1))
;; the curve is the project's, and nothing else is left but dimensions and the legend of lines
((list (equal (plv-elements-du-projet p "AEp") (list e)) (- (length (plv-entites-du-jeu (ssget "X"))) avant (length (cotes)) (length (plv-entites-legende-lignes p)))) (T 0))
((mapcar '(lambda (r) (list (plv-reel (car r) 3) (plv-reel (cadr r) 3)))
   (vl-remove-if-not '(lambda (r) (< 49.0 (car r) 61.0)) (plv-lister-altitudes p (list e))))
 (("50.000" "44.000") ("60.000" "44.039")))

;; A change of plane cuts the dimensioned line; the sewer that is cut at the same place has no dimensions and gets none.
(situation "ALineWithoutDimensionsGetsNone")
(preparer
  (plv-projet p "Projet" '((0.0 45.0) (100.0 44.0)))
  (plv-projet p "Assainissement" '((0.0 43.0) (100.0 42.0)))
  (plv-coter p "Projet" (* 0.5 pi) "Hauteurs" (plv-elements p "Projet"))
  (defun cotees (genre) (vl-remove-if-not '(lambda (c) (member (plv-cote-courbe c) (plv-elements p genre))) (plv-cotes-du-profil p)))
  (plv-pc p "A" 50.0 40.0)
  (plv-actualiser (list p)))
((list (> (length (cotees "Projet")) 3) (cotees "Assainissement")) (T nil))
