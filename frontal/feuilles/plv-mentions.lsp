;; What is written beside the match lines of a sheet: station, plane, and the sheet that goes on; upwards from the plane, in one line where
;; the profile is high enough, else in two.

;; plus: how far beyond the room of a template, within its frame
(setq plv-mentions:hauteur 2.5 plv-mentions:interligne 4.0 plv-mentions:jeu 1.5 plv-mentions:plus 10.0)

(defun plv-mentions:plan (profil d face)
  "The plane at a cut, face -1 of the sheet that ends there, 1 of the one that begins: a change of planes may stand at it."
  (plv-plan-en (plv-plans profil) (if (> face 0) (+ d 1e-6) d)))

(defun plv-mentions:lignes (profil d face suite place / debut fin)
  "The lines of a mention for so many millimetres of height."
  (setq debut (strcat "Station " (plv-reel (+ (plv-premiere-station profil) d) 2))
        fin (strcat "PC " (plv-reel (plv-plan-altitude (plv-mentions:plan profil d face)) 2) "  -  feuille " (itoa suite)))
  (if (<= (plv-largeur-texte (strcat debut "  -  " fin) plv-mentions:hauteur) place)
    (list (strcat debut "  -  " fin))
    (list debut fin)))

(defun plv-mention (profil d face suite) "All of it in one line." (car (plv-mentions:lignes profil d face suite 1e6)))

(defun plv-mentions:ecrire (lignes x y / dessins)
  "Lines from left to right, the first one's feet at an abscissa."
  (foreach l lignes
    (setq dessins (cons (list "T" plv-mentions:hauteur 0 l x y (* 0.5 pi)) dessins) x (+ x plv-mentions:interligne)))
  (reverse dessins))

;; --- both edges of a sheet: its placing and the number of its view, see plv-presentations

(defun plv-mentions:x (feuille placement place abscisse)
  "Of an abscissa of the drawing, in millimetres from the left of the room."
  (- (plv-presentations:x feuille placement (1- (length (cadr feuille))) abscisse) (plv-place-gauche place)))

(defun plv-mentions:y (placement place ordonnee) (- (plv-presentations:y placement ordonnee) (plv-place-bas place)))

(defun plv-mentions:haut (mesures placement) "The height of the profile on paper." (* (car placement) (- (plv-cle 'haut mesures) (plv-cle 'y0 mesures))))

(defun plv-mentions:largeur (lignes) (+ (* 2.0 plv-mentions:jeu) plv-mentions:hauteur (* plv-mentions:interligne (1- (length lignes)))))

(defun plv-mentions:a-la-coupe (mesures placement d face suite)
  "The lines at a cut."
  (plv-mentions:lignes (plv-cle 'profil mesures) d face suite (plv-mentions:haut mesures placement)))

(defun plv-mentions:bord-gauche (mesures d axe)
  "The edge after a cut: labels over the axis may hang over its altitudes."
  (plv-bord d (plv-cle 'recouvrement mesures) -1 (car axe) (caddr axe)))

(defun plv-mentions:bord-droit (mesures feuille placement place fin rang / x)
  "The edge before a cut: labels may hang over it as far as what is written at it stays within the frame."
  (setq x (plv-mentions:x feuille placement place (caddr (plv-dernier (cadr feuille)))))
  (plv-bord fin (plv-cle 'recouvrement mesures) 1
    (/ (- (+ (plv-place-largeur place) plv-mentions:plus) x (plv-mentions:largeur (plv-mentions:a-la-coupe mesures placement fin -1 (1+ rang)))) (car placement))
    (plv-cle 'y0 mesures)))

(defun plv-mentions:textes (mesures feuille placement place bord face)
  (plv-bords mesures bord face
    '(lambda (p) (list (plv-mentions:x feuille placement place (car p)) (plv-mentions:y placement place (cadr p)))) (car placement)))

(defun plv-mentions:a-gauche (mesures feuille avant placement place debut rang / lignes k)
  "At the edge after a cut, avant: the sheet before. What is written stands left of the altitudes of the axis."
  (setq lignes (plv-mentions:a-la-coupe mesures placement debut 1 (1- rang)) k (car placement))
  (append
    (plv-mentions:textes mesures feuille placement place (plv-mentions:bord-gauche mesures debut (nth 4 feuille))
      (plv-mentions:bord-droit mesures avant (plv-presentations:placer avant place) place debut (1- rang)))
    (plv-mentions:ecrire lignes
      (- (plv-mentions:x feuille placement place (car (plv-dernier (cadr feuille)))) (* k (car (nth 4 feuille))) plv-mentions:jeu
         (* plv-mentions:interligne (1- (length lignes))))
      (+ (plv-mentions:y placement place (plv-cle 'y0 mesures)) plv-mentions:jeu))))

(defun plv-mentions:a-droite (mesures feuille placement place fin rang / bord)
  "At the edge before a cut: what is written stands right of texts that hang over it."
  (setq bord (plv-mentions:bord-droit mesures feuille placement place fin rang))
  (append
    (plv-mentions:textes mesures feuille placement place bord (plv-mentions:bord-gauche mesures fin (plv-encarts-axe mesures fin)))
    (plv-mentions:ecrire (plv-mentions:a-la-coupe mesures placement fin -1 (1+ rang))
      (+ (plv-mentions:x feuille placement place (caddr (plv-dernier (cadr feuille)))) (* (car placement) (plv-bords-debord mesures bord)) plv-mentions:jeu
         plv-mentions:hauteur)
      (+ (plv-mentions:y placement place (plv-cle 'y0 mesures)) plv-mentions:jeu))))

(defun plv-coupes (mesures feuille avant place debut fin rang / placement)
  "What is drawn on the paper of a sheet between two cuts, nil for an end of the profile, and the entities that it doesn't show. avant: the sheet before."
  (setq placement (plv-presentations:placer feuille place))
  (append
    (if debut (plv-mentions:a-gauche mesures feuille avant placement place debut rang))
    (if fin (plv-mentions:a-droite mesures feuille placement place fin rang))))
