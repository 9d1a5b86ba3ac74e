;; Definition files: what the module wouldn't take as a row, or would take for something else, is said with its line.
;; The module reads the file itself and passes over such lines in silence; here each is read once more by the same rules.

(defun plv-definitions:apres-accolade (ligne / fin)
  "What follows a text between braces; one that isn't closed runs to the end of the line."
  (if (setq fin (vl-string-search "}" ligne)) (substr ligne (+ fin 2)) ""))

(defun plv-mots-definition (ligne / mots fin)
  "The first four words; texts between braces are none."
  (setq ligne (vl-string-left-trim " \t" (vl-string-translate "\t" " " ligne)))
  (while (and (/= ligne "") (< (length mots) 4))
    (if (= (substr ligne 1 1) "{")
      (setq ligne (plv-definitions:apres-accolade ligne))
      (setq fin (cond ((vl-string-search " " ligne)) ((strlen ligne)))
            mots (cons (substr ligne 1 fin) mots)
            ligne (substr ligne (1+ fin))))
    (setq ligne (vl-string-left-trim " " ligne)))
  (reverse mots))

(defun plv-definitions:chiffres-p (texte) (not (wcmatch texte "*[~0-9]*")))

(defun plv-definitions:nombre-p (mot / parties exposant)
  "Digits with a sign or a decimal point between digits; an exponent E only behind a point."
  (if (wcmatch mot "[-+]*") (setq mot (substr mot 2)))
  (setq parties (plv-couper mot "E") exposant (cadr parties) parties (plv-couper (car parties) "."))
  (and (/= (car parties) "")
       (not (cddr parties))
       (vl-every 'plv-definitions:chiffres-p parties)
       (if exposant
         (and (cdr parties) (/= (vl-string-left-trim "-+" exposant) "") (plv-definitions:chiffres-p (vl-string-left-trim "-+" exposant)))
         (/= (cadr parties) ""))))

(defun plv-definitions:rangee-voulue-p (ligne mots)
  "Whether a line that is no row was meant as one: no comment, and figures in it."
  (and (not (plv-ligne-muette ligne)) (wcmatch (plv-joindre mots " ") "*#*")))

(defun plv-definitions:faute (ligne / mots hauteur nature)
  "What is wrong with a line; nil for a good row and for what isn't meant as one."
  (setq mots (plv-mots-definition ligne) hauteur (caddr mots) nature (cadddr mots))
  (cond
    ((and nature (plv-definitions:nombre-p hauteur) (plv-definitions:nombre-p nature))
     (cond ((<= (atof hauteur) 0.0) (strcat "hauteur \"" hauteur "\": un nombre positif est attendu"))
           ((not (plv-types:remplisseur (atoi nature))) (strcat "type \"" nature "\" inconnu, sa rangée reste vide"))))
    ((not (plv-definitions:rangee-voulue-p ligne mots)) nil)
    ((not nature) "nom, un mot, hauteur, type et libellé attendus")
    ((not (plv-definitions:nombre-p hauteur)) (strcat "hauteur \"" hauteur "\": un nombre est attendu, avec un point décimal"))
    (T (strcat "type \"" nature "\": un nombre est attendu"))))

;; --- decimals: a row whose second word ends with a colon and a figure has so many; that word means nothing else

(setq plv-decimales-usuelles 2)

(defun plv-decimales-definition (mot)
  "The decimals that a row's second word says."
  (if (wcmatch mot "*:#") (atoi (substr mot (strlen mot))) plv-decimales-usuelles))

(defun plv-decimales-en-mot (decimales) (if (= decimales plv-decimales-usuelles) "-" (strcat "-:" (itoa decimales))))

(defun plv-decimales-de-texte (texte) (if (member texte '(nil "")) plv-decimales-usuelles (atoi texte)))

(defun plv-definitions:regler (lignes / comptes rang)
  "Tells the module the decimals of the rows that it has loaded, which it names by their place in their table."
  (foreach mots (mapcar 'plv-mots-definition (vl-remove-if-not 'plv-rangee-de-definition-p lignes))
    (setq rang (1+ (cond ((plv-cle (strcase (car mots)) comptes)) (0))) comptes (cons (cons (strcase (car mots)) rang) comptes))
    (if (/= (plv-decimales-definition (cadr mots)) plv-decimales-usuelles)
      (pl_ParamLigneProfil (car mots) (itoa rang) "DECIDIST" (plv-decimales-definition (cadr mots))))))

(defun plv-lire-definitions (chemin / numero)
  "Loads the definitions after saying what is wrong in them; nil after a message when no row is left."
  (setq numero 0)
  (foreach ligne (plv-lire-lignes chemin)
    (setq numero (1+ numero))
    (if (plv-definitions:faute ligne)
      (plv-dire (strcat chemin ", ligne " (itoa numero) ": " (plv-definitions:faute ligne) "."))))
  (cond
    ((plv-avec-texte '(lambda () (pl_LireMatriceKavel chemin))) (plv-definitions:regler (plv-lire-lignes chemin)) T)
    (T (plv-erreur (strcat chemin ": aucune ligne de matrice; attendu: NOM - hauteur type {infos} libellé")))))

;; --- the parts of a good row

(defun plv-rangee-de-definition-p (ligne)
  (and (cadddr (plv-mots-definition ligne)) (not (plv-ligne-muette ligne)) (not (plv-definitions:faute ligne))))

(defun plv-infos-definition (ligne / debut)
  "The text between braces; empty without one."
  (if (setq debut (vl-string-search "{" ligne))
    (vl-string-trim " " (substr ligne (+ debut 2) (- (cond ((vl-string-search "}" ligne)) ((strlen ligne))) debut 1)))
    ""))

(defun plv-libelle-definition (ligne / fin)
  "What follows the kind and the text between braces."
  (if (vl-string-search "{" ligne)
    (vl-string-trim " \t" (plv-definitions:apres-accolade ligne))
    (progn
      (setq ligne (vl-string-left-trim " " (vl-string-translate "\t" " " ligne)))
      (repeat 4
        (setq fin (cond ((vl-string-search " " ligne)) ((strlen ligne))) ligne (vl-string-left-trim " " (substr ligne (1+ fin)))))
      (vl-string-trim " " ligne))))
