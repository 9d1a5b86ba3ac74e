;; What is measured of a profile: its lines in the form for which the module's sweep is exact. The drawing keeps them as they are:
;; while the module measures, copies stand in the records for the lines that aren't in form (see portes), for arcs, of which the module
;; takes the chords, and for lines over a hole of the ground. Uprights of the ground are copied too, since the module passes over them.
;; Shared in the room: plv-metres:* plv-lots:*

;; --- a lot is (profile lines grounds forms-of-lines forms-of-grounds): the curves that are measured, and for each kind the forms that stand
;; for them, (curve form ...), with no form for a curve that is measured as it is

(defun plv-lot-profil (lot) (car lot))
(defun plv-lot-lignes (lot) (cadr lot))
(defun plv-lot-terrains (lot) (caddr lot))
(defun plv-lot-formes-lignes (lot) (cadddr lot))
(defun plv-lot-formes-terrains (lot) (nth 4 lot))

;; --- the ground: stretches (from to) without a hole

(defun plv-lots:etendues (pieces / etendues)
  "The stretches that sorted pieces cover."
  (foreach p pieces
    (setq etendues
      (if (and etendues (<= (plv-piece-debut p) (+ (plv-fin (car etendues)) 1e-6)))
        (cons (list (plv-debut (car etendues)) (max (plv-fin (car etendues)) (plv-piece-fin p))) (cdr etendues))
        (cons (list (plv-piece-debut p) (plv-piece-fin p)) etendues))))
  (reverse etendues))

