;; Mends the keys and chains of a profile, for kavel --audit --fix. The ground that is kept with the profile is the truth: where a
;; chain of ground lines is broken, the section is drawn anew from it. A lost plane is told by the ground lines that were
;; drawn over it; when there are none, it stays a finding.
;; Shared in the room: plv-reparer:*

(defun plv-reparer:lignes-dessinees ()
  (plv-entites-du-jeu (ssget "X" (list '(0 . "LINE")))))

(defun plv-reparer:plan-d-un-bout (profil terrain point / z)
  "The altitude of the plane over which a point of the drawing would be on the ground; nil beside it."
  (if (setq z (plv-altitude-tn terrain (plv-entre (- (car point) (car (plv-origine profil))) 0.0 (car (plv-dernier terrain)))))
    (- z (/ (- (cadr point) (cadr (plv-origine profil))) (plv-echv profil)))))

(defun plv-reparer:plan-de (profil terrain ligne / groupes a b)
  "The altitude of the plane over which a line is a piece of the ground; nil for another line."
  (setq groupes (entget ligne)
        a (plv-reparer:plan-d-un-bout profil terrain (plv-cle 10 groupes))
        b (plv-reparer:plan-d-un-bout profil terrain (plv-cle 11 groupes)))
  (if (and a b (equal a b 1e-4)) a))

(defun plv-reparer:dans (profil ligne debut fin / x0 groupes)
  "Whether a line lies over a stretch of the profile."
  (setq x0 (car (plv-origine profil)) groupes (entget ligne))
  (<= (+ x0 debut -1e-5) (min (cadr (assoc 10 groupes)) (cadr (assoc 11 groupes)))
      (max (cadr (assoc 10 groupes)) (cadr (assoc 11 groupes))) (+ x0 fin 1e-5)))

(defun plv-reparer:enchainees ()
  "The ground lines that stand in a chain of any profile."
  (apply 'append
    (mapcar '(lambda (profil) (apply 'append (mapcar 'plv-lignes-du-plan (plv-entites-plans profil)))) (plv-profils))))

(defun plv-reparer:perdues (profil debut fin calques / enchainees)
  "Lines on these layers over a stretch that no chain holds."
  (setq enchainees (plv-reparer:enchainees))
  (vl-remove-if-not
    '(lambda (l) (and (member (plv-cle 8 (entget l)) calques) (plv-reparer:dans profil l debut fin) (not (member l enchainees))))
    (plv-reparer:lignes-dessinees)))

;; --- the ground lines of a section

(defun plv-reparer:sur-le-plan (profil terrain lignes altitude)
  (vl-remove-if-not '(lambda (l / z) (and (setq z (plv-reparer:plan-de profil terrain l)) (equal z altitude 1e-4))) lignes))

(defun plv-reparer:redessiner (profil terrain section lignes / calques)
  "Draws the ground of a section anew, in place of the lines of its chain and of those that fell out of it."
  (setq calques (cons (plv-calque "PLV-TN") (mapcar '(lambda (l) (plv-cle 8 (entget l))) lignes)))
  (plv-effacer
    (append lignes
      (plv-reparer:sur-le-plan profil terrain
        (plv-reparer:perdues profil (plv-plan-debut section) (plv-section-fin section) calques) (plv-plan-altitude section))))
  (plv-tracer-lignes (plv-origine profil) terrain (plv-echv profil) section (plv-section-fin section)))

(defun plv-reparer:couper (maillons cle)
  "Ends a chain with its last entity."
  (if maillons (plv-oter-cle (plv-dernier maillons) cle))
  maillons)

(defun plv-reparer:lignes (profil terrain section / plan lignes)
  (setq plan (plv-section-entite section) lignes (plv-lignes-du-plan plan))
  (if (plv-fautes-lignes plan)
    (progn
      ;; What isn't drawn as the record has it is another program's own: its chain is only ended.
      (setq lignes
        (if (and (cdr terrain) (= (length lignes) (length (plv-reparer:sur-le-plan profil terrain lignes (plv-plan-altitude section)))))
          (plv-reparer:redessiner profil terrain section lignes)
          (plv-reparer:couper lignes "NEXTLI")))
      (if lignes (plsxd plan "PRLI" (car lignes)) (plv-oter-cle plan "PRLI")))))

;; --- the chain of planes

(defun plv-reparer:plans-perdus (profil / y connus)
  "Planes on the base line of a profile that no chain holds: (start entity), left to right."
  (setq y (cadr (plv-origine profil)) connus (apply 'append (mapcar 'plv-entites-plans (plv-profils))))
  (vl-sort
    (mapcar '(lambda (e) (list (- (cadr (assoc 10 (entget e))) (car (plv-origine profil))) e))
      (vl-remove-if-not
        '(lambda (e) (and (plv-plan-complet e) (not (member e connus)) (equal (caddr (assoc 10 (entget e))) y 1e-6)
                          (plv-reparer:dans profil e 0.0 (plv-longueur-terrain profil))))
        (plv-entites-du-jeu (ssget "X" (list '(0 . "LINE") (list -3 (list plv-app-cles)))))))
    '(lambda (a b) (< (car a) (car b)))))

(defun plv-reparer:plan-perdu (profil terrain debut fin / lignes altitude)
  "A plane for a stretch that has none, after the lines that were drawn over it; nil when there are none."
  (setq lignes (plv-reparer:perdues profil debut fin (list (plv-calque "PLV-TN")))
        altitude (vl-some '(lambda (l) (plv-reparer:plan-de profil terrain l)) lignes))
  (if altitude
    (progn
      (plv-effacer (plv-reparer:sur-le-plan profil terrain lignes altitude))
      (plv-tracer-plan (plv-origine profil) terrain (plv-echv profil) (list debut (plv-reparer:rond altitude)) fin))))

(defun plv-reparer:rond (altitude)
  "To the millimetre, if it is as near as drawn lines tell it."
  (if (equal altitude (plv-nombre (plv-reel altitude 3)) 1e-4) (plv-nombre (plv-reel altitude 3)) altitude))

(defun plv-reparer:combler (profil terrain plans d fin / plan)
  "The planes, newest first, with one for the stretch from d to fin when it isn't empty; T for one that can't be told."
  (cond ((not (listp plans)) T)
        ((<= fin (+ d 1e-6)) plans)
        ((setq plan (plv-reparer:plan-perdu profil terrain d fin)) (cons plan plans))
        (T T)))

(defun plv-reparer:tous-les-plans (profil terrain / plans d)
  "The planes from the first to the last, those that are missing made; T when one can't be told."
  (setq plans (reverse (plv-entites-plans profil))
        d (apply '+ (cons 0.0 (mapcar '(lambda (e) (plgxd e "DISTANCE")) plans))))
  (foreach perdu (plv-reparer:plans-perdus profil)
    (if (>= (car perdu) (- d 1e-6))
      (progn
        (setq plans (plv-reparer:combler profil terrain plans d (car perdu))
              d (+ (car perdu) (plgxd (cadr perdu) "DISTANCE")))
        (if (listp plans) (setq plans (cons (cadr perdu) plans))))))
  (setq plans (plv-reparer:combler profil terrain plans d (plv-longueur-terrain profil)))
  (if (listp plans) (reverse plans) T))

(defun plv-reparer:plans (profil terrain / plans)
  (if (and (plv-fautes-plans profil) (cdr terrain) (vl-every 'plv-plan-complet (plv-entites-plans profil))
           (setq plans (plv-reparer:tous-les-plans profil terrain)) (listp plans))
    (progn
      (plsxd profil "PRPC" (car plans))
      (plv-enchainer plans "NEXT-PC")
      (plv-reparer:couper plans "NEXT-PC"))))

;; --- keys

(defun plv-reparer:nombres (profil)
  "What the module takes for a number that is missing or no number."
  (plv-ecrire-cles profil
    (list (list "ECHV" (plv-reparer:positif (plv-echv profil) 10.0)) (list "TTXT" (plv-reparer:positif (plv-ttxt profil) 2.5))
          (list "DCUMDEB" (plv-premiere-station profil))))
  (if (< (plv-id-profil profil) 0) (plsxd profil "ID" (plv-identifiant-libre))))

(defun plv-reparer:positif (valeur defaut) (if (> valeur 0.0) valeur defaut))

(defun plv-reparer:supports (profil)
  "An empty support in place of one that is gone."
  (plv-bloc-vide plv-bloc-support)
  (foreach cle (plv-cles-genres)
    (if (and (assoc cle (plv-paires profil)) (not (plv-nommee profil cle)))
      (plsxd profil cle (plv-inserer "PLV-PROFIL" plv-bloc-support (plv-origine profil))))))

;; --- the whole profile

(defun plv-reparer-profil (profil / terrain)
  (plv-creer-calques)
  (if (or (plv-fautes-nombres profil) (not (vl-every '(lambda (cle) (plgxd profil cle)) '("ECHV" "TTXT" "ID"))))
    (plv-reparer:nombres profil))
  (plv-reparer:supports profil)
  (plv-reparer-contenu profil)
  (setq terrain (plv-points-tn profil))
  (plv-reparer:plans profil terrain)
  (if (vl-every 'plv-plan-complet (plv-entites-plans profil))
    (progn
      (setq terrain (plv-points-aux-plans terrain (plv-plans profil)))
      (foreach section (plv-sections-de-plan profil) (plv-reparer:lignes profil terrain section)))))
