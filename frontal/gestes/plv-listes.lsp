;; PLV-ALTITUDES and PLV-POINTS: the altitudes of a project line at the ground points, by themselves and against another line, on
;; the screen and in a file. The module reads the curves; it is asked one section at a time, so that each altitude is over its plane.
;; Shared in the room: plv-listes:*

(setq plv-listes:lues nil)

;; --- altitudes of curves: rows (distance altitude ground)

(defun plv-listes:lire-courbe (profil entite / etendue cordes)
  "What the module lists of one curve: a pick tells it the section where there are several."
  (setq etendue (plv-etendue-courbe profil entite)
        cordes (plv-cordes-de entite)
        entite (cond (cordes) (entite)))
  (dialoguer '(lambda () (plv-listes:appeler profil))
    (if (cdr (plv-plans profil))
      (list (list entite (plv-point (+ (car (plv-origine profil)) (plv-milieu etendue)) 0.0)))
      (list entite "")))
  (if cordes (entdel cordes))
  plv-listes:lues)

(defun plv-listes:appeler (profil) (setq plv-listes:lues (pl_listerAltitudes profil)))

(defun plv-listes:sans-doubles (rangees / gardees)
  "Rows by their distance; of two at one distance the first."
  (foreach r (vl-sort rangees '(lambda (a b) (< (car a) (car b))))
    (if (not (and gardees (equal (car r) (caar gardees) 1e-6))) (setq gardees (cons r gardees))))
  (reverse gardees))

(defun plv-listes:rangees (rangees)
  "What was read, in order; nil after a message where there is nothing."
  (cond ((plv-listes:sans-doubles rangees)) (T (plv-erreur "aucun point du terrain n'est sur cette ligne"))))

(defun plv-lister-altitudes (profil courbes / faute points)
  "Rows (distance altitude ground) of curves at the ground points; nil after a message."
  (setq points (plv-points-tn profil))
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((setq faute (vl-some '(lambda (e) (plv-refus-situation profil e)) courbes)) (plv-erreur faute))
    (T
     (mapcar '(lambda (r) (list (car r) (cadr r) (plv-altitude-tn points (car r))))
       (plv-listes:rangees (apply 'append (mapcar '(lambda (e) (plv-listes:lire-courbe profil e)) courbes)))))))

;; --- a line against another: rows (distance altitude altitude-of-the-other)

(defun plv-listes:courbes-en (profil genre section)
  "The curves of a kind over a section; of the ground, its lines."
  (if (and (= (plv-genre genre) "TN") (not (plv-elements profil "TN")))
    (plv-lignes-du-plan (plv-section-entite section))
    (vl-remove-if-not
      '(lambda (e / etendue)
         (setq etendue (plv-etendue-courbe profil e))
         (<= (- (plv-debut section) 1e-6) (plv-milieu etendue) (plv-section-fin section)))
      (plv-elements profil genre))))

(defun plv-listes:en-section (profil cadre genre reference section / a b)
  "What the module finds in one section, over its plane."
  (if (and (setq a (plv-listes:courbes-en profil genre section)) (setq b (plv-listes:courbes-en profil reference section)))
    (mapcar
      '(lambda (p)
         (list (plv-distance cadre p) (plv-altitude-dessinee cadre section (cadr p)) (plv-altitude-dessinee cadre section (caddr p))))
      (pl_PointsPrjRef profil (plv-jeu a) (plv-jeu b)))))

(defun plv-listes:refus-genre (profil genre / faute)
  (cond
    ((and (/= (plv-genre genre) "TN") (not (plv-elements profil genre))) (strcat "pas de ligne du genre " genre))
    ((setq faute (vl-some '(lambda (e) (plv-refus-situation profil e)) (plv-elements profil genre))) (strcat genre ": " faute))))

(defun plv-lister-points (profil genre reference / cadre faute)
  "Rows (distance altitude altitude) of the lines of two kinds at the ground points that both have; nil after a message."
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((setq faute (cond ((plv-listes:refus-genre profil genre)) ((plv-listes:refus-genre profil reference)))) (plv-erreur faute))
    (T
     (setq cadre (plv-cadre profil))
     (plv-listes:rangees
       (apply 'append
         (mapcar '(lambda (s) (plv-listes:en-section profil cadre genre reference s)) (plv-sections-de-plan profil)))))))

;; --- screen and file

(defun plv-listes:nombres (profil rangee)
  "Station, both altitudes and their difference; the difference is nil where there is no second one."
  (list (+ (plv-premiere-station profil) (car rangee)) (cadr rangee) (caddr rangee)
        (if (caddr rangee) (- (cadr rangee) (caddr rangee)))))

(defun plv-listes:textes (profil rangee decimales)
  (mapcar '(lambda (n) (if n (plv-reel n decimales) "")) (plv-listes:nombres profil rangee)))

(defun plv-listes:dire (profil titres rangees fichier)
  "Rows on the screen, and in a file unless its name is empty; gives the rows."
  (plv-colonnes titres '(12 12 12 12))
  (foreach r rangees (plv-colonnes (plv-listes:textes profil r 3) '(12 12 12 12)))
  (if (/= fichier "")
    (plv-ecrire-lignes fichier
      (cons (plv-ligne-csv titres) (mapcar '(lambda (r) (plv-ligne-csv (plv-listes:textes profil r 6))) rangees))))
  rangees)

(defun plv-listes:titres (genre reference) (list "station" (strcase (plv-genre genre) T) (strcase (plv-genre reference) T) "hauteur"))

(defun plv-listes:demander-fichier () (plv-demander-texte "Fichier à écrire <aucun>" nil))

;; --- the commands

(defun plv-listes:demander-courbes (profil / pris courbes)
  "The curves that are picked; none for the whole line of a kind."
  (while (setq pris (entsel (if courbes "\nCourbe suivante <fin>: " "\nCourbe <toute la ligne d'un genre>: ")))
    (setq courbes (cons (car pris) courbes)))
  (cond ((plv-uniques (reverse courbes)))
        ((plv-elements-du-projet profil (plv-demander-genre (plv-genre-propose profil))))
        (T (plv-erreur "ce genre n'a pas de ligne de projet"))))

(defun c:plv-altitudes (/ profil courbes rangees)
  "Liste les altitudes de courbes aux points du terrain."
  (if (and (setq profil (plv-choisir-profil)) (setq courbes (plv-listes:demander-courbes profil))
           (setq rangees (plv-lister-altitudes profil courbes)))
    (plv-listes:dire profil '("station" "altitude" "terrain" "hauteur") rangees (plv-listes:demander-fichier)))
  (princ))

(defun c:plv-points (/ profil genre reference rangees)
  "Liste les points d'un genre de ligne, au regard du terrain ou d'un autre genre."
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq genre (plv-demander-genre (plv-genre-propose profil))
            reference (plv-demander-mot "Genre de référence" (plv-genres) "TN"))
      (if (setq rangees (plv-lister-points profil genre reference))
        (plv-listes:dire profil (plv-listes:titres genre reference) rangees (plv-listes:demander-fichier)))))
  (princ))
