;; The window's table of a line: vertices, and the manholes of its network. A change is (vertex-or-manhole field text), the vertex by its number, the
;; manhole by its name; several are made together or not at all. A manhole goes with its vertex.

(defun plv-table:de-sommet-p (changement) (and (numberp (car changement)) (not (member (cadr changement) (plv-regards-champs)))))

(defun plv-table:de-place-p (changement) (and (not (numberp (car changement))) (= (cadr changement) "Station")))

(defun plv-table:au-sommet (suites changement)
  "A change with the vertex's distance in place of its number."
  (if (numberp (car changement)) (cons (car (cadr (plv-ligne-voisins suites (car changement)))) (cdr changement)) changement))

(defun plv-table:deplacements (regards avant apres)
  "(name distance) of the manholes whose vertices go elsewhere."
  (vl-remove nil
    (mapcar
      '(lambda (a b / noeud)
         (if (and (not (equal (car a) (car b) 1e-9)) (setq noeud (plv-regard-en regards (car a)))) (list (plv-noeud-nom noeud) (car b))))
      (apply 'append avant) (apply 'append apres))))

(defun plv-table:places (changements origine)
  "(name distance) of manholes that are given a station; a text for one that can't be read."
  (if (vl-every '(lambda (c) (plv-nombre-station (caddr c))) changements)
    (mapcar '(lambda (c) (list (car c) (- (plv-nombre-station (caddr c)) origine))) changements)
    "une station est attendue"))

(defun plv-table-essai (profil suites regards changements / essai places rangees)
  "(runs rows-of-the-network) with every change, or the text of the first that can't be."
  (setq essai (plv-sommets-table:essai profil suites (vl-remove-if-not 'plv-table:de-sommet-p changements))
        places (plv-table:places (vl-remove-if-not 'plv-table:de-place-p changements) (plv-premiere-station profil)))
  (cond
    ((= (type essai) 'STR) essai)
    ((= (type places) 'STR) places)
    ((= (type (setq rangees
                (plv-regards-essai regards
                  (mapcar '(lambda (c) (plv-table:au-sommet suites c))
                    (vl-remove-if '(lambda (c) (or (plv-table:de-sommet-p c) (plv-table:de-place-p c))) changements)))))
        'STR)
     rangees)
    (T (list essai (plv-regards-deplacer regards rangees (append places (plv-table:deplacements regards suites essai)))))))

(defun plv-table:reseau-change-p (regards rangees) (not (equal rangees (plv-regards:rangees regards))))

(defun plv-table-faute (profil genre suites regards changements / essai)
  "Why changes can't be made; nil when they can. Nothing is drawn."
  (setq essai (if suites (plv-table-essai profil suites regards changements) "la ligne n'est plus là"))
  (cond
    ((= (type essai) 'STR) essai)
    ((plv-table:reseau-change-p regards (cadr essai)) (plv-regards-faute profil genre (cadr essai)))))

(defun plv-table:ecrire-reseau (profil genre regards rangees)
  (or (not (plv-table:reseau-change-p regards rangees)) (plv-reseau-ecrire profil genre rangees)))

(defun plv-ligne-ecrire-avec-regards (profil genre suites / avant regards)
  "Draws a line again of runs that have the same vertices at other places; its entities, or nil after a message."
  (setq avant (plv-lire-ligne profil genre) regards (plv-regards profil genre))
  (if (plv-ligne-ecrire profil genre suites)
    (progn
      (if (= (plv-ligne-nombre avant) (plv-ligne-nombre suites))
        (plv-table:ecrire-reseau profil genre regards
          (plv-regards-deplacer regards (plv-regards:rangees regards) (plv-table:deplacements regards avant suites))))
      (plv-elements-du-projet profil genre))))

(defun plv-table-corriger (profil genre changements / suites regards essai faute)
  "Makes changes; T, or nil after a message."
  (setq suites (plv-lire-ligne profil genre) regards (plv-regards profil genre) faute (plv-table-faute profil genre suites regards changements))
  (cond
    (faute (plv-erreur faute))
    (T
     (setq essai (plv-table-essai profil suites regards changements))
     (and (or (not (vl-some 'plv-table:de-sommet-p changements)) (plv-ligne-ecrire profil genre (car essai)))
          (plv-table:ecrire-reseau profil genre regards (cadr essai))
          T))))
