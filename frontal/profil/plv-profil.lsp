;; The records of a profile: block with its number, keys, natural ground, planes, ground lines, supports of the kinds.
;; Everything is created from here; the module only reads it back.

(setq plv-profil:bloc "PLV_PROFIL"
      plv-profil:titre "PROFIL EN LONG"
      plv-profil:support "PLV_SUPPORT"
      ;; keys of the seven kinds of line, each with a support of its own
      plv-profil:genres '("HTN" "HASS" "HVOIRIE" "HAEP" "HGEN" "HTERRA" "HPROJ"))

(defun plv-profil:preparer ()
  "Registers the applications, makes layers and block definitions."
  (regapp "PLV2_DATA")
  (regapp "KELMONT_PLV2")
  (plv-creer-calques)
  (plv-bloc-vide plv-profil:support)
  (if (not (tblsearch "BLOCK" plv-profil:bloc))
    (progn
      (entmake (list '(0 . "BLOCK") (cons 2 plv-profil:bloc) '(70 . 2) '(10 0.0 0.0 0.0)))
      (entmake '((0 . "ATTDEF") (8 . "0") (10 0.0 0.0 0.0) (40 . 1.0) (1 . "") (3 . "Numero du profil") (2 . "NUMPL") (70 . 0)))
      (entmake (list '(0 . "ATTDEF") '(8 . "0") '(10 0.0 0.0 0.0) '(40 . 1.0) (cons 1 plv-profil:titre) '(3 . "Titre") '(2 . "TITRE") '(70 . 0)))
      (entmake '((0 . "ENDBLK"))))))

(defun plv-profil:inserer (point numero ttxt)
  "The profile's block. Its attributes are the title above the axis: a click on it picks the profile."
  (entmake (list '(0 . "INSERT") '(8 . "PLV-PROFIL") '(66 . 1) (cons 2 plv-profil:bloc) (cons 10 point)))
  (mapcar '(lambda (attribut)
             (entmake (list '(0 . "ATTRIB") '(8 . "PLV-TITRES") (cons 10 point) (cons 40 (* 1.4 ttxt))
                            (cons 1 (cadr attribut)) (cons 2 (car attribut)) '(70 . 0))))
    (list (list "NUMPL" numero) (list "TITRE" plv-profil:titre)))
  (entmake '((0 . "SEQEND") (8 . "PLV-PROFIL")))
  (entlast))

(defun plv-profil:cles (entite paires)
  (foreach paire paires (plsxd entite (car paire) (cadr paire))))

(defun plv-oter-cle (entite cle / donnees reste)
  "Takes a key of PLV2_DATA away with its value."
  (setq donnees (cdadr (assoc -3 (entget entite '("PLV2_DATA")))))
  (while donnees
    (if (and (= (caar donnees) 1000) (cdr donnees) (= (strcase (cdar donnees)) cle))
      (setq donnees (cddr donnees))
      (setq reste (cons (car donnees) reste) donnees (cdr donnees))))
  (entmod (append (entget entite) (list (list -3 (cons "PLV2_DATA" (reverse reste)))))))

(defun plv-profil:terrain (entite points / precedent groupes)
  "The natural ground: for each point the distance from the one before, and the altitude. All at once: pl_add_xdata reads and
writes the whole record for each point."
  (setq precedent 0.0)
  (foreach point points
    (setq groupes (vl-list* (cons 1040 (float (cadr point))) (cons 1040 (float (- (car point) precedent))) groupes)
          precedent (car point)))
  (entmod (append (entget entite) (list (list -3 (cons "KELMONT_PLV2" (reverse groupes)))))))

(defun plv-profil:supports (entite point)
  (foreach genre plv-profil:genres
    (plsxd entite genre (plv-inserer "PLV-PROFIL" plv-profil:support point))))

(defun plv-profil:ordonnee (altitude plan echv y0) (+ y0 (* echv (- altitude (cadr plan)))))

(defun plv-profil:chainer (entites cle)
  "Each entity holds the handle of the next under the key."
  (mapcar '(lambda (entite suivante) (plsxd entite cle suivante)) entites (cdr entites)))

(defun plv-profil:derriere (a b)
  "The distance of ground point b as it is drawn behind a. An upright line has no extent for the quantities, which would
miss the depths that a wall passes through: it leans by a micrometre."
  (max (car b) (+ (car a) 1e-6)))

(defun plv-profil:penches (points)
  (cons (car points) (mapcar '(lambda (a b) (cons (plv-profil:derriere a b) (cdr b))) points (cdr points))))

(defun plv-profil:lignes (point points echv plan fin / debut bout lignes)
  "Ground lines of the section that runs from its plane's start to `fin`; their names, chained."
  (setq debut (car plan) points (plv-profil:penches points) bout (car (plv-dernier points)))
  (mapcar
    '(lambda (a b)
       (if (and (>= (car a) (- debut 1e-9)) (<= (car b) (if (equal fin bout 2e-6) bout (+ fin 1e-9))))
         (setq lignes
           (cons (plv-ligne "PLV-TN"
                   (plv-point (+ (car point) (car a)) (plv-profil:ordonnee (cadr a) plan echv (cadr point)))
                   (plv-point (+ (car point) (car b)) (plv-profil:ordonnee (cadr b) plan echv (cadr point))))
                 lignes))))
    points (cdr points))
  (setq lignes (reverse lignes))
  (plv-profil:chainer lignes "NEXTLI")
  lignes)

(defun plv-profil:plan (point points echv plan fin / entite lignes)
  "The entity of one reference plane: its line, with length, altitude and the first ground line."
  (setq entite (plv-ligne "PLV-PLANS"
                 (plv-point (+ (car point) (car plan)) (cadr point))
                 (plv-point (+ (car point) fin) (cadr point)))
        lignes (plv-profil:lignes point points echv plan fin))
  (plv-profil:cles entite (list (list "DISTANCE" (float (- fin (car plan)))) (list "PC" (float (cadr plan)))))
  (if lignes (plsxd entite "PRLI" (car lignes)))
  entite)

(defun plv-profil:plans (point points echv plans longueur / fins entites)
  (setq fins (append (mapcar 'car (cdr plans)) (list longueur))
        entites (mapcar '(lambda (plan fin) (plv-profil:plan point points echv plan fin)) plans fins))
  (plv-profil:chainer entites "NEXT-PC")
  entites)

(defun plv-profil:noms (entite points / dict)
  "Names of the ground points, kept with the profile for the rows that show them."
  (setq dict (plv-dictionnaire entite))
  (dictadd dict "PLV_NOMS_TN"
    (entmakex (append '((0 . "XRECORD") (100 . "AcDbXrecord") (280 . 1)) (mapcar '(lambda (p) (cons 300 (caddr p))) points)))))

(defun plv-creer-profil (numero point origine points echv ttxt plans / entite longueur)
  "Makes a whole profile and gives its block reference. point: insertion; origine: station of the first point (metres)."
  (plv-profil:preparer)
  (setq longueur (car (plv-dernier points))
        entite (plv-profil:inserer point numero ttxt))
  ;; "LONGUEUR" is the front-end's own: the module gives a profile its length only when it meets a key that it doesn't know.
  (plv-profil:cles entite
    (list (list "ECHV" (float echv)) (list "TTXT" (float ttxt)) (list "ID" (plv-profil:identifiant))
          (list "DCUMDEB" (float origine)) (list "LONGUEUR" (float longueur))))
  (plv-profil:terrain entite points)
  (plsxd entite "PRPC" (car (plv-profil:plans point points echv plans longueur)))
  (plv-profil:supports entite point)
  (plv-profil:noms entite points)
  entite)

;; --- finding profiles

(defun plv-profils (/ jeu i liste)
  "The profiles of the drawing, in the order of their making."
  (if (setq jeu (ssget "X" (list '(0 . "INSERT") (cons 2 plv-profil:bloc))))
    (progn
      (setq i 0)
      (repeat (sslength jeu)
        (setq liste (cons (ssname jeu i) liste) i (1+ i)))))
  (vl-sort liste '(lambda (a b) (< (plv-profil:id a) (plv-profil:id b)))))

(defun plv-profil:id (entite) (cond ((plgxd entite "ID")) (-1)))

(defun plv-profil:identifiant ()
  (1+ (apply 'max (cons 0 (mapcar 'plv-profil:id (plv-profils))))))

(defun plv-profil:attribut (entite etiquette / suivante groupes)
  "The groups of an attribute, nil without it."
  (setq suivante (entnext entite))
  (while (and suivante (= (plv-cle 0 (setq groupes (entget suivante))) "ATTRIB") (/= (plv-cle 2 groupes) etiquette))
    (setq suivante (entnext suivante)))
  (if (and suivante (= (plv-cle 0 groupes) "ATTRIB")) groupes))

(defun plv-numero-profil (entite) (plv-cle 1 (plv-profil:attribut entite "NUMPL")))

(defun plv-profil-de-numero (numero / trouve)
  (foreach profil (plv-profils)
    (if (and (not trouve) (= (strcase (plv-numero-profil profil)) (strcase numero))) (setq trouve profil)))
  trouve)

(defun plv-points-tn (profil / donnees d points)
  "Points (distance altitude 0.0) of the natural ground, as the module reads them: steps and altitudes. pl_PointTn reads the
whole record for each point."
  (setq d 0.0
        donnees (mapcar '(lambda (g) (if (numberp (cdr g)) (float (cdr g)) 0.0)) (cdadr (assoc -3 (entget profil '("KELMONT_PLV2"))))))
  (while (cdr donnees)
    (setq d (+ d (car donnees))
          points (cons (list d (cadr donnees) 0.0) points)
          donnees (cddr donnees)))
  (reverse points))

(defun plv-noms-tn (profil / groupes)
  (setq groupes (dictsearch (plv-dictionnaire profil) "PLV_NOMS_TN"))
  (mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) 300)) groupes)))

(defun plv-choisir-profil (/ profils numero choix)
  "The drawing's only profile, or the one of a number that is asked for."
  (setq profils (plv-profils))
  (cond
    ((not profils) (plv-erreur "le dessin n'a pas de profil: PLV-NOUVEAU en cree un"))
    ((not (cdr profils)) (car profils))
    (T
     (setq numero (plv-demander-texte
                    (strcat "Numero du profil [" (plv-joindre (mapcar 'plv-numero-profil profils) "/") "]")
                    (plv-numero-profil (plv-dernier profils))))
     (cond ((plv-profil-de-numero numero)) (T (plv-erreur (strcat "pas de profil numero " numero)))))))
