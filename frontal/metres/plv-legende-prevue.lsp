;; What the legend of depth classes would say if it were made anew, worked out along the very chords that the module measures, without
;; drawing anything. It is compared with what a legend says.

(defun plv-legende-prevue:points (forme)
  "Of a form of straight pieces; nil for another, whose pieces only its curve tells."
  (if (plv-forme-polyligne-p forme) (mapcar '(lambda (s) (plv-premiers s 2)) (plv-forme-elements forme))))

(defun plv-legende-prevue:suites (formes-de-courbe)
  "The points of what is measured for a curve."
  (if (cdr formes-de-courbe) (mapcar 'plv-legende-prevue:points (cdr formes-de-courbe)) (list (et_morceaux (car formes-de-courbe)))))

(defun plv-legende-prevue:pieces (cadre formes-de-courbe / suites)
  "Nil for what can't be known."
  (setq suites (plv-legende-prevue:suites formes-de-courbe))
  (if (vl-every 'cdr suites)
    (plv-traces:trier (apply 'append (mapcar '(lambda (points) (plv-traces:pieces-de-points cadre points)) suites)))))

(defun plv-legende-prevue:sol (cadre terrain)
  "The pieces of the ground, as plv-lots:terrain gives it; nil for what can't be known."
  (cond
    ((car terrain) nil)
    ((caddr terrain) (plv-traces:trier (apply 'append (mapcar '(lambda (f) (plv-legende-prevue:pieces cadre f)) (cadddr terrain)))))
    ((cadr terrain))))

(defun plv-legende-prevue:de-ligne (cadre terrain sol entite limites / examen)
  "(slices) of a line, nil in it for one that isn't measured; nil for what can't be known."
  (setq examen (plv-mise-en-forme entite cadre nil))
  (if (plv-lots:faute cadre (cadr terrain) entite examen)
    (list nil)
    (if (setq examen (plv-legende-prevue:pieces cadre (plv-lots:formes cadre entite examen (plv-lots:etendues (cadr terrain)))))
      (list (plv-controle:tranches (plv-traces:profondeurs sol examen) limites)))))

(defun plv-legende-prevue:tranches (profil genre limites / cadre terrain sol lignes)
  (setq cadre (plv-cadre profil) terrain (plv-lots:terrain profil cadre) sol (plv-legende-prevue:sol cadre terrain))
  (if sol
    (progn
      (setq lignes (mapcar '(lambda (e) (plv-legende-prevue:de-ligne cadre terrain sol e limites)) (plv-elements profil genre)))
      (if (not (member nil lignes)) (apply 'append (mapcar 'car lignes))))))

(defun plv-legende-prevue:rangee (libelle tranches classes)
  (cons libelle
    (mapcar '(lambda (somme) (plv-reel somme 2))
      (list (plv-controle:total tranches 'plv-longueur) (plv-controle:total tranches 'plv-controle:surface)
            (plv-controle:total tranches
              '(lambda (u) (* (plv-controle:surface u) (plv-metres:largeur (plv-controle:classe (caddr u) classes) classes))))))))

(defun plv-legende-prevue:rangees (tranches classes / de-classe)
  "Class by class behind its colour, then of all."
  (setq tranches (vl-remove-if '(lambda (u) (< (plv-longueur u) 1e-5)) tranches)
        de-classe (mapcar '(lambda (u) (plv-controle:classe (caddr u) classes)) tranches))
  (append
    (mapcar
      '(lambda (numero)
         (cons (plv-metres:couleur numero classes)
           (plv-legende-prevue:rangee (plv-legende:sans-accents (plv-metres:libelle numero classes))
             (vl-remove nil (mapcar '(lambda (u n) (if (= n numero) u)) tranches de-classe)) classes)))
      (vl-sort (plv-uniques de-classe) '<))
    (list (plv-legende-prevue:rangee "Total" tranches classes))))

(defun plv-legende-prevue (profil genre classes / tranches)
  "The texts and colours of a legend in the order in which it is drawn, classes being those of the dialog; nil for what can't be known."
  (setq classes (plv-metres:classes classes))
  (if (setq tranches (plv-legende-prevue:tranches profil genre (plv-controle:limites classes)))
    (append (list (plv-legende:titre profil genre)) (mapcar 'car (cdr plv-legende:colonnes))
      (apply 'append (plv-legende-prevue:rangees tranches classes)))))

(defun plv-legende-lue (reference / e g lus)
  "The texts and colours of a legend."
  (setq e (plv-cle -2 (tblsearch "BLOCK" (plv-cle 2 (entget reference)))))
  (while e
    (setq g (entget e))
    (cond ((= (plv-cle 0 g) "TEXT") (setq lus (cons (plv-cle 1 g) lus))) ((= (plv-cle 0 g) "HATCH") (setq lus (cons (plv-cle 62 g) lus))))
    (setq e (entnext e)))
  (reverse lus))
