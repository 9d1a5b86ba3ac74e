;; Filling rows, kind by kind. The type of a row is the place of its kind in the system's list, from 0.
;; A filler gets the table's points (distance altitude name number) and a list of what it may need.
;; The fillers of project lines, of the plan and of blocks stand in files of their own.

(setq plv-genres
  '((0 . plv-remplir:numeros) (1 . plv-remplir:numeros-verticaux) (2 . plv-remplir:distances-partielles)
    (3 . plv-remplir:distances-cumulees) (4 . plv-remplir:altitudes-tn) (5 . plv-remplir:altitudes-projet)
    (6 . plv-remplir:profondeurs) (7 . plv-remplir:plan) (8 . plv-remplir:observations) (9 . plv-remplir:devers)
    (10 . plv-remplir:reperes) (11 . plv-remplir:attributs) (12 . plv-remplir:pentes) (13 . plv-remplir:pentes-normales)
    (14 . plv-remplir:pentes-pourcent) (15 . plv-remplir:pentes-pourmilles) (16 . plv-remplir:partielles-projet)
    (17 . plv-remplir:cumulees-projet) (402 . plv-remplir:attributs-auto) (403 . plv-remplir:attributs-auto)))

(defun plv-remplir:numeros (points contexte)
  (foreach p points (pl_TexteHorizontalCentre (car p) (itoa (cadddr p)))))

(defun plv-remplir:numeros-verticaux (points contexte)
  (foreach p points (pl_TexteVertical (car p) (itoa (cadddr p)))))

(defun plv-remplir:distances-partielles (points contexte)
  ;; A list of two or three reals reaches the function as a point, which it takes for as many abscissas.
  (pl_CotDParH (mapcar '(lambda (p) (float (car p))) points)))

(defun plv-remplir:distances-cumulees (points contexte)
  ;; Here a point would be refused: the abscissas of short rows go one by one.
  (foreach p points (pl_CotDcumH 0 (plv-cle 'origine contexte) (float (car p)))))

(defun plv-remplir:altitudes-tn (points contexte)
  (foreach p points (pl_NbreVertical 0 (float (car p)) (float (cadr p)))))

(defun plv-remplir:observations (points contexte / ecart precedent)
  "Named points with their station; each takes three text heights."
  (setq ecart (* 3.2 (plv-cle 'ttxt contexte)))
  (foreach p (plv-cle 'nommes contexte)
    (if (or (not precedent) (>= (- (car p) precedent) ecart))
      (progn
        (plv-remplir:observation p contexte)
        (setq precedent (car p)))
      (plv-laisser 1))))

(defun plv-remplir:observation (p contexte / ttxt station)
  "Station and name behind the point; before it where the table ends."
  (setq ttxt (plv-cle 'ttxt contexte)
        station (+ (plv-cle 'origine contexte) (car p)))
  (if (<= (+ (car p) (* 2.0 ttxt)) (plv-cle 'longueur contexte))
    (pl_ptPkEtObs (float (car p)) station (caddr p))
    (progn
      (pl_TexteVertical (- (car p) (* 3.2 ttxt)) (pl_distToPk station))
      (pl_TexteVertical (- (car p) (* 1.7 ttxt)) (caddr p)))))

(defun plv-remplir:reperes (points contexte / pas station fin distance marques)
  "A mark at every round station, with the station written behind it."
  (setq pas (plv-remplir:pas-reperes contexte)
        fin (plv-cle 'longueur contexte)
        station (* pas (float (plv-plans:entier (/ (+ (plv-cle 'origine contexte) pas -1e-6) pas)))))
  (while (<= (setq distance (- station (plv-cle 'origine contexte))) (+ fin 1e-6))
    (setq marques (cons distance marques) station (+ station pas)))
  (setq marques (reverse marques))
  ;; Ticks only: a text of bars has no part to write.
  (mapcar '(lambda (a b) (pl_TexteMultipleCentre (float a) (float b) "|")) marques (cdr marques))
  (foreach m marques
    (if (<= (+ m (plv-remplir:largeur-repere contexte)) (+ fin 1e-6))
      (pl_TexteHorizontalGauche (float m) (pl_distToPk (+ m (plv-cle 'origine contexte)) 0) 0 0.5))))

(defun plv-remplir:largeur-repere (contexte)
  (+ (plv-cle 'ttxt contexte) (plv-largeur-texte (pl_distToPk (+ (plv-cle 'origine contexte) (plv-cle 'longueur contexte)) 0) (plv-cle 'ttxt contexte))))

(defun plv-remplir:pas-reperes (contexte / pas)
  (foreach p '(10.0 20.0 25.0 50.0 100.0 200.0 250.0 500.0 1000.0)
    (if (and (not pas) (>= p (* 1.2 (plv-remplir:largeur-repere contexte)))) (setq pas p)))
  (cond (pas) (1000.0)))

;; --- cells that were left out are counted over one filling

(setq plv-laissees 0)
(defun plv-laisser (nombre) (setq plv-laissees (+ plv-laissees nombre)))

(defun plv-tables:genres (/ i j genres)
  "The kinds of all rows of all matrices."
  (setq i 0)
  (while (pl_SelectMatrice i)
    (setq j 0)
    (while (pl_SelectLigne i j)
      (setq genres (cons (pl_typelignemat) genres) j (1+ j)))
    (setq i (1+ i)))
  genres)

(defun plv-laisser-vide ()
  "The current row stays empty; it is named once at the end."
  (setq plv-vides (cons (pl_textlignemat) plv-vides)))

;; Kinds whose writers, or some of them, leave entities outside the table's group.
(setq plv-genres-hors-groupe '(7 9 12 13 14 15 402 403))

(defun plv-remplir-ligne (points contexte / genre remplisseur)
  "Fills the current row; gives the entities that the table's group doesn't hold."
  (setq genre (pl_typelignemat) remplisseur (plv-cle genre plv-genres))
  (cond
    ((not remplisseur) (plv-laisser-vide) nil)
    ((member genre plv-genres-hors-groupe) (plv-ajouts-de '(lambda () (apply remplisseur (list points contexte)))))
    (T (apply remplisseur (list points contexte)) nil)))

(defun plv-remplir:infos (reference rang)
  "The text between braces of a row's definition."
  (cdr (nth (+ 11 (* 8 rang)) (plv-enregistrement reference "INFO_MATRICE"))))

(defun plv-remplir-tables (points contexte / i j references plv-vides ajouts)
  "Fills every row of every table; gives the entities outside the tables' groups."
  (setq i 0 references (plv-tables:references (plv-cle 'profil contexte)))
  (while (pl_SelectMatrice i)
    (setq j 0)
    (while (pl_SelectLigne i j)
      (setq ajouts (append ajouts (plv-remplir-ligne points (cons (cons 'infos (plv-remplir:infos (nth i references) j)) contexte)))
            j (1+ j)))
    (setq i (1+ i)))
  (if plv-vides (plv-dire (strcat "Lignes laissees vides: " (plv-joindre (reverse plv-vides) ", ") ".")))
  ajouts)
