;; What is seen while a line is dragged: the line, its overlapping curves in red, and in words what is wrong, the values of what is
;; dragged, depths at blocks, the least and the greatest depth.
;; Shared in the room: plv-tirer:traits plv-tirer:apercu plv-tirer:extremes

(setq plv-tirer-vue:couleur 5 plv-tirer-vue:rouge 1 plv-tirer-vue:plus-de-blocs 6)

(defun plv-tirer-vue:traits-suite (cadre suite raccords / rouges)
  (setq rouges (plv-geste-rouges suite raccords))
  (append
    (plv-traits cadre plv-tirer-vue:couleur
      (plv-suite-en-points suite (mapcar '(lambda (r) (if (listp r) r)) raccords)))
    (apply 'append
      (mapcar '(lambda (r rouge s) (if rouge (plv-traits cadre plv-tirer-vue:rouge (plv-tirer-vue:courbe r s)))) raccords rouges suite))))

(defun plv-tirer:traits (scene suites)
  (apply 'append (mapcar '(lambda (suite) (plv-tirer-vue:traits-suite (plv-scene-cadre scene) suite (plv-geste-raccords suite))) suites)))

(defun plv-tirer-vue:courbe (raccord s)
  "The points of a curve, for one that can't be a stroke at its vertex."
  (if (listp raccord)
    (plv-suite-en-points (list s) (list raccord))
    (list (list (- (car s) 1.0) (cadr s)) (list (+ (car s) 1.0) (cadr s)))))

(defun plv-tirer:extremes (scene suites / lues)
  "Least and greatest depth, in words; none beside the ground."
  (setq lues
    (apply 'append
      (mapcar
        '(lambda (suite / raccords)
           (setq raccords (plv-geste-raccords suite))
           (et_profondeurs (plv-scene-profil scene)
             (mapcar '(lambda (p) (list (+ (car p) (plv-scene-origine scene)) (cadr p)))
               (plv-suite-en-points suite (mapcar '(lambda (r) (if (listp r) r)) raccords)))))
        suites)))
  (if lues
    (progn
      (setq lues (vl-sort lues '(lambda (a b) (< (cadr a) (cadr b)))))
      (list (strcat "profondeur de " (plv-reel (cadr (car lues)) 2) " à " (plv-reel (caar lues) 2) ", à "
                    (plv-reel (cadr (plv-dernier lues)) 2) " à " (plv-reel (car (plv-dernier lues)) 2))))))

(defun plv-tirer-vue:altitude (suites d / rang suite raccords r)
  "Of the line with its curves; nil beside it."
  (if (setq rang (plv-ligne-suite-en suites d))
    (progn
      (setq suite (nth rang suites) raccords (plv-geste-raccords suite)
            r (car (vl-member-if '(lambda (r) (and (listp r) r (< (plv-debut r) d (plv-fin r)))) raccords)))
      (if r
        (plv-cubique-z (plv-dernier (car (plv-couper-cubique (plv-raccord-courbe r) d))))
        (plv-altitude-ligne suite d)))))

(defun plv-tirer-vue:aux-blocs (scene suites etendue / lus)
  "Depths at the blocks over the stretch that changes, in words."
  (setq lus
    (vl-remove nil
      (mapcar
        '(lambda (b / z sol)
           (if (and (<= (plv-debut etendue) (car b) (plv-fin etendue)) (setq z (plv-tirer-vue:altitude suites (car b)))
                    (setq sol (plv-sol-altitude (plv-scene-sol scene) (car b))))
             (strcat (caddr b) ": " (plv-reel (- sol z) 2))))
        (plv-scene-blocs scene))))
  (if lus (list (plv-joindre (plv-premiers lus plv-tirer-vue:plus-de-blocs) "  "))))

(defun plv-tirer-vue:etendue (suites prise / avant apres)
  "The stretch that a hold changes."
  (setq avant (plv-ligne-voisins suites (plv-prise-premier prise)) apres (plv-ligne-voisins suites (plv-prise-dernier prise)))
  (list (car (cond ((car avant)) ((cadr avant)))) (car (cond ((caddr apres)) ((cadr apres))))))

(defun plv-tirer-vue:lecture (scene suites prise / voisins)
  "The values of the hold's first vertex and of its curve."
  (setq voisins (plv-ligne-voisins suites (plv-prise-premier prise)))
  (append
    (plv-scene-lecture scene (car voisins) (plv-premiers (cadr voisins) 2))
    (if (caddr voisins) (list (strcat "pente après " (plv-scene-pente-en-mots (plv-pente (cadr voisins) (caddr voisins))))))
    (plv-tirer-vue:lecture-courbe voisins)))

(defun plv-tirer-vue:lecture-courbe (voisins / r)
  (if (and (car voisins) (caddr voisins) (plv-demande-de (cadr voisins))
           (listp (setq r (plv-raccord (car voisins) (cadr voisins) (caddr voisins) (plv-demande-de (cadr voisins))))))
    (list (strcat "rayon " (plv-reel (plv-partie-rayon r) 2) ", longueur " (plv-reel (plv-longueur r) 2)
                  " (" (if (= (plv-partie-mesure r) "L") "longueur" "rayon") " gardé" (if (= (plv-partie-mesure r) "L") "e)" ")")))))

(defun plv-tirer-vue:fautes (scene suites)
  (apply 'append (mapcar '(lambda (suite) (plv-geste-fautes suite (plv-geste-raccords suite) (plv-scene-longueur scene))) suites)))

(defun plv-tirer:apercu (scene suites essai prise)
  "(vectors note) of a line as it would be."
  (if (= (type essai) 'STR)
    (list nil (list essai))
    (list
      (plv-tirer:traits scene essai)
      (append (plv-tirer-vue:fautes scene essai) (plv-tirer-vue:lecture scene essai prise)
              (plv-tirer-vue:aux-blocs scene essai (plv-tirer-vue:etendue suites prise)) (plv-tirer:extremes scene essai)))))
