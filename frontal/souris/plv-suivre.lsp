;; One answer of a user who sees what it would give while the cursor moves: a click, or a text typed at any time. Only grread, grvecs and
;; grtext are used, so that it works wherever AutoLISP does. A script answers with the same texts, and with an expression that gives a
;; point in place of a click.

(setq plv-suivre:curseur nil plv-suivre:fini "Fin")

(defun plv-suivre (question mots suivre:montrer / lu texte reponse)
  "A point of the drawing, a text (\"\" for Enter), or T when the user gives up. montrer (point) gives (vectors note) for a place of
the cursor; mots: keywords that are offered, with one for Enter, since a mouse has no such key."
  (princ (strcat "\n" question ": "))
  (initget (plv-joindre (append mots (list plv-suivre:fini)) " "))
  (setq texte "")
  (if plv-suivre:curseur (plv-suivre:voir suivre:montrer plv-suivre:curseur))
  (while (not reponse)
    (setq lu (vl-catch-all-apply 'grread '(T 12 0)))
    (cond
      ((vl-catch-all-error-p lu) (setq reponse T))
      ((= (car lu) 5) (plv-suivre:voir suivre:montrer (cadr lu)))
      ((= (car lu) 3) (setq reponse (cadr lu) plv-suivre:curseur reponse))
      ((member (car lu) '(11 25)) (setq reponse texte))
      ((/= (car lu) 2))
      ((member (cadr lu) '(10 13)) (setq reponse texte))
      ((= (cadr lu) 27) (setq reponse T))
      (T (setq texte (plv-suivre:touche texte (cadr lu))))))
  (initget "")
  (cond ((/= (type reponse) 'STR) reponse)
        ((= (strcase (vl-string-trim " " reponse)) (strcase plv-suivre:fini)) "")
        ((vl-string-trim " " reponse))))

(defun plv-suivre:touche (texte code)
  "The text with a key. A host that has shown the whole line already shows no key."
  (cond
    ((= code 8)
     (if (not (boundp 'echec)) (princ (chr 8)))
     (if (= texte "") "" (substr texte 1 (1- (strlen texte)))))
    ((< code 32) texte)
    (T
     (if (not (boundp 'echec)) (princ (chr code)))
     (strcat texte (chr code)))))

(defun plv-suivre:voir (montrer point / vu)
  (setq plv-suivre:curseur point vu (apply montrer (list point)))
  (redraw)
  (if (car vu) (grvecs (car vu)))
  (grtext -1 (plv-joindre (vl-remove "" (cadr vu)) " | ")))

(defun plv-suivre-fin ()
  "Nothing of it stays on the screen."
  (setq plv-suivre:curseur nil plv-suivre:fini "Fin")
  (redraw)
  (grtext))
