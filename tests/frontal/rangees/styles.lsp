;; PLV-STYLE: style files, what they make of layers and texts, what is drawn beside the profile and follows it.

(commun
  (fichier "g.csv" "distance;altitude;nom\n0;50;A\n40;52;\n80;49;B\n120;47;\n200;44;C\n")
  (fichier "p.csv" "0;50;;\n80;53;L20;C\n200;43;;\n")
  (fichier "s.txt" "# essai\ncalque;PLV-TN;#102030;tirets;0.52;80\ncalque;PLV-TN-*;5;continu;0.13\nligne;Voirie;noir;mixte;0.5\ntexte;arial.ttf;2.5\ngrille;25\nsol;2;60\nlibelle;pente;<P> %\nlibelle;courbe;R=<R>|T=<T>\nlibelle;haut;H <Z>|<PK>\nlegende;lignes\ntableau;cadre;1\ntableau;zebre;20\ntableau;fleches;1\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "1" '(1000.0 500.0 0.0) 10.0 2.5 150.0 nil))
    (defun calque (nom) (mapcar '(lambda (c) (cdr (assoc c (entget (tblobjname "LAYER" nom))))) '(62 420 370 6)))
    (defun compte (nom type) (if (setq s (ssget "X" (list (cons 0 type) (cons 8 nom)))) (sslength s) 0))
    (defun mots (motif) (if (setq s (ssget "X" (list '(0 . "TEXT") (cons 1 motif)))) (sslength s) 0))))

(situation "LayersLineTypesAndTextsTakeIt")
;; lines of other layers and what is drawn later take it, too
((plv-style "<dossier>s.txt" nil 500.0) "<dossier>s.txt")
;; 16 * 65536 + 32 * 256 + 48; 0.52 mm is no weight that drawings know, 0.53 is
((calque "PLV-TN") (7 1056816 53 "KAVEL-TIRETS-STYLE"))
;; dashes of 3 mm are 1.5 m at 1:500, texts of 2.5 mm 1.25 m
((cdr (assoc 49 (entget (tblobjname "LTYPE" "KAVEL-TIRETS-STYLE")))) 1.5)
((list (plv-ttxt p) (cdr (assoc 3 (entget (tblobjname "STYLE" "KAVEL-TEXTE"))))) (1.25 "arial.ttf"))
(preparer (plv-ecrire-terrains p (list (plv-terrain "Roc" "Rocher" '(((0.0 45.0) (200.0 40.0)))))))
((calque "PLV-TN-ROC") (5 nil 13 "Continuous"))
;; in grey: as the row says, 80 % of white
((plv-style "<dossier>s.txt" T 500.0) "<dossier>s.txt")
((calque "PLV-TN") (7 13421772 53 "KAVEL-TIRETS-STYLE"))
;; a shipped style by its name; the drawing keeps what was asked for
((list (plv-style "monochrome" nil 1000.0) (plv-style-nom) (plv-style-echelle) (plv-ttxt p)) ("monochrome" "monochrome" 1000.0 2.5))

(situation "OnesOwnStandsInTheSettings")
(preparer
  (vl-mkdir "<dossier>styles")
  (vl-file-copy "<dossier>s.txt" "<dossier>styles/route.txt")
  (setq avant (getenv "KAVEL_CHEMIN"))
  (setenv "KAVEL_CHEMIN" (vl-string-right-trim "/" "<dossier>")))
((= (plv-fichier-de-style "route") (findfile "<dossier>styles/route.txt")) T)
(preparer (setenv "KAVEL_CHEMIN" avant))
((wcmatch (plv-fichier-de-style "Route") "*exemples/style-route.txt") T)

(situation "FaultsAreNamedAndChangeNothing")
(fichier "f1.txt" "texte;arial.ttf;2.5\ncalque;PLV-TN;#12;tirets;0.5\n")
(preparer (setq avant (list (calque "PLV-TN") (plv-ttxt p) (sslength (ssget "X")))))
(refuse (plv-style "<dossier>f1.txt" nil 500.0) "f1.txt, ligne 2: couleur \"#12\": #RRVVBB, noir ou un numéro de 1 à 255 est attendu")
(fichier "f2.txt" "calque;PLV-TN;#102030;pointilles;0.5\n")
(refuse (plv-style "<dossier>f2.txt" nil 500.0) "ligne 1: trait \"pointilles\": continu, tirets, points, mixte, longs est attendu")
(fichier "f3.txt" "ligne;Route;#102030;continu;0.5\n")
(refuse (plv-style "<dossier>f3.txt" nil 500.0) "un genre de projet est attendu")
(fichier "f4.txt" "texte;arial.ttf;1.8\n")
(refuse (plv-style "<dossier>f4.txt" nil 500.0) "hauteur \"1.8\": de 2.5 à 20 mm est attendu")
(fichier "f5.txt" "libelle;pente;pente\n")
(refuse (plv-style "<dossier>f5.txt" nil 500.0) "motif \"pente\": une marque est attendue, <P>, <L>")
(fichier "f6.txt" "couleurs;PLV-TN;1\n")
(refuse (plv-style "<dossier>f6.txt" nil 500.0) "\"couleurs\" inconnu: calque, ligne, texte")
(fichier "f7.txt" "calque;PLV-TN;1\n")
(refuse (plv-style "<dossier>f7.txt" nil 500.0) "calque: 4 champs sont attendus, 2 sont donnés")
(fichier "f8.txt" "# rien\n")
(refuse (plv-style "<dossier>f8.txt" nil 500.0) "f8.txt: aucune rangée de style")
(refuse (plv-style "<dossier>absent.txt" nil 500.0) "fichier introuvable")
((equal avant (list (calque "PLV-TN") (plv-ttxt p) (sslength (ssget "X")))) T)
((plv-style-nom) nil)

;; Without a style too each kind but the road's has a layer, colour and line type of its own, at once; a style takes them over.
(situation "KindsAreToldApart")
(preparer
  (foreach g '("Projet" "Voirie" "AEp" "Assainissement") (plv-projet p g '((0.0 49.0) (200.0 45.0))))
  (defun du-genre (g) (mapcar '(lambda (e) (cdr (assoc 8 (entget e)))) (plv-elements p g)))
  (defun aspect (c / g) (setq g (tblsearch "LAYER" c)) (list (cdr (assoc 62 g)) (cdr (assoc 6 g)))))
((mapcar '(lambda (g) (car (du-genre g))) '("Projet" "Voirie" "AEp" "Assainissement")) ("PLV-PROJET" "PLV-PROJET" "PLV-PROJET-AEP" "PLV-PROJET-ASSAINISSEMENT"))
((mapcar 'aspect '("PLV-PROJET-AEP" "PLV-PROJET-ASSAINISSEMENT")) ((150 "KAVEL-MIXTE") (94 "KAVEL-LONGS")))
(preparer (plv-style "<dossier>s.txt" nil 1000.0))
((car (du-genre "Voirie")) "PLV-PROJET-VOIRIE")
;; what a hand has put elsewhere stays there
(preparer (setq e (car (plv-elements p "AEp"))) (command "_-LAYER" "_N" "A-MOI" "") (entmod (subst '(8 . "A-MOI") (assoc 8 (entget e)) (entget e))) (plv-ranger-lignes p))
((du-genre "AEp") ("A-MOI"))

;; The legend of lines stands above the title as soon as there is a line beside the ground, with a style or without, and follows what comes and goes.
(situation "TheLegendFollowsTheLines")
(preparer
  (defun legende () (vl-remove nil (mapcar '(lambda (e) (cdr (assoc 1 (entget e)))) (plv-entites-legende-lignes p))))
  ;; colour, true colour, weight and line type of the samples
  (defun traits ()
    (mapcar '(lambda (e) (mapcar '(lambda (c) (cdr (assoc c (entget e)))) '(62 420 370 6)))
      (vl-remove-if '(lambda (e) (assoc 1 (entget e))) (plv-entites-legende-lignes p))))
  (defun bas () (apply 'min (mapcar '(lambda (e) (cadr (cdr (assoc 10 (entget e))))) (plv-entites-legende-lignes p))))
  (defun compte-tout () (sslength (ssget "X")))
  (setq avant (compte-tout)))
((legende) nil)
(preparer (setq route (plv-projet p "Voirie" '((0.0 49.0) (200.0 45.0)))))
((legende) ("Terrain naturel" "Projet Voirie"))
(preparer (setq eau (plv-projet p "AEp" '((0.0 48.0) (200.0 44.0)))))
((cddr (legende)) ("Projet AEp"))
;; samples look like their lines, and are on none of their layers
((equal (traits) (mapcar 'calque '("PLV-TN" "PLV-PROJET" "PLV-PROJET-AEP"))) T)
((vl-remove-if '(lambda (e) (= (cdr (assoc 8 (entget e))) "PLV-LIBELLES")) (plv-entites-legende-lignes p)) nil)
;; it is part of the dressing, above the title, and moves up with it
((vl-every '(lambda (e) (member e (plv-entites-habillage p))) (plv-entites-legende-lignes p)) T)
((> (bas) (cadr (cdr (assoc 10 (plv-attribut-profil p "TITRE"))))) T)
;; a layer that a hand gives another colour
(tape ("_.-LAYER" "_Color" "30" "PLV-PROJET-AEP" ""))
((list (car (caddr (traits))) (length (legende))) (30 3))
;; erased by hand, and brought back
(preparer (command "_.ERASE" (car eau) "") (plv-apres-commande nil))
((length (legende)) 2)
(preparer (plv-effacer-courbes p route))
((list (legende) (- (compte-tout) avant)) (nil 0))
(preparer (plv-projet p "Voirie" '((0.0 60.0) (200.0 60.0))) (setq avant (compte-tout)) (plv-style "<dossier>s.txt" nil 1000.0))
((list (legende) (equal (traits) (mapcar 'calque '("PLV-TN" "PLV-PROJET-VOIRIE")))) (("Terrain naturel" "Projet Voirie") T))
;; another kind of the same curve
(preparer (plv-projet p "Projet" '((0.0 48.0) (200.0 44.0))) (plv-transferer p "Assainissement"))
((cddr (legende)) ("Projet Assainissement"))

(situation "LinesHaveLabels")
(preparer
  (plv-projet-fichier p "Voirie" "<dossier>p.csv")
  (plv-style "<dossier>s.txt" nil 1000.0))
;; each kind that has a row stands on a layer of its own
((mapcar '(lambda (e) (cdr (assoc 8 (entget e)))) (plv-elements p "Voirie")) ("PLV-PROJET-VOIRIE" "PLV-PROJET-VOIRIE" "PLV-PROJET-VOIRIE"))
;; 3 m on 80 m rise, 10 m on 120 m fall; the arc of 20 m turns by 0.0375 + 0.08333: its radius is 165.5, its tangents 10 m
((list (mots "3.75 %") (mots "8.33 %") (mots "R=16#") (mots "T=10.00")) (1 1 1 1))
;; the slope is written along its line: ten times 0.0375
((equal (cdr (assoc 50 (entget (ssname (ssget "X" '((0 . "TEXT") (1 . "3.75 %"))) 0)))) (atan 0.375) 1e-9) T)
;; highest where the arc is level: 0.0375 / 0.12083 of 20 m behind its beginning at 70 m
((list (mots "H 52.7#") (mots "76.2#")) (1 1))
;; a legend names what is there
((list (mots "Terrain naturel") (mots "Projet Voirie")) (1 1))
;; another kind on its layer too; the labels follow, at once or when asked
((mapcar 'plv-etat-valeur (vl-remove-if-not '(lambda (e) (= (plv-fait-chose (plv-etat-fait e)) "HABILLAGE")) (plv-etats p))) ("a-jour"))
;; the end of the line 1.2 m lower, by hand: 10.367 m fall on 110 m
(preparer
  (setq l (plv-dernier (vl-sort (plv-elements p "Voirie") '(lambda (a b) (< (caddr (plv-boite a)) (caddr (plv-boite b))))))
        bout (plv-dernier (vl-remove-if-not '(lambda (g) (= (car g) 10)) (entget l))))
  (entmod (subst (list 10 (cadr bout) (- (caddr bout) 12.0)) bout (entget l))))
((mapcar 'plv-etat-valeur (vl-remove-if-not '(lambda (e) (= (plv-fait-chose (plv-etat-fait e)) "HABILLAGE")) (plv-etats p))) ("a-refaire"))
((list (plv-actualiser (list p)) (mots "8.33 %") (mots "9.42 %")) (T 0 1))

;; A leader from a curve that stands under a dimension goes on above it.
(situation "LeadersLeaveDimensions")
(preparer
  (plv-projet-fichier p "Voirie" "<dossier>p.csv")
  (plv-coter p "Voirie" (* 0.5 pi) "Altitudes" (plv-elements p "Voirie"))
  (plv-style "<dossier>s.txt" nil 1000.0)
  (defun traits ()
    (apply 'append
      (mapcar '(lambda (e / s) (setq s (plv-cles 10 (entget e))) (mapcar 'list s (cdr s)))
        (vl-remove-if-not '(lambda (e) (and (= (plv-type e) "LWPOLYLINE") (= (plv-cle 8 (entget e)) "PLV-LIBELLES"))) (plv-entites-habillage p)))))
  (defun coupe-p (t1 b) (and (< (car b) (car (car t1)) (caddr b)) (equal (car (car t1)) (car (cadr t1)) 1e-6)
                             (< (min (cadr (car t1)) (cadr (cadr t1))) (plv-boite-haut b)) (> (max (cadr (car t1)) (cadr (cadr t1))) (cadr b)))))
((vl-some '(lambda (b) (vl-some '(lambda (t1) (< (car b) (car (car t1)) (caddr b))) (traits))) (plv-boites-cotes p)) T)
((vl-some '(lambda (b) (vl-some '(lambda (t1) (coupe-p t1 b)) (traits))) (plv-boites-cotes p)) nil)

;; A block's words above the profile are below the title, which stands 1 m above them at least.
(situation "TheTitleIsAboveWordsOfBlocks")
(preparer
  (entmake '((0 . "BLOCK") (2 . "R") (70 . 2) (10 0.0 0.0 0.0))) (entmake '((0 . "CIRCLE") (10 0.0 0.0 0.0) (40 . 1.0))) (entmake '((0 . "ENDBLK")))
  (setq y (+ 500.0 (plv-hauteur-profil p) 40.0))
  (entmake (list '(0 . "INSERT") '(66 . 1) '(2 . "R") (list 10 1020.0 (- y 30.0) 0.0)))
  (entmake (list '(0 . "ATTRIB") (list 10 1020.0 y 0.0) '(40 . 2.0) '(1 . "R1") '(2 . "NUM") '(70 . 0))) (entmake '((0 . "SEQEND")))
  (plv-style "<dossier>s.txt" nil 500.0))
((> (cadr (plv-boite (ssname (ssget "X" '((0 . "TEXT") (1 . "Longueur*"))) 0))) (+ y 3.0)) T)

(situation "TablesHaveFrames")
(fichier "t.txt" "T - 6.0 4 Altitude\nT - 3.0 14 Pentes\nT - 2.5 2 Partielles\n")
(preparer (plv-projet-fichier p "Voirie" "<dossier>p.csv"))
((plv-style "<dossier>s.txt" nil 1000.0) "<dossier>s.txt")
((not (plv-matrices p "<dossier>t.txt" nil)) nil)
;; a frame around it, the second row of three toned, an arrow for each of two slopes
((list (compte "PLV-CADRES" "LWPOLYLINE") (compte "PLV-ZEBRES" "HATCH") (compte "PLV-CADRES" "HATCH")) (1 1 2))
;; rules look as the titles' frames do, of the layer of tables
((ssget "X" '((0 . "LINE") (8 . "0"))) nil)
;; cells are written in the style's face
((cdr (assoc 7 (entget (ssname (ssget "X" '((0 . "TEXT") (1 . "52.00"))) 0)))) "KAVEL-TEXTE")
;; drawn again, they replace themselves; a row alone keeps them
(preparer (plv-matrices p "<dossier>t.txt" nil))
((list (compte "PLV-CADRES" "LWPOLYLINE") (compte "PLV-ZEBRES" "HATCH") (compte "PLV-CADRES" "HATCH")) (1 1 2))
(preparer (plv-remplir-rangee p (car (plv-tables p)) 1))
((list (compte "PLV-CADRES" "LWPOLYLINE") (compte "PLV-MATRICE" "LWPOLYLINE") (compte "PLV-CADRES" "HATCH")) (1 2 2))
;; another height of texts draws the tables anew
((list (not (plv-style "<dossier>s.txt" nil 500.0)) (plv-matrice-echelle (plv-matrice (car (plv-tables p))))) (nil 1.25))

;; Titles of rows have the style's face, and no more room than before; without it they have that of the other texts again.
(situation "TitlesOfRowsHaveTheirFace")
(fichier "t.txt" "T - 6.0 4 Altitude du terrain\nT - 2.5 2 Distances\n")
(fichier "gras.txt" "texte;arial.ttf;2.5\ntitres;arialbd.ttf\n")
(fichier "maigre.txt" "texte;arial.ttf;2.5\n")
(fichier "vide.txt" "titres;\n")
(preparer
  (plv-matrices p "<dossier>t.txt" T)
  (defun titres (/ e trouves)
    (setq e (cdr (assoc -2 (tblsearch "BLOCK" (cdr (assoc 2 (entget (car (plv-tables p)))))))))
    (while e
      (if (= (cdr (assoc 0 (entget e))) "TEXT") (setq trouves (cons (entget e) trouves)))
      (setq e (entnext e)))
    (reverse trouves))
  (defun large (g police / coins) (setq coins (textbox (list (assoc 1 g) (assoc 40 g) (cons 7 police)))) (- (caadr coins) (caar coins)))
  (plv-style "<dossier>gras.txt" nil 500.0)
  (setq gras (titres)))
((mapcar '(lambda (g) (cdr (assoc 1 g))) gras) ("Altitude du terrain" "Distances"))
((cdr (assoc 3 (entget (tblobjname "STYLE" (cdr (assoc 7 (car gras))))))) "arialbd.ttf")
((vl-every '(lambda (g) (equal (* (cdr (assoc 41 g)) (large g "KAVEL-TITRES")) (large g "KAVEL-TEXTE") 1e-6)) gras) T)
((> (large (car gras) "KAVEL-TITRES") (large (car gras) "KAVEL-TEXTE")) T)
(preparer (plv-style "<dossier>maigre.txt" nil 500.0))
((mapcar '(lambda (g) (list (cdr (assoc 7 g)) (cdr (assoc 41 g)))) (titres)) (("KAVEL-TEXTE" 1.0) ("KAVEL-TEXTE" 1.0)))
(refuse (plv-style "<dossier>vide.txt" nil 500.0) "un fichier de police est attendu")

(situation "TheGroundIsTonedButNotInGaps")
(preparer (plv-ecrire-lacunes p '((40.0 80.0))) (plv-style "<dossier>s.txt" nil 1000.0))
;; three steps of tone before the gap, three behind it
((compte "PLV-SOL" "HATCH") 6)
(preparer (setq boites (vl-sort (mapcar 'plv-boite (plv-entites-du-jeu (ssget "X" '((8 . "PLV-SOL"))))) '(lambda (a b) (< (car a) (car b))))))
((plv-uniques (mapcar '(lambda (b) (list (car b) (caddr b))) boites)) ((1000.0 1040.0) (1080.0 1200.0)))

(situation "NamesOfPlanesStandBesideEachOther")
;; three sections within 20 m: a name takes 17 m at texts of 2.5
(fichier "m.csv" "distance;altitude\n0;10\n8;40\n14;70\n100;70\n")
(preparer (setq p (plv-nouveau "<dossier>m.csv" "2" '(0.0 0.0 0.0) 10.0 2.5 250.0 nil)))
((length (plv-plans p)) 3)
(preparer
  (setq boites (vl-sort (mapcar 'plv-boite (plv-entites-du-jeu (ssget "X" '((0 . "TEXT") (1 . "PC*"))))) '(lambda (a b) (< (car a) (car b))))
        boites (vl-remove-if '(lambda (b) (> (car b) 500.0)) boites)))
((vl-every '(lambda (a b) (< (caddr a) (car b))) boites (cdr boites)) T)

(situation "BlackTakesThePlaceOfColours")
;; a layer that had a colour of its own has none when the next style says black
((list (plv-style "Route" nil 1000.0) (cadr (calque "PLV-TN"))) ("Route" 7029795))
((list (plv-style "Monochrome" nil 1000.0) (calque "PLV-TN")) ("Monochrome" (7 nil 25 "Continuous")))

(situation "AStyleIsOneStep")
(fichier "t.txt" "T - 6.0 4 Altitude\n")
(preparer (plv-matrices p "<dossier>t.txt" nil) (setq avant (list (sslength (ssget "X")) (plv-ttxt p) (plv-style-nom))))
(tape ("PLV-STYLE" "Route" "Couleurs" "500") "1 profil.")
((equal avant (list (sslength (ssget "X")) (plv-ttxt p) (plv-style-nom))) nil)
(preparer (command "_.U"))
((equal avant (list (sslength (ssget "X")) (plv-ttxt p) (plv-style-nom))) T)

;; What networks draw has no colour of its own in grey: black, or red, green and blue alike.
(situation "NetworksHaveTheStylesColours")
(tableau (style gris)
  ("Route" T)
  ("Assainissement" T)
  ("Eau-potable" T)
  ("Monochrome" nil))
(preparer
  (foreach nom '("PLV-TUYAUX" "PLV-REGARDS" "PLV-CROISEMENTS") (plv-calque nom))
  (defun grise-p (nom / g c)
    (setq g (entget (tblobjname "LAYER" nom)) c (cdr (assoc 420 g)))
    (if c (= (rem c 256) (rem (/ c 256) 256) (/ c 65536)) (= (cdr (assoc 62 g)) 7))))
(passe (plv-style style gris 1000.0))
((vl-remove-if 'grise-p '("PLV-TUYAUX" "PLV-REGARDS" "PLV-CROISEMENTS")) nil)
