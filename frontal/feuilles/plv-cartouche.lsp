;; PLV-CARTOUCHE: what title blocks say beside what the sheets know themselves; kept in the drawing. Revisions are the rows of a table, the
;; latest one above.
;; Shared in the room: plv-cartouche:*

(setq plv-cartouche:cle "PLV_CARTOUCHE")

;; word of the question, mark of the templates
(setq plv-cartouche:champs
  '(("Client" "<CLIENT>") ("Phase" "<PHASE>") ("Auteur" "<AUTEUR>") ("Verificateur" "<VERIFICATEUR>") ("Coordonnees" "<COORDONNEES>")
    ("aLtitudes" "<ALTITUDES>")))

(setq plv-cartouche:revisions 4 plv-cartouche:parties '("INDICE" "DATE" "OBJET" "AUTEUR"))

;; --- the record: 300 a word and 1 its text; for a revision 300 REVISION and 1 its parts between semicolons

(defun plv-cartouche:paires (/ mot paires)
  (foreach g (plv-enregistrement-du-dessin plv-cartouche:cle)
    (cond ((= (car g) 300) (setq mot (cdr g)))
          ((and mot (= (car g) 1)) (setq paires (cons (cons mot (cdr g)) paires) mot nil))))
  (reverse paires))

(defun plv-cartouche:ecrire (paires)
  (plv-ecrire-enregistrement-du-dessin plv-cartouche:cle
    (apply 'append (mapcar '(lambda (p) (list (cons 300 (car p)) (cons 1 (cdr p)))) paires))))

(defun plv-cartouche-noter (mot texte / paires)
  "Gives a field its text; an empty one takes it away. Another revision is added to those that are there."
  (setq paires (plv-cartouche:paires))
  (if (/= mot "REVISION") (setq paires (vl-remove (assoc mot paires) paires)))
  (plv-cartouche:ecrire (if (= texte "") paires (append paires (list (cons mot texte))))))

(defun plv-cartouche-texte (mot) "The text of a field; empty without one." (cond ((plv-cle mot (plv-cartouche:paires))) ("")))

(defun plv-cartouche:defaut (mot)
  "What a field that was never filled in says: the drawing's system of coordinates, when it is known."
  (cond ((= mot "Coordonnees") (cond ((plv-cle 1 (plv-enregistrement-du-dessin "PLV_SYSTEME"))) (""))) ("")))

(defun plv-cartouche:champ (champ / texte)
  (setq texte (plv-cartouche-texte (car champ)))
  (cons (cadr champ) (if (= texte "") (plv-cartouche:defaut (car champ)) texte)))

;; --- revisions

(defun plv-cartouche:lues () "The revisions, the latest one first." (reverse (plv-cles "REVISION" (plv-cartouche:paires))))

(defun plv-cartouche:revision (rang / ligne)
  "The marks of a row of the table, from 1, with their texts."
  (setq ligne (nth (1- rang) (plv-cartouche:lues)))
  (mapcar '(lambda (nom texte) (cons (strcat "<REV" (itoa rang) "_" nom ">") texte))
    plv-cartouche:parties (append (if ligne (plv-couper ligne ";")) '("" "" "" ""))))

(defun plv-cartouche-indice () "The index of the latest revision; empty without any."
  (cond ((plv-cartouche:lues) (car (plv-couper (car (plv-cartouche:lues)) ";"))) ("")))

(defun plv-cartouche-marques (/ rang marques)
  "All marks with their texts, as (mark . text)."
  (setq rang 0)
  (repeat plv-cartouche:revisions (setq rang (1+ rang) marques (append marques (plv-cartouche:revision rang))))
  (vl-list* (cons "<INDICE>" (plv-cartouche-indice)) (append (mapcar 'plv-cartouche:champ plv-cartouche:champs) marques)))

;; --- the command

(defun plv-cartouche:propose (mot)
  "What a question about a field proposes."
  (if (/= (plv-cartouche-texte mot) "") (plv-cartouche-texte mot)))

(defun plv-cartouche:demander-revision (/ indice)
  (setq indice (plv-demander-texte "Indice" nil))
  (plv-cartouche-noter "REVISION"
    (plv-joindre
      (mapcar '(lambda (texte) (vl-string-translate ";" "," texte))
        (list indice (plv-demander-texte "Date" (plv-date-du-jour)) (plv-demander-texte "Objet" nil)
          (plv-demander-texte "Établi par" (plv-cartouche:propose "Auteur"))))
      ";")))

(defun c:plv-cartouche (/ mot)
  "Remplit le cartouche des feuilles: client, auteur, vérificateur, systèmes, logo, révisions."
  (while (/= (setq mot (plv-demander-mot "Champ" (append (mapcar 'car plv-cartouche:champs) '("loGo" "Revision" "Fin")) "Fin")) "Fin")
    (cond
      ((= mot "Revision") (plv-cartouche:demander-revision))
      ((= mot "loGo") (plv-logo-noter (plv-demander-texte "Image du logo, PNG ou JPEG (vide pour rien)" nil)))
      ((plv-cartouche-noter mot (plv-demander-texte (strcat mot " (vide pour rien)") (plv-cartouche:propose mot))))))
  (princ))
