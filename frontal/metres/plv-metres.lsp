;; PLV-METRES: the quantities of profiles in one call, through the very dialog that a user would open: depth sections by
;; class, totals, a control of the surfaces, on demand hatches and a workbook.
;; Shared in the room: plv-metres:*

;; --- measures are (classes (profile depth-section ...) ...)

(defun plv-mesures (classes profils) (cons classes profils))
(defun plv-mesures-classes (mesures) (car mesures))
(defun plv-mesures-profils (mesures) (cdr mesures))
(defun plv-mesure-profil (mesure) (car mesure))
(defun plv-mesure-troncons (mesure) (cdr mesure))

;; --- the dialog

(defun plv-metres:choix (profil genre / candidats)
  "The answers that choose the kind when the profile has several; nil when the dialog won't ask."
  (setq candidats (vl-remove-if-not '(lambda (g) (plv-elements profil g)) (plv-genres-projet)))
  (if (cdr candidats) (list (itoa (1+ (vl-position genre candidats))) "OK")))

(defun plv-metres:ajouter (profil) (list "AjouterProfils" (plv-jeu (list profil)) ""))

(defun plv-metres:reponses (profils genre actions)
  "The answers that add the profiles, do something with them, and close."
  (append
    (plv-metres:ajouter (car profils))
    (plv-metres:choix (car profils) genre)
    (apply 'append (mapcar 'plv-metres:ajouter (cdr profils)))
    actions
    '("Fermer")))

(defun plv-metres:oublier-effaces (profils)
  "Takes erased entities out of the lists of elements: the dialog counts them as lines that can't be measured."
  (foreach p profils
    (foreach genre (cons "TN" (plv-genres-projet))
      (if (plv-elements-effaces-p p genre) (plv-ecrire-elements p genre (plv-elements p genre))))))

;; --- hatches: those that stay are noted with the profile, by pointers, which lead to the copies of hatches that are copied along;
;; earlier drawings have their handles as texts

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

(defun plv-metres:cle-hachures (genre) (strcat "PLV_HACHURES_" (strcase genre)))

(defun plv-metres:hachure-p (entite) (and (plv-existe entite) (= (plv-type entite) "HATCH")))

(defun plv-metres:notees (profil genre / groupes)
  (setq groupes (plv-enregistrement profil (plv-metres:cle-hachures genre)))
  (append (plv-cles 330 groupes) (mapcar 'handent (plv-cles 300 groupes))))

(defun plv-hachures-du-profil (profil genre / siennes autres)
  "The noted hatches that are still in the drawing and no other profile's."
  (if (setq siennes (vl-remove-if-not 'plv-metres:hachure-p (plv-metres:notees profil genre)))
    (progn
      (setq autres (apply 'append (mapcar '(lambda (p) (plv-metres:notees p genre)) (plv-aines profil))))
      (vl-remove-if '(lambda (h) (member h autres)) siennes))))

(defun plv-metres:garder (profil genre hachures)
  "The hatches take the place of those that the same kind of line had before."
  (plv-metres:effacer (plv-hachures-du-profil profil genre))
  (plv-enregistrer-entites profil (plv-metres:cle-hachures genre) hachures))

;; --- measuring

(setq plv-metres:transparence nil)

(defun plv-metres:hachures-de (entites / hachures)
  "The hatches among entities; how clear the module made them, by its setting, is kept for the legend."
  (if (setq hachures (vl-remove-if-not 'plv-metres:hachure-p entites))
    (setq plv-metres:transparence (plv-cle 440 (entget (car hachures)))))
  hachures)

(defun plv-metres:hachurer (profil genre / faits)
  "Opens the dialog and has it hatch: (its lists, the hatches)."
  (setq faits
    (plv-executer
      '(lambda ()
         (plv-avec-calque "PLV-HACHURES"
           '(lambda () (dialoguer plv-metres:dialogue (plv-metres:reponses (list profil) genre '("SchematiserSurPLong"))))))))
  (list (car faits) (plv-metres:hachures-de (cadr faits))))

(defun plv-metres:essayer (lot genre / profil vus rangees)
  "What the dialog measures, as (lot classes depth-sections hatches); nil after a message when it can't."
  (setq profil (plv-lot-profil lot)
        vus (plv-metres:hachurer profil genre)
        rangees (vl-remove-if-not 'plv-metres:rangee-p (caar vus)))
  (cond
    ((and rangees (= (length rangees) (length (cadr vus))))
     (list lot (plv-metres:classes (caddr (car vus))) (plv-metres:du-profil profil rangees (cadr vus)) (cadr vus)))
    (T
     (plv-metres:effacer (cadr vus))
     (plv-erreur (strcat "métrés du profil " (plv-numero-profil profil) ", " genre ": le module n'a pas pu le mesurer")))))

(defun plv-essai-lot (essai) (car essai))
(defun plv-essai-profil (essai) (plv-lot-profil (car essai)))
(defun plv-essai-classes (essai) (cadr essai))
(defun plv-essai-troncons (essai) (caddr essai))
(defun plv-essai-hachures (essai) (cadddr essai))

;; --- measuring

(defun plv-metres:lots (profils genre)
  "What can be measured of the profiles; the rest is named."
  (plv-creer-calques)
  (plv-metres:oublier-effaces profils)
  (vl-remove nil (mapcar '(lambda (p) (plv-metres:lot p genre)) profils)))

(defun plv-metres:controler (essai genre dire / controle)
  "T when a profile is measured right; else nil after a message. What it holds is printed when that is wanted."
  (setq controle (plv-metres:controle (plv-essai-lot essai) genre (plv-essai-classes essai) (plv-essai-troncons essai)))
  (if dire
    (progn
      (plv-metres:dire (plv-essai-profil essai) genre (plv-essai-classes essai) (plv-essai-troncons essai))
      (plv-dire (car controle))))
  (if (cadr controle) (plv-erreur (cadr controle)) T))

(defun plv-metres:mesurer (lots genre hachurer dire / essais bons)
  "The measures, or nil after a message when the control of a profile fails. The hatches stay in the drawing when they are
wanted and the control is right."
  (setq essais (mapcar '(lambda (lot) (plv-metres:essayer lot genre)) lots)
        bons (mapcar '(lambda (essai) (if essai (plv-metres:controler essai genre dire))) essais))
  (if (and bons hachurer (not (member nil bons)))
    (foreach e essais (plv-metres:garder (plv-essai-profil e) genre (plv-essai-hachures e)))
    (foreach e (vl-remove nil essais) (plv-metres:effacer (plv-essai-hachures e))))
  (if (and bons (not (member nil bons)))
    (plv-mesures (plv-essai-classes (car essais))
      (mapcar '(lambda (e) (cons (plv-essai-profil e) (plv-essai-troncons e))) essais))))

(defun plv-metres:ecrire (profils genre chemin / neuf mis)
  "Writes the workbook. The dialog says nothing of its success: it writes a name that is still free, which then takes the
place of a workbook that is there."
  (setq neuf (strcat chemin ".nouveau.xlsx"))
  (vl-file-delete neuf)
  (plv-metres:avec-titres profils
    '(lambda () (dialoguer plv-metres:dialogue (plv-metres:reponses profils genre (list "Exporter" neuf)))))
  (cond
    ((not (findfile neuf)) (plv-erreur (strcat "le classeur n'a pas pu être écrit: " chemin)))
    ((vl-catch-all-error-p (setq mis (vl-catch-all-apply 'fichier-remplacer (list neuf chemin))))
     (vl-file-delete neuf)
     (plv-erreur (vl-catch-all-error-message mis)))
    (T (plv-dire (strcat "Classeur: " chemin)))))

;; --- what can be known before

(defun plv-metres:chemin-faux (chemin / dossier)
  "Why no workbook can be written there; nil when nothing is known against it."
  (setq dossier (vl-filename-directory chemin))
  (cond
    ((and (/= dossier "") (not (vl-file-directory-p dossier))) (strcat "dossier introuvable: " dossier))
    ((member (vl-filename-base chemin) '("" ".xlsx")) (strcat "un nom est attendu pour le classeur: " chemin))
    ((vl-file-directory-p chemin) (strcat "un dossier a ce nom: " chemin))))

(defun plv-refus-sans-ligne (genre profils)
  (strcat "pas de ligne " genre " sur: " (plv-joindre (mapcar 'plv-numero-profil profils) " ")))

(defun plv-metres:refus (numeros profils genre / absents)
  (cond
    ((not profils) (plv-refus-sans-profil))
    ((member nil profils) (plv-refus-numero (nth (vl-position nil profils) numeros)))
    ((plv-refus-profils profils))
    ((plv-refus-genre-projet genre))
    ((setq absents (vl-remove-if '(lambda (p) (plv-elements p genre)) profils)) (plv-refus-sans-ligne genre absents))))

;; --- the call and the command

(defun plv-metres:faire (lots genre chemin hachurer dire / mesures)
  (setq mesures (plv-metres:mesurer lots genre hachurer dire))
  (if (and mesures chemin) (plv-metres:ecrire (mapcar 'plv-lot-profil lots) genre chemin))
  mesures)

(defun plv-metres:noter (profils genre chemin hachurer)
  "Says what was made, once the profiles have their own lines again."
  (foreach p profils
    (if hachurer (progn (plv-noter-fait p "HACHURES" genre nil nil) (plv-hachures-posees p) (plv-rehausser-titre p)))
    (if chemin (plv-noter-fait p "CLASSEUR" (strcat genre " " chemin) nil nil))))

(defun plv-metrer (profils genre chemin hachurer dire / lots mesures)
  "Measures whole profiles that have lines of a kind; what a section holds is printed when that is wanted."
  (if (setq lots (plv-metres:lots profils genre))
    (progn
      (setq mesures (plv-metres:avec-lots lots genre '(lambda () (plv-metres:faire lots genre chemin hachurer dire))))
      (if mesures (plv-metres:noter (mapcar 'plv-lot-profil lots) genre chemin hachurer))
      mesures)))

(defun plv-metres (numeros genre chemin hachurer / profils faute)
  "Measures profiles (a list of numbers, nil for all) with the project line of a kind; writes a workbook unless chemin is
nil, leaves hatches on demand. Gives the measures, or nil after a message."
  (setq numeros (plv-uniques numeros)
        profils (if numeros (mapcar 'plv-profil-de-numero numeros) (plv-profils))
        genre (plv-genre genre)
        chemin (if (and chemin (not (vl-filename-extension chemin))) (strcat chemin ".xlsx") chemin))
  (cond
    ((setq faute (cond ((plv-metres:refus numeros profils genre)) (chemin (plv-metres:chemin-faux chemin)))) (plv-erreur faute))
    (T (plv-metrer profils genre chemin hachurer T))))

(defun plv-metres:demander-numeros (/ reponse)
  (setq reponse (plv-demander-texte "Numéros des profils, séparés par des virgules, ou Tous" "Tous"))
  (if (not (member (strcase reponse) '("TOUS" "T" "*"))) (mapcar '(lambda (n) (vl-string-trim " " n)) (plv-couper reponse ","))))

(defun c:plv-metres (/ numeros genre chemin hachurer)
  "Mesure les profils par classes de profondeur, hachure et écrit le classeur, en une fois."
  (if (plv-profils)
    (progn
      (setq numeros (plv-metres:demander-numeros)
            genre (plv-demander-genre-projet (plv-genre-propose (car (plv-profils))))
            chemin (plv-demander-texte "Classeur à écrire <aucun>" nil)
            hachurer (= (plv-demander-mot "Hachurer les classes" '("Oui" "Non") "Oui") "Oui"))
      (plv-metres numeros genre (if (/= chemin "") chemin) hachurer))
    (plv-erreur (plv-refus-sans-profil)))
  (princ))
