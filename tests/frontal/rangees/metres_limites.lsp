;; A trench of constant depth, at the limit of each class, wherever the profile stands: sections of one class only, with the surface depth by
;; length. Depths are differences of drawn altitudes, which are on one side of the limit here and on the other there by their rounding.

(commun
  (preparer
    (setq numero 0
          points '((0.0 0.0 0.0) (0.1 0.2 0.0) (1234.567 890.123 0.0) (652000.37 6861234.5 0.0) (1852340.5 3166420.25 0.0) (-250.3 77.7 0.0)))
    (defun suivant (n) (setq hasard (rem (+ (* hasard 7141) 54773) 259200)) (rem hasard n))
    ;; ground of 20 points over some 100 m, to the millimetre
    (defun terrain (/ d sommets fichier)
      (setq d 0.0)
      (repeat 20
        (setq sommets (cons (list d (+ 50.0 (/ (suivant 4000) 1000.0))) sommets)
              d (+ d 1.0 (/ (suivant 8000) 1000.0))))
      (setq sommets (reverse sommets) fichier (open "<dossier>g.csv" "w"))
      (write-line "distance;altitude" fichier)
      (foreach s sommets (write-line (strcat (rtos (car s) 2 3) ";" (rtos (cadr s) 2 3)) fichier))
      (close fichier)
      sommets)
    ;; what isn't as it should be: (point classes surface) where the classes are others or the surface is another
    (defun fautes (fond classe plans / sommets longueur)
      (setq sommets (terrain) longueur (car (last sommets)))
      (vl-remove nil
        (mapcar '(lambda (point / p troncons trouve)
                   (setq numero (1+ numero) p (plv-nouveau "<dossier>g.csv" (itoa numero) point 10.0 2.5 nil plans))
                   (plv-projet p "Projet" (mapcar '(lambda (s) (list (car s) (- (cadr s) fond))) sommets))
                   (setq troncons (plv-mesure-troncons (car (plv-mesures-profils (plv-metres (list (itoa numero)) "Projet" nil nil))))
                         trouve (list (plv-uniques (mapcar 'plv-troncon-classe troncons))
                                      (apply '+ (mapcar 'plv-troncon-surface troncons))))
                   (if (not (equal trouve (list (list classe) (* fond longueur)) 1e-3)) (cons point trouve)))
                points)))))

(situation "HaveOneClassAndTheRightSurface")
(tableau (profondeur classe)
  (1.0 1) (1.5 2) (2.0 3) (3.0 4) (4.0 5) (5.0 6))
(preparer (setq hasard (+ 17 classe)))
((fautes profondeur classe '((0.0 40.0))) nil)
((fautes profondeur classe '((0.0 40.0) (42.317 43.7))) nil)
((fautes profondeur classe '((0.0 40.0))) nil)
