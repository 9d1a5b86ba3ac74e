;; Ground from files: point lists, grids and their tiles, vector files, LandXML, coordinate systems; what is damaged is named.

(commun
  (preparer
    (defun point (x y z) (entmake (list '(0 . "POINT") (list 10 x y z))) (entlast))
    (defun jeu (es / s) (setq s (ssadd)) (foreach e es (ssadd e s)) s)
    (defun polyligne (points) (entmakex (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(100 . "AcDbPolyline") (cons 90 (length points)) '(70 . 0))
                                                (apply 'append (mapcar '(lambda (p) (list (list 10 (car p) (cadr p)) (cons 42 (cond ((caddr p)) (0.0))))) points)))))
    (defun ligne3d (points)
      (entmake '((0 . "POLYLINE") (66 . 1) (10 0.0 0.0 0.0) (70 . 8)))
      (foreach p points (entmake (list '(0 . "VERTEX") (cons 10 p) '(70 . 32))))
      (entmake '((0 . "SEQEND")))
      (entlast))
    (defun axe (points) (et_axe (jeu (list (polyligne points)))))
    ;; the carré: z = 100 + x/10 at its corners
    (defun carre () (list (point 0.0 0.0 100.0) (point 100.0 0.0 110.0) (point 100.0 100.0 110.0) (point 0.0 100.0 100.0)))
    (defun profil (axes sources options) (car (car (et_terrain axes sources options))))
    (defun morceaux (p) (cdr p))
    (defun presque (a b) (equal a b 1e-9))))

(situation "PointListsAreRecognised")
(tableau (texte)
  ("0 0 100\n100 0 110\n100 100 110\n0 100 100\n") ("x,y,z\n0,0,100\n100,0,110\n100,100,110\n0,100,100\n")
  ("Nom;X;Y;Z\nA;0;0;100\nB;100;0;110\nC;100;100;110\nD;0;100;100\n") ("1 0.0 0.0 100.0\n2 100.0 0.0 110.0\n3 100.0 100.0 110.0\n4 0.0 100.0 100.0\n")
  ("# levé\n0,0 0,0 100,0 a\n100,0 0,0 110,0 b\n100,0 100,0 110,0 c\n0,0 100,0 100,0 d\n") ("A\t0\t0\t100\r\nB\t100\t0\t110\r\nC\t100\t100\t110\r\nD\t0\t100\t100\r\n")
  ("altitude;nord;est\n100;0;0\n110;0;100\n110;100;100\n100;100;0"))
(fichier "p.txt" texte)
((presque (morceaux (profil (list (axe '((0.0 30.0) (100.0 30.0)))) '(("fichier" "<dossier>p.txt")) nil)) '(((0.0 100.0) (100.0 110.0)))) T)

(situation "WhatCannotBeUsedIsSaid")
(tableau (texte message)
  ("0 0 1\n1 0 2\n1 x 3\n" "<dossier>p.txt, ligne 3 illisible: \"1 x 3\"; x, y et z attendus, ou un nom puis x, y et z")
  ("0;0\n1;1\n" "<dossier>p.txt, ligne 1 illisible: \"0;0\"; x, y et z attendus, ou un nom puis x, y et z")
  ("" "<dossier>p.txt: aucun point; x, y et z sont attendus") ("x y z\n" "<dossier>p.txt: aucun point; x, y et z sont attendus")
  ("0 0 1\n1 0 1\n" "trois points au moins sont attendus pour une surface")
  ("0 0 1\n1 1 1\n2 2 1\n" "tous les points sont sur une droite: ils ne font pas de surface")
  ("5 5 1\n5 5 2\n5 5 1\n" "les points n'ont pas trois places en plan: ils ne font pas de surface")
  ("5 5 1\n5 6 2\n5 5 1\n" "les points n'ont pas trois places en plan: ils ne font pas de surface"))
(fichier "p.txt" texte)
((et_terrain (list (axe '((0.0 30.0) (100.0 30.0)))) '(("fichier" "<dossier>p.txt")) nil) message)

;; Altitudes stand in the middles of the cells: nodes at x, y = 5, 15, 25. z = 100 + column + 2 * line from below, one cell twisted.
(situation "AGridIsBilinear")
(fichier "g.asc" "ncols 3\nnrows 3\nxllcorner 0\nyllcorner 0\ncellsize 10\nNODATA_value -9999\n104 105 106\n102 103 104\n100 101 103\n")
(preparer (setq s '(("fichier" "<dossier>g.asc")) t0 '(("tolerance" 0))))
((presque (morceaux (profil (list (axe '((0.0 10.0) (15.0 10.0)))) s t0)) '(((5.0 101.0) (15.0 102.0)))) T)
;; over the twisted cell, whose corners are 101, 103, 103 and 104: its middle is 102.75, in the middle of its diagonal
((equal (cadr (assoc (* 5.0 (sqrt 2.0)) (mapcar '(lambda (q) (if (equal (car q) (* 5.0 (sqrt 2.0)) 1e-6) (cons (* 5.0 (sqrt 2.0)) (cdr q)) q))
   (car (morceaux (profil (list (axe '((15.0 5.0) (25.0 15.0)))) s t0)))))) 102.75 1e-9) T)
((caddr (et_terrain nil s nil)) ("g.asc: grille de 3 x 3 altitudes"))
((profil (list (axe '((0.0 100.0) (15.0 100.0)))) s nil) "il n'y a pas de surface sous l'axe (axe: x de 0.000 à 15.000, y de 100.000 à 100.000; surface: x de 5.000 à 25.000, y de 5.000 à 25.000)")

;; A node without altitude takes its four cells; along a line of nodes the other side serves.
(situation "NoDataIsAGap")
(fichier "g.asc" "ncols 4\nnrows 2\nxllcenter 0\nyllcenter 0\ncellsize 10\nNODATA_value -1\n10 11 -1 13\n10 11 12 13\n")
(preparer (setq s '(("fichier" "<dossier>g.asc"))))
((presque (morceaux (profil (list (axe '((0.0 5.0) (30.0 5.0)))) s nil)) '(((0.0 10.0) (10.0 11.0)))) T)
(fichier "h.asc" "ncols 3\nnrows 3\nxllcenter 0\nyllcenter 0\ncellsize 10\n-9999 -9999 -9999\n10 11 12\n9 9 9\n")
((presque (morceaux (profil (list (axe '((0.0 10.0) (20.0 10.0)))) '(("fichier" "<dossier>h.asc")) nil)) '(((0.0 10.0) (20.0 12.0)))) T)

;; Two tiles side by side are one grid, their seam included; of a file that is no tile nothing is said. What points leave open a grid fills.
(situation "AFolderOfTiles")
(preparer (vl-mkdir "<dossier>dalles"))
(fichier "dalles/a.asc" "ncols 2\nnrows 2\nxllcorner 0\nyllcorner 0\ncellsize 10\n10 11\n10 11\n")
(fichier "dalles/b.asc" "ncols 2\nnrows 2\nxllcorner 20\nyllcorner 0\ncellsize 10\n12 13\n12 13\n")
(fichier "dalles/lisez-moi.txt" "deux dalles\n")
((presque (morceaux (profil (list (axe '((0.0 10.0) (40.0 10.0)))) '(("fichier" "<dossier>dalles")) nil)) '(((5.0 10.0) (35.0 13.0)))) T)
(fichier "p.csv" "30 0 20\n50 0 20\n50 20 20\n30 20 20\n")
((presque (morceaux (profil (list (axe '((0.0 10.0) (60.0 10.0)))) '(("fichier" "<dossier>dalles") ("fichier" "<dossier>p.csv")) nil)) '(((5.0 10.0) (30.0 12.5) (30.0 20.0) (50.0 20.0)))) T)
((progn (vl-mkdir "<dossier>vide") (et_terrain nil '(("fichier" "<dossier>vide")) nil)) "<dossier>vide: aucune dalle d'altitudes dans ce dossier (GeoTIFF, ASC ...)")

(situation "FilesAreKnownByTheirContent")
(tableau (texte lu)
  ("1 2 3\n" ("points")) ("ncols 1\nnrows 1\nxllcorner 0\nyllcorner 0\ncellsize 1\n5\n" ("grille"))
  ("{\"type\":\"Point\",\"coordinates\":[2,48,100]}" ("vecteur" T ("EPSG:4979" "WGS 84")))
  ("<gpx version=\"1.1\" creator=\"x\" xmlns=\"http://www.topografix.com/GPX/1/1\"><wpt lat=\"48\" lon=\"2\"><ele>5</ele></wpt></gpx>" ("vecteur" T ("EPSG:4326" "WGS 84")))
  ("<?xml version=\"1.0\"?><kml xmlns=\"http://www.opengis.net/kml/2.2\"><Placemark><Point><coordinates>2,48,7</coordinates></Point></Placemark></kml>" ("vecteur" T ("EPSG:4326" "WGS 84")))
  ("<?xml version=\"1.0\"?><LandXML/>" ("landxml"))
  ("<html></html>" "<dossier>f.bin: ce fichier n'est ni une liste de points, ni LandXML, GeoJSON, GPX, KML, Shapefile ou GeoPackage, ni une grille d'altitudes; ou il est abîmé"))
(fichier "f.bin" texte)
((et_fichier "<dossier>f.bin") lu)
((et_fichier "<dossier>absent") "lecture impossible: <dossier>absent")

;; Lambert 93 of (3 E, 46.5 N) is its origin: 700000, 6600000. Altitudes stay.
(situation "CoordinatesAreCarriedToTheDrawingsSystem")
(fichier "t.geojson" "{\"type\":\"FeatureCollection\",\"features\":[{\"type\":\"Feature\",\"properties\":{\"name\":\"Trace\"},\"geometry\":{\"type\":\"LineString\",\"coordinates\":[[3,46.5,100],[3.001,46.5,101],[3.001,46.501,102]]}}]}")
(preparer (setq a (et_axes_fichier "<dossier>t.geojson" "EPSG:2154") x (cadr (car a)) o '(("systeme" "EPSG:2154"))))
((caar a) "Trace")
((equal (car x) '(700000.0 6600000.0 100.0 0.0) 1e-4) T)
((equal (mapcar 'cadr (cadr (profil (list x) '(("axe")) o))) '(100.0 101.0 102.0) 1e-9) T)
((equal (mapcar 'cadr (cadr (profil (list x) '(("fichier" "<dossier>t.geojson")) o))) '(100.0 101.0 102.0) 1e-6) T)
((caddr (et_terrain nil '(("fichier" "<dossier>t.geojson")) o)) ("t.geojson: coordonnées passées de WGS 84 au système du dessin; les altitudes restent telles quelles" "La surface n'a qu'un triangle"))
((et_terrain nil '(("fichier" "<dossier>t.geojson")) nil) "<dossier>t.geojson: ce fichier est en degrés (WGS 84); indiquez le système de coordonnées du dessin (PLV-TERRAIN Système)")
;; points without a system of their own, which the user names; a grid in degrees, z = 100 at its west, 110 at its east
(fichier "p.csv" "3.0 46.5 100\n3.001 46.5 101\n3.001 46.501 102\n")
((equal (mapcar 'cadr (cadr (profil (list x) '(("fichier" "<dossier>p.csv" "EPSG:4326")) o))) '(100.0 101.0 102.0) 1e-6) T)
(fichier "g.asc" "ncols 2\nnrows 2\nxllcenter 2.99\nyllcenter 46.49\ncellsize 0.02\n100 110\n100 110\n")
((equal (mapcar 'cadr (cadr (profil (list x) '(("fichier" "<dossier>g.asc" "EPSG:4326")) '(("systeme" "EPSG:2154") ("tolerance" 1e-5))))) '(105.0 105.5 105.5) 1e-3) T)
((et_systemes "EPSG:99999") nil)
((et_systemes "EPSG:2154") (("EPSG:2154" "RGF93 v1 / Lambert-93")))
((car (et_systemes x)) ("EPSG:2154" "RGF93 v1 / Lambert-93"))
((car (et_systemes '((1700000.0 5200000.0 0.0 0.0) (1700100.0 5200100.0 0.0 0.0)))) ("EPSG:3946" "RGF93 v1 / CC46"))
((car (et_systemes '((2600000.0 1200000.0 0.0 0.0) (2600100.0 1200100.0 0.0 0.0)))) ("EPSG:2056" "CH1903+ / LV95"))

(situation "PointsNearTheAxisAndLinesWithoutAltitudes")
(fichier "p.csv" "1 1 10\n5 -2 12\n5 3 99\n9 0.5 13\n-3 0 50\n20 1 60\n5 30 70\n12 4 14\n")
;; a bend at 10; of two points at station 5 the nearer; beyond the ends none; the last one stands beside the second leg
((presque (morceaux (profil (list (axe '((0.0 0.0) (10.0 0.0) (10.0 10.0)))) '(("fichier" "<dossier>p.csv")) '(("pres" 5.0) ("tolerance" 0)))) '(((1.0 10.0) (5.0 12.0) (9.0 13.0) (14.0 14.0)))) T)
((profil (list (axe '((0.0 0.0) (10.0 0.0)))) '(("fichier" "<dossier>p.csv")) '(("pres" 0.75))) "moins de deux points sont à 0.75 m de l'axe au plus")
((profil (list (axe '((0.0 0.0) (10.0 0.0)))) '(("axe")) nil) "l'axe n'a pas d'altitudes")
(fichier "l.geojson" "{\"type\":\"LineString\",\"coordinates\":[[3,46.5],[3.001,46.5]]}")
((et_terrain nil '(("fichier" "<dossier>l.geojson")) '(("systeme" "EPSG:2154"))) "<dossier>l.geojson: les points et les lignes de ce fichier n'ont pas d'altitude")
(fichier "v.geojson" "{\"type\":\"FeatureCollection\",\"features\":[]}")
((et_axes_fichier "<dossier>v.geojson") "<dossier>v.geojson: ni point ni ligne dans ce fichier")
;; contour lines in plan with their altitude in a field
(fichier "c.geojson" "{\"type\":\"FeatureCollection\",\"features\":[{\"type\":\"Feature\",\"properties\":{\"ALTITUDE\":100},\"geometry\":{\"type\":\"LineString\",\"coordinates\":[[3,46.5],[3.01,46.5]]}},{\"type\":\"Feature\",\"properties\":{\"ALTITUDE\":110},\"geometry\":{\"type\":\"LineString\",\"coordinates\":[[3,46.51],[3.01,46.51]]}}]}")
((equal (mapcar 'cadr (cadr (profil (list '((700400.0 6600000.5 0.0 0.0) (700400.0 6601111.0 0.0 0.0))) '(("fichier" "<dossier>c.geojson")) '(("systeme" "EPSG:2154"))))) '(100.0 110.0) 0.01) T)

;; LandXML has northing before easting. Faces as they are; without faces points and breaklines; an unseen face is none; feet are metres.
(situation "SurfacesOfLandXml")
(tableau (texte attendu)
  ("<LandXML><Surfaces><Surface name='Autre'><Definition/></Surface><Surface name='Sol'><Definition surfType='TIN'><Pnts><P id='1'>0 0 100</P><P id='2'>0 100 110</P><P id='3'>100 100 110</P><P id='4'>100 0 100</P></Pnts><Faces><F>1 2 3</F><F i='1'>1 3 4</F></Faces></Definition></Surface></Surfaces></LandXML>"
   (((30.0 103.0) (100.0 110.0))))
  ("<LandXML><Surfaces><Surface name='Autre'><Definition/></Surface><Surface name='Sol'><Definition surfType='TIN'><Pnts><P id='1'>0 0 100</P><P id='2'>0 100 110</P><P id='3'>100 100 110</P><P id='4'>100 0 100</P></Pnts></Definition></Surface></Surfaces></LandXML>"
   (((0.0 100.0) (100.0 110.0))))
  ("<LandXML><Surfaces><Surface name='Autre'><Definition/></Surface><Surface name='Sol'><SourceData><DataPoints><PntList3D>-50 0 100 -50 100 100 50 0 100 50 100 100</PntList3D></DataPoints><Breaklines><Breakline><PntList3D>30 0 105 30 100 107</PntList3D></Breakline></Breaklines></SourceData></Surface></Surfaces></LandXML>"
   (((0.0 105.0) (100.0 107.0))))
  ("<LandXML><Surfaces><Surface name='Autre'><Definition/></Surface><Surface name='Sol'><SourceData><Contours><Contour elev='10'><PntList2D>0 0 0 100</PntList2D></Contour><Contour elev='20'><PntList2D>60 0 60 100</PntList2D></Contour></Contours></SourceData></Surface></Surfaces></LandXML>"
   (((0.0 15.0) (100.0 15.0))))
  ("<LandXML><Units><Imperial linearUnit='foot'/></Units><Surfaces><Surface name='Autre'><Definition/></Surface><Surface name='Sol'><Definition surfType='TIN'><Pnts><P id='1'>0 0 1000</P><P id='2'>0 1000 1000</P><P id='3'>1000 1000 1000</P><P id='4'>1000 0 1000</P></Pnts><Faces><F>1 2 3</F><F>1 3 4</F></Faces></Definition></Surface></Surfaces></LandXML>"
   (((0.0 304.8) (100.0 304.8)))))
(fichier "s.xml" texte)
((et_surfaces "<dossier>s.xml") ("Sol"))
((presque (morceaux (profil (list (axe '((0.0 30.0) (100.0 30.0)))) '(("fichier" "<dossier>s.xml" "surface:Sol")) nil)) 'attendu) T)
((car (caddr (et_terrain nil '(("fichier" "<dossier>s.xml")) nil))) "<dossier>s.xml: surface \"Autre\": moins de trois points, et pas de face")
((et_terrain nil '(("fichier" "<dossier>s.xml" "surface:Roc")) nil) "<dossier>s.xml: pas de surface \"Roc\"")

;; Line, arc, and the points of a register; what can't be built is named and costs its alignment only.
(situation "PlanGeometryOfLandXml")
(fichier "a.xml" "<LandXML><CgPoints><CgPoint name='A'>0 10</CgPoint></CgPoints><Alignments><Alignment name='Bon' staStart='500'><CoordGeom>
<Line><Start>0 0</Start><End pntRef='A'/></Line><Curve rot='ccw'><Start>0 10</Start><Center>10 10</Center><End>10 20</End></Curve><Curve rot='cw'><Start>10 20</Start><Center>10 30</Center><End>20 30</End></Curve></CoordGeom></Alignment>
<Alignment name='Trou'><CoordGeom><Line><Start>0 0</Start><End>0 10</End></Line><Line><Start>0 12</Start><End>0 20</End></Line></CoordGeom></Alignment>
<Alignment name='Centre'><CoordGeom><Curve rot='cw'><Start>0 0</Start><Center>0 5</Center><End>0 11</End></Curve></CoordGeom></Alignment>
<Alignment name='Raccord'><CoordGeom><Spiral rot='cw' length='50' radiusStart='INF' radiusEnd='100' spiType='sinusoid'><Start>0 0</Start><End>0 11</End></Spiral></CoordGeom></Alignment>
<Alignment name='Profil'/></Alignments></LandXML>")
(preparer (setq r (et_axes_fichier "<dossier>a.xml")))
((presque r (list (list "Bon" (list '(0.0 0.0 0.0 0.0) (list 10.0 0.0 0.0 (- (sqrt 2.0) 1.0)) (list 20.0 10.0 0.0 (- 1.0 (sqrt 2.0))) '(30.0 20.0 0.0 0.0)) 500.0))) T)
(fichier "b.xml" "<LandXML><Alignments><Alignment name='Trou'><CoordGeom><Line><Start>0 0</Start><End>0 10</End></Line><Line><Start>0 12</Start><End>0 20</End></Line></CoordGeom></Alignment></Alignments></LandXML>")
((et_axes_fichier "<dossier>b.xml") "<dossier>b.xml: axe \"Trou\": élément 2 (Line): il commence à 2.000 m de la fin du précédent")
(fichier "c.xml" "<LandXML><Alignments><Alignment name='C'><CoordGeom><Spiral rot='cw' length='50' radiusStart='INF' radiusEnd='100' spiType='clothoid'><Start>0 0</Start><End>0 40</End></Spiral></CoordGeom></Alignment></Alignments></LandXML>")
;; of a clothoid the chord is its length less (length / radius)^2 / 90 of it
((et_axes_fichier "<dossier>c.xml") "<dossier>c.xml: axe \"C\": élément 1 (Spiral): sa longueur et ses rayons donnent une corde de 49.861 m au lieu de 40.000")
(fichier "d.xml" "<LandXML><CgPoints/></LandXML>")
((et_surfaces "<dossier>d.xml") "<dossier>d.xml: ni surface ni tracé en plan dans ce fichier LandXML")
((et_fichier "<dossier>d.xml") ("landxml"))

;; The example valley: its grids are the same ground, and agree with points and faces as nine hundred points on twelve hectares and cells of 5 m allow.
(situation "TheExampleValleyIsOneGround")
(preparer
  (setq a (axe '((652030.0 6862060.0) (652180.0 6862120.0 0.2) (652240.0 6862260.0) (652370.0 6862270.0))))
  (defun cote (nom) (car (cdr (profil (list a) (list (list "fichier" (strcat "<source>/exemples/" nom))) '(("systeme" "EPSG:2154"))))))
  (defun altitude (m d) (while (and (cddr m) (< (car (cadr m)) d)) (setq m (cdr m))) (+ (cadr (car m)) (* (- d (caar m)) (/ (- (cadr (cadr m)) (cadr (car m))) (- (car (cadr m)) (caar m))))))
  (defun ecart (m n / d plus) (setq d 1.0 plus 0.0) (while (< d 440.0) (setq plus (max plus (abs (- (altitude m d) (altitude n d)))) d (+ d 1.0))) plus)
  (setq p (cote "vallon.csv") g (cote "vallon.tif")))
((< (ecart g (cote "vallon.asc")) 0.021) T)
((< (ecart p (cote "vallon.xml")) 0.021) T)
((< 0.05 (ecart p g) 0.6) T)

(situation "DamagedFilesAreNamed")
(preparer (setq a (axe '((0.0 10.0) (30.0 10.0)))))
(fichier "v.vrt" "<VRTDataset rasterXSize=\"4\" rasterYSize=\"2\"><GeoTransform>0,10,0,20,0,-10</GeoTransform><VRTRasterBand dataType=\"Float32\" band=\"1\"><SimpleSource><SourceFilename relativeToVRT=\"1\">absent.tif</SourceFilename><SourceBand>1</SourceBand><SrcRect xOff=\"0\" yOff=\"0\" xSize=\"4\" ySize=\"2\"/><DstRect xOff=\"0\" yOff=\"0\" xSize=\"4\" ySize=\"2\"/></SimpleSource></VRTRasterBand></VRTDataset>")
((wcmatch (et_terrain (list a) '(("fichier" "<dossier>v.vrt")) nil) "<dossier>v.vrt: lecture impossible près de la colonne 0*absent.tif*") T)
(fichier "i.asc" "ncols 2\nnrows 2\nxllcorner 0\nyllcorner 0\ncellsize 10\n1 2\n3\n")
((et_terrain (list a) '(("fichier" "<dossier>i.asc")) nil) "<dossier>i.asc: la grille est incomplète, sa dernière ligne est plus courte que les autres")
(fichier "j.asc" "ncols 2\nnrows 3\nxllcorner 0\nyllcorner 0\ncellsize 10\n1 2\n3 4\n")
((wcmatch (et_terrain (list a) '(("fichier" "<dossier>j.asc")) nil) "<dossier>j.asc: lecture impossible*") T)
(fichier "n.asc" "ncols deux\n")
((wcmatch (et_terrain (list a) '(("fichier" "<dossier>n.asc")) nil) "<dossier>n.asc: ce fichier n'est ni une liste de points*abîmé") T)

;; numbers that no place has, of an axis and of points
(situation "NumbersBeyondAllMeasure")
((et_axe (jeu (list (polyligne '((0.0 0.0) (1e300 0.0)))))) "l'axe est de longueur nulle")
(fichier "p.csv" "0 0 1\n1e300 0 1\n0 5 1\n")
((wcmatch (et_terrain nil '(("fichier" "<dossier>p.csv")) nil) "coordonnée invraisemblable dans la surface: 1000*") T)
(fichier "n.csv" "0 0 1\nnan 0 1\n0 5 1\n")
((et_terrain nil '(("fichier" "<dossier>n.csv")) nil) "<dossier>n.csv, ligne 2 illisible: \"nan 0 1\"; x, y et z attendus, ou un nom puis x, y et z")
(passe (et_terrain '(((0.0 0.0 0.0 0.0) (1e300 1e300 0.0 1e300))) (list (list "dessin" (jeu (carre)))) nil))
