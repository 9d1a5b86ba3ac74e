;; What the window shows of profiles: the tree of its panel, the reading under the cursor, the fields of an entity.
;; Nothing here changes the drawing. What was read of the profiles is kept until plv-bureau-oublier.
;; Shared in the room: plv-bureau:lus plv-bureau:plans-lus plv-bureau:ligne-lue plv-bureau:regards-lus

(setq plv-bureau:arbre nil plv-bureau:lectures nil plv-bureau:vieilles nil plv-bureau:lignes nil plv-bureau:reseaux nil)

(defun plv-bureau-oublier ()
  (setq plv-bureau:arbre nil plv-bureau:lectures nil plv-bureau:vieilles nil plv-bureau:lignes nil plv-bureau:reseaux nil))

;; --- what isn't true any more, as (profile state ...), worked out once

(defun plv-bureau:vieux-etats ()
  (cond
    (plv-bureau:vieilles)
    ((setq plv-bureau:vieilles
       (mapcar '(lambda (p) (cons p (vl-remove-if 'plv-etat-a-jour-p (plv-etats p)))) (vl-remove-if 'plv-refus-profil (plv-profils)))))))

(defun plv-bureau-marques ()
  "The boxes (x1 y1 x2 y2) of what isn't true any more, for the window to mark."
  (vl-remove nil
    (apply 'append
      (mapcar '(lambda (vieux) (mapcar '(lambda (etat) (plv-etat-boite (car vieux) etat)) (cdr vieux))) (plv-bureau:vieux-etats)))))

(defun plv-bureau:etats (profil)
  (mapcar
    '(lambda (etat) (plv-bureau:noeud (plv-etat-en-ligne profil etat) (car (plv-chose-entites profil (plv-etat-fait etat))) nil))
    (plv-cle profil (plv-bureau:vieux-etats))))

;; --- the tree: (title handle children)

(defun plv-bureau:noeud (titre entite enfants) (list titre (if entite (plv-handle entite)) enfants))

(defun plv-bureau:groupe (titre enfants)
  (if enfants (list (plv-bureau:noeud (strcat titre " (" (itoa (length enfants)) ")") nil enfants))))

(defun plv-bureau:plans (profil)
  (mapcar
    '(lambda (s)
       (plv-bureau:noeud (strcat (plv-reel (plv-plan-altitude s) 2) " à partir de " (plv-reel (plv-plan-debut s) 2))
                         (plv-section-entite s) nil))
    (plv-sections-de-plan profil)))

(defun plv-bureau:elements (profil genre)
  (mapcar '(lambda (e) (plv-bureau:noeud (strcat (plv-nom-de-type (plv-type e)) " " (plv-handle e)) e nil)) (plv-elements profil genre)))

(defun plv-bureau:genres (profil)
  (apply 'append (mapcar '(lambda (genre) (plv-bureau:groupe genre (plv-bureau:elements profil genre))) (plv-genres))))

(defun plv-bureau:terrains (profil)
  "The further grounds, each with the first of its lines."
  (mapcar
    '(lambda (terrain)
       (plv-bureau:noeud (strcat (plv-terrain-nom terrain) " (" (plv-terrain-role terrain) ")") (car (plv-traces-terrain profil terrain)) nil))
    (plv-terrains profil)))

