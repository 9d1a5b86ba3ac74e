;; PLV-OPTIMAL at least cost, and variants side by side. The ground falls 10 % in the mean.

(commun
  (fichier "terrain.csv" "distance;altitude\n0;50\n40;45.5\n60;44.6\n100;40\n")
  (fichier "prix.csv" "ouvrage;valeurs\n# une seule classe\nfouille;5;1;10\nregard;200;50\nchute;30;0,50\n")
  (preparer
    (setq p (plv-nouveau "<dossier>terrain.csv" "P1" '(0.0 0.0 0.0) 10.0 2.5 60.0 nil))
    (defun ligne () (plv-elements-du-projet p "Assainissement"))))

(situation "TheCostIsToldAndTheLineAttached")
(tape ("PLV-OPTIMAL" "A" "Méthode" "Coût" "<dossier>prix.csv" "" "0.8" "3" "Libre" "Libre")
  "2 sommets" "Coût: " "Aucune, quelles que soient ses altitudes, ne coûte moins de " "fouille plus profonde" "regards          2.00 u      200.00        400.00")
((/= (ligne) nil) T)
(tape ("PLV-OPTIMAL" "A" "" "Méthode" "Coût" "<dossier>prix.csv" "" "Contraintes" ";;arrondi;0.05" "" "0.8" "3" "Libre" "Libre")
  "Aucune ligne aux altitudes aussi rondes ne coûte moins")
(dit (plv-metres nil "Assainissement" nil nil) ": juste.")

(situation "BlocksOnTheProfileAreManholes")
(preparer
  (entmake '((0 . "BLOCK") (2 . "REGARD") (70 . 2) (10 0.0 0.0 0.0)))
  (entmake '((0 . "ENDBLK")))
  (setq point (plv-vers-dessin (plv-cadre p) 40.0 45.5))
  (entmake (list '(0 . "INSERT") '(2 . "REGARD") '(66 . 1) (cons 10 point)))
  (entmake (list '(0 . "ATTRIB") (cons 10 point) '(40 . 1.0) '(1 . "R2") '(2 . "NOM") '(70 . 0)))
  (entmake '((0 . "SEQEND"))))
(tape ("PLV-OPTIMAL" "A" "Méthode" "Coût" "<dossier>prix.csv" "" "0.8" "3" "Libre" "Libre") "3 sommets" "40.000      45.500      44.700      44.700")

(situation "PricesAreRefusedByTheirLine")
(tableau (rangees dit-on)
  ("fouille;2;1\n" "ligne 1 illisible: \"fouille;2;1\"; fouille;jusqu'à la profondeur;largeur;prix du m3 attendu")
  ("mur;2\n" "un prix est attendu: nom;valeurs, le nom étant fouille, blindage, regard, chute, pompage, espacement")
  ("# rien\n" "aucun prix") ("regard;200\n" "les prix n'ont pas de ligne fouille")
  ("fouille;2;1;10\nfouille;4;1;5\n" "la fouille jusqu'à 4.00 m vient après une classe plus profonde ou plus chère")
  ("fouille;2;1;10\nregard;1\nregard;2\n" "les prix ont deux lignes regard"))
(preparer (setq f (open "<dossier>mauvais.csv" "w")) (princ rangees f) (close f))
(tape ("PLV-OPTIMAL" "A" "Méthode" "Coût" "<dossier>mauvais.csv" "" "0.8" "3" "Libre" "Libre") dit-on)
((ligne) nil)

(situation "NoLineArrives")
(tape ("PLV-OPTIMAL" "A" "Méthode" "Coût" "<dossier>prix.csv" "" "Contraintes" ";;pente;0;1;monte" "" "0.8" "1.2" "Libre" "Libre")
  "se contredisent; il manque")
(tape ("PLV-OPTIMAL" "A" "Méthode" "Coût" "<dossier>prix.csv" "" "Contraintes" ";;arrondi;0.01;0.1" "" "0.8" "1.2" "Libre" "Libre")
  "entre des regards les pentes ne s'arrondissent pas")
((ligne) nil)

;; Variants stay beside the line; the one that is chosen replaces it with the same vertices, over several planes too.
(situation "VariantsAreComparedAndOneIsChosen")
(preparer
  (setq l (plv-optimal-sommets p "Assainissement" (plv-souhait '(0.0) '(100.0) 0.8 1.2 nil nil) nil))
  (setq avant (ligne))
  (defun sur (calque) (if (setq j (ssget "X" (list (cons 8 calque)))) (sslength j) 0)))
(tape ("PLV-OPTIMAL" "A" "Remplacer" "Variante" "0.8" "1.2" "Libre" "Libre" "Non") "La ligne sera gardée comme variante." "Variante 1 sur le calque PLV-VARIANTE-1.")
(tape ("PLV-OPTIMAL" "A" "Remplacer" "Méthode" "Coût" "<dossier>prix.csv" "" "Variante" "0.8" "3" "Libre" "Libre") "Variante 2 sur le calque PLV-VARIANTE-2.")
((equal (ligne) avant) T)
((> (sur "PLV-VARIANTE-1") 0) T)
((equal (plv-variante-suites p (car (plv-variantes p))) (list l) 1e-6) T)
(tape ("PLV-VARIANTES" "7" "1") "Sommets       4" "Coût       2" "Il n'y a pas de variante 7." "La variante 1 est la ligne Assainissement.")
((vl-some 'entget avant) nil)
((+ (sur "PLV-VARIANTE-1") (sur "PLV-VARIANTE-2")) 0)
((plv-variantes p) nil)
(tape ("PLV-VARIANTES") "n'a pas de variante")

(situation "NoMoreVariantsThanLayers")
(preparer (repeat 6 (plv-variante-dessiner p "Assainissement" '(((0.0 49.0) (100.0 39.0))) "Sommets" nil)))
(tape ("PLV-OPTIMAL" "A" "Variante" "0.8" "1.2" "Libre" "Libre") "le profil a déjà 6 variantes")
(tape ("PLV-VARIANTES" "Effacer") "n°")
((plv-variantes p) nil)
