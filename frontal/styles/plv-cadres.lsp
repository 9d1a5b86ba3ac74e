;; What a style adds to the tables beneath a profile: a closed frame, rules that reach the titles, toned rows, arrows at slopes, the face of titles.

(defun plv-cadres:rangees (reference / matrice haut bas rangees)
  "(row top bottom) of each row of a table."
  (setq matrice (plv-matrice reference) bas (cadr (plv-origine reference)))
  (foreach r (plv-matrice-rangees matrice)
    (setq haut bas bas (- haut (* (plv-matrice-echelle matrice) (plv-rangee-hauteur r)))
          rangees (cons (list r haut bas) rangees)))
  (reverse rangees))

(defun plv-cadres:cotes (profil reference / x)
  "(left cells right) of a table."
  (setq x (car (plv-origine reference)))
  (list (car (plv-boite reference)) x (+ x (plv-largeur-tables profil))))

(defun plv-cadres:rectangle (x1 y1 x2 y2)
  (list (list x1 y1) (list x2 y1) (list x2 y2) (list x1 y2)))

(defun plv-cadres:cadre (cotes rangees / haut bas)
  "The frame, and rules through the gap between titles and cells. The first cells stand on the left side: no line goes through them."
  (setq haut (cadr (car rangees)) bas (caddr (plv-dernier rangees)))
  (plv-polyligne "PLV-CADRES" (append (plv-cadres:rectangle (car cotes) bas (caddr cotes) haut) (list (list (car cotes) bas))))
  (foreach r (cdr rangees) (plv-polyligne "PLV-MATRICE" (list (list (car cotes) (cadr r)) (list (cadr cotes) (cadr r))))))

(defun plv-cadres:zebre (cotes rangees opacite / pair)
  (foreach r rangees
    (if pair (plv-aplat "PLV-ZEBRES" (plv-cadres:rectangle (car cotes) (caddr r) (caddr cotes) (cadr r)) opacite))
    (setq pair (not pair))))

;; --- titles of rows in a face of their own: as wide as they are in the table's, for which the column was made. They stand in the table's block.

(defun plv-cadres:textes-du-bloc (nom / e textes)
  (setq e (plv-cle -2 (tblsearch "BLOCK" nom)))
  (while e
    (if (= (plv-type e) "TEXT") (setq textes (cons e textes)))
    (setq e (entnext e)))
  textes)

(defun plv-cadres:largeur (groupes police / coins)
  (setq coins (textbox (list (assoc 1 groupes) (assoc 40 groupes) (cons 7 police))))
  (if coins (- (caadr coins) (caar coins)) 0.0))

(defun plv-cadres:titre (e normale police / groupes large facteur)
  (setq groupes (entget e) large (plv-cadres:largeur groupes police)
        facteur (if (> large 0.0) (min 1.0 (/ (plv-cadres:largeur groupes normale) large)) 1.0))
  (if (not (and (= (plv-cle 7 groupes) police) (equal (plv-cle 41 groupes) facteur 1e-9)))
    (entmod (append (vl-remove-if '(lambda (g) (member (car g) '(7 41))) groupes) (list (cons 7 police) (cons 41 facteur))))))

(defun plv-cadres:titres (reference / normale)
  (setq normale (plv-cle 2 (entget (car (plv-matrice-filets (plv-matrice reference))))))
  (foreach e (plv-cadres:textes-du-bloc (plv-cle 2 (entget reference)))
    (plv-cadres:titre e normale (if (plv-style-titres) plv-texte-titres normale))))

;; --- arrows: at the right end of the slanting lines of slope rows

(defun plv-cadres:pente-p (groupes haut bas / a b)
  (setq a (plv-cle 10 groupes) b (plv-cle 11 groupes))
  (and (= (plv-cle 0 groupes) "LINE") (> (abs (- (car b) (car a))) 1e-6) (< bas (cadr a) haut) (< bas (cadr b) haut)))

(defun plv-cadres:fleche (groupes h / a b direction pointe)
  "A slim arrow head at the right end of a line that has room for it."
  (setq a (plv-cle 10 groupes) b (plv-cle 11 groupes))
  (if (> (car a) (car b)) (setq a (plv-cle 11 groupes) b (plv-cle 10 groupes)))
  (setq direction (angle b a) pointe (polar b direction (* 0.2 h)))
  (if (> (distance a b) (* 3.0 h))
    (plv-aplat "PLV-CADRES"
      (list pointe (polar pointe (- direction 0.18) (* 0.9 h)) (polar pointe (+ direction 0.18) (* 0.9 h))) 255)))

(defun plv-cadres:fleches (profil rangees / groupes)
  (setq groupes (mapcar 'entget (plv-ajouts-tables profil)))
  (foreach r rangees
    (if (<= 12 (plv-rangee-nature (car r)) 15)
      (foreach g (vl-remove-if-not '(lambda (g) (plv-cadres:pente-p g (cadr r) (caddr r))) groupes)
        (plv-cadres:fleche g (plv-ttxt profil))))))

(defun plv-cadres:table (profil reference / cotes rangees)
  (setq cotes (plv-cadres:cotes profil reference) rangees (plv-cadres:rangees reference))
  (if (plv-style-tableau "zebre") (plv-cadres:zebre cotes rangees (fix (plv-style-tableau "zebre"))))
  (if (plv-style-tableau "cadre") (plv-cadres:cadre cotes rangees))
  (plv-cadres:titres reference)
  (if (plv-style-tableau "fleches") (plv-cadres:fleches profil rangees)))

(setq plv-cadres:cle "PLV_CADRES")

(defun plv-cadrer-tables (profil / anciens)
  "Draws what the style adds to the tables of a profile, in place of what it had added."
  (setq anciens (plv-enregistrement profil plv-cadres:cle))
  (plv-effacer (plv-entites-enregistrees profil plv-cadres:cle))
  (if (or anciens (plv-style-nom))
    (plv-enregistrer-entites profil plv-cadres:cle
      (if (plv-style-nom)
        (plv-ajouts-de '(lambda () (foreach reference (plv-tables profil) (plv-cadres:table profil reference))))))))
