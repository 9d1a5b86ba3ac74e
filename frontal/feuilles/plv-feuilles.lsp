;; Profiles on sheets with the frame and the title block of a template drawing.
;; A profile that is longer than the sheet is cut at stations; the sheets that follow show the titles of its tables again.
;; A sheet is (scale (view ...) ((mark . text) ...) (inset ...) axis), a view (x1 y1 x2 y2 (x y1 y2) ...) in drawing units, its
;; match lines last; see tracer-feuilles.
;; Shared in the room: plv-feuilles:*

(setq plv-feuilles:echelles '(50.0 100.0 200.0 250.0 500.0 1000.0 2000.0 2500.0 5000.0 10000.0 20000.0))

;; --- what a profile covers

(defun plv-feuilles:reseaux (profil)
  (apply 'append (mapcar '(lambda (genre) (plv-traces-reseau profil genre)) (plv-genres-de-reseau profil))))

(defun plv-entites-dessinees (profil)
  "Everything that is drawn of a profile, its networks and its tables."
  (vl-remove-if-not 'plv-existe
    (append
      (list profil)
      (plv-entites-plans profil)
      (apply 'append (mapcar 'plv-lignes-du-plan (plv-entites-plans profil)))
      (plv-entites-habillage profil)
      (plv-ajouts-tables profil)
      (plv-feuilles:reseaux profil)
      (apply 'append (mapcar '(lambda (genre) (plv-elements profil genre)) (plv-genres)))
      (apply 'append (mapcar '(lambda (r) (cons r (plv-entites-table r))) (plv-references-tables profil))))))

