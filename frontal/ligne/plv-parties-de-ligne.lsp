;; Vertices inserted and taken away, parts of a line cut out, joined, moved and mirrored. The functions give runs of vertices, or the text
;; of why not.

(defun plv-ligne-suite-en (suites d)
  "The rank, from 0, of the run that goes over a distance; nil for none."
  (setq suites (mapcar '(lambda (suite) (if (<= (- (caar suite) 1e-6) d (+ (car (plv-dernier suite)) 1e-6)) T)) suites))
  (vl-position T suites))

(defun plv-ligne-numero-en (suites d / numero trouve)
  "The number of the vertex at a distance; nil for none."
  (setq numero 0)
  (foreach s (apply 'append suites)
    (setq numero (1+ numero))
    (if (and (not trouve) (equal (car s) d 1e-6)) (setq trouve numero)))
  trouve)

(defun plv-ligne-inserer (suites d z / rang suite)
  "A vertex at a distance, on its run or going on with the nearest one; z nil: on the straight line there."
  (cond
    ((plv-ligne-numero-en suites d) (strcat "il y a déjà un sommet à la distance " (plv-reel d 3)))
    ((not suites) "la ligne n'a pas de sommet")
    ((and (not (setq rang (plv-ligne-suite-en suites d))) (not z)) "hors de la ligne, une altitude est attendue")
    (T
     (setq rang (cond (rang) ((plv-parties-de-ligne:proche suites d))) suite (nth rang suites))
     (plv-remplacer-rang suites rang
       (list
         (vl-sort (cons (plv-sommet-de-ligne d (cond (z) ((plv-altitude-ligne suite d))) nil nil) suite)
                  '(lambda (a b) (< (car a) (car b)))))))))

(defun plv-parties-de-ligne:proche (suites d / ecarts)
  "The run whose end is nearest."
  (setq ecarts (mapcar '(lambda (suite) (min (abs (- d (caar suite))) (abs (- d (car (plv-dernier suite)))))) suites))
  (vl-position (apply 'min ecarts) ecarts))

(defun plv-ligne-supprimer (suites numero / lieu suite)
  "A run of two vertices goes as a whole only with the line."
  (cond
    ((not (setq lieu (plv-ligne-lieu suites numero))) (plv-refus-sommet suites numero))
    ((not (cddr (setq suite (nth (car lieu) suites)))) "une ligne a deux sommets au moins")
    ((plv-parties-de-ligne:sans-verrous-de-pente (plv-ligne-changer suites numero nil) (car lieu) (1- (cadr lieu))))))

(defun plv-parties-de-ligne:sans-verrous-de-pente (suites rang place / i suite)
  "Where a vertex went, the slopes of its neighbours are new: they aren't locked any more."
  (setq i -1)
  (foreach s (nth rang suites)
    (setq i (1+ i)
          suite (cons (if (and (<= place i (1+ place)) (member (plv-verrou s) '("Entree" "Sortie"))) (plv-premiers s 3) s) suite)))
  (plv-remplacer-rang suites rang (list (reverse suite))))

;; --- a stretch cut out, and runs joined

(defun plv-ligne-interrompre (suites debut fin / rang suite raccords)
  "Without what lies between two distances of one run; with its curves as they are."
  (setq rang (plv-ligne-suite-en suites debut) suite (if rang (nth rang suites)))
  (cond
    ((>= debut fin) "la seconde station est attendue après la première")
    ((not (and rang (equal rang (plv-ligne-suite-en suites fin)))) "les deux stations sont attendues sur une même partie de la ligne")
    (T
     (setq raccords (plv-raccords suite))
     (plv-parties-de-ligne:nettoyer
       (plv-remplacer-rang suites rang
         (list (plv-parties-de-ligne:morceau suite raccords (caar suite) debut) (plv-parties-de-ligne:morceau suite raccords fin (car (plv-dernier suite)))))))))

(defun plv-parties-de-ligne:morceau (suite raccords debut fin)
  "What a run has between two distances; nil for nothing."
  (if (> (- fin debut) 1e-6)
    (mapcar '(lambda (s) (plv-sommet-de-ligne (car s) (cadr s) (plv-demande-voulue (plv-demande-de s)) nil))
      (plv-sommets-entre suite raccords debut fin))))

(defun plv-parties-de-ligne:nettoyer (suites / faites)
  "Runs without empty ones; the text for nothing that is left."
  (cond ((setq faites (vl-remove nil suites))) ("il ne resterait rien de la ligne")))

(defun plv-ligne-joindre (suites numero / a b)
  "Run number and the next one become one, with a straight line between them."
  (setq a (nth (1- numero) suites) b (nth numero suites))
  (cond
    ((or (< numero 1) (not b)) "il n'y a pas de partie suivante à joindre")
    ((<= (caar b) (+ (car (plv-dernier a)) 1e-6))
     (append (plv-premiers suites (1- numero)) (list (append a (cdr b))) (plv-sans-premiers suites (1+ numero))))
    (T (append (plv-premiers suites (1- numero)) (list (append a b)) (plv-sans-premiers suites (1+ numero))))))

;; --- moved and mirrored

(defun plv-ligne-sur (suites premier dernier changer)
  "The runs with each vertex of a range changed by a function."
  (if (not (and (plv-ligne-lieu suites premier) (plv-ligne-lieu suites dernier) (<= premier dernier)))
    (plv-refus-sommet suites (if (plv-ligne-lieu suites premier) dernier premier))
    (while (<= premier dernier)
      (setq suites (plv-ligne-changer suites premier (list (apply changer (list (cadr (plv-ligne-voisins suites premier))))))
            premier (1+ premier))
      suites)))

(defun plv-ligne-decaler (suites premier dernier dx dz)
  "Vertices of a range moved in parallel."
  (plv-ligne-sur suites premier dernier
    '(lambda (s) (plv-sommet-de-ligne (+ (car s) dx) (+ (cadr s) dz) (plv-demande-de s) (plv-verrou s)))))

(defun plv-ligne-miroir (suites premier dernier altitude)
  "Altitudes of a range mirrored at a level; a curve goes on with its radius or length."
  (plv-ligne-sur suites premier dernier
    '(lambda (s) (plv-sommet-de-ligne (car s) (- (* 2.0 altitude) (cadr s)) (plv-demande-de s) nil))))
