;; Rows about the plan: alignments and arcs of the axis, changes of direction, cross falls.
;; The axis in plan is a polyline that the profile names under AXEPLAN; cross falls are a record of the profile.

(defun plv-axe-plan (profil / axe)
  "The axis in plan, nil when there is none."
  (if (and (setq axe (plgxd profil "AXEPLAN")) (entget axe)) axe))

(defun plv-associer-axe (profil axe)
  "Makes a light polyline the profile's axis in plan; its first vertex is the profile's origin."
  (if (= (plv-cle 0 (entget axe)) "LWPOLYLINE")
    (progn (plsxd profil "AXEPLAN" axe) axe)
    (plv-erreur "une polyligne est attendue pour l'axe en plan")))

(defun c:plv-axe (/ profil choix)
  (if (and (setq profil (plv-choisir-profil))
           (setq choix (entsel "\nPolyligne de l'axe en plan: "))
           (plv-associer-axe profil (car choix)))
    (plv-dire "Axe en plan associe."))
  (princ))

(defun plv-axe-segments (axe / groupes points cumul resultat)
  "Segments of a polyline as (d1 d2 start end bulge)."
  (setq groupes (entget axe) cumul 0.0)
  (foreach g groupes
    (cond ((= (car g) 10) (setq points (cons (list (cdr g) 0.0) points)))
          ((and points (= (car g) 42)) (setq points (cons (list (caar points) (cdr g)) (cdr points))))))
  (setq points (reverse points))
  (mapcar
    '(lambda (a b / l)
       (setq l (plv-axe:longueur (car a) (car b) (cadr a)))
       (if (> l 1e-9)
         (setq resultat (cons (list cumul (+ cumul l) (car a) (car b) (cadr a)) resultat) cumul (+ cumul l))))
    points (cdr points))
  (reverse resultat))

(defun plv-axe:longueur (a b bulbe)
  (if (equal bulbe 0.0 1e-12) (distance a b) (abs (* 4.0 (atan bulbe) (plv-axe:rayon a b bulbe)))))

(defun plv-axe:rayon (a b bulbe) (/ (* (distance a b) (+ 1.0 (* bulbe bulbe))) (* 4.0 (abs bulbe))))

(defun plv-axe-en (segments d / trouve part)
  "(point direction) of the axis at a distance; beyond an end the end itself."
  (foreach s segments (if (or (not trouve) (>= d (car s))) (setq trouve s)))
  (setq part (plv-entre (/ (- d (car trouve)) (- (cadr trouve) (car trouve))) 0.0 1.0))
  (plv-axe:position (caddr trouve) (cadddr trouve) (nth 4 trouve) part))

(defun plv-axe:position (a b bulbe part / angle-corde ouverture corde direction)
  ;; An arc of opening 4 atan(bulge) leaves its chord by half of it to the right of a counter-clockwise turn.
  (setq angle-corde (angle a b) ouverture (* 4.0 (atan bulbe)))
  (if (equal ouverture 0.0 1e-12)
    (list (polar a angle-corde (* part (distance a b))) angle-corde)
    (progn
      (setq direction (- angle-corde (* 0.5 ouverture))
            corde (* 2.0 (plv-axe:rayon a b bulbe) (abs (sin (* 0.5 part ouverture)))))
      (list (polar a (+ direction (* 0.5 part ouverture)) corde) (+ direction (* part ouverture))))))

(defun plv-axe:deviation (s suivant / ecart)
  "Change of direction from a segment to the next, in (-pi, pi], positive to the left."
  (setq ecart (- (cadr (plv-axe-en (list suivant) (car suivant))) (cadr (plv-axe-en (list s) (cadr s)))))
  (while (> ecart pi) (setq ecart (- ecart (* 2.0 pi))))
  (while (<= ecart (- pi)) (setq ecart (+ ecart (* 2.0 pi))))
  ecart)

;; --- the row

