;; What is asked of a line of fewest vertices, and what et_ligne of the studies answers. Points are (distance altitude) in
;; metres; an end that is free in the band is (distance).
;; Shared in the room: plv-optimal:arguments plv-optimal:demander-ligne plv-optimal:demander-couloir

;; approchee: where nothing fulfils everything, the line that leaves it least is wanted
(defun plv-souhait (depart arrivee minimum maximum contraintes approchee)
  (list depart arrivee (float (min minimum maximum)) (float (max minimum maximum)) contraintes approchee nil nil))
(defun plv-souhait-depart (souhait) (car souhait))
(defun plv-souhait-arrivee (souhait) (cadr souhait))
(defun plv-souhait-minimum (souhait) (caddr souhait))
(defun plv-souhait-maximum (souhait) (cadddr souhait))
(defun plv-souhait-contraintes (souhait) (nth 4 souhait))
(defun plv-souhait-approchee (souhait) (nth 5 souhait))
(defun plv-souhait-variante (souhait) (nth 6 souhait))
(defun plv-souhait-pas (souhait)
  "Of the slopes, as rise per metre, that are wished to be its multiples if that costs no vertex; nil for no such wish."
  (nth 7 souhait))

(defun plv-souhait-en-variante (souhait) (append (plv-premiers souhait 6) (list T (plv-souhait-pas souhait))))
(defun plv-souhait-rond (souhait pas) (append (plv-premiers souhait 7) (list pas)))

(defun plv-souhait:avec-contrainte (souhait contrainte)
  (append (plv-premiers souhait 4) (list (cons contrainte (plv-souhait-contraintes souhait))) (plv-sans-premiers souhait 5)))

(defun plv-souhait-bandes (souhait origine)
  "The stretches with other depths, as distances."
  (mapcar '(lambda (c) (list (- (cadr c) origine) (- (caddr c) origine) (cadddr c) (nth 4 c)))
          (vl-remove-if-not '(lambda (c) (= (car c) "profondeur")) (plv-souhait-contraintes souhait))))

(defun plv-souhait-pentes (souhait)
  "(least greatest) rise per metre; nil where slopes are free."
  (cdr (assoc "pente" (plv-souhait-contraintes souhait))))

(defun plv-proposition (lignes fenetres aires prouvee faute) (list lignes fenetres aires prouvee faute))
(defun plv-proposition-lignes (proposition) (car proposition))
(defun plv-proposition-fenetres (proposition) (cadr proposition))
(defun plv-proposition-aire (proposition) (car (caddr proposition)))
(defun plv-proposition-aire-moindre (proposition) (cadr (caddr proposition)))
(defun plv-proposition-prouvee (proposition) (cadddr proposition))
(defun plv-proposition-faute (proposition) (nth 4 proposition))

;; what contradicts itself: (lacking (station name value) (station name value)), the lower limit and the upper one
(defun plv-faute-manque (faute) (car faute))
(defun plv-faute-basse (faute) (cadr faute))
(defun plv-faute-haute (faute) (caddr faute))

(defun plv-souhait:bout (bout origine)
  "An end as et_ligne takes it."
  (if (cdr bout) (list (+ origine (car bout)) (cadr bout)) (+ origine (car bout))))

(defun plv-souhait:distances (points origine)
  (mapcar '(lambda (p) (list (- (car p) origine) (cadr p))) points))

(defun plv-optimal:arguments (profil souhait / origine)
  "What the studies' functions are asked with."
  (setq origine (plv-premiere-station profil))
  (list profil (plv-souhait-minimum souhait) (plv-souhait-maximum souhait)
        (plv-souhait:bout (plv-souhait-depart souhait) origine) (plv-souhait:bout (plv-souhait-arrivee souhait) origine)
        (plv-souhait-contraintes souhait)))

(defun plv-optimal:demander-ligne (profil souhait / proposition)
  "A proposition; nil when et_ligne has none."
  (setq proposition (plv-souhait:demander profil souhait))
  (if (and proposition (plv-souhait-pas souhait)) (plv-souhait:ronde profil souhait proposition) proposition))

(defun plv-souhait:sommets (proposition) (apply '+ (mapcar 'length (plv-proposition-lignes proposition))))

(defun plv-souhait:ronde (profil souhait proposition / ronde)
  "The line with round slopes if it has no more vertices, which the windows then prove for it too; else the proposition."
  (if (not (or (plv-proposition-faute proposition) (assoc "arrondi" (plv-souhait-contraintes souhait))))
    (setq ronde (plv-souhait:demander profil (plv-souhait:avec-contrainte souhait (list "arrondi" 0.0 (plv-souhait-pas souhait))))))
  (if (and ronde (not (plv-proposition-faute ronde)) (<= (plv-souhait:sommets ronde) (plv-souhait:sommets proposition)))
    (plv-proposition (plv-proposition-lignes ronde) (plv-proposition-fenetres proposition)
      (list (plv-proposition-aire ronde) (plv-proposition-aire-moindre proposition)) (plv-proposition-prouvee proposition) nil)
    proposition))

(defun plv-souhait-rempli-p (souhait proposition)
  "Whether all slopes of the lines are multiples of the step that is wished."
  (vl-every
    '(lambda (ligne) (vl-every '(lambda (a b / n) (setq n (/ (plv-pente a b) (plv-souhait-pas souhait))) (equal n (plv-optimal:entier-proche n) 1e-6)) ligne (cdr ligne)))
    (plv-proposition-lignes proposition)))

(defun plv-optimal:entier-proche (n) (fix (+ n (if (< n 0.0) -0.5 0.5))))

(defun plv-souhait:demander (profil souhait / origine trouve)
  (setq origine (plv-premiere-station profil) trouve (apply 'et_ligne (plv-optimal:arguments profil souhait)))
  (if trouve
    (plv-proposition
      (mapcar '(lambda (ligne) (plv-souhait:distances ligne origine)) (car trouve))
      (mapcar '(lambda (fenetres) (mapcar '(lambda (f) (plv-souhait:distances f origine)) fenetres)) (cadr trouve))
      (caddr trouve) (cadddr trouve) (nth 4 trouve))))

(defun plv-optimal:demander-couloir (profil souhait / origine)
  "The lower and the upper limit."
  (setq origine (plv-premiere-station profil))
  (mapcar '(lambda (ligne) (plv-souhait:distances ligne origine)) (apply 'et_couloir (plv-optimal:arguments profil souhait))))
