;; Makes the layers of a list with colours and line types, as office standards do.
(defun c:calques (/ liste)
  (setq liste '(("EU-RESEAU" 1 "Continuous") ("EU-REGARDS" 3 "Continuous") ("EP-RESEAU" 5 "HIDDEN") ("AXE" 2 "CENTER")))
  (foreach c liste
    (if (not (tblsearch "LTYPE" (caddr c))) (command "_.-LINETYPE" "_Load" (caddr c) "acadiso.lin" ""))
    (command "_.-LAYER" "_Make" (car c) "_Color" (cadr c) "" "_Ltype" (caddr c) "" ""))
  (setvar "CLAYER" "0")
  (princ))
