;; What the window's table of a line shows, and what it asks while a value is typed. Nothing here changes the drawing.

(defun plv-bureau-ligne:genres (lu)
  "The kinds that have a line, from what was read of a profile."
  (plv-uniques (mapcar 'cdr (vl-remove-if-not '(lambda (e) (plv-du-projet (car e))) (plv-cle 'elements lu)))))

(defun plv-bureau-lignes ()
  "The lines of the drawing: (title handle kind), the current profile's first."
  (apply 'append
    (mapcar
      '(lambda (lu)
         (mapcar '(lambda (genre) (list (strcat genre ", profil " (plv-cle 'numero lu)) (plv-handle (plv-cle 'profil lu)) genre))
           (plv-bureau-ligne:genres lu)))
      (vl-sort (plv-bureau:lus) '(lambda (a b) (and (eq (plv-cle 'profil a) plv-courant) (not (eq (plv-cle 'profil b) plv-courant))))))))

(defun plv-bureau-ligne-de (handle / entite lu)
  "(handle kind) of the line that a curve is part of; nil for none."
  (setq entite (handent handle)
        lu (if entite (car (vl-member-if '(lambda (lu) (assoc entite (plv-cle 'elements lu))) (plv-bureau:lus)))))
  (if (and lu (plv-du-projet entite)) (list (plv-handle (plv-cle 'profil lu)) (plv-cle entite (plv-cle 'elements lu)))))

(defun plv-bureau-ligne:suites (profil genre / tiree)
  "The runs of a line; while it is dragged as it would be."
  (setq tiree (plv-tirer-en-cours))
  (if (and tiree (eq (car tiree) profil) (= (cadr tiree) genre)) (caddr tiree) (plv-bureau:ligne-lue profil genre)))

(defun plv-bureau-ligne-suivie (/ tiree)
  "(handle kind number) of the line that is dragged now, and of the vertex in hand; nil for none."
  (if (setq tiree (plv-tirer-en-cours)) (list (plv-handle (car tiree)) (cadr tiree) (cadddr tiree))))

;; --- rows: (vertex-or-manhole run lock (x y) texts columns-that-stay), the vertex by its number, the manhole by its name

(defun plv-bureau-ligne:place (cadre d z / place) (setq place (plv-vers-dessin cadre d z)) (list (car place) (cadr place)))

(defun plv-bureau-ligne:fixes (champs-libres champs)
  "The columns that a row can't change."
  (vl-remove nil (mapcar '(lambda (c) (if (not (member c champs-libres)) (vl-position c champs))) champs)))

(defun plv-bureau-ligne:sommet (numero rang rangee origine cadre regards / noeud)
  (setq noeud (if regards (plv-regard-en regards (plv-cle "Station" rangee))))
  (cons (plv-cle "Station" rangee)
    (list numero rang (cond ((vl-position (plv-cle "Verrou" rangee) (plv-champs))) (-1))
          (plv-bureau-ligne:place cadre (plv-cle "Station" rangee) (plv-cle "Altitude" rangee))
          (append (plv-rangee-textes rangee origine) (if regards (plv-regard-textes regards noeud)))
          (if regards
            (plv-bureau-ligne:fixes (append (plv-champs) (if noeud (plv-regards-champs) '("Regard"))) (append (plv-champs) (plv-regards-champs)))))))

(defun plv-bureau-ligne:regard (regards noeud suites sol origine cadre / d z textes)
  "The row of a manhole between vertices; nil beside the line."
  (setq d (plv-regard-distance regards noeud) z (plv-ligne-altitude suites d))
  (if z
    (progn
      (setq textes (list (cons "Station" d) (cons "Altitude" z) (cons "Profondeur" (if (plv-sol-altitude sol d) (- (plv-sol-altitude sol d) z)))))
      (cons d
        (list (plv-noeud-nom noeud) 0 -1 (plv-bureau-ligne:place cadre d z)
              (append (plv-rangee-textes textes origine) (plv-regard-textes regards noeud))
              (plv-bureau-ligne:fixes (cons "Station" (plv-regards-champs)) (append (plv-champs) (plv-regards-champs))))))))

(defun plv-bureau-ligne:sommets (suites sol origine cadre regards / numero rang rangees)
  (setq numero 0 rang 0)
  (foreach suite suites
    (setq rang (1+ rang))
    (foreach rangee (plv-ligne-rangees sol (list suite))
      (setq numero (1+ numero) rangees (cons (plv-bureau-ligne:sommet numero rang rangee origine cadre regards) rangees))))
  (reverse rangees))

(defun plv-bureau-ligne (handle genre / profil suites sol origine cadre regards entre)
  "The rows of a line, left to right; nil for one that isn't there. Lines that can't be read as vertices are not told here."
  (if (and (setq profil (handent handle)) (setq suites (plv-bureau-ligne:suites profil genre)))
    (progn
      (setq sol (plv-sol (plv-points-tn profil)) origine (plv-premiere-station profil) cadre (plv-cadre profil)
            regards (plv-bureau:regards-lus profil genre)
            entre (if regards (mapcar '(lambda (n) (plv-bureau-ligne:regard regards n suites sol origine cadre)) (plv-regards-entre-sommets regards suites))))
      (mapcar 'cdr
        (plv-bureau-ligne:ranger (plv-bureau-ligne:sommets suites sol origine cadre regards) (vl-remove nil entre))))))

(defun plv-bureau-ligne:ranger (sommets regards / rangees)
  "Both by distance; vertices keep their order, of which two may be at one station."
  (setq regards (vl-sort regards '(lambda (a b) (< (car a) (car b)))))
  (foreach s sommets
    (while (and regards (< (car (car regards)) (car s))) (setq rangees (cons (car regards) rangees) regards (cdr regards)))
    (setq rangees (cons s rangees)))
  (append (reverse rangees) regards))

(defun plv-bureau-champs (handle genre)
  "(title name changeable lockable) of each column of a line."
  (append
    (mapcar
      '(lambda (champ titre) (list titre champ (if (member champ (plv-champs-modifiables)) 1 0) (if (member champ (plv-champs-verrouillables)) 1 0)))
      (plv-champs) (plv-champs-titres))
    (if (and (handent handle) (plv-bureau:regards-lus (handent handle) genre))
      (mapcar '(lambda (champ titre) (list titre champ 1 0)) (plv-regards-champs) (plv-regards-titres)))))

(defun plv-bureau-ligne-faute (handle genre changements / profil)
  "Why values (vertex-or-manhole field text) can't be given; nil when they can."
  (cond
    ((not (setq profil (handent handle))) "le profil n'est plus là")
    ((plv-ligne-refus profil genre))
    ((plv-table-faute profil genre (plv-bureau:ligne-lue profil genre) (plv-bureau:regards-lus profil genre) changements))))

(defun plv-bureau-ligne-texte (handle genre)
  "The line for a spreadsheet: fields apart by tabs."
  (if (handent handle)
    (plv-joindre (mapcar '(lambda (l) (plv-remplacer l ";" "\t")) (plv-sommets-lignes (handent handle) genre)) "\n")))

;; --- what the table has done, as orders of the window

(defun plv-bureau-ligne-corriger (handle genre changements)
  (plv-table-corriger (handent handle) genre changements)
  (princ))

(defun plv-bureau-ligne-verrouiller (handle genre numero champ)
  "champ nil: nothing is locked."
  (plv-ligne-editer (handent handle) genre '(lambda (suites sol) (plv-ligne-verrouiller suites numero champ)))
  (princ))

(defun plv-bureau-ligne-inserer (handle genre qui / noeud)
  "Halfway from a vertex to the next one, or at a manhole."
  (setq noeud (if (not (numberp qui)) (plv-regard-nomme (plv-regards (handent handle) genre) qui)))
  (plv-ligne-editer (handent handle) genre
    '(lambda (suites sol / voisins)
       (cond
         (noeud (plv-ligne-inserer suites (plv-regard-distance (plv-regards (handent handle) genre) noeud) nil))
         ((not (numberp qui)) (strcat "pas de regard " qui))
         ((caddr (setq voisins (plv-ligne-voisins suites qui)))
          (plv-ligne-inserer suites (* 0.5 (+ (car (cadr voisins)) (car (caddr voisins)))) nil))
         ("la ligne finit à ce sommet"))))
  (princ))

(defun plv-bureau-ligne-supprimer (handle genre lesquels / numeros noms)
  "Several vertices, the last one first, so that numbers stay, and manholes."
  (setq numeros (vl-remove-if-not 'numberp lesquels) noms (vl-remove-if 'numberp lesquels))
  (if numeros
    (plv-ligne-editer (handent handle) genre
      '(lambda (suites sol)
         (plv-plier '(lambda (restantes n) (if (listp restantes) (plv-ligne-supprimer restantes n) restantes)) suites (vl-sort numeros '>)))))
  (if noms (plv-table-corriger (handent handle) genre (mapcar '(lambda (nom) (list nom "Regard" "")) noms)))
  (princ))

(defun plv-bureau-ligne-remplacer (handle genre lignes)
  (plv-sommets-remplacer (handent handle) genre lignes "collé")
  (princ))
