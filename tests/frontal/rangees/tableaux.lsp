;; PLV-MATRICES: cells, the replacing of tables, points that stand too close, the rows of project lines, of the plan and of
;; blocks. The profile is that of profil.lsp.

(commun
  (fichier "g.csv" "distance;altitude;nom\n100;50;A\n110;51;\n120;49.5;B\n130;37.5;\n150;36;C\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "12" '(1000.0 500.0 0.0) 10.0 2.5 150.0 nil))
    (defun textes (motif / s) (if (setq s (ssget "X" (list '(0 . "TEXT") (cons 1 motif)))) (sslength s) 0))))

(situation "AreFilledAndReplaced")
(fichier "t.txt" "T - 2.0 0 Numero\nT - 6.0 4 Altitude TN\nT - 2.5 2 Partielles\nT - 5.0 3 Cumulees\nT - 2 10 Reperes\nT - 16 8 Obs\n")
((not (plv-matrices p "<dossier>t.txt" T)) nil)
((textes "49.50") 1)
;; a cumulated distance starts from the first station
((textes "150.00") 1)
;; station of the first named point
((textes "PK 0+100.00") 1)
((textes "B") 1)
(preparer (setq n (sslength (ssget "X"))))
((not (plv-matrices p "<dossier>t.txt" T)) nil)
;; the old table is gone
((= (sslength (ssget "X")) n) T)
;; the rules end one text height to the right of the profile
(preparer (setq filet (entget (cadr (plv-matrice-filets (plv-matrice (car (plv-references-tables p))))))))
((list (cdr (assoc 0 filet)) (distance (cdr (assoc 10 filet)) (cdr (assoc 11 filet)))) ("LINE" 52.5))

(situation "WeedWhatStandsTooClose")
;; 101 points, a metre apart, at 10, 11, 12, 10 ... m
(preparer
  (setq f (open "<dossier>dense.csv" "w") i 0)
  (write-line "d,z" f)
  (repeat 101 (write-line (strcat (itoa i) "," (itoa (+ 10 (rem i 3)))) f) (setq i (1+ i)))
  (close f)
  (setq p (plv-nouveau "<dossier>dense.csv" "13" '(5000.0 500.0 0.0) 10.0 2.5 150.0 nil)))
(fichier "t.txt" "T - 6.0 4 Altitude TN\n")
;; 1.3 text heights are 3.25 m: every fourth point, and both ends
(dit (setq r (plv-matrices p "<dossier>t.txt" nil)) "26 points cotés, 75 laissés")
((not r) nil)
(dit (setq r (plv-matrices p "<dossier>t.txt" T)) "101 points cotés.")
((not r) nil)

(situation "DefinitionsInAFolderWithAccents")
;; whatever the locale: the tests run in that of C
(fichier "t.txt" "T - 6.0 4 Altitude TN\n")
(preparer
  (vl-mkdir "<dossier>Etude été")
  (vl-file-copy "<dossier>t.txt" "<dossier>Etude été/définitions.txt"))
((not (plv-matrices p "<dossier>Etude été/définitions.txt" nil)) nil)

(situation "LayersAreFoundAgain")
(fichier "t.txt" "T - 6.0 4 Altitude TN\n")
(preparer
  (defun sur (calque / s) (if (setq s (ssget "X" (list (cons 8 calque)))) (sslength s) 0))
  (plv-matrices p "<dossier>t.txt" T)
  (setq bords (sur "PLV-MATRICE") rappels (sur "PLV-RAPPELS"))
  (command "_RENAME" "CA" "PLV-MATRICE" "Tableaux")
  (command "_RENAME" "CA" "PLV-RAPPELS" "Lignes de rappel")
  (setq n (sslength (ssget "X")))
  (plv-matrices p "<dossier>t.txt" T))
((list (= n (sslength (ssget "X"))) (= bords (sur "Tableaux")) (= rappels (sur "Lignes de rappel"))) (T T T))
((list (tblsearch "LAYER" "PLV-MATRICE") (tblsearch "LAYER" "PLV-RAPPELS")) (nil nil))
;; the lines under the ground keep their place in a row that is filled alone
(preparer (plv-choix-profil p) (PL-CPLM "T" 1))
((= n (sslength (ssget "X"))) T)
;; a layer that was purged is made again
(preparer
  (plv-effacer-tables p)
  (command "_PURGE" "CA" "Tableaux" "N")
  (plv-matrices p "<dossier>t.txt" T))
((list (tblsearch "LAYER" "Tableaux") (= bords (sur "PLV-MATRICE")) (= n (sslength (ssget "X")))) (nil T T))

(situation "ATableThatCannotBeFinishedLeavesTheFormerOnes")
(fichier "t.txt" "T - 6.0 4 Altitude TN\n")
(fichier "u.txt" "U - 6.0 4 Altitude TN\nU - 2.0 0 Numero\n")
(preparer
  (plv-matrices p "<dossier>t.txt" T)
  (defun photo () (list (mapcar 'entget (plv-entites-du-jeu (ssget "X")))
                      (vl-remove-if-not 'entget (plv-cles 350 (dictsearch (namedobjdict) "ACAD_GROUP")))))
  (setq avant (photo) bon plv-remplir:numeros)
  (defun plv-remplir:numeros (points contexte) (/ 1 0)))
(refuse (plv-matrices p "<dossier>u.txt" T) "divide by zero")
((equal avant (photo)) T)
((mapcar 'plv-matrice-nom (plv-references-tables p)) ("T"))
(preparer (setq plv-remplir:numeros bon) (plv-matrices p "<dossier>u.txt" T))
((mapcar 'plv-matrice-nom (plv-references-tables p)) ("U"))

(situation "DefinitionsSayWhatIsWrongInThem")
(fichier "t.txt" "Tableaux de la rue\n; 2 lignes\n\nT - 6.0 4 Altitude\nT - 2,5 0 Virgule\nT 2.5 3 Cumulees\nT - 2.5 quatre 4\nT - 2. 4 Point\nT - 2.0 99 Inconnu\nT - 1.5E1 4\nT {a 2} - 2 0 Numero\n")
(dit (setq r (plv-matrices p "<dossier>t.txt" T))
     "ligne 5: hauteur \"2,5\": un nombre est attendu, avec un point décimal"
     "ligne 6: type \"Cumulees\": un nombre est attendu" "ligne 7: type \"quatre\"" "ligne 8: hauteur \"2.\"" "ligne 9: type \"99\" inconnu"
     "Ligne laissée vide: Inconnu." (sauf "ligne 1:" "ligne 2:" "ligne 4:" "ligne 10:" "ligne 11:"))
((length (plv-matrice-rangees (plv-matrice (car (plv-references-tables p))))) 4)

(situation "ZeroHasNoMinus")
(fichier "z.csv" "d,z\n-0.001,50\n10,-0.001\n20,50.004\n40,49.998\n")
(fichier "t.txt" "T - 6.0 6 Profondeur\nT - 6.0 4 Altitude\nT - 6 12 Pentes\nT - 6 14 Pentes\nT - 5 3 Cumulees\n")
(preparer
  (setq p (plv-nouveau "<dossier>z.csv" "2" '(0.0 0.0 0.0) 10.0 2.5 900.0 nil))
  (plv-projet p "Projet" '((-0.001 50.0) (40.0 50.0001)))
  (plv-matrices p "<dossier>t.txt" T))
((list (textes "-0.0*") (textes "+0.0*")) (0 0))
;; three depths, the altitude at 10, the first cumulated distance
((textes "0.00") 5)
((textes "0.00 %") 1)

(situation "DistancesKeepClearOfTheirTicks")
(tableau (texte nombre) ("T - 2.5 2 Partielles\n" 5) ("T - 2.5 16 Projet\n" 3))
(fichier "m.csv" "d,z\n0,50\n4,50\n13,50\n20,50\n20,47\n26,47\n32,47\n33,47\n130,47\n")
(fichier "t.txt" texte)
(preparer
  (setq p (plv-nouveau "<dossier>m.csv" "2" '(0.0 0.0 0.0) 10.0 2.5 900.0 nil))
  (plv-projet p "Projet" '((0.0 49.0) (3.0 48.8) (40.0 48.0) (47.0 47.0) (130.0 46.0)))
  (plv-matrices p "<dossier>t.txt" nil)
  (defun boite (e / c) (setq c (etendue-tracee (list e))) (append (car c) (cadr c)))
  (setq e (plv-entites-table (car (plv-references-tables p)))
        distances (vl-remove-if-not '(lambda (e) (= (plv-type e) "TEXT")) e)
        traits (mapcar '(lambda (e) (cadr (assoc 10 (entget e)))) (vl-remove-if-not '(lambda (e) (= (plv-type e) "LINE")) e))))
;; the text of each distance is inside its cell
((vl-remove-if-not
   '(lambda (e / b) (setq b (boite e)) (vl-some '(lambda (x) (< (- (car b) 0.3) x (+ (caddr b) 0.3))) traits)) distances)
 nil)
;; a wall takes no tick away, and what is left makes the whole length
((apply '+ (mapcar '(lambda (e) (atof (cdr (assoc 1 (entget e))))) distances)) 130.0)
((length distances) nombre)

(situation "NothingRunsPastTheBorder")
(fichier "t.txt" "T - 4.0 9 Devers\nT - 3.0 12 Pentes\nT - 2.5 16 Partielles\nT - 5.0 17 Cumulees\n")
(preparer
  (plv-devers p '((50 -2.5 -2.5) (125 -2.5 -2.5) (300 2.5 -2.5)))
  (plv-projet p "Projet" '((100.0 49.0) (120.0 48.0)))
  (plv-attacher p "Projet" (list (plv-ligne "0" '(1020.0 600.0 0.0) '(1120.0 640.0 0.0))))
  (plv-matrices p "<dossier>t.txt" T)
  (setq coins (etendue-tracee (append (plv-entites-table (car (plv-references-tables p))) (plv-ajouts-tables p)))))
;; 50 m and a text height
((< (caadr coins) 1052.6) T)

(situation "TitleBlocksGoWithTheirTables")
(fichier "t.txt" "T - 6.0 4 Altitude TN\nU - 2.0 0 Numero\n")
(preparer
  (defun blocs (/ b noms)
    (setq b (tblnext "BLOCK" T))
    (while b (setq noms (cons (cdr (assoc 2 b)) noms) b (tblnext "BLOCK")))
    (length noms))
  (setq avant (blocs))
  (repeat 3 (plv-matrices p "<dossier>t.txt" T)))
((- (blocs) avant) 2)
;; those of a copy stay
(preparer
  (command "_COPY" (ssget "X") "" '(0.0 0.0) '(0.0 -900.0))
  (plv-effacer-tables p))
((- (blocs) avant) 2)
(preparer (plv-effacer-tables (car (vl-remove p (plv-profils)))))
((- (blocs) avant) 0)
