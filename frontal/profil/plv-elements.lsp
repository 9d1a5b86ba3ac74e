;; Project elements: the curves that belong to a kind of line, and the altitude of a project line.
;; Curves are read through the module (pl_glp, pl_yat); only their plane is decided here, section by section.
;; Shared in the room: plv-elements:cle

(setq plv-elements:cle "ELEMS_PROJET_KAVEL" plv-elements:cle-du-projet "ELEMDUPROJET" plv-elements:cle-rayon "RAYON"
      plv-elements:cle-mesure "MESURE")

(setq plv-elements:courbes "LINE,*POLYLINE,SPLINE,ARC,CIRCLE,ELLIPSE,RAY,XLINE,HELIX,LEADER")

(defun plv-courbe-p (entite) (wcmatch (plv-type entite) plv-elements:courbes))

(defun plv-support (profil genre) (if (plv-cle-genre genre) (plv-nommee profil (plv-cle-genre genre))))

(defun plv-refus-support (genre) (strcat "ce profil n'a pas de support pour le genre " genre))

(defun plv-enregistrement-elements (support) (plv-enregistrement support plv-elements:cle))

(defun plv-elements (profil genre)
  "The entities of a kind's record that are still in the drawing, each once."
  (plv-lire-une-fois (list "elements" profil genre) '(lambda () (plv-elements:lire profil genre))))

(defun plv-elements:lire (profil genre / support)
  (if (setq support (plv-support profil genre))
    (plv-uniques (plv-entites-enregistrees support plv-elements:cle))))

(defun plv-elements-effaces-p (profil genre / support)
  "T when a kind's record names entities that are gone."
  (if (setq support (plv-support profil genre))
    (vl-some '(lambda (e) (not (plv-existe e))) (plv-cles 330 (plv-enregistrement-elements support)))))

(defun plv-ecrire-elements (profil genre entites)
  (plv-enregistrer-entites (plv-support profil genre) plv-elements:cle entites))

(defun plv-rendre-elements (profil genre groupes / support)
  "Gives a kind its record back as it was; nil for none."
  (setq support (plv-support profil genre))
  (if groupes
    (plv-ecrire-enregistrement support plv-elements:cle groupes)
    (dictremove (plv-dictionnaire support) plv-elements:cle)))

(defun plv-du-projet (entite)
  "T for a curve that is part of the project, nil for one that is only attached."
  (equal (plgxd entite plv-elements:cle-du-projet) 1))

(defun plv-element-connu (entite)
  "Whether a curve says anything of its part in the project."
  (plgxd entite plv-elements:cle-du-projet))

(defun plv-marquer-du-projet (entite oui) (plsxd entite plv-elements:cle-du-projet (if oui 1 0)))

(defun plv-elements-du-projet (profil genre) (vl-remove-if-not 'plv-du-projet (plv-elements profil genre)))

(defun plv-element-du-projet (profil genre) "Any of them; nil for a kind without a project line."
  (vl-some '(lambda (e) (if (plv-du-projet e) e)) (plv-elements profil genre)))

(defun plv-genres-du-projet (profil)
  "Kinds that have a project line, the project's own kind first."
  (plv-lire-une-fois (list "genres-du-projet" profil)
    '(lambda ()
       (vl-remove-if-not '(lambda (genre) (plv-element-du-projet profil genre))
         (cons "Projet" (vl-remove "Projet" (vl-remove "TN" (plv-genres))))))))

(defun plv-genre-de (profil entite)
  "The kind that a curve belongs to; nil for a free one."
  (car (vl-member-if '(lambda (genre) (member entite (plv-elements profil genre))) (plv-genres))))

(defun plv-refus-courbe (entite)
  "The text for an entity that the module takes for no line of a profile; nil for one that it takes."
  (if (not (wcmatch (plv-type entite) "LINE,LWPOLYLINE,POLYLINE,SPLINE"))
    (strcat (plv-nom-de-type (plv-type entite)) ": ligne, polyligne ou spline attendue")))

(defun plv-genre-propose (profil)
  "The kind that a question about a project line proposes."
  (cond ((car (plv-genres-du-projet profil))) ("Projet")))

(defun plv-attacher (profil genre entites / deja nouvelles)
  "Makes curves project elements of a kind; those that it holds already are only marked."
  (setq deja (plv-elements profil genre)
        nouvelles (vl-remove-if '(lambda (e) (member e deja)) entites))
  (foreach e entites (if (member e deja) (plv-marquer-du-projet e T)))
  (if nouvelles (pl_elem_prj profil genre (plv-jeu nouvelles)))
  (plv-presenter-ligne profil genre))

;; --- what a vertical curve was drawn with: its radius, and its shape C (circle) or P (parabola)

(defun plv-rayon (entite) (plgxd entite plv-elements:cle-rayon))
(defun plv-forme (entite) (cond ((plgxd entite "RACCORD")) ("C")))

(defun plv-mesure (entite)
  "What was asked of it: R its radius, L its length; it keeps that when slopes change."
  (cond ((plgxd entite plv-elements:cle-mesure)) ((= (plv-forme entite) "P") "L") ("R")))

(defun plv-noter-raccord (entite rayon forme mesure)
  (plv-ecrire-cles entite
    (list (list plv-elements:cle-rayon (float rayon)) (list "RACCORD" forme) (list plv-elements:cle-mesure mesure))))

(defun plv-cles-element (entite)
  "The keys of an element with their values, for a piece of it that has none."
  (vl-remove-if-not 'cadr
    (mapcar '(lambda (c) (list c (plgxd entite c))) (list plv-elements:cle-du-projet plv-elements:cle-rayon "RACCORD" plv-elements:cle-mesure))))

;; --- elements with their place: (from to plane-or-nil entity); nil for the plane of one that runs over several sections

(defun plv-situe-plan (situe) (caddr situe))
(defun plv-situe-entite (situe) (cadddr situe))

(defun plv-elements-situes (profil genre)
  "The project elements of a kind with their place, left to right."
  (plv-lire-une-fois (list "elements-situes" profil genre)
    '(lambda () (plv-courbes-situees profil (reverse (plv-elements-du-projet profil genre))))))

(defun plv-courbes-situees (profil courbes / plans)
  (setq plans (plv-plans profil))
  (vl-sort
    (vl-remove nil (mapcar '(lambda (e) (plv-elements:situer plans (plv-pentes-de profil e) e)) courbes))
    '(lambda (a b) (< (plv-debut a) (plv-debut b)))))

(defun plv-elements:situer (plans pentes entite / d1 d2)
  (if pentes
    (progn
      (setq d1 (apply 'min (mapcar 'plv-debut pentes)) d2 (apply 'max (mapcar 'plv-fin pentes)))
      (list d1 d2 (plv-plan-de plans d1 d2) entite))))

;; --- altitudes

(defun plv-altitude-projet (profil situes plans d)
  "Altitude of the project line at a distance, nil where it is not. At a change of plane the section before serves."
  (plv-elements:premiere (plv-cadre-sur profil plans) situes d))

(defun plv-altitudes-sur (profil situes plans distances / cadre)
  "The same at many distances."
  (setq cadre (plv-cadre-sur profil plans))
  (mapcar '(lambda (d) (plv-elements:premiere cadre situes d)) distances))

(defun plv-elements:premiere (cadre situes d / altitude)
  (foreach s situes
    (if (and (not altitude) (>= d (- (plv-debut s) 1e-6)) (<= d (+ (plv-fin s) 1e-6)))
      (setq altitude (plv-elements:altitude cadre s d))))
  altitude)

(defun plv-elements:altitude (cadre s d / y)
  (if (setq y (plv-elements:y cadre s (plv-entre d (plv-debut s) (plv-fin s))))
    (plv-altitude-dessinee cadre (cond ((plv-situe-plan s)) ((plv-plan-en (plv-cadre-plans cadre) d))) y)))

(defun plv-elements:y (cadre s d)
  "Ordinate of a curve. Beside an end when rounding puts the upright just off it: a tenth of a micrometre."
  (cond ((pl_yat (plv-situe-entite s) (plv-abscisse cadre d)))
        ((pl_yat (plv-situe-entite s) (plv-abscisse cadre (plv-entre d (+ (plv-debut s) 1e-7) (- (plv-fin s) 1e-7)))))))
