;; Forms in place of prompts. A form says what it asks, what a set of answers would give, and does it; whoever shows it (the window, a
;; dialog of another host) knows nothing of the commands. Nothing here changes the drawing but plv-fiche-faire.
;;
;; A field is (key label kind value choices [new]), new: T for what belongs to the drawing or to one time, and isn't kept for the next; kind is
;;   "profil" a number of a profile; "mot" one of the choices; "mots" some of them; "nombre" or "texte" a text; "oui" T or nil;
;;   "point" a text x,y or nothing, typed or picked;
;;   "lire" the name of a file or nothing, "ecrire" one to write, the choices are the filter; "rangees" rows of texts, the choices are the
;;   columns as (title kind choices); "objets" handles of entities that are picked in the drawing, the choices are the types as ssget takes them
;; Answers are an association list of keys and values: numbers come as they were typed, as texts; "*" is the key that was changed last.
;; A look at answers is (faults pictures texts hidden choices values): values are (key value) of fields that shall show another one; faults (key reason); pictures (title mode items
;; station), the mode "profil", "plan" (one scale) or "tableau" (pixels), the station being that of the abscissa 0; an item is
;;   ("trait" role points), ("texte" role point words), or ("poignee" key role points sense [key-along]), a line or a point that is dragged:
;;   up or down it changes a number by the way it goes, times sense, along the profile the other number; a key is a field's, or field/row/column
;;   of a cell, both from 0; a role is a word, or "#RRGGBB pixels dash gap ..." for a sample; hidden: keys of fields that don't matter;
;;   choices: (key choice ...) of fields whose choices depend on others, of rows (key (column choice ...) ...)
;; Shared in the room: plv-fiches:*

;; command, title, word of the button, fields (), look (answers), do (answers)
(setq plv-fiches:table nil)

(defun plv-declarer-fiche (commande titre bouton champs regard faire)
  (setq plv-fiches:table (cons (list commande titre bouton champs regard faire) plv-fiches:table)))

(defun plv-fiches:ligne (commande) (assoc commande plv-fiches:table))