(defun plv-remplir:plan (points contexte / axe segments fin)
  (setq fin (plv-cle 'longueur contexte))
  (if (setq axe (plv-axe-plan (plv-cle 'profil contexte)))
    (progn
      (setq segments (vl-remove-if '(lambda (s) (>= (car s) (- fin 1e-6))) (plv-axe-segments axe)))
      (foreach s segments (plv-remplir:segment-plan (car s) (min fin (cadr s)) s contexte))
      (mapcar 'plv-remplir:angle-plan segments (cdr segments)))
    (plv-laisser-vide)))

(defun plv-remplir:segment-plan (d1 d2 s contexte / gauche texte)
  (pl_TexteMultipleCentre d1 d2 "|")
  (setq texte (plv-remplir:qui-tient (plv-remplir:texte-plan s) (* 0.95 (- d2 d1)) contexte))
  (if (equal (nth 4 s) 0.0 1e-12)
    (if texte (pl_TexteHorizontalCentre (* 0.5 (+ d1 d2)) texte))
    (progn
      ;; The arc bulges to the side that it turns away from, and its text stands on the other.
      (setq gauche (> (nth 4 s) 0.0))
      (pl_ArcCell d1 d2 (if gauche 0 1))
      (if texte (pl_TexteHorizontalCentre (* 0.5 (+ d1 d2)) texte (if gauche 1.0 -1.0))))))

(defun plv-remplir:texte-plan (s / longueur rayon)
  (setq longueur (strcat "L=" (plv-reel (- (cadr s) (car s)) 2)))
  (if (equal (nth 4 s) 0.0 1e-12)
    (list (strcat "Alignement " longueur) longueur)
    (list (strcat "R=" (plv-reel (setq rayon (plv-axe:rayon (caddr s) (cadddr s) (nth 4 s))) 2) " " longueur) (strcat "R=" (plv-reel rayon 0)))))

(defun plv-remplir:angle-plan (s suivant / ecart)
  "Two quarter circles where the axis turns at a point: at the top for the left, at the bottom for the right."
  (setq ecart (plv-axe:deviation s suivant))
  (if (> (abs ecart) 1e-4)
    (foreach code (if (> ecart 0.0) '(0 1) '(3 2)) (pl_Quadrant (cadr s) code 0.25))))

;; --- cross falls

(defun plv-devers (profil liste / origine)
  "Stores cross falls (station left right), in percent, rising outwards positive."
  (setq origine (plgxd profil "DCUMDEB"))
  (plv-ecrire-enregistrement profil "PLV_DEVERS"
    (mapcar '(lambda (v) (list 10 (- (float (car v)) origine) (float (cadr v)) (float (caddr v))))
            (vl-sort liste '(lambda (a b) (< (car a) (car b)))))))

(defun plv-devers-fichier (profil chemin / trouve numero champs valeurs liste fautive)
  "Reads station;left;right lines; gives the list, or nil after a message."
  (setq numero 0)
  (if (setq trouve (plv-fichier-existant chemin))
    (foreach ligne (plv-lire-lignes trouve)
      (setq numero (1+ numero)
            champs (plv-couper ligne (plv-separateur ligne))
            valeurs (mapcar 'plv-nombre champs))
      (cond
        ((or fautive (= (vl-string-trim " \t" ligne) "") (wcmatch (vl-string-left-trim " \t" ligne) "[#;]*")))
        ((and (= (length valeurs) 3) (not (member nil valeurs))) (setq liste (cons valeurs liste)))
        ((and (not liste) (not (vl-some 'numberp valeurs))))
        (T (setq fautive T)
           (plv-erreur (strcat trouve ", ligne " (itoa numero) " illisible: \"" ligne "\"; station, devers gauche et devers droit attendus"))))))
  (if (and liste (not fautive)) (progn (plv-devers profil liste) (reverse liste))))

(defun c:plv-devers (/ profil chemin)
  (if (and (setq profil (plv-choisir-profil))
           (setq chemin (plv-demander-fichier "Fichier des devers")))
    (plv-devers-fichier profil chemin))
  (princ))

(defun plv-remplir:devers (points contexte / devers grand)
  "The falls of both sides as lines about the middle of the row; one line where they are the same."
  (setq devers (mapcar 'cdr (plv-enregistrement (plv-cle 'profil contexte) "PLV_DEVERS")))
  (if (cdr devers)
    (progn
      (setq grand (apply 'max (cons 1.0 (mapcar '(lambda (v) (max (abs (cadr v)) (abs (caddr v)))) devers))))
      (mapcar
        '(lambda (a b)
           (pl_TexteMultipleCentre (car a) (car b) "|")
           (if (and (equal (cadr a) (caddr a) 1e-9) (equal (cadr b) (caddr b) 1e-9))
             (plv-remplir:cote-devers a b 'cadr "" grand contexte)
             (progn
               (plv-remplir:cote-devers a b 'cadr "G " grand contexte)
               (plv-remplir:cote-devers a b 'caddr "D " grand contexte))))
        devers (cdr devers)))
    (plv-laisser-vide)))

(defun plv-remplir:cote-devers (a b cote prefixe grand contexte / va vb texte)
  (setq va (apply cote (list a)) vb (apply cote (list b))
        ;; Figures only where nothing turns: a slanting side would run through the other's.
        texte (if (equal (cdr a) (list (cadr b) (caddr b)) 1e-9)
                (plv-remplir:qui-tient (list (strcat prefixe (plv-remplir:signe va 2) " %")) (* 0.95 (- (car b) (car a))) contexte)))
  (apply 'pl_ligneMatrice
    (append (list (car a) (plv-remplir:hauteur-devers va grand) (car b) (plv-remplir:hauteur-devers vb grand)) (if texte (list texte)))))

(defun plv-remplir:hauteur-devers (valeur grand) (+ 0.4 (* 0.25 (/ valeur grand))))
