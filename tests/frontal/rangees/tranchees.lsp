;; PLV-TRANCHEES. The ground is level at 50 m over 40 m; a pipe of 400/500 from a manhole of 1000/1200 at 0 to a node at 40, invert 48.35: with a
;; bedding of 0.10 the bottom is at 48.20, the trench 1.80 deep and 1.00 wide. The pit is 2.00 by 2.00 around the manhole, from 48.00 up.

(commun
  (fichier "g.csv" "distance;altitude\n0;50\n40;50\n")
  (fichier "t.txt" "# essai\nclasses;1;1.5\nfoisonnement;1.2\ntype;A\nlargeur;;0.5\nlit;0.10\nenrobage;0.20\nblindage;1.30;2/3\nremblai;grave;0.30\nremblai;déblais;;réemploi\nregard;0.4;0.15;0.20\nrevêtement;route\nstructure;enrobés;0.10\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "P1" '(0.0 0.0 0.0) 10.0 2.5 150.0 nil))
    (setq rangees '("regard;A;0;visite;1000/1200;;;48.35" "regard;B;40;noeud;;;48.35" "tuyau;A;B;400/500;béton;135A"))
    (plv-reseau-ecrire p "Assainissement" rangees)
    (defun regles (plus) (append (plv-lire-lignes "<dossier>t.txt") plus))
    (defun valeur (m ouvrage titre)
      (plv-tranchees-valeur m (car (vl-member-if '(lambda (o) (= (car o) ouvrage)) (append (plv-tranchees-ouvrages m) (list (plv-tranchees-total m))))) titre))
    (defun valeurs (m ouvrage titres) (mapcar '(lambda (titre) (plv-reel (valeur m ouvrage titre) 4)) titres))))

;; 39 m of trench: 70.2 m3, of it 3.9 bedding; the surround is 0.70 high, less a pipe of 0.19635 m2. Above it are 1.00 m: 0.10, 0.30 and 0.60.
(situation "WorkedByHand")
(preparer (plv-tranchees-ecrire-regles p "Assainissement" (regles nil)) (setq m (plv-tranchees p "Assainissement")))
((valeurs m "tuyau A - B" '("Fouille" "Lit de pose" "Enrobage" "Tuyau" "Remblai grave" "Remblai déblais" "enrobés" "Surface route" "Blindage"))
 ("70.2000" "3.9000" "19.6424" "7.6576" "11.7000" "23.4000" "3.9000" "39.0000" "140.4000"))
;; the pit: 4 m2 by 2.00; the body 1.13097 m2 by 1.85, of which 1.45 below the fills that hang from the ground; 0.4 m of pipe
((valeurs m "regard A" '("Fouille" "Lit de pose" "Regard" "Tuyau" "Remblai grave" "Remblai déblais" "enrobés" "Surface route" "Blindage"))
 ("8.0000" "0.6000" "2.0923" "0.0785" "0.8607" "4.0815" "0.2869" "2.8690" "0.0000"))
((valeurs m "total" '("Fouille" "Réemploi" "Évacué en place" "Évacué foisonné")) ("78.2000" "27.4815" "50.7185" "60.8621"))
((valeurs m "tuyau A - B" '("Profondeur 0 à 1 m" "Profondeur 1 à 1.5 m" "Profondeur plus de 1.5 m" "Tranche 0 à 1 m" "Tranche 1 à 1.5 m" "Tranche plus de 1.5 m"))
 ("0.0000" "0.0000" "70.2000" "39.0000" "19.5000" "11.7000"))
((< (abs (plv-tranchees-ecart m)) 1e-9) T)
(dit (plv-dire-tranchees m) "Fouille = lit + enrobage + tuyau + regards + remblais + surface: juste." "Blindage        140.400 m2")

;; A stripped ground is dug from; rock splits what is dug, and bulks more.
(situation "OtherGrounds")
(preparer
  (plv-mnt-ajouter p "Décapé" "Autre" '(((0.0 49.7) (40.0 49.7))))
  (plv-mnt-ajouter p "Rocher" "Rocher" '(((10.0 48.2) (40.0 49.2)))))
((plv-tranchees-ecrire-regles p "Assainissement" (append '("sol;Décapé" "couche;Rocher;1.5") (regles nil))) T)
(preparer (setq m (plv-tranchees p "Assainissement")))
((valeurs m "tuyau A - B" '("Fouille" "Fouille en terre" "Fouille en Rocher")) ("58.5000" "43.5000" "15.0000"))
(refuse (plv-tranchees-ecrire-regles p "Assainissement" (cons "sol;Lune" (regles nil))) "ce profil n'a ni terrain ni ligne du nom de Lune")

(situation "WrongRules")
(tableau (phrase plus)
  ("rangée 14, \"largueur;1\": mot inconnu" '("largueur;1"))
  ("il y a déjà un type a" '("type;a"))
  ("l'épaisseur: -1 est négatif" '("lit;-1"))
  ("le remblai sans épaisseur est le dernier" '("remblai;sable;0.1"))
  ("il n'y a pas de type Z" '("tronçon;0;10;Z"))
  ("il recouvre le tronçon de 0 à 10" '("tronçon;0;10;A" "tronçon;5;20;A;route"))
  ("il n'y a pas de revêtement herbe" '("tronçon;0;10;A;herbe"))
  ("un foisonnement est d'au moins 1" '("foisonnement;0.9"))
  ("les limites vont en croissant" '("classes;1"))
  ("type C: ni largeur par diamètre ni largeur par profondeur" '("type;C" "remblai;x"))
  ("type C: le dernier remblai est attendu sans épaisseur" '("type;C" "largeur;;1" "remblai;x;0.2"))
  ("le rapport est un nombre, ou deux comme 2/3" '("blindage;1;2/x"))
  ("le revêtement a déjà une couche enrobés" '("structure;enrobés;0.1")))
(refuse (plv-tranchees-ecrire-regles p "Assainissement" (regles plus)) phrase)
((plv-tranchees-regles p "Assainissement") nil)

;; A manhole that belongs to another profile is dug, counted and paid there; the pipe ends at it all the same.
(situation "ABranchEndsInAManholeOfAnotherProfile")
(preparer
  (plv-tranchees-ecrire-regles p "Assainissement" (regles nil))
  (plv-reseau-ecrire p "Assainissement" '("regard;A;0;visite;1000/1200;;;48.35;;9" "regard;B;40;noeud;;;48.35" "tuyau;A;B;400/500;béton;135A"))
  (setq m (plv-tranchees p "Assainissement")))
((mapcar 'plv-ouvrage-nom (plv-tranchees-ouvrages m)) ("tuyau A - B"))
((valeurs m "total" '("Fouille")) ("70.2000"))
((vl-remove-if-not '(lambda (a) (wcmatch (car a) "regard*")) (et_tranchees_articles (list (plv-bordereau:lot p "Assainissement")))) nil)

;; What can't be dug is named with its place.
(situation "WhatCannotBeDug")
(tableau (phrase reseau plus)
  ("tuyau A - B, station 1: son diamètre extérieur 0.5 m est plus grand que la largeur de sa tranchée 0.45 m" rangees '("tronçon;0;40;E" "type;E" "profondeur;;0.45" "remblai;x" "regard;0.4"))
  ("tuyau A - B: le type E n'a pas de largeur pour le diamètre 400" rangees '("tronçon;0;40;E" "type;E" "largeur;300;0.5" "remblai;x" "regard;0.4"))
  ("regard A, station -1: le type E n'a pas de largeur pour la profondeur 1.65" rangees '("tronçon;0;40;E" "type;E" "profondeur;1.5;2" "remblai;x" "regard;0.4"))
  ("tuyau A - B, station 40: il sort du sol de 0.05 m" '("regard;A;0;;1000;;;48.35" "regard;B;40;;;;49.6" "tuyau;A;B;400/500") nil)
  ("les fouilles des regards A et B se recouvrent de 0.2 m" '("regard;A;0;;1000/1200;;;48.35" "regard;B;1.8;;1000/1200;;48.3" "tuyau;A;B;400/500") nil)
  ("regard A: sa fouille ne contient pas les tuyaux" rangees '("structure;dalle;5")))
(preparer (plv-reseau-ecrire p "Assainissement" reseau) (plv-tranchees-ecrire-regles p "Assainissement" (regles plus)))
(refuse (plv-tranchees p "Assainissement") phrase)

(situation "NothingToMeasure")
(refuse (plv-tranchees p "Assainissement") "ce profil n'a pas de règles de tranchées Assainissement")
(refuse (plv-tranchees p "AEp") "ce profil n'a pas de réseau AEp")

;; The workbook, its prices, a second network beside the first one; stale when a price changes, and made anew.
(situation "TheWorkbookAndItsPrices")
(preparer
  (plv-tranchees-ecrire-regles p "Assainissement" (regles nil))
  (plv-reseau-ecrire p "Generique" '("regard;A;0;visite;1000/1200;;;47.35" "regard;B;40;noeud;;;48.35" "tuyau;A;B;300/400;fonte"))
  (plv-tranchees-ecrire-regles p "Generique" (regles nil)))
(dit (plv-tranchees-ecrire-prix (list (list p "Assainissement")) "<dossier>prix.csv") "prix.csv: 12 lignes.")
((cadr (plv-lire-lignes "<dossier>prix.csv")) "Fouille, profondeur plus de 1.5 m;m3;")
(preparer (texte-ecrire "<dossier>prix.csv" '("désignation;unité;prix" "Blindage;m2;12,5" "Tuyau Ø400/500 béton 135A;ml;180")))
(dit (plv-tranchees-classeur (list (list p "Assainissement") (list p "Generique")) "<dossier>b.xlsx" "<dossier>prix.csv")
  "Classeur: " "Sans prix: Fouille, profondeur plus de 1.5 m" (sauf "Sans prix: Blindage"))
(dit (plv-etat (list p)) "Bordereau " ": à jour" (sauf "à mettre à jour"))
(preparer (texte-ecrire "<dossier>prix.csv" '("désignation;unité;prix" "Blindage;m2;14")))
(dit (plv-etat (list p)) ": à mettre à jour: les prix")
((plv-actualiser (list p)) T)
(dit (plv-etat (list p)) "Tout est à jour.")
;; what was written by hand in a price stays
(dit (plv-tranchees-ecrire-prix (list (list p "Assainissement")) "<dossier>prix.csv") "12 lignes")
((car (member "Blindage;m2;14" (plv-lire-lignes "<dossier>prix.csv"))) "Blindage;m2;14")
(refuse (plv-tranchees-classeur (list (list p "AEp")) "<dossier>c.xlsx" nil) "profil P1: ce profil n'a pas de réseau AEp")

(situation "ByQuestionsFromTheTypesToTheWorkbook")
(tape ("PLV-TRANCHEES" "Assainissement" "<dossier>t.txt" "Quantités" "Classeur" "" "" "<dossier>q" "FIN")
  "Types de tranchées: Assainissement." "Fouille         78.200 m3" "Classeur: ")
((if (findfile "<dossier>q.xlsx") T) T)

;; Hatches cover what is dug, drawn ten times as high: the pit reaches a metre past the end of the profile, where nothing is drawn. The surface is
;; 0.10 thick, the surround 0.70, the bedding 0.10; in the pit 0.15.
(situation "HatchesCoverWhatIsDug")
(preparer
  (plv-tranchees-ecrire-regles p "Assainissement" (regles nil))
  (defun aire (e / points)
    (setq points (cdr (plv-cles 10 (entget e))) points (append points (list (car points))))
    (* 0.05 (abs (apply '+ (mapcar '(lambda (a b) (- (* (car a) (cadr b)) (* (car b) (cadr a)))) points (cdr points))))))
  (defun aires () (mapcar '(lambda (e) (list (plv-cle 62 (entget e)) (plv-reel (aire e) 3))) (plv-traces-tranchees p "Assainissement"))))
((plv-hachurer-tranchees p "Assainissement" nil) T)
((aires) ((3 "2.000") (3 "70.200")))
(tape ("PLV-TRANCHEES" "Assainissement" "Hachurer" "Tout" "FIN") (sauf "Erreur"))
((aires) ((8 "0.100") (3 "1.750") (34 "0.150") (8 "3.900") (3 "35.100") (52 "27.300") (34 "3.900")))
;; a network that is drawn comes over them: later things, with longer or greater handles, lie above; a style draws both anew
(preparer
  (plv-dessiner-reseau p "Assainissement")
  (defun rang (e) (list (strlen (plv-handle e)) (plv-handle e)))
  (defun apres-p (a b) (or (> (car a) (car b)) (and (= (car a) (car b)) (> (cadr a) (cadr b)))))
  (defun dessus-p () (vl-every '(lambda (r) (vl-every '(lambda (h) (apres-p (rang r) (rang h))) (plv-traces-tranchees p "Assainissement"))) (plv-traces-reseau p "Assainissement"))))
((plv-hachurer-tranchees p "Assainissement" T) T)
((dessus-p) T)
((list (plv-style "route" nil 1000.0) (dessus-p)) ("route" T))
(dit (plv-etat (list p)) "Tranchées Assainissement: à jour")
(preparer (plv-tranchees-ecrire-regles p "Assainissement" (regles '("classes;2"))))
(dit (plv-etat (list p)) "Tranchées Assainissement: à mettre à jour: les types de tranchées")
;; an update of both draws the network once, over the hatches
(preparer
  (plv-dessiner-reseau p "Assainissement")
  (plsxd p "TTXT" (* 1.1 (plv-ttxt p)))
  (setq dessins 0 dessiner plv-dessiner-reseau)
  (defun plv-dessiner-reseau (profil genre) (setq dessins (1+ dessins)) (dessiner profil genre)))
(dit (plv-etat (list p)) "Réseau Assainissement: à mettre à jour" "Tranchées Assainissement: à mettre à jour")
((plv-actualiser (list p)) T)
(dit (plv-etat (list p)) "Réseau Assainissement: à jour" "Tranchées Assainissement: à jour")
(preparer (setq plv-dessiner-reseau dessiner))
((list dessins (dessus-p)) (1 T))
((plv-actualiser (list p)) T)
((length (aires)) 7)
(tape ("PLV-TRANCHEES" "Assainissement" "Hachurer" "Rien" "FIN") (sauf "Erreur"))
((ssget "X" '((0 . "HATCH") (8 . "PLV-TRANCHEES"))) nil)

;; Hatches of quantities lie beneath a network, too, also those of lines that were drawn leftwards, for which copies stand while they are measured.
(situation "NetworksComeOverHatchesOfQuantities")
(preparer
  (plv-attacher p "Assainissement"
    (list (plv-ligne "PLV-PROJET" '(40.0 -10.0) '(20.0 -20.0)) (plv-ligne "PLV-PROJET" '(20.0 -20.0) '(0.0 -12.0))))
  (plv-reseau-ecrire p "Assainissement" '("regard;A;0;visite;1000/1200" "regard;M;20;visite;1000/1200" "regard;B;40;noeud" "tuyau;A;B;400/500"))
  (defun rang (e) (list (strlen (plv-handle e)) (plv-handle e)))
  (defun apres-p (a b) (or (> (car a) (car b)) (and (= (car a) (car b)) (> (cadr a) (cadr b))))))
(dit (plv-metres nil "Assainissement" nil T) (sauf "Erreur"))
(preparer (setq hachures (plv-entites-du-jeu (ssget "X" '((0 . "HATCH") (8 . "PLV-HACHURES"))))))
((list (> (length hachures) 0) (vl-every '(lambda (r) (vl-every '(lambda (h) (apres-p (rang r) (rang h))) hachures)) (plv-traces-reseau p "Assainissement"))) (T T))

;; Planes are chosen by the ground, here 48 m: where a deep trench goes beneath one is told, and planes proposed anew lie beneath all that is drawn.
(situation "PlanesBeneathDeepTrenches")
(fichier "raide.csv" "distance;altitude\n0;50\n10;45\n20;40\n30;35\n40;30\n")
(preparer (plv-tranchees-ecrire-regles p "Assainissement" (regles nil)))
(dit (plv-reseau-ecrire-et-dire p "Assainissement" '("regard;A;0;visite;1000/1200;;;47.35" "regard;B;40;noeud;;;47.35" "tuyau;A;B;400/500"))
  "le réseau descend à 0.70 m sous le plan de comparaison: PLV-PC Proposer en tient compte")
(tape ("PLV-TRANCHEES" "Assainissement" "Hachurer" "Tout" "FIN") "À la station 0.000 la tranchée descend à 1.00 m sous le plan")
(tape ("PLV-PC" "Proposer" "150" "PLV-ACTUALISER") "Plans de comparaison: 46.00" (sauf "sous le plan"))
((> (apply 'min (mapcar '(lambda (e) (cadr (plv-boite e))) (plv-traces-tranchees p "Assainissement"))) (cadr (plv-origine p))) T)
;; a change of plane in the middle of a steep one: both planes lie beneath it, and nothing is higher than what was asked
(preparer
  (setq q (plv-nouveau "<dossier>raide.csv" "P2" '(0.0 500.0 0.0) 10.0 2.5 150.0 nil))
  (plv-projet q "Assainissement" '((0.0 46.0) (40.0 26.0)))
  (plv-pc-proposer q 150.0))
((plv-plans q) ((0.0 40.0) (10.0 30.0) (30.0 24.0)))

;; Ten units for a metre, both ways; the sides lean from half a metre on.
(situation "CrossSectionsAreToScale")
(preparer
  (plv-tranchees-ecrire-regles p "Assainissement" (regles '("talus;1;0.5;0.5")))
  (plv-couper-tranchees p "Assainissement" '(100.0 20.0 0.0))
  (setq coupe (plv-traces-coupes p "Assainissement") contour (plv-cles 10 (entget (car coupe))) milieu (* 0.5 (+ (car (car contour)) (car (plv-dernier contour))))))
((mapcar '(lambda (c) (list (plv-reel (- (car c) milieu) 2) (plv-reel (cadr c) 2))) contour)
 (("-11.50" "38.00") ("-5.00" "25.00") ("-5.00" "20.00") ("5.00" "20.00") ("5.00" "25.00") ("11.50" "38.00")))
((mapcar '(lambda (e) (plv-reel (plv-cle 40 (entget e)) 2)) (vl-remove-if-not '(lambda (e) (= (plv-type e) "CIRCLE")) coupe)) ("2.50" "2.00"))
((plv-reel (caddr (assoc 10 (entget (car (vl-member-if '(lambda (e) (= (plv-type e) "CIRCLE")) coupe))))) 2) "23.50")
(preparer (plv-tranchees-ecrire-regles p "Assainissement" (regles nil)))
((plv-actualiser (list p)) T)
((plv-reel (apply 'min (mapcar 'cadr (plv-cles 10 (entget (car (plv-traces-coupes p "Assainissement")))))) 2) "20.00")

;; 39 m of trench are 1.80 m deep; the pit, 2.00 m long, is 2.00 deep.
(situation "ALegendExplainsTheHatches")
(preparer
  (plv-tranchees-ecrire-regles p "Assainissement" (regles nil))
  (defun legende () (car (plv-legendes-de-tranchees p "Assainissement")))
  (defun mots (/ e textes)
    (setq e (cdr (assoc -2 (tblsearch "BLOCK" (cdr (assoc 2 (entget (legende))))))))
    (while e (if (= (plv-type e) "TEXT") (setq textes (cons (cdr (assoc 1 (entget e))) textes))) (setq e (entnext e)))
    (reverse textes)))
(refuse (plv-legende-tranchees p "Assainissement" nil) "ce profil n'a pas de tranchée hachurée Assainissement")
(tape ("PLV-TRANCHEES" "Assainissement" "Hachurer" "Classes" "Légende" "" "FIN") (sauf "Erreur"))
((mots) ("PROFIL P1 - ASSAINISSEMENT - TRANCHÉES" "Profondeur" "Longueur (m)" "Fouille (m3)" "plus de 1.5 m" "41.00" "78.20" "Total" "41.00" "78.20"))
;; sheets show it beside the profile, which it follows when it is made anew, where it was put
((equal (plv-legendes-du-profil p) (list (legende))) T)
(preparer
  (entmod (subst '(10 300.0 20.0 0.0) (assoc 10 (entget (legende))) (entget (legende))))
  (plv-tranchees-ecrire-regles p "Assainissement" (regles '("classes;1.9"))))
((plv-actualiser (list p)) T)
((car (plv-origine (legende))) 300.0)
((length (plv-legendes-du-profil p)) 1)
((plv-premiers (plv-sans-premiers (mots) 4) 6) ("1.5 à 1.9 m" "39.00" "70.20" "plus de 1.9 m" "2.00" "8.00"))
;; figures of a column end at one line, 39.00 and 2.00, as they have as many decimals
(preparer
  (defun fin (texte / e trouve)
    (setq e (cdr (assoc -2 (tblsearch "BLOCK" (cdr (assoc 2 (entget (legende))))))))
    (while e (if (= (cdr (assoc 1 (entget e))) texte) (setq trouve e)) (setq e (entnext e)))
    (+ (cadr (assoc 11 (entget trouve))) (* 0.5 (plv-largeur-texte texte (cdr (assoc 40 (entget trouve))))))))
((equal (fin "39.00") (fin "2.00") 1e-6) T)
((plv-hachurer-tranchees p "Assainissement" T) T)
((vl-remove-if-not '(lambda (m) (member m '("Surface" "Enrobage" "Lit de pose"))) (mots)) ("Surface" "Enrobage" "Lit de pose"))
(preparer (plv-oter-tranchees p "Assainissement"))
((plv-legendes-du-profil p) nil)
