;; What a change of one point or vertex costs: 2,000 ground points, 20 rows, a line of 41 vertices. Run by
;;   build/release/bin/kavel --quiet -l bancs/suivi/suivi.lsp
;; in a folder for the survey and the definition; times in milliseconds, each the least of five.

(setq banc:rangees
  '("A - 2.0 0 Numero" "A - 3.0 1 Vertical" "A - 2.5 2 Partielles" "A - 5.0 3 Cumulees" "A - 6.0 4 TN" "A - 19.0 8 Observations"
    "B - 6.0 5 Projet" "B - 4.5 6 Profondeur" "B - 3.0 12 Pentes" "B - 3.0 13 Rapport" "B - 3.0 14 Pourcent" "B - 3.0 15 Pour mille"
    "B - 2.5 16 Partielles" "B - 5.0 17 Cumulees" "C - 3.0 7 Plan" "C - 3.0 9 Devers" "C - 2.0 10 Reperes" "C - 6.0 11 {COTE} Cote"
    "C - 6.0 4 TN encore" "C - 6.0 5 {Projet} Projet encore"))

(defun banc:ecrire (nom lignes / f)
  (setq f (open nom "w"))
  (foreach l lignes (write-line l f))
  (close f))

(defun banc:terrain (/ i lignes)
  (setq i 2000)
  (repeat 2000 (setq i (1- i) lignes (cons (strcat (rtos (* i 5.0) 2 2) ";" (rtos (+ 100.0 (* 3.0 (sin (* i 0.05)))) 2 3) ";") lignes)))
  (cons "distance;altitude;nom" lignes))

(defun banc:sommets (/ i sommets)
  (setq i 40)
  (repeat 41 (setq sommets (cons (list (min 9995.0 (* i 250.0)) (+ 97.0 (* 0.5 (rem i 2)))) sommets) i (1- i)))
  sommets)

(defun banc:le-moins (nom avant fonction / moins t0)
  (repeat 5
    (apply avant '())
    (setq t0 (getvar "MILLISECS"))
    (apply fonction '())
    (setq t0 (- (getvar "MILLISECS") t0) moins (if moins (min moins t0) t0)))
  (princ (strcat "\n" nom ": " (itoa moins))))

(defun banc:point ()
  "Raises the 501st ground point by 10 cm."
  (plv-leve banc:p "C" 2500.0 (+ 0.1 (cadr (nth 500 (plv-points-tn banc:p)))) nil))

(defun banc:sommet (/ g q)
  "Raises the eleventh vertex of the line by 10 cm."
  (setq g (entget (car (plv-elements banc:p "Projet"))) q (nth 10 (vl-remove-if-not '(lambda (x) (= (car x) 10)) g)))
  (entmod (subst (list 10 (cadr q) (1+ (caddr q))) q g)))

(defun banc:rien ())
(defun banc:mettre-a-jour () (plv-actualiser (list banc:p)))

(banc:ecrire "banc-suivi.csv" (banc:terrain))
(banc:ecrire "banc-suivi.txt" banc:rangees)
(setq banc:p (plv-nouveau "banc-suivi.csv" "1" '(0.0 0.0 0.0) 10.0 2.5 nil nil))
(plv-projet banc:p "Projet" (banc:sommets))
(banc:le-moins "tables, drawn and replaced" 'banc:rien '(lambda () (plv-matrices banc:p "banc-suivi.txt" T)))
(banc:le-moins "states, all true" 'banc:rien '(lambda () (plv-etats banc:p)))
(banc:le-moins "states after a ground point" 'banc:point '(lambda () (plv-etats banc:p)))
(banc:mettre-a-jour)
(banc:le-moins "update after a ground point" 'banc:point 'banc:mettre-a-jour)
(banc:le-moins "update after a vertex" 'banc:sommet 'banc:mettre-a-jour)
