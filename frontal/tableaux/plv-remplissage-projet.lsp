;; Rows about a project line: altitudes, depths, slopes in four wordings, distances of its elements.
;; The text between braces names the kind of line, {Voirie}; without it the first kind that has a project line serves.

(defun plv-remplir:genre-projet (contexte / genres)
  (setq genres (plv-genres-du-projet (plv-cle 'profil contexte)))
  (cond ((car (member (plv-genre (vl-string-trim " " (plv-cle 'infos contexte))) genres))) ((car genres))))

(defun plv-remplir:sur-projet (points contexte fonction / genre profil situes plans z)
  "Calls the function with each point that the project line reaches and its altitude there."
  (if (setq genre (plv-remplir:genre-projet contexte))
    (progn
      (setq profil (plv-cle 'profil contexte)
            situes (plv-elements-situes profil genre)
            plans (plv-tables:plans profil))
      (foreach p points
        (if (setq z (plv-altitude-projet profil situes plans (car p))) (apply fonction (list p z)))))
    (plv-laisser-vide)))

(defun plv-remplir:altitudes-projet (points contexte)
  (plv-remplir:sur-projet points contexte '(lambda (p z) (pl_NbreVertical 0 (float (car p)) z))))

(defun plv-remplir:profondeurs (points contexte)
  ;; Positive below the ground.
  (plv-remplir:sur-projet points contexte '(lambda (p z) (pl_NbreVertical 0 (float (car p)) (- (cadr p) z)))))

;; --- slopes

(defun plv-remplir:sens (p)
  (cond ((equal p 0.0 5e-5) "Palier") ((> p 0.0) "Rampe") ("Pente")))

(defun plv-remplir:signe (valeur decimales)
  (strcat (if (> valeur 0.0) "+" "") (plv-reel valeur decimales)))

;; Wordings of a slope over a length, from the longest to the shortest.
(defun plv-remplir:pentes (points contexte)
  (plv-remplir:troncons contexte
    '(lambda (p l / sens)
       (setq sens (plv-remplir:sens p))
       (if (= sens "Palier")
         (list (strcat sens " sur " (plv-reel l 2) " m") sens)
         (list (strcat sens " " (plv-reel (abs (* 100.0 p)) 2) " % sur " (plv-reel l 2) " m")
               (strcat sens " " (plv-reel (abs (* 100.0 p)) 2) " %") (strcat (plv-reel (abs (* 100.0 p)) 2) " %"))))))

(defun plv-remplir:pentes-normales (points contexte)
  (plv-remplir:troncons contexte '(lambda (p l) (list (strcat (plv-remplir:signe p 4) " m/m") (plv-remplir:signe p 4)))))

(defun plv-remplir:pentes-pourcent (points contexte)
  (plv-remplir:troncons contexte '(lambda (p l) (list (strcat (plv-remplir:signe (* 100.0 p) 2) " %")))))

(defun plv-remplir:pentes-pourmilles (points contexte)
  (plv-remplir:troncons contexte '(lambda (p l) (list (strcat (plv-remplir:signe (* 1000.0 p) 1) " \U+2030")))))

(defun plv-remplir:troncons (contexte redaction / genre)
  "A slanting line with its wording for each slope, a cell with its radius for each vertical curve."
  (if (setq genre (plv-remplir:genre-projet contexte))
    (foreach tr (plv-troncons (plv-cle 'profil contexte) genre)
      (if (numberp (caddr tr))
        (plv-remplir:pente tr (apply redaction (list (caddr tr) (- (cadr tr) (car tr)))) contexte)
        (plv-remplir:courbe tr contexte)))
    (plv-laisser-vide)))

(defun plv-remplir:qui-tient (textes largeur contexte / choix)
  "The first text that is no wider; nil, and counted as left out, when all are."
  (foreach texte textes
    (if (and (not choix) (<= (plv-largeur-texte texte (plv-cle 'ttxt contexte)) largeur)) (setq choix texte)))
  (cond (choix) (T (plv-laisser 1) nil)))

(defun plv-remplir:pente (tr textes contexte / texte f1 f2)
  ;; The line stays in the lower part of the row, so that its text has the room above it.
  (setq f1 (cond ((equal (caddr tr) 0.0 5e-5) 0.22) ((> (caddr tr) 0.0) 0.1) (0.34))
        f2 (- 0.44 f1)
        texte (plv-remplir:qui-tient textes (* 0.95 (- (cadr tr) (car tr))) contexte))
  (pl_TexteMultipleCentre (car tr) (cadr tr) "|")
  (if texte
    (pl_ligneMatrice (car tr) f1 (cadr tr) f2 texte)
    (pl_ligneMatrice (car tr) f1 (cadr tr) f2)))

(defun plv-remplir:courbe (tr contexte / rayon texte)
  (setq rayon (plv-rayon-troncon (plv-cle 'profil contexte) tr)
        ;; A cell narrows its text to 0.6 and lowers it to 0.7.
        texte (if rayon
                (plv-remplir:qui-tient (list (strcat "R=" (plv-reel rayon 0) " L=" (plv-reel (- (cadr tr) (car tr)) 2)) (strcat "R=" (plv-reel rayon 0)))
                  (/ (- (cadr tr) (car tr)) 0.65) contexte)))
  (pl_TexteMultipleCentre (car tr) (cadr tr) (cond (texte) ("|"))))

(defun plv-rayon-troncon (profil tr)
  "Radius of a vertical curve: the one it was drawn with, or that of the parabola through its ends and middle."
  (cond ((plv-rayon (cadddr tr))) ((plv-rayon-mesure profil tr))))

(defun plv-rayon-mesure (profil tr / x0 echv d y parabole)
  (setq x0 (cadr (assoc 10 (entget profil)))
        echv (plgxd profil "ECHV")
        d (mapcar '(lambda (part) (+ (car tr) (* part (- (cadr tr) (car tr))))) '(0.05 0.5 0.95))
        y (mapcar '(lambda (v) (pl_yat (cadddr tr) (+ x0 v))) d))
  (if (and (not (member nil y))
           (setq parabole (apply 'pl_fprmprb (mapcar '(lambda (a b) (list (- a (car d)) (/ (- b (car y)) echv) 0.0)) d y)))
           (> (abs (car parabole)) 1e-9))
    (/ 0.5 (abs (car parabole)))))

;; --- distances of the elements

(defun plv-remplir:bornes (contexte ecart / bornes genre)
  "Distances where elements begin and end, no closer than ecart."
  (if (setq genre (plv-remplir:genre-projet contexte))
    (progn
      (foreach tr (plv-troncons (plv-cle 'profil contexte) genre)
        (if (or (not bornes) (not (equal (car tr) (car bornes) 1e-6))) (setq bornes (cons (car tr) bornes)))
        (setq bornes (cons (cadr tr) bornes)))
      (mapcar 'car (plv-espacer (mapcar 'list (reverse bornes)) ecart)))
    (progn (plv-laisser-vide) nil)))

(defun plv-remplir:partielles-projet (points contexte / bornes)
  (if (setq bornes (plv-remplir:bornes contexte 0.0)) (pl_CotDParH bornes)))

(defun plv-remplir:cumulees-projet (points contexte)
  (foreach d (plv-remplir:bornes contexte (* 1.3 (plv-cle 'ttxt contexte))) (pl_CotDcumH 0 (plv-cle 'origine contexte) d)))
