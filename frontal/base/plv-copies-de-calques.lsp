;; Copies of layers, for what is to be hidden here and there: they look like theirs and have its name, a word and numbers of sheets. The word is known to
;; the prints of entities (etudes/suivi), to which one on a copy is as it was.

(setq plv-copies-de-calques:mot "-HORS-")

(defun plv-copies-de-calques:fait (calque)
  "The name that a layer was made with."
  (cond ((car (car (vl-member-if '(lambda (c) (= (strcase (cadr c)) (strcase calque))) (plv-calques-du-dessin))))) (calque)))

(defun plv-original-de-copie (fait / place)
  "Of the name that a copy was made with that of its layer; nil for no copy."
  (if (setq place (vl-string-search plv-copies-de-calques:mot fait)) (substr fait 1 place)))

(defun plv-copies-de-calques:aspect (calque)
  (vl-remove-if-not '(lambda (g) (member (car g) '(62 420 6 370 70 290))) (entget (tblobjname "LAYER" calque))))

(defun plv-copies-de-calques:accorder (copie calque)
  "Gives a copy the look of its layer, and what is off or frozen of it."
  (if (not (equal (plv-copies-de-calques:aspect copie) (plv-copies-de-calques:aspect calque)))
    (entmod
      (append
        (vl-remove-if '(lambda (g) (member (car g) '(62 420 6 370 70 290))) (entget (tblobjname "LAYER" copie)))
        (plv-copies-de-calques:aspect calque))))
  copie)

(defun plv-copie-de-calque (calque numeros)
  "The copy of a layer for some numbers, made when there is none."
  (plv-copies-de-calques:accorder
    (plv-calque-propre (strcat (plv-copies-de-calques:fait calque) plv-copies-de-calques:mot (plv-joindre (mapcar 'itoa numeros) "-")) 7 "Continuous") calque))

(defun plv-accorder-copies (/ original)
  "Every copy looks like its layer again, which a hand may have changed or switched off since."
  (foreach copie (plv-calques-du-dessin)
    (if (and (setq original (plv-original-de-copie (car copie))) (tblsearch "LAYER" (setq original (plv-calque original))))
      (plv-copies-de-calques:accorder (cadr copie) original))))
