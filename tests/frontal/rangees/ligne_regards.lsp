;; The table of a line with a network: manholes as columns at vertices and as rows between them, pipes behind them. The ground falls from 50 to 46 over
;; 50 m from station 100; the line has a vertex at 125, manholes stand at 100, 125, 140 and 150.

(commun
  (fichier "g.csv" "distance;altitude\n100;50\n125;49\n150;46\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "1" nil 10.0 2.5 nil '((0.0 30.0))))
    (plv-projet p "Assainissement" '((100.0 48.0) (125.0 47.0 60.0) (150.0 44.0)))
    (plv-reseau-ecrire p "Assainissement"
      '("regard;R1;100;visite;1000" "regard;R2;125;visite;1000" "regard;R3;140;visite;800" "regard;R4;150;visite;1000;46.2"
        "tuyau;R1;R2;300/400;béton" "tuyau;R2;R3;300/400;béton" "tuyau;R3;R4;400/500;PVC"))
    (setq h (plv-handle p) g "Assainissement")
    (defun lignes () (plv-bureau-oublier) (mapcar '(lambda (r) (list (car r) (nth 4 r))) (plv-bureau-ligne h g)))
    (defun valeur (qui champ) (plv-cle champ (mapcar 'cons (append (plv-champs) (plv-regards-champs)) (cadr (assoc qui (lignes))))))
    (defun colonne (champ) (mapcar '(lambda (r) (valeur (car r) champ)) (lignes)))
    (defun corriger (changements) (plv-table-corriger p g changements))))

(situation "ManholesAreColumnsAndRows")
((mapcar 'car (lignes)) (1 2 "R3" 3))
((colonne "Regard") ("R1" "R2" "R3" "R4"))
((colonne "Tampon") ("50.000" "49.000" "47.200" "46.2"))
((colonne "Tuyau") ("300/400" "300/400" "400/500" ""))
((colonne "Station") ("100.000" "125.000" "140.000" "150.000"))
((valeur "R3" "Altitude") "45.200")
((valeur "R3" "Entree") "")
;; what stays in the row of a manhole is the line's
((mapcar '(lambda (i) (nth i (append (plv-champs) (plv-regards-champs)))) (nth 5 (nth 2 (plv-bureau-ligne h g))))
 ("Altitude" "Profondeur" "Entree" "Sortie" "Longueur" "Rayon" "Raccordement" "Forme" "Debut" "Fin" "Extremum"))
;; a kind without a network has the line's columns alone
(preparer (plv-projet p "Voirie" '((100.0 49.0) (150.0 45.0))))
((length (plv-bureau-champs h "Voirie")) 12)

(situation "CellsChangeLineAndNetworkTogether")
((corriger '((2 "Station" "127") (2 "Tuyau" "400/500") ("R3" "Type" "avaloir") ("R3" "Station" "141") (3 "Tampon" ""))) T)
((colonne "Station") ("100.000" "127.000" "141.000" "150.000"))
((colonne "Tuyau") ("300/400" "400/500" "400/500" ""))
((valeur "R3" "Type") "avaloir")
((valeur 3 "Tampon") "46.000")
;; a name makes a manhole at a vertex, cuts the pipe there, and no name takes one away
(preparer (plv-ligne-editer p g '(lambda (suites sol) (plv-ligne-inserer suites 10.0 nil))))
((valeur 2 "Regard") "")
((corriger '((2 "Regard" "R1b"))) T)
((colonne "Regard") ("R1" "R1b" "R2" "R3" "R4"))
((colonne "Tuyau") ("300/400" "300/400" "400/500" "400/500" ""))
((corriger '((2 "Regard" "N"))) T)
((corriger '(("R3" "Regard" ""))) T)
((colonne "Regard") ("R1" "N" "R2" "R4"))
((mapcar 'plv-tuyau-a (plv-reseau-tuyaux (plv-reseau-lu p g))) ("N" "R2" "R4"))

;; So it does when the vertex is dragged.
(situation "AManholeGoesWithItsVertex")
(tape ("PLV-TIRER" "Assainissement" "2" "(plv-vers-dessin (plv-cadre p) 22.0 46.5)" "") (sauf "Erreur"))
((colonne "Regard") ("R1" "R2" "R3" "R4"))
((equal (atof (valeur 2 "Station")) 122.0 0.6) T)

;; Nothing changes where one of them can't be; it is told while it is typed.
(situation "WhatCantBeIsToldAndNothingChanges")
(tableau (changements attendu)
  (((2 "Regard" "R1")) "rangée 3, \"regard;R1;125;visite;1000\": le nom R1 est déjà celui d'un autre regard")
  (((1 "Altitude" "47.5") (3 "Tuyau" "300/400")) "pas de tuyau après le regard R4")
  ((("R3" "Station" "loin")) "une station est attendue")
  ((("R9" "Type" "visite")) "pas de regard R9")
  (((1 "Altitude" "x") (1 "Type" "visite")) "un nombre est attendu"))
((plv-bureau-ligne-faute h g 'changements) attendu)
(refuse (corriger 'changements) attendu)
((valeur 1 "Altitude") "48.000")

;; Where a curve begins, ends and is level is changed as well as its radius.
(situation "TangentPointsAndCrownsAreTyped")
(preparer (plv-projet p "Voirie" '((100.0 47.0) (125.0 48.0 ("P" "L" 10.0)) (150.0 46.0))))
(tableau (champ texte attendu)
  ("Debut" "0+115" ("115.000" "135.000" "121.667")) ("Fin" "129" ("121.000" "129.000" "123.667")) ("Extremum" "123,0" ("119.000" "131.000" "123.000")))
(passe (plv-sommets-corriger p "Voirie" '((2 champ texte))))
((mapcar '(lambda (n) (substr (nth n (nth 4 (nth 1 (plv-bureau-ligne h "Voirie")))) 1 7)) '(9 10 11)) attendu)

(situation "TangentPointsOnTheOtherSideAreRefused")
(preparer (plv-projet p "Voirie" '((100.0 47.0) (125.0 48.0 ("P" "L" 10.0)) (150.0 46.0))))
(tableau (champ texte attendu)
  ("Debut" "126" "ce n'est pas de ce côté du sommet") ("Extremum" "126" "ce n'est pas de ce côté du sommet") ("Debut" "90" "se chevauchent"))
(refuse (plv-sommets-corriger p "Voirie" '((2 champ texte))) attendu)

;; A list of a spreadsheet is sorted by station.
(situation "WhatIsPastedIsSorted")
(passe (plv-sommets-remplacer p "Voirie" '("station;altitude" "150;45" "100;49" "120;48") "collé"))
((mapcar 'car (car (plv-lire-ligne p "Voirie"))) (0.0 20.0 50.0))
