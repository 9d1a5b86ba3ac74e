;; PLV-STYLE: a style for the drawing and all its profiles; and what the style adds to a profile, each time that its dressing is drawn.
;; Shared in the room: plv-style:echelle-proposee

(defun plv-presentation:autour (profil / obstacles lignes hauts)
  "Labels and altitudes around the lines; the top of what is drawn, nil for nothing above the profile."
  (setq lignes (plv-boites-lignes profil)
        obstacles (append (plv-boites-textes profil) (plv-fond-axes profil (append (plv-boites-textes profil) lignes (plv-boites-traits-reseaux profil)))))
  (setq hauts (vl-remove nil (cons (plv-poser-libelles profil (plv-libelles profil) obstacles lignes)
                               (append (plv-hauts-reseaux profil) (mapcar '(lambda (b) (plv-boite-haut (plv-boite b))) (plv-blocs profil))))))
  (if hauts (apply 'max hauts)))

(defun plv-presentation (profil)
  "What the style adds to a profile. The top of it."
  (if (plv-style-nom)
    (progn
      (plv-ranger-lignes profil)
      (if (plv-style-sol) (plv-fond-sol profil))
      (if (plv-style-grille) (plv-fond-grille profil))
      (plv-noter-fait profil "HABILLAGE" nil nil nil)
      (plv-presentation:autour profil))))

(defun plv-presentation:entrees (profil)
  "What the legend of lines is to show: where the style wants one; without a style, where there is a project line to tell apart."
  (if (if (plv-style-nom) (plv-style-legende-p) (plv-genres-du-projet profil)) (plv-legende-lignes-entrees profil)))

(defun plv-presentation-titre (profil y / entrees)
  "What stands above the title, from an ordinate on."
  (if (setq entrees (plv-presentation:entrees profil)) (plv-legende-lignes profil entrees y)))

(defun plv-presentation-lignes (profil / titre)
  "The legend anew where lines have come or gone, in a profile that has its dressing."
  (if (and (setq titre (plv-cle 10 (plv-attribut-profil profil "TITRE"))) (plv-entites-habillage profil)
           (or (plv-legende-lignes-perdue-p profil) (not (plv-legende-lignes-juste-p profil (plv-presentation:entrees profil)))))
    (progn
      (plv-effacer (plv-entites-legende-lignes profil))
      (plv-habillage-avec profil (plv-legende-lignes profil (plv-presentation:entrees profil) (+ (cadr titre) (* 3.5 (plv-ttxt profil))))))))

(defun plv-presentation-attachee (profil genre)
  (if (member genre (plv-genres-projet)) (plv-ranger-genre profil genre))
  (plv-presentation-lignes profil))

(plv-brancher 'presentation 'plv-presentation)
(plv-brancher 'titre 'plv-presentation-titre)
(plv-brancher 'lignes 'plv-presentation-lignes)
(plv-brancher 'effacees '(lambda (profil) (if (plv-legende-lignes-perdue-p profil) (plv-presentation-lignes profil))))
(plv-brancher 'attachee 'plv-presentation-attachee)
(plv-brancher 'tables 'plv-cadrer-tables)

;; --- the command

(defun plv-style:textes-au-papier (profil)
  "The profile's text height, so that its texts have the height of the style on paper."
  (plsxd profil "TTXT" (plv-mm (plv-style-hauteur))))

(defun plv-style:appliquer (profils nom gris echelle rangees)
  "The record, what is made of it, and the dressing of each profile."
  (plv-style:ecrire nom gris echelle rangees)
  (plv-creer-calques)
  (plv-habiller-calques)
  (plv-habiller-texte)
  (foreach p profils
    (plv-style:textes-au-papier p)
    (if (plv-entites-habillage p) (plv-rehabiller p))))

(defun plv-style (nom gris echelle / chemin rangees profils)
  "Gives the drawing a style for a scale of the paper; what else is made with the height and the font of texts is made anew, and keeps what
hands have done to it. nil after a message."
  (setq profils (plv-profils))
  (if (and (setq chemin (plv-fichier-de-style nom)) (setq rangees (plv-lire-style chemin)) (vl-every 'plv-profil-sain profils)
           (plv-actualiser-apres profils '(lambda () (plv-style:appliquer profils nom gris echelle rangees))))
    (progn
      (plv-dire (strcat "Style " nom ": textes de " (plv-reel (plv-style-hauteur) 1) " mm au 1:" (plv-reel echelle 0) ", "
                        (plv-compte (length profils) "profil") "."))
      nom)))

(defun plv-style:echelle-proposee (/ profils)
  (cond ((plv-style-echelle))
        ((setq profils (plv-profils)) (/ (* 1000.0 (plv-ttxt (car profils))) 2.5))
        (1000.0)))

(defun c:plv-style (/ nom gris)
  "Donne au dessin un style: couleurs, traits, épaisseurs et textes, grille, libellés et cadres des profils."
  (setq nom (plv-demander-mot "Style" '("Route" "Assainissement" "Eau-potable" "Monochrome" "Fichier") "Route"))
  (if (= nom "Fichier") (setq nom (plv-demander-texte "Fichier du style, ou nom d'un style à soi" nil)))
  (setq gris (= (plv-demander-mot "Tracé en" '("Couleurs" "Gris") "Couleurs") "Gris"))
  (plv-style nom gris (plv-demander-reel "Dénominateur de l'échelle du papier" (plv-style:echelle-proposee)))
  (princ))
