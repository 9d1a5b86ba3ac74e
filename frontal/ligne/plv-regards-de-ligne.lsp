;; The manholes of a line with a network, as columns of its table of vertices and, where they stand between vertices, as rows of their own, known by their
;; names. A cell is a field of the network's row of the manhole, or of the pipe that goes on from it; what a row leaves empty shows what follows from
;; ground and line.
;; Shared in the room: plv-regards:rangees

;; field of the table, its title, kind of the network's row, place of the field in it
(setq plv-regards:champs
  '(("Regard" "Regard" "regard" 1) ("Type" "Type" "regard" 3) ("Diametre" "Ø regard" "regard" 4) ("Tampon" "Tampon" "regard" 5)
    ("Arrivee" "Arrivée" "regard" 6) ("Depart" "Départ" "regard" 7) ("Fond" "Fond" "regard" 8)
    ("Tuyau" "Tuyau après" "tuyau" 3) ("Materiau" "Matériau" "tuyau" 4)))

(defun plv-regards-champs () (mapcar 'car plv-regards:champs))
(defun plv-regards-titres () (mapcar 'cadr plv-regards:champs))
(defun plv-regards:du-tuyau-p (champ) (= (caddr (assoc champ plv-regards:champs)) "tuyau"))
(defun plv-regards:place (champ) (cadddr (assoc champ plv-regards:champs)))

;; --- a network that was read is (rows manholes distance-of-the-first-station)

(defun plv-regards (profil genre / lu)
  "The network of a line; nil for none, and for one that can't be understood now."
  (if (and (setq lu (plv-reseau-rangees profil genre)) (listp (plv-reseau-lu profil genre)))
    (list lu (plv-reseau-regards (plv-reseau-lu profil genre)) (plv-premiere-station profil))))

(defun plv-regards:rangees (regards) (car regards))
(defun plv-regards:noeuds (regards) (cadr regards))

(defun plv-regard-distance (regards noeud) (- (plv-noeud-station noeud) (caddr regards)))

(defun plv-regard-en (regards d)
  "The manhole at a distance, to the centimetre; nil for none."
  (car (vl-member-if '(lambda (n) (equal (plv-regard-distance regards n) d 0.011)) (plv-regards:noeuds regards))))

(defun plv-regard-nomme (regards nom) (car (vl-member-if '(lambda (n) (= (strcase (plv-noeud-nom n)) (strcase nom))) (plv-regards:noeuds regards))))

(defun plv-regards-entre-sommets (regards suites)
  "The manholes that stand at no vertex."
  (vl-remove-if '(lambda (n) (vl-some '(lambda (s) (equal (plv-regard-distance regards n) (car s) 0.011)) (apply 'append suites))) (plv-regards:noeuds regards)))

(defun plv-regards:de-rangee-p (rangee mot nom)
  "Whether a row of the network is the manhole's, or of the pipe that goes on from it."
  (setq rangee (plv-couper rangee ";"))
  (and (= (car rangee) mot) (= (strcase (cadr rangee)) (strcase nom))))

(defun plv-regards:rangee (rangees champ nom)
  (car (vl-member-if '(lambda (r) (plv-regards:de-rangee-p r (caddr (assoc champ plv-regards:champs)) nom)) rangees)))

;; --- texts

(defun plv-regards:suivi (champ noeud / valeur)
  "What follows where the row leaves a field empty."
  (setq valeur (cond ((= champ "Tampon") (plv-noeud-tampon noeud)) ((= champ "Arrivee") (plv-noeud-arrivee noeud))
                     ((= champ "Depart") (plv-noeud-depart noeud)) ((= champ "Fond") (plv-noeud-fond noeud))))
  (if (numberp valeur) (plv-reel valeur 3) ""))

(defun plv-regard-texte (regards noeud champ / rangee ecrit)
  (setq rangee (plv-regards:rangee (plv-regards:rangees regards) champ (plv-noeud-nom noeud))
        ecrit (if rangee (nth (plv-regards:place champ) (plv-couper rangee ";"))))
  (if (member ecrit '(nil "")) (plv-regards:suivi champ noeud) ecrit))

(defun plv-regard-textes (regards noeud)
  "One for each column; empty where there is no manhole."
  (mapcar '(lambda (champ) (if noeud (plv-regard-texte regards noeud champ) "")) (plv-regards-champs)))

;; --- changes: (name-or-distance field text). A name that is typed at a vertex without a manhole makes one.

(defun plv-regards:avec-champ (rangee place texte / champs)
  (setq champs (plv-couper rangee ";"))
  (while (<= (length champs) place) (setq champs (append champs '(""))))
  (plv-joindre (plv-remplacer-rang champs place (list (vl-string-translate ";" "," texte))) ";"))

(defun plv-regards:renommer (rangee ancien nouveau / champs)
  "A pipe between manholes of which one has another name."
  (setq champs (plv-couper rangee ";"))
  (if (= (car champs) "tuyau")
    (plv-joindre
      (vl-list* "tuyau" (append (mapcar '(lambda (n) (if (= (strcase n) (strcase ancien)) nouveau n)) (plv-premiers (cdr champs) 2)) (cdddr champs))) ";")
    rangee))

(defun plv-regards:ecrire (rangees champ nom texte / rangee)
  "The rows with one field of a manhole, or the text of why not."
  (setq rangee (plv-regards:rangee rangees champ nom))
  (cond
    ((and (not rangee) (plv-regards:du-tuyau-p champ)) (strcat "pas de tuyau après le regard " nom))
    ((not rangee) (strcat "pas de regard " nom))
    ((and (= champ "Regard") (= texte "")) (plv-reseau-sans-regard (vl-remove rangee rangees) nom))
    (T
     (setq rangees (subst (plv-regards:avec-champ rangee (plv-regards:place champ) texte) rangee rangees))
     (if (= champ "Regard") (mapcar '(lambda (r) (plv-regards:renommer r nom texte)) rangees) rangees))))

(defun plv-regards:inserer (regards d nom / station avant suivant tuyau)
  "The rows with a manhole more; the pipe that it stands in is cut."
  (setq station (+ d (caddr regards)) suivant (plv-regards:noeuds regards))
  (while (and suivant (< (plv-noeud-station (car suivant)) station)) (setq avant (car suivant) suivant (cdr suivant)))
  (setq tuyau (if (and avant suivant) (plv-regards:rangee (plv-regards:rangees regards) "Tuyau" (plv-noeud-nom avant))))
  (append
    (if tuyau (subst (plv-regards:avec-champ tuyau 2 nom) tuyau (plv-regards:rangees regards)) (plv-regards:rangees regards))
    (list (strcat "regard;" nom ";" (rtos station 2 6) ";" (plv-noeud-type (cond (avant) ((car suivant))))))
    (if tuyau (list (plv-regards:avec-champ tuyau 1 nom)))))

(defun plv-regards:un (regards rangees changement / qui champ texte noeud)
  "The rows with a change, or the text of why not."
  (setq qui (car changement) champ (cadr changement) texte (vl-string-trim " \t" (caddr changement))
        noeud (if (numberp qui) (plv-regard-en regards qui) (plv-regard-nomme regards qui)))
  (cond
    (noeud (plv-regards:ecrire rangees champ (plv-noeud-nom noeud) texte))
    ((not (numberp qui)) (strcat "pas de regard " qui))
    ((= texte "") rangees)
    ((/= champ "Regard") "pas de regard à ce sommet: son nom en fait un")
    (T (plv-regards:inserer (vl-list* rangees (cdr regards)) qui texte))))

(defun plv-regards-essai (regards changements / essai)
  "The network's rows with every change, or the text of the first that can't be."
  (setq essai (plv-regards:rangees regards))
  (foreach c changements (if (listp essai) (setq essai (plv-regards:un regards essai c))))
  essai)

(defun plv-regards-deplacer (regards rangees deplacements)
  "Rows of which manholes stand elsewhere: (name distance) each."
  (foreach m deplacements
    (setq rangees
      (mapcar '(lambda (r) (if (plv-regards:de-rangee-p r "regard" (car m)) (plv-regards:avec-champ r 2 (rtos (+ (cadr m) (caddr regards)) 2 6)) r)) rangees)))
  rangees)

(defun plv-regards-faute (profil genre essai / lu)
  "Why rows can't be the network, or a text what they are in place of them; nil for nothing."
  (cond
    ((= (type essai) 'STR) essai)
    ((= (type (setq lu (et_reseau_rangees essai))) 'STR) lu)
    ((= (type (setq lu (plv-reseau-essaye profil genre lu))) 'STR) lu)))
