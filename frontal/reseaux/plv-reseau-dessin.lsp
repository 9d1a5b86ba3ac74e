;; Pipes, manholes and crossings as they are, exaggeration included: inverts and crowns from wall to wall, walls where they can be seen.
;; Everything that is drawn of a network is noted with the profile, and replaced together.
;; Shared in the room: plv-reseau:cle-traces

(setq plv-dessin-reseau:tuyaux "PLV-TUYAUX" plv-dessin-reseau:regards "PLV-REGARDS" plv-dessin-reseau:croisements "PLV-CROISEMENTS")

(defun plv-reseau:cle-traces (genre) (strcat "PLV_TRACES_RESEAU_" (strcase (plv-genre genre))))

(defun plv-traces-reseau (profil genre) (plv-entites-enregistrees profil (plv-reseau:cle-traces genre)))

;; --- a pen holds what drawing takes: (frame sections origin text-height)

(defun plv-dessin-reseau:plume (profil)
  (list (plv-cadre profil) (plv-sections-de-plan profil) (plv-premiere-station profil) (plv-ttxt profil)))
(defun plv-plume-cadre (plume) (car plume))
(defun plv-plume-sections (plume) (cadr plume))
(defun plv-plume-origine (plume) (caddr plume))
(defun plv-plume-ttxt (plume) (cadddr plume))

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

(defun plv-dessin-reseau:rayon (reseau nom) (* 0.5 (plv-noeud-interieur (plv-noeud-nomme reseau nom))))