(defun plv-lots:recouvrement (pieces)
  "Where two sorted pieces lie over one another; nil for nowhere."
  (vl-some '(lambda (a b) (if (< (plv-piece-debut b) (- (plv-piece-fin a) 1e-6)) (plv-piece-debut b))) pieces (cdr pieces)))

(defun plv-lots:refus-terrain (terrains examens pieces origine / faute)
  "Why nothing can be measured to a ground; nil when it can."
  (setq faute (vl-some '(lambda (e x) (if (not (listp x)) (strcat (plv-nom-courbe e) " du terrain: " x))) terrains examens))
  (cond
    (faute)
    ((not pieces) (plv-refus-sans-terrain))
    ((setq faute (plv-lots:recouvrement pieces)) (strcat "deux terrains l'un sur l'autre à la station " (plv-reel (+ origine faute) 3)))))

;; --- forms that stand for a curve

(defun plv-lots:a-copier-p (mise)
  (or (plv-mise-mots mise) (vl-some 'plv-forme-courbe-p (plv-mise-formes mise))))

(defun plv-lots:en-cordes (formes)
  (mapcar '(lambda (f) (if (plv-forme-courbe-p f) (plv-forme-en-cordes f) f)) formes))

(defun plv-lots:troue (cadre formes etendues)
  "Forms without what lies over holes between the stretches of the ground; the outer stretches have no end."
  (apply 'append
    (mapcar
      '(lambda (forme)
         (vl-remove nil
           (mapcar
             '(lambda (e)
                (plv-forme-entre forme
                  (if (eq e (car etendues)) -1e15 (plv-abscisse cadre (plv-debut e)))
                  (if (eq e (plv-dernier etendues)) 1e15 (plv-abscisse cadre (plv-fin e)))))
             etendues)))
      formes)))

(defun plv-lots:formes (cadre entite mise etendues / trouees)
  "(curve form ...): the forms that are measured in place of a curve, none when it is measured as it is."
  (setq trouees (if (cdr etendues) (plv-lots:troue cadre (plv-mise-formes mise) etendues) (plv-mise-formes mise)))
  (cons entite
    (if (or (plv-lots:a-copier-p mise) (not (equal trouees (plv-mise-formes mise)))) (plv-lots:en-cordes trouees))))

;; --- uprights among the ground lines of the planes

(defun plv-lots:points-section (section)
  "The ends of the ground lines of a section, in pairs."
  (apply 'append
    (mapcar '(lambda (ligne) (mapcar '(lambda (p) (list (car p) (cadr p) 0.0)) (plv-gauche-droite (plv-traces:sommets ligne))))
            (plv-lignes-du-plan (plv-section-entite section)))))

(defun plv-lots:suivis-p (points)
  "Whether each ground line begins where the one before ends, and none is upright."
  (while (and (cdddr points) (equal (cadr points) (caddr points) 1e-6) (> (- (car (cadr points)) (car (car points))) 1e-8))
    (setq points (cddr points)))
  (not (cdddr points)))

(defun plv-lots:polylignes (points / faites courante)
  "The forms of ground lines that follow each other; a hole ends one."
  (while points
    (if (and courante (> (car (car points)) (+ (caar courante) 1e-6))) (setq faites (cons (reverse courante) faites) courante nil))
    (setq courante (vl-list* (cadr points) (car points) courante) points (cddr points)))
  (mapcar '(lambda (sommets) (plv-pencher-forme (cons "P" sommets))) (reverse (if courante (cons (reverse courante) faites) faites))))

(defun plv-lots:des-plans (profil / sections)
  "The forms of the ground lines when one of them is upright; none when they are measured as they are."
  (setq sections (mapcar 'plv-lots:points-section (plv-sections-de-plan profil)))
  (if (and (plv-support profil "TN") (not (vl-every 'plv-lots:suivis-p sections)))
    (apply 'append (mapcar 'plv-lots:polylignes sections))))

;; --- the lines of a kind

(defun plv-lots:faute (cadre terrain entite examen)
  "Why a line can't be measured; nil when it can."
  (cond
    ((not (listp examen)) examen)
    ((not (plv-traces:profondeurs terrain (plv-traces:pieces cadre entite nil))) "pas au droit du terrain")))

(defun plv-lots:dire-faute (profil genre entite faute)
  (plv-erreur (strcat "profil " (plv-numero-profil profil) ", " genre ": " (plv-nom-courbe entite) " ne se mesure pas: " faute)))

(defun plv-lots:dire-trous (profil genre cadre entite etendues / origine restes)
  "Says over which stretches a line has no ground."
  (setq origine (plv-premiere-station profil)
        restes (plv-lots:restes (plv-lots:etendues (plv-traces:pieces cadre entite nil)) etendues))
  (if restes
    (plv-dire
      (strcat "Profil " (plv-numero-profil profil) ", " genre ", " (plv-nom-courbe entite) ": sans terrain, pas mesurée "
              (plv-joindre (mapcar '(lambda (r) (strcat "de " (plv-reel (+ origine (plv-debut r)) 3) " à " (plv-reel (+ origine (plv-fin r)) 3))) restes)
                           ", ")))))

(defun plv-lots:restes (etendues autres)
  "What some stretches have outside of others."
  (foreach a autres
    (setq etendues
      (apply 'append
        (mapcar '(lambda (e) (list (list (plv-debut e) (min (plv-fin e) (plv-debut a))) (list (max (plv-debut e) (plv-fin a)) (plv-fin e)))) etendues))))
  (vl-remove-if '(lambda (e) (< (plv-longueur e) 1e-4)) etendues))

(defun plv-lots:lignes (profil genre cadre terrain / etendues examen faute formes)
  "(curve form ...) of each line of a kind that can be measured; the others are named."
  (setq etendues (plv-lots:etendues terrain))
  (foreach e (plv-elements profil genre)
    (setq examen (plv-mise-en-forme e cadre nil) faute (plv-lots:faute cadre terrain e examen))
    (if faute
      (plv-lots:dire-faute profil genre e faute)
      (progn
        (plv-lots:dire-trous profil genre cadre e etendues)
        (setq formes (cons (plv-lots:formes cadre e examen etendues) formes)))))
  (reverse formes))

;; --- a lot

(defun plv-lots:terrain (profil cadre / terrains examens pieces refus)
  "(refusal pieces grounds forms)."
  (setq terrains (plv-elements profil "TN")
        examens (mapcar '(lambda (e) (plv-mise-en-forme e cadre nil)) terrains)
        pieces (plv-traces:terrain profil cadre terrains nil)
        refus (plv-lots:refus-terrain terrains examens pieces (plv-premiere-station profil)))
  (list refus pieces terrains
    (cond (refus nil)
          (terrains (mapcar '(lambda (e x) (plv-lots:formes cadre e x nil)) terrains examens))
          ((setq examens (plv-lots:des-plans profil)) (list (cons nil examens))))))

(defun plv-metres:lot (profil genre / cadre terrain formes)
  "What can be measured of a profile with a kind of line; nil for nothing. What can't be is named."
  (setq cadre (plv-cadre profil) terrain (plv-lots:terrain profil cadre))
  (cond
    ((car terrain) (plv-erreur (strcat "profil " (plv-numero-profil profil) ": " (car terrain))))
    ((setq formes (plv-lots:lignes profil genre cadre (cadr terrain)))
     (list profil (mapcar 'car formes) (caddr terrain) formes (cadddr terrain)))))

;; --- the lots in the records, while a function runs

(defun plv-lots:lister (formes-de-courbe)
  "What the record names for a curve: itself, or copies that are drawn now."
  (if (cdr formes-de-courbe) (mapcar 'plv-forme-tracer (cdr formes-de-courbe)) (list (car formes-de-courbe))))

(defun plv-lots:avec (avec:profil avec:genre avec:formes avec:fonction / avec:groupes avec:listes avec:fait)
  "Runs a function while a kind's record has what stands for its curves."
  (setq avec:groupes (plv-enregistrement-elements (plv-support avec:profil avec:genre))
        avec:listes (apply 'append (mapcar 'plv-lots:lister avec:formes)))
  (plv-ecrire-elements avec:profil avec:genre avec:listes)
  (setq avec:fait (vl-catch-all-apply avec:fonction '()))
  (plv-rendre-elements avec:profil avec:genre avec:groupes)
  (plv-effacer (vl-remove-if '(lambda (e) (assoc e avec:formes)) avec:listes))
  (if (vl-catch-all-error-p avec:fait) (plv-erreur (vl-catch-all-error-message avec:fait)) avec:fait))

(defun plv-lots:avec-lot (lot:lot lot:genre lot:fonction)
  (plv-lots:avec (plv-lot-profil lot:lot) lot:genre (plv-lot-formes-lignes lot:lot)
    '(lambda ()
       (if (plv-lot-formes-terrains lot:lot)
         (plv-lots:avec (plv-lot-profil lot:lot) "TN" (plv-lot-formes-terrains lot:lot) lot:fonction)
         (apply lot:fonction '())))))

(defun plv-metres:avec-lots (lots:lots lots:genre lots:fonction)
  "Runs a function while each profile has its lot only."
  (if lots:lots
    (plv-lots:avec-lot (car lots:lots) lots:genre '(lambda () (plv-metres:avec-lots (cdr lots:lots) lots:genre lots:fonction)))
    (apply lots:fonction '())))
