;; PLV-LIGNES: lines from point to point by stations and altitudes, or by points of the drawing, attached to a kind of line.
;; The module draws them; it gets each over one plane, from left to right.
;; Shared in the room: plv-tracer:faute

(defun plv-tracer:morceaux (plans a b / milieu)
  "The stretch from (distance altitude) to another, left to right, cut where planes change: ((a b) ...)."
  (if (> (car a) (car b)) (setq milieu a a b b milieu))
  (plv-tracer:couper (list (list a b)) (plv-changements plans)))

(defun plv-tracer:couper (morceaux distances / dernier milieu)
  "The last piece is cut at each of the growing distances that lie in it."
  (foreach d distances
    (setq dernier (car morceaux))
    (if (< (+ (caar dernier) 1e-6) d (- (caadr dernier) 1e-6))
      (setq milieu (list d (plv-interpoler dernier d))
            morceaux (vl-list* (list milieu (cadr dernier)) (list (car dernier) milieu) (cdr morceaux)))))
  (reverse morceaux))

(defun plv-tracer:dessiner (profil cadre morceau / plan)
  (setq plan (plv-plan-en (plv-cadre-plans cadre) (* 0.5 (+ (caar morceau) (caadr morceau)))))
  (dialoguer '(lambda () (pl_TracerLignes profil))
    (cons "G" (mapcar '(lambda (p) (plv-vers-dessin-sur cadre plan (car p) (cadr p))) morceau))))

(defun plv-tracer:faute (profil precedent point)
  "Why a point (distance altitude) can't be the next one; nil when it can."
  (cond
    ((not (<= -1e-6 (car point) (+ (plv-longueur-profil profil) 1e-6))) "cette station n'est pas dans le profil")
    ((and precedent (equal (car precedent) (car point) 1e-6)) "deux points de suite ne peuvent pas avoir la même station")))

(defun plv-lignes (profil genre points / cadre entites)
  "Draws lines through points (distance altitude) and attaches them; gives the entities, or nil after a message."
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((not (plv-support profil genre)) (plv-erreur (plv-refus-support genre)))
    ((vl-some '(lambda (a b) (plv-tracer:faute profil a b)) (cons nil points) points)
     (plv-erreur (vl-some '(lambda (a b) (plv-tracer:faute profil a b)) (cons nil points) points)))
    (T
     (setq cadre (plv-cadre profil)
           entites
            (plv-ajouts-de
              '(lambda ()
                 (plv-avec-calque "PLV-PROJET"
                   '(lambda ()
                      (mapcar
                        '(lambda (a b)
                           (foreach m (plv-tracer:morceaux (plv-cadre-plans cadre) a b) (plv-tracer:dessiner profil cadre m)))
                        points (cdr points)))))))
     (setq entites (plv-admettre profil genre entites))
     (plv-dire (strcat (plv-compte (length entites) "ligne attachée") " au genre " (plv-genre genre) "."))
     entites)))

;; --- the command

(defun plv-tracer:lire (profil texte / couple point)
  "The point of an answer, or the text of what is wrong with it; nil when picking was given up."
  (cond
    ((member (strcase texte) '("P" "POINTER"))
     (if (setq point (getpoint "\nPoint du profil: ")) (plv-vers-profil (plv-cadre profil) point)))
    ((setq couple (plv-couple texte)) (list (- (car couple) (plv-premiere-station profil)) (cadr couple)))
    ("Deux nombres séparés par une virgule sont attendus, avec un point décimal, ou par un point-virgule.")))

(defun plv-tracer:demander (profil / texte point faute points)
  (while (/= (setq texte (plv-demander-texte
                           (if points "Station,altitude suivante ou [Pointer] <fin>" "Station,altitude du premier point ou [Pointer]") nil))
             "")
    (setq point (plv-tracer:lire profil texte))
    (cond
      ((not point))
      ((eq (type point) 'STR) (plv-dire point))
      ((setq faute (plv-tracer:faute profil (car points) point)) (plv-dire faute))
      (T (setq points (cons point points)))))
  (reverse points))

(defun c:plv-lignes (/ profil genre points)
  "Trace une ligne par ses stations et altitudes."
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq genre (plv-demander-genre (plv-genre-propose profil)))
      (if (cdr (setq points (plv-tracer:demander profil))) (plv-lignes profil genre points))))
  (princ))
