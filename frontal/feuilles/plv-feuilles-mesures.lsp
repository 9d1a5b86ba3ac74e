;; What a profile takes of a sheet: the ends of what is drawn of it, and what stands along it that a cut might tear.
;; Shared in the room: plv-feuilles:*

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

;; --- what lies along it

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