(defun plv-fiches () "The commands that have a form." (mapcar 'car plv-fiches:table))

(defun plv-fiche (commande / ligne)
  "(title button fields) of a command's form; the reason as a text when it can't be shown now, nil for a command without one."
  (if (setq ligne (plv-fiches:ligne commande))
    (progn
      (setq ligne (list (cadr ligne) (caddr ligne) (plv-essayer (cadddr ligne) '())))
      (if (car (caddr ligne)) (list (car ligne) (cadr ligne) (car (caddr ligne))) (cadr (caddr ligne))))))

(defun plv-fiche-regarder (commande valeurs / champs fautes vu)
  "The look at answers."
  (setq champs (car (plv-essayer (nth 3 (plv-fiches:ligne commande)) '()))
        fautes (plv-fiches:mal-remplis champs valeurs)
        vu (plv-essayer (nth 4 (plv-fiches:ligne commande)) (list valeurs)))
  (cond
    ((car vu) (cons (plv-fiches:visibles (append fautes (caar vu)) (cadddr (car vu))) (cdar vu)))
    (fautes (list fautes nil nil nil nil))
    (T (list (list (list "" (cond ((cadr vu)) ("ces réponses ne vont pas ensemble")))) nil nil nil nil))))

(defun plv-fiches:visibles (fautes cachees / gardees)
  "The first fault of each field that is shown."
  (foreach f fautes (if (not (or (assoc (car f) gardees) (member (car f) cachees))) (setq gardees (cons f gardees))))
  (reverse gardees))

(defun plv-fiche-refus (commande valeurs / faute)
  "Why answers can't be carried out, with the field's label; nil when they can."
  (if (setq faute (caar (plv-fiche-regarder commande valeurs)))
    (strcat (if (= (car faute) "") "" (strcat (plv-fiches:libelle commande (car faute)) ": ")) (cadr faute))))

(defun plv-fiches:libelle (commande cle) (cadr (assoc cle (caddr (plv-fiche commande)))))

(defun plv-fiche-faire (commande valeurs / refus)
  "Carries answers out; nil after a message."
  (if (setq refus (plv-fiche-refus commande valeurs))
    (plv-erreur refus)
    (apply (nth 5 (plv-fiches:ligne commande)) (list valeurs))))

;; --- what every field is held to

(defun plv-fiches:mal-remplis (champs valeurs)
  (vl-remove nil (mapcar '(lambda (champ) (plv-fiches:mal-rempli champ (plv-cle (car champ) valeurs))) champs)))

(defun plv-fiches:mal-rempli (champ valeur / nature)
  (setq nature (caddr champ))
  (cond
    ((and (= nature "nombre") (not (plv-fiches:en-nombre valeur))) (list (car champ) "un nombre est attendu"))
    ((and (= nature "lire") valeur (/= valeur "") (not (findfile valeur)) (not (vl-file-directory-p valeur)))
     (list (car champ) (strcat "fichier introuvable: " valeur)))
    ((and (= nature "point") (plv-fiches:rempli-p valeur) (not (plv-couple valeur))) (list (car champ) "deux nombres x,y sont attendus"))
    ((and (= nature "mots") (not valeur)) (list (car champ) "un choix au moins est attendu"))))

;; --- reading answers

(defun plv-fiches:en-nombre (valeur) (cond ((numberp valeur) (float valeur)) (valeur (plv-nombre valeur))))

(defun plv-fiches:rempli-p (valeur) (and valeur (/= valeur "")))

(defun plv-fiche-nombre (valeurs cle) (plv-fiches:en-nombre (plv-cle cle valeurs)))

(defun plv-fiche-fichier (valeurs cle)
  "The path of a file to read; nil without one."
  (if (plv-fiches:rempli-p (plv-cle cle valeurs))
    (cond ((findfile (plv-cle cle valeurs))) ((plv-cle cle valeurs)))))

(defun plv-fiche-point (valeurs cle / couple)
  "The point of a field; nil without one."
  (if (and (plv-fiches:rempli-p (plv-cle cle valeurs)) (setq couple (plv-couple (plv-cle cle valeurs))))
    (append couple '(0.0))))

(defun plv-fiche-profil (valeurs) (plv-profil-de-numero (plv-cle "profil" valeurs)))

;; --- fields that several forms have

(defun plv-profil-propose () "The profile that forms open with; nil for none."
  (cond ((plv-numero-courant) (plv-profil-de-numero (plv-numero-courant))) ((car (plv-profils)))))

(defun plv-champ-profil ()
  "nil after a message in a drawing without profiles."
  (if (plv-profil-propose)
    (list "profil" "Profil" "profil" (plv-numero-profil (plv-profil-propose)) (mapcar 'plv-numero-profil (plv-profils)))
    (plv-erreur (plv-refus-sans-profil))))

(defun plv-champ-genre-trace (libelle genres)
  "A kind of line, that of a line which is there."
  (list "genre" libelle "mot" (if (plv-profil-propose) (plv-genre-propose (plv-profil-propose)) (car genres)) genres T))

(defun plv-champs-avec-profil (champs / profil)
  "The fields after that of the profile; nil after a message."
  (if (setq profil (plv-champ-profil)) (cons profil champs)))

(defun plv-champ-du-dessin (cle libelle valeur) "A text that belongs to the drawing." (list cle libelle "texte" valeur nil T))

(defun plv-champ-nombre-du-dessin (cle libelle valeur decimales) (list cle libelle "nombre" (plv-reel valeur decimales) nil T))

(defun plv-champ-nombre (cle libelle valeur decimales) (list cle libelle "nombre" (plv-reel valeur decimales) nil))

;; --- looks

(defun plv-regard (fautes images textes cachees choix) (list fautes images textes cachees choix))

(defun plv-regard-fautes (fautes) (plv-regard fautes nil nil nil nil))

(defun plv-regard-avec-valeurs (regard valeurs) "A look that fills fields in." (append regard (list valeurs)))

;; --- what is picked in the drawing

(setq plv-fiches-pris nil)

(defun plv-fiche-choisir (commande cle / champ)
  "Asks for the point or the entities of a field; as the field has them they are kept until the form takes them."
  (setq champ (assoc cle (caddr (plv-fiche commande)))
        plv-fiches-pris (if (= (caddr champ) "point") (plv-fiches:un-point (cadr champ)) (plv-fiches:des-objets champ)))
  (princ))

(defun plv-fiches:un-point (libelle / point)
  (if (setq point (getpoint (strcat "\n" libelle ": "))) (strcat (plv-reel (car point) 3) "," (plv-reel (cadr point) 3))))

(defun plv-fiches:des-objets (champ / jeu)
  (plv-dire (strcat (cadr champ) ":"))
  (if (setq jeu (ssget (list (cons 0 (nth 4 champ))))) (mapcar 'plv-handle (plv-entites-du-jeu jeu))))

(defun plv-fiche-objets (valeurs cle)
  "The picked entities that are still there."
  (vl-remove nil (mapcar 'handent (plv-cle cle valeurs))))
