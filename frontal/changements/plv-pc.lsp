;; PLV-PC: adds, changes or removes a reference plane. The chain first, then the ground of its sections; then the module
;; moves and cuts what is attached; last come the dressing and the reference lines of the tables.
;; Shared in the room: plv-pc:faute plv-pc:section

(defun plv-pc:section (sections d)
  "The section that begins at a distance, else the one that holds it, nil outside."
  (plv-dernier
    (vl-remove-if-not
      '(lambda (s) (and (>= d (- (plv-plan-debut s) 1e-6)) (< d (- (plv-section-fin s) 1e-6))))
      sections)))

(defun plv-refaire-section (profil points section / origine plan groupes)
  "Writes a section into its plane's entity and draws its ground anew."
  (setq origine (plv-origine profil) plan (plv-section-entite section))
  (plv-ecrire-cles plan
    (list (list "DISTANCE" (float (plv-section-longueur section))) (list "PC" (float (plv-plan-altitude section)))))
  (setq groupes (entget plan))
  (entmod
    (subst (cons 10 (plv-point (+ (car origine) (plv-plan-debut section)) (cadr origine))) (assoc 10 groupes)
      (subst (cons 11 (plv-point (+ (car origine) (plv-section-fin section)) (cadr origine))) (assoc 11 groupes) groupes)))
  (plv-retracer-section profil points section))

(defun plv-pc:suivre (entite suivante)
  (if suivante (plsxd entite "NEXT-PC" suivante) (plv-oter-cle entite "NEXT-PC")))

(defun plv-pc:points (profil plans) (plv-points-aux-plans (plv-points-tn profil) plans))

;; --- the three operations

(defun plv-pc:ajouter (profil section d altitude / entite fin points suivante nouvelle)
  (setq entite (plv-section-entite section)
        fin (plv-section-fin section)
        points (plv-pc:points profil (append (plv-plans profil) (list (list d altitude))))
        suivante (plgxd entite "NEXT-PC"))
  (plv-refaire-section profil points
    (list (plv-plan-debut section) (plv-plan-altitude section) (- d (plv-plan-debut section)) entite))
  (setq nouvelle (plv-tracer-plan (plv-origine profil) points (plv-echv profil) (list d altitude) fin))
  (if suivante (plsxd nouvelle "NEXT-PC" suivante))
  (plsxd entite "NEXT-PC" nouvelle))

(defun plv-pc:modifier (profil section altitude)
  (plv-refaire-section profil (plv-pc:points profil (plv-plans profil))
    (list (plv-plan-debut section) altitude (plv-section-longueur section) (plv-section-entite section))))

