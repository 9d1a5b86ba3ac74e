;; The trench in the profile: hatched by depth class, on demand with its surface, surround and bedding apart. What is drawn is noted with the
;; profile, and replaced together.
;; Shared in the room: plv-tranchees-dessin:*

(setq plv-tranchees-dessin:calque "PLV-TRANCHEES"
      ;; as clear as ground and pipes behind ask for: alpha 76 of 255
      plv-tranchees-dessin:transparence 33554508
      plv-tranchees-dessin:couleur-surface 8 plv-tranchees-dessin:couleur-enrobage 52 plv-tranchees-dessin:couleur-lit 34)

(defun plv-tranchees-clarte () "How clear the hatches are." plv-tranchees-dessin:transparence)

(defun plv-tranchees-couches ()
  "(colour words) of what is hatched apart."
  (list (list plv-tranchees-dessin:couleur-surface "Surface") (list plv-tranchees-dessin:couleur-enrobage "Enrobage")
        (list plv-tranchees-dessin:couleur-lit "Lit de pose")))

(defun plv-tranchees-couleur (classe)
  "Of a depth class, as those of the quantities: 1 to 6, and again."
  (1+ (rem classe 6)))

(defun plv-tranchees-dessin:cle (quoi genre) (strcat "PLV_TRACES_" quoi "_" (strcase (plv-genre genre))))

(defun plv-traces-tranchees (profil genre) (plv-entites-propres profil (plv-tranchees-dessin:cle "TRANCHEES" genre)))

;; --- pieces as et_tranchees_coupes gives them: (work pit class width lean upright end end), an end (station ground below-the-surface
;; top-of-the-surround top-of-the-bedding bottom)

(defun plv-morceau-ouvrage (morceau) (car morceau))
(defun plv-morceau-fosse-p (morceau) (= (cadr morceau) 1))
(defun plv-morceau-classe (morceau) (caddr morceau))
(defun plv-morceau-largeur (morceau) (cadddr morceau))
(defun plv-morceau-fruit (morceau) (nth 4 morceau))
(defun plv-morceau-droite (morceau) (nth 5 morceau))
(defun plv-morceau-debut (morceau) (nth 6 morceau))
(defun plv-morceau-fin (morceau) (nth 7 morceau))
(defun plv-bout-station (bout) (car bout))
(defun plv-bout-sol (bout) (cadr bout))
(defun plv-bout-surface (bout) (caddr bout))
(defun plv-bout-enrobage (bout) (cadddr bout))
(defun plv-bout-lit (bout) (nth 4 bout))
(defun plv-bout-fond (bout) (nth 5 bout))

