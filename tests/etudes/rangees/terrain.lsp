;; Ground from surfaces, worked out by hand: a plane, a ridge between planes, ten points, faces; gaps, limits, contradictions.

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

(situation "APlaneIsCutInAStraightLine")
(preparer (setq s (list (list "dessin" (jeu (carre)))) a (axe '((-50.0 30.0) (150.0 30.0)))))
((presque (morceaux (profil (list a) s nil)) '(((50.0 100.0) (150.0 110.0)))) T)
((car (profil (list a) s nil)) 200.0)
;; 0 keeps the point where the diagonal is crossed
((length (car (morceaux (profil (list a) s '(("tolerance" 0)))))) 3)
;; along an edge, through vertices, on a diagonal, ending in a triangle
((presque (morceaux (profil (list (axe '((0.0 0.0) (100.0 0.0)))) s nil)) '(((0.0 100.0) (100.0 110.0)))) T)
((presque (morceaux (profil (list (axe '((0.0 0.0) (100.0 100.0)))) s nil)) (list (list '(0.0 100.0) (list (sqrt 20000.0) 110.0)))) T)
((presque (morceaux (profil (list (axe '((100.0 0.0) (0.0 100.0)))) s nil)) (list (list '(0.0 110.0) (list (sqrt 20000.0) 100.0)))) T)
((presque (morceaux (profil (list (axe '((10.0 10.0) (20.0 10.0)))) s nil)) '(((0.0 101.0) (10.0 102.0)))) T)

;; The square's points with a sixth in the middle: four triangles. z on y = 40 from the left: 102 at x = 0, and the edges to the
;; middle are crossed at x = 40 and 60 where z is 100 + 0.8 * 20 + ...
(situation "PointsAreVerticesOfTheProfile")
(preparer (setq s (list (list "dessin" (jeu (append (carre) (list (point 50.0 50.0 125.0)))))) a (axe '((0.0 40.0) (100.0 40.0)))))
;; (40 40) lies at 4/5 of the edge from (0 0 100) to (50 50 125): 120. (60 40) at 4/5 from (100 0 110): 122.
((presque (morceaux (profil (list a) s nil)) '(((0.0 100.0) (40.0 120.0) (60.0 122.0) (100.0 110.0)))) T)
((nth 2 (cadddr (et_terrain (list a) s nil))) 4)

;; Without the line the shorter diagonal would be an edge: (0 50 30 m) to (0 -50); with it the ridge at y = 0 holds.
(situation "ABreaklineIsAnEdge")
(preparer
  (setq p (list (point 0.0 -10.0 100.0) (point 100.0 -10.0 100.0) (point 0.0 10.0 100.0) (point 100.0 10.0 100.0) (point 50.0 -10.0 100.0) (point 50.0 10.0 100.0))
        l (ligne3d '((0.0 0.0 105.0) (100.0 0.0 105.0)))
        a (axe '((25.0 -10.0) (25.0 10.0)))))
((presque (morceaux (profil (list a) (list (list "dessin" (jeu (cons l p)))) nil)) '(((0.0 100.0) (10.0 105.0) (20.0 100.0)))) T)

;; Contour lines are flat polylines at their altitude; at altitude 0 they are taken for lines without one.
(situation "ContourLinesAreBreaklines")
(preparer
  (defun niveau (y z / e) (setq e (polyligne (list (list 0.0 y) (list 100.0 y)))) (entmod (append (entget e) (list (cons 38 z)))) e)
  (setq l (list (niveau 0.0 100.0) (niveau 10.0 101.0) (niveau 30.0 102.0) (niveau 20.0 0.0)) a (axe '((50.0 0.0) (50.0 30.0)))))
((presque (morceaux (profil (list a) (list (list "dessin" (jeu l))) nil)) '(((0.0 100.0) (10.0 101.0) (30.0 102.0)))) T)
((caddr (et_terrain (list a) (list (list "dessin" (jeu l))) nil)) ("Objets laissés: 1 à l'altitude 0, prise pour absente (le réglage Zéro les prend)"))
((nth 2 (car (morceaux (profil (list a) (list (list "dessin" (jeu l))) '(("zero" T)))))) (20.0 0.0))

(situation "BlocksAndTextsTellAltitudes")
(preparer
  (entmake '((0 . "BLOCK") (2 . "LEVE") (70 . 2) (10 0.0 0.0 0.0))) (entmake '((0 . "ENDBLK")))
  (defun leve (x y atts)
    (entmake (list '(0 . "INSERT") '(2 . "LEVE") '(66 . 1) (list 10 x y 0.0)))
    (foreach a atts (entmake (list '(0 . "ATTRIB") (list 10 x y 0.0) '(40 . 1.0) (cons 1 (cdr a)) (cons 2 (car a)) '(70 . 0))))
    (entmake '((0 . "SEQEND"))) (entlast))
  (setq e (list (leve 0.0 0.0 '(("MAT" . "17") ("ALT" . "100,50"))) (leve 10.0 0.0 '(("MAT" . "A1") ("ALT" . "101.5"))) (leve 5.0 5.0 '(("MAT" . "18")))
                (leve 3.0 3.0 '(("MAT" . "x") ("ALT" . "illisible"))) (progn (entmake '((0 . "TEXT") (10 0.0 10.0 0.0) (40 . 1.0) (1 . "102.5"))) (entlast))
                (progn (entmake '((0 . "TEXT") (10 1.0 1.0 0.0) (40 . 1.0) (1 . "rue du Moulin"))) (entlast)))
        a (axe '((0.0 0.0) (10.0 0.0))) s (list (list "dessin" (jeu e)))))
((presque (morceaux (profil (list a) s '(("attribut" "alt")))) '(((0.0 100.5) (10.0 101.5)))) T)
;; the only number of a block is taken for its altitude where no tag tells
((car (cadddr (et_terrain (list a) s nil))) 4)
((caddr (et_terrain (list a) s '(("attribut" "ALT")))) ("Objets laissés: 3 sans altitude (blocs, textes)" "La surface n'a qu'un triangle"))

(situation "FacesStandAsTheyAre")
(preparer
  (defun face (a b c d) (entmake (list '(0 . "3DFACE") (cons 10 a) (cons 11 b) (cons 12 c) (cons 13 d))) (entlast))
  (setq f (list (face '(0.0 0.0 100.0) '(10.0 0.0 101.0) '(10.0 10.0 101.0) '(0.0 10.0 100.0))
                (face '(20.0 0.0 105.0) '(30.0 0.0 105.0) '(30.0 10.0 105.0) '(30.0 10.0 105.0))
                (face '(30.0 0.0 106.0) '(40.0 0.0 106.0) '(40.0 10.0 106.0) '(30.0 10.0 106.0))
                (face '(5.0 0.0 0.0) '(5.0 0.0 9.0) '(5.0 10.0 9.0) '(5.0 10.0 0.0)))
        a (axe '((0.0 2.0) (40.0 2.0)))))
;; a gap from 10 to 22, a wall at 30; an upright face is none
((presque (morceaux (profil (list a) (list (list "dessin" (jeu f))) nil)) '(((0.0 100.0) (10.0 101.0)) ((22.0 105.0) (30.0 105.0) (30.0 106.0) (40.0 106.0)))) T)
(preparer (setq f (cons (face '(0.0 0.0 103.0) '(4.0 0.0 103.0) '(4.0 10.0 103.0) '(0.0 10.0 103.0)) f) r (et_terrain (list a) (list (list "dessin" (jeu f))) nil)))
((caar (cadr r)) "deux faces l'une sur l'autre")

(situation "APolyfaceMeshIsFaces")
(preparer
  (entmake '((0 . "POLYLINE") (66 . 1) (10 0.0 0.0 0.0) (70 . 64) (71 . 4) (72 . 1)))
  (foreach p '((0.0 0.0 1.0) (10.0 0.0 2.0) (10.0 10.0 2.0) (0.0 10.0 1.0)) (entmake (list '(0 . "VERTEX") (cons 10 p) '(70 . 192))))
  (entmake '((0 . "VERTEX") (10 0.0 0.0 0.0) (70 . 128) (71 . 1) (72 . 2) (73 . -3) (74 . 4)))
  (entmake '((0 . "SEQEND")))
  (setq m (entlast)))
((presque (morceaux (profil (list (axe '((0.0 5.0) (10.0 5.0)))) (list (list "dessin" (jeu (list m)))) nil)) '(((0.0 1.0) (10.0 2.0)))) T)

;; Three by two vertices on a slope of 0.1, then the same closed round its first direction; smoothed, only the drawn ones count.
(situation "AGridOfVerticesIsFaces")
(preparer
  (defun grille (tete sommets)
    (entmake (append '((0 . "POLYLINE") (66 . 1) (10 0.0 0.0 0.0)) tete))
    (foreach s sommets (entmake (list '(0 . "VERTEX") (cons 10 (cdr s)) (cons 70 (+ 64 (car s))))))
    (entmake '((0 . "SEQEND"))) (list "dessin" (jeu (list (entlast)))))
  (defun au-milieu (g) (profil (list (axe '((-5.0 5.0) (45.0 5.0)))) (list g) nil))
  (setq six '((0 0.0 0.0 1.0) (0 0.0 10.0 1.0) (0 20.0 0.0 3.0) (0 20.0 10.0 3.0) (0 40.0 0.0 5.0) (0 40.0 10.0 5.0))))
((presque (morceaux (au-milieu (grille '((70 . 16) (71 . 3) (72 . 2)) six))) '(((5.0 1.0) (45.0 5.0)))) T)
((presque (morceaux (au-milieu (grille '((70 . 20) (71 . 2) (72 . 2) (73 . 3) (74 . 2) (75 . 6)) (cons '(16 0.0 0.0 9.0) (cons '(16 40.0 0.0 9.0) six)))))
          '(((5.0 1.0) (45.0 5.0)))) T)
;; a vertex is missing: no faces
((et_terrain nil (list (grille '((70 . 16) (71 . 3) (72 . 2)) (cdr six))) nil) "aucun point, aucune ligne et aucune face dans les sources")

(situation "AMeshIsItsFaces")
(preparer
  (setq m (entmakex '((0 . "MESH") (100 . "AcDbEntity") (100 . "AcDbSubDMesh") (71 . 2) (72 . 0) (91 . 0) (92 . 6)
                      (10 0.0 0.0 1.0) (10 20.0 0.0 3.0) (10 20.0 10.0 3.0) (10 0.0 10.0 1.0) (10 40.0 0.0 5.0) (10 40.0 10.0 5.0)
                      (93 . 9) (90 . 4) (90 . 0) (90 . 1) (90 . 2) (90 . 3) (90 . 3) (90 . 1) (90 . 4) (90 . 2) (94 . 0) (95 . 0) (90 . 0)))))
((presque (morceaux (profil (list (axe '((-5.0 5.0) (45.0 5.0)))) (list (list "dessin" (jeu (list m)))) nil)) '(((5.0 1.0) (35.0 4.0)))) T)

(situation "LimitsEndTheGroundExactly")
(preparer
  (defun fermee (points / e) (setq e (polyligne points)) (entmod (subst '(70 . 1) '(70 . 0) (entget e))) e)
  (setq s (list (list "dessin" (jeu (carre)))) a (axe '((0.0 30.0) (100.0 30.0)))
        c (jeu (list (fermee '((10.0 0.0) (90.0 0.0) (90.0 100.0) (10.0 100.0))))) h (jeu (list (fermee '((40.0 0.0) (60.0 0.0) (50.0 60.0)))))))
((presque (morceaux (profil (list a) s (list (list "contour" c) (list "trous" h)))) '(((10.0 101.0) (45.0 104.5)) ((55.0 105.5) (90.0 109.0)))) T)
((profil (list a) s (list (list "contour" h) (list "trous" h))) "le contour et les trous ne laissent aucune surface sous l'axe")
((et_terrain (list a) s '(("arete" 99.0))) "aucun triangle de la surface n'a toutes ses arêtes plus courtes que la plus longue permise")

;; Of two points at one place the first one stands; crossing lines get the mean; a line passes a point at another altitude.
(situation "ContradictionsAreListed")
(preparer (setq r (et_terrain nil (list (list "dessin" (jeu (append (carre) (list (point 0.0 0.0 101.0) (point 0.0 0.0 100.0005)))))) nil)))
((cadr r) (("deux points au même endroit" 0.0 0.0 100.0 101.0)))
((caddr r) ("2 points à la place d'un autre: un seul compte"))
(preparer
  (setq l (list (ligne3d '((0.0 0.0 10.0) (10.0 10.0 10.0))) (ligne3d '((0.0 10.0 12.0) (10.0 0.0 12.0))))
        r (et_terrain (list (axe '((5.0 0.0) (5.0 5.0)))) (list (list "dessin" (jeu l))) nil)))
((presque (cadr r) '(("deux lignes se croisent" 5.0 5.0 10.0 12.0))) T)
((cadr (car (morceaux (car (car r))))) (5.0 11.0))
(preparer (setq r (et_terrain nil (list (list "dessin" (jeu (list (ligne3d '((0.0 0.0 10.0) (10.0 0.0 10.0))) (point 5.0 0.0 11.0) (point 7.0 0.0 10.0) (point 5.0 9.0 10.0))))) nil)))
((presque (cadr r) '(("un point sur une ligne" 5.0 0.0 11.0 10.0))) T)

(situation "AxesOfAnyCurves")
(preparer
  (defun courbe (groupes) (entmakex groupes))
  (setq l1 (courbe '((0 . "LINE") (10 0.0 0.0 0.0) (11 10.0 0.0 5.0))) arc (courbe '((0 . "ARC") (10 10.0 10.0 0.0) (40 . 10.0) (50 . 4.71238898038469) (51 . 0.0)))
        l2 (courbe '((0 . "LINE") (10 20.0 30.0 0.0) (11 20.0 10.0 0.0)))))
;; line, quarter of a circle, line drawn the other way; the first one gives the direction
((presque (et_axe (jeu (list l1 l2 arc))) (list '(0.0 0.0 0.0 0.0) (list 10.0 0.0 5.0 (- (sqrt 2.0) 1.0)) '(20.0 10.0 0.0 0.0) '(20.0 30.0 0.0 0.0))) T)
((presque (mapcar 'car (et_axe (jeu (list l1)) T)) '(10.0 0.0)) T)
((presque (et_axe_depuis (et_axe (jeu (list l1 arc))) (+ 10.0 (* 2.5 pi))) (list (list (+ 10.0 (sqrt 50.0)) (- 10.0 (sqrt 50.0)) 2.5 (/ (sin (/ pi 16.0)) (cos (/ pi 16.0)))) '(20.0 10.0 0.0 0.0))) T)
((et_axe (jeu (list l1 l2))) "les courbes de l'axe ne se suivent pas: celle qui commence en 20.00, 30.00 ne touche pas l'axe, qui va de 0.00, 0.00 à 10.00, 0.00 (les bouts se touchent à 1 mm près)")
((et_axe (jeu (list (point 0.0 0.0 1.0)))) "un axe est fait de polylignes, lignes, arcs et splines; ce qui est désigné comprend autre chose")
((et_axe (jeu (list (courbe '((0 . "LINE") (10 1.0 0.0 0.0) (11 1.0 0.0 5.0)))))) "l'axe est de longueur nulle")
;; the length of a spline: of the parabola y = x * x from -1 to 1, sqrt 5 + asinh 2 / 2
(preparer
  (setq e (courbe '((0 . "SPLINE") (100 . "AcDbEntity") (100 . "AcDbSpline") (70 . 8) (71 . 2) (72 . 6) (73 . 3) (74 . 0)
                    (40 . 0.0) (40 . 0.0) (40 . 0.0) (40 . 1.0) (40 . 1.0) (40 . 1.0) (10 -1.0 1.0 0.0) (10 0.0 -1.0 0.0) (10 1.0 1.0 0.0)))
        s (list (list "dessin" (jeu (list (point -2.0 -2.0 5.0) (point 2.0 -2.0 5.0) (point 0.0 3.0 5.0)))))))
((equal (car (profil (list (et_axe (jeu (list e)))) s nil)) (+ (sqrt 5.0) (* 0.5 (log (+ 2.0 (sqrt 5.0))))) 1e-4) T)
;; an arc over the plane z = x / 10 stays within the tolerance and ends where it ends
((presque (cadr (last (car (morceaux (profil (list (et_axe (jeu (list arc)))) (list (list "dessin" (jeu (carre)))) nil))))) 102.0) T)

(situation "AnAxisThatCrossesItselfIsTold")
((last (caddr (et_terrain (list (axe '((10.0 10.0) (50.0 10.0) (50.0 50.0) (30.0 0.0)))) (list (list "dessin" (jeu (carre)))) nil)))
  "L'axe se croise lui-même à 24.00 m de son début, en 34.00, 10.00")

;; Each place that would bring the two together is proposed: exchanged, degrees, feet, millimetres, elsewhere.
(situation "ASurfaceElsewhereIsExplained")
(tableau (x y facteur message)
  (6860000.0 650000.0 1.0 "*échangés*YX*") (2.35 48.85 1e-5 "*en degrés*") (2132545.0 22506562.0 3.28 "*en pieds*")
  (650000000.0 6860000000.0 1000.0 "*dans la même unité*") (750000.0 6860000.0 1.0 "il n'y a pas de surface sous l'axe (axe: x de 650000 à 650100*surface: x de 750000 à 750100*"))
(preparer
  (setq s (list (list "dessin" (jeu (mapcar '(lambda (p) (point (+ x (* facteur (car p))) (+ y (* facteur (cadr p))) 1.0)) '((0 0) (100 0) (100 100) (0 100))))))))
((wcmatch (profil (list (axe '((650000.0 6860030.0) (650100.0 6860030.0)))) s nil) message) T)

(situation "OtherArgumentsAreNil")
(tableau (appel)
  ((et_axe)) ((et_axe 3)) ((et_axe (ssadd))) ((et_axe_depuis nil 1.0)) ((et_axe_depuis '((0.0 0.0 0.0 0.0) (1.0 0.0 0.0 0.0)) 2.0)) ((et_terrain)) ((et_terrain nil)) ((et_terrain nil nil)) ((et_terrain 3 nil nil))
  ((et_terrain nil '(("puits" "x")))) ((et_terrain '(((0.0 0.0 0.0 0.0))) '(("fichier" "x")))) ((et_terrain '(((0.0 0.0) (1.0 0.0))) '(("fichier" "x")))) ((et_terrain nil '(("fichier" "x")) '(("hauteur" 3)))) ((et_terrain nil '(("fichier" "x")) '(("tolerance" -1)))))
(appel nil)

(situation "TheTrianglesThemselves")
(preparer (setq s (list (list "dessin" (jeu (append (carre) (list (point 50.0 50.0 125.0))))))))
((length (et_triangles s nil 4)) 4)
((vl-every '(lambda (tr) (member '(50.0 50.0 125.0) tr)) (et_triangles s nil 4)) T)
((et_triangles s nil 3) "4 triangles, plus qu'il n'en est dessiné (3): limitez la source")
((et_triangles '(("axe")) nil 3) nil)
((et_triangles s nil) nil)
