;; Filling rows, kind by kind, see plv-types. A filler gets the table's points (distance altitude name number) and a list of
;; what it may need (plv-contexte); it gives the number of cells that it left out, nil when it has nothing for the whole row.
;; Shared in the room: plv-remplir:*

(defun plv-contexte (profil points tout)
  (list (cons 'profil profil)
        (cons 'tout tout)
        (cons 'ttxt (plv-ttxt profil))
        (cons 'origine (plv-premiere-station profil))
        (cons 'longueur (car (plv-dernier points)))
        (cons 'nommes (vl-remove-if '(lambda (p) (= (plv-point-nom p) "")) points))))

(defun plv-contexte-de-rangee (contexte reference rang / rangee)
  (setq rangee (plv-rangee reference rang))
  (vl-list* (cons 'infos (plv-rangee-infos rangee)) (cons 'decimales (plv-rangee-decimales rangee)) contexte))

;; --- what a filling gives: (cells left out, texts of the empty rows, entities that the tables' groups don't hold)

(defun plv-bilan (laisses vides ajouts) (list laisses vides ajouts))
(defun plv-bilan-laisses (bilan) (car bilan))
(defun plv-bilan-vides (bilan) (cadr bilan))
(defun plv-bilan-ajouts (bilan) (caddr bilan))

(defun plv-bilans (a b) (list (+ (car a) (car b)) (append (cadr a) (cadr b)) (append (caddr a) (caddr b))))

(defun plv-remplir-ligne (points contexte / nature remplisseur fait)
  "Fills the current row."
  (setq nature (pl_typelignemat)
        remplisseur (plv-types:remplisseur nature)
        fait (cond
               ((not remplisseur) nil)
               ((plv-types:hors-groupe nature) (plv-executer '(lambda () (apply remplisseur (list points contexte)))))
               (T (list (apply remplisseur (list points contexte))))))
  (if (car fait)
    (plv-bilan (car fait) nil (cadr fait))
    (plv-bilan 0 (list (pl_textlignemat)) (cadr fait))))

(defun plv-remplir-tables (points contexte / i j references bilan)
  "Fills every row of every table."
  (setq i 0 references (plv-references-tables (plv-cle 'profil contexte)) bilan (plv-bilan 0 nil nil))
  (while (pl_SelectMatrice i)
    (setq j 0)
    (while (pl_SelectLigne i j)
      (setq bilan (plv-bilans bilan (plv-remplir-ligne points (plv-contexte-de-rangee contexte (nth i references) j)))
            j (1+ j)))
    (setq i (1+ i)))
  bilan)

(defun plv-types-des-tables (profil)
  "The kinds of all rows of all tables."
  (apply 'append
    (mapcar '(lambda (r) (mapcar 'plv-rangee-nature (plv-matrice-rangees (plv-matrice r)))) (plv-tables profil))))

(defun plv-points-gardes (points contexte)
  "The points that get cells."
  (if (plv-cle 'tout contexte)
    points
    (plv-espacer points
      (plv-espacement-necessaire (plv-types-des-tables (plv-cle 'profil contexte)) points (plv-cle 'ttxt contexte)))))

(defun plv-remplir:nul-p (valeur contexte)
  "T when a number is written as zero in the row: the module would put a minus before a small negative one."
  (= (atof (plv-reel valeur (plv-cle 'decimales contexte))) 0.0))

(defun plv-remplir:nombre (d valeur contexte)
  (pl_NbreVertical 0 (float d) (if (plv-remplir:nul-p valeur contexte) 0.0 (float valeur))))

(defun plv-remplir:cumulee (d contexte / origine)
  (setq origine (plv-cle 'origine contexte))
  (pl_CotDcumH 0 (if (plv-remplir:nul-p (+ origine d) contexte) (- (float d)) origine) (float d)))

(defun plv-remplir:partielles (distances / differentes)
  "Distances between ticks. The module takes both away of two that are the same, as at a wall."
  (foreach d distances
    (if (not (and differentes (equal d (car differentes) 1e-6))) (setq differentes (cons (float d) differentes))))
  ;; A list of two or three reals reaches the function as a point, which it takes for as many abscissas.
  (foreach e (plv-ajouts-de '(lambda () (pl_CotDParH (reverse differentes))))
    (if (= (plv-type e) "TEXT") (plv-espacement:desserrer e))))

(defun plv-remplir:qui-tient (textes largeur contexte)
  "The first text that is no wider; nil when all are wider."
  (car (vl-member-if '(lambda (texte) (<= (plv-largeur-texte texte (plv-cle 'ttxt contexte)) largeur)) textes)))

(defun plv-remplir:manque (texte)
  "What a text that has no room counts as."
  (if texte 0 1))

(defun plv-remplir:somme (fonction liste)
  "The cells that the function left out, over a list."
  (apply '+ (cons 0 (mapcar fonction liste))))
