;; What a hand has moved, written or coloured among the texts of tables, and how it is kept when they are made anew. Where a row's texts
;; were put and what they said is kept with the table's reference, row by row; a text is known by its place there.

(setq plv-mains:cle "PLV_TEXTES_")

(defun plv-mains:bandes (reference / matrice ordonnees)
  "The ordinates of a table's rows, from its top down."
  (setq matrice (plv-matrice reference) ordonnees (list (cadr (plv-origine reference))))
  (foreach r (plv-matrice-rangees matrice)
    (setq ordonnees (cons (- (car ordonnees) (* (plv-matrice-echelle matrice) (plv-rangee-hauteur r))) ordonnees)))
  (reverse ordonnees))

(defun plv-mains:entites (profil)
  "What may hold texts of tables."
  (vl-remove-if-not 'plv-existe
    (append (plv-ajouts-tables profil) (apply 'append (mapcar 'plv-entites-table (plv-tables profil))))))

;; --- noting, right after rows were filled; groups 10: x from the table's corner, y from the row's top, the words' checksum

(defun plv-mains:ecrire (reference rang haut places / x0)
  (setq x0 (car (plv-origine reference)))
  (plv-ecrire-enregistrement reference (strcat plv-mains:cle (itoa rang))
    (mapcar '(lambda (p) (list 10 (- (car p) x0) (- (cadr p) haut) (caddr p))) places)))

(defun plv-noter-mains (profil faits / entites bandes places)
  "The texts of rows stand where they belong."
  (setq faits (vl-remove-if-not '(lambda (f) (= (plv-fait-chose f) "RANGEE")) faits)
        entites (if faits (plv-mains:entites profil)))
  (foreach reference (plv-uniques (mapcar 'plv-fait-entite faits))
    (setq bandes (plv-mains:bandes reference) places (et_places entites bandes))
    (foreach fait faits
      (if (eq (plv-fait-entite fait) reference)
        (plv-mains:ecrire reference (atoi (plv-fait-precision fait)) (nth (atoi (plv-fait-precision fait)) bandes)
          (nth (atoi (plv-fait-precision fait)) places))))))

(plv-brancher 'temoin 'plv-noter-mains)

;; --- reading: rows as (reference rank key top), places as they would stand now

(defun plv-mains:rangees (profil / table rang rangees)
  "The rows of all tables; a row is known again by its table's number and its label."
  (setq table 0)
  (foreach reference (plv-tables profil)
    (setq rang 0)
    (foreach ligne (mapcar 'list (plv-matrice-rangees (plv-matrice reference)) (plv-mains:bandes reference))
      (setq rangees (cons (list reference rang (list table (plv-rangee-libelle (car ligne))) (cadr ligne)) rangees) rang (1+ rang)))
    (setq table (1+ table)))
  (reverse rangees))

(defun plv-mains:places (rangee / x0 haut)
  (setq x0 (car (plv-origine (car rangee))) haut (cadddr rangee))
  (mapcar '(lambda (g) (list (+ (cadr g) x0) (+ (caddr g) haut) (cadddr g)))
    (plv-enregistrement (car rangee) (strcat plv-mains:cle (itoa (cadr rangee))))))

;; --- a gesture: (row x y dx dy words colour text), x and y of the place from the corner and the row's top, words and colour nil where
;; they are as they were, text: the entity

(defun plv-mains:rangee (geste) (car geste))
(defun plv-mains:lieu (geste) (list (cadr geste) (caddr geste)))
(defun plv-mains:deplacement (geste) (list (nth 3 geste) (nth 4 geste)))
(defun plv-mains:mots (geste) (nth 5 geste))
(defun plv-mains:couleur (geste) (nth 6 geste))
(defun plv-mains:texte (geste) (nth 7 geste))
(defun plv-mains:somme (geste) (nth 8 geste))

(defun plv-mains:geste (ecart entites proprietaires places / entite rangee place couleur)
  (setq entite (nth (car ecart) entites) rangee (nth (cadr ecart) proprietaires) place (nth (cadr ecart) places)
        couleur (plv-cle 62 (entget entite)))
  (list rangee (- (car place) (car (plv-origine (car rangee)))) (- (cadr place) (cadddr rangee)) (caddr ecart) (cadddr ecart)
        (if (nth 4 ecart) (plv-cle 1 (entget entite))) (if (not (member couleur '(nil 256))) couleur) entite (caddr place)))

(defun plv-mains:gestes (profil / entites rangees par-rangee places proprietaires)
  "What hands have done to the texts of a profile's tables."
  (setq entites (plv-mains:entites profil) rangees (plv-mains:rangees profil)
        par-rangee (mapcar 'plv-mains:places rangees)
        places (apply 'append par-rangee)
        proprietaires (apply 'append (mapcar '(lambda (r siennes) (mapcar '(lambda (p) r) siennes)) rangees par-rangee)))
  (mapcar '(lambda (e) (plv-mains:geste e entites proprietaires places)) (et_ecarts entites places)))

;; --- before rows are filled anew

(defun plv-mains:de-fait-p (geste faits)
  "Whether a gesture is of one of the rows."
  (vl-some
    '(lambda (f) (and (eq (plv-fait-entite f) (car (plv-mains:rangee geste))) (= (plv-fait-precision f) (itoa (cadr (plv-mains:rangee geste))))))
    faits))

(defun plv-lever-tableaux (profil faits) (list faits (plv-mains:gestes profil)))

(defun plv-lever-rangees (profil faits / gestes)
  "A text that was moved out of its row stands in another one, which is emptied when that is filled: its own row is filled too then."
  (setq gestes (plv-mains:gestes profil)
        faits (append faits
                (plv-uniques
                  (mapcar '(lambda (g) (plv-fait "RANGEE" (itoa (cadr (plv-mains:rangee g))) (car (plv-mains:rangee g)) nil))
                    (vl-remove-if '(lambda (g) (or (plv-mains:de-fait-p g faits) (equal (plv-mains:deplacement g) '(0.0 0.0) 1e-3))) gestes))))
        gestes (vl-remove-if-not '(lambda (g) (plv-mains:de-fait-p g faits)) gestes))
  (plv-effacer (mapcar 'plv-mains:texte gestes))
  (list faits gestes))

;; --- and after it

(defun plv-mains:trouver (geste entites rangees / rangee place trouve)
  "(text checksum) at the place of a gesture, in the row that now stands for its own."
  (if (setq rangee (car (vl-member-if '(lambda (r) (equal (caddr r) (caddr (plv-mains:rangee geste)))) rangees)))
    (progn
      (setq place (mapcar '+ (plv-mains:lieu geste) (list (car (plv-origine (car rangee))) (cadddr rangee))))
      (foreach e entites
        (if (and (= (plv-type e) "TEXT") (equal (plv-mains:point e) place 1e-3)) (setq trouve e)))
      (if trouve
        (list trouve (caddr (caar (et_places (list trouve) '(1e99 -1e99)))))))))

(defun plv-mains:point (texte / groupes)
  "By which a text is placed."
  (setq groupes (entget texte))
  (plv-premiers (plv-cle (if (equal (list (plv-cle 72 groupes) (plv-cle 73 groupes)) '(0 0)) 10 11) groupes) 2))

(defun plv-mains:refaire (geste entites rangees / trouve tenu)
  "T when all of a gesture could be kept: words are, while what they stand for says what it said."
  (if (setq trouve (plv-mains:trouver geste entites rangees))
    (progn
      (setq tenu (or (not (plv-mains:mots geste)) (= (cadr trouve) (plv-mains:somme geste))))
      (plv-refaire-geste (car trouve) (plv-mains:deplacement geste) (if tenu (plv-mains:mots geste)) (plv-mains:couleur geste))
      tenu)))

(defun plv-mains:en-mots (geste)
  (strcat "rangée " (cadr (caddr (plv-mains:rangee geste)))
          (if (plv-mains:mots geste) (strcat ", texte écrit « " (plv-mains:mots geste) " »") ", texte déplacé ou colorié")))

(defun plv-remettre-tables (profil gestes / entites rangees)
  "Does again what hands had done; in words what could not be kept."
  (if gestes
    (progn
      (setq entites (plv-mains:entites profil) rangees (plv-mains:rangees profil))
      (mapcar 'plv-mains:en-mots (vl-remove-if '(lambda (g) (plv-mains:refaire g entites rangees)) gestes)))))

;; --- dimensions

(defun plv-lever-cotes (profil faits) (list faits (plv-gestes-cotes profil)))

(defun plv-remettre-cotes (profil gestes) (plv-refaire-gestes-cotes profil gestes))
