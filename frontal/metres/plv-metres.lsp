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

;; --- hatches: those that stay are noted with the profile, as handles, so that who erases a hatch leaves no pointer to nothing

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

(defun plv-metres:hachure-p (entite) (and entite (= (plv-type entite) "HATCH")))

(defun plv-metres:anciennes (profil genre)
  "The noted hatches that are still in the drawing."
  (vl-remove-if-not 'plv-metres:hachure-p
    (mapcar 'handent (plv-cles 300 (plv-enregistrement profil (plv-metres:cle-hachures genre))))))

(defun plv-metres:garder (profil genre hachures)
  "The hatches take the place of those that the same kind of line had before."
  (plv-metres:effacer (plv-metres:anciennes profil genre))
  (plv-ecrire-enregistrement profil (plv-metres:cle-hachures genre) (mapcar '(lambda (h) (cons 300 (plv-handle h))) hachures)))

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
           '(lambda () (dialoguer c:cubpl (plv-metres:reponses (list profil) genre '("SchematiserSurPLong"))))))))
  (list (car faits) (plv-metres:hachures-de (cadr faits))))

(defun plv-metres:essayer (profil genre / vus rangees)
  "What the dialog measures, as (profile classes depth-sections hatches); nil when it can't."
  (setq vus (plv-metres:hachurer profil genre)
        rangees (vl-remove-if-not 'plv-metres:rangee-p (caar vus)))
  (if (and rangees (= (length rangees) (length (cadr vus))))
    (list profil (plv-metres:classes (caddr (car vus))) (plv-metres:du-profil profil genre rangees (cadr vus)) (cadr vus))
    (plv-metres:effacer (cadr vus))))

(defun plv-essai-profil (essai) (car essai))
(defun plv-essai-classes (essai) (cadr essai))
(defun plv-essai-troncons (essai) (caddr essai))
(defun plv-essai-hachures (essai) (cadddr essai))

;; --- lines that can't be measured: the module gives up the whole profile for one of them, so they are set aside

(defun plv-metres:avec (avec:profil avec:genre avec:elements avec:fonction / avec:tous avec:fait)
  "Runs a function while the kind has these elements only."
  (setq avec:tous (plv-elements avec:profil avec:genre))
  (plv-ecrire-elements avec:profil avec:genre avec:elements)
  (setq avec:fait (vl-catch-all-apply avec:fonction '()))
  (plv-ecrire-elements avec:profil avec:genre avec:tous)
  (if (vl-catch-all-error-p avec:fait) (plv-erreur (vl-catch-all-error-message avec:fait)) avec:fait))

(defun plv-metres:seule-p (profil genre element / essai)
  "Whether the module measures a line by itself."
  (setq essai (plv-metres:avec profil genre (list element) '(lambda () (plv-metres:essayer profil genre))))
  (if essai (plv-metres:effacer (plv-essai-hachures essai)))
  essai)

(defun plv-metres:faute-ligne (profil cadre terrain element / pieces)
  "Why a line can't be measured; nil when nothing is known against it."
  (setq pieces (plv-traces:pieces profil cadre element nil))
  (cond
    ((not pieces) "elle n'a pas de longueur le long du profil")
    ((not (plv-traces:profondeurs terrain pieces)) "elle doit être au droit du terrain")))

(defun plv-metres:fautives (profil genre / cadre terrain fautes)
  "The lines that can't be measured, as (element . why)."
  (setq cadre (plv-cadre profil) terrain (plv-traces:terrain profil cadre nil))
  (foreach e (plv-elements profil genre)
    (setq fautes (cons (cons e (plv-metres:faute-ligne profil cadre terrain e)) fautes)))
  (vl-remove-if-not 'cdr (reverse fautes)))

(defun plv-metres:refusees (profil genre)
  "The lines that the module doesn't measure, though nothing is known against them."
  (mapcar '(lambda (e) (cons e "le module ne peut pas la mesurer"))
    (vl-remove-if '(lambda (e) (plv-metres:seule-p profil genre e)) (plv-elements profil genre))))

(defun plv-metres:dire-fautive (profil genre fautive)
  (plv-erreur (strcat "profil " (plv-numero-profil profil) ", " genre ": la ligne " (plv-handle (car fautive))
                      " n'a pas pu être mesurée: " (cdr fautive))))

(defun plv-metres:mesurables (profil genre / fautives bons)
  "The lines of a profile that can be measured; the others are named."
  (setq fautives (plv-metres:fautives profil genre)
        bons (vl-remove-if '(lambda (e) (assoc e fautives)) (plv-elements profil genre)))
  (if (and bons (not (plv-metres:avec profil genre bons '(lambda () (plv-metres:mesure-p profil genre)))))
    (setq fautives (append fautives (plv-metres:avec profil genre bons '(lambda () (plv-metres:refusees profil genre))))
          bons (vl-remove-if '(lambda (e) (assoc e fautives)) bons)))
  (foreach f fautives (plv-metres:dire-fautive profil genre f))
  bons)

(defun plv-metres:mesure-p (profil genre / essai)
  (if (setq essai (plv-metres:essayer profil genre)) (plv-metres:effacer (plv-essai-hachures essai)))
  essai)

(defun plv-metres:avec-lots (avec:lots genre avec:finale)
  "Runs a function while each profile, (profile line ...), has the lines of its lot only."
  (if avec:lots
    (plv-metres:avec (caar avec:lots) genre (cdar avec:lots)
      '(lambda () (plv-metres:avec-lots (cdr avec:lots) genre avec:finale)))
    (apply avec:finale '())))

;; --- measuring

(defun plv-metres:lots (profils genre)
  "The profiles that can be measured, each with its lines."
  (plv-creer-calques)
  (plv-metres:oublier-effaces profils)
  (vl-remove-if-not 'cdr (mapcar '(lambda (p) (cons p (plv-metres:mesurables p genre))) profils)))

(defun plv-metres:controler (essai genre dire / controle)
  "T when a profile is measured right; else nil after a message. What it holds is printed when that is wanted."
  (setq controle (plv-metres:controle (plv-essai-profil essai) genre (plv-essai-classes essai) (plv-essai-troncons essai)))
  (if dire
    (progn
      (plv-metres:dire (plv-essai-profil essai) genre (plv-essai-classes essai) (plv-essai-troncons essai))
      (plv-dire (car controle))))
  (if (cadr controle) (plv-erreur (cadr controle)) T))

(defun plv-metres:mesurer (lots genre hachurer dire / essais bons)
  "The measures, or nil after a message when the control of a profile fails. The hatches stay in the drawing when they are
wanted and the control is right."
  (setq essais (mapcar '(lambda (lot) (plv-metres:essayer (car lot) genre)) lots)
        bons (if essais (mapcar '(lambda (essai) (plv-metres:controler essai genre dire)) essais)))
  (if (and bons hachurer (not (member nil bons)))
    (foreach e essais (plv-metres:garder (plv-essai-profil e) genre (plv-essai-hachures e)))
    (foreach e essais (plv-metres:effacer (plv-essai-hachures e))))
  (if (and bons (not (member nil bons)))
    (plv-mesures (plv-essai-classes (car essais))
      (mapcar '(lambda (e) (cons (plv-essai-profil e) (plv-essai-troncons e))) essais))))

(defun plv-metres:ecrire (profils genre chemin / neuf)
  "Writes the workbook. The dialog says nothing of its success: it writes a name that is still free, which then takes the
place of a workbook that is there."
  (setq neuf (strcat chemin ".nouveau.xlsx"))
  (vl-file-delete neuf)
  (dialoguer c:cubpl (plv-metres:reponses profils genre (list "Exporter" neuf)))
  (if (findfile neuf) (vl-file-delete chemin))
  (if (vl-file-rename neuf chemin)
    (plv-dire (strcat "Classeur: " chemin))
    (plv-erreur (strcat "le classeur n'a pas pu être écrit: " chemin))))

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
    ((member (vl-filename-base chemin) '("" ".xlsx")) (strcat "un nom est attendu pour le classeur: " chemin))
    ((vl-file-directory-p chemin) (strcat "un dossier a ce nom: " chemin))))

(defun plv-metres:refus-classeur (profils chemin / faute)
  "Why these profiles can't be written there; nil when nothing is known against it."
  (cond
    ((not chemin) nil)
    ((setq faute (plv-metres:doublon profils))
     (strcat "deux profils ont le numéro " faute ": chacun a sa feuille dans le classeur, sous son numéro"))
    ((setq faute (plv-metres:titre-refuse profils)) (strcat "ce numéro ne peut pas être le titre d'une feuille: " faute))
    (T (plv-metres:chemin-faux chemin))))

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

(defun plv-metres:faire (lots genre chemin hachurer / mesures)
  (setq mesures (plv-metres:mesurer lots genre hachurer T))
  (if (and mesures chemin) (plv-metres:ecrire (mapcar 'car lots) genre chemin))
  mesures)

(defun plv-metres (numeros genre chemin hachurer / profils faute lots)
  "Measures profiles (a list of numbers, nil for all) with the project line of a kind; writes a workbook unless chemin is
nil, leaves hatches on demand. Gives the measures, or nil after a message."
  (setq numeros (plv-uniques numeros)
        profils (if numeros (mapcar 'plv-profil-de-numero numeros) (plv-profils))
        genre (plv-genre genre)
        chemin (if (and chemin (not (vl-filename-extension chemin))) (strcat chemin ".xlsx") chemin))
  (cond
    ((setq faute (cond ((plv-metres:refus numeros profils genre)) ((plv-metres:refus-classeur profils chemin)))) (plv-erreur faute))
    ((setq lots (plv-metres:lots profils genre))
     (plv-metres:avec-lots lots genre '(lambda () (plv-metres:faire lots genre chemin hachurer))))))

(defun plv-metres:demander-numeros (/ reponse)
  (setq reponse (plv-demander-texte "Numéros des profils, séparés par des virgules, ou Tous" "Tous"))
  (if (not (member (strcase reponse) '("TOUS" "T" "*"))) (mapcar '(lambda (n) (vl-string-trim " " n)) (plv-couper reponse ","))))

(defun c:plv-metres (/ numeros genre chemin hachurer)
  (if (plv-profils)
    (progn
      (setq numeros (plv-metres:demander-numeros)
            genre (plv-demander-genre-projet (plv-genre-propose (car (plv-profils))))
            chemin (plv-demander-texte "Classeur à écrire <aucun>" nil)
            hachurer (= (plv-demander-mot "Hachurer les classes" '("Oui" "Non") "Oui") "Oui"))
      (plv-metres numeros genre (if (/= chemin "") chemin) hachurer))
    (plv-erreur (plv-refus-sans-profil)))
  (princ))
