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
