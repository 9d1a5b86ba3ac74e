;; Pipes, manholes and crossings as they are, exaggeration included: inverts and crowns from wall to wall, walls where they can be seen.
;; Everything that is drawn of a network is noted with the profile, and replaced together.
;; Shared in the room: plv-reseau:cle-traces

(setq plv-dessin-reseau:tuyaux "PLV-TUYAUX" plv-dessin-reseau:regards "PLV-REGARDS" plv-dessin-reseau:croisements "PLV-CROISEMENTS")

(defun plv-reseau:cle-traces (genre) (strcat "PLV_TRACES_RESEAU_" (strcase (plv-genre genre))))

(defun plv-traces-reseau (profil genre) (plv-entites-propres profil (plv-reseau:cle-traces genre)))

;; --- a pen holds what drawing takes: (frame sections origin text-height height-of-small-texts)

(defun plv-dessin-reseau:plume (profil)
  (list (plv-cadre profil) (plv-sections-de-plan profil) (plv-premiere-station profil) (plv-ttxt profil) (plv-petit profil)))
(defun plv-plume-cadre (plume) (car plume))
(defun plv-plume-sections (plume) (cadr plume))
(defun plv-plume-origine (plume) (caddr plume))
(defun plv-plume-ttxt (plume) (cadddr plume))
(defun plv-plume-petit (plume) (nth 4 plume))

