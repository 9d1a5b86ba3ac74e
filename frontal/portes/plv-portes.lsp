;; The conditions of the doors: how a curve must be for the rules of the module to be exact. It goes from left to right, is flat
;; in the plane of the drawing, no old polyline and no spline but a cubic one; it lies over one reference plane only, within the
;; profile, without uprights, and is listed once, for one kind of one profile. A curve is brought into that form or refused by name.
;; Shared in the room: plv-portes:*

;; --- a putting in form is (forms words): the pieces, left to right, and what was done; no words for nothing

(defun plv-mise-formes (mise) (car mise))
(defun plv-mise-mots (mise) (cadr mise))

;; --- each condition: a form made of another, with its word when it isn't the same any more

(setq plv-portes:a-plat "mise dans le plan du dessin"
      plv-portes:en-cubique "portée au degré 3"
      plv-portes:legere "refaite en polyligne légère"
      plv-portes:splinee "refaite en spline"
      plv-portes:droite "dessinée de gauche à droite"
      plv-portes:coupee-plans "coupée aux changements de plan"
      plv-portes:coupee-bouts "coupée aux bouts du profil"
      plv-portes:inclinee "ses verticales inclinées d'un micromètre")

(defun plv-portes:hors-plan-p (groupes)
  "Whether a curve lies above the plane of the drawing, or is seen from behind."
  (or (not (equal (cond ((plv-cle 38 groupes)) (0.0)) 0.0 1e-9))
      (and (assoc 210 groupes) (not (equal (plv-cle 210 groupes) '(0.0 0.0 1.0) 1e-9)))
      (and (/= (plv-cle 0 groupes) "LWPOLYLINE")
           (vl-some '(lambda (g) (and (member (car g) '(10 11)) (not (equal (cond ((cadddr g)) (0.0)) 0.0 1e-9)))) groupes))))

