;; Messages, numbers, texts and lists that every room uses.
;; A function that can't do its work says why with plv-erreur, which gives nil.

(setq plv-outils:essai nil plv-outils:plainte nil)

(defun plv-dire (texte)
  "Prints a line for the user."
  (if (not plv-outils:essai) (princ (strcat "\n" texte)))
  (princ))

(defun plv-erreur (texte)
  "Says what went wrong; nil. A host that counts failures is told."
  (cond
    (plv-outils:essai (setq plv-outils:plainte (cond (plv-outils:plainte) (texte))))
    ((boundp 'echec) (echec (strcat "Erreur: " texte)))
    (T (princ (strcat "\nErreur: " texte "\n"))))
  nil)

(defun plv-essayer (fonction arguments / dehors resultat plainte)
  "(value complaint): what a function gives, and the first thing that it would have complained of. Nothing is said."
  (setq dehors plv-outils:essai plv-outils:essai T plv-outils:plainte nil
        resultat (vl-catch-all-apply fonction arguments)
        plainte plv-outils:plainte plv-outils:essai dehors plv-outils:plainte nil)
  (if (vl-catch-all-error-p resultat) (list nil (vl-catch-all-error-message resultat)) (list resultat plainte)))

(defun plv-colonnes (textes largeurs)
  "A line of a table, columns to the right."
  (plv-dire
    (apply 'strcat
      (mapcar '(lambda (texte largeur) (while (< (strlen texte) largeur) (setq texte (strcat " " texte))) texte) textes largeurs))))

;; --- numbers and texts

(defun plv-date-du-jour (/ date)
  (setq date (rtos (fix (getvar "CDATE")) 2 0))
  (strcat (substr date 7 2) "/" (substr date 5 2) "/" (substr date 1 4)))

(defun plv-sans-moins-zero (texte)
  "The text of a number; a zero has no minus."
  (if (and (wcmatch texte "-*") (not (wcmatch texte "*[1-9]*"))) (substr texte 2) texte))

(defun plv-reel (valeur decimales)
  "A real with so many decimals and a point, whatever the drawing's units."
  (plv-sans-moins-zero (pl_distToPk (float valeur) decimales 0)))

(defun plv-reels (valeurs decimales) "Many of them; nil stays nil." (if valeurs (et_reels valeurs decimales)))

(defun plv-compte (nombre mots)
  "A number with what it counts, each word in the plural from two on."
  (strcat (itoa nombre) " " (if (> nombre 1) (strcat (plv-remplacer mots " " "s ") "s") mots)))

(defun plv-partie-entiere (valeur / entier)
  "The greatest integer that is not above the value."
  (setq entier (fix valeur))
  (if (< valeur entier) (1- entier) entier))

(defun plv-entre (valeur minimum maximum) (max minimum (min maximum valeur)))

(defun plv-remplacer (texte ancien nouveau / debut)
  "Every occurrence of a string replaced, from the left."
  (setq debut 0)
  (while (setq debut (vl-string-search ancien texte debut))
    (setq texte (strcat (substr texte 1 debut) nouveau (substr texte (+ debut (strlen ancien) 1)))
          debut (+ debut (strlen nouveau))))
  texte)

(defun plv-nombre (texte)
  "The number that a text holds, with a decimal point or comma, thousands perhaps apart (1 000,00); nil for anything else."
  (setq texte (vl-string-trim " \t" texte))
  (cond
    ((or (= texte "") (> (strlen texte) 40)) nil)
    ((wcmatch texte "~*[~-+0-9.,eE]*") (distof (plv-remplacer texte "," ".") 2))
    ((setq texte (plv-nombre:sans-milliers texte)) (distof (plv-remplacer texte "," ".") 2))))

(defun plv-nombre:sans-milliers (texte / groupes)
  "The digits of groups of three together; nil for other texts with blanks. A blank may be one that doesn't break the line."
  (setq groupes (plv-couper (plv-remplacer (plv-remplacer texte (chr 160) " ") "\U+202F" " ") " "))
  (if (and (cdr groupes)
           (wcmatch (car groupes) "#,##,###,[-+]#,[-+]##,[-+]###")
           (vl-every '(lambda (g) (wcmatch g "###")) (cdr (reverse (cdr groupes))))
           (wcmatch (plv-dernier groupes) "###,###[.`,]*")
           (wcmatch (plv-dernier groupes) "~*[~0-9.`,]*"))
    (apply 'strcat groupes)))

(defun plv-nombre-station (texte / plus kilometres metres)
  "A number, or a station as 0+007.80; nil for anything else."
  (cond
    ((plv-nombre texte))
    ((setq plus (vl-string-search "+" (setq texte (vl-string-left-trim "PKpk \t" texte))))
     (setq kilometres (vl-string-trim " \t" (substr texte 1 plus))
           metres (vl-string-trim " \t" (substr texte (+ plus 2))))
     (if (and (wcmatch kilometres "#*,-#*") (wcmatch kilometres "~?*[~0-9]*") (wcmatch metres "###,###[.`,]*")
              (plv-nombre metres))
       (* (if (wcmatch kilometres "-*") -1.0 1.0) (+ (* 1000.0 (abs (atof kilometres))) (plv-nombre metres)))))))

(defun plv-joindre (textes separateur)
  (cond
    (textes (apply 'strcat (cdr (apply 'append (mapcar '(lambda (texte) (list separateur texte)) textes)))))
    ("")))

;; --- lists

(defun plv-dernier (liste) (car (reverse liste)))

(defun plv-sans-dernier (liste) (reverse (cdr (reverse liste))))

(defun plv-uniques (liste / garde)
  "The list without repetitions, in its order."
  (foreach x liste (if (not (member x garde)) (setq garde (cons x garde))))
  (reverse garde))

(defun plv-cle (cle alist) (cdr (assoc cle alist)))

(defun plv-cles (cle alist)
  "The values of every pair with this key."
  (mapcar 'cdr (vl-remove-if-not '(lambda (g) (= (car g) cle)) alist)))

(defun plv-plier (plier:fonction plier:resultat plier:liste)
  "What becomes of a start when the function takes each element in: (function result element) gives the next result."
  (foreach plier:element plier:liste
    (setq plier:resultat (apply plier:fonction (list plier:resultat plier:element))))
  plier:resultat)

(defun plv-premiers (liste nombre / resultat)
  "The first so many elements."
  (while (and liste (> nombre 0)) (setq resultat (cons (car liste) resultat) liste (cdr liste) nombre (1- nombre)))
  (reverse resultat))

(defun plv-sans-premiers (liste nombre)
  (repeat nombre (setq liste (cdr liste)))
  liste)