(defun plv-tranchees-dessin:morceaux (profil genre / demande coupes)
  "The pieces; nil after a message."
  (setq demande (plv-tranchees:demande profil genre)
        coupes (if (listp demande) (apply 'et_tranchees_coupes demande) demande))
  (if (eq (type coupes) 'STR) (plv-erreur coupes) (car coupes)))

;; --- pieces of one work and one class that follow each other are hatched together

(defun plv-tranchees-dessin:suite-p (a b)
  (and (= (plv-morceau-ouvrage a) (plv-morceau-ouvrage b)) (= (plv-morceau-classe a) (plv-morceau-classe b))))

(defun plv-tranchees-dessin:suites (morceaux / suites)
  (foreach m morceaux
    (setq suites
      (if (and suites (plv-tranchees-dessin:suite-p (caar suites) m))
        (cons (cons m (car suites)) (cdr suites))
        (cons (list m) suites))))
  (reverse (mapcar 'reverse suites)))

(defun plv-tranchees-dessin:bord (suite niveau origine)
  "A level along a run of pieces, as points (distance altitude); steps between pieces included."
  (apply 'append
    (mapcar
      '(lambda (m)
         (mapcar '(lambda (bout) (list (- (plv-bout-station bout) origine) (apply niveau (list bout)))) (list (plv-morceau-debut m) (plv-morceau-fin m))))
      suite)))

;; --- hatches

(defun plv-tranchees-dessin:hachure (points couleur)
  (entmakex
    (append
      (list '(0 . "HATCH") '(100 . "AcDbEntity") (cons 8 (plv-calque plv-tranchees-dessin:calque)) (cons 62 couleur)
            (cons 440 plv-tranchees-dessin:transparence) '(100 . "AcDbHatch") '(10 0.0 0.0 0.0) '(210 0.0 0.0 1.0) '(2 . "SOLID") '(70 . 1)
            '(71 . 0) '(91 . 1) '(92 . 3) '(72 . 0) '(73 . 1) (cons 93 (length points)))
      (mapcar '(lambda (p) (list 10 (car p) (cadr p))) points)
      '((97 . 0) (75 . 0) (76 . 1) (98 . 0)))))

(defun plv-tranchees-dessin:entre (bord a b)
  "The part of a border between two distances, with its own points there."
  (append
    (list (list a (plv-altitude-ligne bord a)))
    (vl-remove-if-not '(lambda (p) (< (+ a 1e-6) (car p) (- b 1e-6))) bord)
    (list (list b (plv-tranchees-dessin:avant bord b)))))

(defun plv-tranchees-dessin:avant (bord d)
  "The altitude with which a border comes to a distance: of two points there the first."
  (while (and (cddr bord) (< (car (cadr bord)) (- d 1e-9))) (setq bord (cdr bord)))
  (if (equal (car (cadr bord)) (caar bord) 1e-9) (cadr (car bord)) (plv-interpoler bord d)))

(defun plv-tranchees-dessin:bande (cadre sections haut bas couleur / a b)
  "Hatches between two borders, one for each plane that they stand over; nothing where they lie on each other."
  (if (vl-some '(lambda (p q) (> (- (cadr p) (cadr q)) 1e-6)) haut bas)
    (foreach section sections
      (setq a (max (plv-plan-debut section) (caar haut)) b (min (plv-section-fin section) (car (plv-dernier haut))))
      (if (> (- b a) 1e-6)
        (plv-tranchees-dessin:hachure
          (mapcar '(lambda (p) (plv-vers-dessin-sur cadre section (car p) (cadr p)))
            (append (plv-tranchees-dessin:entre haut a b) (reverse (plv-tranchees-dessin:entre bas a b))))
          couleur)))))

(defun plv-tranchees-dessin:bandes (classe tout)
  "(upper level, lower level, colour) of what is hatched of a run of pieces."
  (if tout
    (list
      (list 'plv-bout-sol 'plv-bout-surface plv-tranchees-dessin:couleur-surface)
      (list 'plv-bout-surface 'plv-bout-enrobage (plv-tranchees-couleur classe))
      (list 'plv-bout-enrobage 'plv-bout-lit plv-tranchees-dessin:couleur-enrobage)
      (list 'plv-bout-lit 'plv-bout-fond plv-tranchees-dessin:couleur-lit))
    (list (list 'plv-bout-sol 'plv-bout-fond (plv-tranchees-couleur classe)))))

(defun plv-tranchees-dessin:tracer (profil suites tout / cadre sections origine)
  (setq cadre (plv-cadre profil) sections (plv-sections-de-plan profil) origine (plv-premiere-station profil))
  (foreach suite suites
    (foreach bande (plv-tranchees-dessin:bandes (plv-morceau-classe (car suite)) tout)
      (plv-tranchees-dessin:bande cadre sections (plv-tranchees-dessin:bord suite (car bande) origine)
        (plv-tranchees-dessin:bord suite (cadr bande) origine) (caddr bande)))))

(defun plv-hachurer-tranchees (profil genre tout / legendes)
  "Hatches the trenches of a network by depth class, with surface, surround and bedding apart on demand; a legend that is there is made anew
with them. T, or nil after a message."
  (setq legendes (plv-legendes-de-tranchees profil (plv-genre genre)))
  (plv-tranchees-dessin:faire profil (plv-genre genre) tout legendes (if legendes (plv-origine (car legendes)))))

(defun plv-tranchees-dessin:tout-p (profil genre)
  "Whether surface, surround and bedding are hatched apart."
  (vl-some '(lambda (e) (= (plv-cle 62 (entget e)) plv-tranchees-dessin:couleur-lit)) (plv-traces-tranchees profil genre)))

(defun plv-legende-tranchees (profil genre point)
  "Explains the colours of hatched trenches beside the profile, or from an upper left corner on; T, or nil after a message."
  (setq genre (plv-genre genre))
  (if (plv-traces-tranchees profil genre)
    (plv-tranchees-dessin:faire profil genre (plv-tranchees-dessin:tout-p profil genre) T point)
    (plv-erreur (strcat "ce profil n'a pas de tranchée hachurée " genre ": PLV-TRANCHEES Hachurer en fait"))))

(defun plv-tranchees-dessin:faire (profil genre tout legende point / morceaux)
  (if (and (plv-profil-sain profil) (setq morceaux (plv-tranchees-dessin:morceaux profil genre)))
    (progn
      (plv-effacer (plv-traces-tranchees profil genre))
      (plv-enregistrer-entites profil (plv-tranchees-dessin:cle "TRANCHEES" genre)
        (plv-ajouts-de
          '(lambda ()
             (plv-tranchees-dessin:tracer profil (plv-tranchees-dessin:suites morceaux) tout)
             (if legende (plv-tranchees-legende:poser profil genre morceaux tout point)))))
      (plv-noter-fait profil "TRANCHEES" genre nil (list (if tout "Tout" "Classes")))
      ;; What is drawn later lies above: pipes and their texts over the hatches.
      (if (plv-traces-reseau profil genre) (plv-dessiner-reseau profil genre))
      T)))

;; --- how low they go

(defun plv-tranchees-dessin:niveaux (profil genre / demande coupes)
  "The bottoms of hatched trenches as a line of (distance altitude) in a list; nil where nothing is hatched."
  (setq demande (if (plv-traces-tranchees profil genre) (plv-tranchees:demande profil genre))
        coupes (if (listp demande) (apply 'et_tranchees_coupes demande)))
  (if (and demande (listp coupes)) (list (plv-tranchees-dessin:bord (car coupes) 'plv-bout-fond (plv-premiere-station profil)))))

(defun plv-niveaux-tranchees (profil)
  (apply 'append (mapcar '(lambda (genre) (plv-tranchees-dessin:niveaux profil genre)) (plv-genres-de-reseau profil))))

(plv-declarer-niveaux 'plv-niveaux-tranchees)

(defun plv-hachurer-et-dire (profil genre tout)
  (if (plv-hachurer-tranchees profil genre tout)
    (progn (plv-dire-sous-plans profil "la tranchée" (plv-tranchees-dessin:niveaux profil genre)) T)))

(defun plv-oter-tranchees (profil genre)
  (plv-effacer (plv-traces-tranchees profil genre))
  (dictremove (plv-dictionnaire profil) (plv-tranchees-dessin:cle "TRANCHEES" genre)))
