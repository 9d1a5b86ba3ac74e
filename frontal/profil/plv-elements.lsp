;; Project elements as rows and edits need them: who belongs to a kind of line, altitudes, stretches with their slopes.
;; Curves are read through the module (pl_glp, pl_yat); only their plane is decided here, section by section.

;; word shown to the user, and key of the support; the module knows the words without regard to case
(setq plv-elements:genres
  '(("Voirie" . "HVOIRIE") ("Assainissement" . "HASS") ("AEp" . "HAEP") ("Terrassements" . "HTERRA")
    ("Projet" . "HPROJ") ("Generique" . "HGEN") ("TN" . "HTN")))

(defun plv-genre (mot / trouve)
  "The kind of line of a word, spelled as the table has it; nil for another word."
  (foreach paire plv-elements:genres
    (if (= (strcase (car paire)) (strcase mot)) (setq trouve (car paire))))
  trouve)

(defun plv-demander-genre (defaut)
  (plv-demander-mot "Genre de ligne" (mapcar 'car plv-elements:genres) defaut))

(defun plv-support (profil genre) (plgxd profil (plv-cle (plv-genre genre) plv-elements:genres)))

(defun plv-elements:enregistres (profil genre / support)
  "The entities of a kind's record that are still in the drawing, each once."
  (if (setq support (plv-support profil genre))
    (plv-uniques
      (vl-remove-if-not 'entget
        (mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) 330)) (plv-enregistrement support "ELEMS_PROJET_KAVEL")))))))

(defun plv-elements-ecrire (profil genre entites)
  (plv-ecrire-enregistrement (plv-support profil genre) "ELEMS_PROJET_KAVEL" (mapcar '(lambda (e) (cons 330 e)) entites)))

(defun plv-du-projet (entite)
  "T for a curve that is part of the project, nil for one that is only attached."
  (equal (plgxd entite "ELEMDUPROJET") 1))

(defun plv-elements-du-projet (profil genre) (vl-remove-if-not 'plv-du-projet (plv-elements:enregistres profil genre)))

(defun plv-genres-du-projet (profil)
  "Kinds that have a project line, the project's own kind first."
  (vl-remove-if-not '(lambda (genre) (plv-elements-du-projet profil genre))
    '("Projet" "Voirie" "Assainissement" "AEp" "Terrassements" "Generique")))

;; --- pieces: (d1 d2 nature entity), left to right; the nature is a slope, or T for a curve

(defun plv-elements:morceaux (profil entite / jeu)
  (setq jeu (ssadd))
  (ssadd entite jeu)
  (vl-remove-if '(lambda (m) (< (- (cadr m) (car m)) 1e-6))
    (mapcar
      '(lambda (piece)
         (list (min (caar piece) (caadr piece)) (max (caar piece) (caadr piece))
               (if (numberp (caddr piece)) (caddr piece) T) entite))
      (pl_glp profil jeu))))

(defun plv-elements:suite (a b)
  "T when piece b goes on where a ends, in the same slope or the same vertical curve."
  (and (equal (cadr a) (car b) 1e-6)
       (if (numberp (caddr a))
         (and (numberp (caddr b)) (equal (caddr a) (caddr b) 1e-6))
         (and (eq (caddr b) T) (plv-rayon (cadddr a)) (equal (plv-rayon (cadddr a)) (plv-rayon (cadddr b)) 1e-6)))))

(defun plv-rayon (entite) (plgxd entite "RAYON"))

(defun plv-troncons (profil genre / troncons)
  "Stretches of the project line of a kind, joined over the changes of plane."
  (foreach m (vl-sort (apply 'append (mapcar '(lambda (e) (plv-elements:morceaux profil e)) (plv-elements-du-projet profil genre)))
                      '(lambda (a b) (< (car a) (car b))))
    (setq troncons
      (if (and troncons (plv-elements:suite (car troncons) m))
        (cons (list (caar troncons) (cadr m) (caddar troncons) (cadddr (car troncons))) (cdr troncons))
        (cons m troncons))))
  (reverse troncons))

;; --- altitudes

(defun plv-elements-situes (profil genre / plans situes morceaux)
  "Project elements as (d1 d2 plane-or-nil entity); nil for the plane of one that runs over several sections."
  (setq plans (plv-tables:plans profil))
  (foreach e (plv-elements-du-projet profil genre)
    (if (setq morceaux (plv-elements:morceaux profil e))
      (setq situes (cons (plv-elements:situer plans (apply 'min (mapcar 'car morceaux)) (apply 'max (mapcar 'cadr morceaux)) e)
                         situes))))
  (vl-sort situes '(lambda (a b) (< (car a) (car b)))))

(defun plv-elements:situer (plans d1 d2 entite / a b)
  (setq a (plv-plan-en plans (+ d1 1e-6)) b (plv-plan-en plans (- d2 1e-6)))
  (list d1 d2 (if (equal a b) a) entite))

(defun plv-altitude-projet (profil situes plans d / point y plan altitude)
  "Altitude of the project line at a distance, nil where it is not. At a change of plane the section before serves."
  (setq point (plv-cle 10 (entget profil)))
  (foreach s situes
    (if (and (not altitude) (>= d (- (car s) 1e-6)) (<= d (+ (cadr s) 1e-6))
             (setq y (plv-elements:y (cadddr s) (car point) (plv-entre d (car s) (cadr s)) (car s) (cadr s))))
      (setq plan (cond ((caddr s)) ((plv-plan-en plans d)))
            altitude (+ (cadr plan) (/ (- y (cadr point)) (plgxd profil "ECHV"))))))
  altitude)

(defun plv-elements:y (entite x0 d d1 d2)
  "Ordinate of a curve. Beside an end when rounding puts the upright just off it: a tenth of a micrometre."
  (cond ((pl_yat entite (+ x0 d)))
        ((pl_yat entite (+ x0 (plv-entre d (+ d1 1e-7) (- d2 1e-7)))))))

;; --- static elements: the module reads a malformed list of them for ever, so what another program left is looked at first

(defun plv-elements:accolade (g texte) (and g (= (caar g) 102) (= (cdar g) texte)))

(defun plv-elements:apres-liste (g)
  "What follows the closing brace of a list, nil when there is none."
  (while (and g (not (plv-elements:accolade g "}"))) (setq g (cdr g)))
  (cdr g))

(defun plv-elements:apres-groupe (g)
  "What follows a well-formed group, in a list; nil for a malformed one."
  (if (and (plv-elements:accolade g "{") (= (caadr g) 10) (plv-elements:accolade (cddr g) "{")
           (setq g (plv-elements:apres-liste (cdddr g)))
           (or (not (plv-elements:accolade g "{")) (setq g (plv-elements:apres-liste (cdr g))))
           (plv-elements:accolade g "}"))
    (list (cdr g))))

(defun plv-statiques-lisibles (support / g lisible)
  "T when the module can read the static elements of a support."
  (setq g (plv-enregistrement support "ELEMS_STATIQUES_KAVEL") lisible T)
  (while (and g (setq lisible (plv-elements:apres-groupe g))) (setq g (car lisible)))
  (if lisible T))

(defun plv-statiques-verifies (profil / supports)
  "T when all lists of static elements can be read; nil after a message."
  (setq supports (vl-remove nil (cons profil (mapcar '(lambda (genre) (plv-support profil (car genre))) plv-elements:genres))))
  (cond ((vl-every 'plv-statiques-lisibles supports))
        (T (plv-erreur "une liste d'elements statiques est mal formee: le controle du dessin la nomme"))))