(defun plv-bureau:rangees (reference)
  (mapcar '(lambda (r) (plv-bureau:noeud (plv-bureau:titre-rangee r) reference nil)) (plv-matrice-rangees (plv-matrice reference))))

(defun plv-bureau:titre-rangee (rangee)
  "The label, or the name where the label is empty."
  (if (= (plv-rangee-libelle rangee) "") (plv-rangee-nom rangee) (plv-rangee-libelle rangee)))

(defun plv-bureau:matrices (profil)
  (mapcar
    '(lambda (reference) (plv-bureau:noeud (plv-matrice-nom reference) reference (plv-bureau:rangees reference)))
    (plv-tables profil)))

(defun plv-bureau:profil (profil)
  (plv-bureau:noeud
    (strcat "Profil " (plv-numero-profil profil)) profil
    (if (not (plv-refus-profil profil)) (plv-bureau:enfants profil))))

(defun plv-bureau:enfants (profil)
  "What a whole profile has."
  (append (plv-bureau:groupe "Pas à jour" (plv-bureau:etats profil))
          (plv-bureau:groupe "Plans de comparaison" (plv-bureau:plans profil))
          (plv-bureau:groupe "Autres terrains" (plv-bureau:terrains profil))
          (plv-bureau:groupe "Lignes" (plv-bureau:genres profil))
          (plv-bureau:groupe "Matrices" (plv-bureau:matrices profil))))

(defun plv-bureau-profils ()
  (cond (plv-bureau:arbre) ((setq plv-bureau:arbre (mapcar 'plv-bureau:profil (plv-profils))))))

;; --- the current profile

(defun plv-bureau-courant ()
  "Its number and handle; nil for none."
  (if (plv-numero-courant) (list (plv-numero-courant) (plv-handle plv-courant))))

(defun plv-bureau-profil-de (handle x y / profil)
  "Number and handle of the profile that a pick means."
  (if (setq profil (plv-profil-designe (handent handle) (list x y))) (list (plv-numero-profil profil) (plv-handle profil))))

;; --- what was read of a profile: its frame (see plv-cadre), its ground and what else a reading needs

(defun plv-bureau:lire (profil)
  (list (cons 'profil profil) (cons 'numero (plv-numero-profil profil)) (cons 'cadre (plv-cadre profil))
        (cons 'longueur (cond ((plv-longueur-profil profil)) (0.0)))
        (cons 'origine (cond ((plv-premiere-station profil)) (0.0))) (cons 'points (plv-points-tn profil))
        (cons 'sections (plv-sections-de-plan profil)) (cons 'elements (plv-bureau:courbes profil))
        (cons 'tables (plv-tables profil))))

(defun plv-bureau:courbes (profil)
  "The curves of all kinds as (entity . kind)."
  (apply 'append
    (mapcar '(lambda (genre) (mapcar '(lambda (e) (cons e genre)) (plv-elements profil genre))) (plv-genres))))

(defun plv-bureau:lus ()
  (cond (plv-bureau:lectures) ((setq plv-bureau:lectures (mapcar 'plv-bureau:lire (vl-remove-if 'plv-refus-profil (plv-profils)))))))

(defun plv-bureau:ligne-lue (profil genre)
  "The runs of a line."
  (if (not (assoc (list profil genre) plv-bureau:lignes))
    (setq plv-bureau:lignes (cons (cons (list profil genre) (plv-lire-ligne profil genre)) plv-bureau:lignes)))
  (plv-cle (list profil genre) plv-bureau:lignes))

(defun plv-bureau:regards-lus (profil genre)
  "The network of a line."
  (if (not (assoc (list profil genre) plv-bureau:reseaux))
    (setq plv-bureau:reseaux (cons (cons (list profil genre) (plv-regards profil genre)) plv-bureau:reseaux)))
  (plv-cle (list profil genre) plv-bureau:reseaux))

(defun plv-bureau:origine (lu) (plv-cadre-origine (plv-cle 'cadre lu)))
(defun plv-bureau:plans-lus (lu) (plv-cadre-plans (plv-cle 'cadre lu)))

(defun plv-bureau:hauteur (lu)
  "From the lowest plane to the highest ground point, as drawn."
  (* (plv-cadre-echv (plv-cle 'cadre lu))
     (- (apply 'max (mapcar 'cadr (plv-cle 'points lu))) (apply 'min (mapcar 'plv-plan-altitude (plv-bureau:plans-lus lu))))))

;; --- where a profile is, with its tables: (x1 y1 x2 y2); nil for another entity

(defun plv-bureau-boite (handle / profil lu x y longueur bas)
  (if (and (setq profil (handent handle)) (member profil (plv-profils)) (not (plv-refus-profil profil)))
    (progn
      (setq lu (car (vl-remove-if-not '(lambda (l) (eq (plv-cle 'profil l) profil)) (plv-bureau:lus)))
            x (car (plv-bureau:origine lu)) y (cadr (plv-bureau:origine lu)) longueur (plv-cle 'longueur lu)
            bas (* (if (plv-references-tables profil) 0.4 0.05) longueur))
      (list (- x (* 0.15 longueur)) (- y bas) (+ x (* 1.05 longueur)) (+ y (* 1.2 (plv-bureau:hauteur lu)))))))

;; --- the reading at a point

(defun plv-bureau:contient-p (lu point)
  "Over the profile: within its length, and not far below its planes or above its ground."
  (and (plv-cle 'points lu) (plv-bureau:plans-lus lu)
       (<= 0.0 (plv-distance (plv-cle 'cadre lu) point) (plv-cle 'longueur lu))
       (<= (cadr (plv-bureau:origine lu)) (cadr point) (+ (cadr (plv-bureau:origine lu)) (* 2.0 (plv-bureau:hauteur lu))))))

(defun plv-bureau-lecture (x y / lu lieu terrain)
  "Number, station, altitude, altitude of the ground and depth below it, as texts; nil beside every profile."
  (if (setq lu (car (vl-member-if '(lambda (l) (plv-bureau:contient-p l (list x y))) (plv-bureau:lus))))
    (progn
      (setq lieu (plv-vers-profil (plv-cle 'cadre lu) (list x y))
            terrain (plv-altitude-tn (plv-cle 'points lu) (car lieu)))
      (list (plv-cle 'numero lu)
            (plv-reel (+ (car lieu) (plv-cle 'origine lu)) 2)
            (plv-reel (cadr lieu) 2)
            (if terrain (plv-reel terrain 2) "")
            (if terrain (plv-reel (- terrain (cadr lieu)) 2) "")))))
