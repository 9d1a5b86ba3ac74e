;; PLV-LEGENDE: the depth classes of a profile as a block beside it: colour, limits, length, surface, volume.
;; Each kind of line has its own. The block is made anew each time, and its reference in the drawing goes with it. The reference names
;; the profile and the kind; in drawings of earlier versions only the block's name told them.
;; Shared in the room: plv-legende:*

(setq plv-legende:cle-genre "LEGENDEGENRE" plv-legende:cle-tranchees "LEGENDETRANCHEES"
      plv-legende:opaque 33554687)

;; as plv-poser-legende takes them
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

(defun plv-legendes-de-tranchees (profil genre)
  "The legends of hatched trenches, for nil of all kinds."
  (vl-remove-if-not
    '(lambda (e / note)
       (and (eq (plv-nommee e plv-legende:cle-profil) profil) (setq note (cdr (plv-cle plv-legende:cle-tranchees (plv-paires e))))
            (or (not genre) (= note genre))))
    (plv-references)))

(defun plv-poser-legende-de-tranchees (profil genre colonnes rangees clarte point / nom)
  "Beside the profile for nil as point."
  (setq nom (plv-legende:nom-libre profil (strcat "TRANCHEES_" genre)))
  (plv-poser-legende profil nom (strcat (plv-legende:titre profil genre) " - TRANCHÉES") colonnes rangees clarte
    (cond (point) ((plv-legende:place profil nil))) genre plv-legende:cle-tranchees))

(defun plv-legendes-du-profil (profil)
  "The references of a profile's legends, kind after kind."
  (append (apply 'append (mapcar 'cdr (plv-legendes-par-genre profil))) (plv-legendes-de-tranchees profil nil)))

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

;; --- placing

(defun plv-legende:place (profil sauf / origine autres)
  "To the right of the profile and of its legends but some, at the height of its top."
  (setq origine (plv-origine profil) autres (vl-remove-if '(lambda (e) (member e sauf)) (plv-legendes-du-profil profil)))
  (plv-point
    (+ (* 6.0 (plv-ttxt profil))
       (apply 'max (cons (+ (car origine) (plv-longueur-profil profil)) (mapcar '(lambda (e) (caddr (plv-boite e))) autres))))
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
     (plv-legende:placer profil genre rangees (cond (point) ((plv-legende:place profil (plv-legendes-du-genre profil genre))))))))

(defun plv-legende:nom-libre (profil genre / racine nom n)
  "A name of a block that no other profile's legend shows."
  (setq racine (plv-legende:nom profil genre) nom racine n 1)
  (while (plv-legende:references nom) (setq n (1+ n) nom (strcat racine "_" (itoa n))))
  nom)

(defun plv-legende:placer (profil genre rangees point / nom reference)
  (plv-effacer (plv-legendes-du-genre profil genre))
  (setq nom (plv-legende:nom-libre profil genre))
  (setq reference
    (plv-poser-legende profil nom (plv-legende:titre profil genre) plv-legende:colonnes rangees
      (cond (plv-metres:transparence) (plv-legende:opaque)) point genre plv-legende:cle-genre))
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
