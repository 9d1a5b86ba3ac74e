;; Compares what is derived of a profile with what is made from nothing of the same drawing, thing by thing: run.py plays the edits.
;; A thing's picture is the list of its entities without handles, names of anonymous blocks and what refers to others.

(setq essai:chemin nil essai:tout nil)

;; --- pictures

(defun essai:arrondi (v) (if (numberp v) (/ (fix (+ (* v 1e5) (if (< v 0) -0.5 0.5))) 10.0) v))

(defun essai:groupe (g)
  (cons (car g) (if (listp (cdr g)) (mapcar 'essai:arrondi (cdr g)) (essai:arrondi (cdr g)))))

(defun essai:compte-p (g)
  (and (not (equal g '(62 . 256)))  ; as without it
       (not (member (car g) '(-1 5 67 70 71 100 102 330 340 350 360 347 410 420 1005)))
       (not (and (<= 41 (car g) 79) (numberp (cdr g)) (zerop (cdr g))))
       (not (and (= (car g) 2) (wcmatch (vl-princ-to-string (cdr g)) "`**,PLV_LEGENDE*,`A#*,_*")))))

(defun essai:entite (e / groupes)
  (setq groupes (mapcar 'essai:groupe (vl-remove-if-not 'essai:compte-p (entget e))))
  (vl-prin1-to-string
    (if (= (cdr (assoc 0 (entget e))) "INSERT") (list groupes (essai:bloc (cdr (assoc 2 (entget e)))) (essai:suite (entnext e))) groupes)))

(defun essai:bloc (nom / e liste)
  "The entities of a block."
  (setq e (cdr (assoc -2 (tblsearch "BLOCK" nom))))
  (while e (setq liste (cons (mapcar 'essai:groupe (vl-remove-if-not 'essai:compte-p (entget e))) liste) e (entnext e)))
  liste)

(defun essai:suite (e / liste)
  "The attributes of a reference."
  (while (and e (= (cdr (assoc 0 (entget e))) "ATTRIB"))
    (setq liste (cons (mapcar 'essai:groupe (vl-remove-if-not 'essai:compte-p (entget e))) liste) e (entnext e)))
  liste)

(defun essai:image (entites) (acad_strlsort (mapcar 'essai:entite entites)))

;; --- the things of a profile, each as (words entities)

(defun essai:rangees (p / tables)
  (apply 'append
    (mapcar
      '(lambda (r / rang haut matrice restes)
         (setq rang -1 matrice (plv-matrice r) haut (cadr (plv-origine r))
               restes (vl-remove-if-not 'entget (append (plv-entites-table r) (plv-ajouts-tables p)))
               restes (vl-remove-if '(lambda (e) (or (eq e r) (member e (plv-matrice-filets matrice)) (plv-rappel-p (entget e)))) restes))
         (mapcar
           '(lambda (rangee / bas siennes)
              (setq rang (1+ rang) bas (- haut (* (plv-matrice-echelle matrice) (plv-rangee-hauteur rangee)))
                    siennes (vl-remove-if-not '(lambda (e / b) (setq b (plv-boite e)) (< bas (* 0.5 (+ (cadr b) (cadddr b))) haut)) restes)
                    siennes (vl-remove-if '(lambda (e / b) (setq b (plv-boite e)) (> (- (cadddr b) (cadr b)) (* 1.3 (- haut bas)))) siennes)
                    haut bas)
              (list (strcat "RANGEE " (plv-matrice-nom r) " " (itoa rang)) siennes))
           (plv-matrice-rangees matrice)))
      (plv-tables p))))

(defun essai:cadre (p)
  "Titles, rules and right sides."
  (append (plv-tables p) (apply 'append (mapcar '(lambda (r) (vl-remove-if-not '(lambda (e) (member (plv-type e) '("LINE"))) (plv-matrice-filets (plv-matrice r)))) (plv-tables p)))))

(defun essai:rappels (p) (vl-remove-if-not '(lambda (e) (plv-rappel-p (entget e))) (plv-ajouts-tables p)))

(defun essai:par-genre (nom fonction p)
  (mapcar '(lambda (g) (list (strcat nom " " g) (apply fonction (list p g)))) (vl-remove-if-not '(lambda (g) (apply fonction (list p g))) (plv-genres-projet))))

(defun essai:sol (p) "The ground lines of all planes." (apply 'append (mapcar 'plv-lignes-du-plan (plv-entites-plans p))))

(defun essai:choses (p)
  (append
    (list (list "TERRAIN" (essai:sol p)))
    (if (plv-tables p) (cons (list "TABLEAUX" (essai:cadre p)) (cons (list "RAPPELS" (essai:rappels p)) (essai:rangees p))))
    (if (plv-cotes-du-profil p) (list (list "COTES" (plv-cotes-du-profil p))))
    (essai:par-genre "HACHURES" 'plv-hachures-du-profil p)
    (essai:par-genre "LEGENDE" 'plv-legendes-du-genre p)
    (if (plv-portes-sur-plan p) (list (list "PLAN" (plv-portes-sur-plan p))))))

(defun essai:images (p) (mapcar '(lambda (c) (cons (car c) (essai:image (cadr c)))) (essai:choses p)))

;; --- states under the names of the pictures

(defun essai:nom (fait)
  (cond
    ((= (plv-fait-chose fait) "RANGEE") (strcat "RANGEE " (plv-matrice-nom (plv-fait-entite fait)) " " (plv-fait-precision fait)))
    ((plv-fait-precision fait) (strcat (plv-fait-chose fait) " " (plv-fait-precision fait)))
    ((plv-fait-chose fait))))

(defun essai:etats (p valeur)
  (plv-uniques (mapcar '(lambda (e) (essai:nom (plv-etat-fait e))) (vl-remove-if-not '(lambda (e) (= (plv-etat-valeur e) valeur)) (plv-etats p)))))

;; --- from nothing

(defun essai:refaire (p / noms lots places)
  "Takes away all that is derived and makes it anew by its commands."
  (setq noms (mapcar 'car (essai:choses p)) lots (plv-cotes-a-refaire p)
        places (mapcar '(lambda (g) (cons g (plv-origine (car (plv-legendes-du-genre p g))))) (vl-remove-if-not '(lambda (g) (plv-legendes-du-genre p g)) (plv-genres-projet))))
  (plv-effacer-tables p)
  (plv-effacer-cotes (plv-cotes-du-profil p))
  (foreach g (plv-genres-projet) (plv-effacer (append (plv-hachures-du-profil p g) (plv-legendes-du-genre p g))))
  (plv-effacer (plv-portes-sur-plan p))
  (dictremove (plv-dictionnaire p) "PLV_SUIVI")
  (plv-retracer-terrain p)
  (plv-rehabiller p)
  (if (member "TABLEAUX" noms) (plv-matrices p essai:chemin essai:tout))
  (foreach lot lots (plv-coter p (plv-lot-genre lot) (plv-lot-rotation lot) (plv-lot-lesquelles lot) (plv-lot-courbes lot)))
  (foreach g (plv-genres-projet)
    (if (and (member (strcat "HACHURES " g) noms) (plv-elements p g)) (plv-metres (list (plv-numero-profil p)) g nil T))
    (if (and (member (strcat "LEGENDE " g) noms) (plv-elements p g)) (plv-legende p g (cdr (assoc g places)))))
  (if (and (member "PLAN" noms) (plv-axe-plan p)) (plv-vers-plan p)))

;; --- the verdict: lines that run.py reads

(defun essai:differences (a b)
  "The names under which two lists of pictures differ."
  (vl-remove-if '(lambda (nom) (equal (cdr (assoc nom a)) (cdr (assoc nom b)))) (plv-uniques (append (mapcar 'car a) (mapcar 'car b)))))

(defun essai:dire (mot noms) (foreach nom noms (princ (strcat "\n#" mot " " nom))))

(defun essai:restes (a b) (plv-premiers (vl-remove-if '(lambda (x) (member x b)) a) 2))

(defun essai:une-difference (nom a b)
  (setq a (cdr (assoc nom a)) b (cdr (assoc nom b)))
  (princ (strcat "\n# " (itoa (length a)) " entities, from nothing " (itoa (length b))))
  (foreach x (essai:restes a b) (princ (strcat "\n# - " x)))
  (foreach x (essai:restes b a) (princ (strcat "\n# + " x))))

(defun essai:valeurs (images)
  "Dimensions by what they say and where along the profile, without their height: rows stand clear of those that were there before."
  (mapcar
    '(lambda (image)
       (if (= (car image) "COTES")
         (cons "COTES" (acad_strlsort (mapcar '(lambda (texte / g) (setq g (read texte)) (vl-prin1-to-string (list (cdr (assoc 1 g)) (cadr (assoc 10 g)) (cdr (assoc 50 g))))) (cdr image))))
         image))
    images))

(defun essai:nommee-p (nom vieilles)
  "Tables that are stale stand for their parts."
  (or (member nom vieilles) (and (wcmatch nom "RANGEE*,RAPPELS") (member "TABLEAUX" vieilles))))

(defun essai:verdict (p / avant vieilles impossibles actualisees neuves vraies)
  (setq avant (essai:images p) vieilles (essai:etats p "a-refaire") impossibles (essai:etats p "impossible"))
  (if (not (plv-actualiser (list p))) (princ "\n#ECHEC plv-actualiser"))
  (setq actualisees (essai:images p))
  (essai:dire "ENCORE" (essai:etats p "a-refaire"))
  (essai:refaire p)
  (setq neuves (essai:images p)
        vraies (vl-remove-if '(lambda (n) (member n impossibles)) (essai:differences avant neuves)))
  (essai:dire "VIEILLE" vieilles)
  (essai:dire "OUBLIEE"
    (vl-remove-if '(lambda (n) (or (member n impossibles) (essai:nommee-p n vieilles))) (essai:differences (essai:valeurs avant) (essai:valeurs neuves))))
  (essai:dire "FAUSSE" (vl-remove-if '(lambda (n) (member n vraies)) vieilles))
  (if (not (member "COTES" vieilles)) (setq actualisees (essai:valeurs actualisees) neuves (essai:valeurs neuves)))
  (foreach nom (vl-remove-if '(lambda (n) (member n impossibles)) (essai:differences actualisees neuves))
    (princ (strcat "\n#DIFFERENTE " nom))
    (essai:une-difference nom actualisees neuves))
  (princ "\n#FIN")
  (princ))
