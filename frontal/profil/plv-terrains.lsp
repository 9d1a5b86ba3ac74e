;; Further grounds of a profile: rock, another survey, a water table. Each has a name, a role and pieces of points
;; (distance altitude); it is drawn over the profile's planes on a layer of its own. The natural ground is that of plv-terrain-profil.

(setq plv-terrains:cle "PLV_TERRAINS" plv-terrains:traces "PLV_TRACES_TERRAINS" plv-terrains:tirets "KAVEL-TIRETS")

;; role, colour of its layer, T for dashes
(setq plv-terrains:roles '(("Rocher" 30 T) ("Existant" 8 nil) ("Nappe" 5 T) ("Levé" 94 nil) ("Autre" 6 T)))

(defun plv-roles-terrain () (mapcar 'car plv-terrains:roles))

(defun plv-terrain (nom role morceaux) (list nom role morceaux))
(defun plv-terrain-nom (terrain) (car terrain))
(defun plv-terrain-role (terrain) (cadr terrain))
(defun plv-terrain-morceaux (terrain) (caddr terrain))

;; --- the record: of each ground 1 its name, 300 its role, of each piece 90 its number of points and a 10 for each

(defun plv-terrains:groupes (terrain)
  (vl-list* (cons 1 (plv-terrain-nom terrain)) (cons 300 (plv-terrain-role terrain))
    (apply 'append
      (mapcar '(lambda (m) (cons (cons 90 (length m)) (mapcar '(lambda (p) (list 10 (float (car p)) (float (cadr p)) 0.0)) m)))
              (plv-terrain-morceaux terrain)))))

(defun plv-terrains (profil / terrains nom role morceaux)
  "The further grounds, in the order of their adding."
  (foreach g (append (plv-enregistrement profil plv-terrains:cle) '((1 . nil)))
    (cond
      ((= (car g) 1)
       (if nom (setq terrains (cons (plv-terrain nom role (reverse (mapcar 'reverse morceaux))) terrains)))
       (setq nom (cdr g) role "Autre" morceaux nil))
      ((= (car g) 300) (setq role (cdr g)))
      ((= (car g) 90) (setq morceaux (cons nil morceaux)))
      ((and (= (car g) 10) morceaux) (setq morceaux (cons (cons (list (cadr g) (caddr g)) (car morceaux)) (cdr morceaux))))))
  (reverse terrains))

(defun plv-terrain-nomme (profil nom)
  "One of them, in any case of letters; nil without it."
  (car (vl-member-if '(lambda (terrain) (= (strcase (plv-terrain-nom terrain)) (strcase nom))) (plv-terrains profil))))

(defun plv-ecrire-terrains (profil terrains)
  (plv-ecrire-enregistrement profil plv-terrains:cle (apply 'append (mapcar 'plv-terrains:groupes terrains)))
  (plv-tracer-terrains profil))

(defun plv-terrain-en (terrain d / morceau)
  "Its altitude at a distance; nil in a gap."
  (if (setq morceau (car (vl-member-if '(lambda (m) (<= (- (caar m) 1e-6) d (+ (car (plv-dernier m)) 1e-6))) (plv-terrain-morceaux terrain))))
    (plv-altitude-ligne morceau d)))

(defun plv-terrains-effaces (profil)
  "The further grounds of which nothing is drawn any more."
  (if (and (plv-terrains profil) (not (vl-some 'plv-existe (plv-entites-enregistrees profil plv-terrains:traces)))) (plv-terrains profil)))

;; --- drawing

(defun plv-terrains:nom-calque (terrain) (strcat "PLV-TN-" (strcase (plv-terrain-nom terrain))))

(defun plv-terrains:calque (terrain / role)
  (setq role (cond ((assoc (plv-terrain-role terrain) plv-terrains:roles)) ((plv-dernier plv-terrains:roles))))
  (plv-calque-propre (plv-terrains:nom-calque terrain) (cadr role) (if (caddr role) plv-terrains:tirets "Continuous")))

(defun plv-tracer-sur-section (cadre calque section morceau / a b)
  "A polyline through what of a piece stands over one section; nil for nothing."
  (setq a (max (plv-plan-debut section) (caar morceau)) b (min (plv-section-fin section) (car (plv-dernier morceau))))
  (if (> (- b a) 1e-6)
    (plv-polyligne calque (mapcar '(lambda (p) (plv-vers-dessin-sur cadre section (car p) (cadr p))) (plv-ligne-entre morceau a b)))))

(defun plv-tracer-terrains (profil / cadre sections traces calque)
  "Draws the further grounds in place of what was drawn of them."
  (plv-effacer (plv-entites-enregistrees profil plv-terrains:traces))
  (setq cadre (plv-cadre profil) sections (plv-sections-de-plan profil))
  (foreach terrain (plv-terrains profil)
    (setq calque (plv-terrains:calque terrain))
    (foreach morceau (plv-terrain-morceaux terrain)
      (foreach section sections
        (setq traces (cons (plv-tracer-sur-section cadre calque section morceau) traces)))))
  (if (or traces (plv-enregistrement profil plv-terrains:traces))
    (plv-enregistrer-entites profil plv-terrains:traces (vl-remove nil traces))))

(defun plv-traces-terrain (profil terrain / calque)
  "What is drawn of a further ground, on the layer of its name."
  (setq calque (plv-terrains:nom-calque terrain))
  (vl-remove-if-not '(lambda (e) (and (plv-existe e) (= (plv-cle 8 (entget e)) calque))) (plv-entites-enregistrees profil plv-terrains:traces)))
