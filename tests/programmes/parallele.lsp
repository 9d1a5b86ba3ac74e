;; Draws both edges of a road beside its axis.
(defun c:parallele (/ e d)
  (setq e (car (entsel "\nAxe: ")) d (getdist "\nDemi-largeur: "))
  (command "_.OFFSET" d (list e (vlax-curve-getStartPoint e)) '(0 100 0) "")
  (command "_.OFFSET" d (list e (vlax-curve-getStartPoint e)) '(0 -100 0) "")
  (princ))
