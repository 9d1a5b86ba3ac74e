;; Rows about a network: its manholes at their stations, its pipes between them, the cover over the crown at the table's points.
;; The text between braces names the kind of line, {AEp}; without it the first kind that has a network serves.
;; Shared in the room: plv-remplir:*

(defun plv-remplir:genre-reseau (profil infos / genres)
  (setq genres (plv-genres-de-reseau profil))
  (cond ((car (member (plv-genre (vl-string-trim " " (cond (infos) ("")))) genres))) ((car genres))))

(defun plv-reseau-de-rangee (profil infos / genre reseau)
  "The network that a row shows; nil for none, and for one that can't be read."
  (if (and (setq genre (plv-remplir:genre-reseau profil infos)) (listp (setq reseau (plv-reseau-lu profil genre)))) reseau))

(defun plv-remplir:reseau (contexte) (plv-reseau-de-rangee (plv-cle 'profil contexte) (plv-cle 'infos contexte)))

(defun plv-remplir:distance-de (contexte station) (float (- station (plv-cle 'origine contexte))))

(defun plv-remplir:aux-regards (contexte fonction / reseau)
  "Calls the function (manhole distance) with each; 0, or nil without a network."
  (if (setq reseau (plv-remplir:reseau contexte))
    (progn
      (foreach n (plv-reseau-regards reseau) (apply fonction (list n (plv-remplir:distance-de contexte (plv-noeud-station n)))))
      0)))

(defun plv-remplir:regards (points contexte)
  (plv-remplir:aux-regards contexte '(lambda (n d) (pl_TexteHorizontalCentre d (plv-noeud-nom n)))))

(defun plv-remplir:tampons (points contexte)
  (plv-remplir:aux-regards contexte '(lambda (n d) (plv-remplir:nombre d (plv-noeud-tampon n) contexte))))

(defun plv-remplir:profondeurs-regards (points contexte)
  (plv-remplir:aux-regards contexte '(lambda (n d) (plv-remplir:nombre d (- (plv-noeud-tampon n) (plv-noeud-fond n)) contexte))))

(defun plv-remplir:fils-d-eau (points contexte)
  "Where the inverts differ one on each side, else one."
  (plv-remplir:aux-regards contexte
    '(lambda (n d / ecart)
       (setq ecart (* 0.8 (plv-cle 'ttxt contexte)))
       (cond
         ((not (plv-noeud-arrivee n)) (plv-remplir:nombre d (plv-noeud-depart n) contexte))
         ((not (and (plv-noeud-depart n) (not (equal (plv-noeud-arrivee n) (plv-noeud-depart n) 5e-4))))
          (plv-remplir:nombre d (plv-noeud-arrivee n) contexte))
         (T
          (plv-remplir:nombre (- d ecart) (plv-noeud-arrivee n) contexte)
          (plv-remplir:nombre (+ d ecart) (plv-noeud-depart n) contexte))))))

;; --- pipes

(defun plv-remplir:aux-tuyaux (contexte aux-tuyaux:fonction / reseau)
  "Calls the function (pipe from to), which gives 1 for a text without room; their sum, or nil without a network."
  (if (setq reseau (plv-remplir:reseau contexte))
    (plv-remplir:somme
      '(lambda (tuyau)
         (apply aux-tuyaux:fonction
           (list tuyau (plv-remplir:distance-de contexte (plv-tuyau-debut tuyau)) (plv-remplir:distance-de contexte (plv-tuyau-fin tuyau)))))
      (plv-reseau-tuyaux reseau))))

(defun plv-remplir:entre (d1 d2 textes contexte / texte)
  "The first text that has room between two ticks; the ticks alone without one."
  (setq texte (plv-remplir:qui-tient textes (* 0.95 (- d2 d1)) contexte))
  (pl_TexteMultipleCentre d1 d2 (cond (texte) ("|")))
  (plv-remplir:manque texte))

(defun plv-remplir:nombre-entre (d1 d2 textes contexte / parts)
  "The same of figures: their decimal point stands in the middle where there is room, so that rows of the same pipes have theirs one above another."
  (if (vl-string-search "." (car textes)) (setq parts (plv-autour-du-point (car textes) (plv-cle 'ttxt contexte))))
  (if (and parts (<= (* 2.0 (apply 'max parts)) (* 0.95 (- d2 d1))))
    (progn
      (pl_TexteMultipleCentre d1 d2 "|")
      (pl_TexteHorizontalCentre (+ (* 0.5 (+ d1 d2)) (* 0.5 (- (cadr parts) (car parts)))) (car textes))
      0)
    (plv-remplir:entre d1 d2 textes contexte)))

(defun plv-remplir:tuyaux (points contexte)
  (plv-remplir:aux-tuyaux contexte
    '(lambda (tuyau d1 d2) (plv-remplir:entre d1 d2 (list (plv-tuyau-en-mots tuyau) (strcat "Ø" (plv-tuyau-diametre tuyau))) contexte))))

(defun plv-remplir:pentes-tuyaux (points contexte)
  (plv-remplir:aux-tuyaux contexte
    '(lambda (tuyau d1 d2 / pente)
       (setq pente (plv-reel (abs (* 100.0 (plv-tuyau-pente tuyau))) (plv-cle 'decimales contexte)))
       (plv-remplir:nombre-entre d1 d2 (list (strcat pente " %") pente) contexte))))

(defun plv-remplir:longueurs-tuyaux (points contexte)
  (plv-remplir:aux-tuyaux contexte
    '(lambda (tuyau d1 d2) (plv-remplir:nombre-entre d1 d2 (list (plv-reel (- d2 d1) (plv-cle 'decimales contexte))) contexte))))

(defun plv-remplir:ecoulement (points contexte)
  "An arrow along each pipe, downhill."
  (plv-remplir:aux-tuyaux contexte
    '(lambda (tuyau d1 d2 / pente)
       (setq pente (plv-tuyau-pente tuyau))
       (pl_TexteMultipleCentre d1 d2 "|")
       (if (not (equal pente 0.0 1e-9)) (plv-remplir:fleche d1 d2 (< pente 0.0) contexte))
       0)))

(defun plv-remplir:fleche (d1 d2 droite contexte / milieu demi pointe talon barbe)
  (setq milieu (* 0.5 (+ d1 d2)) demi (min (* 0.4 (- d2 d1)) (* 3.0 (plv-cle 'ttxt contexte))) barbe (min demi (plv-cle 'ttxt contexte))
        pointe (if droite (+ milieu demi) (- milieu demi)) talon (if droite (- pointe barbe) (+ pointe barbe)))
  (pl_ligneMatrice (- milieu demi) 0.5 (+ milieu demi) 0.5)
  (foreach f '(0.3 0.7)
    (if droite (pl_ligneMatrice talon f pointe 0.5) (pl_ligneMatrice pointe 0.5 talon f))))

;; --- cover

(defun plv-remplir:couverture-en (reseau station terrain / tuyau)
  "The ground over the crown at a station; nil where there is no pipe."
  (if (setq tuyau (car (vl-member-if '(lambda (tuyau) (<= (- (plv-tuyau-debut tuyau) 1e-6) station (+ (plv-tuyau-fin tuyau) 1e-6))) (plv-reseau-tuyaux reseau))))
    (- terrain (plv-interpoler (list (plv-tuyau-depart tuyau) (plv-tuyau-arrivee tuyau)) station) (plv-tuyau-interieur tuyau) (plv-tuyau-paroi tuyau))))

(defun plv-remplir:couverture (points contexte / reseau c)
  (if (setq reseau (plv-remplir:reseau contexte))
    (progn
      (foreach p points
        (if (setq c (plv-remplir:couverture-en reseau (+ (car p) (plv-cle 'origine contexte)) (cadr p))) (plv-remplir:nombre (car p) c contexte)))
      0)))
