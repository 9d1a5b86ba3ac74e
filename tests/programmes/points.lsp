;; Reads points from a text file and draws them with their names.
(defun c:points (/ f ligne c)
  (if (setq f (open (getstring T "\nFichier: ") "r"))
    (progn
      (while (setq ligne (read-line f))
        (setq c (read (strcat "(" (vl-string-translate ";" " " ligne) ")")))
        (entmake (list '(0 . "POINT") (list 10 (float (cadr c)) (float (caddr c)) (float (cadddr c)))))
        (entmake (list '(0 . "TEXT") (list 10 (float (cadr c)) (float (caddr c)) 0.0) '(40 . 1.0) (cons 1 (vl-princ-to-string (car c))))))
      (close f)))
  (princ))
