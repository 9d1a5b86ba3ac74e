;; PLV-LEVE: one point of the ground corrected, inserted, taken away or named. The record changes first, then the ground lines and the
;; dressing are drawn of it; what was made of the ground is not up to date then.
;; Shared in the room: plv-leve:changes plv-leve:faute plv-leve:rang

(defun plv-leve:rang (points d / rang trouve)
  "The number, from 0, of the point at a distance, to the centimetre; nil for none. Of two there, as at a wall, the first one."
  (setq rang 0)
  (foreach p points
    (if (and (not trouve) (equal (car p) d 0.005)) (setq trouve rang))
    (setq rang (1+ rang)))
  trouve)

(defun plv-leve:voisins (points d origine / avant apres)
  "The stations of the points on both sides of a distance, in words."
  (foreach p points (if (< (car p) d) (setq avant p) (if (not apres) (setq apres p))))
  (plv-joindre (mapcar '(lambda (p) (plv-reel (+ origine (car p)) 3)) (vl-remove nil (list avant apres))) " et "))

(defun plv-leve:faute (operation points d rang altitude origine)
  "The text of what can't be done, nil for nothing."
  (cond
    ((and (/= operation "I") (not rang))
     (strcat "il n'y a pas de point du terrain à cette station; ses voisins sont à " (plv-leve:voisins points d origine)))
    ((and (member operation '("I" "C")) (not (numberp altitude))) "l'altitude du point est attendue")
    ((and (= operation "I") rang) "il y a déjà un point du terrain à cette station")
    ((and (= operation "I") (not (< 0.0 d (car (plv-dernier points))))) "la station n'est pas dans le profil")
    ((and (= operation "S") (member rang (list 0 (1- (length points))))) "le premier et le dernier point font la longueur du profil, ils restent")))

(defun plv-leve:remplacer (points rang point / i resultat)
  "The points with another one in the place of one; nil takes it away."
  (setq i 0)
  (foreach p points
    (setq resultat (cond ((/= i rang) (cons p resultat)) (point (cons point resultat)) (resultat)) i (1+ i)))
  (reverse resultat))

(defun plv-leve:inserer (points point / avant)
  (while (< (car (car points)) (car point)) (setq avant (cons (car points) avant) points (cdr points)))
  (append (reverse avant) (cons point points)))

(defun plv-leve:changes (operation points d rang altitude nom / ancien)
  "The points (distance altitude name) after the operation."
  (setq ancien (if rang (nth rang points)))
  (cond
    ((= operation "I") (plv-leve:inserer points (list d altitude (cond (nom) ("")))))
    ((= operation "S") (plv-leve:remplacer points rang nil))
    ((= operation "C") (plv-leve:remplacer points rang (list (car ancien) altitude (plv-point-nom ancien))))
    (T (plv-leve:remplacer points rang (list (car ancien) (cadr ancien) (cond (nom) ("")))))))

(defun plv-leve (profil operation station altitude nom / points d rang faute)
  "Corrects (\"C\"), inserts (\"I\"), takes away (\"S\") or names (\"N\") the ground point at a station. Gives the profile, or nil after a
message."
  (if (plv-profil-sain profil)
    (progn
      (setq points (plv-points-nommes profil) d (- (float station) (plv-premiere-station profil))
            altitude (if altitude (float altitude)) rang (plv-leve:rang points d)
            faute (plv-leve:faute operation points d rang altitude (plv-premiere-station profil)))
      (if faute
        (plv-erreur faute)
        (plv-leve:ecrire profil (plv-leve:changes operation points d rang altitude nom))))))

(defun plv-leve:ecrire (profil points)
  (plv-ecrire-terrain profil points)
  (plv-ecrire-noms profil points)
  (plv-retracer-terrain profil)
  (if (plv-entites-habillage profil) (plv-rehabiller profil))
  (plv-dire (strcat "Terrain naturel: " (plv-compte (length points) "point") "."))
  profil)

;; --- the command

(defun plv-leve:proposee (profil d)
  "Of the ground at a distance."
  (cond ((plv-altitude-tn (plv-points-tn profil) d)) (0.0)))

(defun c:plv-leve (/ profil operation station altitude nom)
  "Corrige, insère, supprime ou nomme un point du terrain naturel d'un profil, ou prend le terrain d'un nouveau levé."
  (if (setq profil (plv-choisir-profil))
    (setq operation (substr (plv-demander-mot "Point du terrain" '("Corriger" "Insérer" "Supprimer" "Nommer" "Remplacer") "Corriger") 1 1)))
  (cond
    ((not operation))
    ((= operation "R") (plv-remplacer-demander profil))
    (T
      (setq station (plv-demander-nombre "Station"))
      (if (member operation '("C" "I"))
        (setq altitude (plv-demander-nombre-libre "Altitude" (plv-leve:proposee profil (- station (plv-premiere-station profil))) 3)))
      (if (member operation '("I" "N")) (setq nom (plv-demander-texte "Nom du point" "")))
      (plv-leve profil operation station altitude nom)))
  (princ))
