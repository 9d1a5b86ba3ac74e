;; The command PLV-TRANCHEES: rules, quantities, prices and workbook of a network, its trench in the drawing.

(setq plv-tranchees-questions:mots '("Types" "Quantités" "Prix" "Classeur" "Hachurer" "Légende" "Sections" "FIN"))

(defun plv-tranchees-questions:types (profil genre / rangees)
  (if (setq rangees (plv-reseau-lire-fichier (plv-demander-texte "Fichier des types de tranchées" (plv-tranchees-types-livres genre))))
    (if (plv-tranchees-ecrire-regles profil genre rangees) (plv-dire (strcat "Types de tranchées: " genre ".")))))

(defun plv-tranchees-questions:couples (profil genre / avec)
  "The network itself, with others that are to stand beside it: (profile kind) each."
  (setq avec (plv-demander-texte "À côté, profil,genre (un autre réseau, une variante) <aucun>" nil))
  (if (= avec "")
    (list (list profil genre))
    (append (list (list profil genre)) (plv-tranchees-questions:autre avec))))

(defun plv-tranchees-questions:autre (texte / champs autre)
  (setq champs (plv-couper texte ",") autre (plv-profil-de-numero (car champs)))
  (cond
    ((not autre) (plv-erreur (plv-refus-numero (car champs))))
    ((not (plv-genre (cond ((cadr champs)) ("")))) (plv-erreur (plv-refus-genre-projet (cond ((cadr champs)) ("")))))
    ((list (list autre (plv-genre (cadr champs)))))))

(defun plv-tranchees-questions:classeur (profil genre / couples prix chemin)
  (setq couples (plv-tranchees-questions:couples profil genre)
        prix (plv-demander-texte "Fichier des prix <aucun>" nil)
        chemin (plv-demander-texte "Classeur à écrire" (strcat (plv-numero-profil profil) "-tranchees.xlsx")))
  (plv-tranchees-classeur couples chemin (if (/= prix "") prix)))

(defun plv-tranchees-questions:faire (profil genre mot / mesures)
  (cond
    ((= mot "Types") (plv-tranchees-questions:types profil genre))
    ((= mot "Quantités") (if (setq mesures (plv-tranchees profil genre)) (plv-dire-tranchees mesures)))
    ((= mot "Prix") (plv-tranchees-ecrire-prix (list (list profil genre)) (plv-demander-texte "Fichier des prix à remplir" "prix-tranchees.csv")))
    ((= mot "Classeur") (plv-tranchees-questions:classeur profil genre))
    ((= mot "Hachurer") (plv-tranchees-questions:hachurer profil genre))
    ((= mot "Légende") (plv-legende-tranchees profil genre (getpoint "\nCoin supérieur gauche de la légende <à droite du profil>: ")))
    ((= mot "Sections") (plv-tranchees-questions:sections profil genre))))

(defun plv-tranchees-questions:hachurer (profil genre / quoi)
  (setq quoi (plv-demander-mot "Hachurer" '("Classes" "Tout" "Rien") "Tout"))
  (if (= quoi "Rien") (plv-oter-tranchees profil genre) (plv-hachurer-et-dire profil genre (= quoi "Tout"))))

(defun plv-tranchees-questions:sections (profil genre / defaut point)
  (setq defaut (plv-coupes-place profil)
        point (getpoint (strcat "\nPoint de départ des coupes <" (plv-reel (car defaut) 2) "," (plv-reel (cadr defaut) 2) ">: ")))
  (plv-couper-tranchees profil genre (cond (point) (defaut))))

(defun c:plv-tranchees (/ profil genre mot)
  "Mesure les tranchées d'un réseau selon des types, les chiffre, écrit le classeur et les dessine."
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq genre (plv-demander-genre-projet (cond ((car (plv-genres-de-reseau profil))) ("Assainissement"))))
      (if (not (plv-tranchees-regles profil genre)) (plv-tranchees-questions:types profil genre))
      (while (/= "FIN" (setq mot (plv-demander-mot "Tranchées" plv-tranchees-questions:mots "FIN")))
        (plv-tranchees-questions:faire profil genre mot))))
  (princ))