(defun plv-dessin-reseau:trait (plume calque points / metres)
  "A line through (station altitude), one piece for each plane that it stands over."
  (setq metres (mapcar '(lambda (p) (list (- (car p) (plv-plume-origine plume)) (cadr p))) points))
  (foreach section (plv-plume-sections plume)
    (plv-tracer-sur-section (plv-plume-cadre plume) (plv-calque calque) section metres)))

(defun plv-dessin-reseau:place (plume station z) (plv-vers-dessin (plv-plume-cadre plume) (- station (plv-plume-origine plume)) z))

(defun plv-dessin-reseau:visible-p (plume hauteur)
  "Whether a height in metres can be told apart on paper: a tenth of the height of texts."
  (>= (* hauteur (plv-cadre-echv (plv-plume-cadre plume))) (* 0.1 (plv-plume-ttxt plume))))

;; --- pipes

(defun plv-dessin-reseau:bout (tuyau station)
  (list station (plv-interpoler (list (plv-tuyau-depart tuyau) (plv-tuyau-arrivee tuyau)) station)))

(defun plv-dessin-reseau:tuyau (plume tuyau amont aval / a b)
  "A pipe from the wall of its manhole to the left to that of the one to the right; its text."
  (setq a (plv-dessin-reseau:bout tuyau (+ (plv-tuyau-debut tuyau) (* 0.5 (plv-noeud-interieur amont))))
        b (plv-dessin-reseau:bout tuyau (- (plv-tuyau-fin tuyau) (* 0.5 (plv-noeud-interieur aval)))))
  (foreach h (plv-dessin-reseau:hauteurs plume tuyau)
    (plv-dessin-reseau:trait plume plv-dessin-reseau:tuyaux (mapcar '(lambda (p) (list (car p) (+ (cadr p) h))) (list a b))))
  (plv-dessin-reseau:legende plume tuyau a b))

(defun plv-dessin-reseau:hauteurs (plume tuyau / paroi)
  "Of the lines of a pipe above its invert."
  (setq paroi (plv-tuyau-paroi tuyau))
  (append
    (list 0.0 (plv-tuyau-interieur tuyau))
    (if (and (> paroi 0.0) (plv-dessin-reseau:visible-p plume paroi)) (list (- paroi) (+ (plv-tuyau-interieur tuyau) paroi)))))

(defun plv-dessin-reseau:sur-un-plan (plume a b / morceaux)
  "The ends, as drawn, of the longest part of a pipe that stands over one plane; nil for a pipe that its manholes leave no room."
  (setq a (list (- (car a) (plv-plume-origine plume)) (cadr a)) b (list (- (car b) (plv-plume-origine plume)) (cadr b))
        morceaux
         (mapcar '(lambda (s) (list (max (car a) (plv-plan-debut s)) (min (car b) (plv-section-fin s)) s)) (plv-plume-sections plume))
        morceaux (car (vl-sort morceaux '(lambda (m n) (> (plv-longueur m) (plv-longueur n))))))
  (if (> (plv-longueur morceaux) 1e-6)
    (mapcar '(lambda (d) (plv-vers-dessin-sur (plv-plume-cadre plume) (caddr morceaux) d (plv-interpoler (list a b) d)))
      (plv-premiers morceaux 2))))

(defun plv-dessin-reseau:legende (plume tuyau a b / bouts)
  "What the pipe is, along it."
  (setq bouts (plv-dessin-reseau:sur-un-plan plume a b))
  (plv-textes-reseau:le-long
    (plv-textes-reseau:sujet (strcat "tuyau " (plv-tuyau-de tuyau) " - " (plv-tuyau-a tuyau)) (plv-tuyau-debut tuyau))
    plv-dessin-reseau:tuyaux (car bouts) (cadr bouts) (plv-plume-petit plume)
    (* (plv-tuyau-interieur tuyau) (plv-cadre-echv (plv-plume-cadre plume)))
    (list (strcat (plv-tuyau-en-mots tuyau) "  " (plv-reel (* 100.0 (abs (plv-tuyau-pente tuyau))) 2) " %") (plv-tuyau-en-mots tuyau))))

;; --- manholes

(defun plv-dessin-reseau:cadre-de (plume noeud demi bas haut / x bas-gauche haut-gauche)
  "An upright rectangle about the axis of a manhole, over its plane."
  (setq bas-gauche (plv-dessin-reseau:place plume (plv-noeud-station noeud) bas)
        haut-gauche (plv-dessin-reseau:place plume (plv-noeud-station noeud) haut)
        x (car bas-gauche))
  (plv-polyligne plv-dessin-reseau:regards
    (mapcar '(lambda (coin) (plv-point (+ x (car coin)) (cadr coin)))
      (list (list (- demi) (cadr haut-gauche)) (list (- demi) (cadr bas-gauche)) (list demi (cadr bas-gauche)) (list demi (cadr haut-gauche))
            (list (- demi) (cadr haut-gauche))))))

(defun plv-dessin-reseau:regard (plume noeud / haut)
  "A manhole; the texts of its name and its drop."
  (setq haut (plv-dessin-reseau:place plume (plv-noeud-station noeud) (max (plv-noeud-tampon noeud) (plv-noeud-terrain noeud))))
  (if (> (plv-noeud-exterieur noeud) 0.0)
    (progn
      (plv-dessin-reseau:cadre-de plume noeud (* 0.5 (plv-noeud-interieur noeud)) (plv-noeud-fond noeud) (plv-noeud-tampon noeud))
      (if (plv-dessin-reseau:paroi-visible-p plume noeud)
        (plv-dessin-reseau:cadre-de plume noeud (* 0.5 (plv-noeud-exterieur noeud)) (plv-noeud-fond noeud) (plv-noeud-tampon noeud)))))
  (cons (plv-textes-reseau:dessus (plv-dessin-reseau:sujet "regard " noeud) plv-dessin-reseau:regards haut (plv-plume-ttxt plume) (plv-noeud-nom noeud) 1)
        (if (plv-dessin-reseau:chute noeud) (list (plv-dessin-reseau:dire-chute plume noeud)))))

(defun plv-dessin-reseau:mur (plume noeud / bas haut)
  "The box of a manhole within its walls."
  (setq bas (plv-dessin-reseau:place plume (plv-noeud-station noeud) (plv-noeud-fond noeud))
        haut (plv-dessin-reseau:place plume (plv-noeud-station noeud) (plv-noeud-tampon noeud)))
  (list (car bas) (* 0.5 (+ (cadr bas) (cadr haut))) (max 0.01 (plv-noeud-exterieur noeud)) (abs (- (cadr haut) (cadr bas))) 0.0))

(defun plv-dessin-reseau:sujet (mots noeud) (plv-textes-reseau:sujet (strcat mots (plv-noeud-nom noeud)) (plv-noeud-station noeud)))

(defun plv-dessin-reseau:paroi-visible-p (plume noeud)
  "Across, a wall isn't exaggerated."
  (>= (* 0.5 (- (plv-noeud-exterieur noeud) (plv-noeud-interieur noeud))) (* 0.1 (plv-plume-ttxt plume))))

(defun plv-dessin-reseau:chute (noeud)
  "By how much its two inverts differ; nil for none."
  (if (and (plv-noeud-arrivee noeud) (plv-noeud-depart noeud) (not (equal (plv-noeud-arrivee noeud) (plv-noeud-depart noeud) 5e-4)))
    (abs (- (plv-noeud-arrivee noeud) (plv-noeud-depart noeud)))))

(defun plv-dessin-reseau:dire-chute (plume noeud / bas haut)
  (setq bas (plv-dessin-reseau:place plume (plv-noeud-station noeud) (min (plv-noeud-arrivee noeud) (plv-noeud-depart noeud)))
        haut (plv-dessin-reseau:place plume (plv-noeud-station noeud) (max (plv-noeud-arrivee noeud) (plv-noeud-depart noeud))))
  (plv-ligne plv-dessin-reseau:regards bas haut)
  (plv-textes-reseau:dessus (plv-dessin-reseau:sujet "chute de " noeud) plv-dessin-reseau:regards bas (plv-plume-petit plume)
    (strcat "chute " (plv-reel (plv-dessin-reseau:chute noeud) 2)) -1))

;; --- crossings: an ellipse, high by the exaggeration and wide by the angle

(defun plv-dessin-reseau:croisement (plume croisement / centre demi-hauteur demi-largeur)
  (setq centre (plv-dessin-reseau:place plume (plv-croisement-station croisement) (plv-croisement-altitude croisement))
        demi-hauteur (* 0.5 (plv-croisement-diametre croisement) (plv-cadre-echv (plv-plume-cadre plume)))
        demi-largeur (/ (* 0.5 (plv-croisement-diametre croisement)) (sin (* pi (/ (plv-croisement-angle croisement) 180.0)))))
  (plv-dessin-reseau:ellipse centre demi-largeur demi-hauteur)
  (plv-textes-reseau:autour (plv-textes-reseau:sujet (plv-croisement-nom croisement) (plv-croisement-station croisement))
    plv-dessin-reseau:croisements centre demi-largeur demi-hauteur (plv-plume-petit plume)
    (strcat (plv-croisement-nom croisement) "  " (plv-reel (plv-croisement-altitude croisement) 2))))

(defun plv-dessin-reseau:ellipse (centre demi-largeur demi-hauteur / axe part)
  (setq axe (if (> demi-hauteur demi-largeur) (list 0.0 demi-hauteur 0.0) (list demi-largeur 0.0 0.0))
        part (/ (min demi-largeur demi-hauteur) (max demi-largeur demi-hauteur)))
  (entmakex (list '(0 . "ELLIPSE") '(100 . "AcDbEntity") (cons 8 (plv-calque plv-dessin-reseau:croisements)) '(100 . "AcDbEllipse") (cons 10 centre)
                  (cons 11 axe) '(210 0.0 0.0 1.0) (cons 40 part) '(41 . 0.0) (cons 42 (* 2.0 pi)))))

;; --- how low it goes

(defun plv-dessin-reseau:niveau (plume station demi z)
  (setq station (- station (plv-plume-origine plume)))
  (list (list (- station demi) z) (list (+ station demi) z)))

(defun plv-dessin-reseau:niveaux (plume reseau)
  "Lines of (distance altitude) along the bottoms of pipes, manholes and crossings."
  (append
    (mapcar
      '(lambda (tuyau)
         (mapcar '(lambda (bout) (list (- (car bout) (plv-plume-origine plume)) (- (cadr bout) (plv-tuyau-paroi tuyau))))
           (list (plv-tuyau-depart tuyau) (plv-tuyau-arrivee tuyau))))
      (plv-reseau-tuyaux reseau))
    (mapcar '(lambda (noeud) (plv-dessin-reseau:niveau plume (plv-noeud-station noeud) (max 0.01 (* 0.5 (plv-noeud-exterieur noeud))) (plv-noeud-fond noeud)))
      (plv-reseau-regards reseau))
    (mapcar
      '(lambda (c) (plv-dessin-reseau:niveau plume (plv-croisement-station c) (* 0.5 (plv-croisement-diametre c)) (- (plv-croisement-altitude c) (* 0.5 (plv-croisement-diametre c)))))
      (plv-reseau-croisements reseau))))

(defun plv-niveaux-reseaux (profil / plume reseaux)
  (setq plume (plv-dessin-reseau:plume profil)
        reseaux (mapcar '(lambda (genre) (plv-reseau-lu profil genre)) (plv-genres-de-reseau profil)))
  (apply 'append (mapcar '(lambda (reseau) (plv-dessin-reseau:niveaux plume reseau)) (vl-remove-if-not 'listp reseaux))))

(plv-declarer-niveaux 'plv-niveaux-reseaux)

(defun plv-dire-reseau-sous-plans (profil reseau)
  (plv-dire-sous-plans profil "le réseau" (plv-dessin-reseau:niveaux (plv-dessin-reseau:plume profil) reseau)))

;; --- all of it

(defun plv-dessin-reseau:les-tuyaux (plume tuyaux regards / textes)
  "Pipes and manholes stand in one order: each list is walked along once. The texts of pipes."
  (foreach tuyau tuyaux
    (while (/= (plv-noeud-nom (car regards)) (plv-tuyau-de tuyau)) (setq regards (cdr regards)))
    (setq textes (cons (plv-dessin-reseau:tuyau plume tuyau (car regards) (cadr regards)) textes)))
  (reverse textes))

(defun plv-dessin-reseau:tout (profil genre plume reseau / tuyaux regards)
  "What stands where, then the texts: those of manholes and crossings choose with those of pipes."
  (setq tuyaux (plv-dessin-reseau:les-tuyaux plume (plv-reseau-tuyaux reseau) (plv-reseau-regards reseau))
        regards (apply 'append (mapcar '(lambda (noeud) (plv-dessin-reseau:regard plume noeud)) (plv-reseau-regards reseau))))
  (plv-textes-reseau:ecrire profil genre
    (append regards (mapcar '(lambda (croisement) (plv-dessin-reseau:croisement plume croisement)) (plv-reseau-croisements reseau)) tuyaux)
    (mapcar '(lambda (noeud) (plv-dessin-reseau:mur plume noeud)) (plv-reseau-regards reseau))))

(defun plv-dessiner-reseau (profil genre / reseau plume)
  "Draws the network of a kind of line in place of what was drawn of it; T, or nil after a message."
  (setq genre (plv-genre genre) reseau (plv-reseau-lu profil genre))
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((eq (type reseau) 'STR) (plv-erreur reseau))
    (T
     (plv-creer-calques)
     (plv-effacer (plv-traces-reseau profil genre))
     (setq plume (plv-dessin-reseau:plume profil))
     (plv-enregistrer-entites profil (plv-reseau:cle-traces genre) (plv-ajouts-de '(lambda () (plv-dessin-reseau:tout profil genre plume reseau))))
     (plv-noter-fait profil "RESEAU" genre nil nil)
     ;; The labels of a style keep clear of them.
     (plv-rehausser-titre profil)
     T)))

(plv-brancher 'hachures
  '(lambda (profil)
     (foreach genre (plv-genres-de-reseau profil) (if (plv-traces-reseau profil genre) (plv-dessiner-reseau profil genre)))))
