;; The control of the quantities: the depth sections of the module against the lines as they are drawn, section by section and
;; class by class. What differs is said; nothing is written then.
;; Shared in the room: plv-metres:controle plv-controle:*

;; --- slices of one class between the lines: (from to depth-in-the-middle)

(defun plv-controle:limites (classes)
  (vl-sort (plv-uniques (cons 0.0 (append (mapcar 'plv-classe-debut classes) (mapcar 'plv-classe-fin classes)))) '<))

(defun plv-controle:stations (etendue limites / a b d1 d2)
  "Where the depth passes a limit, with both ends."
  (setq a (car etendue) b (cadr etendue) d1 (caddr etendue) d2 (cadddr etendue))
  (vl-sort
    (append (list a b)
      (mapcar '(lambda (l) (+ a (* (- b a) (/ (- l d1) (- d2 d1)))))
              (vl-remove-if-not '(lambda (l) (< (* (- d1 l) (- d2 l)) 0.0)) limites)))
    '<))

(defun plv-controle:tranches (ensemble limites)
  (apply 'append
    (mapcar
      '(lambda (e / stations)
         (setq stations (plv-controle:stations e limites))
         (mapcar '(lambda (u v) (list u v (+ (caddr e) (* (/ (- (* 0.5 (+ u v)) (car e)) (- (cadr e) (car e))) (- (cadddr e) (caddr e))))))
                 stations (cdr stations)))
      ensemble)))

(defun plv-controle:surface (tranche) (* (plv-longueur tranche) (abs (caddr tranche))))

(defun plv-controle:total (tranches fonction) (apply '+ (cons 0.0 (mapcar fonction tranches))))

(defun plv-controle:classe (profondeur classes / rang trouve)
  "The number of the class of a depth, as sections have it."
  (setq rang 0)
  (if (<= profondeur 0.0)
    0
    (progn
      (foreach c classes
        (setq rang (1+ rang))
        (if (and (not trouve) (< (plv-classe-debut c) profondeur) (<= profondeur (plv-classe-fin c))) (setq trouve rang)))
      (cond (trouve) ((1+ (length classes)))))))

;; The dialog shows limits with two decimals: what is nearer to one is of either class. So is the extent of a leaning wall.
(setq plv-controle:flou 0.0051)

(defun plv-controle:floue-p (tranche limites)
  (or (< (plv-longueur tranche) 2e-6)
      (vl-some '(lambda (l) (equal (caddr tranche) l plv-controle:flou)) limites)))

;; --- what is compared: (classes limits tolerance-in-depth slices-of-each-line)

(defun plv-controle:voisinage (limites)
  "The limits with a cut on both sides of each."
  (vl-sort (apply 'append (mapcar '(lambda (l) (list (- l plv-controle:flou) l (+ l plv-controle:flou))) limites)) '<))

(defun plv-controle:reference (lot classes troncons / cadre distances terrain limites)
  (setq cadre (plv-cadre (plv-lot-profil lot))
        distances (plv-uniques (apply 'append (mapcar '(lambda (s) (mapcar 'car (append (plv-troncon-terrain s) (plv-troncon-projet s)))) troncons)))
        terrain (plv-traces:terrain (plv-lot-profil lot) cadre (plv-lot-terrains lot) distances)
        limites (plv-controle:limites classes))
  (list classes limites
    (if (vl-some 'plv-traces:courbe-p (append (plv-lot-lignes lot) (plv-lot-terrains lot))) 1e-3 1e-7)
    (mapcar
      '(lambda (e)
         (plv-controle:tranches (plv-traces:profondeurs terrain (plv-traces:pieces cadre e distances))
           (plv-controle:voisinage limites)))
      (plv-lot-lignes lot))))

(defun plv-controle:des-classes (reference) (car reference))
(defun plv-controle:des-limites (reference) (cadr reference))
;; An upright that leans by a micrometre takes as many square micrometres as it is high: drops of twenty metres may do so.
(setq plv-controle:ecart 2e-5)

(defun plv-controle:tolerance (reference longueur) (+ plv-controle:ecart (* (caddr reference) longueur)))
(defun plv-controle:des-lignes (reference) (cadddr reference))
(defun plv-controle:toutes (reference) (apply 'append (plv-controle:des-lignes reference)))

;; --- the comparisons: each gives the text of what differs, nil for nothing

(defun plv-controle:longueur (troncons reference / mesuree dessinee)
  (setq mesuree (plv-metres:somme troncons 'plv-troncon-longueur)
        dessinee (plv-controle:total (plv-controle:toutes reference) 'plv-longueur))
  (if (not (equal mesuree dessinee 1e-4))
    (strcat "les tronçons ont " (plv-reel mesuree 3) " m, la ligne en a " (plv-reel dessinee 3) " au droit du terrain")))

(defun plv-controle:dans (tranches troncon)
  "The slices within a depth section."
  (vl-remove-if-not '(lambda (u) (< (plv-troncon-debut troncon) (plv-milieu u) (plv-troncon-fin troncon))) tranches))

(defun plv-controle:pareil-p (troncon tranches reference)
  "Whether these slices make the depth section."
  (and (equal (plv-troncon-surface troncon) (plv-controle:total tranches 'plv-controle:surface)
              (plv-controle:tolerance reference (plv-troncon-longueur troncon)))
       (vl-every '(lambda (u) (or (plv-controle:floue-p u (plv-controle:des-limites reference))
                                  (= (plv-controle:classe (caddr u) (plv-controle:des-classes reference)) (plv-troncon-classe troncon))))
                 tranches)))

(defun plv-controle:troncon (troncon origine reference)
  (if (and (plv-metres:visible-p troncon)
           (not (vl-some '(lambda (ligne) (plv-controle:pareil-p troncon (plv-controle:dans ligne troncon) reference))
                         (plv-controle:des-lignes reference))))
    (strcat "le tronçon de " (plv-reel (+ origine (plv-troncon-debut troncon)) 3) " à "
            (plv-reel (+ origine (plv-troncon-fin troncon)) 3) " n'a pas la classe ou la surface des lignes dessinées")))

(defun plv-controle:ecart-classe (numero troncons tranches reference / classes siennes floues largeur marge)
  (setq classes (plv-controle:des-classes reference)
        siennes (vl-remove-if-not '(lambda (u) (= (plv-controle:classe (caddr u) classes) numero)) tranches)
        floues (vl-remove-if-not '(lambda (u) (plv-controle:floue-p u (plv-controle:des-limites reference))) tranches)
        troncons (vl-remove-if-not '(lambda (s) (= (plv-troncon-classe s) numero)) troncons)
        largeur (plv-metres:largeur numero classes)
        marge (+ (plv-controle:tolerance reference (plv-controle:total siennes 'plv-longueur)) (plv-controle:total floues 'plv-controle:surface)))
  (not (and (equal (plv-metres:somme troncons 'plv-troncon-surface) (plv-controle:total siennes 'plv-controle:surface) marge)
            (equal (plv-metres:somme troncons '(lambda (s) (plv-metres:volume s classes)))
                   (* largeur (plv-controle:total siennes 'plv-controle:surface)) (* (max 1.0 largeur) marge))
            (equal (plv-metres:somme troncons 'plv-troncon-longueur) (plv-controle:total siennes 'plv-longueur)
                   (+ 1e-4 (plv-controle:tolerance reference (plv-controle:total siennes 'plv-longueur))
                      (plv-controle:total floues 'plv-longueur))))))

(defun plv-controle:par-classe (troncons reference / tranches classes fausse)
  (setq tranches (plv-controle:toutes reference) classes (plv-controle:des-classes reference))
  (foreach numero (plv-uniques (append (mapcar 'plv-troncon-classe troncons)
                                       (mapcar '(lambda (u) (plv-controle:classe (caddr u) classes)) tranches)))
    (if (and (not fausse) (plv-controle:ecart-classe numero troncons tranches reference)) (setq fausse numero)))
  (if fausse
    (strcat "longueur, surface ou volume de la classe " (plv-metres:libelle fausse classes) " ne sont pas ceux des lignes dessinées")))

(defun plv-controle:faute (troncons origine reference)
  (cond
    ((plv-controle:longueur troncons reference))
    ((vl-some '(lambda (s) (plv-controle:troncon s origine reference)) troncons))
    ((plv-controle:par-classe troncons reference))))

;; --- the control

(defun plv-metres:controle (lot genre classes troncons / profil reference surfaces lignes faute)
  "(line to print, text of what is wrong or nil)."
  (setq profil (plv-lot-profil lot)
        reference (plv-controle:reference lot classes troncons)
        surfaces (plv-metres:somme troncons 'plv-troncon-surface)
        lignes (plv-controle:total (plv-controle:toutes reference) 'plv-controle:surface)
        faute (plv-controle:faute troncons (plv-premiere-station profil) reference))
  (list
    (strcat "Contrôle: tronçons " (plv-reel surfaces 6) " m2, entre les lignes " (plv-reel lignes 6) " m2, écart relatif "
            (rtos (/ (abs (- surfaces lignes)) (max 1.0 lignes)) 1 1) (if faute ": FAUX." ": juste."))
    (if faute (strcat "métrés du profil " (plv-numero-profil profil) ", " genre ": " faute))))
