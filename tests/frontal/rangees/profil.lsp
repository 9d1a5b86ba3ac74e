;; PLV-NOUVEAU: what it stores, what the module reads back, what it draws and refuses; the audit of the records.
;; The ground has a drop that asks for a second plane at the given height limit.

(commun
  (fichier "g.csv" "distance;altitude;nom\n100;50;A\n110;51;\n120;49.5;B\n130;37.5;\n150;36;C\n")
  (preparer (setq p (plv-nouveau "<dossier>g.csv" "12" '(1000.0 500.0 0.0) 10.0 2.5 150.0 nil))))

(situation "IsStoredAsTheModuleReadsIt")
((pl_InfosTn p) (5.0 50.0 0.0))
((pl_PointTn p 3) (30.0 37.5 0.0))
((plgxd p "ECHV") 10.0)
((plgxd p "DCUMDEB") 100.0)
((plgxd p "ID") 1)
((plv-numero-profil p) "12")
;; two planes, chained, that cover the length
((mapcar 'car (plv-plans p)) (0.0 30.0))
((plgxd (plgxd (plgxd p "PRPC") "NEXT-PC") "DISTANCE") 20.0)
((plgxd (plgxd (plgxd p "PRPC") "NEXT-PC") "NEXT-PC") nil)
;; the first section has three ground lines, the last of which ends the chain
((plgxd (plgxd (plgxd (plgxd (plgxd p "PRPC") "PRLI") "NEXTLI") "NEXTLI") "NEXTLI") nil)
((length (vl-remove nil (mapcar '(lambda (k) (plgxd p k)) (plv-cles-genres)))) 7)
((plv-noms-tn p) ("A" "" "B" "" "C"))

(situation "DrawsTheGroundInEachSection")
;; The one line of the second section: from (30, 37.5) to (50, 36) over its own plane.
(preparer (setq pc (plgxd (plgxd p "PRPC") "NEXT-PC") l (entget (plgxd pc "PRLI"))))
((equal (cdr (assoc 10 l)) (list 1030.0 (+ 500.0 (* 10.0 (- 37.5 (plgxd pc "PC")))) 0.0) 1e-9) T)
((equal (cdr (assoc 11 l)) (list 1050.0 (+ 500.0 (* 10.0 (- 36.0 (plgxd pc "PC")))) 0.0) 1e-9) T)

(situation "IsPickedByTheWordsOfItsTitle")
(preparer
  (defun place (etiquette) (cdr (assoc 10 (plv-attribut-profil p etiquette))))
  (defun pris (etiquette) (eq p (ssname (ssget (mapcar '+ (place etiquette) '(1.0 1.0 0.0))) 0))))
((pris "TITRE") T)
((pris "NUMPL") T)
;; the number stands to the right of the words
((< (car (place "TITRE")) (car (place "NUMPL"))) T)

(situation "RefusesWhatCannotBe")
(preparer (setq derniere (entlast)))
(refuse (plv-nouveau "<dossier>g.csv" "12" nil nil nil nil nil) "déjà un profil numéro 12")
(refuse (plv-nouveau "<dossier>g.csv" "2" nil -1.0 nil nil nil) "nombres positifs")
(refuse (plv-nouveau "<dossier>g.csv" "2" nil nil nil nil '((5.0 10.0))) "commence à la distance 0")
(refuse (plv-nouveau "<dossier>g.csv" "2" nil nil nil nil '((0.0 10.0) (60.0 9.0))) "une distance dans le profil")
((eq (entlast) derniere) T)

(situation "AsksForWhatItNeeds")
(tape ("PLV-NOUVEAU" "<dossier>g.csv" "7" "10,20" "" "" "" "S" "25" "20" "12" "")
  "\nFichier du terrain naturel: " "\nNuméro du profil <2>: " "\nPoint d'insertion <0,0>: " "\nÉchelle verticale <10.00>: "
  "\nHauteur de texte <2.50>: " "\nHauteur dessinée maximale <150.00>: "
  "\nPlans de comparaison [Automatiques/Saisis] <Automatiques>: " "\nAltitude du plan à partir de 0.00: ")
((plv-plans (plv-profil-de-numero "7")) ((0.0 25.0) (20.0 12.0)))

(situation "TheAuditNamesWhatIsBroken")
(tableau (degat sain code)
  (nil T "")
  ((entdel (plgxd p "HTN")) nil "P02")
  ((entdel (plgxd (plgxd p "PRPC") "PRLI")) nil "P02")
  ((plsxd (plgxd (plgxd p "PRPC") "NEXT-PC") "NEXT-PC" (plgxd p "PRPC")) nil "P03")
  ((plsxd (plgxd (plgxd p "PRPC") "PRLI") "NEXTLI" (plgxd (plgxd p "PRPC") "PRLI")) nil "P03")
  ((plsxd p "PRPC" 5) nil "P02")
  ((entdel (car (plv-references-tables p))) nil "P06")
  ((entmod (append (vl-remove-if '(lambda (g) (= (car g) -3)) (entget p)) '((-3 ("KELMONT_PLV2"))))) nil "P05"))
(fichier "t.txt" "T - 6.0 4 Altitude TN\n")
(preparer (plv-matrices p "<dossier>t.txt" T) degat)
(dit (setq constats (plv-audit)) code)
((= constats 0) sain)

;; Profiles D and "rue 2" beside 1, each 300 units above the other: the first letters of "Dernier", and a blank.
(situation "AProfileIsChosenByNumberPickOrEnter")
(fichier "c.csv" "0;50\n100;49\n")
(preparer
  (setq un (plv-nouveau "<dossier>c.csv" "1" '(3000.0 500.0 0.0) 10.0 2.5 150.0 '((0.0 45.0)))
        dd (plv-nouveau "<dossier>c.csv" "D" '(3000.0 800.0 0.0) 10.0 2.5 150.0 '((0.0 45.0))))
  (defun choisi (/ p) (if (setq p (plv-choisir-profil)) (plv-numero-profil p))))
(demande (choisi) ("1") "1")
(demande (choisi) ("d") "D")
(demande (choisi) ("") "D")
(demande (choisi) ("3050,545") "1")
(demande (choisi) ("3050,845") "D")
(demande (choisi) ("(list un '(3000.0 500.0 0.0))") "1")
(preparer (plv-choix-profil un))
(demande (list (choisi) (plv-numero-courant)) ("") ("1" "1"))
(demande (choisi) ("7") nil)
(tape ("(choisi)" "7") "pas de profil numéro 7")
(tape ("(choisi)" "3500,9000") "il n'y a rien à cet endroit")
(preparer (plv-ligne "0" '(5000.0 0.0 0.0) '(6000.0 0.0 0.0)))
(tape ("(choisi)" "5500,0") "il n'y a pas de profil à cet endroit")
(preparer (plv-nouveau "<dossier>c.csv" "rue 2" '(3000.0 1100.0 0.0) 10.0 2.5 150.0 '((0.0 45.0))))
(demande (choisi) ("rue 2") "rue 2")
(demande (choisi) ("") "1")
(preparer (entdel un))
(demande (list (choisi) (plv-numero-courant)) ("") ("rue 2" nil))
