;; Grips of the window that belong to the front-end. A line is dragged as what it is, by PLV-TIRER, not piece by piece. What a profile can't
;; be read without, its block, planes, dressing and tables, takes the whole profile along; points of the ground and labels are moved by
;; themselves.

(defun plv-bureau-prises:du-profil-p (lu entite)
  (or (eq entite (plv-cle 'profil lu))
      (vl-some '(lambda (s) (eq (plv-section-entite s) entite)) (plv-cle 'sections lu))
      (member entite (plv-cle 'tables lu))
      (member entite (plv-entites-habillage (plv-cle 'profil lu)))))

(defun plv-bureau-prises:profil (entite / lu)
  "The profile that goes along with an entity; nil for none."
  (if (and entite (setq lu (car (vl-member-if '(lambda (lu) (plv-bureau-prises:du-profil-p lu entite)) (plv-bureau:lus))))) (plv-cle 'profil lu)))

(defun plv-bureau-prises:places (groupes / a b)
  "Of a line its ends and its middle, else the entity's point."
  (setq a (plv-cle 10 groupes) b (plv-cle 11 groupes))
  (if (= (plv-cle 0 groupes) "LINE") (list a (mapcar '(lambda (u v) (* 0.5 (+ u v))) a b) b) (list a)))

(defun plv-bureau-prises:ligne (lieu / profil cadre)
  "Nil for a line that vertices can't tell."
  (if (not (plv-ligne-refus (setq profil (handent (car lieu))) (cadr lieu)))
    (progn
      (setq cadre (plv-cadre profil))
      (mapcar '(lambda (prise) (apply 'plv-vers-dessin (cons cadre (plv-prise-place prise)))) (plv-prises (plv-bureau:ligne-lue profil (cadr lieu)))))))

(defun plv-bureau-prises (handle / lieu entite)
  "Where what an entity is part of can be taken hold of: (x y) each; nil where the entity goes by itself."
  (mapcar '(lambda (place) (plv-premiers place 2))
    (cond ((setq lieu (plv-bureau-ligne-de handle)) (plv-bureau-prises:ligne lieu))
          ((plv-bureau-prises:profil (setq entite (handent handle))) (plv-bureau-prises:places (entget entite))))))

(defun plv-bureau-prises:emmener (profil depuis / point)
  (if (setq point (getpoint depuis "\nNouvelle place du profil: "))
    (plv-deplacer-entier profil (mapcar '(lambda (o p d) (+ o (- p d))) (plv-origine profil) (plv-premiers point 2) depuis))))

(defun plv-bureau-tirer (handle x y / lieu profil)
  "An order of the window: drags what stands there."
  (cond ((setq lieu (plv-bureau-ligne-de handle)) (plv-tirer-en (handent (car lieu)) (cadr lieu) (list x y)))
        ((setq profil (plv-bureau-prises:profil (handent handle))) (plv-bureau-prises:emmener profil (list x y))))
  (princ))
