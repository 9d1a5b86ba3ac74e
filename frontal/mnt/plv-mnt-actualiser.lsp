;; PLV-TERRAIN Actualiser: the surface is cut again along the axis, as they are now; what follows from the ground follows.

(setq plv-mnt:meme-altitude 1e-3) ; an altitude that changes by no more, in metres, hasn't

;; --- the request that was kept

(defun plv-mnt:suites (groupes / suites)
  "The groups as (key value ...), keys as they stand in groups 1."
  (foreach g groupes
    (cond
      ((= (car g) 1) (setq suites (cons (list (read (cdr g))) suites)))
      (suites (setq suites (cons (append (car suites) (list (if (= (car g) 290) T (cdr g)))) (cdr suites))))))
  (reverse suites))

(defun plv-mnt-demande-gardee (profil)
  "The request that a profile came of; nil for another profile."
  (plv-mnt-demande-sous profil plv-mnt-enregistrement))

(defun plv-mnt-demande-sous (profil cle-record / suites)
  (if (setq suites (plv-mnt:suites (plv-enregistrement profil cle-record)))
    (cons (cons 'sources (mapcar 'cdr (vl-remove-if-not '(lambda (s) (eq (car s) 'source)) suites)))
          (mapcar '(lambda (s) (if (member (car s) '(inverse depart tolerance arete pres attribut zero)) (cons (car s) (cadr s)) s))
                  (vl-remove-if '(lambda (s) (eq (car s) 'source)) suites)))))

;; --- how far one ground is from another: (points that moved, greatest distance, its station)

(defun plv-mnt-comparer (points ligne / n plus ou ecart)
  "Each point against the straight lines through the others."
  (setq n 0 plus 0.0)
  (foreach p points
    (while (and (cddr ligne) (< (car (cadr ligne)) (- (car p) 1e-9))) (setq ligne (cdr ligne)))
    (if (and (cdr ligne) (<= (- (caar ligne) 1e-6) (car p) (+ (car (cadr ligne)) 1e-6)))
      (progn
        (setq ecart (abs (- (cadr p) (plv-mnt:sur (car ligne) (cadr ligne) (car p) (cadr p)))))
        (if (> ecart plv-mnt:meme-altitude) (setq n (1+ n)))
        (if (> ecart plus) (setq plus ecart ou (car p))))))
  (list n plus ou))

(defun plv-mnt:sur (a b d z)
  "The altitude at a distance; on an upright the nearest one to z."
  (if (> (- (car b) (car a)) 1e-6)
    (plv-interpoler (list a b) d)
    (max (min (cadr a) (cadr b)) (min (max (cadr a) (cadr b)) z))))

(defun plv-mnt:dire-ecarts (profil anciens nouveaux / a b)
  (setq a (plv-mnt-comparer nouveaux anciens) b (plv-mnt-comparer anciens nouveaux))
  (if (> (cadr b) (cadr a)) (setq a (cons (car a) (cdr b))))
  (plv-dire
    (if (and (<= (cadr a) plv-mnt:meme-altitude) (equal (car (plv-dernier anciens)) (car (plv-dernier nouveaux)) 1e-3))
      "Le terrain n'a pas changé."
      (strcat "Terrain actualisé: " (plv-compte (length nouveaux) "point") " au lieu de " (itoa (length anciens)) ", "
              (if (> (car a) 0) (itoa (car a)) "aucun") (if (> (car a) 1) " déplacés" " déplacé")
              (if (caddr a) (strcat ", de " (plv-reel (cadr a) 3) " m au plus, à la station " (plv-reel (+ (plv-premiere-station profil) (caddr a)) 2)) "")
              "."))))

;; --- what follows

(defun plv-mnt:refaire-axe (profil demande terrain / ancien)
  "The axis in plan as it is now; one that was drawn for the profile is drawn anew."
  (setq ancien (plv-axe-plan profil))
  (plv-associer-axe profil (plv-mnt-axe-en-plan demande terrain))
  (if (and ancien (not (member ancien (plv-cle 'axe demande))) (not (eq ancien (plv-axe-plan profil)))) (entdel ancien)))

(defun plv-mnt:dire-suites (profil)
  (if (vl-some '(lambda (genre) (plv-enregistrement profil (strcat "PLV_HACHURES_" genre))) (mapcar 'strcase (plv-genres)))
    (plv-dire "Les métrés de ce profil sont à refaire (PLV-METRES).")))

(defun plv-mnt:refus-origine (profil terrain)
  (if (not (equal (plv-cle 'origine terrain) (plv-premiere-station profil) 1e-3))
    (strcat "le terrain commence maintenant à la station " (plv-reel (plv-cle 'origine terrain) 2) " au lieu de "
            (plv-reel (plv-premiere-station profil) 2) ": le profil ne peut pas suivre, faites-en un nouveau")))

(defun plv-mnt-actualisable-p (profil) (or (plv-mnt-demande-gardee profil) (plv-mnt-autres-gardes profil)))

(defun plv-mnt-actualiser (profil / fait)
  "Cuts the surfaces of the ground and of the further grounds again; the profile, or nil after a message."
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((not (plv-mnt-actualisable-p profil)) (plv-erreur "ce profil ne vient pas d'une surface: PLV-TERRAIN Nouveau en crée un"))
    (T
     (setq fait (or (not (plv-mnt-demande-gardee profil)) (plv-mnt:actualiser-terrain profil (plv-mnt-demande-gardee profil))))
     (if (and fait (vl-every '(lambda (terrain) (plv-mnt-actualiser-autre profil terrain)) (plv-mnt-autres-gardes profil))) profil))))

(defun plv-mnt:actualiser-terrain (profil demande / terrain anciens)
  (cond
    ((not (setq terrain (plv-mnt-lire demande))) nil)
    ((plv-mnt:refus-origine profil terrain) (plv-erreur (plv-mnt:refus-origine profil terrain)))
    (T
     (setq anciens (plv-points-tn profil))
     (if (plv-changer-terrain profil (plv-cle 'points terrain) (plv-cle 'lacunes terrain))
       (progn
         (plv-mnt:refaire-axe profil demande terrain)
         (plv-refaire-tables profil)
         (if (plv-mnt-observations-gardees profil) (apply 'plv-mnt-observer (cons profil (plv-mnt-observations-gardees profil))))
         (plv-mnt:dire-ecarts profil anciens (plv-points-tn profil))
         (plv-mnt:dire-suites profil)
         profil)))))
