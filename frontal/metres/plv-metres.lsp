;; PLV-METRES: the quantities of profiles in one call, through the very dialog that a user would open: sections by depth
;; class, totals, a control of the surfaces, on demand hatches and a workbook.

;; word of the kind, in the order in which the dialog offers them
(setq plv-metres:projets '("Assainissement" "Voirie" "AEp" "Generique" "Terrassements" "Projet"))

(defun plv-metres:demander-genre (defaut) (plv-demander-mot "Genre de projet" plv-metres:projets defaut))

(defun plv-metres:refus-genre (genre)
  (if (not (member genre plv-metres:projets))
    (strcat "un genre de projet est attendu: " (plv-joindre plv-metres:projets " "))))

;; --- the dialog

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

(defun plv-metres:oublier-effaces (profils)
  "Takes erased entities out of the lists of elements: the dialog counts them as lines that can't be measured."
  (foreach p profils
    (foreach genre (cons "TN" plv-metres:projets)
      (if (vl-some '(lambda (g) (and (= (car g) 330) (not (entget (cdr g)))))
                   (if (plv-support p genre) (plv-enregistrement (plv-support p genre) "ELEMS_PROJET_KAVEL")))
        (plv-elements-ecrire p genre (plv-elements:enregistres p genre))))))

(defun plv-metres:groupe-anonyme-p (objet)
  (and (= (plv-cle 0 (entget objet)) "GROUP") (= (plv-cle 70 (entget objet)) 1)))

(defun plv-metres:groupes (entite / reacteurs resultat)
  "The anonymous groups that an entity is in."
  (setq reacteurs (cdr (member '(102 . "{ACAD_REACTORS") (entget entite))))
  (while (= (caar reacteurs) 330)
    (if (plv-metres:groupe-anonyme-p (cdar reacteurs)) (setq resultat (cons (cdar reacteurs) resultat)))
    (setq reacteurs (cdr reacteurs)))
  resultat)

(defun plv-metres:effacer (hachures)
  "With the groups that the module made of them."
  (plv-effacer (append (plv-uniques (apply 'append (mapcar 'plv-metres:groupes hachures))) hachures)))

(defun plv-metres:anciennes (profil cle)
  "The hatches of a record that are still in the drawing. It has their handles as texts: who erases a hatch leaves no pointer
to nothing."
  (vl-remove-if-not '(lambda (e) (and e (= (plv-cle 0 (entget e)) "HATCH")))
    (mapcar '(lambda (g) (if (= (car g) 300) (handent (cdr g)))) (plv-enregistrement profil cle))))

(defun plv-metres:garder (profils genre rangees hachures / cle i siennes)
  "The hatches take the place of those that the same kind of line had before."
  (setq cle (strcat "PLV_HACHURES_" (strcase genre)) i -1)
  (foreach p profils
    (setq i (1+ i) siennes nil)
    (foreach r rangees
      (if (= (car r) i) (setq siennes (cons (car hachures) siennes) hachures (cdr hachures))))
    (plv-metres:effacer (plv-metres:anciennes p cle))
    (plv-ecrire-enregistrement p cle (mapcar '(lambda (h) (cons 300 (plv-handle h))) (reverse siennes)))))

(defun plv-metres:mesurer (profils genre hachurer / listes ajouts hachures rangees)
  "(classes (profile section ...) ...), or nil after a message. The hatches stay in the drawing when they are wanted."
  (plv-creer-calques)
  (plv-metres:oublier-effaces profils)
  (setq ajouts
    (plv-ajouts-de
      '(lambda ()
         (plv-avec-calque "PLV-HACHURES"
           '(lambda () (setq listes (dialoguer c:cubpl (plv-metres:reponses profils genre '("SchematiserSurPLong")))))))))
  (setq hachures (vl-remove-if-not '(lambda (e) (= (plv-cle 0 (entget e)) "HATCH")) ajouts)
        rangees (vl-remove-if-not '(lambda (r) (= (length r) 7)) (car listes))
        listes (if (= (length hachures) (length rangees))
                 (cons (plv-metres:classes (caddr listes)) (plv-metres:repartir profils genre rangees hachures))))
  (if (and hachurer (plv-metres:complet listes))
    (plv-metres:garder profils genre rangees hachures)
    (plv-metres:effacer hachures))
  (cond
    ((plv-metres:complet listes) listes)
    (T (plv-erreur "une ligne de projet n'a pas pu etre mesuree: elle doit etre au droit du terrain"))))

(defun plv-metres:complet (mesures) (and mesures (vl-every 'cdr (cdr mesures))))

(defun plv-metres:ecrire (profils genre chemin / neuf)
  "Writes the workbook. The dialog says nothing of its success: it writes a name that is still free, which then takes the
place of a workbook that is there."
  (setq neuf (strcat chemin ".nouveau.xlsx"))
  (vl-file-delete neuf)
  (dialoguer c:cubpl (plv-metres:reponses profils genre (list "Exporter" neuf)))
  (if (findfile neuf) (vl-file-delete chemin))
  (if (vl-file-rename neuf chemin)
    (plv-dire (strcat "Classeur: " chemin))
    (plv-erreur (strcat "le classeur n'a pas pu etre ecrit: " chemin))))

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

(defun plv-metres:refus-classeur (profils chemin / faute)
  "Why these profiles can't be written there; nil when nothing is known against it."
  (cond
    ((not chemin) nil)
    ((setq faute (plv-metres:doublon profils))
     (strcat "deux profils ont le numero " faute ": chacun a sa feuille dans le classeur, sous son numero"))
    ((setq faute (plv-metres:titre-refuse profils)) (strcat "ce numero ne peut pas etre le titre d'une feuille: " faute))
    (T (plv-metres:chemin-faux chemin))))

(defun plv-metres:refus (numeros profils genre / absents)
  (cond
    ((not profils) "le dessin n'a pas de profil: PLV-NOUVEAU en cree un")
    ((member nil profils) (strcat "pas de profil numero " (nth (vl-position nil profils) numeros)))
    ((plv-metres:refus-genre genre))
    ((setq absents (vl-remove-if '(lambda (p) (plv-elements:enregistres p genre)) profils))
     (strcat "pas de ligne " genre " sur: " (plv-joindre (mapcar 'plv-numero-profil absents) " ")))))

;; --- the call and the command

(defun plv-metres (numeros genre chemin hachurer / profils faute resultat)
  "Measures profiles (a list of numbers, nil for all) with the project line of a kind; writes a workbook unless chemin is
nil, leaves hatches on demand. Gives (classes (profile section ...) ...), or nil after a message."
  (setq numeros (plv-uniques numeros)
        profils (if numeros (mapcar 'plv-profil-de-numero numeros) (plv-profils))
        genre (plv-genre genre)
        chemin (if (and chemin (not (vl-filename-extension chemin))) (strcat chemin ".xlsx") chemin))
  (cond
    ((setq faute (cond ((plv-metres:refus numeros profils genre)) ((plv-metres:refus-classeur profils chemin)))) (plv-erreur faute))
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
            genre (plv-metres:demander-genre (cond ((car (plv-genres-du-projet (car (plv-profils))))) ("Projet")))
            chemin (plv-demander-texte "Classeur a ecrire <aucun>" nil)
            hachurer (= (plv-demander-mot "Hachurer les classes" '("Oui" "Non") "Oui") "Oui"))
      (plv-metres numeros genre (if (/= chemin "") chemin) hachurer))
    (plv-erreur "le dessin n'a pas de profil: PLV-NOUVEAU en cree un"))
  (princ))
