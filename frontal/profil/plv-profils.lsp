;; Finding profiles: all of the drawing, the one of a number, the one that the user means, the current one.
;; The current profile is the one whose tables the module has selected and whose menu is up.

(defun plv-attribut-profil (profil etiquette / suivante groupes)
  "The groups of an attribute, nil without it. Tags are known without regard to case, as the module knows them."
  (setq suivante (entnext profil))
  (while (and suivante (= (plv-cle 0 (setq groupes (entget suivante))) "ATTRIB") (/= (strcase (plv-cle 2 groupes)) etiquette))
    (setq suivante (entnext suivante)))
  (if (and suivante (= (plv-cle 0 groupes) "ATTRIB")) groupes))

(defun plv-profil-p (entite)
  "Whether a block reference is a profile: its number and its keys make one, not the name of its block."
  (and (plv-attribut-profil entite "NUMPL") (plv-donnees entite plv-app-cles)))

(defun plv-references ()
  "The block references with keys, in the order of their making."
  (reverse (plv-entites-du-jeu (ssget "X" (list '(0 . "INSERT") (list -3 (list plv-app-cles)))))))

(defun plv-profils ()
  "The profiles of the drawing, in the order of their identifiers, then of their making."
  (vl-sort (vl-remove-if-not 'plv-profil-p (plv-references)) '(lambda (a b) (< (plv-id-profil a) (plv-id-profil b)))))

(defun plv-profils-sans-numero ()
  "The references that have the planes of a profile but lost its number."
  (vl-remove-if '(lambda (e) (or (plv-profil-p e) (not (assoc "PRPC" (plv-paires e))))) (plv-references)))

(defun plv-id-profil (profil / id)
  (if (= (type (setq id (plgxd profil "ID"))) 'INT) id -1))

(defun plv-identifiant-libre ()
  (1+ (apply 'max (cons 0 (mapcar 'plv-id-profil (plv-profils))))))

(defun plv-numero-profil (profil) (plv-cle 1 (plv-attribut-profil profil "NUMPL")))

(defun plv-profil-de-numero (numero)
  (car (vl-member-if '(lambda (p) (= (strcase (plv-numero-profil p)) (strcase numero))) (plv-profils))))

(defun plv-refus-numero (numero) (strcat "pas de profil numéro " numero))

(setq plv-profils:aucun "le dessin n'a pas de profil: PLV-NOUVEAU en crée un")

(defun plv-refus-sans-profil () plv-profils:aucun)

(defun plv-profils:ecart (valeur minimum maximum) (max 0.0 (- minimum valeur) (- valeur maximum)))

(defun plv-profils:eloignement (profil point / origine)
  "How far a point of the drawing is from what is drawn of a profile over its planes; 0 within."
  (setq origine (plv-origine profil))
  (max (plv-profils:ecart (car point) (car origine) (+ (car origine) (plv-longueur-profil profil)))
       (plv-profils:ecart (cadr point) (cadr origine) (+ (cadr origine) (plv-hauteur-profil profil)))))

(defun plv-profil-designe (entite point / profil)
  "The profile that a pick means: its block, or the nearest one, whose tables reach half its length below; nil for none."
  (if (plv-profil-p entite)
    entite
    (progn
      (foreach p (vl-remove-if 'plv-refus-profil (plv-profils))
        (if (or (not profil) (< (plv-profils:eloignement p point) (plv-profils:eloignement profil point))) (setq profil p)))
      (if (and profil (<= (plv-profils:eloignement profil point) (* 0.5 (plv-longueur-profil profil)))) profil))))

(defun plv-profils:propose (profils)
  "The current profile, else the last one."
  (if (member plv-courant profils) plv-courant (plv-dernier profils)))

(defun plv-profils:reponse (question numeros)
  "A number, a pick, or nil for Enter. A number with a blank could not be typed where a pick is an answer."
  (if (vl-some '(lambda (n) (vl-string-search " " n)) numeros)
    (plv-demander-texte question nil)
    (progn (setvar "ERRNO" 0) (initget 128 (plv-joindre numeros " ")) (entsel (strcat "\n" question ": ")))))

(defun plv-profils:demander (profils / numeros propose reponse)
  "One of several: by its number or a pick; nil after a message."
  (setq numeros (mapcar 'plv-numero-profil profils)
        propose (plv-profils:propose profils)
        reponse (plv-profils:reponse (strcat "Numéro du profil [" (plv-joindre numeros "/") "] <" (plv-numero-profil propose) ">") numeros))
  (cond
    ((= (type reponse) 'LIST) (cond ((plv-profil-designe (car reponse) (cadr reponse))) ((plv-erreur "il n'y a pas de profil à cet endroit"))))
    ((and (not reponse) (= (getvar "ERRNO") 7)) (plv-erreur "il n'y a rien à cet endroit"))
    ((member reponse '(nil "")) propose)
    ((plv-profil-de-numero reponse))
    ((plv-erreur (plv-refus-numero reponse)))))

(defun plv-choisir-profil (/ profils profil)
  "The drawing's only profile, or one that is asked for; nil after a message, also for a damaged one."
  (setq profils (plv-profils))
  (cond
    ((not profils) (plv-erreur plv-profils:aucun))
    ((setq profil (if (cdr profils) (plv-profils:demander profils) (car profils))) (plv-profil-sain profil))))

(defun plv-demander-profils (/ profils profil)
  "All profiles or one; nil after a message."
  (setq profils (plv-profils))
  (if (and (cdr profils) (= (plv-demander-mot "Profils" '("Tous" "Un") "Tous") "Tous"))
    (if (vl-every 'plv-profil-sain profils) profils)
    (if (setq profil (plv-choisir-profil)) (list profil))))

;; --- the current profile

(setq plv-courant nil)

(defun plv-choix-profil (profil)
  "Makes a profile the current one."
  (setq plv-courant profil)
  (pl_ChoixProfil profil)
  profil)

(defun plv-reprendre-courant ()
  "When another drawing was worked on: the tables and the menu that the module has are that one's."
  (if (and plv-courant (member plv-courant (plv-profils)) (not (plv-refus-profil plv-courant)))
    (pl_ChoixProfil plv-courant)
    (progn (pl_ResetMatrices) (pl_PlacerMenusKavel "VARDANE4" ""))))

(defun plv-profil-courant (/ profil)
  "The current profile with its tables loaded; asked for when there is none, or when it is gone."
  (if (setq profil (if (and plv-courant (member plv-courant (plv-profils))) (plv-profil-sain plv-courant) (plv-choisir-profil)))
    (plv-choix-profil profil)))

(defun plv-numero-courant ()
  "The number of the current profile of the drawing; nil for none."
  (if (and plv-courant (member plv-courant (plv-profils))) (plv-numero-profil plv-courant)))

(defun c:plv-choisir (/ profil)
  "Choisit le profil courant, auquel se rapportent le menu du profil et ses commandes."
  (if (setq profil (plv-choisir-profil)) (plv-choix-profil profil))
  (princ))
