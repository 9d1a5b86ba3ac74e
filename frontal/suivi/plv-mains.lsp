;; What a hand has moved, written or coloured among the texts of tables, and how it is kept when they are made anew. What was put in a row
;; is kept with the table's reference, see tableaux/plv-ligne-seule; a text is known again by its place.

(defun plv-mains:textes (profil)
  "The texts of the tables."
  (vl-remove-if-not '(lambda (e) (and (plv-existe e) (= (plv-type e) "TEXT")))
    (append (plv-ajouts-tables profil) (apply 'append (mapcar 'plv-entites-table (plv-tables profil))))))

;; --- rows as the studies take them; a row is known again by its table's number and its label

(defun plv-mains:rangees (profil / tables)
  "The rows of all tables, each with what it is known by: ((table label) rank reference key x top bottom)."
  (setq tables (plv-tables profil))
  (mapcar
    '(lambda (r)
       (vl-list* (list (vl-position (car r) tables) (plv-rangee-libelle (plv-rangee (car r) (cadr r)))) (cadr r) (plv-rangee-etude r)))
    (plv-rangees-des-tables profil)))

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

(defun plv-mains:gestes (profil rangees)
  "What hands have done to the texts of rows."
  (mapcar '(lambda (e) (plv-mains:geste e rangees)) (et_ecarts (plv-entites-des-tables profil) (mapcar 'plv-mains:etude rangees))))

;; --- before rows are filled anew

(defun plv-lever-tableaux (profil faits) (list faits (plv-mains:gestes profil (plv-mains:rangees profil))))

(defun plv-rangee-de-fait (fait) (list (plv-fait-entite fait) (atoi (plv-fait-precision fait))))

(defun plv-rangees-lues (profil faits / rangees)
  "What isn't right in the rows of facts."
  (setq rangees (mapcar 'plv-rangee-de-fait faits))
  (plv-lire-une-fois (list "a-corriger" profil rangees) '(lambda () (plv-a-corriger profil rangees (plv-sources:points profil)))))

(defun plv-lever-rangees (profil faits / touchees gestes)
  (setq touchees (vl-remove nil (mapcar '(lambda (f lue) (if (plv-touchee-p lue) f)) faits (plv-rangees-lues profil faits))))
  (if touchees
    (progn
      (setq gestes (plv-mains:gestes profil (vl-remove-if-not '(lambda (r) (plv-mains:de-fait-p r touchees)) (plv-mains:rangees profil))))
      (plv-effacer (mapcar 'plv-mains:texte gestes))
      (plv-oublier-lectures)))
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
