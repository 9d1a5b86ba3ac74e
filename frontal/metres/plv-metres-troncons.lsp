;; Sections of the quantities, from what the module shows: the rows of its lists, which are rounded, and its hatches, which
;; are not. A section is (class d1 d2 surface terrain project volume): distances in metres, surface in true square metres,
;; its stretches of both lines as points in profile coordinates (distance altitude), left to right, and the volume of the
;; module's list. A class is (start end width colour).

(setq plv-metres:arrondi 6e-4) ; what the lists' three decimals hide

(defun plv-metres:nombre (texte) (plv-nombre (vl-string-trim " " texte)))

(defun plv-metres:classes (rangees)
  (mapcar
    '(lambda (r) (list (plv-metres:nombre (nth 1 r)) (plv-metres:nombre (nth 2 r)) (plv-metres:nombre (nth 4 r)) (car r)))
    rangees))

;; --- points of lines

(defun plv-metres:avancer (ligne d)
  "The line from its stretch at a distance on; of two points there, as at a wall, the second counts."
  (while (and (cddr ligne) (<= (car (cadr ligne)) (+ d 1e-9))) (setq ligne (cdr ligne)))
  ligne)

(defun plv-metres:altitude (ligne d) (plv-trace:altitude (plv-metres:avancer ligne d) d))

(defun plv-metres:entre (points a b / dedans)
  "A line between two distances, its ends interpolated."
  (setq points (plv-metres:avancer points a)
        dedans (list (list a (plv-trace:altitude points a))))
  (while (and (cddr points) (< (car (cadr points)) (- b 1e-9)))
    (setq dedans (cons (list (car (cadr points)) (cadr (cadr points))) dedans) points (cdr points)))
  (reverse (cons (list b (plv-trace:altitude points b)) dedans)))

