;; Questions that several commands ask in the same way.
;; Enter takes the default; a cancel ends the command through *error*.

(defun plv-script-p ()
  "Whether questions are answered by a script: its next line would be taken for the answer of a question that it doesn't know."
  (/= 0 (logand 4 (getvar "CMDACTIVE"))))

(defun plv-demander-texte (question defaut / reponse)
  (setq reponse (getstring T (strcat "\n" question (if defaut (strcat " <" defaut ">: ") ": "))))
  (if (and defaut (= (vl-string-trim " " reponse) "")) defaut (vl-string-trim " " reponse)))

(defun plv-demander-reel (question defaut / reponse)
  (initget 6)
  (setq reponse (getreal (strcat "\n" question " <" (plv-reel defaut 2) ">: ")))
  (cond (reponse) (defaut)))

(defun plv-demander-nombre (question) (initget 1) (getreal (strcat "\n" question ": ")))

(defun plv-demander-mot (question mots defaut / reponse)
  "A keyword of the list, whose capitals are its short form."
  (initget (plv-joindre mots " "))
  (setq reponse (getkword (strcat "\n" question " [" (plv-joindre mots "/") "] <" defaut ">: ")))
  (cond (reponse) (defaut)))

(defun plv-demander-nombre-libre (question defaut decimales / texte nombre)
  "A number with a decimal point or comma; Enter takes the default. Asked again until it can be read."
  (while (not nombre)
    (setq texte (plv-demander-texte (strcat question " <" (plv-reel defaut decimales) ">") nil)
          nombre (if (= texte "") defaut (plv-nombre texte)))
    (if (not nombre) (plv-dire "Un nombre est attendu.")))
  nombre)

(defun plv-couple (texte / nombres)
  "The two numbers of a text a,b, or a;b where the comma may be decimal; nil for anything else."
  (setq nombres (mapcar 'plv-nombre (plv-couper texte (if (vl-string-search ";" texte) ";" ","))))
  (if (and (= (length nombres) 2) (not (member nil nombres))) nombres))

(defun plv-dire-couple ()
  (plv-dire "Deux nombres séparés par une virgule sont attendus, avec un point décimal, ou par un point-virgule."))

(defun plv-demander-couple (question / texte nombres)
  "Two numbers typed as a,b; nil for an empty answer. Asked again until it can be read."
  (while (and (/= (setq texte (getstring (strcat "\n" question ": "))) "") (not (setq nombres (plv-couple texte))))
    (plv-dire-couple))
  nombres)

(defun plv-demander-fichier (question)
  "The path of an existing file; nil after a message when there is none of that name."
  (plv-fichier-existant (plv-demander-texte question nil)))

(defun plv-fichier-existant (nom)
  (cond
    ((= nom "") (plv-erreur "nom de fichier attendu"))
    ((findfile nom))
    (T (plv-erreur (strcat "fichier introuvable: " nom)))))

;; --- the files that commands took, which the window proposes again

(setq plv-questions:pris nil)

(defun plv-prendre-fichier (genre chemin resultat)
  "The result of what was done with a file; unless that is nil, the file counts as taken. genre: leve or definition."
  (if (and resultat (not (member (list genre chemin) plv-questions:pris)))
    (setq plv-questions:pris (cons (list genre chemin) plv-questions:pris)))
  resultat)

(defun plv-fichiers-pris (/ pris)
  "Kind and path of each file that was taken since the last call."
  (setq pris plv-questions:pris plv-questions:pris nil)
  (reverse pris))

(defun plv-nom-dessin (/ nom)
  "The drawing's name as a title that is proposed."
  (setq nom (vl-filename-base (getvar "DWGNAME")))
  (if (= nom "") "Kavel" nom))
