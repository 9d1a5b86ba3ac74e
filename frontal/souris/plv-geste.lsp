;; What a line becomes when a hold of it is moved to a place: runs, or the text of why not. The ways: Libre, Vertical, Horizontal, along the
;; slope before or after the vertex (Entree, SOrtie), which may also get a curve through the place (RAccord); a slope is moved in parallel,
;; its neighbours' slopes staying (Glisser) or not (Vertical).

(defun plv-geste-facons (prise)
  (cond ((= (plv-prise-quoi prise) "S") '("Libre" "Vertical" "Horizontal" "Entree" "SOrtie" "RAccord"))
        ((= (plv-prise-quoi prise) "P") '("Vertical" "Glisser"))))

(defun plv-geste-facon (suites prise / verrou)
  "The way that a hold begins with: what a vertex has locked stays."
  (setq verrou (plv-verrou (cadr (plv-ligne-voisins suites (plv-prise-premier prise)))))
  (cond
    ((/= (plv-prise-quoi prise) "S") "Vertical")
    ((= verrou "Station") "Vertical")
    ((= verrou "Altitude") "Horizontal")
    ((= verrou "Entree") "Entree")
    ((= verrou "Sortie") "SOrtie")
    ("Libre")))

;; --- a vertex

(defun plv-geste:sur (a b d) (list d (plv-interpoler (list a b) d)))

(defun plv-geste:place (facon voisins place / avant s apres)
  "Where a vertex goes, or text."
  (setq avant (car voisins) s (cadr voisins) apres (caddr voisins))
  (cond
    ((= facon "Vertical") (list (car s) (cadr place)))
    ((= facon "Horizontal") (list (car place) (cadr s)))
    ((= facon "Entree") (if avant (plv-geste:sur avant s (car place)) "il n'y a pas de pente avant ce sommet"))
    ((= facon "SOrtie") (if apres (plv-geste:sur s apres (car place)) "il n'y a pas de pente après ce sommet"))
    (place)))

(defun plv-geste:sommet (suites prise facon place / s la)
  (setq s (cadr (plv-ligne-voisins suites (plv-prise-premier prise)))
        la (plv-geste:place facon (plv-ligne-voisins suites (plv-prise-premier prise)) place))
  (if (listp la) (plv-geste:mettre suites (plv-prise-premier prise) (car la) (cadr la)) la))

(defun plv-geste:mettre (suites numero d z / s)
  (setq s (cadr (plv-ligne-voisins suites numero)))
  (plv-ligne-changer suites numero (list (plv-sommet-de-ligne d z (plv-demande-de s) (plv-verrou s)))))

;; --- a range of vertices, by the height over the line at the place

(defun plv-geste-hauteur (suites place / rang)
  "How far a place is over the straight lines between vertices."
  (if (setq rang (plv-ligne-suite-en suites (car place)))
    (- (cadr place) (plv-altitude-ligne (nth rang suites) (car place)))))

(defun plv-geste:plage (suites prise facon place / h)
  (cond
    ((not (setq h (plv-geste-hauteur suites place))) "hors de la ligne")
    ((= facon "Glisser") (plv-geste:glisser suites (plv-prise-premier prise) (plv-prise-dernier prise) h))
    ((plv-ligne-decaler suites (plv-prise-premier prise) (plv-prise-dernier prise) 0.0 h))))

(defun plv-geste:glisser (suites premier dernier h / p q)
  "The ends of the range slide along the slopes outside it, what is between them goes up by h."
  (setq p (plv-geste:rencontre (plv-ligne-voisins suites premier) h nil)
        q (plv-geste:rencontre (plv-ligne-voisins suites dernier) h T))
  (cond
    ((= (type p) 'STR) p)
    ((= (type q) 'STR) q)
    (T
     (setq suites (plv-ligne-decaler suites premier dernier 0.0 h)
           suites (plv-geste:mettre suites premier (car p) (cadr p)))
     (plv-geste:mettre suites dernier (car q) (cadr q)))))

(defun plv-geste:rencontre (voisins h vers-droite / s dehors dedans p1 p2 d)
  "Where the slope outside a vertex meets the one inside, moved up by h; straight up at an end of the line."
  (setq s (cadr voisins) dehors (if vers-droite (caddr voisins) (car voisins)) dedans (if vers-droite (car voisins) (caddr voisins)))
  (if (not dehors)
    (list (car s) (+ (cadr s) h))
    (progn
      (setq p1 (plv-pente dehors s) p2 (plv-pente dedans s))
      (if (equal p1 p2 1e-9)
        "les deux pentes sont les mêmes, elles ne se rencontrent pas"
        (progn (setq d (+ (car s) (/ h (- p1 p2)))) (plv-geste:sur dehors s d))))))

;; --- a curve: through the place, with the measure that was asked, rounded

(defun plv-geste:courbe (suites prise place / voisins s demande raccord)
  (setq voisins (plv-ligne-voisins suites (plv-prise-premier prise)) s (cadr voisins)
        demande (cond ((plv-demande-de s)) ('("C" "R" 0.0)))
        raccord (if (and (car voisins) (caddr voisins))
                  (plv-raccord (car voisins) s (caddr voisins) (list (plv-demande-forme demande) "P" (car place) (cadr place)))
                  "un raccordement est entre deux pentes"))
  (if (= (type raccord) 'STR)
    raccord
    (plv-ligne-changer suites (plv-prise-premier prise)
      (list
        (plv-sommet-de-ligne (car s) (cadr s)
          (list (plv-demande-forme demande) (plv-demande-mesure demande)
                (plv-scene-ronde (if (= (plv-demande-mesure demande) "L") (plv-longueur raccord) (plv-partie-rayon raccord))))
          (plv-verrou s))))))

;; --- the whole

(defun plv-geste:confondus-p (suites)
  "Whether a vertex lies straight over its neighbour, where there is no slope."
  (vl-some '(lambda (suite) (vl-some '(lambda (a b) (equal (car a) (car b) 1e-6)) suite (cdr suite))) suites))

(defun plv-geste (suites prise facon place sol / essai)
  "The runs with a hold moved to a place (distance altitude)."
  (setq essai
    (cond ((= facon "RAccord") (plv-geste:courbe suites prise place))
          ((= (plv-prise-quoi prise) "S") (plv-geste:sommet suites prise facon place))
          ((= (plv-prise-quoi prise) "P") (plv-geste:plage suites prise facon place))
          ((plv-geste:courbe suites prise place))))
  (cond
    ((= (type essai) 'STR) essai)
    ((plv-geste:confondus-p essai) "deux sommets sont à la même station")
    ((plv-ligne-verrou-rompu suites essai sol))
    (essai)))

;; --- what is seen of it: curves one by one, since some may be impossible

(defun plv-geste-raccords (suite)
  "For each vertex nil, its curve, or the text of why it can't be."
  (mapcar '(lambda (avant s apres) (if (and avant apres (plv-demande-de s)) (plv-raccord avant s apres (plv-demande-de s))))
    (cons nil suite) suite (append (cdr suite) '(nil))))

(defun plv-geste:excede (suite raccords)
  "By how many metres the curves of two neighbours overlap, for each pair; negative for room between them."
  (mapcar
    '(lambda (a b ra rb)
       (- (if (listp ra) (if ra (plv-fin ra) (car a)) (car a)) (if (listp rb) (if rb (plv-debut rb) (car b)) (car b))))
    suite (cdr suite) raccords (cdr raccords)))

(defun plv-geste-fautes (suite raccords longueur / fautes)
  "Texts of what is wrong with a run as it is dragged."
  (setq fautes
    (mapcar
      '(lambda (a b excede)
         (cond
           ((<= (car b) (+ (car a) 1e-6)) "un sommet a passé son voisin")
           ((> excede 1e-6) (strcat "raccordements de trop: " (plv-reel excede 2) " m entre " (plv-reel (car a) 2) " et " (plv-reel (car b) 2)))))
      suite (cdr suite) (plv-geste:excede suite raccords)))
  (append
    (vl-remove nil fautes)
    (vl-remove-if-not '(lambda (r) (= (type r) 'STR)) raccords)
    (if (not (<= -1e-6 (caar suite) (car (plv-dernier suite)) (+ longueur 1e-6))) '("hors du profil"))))

(defun plv-geste-rouges (suite raccords / excedes)
  "Which curves of a run overlap: T for each vertex whose curve does."
  (setq excedes (plv-geste:excede suite raccords))
  (mapcar '(lambda (r avant apres) (and r (or (and avant (> avant 1e-6)) (and apres (> apres 1e-6)))))
    raccords (cons nil excedes) (append excedes '(nil))))
