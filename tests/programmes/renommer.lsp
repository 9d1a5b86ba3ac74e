;; Gives all layers of a prefix another one.
(defun c:renommer (/ a b c noms)
  (setq a (getstring "\nPréfixe: ") b (getstring "\nNouveau préfixe: ") c (tblnext "LAYER" T))
  (while c (setq noms (cons (cdr (assoc 2 c)) noms) c (tblnext "LAYER")))
  (foreach n noms
    (if (wcmatch n (strcat a "*")) (command "_.-RENAME" "_LAyer" n (strcat b (substr n (1+ (strlen a)))))))
  (princ))
