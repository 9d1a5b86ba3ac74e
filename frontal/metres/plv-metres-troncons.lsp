;; Depth sections of the quantities, from what the module shows: the rows of its lists, which are rounded, and its hatches,
;; which are not.
;; Shared in the room: plv-metres:*

;; --- a depth section is (class from to surface terrain project volume): distances in metres, surface in true square metres,
;; the stretches of both lines as points (distance altitude), left to right, and the volume of the module's list

(defun plv-troncon-classe (troncon) (car troncon))
(defun plv-troncon-debut (troncon) (cadr troncon))
(defun plv-troncon-fin (troncon) (caddr troncon))
(defun plv-troncon-surface (troncon) (cadddr troncon))
(defun plv-troncon-terrain (troncon) (nth 4 troncon))
(defun plv-troncon-projet (troncon) (nth 5 troncon))
(defun plv-troncon-volume-liste (troncon) (nth 6 troncon))
(defun plv-troncon-longueur (troncon) (- (plv-troncon-fin troncon) (plv-troncon-debut troncon)))

(defun plv-metres:visible-p (troncon)
  "The module also makes sections of no length, as where a line begins at the limit of a class."
  (> (plv-troncon-longueur troncon) 1e-5))

(defun plv-metres:exact (valeur arrondie)
  "A value as it was worked out here, unless the module's rounded one is another."
  (if (equal valeur arrondie plv-metres:arrondi) valeur arrondie))

(defun plv-metres:troncon (rangee hachure cadre / chemins haut bas)
  "A depth section from its row and its hatch."
  (setq chemins (plv-metres:chemins (plv-metres:contour (entget hachure) cadre))
        haut (car chemins)
        bas (cadr chemins))
  (list (plv-metres:rangee-classe rangee) (caar haut) (car (plv-dernier haut))
        (plv-metres:exact (abs (- (plv-metres:aire haut) (plv-metres:aire bas))) (plv-metres:rangee-surface rangee))
        haut bas (plv-metres:rangee-volume rangee)))

;; --- the rows of the module's lists: texts with three decimals

(setq plv-metres:arrondi 6e-4) ; what these decimals hide

(defun plv-metres:nombre (texte) (plv-nombre (vl-string-trim " " texte)))

(defun plv-metres:rangee-p (rangee) (= (length rangee) 7))
(defun plv-metres:rangee-profil (rangee) (car rangee))
(defun plv-metres:rangee-classe (rangee) (atoi (nth 4 rangee)))
(defun plv-metres:rangee-volume (rangee) (plv-metres:nombre (nth 5 rangee)))
(defun plv-metres:rangee-surface (rangee) (plv-metres:nombre (nth 6 rangee)))

;; --- the outline of a hatch

(defun plv-metres:contour (hachure cadre / points abscisses plan)
  "In profile coordinates, over the plane at its middle."
  (setq points (plv-cles 10 (cdr (member (assoc 93 hachure) hachure)))
        abscisses (mapcar 'car points)
        plan (plv-plan-en (plv-cadre-plans cadre)
               (plv-distance cadre (list (* 0.5 (+ (apply 'min abscisses) (apply 'max abscisses)))))))
  (mapcar '(lambda (p) (plv-vers-profil-sur cadre plan p)) points))

(defun plv-metres:avance (contour d)
  "T while an outline goes on to the right; a piece without length is passed when the next one does."
  (or (> (caar contour) d) (and (= (caar contour) d) (cdr contour) (> (caadr contour) d))))

(defun plv-metres:chemins (contour / haut bas)
  "The upper line and the lower one of an outline, both from left to right; the outline ends on its first point."
  (setq haut (list (car contour)) contour (cdr contour))
  (while (and contour (plv-metres:avance contour (caar haut)))
    (setq haut (cons (car contour) haut) contour (cdr contour)))
  (foreach p (plv-sans-dernier contour) (setq bas (cons p bas)))
  (list (reverse haut) bas))

(defun plv-metres:aire (points / somme a)
  "The area below a line, from the altitude 0."
  (setq somme 0.0 a (car points))
  (foreach b (cdr points)
    (setq somme (+ somme (* 0.5 (- (car b) (car a)) (+ (cadr a) (cadr b)))) a b))
  somme)

(defun plv-metres:du-profil (profil rangees hachures / cadre)
  (setq cadre (plv-cadre profil))
  (mapcar '(lambda (r h) (plv-metres:troncon r h cadre)) rangees hachures))
