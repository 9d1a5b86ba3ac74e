;; What the window shows of profiles: the tree of its panel, the reading under the cursor, the fields of an entity.
;; Nothing here changes the drawing. What was read of the profiles is kept until plv-bureau-oublier.

(setq plv-bureau:arbre nil plv-bureau:lectures nil)

(defun plv-bureau-oublier () (setq plv-bureau:arbre nil plv-bureau:lectures nil))

;; --- the tree: (title handle children)

(defun plv-bureau:noeud (titre entite enfants) (list titre (if entite (plv-handle entite)) enfants))

(defun plv-bureau:groupe (titre enfants)
  (if enfants (list (plv-bureau:noeud (strcat titre " (" (itoa (length enfants)) ")") nil enfants))))

(defun plv-bureau:plans (profil / entite debut noeuds)
  (setq entite (plgxd profil "PRPC") debut 0.0)
  (while entite
    (setq noeuds (cons (plv-bureau:noeud (strcat (plv-reel (plgxd entite "PC") 2) " a partir de " (plv-reel debut 2)) entite nil) noeuds)
          debut (+ debut (plgxd entite "DISTANCE"))
          entite (plgxd entite "NEXT-PC")))
  (reverse noeuds))

(defun plv-bureau:elements (profil genre)
  (mapcar '(lambda (e) (plv-bureau:noeud (strcat (plv-cle 0 (entget e)) " " (plv-handle e)) e nil))
          (vl-remove-if-not '(lambda (e) (and e (entget e))) (plv-elements:enregistres profil genre))))

(defun plv-bureau:genres (profil / noeuds elements)
  (foreach genre (mapcar 'car plv-elements:genres)
    (if (setq elements (plv-bureau:elements profil genre))
      (setq noeuds (cons (plv-bureau:noeud (strcat genre " (" (itoa (length elements)) ")") nil elements) noeuds))))
  (reverse noeuds))

(defun plv-bureau:rangees (reference / record rang noeuds)
  "Rows by their labels, or by their names where the label is empty."
  (setq record (plv-enregistrement reference "INFO_MATRICE") rang 0)
  (repeat (plv-cle 90 record)
    (setq noeuds (cons (plv-bureau:noeud (plv-bureau:libelle (cdr (nth (+ 10 (* 8 rang)) record)) (cdr (nth (+ 6 (* 8 rang)) record)))
                                         reference nil)
                       noeuds)
          rang (1+ rang)))
  (reverse noeuds))

(defun plv-bureau:libelle (libelle nom) (if (= libelle "") nom libelle))

(defun plv-bureau:matrices (profil)
  (mapcar
    '(lambda (reference)
       (plv-bureau:noeud (plv-cle 300 (plv-enregistrement reference "INFO_MATRICE")) reference (plv-bureau:rangees reference)))
    (vl-remove-if-not 'entget (plv-tables:references profil))))

(defun plv-bureau:profil (profil)
  (plv-bureau:noeud
    (strcat "Profil " (plv-numero-profil profil)) profil
    (append (plv-bureau:groupe "Plans de comparaison" (plv-bureau:plans profil))
            (plv-bureau:groupe "Lignes" (plv-bureau:genres profil))
            (plv-bureau:groupe "Matrices" (plv-bureau:matrices profil)))))

(defun plv-bureau-profils ()
  (cond (plv-bureau:arbre) ((setq plv-bureau:arbre (mapcar 'plv-bureau:profil (plv-profils))))))

;; --- where a profile is, with its tables: (x1 y1 x2 y2); nil for another entity

(defun plv-bureau-boite (handle / profil lu haut bas)
  (if (and (setq profil (handent handle)) (member profil (plv-profils)))
    (progn
      (setq lu (car (vl-remove-if-not '(lambda (l) (eq (plv-cle 'profil l) profil)) (plv-bureau:lus)))
            haut (* (plv-cle 'echv lu) 1.2
                    (- (apply 'max (mapcar 'cadr (plv-cle 'points lu))) (apply 'min (mapcar 'cadr (plv-cle 'plans lu)))))
            bas (if (plv-tables:references profil) (* 0.4 (plv-cle 'longueur lu)) (* 0.05 (plv-cle 'longueur lu))))
      (list (- (plv-cle 'x lu) (* 0.15 (plv-cle 'longueur lu))) (- (plv-cle 'y lu) bas)
            (+ (plv-cle 'x lu) (* 1.05 (plv-cle 'longueur lu))) (+ (plv-cle 'y lu) haut)))))

;; --- the reading at a point

(defun plv-bureau:lire (profil / point infos)
  (setq point (plv-cle 10 (entget profil)) infos (pl_InfosTn profil))
  (list (cons 'profil profil) (cons 'numero (plv-numero-profil profil)) (cons 'x (car point)) (cons 'y (cadr point))
        (cons 'longueur (if infos (cadr infos) 0.0)) (cons 'echv (plgxd profil "ECHV"))
        (cons 'origine (plgxd profil "DCUMDEB")) (cons 'plans (plv-tables:plans profil)) (cons 'points (plv-points-tn profil))))

(defun plv-bureau:lus ()
  (cond (plv-bureau:lectures) ((setq plv-bureau:lectures (mapcar 'plv-bureau:lire (plv-profils))))))

(defun plv-bureau:contient (lu x y / d)
  "Over the profile: within its length, and not far below its planes or above its ground."
  (setq d (- x (plv-cle 'x lu)))
  (and (>= d 0.0) (<= d (plv-cle 'longueur lu))
       (>= y (plv-cle 'y lu))
       (<= y (+ (plv-cle 'y lu)
                (* 2.0 (plv-cle 'echv lu) (- (apply 'max (mapcar 'cadr (plv-cle 'points lu))) (apply 'min (mapcar 'cadr (plv-cle 'plans lu)))))))))

(defun plv-bureau-lecture (x y / lu d plan altitude terrain)
  "Number, station, altitude, altitude of the ground and depth below it, as texts; nil beside every profile."
  (setq lu (car (vl-remove-if-not '(lambda (l) (and (plv-cle 'points l) (plv-cle 'plans l) (plv-bureau:contient l x y))) (plv-bureau:lus))))
  (if lu
    (progn
      (setq d (- x (plv-cle 'x lu))
            plan (plv-plan-en (plv-cle 'plans lu) d)
            altitude (+ (cadr plan) (/ (- y (plv-cle 'y lu)) (plv-cle 'echv lu)))
            terrain (plv-altitude-tn (plv-cle 'points lu) d))
      (list (plv-cle 'numero lu)
            (plv-reel (+ d (cond ((plv-cle 'origine lu)) (0.0))) 2)
            (plv-reel altitude 2)
            (if terrain (plv-reel terrain 2) "")
            (if terrain (plv-reel (- terrain altitude) 2) "")))))

;; --- the ground file of a form, before there is a profile: ((distance altitude) ...)

(defun plv-bureau-terrain (chemin / terrain)
  (if (setq terrain (plv-lire-terrain chemin))
    (mapcar '(lambda (p) (list (car p) (cadr p))) (plv-cle 'points terrain))))

(defun plv-bureau-plans (chemin echv hauteur-max / terrain)
  (if (setq terrain (plv-lire-terrain chemin)) (plv-plans-proposes (plv-cle 'points terrain) echv hauteur-max)))

;; --- the fields of an entity: (name value)

(setq plv-bureau:champs
  '((0 . "Type") (5 . "Handle") (8 . "Calque") (62 . "Couleur") (6 . "Type de ligne") (48 . "Echelle de ligne") (370 . "Epaisseur")
    (1 . "Texte") (2 . "Nom") (7 . "Style") (10 . "Point") (11 . "Second point") (40 . "Hauteur ou rayon") (50 . "Angle")
    (51 . "Angle final") (41 . "Facteur X") (42 . "Courbure ou facteur Y") (43 . "Largeur") (38 . "Elevation") (70 . "Indicateurs")
    (90 . "Nombre de sommets")))

(defun plv-bureau:texte (valeur)
  (cond ((= (type valeur) 'STR) valeur)
        ((= (type valeur) 'REAL) (rtos valeur 2 4))
        ((= (type valeur) 'ENAME) (plv-handle valeur))
        ((and (listp valeur) (vl-every 'numberp valeur)) (plv-joindre (mapcar '(lambda (v) (rtos v 2 4)) valeur) " ; "))
        (T (vl-princ-to-string valeur))))

(defun plv-bureau:application (donnees / champs cle)
  "Keys of an application: texts that are followed by their value; or its values one by one."
  (setq champs (list (list (strcat "[" (car donnees) "]") "")) donnees (cdr donnees))
  (while donnees
    (if (and (= (caar donnees) 1000) (cdr donnees))
      (setq champs (cons (list (cdar donnees) (plv-bureau:texte (cdadr donnees))) champs) donnees (cddr donnees))
      (setq champs (cons (list (itoa (caar donnees)) (plv-bureau:texte (cdar donnees))) champs) donnees (cdr donnees))))
  (reverse champs))

(defun plv-bureau:reduire (champs nombre / resultat)
  "The first so many fields, with a last one that says how many are left."
  (if (<= (length champs) nombre)
    champs
    (progn
      (while (and champs (> nombre 0)) (setq resultat (cons (car champs) resultat) champs (cdr champs) nombre (1- nombre)))
      (reverse (cons (list "..." (strcat (itoa (length champs)) " autres")) resultat)))))

(defun plv-bureau-proprietes (handle / entite groupes champs nom)
  (if (setq entite (handent handle))
    (progn
      (setq groupes (entget entite '("*")))
      (foreach g groupes
        (if (setq nom (plv-cle (car g) plv-bureau:champs))
          (setq champs (cons (list nom (plv-bureau:texte (cdr g))) champs))))
      (append (plv-bureau:reduire (reverse champs) 40)
              (apply 'append
                (mapcar '(lambda (a) (plv-bureau:reduire (plv-bureau:application a) 40)) (cdr (assoc -3 groupes))))))))
