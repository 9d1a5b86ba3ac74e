;; The dimensions that a profile would have if all of them were written anew, as poses, without drawing anything: the same lots, thinned
;; out and put in rows by the same functions; only what the module would write is worked out by a study.

(defun plv-cotes-prevues:pose (courbe altitude-p x y mots rotation hauteur)
  (plv-pose courbe altitude-p (list x y) (plv-cote-en-mots mots altitude-p) rotation hauteur nil))

(defun plv-cotes-prevues:lues (profil courbe / cordes)
  (et_cotes profil
    (if (setq cordes (plv-forme-des-cordes courbe)) (mapcar '(lambda (s) (list (car s) (cadr s))) (plv-forme-elements cordes)) courbe)
    (car (plv-point-de-cotes courbe))))

(defun plv-cotes-prevues:de-courbe (profil lot courbe / lues appui dx rotation ttxt)
  "In the order in which the module writes them. Altitudes stand with the support of the kind."
  (setq lues (plv-cotes-prevues:lues profil courbe)
        appui (plv-origine (plv-support profil (plv-lot-genre lot)))
        dx (- (car appui) (car (plv-origine profil)))
        rotation (plv-lot-rotation lot) ttxt (plv-ttxt profil))
  (append
    (if (/= (plv-lot-lesquelles lot) "Hauteurs")
      (mapcar '(lambda (l) (plv-cotes-prevues:pose courbe T (+ dx (car l)) (cadr appui) (caddr l) rotation ttxt)) lues))
    (if (/= (plv-lot-lesquelles lot) "Altitudes")
      (mapcar '(lambda (l) (plv-cotes-prevues:pose courbe nil (car l) (cadr l) (cadddr l) rotation ttxt)) lues))))

(defun plv-cotes-prevues:avec-lot (profil lot poses rangees-p)
  "Poses, latest first, with those of a lot."
  (foreach courbe (plv-lot-courbes lot)
    (setq poses (append (reverse (plv-cotes-prevues:de-courbe profil lot courbe)) poses)))
  (setq poses (car (plv-poses-eclaircies profil (plv-lot-genre lot) poses)))
  (if rangees-p (plv-poses-rangees profil (plv-lot-genre lot) poses T) poses))

(defun plv-cotes-prevues (profil rangees-p / poses)
  "rangees-p nil: as the module puts them, before they make room for each other upwards, which costs more than all else."
  (foreach lot (plv-lire-une-fois (list "lots" profil) '(lambda () (plv-cotes-a-refaire profil)))
    (setq poses (plv-cotes-prevues:avec-lot profil lot poses rangees-p)))
  poses)
