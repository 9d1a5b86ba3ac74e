;; The command PLV-OPTIMAL: its questions.
;; An end is a station and a depth below the ground there, or a point picked in the profile's graphic.

(defun plv-optimal:bout (profil question d / origine reponse couple bout)
  "An end of the line as (distance altitude); Enter takes the distance d, a metre below the ground."
  (setq origine (plgxd profil "DCUMDEB")
        question (strcat "Station,profondeur " question " ou [Pointer] <" (plv-reel (+ origine d) 2) ",1.00>"))
  (while (not bout)
    (setq reponse (plv-demander-texte question nil)
          couple (mapcar 'plv-nombre (plv-couper reponse ","))
          bout
           (cond
             ((= reponse "") (plv-optimal:sous-terrain profil d 1.0))
             ((member (strcase reponse) '("P" "POINTER")) (plv-optimal:pointer profil (getpoint "\nPoint du profil: ")))
             ((and (= (length couple) 2) (not (member nil couple)))
              (plv-optimal:sous-terrain profil (- (car couple) origine) (cadr couple)))
             (T (plv-dire "Deux nombres separes par une virgule sont attendus, avec un point decimal.") nil))))
  bout)

(defun plv-optimal:dans (profil bout)
  "The end, or nil after a message for one beside the profile."
  (cond
    ((<= -1e-6 (car bout) (+ (cadr (pl_InfosTn profil)) 1e-6)) bout)
    (T
     (plv-dire (strcat "Les stations du profil vont de " (plv-reel (plgxd profil "DCUMDEB") 2) " a "
                       (plv-reel (+ (plgxd profil "DCUMDEB") (cadr (pl_InfosTn profil))) 2) "."))
     nil)))

(defun plv-optimal:sous-terrain (profil d profondeur)
  (if (plv-optimal:dans profil (list d 0.0))
    (list d (- (plv-metres:altitude (plv-points-tn profil) d) profondeur))))

(defun plv-optimal:pointer (profil point / origine d)
  "A point of the drawing as (distance altitude)."
  (if point
    (progn
      (setq origine (plv-cle 10 (entget profil)) d (- (car point) (car origine)))
      (plv-optimal:dans profil
        (list d (+ (cadr (plv-plan-en (plv-tables:plans profil) d)) (/ (- (cadr point) (cadr origine)) (plgxd profil "ECHV"))))))))

(defun plv-optimal:profondeur (question defaut / reponse)
  (setq reponse (getreal (strcat "\n" question " <" (plv-reel defaut 2) ">: ")))
  (cond (reponse) (defaut)))

(defun plv-optimal:a-remplacer (profil genre / deja)
  "The entities that the new line replaces: those of the kind's project line, unless they are to stay."
  (setq deja (plv-elements-du-projet profil genre))
  (if (and deja (= (plv-demander-mot (strcat "Il y a deja une ligne " genre) '("Remplacer" "Garder") "Remplacer") "Remplacer"))
    deja))

(defun c:plv-optimal (/ profil genre anciens depart arrivee minimum maximum garder)
  (if (and (setq profil (plv-choisir-profil)) (or (cdr (plv-points-tn profil)) (plv-erreur "ce profil n'a pas de terrain naturel")))
    (progn
      (setq genre (plv-metres:demander-genre "Assainissement")
            anciens (plv-optimal:a-remplacer profil genre)
            depart (plv-optimal:bout profil "du depart" (car (car (plv-points-tn profil))))
            arrivee (plv-optimal:bout profil "de l'arrivee" (cadr (pl_InfosTn profil)))
            minimum (plv-optimal:profondeur "Profondeur minimale (un nombre negatif est une surelevation)" 0.8)
            maximum (plv-optimal:profondeur "Profondeur maximale" 1.6)
            garder (= (plv-demander-mot "Garder le trace de la recherche" '("Oui" "Non") "Non") "Oui"))
      (if (plv-optimal profil genre depart arrivee minimum maximum garder) (plv-effacer anciens))))
  (princ))
