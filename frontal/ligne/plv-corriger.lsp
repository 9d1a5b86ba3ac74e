;; One value of a line's vertex changed, as a table does it: what the vertex has locked stays, and every locked value of the line. The
;; functions give runs of vertices, or the text of why not; nothing is drawn.

;; --- what is typed

(defun plv-corriger:lire-station (texte origine)
  (if (plv-nombre-station texte) (- (plv-nombre-station texte) origine)))

(defun plv-corriger:lire (champ texte origine / nombre)
  "The value of a text; nil for one that can't be read."
  (cond
    ((= champ "Forme")
     (cond ((wcmatch (strcase texte) "C,CERCLE,CIRCULAIRE") "C") ((wcmatch (strcase texte) "P,PARABOLE,PARABOLIQUE") "P")))
    ((member champ '("Station" "Debut" "Fin")) (plv-corriger:lire-station texte origine))
    ((= champ "Extremum") (plv-corriger:lire-station (car (plv-couper (strcat texte ";") ";")) origine))
    ((member champ '("Entree" "Sortie")) (cond ((plv-pente-lue texte)) ((setq nombre (plv-nombre texte)) (* 0.01 nombre))))
    ((and (member champ '("Rayon" "Raccordement")) (= texte "")) 0.0)
    ((plv-nombre texte))))

;; --- where the vertex goes: (distance altitude), or text

(defun plv-corriger:sur-pente (a d pente) (+ (cadr a) (* pente (- d (car a)))))

(defun plv-corriger:a-altitude (a z pente)
  (if (equal pente 0.0 1e-12) "la pente verrouillée est nulle" (list (+ (car a) (/ (- z (cadr a)) pente)) z)))

(defun plv-corriger:station (avant s apres d sol / ancien nouveau)
  (list d
    (cond
      ((and (= (plv-verrou s) "Entree") avant) (plv-corriger:sur-pente avant d (plv-pente avant s)))
      ((and (= (plv-verrou s) "Sortie") apres) (plv-corriger:sur-pente apres d (plv-pente s apres)))
      ((and (= (plv-verrou s) "Profondeur") (setq ancien (plv-sol-altitude sol (car s))) (setq nouveau (plv-sol-altitude sol d)))
       (+ (cadr s) (- nouveau ancien)))
      ((cadr s)))))

(defun plv-corriger:altitude (avant s apres z)
  (cond
    ((and (= (plv-verrou s) "Entree") avant) (plv-corriger:a-altitude avant z (plv-pente avant s)))
    ((and (= (plv-verrou s) "Sortie") apres) (plv-corriger:a-altitude apres z (plv-pente s apres)))
    ((list (car s) z))))

(defun plv-corriger:entree (avant s apres pente / p2)
  (cond
    ((not avant) "la ligne commence à ce sommet")
    ((= (plv-verrou s) "Altitude") (plv-corriger:a-altitude avant (cadr s) pente))
    ((and (= (plv-verrou s) "Sortie") apres)
     (setq p2 (plv-pente s apres))
     (if (equal p2 pente 1e-12)
       "les deux pentes sont les mêmes"
       (plv-corriger:croiser avant pente apres p2)))
    ((list (car s) (plv-corriger:sur-pente avant (car s) pente)))))

(defun plv-corriger:croiser (a p1 b p2 / d)
  "Where two slopes through points meet."
  (setq d (/ (+ (- (cadr b) (cadr a)) (- (* p1 (car a)) (* p2 (car b)))) (- p1 p2)))
  (list d (plv-corriger:sur-pente a d p1)))

(defun plv-corriger:place (voisins champ valeur sol / avant s apres z)
  (setq avant (car voisins) s (cadr voisins) apres (caddr voisins))
  (cond
    ((= champ "Station") (plv-corriger:station avant s apres valeur sol))
    ((= champ "Altitude") (plv-corriger:altitude avant s apres valeur))
    ((= champ "Entree") (plv-corriger:entree avant s apres valeur))
    ((setq z (plv-sol-altitude sol (car s))) (plv-corriger:altitude avant s apres (- z valeur)))
    ("il n'y a pas de terrain à cette station")))

(defun plv-corriger:poser (suites numero champ valeur sol / voisins s place)
  (setq voisins (plv-ligne-voisins suites numero) s (cadr voisins) place (plv-corriger:place voisins champ valeur sol))
  (if (listp place)
    (plv-ligne-changer suites numero (list (plv-sommet-de-ligne (car place) (cadr place) (plv-demande-de s) (plv-verrou s))))
    place))

;; --- slope out and length are the next vertex's; where its locks don't let it go, the slope is this one's

(defun plv-corriger:sortie (suites numero pente sol / voisins essai)
  (setq voisins (plv-ligne-voisins suites numero))
  (cond
    ((not (caddr voisins)) "la ligne finit à ce sommet")
    ((and (listp (setq essai (plv-corriger:poser suites (1+ numero) "Entree" pente sol))) (not (plv-ligne-verrou-rompu suites essai sol))) essai)
    ((plv-corriger:poser suites numero "Altitude" (plv-corriger:sur-pente (caddr voisins) (car (cadr voisins)) pente) sol))))

(defun plv-corriger:longueur (suites numero longueur sol / voisins)
  (setq voisins (plv-ligne-voisins suites numero))
  (cond
    ((not (caddr voisins)) "la ligne finit à ce sommet")
    ((<= longueur 0.0) "une longueur positive est attendue")
    ((plv-corriger:poser suites (1+ numero) "Station" (+ (car (cadr voisins)) longueur) sol))))

;; --- the vertical curve

(defun plv-corriger:raccord (suites numero champ valeur / s demande forme)
  (setq s (cadr (plv-ligne-voisins suites numero)) demande (plv-demande-de s) forme (if demande (plv-demande-forme demande) "C"))
  (cond
    ((and (= champ "Forme") (not demande)) "ce sommet n'a pas de raccordement")
    ((member champ '("Debut" "Fin" "Extremum")) (plv-corriger:raccord-jusqu-a suites numero champ valeur forme))
    ((and (/= champ "Forme") (< valeur 0.0)) "une valeur positive est attendue")
    (T
     (plv-corriger:demander suites numero s
       (cond ((= champ "Forme") (cons valeur (cdr demande)))
             ((= valeur 0.0) nil)
             ((list forme (if (= champ "Rayon") "R" "L") valeur)))))))

(defun plv-corriger:demander (suites numero s demande)
  "The runs with another curve at a vertex."
  (plv-ligne-changer suites numero (list (plv-sommet-de-ligne (car s) (cadr s) demande (plv-verrou s)))))

(defun plv-corriger:raccord-jusqu-a (suites numero champ d forme / voisins portees portee)
  "The runs with the curve that begins, ends or is level at a distance."
  (setq voisins (plv-ligne-voisins suites numero))
  (if (and (car voisins) (caddr voisins))
    (setq portees (plv-raccord-portees (plv-pente (car voisins) (cadr voisins)) (plv-pente (cadr voisins) (caddr voisins)) forme)
          portee (nth (vl-position champ '("Debut" "Fin" "Extremum")) portees)))
  (cond
    ((not portees) "la ligne commence ou finit à ce sommet")
    ((not portee) "ce raccordement monte ou descend partout")
    ((or (equal portee 0.0 1e-9) (<= (/ (- d (car (cadr voisins))) portee) 0.0)) "ce n'est pas de ce côté du sommet")
    (T (plv-corriger:demander suites numero (cadr voisins) (list forme "R" (/ (- d (car (cadr voisins))) portee))))))

;; --- locks

(defun plv-ligne-verrou-rompu (avant apres sol / numero rompu)
  "The text for a locked value that isn't what it was; nil when all hold. Both have the same vertices."
  (setq numero 0)
  (foreach s (apply 'append avant)
    (setq numero (1+ numero))
    (if (and (not rompu) (plv-verrou s)
             (not (equal (plv-ligne-valeur sol avant numero (plv-verrou s)) (plv-ligne-valeur sol apres numero (plv-verrou s)) 1e-6)))
      (setq rompu (plv-corriger:refus-verrou (plv-verrou s) numero))))
  rompu)

(setq plv-corriger:verrous
  '(("Station" . "la station") ("Altitude" . "l'altitude") ("Profondeur" . "la profondeur") ("Entree" . "la pente d'entrée")
    ("Sortie" . "la pente de sortie")))

(defun plv-ligne-verrouiller (suites numero champ / s)
  "Locks one value of a vertex in place of the one that was; nil for none."
  (if (setq s (cadr (plv-ligne-voisins suites numero)))
    (plv-ligne-changer suites numero (list (plv-sommet-de-ligne (car s) (cadr s) (plv-demande-de s) champ)))
    (plv-refus-sommet suites numero)))

;; --- the whole

(defun plv-refus-sommet (suites numero)
  (strcat "il n'y a pas de sommet " (itoa numero) ", mais " (plv-compte (plv-ligne-nombre suites) "sommet")))

(defun plv-corriger:valeur (suites numero champ valeur sol)
  (cond
    ((plv-champ-de-raccord-p champ) (plv-corriger:raccord suites numero champ valeur))
    ((= champ "Sortie") (plv-corriger:sortie suites numero valeur sol))
    ((= champ "Longueur") (plv-corriger:longueur suites numero valeur sol))
    ((plv-corriger:poser suites numero champ valeur sol))))

(defun plv-corriger:sans-effet (suites essai numero champ valeur sol)
  "The text for a value that isn't reached, since the vertex's own lock stands against it; nil when it is."
  (if (not (or (plv-champ-de-raccord-p champ) (equal (plv-ligne-valeur sol essai numero champ) valeur 1e-6)))
    (plv-corriger:refus-verrou (plv-verrou (cadr (plv-ligne-voisins suites numero))) numero)))

(defun plv-corriger:refus-verrou (champ numero)
  (strcat (cond ((plv-cle champ plv-corriger:verrous)) ("une valeur")) " du sommet " (itoa numero) " est verrouillée"))

(defun plv-ligne-corriger (suites numero champ texte sol origine / valeur essai)
  "The runs with one value of a vertex as a text has it, or the text of why not."
  (cond
    ((not (plv-ligne-lieu suites numero)) (plv-refus-sommet suites numero))
    ((not (member champ (plv-champs-modifiables))) "il n'y a pas de telle valeur à changer")
    ((not (setq valeur (plv-corriger:lire champ (vl-string-trim " \t" texte) origine)))
     (if (= champ "Forme") "C (cercle) ou P (parabole) attendu" "un nombre est attendu"))
    ((= (type (setq essai (plv-corriger:valeur suites numero champ valeur sol))) 'STR) essai)
    ((plv-ligne-verrou-rompu suites essai sol))
    ((plv-corriger:sans-effet suites essai numero champ valeur sol))
    (essai)))