(defun plv-dessin-reseau:tuyau (plume reseau tuyau / a b)
  (setq a (plv-dessin-reseau:bout tuyau (+ (plv-tuyau-debut tuyau) (plv-dessin-reseau:rayon reseau (plv-tuyau-de tuyau))))
        b (plv-dessin-reseau:bout tuyau (- (plv-tuyau-fin tuyau) (plv-dessin-reseau:rayon reseau (plv-tuyau-a tuyau)))))
  (foreach h (plv-dessin-reseau:hauteurs plume tuyau)
    (plv-dessin-reseau:trait plume plv-dessin-reseau:tuyaux (mapcar '(lambda (p) (list (car p) (+ (cadr p) h))) (list a b))))
  (plv-dessin-reseau:legende plume tuyau a b))

(defun plv-dessin-reseau:hauteurs (plume tuyau / paroi)
  "Of the lines of a pipe above its invert."
  (setq paroi (plv-tuyau-paroi tuyau))
  (append
    (list 0.0 (plv-tuyau-interieur tuyau))
    (if (and (> paroi 0.0) (plv-dessin-reseau:visible-p plume paroi)) (list (- paroi) (+ (plv-tuyau-interieur tuyau) paroi)))))

(defun plv-dessin-reseau:legende (plume tuyau a b / texte milieu p q)
  "What the pipe is, below it and along it, where it has room."
  (setq p (plv-dessin-reseau:place plume (car a) (cadr a)) q (plv-dessin-reseau:place plume (car b) (cadr b)) milieu (plv-milieu (list (car a) (car b))))
  (setq texte (plv-dessin-reseau:qui-tient plume (distance p q)
                (list (strcat (plv-tuyau-en-mots tuyau) "  " (plv-reel (* 100.0 (abs (plv-tuyau-pente tuyau))) 2) " %") (plv-tuyau-en-mots tuyau))))
  ;; Over a change of plane the pipe is in two places.
  (if (and texte (equal (plv-plan-en (plv-cadre-plans (plv-plume-cadre plume)) (+ 1e-6 (- (car a) (plv-plume-origine plume))))
                        (plv-plan-en (plv-cadre-plans (plv-plume-cadre plume)) (- (car b) (plv-plume-origine plume)))))
    (plv-texte plv-dessin-reseau:tuyaux
      (polar (plv-dessin-reseau:place plume milieu (cadr (plv-dessin-reseau:bout tuyau milieu))) (- (angle p q) (* 0.5 pi)) (* 1.1 (plv-plume-ttxt plume)))
      (* 0.7 (plv-plume-ttxt plume)) texte 1 (angle p q))))

(defun plv-dessin-reseau:qui-tient (plume largeur textes)
  (car (vl-member-if '(lambda (texte) (<= (plv-largeur-texte texte (* 0.7 (plv-plume-ttxt plume))) (* 0.9 largeur))) textes)))

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
  (setq haut (plv-dessin-reseau:place plume (plv-noeud-station noeud) (max (plv-noeud-tampon noeud) (plv-noeud-terrain noeud))))
  (if (> (plv-noeud-exterieur noeud) 0.0)
    (progn
      (plv-dessin-reseau:cadre-de plume noeud (* 0.5 (plv-noeud-interieur noeud)) (plv-noeud-fond noeud) (plv-noeud-tampon noeud))
      (if (plv-dessin-reseau:paroi-visible-p plume noeud)
        (plv-dessin-reseau:cadre-de plume noeud (* 0.5 (plv-noeud-exterieur noeud)) (plv-noeud-fond noeud) (plv-noeud-tampon noeud)))))
  (plv-texte plv-dessin-reseau:regards (polar haut (* 0.5 pi) (* 0.6 (plv-plume-ttxt plume))) (plv-plume-ttxt plume) (plv-noeud-nom noeud) 1 0.0)
  (if (plv-dessin-reseau:chute noeud) (plv-dessin-reseau:dire-chute plume noeud)))

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
  (plv-texte plv-dessin-reseau:regards (polar bas (* -0.5 pi) (plv-plume-ttxt plume)) (* 0.7 (plv-plume-ttxt plume))
    (strcat "chute " (plv-reel (plv-dessin-reseau:chute noeud) 2)) 1 0.0))

;; --- crossings: an ellipse, high by the exaggeration and wide by the angle

(defun plv-dessin-reseau:croisement (plume croisement / centre demi-hauteur demi-largeur)
  (setq centre (plv-dessin-reseau:place plume (plv-croisement-station croisement) (plv-croisement-altitude croisement))
        demi-hauteur (* 0.5 (plv-croisement-diametre croisement) (plv-cadre-echv (plv-plume-cadre plume)))
        demi-largeur (/ (* 0.5 (plv-croisement-diametre croisement)) (sin (* pi (/ (plv-croisement-angle croisement) 180.0)))))
  (plv-dessin-reseau:ellipse centre demi-largeur demi-hauteur)
  (plv-texte plv-dessin-reseau:croisements (polar centre 0.0 (+ demi-largeur (* 0.3 (plv-plume-ttxt plume)))) (* 0.7 (plv-plume-ttxt plume))
    (strcat (plv-croisement-nom croisement) "  " (plv-reel (plv-croisement-altitude croisement) 2)) 0 0.0))

(defun plv-dessin-reseau:ellipse (centre demi-largeur demi-hauteur / axe part)
  (setq axe (if (> demi-hauteur demi-largeur) (list 0.0 demi-hauteur 0.0) (list demi-largeur 0.0 0.0))
        part (/ (min demi-largeur demi-hauteur) (max demi-largeur demi-hauteur)))
  (entmakex (list '(0 . "ELLIPSE") '(100 . "AcDbEntity") (cons 8 (plv-calque plv-dessin-reseau:croisements)) '(100 . "AcDbEllipse") (cons 10 centre)
                  (cons 11 axe) '(210 0.0 0.0 1.0) (cons 40 part) '(41 . 0.0) (cons 42 (* 2.0 pi)))))

;; --- all of it

(defun plv-dessin-reseau:tout (plume reseau)
  (foreach tuyau (plv-reseau-tuyaux reseau) (plv-dessin-reseau:tuyau plume reseau tuyau))
  (foreach noeud (plv-reseau-regards reseau) (plv-dessin-reseau:regard plume noeud))
  (foreach croisement (plv-reseau-croisements reseau) (plv-dessin-reseau:croisement plume croisement)))

(defun plv-dessiner-reseau (profil genre / reseau plume)
  "Draws the network of a kind of line in place of what was drawn of it; T, or nil after a message."
  (setq genre (plv-genre genre) reseau (plv-reseau-lu profil genre))
  (if (eq (type reseau) 'STR)
    (plv-erreur reseau)
    (progn
      (plv-creer-calques)
      (plv-effacer (plv-traces-reseau profil genre))
      (setq plume (plv-dessin-reseau:plume profil))
      (plv-enregistrer-entites profil (plv-reseau:cle-traces genre) (plv-ajouts-de '(lambda () (plv-dessin-reseau:tout plume reseau))))
      (plv-noter-fait profil "RESEAU" genre nil nil)
      T)))
