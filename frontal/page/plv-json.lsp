;; Values as JSON (RFC 8259). Texts are safe within a page too: no bracket begins a tag.

(defun plv-json-texte (texte) (strcat "\"" (apply 'strcat (mapcar 'plv-json:lettre (plv-json:lettres texte))) "\""))

(defun plv-json:lettres (texte) (vl-string->list texte))

(defun plv-json:lettre (code)
  (cond
    ((= code 34) "\\\"")
    ((= code 92) "\\\\")
    ((= code 60) "\\u003c")
    ((< code 32) " ")
    (T (chr code))))

(defun plv-json-nombre (valeur decimales)
  "With so many decimals, one at least, less zeros at its end."
  (vl-string-right-trim "." (vl-string-right-trim "0" (plv-reel valeur decimales))))

(defun plv-json-liste (textes) (strcat "[" (plv-joindre textes ",") "]"))
(defun plv-json-nombres (valeurs decimales) (plv-json-liste (mapcar '(lambda (v) (plv-json-nombre v decimales)) valeurs)))
(defun plv-json-textes (textes) (plv-json-liste (mapcar 'plv-json-texte textes)))

(defun plv-json-objet (paires)
  "Of (key . value), the values as JSON."
  (strcat "{" (plv-joindre (mapcar '(lambda (p) (strcat (plv-json-texte (car p)) ":" (cdr p))) paires) ",") "}"))
