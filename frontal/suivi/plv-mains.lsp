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
  "What may hold texts of tables; groups stand for their members."
  (append (plv-ajouts-tables profil) (mapcar 'plv-groupe-table (plv-tables profil))))

(defun plv-mains:textes (profil)
  "The texts of the tables."
  (vl-remove-if-not '(lambda (e) (and (plv-existe e) (= (plv-type e) "TEXT")))
    (append (plv-ajouts-tables profil) (apply 'append (mapcar 'plv-entites-table (plv-tables profil))))))

;; --- rows as (reference key x top bottom), as the studies take them; a row is known again by its table's number and its label

(defun plv-mains:rangees (profil / table rang rangees bandes)
  "The rows of all tables, each with what it is known by: ((table label) rank reference key x top bottom)."
  (setq table 0)
  (foreach reference (plv-tables profil)
    (setq rang 0 bandes (plv-mains:bandes reference))
    (foreach rangee (plv-matrice-rangees (plv-matrice reference))
      (setq rangees
             (cons (list (list table (plv-rangee-libelle rangee)) rang reference (strcat plv-mains:cle (itoa rang)) (car (plv-origine reference))
                         (car bandes) (cadr bandes))
                   rangees)
            rang (1+ rang) bandes (cdr bandes)))
    (setq table (1+ table)))
  (reverse rangees))

(defun plv-mains:connue (rangee) (car rangee))
(defun plv-mains:rang (rangee) (cadr rangee))
(defun plv-mains:reference (rangee) (caddr rangee))
(defun plv-mains:etude (rangee) (cddr rangee))
(defun plv-mains:coin (rangee) (list (nth 4 rangee) (nth 5 rangee)))

(defun plv-mains:de-fait-p (rangee faits)
  "Whether a row is one of the facts'."
  (vl-some
    '(lambda (f) (and (eq (plv-fait-entite f) (plv-mains:reference rangee)) (= (plv-fait-precision f) (itoa (plv-mains:rang rangee)))))
    faits))

(defun plv-noter-mains (profil faits / rangees)
  "The texts of rows that were filled stand where they belong."
  (setq faits (vl-remove-if-not '(lambda (f) (= (plv-fait-chose f) "RANGEE")) faits))
  (if (and faits (setq rangees (vl-remove-if-not '(lambda (r) (plv-mains:de-fait-p r faits)) (plv-mains:rangees profil))))
    (et_noter_textes (plv-mains:entites profil) (mapcar 'plv-mains:etude rangees))))

(plv-brancher 'temoin 'plv-noter-mains)

;; --- a gesture: (row x y dx dy words colour text checksum), x and y of the place from the row's corner, words and colour nil where they
;; are as they were, the text's entity, and the checksum of what it said

(defun plv-mains:rangee (geste) (car geste))
(defun plv-mains:lieu (geste) (list (cadr geste) (caddr geste)))
(defun plv-mains:deplacement (geste) (list (nth 3 geste) (nth 4 geste)))
(defun plv-mains:mots (geste) (nth 5 geste))
(defun plv-mains:couleur (geste) (nth 6 geste))
(defun plv-mains:texte (geste) (nth 7 geste))
(defun plv-mains:somme (geste) (nth 8 geste))

(defun plv-mains:geste (ecart rangees / entite couleur)
  (setq entite (car ecart) couleur (plv-cle 62 (entget entite)))
  (list (nth (cadr ecart) rangees) (nth 2 ecart) (nth 3 ecart) (nth 4 ecart) (nth 5 ecart)
        (if (nth 6 ecart) (plv-cle 1 (entget entite))) (if (not (member couleur '(nil 256))) couleur) entite (nth 7 ecart)))

(defun plv-mains:gestes (profil / rangees)
  "What hands have done to the texts of a profile's tables."
  (setq rangees (plv-mains:rangees profil))
  (mapcar '(lambda (e) (plv-mains:geste e rangees)) (et_ecarts (plv-mains:entites profil) (mapcar 'plv-mains:etude rangees))))

;; --- before rows are filled anew

(defun plv-lever-tableaux (profil faits) (list faits (plv-mains:gestes profil)))

(defun plv-mains:fait (rangee) (plv-fait "RANGEE" (itoa (plv-mains:rang rangee)) (plv-mains:reference rangee) nil))

(defun plv-lever-rangees (profil faits / gestes)
  "A text that was moved out of its row stands in another one, which is emptied when that is filled: its own row is filled too then."
  (setq gestes (plv-mains:gestes profil)
        faits (append faits
                (plv-uniques
                  (mapcar '(lambda (g) (plv-mains:fait (plv-mains:rangee g)))
                    (vl-remove-if
                      '(lambda (g) (or (plv-mains:de-fait-p (plv-mains:rangee g) faits) (equal (plv-mains:deplacement g) '(0.0 0.0) 1e-3)))
                      gestes))))
        gestes (vl-remove-if-not '(lambda (g) (plv-mains:de-fait-p (plv-mains:rangee g) faits)) gestes))
  (plv-effacer (mapcar 'plv-mains:texte gestes))
  (list faits gestes))

;; --- and after it

(defun plv-mains:trouver (geste textes rangees / rangee place)
  "The text at the place of a gesture, in the row that now stands for its own."
  (if (setq rangee (car (vl-member-if '(lambda (r) (equal (plv-mains:connue r) (plv-mains:connue (plv-mains:rangee geste)))) rangees)))
    (progn
      (setq place (mapcar '+ (plv-mains:lieu geste) (plv-mains:coin rangee)))
      (car (vl-member-if '(lambda (e) (equal (plv-mains:point e) place 1e-3)) textes)))))

(defun plv-mains:point (texte / groupes)
  "By which a text is placed."
  (setq groupes (entget texte))
  (plv-premiers (plv-cle (if (equal (list (plv-cle 72 groupes) (plv-cle 73 groupes)) '(0 0)) 10 11) groupes) 2))

(defun plv-mains:refaire (geste textes rangees / trouve tenu)
  "T when all of a gesture could be kept: words are, while what they stand for says what it said."
  (if (setq trouve (plv-mains:trouver geste textes rangees))
    (progn
      (setq tenu (or (not (plv-mains:mots geste)) (= (et_somme trouve) (plv-mains:somme geste))))
      (plv-refaire-geste trouve (plv-mains:deplacement geste) (if tenu (plv-mains:mots geste)) (plv-mains:couleur geste))
      tenu)))

(defun plv-mains:en-mots (geste)
  (strcat "rangée " (cadr (plv-mains:connue (plv-mains:rangee geste)))
          (if (plv-mains:mots geste) (strcat ", texte écrit « " (plv-mains:mots geste) " »") ", texte déplacé ou colorié")))

(defun plv-remettre-tables (profil gestes / textes rangees)
  "Does again what hands had done; in words what could not be kept."
  (if gestes
    (progn
      (setq textes (plv-mains:textes profil) rangees (plv-mains:rangees profil))
      (mapcar 'plv-mains:en-mots (vl-remove-if '(lambda (g) (plv-mains:refaire g textes rangees)) gestes)))))

;; --- dimensions

(defun plv-lever-cotes (profil faits) (list faits (plv-gestes-cotes profil)))

(defun plv-remettre-cotes (profil gestes) (plv-refaire-gestes-cotes profil gestes))
