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

(defun plv-optimal:sans-contraintes (methode contraintes)
  "The constraints; the search by splitting knows none."
  (if (and contraintes (= methode "Recherche")) (plv-dire "La méthode Recherche ne connaît que les deux profondeurs."))
  contraintes)

;; how a line is to be found: (method constraints prices variant least-depth step-of-round-slopes)
(defun plv-maniere-methode (maniere) (car maniere))
(defun plv-maniere-contraintes (maniere) (cadr maniere))
(defun plv-maniere-prix (maniere) (caddr maniere))
(defun plv-maniere-variante (maniere) (cadddr maniere))
(defun plv-maniere-minimum (maniere) (nth 4 maniere))
(defun plv-maniere-pas (maniere) (nth 5 maniere))

(defun plv-optimal:demander-maniere (/ methode contraintes prix variante pas reponse)
  (setq methode "Sommets")
  (while (not (numberp reponse))
    (initget "Méthode Contraintes Variante Rondes")
    (setq reponse
      (plv-optimal:demander-profondeur "Profondeur minimale (un nombre négatif est une surélévation) ou [Méthode/Contraintes/Variante/Rondes]" 0.8))
    (cond
      ((= reponse "Méthode")
       (setq methode (plv-demander-mot "Méthode" '("Sommets" "Coût" "Approchée" "Recherche") methode))
       (if (= methode "Coût") (setq prix (plv-demander-prix))))
      ((= reponse "Contraintes") (setq contraintes (plv-demander-contraintes)))
      ((= reponse "Rondes") (setq pas (* 0.01 (plv-demander-reel "Pentes rondes si possible, multiples en % de" 0.1))))
      ((= reponse "Variante")
       (setq variante (not variante))
       (plv-dire (if variante "La ligne sera gardée comme variante." "La ligne sera attachée au profil.")))))
  (list methode (plv-optimal:sans-contraintes methode contraintes) prix variante reponse pas))

(defun plv-optimal:a-remplacer (profil genre / deja)
  "The entities that the new line replaces: those of the kind's project line, unless they are to stay."
  (setq deja (plv-elements-du-projet profil genre))
  (if (and deja (= (plv-demander-mot (strcat "Il y a déjà une ligne " genre) '("Remplacer" "Garder") "Remplacer") "Remplacer"))
    deja))

(defun plv-optimal:dessiner-p (question) (= (plv-demander-mot question '("Oui" "Non") "Non") "Oui"))

(defun plv-optimal:faire (maniere profil genre depart arrivee maximum / methode minimum souhait)
  "Asks whether to show how the line was found, and has it found."
  (setq methode (plv-maniere-methode maniere)
        minimum (plv-maniere-minimum maniere)
        souhait (plv-souhait depart arrivee minimum maximum (plv-maniere-contraintes maniere) (= methode "Approchée")))
  (if (plv-maniere-variante maniere) (setq souhait (plv-souhait-en-variante souhait)))
  (if (plv-maniere-pas maniere) (setq souhait (plv-souhait-rond souhait (plv-maniere-pas maniere))))
  (cond
    ((and (plv-maniere-variante maniere) (not (plv-optimal:place-variante-p profil))) nil)
    ((= methode "Recherche")
     (plv-optimal-recherche profil genre souhait (plv-optimal:dessiner-p "Garder le tracé de la recherche")))
    ((= methode "Coût") (plv-optimal-cout profil genre souhait (plv-maniere-prix maniere)))
    (T (plv-optimal-sommets profil genre souhait (plv-optimal:dessiner-p "Dessiner le couloir et ses fenêtres")))))

(defun c:plv-optimal (/ profil genre anciens maniere libre depart arrivee maximum milieu)
  "Propose la ligne de projet la meilleure dans une bande de profondeurs."
  (if (and (setq profil (plv-choisir-profil)) (or (cdr (plv-points-tn profil)) (plv-erreur (plv-refus-sans-terrain))))
    (progn
      (setq genre (plv-demander-genre-projet "Assainissement")
            anciens (plv-optimal:a-remplacer profil genre)
            maniere (plv-optimal:demander-maniere)
            maximum (plv-optimal:demander-profondeur "Profondeur maximale" 1.6)
            milieu (plv-milieu (list (plv-maniere-minimum maniere) maximum))
            libre (/= (plv-maniere-methode maniere) "Recherche")
            depart (plv-optimal:bout profil "du départ" (car (car (plv-points-tn profil))) milieu libre)
            arrivee (plv-optimal:bout profil "de l'arrivée" (plv-longueur-profil profil) milieu libre))
      (if (and (plv-optimal:faire maniere profil genre depart arrivee maximum) (not (plv-maniere-variante maniere)))
        (plv-effacer-courbes profil anciens))))
  (princ))
