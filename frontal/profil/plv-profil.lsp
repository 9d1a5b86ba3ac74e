;; Making the records of a profile: block with its number, keys, natural ground, planes, ground lines, supports of the kinds
;; of line. Everything is created from here; the module only reads it back.
;; Shared in the room: plv-profil:titre

(setq plv-bloc-profil "PLV_PROFIL"
      plv-bloc-support "PLV_SUPPORT"
      plv-profil:titre "PROFIL EN LONG")

(defun plv-profil:preparer ()
  "Registers the applications, makes layers and block definitions."
  (regapp plv-app-cles)
  (regapp plv-app-terrain)
  (plv-creer-calques)
  (plv-bloc-vide plv-bloc-support)
  (if (not (tblsearch "BLOCK" plv-bloc-profil))
    (progn
      (entmake (list '(0 . "BLOCK") (cons 2 plv-bloc-profil) '(70 . 2) '(10 0.0 0.0 0.0)))
      (entmake '((0 . "ATTDEF") (8 . "0") (10 0.0 0.0 0.0) (40 . 1.0) (1 . "") (3 . "Numero du profil") (2 . "NUMPL") (70 . 0)))
      (entmake (list '(0 . "ATTDEF") '(8 . "0") '(10 0.0 0.0 0.0) '(40 . 1.0) (cons 1 plv-profil:titre) '(3 . "Titre") '(2 . "TITRE") '(70 . 0)))
      (entmake '((0 . "ENDBLK"))))))

(defun plv-profil:inserer (point numero ttxt)
  "The profile's block. Its attributes are the title above the axis: a click on it picks the profile."
  (entmake (list '(0 . "INSERT") (cons 8 (plv-calque "PLV-PROFIL")) '(66 . 1) (cons 2 plv-bloc-profil) (cons 10 point)))
  (mapcar '(lambda (attribut)
             (entmake (list '(0 . "ATTRIB") (cons 8 (plv-calque "PLV-TITRES")) (cons 10 point) (cons 40 (* 1.4 ttxt))
                            (cons 1 (cadr attribut)) (cons 2 (car attribut)) '(70 . 0))))
    (list (list "NUMPL" numero) (list "TITRE" plv-profil:titre)))
  (entmake (list '(0 . "SEQEND") (cons 8 (plv-calque "PLV-PROFIL"))))
  (entlast))

(defun plv-profil:supports (entite point)
  (foreach cle (plv-cles-genres)
    (plsxd entite cle (plv-inserer "PLV-PROFIL" plv-bloc-support point))))

;; --- planes and their ground lines

(defun plv-derriere (a b)
  "The distance of ground point b as it is drawn after a. An upright line has no extent for the quantities, which would
miss the depths that a wall passes through: it leans by a micrometre."
  (max (car b) (+ (car a) 1e-6)))

(defun plv-profil:penches (points)
  (cons (car points) (mapcar '(lambda (a b) (cons (plv-derriere a b) (cdr b))) points (cdr points))))

(defun plv-segments-terrain (point points echv plan fin / debut bout)
  "The ground of the section that runs from its plane's start to `fin`, as (start end) of each line."
  (setq debut (plv-plan-debut plan) points (plv-profil:penches points) bout (car (plv-dernier points)))
  (vl-remove nil
    (mapcar
      '(lambda (a b)
         (if (and (>= (car a) (- debut 1e-9)) (<= (car b) (if (equal fin bout 2e-6) bout (+ fin 1e-9))))
           (list
             (plv-point (+ (car point) (car a)) (plv-ordonnee (cadr a) plan echv (cadr point)))
             (plv-point (+ (car point) (car b)) (plv-ordonnee (cadr b) plan echv (cadr point))))))
      points (cdr points))))

(defun plv-tracer-lignes (point points echv plan fin / lignes)
  "Ground lines of the section that runs from its plane's start to `fin`; their names, chained."
  (setq lignes (mapcar '(lambda (bouts) (plv-ligne "PLV-TN" (car bouts) (cadr bouts))) (plv-segments-terrain point points echv plan fin)))
  (plv-enchainer lignes "NEXTLI")
  lignes)

(defun plv-tracer-plan (point points echv plan fin / entite lignes)
  "The entity of one reference plane: its line, with length, altitude and the first ground line."
  (setq entite (plv-ligne "PLV-PLANS"
                 (plv-point (+ (car point) (plv-plan-debut plan)) (cadr point))
                 (plv-point (+ (car point) fin) (cadr point)))
        lignes (plv-tracer-lignes point points echv plan fin))
  (plv-ecrire-cles entite
    (list (list "DISTANCE" (float (- fin (plv-plan-debut plan)))) (list "PC" (float (plv-plan-altitude plan)))))
  (if lignes (plsxd entite "PRLI" (car lignes)))
  entite)

(defun plv-tracer-plans (point points echv plans longueur / entites)
  (setq entites (mapcar '(lambda (plan fin) (plv-tracer-plan point points echv plan fin))
                        plans (append (plv-changements plans) (list longueur))))
  (plv-enchainer entites "NEXT-PC")
  entites)

(defun plv-retracer-section (profil points section / plan lignes)
  "The ground lines of a section in place of those that it has."
  (setq plan (plv-section-entite section))
  (plv-effacer (plv-lignes-du-plan plan))
  (setq lignes (plv-tracer-lignes (plv-origine profil) points (plv-echv profil) section (plv-section-fin section)))
  (if lignes (plsxd plan "PRLI" (car lignes)) (plv-oter-cle plan "PRLI")))

(defun plv-retracer-terrain (profil / points)
  "The ground lines of all sections, after a change of the record."
  (setq points (plv-points-aux-plans (plv-points-tn profil) (plv-plans profil)))
  (foreach section (plv-sections-de-plan profil) (plv-retracer-section profil points section))
  (plv-ouvrir-lacunes profil)
  (plv-noter-fait profil "TERRAIN" nil nil nil))

;; --- the whole profile; other keys are read where what they name is worked on

;; A key that is absent, or no number, is what the module takes it for.

(defun plv-profil:reel (profil cle defaut / valeur)
  (if (numberp (setq valeur (plgxd profil cle))) (float valeur) defaut))

(defun plv-echv (profil) "Drawing units for a metre of altitude." (plv-profil:reel profil "ECHV" 10.0))
(defun plv-ttxt (profil) "Height of its texts." (plv-profil:reel profil "TTXT" 2.5))
(defun plv-premiere-station (profil) "Station of its origin." (plv-profil:reel profil "DCUMDEB" 0.0))

(defun plv-creer-profil (numero point origine points echv ttxt plans / entite longueur)
  "Makes a whole profile and gives its block reference. point: insertion; origine: station of the first point (metres)."
  (plv-profil:preparer)
  (setq longueur (car (plv-dernier points))
        entite (plv-profil:inserer point numero ttxt))
  ;; "LONGUEUR" is the front-end's own: the module gives a profile its length only when it meets a key that it doesn't know.
  (plv-ecrire-cles entite
    (list (list "ECHV" (float echv)) (list "TTXT" (float ttxt)) (list "ID" (plv-identifiant-libre))
          (list "DCUMDEB" (float origine)) (list "LONGUEUR" (float longueur))))
  (plv-ecrire-terrain entite points)
  (plsxd entite "PRPC" (car (plv-tracer-plans point points echv plans longueur)))
  (plv-profil:supports entite point)
  (plv-ecrire-noms entite points)
  (plv-noter-fait entite "TERRAIN" nil nil nil)
  entite)

(defun plv-copier-profil (profil points / copie)
  "A profile in the same place, on the same planes, with a ground of its own and nothing drawn."
  (plv-profil:preparer)
  (setq copie (plv-profil:inserer (plv-origine profil) (plv-numero-profil profil) (plv-ttxt profil)))
  (plv-ecrire-cles copie (mapcar '(lambda (cle) (list cle (plgxd profil cle))) '("ECHV" "TTXT" "ID" "PRPC")))
  (plv-ecrire-terrain copie points)
  copie)
