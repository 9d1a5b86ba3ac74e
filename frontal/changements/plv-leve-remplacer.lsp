;; PLV-LEVE Remplacer: a newer survey takes the place of the ground. Planes, lines and what is attached stay; what was made of the ground is not up
;; to date then. What changed is told, station by station.

;; --- what changed: points are the same within half a centimetre along the profile

(defun plv-remplacer:bilan (avant apres / n plus ou q restes)
  "(added removed changed greatest distance-of-it), both lists from left to right."
  (setq n 0 plus 0.0 restes avant)
  (foreach p apres
    (while (and restes (< (car (car restes)) (- (car p) 0.005))) (setq restes (cdr restes)))
    (if (and restes (equal (car (car restes)) (car p) 0.005))
      (progn
        (setq q (abs (- (cadr p) (cadr (car restes)))) restes (cdr restes))
        (if (> q 0.0005) (setq n (1+ n)))
        (if (> q plus) (setq plus q ou (car p))))))
  (setq q (plv-remplacer:communs avant apres))
  (list (- (length apres) q) (- (length avant) q) n plus ou))

(defun plv-remplacer:communs (avant apres / n)
  "The number of points that both have."
  (setq n 0)
  (while (and avant apres)
    (cond
      ((equal (car (car avant)) (car (car apres)) 0.005) (setq n (1+ n) avant (cdr avant) apres (cdr apres)))
      ((< (car (car avant)) (car (car apres))) (setq avant (cdr avant)))
      (T (setq apres (cdr apres)))))
  n)

(defun plv-remplacer:du-plan-p (a p b plans)
  "Whether a point was only put in where a plane begins: without a name, on the straight line of its neighbours."
  (and (= (plv-point-nom p) "")
       (vl-some '(lambda (plan) (equal (plv-plan-debut plan) (car p) 1e-6)) (cdr plans))
       (< (car a) (car p) (car b))
       (equal (plv-interpoler (list a b) (car p)) (cadr p) 1e-4)))

(defun plv-points-releves (profil / points plans)
  "The ground points that were surveyed."
  (setq points (plv-points-nommes profil) plans (plv-plans profil))
  (append (list (car points))
          (vl-remove nil (mapcar '(lambda (a p b) (if (not (plv-remplacer:du-plan-p a p b plans)) p)) points (cdr points) (cddr points)))
          (list (plv-dernier points))))

(defun plv-remplacer:dire (profil avant apres / bilan)
  (setq bilan (plv-remplacer:bilan avant apres))
  (plv-dire
    (strcat "Levé remplacé: " (plv-compte (length apres) "point") " au lieu de " (itoa (length avant)) "; "
            (itoa (car bilan)) " de plus, " (itoa (cadr bilan)) " de moins, " (itoa (caddr bilan)) " à une autre altitude"
            (if (> (caddr bilan) 0)
              (strcat ", de " (plv-reel (cadddr bilan) 3) " m au plus, à la station " (plv-reel (+ (plv-premiere-station profil) (nth 4 bilan)) 2))
              "")
            ".")))

;; --- doing

(defun plv-refus-leve (profil terrain)
  (if (not (equal (plv-cle 'origine terrain) (plv-premiere-station profil) 1e-3))
    (strcat "ce levé commence à la station " (plv-reel (plv-cle 'origine terrain) 2) ", le profil à " (plv-reel (plv-premiere-station profil) 2)
            ": il en faut un nouveau")))

(defun plv-remplacer-terrain (profil terrain / avant)
  "Gives a profile the ground of a survey that was read; the profile, or nil after a message."
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((plv-refus-leve profil terrain) (plv-erreur (plv-refus-leve profil terrain)))
    (T
     (setq avant (plv-points-releves profil))
     (if (plv-changer-terrain profil (plv-cle 'points terrain) (plv-cle 'lacunes terrain))
       (progn (plv-remplacer:dire profil avant (plv-cle 'points terrain)) profil)))))

(defun plv-remplacer-leve (profil chemin / trouve terrain)
  "The same from a file of any kind; of LandXML its first ground."
  (if (and (setq trouve (plv-fichier-existant chemin)) (setq terrain (plv-lire-terrain trouve)))
    (plv-remplacer-terrain profil terrain)))

(defun plv-remplacer-demander (profil / chemin terrain)
  "The command's questions: the file, and of LandXML with several grounds which one."
  (if (and (setq chemin (plv-demander-fichier "Fichier du nouveau levé"))
           (setq terrain (if (plv-landxml-p chemin) (plv-landxml-choisir-un-terrain chemin) (plv-lire-terrain chemin))))
    (plv-prendre-fichier "leve" chemin (plv-remplacer-terrain profil terrain))))
