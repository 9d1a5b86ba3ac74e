;; Divides a curve into equal parts with points and counts them.
(defun c:diviser (/ e)
  (setvar "PDMODE" 34)
  (setq e (entsel "\nCourbe: "))
  (command "_.DIVIDE" e 5)
  (princ (strcat "\n" (itoa (sslength (ssget "_P"))) " points"))
  (princ))
