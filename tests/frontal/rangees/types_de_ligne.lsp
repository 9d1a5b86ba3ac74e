;; The line types that come with the program stand for the host's standard files.

(situation "StandardFilesOfLineTypes")
(preparer (defun traits (nom) (mapcar 'cdr (vl-remove-if-not '(lambda (x) (= (car x) 49)) (entget (tblobjname "LTYPE" nom))))))
;; the standard files are there under their names: one in millimetres, one in inches
((progn (command "_-LINETYPE" "_L" "HIDDEN" "acadiso.lin" "") (traits "HIDDEN")) (6.35 -3.175))
((progn (command "_-LINETYPE" "_L" "HIDDEN" "acad.lin" "_Y" "") (traits "HIDDEN")) (0.25 -0.125))
((progn (command "_-LINETYPE" "_L" "HIDDEN" "acadiso" "_N" "") (traits "HIDDEN")) (0.25 -0.125))
