;; A small picture of each kind of row, as a form shows it: cells with their ticks, drawn of the texts that such a row has. In pixels, from the upper left
;; corner down.

;; number, how its texts stand, colour, texts: "h" at ticks, "v" upright at ticks, "e" between ticks, "p" along slopes, "d" cross falls, "t" a plan
(setq plv-types-images:table
  '((0 "h" "autre" "1" "2" "3") (1 "v" "autre" "1" "2" "3") (2 "e" "autre" "12.5" "8.0") (3 "v" "autre" "0.0" "12.5" "20.5")
    (4 "v" "terrain" "42.3" "41.8" "40.9") (5 "v" "projet" "41.1" "40.7" "40.2") (6 "v" "fenetre" "1.20" "1.10" "0.70") (7 "t" "axe")
    (8 "v" "autre" "Rue" "Seuil" "Pont") (9 "d" "axe" "-2.5" "2.5") (10 "h" "autre" "0+25" "0+50" "0+75") (11 "v" "autre" "R1" "R2" "R3")
    (12 "p" "projet" "Pente 5" "Rampe 2") (13 "p" "projet" "0.050" "0.020") (14 "p" "projet" "5.0 %" "2.0 %") (15 "p" "projet" "50 ‰" "20 ‰")
    (16 "e" "projet" "80.0" "45.0") (17 "v" "projet" "0.0" "80.0" "125") (500 "v" "couloir" "39.1" "38.8" "38.0") (501 "v" "couloir" "3.20" "3.00" "2.90")
    (502 "h" "axe" "R1" "R2" "R3") (503 "v" "terrain" "42.3" "41.8" "40.9") (504 "v" "axe" "40.1" "39.7" "39.2") (505 "v" "axe" "2.20" "2.10" "1.70")
    (506 "v" "fenetre" "1.80" "1.70" "1.30") (507 "e" "axe" "Ø300" "Ø400") (508 "e" "axe" "1.0 %" "0.8 %") (509 "e" "axe" "35.0" "42.0")
    (510 "e" "axe" "—>" "—>") (402 "h" "autre" "R1" "R2" "R3") (403 "v" "autre" "R1" "R2" "R3")))

(setq plv-types-images:large 126.0 plv-types-images:haut 34.0 plv-types-images:stations '(8.0 50.0 92.0))

(defun plv-types-images:trait (role points) (list "trait" role points))

(defun plv-types-images:filets ()
  "The rules above and below."
  (mapcar '(lambda (y) (plv-types-images:trait "autre" (list (list 0.0 y) (list plv-types-images:large y))))
    (list -1.0 (- plv-types-images:haut))))

(defun plv-types-images:repere (x bas) (plv-types-images:trait "autre" (list (list x -1.0) (list x (- bas)))))

(defun plv-types-images:a-plat (role textes)
  (apply 'append
    (mapcar '(lambda (x texte) (list (plv-types-images:repere x 8.0) (list "texte" role (list (- x 6.0) -24.0) texte))) plv-types-images:stations textes)))

(defun plv-types-images:debout (role textes)
  (apply 'append
    (mapcar '(lambda (x texte) (list (plv-types-images:repere x 4.0) (list "texte" role (list (+ x 5.0) -31.0) texte 90.0))) plv-types-images:stations textes)))

(defun plv-types-images:entre (role textes)
  (append
    (mapcar '(lambda (x) (plv-types-images:repere x plv-types-images:haut)) plv-types-images:stations)
    (mapcar '(lambda (x texte) (list "texte" role (list (+ x 8.0) -22.0) texte)) plv-types-images:stations textes)))

(defun plv-types-images:pentes (role textes)
  (append
    (mapcar '(lambda (x) (plv-types-images:repere x plv-types-images:haut)) '(2.0 64.0 124.0))
    (list (plv-types-images:trait role '((2.0 -18.0) (64.0 -32.0))) (plv-types-images:trait role '((64.0 -32.0) (124.0 -24.0))))
    (mapcar '(lambda (x texte) (list "texte" role (list x -14.0) texte)) '(6.0 68.0) textes)))

(defun plv-types-images:devers (role textes)
  (append
    (list (plv-types-images:trait role '((4.0 -26.0) (62.0 -10.0) (122.0 -10.0))) (plv-types-images:trait role '((4.0 -10.0) (62.0 -26.0) (122.0 -26.0))))
    (mapcar '(lambda (y texte) (list "texte" role (list 88.0 y) texte)) '(-30.0 -14.0) textes)))

(defun plv-types-images:tournants (role textes)
  (list (plv-types-images:trait role '((2.0 -18.0) (36.0 -18.0) (36.0 -8.0) (76.0 -8.0) (76.0 -18.0) (124.0 -18.0))) (list "texte" role '(42.0 -26.0) "R 150")))

(setq plv-types-images:manieres
  '(("h" . plv-types-images:a-plat) ("v" . plv-types-images:debout) ("e" . plv-types-images:entre) ("p" . plv-types-images:pentes)
    ("d" . plv-types-images:devers) ("t" . plv-types-images:tournants)))

(defun plv-type-image (numero / ligne)
  "The items of a kind's picture."
  (setq ligne (cdr (assoc numero plv-types-images:table)))
  (append (plv-types-images:filets) (apply (plv-cle (car ligne) plv-types-images:manieres) (list (cadr ligne) (cddr ligne)))))

(defun plv-types-en-images ()
  "(label items) of every kind."
  (mapcar '(lambda (libelle) (list libelle (plv-type-image (plv-type-de-libelle libelle)))) (plv-types-libelles)))
