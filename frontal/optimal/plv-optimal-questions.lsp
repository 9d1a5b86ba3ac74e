;; The command PLV-OPTIMAL: its questions.
;; The depths come first: in the middle of their band stand the ends that are proposed. An end is a station and a depth below the
;; ground there, or a point picked in the profile's graphic.

(defun plv-optimal:bout (profil question d profondeur / origine reponse couple bout)
  "An end of the line as (distance altitude); Enter takes the distance and the depth."
  (setq origine (plv-premiere-station profil)
        question (strcat "Station,profondeur " question " ou [Pointer] <" (plv-reel (+ origine d) 2) "," (plv-reel profondeur 2) ">"))
  (while (not bout)
    (setq reponse (plv-demander-texte question nil)
          couple (plv-couple reponse)
          bout
           (cond
             ((= reponse "") (plv-optimal:sous-terrain profil d profondeur))
             ((member (strcase reponse) '("P" "POINTER")) (plv-optimal:pointer profil (getpoint "\nPoint du profil: ")))
             (couple (plv-optimal:sous-terrain profil (- (car couple) origine) (cadr couple)))
             (T (plv-dire-couple) nil))))
  bout)

(defun plv-optimal:dans (profil bout)
  "The end, or nil after a message for one beside the profile."
  (cond
    ((<= -1e-6 (car bout) (+ (plv-longueur-profil profil) 1e-6)) bout)
    (T
     (plv-dire (strcat "Les stations du profil vont de " (plv-reel (plv-premiere-station profil) 2) " à "
                       (plv-reel (+ (plv-premiere-station profil) (plv-longueur-profil profil)) 2) "."))
     nil)))

(defun plv-optimal:sous-terrain (profil d profondeur)
  (if (plv-optimal:dans profil (list d 0.0))
    (list d (- (plv-altitude-ligne (plv-points-tn profil) d) profondeur))))

(defun plv-optimal:pointer (profil point)
  "A point of the drawing as (distance altitude)."
  (if point (plv-optimal:dans profil (plv-vers-profil (plv-cadre profil) point))))

(defun plv-optimal:demander-profondeur (question defaut / reponse)
  (setq reponse (getreal (strcat "\n" question " <" (plv-reel defaut 2) ">: ")))
  (cond (reponse) (defaut)))

(defun plv-optimal:a-remplacer (profil genre / deja)
  "The entities that the new line replaces: those of the kind's project line, unless they are to stay."
  (setq deja (plv-elements-du-projet profil genre))
  (if (and deja (= (plv-demander-mot (strcat "Il y a déjà une ligne " genre) '("Remplacer" "Garder") "Remplacer") "Remplacer"))
    deja))

(defun c:plv-optimal (/ profil genre anciens depart arrivee minimum maximum garder)
  "Propose la ligne de projet la meilleure sous des contraintes de pente et de profondeur."
  (if (and (setq profil (plv-choisir-profil)) (or (cdr (plv-points-tn profil)) (plv-erreur (plv-refus-sans-terrain))))
    (progn
      (setq genre (plv-demander-genre-projet "Assainissement")
            anciens (plv-optimal:a-remplacer profil genre)
            minimum (plv-optimal:demander-profondeur "Profondeur minimale (un nombre négatif est une surélévation)" 0.8)
            maximum (plv-optimal:demander-profondeur "Profondeur maximale" 1.6)
            depart (plv-optimal:bout profil "du départ" (car (car (plv-points-tn profil))) (plv-milieu (list minimum maximum)))
            arrivee (plv-optimal:bout profil "de l'arrivée" (plv-longueur-profil profil) (plv-milieu (list minimum maximum)))
            garder (= (plv-demander-mot "Garder le tracé de la recherche" '("Oui" "Non") "Non") "Oui"))
      (if (plv-optimal profil genre depart arrivee minimum maximum garder) (plv-effacer-courbes profil anciens))))
  (princ))
