;; PLV-METRES: the quantities of profiles in one call, through the very dialog that a user would open: sections by depth
;; class, totals, a control of the surfaces, on demand hatches and a workbook.
;; A section is (class d1 d2 surface terrain project): distances in metres, surface in true square metres, its stretches of
;; both lines as points in profile coordinates (distance altitude), left to right.
;; A class is (start end width colour).

;; word of the kind, in the order in which the dialog offers them
(setq plv-metres:projets '("Assainissement" "Voirie" "AEp" "Generique" "Terrassements" "Projet"))

(defun plv-metres:jeu (entite / jeu) (setq jeu (ssadd)) (ssadd entite jeu) jeu)

(defun plv-metres:choix (profil genre / candidats)
  "The answers that choose the kind when the profile has several; nil when the dialog won't ask."
  (setq candidats (vl-remove-if-not '(lambda (g) (plv-elements:enregistres profil g)) plv-metres:projets))
  (if (cdr candidats) (list (itoa (1+ (vl-position genre candidats))) "OK")))

(defun plv-metres:reponses (profils genre actions)
  "The answers that add the profiles, do something with them, and close."
  (append
    (list "AjouterProfils" (plv-metres:jeu (car profils)) "")
    (plv-metres:choix (car profils) genre)
    (apply 'append (mapcar '(lambda (p) (list "AjouterProfils" (plv-metres:jeu p) "")) (cdr profils)))
    actions
    '("Fermer")))

(defun plv-metres:nombre (texte) (plv-nombre (vl-string-trim " " texte)))

;; --- what the dialog's lists and the hatches say

(defun plv-metres:classes (rangees)
  (mapcar
    '(lambda (r) (list (plv-metres:nombre (nth 1 r)) (plv-metres:nombre (nth 2 r)) (plv-metres:nombre (nth 4 r)) (car r)))
    rangees))

(defun plv-metres:contour (hachure origine plan echv / points)
  "The outline of a hatch in profile coordinates."
  (foreach g (cdr (member (assoc 93 hachure) hachure))
    (if (= (car g) 10)
      (setq points (cons (list (- (cadr g) (car origine)) (+ plan (/ (- (caddr g) (cadr origine)) echv))) points))))
  (reverse points))

(defun plv-metres:chemins (contour / haut bas)
  "The upper line and the lower one of an outline, both from left to right; the outline ends on its first point."
  (setq haut (list (car contour)) contour (cdr contour))
  (while (and contour (> (caar contour) (caar haut)))
    (setq haut (cons (car contour) haut) contour (cdr contour)))
  (foreach p (plv-sans-dernier contour) (setq bas (cons p bas)))
  (list (reverse haut) bas))

(defun plv-metres:aire (points / somme a)
  "Twice the area below a line, over its first altitude."
  (setq somme 0.0 a (car points))
  (foreach b (cdr points)
    (setq somme (+ somme (* (- (car b) (car a)) (+ (cadr a) (cadr b)))) a b))
  somme)

(defun plv-metres:troncon (rangee hachure profil plans / origine echv debut fin plan chemins base)
  "A section from its row and its hatch."
  (setq origine (plv-cle 10 (entget profil))
        echv (plgxd profil "ECHV")
        debut (plv-metres:nombre (nth 2 rangee))
        fin (plv-metres:nombre (nth 3 rangee))
        plan (plv-plan-en plans (* 0.5 (+ debut fin)))
        chemins (plv-metres:chemins (plv-metres:contour (entget hachure) origine (cadr plan) echv)))
  (list (atoi (nth 4 rangee)) (caaar chemins) (car (plv-dernier (car chemins)))
        (abs (* 0.5 (- (plv-metres:aire (car chemins)) (plv-metres:aire (cadr chemins)))))
        (car chemins) (cadr chemins)))

(defun plv-metres:du-profil (profil rangees hachures / plans)
  (setq plans (plv-tables:plans profil))
  (mapcar '(lambda (r h) (plv-metres:troncon r h profil plans)) rangees hachures))

(defun plv-metres:repartir (profils rangees hachures / resultat siennes i)
  "For each profile (profile section ...): rows and hatches come in the same order."
  (setq i -1)
  (foreach profil profils
    (setq i (1+ i)
          siennes (vl-remove-if-not '(lambda (r) (= (car r) i)) rangees)
          resultat (cons (cons profil (plv-metres:du-profil profil siennes hachures)) resultat))
    (repeat (length siennes) (setq hachures (cdr hachures))))
  (reverse resultat))

(defun plv-metres:ecrire (profils genre chemin)
  "Writes the workbook, in the place of one that is there. Profiles that can't be measured never get here."
  (dialoguer c:cubpl (plv-metres:reponses profils genre (append (list "Exporter" chemin) (if (findfile chemin) '("Oui")))))
  (if (findfile chemin) (plv-dire (strcat "Classeur: " chemin)) (plv-erreur (strcat "le classeur n'a pas pu etre ecrit: " chemin))))

(defun plv-metres:mesurer (profils genre hachurer / listes ajouts hachures rangees)
  "(classes (profile section ...) ...), or nil after a message. The hatches stay in the drawing when they are wanted."
  (plv-creer-calques)
  (setq ajouts
    (plv-ajouts-de
      '(lambda ()
         (plv-avec-calque "PLV-HACHURES"
           '(lambda () (setq listes (dialoguer c:cubpl (plv-metres:reponses profils genre '("SchematiserSurPLong")))))))))
  (setq hachures (vl-remove-if-not '(lambda (e) (= (plv-cle 0 (entget e)) "HATCH")) ajouts)
        rangees (vl-remove-if-not '(lambda (r) (= (length r) 7)) (car listes))
        listes (if (= (length hachures) (length rangees))
                 (cons (plv-metres:classes (caddr listes)) (plv-metres:repartir profils rangees hachures))))
  (if (not (and hachurer (plv-metres:complet listes))) (plv-effacer hachures))
  (cond
    ((plv-metres:complet listes) listes)
    (T (plv-erreur "une ligne de projet n'a pas pu etre mesuree: elle doit etre au droit du terrain"))))

(defun plv-metres:complet (mesures) (and mesures (vl-every 'cdr (cdr mesures))))

(defun plv-metres:largeur (classe classes)
  "The width of a class; what lies deeper than all classes is as wide as the last one."
  (cond
    ((or (<= classe 0) (not classes)) 0.0)
    ((caddr (nth (1- (min classe (length classes))) classes)))))

(defun plv-metres:volume (troncon classes) (* (cadddr troncon) (plv-metres:largeur (car troncon) classes)))

(defun plv-metres:libelle (classe classes)
  (cond
    ((= classe 0) "non enterre")
    ((> classe (length classes)) (strcat "au dela de " (plv-reel (cadr (plv-dernier classes)) 2)))
    (T (strcat (plv-reel (car (nth (1- classe) classes)) 2) " a " (plv-reel (cadr (nth (1- classe) classes)) 2)))))

(defun plv-metres:total (troncons fonction) (apply '+ (cons 0.0 (mapcar fonction troncons))))

;; --- control: polygons between the two lines, measured by the module

(defun plv-metres:suites (troncons / suites)
  "Sections that follow one another without a gap on the same side of the ground, together."
  (foreach s troncons
    (if (and suites (equal (caddr (caar suites)) (cadr s) 1e-6) (eq (= (car (caar suites)) 0) (= (car s) 0)))
      (setq suites (cons (cons s (car suites)) (cdr suites)))
      (setq suites (cons (list s) suites))))
  (reverse (mapcar 'reverse suites)))

(defun plv-metres:sommets-terrain (profil a b)
  "The natural ground between two distances, its ends interpolated; nil when another terrain is attached."
  (if (not (plv-elements:enregistres profil "TN"))
    (plv-metres:entre (mapcar '(lambda (p) (list (car p) (cadr p))) (plv-points-tn profil)) a b)))

(defun plv-metres:entre (points a b / dedans)
  (setq dedans (vl-remove-if-not '(lambda (p) (and (> (car p) (+ a 1e-9)) (< (car p) (- b 1e-9)))) points))
  (append (list (list a (plv-metres:altitude points a))) dedans (list (list b (plv-metres:altitude points b)))))

(defun plv-metres:altitude (points d / p q)
  (setq p (car points) q (cadr points) points (cdr points))
  (while (and (cdr points) (> d (car q))) (setq p q points (cdr points) q (car points)))
  (if (equal (car p) (car q) 1e-12)
    (cadr q)
    (+ (cadr p) (* (- d (car p)) (/ (- (cadr q) (cadr p)) (- (car q) (car p)))))))

(defun plv-metres:controler-suite (profil suite / bas haut polygone aire)
  "The area between the lines over sections without a gap."
  (setq bas (apply 'append (mapcar '(lambda (s) (nth 5 s)) suite))
        haut (cond ((plv-metres:sommets-terrain profil (cadr (car suite)) (caddr (plv-dernier suite))))
                   ((apply 'append (mapcar '(lambda (s) (nth 4 s)) suite))))
        polygone (entmakex
                   (append
                     (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(100 . "AcDbPolyline") (cons 90 (+ (length haut) (length bas))) '(70 . 1))
                     (mapcar '(lambda (p) (list 10 (- (car p) (caar haut)) (- (cadr p) (cadar haut)))) (append haut (reverse bas)))))
        aire (pl_areacalc polygone 1.0))
  (entdel polygone)
  aire)

(defun plv-metres:controle (profil troncons / sections lignes ecart)
  "Prints the control line; T when both ways agree within 1e-9."
  (setq sections 0.0 lignes 0.0)
  (foreach suite (plv-metres:suites troncons)
    (setq sections (+ sections (plv-metres:total suite 'cadddr))
          lignes (+ lignes (plv-metres:controler-suite profil suite))))
  (setq ecart (/ (abs (- sections lignes)) (max 1e-12 lignes)))
  (plv-dire (strcat "Controle: troncons " (plv-reel sections 6) " m2, entre les lignes " (plv-reel lignes 6) " m2, ecart relatif "
                    (rtos ecart 1 1) (if (<= ecart 1e-9) ": juste." ": FAUX.")))
  (or (<= ecart 1e-9) (plv-erreur "les surfaces des troncons ne font pas celle entre les lignes")))

;; --- the report

(defun plv-metres:colonne (texte largeur)
  (while (< (strlen texte) largeur) (setq texte (strcat " " texte)))
  texte)

(defun plv-metres:rangee (textes)
  (plv-dire (apply 'strcat (mapcar 'plv-metres:colonne textes '(12 12 11 18 12 13 13)))))

(defun plv-metres:dire (profil genre classes troncons / origine)
  (setq origine (plgxd profil "DCUMDEB"))
  (plv-dire (strcat "Profil " (plv-numero-profil profil) ", " genre ": " (itoa (length troncons)) " troncons"))
  (plv-metres:rangee '("debut" "fin" "longueur" "classe" "prof. moy." "surface m2" "volume m3"))
  (foreach s troncons
    (plv-metres:rangee
      (list (plv-reel (+ origine (cadr s)) 3) (plv-reel (+ origine (caddr s)) 3) (plv-reel (- (caddr s) (cadr s)) 3)
            (plv-metres:libelle (car s) classes)
            (plv-reel (/ (cadddr s) (max 1e-8 (- (caddr s) (cadr s)))) 3) (plv-reel (cadddr s) 3)
            (plv-reel (plv-metres:volume s classes) 3))))
  (plv-metres:rangee
    (list "total" "" (plv-reel (plv-metres:total troncons '(lambda (s) (- (caddr s) (cadr s)))) 3) "" ""
          (plv-reel (plv-metres:total troncons 'cadddr) 3)
          (plv-reel (plv-metres:total troncons '(lambda (s) (plv-metres:volume s classes))) 3)))
  (plv-metres:controle profil troncons))

;; --- what can be known before

(defun plv-metres:doublon (profils / vus numero trouve)
  "A number that two profiles share."
  (foreach p profils
    (setq numero (strcase (plv-numero-profil p)))
    (if (member numero vus) (setq trouve numero) (setq vus (cons numero vus))))
  trouve)

(defun plv-metres:titre-refuse (profils)
  "The first number that can't be a sheet's title."
  (car (vl-remove-if '(lambda (n) (and (< 0 (strlen n) 32) (not (wcmatch n "*`[*,*`]*,*:*,*`**,*`?*,*/*,*\\*,'*,*'"))))
                     (mapcar 'plv-numero-profil profils))))

(defun plv-metres:chemin-faux (chemin / dossier)
  "Why no workbook can be written there; nil when nothing is known against it."
  (setq dossier (vl-filename-directory chemin))
  (cond
    ((and (/= dossier "") (not (vl-file-directory-p dossier))) (strcat "dossier introuvable: " dossier))
    ((vl-file-directory-p chemin) (strcat "un dossier a ce nom: " chemin))))

(defun plv-metres (numeros genre chemin hachurer / profils absents faute resultat)
  "Measures profiles (a list of numbers, nil for all) with the project line of a kind; writes a workbook unless chemin is
nil, leaves hatches on demand. Gives (classes (profile section ...) ...), or nil after a message."
  (setq profils (if numeros (mapcar 'plv-profil-de-numero numeros) (plv-profils))
        genre (plv-genre genre)
        chemin (if (and chemin (not (vl-filename-extension chemin))) (strcat chemin ".xlsx") chemin))
  (cond
    ((not profils) (plv-erreur "le dessin n'a pas de profil: PLV-NOUVEAU en cree un"))
    ((member nil profils) (plv-erreur (strcat "pas de profil numero " (nth (vl-position nil profils) numeros))))
    ((not (member genre plv-metres:projets)) (plv-erreur (strcat "un genre de projet est attendu: " (plv-joindre plv-metres:projets " "))))
    ((setq absents (vl-remove-if '(lambda (p) (plv-elements:enregistres p genre)) profils))
     (plv-erreur (strcat "pas de ligne " genre " sur: " (plv-joindre (mapcar 'plv-numero-profil absents) " "))))
    ((and chemin (setq faute (plv-metres:doublon profils)))
     (plv-erreur (strcat "deux profils ont le numero " faute ": une feuille du classeur chacun, il en faut deux")))
    ((and chemin (setq faute (plv-metres:titre-refuse profils)))
     (plv-erreur (strcat "ce numero ne peut pas etre le titre d'une feuille: " faute)))
    ((and chemin (setq faute (plv-metres:chemin-faux chemin))) (plv-erreur faute))
    ((setq resultat (plv-metres:mesurer profils genre hachurer))
     (foreach r (cdr resultat) (plv-metres:dire (car r) genre (car resultat) (cdr r)))
     (if chemin (plv-metres:ecrire profils genre chemin))
     resultat)))

(defun plv-metres:demander-numeros (/ reponse)
  (setq reponse (plv-demander-texte "Numeros des profils, separes par des virgules, ou Tous" "Tous"))
  (if (not (member (strcase reponse) '("TOUS" "T" "*"))) (mapcar '(lambda (n) (vl-string-trim " " n)) (plv-couper reponse ","))))

(defun c:plv-metres (/ numeros genre chemin hachurer)
  (if (plv-profils)
    (progn
      (setq numeros (plv-metres:demander-numeros)
            genre (plv-demander-genre (cond ((car (plv-genres-du-projet (car (plv-profils))))) ("Projet")))
            chemin (plv-demander-texte "Classeur a ecrire <aucun>" nil)
            hachurer (= (plv-demander-mot "Hachurer les classes" '("Oui" "Non") "Oui") "Oui"))
      (plv-metres numeros genre (if (/= chemin "") chemin) hachurer))
    (plv-erreur "le dessin n'a pas de profil: PLV-NOUVEAU en cree un"))
  (princ))