(defun plv-portes:mots-du-genre (groupes forme / genre)
  "What the kind of an entity alone asks for."
  (setq genre (plv-cle 0 groupes))
  (vl-remove nil
    (list (if (member genre '("POLYLINE" "ARC")) (if (plv-forme-polyligne-p forme) plv-portes:legere plv-portes:splinee))
          (if (plv-portes:hors-plan-p groupes) plv-portes:a-plat)
          (if (and (= genre "SPLINE") (or (/= (plv-cle 71 groupes) 3) (not (assoc 40 groupes)))) plv-portes:en-cubique))))

(defun plv-portes:vers-la-droite (forme)
  (if (> (car (plv-forme-depart forme)) (car (plv-forme-arrivee forme))) (plv-retourner-forme forme) forme))

(defun plv-portes:etendue (forme)
  "From where to where a form goes that is drawn from left to right."
  (list (car (plv-forme-depart forme)) (car (plv-forme-arrivee forme))))

(defun plv-portes:refus-forme (forme origine / recul)
  "Why a form, drawn from left to right, can't be a line of a profile; nil when it can."
  (cond
    ((< (plv-longueur (plv-portes:etendue forme)) plv-formes:place) "pas de longueur le long du profil")
    ((setq recul (plv-formes:recul forme)) (strcat "retour en arrière à la distance " (plv-reel (- recul origine) 3)))))

(defun plv-portes:dans (forme bornes)
  "What of a form lies in a stretch of the drawing; nil for nothing. bornes nil: all."
  (if bornes (plv-forme-entre forme (plv-debut bornes) (plv-fin bornes)) forme))

(defun plv-portes:mots (avant coupee formes)
  "What was done to a form on its way through the doors."
  (vl-remove nil
    (list (if (not (equal (plv-portes:etendue avant) (plv-portes:etendue coupee) plv-formes:place)) plv-portes:coupee-bouts)
          (if (cdr formes) plv-portes:coupee-plans)
          (if (vl-some 'plv-forme-verticale-p formes) plv-portes:inclinee))))

(defun plv-portes:mettre (forme mots cadre bornes / droite coupee formes)
  (setq droite (plv-portes:vers-la-droite forme))
  (cond
    ((plv-portes:refus-forme droite (car (plv-cadre-origine cadre))))
    ((not (setq coupee (plv-portes:dans droite bornes))) "hors du profil")
    (T
     (setq formes (plv-couper-forme-en coupee (mapcar '(lambda (d) (plv-abscisse cadre d)) (plv-changements (plv-cadre-plans cadre)))))
     (list (mapcar 'plv-pencher-forme formes)
           (append mots (if (not (eq droite forme)) (list plv-portes:droite)) (plv-portes:mots droite coupee formes))))))

(defun plv-mise-en-forme (entite cadre bornes / forme)
  "The putting in form of a curve, or the text of why it can't be; nothing is drawn. bornes: the abscissas of the drawing
between which it is kept, nil for all of it."
  (setq forme (plv-forme-de entite))
  (if (not (listp forme))
    forme
    (plv-portes:mettre forme (plv-portes:mots-du-genre (entget entite) forme) cadre bornes)))

(defun plv-mettre-en-forme (entite mise / ecrite)
  "Carries out a putting in form; the entities, left to right."
  (if (plv-mise-mots mise)
    (progn
      (plv-dire (strcat (plv-nom-courbe entite) ": " (plv-joindre (plv-mise-mots mise) ", ") "."))
      (setq ecrite (plv-forme-ecrire entite (car (plv-mise-formes mise))))
      (cons ecrite (mapcar '(lambda (forme) (plv-forme-creer ecrite forme)) (cdr (plv-mise-formes mise)))))
    (list entite)))

;; --- the profile's own part

(defun plv-bornes-profil (cadre profil / longueur)
  "The abscissas of the drawing between which a profile lies: those of its ground, or of its planes when it has none."
  (setq longueur (plv-longueur-terrain profil))
  (list (plv-abscisse cadre 0.0)
        (plv-abscisse cadre (if (> longueur 0.0) longueur (apply '+ (mapcar 'plv-section-longueur (plv-sections-de-plan profil)))))))

(defun plv-portes:attaches ()
  "Every curve that is listed in the drawing: (curve kind profile)."
  (apply 'append
    (mapcar
      '(lambda (p) (apply 'append (mapcar '(lambda (g) (mapcar '(lambda (e) (list e g p)) (plv-elements p g))) (plv-genres))))
      (plv-profils))))

(defun plv-portes:refus-place (place profil genre)
  "Why a curve with a place can't be attached to a kind of a profile; nil when it can."
  (cond
    ((not (eq (cadr place) profil)) (strcat "déjà attachée au genre " (car place) " du profil " (plv-numero-profil (cadr place))))
    ((/= (car place) (plv-genre genre)) (strcat "déjà attachée au genre " (car place)))))

;; --- the door of every command that attaches curves

(defun plv-calque-verrouille-p (entite)
  "Whether an entity stands on a locked layer."
  (= 4 (logand 4 (plv-cle 70 (tblsearch "LAYER" (plv-cle 8 (entget entite)))))))

(defun plv-mise-a-ecrire (entite cadre bornes / mise)
  "The putting in form of a curve that will be written into the drawing."
  (setq mise (plv-mise-en-forme entite cadre bornes))
  (if (and (listp mise) (plv-mise-mots mise) (plv-calque-verrouille-p entite))
    (strcat "calque " (plv-cle 8 (entget entite)) " verrouillé; à faire: " (plv-joindre (plv-mise-mots mise) ", "))
    mise))

(defun plv-portes:examiner (profil genre cadre bornes attaches entite / place)
  (setq place (cdr (assoc entite attaches)))
  (cond ((if place (plv-portes:refus-place place profil genre)))
        ((plv-mise-a-ecrire entite cadre bornes))))

(defun plv-refuser-courbe (profil entite pourquoi)
  (plv-erreur (strcat "profil " (plv-numero-profil profil) ", " (plv-nom-courbe entite) ": " pourquoi)))

(defun plv-portes:en-forme (profil genre entites / cadre bornes attaches examens faites)
  "The entities that curves become in form; those that can't be are named. All are looked at before one is changed."
  (setq cadre (plv-cadre profil)
        bornes (plv-bornes-profil cadre profil)
        attaches (plv-portes:attaches)
        examens (mapcar '(lambda (e) (cons e (plv-portes:examiner profil genre cadre bornes attaches e))) (plv-uniques entites)))
  (foreach x examens
    (if (not (listp (cdr x)))
      (plv-refuser-courbe profil (car x) (cdr x))
      (setq faites (append faites (plv-mettre-en-forme (car x) (cdr x))))))
  faites)

(defun plv-admettre (profil genre entites / faites)
  "Brings curves into form and makes them part of the project line of a kind; gives them."
  (if (setq faites (plv-portes:en-forme profil genre entites)) (plv-attacher profil genre faites))
  faites)

(defun plv-admettre-tels (profil genre entites / faites)
  "Brings curves into form and lists them with a kind, as the part of the project that each says it is; gives them."
  (if (setq faites (plv-portes:en-forme profil genre entites))
    (plv-ecrire-elements profil genre (append (plv-elements profil genre) faites)))
  faites)
