;; Profiles of a surface: what PLV-TERRAIN asks and makes, the axis and the request that are kept, gaps, refusals, marks.

(commun
  (preparer
    (defun point (x y z) (entmakex (list '(0 . "POINT") '(8 . "TOPO") (list 10 x y z))))
    (defun carre () (mapcar '(lambda (p) (apply 'point p)) '((0.0 0.0 100.0) (100.0 0.0 110.0) (100.0 100.0 110.0) (0.0 100.0 100.0))))
    (defun trace (points) (entmakex (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(8 . "AXE") '(100 . "AcDbPolyline") (cons 90 (length points)) '(70 . 0))
                                            (mapcar '(lambda (p) (cons 10 p)) points))))
    (defun surface (axe / e) (plv-mnt-profil (plv-mnt-demande (list axe) nil 500.0 '(("calques" "TOPO")) nil) "T1" '(0.0 500.0 0.0) 10.0 2.5 nil nil))
    (defun terrain (p) (mapcar '(lambda (q) (list (car q) (cadr q))) (plv-points-tn p)))
    (defun sommets (e) (mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) 10)) (entget e))))))

(situation "FromPointsAndAPolylineToAProfile")
(preparer (carre) (setq a (trace '((0.0 30.0) (100.0 30.0)))))
(tape ("PLV-TERRAIN" "Nouveau" "Dessin" "(ssadd a)" "" "1000" "T" "Calques" "TOPO" "Non" "Continuer" "T1" "0,500" "10" "2.5" "150" "A")
  "Surface: 4 points, 2 triangles." "Profil T1: 2 points, 100.00 m, 1 plan de comparaison.")
(preparer (setq p (plv-profil-de-numero "T1")))
((equal (terrain p) '((0.0 100.0) (100.0 110.0)) 1e-9) T)
((plv-premiere-station p) 1000.0)
;; a polyline along which there is ground from end to end is the axis itself
((eq (plv-axe-plan p) a) T)
((cdr (assoc 300 (member '(1 . "SOURCE") (plv-enregistrement p "PLV_MNT")))) "calques")
((eq (plv-profil-sain p) p) T)

;; The ground begins 50 m along the axis: that place is the profile's origin and the first vertex of its axis.
(situation "ThePointsOfAFileAreProposedAsTheyLie")
(preparer (trace '((700.0 30.0) (800.0 30.0))))
(tableau (texte mot) ("700 0 1\n800 0 2\n750 90 3\n" "XY") ("0 700 1\n0 800 2\n90 750 3\n" "YX") ("0 0 1\n1 0 2\n0 1 3\n" "XY"))
(fichier "p.txt" texte)
((plv-mnt:ordre-propose "<dossier>p.txt") mot)

(situation "AnAxisThatBeginsBesideTheSurface")
(preparer (carre) (setq a (trace '((-50.0 30.0) (150.0 30.0)))))
(dit (setq p (surface a)) "La surface va de la station 550.00 à 650.00 de l'axe, qui va jusqu'à 700.00.")
((plv-premiere-station p) 550.0)
((equal (sommets (plv-axe-plan p)) '((0.0 30.0) (150.0 30.0)) 1e-9) T)
((equal (terrain p) '((0.0 100.0) (100.0 110.0)) 1e-9) T)

(situation "AnAxisTheOtherWayAndOfOtherCurves")
(preparer (carre) (setq a (trace '((0.0 30.0) (100.0 30.0)))
                        l (entmakex '((0 . "LINE") (10 0.0 50.0 0.0) (11 50.0 50.0 0.0))) b (entmakex '((0 . "ARC") (10 50.0 60.0 0.0) (40 . 10.0) (50 . 4.71238898038469) (51 . 0.0)))
                        r (plv-mnt-profil (plv-mnt-demande (list a) T 0.0 '(("calques" "TOPO")) nil) "I" '(0.0 500.0 0.0) nil nil nil nil)
                        c (plv-mnt-profil (plv-mnt-demande (list l b) nil 0.0 '(("calques" "TOPO")) nil) "C" '(0.0 900.0 0.0) nil nil nil nil)))
((equal (terrain r) '((0.0 110.0) (100.0 100.0)) 1e-9) T)
((equal (sommets (plv-axe-plan r)) '((100.0 30.0) (0.0 30.0)) 1e-9) T)
((equal (sommets (plv-axe-plan c)) '((0.0 50.0) (50.0 50.0) (60.0 60.0)) 1e-9) T)
((equal (plv-longueur-profil c) (+ 50.0 (* 5.0 pi)) 1e-6) T)
((length (plv-axe-segments (plv-axe-plan c))) 2)

;; Two squares apart: the ground line between them is there for the tables, and isn't seen; also after a change of plane.
(situation "AGapIsOpen")
(preparer
  (defun face (x) (entmake (list '(0 . "3DFACE") '(8 . "TOPO") (list 10 x 0.0 100.0) (list 11 (+ x 10.0) 0.0 101.0) (list 12 (+ x 10.0) 10.0 101.0) (list 13 x 10.0 100.0))))
  (face 0.0) (face 20.0) (face 30.0)
  (defun cachees (p) (mapcar '(lambda (e) (cdr (assoc 60 (entget e)))) (apply 'append (mapcar 'plv-lignes-du-plan (plv-entites-plans p))))))
(dit (setq p (surface (trace '((0.0 5.0) (40.0 5.0))))) "Pas de surface entre les stations 510.00 et 520.00: laissé ouvert.")
((equal (plv-lacunes p) '((10.0 20.0 0.0)) 1e-9) T)
((cachees p) (nil 1 nil nil nil))
(preparer (plv-pc p "M" 500.0 95.0))
((cachees p) (nil 1 nil nil nil))
;; the wall between the second and the third face
((equal (cdr (cdr (terrain p))) '((20.0 100.0) (30.0 101.0) (30.0 100.0) (40.0 101.0)) 1e-9) T)

(situation "WhatCannotBeDoneIsSaidAndNothingIsMade")
(preparer (carre) (setq a (trace '((0.0 30.0) (100.0 30.0))) b (trace '((1000.0 30.0) (1100.0 30.0))) z (entlast)))
(refuse (plv-mnt-profil (plv-mnt-demande (list b) nil 0.0 '(("calques" "TOPO")) nil) "T" nil nil nil nil nil) "il n'y a pas de surface sous l'axe")
(refuse (plv-mnt-profil (plv-mnt-demande (list a) nil 0.0 '(("calques" "RIEN")) nil) "T" nil nil nil nil nil) "rien sur les calques RIEN")
(refuse (plv-mnt-profil (plv-mnt-demande (list a) nil 0.0 '(("fichier" "absent.csv")) nil) "T" nil nil nil nil nil) "fichier introuvable: absent.csv")
(refuse (plv-mnt-profil (plv-mnt-demande (list a b) nil 0.0 '(("calques" "TOPO")) nil) "T" nil nil nil nil nil) "ne se suivent pas")
(refuse (plv-mnt-profil (plv-mnt-demande (list (ssname (ssget "X" '((0 . "POINT"))) 0)) nil 0.0 '(("calques" "TOPO")) nil) "T" nil nil nil nil nil) "un axe est fait de polylignes")
(tape ("PLV-TERRAIN" "Nouveau" "Dessin" "(ssadd b)" "" "0" "T" "Calques" "TOPO" "Non" "Continuer") "il n'y a pas de surface sous l'axe")
((eq (entlast) z) T)

;; Marks of an earlier look go. What the profiles have drawn is no ground, even when every layer is.
(situation "ContradictionsAreMarked")
(preparer (carre) (point 0.0 0.0 101.0) (surface (trace '((0.0 30.0) (100.0 30.0)))))
(tape ("PLV-TERRAIN" "Contrôler" "Calques" "*" "Non" "2")
  "Surface: 5 points" "1 contradiction d'altitudes" "  0.00, 0.00  deux points au même endroit: 100.000 et 101.000" "1 marque sur le calque PLV-CONTROLE.")
((sslength (ssget "X" '((8 . "PLV-CONTROLE")))) 2)
(preparer (command "_ERASE" (ssget "X" '((0 . "POINT") (10 0.0 0.0 101.0))) ""))
(tape ("PLV-TERRAIN" "Contrôler" "Calques" "TOPO" "Non" "") "Aucune contradiction.")
((ssget "X" '((8 . "PLV-CONTROLE"))) nil)

(situation "LimitsByQuestions")
(preparer (carre) (setq a (trace '((0.0 30.0) (100.0 30.0))) c (trace '((20.0 0.0) (80.0 0.0) (80.0 50.0) (20.0 50.0)))) (entmod (subst '(70 . 1) '(70 . 0) (entget c))))
(tape ("PLV-TERRAIN" "N" "D" "(ssadd a)" "" "0" "T" "C" "TOPO" "N" "CO" "(ssadd c)" "" "TO" "0,05" "A" "200" "C" "T1" "0,500" "10" "2.5" "150" "A") "Profil T1: 2 points, 60.00 m")
((equal (terrain (plv-profil-de-numero "T1")) '((0.0 102.0) (60.0 108.0)) 1e-9) T)

;; A track with altitudes is axis and ground. The drawing's system is asked for the first file that tells its own, and kept.
(situation "ATrackIsAnAxis")
(fichier "t.gpx" "<gpx version=\"1.1\" creator=\"x\" xmlns=\"http://www.topografix.com/GPX/1/1\"><trk><name>Trace</name><trkseg><trkpt lat=\"46.5\" lon=\"3\"><ele>100</ele></trkpt><trkpt lat=\"46.5\" lon=\"3.001\"><ele>101</ele></trkpt></trkseg></trk></gpx>")
(tape ("PLV-TERRAIN" "Nouveau" "Fichier" "<dossier>t.gpx" "2154" "0" "Tracé" "Axe" "Non" "Continuer" "G" "0,0" "10" "2.5" "150" "A")
  "t.gpx: WGS 84." "Système de coordonnées: EPSG:2154 (RGF93 v1 / Lambert-93)." "Profil G: 2 points, 76.69")
((equal (car (sommets (plv-axe-plan (plv-profil-de-numero "G")))) '(700000.0 6600000.0) 1e-3) T)
(refuse (plv-nouveau "<dossier>t.gpx" "2" nil nil nil nil nil) "des points et des lignes en plan; PLV-TERRAIN en fait un profil")
(tape ("PLV-TERRAIN" "Système" "9999999") "système de coordonnées inconnu, ou en degrés: 9999999")
(tape ("PLV-TERRAIN" "Système" "") "Système de coordonnées: EPSG:2154")
(fichier "g.asc" "ncols 2\nnrows 2\nxllcenter 699990\nyllcenter 6599990\ncellsize 100\n100 110\n100 110\n")
(tape ("PLV-TERRAIN" "N" "F" "<dossier>t.gpx" "0" "Inverse" "F" "<dossier>g.asc" "N" "C" "H" "0,500" "10" "2.5" "150" "A") "grille de 2 x 2 altitudes" "Profil H: 2 points, 76.69")
((equal (mapcar 'cadr (terrain (plv-profil-de-numero "H"))) '(108.67 101.0) 0.01) T)

(situation "TheFirstLineOfAFileIsProposed")
(fichier "l.geojson" "{\"type\":\"FeatureCollection\",\"crs\":{\"type\":\"name\",\"properties\":{\"name\":\"urn:ogc:def:crs:EPSG::2154\"}},\"features\":[{\"type\":\"Feature\",\"properties\":{\"nom\":\"Nord\"},\"geometry\":{\"type\":\"LineString\",\"coordinates\":[[0,10],[50,10]]}},{\"type\":\"Feature\",\"properties\":{\"nom\":\"Sud\"},\"geometry\":{\"type\":\"LineString\",\"coordinates\":[[0,20],[80,20]]}}]}")
(preparer (carre))
;; the system that the file tells is proposed for the drawing
(tape ("PLV-TERRAIN" "N" "F" "<dossier>l.geojson" "" "2" "0" "T" "C" "TOPO" "N" "C" "L" "0,500" "10" "2.5" "150" "A") "  1  Nord" "  2  Sud" "Profil L: 2 points, 80.00 m")
((plv-mnt-systeme) "EPSG:2154")
(tape ("PLV-TERRAIN" "N" "F" "<dossier>l.geojson" "3") "il n'y a pas de numéro 3")

;; A point is raised, one is added, the axis grows: the ground, its lines, the tables and the axis follow; what is attached stays.
(situation "TheGroundFollowsItsSurface")
(preparer
  (carre) (setq a (trace '((0.0 30.0) (60.0 30.0))) p (surface a))
  (plv-projet p "Voirie" '((500.0 101.0) (560.0 105.0)))
  (plv-matrices p "<source>/exemples/matrices-route.txt" nil)
  (defun tables (p) (mapcar '(lambda (r) (length (plv-entites-table r))) (plv-tables p)))
  (defun lignes (p) (length (apply 'append (mapcar 'plv-lignes-du-plan (plv-entites-plans p)))))
  (setq tables-avant (tables p) elements (plv-elements p "Voirie")))
(dit (plv-mnt-actualiser p) "Le terrain n'a pas changé.")
((equal (tables p) tables-avant) T)
(preparer (point 40.0 30.0 107.0))
(dit (plv-mnt-actualiser p) "Terrain actualisé: 3 points au lieu de 2, 2 déplacés, de 3.000 m au plus, à la station 540.00.")
((equal (terrain p) '((0.0 100.0) (40.0 107.0) (60.0 108.0)) 1e-9) T)
((lignes p) 2)
((> (car (tables p)) (car tables-avant)) T)
((equal (plv-elements p "Voirie") elements) T)
((eq (plv-profil-sain p) p) T)
;; the axis goes on: so does the last section
(preparer (entmod (subst '(10 90.0 30.0) '(10 60.0 30.0) (entget a))))
(tape ("PLV-TERRAIN" "Actualiser") "Terrain actualisé: ")
((equal (plv-longueur-profil p) 90.0 1e-6) T)
((equal (plv-section-fin (plv-dernier (plv-sections-de-plan p))) 90.0 1e-6) T)
;; shorter than what is attached it can't be, and begin elsewhere neither; then nothing has changed
(preparer (entmod (subst '(10 50.0 30.0) '(10 90.0 30.0) (entget a))))
(refuse (plv-mnt-actualiser p) "le terrain ne fait plus que 50.00 m, et des lignes attachées au profil vont plus loin")
((equal (plv-longueur-profil p) 90.0 1e-6) T)
(preparer (entmod (subst '(10 -20.0 30.0) '(10 0.0 30.0) (subst '(10 90.0 30.0) '(10 50.0 30.0) (entget a)))))
(refuse (plv-mnt-actualiser p) "le terrain commence maintenant à la station 520.00 au lieu de 500.00: le profil ne peut pas suivre")
(preparer (entdel a))
(refuse (plv-mnt-actualiser p) "l'axe n'est plus dans le dessin")
(fichier "g.csv" "0;10\n10;11\n")
(refuse (plv-mnt-actualiser (plv-nouveau "<dossier>g.csv" "N" '(0.0 900.0 0.0) nil nil nil nil)) "ce profil ne vient pas d'une surface")

;; Every setting of a request is kept; an axis that was drawn for the profile is drawn anew.
(situation "TheWholeRequestIsKept")
(preparer
  (carre) (setq a (trace '((100.0 30.0) (0.0 30.0))) c (trace '((20.0 0.0) (80.0 0.0) (80.0 50.0) (20.0 50.0)))) (entmod (subst '(70 . 1) '(70 . 0) (entget c)))
  (setq d (plv-mnt-demande (list a) T 100.0 '(("calques" "TOPO") ("calques" "TOP*")) (list '(tolerance . 0.5) '(arete . 300.0) '(attribut . "ALT") '(zero . T) (cons 'contour (list c))))
        p (plv-mnt-profil d "K" '(0.0 500.0 0.0) nil nil nil nil) axe (plv-axe-plan p) g (plv-mnt-demande-gardee p)))
((vl-every '(lambda (cle) (equal (plv-cle cle d) (plv-cle cle g))) '(axe inverse depart sources tolerance arete attribut zero contour)) T)
((equal (sommets axe) '((20.0 30.0) (100.0 30.0)) 1e-9) T)
(preparer (entmod (subst '(10 0.0 40.0) '(10 0.0 30.0) (subst '(10 100.0 40.0) '(10 100.0 30.0) (entget a)))) (plv-mnt-actualiser p))
((plv-existe axe) nil)
((equal (sommets (plv-axe-plan p)) '((20.0 40.0) (100.0 40.0)) 1e-9) T)

;; Named by the nearest text of their layer, which names one axis only; in the order of names; one that misses the surface is told.
(situation "AProfileForEachAxisOfALayer")
(preparer
  (carre)
  (defun texte (x y t1) (entmake (list '(0 . "TEXT") '(8 . "AXE") (list 10 x y 0.0) '(40 . 1.0) (cons 1 t1))))
  (trace '((0.0 30.0) (100.0 30.0))) (trace '((0.0 60.0) (50.0 60.0))) (trace '((0.0 90.0) (20.0 90.0))) (trace '((900.0 0.0) (990.0 0.0)))
  (texte 5.0 31.0 "Rue B") (texte 5.0 61.5 "Rue A") (texte 5.0 45.0 "45"))
(tape ("PLV-TERRAIN" "Plusieurs" "AXE" "Calques" "TOPO" "Non" "Continuer" "0,500" "10" "2.5" "150")
  "Profil Rue A: 2 points, 50.00 m" "Profil Rue B: 2 points, 100.00 m" "il n'y a pas de surface sous l'axe" "3 profils sur 4 axes.")
((mapcar 'plv-numero-profil (plv-profils)) ("45" "Rue A" "Rue B"))
((mapcar '(lambda (p) (cadr (plv-origine p))) (plv-profils)) (500.0 150.0 -200.0))
((equal (mapcar 'plv-longueur-profil (plv-profils)) '(20.0 50.0 100.0) 1e-9) T)
(dit (plv-mnt-actualiser (cadr (plv-profils))) "Le terrain n'a pas changé.")

;; Rock from a surface and from files: drawn on a layer of its own over the planes, in the tables by its name, out as LandXML and text.
(situation "FurtherGroundsOfAProfile")
(preparer
  (carre) (setq p (surface (trace '((-50.0 30.0) (150.0 30.0)))))
  (foreach q '((20.0 0.0 98.0) (20.0 100.0 98.0) (80.0 0.0 104.0) (80.0 100.0 104.0)) (entmake (list '(0 . "POINT") '(8 . "ROC") (cons 10 q))))
  (defun traits (nom) (mapcar 'sommets (plv-entites-du-jeu (ssget "X" (list (cons 8 (strcat "PLV-TN-" nom))))))))
(tape ("PLV-TERRAIN" "AJouter" "Rocher" "Roc 1" "Surface" "Calques" "ROC" "Non" "Continuer") "Terrain Roc 1: 2 points, de la station 570.00 à 630.00.")
((equal (plv-terrain-morceaux (plv-terrain-nomme p "ROC 1")) '(((20.0 98.0) (80.0 104.0))) 1e-9) T)
;; the plane lies at 98 or lower; drawn at its scale of 10
((equal (mapcar 'cadr (car (traits "ROC 1"))) (mapcar '(lambda (z) (cadr (plv-vers-dessin (plv-cadre p) 20.0 z))) '(98.0 104.0)) 1e-6) T)
((cdr (assoc 6 (tblsearch "LAYER" "PLV-TN-ROC 1"))) "KAVEL-TIRETS")
;; from a file by stations, with another name; cut at the profile's ends
(fichier "n.csv" "500;95\n600;96\n700;97\n")
(tape ("PLV-TERRAIN" "AJ" "Nappe" "" "Fichier" "<dossier>n.csv") "Terrain Nappe: 3 points, de la station 550.00 à 650.00.")
((equal (plv-terrain-morceaux (plv-terrain-nomme p "nappe")) '(((0.0 95.5) (50.0 96.0) (100.0 96.5))) 1e-9) T)
(dit (plv-decrire) "terrain Roc 1 (rocher): 2 points" "terrain Nappe (nappe): 3 points")
;; a change of plane draws them in two pieces each, over both planes
(preparer (plv-pc p "A" 600.0 90.0))
((length (traits "NAPPE")) 2)
((equal (vl-sort (mapcar 'cadr (apply 'append (traits "NAPPE"))) '<)
        (vl-sort (mapcar '(lambda (d z s) (cadr (plv-vers-dessin-sur (plv-cadre p) (nth s (plv-sections-de-plan p)) d z))) '(0.0 50.0 50.0 100.0) '(95.5 96.0 96.0 96.5) '(0 0 1 1)) '<) 1e-6) T)
;; out as LandXML and text
(preparer (plv-export-landxml (list p) "<dossier>x.xml") (setq lu (car (plv-cle 'axes (landxml-lire "<dossier>x.xml")))))
((mapcar '(lambda (g) (plv-cle 'nom g)) (plv-cle 'terrains lu)) ("Terrain naturel" "Roc 1" "Nappe"))
((equal (car (plv-cle 'troncons (cadr (plv-cle 'terrains lu)))) '((570.0 98.0) (630.0 104.0)) 1e-9) T)
(preparer (plv-export-autre-terrain p "Nappe" "<dossier>n2.csv"))
((equal (mapcar 'cadr (plv-cle 'points (plv-lire-terrain "<dossier>n2.csv"))) '(95.5 96.0 96.5) 1e-6) T)
;; and back in, a ground of the file being chosen
(tape ("PLV-TERRAIN" "AJ" "Rocher" "Autre roc" "F" "<dossier>x.xml" "2") "Terrain Autre roc: 2 points, de la station 570.00 à 630.00.")
(tape ("PLV-TERRAIN" "Retirer" "") "Terrain Autre roc retiré.")
((traits "AUTRE ROC") nil)
(refuse (plv-mnt-ajouter p "a/b" "Rocher" '(((0.0 1.0) (1.0 1.0)))) "nom de terrain refusé: \"a/b\"")
(refuse (plv-mnt-ajouter p "TN" "Rocher" '(((0.0 1.0) (1.0 1.0)))) "nom de terrain refusé")
(refuse (plv-mnt-ajouter p "X" "Rocher" '(((500.0 1.0) (510.0 1.0)))) "le terrain X n'est nulle part sur le profil")
(refuse (plv-mnt-retirer p "X") "ce profil n'a pas de terrain X")

;; A further ground of a surface is cut again with its profile; of a file it stays. Its panel, its audit and its copies.
(situation "FurtherGroundsFollowAndAreLookedAfter")
(preparer
  (carre) (setq p (surface (trace '((-50.0 30.0) (150.0 30.0)))))
  (foreach q '((20.0 0.0 98.0) (20.0 100.0 98.0) (80.0 0.0 104.0) (80.0 100.0 104.0)) (entmake (list '(0 . "POINT") '(8 . "ROC") (cons 10 q))))
  (plv-mnt-ajouter-surface p "Roc" "Rocher" '((sources ("calques" "ROC")))) (plv-mnt-ajouter p "Nappe" "Nappe" '(((0.0 95.0) (100.0 96.0))))
  (foreach e (plv-entites-du-jeu (ssget "X" '((8 . "ROC")))) (command "_.MOVE" e "" '(0.0 0.0 0.0) '(0.0 0.0 1.5))))
(dit (plv-mnt-actualiser p) "Le terrain n'a pas changé." "Terrain Roc: de 1.500 m au plus.")
((equal (plv-terrain-morceaux (plv-terrain-nomme p "Roc")) '(((20.0 99.5) (80.0 105.5))) 1e-9) T)
((plv-terrain-morceaux (plv-terrain-nomme p "Nappe")) (((0.0 95.0) (100.0 96.0))))
;; what is drawn below its plane is told once
(dit (plv-mnt-ajouter p "Fond" "Autre" '(((0.0 95.0) (40.0 60.0) (100.0 70.0)))) "À la station 590.000 le terrain Fond descend à 38.00 m sous le plan de comparaison: PLV-PC Proposer en tient compte.")
((mapcar 'car (caddr (car (vl-remove-if-not '(lambda (n) (wcmatch (car n) "Autres terrains*")) (caddr (car (plv-bureau-profils))))))) ("Roc (Rocher)" "Nappe (Nappe)" "Fond (Autre)"))
;; a copy of the block alone draws its own, and leaves the original's
(preparer (setq avant (length (plv-traces-terrain p (plv-terrain-nomme p "Nappe"))))
  (command "_.COPY" p "" '(0.0 0.0) '(0.0 900.0)) (setq q (car (vl-remove p (plv-profils)))) (plv-reparer-profil q) (plv-mnt-retirer q "Nappe"))
((= avant (length (plv-traces-terrain p (plv-terrain-nomme p "Nappe")))) T)
;; erased lines are found and drawn again
(preparer (foreach terrain (plv-terrains p) (plv-effacer (plv-traces-terrain p terrain))))
(dit (plv-audit) "P12" "le terrain Roc n'est plus dessiné")
(preparer (plv-audit-reparer))
((length (plv-traces-terrain p (plv-terrain-nomme p "Nappe"))) 1)
(preparer (plv-mnt-retirer p "Roc"))
((plv-enregistrement p (plv-mnt-cle-terrain "Roc")) nil)

;; Cells only where the named ground is: the square's ground rises from 100 to 110, the rock from 98 at 20 m to 104 at 80 m.
(situation "RowsOfFurtherGrounds")
(preparer
  (carre) (setq p (surface (trace '((0.0 30.0) (100.0 30.0)))))
  (plv-mnt-ajouter p "Rocher" "Rocher" '(((0.0 96.0) (50.0 101.0))))
  (defun textes (p) (vl-sort (mapcar '(lambda (e) (cdr (assoc 1 (entget e)))) (vl-remove-if-not '(lambda (e) (= (plv-type e) "TEXT")) (apply 'append (mapcar 'plv-entites-table (plv-tables p))))) '<)))
(fichier "m.txt" "POINTS - 6.0 500 {Rocher} Altitude du rocher\nPOINTS - 6.0 501 {TN/Rocher} Terre\nPOINTS - 6.0 500 {Granite} Granite\n")
(dit (plv-matrices p "<dossier>m.txt" nil) "Ligne laissée vide: Granite.")
((textes p) ("4.00" "96.00"))
;; a row that is filled again, and tables that follow the ground
(preparer (plv-mnt-ajouter p "Rocher" "Rocher" '(((0.0 96.0) (100.0 105.0)))))
((textes p) ("105.00" "4.00" "5.00" "96.00"))

;; The axis that a profile names comes out as lines and arcs, and back in the same; an arc of three quarters of a circle too.
(situation "TheAxisGoesOutAsLandXml")
(preparer
  (carre)
  (setq a (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (8 . "AXE") (100 . "AcDbPolyline") (90 . 4) (70 . 0) (10 10.0 10.0) (10 40.0 10.0) (42 . 0.5) (10 60.0 40.0) (42 . -1.4966057627) (10 50.0 60.0)))
        p (surface a))
  (plv-export-landxml (list p) "<dossier>x.xml")
  (setq r (car (et_axes_fichier "<dossier>x.xml"))))
((equal (cadr r) '((10.0 10.0 0.0 0.0) (40.0 10.0 0.0 0.5) (60.0 40.0 0.0 -1.4966057627) (50.0 60.0 0.0 0.0)) 1e-7) T)
((list (car r) (caddr r)) ("T1" 500.0))

(situation "TheSurfaceIsShown")
(preparer (carre))
(tape ("PLV-TERRAIN" "Voir" "Calques" "TOPO" "Non" "Continuer") "2 triangles sur le calque PLV-MNT.")
(tape ("PLV-TERRAIN" "V" "C" "*" "N" "C") "2 triangles sur le calque PLV-MNT.")
((sslength (ssget "X" '((8 . "PLV-MNT")))) 2)
(refuse (plv-mnt-voir (plv-mnt-demande nil nil 0.0 '(("axe")) nil)) "cette source n'a pas de triangles")

;; Far from the origin the profile is proposed above the plan, beside it at the origin.
(situation "TheInsertionIsProposedInSight")
(preparer (mapcar '(lambda (q) (point (+ 650000.0 (car q)) (+ 6860000.0 (cadr q)) 100.0)) '((0.0 0.0) (100.0 0.0) (100.0 100.0) (0.0 100.0)))
          (trace '((650000.0 6860030.0) (650100.0 6860030.0))))
(tape ("PLV-TERRAIN" "N" "D" "L" "" "0" "T" "C" "TOPO" "N" "C" "T1" "" "10" "2.5" "150" "A") "Point d'insertion <650000,6860400>: ")
((equal (plv-origine (plv-profil-de-numero "T1")) '(650000.0 6860400.0 0.0) 1e-6) T)

;; A road that crosses, a block and a text near the axis; the point that they name lies on the ground. Asked again it is the same.
(situation "WhatTheAxisMeetsBecomesObservations")
(preparer
  (carre) (setq a (trace '((0.0 30.0) (100.0 30.0))) p (surface a))
  (entmake '((0 . "LINE") (8 . "RD 12") (10 25.0 0.0 0.0) (11 25.0 90.0 0.0)))
  (entmake '((0 . "TEXT") (8 . "OBJETS") (10 60.0 31.5 0.0) (40 . 1.0) (1 . "Chêne")))
  (entmake '((0 . "TEXT") (8 . "OBJETS") (10 70.0 40.0 0.0) (40 . 1.0) (1 . "Loin")))
  (defun noms () (mapcar '(lambda (q) (list (car q) (cadr q) (caddr q))) (plv-points-nommes p))))
(tape ("PLV-TERRAIN" "Observations" "RD*,OBJETS" "2") "2 observations: RD 12 à 525.00, Chêne à 560.00.")
((equal (noms) '((0.0 100.0 "") (25.0 102.5 "RD 12") (60.0 106.0 "Chêne") (100.0 110.0 "")) 1e-9) T)
((plv-mnt-observer p "RD*,OBJETS" 2.0) 2)
((length (noms)) 4)
(preparer (entmod (subst '(10 100.0 40.0) '(10 100.0 30.0) (subst '(10 0.0 40.0) '(10 0.0 30.0) (entget a)))))
(dit (plv-mnt-actualiser p) "2 observations: RD 12 à 525.00, Loin à 570.00.")
(refuse (plv-mnt-observer p "RIEN" 2.0) "l'axe ne rencontre rien sur les calques RIEN")
