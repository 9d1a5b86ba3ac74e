;; PLV-FEUILLES: what a sheet shows at its cuts. Sheets are looked at as the lists that are plotted, their drawings on the paper in millimetres.

(commun
  (fichier "g.csv" "distance;altitude;nom\n0;50;\n100;51;\n200;50;\n280;49;\n320;49;\n400;50;\n500;51;\n600;50;\n")
  (fichier "t.txt" "T - 6.0 4 Terrain\nT - 3.0 12 Pentes\nT - 2.5 2 Distances\n")
  (fichier "s.txt" "texte;arial.ttf;2.5\nlibelle;bas;Point bas <Z>|PK <PK>\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "1" '(1000.0 500.0 0.0) 10.0 2.5 150.0 nil))
    (plv-projet p "Projet" '((0.0 52.0) (300.0 49.0 1000.0) (600.0 52.0)))
    (plv-matrices p "<dossier>t.txt" T)
    (plv-style "<dossier>s.txt" nil 1000.0)
    (setq m (plv-feuilles:mesurer p) place (plv-feuilles:place "cartouche.dxf"))
    ;; the sheet between two cuts: its texts as (words left right y), and the edge of its view
    (defun feuille (debut fin) (plv-feuilles:une m 1000.0 place "x" 1 nil debut fin nil nil))
    (defun ecrits (f)
      (mapcar '(lambda (d / l) (setq l (plv-largeur-texte (nth 3 d) (cadr d))) (list (nth 3 d) (- (nth 4 d) (* 0.5 (nth 2 d) l)) (+ (nth 4 d) (* (- 1 (* 0.5 (nth 2 d))) l)) (nth 5 d)))
        (vl-remove-if-not '(lambda (d) (and (= (car d) "T") (equal (nth 6 d) 0.0 0.1))) (nth 6 f))))
    (defun ecrit (f motif) (car (vl-member-if '(lambda (e) (wcmatch (car e) motif)) (ecrits f))))
    ;; what the sheet doesn't show, as words
    (defun caches (f) (mapcar '(lambda (e) (cdr (assoc 1 (entget e)))) (vl-remove-if 'listp (cddddr (last (cadr f))))))))

;; A cut at 300 m goes through the label of the low point and the figure of 40.00 m from 280 to 320 m.
(situation "ACutTearsNoText")
(preparer
  (setq avant (feuille nil 300.0) apres (feuille 300.0 nil))
  (defun bord (f cote / vue) (setq vue (plv-dernier (cadr f))) (plv-mentions:x f (plv-presentations:placer f place) place (nth (if (> cote 0) 2 0) vue)))
  (defun mention (f) (nth 4 (car (vl-member-if '(lambda (d) (and (= (car d) "T") (wcmatch (nth 3 d) "Station*"))) (nth 6 f))))))
((mapcar 'car (ecrits avant)) ("PK 300.00" "Point bas 49.05" "40.00"))
((mapcar 'car (ecrits apres)) ("PK 300.00" "Point bas 49.05" "40.00"))
;; the label hangs over the edge, what is written at the cut stands beyond it
((< (cadr (ecrit avant "Point*")) (bord avant 1) (caddr (ecrit avant "Point*")) (- (mention avant) 2.5)) T)
((< (mention apres) (cadr (ecrit apres "Point*")) (bord apres -1) (caddr (ecrit apres "Point*"))) T)
;; the figure stands within the edge of both, and so far from the next cell
((< 0.2 (- (bord avant 1) (caddr (ecrit avant "40.00"))) 0.8) T)
((< 0.2 (- (cadr (ecrit apres "40.00")) (bord apres -1)) 0.9) T)
;; all three are not shown where they were, and nothing is blanked
((mapcar 'caches (list avant apres)) (("PK 300.00" "Point bas 49.05" "40.00") ("PK 300.00" "Point bas 49.05" "40.00")))
((vl-some '(lambda (d) (= (car d) "B")) (append (nth 6 avant) (nth 6 apres))) nil)
;; a cut beside all words leaves them alone
(preparer (setq avant (feuille nil 280.0)))
((list (ecrits avant) (caches avant)) (nil nil))

;; The plan above a profile: a station that has no room above the axis stands below it, one at the line of a cut isn't written, and neither north nor
;; the scale bar hides the axis.
(situation "APlanShowsItsAxis")
(preparer
  (plv-associer-axe p (plv-polyligne "PLV-PROJET" '((0.0 0.0) (300.0 30.0) (600.0 0.0))))
  (setq m (plv-feuilles:mesurer p) f (plv-feuilles:une m 1000.0 place "x" 1 nil nil nil nil 40.0)
        droit (plv-feuilles:une m 1000.0 place "x" 1 nil nil 303.0 nil 40.0))
  (defun station (f texte) (cadr (car (vl-member-if '(lambda (e) (= (caddr e) texte)) (nth 6 (nth 5 f))))))
  (defun lieu (f abscisse) (plv-mentions:x f (plv-presentations:placer f place) place abscisse))
  (defun couvre (d x y) (and (= (car d) "B") (< (nth 1 d) x (nth 3 d)) (< (nth 2 d) y (nth 6 d)))))
;; the band is 40 m high about 15 m: it ends 5 m above the highest and the lowest point
((< 0.0 (station f "0") 4.0) T)
((< 20.0 (station f "300") 26.0) T)
((< 24.0 (station f "250") 29.0) T)
((list (station droit "300") (numberp (station droit "250"))) (nil T))
((vl-some '(lambda (d) (couvre d (lieu f 1000.0) (- (plv-place-hauteur place) 35.0))) (nth 6 f)) nil)
;; both are there
((mapcar '(lambda (t1) (length (vl-remove-if-not '(lambda (d) (and (= (car d) "T") (= (nth 3 d) t1))) (nth 6 f)))) '("N" "40 m")) (1 1))

;; At a cut where the planes change each sheet names the plane that its own part stands on.
(situation "ACutAtAChangeNamesBothPlanes")
(preparer
  (plv-pc p "M" 0.0 45.0)
  (plv-pc p "A" 320.0 47.0)
  (setq m (plv-feuilles:mesurer p))
  (defun mention (f) (nth 3 (car (vl-member-if '(lambda (d) (and (= (car d) "T") (wcmatch (nth 3 d) "*PC *"))) (nth 6 f))))))
((wcmatch (mention (feuille nil 320.0)) "*PC 45.00  -  feuille 2") T)
((wcmatch (mention (feuille 320.0 nil)) "*PC 47.00  -  feuille 0") T)

;; As many sheets as if each were full, none much shorter than another; the last one leaves a legend its room, which has none beneath the profile.
(situation "SheetsAreBalanced")
(preparer
  (setq f (open "<dossier>long.csv" "w") d 0)
  (write-line "distance;altitude" f)
  (repeat 301 (write-line (strcat (itoa d) ";" (itoa (+ 50 (rem d 3)))) f) (setq d (+ d 10)))
  (close f)
  (setq q (plv-nouveau "<dossier>long.csv" "2" '(0.0 2000.0 0.0) 10.0 2.5 150.0 nil))
  (plv-matrices q "<dossier>t.txt" T)
  (setq m (plv-feuilles:mesurer q))
  (defun longueurs (coupures / avant) (setq avant 0.0) (mapcar '(lambda (c / l) (setq l (- c avant) avant c) l) (append coupures '(3000.0))))
  (defun sans-dernier (l) (reverse (cdr (reverse l))))
  (defun ecart (l) (- (apply 'max l) (apply 'min l)))
  (defun hauteur () (+ 2.0 (- (plv-cle 'haut m) (plv-cle 'bas m))))
  (setq pleines (longueurs (plv-feuilles:coupures-pleines m 440.0)) egales (longueurs (plv-feuilles:coupures m 440.0 (hauteur)))))
((list (length egales) (> (ecart pleines) 150.0) (< (ecart egales) 45.0)) (8 T T))
(preparer
  (plv-projet q "Projet" '((0.0 49.0) (3000.0 49.0)))
  (plv-metres '("2") "Projet" nil T)
  (plv-legende q "Projet" nil)
  (setq m (plv-feuilles:mesurer q) egales (longueurs (plv-feuilles:coupures m 440.0 (hauteur)))))
((list (length egales) (< (ecart (sans-dernier egales)) 45.0) (< (last egales) (- (apply 'min (sans-dernier egales)) 50.0))) (8 T T))

;; Without tables a cut isn't bound to the three points of the ground, of which the middle one has a manhole's name above it.
(situation "WithoutTablesCutsAreBesideWords")
(fichier "trois.csv" "distance;altitude;nom\n0;50;\n150;51;\n300;50;\n")
(preparer
  (setq q (plv-nouveau "<dossier>trois.csv" "3" '(0.0 4000.0 0.0) 10.0 2.5 150.0 nil))
  (plv-projet q "Assainissement" '((0.0 48.0) (300.0 47.0)))
  (plv-reseau-ecrire q "Assainissement" '("regard;Regard du milieu;150;visite;1000/1240" "regard;B;290;visite;1000/1240" "tuyau;Regard du milieu;B;250/280"))
  (plv-dessiner-reseau q "Assainissement")
  (setq m (plv-feuilles:mesurer q) c (plv-feuilles:coupures m 220.0 200.0)))
((list (length c) (vl-some '(lambda (texte) (< (car texte) (car c) (cadr texte))) (plv-cle 'couches m))) (1 nil))
((vl-some '(lambda (texte) (< (car texte) 150.0 (cadr texte))) (plv-cle 'couches m)) T)

;; At a cut through a dimension the match line stands below and above it; it is drawn 3 mm longer at both ends.
(situation "AMatchLineLeavesDimensions")
(preparer
  (plv-coter p "Projet" (* 0.5 pi) "Altitudes" (plv-elements p "Projet"))
  (setq m (plv-feuilles:mesurer p)
        cote (car (vl-sort (plv-boites-cotes p) '(lambda (a b) (> (car a) (car b)))))
        d (- (* 0.5 (+ (car cote) (caddr cote))) 1000.0) morceaux (cddddr (plv-dernier (cadr (feuille nil d))))))
((vl-every '(lambda (l) (or (< (+ (caddr l) 3.0) (cadr cote)) (> (- (cadr l) 3.0) (plv-boite-haut cote)))) morceaux) T)
((list (cadr (car morceaux)) (length morceaux)) (503.0 2))

;; A legend that stands close to the end of the profile is an inset, and isn't seen beside it besides.
(situation "ALegendIsSeenOnce")
(preparer
  (plv-metres '("1") "Projet" nil T)
  (setq l (plv-legende p "Projet" nil) a (caadr (etendue-tracee (vl-remove l (plv-entites-dessinees p)))))
  (entmod (subst (list 10 (+ a 1.0) 600.0 0.0) (assoc 10 (entget l)) (entget l)))
  (setq m (plv-feuilles:mesurer p)))
((list (length (plv-cle 'legendes m)) (<= a (plv-cle 'droite m) (+ a 0.6))) (1 T))

(situation "SheetsFollowTheirPlotTable")
(preparer
  (defun table (rangee / f)
    (vl-mkdir (strcat (plv-dossier-reglages) "/traces"))
    (setq f (open (strcat (plv-dossier-reglages) "/traces/Essai.txt") "w")) (write-line rangee f) (close f))
  (defun faire () (plv-feuilles (list p) "cartouche.dxf" nil "Essai" "<dossier>f.pdf"))
  (defun vieilles () (mapcar '(lambda (e) (list (plv-fait-chose (plv-etat-fait e)) (plv-etat-raisons e))) (vl-remove-if 'plv-etat-a-jour-p (plv-etats p))))
  (plv-choisir-couleurs "bureau"))
((< 0 (faire)) T)
((vieilles) nil)
(preparer (plv-choisir-couleurs "Noir"))
((vieilles) (("FEUILLES" ("la table de tracé"))))
((plv-actualiser (list p)) T)
((vieilles) nil)
;; a table of one's own that says something else
(preparer (table "couleur;*;gris") (plv-choisir-couleurs "ESSAI"))
((< 0 (faire)) T)
((vieilles) nil)
(preparer (table "couleur;*;noir"))
((vieilles) (("FEUILLES" ("la table de tracé"))))

;; Layouts that hide words of the drawing are one step to be undone, which shows them again.
(situation "LayoutsAreOneStep")
(fichier "u.csv" "distance;altitude\n0;50;\n300;50\n600;50\n")
(preparer
  (setq q (plv-nouveau "<dossier>u.csv" "U" '(0.0 2000.0 0.0) 10.0 2.5 150.0 nil))
  (plv-projet q "Projet" '((0.0 52.0) (300.0 49.0) (600.0 52.0)))
  (plv-matrices q "<dossier>t.txt" T)
  (plv-rehabiller q)
  (defun copies () (vl-remove-if-not 'plv-original-de-copie (mapcar 'car (plv-calques-du-dessin))))
  (setq avant (layoutlist)))
(tape ("PLV-PRESENTATIONS" "Un" "U" "A2" "1000" "Essai") "Présentations: Feuille 1, Feuille 2, au 1:1000")
((list (copies) (- (length (layoutlist)) (length avant))) (("PLV-LIBELLES-HORS-1-2") 2))
(tape ("_.U"))
((list (copies) (equal (layoutlist) avant)) (nil T))

;; A torn word stands on a copy of its layer: switched off afterwards, the layer takes its words from the next sheets, and gives them back with them.
(situation "WordsOfALayerThatIsOffAreNotWritten")
(preparer
  (defun plv-feuilles:coupures (m l h) '(300.0))
  (defun eteindre (oui / g) (setq g (entget (tblobjname "LAYER" "PLV-LIBELLES"))) (entmod (subst (cons 62 ((if oui - +) (abs (cdr (assoc 62 g))))) (assoc 62 g) g)))
  (defun presenter () (plv-presentations (list p) "cartouche.dxf" 1000.0 "x" nil) (setq s (ssget "X" '((0 . "TEXT") (67 . 1) (1 . "Point bas*")))) (if s (sslength s) 0)))
((presenter) 2)
(preparer (eteindre T))
((presenter) 0)
(preparer (eteindre nil))
((presenter) 2)

;; Where no scale would do, none is named.
(situation "WhatIsTooHighIsTold")
(refuse (plv-feuilles (list p) "cartouche.dxf" 200.0 "x" "<dossier>x.pdf") "il tiendrait à 1:500")
(preparer (setq plv-feuilles:echelles '(50.0 100.0 200.0)))
(refuse (plv-feuilles (list p) "cartouche.dxf" 200.0 "x" "<dossier>x.pdf") "la feuille en offre 233; des plans de comparaison (PLV-PC Proposer)")
