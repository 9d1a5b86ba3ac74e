;; What follows from what: PLV-ETAT names what an edit has made untrue, and nothing else; PLV-ACTUALISER makes it anew, in one step.
;; The ground has 5 points over 50 m, in two sections; its tables have a row of each source.

(commun
  (fichier "g.csv" "distance;altitude;nom\n100;50;A\n110;51;\n120;49.5;B\n130;37.5;\n150;36;C\n")
  (fichier "t.txt" "T - 6.0 4 Altitude TN\nT - 2.0 0 Numero\nT - 2.5 2 Partielles\nT - 16 8 Obs\nT - 6.0 6 Profondeur\nU - 6.0 14 {Projet} Pentes\nU - 6 11 {COTE} Cote\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "12" '(1000.0 500.0 0.0) 10.0 2.5 150.0 '((0.0 30.0) (30.0 25.0))))
    (entmake '((0 . "BLOCK") (2 . "REGARD") (70 . 2) (10 0.0 0.0 0.0)))
    (entmake '((0 . "ENDBLK")))
    (defun regard (x cote)
      (entmake (list '(0 . "INSERT") '(66 . 1) '(2 . "REGARD") (list 10 x 600.0 0.0)))
      (entmake (list '(0 . "ATTRIB") (list 10 x 600.0 0.0) '(40 . 1.0) (cons 1 cote) '(2 . "COTE") '(70 . 0)))
      (entmake '((0 . "SEQEND")))
      (entlast))
    (setq r (regard 1005.0 "12.5"))
    (plv-projet p "Projet" '((100.0 48.0) (120.0 46.0) (150.0 33.0)))
    (plv-projet p "AEp" '((100.0 47.0) (150.0 32.0)))
    (plv-matrices p "<dossier>t.txt" T)
    (plv-coter p "Projet" (* 0.5 pi) "Toutes" (plv-elements-du-projet p "Projet"))
    (plv-metres nil "Projet" "<dossier>m.xlsx" T)
    (plv-legende p "Projet" nil)
    (plv-export-terrain p "<dossier>tn.csv")
    ;; the first straight piece of the line, its first vertex raised
    (setq ligne (car (plv-elements-du-projet p "Projet")))
    (defun deplacer (e dy / g q) (setq g (entget e) q (assoc 10 g)) (entmod (subst (list 10 (cadr q) (+ (caddr q) dy)) q g)))
    (defun terrain (n z / i points)
      (setq i -1)
      (plv-ecrire-terrain p (mapcar '(lambda (q) (setq i (1+ i)) (list (car q) (if (= i n) z (cadr q)))) (plv-points-tn p))))
    (defun vieux () (mapcar '(lambda (e) (plv-chose-en-mots p (plv-etat-fait e))) (vl-remove-if 'plv-etat-a-jour-p (plv-etats p))))
    (defun tout-de-rangee (reference rang)
      (cddr (car (et_a_corriger (plv-entites-des-tables p) nil (list (plv-rangee-etude (list reference rang)))))))
    (defun sans-handles (mots) (vl-remove-if '(lambda (m) (wcmatch m "Cotes*")) mots))
    (defun photo () (mapcar 'entget (plv-entites-du-jeu (ssget "X"))))))

(situation "NothingIsStaleAfterTheWork")
((vieux) nil)
(dit (plv-etat (list p)) "Tableaux: à jour" "Hachures Projet: à jour" "Légende Projet: à jour" "Classeur <dossier>m.xlsx: à jour" "Tout est à jour.")
(dit (plv-decrire) "    tout ce qui en est tiré est à jour")

(situation "AnEditMarksWhatIsMadeOfItAndNothingElse")
(tableau (edition marquees)
  ((deplacer ligne 5.0) ("Rangée Profondeur" "Rangée Pentes" "Cotes" "Hachures Projet" "Légende Projet" "Classeur <dossier>m.xlsx"))
  ;; another kind's line: none of them is made of it
  ((deplacer (car (plv-elements p "AEp")) 5.0) ())
  ((entmod (subst '(62 . 3) '(62 . 256) (append (entget ligne) '((62 . 256))))) ())
  ((plv-effacer (plv-elements p "AEp")) ())
  ((regard 1030.0 "7") ("Rangée Cote"))
  ((progn (setq a (entget (entnext r))) (entmod (subst '(1 . "13") (assoc 1 a) a))) ("Rangée Cote"))
  ((entdel r) ("Rangée Cote"))
  ((command "_.MOVE" r "" '(0.0 0.0) '(12.0 0.0)) ("Rangée Cote"))
  ((command "_.MOVE" r "" '(0.0 0.0) '(0.0 12.0)) ())
  ((command "_.MOVE" r "" '(0.0 0.0) '(900.0 0.0)) ("Rangée Cote"))
  ((plv-ecrire-noms p '((0.0 50.0 "A") (10.0 51.0 "") (20.0 49.5 "Seuil") (30.0 37.5 "") (50.0 36.0 "C"))) ("Rangée Obs" "Export <dossier>tn.csv"))
  ((plsxd p "DCUMDEB" 0.0)
   ("Rangée Obs" "Classeur <dossier>m.xlsx" "Export <dossier>tn.csv"))
  ;; the ground of the record: the quantities are measured on what is drawn of it, which follows first
  ((terrain 2 49.0) ("Terrain dessiné" "Lignes de rappel" "Rangée Altitude TN" "Rangée Profondeur" "Cotes" "Export <dossier>tn.csv"))
  ;; tables and legend don't depend on the plane, and PLV-PC moves the reference lines and dimensions
  ((plv-pc p "M" 130.0 22.0) ("Hachures Projet"))
  ((plv-pc p "A" 110.0 28.0) ("Cotes" "Hachures Projet" "Classeur <dossier>m.xlsx")))
(preparer edition)
((plv-uniques (mapcar '(lambda (m) (if (wcmatch m "Cotes*") "Cotes" m)) (vieux))) marquees)
;; and all of it can be made anew
((plv-actualiser (list p)) T)
((vieux) nil)

(situation "AnEditTakenBackLeavesNoMark")
(preparer (setq g (entget ligne)) (deplacer ligne 5.0) (entmod g))
((vieux) nil)
(tape ("MOVE" "(car (plv-elements p \"AEp\"))" "" "0,0" "0,3" "PLV-PC" "A" "110" "28" "U" "U"))
((vieux) nil)

(situation "TheUpdateIsOneStep")
(preparer (deplacer ligne 5.0) (setq avant (photo)))
(tape ("PLV-ACTUALISER") "Classeur: <dossier>m.xlsx" "choses mises à jour.")
((vieux) nil)
((equal avant (photo)) nil)
(tape ("U"))
((equal avant (photo)) T)
((length (sans-handles (vieux))) 5)
;; the edit undone too, only the workbook, which nothing takes back, is another one's
(preparer (deplacer ligne -5.0))
((vieux) ("Classeur <dossier>m.xlsx"))
(preparer (deplacer ligne 5.0))
(tape ("PLV-ACTUALISER" "PLV-ACTUALISER") "Tout était à jour.")

(situation "AFailureLeavesTheDrawingAsItWas")
(preparer
  (deplacer ligne 5.0)
  (setq avant (photo) bon plv-remplir:nombre)
  (defun plv-legende:dessiner (titre colonnes rangees h clarte) (/ 1 0)))
(refuse (plv-actualiser (list p)) "divide by zero")
((equal avant (photo)) T)

(situation "WhatCannotBeMadeAnewSaysWhy")
(preparer (plv-effacer (plv-elements p "Projet")))
(dit (plv-etat (list p)) "Hachures Projet: impossible à mettre à jour: il n'y a plus de ligne Projet" "Cotes d'une courbe effacée: à mettre à jour")
(dit (plv-actualiser (list p)) "Hachures Projet: il n'y a plus de ligne Projet")
((length (plv-cotes-du-profil p)) 0)

(situation "ADefinitionThatChangesOrGoes")
(preparer (setq f (open "<dossier>t.txt" "w")) (write-line "T - 6.0 4 Terrain" f) (close f))
((vieux) ("Tableaux"))
((plv-actualiser (list p)) T)
((vieux) nil)
((mapcar '(lambda (r) (plv-matrice-nombre (plv-matrice r))) (plv-tables p)) (1))
;; without the file the drawing says what its tables are
(preparer (vl-file-delete "<dossier>t.txt") (plsxd p "TTXT" 2.0))
((car (vieux)) "Tableaux")
((plv-actualiser (list p)) T)
((vieux) nil)
((plv-rangee-libelle (plv-rangee (car (plv-tables p)) 0)) "Terrain")

(situation "DrawingsWithoutFactsAreMadeAnewOnce")
(preparer (dictremove (plv-dictionnaire p) "PLV_SUIVI"))
(dit (plv-etat (list p)) "Tableaux: à mettre à jour: fait sans que ses sources soient notées" "Légende Projet: à mettre à jour")
((plv-actualiser (list p)) T)
((vieux) nil)

(situation "ACopyHasAStateOfItsOwn")
(preparer
  (command "_.COPY" "_All" "" '(0.0 0.0) '(0.0 -2000.0))
  (setq c (plv-dernier (plv-profils))))
((plv-actualiser (list c)) T)
((vl-remove-if 'plv-etat-a-jour-p (plv-etats c)) nil)
;; the workbook is the original's
((vl-remove-if-not '(lambda (e) (plv-chose-fichier-p (plv-etat-fait e))) (plv-etats c)) nil)
(preparer (deplacer ligne 5.0))
((list (< 0 (length (vieux))) (vl-remove-if 'plv-etat-a-jour-p (plv-etats c))) (T nil))

;; --- blocks that are placed, moved, given other attributes and erased: their cells follow, of the table and of rows filled by themselves

(situation "CellsFollowTheirBlocks")
(fichier "t.txt" "U - 6 11 {COTE} Cote\nU - 4.0 403 {COTE} Cotes\n")
(preparer
  (defun cotes (rang)
    (mapcar '(lambda (e) (cdr (assoc 1 (entget e))))
      (vl-sort (vl-remove-if-not '(lambda (e) (= (plv-type e) "TEXT")) (tout-de-rangee (car (plv-tables p)) rang)) '(lambda (a b) (< (car (plv-mains:point a)) (car (plv-mains:point b)))))))
  (plv-actualiser (list p)))
((list (cotes 0) (cotes 1)) (("12.5") ("12.5")))
(tableau (edition restent)
  ((regard 1030.0 "7") ("12.5" "7"))
  ((command "_.MOVE" r "" '(0.0 0.0) '(12.0 0.0)) ("12.5"))
  ((entmod (subst '(1 . "13") (assoc 1 (entget (entnext r))) (entget (entnext r)))) ("13"))
  ((command "_.COPY" r "" '(0.0 0.0) '(20.0 0.0)) ("12.5" "12.5"))
  ((command "_.ERASE" r "") ()))
(preparer edition)
((list (length (vieux)) (plv-actualiser (list p)) (vieux)) (2 T nil))
((list (cotes 0) (cotes 1)) (restent restent))

;; --- an update makes anew what has changed only: what else stands in a row is the same entity as before

(situation "ARowKeepsWhatIsTrue")
(fichier "t.txt" "U - 6.0 4 Altitude
U - 6.0 5 {Projet} Projet
U - 3.0 12 {Projet} Pentes
U - 3.0 14 {Projet} Pour cent
")
(preparer
  (plv-effacer-courbes p (plv-elements p "Projet"))
  (plv-projet p "Projet" '((100.0 48.0) (120.0 47.0) (150.0 34.0)))
  (plv-matrices p "<dossier>t.txt" T)
  (defun en-rangee (rang) (tout-de-rangee (car (plv-tables p)) rang))
  (defun nouvelles (rang avant) (length (vl-remove-if '(lambda (e) (member e avant)) (en-rangee rang))))
  (defun combien-neuves (/ avant)
    (setq avant (mapcar 'en-rangee '(0 1 2 3)))
    (plv-actualiser (list p))
    (mapcar 'nouvelles '(0 1 2 3) avant)))
;; nothing has changed: nothing is new
((combien-neuves) (0 0 0 0))
;; a ground point: its cell
(preparer (terrain 1 51.25))
((combien-neuves) (1 0 0 0))
;; one more: a cell where there was none
(preparer (plv-leve p "I" 112.34 49.0 nil))
((list (< 0 (apply '+ (combien-neuves))) (vieux)) (T nil))
;; the first vertex of the line: three cells, and of the first slope a tick at either end, diagonal and words
(preparer (deplacer (car (plv-elements-du-projet p "Projet")) 2.0))
((combien-neuves) (0 3 4 4))
((vieux) nil)
;; a cell that someone erased is written again with the row
(preparer
  (entdel (car (vl-remove-if-not '(lambda (e) (= (plv-type e) "TEXT")) (en-rangee 0))))
  (terrain 2 49.2))
((combien-neuves) (2 0 0 0))
;; rows of which nothing is kept, as of other programs, are filled as a whole once
(preparer (setq nombre (length (en-rangee 0))) (dictremove (plv-dictionnaire (car (plv-tables p))) "PLV_TEXTES_0") (terrain 2 49.5))
((list (plv-actualiser (list p)) (= (length (en-rangee 0)) nombre) (vieux)) (T T nil))

;; --- what a hand has done

(situation "NoHandHasTouchedWhatWasMade")
((list (plv-mains:gestes p (plv-mains:rangees p)) (plv-gestes-cotes p)) (nil nil))
(preparer (plv-pc p "A" 110.0 28.0) (plv-pc p "M" 100.0 20.0) (command "_.MOVE" "_All" "" '(0.0 0.0) '(100.0 50.0)))
((list (plv-mains:gestes p (plv-mains:rangees p)) (plv-gestes-cotes p)) (nil nil))

(situation "WhatAHandDidIsKept")
(preparer
  (defun dit (mots) (ssname (ssget "X" (list '(0 . "TEXT") (cons 1 mots))) 0))
  (defun deplace (e dx dy) (command "_.MOVE" e "" '(0.0 0.0) (list dx dy)))
  (defun ecrire (e mots / g) (setq g (entget e)) (entmod (subst (cons 1 mots) (assoc 1 g) g)))
  (defun place (e) (plv-premiers (cdr (assoc (if (= (+ (cdr (assoc 72 (entget e))) (cdr (assoc 73 (entget e)))) 0) 10 11) (entget e))) 2))
  ;; an altitude of the table moved out of its row, a name written anew, a number coloured, a dimension moved
  (setq z (dit "37.50") za (place z) nom (place (dit "B")) numero (place (dit "3")))
  (deplace z 1.0 -12.0)
  (ecrire (dit "B") "Seuil B")
  (setq g (entget (dit "3"))) (entmod (append g '((62 . 5))))
  (setq c (car (vl-remove-if-not '(lambda (e) (= (plv-cle 1 (entget e)) "46.00")) (plv-cotes-du-profil p))) ca (place c))
  (deplace c 3.0 2.0))
((vieux) nil)
;; the ground changes elsewhere, and the definition: every table is drawn again, its first row higher
(preparer (setq f (open "<dossier>t.txt" "w"))
  (write-line "T - 8.0 4 Altitude TN\nT - 2.0 0 Numero\nT - 16 8 Obs" f) (close f)
  (terrain 1 51.25))
(dit (plv-actualiser (list p)) (sauf "N'a pas pu"))
((equal (mapcar '- (place (dit "37.50")) za) '(1.0 -12.0) 1e-6) T)
((list (= (car (place (dit "Seuil B"))) (car nom)) (ssget "X" '((0 . "TEXT") (1 . "B")))) (T nil))
((cdr (assoc 62 (entget (dit "3")))) 5)
((equal (car (place (car (vl-remove-if-not '(lambda (e) (= (plv-cle 1 (entget e)) "46.00")) (plv-cotes-du-profil p))))) (+ (car ca) 3.0) 1e-6) T)
;; and again, by rows alone; the moved text stands in the row of numbers, which is filled anew
(preparer (terrain 1 51.5))
((sans-handles (vieux)) ("Terrain dessiné" "Lignes de rappel" "Rangée Altitude TN" "Export <dossier>tn.csv"))
((plv-actualiser (list p)) T)
((list (sslength (ssget "X" '((0 . "TEXT") (1 . "37.50")))) (equal (mapcar '- (place (dit "37.50")) za) '(1.0 -12.0) 1e-6)) (1 T))
;; what was written goes where the value itself changes, and the user is told
(preparer (ecrire (dit "49.50") "49.50 env.") (terrain 2 49.0))
(dit (plv-actualiser (list p)) "N'a pas pu être gardé: rangée Altitude TN, texte écrit « 49.50 env. ».")
((list (ssget "X" '((1 . "49.50 env."))) (type (dit "49.00"))) (nil ENAME))
((vieux) nil)

;; two lines have dimensions at the same stations: what was done to one isn't done to the other
(situation "AHandsWorkStaysWithItsCurve")
(preparer
  (plv-coter p "AEp" (* 0.5 pi) "Altitudes" (plv-elements-du-projet p "AEp"))
  (setq aep (car (plv-elements-du-projet p "AEp")))
  (defun de-aep () (vl-remove-if-not '(lambda (c) (eq (plv-cote-courbe c) aep)) (plv-cotes-du-profil p)))
  (defun en-110 (cotes) (car (vl-remove-if-not '(lambda (c) (equal (plgxd c "COTEX") 10.0 0.1)) cotes)))
  (setq c (en-110 (de-aep)))
  (entmod (append (entget c) '((62 . 4))))
  (terrain 0 50.5))
((plv-actualiser (list p)) T)
((mapcar '(lambda (c) (eq (plv-cote-courbe c) aep)) (vl-remove-if-not '(lambda (c) (= (cdr (assoc 62 (entget c))) 4)) (plv-cotes-du-profil p))) (T))
