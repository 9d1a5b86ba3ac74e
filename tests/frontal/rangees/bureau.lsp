;; What the window says of the entity under the cursor. The profile has stations from 100 to 200 m at ten times, drawn from (1000, 500)
;; over planes at 45 and, from 160 m on, at 40.

(commun
  (fichier "b.csv" "station;altitude\n100;50\n150;50\n200;48\n")
  (preparer
    (setq p (plv-nouveau "<dossier>b.csv" "1" '(1000.0 500.0 0.0) 10.0 2.5 150.0 '((0.0 45.0) (60.0 40.0))))
    (defun mots (e x y) (plv-bureau-survol (plv-handle e) x y))
    (defun en-projet (genre e) (plv-attacher p genre (list e)) e)))

(situation "LinesTellWhereTheyAreAndHowTheyRun")
;; 4.6 % down from 51 m at the start of the profile.
(preparer
  (setq v1 (en-projet "Voirie" (plv-ligne "0" '(1000.0 560.0 0.0) '(1060.0 532.4 0.0)))
        v2 (en-projet "Voirie" (plv-ligne "0" '(1060.0 582.4 0.0) '(1100.0 564.0 0.0)))
        lignes (plv-entites-du-jeu (ssget "X" '((0 . "LINE"))))))
((mots v1 1020.0 551.0) "Ligne Voirie, PK 0+120.00, altitude 50.08, pente -4.60 %")
((mots v2 1080.0 573.0) "Ligne Voirie, PK 0+180.00, altitude 47.32, pente -4.60 %")
;; beside its end, within the pick box
((mots v1 1060.3 532.0) "Ligne Voirie, PK 0+160.00, altitude 48.24, pente -4.60 %")
((vl-remove nil (mapcar '(lambda (e / m) (if (wcmatch (setq m (mots e 1080.0 580.0)) "Terrain*") m)) (reverse lignes)))
 ("Terrain naturel, PK 0+150.00, altitude 50.00, pente 0.00 %" "Terrain naturel, PK 0+160.00, altitude 49.60, pente -4.00 %"
  "Terrain naturel, PK 0+180.00, altitude 48.80, pente -4.00 %"))
((mots p 0.0 0.0) "Profil 1, PK 0+100.00 à PK 0+200.00")
((mapcar '(lambda (e) (mots e 0.0 0.0)) (plv-entites-plans p))
 ("Plan de comparaison 45.00, PK 0+100.00 à PK 0+160.00" "Plan de comparaison 40.00, PK 0+160.00 à PK 0+200.00"))

(situation "OneOfSeveralProfilesIsNamed")
(preparer
  (plv-nouveau "<dossier>b.csv" "2" '(1000.0 900.0 0.0) 10.0 2.5 150.0 '((0.0 45.0)))
  (setq v (en-projet "AEp" (plv-ligne "0" '(1000.0 560.0 0.0) '(1060.0 560.0 0.0)))))
((mots v 1030.0 560.0) "Ligne AEp du profil 1, PK 0+130.00, altitude 51.00, pente 0.00 %")

(situation "OtherEntitiesTellTheirKindAndLayer")
(preparer
  (setq l (plv-ligne "0" '(0.0 0.0 0.0) '(9.0 9.0 0.0)) c (entmakex '((0 . "CIRCLE") (8 . "VOIES") (10 0.0 0.0 0.0) (40 . 2.0)))
        texte (plv-texte "0" '(0.0 0.0 0.0) 2.5 "rue du Moulin" 0 0.0)))
((mots l 5.0 5.0) "Ligne, calque 0")
((mots c 2.0 0.0) "Cercle, calque VOIES")
((mots texte 2.0 0.0) "Texte « rue du Moulin », calque 0")
((plv-bureau-survol "FFFF" 0.0 0.0) nil)

;; A program without a text is named only.
(situation "EveryCommandIsExplained")
(preparer (defun c:sans-texte () (princ)))
(tape ("AIDE" "PLV-PC") "PLV-PC: Ajoute, modifie ou supprime un plan de comparaison d'un profil.")
(tape ("AIDE" "CUBPL") "CUBPL: Ouvre le métré")
(tape ("AIDE" "SANS-TEXTE") "SANS-TEXTE: commande d'un programme AutoLISP.")
