;; PLV-LEGENDE: the depth classes of a profile as a block beside it: colour, limits, length, surface, volume.
;; The block is made anew each time, and its reference in the drawing goes with it.

;; titles of the columns and their widths in text heights; the first column is the colour's
(setq plv-legende:colonnes '(("" 5.0) ("Profondeur (m)" 13.0) ("Longueur (m)" 12.0) ("Surface (m2)" 12.0) ("Volume (m3)" 12.0)))

(defun plv-legende:nom (profil) (strcat "PLV_LEGENDE_" (itoa (plv-profil:id profil))))

(defun plv-legende:effacer (nom / jeu i)
  (if (setq jeu (ssget "X" (list '(0 . "INSERT") (cons 2 nom))))
    (progn
      (setq i 0)
      (repeat (sslength jeu) (entdel (ssname jeu i)) (setq i (1+ i))))))

(defun plv-legende:numeros (troncons) (vl-sort (plv-uniques (mapcar 'car troncons)) '<))

(defun plv-legende:couleur (classe classes)
  "As the hatches have it."
  (if (or (< classe 1) (> classe (length classes))) 7 (cadddr (nth (1- classe) classes))))

(defun plv-legende:rangee (classe troncons classes / siens)
  (setq siens (vl-remove-if-not '(lambda (s) (= (car s) classe)) troncons))
  (list (plv-legende:couleur classe classes)
        (plv-metres:libelle classe classes)
        (plv-reel (plv-metres:total siens 'plv-metres:longueur) 2)
        (plv-reel (plv-metres:total siens 'cadddr) 2)
        (plv-reel (plv-metres:total siens '(lambda (s) (plv-metres:volume s classes))) 2)))

(defun plv-legende:total (troncons classes)
  (list nil "Total"
        (plv-reel (plv-metres:total troncons 'plv-metres:longueur) 2)
        (plv-reel (plv-metres:total troncons 'cadddr) 2)
        (plv-reel (plv-metres:total troncons '(lambda (s) (plv-metres:volume s classes))) 2)))

;; --- drawing, from (0 0), the upper left corner, in text heights times h

(defun plv-legende:trait (x1 y1 x2 y2)
  (entmake (list '(0 . "LINE") '(8 . "PLV-LEGENDE") (cons 10 (plv-point x1 y1)) (cons 11 (plv-point x2 y2)))))

(defun plv-legende:ecrire (x y h texte justification)
  (entmake
    (append
      (list '(0 . "TEXT") '(8 . "PLV-LEGENDE") (cons 10 (plv-point x y)) (cons 40 h) (cons 1 texte))
      (if (= justification 0) nil (list (cons 72 justification) (cons 11 (plv-point x y)))))))

(defun plv-legende:pastille (x1 y1 x2 y2 couleur)
  "A filled rectangle as clear as the module's hatches, in an outline."
  (entmake
    (list '(0 . "HATCH") '(100 . "AcDbEntity") '(8 . "PLV-LEGENDE") (cons 62 couleur) (cons 440 (+ 33554432 90)) '(100 . "AcDbHatch")
          '(10 0.0 0.0 0.0) '(210 0.0 0.0 1.0) '(2 . "SOLID") '(70 . 1) '(71 . 0) '(91 . 1) '(92 . 3) '(72 . 0) '(73 . 1) '(93 . 4)
          (list 10 x1 y1) (list 10 x2 y1) (list 10 x2 y2) (list 10 x1 y2) '(97 . 0) '(75 . 0) '(76 . 1) '(98 . 0)))
  (plv-legende:trait x1 y1 x2 y1)
  (plv-legende:trait x1 y2 x2 y2)
  (plv-legende:trait x1 y1 x1 y2)
  (plv-legende:trait x2 y1 x2 y2))

(defun plv-legende:dessiner-rangee (rangee y h / x)
  "A row whose lower line is at y."
  (if (car rangee) (plv-legende:pastille h (+ y (* 0.5 h)) (* 4.0 h) (+ y (* 1.5 h)) (car rangee)))
  (setq x (* h (cadr (car plv-legende:colonnes))))
  (mapcar
    '(lambda (texte colonne)
       (plv-legende:ecrire (+ x (* 0.5 h (cadr colonne))) (+ y (* 0.5 h)) h texte 1)
       (setq x (+ x (* h (cadr colonne)))))
    (cdr rangee) (cdr plv-legende:colonnes)))

(defun plv-legende:dessiner (titre rangees h / largeur y x)
  (setq largeur (* h (apply '+ (mapcar 'cadr plv-legende:colonnes))) y 0.0)
  (plv-legende:trait 0.0 0.0 largeur 0.0)
  (plv-legende:ecrire (* 0.5 largeur) (* -2.1 h) (* 1.2 h) titre 1)
  (setq y (* -3.0 h))
  (plv-legende:trait 0.0 y largeur y)
  (foreach rangee (cons (mapcar 'car plv-legende:colonnes) rangees)
    (setq y (- y (* 2.0 h)))
    (plv-legende:dessiner-rangee (if (equal (car rangee) "") (cons nil (cdr rangee)) rangee) y h)
    (plv-legende:trait 0.0 y largeur y))
  (setq x 0.0)
  (foreach colonne (cons '("" 0.0) plv-legende:colonnes)
    (setq x (+ x (* h (cadr colonne))))
    (plv-legende:trait x (if (or (= x 0.0) (equal x largeur 1e-6)) 0.0 (* -3.0 h)) x y)))

(defun plv-legende:place (profil / boite)
  "To the right of the profile, at the height of its top."
  (setq boite (plv-legende:etendue profil))
  (plv-point (+ (car (cadr boite)) (* 6.0 (plgxd profil "TTXT"))) (cadr (cadr boite))))

(defun plv-legende:etendue (profil / origine ttxt infos points plans echv)
  "Lower left and upper right corner of the profile's graphic."
  (setq origine (plv-cle 10 (entget profil))
        ttxt (plgxd profil "TTXT")
        infos (pl_InfosTn profil))
  (list origine
        (list (+ (car origine) (cadr infos))
              (+ (cadr origine) (plv-habillage:hauteur (plv-points-tn profil) (plgxd profil "ECHV") (plv-tables:plans profil))))))

(defun plv-legende (profil genre point / mesures nom h)
  "Measures a profile with the project line of a kind and places its legend (point nil: beside it). The block reference, or
nil after a message."
  (setq genre (plv-genre genre))
  (cond
    ((plv-metres:refus-genre genre) (plv-erreur (plv-metres:refus-genre genre)))
    ((not (plv-elements:enregistres profil genre))
     (plv-erreur (strcat "pas de ligne " genre " sur: " (plv-numero-profil profil))))
    ((setq mesures (plv-metres:mesurer (list profil) genre nil))
     (plv-legende:placer profil genre (car mesures) (cdr (cadr mesures)) (cond (point) ((plv-legende:place profil)))))))

(defun plv-legende:placer (profil genre classes troncons point / nom h)
  (setq nom (plv-legende:nom profil) h (plgxd profil "TTXT"))
  (plv-legende:effacer nom)
  (entmake (list '(0 . "BLOCK") (cons 2 nom) '(70 . 0) '(10 0.0 0.0 0.0)))
  (plv-legende:dessiner (strcat "PROFIL " (plv-numero-profil profil) " - " (strcase genre))
    (append (mapcar '(lambda (n) (plv-legende:rangee n troncons classes)) (plv-legende:numeros troncons))
            (list (plv-legende:total troncons classes)))
    h)
  (entmake '((0 . "ENDBLK")))
  (plv-inserer "PLV-LEGENDE" nom point))

(defun c:plv-legende (/ profil genre)
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq genre (plv-metres:demander-genre (cond ((car (plv-genres-du-projet profil))) ("Projet"))))
      (plv-legende profil genre (getpoint "\nCoin superieur gauche de la legende <a droite du profil>: "))))
  (princ))
