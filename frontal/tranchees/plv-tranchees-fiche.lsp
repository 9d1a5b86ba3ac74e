;; The form of PLV-TRANCHEES: which rules, which prices, what is to be made; the quantities are there while it is filled in.

(defun plv-tranchees-fiche:champs (/ profils)
  (setq profils (plv-profils))
  (plv-champs-avec-profil
    (list
      (list "genre" "Genre de ligne" "mot" (cond ((if profils (car (plv-genres-de-reseau (car profils))))) ("Assainissement")) (plv-genres-projet))
      '("types" "Types de tranchées, ou ceux du dessin" "lire" "" "Types (*.txt);;Tous (*)")
      '("prix" "Prix, ou rien" "lire" "" "Prix (*.csv *.txt *.xlsx);;Tous (*)")
      '("classeur" "Classeur, ou rien" "ecrire" "" "Classeurs (*.xlsx)")
      '("hachurer" "Hachurer la tranchée" "mot" "Tout" ("Tout" "Classes" "Rien"))
      '("legende" "Légende des classes" "oui" T nil))))

(defun plv-tranchees-fiche:regles (valeurs profil genre)
  (if (plv-fiche-fichier valeurs "types") (plv-lire-lignes (plv-fiche-fichier valeurs "types")) (plv-tranchees-regles profil genre)))

(defun plv-tranchees-fiche:mesurer (valeurs profil genre / rangees regles sols)
  "What the studies measure by the rules of the form; a text that says what is wrong."
  (setq rangees (plv-reseau-rangees profil genre) regles (plv-tranchees-fiche:regles valeurs profil genre))
  (cond
    ((not rangees) (plv-reseau-refus genre))
    ((not regles) "un fichier de types est attendu, le dessin n'en a pas")
    ((eq (type (setq sols (et_tranchees_sols regles))) 'STR) sols)
    ((eq (type (setq sols (plv-tranchees:sols profil sols))) 'STR) sols)
    ((et_tranchees profil rangees (plv-reseau-ligne profil genre) regles sols))))

(defun plv-tranchees-fiche:phrases (mesures)
  (vl-remove nil
    (mapcar '(lambda (colonne valeur) (if (> (abs valeur) 5e-10) (strcat (car colonne) ": " (plv-reel valeur 2) " " (cadr colonne))))
      (plv-tranchees-colonnes mesures) (plv-ouvrage-valeurs (plv-tranchees-total mesures)))))

(defun plv-tranchees-fiche:regarder (valeurs / profil genre mesures)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs) mesures (plv-tranchees-fiche:mesurer valeurs profil genre))
  (plv-regard
    (if (eq (type mesures) 'STR) (list (list (if (plv-reseau-rangees profil genre) "types" "genre") mesures)))
    (list (plv-image-profil profil (plv-traits-profil profil)))
    (if (listp mesures) (plv-tranchees-fiche:phrases mesures))
    (if (= (plv-cle "hachurer" valeurs) "Rien") '("legende"))
    nil))

(defun plv-tranchees-fiche:hachurer (valeurs profil genre)
  (cond
    ((= (plv-cle "hachurer" valeurs) "Rien") (plv-oter-tranchees profil genre))
    ((plv-hachurer-et-dire profil genre (= (plv-cle "hachurer" valeurs) "Tout"))
     (if (and (plv-cle "legende" valeurs) (not (plv-legendes-de-tranchees profil genre))) (plv-legende-tranchees profil genre nil)))))

(defun plv-tranchees-fiche:faire (valeurs / profil genre)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs))
  (if (plv-tranchees-ecrire-regles profil genre (plv-tranchees-fiche:regles valeurs profil genre))
    (progn
      (plv-dire-tranchees (plv-tranchees profil genre))
      (plv-tranchees-fiche:hachurer valeurs profil genre)
      (if (plv-fiche-fichier valeurs "classeur")
        (plv-tranchees-classeur (list (list profil genre)) (plv-fiche-fichier valeurs "classeur") (plv-fiche-fichier valeurs "prix")))
      T)))

(plv-declarer-fiche "PLV-TRANCHEES" "Tranchées d'un réseau" "Mesurer" 'plv-tranchees-fiche:champs 'plv-tranchees-fiche:regarder 'plv-tranchees-fiche:faire)
