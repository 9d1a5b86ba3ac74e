;; The command PLV-OPTIMAL: its questions.
;; The depths come first: in the middle of their band stand the ends that are proposed. An end is a station and a depth below the
;; ground there, a point picked in the profile's graphic, or free in the band. The first question also takes the method and
;; constraints; the last one shows how the line was found, so that a script's answers serve every method.

(defun plv-optimal:bout (profil question d profondeur libre / origine reponse bout)
  "An end of the line as (distance altitude), or as (distance) for a free one; Enter takes the distance and the depth."
  (setq origine (plv-premiere-station profil)
        question (strcat "Station,profondeur " question " ou [Pointer" (if libre "/Libre" "") "] <" (plv-reel (+ origine d) 2) ","
                         (plv-reel profondeur 2) ">"))
  (while (not bout)
    (setq reponse (plv-demander-texte question nil)
          bout
           (cond
             ((= reponse "") (plv-optimal:sous-terrain profil d profondeur))
             ((member (strcase reponse) '("P" "POINTER")) (plv-optimal:pointer profil (getpoint "\nPoint du profil: ")))
             ((and libre (member (strcase reponse) '("L" "LIBRE"))) (list d))
             ((plv-optimal:couple profil reponse origine libre)))))
  bout)

(defun plv-optimal:couple (profil reponse origine libre / couple)
  "An end typed as station,depth, or as station,Libre."
  (cond
    ((setq couple (plv-couple reponse)) (plv-optimal:sous-terrain profil (- (car couple) origine) (cadr couple)))
    ((and libre (setq couple (plv-couple (strcat (vl-string-right-trim "LIBRElibre" reponse) "0"))))
     (plv-optimal:dans profil (list (- (car couple) origine))))
    (T (plv-dire-couple) nil)))

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

(defun plv-optimal:demander-minimum (/ methode contraintes reponse)
  "(method constraints least-depth)."
  (setq methode "Sommets")
  (while (not (numberp reponse))
    (initget "Méthode Contraintes")
    (setq reponse
      (plv-optimal:demander-profondeur "Profondeur minimale (un nombre négatif est une surélévation) ou [Méthode/Contraintes]" 0.8))
    (cond
      ((= reponse "Méthode") (setq methode (plv-demander-mot "Méthode" '("Sommets" "Approchée" "Recherche") methode)))
      ((= reponse "Contraintes") (setq contraintes (plv-demander-contraintes)))))
  (list methode contraintes reponse))

(defun plv-optimal:a-remplacer (profil genre / deja)
  "The entities that the new line replaces: those of the kind's project line, unless they are to stay."
  (setq deja (plv-elements-du-projet profil genre))
  (if (and deja (= (plv-demander-mot (strcat "Il y a déjà une ligne " genre) '("Remplacer" "Garder") "Remplacer") "Remplacer"))
    deja))

(defun plv-optimal:dessiner-p (question) (= (plv-demander-mot question '("Oui" "Non") "Non") "Oui"))

(defun plv-optimal:faire (methode contraintes profil genre depart arrivee minimum maximum)
  "Asks whether to show how the line was found, and has it found."
  (if (= methode "Recherche")
    (plv-optimal profil genre depart arrivee minimum maximum (plv-optimal:dessiner-p "Garder le tracé de la recherche"))
    (plv-optimal-sommets profil genre
      (plv-souhait depart arrivee minimum maximum contraintes (= methode "Approchée"))
      (plv-optimal:dessiner-p "Dessiner le couloir et ses fenêtres"))))

(defun plv-optimal:sans-contraintes (methode contraintes)
  "The constraints; the search by splitting knows none."
  (if (and contraintes (= methode "Recherche")) (plv-dire "La méthode Recherche ne connaît que les deux profondeurs."))
  contraintes)

(defun c:plv-optimal (/ profil genre anciens methode contraintes libre depart arrivee minimum maximum milieu)
  "Propose la ligne de projet la meilleure dans une bande de profondeurs."
  (if (and (setq profil (plv-choisir-profil)) (or (cdr (plv-points-tn profil)) (plv-erreur (plv-refus-sans-terrain))))
    (progn
      (setq genre (plv-demander-genre-projet "Assainissement")
            anciens (plv-optimal:a-remplacer profil genre)
            minimum (plv-optimal:demander-minimum)
            methode (car minimum)
            contraintes (plv-optimal:sans-contraintes methode (cadr minimum))
            minimum (caddr minimum)
            maximum (plv-optimal:demander-profondeur "Profondeur maximale" 1.6)
            milieu (plv-milieu (list minimum maximum))
            libre (/= methode "Recherche")
            depart (plv-optimal:bout profil "du départ" (car (car (plv-points-tn profil))) milieu libre)
            arrivee (plv-optimal:bout profil "de l'arrivée" (plv-longueur-profil profil) milieu libre))
      (if (plv-optimal:faire methode contraintes profil genre depart arrivee minimum maximum) (plv-effacer-courbes profil anciens))))
  (princ))
