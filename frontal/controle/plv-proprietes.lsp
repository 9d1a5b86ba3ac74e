;; What the window's panel of properties shows of the selected entities, and how a value that was typed there is given to them.

;; group, name, kind: "genre", of objects, "texte", "nombre", "entier", "couleur", "calque", "type", "style", "point"; nil for what is only shown
(setq plv-proprietes:champs
  '((0 "Type" "genre") (5 "Identifiant" nil) (8 "Calque" "calque") (62 "Couleur" "couleur") (6 "Type de ligne" "type") (48 "Échelle de ligne" "nombre")
    (370 "Épaisseur" "entier") (1 "Texte" "texte") (2 "Nom" nil) (7 "Style" "style") (10 "Point" "point") (11 "Second point" "point")
    (40 "Hauteur ou rayon" "nombre") (50 "Angle" "angle") (51 "Angle final" "angle") (41 "Facteur X" "nombre") (42 "Courbure ou facteur Y" "nombre")
    (43 "Largeur" "nombre") (38 "Élévation" "nombre") (70 "Indicateurs" nil) (90 "Nombre de sommets" nil)))

;; what an entity without the group has
(setq plv-proprietes:defauts '((62 . 256) (6 . "ByLayer") (48 . 1.0) (370 . -1)))

(defun plv-proprietes:texte (valeur)
  (cond ((= (type valeur) 'STR) valeur)
        ((= (type valeur) 'REAL) (rtos valeur 2 4))
        ((= (type valeur) 'ENAME) (plv-handle valeur))
        ((and (listp valeur) (vl-every 'numberp valeur)) (plv-joindre (mapcar '(lambda (v) (rtos v 2 4)) valeur) " ; "))
        (T (vl-princ-to-string valeur))))

(defun plv-proprietes:montrer (champ valeur / nature)
  "A value as users know it."
  (setq nature (caddr champ))
  (cond
    ((= nature "genre") (plv-nom-de-type valeur))
    ((and (= nature "couleur") (= valeur 256)) "DuCalque")
    ((and (= nature "couleur") (= valeur 0)) "DuBloc")
    ((and (= nature "type") (= (strcase valeur) "BYLAYER")) "DuCalque")
    ((and (= (car champ) 370) (= valeur -1)) "DuCalque")
    ((= nature "angle") (rtos (/ (* 180.0 valeur) pi) 2 4))
    (T (plv-proprietes:texte valeur))))

(defun plv-proprietes:application (donnees / champs)
  "Keys of an application: texts that are followed by their value; or its values one by one."
  (setq champs (list (list (strcat "[" (car donnees) "]") "" nil)) donnees (cdr donnees))
  (while donnees
    (if (and (= (caar donnees) 1000) (cdr donnees))
      (setq champs (cons (list (cdar donnees) (plv-proprietes:texte (cdadr donnees)) nil) champs) donnees (cddr donnees))
      (setq champs (cons (list (itoa (caar donnees)) (plv-proprietes:texte (cdar donnees)) nil) champs) donnees (cdr donnees))))
  (reverse champs))

(defun plv-proprietes:reduire (champs nombre)
  "The first so many fields, with a last one that says how many are left."
  (if (<= (length champs) nombre)
    champs
    (append (plv-premiers champs nombre) (list (list "..." (strcat (itoa (- (length champs) nombre)) " autres") nil)))))

(defun plv-proprietes:avec-defauts (groupes)
  "The groups with those that every drawn entity has."
  (append groupes (vl-remove-if '(lambda (d) (assoc (car d) groupes)) plv-proprietes:defauts)))

(defun plv-proprietes:repetee-p (code groupes)
  "Points and bulges of polylines come by the vertex: which one would be meant isn't told."
  (cdr (plv-cles code groupes)))

(defun plv-proprietes:change-p (champ) (not (member (caddr champ) '(nil "genre"))))

(defun plv-proprietes:rangee (champ groupes)
  "(name value code), the code nil for what can't be changed; nil without the group."
  (if (assoc (car champ) groupes)
    (list (cadr champ) (plv-proprietes:montrer champ (plv-cle (car champ) groupes))
          (if (and (plv-proprietes:change-p champ) (not (plv-proprietes:repetee-p (car champ) groupes))) (car champ)))))

(defun plv-proprietes:une (entite / groupes)
  (setq groupes (entget entite '("*")))
  (apply 'append
    (mapcar '(lambda (champs) (plv-proprietes:reduire champs 40))
      (cons (vl-remove nil (mapcar '(lambda (champ) (plv-proprietes:rangee champ (plv-proprietes:avec-defauts groupes))) plv-proprietes:champs))
            (mapcar 'plv-proprietes:application (cdr (assoc -3 groupes)))))))

(defun plv-proprietes:commune (champ rangees tous)
  "The row of what entities have in common; where they differ, or aren't all read, that."
  (cond
    ((cdr (plv-uniques (mapcar 'cadr rangees))) (list (cadr champ) "(plusieurs)" (caddr (car rangees))))
    (tous (car rangees))
    ((list (cadr champ) "(non comparés)" (caddr (car rangees))))))

(defun plv-proprietes:plusieurs (entites nombre / lots)
  "What all of them have; nombre: how many are selected."
  (setq lots (mapcar '(lambda (e) (plv-proprietes:avec-defauts (entget e))) entites))
  (cons (list "Objets" (itoa nombre) nil)
    (vl-remove nil
      (mapcar
        '(lambda (champ / rangees)
           (setq rangees (mapcar '(lambda (groupes) (plv-proprietes:rangee champ groupes)) lots))
           (if (and (caddr champ) (/= (caddr champ) "point") (not (member nil rangees)) (or (= (caddr champ) "genre") (vl-every 'caddr rangees)))
             (plv-proprietes:commune champ rangees (= nombre (length lots)))))
        plv-proprietes:champs))))

(setq plv-proprietes:lues 2000) ; entities whose values are compared

(defun plv-bureau-proprietes (handles / entites)
  "The rows (name value code) of entities."
  (setq entites (vl-remove nil (mapcar 'handent (plv-premiers handles plv-proprietes:lues))))
  (cond ((cdr entites) (plv-proprietes:plusieurs entites (length handles))) (entites (plv-proprietes:une (car entites)))))

;; --- changing

(defun plv-proprietes:dans-table (table nom quoi) (if (tblsearch table nom) nom (list (strcat "il n'y a pas de " quoi " " nom))))

(defun plv-proprietes:valeur (champ texte / nature nombre)
  "The value of a text; a list of why not."
  (setq nature (caddr champ) nombre (plv-nombre texte))
  (cond
    ((and (= (strcase texte) "DUCALQUE") (member (car champ) '(62 6 370))) (plv-cle (car champ) plv-proprietes:defauts))
    ((= nature "texte") texte)
    ((= nature "calque") (plv-proprietes:dans-table "LAYER" texte "calque"))
    ((= nature "type") (plv-proprietes:dans-table "LTYPE" texte "type de ligne"))
    ((= nature "style") (plv-proprietes:dans-table "STYLE" texte "style"))
    ((= nature "point") (cond ((plv-couple (plv-remplacer texte " " ""))) ('("deux nombres séparés par un point-virgule sont attendus"))))
    ((not nombre) '("un nombre est attendu"))
    ((= nature "angle") (/ (* pi nombre) 180.0))
    ((= nature "nombre") (float nombre))
    ((and (= nature "couleur") (not (<= 0 nombre 256))) '("une couleur de 0 à 256 est attendue"))
    (T (fix nombre))))

(defun plv-proprietes:avec (groupes code valeur)
  (if (assoc code groupes) (subst (cons code valeur) (assoc code groupes) groupes) (append groupes (list (cons code valeur)))))

(defun plv-proprietes:changer (entite code valeur / groupes)
  "Of a coloured entity the colour's number takes the place of its true colour."
  (setq groupes (entget entite))
  (if (= code 62) (setq groupes (vl-remove-if '(lambda (g) (member (car g) '(420 430))) groupes)))
  (entmod (plv-proprietes:avec groupes code valeur)))

(defun plv-bureau-changer (handles code texte / valeur entites faites)
  "Gives a typed value to entities; their number, or nil after a message."
  (setq valeur (plv-proprietes:valeur (assoc code plv-proprietes:champs) (vl-string-trim " " texte))
        entites (vl-remove nil (mapcar 'handent handles)))
  (cond
    ((and (listp valeur) (= (type (car valeur)) 'STR)) (plv-erreur (car valeur)))
    (T
     (setq faites (vl-remove-if-not '(lambda (e) (plv-proprietes:changer e code valeur)) entites))
     (if (= (length faites) (length entites))
       (length faites)
       (plv-erreur (strcat (plv-compte (- (length entites) (length faites)) "objet") " sur " (itoa (length entites)) " ne peut pas prendre cette valeur (calque verrouillé, ou valeur refusée)"))))))