(defun plv-pc:supprimer (profil precedente section / points)
  ;; Before the chain changes: the starts of the sections that follow are counted along it.
  (setq points
    (plv-pc:points profil
      (vl-remove-if '(lambda (plan) (equal (plv-plan-debut plan) (plv-plan-debut section) 1e-6)) (plv-plans profil))))
  (plv-pc:suivre (plv-section-entite precedente) (plgxd (plv-section-entite section) "NEXT-PC"))
  (plv-effacer (cons (plv-section-entite section) (plv-lignes-du-plan (plv-section-entite section))))
  (plv-refaire-section profil points
    (list (plv-plan-debut precedente) (plv-plan-altitude precedente)
          (+ (plv-section-longueur precedente) (plv-section-longueur section)) (plv-section-entite precedente))))

;; --- project elements that a new plane cuts: the new piece gets the keys of the old one, which the cut doesn't copy

(defun plv-pc:elements (profil) (apply 'append (mapcar '(lambda (genre) (plv-elements profil genre)) (plv-genres))))

(defun plv-pc:traverses (profil x)
  "What an upright meets, as (ordinate (key value) ...), last met first."
  (reverse
    (vl-remove nil
      (mapcar '(lambda (e / y) (if (setq y (pl_yat e x)) (cons y (plv-cles-element e)))) (plv-pc:elements profil)))))

(defun plv-pc:reporter-cles (profil x traverses decalage / y)
  (foreach e (plv-pc:elements profil)
    (if (and (not (plv-element-connu e)) (setq y (cond ((pl_yat e x)) ((pl_yat e (+ x 1e-7))) ((pl_yat e (- x 1e-7))))))
      (foreach traverse traverses
        (if (or (equal (+ (car traverse) decalage) y 1e-4) (equal (car traverse) y 1e-4))
          (plv-ecrire-cles e (cdr traverse)))))))

;; --- the call and the command

(defun plv-refaire-habillage (profil)
  "What is drawn about a profile, after a change of its ground or planes."
  (plv-ranger-altitudes profil)
  (plv-ouvrir-lacunes profil)
  (plv-tracer-terrains profil)
  (plv-rehabiller profil)
  (plv-ajuster-rappels profil))

(defun plv-pc:faute (operation sections section d altitude)
  "The text of what can't be done, nil for nothing."
  (cond
    ((not section) "la station n'est pas dans le profil")
    ((and (/= operation "S") (not (numberp altitude))) "l'altitude du plan est attendue")
    ((and (= operation "A") (equal d (plv-plan-debut section) 1e-6)) "un plan commence déjà à cette station")
    ((and (= operation "S") (eq section (car sections))) "le premier plan ne peut pas être supprimé")))

(defun plv-pc (profil operation station altitude)
  "Adds (\"A\"), changes (\"M\") or removes (\"S\") the plane at a station; a change or a removal concerns the plane that
governs there. What is attached is brought into form before. Gives the profile, or nil after a message."
  (if (and (plv-profil-sain profil) (plv-statiques-verifies profil))
    (plv-pc:executer profil operation (- (float station) (plv-premiere-station profil)) (if altitude (float altitude)))))

(defun plv-pc:executer (profil operation d altitude / sections section faute cotes)
  (setq sections (plv-sections-de-plan profil)
        section (plv-pc:section sections d)
        faute (plv-pc:faute operation sections section d altitude))
  (cond
    (faute (plv-erreur faute))
    ((plv-remettre-en-forme profil (if (= operation "A") d))
     (setq cotes (plv-ecarts-cotes profil))
     (plv-pc:changer profil operation sections section (if (= operation "A") d (plv-plan-debut section)) altitude)
     (plv-refaire-habillage profil)
     (plv-suivre-cotes profil cotes)
     (plv-pc:dire profil)
     profil)))

(defun plv-pc:dire (profil) (plv-dire (strcat "Plans de comparaison: " (plv-plans-en-texte profil) ".")))

(defun plv-pc:changer (profil operation sections section d altitude / x traverses)
  (setq x (+ (car (plv-origine profil)) d))
  (cond
    ((= operation "A")
     (setq traverses (plv-pc:traverses profil x))
     (plv-pc:ajouter profil section d altitude)
     (pl_chg_pc profil "A" x altitude 0.0)
     (plv-pc:reporter-cles profil x traverses (* (- (plv-plan-altitude section) altitude) (plv-echv profil))))
    ((= operation "M")
     (plv-pc:deplacer profil section altitude))
    (T
     (plv-pc:oter profil sections section))))

(defun plv-pc:deplacer (profil section altitude)
  (plv-pc:modifier profil section altitude)
  (pl_chg_pc profil "M" (+ (car (plv-origine profil)) (plv-plan-debut section)) (plv-plan-altitude section) altitude))

;; --- a removal. The module does nothing for a plane as high as the one before it, and joins whatever curves touch, also across
;; a plane that stays when it is as high as its neighbour. So no two neighbours are equally high while it works.

(defun plv-pc:altitudes-ecartees (sections rang / altitudes i z)
  "For each section its altitude, or a higher one where it has that of the section before it, or, next to the section that
goes, that of its neighbour to be."
  (setq i 0)
  (foreach s sections
    (setq z (plv-plan-altitude s))
    (while (or (and altitudes (equal z (car altitudes) 1e-3)) (and (= i (1+ rang)) (equal z (cadr altitudes) 1e-3)))
      (setq z (1+ z)))
    (setq altitudes (cons z altitudes) i (1+ i)))
  (reverse altitudes))

(defun plv-pc:regler (profil debut altitude / section)
  "The section that begins at a distance at an altitude, with what is attached."
  (setq section (plv-pc:section (plv-sections-de-plan profil) debut))
  (if (/= (plv-plan-altitude section) altitude) (plv-pc:deplacer profil section altitude)))

(defun plv-pc:oter (profil sections section / rang ecartees)
  (setq rang (vl-position section sections))
  (mapcar '(lambda (s z) (plv-pc:regler profil (plv-plan-debut s) z)) sections (plv-pc:altitudes-ecartees sections rang))
  (setq ecartees (plv-sections-de-plan profil))
  (plv-pc:supprimer profil (nth (1- rang) ecartees) (nth rang ecartees))
  (pl_chg_pc profil "S" (+ (car (plv-origine profil)) (plv-plan-debut section)) 0.0 (plv-plan-altitude (nth rang ecartees)))
  (foreach s sections
    (if (not (eq s section)) (plv-pc:regler profil (plv-plan-debut s) (plv-plan-altitude s)))))

;; --- planes proposed anew: those that a new profile would have, beneath all that is drawn

(defun plv-pc-plans (profil hauteur)
  "The planes by which a profile is drawn no higher than so many units."
  (plv-plans-proposes (plv-points-releves profil) (plv-echv profil) hauteur
    (append (plv-niveaux profil)
      (apply 'append (mapcar '(lambda (genre) (plv-traits-de-ligne profil genre)) (plv-genres-du-projet profil))))))

(defun plv-pc:mettre (profil voulu / plan)
  "One plane as it is wanted."
  (setq plan (car (vl-member-if '(lambda (p) (equal (plv-plan-debut p) (plv-plan-debut voulu) 1e-6)) (plv-plans profil))))
  (cond
    ((not plan) (plv-pc:executer profil "A" (plv-plan-debut voulu) (plv-plan-altitude voulu)))
    ((equal (plv-plan-altitude plan) (plv-plan-altitude voulu) 1e-9) profil)
    ((plv-pc:executer profil "M" (plv-plan-debut voulu) (plv-plan-altitude voulu)))))

(defun plv-pc-proposer (profil hauteur / voulus)
  "Gives a profile the planes by which it is drawn no higher than so many units; the profile, or nil after a message."
  (if (and (plv-profil-sain profil) (plv-statiques-verifies profil))
    (progn
      (setq voulus (plv-pc-plans profil hauteur))
      (if (and (vl-every '(lambda (v) (plv-pc:mettre profil v)) voulus)
               (vl-every
                 '(lambda (p)
                    (or (vl-some '(lambda (v) (equal (plv-plan-debut v) (plv-plan-debut p) 1e-6)) voulus)
                        (plv-pc:executer profil "S" (plv-plan-debut p) nil)))
                 (cdr (plv-plans profil))))
        profil))))

(defun c:plv-pc (/ profil operation)
  "Ajoute, modifie ou supprime un plan de comparaison d'un profil, ou les propose tous à nouveau."
  (if (setq profil (plv-choisir-profil))
    (progn
      (plv-pc:dire profil)
      (setq operation (substr (plv-demander-mot "Plan de comparaison" '("Ajouter" "Modifier" "Supprimer" "Proposer") "Ajouter") 1 1))
      (if (= operation "P")
        (plv-pc-proposer profil (plv-demander-reel "Hauteur dessinée maximale" (* 60.0 (plv-ttxt profil))))
        (plv-pc profil operation (plv-demander-nombre "Station") (if (/= operation "S") (plv-demander-nombre "Altitude du plan"))))))
  (princ))
