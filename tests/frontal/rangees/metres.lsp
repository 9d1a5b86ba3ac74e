;; PLV-METRES and PLV-LEGENDE: what they report, draw, write and refuse. The ground falls from 50 to 40 m over 100 m, in
;; sections with planes of their own; a wall of 3 m stands at 40 m in the other ground.

(commun
  (fichier "g.csv" "distance;altitude;nom\n1000;50;A\n1040;46;\n1060;44.5;B\n1100;40;C\n")
  (fichier "mur.csv" "distance;altitude\n0;50\n40;50\n40;47\n70;47\n100;47\n")
  (preparer
    (defun profil (fichier numero point) (setq p (plv-nouveau (strcat "<dossier>" fichier) numero point 10.0 2.5 60.0 nil)))
    (defun projet () (plv-projet p "Projet" '((1000.0 49.5) (1060.0 42.5) (1100.0 39.0))))
    (defun mesurer (classeur hachurer) (setq m (plv-metres nil "Projet" classeur hachurer)))
    (defun combien (genre) (length (plv-entites-du-jeu (ssget "X" (list (cons 0 genre))))))
    (defun groupes ()
      (length (vl-remove-if-not '(lambda (g) (and (= (car g) 350) (entget (cdr g)))) (dictsearch (namedobjdict) "ACAD_GROUP"))))
    (defun numeroter (numero / a) (setq a (entget (entnext p))) (entmod (subst (cons 1 numero) (assoc 1 a) a)))))

(situation "OneCallMeasuresHatchesAndWrites")
(preparer (profil "g.csv" "P1" '(0.0 0.0 0.0)) (projet))
(dit (mesurer "<dossier>m" T) "Profil P1, Projet: " ": juste." "Classeur: <dossier>m.xlsx")
((not (findfile "<dossier>m.xlsx")) nil)
((findfile "<dossier>m.xlsx.nouveau.xlsx") nil)
;; depth 0.5 at the start, 2 at 60 m, 1 at the end; at 40 m 46 - 44.8333
((equal (apply '+ (mapcar 'cadddr (cdadr m)))
        (+ (* 40 0.5 (+ 0.5 1.1666666666666667)) (* 20 0.5 3.1666666666666667) (* 40 0.5 3.0)) 1e-9)
 T)
((list (cadr (cadadr m)) (caddr (plv-dernier (cadr m)))) (0.0 100.0))
((> (combien "HATCH") 0) T)
((cdr (assoc 8 (entget (ssname (ssget "X" '((0 . "HATCH"))) 0)))) "PLV-HACHURES")
;; hatching again replaces the hatches
(preparer (setq n (combien "HATCH")) (mesurer nil T))
((= (combien "HATCH") n) T)
;; without hatches nothing remains in the drawing, not even their groups; the workbook is replaced
(preparer (setq avant (list (combien "HATCH") (groupes) (combien "LWPOLYLINE"))))
(passe (plv-metres '("P1" "P1") "Projet" "<dossier>m.xlsx" nil))
((equal avant (list (combien "HATCH") (groupes) (combien "LWPOLYLINE"))) T)

;; Lines that try the sweep, with the classes that come out; every report must pass its own control.
(situation "UnusualLinesAreMeasuredRight")
(tableau (fichier-terrain preparation classes)
  ;; above the ground, then below
  ("g.csv" (plv-projet p "Projet" '((1000.0 51.0) (1060.0 44.5) (1100.0 39.5))) (0 0 1))
  ;; along the limit of a class
  ("g.csv" (plv-projet p "Projet" '((1000.0 49.0) (1040.0 45.0) (1060.0 43.5) (1100.0 39.0))) (1 1))
  ;; on the ground
  ("g.csv" (plv-projet p "Projet" '((1000.0 50.0) (1040.0 46.0) (1060.0 44.5) (1100.0 40.0))) (0 0))
  ;; through a wall of the ground
  ("mur.csv" (plv-projet p "Projet" '((0.0 45.2) (100.0 45.2))) (6 5 4 3))
  ;; a wall that comes out above the line
  ("mur.csv" (plv-projet p "Projet" '((0.0 48.8) (100.0 46.8))) (2 3 2 1 0 1))
  ;; a drop of the line within a class
  ("mur.csv"
   (plv-attacher p "Projet"
     (list (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 4) (70 . 0)
                       (10 45.0 6.0) (10 60.0 6.0) (10 60.0 5.0) (10 90.0 5.0)))))
   (1))
  ;; a line drawn from right to left
  ("mur.csv" (plv-attacher p "Projet" (list (plv-ligne "0" '(90.0 5.0 0.0) '(50.0 5.0 0.0)))) (1))
  ;; beside a line that was erased
  ("mur.csv"
   (progn
     (plv-projet p "Projet" '((0.0 46.0) (30.0 46.0)))
     (plv-effacer (plv-elements-du-projet p "Projet"))
     (plv-projet p "Projet" '((50.0 46.5) (100.0 46.5))))
   (1))
  ;; a static element that was erased
  ("mur.csv"
   (progn
     (plv-projet p "Projet" '((50.0 46.5) (100.0 46.5)))
     (pl_elem_ponct p "Projet" '(60.0 0.0) (setq e (plv-ligne "0" '(60.0 0.0 0.0) '(60.0 5.0 0.0))))
     (entdel e))
   (1)))
(preparer (profil fichier-terrain "P1" '(0.0 0.0 0.0)) preparation)
(dit (mesurer nil nil) ": juste.")
((mapcar 'car (cdadr m)) classes)

(situation "TheChosenKindCountsWhenThereAreSeveral")
(preparer (profil "g.csv" "P1" '(0.0 0.0 0.0)) (projet) (plv-projet p "Voirie" '((1000.0 49.9) (1100.0 39.9))))
((> (length (cadr (plv-metres nil "Projet" nil nil))) (length (cadr (plv-metres nil "voirie" nil nil)))) T)

(situation "LinesThatOverlapAreSaidSo")
(preparer (profil "g.csv" "P1" '(0.0 0.0 0.0)) (projet))
(dit (mesurer nil nil) (sauf "se recouvrent"))
(preparer (plv-projet p "Projet" '((1020.0 46.0) (1050.0 43.0))))
(dit (mesurer nil nil) "des lignes de projet se recouvrent")

(situation "WhatCannotBeIsSaidBeforehand")
(preparer (profil "g.csv" "P1" '(0.0 0.0 0.0)) (projet) (vl-mkdir "<dossier>d.xlsx"))
(refuse (plv-metres '("P9") "Projet" nil nil) "pas de profil numéro P9")
(refuse (plv-metres nil "Voirie" nil nil) "pas de ligne Voirie sur: P1")
(refuse (plv-metres nil "TN" nil nil) "un genre de projet est attendu")
(refuse (plv-metres nil "Eau" nil nil) "un genre de projet est attendu")
(refuse (plv-metres nil "Projet" "/nulle/part/m.xlsx" nil) "dossier introuvable: /nulle/part")
(refuse (plv-metres nil "Projet" "<dossier>d" nil) "un dossier a ce nom")
(dit (plv-metres nil "Projet" "/proc/m.xlsx" nil) "le classeur n'a pas pu être écrit: /proc/m.xlsx")
(refuse (plv-legende p "AEp" nil) "pas de ligne AEp sur: P1")
((findfile "<dossier>m.xlsx") nil)
((combien "HATCH") 0)

(situation "AWorkbookThatCannotBeReplacedStays")
(fichier "m.xlsx" "the former one")
(preparer
  (profil "g.csv" "P1" '(0.0 0.0 0.0))
  (projet)
  (vl-mkdir "<dossier>m.xlsx.nouveau.xlsx.tmp")
  (vl-mkdir "<dossier>m.xlsx.nouveau.xlsx.tmp/in the way"))
(dit (mesurer "<dossier>m.xlsx" nil) "le classeur n'a pas pu être écrit")
((read-line (open "<dossier>m.xlsx" "r")) "the former one")
((findfile "<dossier>m.xlsx.nouveau.xlsx") nil)

(situation "EveryProfileHasItsSheet")
(preparer (profil "g.csv" "P1" '(0.0 0.0 0.0)) (projet) (profil "g.csv" "P2" '(0.0 500.0 0.0)) (projet))
(tableau (numero titre) ("p1" "p1 (2)") ("A/B" "A_B") ("'[x]:*?'" "_x____") ("" "Profil") ("une rue dont le nom est bien trop long" "une rue dont le nom est bien tr"))
(preparer (numeroter numero))
(dit (mesurer "<dossier>deux.xlsx" nil) "La feuille du profil" " s'appelle " titre "Classeur: ")
(dit (mesurer nil nil) (sauf "s'appelle"))
;; the profile keeps its number
((plv-numero-profil p) numero)

(situation "ALineBesideTheGroundIsSaidSo")
(preparer
  (profil "g.csv" "P1" '(0.0 0.0 0.0))
  (plv-attacher p "Projet" (list (plv-ligne "0" '(200.0 10.0 0.0) '(300.0 10.0 0.0)))))
(dit (mesurer "<dossier>m.xlsx" T) "au droit du terrain")
((findfile "<dossier>m.xlsx") nil)
((combien "HATCH") 0)

(situation "TheLegendStandsBesideTheProfileOnce")
(preparer
  (profil "g.csv" "P1" '(0.0 0.0 0.0))
  (plv-projet p "Projet" '((1000.0 50.5) (1060.0 42.5) (1100.0 33.0)))
  (plv-legende p "Projet" nil)
  (setq r (plv-legende p "Projet" nil)))
((sslength (ssget "X" '((0 . "INSERT") (2 . "PLV_LEGENDE_1_PROJET")))) 1)
((> (cadr (assoc 10 (entget r))) 100.0) T)
;; those of the block are not the drawing's
((combien "HATCH") 0)
(preparer
  (setq e (cdr (assoc -2 (tblsearch "BLOCK" "PLV_LEGENDE_1_PROJET"))) textes nil couleurs nil)
  (while e
    (setq g (entget e))
    (if (= (cdr (assoc 0 g)) "TEXT") (setq textes (cons (cdr (assoc 1 g)) textes)))
    (if (= (cdr (assoc 0 g)) "HATCH") (setq couleurs (cons (cdr (assoc 62 g)) couleurs)))
    (setq e (entnext e))))
((vl-remove-if '(lambda (texte) (member texte textes))
   '("PROFIL P1 - PROJET" "non enterre" "0.00 a 1.00" "au dela de 5.00" "Total" "100.00"))
 nil)
;; colours of the classes, white outside all classes
((reverse couleurs) (7 1 2 3 4 5 6 7))
((cdr (assoc 10 (entget (plv-legende p "Projet" '(10.0 20.0 0.0))))) (10.0 20.0 0.0))
