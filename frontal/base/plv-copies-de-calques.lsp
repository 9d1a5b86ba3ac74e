;; Copies of layers, for what is to be hidden here and there: they look like theirs and have its name, a word and numbers of sheets. The word is known to
;; the prints of entities (etudes/suivi), to which one on a copy is as it was.

(setq plv-copies-de-calques:mot "-HORS-")

(defun plv-copies-de-calques:fait (calque)
  "The name that a layer was made with."
  (cond ((car (car (vl-member-if '(lambda (c) (= (strcase (cadr c)) (strcase calque))) (plv-calques-du-dessin))))) (calque)))

(defun plv-original-de-copie (fait / place)
  "Of the name that a copy was made with that of its layer; nil for no copy."
  (if (setq place (vl-string-search plv-copies-de-calques:mot fait)) (substr fait 1 place)))

(defun plv-copie-de-calque (calque numeros / copie)
  "The copy of a layer for some numbers, made when there is none."
  (setq copie (plv-calque-propre (strcat (plv-copies-de-calques:fait calque) plv-copies-de-calques:mot (plv-joindre (mapcar 'itoa numeros) "-")) 7 "Continuous"))
  (entmod
    (append
      (vl-remove-if '(lambda (g) (member (car g) '(62 420 6 370 70 290))) (entget (tblobjname "LAYER" copie)))
      (vl-remove-if-not '(lambda (g) (member (car g) '(62 420 6 370 70 290))) (entget (tblobjname "LAYER" calque)))))
  copie)
