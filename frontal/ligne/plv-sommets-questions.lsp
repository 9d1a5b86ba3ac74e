;; The command PLV-SOMMETS: a line's vertices listed, corrected, inserted, taken away, in a file; parts of it cut, joined, moved, mirrored.

(defun plv-sommets-questions:ligne-de-liste (numero rangee origine)
  (plv-colonnes
    (mapcar '(lambda (c) (plv-rangee-texte rangee c origine)) '("Station" "Altitude" "Profondeur" "Entree" "Sortie" "Longueur"))
    '(12 11 11 10 10 11))
  (princ (strcat "   " (plv-sommets-questions:raccord rangee origine)
                 (if (plv-cle "Verrou" rangee) (strcat " [" (plv-champ-mot (plv-cle "Verrou" rangee)) " verrouillée]") ""))))

(defun plv-sommets-questions:raccord (rangee origine)
  (if (plv-cle "Rayon" rangee)
    (strcat (if (= (plv-cle "Forme" rangee) "P") "parabole" "cercle") " R " (plv-rangee-texte rangee "Rayon" origine)
            " L " (plv-rangee-texte rangee "Raccordement" origine)
            " de " (plv-rangee-texte rangee "Debut" origine) " à " (plv-rangee-texte rangee "Fin" origine)
            (if (plv-cle "Extremum" rangee)
              (strcat (if (< (plv-cle "Entree" rangee) 0.0) ", point bas " ", point haut ") (plv-rangee-texte rangee "Extremum" origine))
              ""))
    ""))

(defun plv-sommets-lister (profil genre / numero suites sol origine)
  "The table on the screen; the number of vertices, or nil after a message."
  (if (not (setq suites (plv-lire-ligne profil genre)))
    (plv-erreur (strcat "ce profil n'a pas de ligne " genre))
    (progn
      (setq numero 0 sol (plv-sol (plv-points-tn profil)) origine (plv-premiere-station profil))
      (plv-colonnes '("station" "altitude" "profondeur" "entrée %" "sortie %" "longueur") '(12 11 11 10 10 11))
      (foreach suite suites
        (foreach rangee (plv-ligne-rangees sol (list suite))
          (setq numero (1+ numero))
          (plv-sommets-questions:ligne-de-liste numero rangee origine))
        (if (not (eq suite (plv-dernier suites))) (plv-dire "        ...")))
      numero)))

;; --- questions

(defun plv-sommets-questions:demander-numero (question) (initget 7) (getint (strcat "\n" question ": ")))

(defun plv-sommets-questions:demander-station (profil question / station)
  "A distance."
  (while (not station)
    (setq station (plv-nombre-station (plv-demander-texte question nil)))
    (if (not station) (plv-dire "Une station est attendue.")))
  (- station (plv-premiere-station profil)))

(defun plv-sommets-questions:corriger (profil genre / numero champ)
  (setq numero (plv-sommets-questions:demander-numero "Sommet")
        champ (plv-champ-du-mot (plv-demander-mot "Valeur" (mapcar 'plv-champ-mot (plv-champs-modifiables)) "Altitude")))
  (plv-sommets-corriger profil genre
    (list (list numero champ (plv-demander-texte (if (= champ "Forme") "C (cercle) ou P (parabole)" "Nouvelle valeur") nil)))))

(defun plv-sommets-questions:inserer (profil genre / d z)
  (setq d (plv-sommets-questions:demander-station profil "Station")
        z (plv-demander-texte "Altitude <sur la ligne>" nil))
  (if (and (/= z "") (not (plv-nombre z)))
    (plv-erreur "une altitude est attendue")
    (plv-ligne-editer profil genre '(lambda (suites sol) (plv-ligne-inserer suites d (plv-nombre z))))))

(defun plv-sommets-questions:supprimer (profil genre / numero)
  (setq numero (plv-sommets-questions:demander-numero "Sommet à supprimer"))
  (plv-ligne-editer profil genre '(lambda (suites sol) (plv-ligne-supprimer suites numero))))

(defun plv-sommets-questions:verrouiller (profil genre / numero champ)
  (setq numero (plv-sommets-questions:demander-numero "Sommet")
        champ (plv-champ-du-mot
                (plv-demander-mot "Verrouiller" (append (mapcar 'plv-champ-mot (plv-champs-verrouillables)) '("Rien")) "Rien")))
  (plv-ligne-editer profil genre '(lambda (suites sol) (plv-ligne-verrouiller suites numero champ))))

(defun plv-sommets-questions:interrompre (profil genre / debut fin)
  (setq debut (plv-sommets-questions:demander-station profil "Interrompre depuis la station") fin (plv-sommets-questions:demander-station profil "Jusqu'à la station"))
  (plv-ligne-editer profil genre '(lambda (suites sol) (plv-ligne-interrompre suites debut fin))))

(defun plv-sommets-questions:joindre (profil genre / numero)
  (setq numero (plv-sommets-questions:demander-numero "Partie à joindre à la suivante"))
  (plv-ligne-editer profil genre '(lambda (suites sol) (plv-ligne-joindre suites numero))))

(defun plv-sommets-questions:plage (question / numeros)
  "(first last): numbers apart by a hyphen, one alone, or Enter for all."
  (setq numeros (mapcar 'plv-nombre (plv-couper (plv-demander-texte (strcat question " (3-7) <tous>") nil) "-")))
  (cond ((equal numeros '(nil)) (list 1 nil))
        ((member nil numeros) (list 0 0))
        ((list (fix (car numeros)) (fix (plv-dernier numeros))))))

(defun plv-sommets-questions:sur (suites plage fonction arguments)
  (apply fonction
    (append (list suites (car plage) (cond ((cadr plage)) ((plv-ligne-nombre suites)))) arguments)))

(defun plv-sommets-questions:decaler (profil genre / plage dx dz)
  (setq plage (plv-sommets-questions:plage "Sommets à décaler")
        dx (plv-demander-nombre-libre "Le long du profil, en m" 0.0 2) dz (plv-demander-nombre-libre "En altitude, en m" 0.0 2))
  (plv-ligne-editer profil genre '(lambda (suites sol) (plv-sommets-questions:sur suites plage 'plv-ligne-decaler (list dx dz)))))

(defun plv-sommets-questions:refleter (profil genre / plage altitude)
  (setq plage (plv-sommets-questions:plage "Sommets à refléter") altitude (plv-demander-nombre "Altitude du miroir"))
  (plv-ligne-editer profil genre '(lambda (suites sol) (plv-sommets-questions:sur suites plage 'plv-ligne-miroir (list altitude)))))

(defun plv-sommets-questions:fichier (profil genre / chemin lignes)
  (if (= (plv-demander-mot "Fichier" '("Ecrire" "Lire") "Ecrire") "Lire")
    (if (and (setq chemin (plv-demander-fichier "Fichier de la ligne")) (setq lignes (plv-lire-lignes chemin)))
      (plv-sommets-remplacer profil genre lignes chemin))
    (if (plv-lire-ligne profil genre)
      (plv-ecrire-lignes (plv-demander-texte "Fichier à écrire" "ligne.csv") (plv-sommets-lignes profil genre))
      (plv-erreur (strcat "ce profil n'a pas de ligne " genre)))))

(setq plv-sommets-questions:actions
  '(("Lister" . plv-sommets-lister) ("Corriger" . plv-sommets-questions:corriger) ("Inserer" . plv-sommets-questions:inserer) ("Supprimer" . plv-sommets-questions:supprimer)
    ("Verrouiller" . plv-sommets-questions:verrouiller) ("INTerrompre" . plv-sommets-questions:interrompre) ("Joindre" . plv-sommets-questions:joindre)
    ("Decaler" . plv-sommets-questions:decaler) ("Miroir" . plv-sommets-questions:refleter) ("Fichier" . plv-sommets-questions:fichier)))

(defun plv-sommets-questions:demander-action (/ mots)
  "A word; nil for Enter."
  (setq mots (plv-joindre (mapcar 'car plv-sommets-questions:actions) "/"))
  (initget (plv-remplacer mots "/" " "))
  (getkword (strcat "\n[" mots "] <fin>: ")))

(defun c:plv-sommets (/ profil genre action)
  "Liste, corrige, insère et supprime les sommets d'une ligne de projet; la coupe, la joint, la décale, l'échange avec un tableur."
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq genre (plv-demander-genre (plv-genre-propose profil)))
      (while (setq action (plv-sommets-questions:demander-action)) (apply (plv-cle action plv-sommets-questions:actions) (list profil genre)))))
  (princ))