(defun plv-feuilles:mesurer (profil / point coins titres ttxt legendes a-part couches)
  "What the layout needs: keys gauche droite bas haut (of all but the legends beside it), titres (right edge of the tables' titles
with the gap after them, top), recouvrement (what two sheets share on each side of a cut) x0 y0, legendes (beside it), couches and traits (see plv-bords),
cotes (boxes of the dimensions)."
  (setq point (plv-origine profil)
        ttxt (plv-ttxt profil)
        coins (etendue-tracee (plv-entites-dessinees profil))
        legendes (vl-remove-if-not 'plv-existe (plv-legendes-du-profil profil))
        a-part (plv-encarts-a-part legendes (caar coins) (caadr coins))
        coins (etendue-tracee (append (plv-entites-dessinees profil) (vl-remove-if '(lambda (l) (member l a-part)) legendes)))
        titres (etendue-tracee (vl-remove-if-not 'plv-existe (plv-references-tables profil)))
        couches (plv-feuilles:couches profil (car point)))
  (list (cons 'profil profil) (cons 'legendes (mapcar 'plv-boite a-part)) (cons 'x0 (car point)) (cons 'y0 (cadr point))
        (cons 'couches couches) (cons 'traits (plv-feuilles:traits profil (car point))) (cons 'cotes (plv-boites-cotes profil)) (cons 'recouvrement (plv-feuilles:recouvrement profil couches ttxt))
        (cons 'gauche (- (caar coins) ttxt)) (cons 'droite (apply 'min (cons (+ (caadr coins) ttxt) (plv-encarts-debuts a-part (caadr coins) ttxt))))
        (cons 'bas (- (cadar coins) ttxt)) (cons 'haut (+ (cadadr coins) ttxt))
        (cons 'titres (if titres (list (max (caadr titres) (- (car point) (* 0.8 ttxt))) (cadadr titres))))))

(defun plv-feuilles:titres-droite (mesures) (car (plv-cle 'titres mesures)))
(defun plv-feuilles:titres-haut (mesures) (cadr (plv-cle 'titres mesures)))

;; --- cuts

(defun plv-feuilles:rondes (profil / fin pas s rondes)
  "The distances of round stations, some thousand at most."
  (setq fin (+ (plv-premiere-station profil) (plv-longueur-profil profil)) pas 1.0)
  (while (> (/ (plv-longueur-profil profil) pas) 2000.0) (setq pas (* 10.0 pas)))
  (setq s (* pas (1+ (plv-partie-entiere (/ (plv-premiere-station profil) pas)))))
  (while (< s fin) (setq rondes (cons (- s (plv-premiere-station profil)) rondes) s (+ s pas)))
  (reverse rondes))

(defun plv-feuilles:abscisses (profil)
  "Where a profile may be cut: the points that have cells, without tables round stations; distances."
  (cond ((plv-distances-rappels profil)) ((plv-feuilles:rondes profil))))

(defun plv-feuilles:largeur-de-bloc (bloc x0 / boite)
  "The stretch of a block with its texts."
  (setq boite (plv-boite bloc))
  (list (- (car boite) x0) (- (caddr boite) x0)))

(defun plv-feuilles:couches (profil x0)
  "The stretches where texts lie along the profile, in its tables, networks and above it, and where blocks stand on it, which a cut would tear."
  (append
    (mapcar '(lambda (e) (plv-feuilles:largeur-de-bloc e x0)) (plv-blocs profil))
    (vl-remove nil
      (mapcar '(lambda (e) (plv-couche-de e x0))
        (append (plv-ajouts-tables profil) (plv-feuilles:reseaux profil) (plv-entites-habillage profil) (plv-feuilles:des-tables profil))))))

(defun plv-feuilles:des-tables (profil) (apply 'append (mapcar 'plv-entites-table (plv-references-tables profil))))

(defun plv-feuilles:traits (profil x0)
  "The upright lines of tables."
  (vl-remove nil (mapcar '(lambda (e) (plv-couche-trait e x0)) (append (plv-ajouts-tables profil) (plv-feuilles:des-tables profil)))))

(defun plv-feuilles:recouvrement (profil couches ttxt / places)
  "Texts that stand on the abscissa of a cut are whole on both sheets: half the height of upright ones is beside it, half the width of short ones."
  (setq places (mapcar '(lambda (d) (plv-reel d 2)) (plv-feuilles:abscisses profil)))
  (apply 'max
    (cons (* 0.8 ttxt)
      (mapcar '(lambda (c) (+ (* 0.5 (plv-longueur c)) (* 0.1 ttxt)))
        (vl-remove-if-not '(lambda (c) (and (< (plv-longueur c) (* 3.0 ttxt)) (member (plv-reel (plv-milieu c) 2) places))) couches)))))

(defun plv-feuilles:dechire (d couches recouvrement)
  "How much of texts is cut through at the edges of two sheets, or lies under the line of the cut without standing on it; a length."
  (apply '+
    (mapcar
      '(lambda (c)
         (if (or (< (plv-debut c) (+ d recouvrement) (plv-fin c)) (< (plv-debut c) (- d recouvrement) (plv-fin c))
                 (and (< (plv-debut c) d (plv-fin c)) (> (abs (- (plv-milieu c) d)) 0.005)))
           (plv-longueur c)
           0.0))
      couches)))

(defun plv-feuilles:moins-dechiree (places couches recouvrement / trouve mieux texte)
  "Of places the last one that tears least."
  (foreach d places
    (setq texte (plv-feuilles:dechire d couches recouvrement))
    (if (or (not trouve) (<= texte (+ mieux 1e-6))) (setq trouve d mieux texte)))
  trouve)

(defun plv-feuilles:coupure (mesures precedente limite / places debut)
  "Where a sheet ends: of the points in its last fifth the last one that tears least, else the last point that fits; the last whole metre
where there are none."
  (setq debut (+ precedente (* 0.8 (- limite precedente)))
        places (vl-remove-if-not '(lambda (d) (and (<= d limite) (> d (+ precedente (* 0.5 (- limite precedente))))))
                 (plv-feuilles:abscisses (plv-cle 'profil mesures))))
  (cond
    ((plv-feuilles:moins-dechiree (vl-remove-if-not '(lambda (d) (> d debut)) places)
       (vl-remove-if '(lambda (c) (< (plv-fin c) (- debut (plv-cle 'recouvrement mesures)))) (plv-cle 'couches mesures))
       (plv-cle 'recouvrement mesures)))
    ((plv-dernier places))
    ((float (fix limite)))))

(defun plv-feuilles:bande (mesures)
  "Width of what stands before a part that begins at a cut: the titles again, and the labels of an axis."
  (max (if (plv-cle 'titres mesures) (- (plv-feuilles:titres-droite mesures) (plv-cle 'gauche mesures)) 0.0)
       (plv-encarts-axe-largeur (plv-cle 'profil mesures))))

(defun plv-feuilles:coupures-pleines (mesures largeur / recouvrement coupures place fin d)
  "Distances at which a profile is cut for sheets of this width in drawing units, each as full as can be; T when it can't be."
  (setq recouvrement (plv-cle 'recouvrement mesures)
        fin (- (plv-cle 'droite mesures) (plv-cle 'x0 mesures))
        d (- (plv-cle 'gauche mesures) (plv-cle 'x0 mesures))
        place (- largeur recouvrement))
  (while (and (not (eq coupures T)) (> (- fin d) (if coupures (+ place recouvrement) largeur)))
    (setq d (plv-feuilles:coupure mesures (cond ((car coupures)) (0.0)) (+ d place)))
    (if (<= d (cond ((car coupures)) (0.0)))
      (setq coupures T)
      (setq coupures (cons d coupures)
            place (- largeur (plv-feuilles:bande mesures) (* 2.0 recouvrement)))))
  (if (eq coupures T) T (reverse coupures)))

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

(defun plv-feuilles:repere (mesures echelle d / x jeu y morceaux)
  "The match line at a distance, in pieces: over the profile, not through the texts of its tables, nor through dimensions."
  (setq x (+ (plv-cle 'x0 mesures) d) y (plv-cle 'y0 mesures) jeu (* 0.001 echelle (+ plv-feuilles:depassement 0.7)))
  (foreach b (vl-sort (plv-cle 'cotes mesures) '(lambda (a b) (< (cadr a) (cadr b))))
    (if (< (car b) x (caddr b))
      (progn
        (if (< y (- (cadr b) jeu)) (setq morceaux (cons (list x y (- (cadr b) jeu)) morceaux)))
        (setq y (max y (+ (plv-boite-haut b) jeu))))))
  (reverse (if (< y (plv-cle 'haut mesures)) (cons (list x y (plv-cle 'haut mesures)) morceaux) morceaux)))

;; --- legends on the last sheet

(defun plv-feuilles:encarts (mesures coupures largeur hauteur / gauche)
  "The insets of the last sheet, of that size in drawing units; T when it hasn't the room."
  (setq gauche (if coupures
                 (- (+ (plv-cle 'x0 mesures) (plv-dernier coupures)) (plv-cle 'recouvrement mesures) (plv-feuilles:bande mesures))
                 (plv-cle 'gauche mesures)))
  (plv-encarts mesures (- largeur (- (plv-cle 'droite mesures) gauche)) (- hauteur (- (plv-cle 'haut mesures) (plv-cle 'bas mesures)))))

(defun plv-feuilles:avec-legendes-p (mesures coupures largeur hauteur) (not (eq (plv-feuilles:encarts mesures coupures largeur hauteur) T)))

(defun plv-feuilles:coupures (mesures largeur hauteur / coupures egales)
  "The cuts for sheets of this size; T when there can be none. One more where the legends would have a sheet for themselves; balanced,
with room for the legends on the last sheet where they don't stand beneath."
  (setq coupures (plv-feuilles:coupures-pleines mesures largeur))
  (cond
    ((not (and coupures (listp coupures) (plv-feuilles:avec-legendes-p mesures coupures largeur hauteur)))
     (plv-feuilles:pour-legendes mesures coupures largeur hauteur))
    ((plv-feuilles:avec-legendes-p mesures (setq egales (plv-coupures-egales mesures largeur coupures 0.0)) largeur hauteur) egales)
    ((plv-feuilles:avec-legendes-p mesures (setq egales (plv-coupures-egales mesures largeur coupures (plv-encarts-longueur mesures))) largeur hauteur) egales)
    (T coupures)))

(defun plv-feuilles:pour-legendes (mesures coupures largeur hauteur / debut d)
  "Cuts with one more in the last part, where the legends haven't the room beside it."
  (if (and (listp coupures) (eq (plv-feuilles:encarts mesures coupures largeur hauteur) T))
    (progn
      (setq debut (cond ((plv-dernier coupures)) (0.0))
            d (plv-feuilles:coupure mesures debut (* 0.5 (+ debut (plv-longueur-profil (plv-cle 'profil mesures))))))
      (if (> d debut) (append coupures (list d)) coupures))
    coupures))

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
        (cons "<RACCORD_GAUCHE>" (if debut (plv-mention profil debut (1- rang)) ""))
        (cons "<RACCORD_DROITE>" (if fin (plv-mention profil fin (1+ rang)) "")))))

;; --- sheets

(defun plv-feuilles:haut-mm (mesures echelle) (/ (* 1000.0 (- (plv-cle 'haut mesures) (plv-cle 'bas mesures))) echelle))

(defun plv-feuilles:echelle (mesures place / trouve)
  "The largest usual scale at which the heights of all profiles fit the room, with their plans."
  (foreach e (reverse plv-feuilles:echelles)
    (if (vl-every '(lambda (m) (<= (+ (plv-bande-voulue m) (plv-feuilles:haut-mm m e)) (plv-place-hauteur place))) mesures) (setq trouve e)))
  (cond (trouve) ((plv-dernier plv-feuilles:echelles))))

(defun plv-feuilles:refus (mesures echelle place coupures encarts)
  "The text of why a profile doesn't go on sheets; nil when it does."
  (cond
    ((> (plv-feuilles:haut-mm mesures echelle) (plv-place-hauteur place))
     (strcat "profil " (plv-numero-profil (plv-cle 'profil mesures)) ": " (plv-reel (plv-feuilles:haut-mm mesures echelle) 0)
             " mm de haut à l'échelle 1:" (plv-feuilles:nombre echelle) ", la feuille en offre " (plv-reel (plv-place-hauteur place) 0)
             "; il tiendrait à 1:" (plv-feuilles:nombre (plv-feuilles:echelle (list mesures) place))))
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

(defun plv-feuilles:une (mesures echelle place titre rang debut fin encarts bande / feuille)
  "The sheet between two cuts."
  (setq feuille
    (list echelle (plv-feuilles:vues mesures echelle debut fin) (plv-feuilles:textes (plv-cle 'profil mesures) echelle titre debut fin rang)
          (if fin nil encarts) (if debut (plv-encarts-axe mesures debut)) (if bande (plv-bande-plan mesures echelle bande debut fin))))
  (append feuille
    (list
      (append (plv-coupes mesures feuille place debut fin rang)
        (if bande (plv-bande-dessins mesures echelle (plv-place-largeur place) (plv-place-hauteur place) bande debut fin))))))

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

(defun plv-feuilles:de-profil (decoupe echelle place titre rang / feuilles bouts)
  "The sheets of one profile, numbered from rang."
  (setq bouts (append '(nil) (cadr decoupe) '(nil)))
  (while (cdr bouts)
    (setq feuilles (cons (plv-feuilles:une (car decoupe) echelle place titre (+ rang (length feuilles)) (car bouts) (cadr bouts)
                           (caddr decoupe) (cadddr decoupe))
                     feuilles)
          bouts (cdr bouts)))
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

;; --- the template: what it leaves for profiles, (width height sheet corner left bottom logo) in millimetres: the size of the sheet, the
;; lower left corner of the sheet in the template, the lower left corner of the room from there; the room of a logo from the corner of that
;; for profiles, (x y width height), nil without one

(defun plv-place-largeur (place) (car place))
(defun plv-place-hauteur (place) (cadr place))
(defun plv-place-feuille (place) (caddr place))
(defun plv-place-coin (place) (cadddr place))
(defun plv-place-gauche (place) (nth 4 place))
(defun plv-place-bas (place) (nth 5 place))

(defun plv-place-logo (place) (nth 6 place))

(defun plv-feuilles:place-de (lu / coin)
  (setq coin (list (car (caddr lu)) (cadr (caddr lu))))
  (append (list (car (cadr lu)) (cadr (cadr lu)) (list (caar lu) (cadar lu)) coin) (mapcar '- (cadddr lu) coin)
    (if (nth 5 lu) (list (append (mapcar '- (nth 5 lu) (cadddr lu)) (nth 4 lu))))))

(setq plv-feuilles:formats '("A4" "A2" "A1" "A0" "R297" "R420" "R594" "R841"))

(defun plv-feuilles:modele (nom)
  "The template of a format, A4 to A0 or a roll of such a height; any other name is a file's."
  (cond
    ((= (strcase nom) "A3") "cartouche.dxf")
    ((member (strcase nom) plv-feuilles:formats) (strcat "cartouche-" (strcase nom T) ".dxf"))
    (T nom)))

(defun plv-feuilles:place (modele / lu)
  "The room of a template; nil after a message."
  (setq lu (vl-catch-all-apply 'modele-feuille (list modele)))
  (if (vl-catch-all-error-p lu) (plv-erreur (vl-catch-all-error-message lu)) (plv-feuilles:place-de lu)))
