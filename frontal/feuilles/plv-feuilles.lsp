;; Profiles on sheets with the frame and the title block of a template drawing.
;; A profile that is longer than the sheet is cut at stations; the sheets that follow show the titles of its tables again.
;; A sheet is (scale (view ...) ((mark . text) ...) (inset ...) axis), a view (x1 y1 x2 y2 (x y1 y2) ... entity ...) in drawing units, with its
;; match lines and what it doesn't show; see tracer-feuilles.
;; Shared in the room: plv-feuilles:*

(setq plv-feuilles:echelles '(50.0 100.0 200.0 250.0 500.0 1000.0 2000.0 2500.0 5000.0 10000.0 20000.0))

;; --- views

(defun plv-feuilles:vues (mesures echelle debut fin / x0 recouvrement x1 x2)
  "The views of one sheet, between two cuts; nil for the beginning or the end of the profile."
  (setq x0 (plv-cle 'x0 mesures) recouvrement (plv-cle 'recouvrement mesures)
        x1 (if debut (- (+ x0 debut) recouvrement) (plv-cle 'gauche mesures))
        x2 (if fin (+ x0 fin recouvrement) (plv-cle 'droite mesures)))
  (append
    (if (and debut (plv-cle 'titres mesures))
      (list (list (plv-cle 'gauche mesures) (plv-cle 'bas mesures) (plv-feuilles:titres-droite mesures) (plv-feuilles:titres-haut mesures))))
    (list (append (list x1 (plv-cle 'bas mesures) x2 (plv-cle 'haut mesures))
                  (if debut (plv-feuilles:repere mesures echelle debut)) (if fin (plv-feuilles:repere mesures echelle fin))))))

;; a match line is drawn this much longer at both ends, in millimetres
(setq plv-feuilles:depassement 3.0)

(defun plv-feuilles:sur-la-coupe (mesures d / x)
  "(bottom top) of dimensions and words over the profile that a cut goes through, the lowest first."
  (setq x (+ (plv-cle 'x0 mesures) d))
  (vl-sort
    (append
      (mapcar '(lambda (b) (list (cadr b) (plv-boite-haut b))) (vl-remove-if-not '(lambda (b) (< (car b) x (caddr b))) (plv-cle 'cotes mesures)))
      (mapcar '(lambda (c) (list (plv-couche-bas c) (plv-couche-haut c)))
        (vl-remove-if-not '(lambda (c) (and (plv-couche-entite c) (< (plv-debut c) d (plv-fin c)) (>= (plv-couche-bas c) (plv-cle 'y0 mesures))))
          (plv-cle 'couches mesures))))
    '(lambda (a b) (< (car a) (car b)))))

(defun plv-feuilles:repere (mesures echelle d / x jeu y morceaux)
  "The match line at a distance, in pieces: from the plane on, not through the station beneath it, nor through what stands over it."
  (setq x (+ (plv-cle 'x0 mesures) d) jeu (* 0.001 echelle (+ plv-feuilles:depassement 0.7))
        y (+ (plv-cle 'y0 mesures) (* 0.001 echelle plv-feuilles:depassement)))
  (foreach b (plv-feuilles:sur-la-coupe mesures d)
    (if (< y (- (car b) jeu)) (setq morceaux (cons (list x y (- (car b) jeu)) morceaux)))
    (setq y (max y (+ (cadr b) jeu))))
  (reverse (if (< y (plv-cle 'haut mesures)) (cons (list x y (plv-cle 'haut mesures)) morceaux) morceaux)))

;; --- texts

(defun plv-feuilles:nombre (valeur)
  "Without zeros after the point."
  (vl-string-right-trim "." (vl-string-right-trim "0" (plv-reel valeur 2))))

(defun plv-feuilles:textes (profil echelle titre debut fin rang / origine longueur)
  (setq origine (plv-premiere-station profil) longueur (plv-longueur-profil profil))
  (append (plv-cartouche-marques)
   (list (cons "<SIGNET>" (strcat "Feuille " (itoa rang) " - profil " (plv-numero-profil profil) ", "
                            (plv-reel (+ origine (cond (debut) (0.0))) 2) " à " (plv-reel (+ origine (cond (fin) (longueur))) 2)))
         (cons "<TITRE>" titre) (cons "<PROFIL>" (plv-numero-profil profil)) (cons "<FEUILLE>" (itoa rang))
        (cons "<ECHELLE_H>" (strcat "1:" (plv-feuilles:nombre echelle)))
        (cons "<ECHELLE_V>" (strcat "1:" (plv-feuilles:nombre (/ echelle (plv-echv profil)))))
        (cons "<STATIONS>" (strcat (plv-reel (+ origine (cond (debut) (0.0))) 2) " à " (plv-reel (+ origine (cond (fin) (longueur))) 2)))
        (cons "<DATE>" (plv-date-du-jour)) (cons "<DESSIN>" (getvar "DWGNAME"))
        (cons "<RACCORD_GAUCHE>" (if debut (plv-mention profil debut 1 (1- rang)) ""))
        (cons "<RACCORD_DROITE>" (if fin (plv-mention profil fin -1 (1+ rang)) "")))))

;; --- sheets

(defun plv-feuilles:haut-mm (mesures echelle) (/ (* 1000.0 (- (plv-cle 'haut mesures) (plv-cle 'bas mesures))) echelle))

(defun plv-feuilles:tient-p (mesures place echelle)
  (<= (+ (plv-bande-voulue mesures) (plv-feuilles:haut-mm mesures echelle)) (plv-place-hauteur place)))

(defun plv-feuilles:echelle (mesures place / trouve)
  "The largest usual scale at which the heights of all profiles fit the room, with their plans."
  (foreach e (reverse plv-feuilles:echelles)
    (if (vl-every '(lambda (m) (plv-feuilles:tient-p m place e)) mesures) (setq trouve e)))
  (cond (trouve) ((plv-dernier plv-feuilles:echelles))))

(defun plv-feuilles:conseil (mesures place / echelle)
  "What makes a profile fit that is too high for a room."
  (setq echelle (plv-feuilles:echelle (list mesures) place))
  (if (plv-feuilles:tient-p mesures place echelle)
    (strcat "il tiendrait à 1:" (plv-feuilles:nombre echelle))
    "des plans de comparaison (PLV-PC Proposer), une feuille plus haute ou moins de tableaux le feraient tenir"))

(defun plv-feuilles:refus (mesures echelle place coupures encarts)
  "The text of why a profile doesn't go on sheets; nil when it does."
  (cond
    ((> (plv-feuilles:haut-mm mesures echelle) (plv-place-hauteur place))
     (strcat "profil " (plv-numero-profil (plv-cle 'profil mesures)) ": " (plv-reel (plv-feuilles:haut-mm mesures echelle) 0)
             " mm de haut à l'échelle 1:" (plv-feuilles:nombre echelle) ", la feuille en offre " (plv-reel (plv-place-hauteur place) 0)
             "; " (plv-feuilles:conseil mesures place)))
    ((eq coupures T) "la feuille est trop étroite à cette échelle")
    ((eq encarts T)
     (strcat "profil " (plv-numero-profil (plv-cle 'profil mesures)) ": ses légendes ne tiennent pas sur la feuille à l'échelle 1:"
             (plv-feuilles:nombre echelle)))))

(defun plv-feuilles:bande-plan (mesures echelle place encarts / occupe hauteur)
  "The height of the plans of a profile's sheets, nil for none; told where there is an axis in plan but no room."
  (setq occupe (apply 'max (cons (plv-feuilles:haut-mm mesures echelle)
                             (mapcar '(lambda (e) (/ (* 1000.0 (- (plv-cle 'haut mesures) (+ (cadr e) (nth 5 e)))) echelle)) encarts)))
        hauteur (plv-bande-hauteur mesures (plv-place-hauteur place) occupe))
  (if (and (not hauteur) (plv-bande-segments mesures))
    (plv-dire (strcat "Profil " (plv-numero-profil (plv-cle 'profil mesures)) ": pas de place pour le plan au-dessus du profil au 1:"
                      (plv-feuilles:nombre echelle) ".")))
  hauteur)

(defun plv-feuilles:posee (mesures echelle debut fin)
  "What of the sheet between two cuts says where its parts stand."
  (list echelle (plv-feuilles:vues mesures echelle debut fin) nil nil (if debut (plv-encarts-axe mesures debut))))

(defun plv-feuilles:sans (vues caches)
  "Views of which the last one doesn't show some entities."
  (append (plv-sans-dernier vues) (list (append (plv-dernier vues) caches))))

(defun plv-feuilles:une (mesures echelle place titre rang avant debut fin encarts bande / feuille coupes)
  "The sheet between two cuts; avant: the one before these."
  (setq feuille
    (list echelle (plv-feuilles:vues mesures echelle debut fin) (plv-feuilles:textes (plv-cle 'profil mesures) echelle titre debut fin rang)
          (if fin nil encarts) (if debut (plv-encarts-axe mesures debut)) (if bande (plv-bande-plan mesures echelle bande debut fin)))
        coupes (plv-coupes mesures feuille (if debut (plv-feuilles:posee mesures echelle avant debut)) place debut fin rang))
  (append (list echelle (plv-feuilles:sans (cadr feuille) (vl-remove-if 'listp coupes))) (cddr feuille)
    (list
      (append (vl-remove-if-not 'listp coupes)
        (if bande (plv-bande-dessins mesures feuille place debut fin))))))

(defun plv-feuilles:decouper (mesures echelle place / largeur hauteur coupures encarts faute)
  "How a profile is shared among sheets: (measures cuts insets height-of-plans); nil after a message."
  (setq largeur (* 0.001 echelle (plv-place-largeur place))
        hauteur (* 0.001 echelle (plv-place-hauteur place))
        coupures (plv-feuilles:coupures mesures largeur hauteur)
        encarts (if (eq coupures T) nil (plv-feuilles:encarts mesures coupures largeur hauteur))
        faute (plv-feuilles:refus mesures echelle place coupures encarts))
  (if faute
    (plv-erreur faute)
    (list mesures coupures encarts (plv-feuilles:bande-plan mesures echelle place encarts))))

(defun plv-feuilles:de-profil (decoupe echelle place titre rang / feuilles bouts avant)
  "The sheets of one profile, numbered from rang."
  (setq bouts (append '(nil) (cadr decoupe) '(nil)))
  (while (cdr bouts)
    (setq feuilles (cons (plv-feuilles:une (car decoupe) echelle place titre (+ rang (length feuilles)) avant (car bouts) (cadr bouts)
                           (caddr decoupe) (cadddr decoupe))
                     feuilles)
          avant (car bouts) bouts (cdr bouts)))
  (reverse feuilles))

(defun plv-feuilles:numeroter (feuilles)
  "With the size of the set in the texts of each."
  (mapcar '(lambda (f) (append (list (car f) (cadr f) (cons (cons "<FEUILLES>" (itoa (length feuilles))) (caddr f))) (cdddr f)))
          feuilles))

(defun plv-feuilles:avec-logo (feuilles logo)
  "With a logo among what is drawn on each, nil for none."
  (if logo
    (mapcar '(lambda (f) (list (car f) (cadr f) (caddr f) (cadddr f) (nth 4 f) (nth 5 f) (append (nth 6 f) (list logo)))) feuilles)
    feuilles))

(defun plv-feuilles:toutes (mesures echelle place titre liste / decoupes pages feuilles)
  "The sheets of all profiles, on request with their list before them; nil after a message."
  (setq decoupes '(T))
  (foreach m mesures (if (car decoupes) (setq decoupes (cons (plv-feuilles:decouper m echelle place) decoupes))))
  (if (car decoupes)
    (progn
      (setq decoupes (cdr (reverse decoupes))
            pages (if liste (plv-liste-pages (apply '+ (mapcar '(lambda (d) (1+ (length (cadr d)))) decoupes)) place) 0))
      (foreach d decoupes
        (setq feuilles (append feuilles (plv-feuilles:de-profil d echelle place titre (+ pages 1 (length feuilles))))))
      (plv-feuilles:avec-logo (plv-feuilles:numeroter (append (if liste (plv-liste-feuilles feuilles place titre)) feuilles))
        (plv-logo-dessin (plv-place-logo place))))))
