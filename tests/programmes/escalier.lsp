;; Copies, mirrors and turns an object; undone as one step.
(defun c:escalier (/ e)
  (command "_.UNDO" "_Begin")
  (setq e (car (entsel "\nObjet: ")))
  (command "_.COPY" e "" '(0 0) '(10 0))
  (command "_.MIRROR" e "" '(0 0) '(0 10) "_N")
  (command "_.ROTATE" e "" '(0 0) 90)
  (command "_.UNDO" "_End")
  (princ))
