;; What the window's table of a line shows, and what it asks while a value is typed. Nothing here changes the drawing.

(defun plv-bureau-lignes ()
  "The lines of the drawing: (title handle kind), the current profile's first."
  (apply 'append
    (mapcar
      '(lambda (profil)
         (mapcar '(lambda (genre) (list (strcat genre ", profil " (plv-numero-profil profil)) (plv-handle profil) genre)) (plv-genres-du-projet profil)))
      (vl-sort (vl-remove-if 'plv-refus-profil (plv-profils)) '(lambda (a b) (and (eq a plv-courant) (not (eq b plv-courant))))))))

(defun plv-bureau-ligne-de (handle / entite profil)
  "(handle kind) of the line that a curve is part of; nil for none."
  (setq entite (handent handle)
        profil (if (and entite (plv-courbe-p entite))
                 (car (vl-member-if '(lambda (p) (plv-genre-de p entite)) (vl-remove-if 'plv-refus-profil (plv-profils))))))
  (if (and profil (plv-du-projet entite)) (list (plv-handle profil) (plv-genre-de profil entite))))

(defun plv-bureau-ligne:rangee (numero rang rangee origine cadre / place)
  "(number run lock (x y) texts)"
  (setq place (plv-vers-dessin cadre (plv-cle "Station" rangee) (plv-cle "Altitude" rangee)))
  (list numero rang (cond ((vl-position (plv-cle "Verrou" rangee) (plv-champs))) (-1)) (list (car place) (cadr place))
        (plv-rangee-textes rangee origine)))

(defun plv-bureau-ligne (handle genre / profil suites sol origine cadre numero rang rangees)
  "The rows of a line; nil for one that isn't there. Lines that can't be read as vertices are not told here."
  (if (and (setq profil (handent handle)) (setq suites (plv-lire-ligne profil genre)))
    (progn
      (setq sol (plv-sol (plv-points-tn profil)) origine (plv-premiere-station profil) cadre (plv-cadre profil) numero 0 rang 0)
      (foreach suite suites
        (setq rang (1+ rang))
        (foreach rangee (plv-ligne-rangees sol (list suite))
          (setq numero (1+ numero) rangees (cons (plv-bureau-ligne:rangee numero rang rangee origine cadre) rangees))))
      (reverse rangees))))

(defun plv-bureau-champs ()
  "(title name changeable lockable) of each column."
  (mapcar
    '(lambda (champ titre) (list titre champ (if (member champ (plv-champs-modifiables)) 1 0) (if (member champ (plv-champs-verrouillables)) 1 0)))
    (plv-champs) (plv-champs-titres)))

(defun plv-bureau-ligne-faute (handle genre changements)
  "Why values (number field text) can't be given; nil when they can."
  (if (handent handle) (plv-sommets-faute (handent handle) genre changements) "le profil n'est plus là"))

(defun plv-bureau-ligne-texte (handle genre)
  "The line for a spreadsheet: fields apart by tabs."
  (if (handent handle)
    (plv-joindre (mapcar '(lambda (l) (plv-remplacer l ";" "\t")) (plv-sommets-lignes (handent handle) genre)) "\n")))

;; --- what the table has done, as orders of the window

(defun plv-bureau-ligne-corriger (handle genre changements)
  (plv-sommets-corriger (handent handle) genre changements)
  (princ))

(defun plv-bureau-ligne-verrouiller (handle genre numero champ)
  "champ nil: nothing is locked."
  (plv-ligne-editer (handent handle) genre '(lambda (suites sol) (plv-ligne-verrouiller suites numero champ)))
  (princ))

(defun plv-bureau-ligne-inserer (handle genre numero)
  "Halfway to the next vertex."
  (plv-ligne-editer (handent handle) genre
    '(lambda (suites sol / voisins)
       (setq voisins (plv-ligne-voisins suites numero))
       (if (caddr voisins)
         (plv-ligne-inserer suites (* 0.5 (+ (car (cadr voisins)) (car (caddr voisins)))) nil)
         "la ligne finit à ce sommet")))
  (princ))

(defun plv-bureau-ligne-supprimer (handle genre numeros)
  "Several vertices, the last one first, so that numbers stay."
  (plv-ligne-editer (handent handle) genre
    '(lambda (suites sol)
       (plv-plier '(lambda (restantes n) (if (listp restantes) (plv-ligne-supprimer restantes n) restantes)) suites (vl-sort numeros '>))))
  (princ))

(defun plv-bureau-ligne-remplacer (handle genre lignes)
  (plv-sommets-remplacer (handent handle) genre lignes "collé")
  (princ))

;; --- grips: a line is dragged as what it is, by PLV-TIRER, not piece by piece

(defun plv-bureau-prises (handle / lieu profil cadre)
  "Where the line can be taken hold of that a curve is part of: (x y) each; nil for another entity."
  (if (setq lieu (plv-bureau-ligne-de handle))
    (progn
      (setq profil (handent (car lieu)) cadre (plv-cadre profil))
      (mapcar '(lambda (prise) (plv-premiers (apply 'plv-vers-dessin (cons cadre (plv-prise-place prise))) 2))
        (plv-prises (plv-lire-ligne profil (cadr lieu)))))))

(defun plv-bureau-tirer (handle x y / lieu)
  "An order of the window: drags what stands there."
  (if (setq lieu (plv-bureau-ligne-de handle)) (plv-tirer-en (handent (car lieu)) (cadr lieu) (list x y)))
  (princ))
