;; Messages, texts, lists and questions that all commands share.
;; A function that can't do its work says why with plv-erreur, which gives nil.

(defun plv-dire (texte)
  "Prints a line for the user."
  (princ (strcat "\n" texte))
  (princ))

(defun plv-erreur (texte)
  "Says what went wrong; nil. A host that counts failures is told."
  (if (boundp 'echec)
    (echec (strcat "Erreur: " texte))
    (princ (strcat "\nErreur: " texte "\n")))
  nil)

(defun plv-reel (valeur decimales)
  "A real with so many decimals and a point, whatever the drawing's units."
  (pl_distToPk (float valeur) decimales 0))

(defun plv-remplacer (texte ancien nouveau / debut)
  "Every occurrence of a string replaced, from the left."
  (setq debut 0)
  (while (setq debut (vl-string-search ancien texte debut))
    (setq texte (strcat (substr texte 1 debut) nouveau (substr texte (+ debut (strlen ancien) 1)))
          debut (+ debut (strlen nouveau))))
  texte)

(defun plv-nombre (texte)
  "The number that a text holds, with a decimal point or comma; nil for anything else."
  (setq texte (vl-string-trim " \t" texte))
  (if (and (/= texte "") (wcmatch texte "~*[~-+0-9.,eE]*"))
    (distof (plv-remplacer texte "," ".") 2)))

(defun plv-dernier (liste) (car (reverse liste)))

(defun plv-sans-dernier (liste) (reverse (cdr (reverse liste))))

(defun plv-uniques (liste / garde)
  "The list without repetitions, in its order."
  (foreach x liste (if (not (member x garde)) (setq garde (cons x garde))))
  (reverse garde))

(defun plv-cle (cle alist) (cdr (assoc cle alist)))

(defun plv-entre (valeur minimum maximum) (max minimum (min maximum valeur)))

;; --- questions; Enter takes the default, a cancel ends the command through *error*

(defun plv-demander-texte (question defaut / reponse)
  (setq reponse (getstring T (strcat "\n" question (if defaut (strcat " <" defaut ">: ") ": "))))
  (if (and defaut (= (vl-string-trim " " reponse) "")) defaut (vl-string-trim " " reponse)))

(defun plv-demander-reel (question defaut / reponse)
  (initget 6)
  (setq reponse (getreal (strcat "\n" question " <" (plv-reel defaut 2) ">: ")))
  (cond (reponse) (defaut)))

(defun plv-demander-mot (question mots defaut / reponse)
  "A keyword of the list, whose capitals are its short form."
  (initget (plv-joindre mots " "))
  (setq reponse (getkword (strcat "\n" question " [" (plv-joindre mots "/") "] <" defaut ">: ")))
  (cond (reponse) (defaut)))

(defun plv-joindre (textes separateur / resultat)
  (foreach texte textes
    (setq resultat (if resultat (strcat resultat separateur texte) texte)))
  (cond (resultat) ("")))

(defun plv-demander-fichier (question / nom trouve)
  "The path of an existing file; nil after a message when there is none of that name."
  (setq nom (plv-demander-texte question nil))
  (plv-fichier-existant nom))

(defun plv-fichier-existant (nom / trouve)
  (cond
    ((= nom "") (plv-erreur "nom de fichier attendu"))
    ((setq trouve (findfile nom)))
    (T (plv-erreur (strcat "fichier introuvable: " nom)))))