(defun plv-metres:sommets (profil entite / groupes origine points plan)
  "The vertices of a line or polyline, left to right; nil for other curves."
  (setq groupes (entget entite)
        origine (plv-cle 10 (entget profil))
        points (mapcar 'cdr
                 (vl-remove-if-not
                   '(lambda (g) (or (= (car g) 10) (and (= (car g) 11) (= (plv-cle 0 groupes) "LINE"))))
                   (if (member (plv-cle 0 groupes) '("LINE" "LWPOLYLINE")) groupes))))
  (if (cdr points)
    (progn
      (if (> (caar points) (car (plv-dernier points))) (setq points (reverse points)))
      (setq plan (plv-plan-en (plv-tables:plans profil) (- (* 0.5 (+ (caar points) (car (plv-dernier points)))) (car origine))))
      (mapcar
        '(lambda (p)
           (list (- (car p) (car origine)) (+ (cadr plan) (/ (- (cadr p) (cadr origine)) (plgxd profil "ECHV")))))
        points))))

(defun plv-metres:marches (points)
  "The upright pieces of a line: (distance altitude-before altitude-behind)."
  (vl-remove nil
    (mapcar '(lambda (p q) (if (equal (car p) (car q) 1e-8) (list (car p) (cadr p) (cadr q)))) points (cdr points))))

(defun plv-metres:marches-de (profil genre)
  (apply 'append (mapcar '(lambda (e) (plv-metres:marches (plv-metres:sommets profil e))) (plv-elements:enregistres profil genre))))

(defun plv-metres:terrain (profil)
  "The ground lines of the profile's planes as points; nil when other lines are attached as its terrain."
  (if (not (plv-elements:enregistres profil "TN")) (plv-metres:lignes-tn profil)))

(defun plv-metres:lignes-tn (profil / plan ligne points)
  (setq plan (plgxd profil "PRPC"))
  (while plan
    (setq ligne (plgxd plan "PRLI"))
    (while ligne
      (if (not points) (setq points (list (plv-metres:point profil plan ligne 10))))
      (setq points (cons (plv-metres:point profil plan ligne 11) points)
            ligne (plgxd ligne "NEXTLI")))
    (setq plan (plgxd plan "NEXT-PC")))
  (reverse points))

(defun plv-metres:point (profil plan ligne bout / origine point)
  "An end (group 10 or 11) of a line drawn over a plane, as (distance altitude)."
  (setq origine (plv-cle 10 (entget profil)) point (plv-cle bout (entget ligne)))
  (list (- (car point) (car origine)) (+ (plgxd plan "PC") (/ (- (cadr point) (cadr origine)) (plgxd profil "ECHV")))))

;; --- the outline of a hatch

(defun plv-metres:contour (hachure profil plans / origine echv points plan)
  "In profile coordinates, over the plane at its middle."
  (setq origine (plv-cle 10 (entget profil))
        echv (plgxd profil "ECHV")
        points (mapcar '(lambda (g) (list (- (cadr g) (car origine)) (/ (- (caddr g) (cadr origine)) echv)))
                 (vl-remove-if-not '(lambda (g) (= (car g) 10)) (cdr (member (assoc 93 hachure) hachure))))
        plan (plv-plan-en plans (* 0.5 (+ (apply 'min (mapcar 'car points)) (apply 'max (mapcar 'car points))))))
  (mapcar '(lambda (p) (list (car p) (+ (cadr p) (cadr plan)))) points))

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

(defun plv-metres:avec-marches (chemin marches apres / d1 d2 m resultat)
  "A path with the second point of each wall inside it. An outline has one point for a vertex: of the upper line the one
behind a wall, of the lower line, which it goes along backwards, the one before it (apres T)."
  (setq d1 (caar chemin) d2 (car (plv-dernier chemin)))
  (foreach p (if marches chemin)
    (setq m (if (< (+ d1 1e-6) (car p) (- d2 1e-6)) (car (vl-member-if '(lambda (m) (equal (car m) (car p) 1e-6)) marches)))
          resultat (cond
                     ((not m) (cons p resultat))
                     (apres (vl-list* (list (car p) (caddr m)) p resultat))
                     (T (vl-list* p (list (car p) (cadr m)) resultat)))))
  (if marches (reverse resultat) chemin))

(defun plv-metres:aire (points / somme a)
  "The area below a line, from the altitude 0."
  (setq somme 0.0 a (car points))
  (foreach b (cdr points)
    (setq somme (+ somme (* 0.5 (- (car b) (car a)) (+ (cadr a) (cadr b)))) a b))
  somme)

;; --- sections

(defun plv-metres:exact (valeur arrondie)
  "A value as it was worked out here, unless the module's rounded one is another."
  (if (equal valeur arrondie plv-metres:arrondi) valeur arrondie))

(defun plv-metres:troncon (rangee hachure profil plans marches / chemins haut bas)
  "A section from its row and its hatch."
  (setq chemins (plv-metres:chemins (plv-metres:contour (entget hachure) profil plans))
        haut (plv-metres:avec-marches (car chemins) (car marches) nil)
        bas (plv-metres:avec-marches (cadr chemins) (cadr marches) T))
  (list (atoi (nth 4 rangee)) (caar haut) (car (plv-dernier haut))
        (plv-metres:exact (abs (- (plv-metres:aire haut) (plv-metres:aire bas))) (plv-metres:nombre (nth 6 rangee)))
        haut bas (plv-metres:nombre (nth 5 rangee))))

(defun plv-metres:du-profil (profil genre rangees hachures / plans marches)
  (setq plans (plv-tables:plans profil)
        marches (list (plv-metres:marches-de profil "TN") (plv-metres:marches-de profil genre)))
  (mapcar '(lambda (r h) (plv-metres:troncon r h profil plans marches)) rangees hachures))

(defun plv-metres:repartir (profils genre rangees hachures / resultat siennes i)
  "For each profile (profile section ...): rows and hatches come in the same order."
  (setq i -1)
  (foreach profil profils
    (setq i (1+ i)
          siennes (vl-remove-if-not '(lambda (r) (= (car r) i)) rangees)
          resultat (cons (cons profil (plv-metres:du-profil profil genre siennes hachures)) resultat))
    (repeat (length siennes) (setq hachures (cdr hachures))))
  (reverse resultat))

;; --- what follows from a class

(defun plv-metres:largeur (classe classes)
  "The width of a class; what lies deeper than all classes is as wide as the last one."
  (cond
    ((or (<= classe 0) (not classes)) 0.0)
    ((caddr (nth (1- (min classe (length classes))) classes)))))

(defun plv-metres:volume (troncon classes / volume)
  "The module's list gives none to what lies deeper than all classes; the workbook does."
  (setq volume (* (cadddr troncon) (plv-metres:largeur (car troncon) classes)))
  (if (<= 1 (car troncon) (length classes)) (plv-metres:exact volume (nth 6 troncon)) volume))

(defun plv-metres:libelle (classe classes)
  (cond
    ((= classe 0) "non enterre")
    ((not classes) "sans classe")
    ((> classe (length classes)) (strcat "au dela de " (plv-reel (cadr (plv-dernier classes)) 2)))
    (T (strcat (plv-reel (car (nth (1- classe) classes)) 2) " a " (plv-reel (cadr (nth (1- classe) classes)) 2)))))

(defun plv-metres:total (troncons fonction) (apply '+ (cons 0.0 (mapcar fonction troncons))))
(defun plv-metres:longueur (troncon) (- (caddr troncon) (cadr troncon)))
