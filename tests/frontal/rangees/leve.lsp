;; PLV-LEVE: a point of the ground corrected, inserted, taken away, named. The ground has 5 points over 50 m from station 100, a wall at
;; 120 m, and a second plane from 130 m on.

(commun
  (fichier "g.csv" "distance;altitude;nom\n100;50;A\n110;51;\n120;49.5;B\n120;47;pied\n130;37.5;\n150;36;C\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "12" '(1000.0 500.0 0.0) 10.0 2.5 150.0 '((0.0 30.0) (30.0 25.0))))
    (defun leve () (mapcar '(lambda (q) (list (car q) (cadr q) (plv-point-nom q))) (plv-points-nommes p)))
    ;; the ground as it is drawn, by the ends of its lines
    (defun traces ()
      (apply 'append (mapcar '(lambda (s) (mapcar '(lambda (e) (mapcar '(lambda (c) (plv-vers-profil-sur (plv-cadre p) s (cdr (assoc c (entget e))))) '(10 11)))
                                                  (plv-lignes-du-plan (plv-section-entite s)))) (plv-sections-de-plan p))))
    ;; whether it is drawn without a gap, point after point of the record
    (defun suivi-p (/ t)
      (setq t (traces))
      (and (vl-every '(lambda (a b) (equal (cadr a) (car b) 1e-5)) t (cdr t))
           (equal (cons (caar t) (mapcar 'cadr t)) (mapcar '(lambda (q) (list (car q) (cadr q))) (plv-points-tn p)) 1e-5)))))

(situation "PointsChangeOneByOne")
(tableau (operation rang attendu)
  ((plv-leve p "C" 110 51.25 nil) 1 (10.0 51.25 ""))
  ((plv-leve p "C" 120.004 49.75 nil) 2 (20.0 49.75 "B"))
  ((plv-leve p "N" 110.0 nil "Seuil") 1 (10.0 51.0 "Seuil"))
  ((plv-leve p "N" 100 nil nil) 0 (0.0 50.0 ""))
  ((plv-leve p "I" 112.5 52 "Bord") 2 (12.5 52.0 "Bord"))
  ((plv-leve p "I" 140.0 36.5 nil) 5 (40.0 36.5 ""))
  ((plv-leve p "S" 110.0 nil nil) 1 (20.0 49.5 "B"))
  ;; where the second plane begins: the ground goes on there without a point
  ((plv-leve p "C" 130 38.5 nil) 4 (30.0 38.5 ""))
  ((plv-leve p "C" 150 35 nil) 5 (50.0 35.0 "C")))
(preparer (setq fait operation))
((eq fait p) T)
((nth rang (leve)) attendu)
((suivi-p) T)
((plv-refus-profil p) nil)

(situation "WhatCantBeSaysWhereThePointsAre")
(refuse (plv-leve p "C" 125.0 47 nil) "il n'y a pas de point du terrain à cette station; ses voisins sont à 120.000 et 130.000")
(refuse (plv-leve p "S" 100.0 nil nil) "le premier et le dernier point font la longueur du profil")
(refuse (plv-leve p "I" 160.0 47 nil) "la station n'est pas dans le profil")
((length (leve)) 6)

(situation "APlaneWhosePointGoesStays")
((eq (plv-leve p "S" 130.0 nil nil) p) T)
((plv-plans p) ((0.0 30.0) (30.0 25.0)))
;; between 47 m at 20 and 36 m at 50
((equal (cadr (nth 3 (traces))) (list 30.0 (- 47.0 (/ 11.0 3.0))) 1e-6) T)
((equal (car (nth 4 (traces))) (list 30.0 (- 47.0 (/ 11.0 3.0))) 1e-6) T)

(situation "WhatCannotBeIsRefused")
(preparer (setq avant (list (leve) (traces))))
(refuse (plv-leve p "C" 115 50 nil) "pas de point du terrain à cette station")
(refuse (plv-leve p "I" 110 50 nil) "déjà un point")
(refuse (plv-leve p "I" 99 50 nil) "la station n'est pas dans le profil")
(refuse (plv-leve p "I" 150.5 50 nil) "la station n'est pas dans le profil")
(refuse (plv-leve p "C" 110 nil nil) "l'altitude du point est attendue")
(refuse (plv-leve p "S" 100 nil nil) "le premier et le dernier point")
(refuse (plv-leve p "S" 150 nil nil) "le premier et le dernier point")
((equal avant (list (leve) (traces))) T)

(situation "TheCommandAsksAndWhatIsMadeOfTheGroundIsStale")
(fichier "t.txt" "T - 6.0 4 Altitude TN\nT - 2.0 0 Numero\n")
(preparer (plv-matrices p "<dossier>t.txt" T))
(tape ("PLV-LEVE" "" "110" "51,5") "Station: 110" "Altitude <51.000>: 51,5" "Terrain naturel: 6 points.")
((cadr (nth 1 (leve))) 51.5)
((mapcar '(lambda (e) (plv-chose-en-mots p (plv-etat-fait e))) (vl-remove-if 'plv-etat-a-jour-p (plv-etats p))) ("Lignes de rappel" "Rangée Altitude TN"))
(tape ("PLV-LEVE" "I" "112" "" "Bord" "PLV-ACTUALISER") "Altitude <51.100>:" "Terrain naturel: 7 points." "mises à jour.")
((nth 2 (leve)) (12.0 51.1 "Bord"))
(tape ("U" "U" "U"))
((list (length (leve)) (cadr (nth 1 (leve)))) (6 51.0))
((suivi-p) T)

;; --- lines of the ground that are dragged

(situation "ADraggedLineTakesItsPointsAlong")
(fichier "t.txt" "T - 6.0 4 Altitude TN\n")
(preparer
  (plv-matrices p "<dossier>t.txt" T)
  (defun ligne (n) (nth n (plv-lignes-du-plan (car (plv-entites-plans p)))))
  (defun tirer (e code dx dy / g q) (setq g (entget e) q (assoc code g)) (entmod (subst (list code (+ (cadr q) dx) (+ (caddr q) dy) 0.0) q g)))
  (defun vieux () (mapcar '(lambda (e) (plv-chose-en-mots p (plv-etat-fait e))) (vl-remove-if 'plv-etat-a-jour-p (plv-etats p)))))
((vieux) nil)
;; the end of the first line: 5 units up are half a metre, 2 m to the right
(preparer (tirer (ligne 0) 11 2.0 5.0))
(dit (plv-etat (list p)) "Terrain dessiné: à mettre à jour: des traits du terrain ont été déplacés ou effacés")
((suivi-p) nil)
((plv-actualiser (list p)) T)
((equal (nth 1 (leve)) '(12.0 51.5 "") 1e-6) T)
((suivi-p) T)
((vieux) nil)
;; a whole line: both its points; the foot of the wall stays
(preparer (command "_.MOVE" (ligne 1) "" '(0.0 0.0) '(0.0 -10.0)))
((plv-actualiser (list p)) T)
((mapcar 'cadr (plv-points-tn p)) (50.0 50.5 48.5 47.0 37.5 36.0))
((suivi-p) T)
;; a line that is erased comes back
(preparer (entdel (ligne 1)))
((vieux) ("Terrain dessiné"))
((plv-actualiser (list p)) T)
((list (suivi-p) (vieux)) (T nil))
;; beyond the neighbour there is no ground
(preparer (tirer (ligne 0) 11 20.0 0.0) (setq avant (leve)))
(dit (plv-actualiser (list p)) "Terrain naturel: un point du terrain a été déplacé au-delà de son voisin, il reprend sa place.")
((list (equal avant (leve)) (suivi-p) (vieux)) (T T nil))

;; After a command the neighbours and the record follow at once, in the same step; what is made of the ground is stale.
(situation "ADraggedPieceTakesItsNeighboursAlongAtOnce")
(fichier "t.txt" "T - 6.0 4 Altitude TN\n")
(preparer
  (plv-matrices p "<dossier>t.txt" T)
  (setq l (plv-lignes-du-plan (car (plv-entites-plans p))) poignees (mapcar 'plv-handle l) avant (leve))
  (defun vieux () (mapcar '(lambda (e) (plv-chose-en-mots p (plv-etat-fait e))) (vl-remove-if 'plv-etat-a-jour-p (plv-etats p)))))
(tape ("MOVE" "(nth 1 l)" "" "0,0" "0,-10") "Profil 12: 2 points déplacés dans le levé." (sauf "Erreur"))
((mapcar 'cadr (plv-points-tn p)) (50.0 50.0 48.5 47.0 37.5 36.0))
((list (suivi-p) (plv-ecarts-terrain p) (vieux)) (T nil ("Lignes de rappel" "Rangée Altitude TN")))
;; the lines are the same entities
((equal (mapcar 'plv-handle (plv-lignes-du-plan (car (plv-entites-plans p)))) poignees) T)
(tape ("U"))
((list (equal (leve) avant) (suivi-p) (vieux)) (T T nil))
(tape ("REDO"))
((list (cadr (nth 1 (plv-points-tn p))) (suivi-p)) (50.0 T))
(tape ("U" "STRETCH" "_C" "1009,690" "1011,720" "" "0,0" "2,5"))
((equal (nth 1 (leve)) '(12.0 51.5 "") 1e-6) T)
((suivi-p) T)
;; where it makes no ground it goes back at once
(tape ("U" "MOVE" "(nth 0 l)" "" "0,0" "5,0") "Terrain naturel: un bout du terrain a été déplacé le long du profil, il reprend sa place.")
((list (equal (leve) avant) (suivi-p)) (T T))
;; the whole profile moved, or copied, is no dragged ground; of a record that has changed, too, the lines are an update's
(tape ("MOVE" "_All" "" "0,0" "30,40" "COPY" "_All" "" "0,0" "0,500") (sauf "Terrain naturel"))
((equal (leve) avant) T)
(preparer (plv-ecrire-terrain p (subst '(10.0 55.0) (assoc 10.0 (mapcar '(lambda (q) (list (car q) (cadr q))) (plv-points-tn p))) (mapcar '(lambda (q) (list (car q) (cadr q))) (plv-points-tn p)))))
(tape ("MOVE" "(nth 2 l)" "" "0,0" "0,2"))
((car (vieux)) "Terrain dessiné")
;; so it is where a program moves a line: its steps are its own
(preparer (plv-actualiser (list p)))
(tape ("(command \"_.MOVE\" (nth 0 (plv-lignes-du-plan (car (plv-entites-plans p)))) \"\" '(0.0 0.0) '(0.0 3.0))"))
((car (vieux)) "Terrain dessiné")

;; A newer survey: planes, line and axis stay; what changed is told, and what was made of the ground is known to be stale.
;; Its ground would look as if it had been dragged the other way.
(situation "ABlockThatIsMovedAloneGoesBack")
(preparer
  (setq l (leve) n (entnext p))
  (defun tout () (mapcar 'entget (append (list n) (plv-entites-du-jeu (ssget "X")))))
  (setq avant (tout)))
(tape ("MOVE" "!p" "" "0,0" "0,10") "Profil 12: son bloc ne va pas sans le reste, il reprend sa place; PLV-PROFIL Déplacer emmène tout." (sauf "dans le levé"))
((equal avant (tout) 1e-9) T)
(tape ("PLV-ACTUALISER"))
((equal l (leve)) T)
;; the step and what put it back are one
(tape ("U" "MOVE" "(list p (car (plv-entites-plans p)))" "" "0,0" "7,3") "son bloc ne va pas sans le reste")
((equal (plv-origine p) '(1000.0 500.0 0.0) 1e-9) T)
;; so does a plane, alone or with the other one; one that PLV-PC changes stays
(preparer (setq avant (tout)))
(tape ("MOVE" "(list (cadr (plv-entites-plans p)))" "" "0,0" "3,-4") "Profil 12: un plan ne va pas sans le profil, il reprend sa place; PLV-PC le change.")
((equal avant (tout) 1e-9) T)
(tape ("PLV-PC" "M" "130" "24" "PLV-PC" "A" "140" "23") (sauf "reprend"))
((mapcar 'cadr (plv-plans p)) (30.0 24.0 23.0))
(tape ("U" "U") (sauf "reprend"))
;; a copy of it has no ground of its own, and may go anywhere
(tape ("COPY" "!p" "" "0,0" "0,500") (sauf "son bloc"))
((equal (mapcar 'plv-origine (plv-profils)) '((1000.0 500.0 0.0) (1000.0 1000.0 0.0)) 1e-9) T)

;; What a program moves is taken up by the update, which says what it does to the survey.
(situation "TheUpdateSaysThatItChangesTheSurvey")
(preparer (setq g (entget (car (plv-lignes-du-plan (car (plv-entites-plans p)))))) (entmod (subst (mapcar '+ (assoc 10 g) '(0 0.0 5.0 0.0)) (assoc 10 g) g)))
(dit (plv-actualiser (list p)) "Profil 12: 1 point déplacé dans le levé.")
((cadr (car (leve))) 50.5)

(situation "ANewerSurveyTakesThePlaceOfTheGround")
(fichier "neuf.csv" "distance;altitude;nom\n100;50;A\n110;51.25;\n115;50.5;Seuil\n120;49.5;B\n120;47;pied\n150;36;C\n")
(fichier "ailleurs.csv" "distance;altitude\n90;50\n150;36\n")
(fichier "court.csv" "distance;altitude\n100;50\n125;36\n")
(preparer (plv-projet p "Projet" '((100.0 48.0) (150.0 35.0))) (plv-coter p "Projet" 0.0 "Toutes" (plv-elements-du-projet p "Projet")) (setq plans (plv-plans p)))
(dit (plv-remplacer-leve p "<dossier>neuf.csv")
  "Levé remplacé: 6 points au lieu de 6; 1 de plus, 1 de moins, 1 à une autre altitude, de 0.250 m au plus, à la station 110.00.")
((cadr (leve)) (10.0 51.25 ""))
((caddr (leve)) (15.0 50.5 "Seuil"))
((equal (plv-plans p) plans) T)
((suivi-p) T)
((length (plv-elements-du-projet p "Projet")) 2)
((mapcar 'plv-etat-valeur (vl-remove-if 'plv-etat-a-jour-p (plv-etats p))) ("a-refaire" "a-refaire"))
(refuse (plv-remplacer-leve p "<dossier>ailleurs.csv") "ce levé commence à la station 90.00, le profil à 100.00: il en faut un nouveau")
(refuse (plv-remplacer-leve p "<dossier>court.csv") "le terrain finit avant le plan de comparaison qui commence à 30.00 m")
((length (leve)) 7)
(tape ("PLV-LEVE" "R" "<dossier>neuf.csv") "0 de plus, 0 de moins, 0 à une autre altitude.")
