;; PLV-PENTE and PLV-LONGUEUR: a segment of a line or polyline gets a slope in percent or a true length, the exaggeration taken out.
;; The end that is farther from the pick moves, as the module has it.
;; A segment is (staying moving beyond): two points of the drawing, and the vertex behind the one that moves, nil at an end.

(defun plv-modifier:fixe (segment) (car segment))
(defun plv-modifier:mobile (segment) (cadr segment))
(defun plv-modifier:suivant (segment) (caddr segment))

(defun plv-modifier:sommets (groupes / sommets)
  "The vertices as (point bulge); a bulge of zero need not be written."
  (foreach g groupes
    (cond
      ((member (car g) '(10 11)) (setq sommets (cons (list (cdr g) 0.0) sommets)))
      ((and (= (car g) 42) sommets) (setq sommets (cons (list (caar sommets) (cdr g)) (cdr sommets))))))
  (reverse sommets))

(defun plv-modifier:entre-p (x a b) (<= (min (car a) (car b)) x (max (car a) (car b))))

(defun plv-modifier:segment (sommets x / avant a b)
  "The first segment over an abscissa; the text of what is wrong with it instead."
  (while (and (cdr sommets) (not (plv-modifier:entre-p x (caar sommets) (caadr sommets))))
    (setq avant (caar sommets) sommets (cdr sommets)))
  (setq a (caar sommets) b (car (cadr sommets)))
  (cond
    ((not b) "le segment se désigne sur lui-même")
    ((/= (cadar sommets) 0.0) "ce segment est un arc")
    ((equal (car a) (car b) 1e-6) "ce segment est vertical")
    ((> (abs (- x (car a))) (abs (- x (car b)))) (list b a avant))
    (T (list a b (car (caddr sommets))))))

(defun plv-modifier:vue-de-face-p (groupes)
  (equal (cond ((plv-cle 210 groupes)) ('(0.0 0.0 1.0))) '(0.0 0.0 1.0) 1e-9))

(defun plv-modifier:lire (profil entite point / groupes refus)
  "The segment under a pick, or the text of why it can't be edited."
  (setq groupes (entget entite))
  (cond
    ((not (wcmatch (plv-cle 0 groupes) "LINE,LWPOLYLINE")) (strcat (plv-nom-de-type (plv-cle 0 groupes)) ": ligne ou polyligne légère attendue"))
    ((setq refus (plv-refus-situation profil entite)) refus)
    ((not (plv-modifier:vue-de-face-p groupes)) "cette courbe est vue de derrière")
    (T (plv-modifier:segment (plv-modifier:sommets groupes) (car point)))))

(defun plv-modifier:ecarts (profil segment)
  "(length along the profile, difference of altitude) from the end that stays."
  (list (- (car (plv-modifier:mobile segment)) (car (plv-modifier:fixe segment)))
        (/ (- (cadr (plv-modifier:mobile segment)) (cadr (plv-modifier:fixe segment))) (plv-echv profil))))

(defun plv-modifier:pente (profil segment) (apply '(lambda (d z) (* 100.0 (/ z d))) (plv-modifier:ecarts profil segment)))

(defun plv-modifier:longueur (profil segment)
  (apply '(lambda (d z) (sqrt (+ (* d d) (* z z)))) (plv-modifier:ecarts profil segment)))

(defun plv-modifier:faute-longueur (profil segment longueur / d fin suivant)
  "Why a segment can't have a length; nil when it can."
  (setq d (- (car (plv-modifier:fixe segment)) (car (plv-origine profil)))
        fin (+ d (* (car (plv-modifier:ecarts profil segment)) (/ longueur (plv-modifier:longueur profil segment))))
        suivant (plv-modifier:suivant segment))
  (cond
    ((<= longueur 1e-6) "une longueur positive est attendue")
    ((not (<= -1e-6 fin (+ (plv-longueur-profil profil) 1e-6))) "le segment sortirait du profil")
    ((not (plv-plan-de (plv-plans profil) (min d fin) (max d fin))) "le segment passerait sur un autre plan de comparaison")
    ((and suivant (<= (* (- (- (car suivant) (car (plv-origine profil))) fin) (- fin d)) 0.0)) "le segment passerait le sommet suivant")))

;; --- the calls: a function of the module, the value that it asks for

(defun plv-modifier:appliquer (profil entite point fonction valeur)
  (dialoguer '(lambda () (apply fonction (list (plv-echv profil)))) (list (list entite point) (float valeur)))
  (if (plv-genre-de profil entite) (plv-recoter profil (plv-genre-de profil entite) (list entite)))
  (plv-modifier:dire profil (plv-modifier:lire profil entite point))
  entite)

(defun plv-modifier:dire (profil segment)
  (if (listp segment)
    (plv-dire (strcat "Pente " (plv-reel (plv-modifier:pente profil segment) 4) " %, longueur "
                      (plv-reel (plv-modifier:longueur profil segment) 4) " m."))))

(defun plv-modifier-pente (profil entite point pente / segment)
  "Gives the segment under a pick a slope in percent, rising to the right; the entity, or nil after a message."
  (setq segment (plv-modifier:lire profil entite point))
  (if (eq (type segment) 'STR)
    (plv-erreur segment)
    (plv-modifier:appliquer profil entite point 'pl_modifpente pente)))

(defun plv-modifier-longueur (profil entite point longueur / segment)
  "Gives the segment under a pick a true length; the entity, or nil after a message."
  (setq segment (plv-modifier:lire profil entite point))
  (cond
    ((eq (type segment) 'STR) (plv-erreur segment))
    ((plv-modifier:faute-longueur profil segment longueur) (plv-erreur (plv-modifier:faute-longueur profil segment longueur)))
    (T (plv-modifier:appliquer profil entite point 'pl_modifLongueur longueur))))

;; --- the commands

(defun plv-modifier:boucle (question mesure modifier / profil pris segment)
  (if (setq profil (plv-choisir-profil))
    (while (setq pris (entsel "\nSegment, près du bout qui reste en place: "))
      (setq segment (plv-modifier:lire profil (car pris) (cadr pris)))
      (if (eq (type segment) 'STR)
        (plv-erreur segment)
        (apply modifier
          (list profil (car pris) (cadr pris)
                (plv-demander-nombre-libre question (apply mesure (list profil segment)) 4))))))
  (princ))

(defun c:plv-pente ()
  "Donne une pente en % à un segment désigné."
  (plv-modifier:boucle "Pente en %" 'plv-modifier:pente 'plv-modifier-pente))

(defun c:plv-longueur ()
  "Donne une longueur à un segment désigné."
  (plv-modifier:boucle "Longueur" 'plv-modifier:longueur 'plv-modifier-longueur))
