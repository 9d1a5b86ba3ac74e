;; The form of PLV-TRANCHEES: which rules, which prices, what is to be made; the quantities and the trench are there while it is filled in.

(defun plv-tranchees-fiche:genre (profil) (cond ((if profil (car (plv-genres-de-reseau profil)))) ("Assainissement")))

(defun plv-tranchees-fiche:types (profil genre)
  "The file that is proposed: none where the drawing has rules."
  (if (and profil (plv-tranchees-regles profil genre)) "" (plv-tranchees-types-livres genre)))

(defun plv-tranchees-fiche:champs (/ profil genre)
  (setq profil (plv-profil-propose) genre (plv-tranchees-fiche:genre profil))
  (plv-champs-avec-profil
    (list
      (list "genre" "Genre de ligne" "mot" genre (plv-genres-projet) T)
      (list "types" "Types de tranchées, ou ceux du dessin" "lire" (plv-tranchees-fiche:types profil genre) "Types (*.txt);;Tous (*)" T)
      '("prix" "Prix, ou rien" "lire" "" "Prix (*.csv *.txt);;Tous (*)")
      '("classeur" "Classeur, ou rien" "ecrire" "" "Classeurs (*.xlsx)" T)
      '("remplir" "Prix à remplir, ou rien" "ecrire" "" "Prix (*.csv)" T)
      '("hachurer" "Hachurer la tranchée" "mot" "Tout" ("Tout" "Classes" "Rien"))
      '("legende" "Légende des classes" "oui" T nil)
      '("coupes" "Coupes types à côté du profil" "oui" nil nil))))

(defun plv-tranchees-fiche:regles (valeurs profil genre)
  (if (plv-fiche-fichier valeurs "types") (plv-lire-lignes (plv-fiche-fichier valeurs "types")) (plv-tranchees-regles profil genre)))

(defun plv-tranchees-fiche:demande (valeurs profil genre / rangees regles sols)
  "What the studies take by the rules of the form; a text that says what is wrong."
  (setq rangees (plv-reseau-rangees profil genre) regles (plv-tranchees-fiche:regles valeurs profil genre))
  (cond
    ((not rangees) (plv-reseau-refus genre))
    ((not regles) "un fichier de types est attendu, le dessin n'en a pas")
    ((eq (type (setq sols (et_tranchees_sols regles))) 'STR) sols)
    ((eq (type (setq sols (plv-tranchees:sols profil sols))) 'STR) sols)
    ((list profil rangees (plv-reseau-ligne profil genre) regles sols))))

(defun plv-tranchees-fiche:phrases (mesures / quantites phrases)
  "What there is, three to a line."
  (setq quantites
    (vl-remove nil
      (mapcar '(lambda (colonne valeur) (if (> (abs valeur) 5e-10) (strcat (car colonne) ": " (plv-reel valeur 2) " " (cadr colonne))))
        (plv-tranchees-colonnes mesures) (plv-ouvrage-valeurs (plv-tranchees-total mesures)))))
  (while quantites
    (setq phrases (cons (plv-joindre (plv-premiers quantites 3) "  ·  ") phrases) quantites (plv-sans-premiers quantites 3)))
  (reverse phrases))

(defun plv-tranchees-fiche:traits (profil genre demande / reseau coupes)
  "Pipes, manholes and the bottom of the trench as items of a picture."
  (setq reseau (plv-reseau-lu profil genre) coupes (apply 'et_tranchees_coupes demande))
  (append
    (if (listp reseau) (plv-traits-de-reseau reseau (plv-premiere-station profil)))
    (if (listp coupes) (plv-image-traits "couloir" (list (plv-tranchees-dessin:bord (car coupes) 'plv-bout-fond (plv-premiere-station profil)))))))

(defun plv-tranchees-fiche:vu (valeurs profil genre / demande mesures)
  (setq demande (plv-tranchees-fiche:demande valeurs profil genre) mesures (if (listp demande) (apply 'et_tranchees demande) demande))
  (plv-regard
    (if (eq (type mesures) 'STR) (list (list (if (plv-reseau-rangees profil genre) "types" "genre") mesures)))
    (list (plv-image-profil profil (append (plv-traits-profil profil) (if (listp mesures) (plv-tranchees-fiche:traits profil genre demande)))))
    (if (listp mesures) (plv-tranchees-fiche:phrases mesures))
    (if (= (plv-cle "hachurer" valeurs) "Rien") '("legende"))
    nil))

(defun plv-tranchees-fiche:regarder (valeurs / profil genre types)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs))
  (if (member (plv-cle "*" valeurs) '("profil" "genre"))
    (progn
      (setq types (plv-tranchees-fiche:types profil genre))
      (plv-regard-avec-valeurs (plv-tranchees-fiche:vu (cons (cons "types" types) valeurs) profil genre) (list (list "types" types))))
    (plv-tranchees-fiche:vu valeurs profil genre)))

;; --- doing

(defun plv-tranchees-fiche:hachurer (valeurs profil genre)
  (cond
    ((= (plv-cle "hachurer" valeurs) "Rien") (plv-oter-tranchees profil genre))
    ((plv-hachurer-et-dire profil genre (= (plv-cle "hachurer" valeurs) "Tout"))
     (if (and (plv-cle "legende" valeurs) (not (plv-legendes-de-tranchees profil genre))) (plv-legende-tranchees profil genre nil)))))

(defun plv-tranchees-fiche:ecrire (valeurs couples)
  (if (plv-fiche-fichier valeurs "remplir") (plv-tranchees-ecrire-prix couples (plv-fiche-fichier valeurs "remplir")))
  (if (plv-fiche-fichier valeurs "classeur")
    (plv-tranchees-classeur couples (plv-fiche-fichier valeurs "classeur") (plv-fiche-fichier valeurs "prix"))))

(defun plv-tranchees-fiche:faire (valeurs / profil genre)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs))
  (if (plv-tranchees-ecrire-regles profil genre (plv-tranchees-fiche:regles valeurs profil genre))
    (progn
      (plv-dire-tranchees (plv-tranchees profil genre))
      (plv-tranchees-fiche:hachurer valeurs profil genre)
      (if (plv-cle "coupes" valeurs) (plv-couper-tranchees profil genre (plv-coupes-place profil)))
      (plv-tranchees-fiche:ecrire valeurs (list (list profil genre)))
      T)))

(plv-declarer-fiche "PLV-TRANCHEES" "Tranchées d'un réseau" "Mesurer" 'plv-tranchees-fiche:champs 'plv-tranchees-fiche:regarder 'plv-tranchees-fiche:faire)
