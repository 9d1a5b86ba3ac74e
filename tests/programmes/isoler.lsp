;; Turns off every layer but that of the picked object, and on again.
(defun c:isoler (/ e)
  (if (setq e (car (entsel "\nObjet du calque à isoler: ")))
    (progn
      (setvar "CLAYER" (cdr (assoc 8 (entget e))))
      (command "_.-LAYER" "_OFF" "*" "_N" "")
      (princ (strcat "\nCalque isolé: " (getvar "CLAYER")))))
  (princ))
(defun c:tous () (command "_.-LAYER" "_ON" "*" "") (princ))
