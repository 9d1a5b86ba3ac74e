;; What is typed while a line is drawn or dragged: numbers of a place, one by one or together, as (code value) each.
;; S station, Z altitude, P depth, L distance and DZ difference of altitude from the vertex before, I slope rising to the right, C vertical curve
;; at the vertex before, D the distance from the origin that a drag leaves a vertex. A place takes one number along the profile and one of its height; both may be typed, or one be clicked.

(setq plv-frappe-aide
  "120;134.2 ou 120,134.2: station et altitude; @25;0.5 ou @25;-1.5%: distance et hauteur ou pente; S120 Z134.2 P1.2 L25 -1.5% 15‰ 1/50: une valeur; C500 CL40 C500P: raccordement")

(defun plv-frappe-attendu () (strcat "attendu: " plv-frappe-aide))

(defun plv-frappe (texte / lus)
  "The numbers of a text, or the text of what is wrong with it."
  (setq lus (mapcar 'plv-frappe:mot (vl-remove "" (plv-couper texte " "))))
  (if (or (not lus) (member nil lus))
    (plv-frappe-attendu)
    (apply 'append lus)))

(defun plv-frappe:mot (mot / lettre)
  "The numbers of one word; nil for one that can't be read."
  (setq mot (strcase mot) lettre (substr mot 1 1))
  (cond
    ((= lettre "@") (plv-frappe:relatif (substr mot 2)))
    ((vl-string-search ";" mot) (plv-frappe:couple (plv-couper mot ";") "S"))
    ((plv-pente-ecrite-p mot) (plv-frappe:un "I" (plv-pente-lue mot)))
    ((member lettre '("S" "Z" "P" "L")) (plv-frappe:lettre lettre (substr mot 2)))
    ((= lettre "C") (plv-frappe:raccord (substr mot 2)))
    ((vl-string-search "," mot) (plv-frappe:couple (plv-couper mot ",") "S"))))

(defun plv-frappe:un (code valeur) (if valeur (list (list code valeur))))

(defun plv-frappe:lettre (lettre reste)
  (if (and (= lettre "P") (= (substr reste 1 1) "K"))
    (plv-frappe:lettre "S" (substr reste 2))
    (plv-frappe:un lettre (if (= lettre "S") (plv-nombre-station reste) (plv-nombre reste)))))

(defun plv-frappe:relatif (reste)
  (cond
    ((vl-string-search ";" reste) (plv-frappe:couple (plv-couper reste ";") "L"))
    ((vl-string-search "," reste) (plv-frappe:couple (plv-couper reste ",") "L"))
    ((plv-frappe:un "L" (plv-nombre reste)))))

(defun plv-frappe:couple (champs code / a b)
  "Along the profile, then a slope, an altitude, or a difference of it behind a distance."
  (setq a (plv-nombre-station (car champs))
        b (if (plv-pente-ecrite-p (cadr champs)) (plv-pente-lue (cadr champs)) (plv-nombre (cadr champs))))
  (if (and a b (not (cddr champs)))
    (list (list code a)
          (list (cond ((plv-pente-ecrite-p (cadr champs)) "I") ((= code "L") "DZ") ("Z")) b))))

(defun plv-frappe:raccord (reste / forme demande)
  "The request of 500, L40 or 500P; 0 takes the curve away."
  (setq forme (if (wcmatch reste "*P") "P" "C")
        demande (plv-raccord-lu (vl-string-right-trim "P" reste) forme))
  (if (not (eq demande T)) (list (list "C" demande))))

;; --- the place that numbers and a place of the cursor mean

(defun plv-frappe:a (frappes code) (cadr (assoc code frappes)))

(defun plv-frappe:l (frappes) (if (or (assoc "S" frappes) (assoc "L" frappes) (assoc "D" frappes)) T))
(defun plv-frappe:h (frappes) (vl-some '(lambda (c) (assoc c frappes)) '("Z" "DZ" "P" "I")))

(defun plv-frappe:deux-hauteurs-p (frappes)
  "A slope with an altitude or a depth: where they meet is a place."
  (and (assoc "I" frappes) (vl-some '(lambda (c) (assoc c frappes)) '("Z" "DZ" "P"))))

(defun plv-frappe-complete-p (frappes)
  "Whether the numbers alone are a place."
  (if (or (and (plv-frappe:l frappes) (plv-frappe:h frappes)) (plv-frappe:deux-hauteurs-p frappes)) T))

(defun plv-frappe-faute (dernier frappes)
  "Why the numbers go with no place; nil when they do."
  (cond
    ((and (not dernier) (vl-some '(lambda (c) (assoc c frappes)) '("L" "DZ" "I" "C")))
     "une distance, une pente ou un raccordement suivent un premier sommet")
    ((and (assoc "S" frappes) (assoc "L" frappes)) "station et distance ne vont pas ensemble")
    ((> (length (vl-remove-if-not '(lambda (f) (member (car f) '("Z" "DZ" "P"))) frappes)) 1) "une seule altitude ou profondeur est attendue")
    ((and (plv-frappe:l frappes) (plv-frappe:deux-hauteurs-p frappes)) "une pente et une hauteur donnent déjà la station")))

(defun plv-frappe-joindre (anciennes nouvelles)
  "Numbers with newer ones, which take the place of those of their code."
  (append (vl-remove-if '(lambda (f) (assoc (car f) nouvelles)) anciennes) nouvelles))

(defun plv-frappe-place (scene dernier frappes curseur / d z mot accroche)
  "(distance altitude word) of numbers and a place of the cursor, which may be nil where the numbers are complete; the text of
why there is none."
  (setq accroche (if curseur (plv-scene-accrocher scene dernier curseur))
        d (plv-frappe:distance scene dernier frappes accroche))
  (cond
    ((= (type d) 'STR) d)
    ((not d) "un clic ou une station est attendu")
    ((not (<= -1e-6 d (+ (plv-scene-longueur scene) 1e-6))) "cette station n'est pas dans le profil")
    (T
     (setq d (plv-entre d 0.0 (plv-scene-longueur scene))
           z (plv-frappe:altitude scene dernier frappes d accroche)
           mot (if (and accroche (not frappes)) (caddr accroche) ""))
     (if z (list d z mot) "un clic ou une altitude est attendu"))))

(defun plv-frappe:distance (scene dernier frappes accroche / l)
  (cond
    ((plv-frappe:a frappes "D"))
    ((plv-frappe:a frappes "S") (- (plv-frappe:a frappes "S") (plv-scene-origine scene)))
    ((setq l (plv-frappe:a frappes "L")) (+ (car dernier) (* l (if (and accroche (< (car accroche) (car dernier))) -1.0 1.0))))
    ((plv-frappe:deux-hauteurs-p frappes) (plv-frappe:rencontre scene dernier frappes))
    (accroche (car accroche))))

(defun plv-frappe:altitude (scene dernier frappes d accroche / sol)
  (cond
    ((plv-frappe:a frappes "Z"))
    ((plv-frappe:a frappes "DZ") (+ (cadr dernier) (plv-frappe:a frappes "DZ")))
    ((plv-frappe:a frappes "P")
     (if (setq sol (plv-sol-altitude (plv-scene-sol scene) d)) (- sol (plv-frappe:a frappes "P"))))
    ((plv-frappe:a frappes "I") (+ (cadr dernier) (* (plv-frappe:a frappes "I") (- d (car dernier)))))
    ;; The cursor's own altitude was snapped at another station where one was typed.
    (accroche (cadr accroche))))

(defun plv-frappe:rencontre (scene dernier frappes / pente cible)
  "Where a slope from the vertex before comes to an altitude, or to a depth for the first time; text for nowhere."
  (setq pente (plv-frappe:a frappes "I")
        cible (cond ((plv-frappe:a frappes "Z")) ((plv-frappe:a frappes "DZ") (+ (cadr dernier) (plv-frappe:a frappes "DZ")))))
  (cond
    ((and cible (equal pente 0.0 1e-12)) "une pente nulle n'arrive à aucune autre altitude")
    (cible (+ (car dernier) (/ (- cible (cadr dernier)) pente)))
    ((plv-frappe:a-profondeur scene dernier pente (plv-frappe:a frappes "P")))
    ("cette pente n'arrive pas à cette profondeur")))

(defun plv-frappe:a-profondeur (scene dernier pente profondeur / ecarts a b trouve)
  "The first distance after a vertex at which a slope is at a depth."
  (setq ecarts
    (mapcar '(lambda (p) (list (car p) (- (cadr p) profondeur (cadr dernier) (* pente (- (car p) (car dernier))))))
      (apply 'append (mapcar 'cdr (plv-scene-sol scene)))))
  (while (and (cdr ecarts) (not trouve))
    (setq a (car ecarts) b (cadr ecarts) ecarts (cdr ecarts))
    (if (and (> (car b) (+ (car dernier) 1e-6)) (<= (* (cadr a) (cadr b)) 0.0) (/= (cadr a) (cadr b)))
      (setq trouve (+ (car a) (* (- (car b) (car a)) (/ (cadr a) (- (cadr a) (cadr b)))))
            trouve (if (> trouve (+ (car dernier) 1e-6)) trouve))))
  trouve)
