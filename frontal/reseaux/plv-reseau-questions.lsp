;; The command PLV-RESEAU: a network of a line, from a file or by questions; what is asked changes the rows, and the network is drawn anew.

(setq plv-reseau-questions:mots '("Ligne" "FIchier" "Regard" "Tuyau" "CRoisement" "LImite" "Oter" "COntrôler" "Exporter" "Supprimer" "FIN"))

(defun plv-reseau-questions:de-ligne (profil genre / prefixe nature regard diametre materiau classe espacement)
  "Rows for a network along the line; nil after a message."
  (if (not (plv-elements-du-projet profil genre))
    (plv-erreur (strcat "ce profil n'a pas de ligne " genre ": PLV-PROJET ou PLV-OPTIMAL en font une"))
    (progn
      (setq prefixe (plv-demander-texte "Préfixe des noms" "R")
            nature (plv-demander-texte "Type des regards" "visite")
            regard (plv-demander-texte "Diamètre des regards en mm, intérieur/extérieur" "1000/1240")
            diametre (plv-demander-texte "Diamètre des tuyaux en mm, intérieur/extérieur" "300/376")
            materiau (plv-demander-texte "Matériau" "béton")
            classe (plv-demander-texte "Classe" "135A")
            espacement (plv-demander-nombre-libre "Espacement le plus grand des regards" 60.0 2))
      (plv-reseau-rangees-de-ligne profil genre prefixe (strcat nature ";" regard) (plv-joindre (list diametre materiau classe) ";") espacement))))

(defun plv-reseau-questions:changer (profil genre rangees mot)
  "The rows after an answer; nil where nothing changes."
  (cond
    ((= mot "Ligne") (plv-reseau-questions:de-ligne profil genre))
    ((= mot "FIchier") (plv-reseau-lire-fichier (plv-demander-texte "Fichier du réseau" nil)))
    ((= mot "Oter")
     (plv-saisie-reseau:oter rangees (strcase (plv-demander-mot "Ôter un" '("Regard" "Tuyau" "Croisement" "Limite") "Regard") T)))
    (T (plv-saisie-reseau:demander rangees (strcase mot T)))))

(defun plv-reseau-questions:faire (profil genre mot / rangees)
  (setq rangees (plv-reseau-rangees profil genre))
  (cond
    ((= mot "COntrôler") (plv-reseau-controler profil genre))
    ((= mot "Supprimer") (plv-reseau-oter profil genre))
    ((= mot "Exporter") (plv-reseau-exporter profil genre (plv-demander-texte "Fichier à écrire" nil)))
    ((setq rangees (plv-reseau-questions:changer profil genre rangees mot)) (plv-reseau-questions:ecrire profil genre rangees))))

(defun plv-reseau-questions:ecrire (profil genre rangees / reseau)
  (if (setq reseau (plv-reseau-ecrire profil genre rangees))
    (plv-dire (strcat "Réseau " genre ": " (plv-compte (length (plv-reseau-regards reseau)) "regard") ", "
                      (itoa (length (plv-reseau-tuyaux reseau))) (if (cdr (plv-reseau-tuyaux reseau)) " tuyaux." " tuyau.")))))

(defun c:plv-reseau (/ profil genre mot)
  "Pose tuyaux et regards sur une ligne du profil, depuis la ligne, un fichier ou par questions, et les contrôle."
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq genre (plv-demander-genre-projet "Assainissement"))
      (while (/= "FIN" (setq mot (plv-demander-mot "Réseau" plv-reseau-questions:mots "FIN")))
        (plv-reseau-questions:faire profil genre mot))))
  (princ))
