;; What is written beside the match lines of a sheet: station, plane, and the sheet that goes on; upwards from the plane, in one line where
;; the profile is high enough, else in two.

(setq plv-mentions:hauteur 2.5 plv-mentions:interligne 4.0 plv-mentions:jeu 1.5)

(defun plv-mentions:lignes (profil d suite place / debut fin)
  "The lines of a mention for so many millimetres of height."
  (setq debut (strcat "Station " (plv-reel (+ (plv-premiere-station profil) d) 2))
        fin (strcat "PC " (plv-reel (plv-plan-altitude (plv-plan-en (plv-plans profil) d)) 2) "  -  feuille " (itoa suite)))
  (if (<= (plv-largeur-texte (strcat debut "  -  " fin) plv-mentions:hauteur) place)
    (list (strcat debut "  -  " fin))
    (list debut fin)))

(defun plv-mention (profil d suite) "All of it in one line." (car (plv-mentions:lignes profil d suite 1e6)))

(defun plv-mentions:ecrire (lignes x y / dessins)
  "Lines from left to right, the first one's feet at an abscissa."
  (foreach l lignes
    (setq dessins (cons (list "T" plv-mentions:hauteur 0 l x y (* 0.5 pi)) dessins) x (+ x plv-mentions:interligne)))
  (reverse dessins))

(defun plv-mentions:a-gauche (feuille placement vue lignes y / x)
  "Left of the altitudes of the axis."
  (setq x (- vue (* (car placement) (car (nth 4 feuille))) plv-mentions:jeu))
  (plv-mentions:ecrire lignes (- x (* plv-mentions:interligne (1- (length lignes)))) y))

(defun plv-mentions (mesures feuille place debut fin rang / profil placement vues bord y haut)
  "What is drawn on the paper of a sheet between two cuts, nil for an end of the profile."
  (setq profil (plv-cle 'profil mesures) placement (plv-presentations:placer feuille place) vues (1- (length (cadr feuille)))
        y (+ (- (plv-presentations:y placement (plv-cle 'y0 mesures)) (plv-place-bas place)) plv-mentions:jeu)
        haut (* (car placement) (- (plv-cle 'haut mesures) (plv-cle 'y0 mesures)))
        bord '(lambda (abscisse) (- (plv-presentations:x feuille placement vues abscisse) (plv-place-gauche place))))
  (append
    (if debut
      (plv-mentions:a-gauche feuille placement (apply bord (list (car (plv-dernier (cadr feuille)))))
        (plv-mentions:lignes profil debut (1- rang) haut) y))
    (if fin
      (plv-mentions:ecrire (plv-mentions:lignes profil fin (1+ rang) haut)
        (+ (apply bord (list (caddr (plv-dernier (cadr feuille))))) plv-mentions:jeu plv-mentions:hauteur) y))))
