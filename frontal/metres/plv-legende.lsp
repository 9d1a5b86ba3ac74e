;; PLV-LEGENDE: the depth classes of a profile as a block beside it: colour, limits, length, surface, volume.
;; Each kind of line has its own. The block is made anew each time, and its reference in the drawing goes with it. The reference names
;; the profile and the kind; in drawings of earlier versions only the block's name told them.

(setq plv-legende:cle-profil "LEGENDEPROFIL" plv-legende:cle-genre "LEGENDEGENRE"
      plv-legende:calque "PLV-LEGENDE" plv-legende:opaque 33554687)

;; titles of the columns and their widths in text heights; the first column is the colour's
(setq plv-legende:colonnes '(("" 5.0) ("Profondeur (m)" 13.0) ("Longueur (m)" 12.0) ("Surface (m2)" 12.0) ("Volume (m3)" 12.0)))

(defun plv-legende:racine (profil)
  "What the names of a profile's legends begin with; profiles without an identifier are told apart by their handle."
  (strcat "PLV_LEGENDE_" (if (< (plv-id-profil profil) 0) (plv-handle profil) (itoa (plv-id-profil profil)))))

(defun plv-legende:nom (profil genre) (strcat (plv-legende:racine profil) "_" (strcase genre)))

(defun plv-legende:references (nom)
  (if (tblsearch "BLOCK" nom) (reverse (plv-entites-du-jeu (ssget "X" (list '(0 . "INSERT") (cons 2 nom)))))))

(defun plv-legende:titre (profil genre) (strcat "PROFIL " (plv-numero-profil profil) " - " (strcase genre)))

(defun plv-legende:notee-p (reference) (assoc plv-legende:cle-profil (plv-paires reference)))

;; --- legends of earlier versions, known by the name of their block; one for all kinds at first, its kind in its title

(defun plv-legende:unique (profil genre / racine e trouve)
  "The name that a kind's legend had when a profile had one legend only; nil when there is none of this kind."
  (setq racine (plv-legende:racine profil)
        e (plv-cle -2 (tblsearch "BLOCK" racine)))
  (while e
    (if (= (plv-cle 1 (entget e)) (plv-legende:titre profil genre)) (setq trouve racine))
    (setq e (entnext e)))
  trouve)

(defun plv-legende:a-lui-p (profil reference / place)
  "Whether a profile is the nearest of those that have its identifier, as its copies do."
  (setq place (plv-origine reference))
  (not (vl-some
         '(lambda (p)
            (and (= (plv-id-profil p) (plv-id-profil profil)) (< (distance (plv-origine p) place) (distance (plv-origine profil) place))))
         (plv-profils))))

(defun plv-legende:par-leur-nom (profil genre)
  (vl-remove-if-not '(lambda (e) (and (not (plv-legende:notee-p e)) (plv-legende:a-lui-p profil e)))
    (apply 'append (mapcar 'plv-legende:references (vl-remove nil (list (plv-legende:unique profil genre) (plv-legende:nom profil genre)))))))

(defun plv-legende:genre-note (reference) (cdr (plv-cle plv-legende:cle-genre (plv-paires reference))))

(defun plv-legendes-par-genre (profil / notees)
  "(kind reference ...) of each kind that has a legend."
  (setq notees (vl-remove-if-not '(lambda (e) (eq (plv-nommee e plv-legende:cle-profil) profil)) (plv-references)))
  (vl-remove-if-not 'cdr
    (mapcar
      '(lambda (genre)
         (cons genre
           (append (plv-legende:par-leur-nom profil genre)
                   (vl-remove-if-not '(lambda (e) (equal (plv-legende:genre-note e) genre)) notees))))
      (plv-genres-projet))))

(defun plv-legendes-du-genre (profil genre) (plv-cle genre (plv-legendes-par-genre profil)))

(defun plv-legendes-du-profil (profil)
  "The references of a profile's legends, kind after kind."
  (apply 'append (mapcar 'cdr (plv-legendes-par-genre profil))))

;; --- rows: (colour label length surface volume), the colour nil for the total

(defun plv-legende:rangee (couleur libelle troncons classes)
  (vl-list* couleur libelle (mapcar '(lambda (somme) (plv-reel somme 2)) (plv-metres:sommes troncons classes))))

(defun plv-legende:sans-accents (texte)
  "As legends have always been drawn: other programs know their rows by these words."
  (vl-string-translate "à" "a" texte))

(defun plv-legende:numeros (troncons) (vl-sort (plv-uniques (mapcar 'plv-troncon-classe troncons)) '<))

(defun plv-legende:rangees (troncons classes)
  (setq troncons (vl-remove-if-not 'plv-metres:visible-p troncons))
  (append
    (mapcar
      '(lambda (numero)
         (plv-legende:rangee (plv-metres:couleur numero classes) (plv-legende:sans-accents (plv-metres:libelle numero classes))
           (vl-remove-if-not '(lambda (s) (= (plv-troncon-classe s) numero)) troncons) classes))
      (plv-legende:numeros troncons))
    (list (plv-legende:rangee nil "Total" troncons classes))))

;; --- drawing, from (0 0), the upper left corner, in text heights times h

(defun plv-legende:trait (x1 y1 x2 y2)
  (entmake (list '(0 . "LINE") (cons 8 (plv-calque plv-legende:calque)) (cons 10 (plv-point x1 y1)) (cons 11 (plv-point x2 y2)))))

(defun plv-legende:ecrire (x y h texte justification)
  (entmake
    (append
      (list '(0 . "TEXT") (cons 8 (plv-calque plv-legende:calque)) (cons 10 (plv-point x y)) (cons 40 h) (cons 1 texte))
      (plv-style-de-texte)
      (if (= justification 0) nil (list (cons 72 justification) (cons 11 (plv-point x y)))))))

(defun plv-legende:pastille (x1 y1 x2 y2 couleur)
  "A filled rectangle as clear as the module's hatches, in an outline."
  (entmake
    (list '(0 . "HATCH") '(100 . "AcDbEntity") (cons 8 (plv-calque plv-legende:calque)) (cons 62 couleur)
          (cons 440 (cond (plv-metres:transparence) (plv-legende:opaque))) '(100 . "AcDbHatch")
          '(10 0.0 0.0 0.0) '(210 0.0 0.0 1.0) '(2 . "SOLID") '(70 . 1) '(71 . 0) '(91 . 1) '(92 . 3) '(72 . 0) '(73 . 1) '(93 . 4)
          (list 10 x1 y1) (list 10 x2 y1) (list 10 x2 y2) (list 10 x1 y2) '(97 . 0) '(75 . 0) '(76 . 1) '(98 . 0)))
  (plv-legende:trait x1 y1 x2 y1)
  (plv-legende:trait x1 y2 x2 y2)
  (plv-legende:trait x1 y1 x1 y2)
  (plv-legende:trait x2 y1 x2 y2))

(defun plv-legende:titres () (cons nil (mapcar 'car (cdr plv-legende:colonnes))))

(defun plv-legende:largeurs () (mapcar 'cadr plv-legende:colonnes))

(defun plv-legende:bords (h)
  "Abscissas of the upright lines."
  (reverse (plv-plier '(lambda (bords largeur) (cons (+ (car bords) (* h largeur)) bords)) '(0.0) (plv-legende:largeurs))))

(defun plv-legende:dessiner-rangee (rangee y h / bords)
  "A row whose lower line is at y."
  (if (car rangee) (plv-legende:pastille h (+ y (* 0.5 h)) (* 4.0 h) (+ y (* 1.5 h)) (car rangee)))
  (setq bords (cdr (plv-legende:bords h)))
  (mapcar
    '(lambda (texte a b) (plv-legende:ecrire (* 0.5 (+ a b)) (+ y (* 0.5 h)) h texte 1))
    (cdr rangee) bords (cdr bords)))

(defun plv-legende:dessiner (titre rangees h / largeur y)
  (setq largeur (* h (apply '+ (plv-legende:largeurs))) y 0.0)
  (plv-legende:trait 0.0 0.0 largeur 0.0)
  (plv-legende:ecrire (* 0.5 largeur) (* -2.1 h) (* 1.2 h) titre 1)
  (setq y (* -3.0 h))
  (plv-legende:trait 0.0 y largeur y)
  (foreach rangee (cons (plv-legende:titres) rangees)
    (setq y (- y (* 2.0 h)))
    (plv-legende:dessiner-rangee rangee y h)
    (plv-legende:trait 0.0 y largeur y))
  (foreach x (plv-legende:bords h)
    (plv-legende:trait x (if (or (= x 0.0) (equal x largeur 1e-6)) 0.0 (* -3.0 h)) x y)))

;; --- placing

(defun plv-legende:place (profil genre / origine ecart largeur autres)
  "To the right of the profile and of its legends of other kinds, at the height of its top."
  (setq origine (plv-origine profil)
        ecart (* 6.0 (plv-ttxt profil))
        largeur (* (plv-ttxt profil) (apply '+ (plv-legende:largeurs)))
        autres (vl-remove-if '(lambda (e) (member e (plv-legendes-du-genre profil genre))) (plv-legendes-du-profil profil)))
  (plv-point
    (+ ecart (apply 'max (cons (+ (car origine) (plv-longueur-profil profil))
                               (mapcar '(lambda (e) (+ (car (plv-origine e)) largeur)) autres))))
    (+ (cadr origine) (plv-hauteur-profil profil))))

(defun plv-rangees-de-classes (profil genre / lots mesures)
  "What lies between ground and line by classes of depth: (colour class length area volume), the total last; nil after a message."
  (if (and (setq lots (plv-metres:lots (list profil) genre))
           (setq mesures (plv-metres:avec-lots lots genre '(lambda () (plv-metres:mesurer lots genre nil nil)))))
    (plv-legende:rangees (plv-mesure-troncons (car (plv-mesures-profils mesures))) (plv-mesures-classes mesures))))

(defun plv-legende (profil genre point / rangees)
  "Measures a profile with the project line of a kind and places its legend (point nil: beside it). The block reference, or
nil after a message."
  (setq genre (plv-genre genre))
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((plv-refus-genre-projet genre) (plv-erreur (plv-refus-genre-projet genre)))
    ((not (plv-elements profil genre)) (plv-erreur (plv-refus-sans-ligne genre (list profil))))
    ((setq rangees (plv-rangees-de-classes profil genre))
     (plv-legende:placer profil genre rangees (cond (point) ((plv-legende:place profil genre)))))))

(defun plv-legende:nom-libre (profil genre / racine nom n)
  "A name of a block that no other profile's legend shows."
  (setq racine (plv-legende:nom profil genre) nom racine n 1)
  (while (plv-legende:references nom) (setq n (1+ n) nom (strcat racine "_" (itoa n))))
  nom)

(defun plv-legende:placer (profil genre rangees point / nom reference)
  (plv-effacer (plv-legendes-du-genre profil genre))
  (setq nom (plv-legende:nom-libre profil genre))
  (entmake (list '(0 . "BLOCK") (cons 2 nom) '(70 . 0) '(10 0.0 0.0 0.0)))
  (plv-legende:dessiner (plv-legende:titre profil genre) rangees (plv-ttxt profil))
  (entmake '((0 . "ENDBLK")))
  (setq reference (plv-inserer plv-legende:calque nom point))
  (plv-ecrire-cles reference (list (list plv-legende:cle-profil profil) (list plv-legende:cle-genre genre)))
  (plv-noter-fait profil "LEGENDE" genre nil nil)
  (plv-rehausser-titre profil)
  reference)

(defun c:plv-legende (/ profil genre)
  "Dessine la légende des classes de profondeur."
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq genre (plv-demander-genre-projet (plv-genre-propose profil)))
      (plv-legende profil genre (getpoint "\nCoin supérieur gauche de la légende <à droite du profil>: "))))
  (princ))
