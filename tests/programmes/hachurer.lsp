;; Hatches chosen closed polylines with a pattern at a scale.
(defun c:hachurer (/ jeu)
  (if (setq jeu (ssget "_X" '((0 . "LWPOLYLINE") (-4 . "&") (70 . 1))))
    (command "_.-HATCH" "_P" "ANSI31" 1.0 0 "_S" jeu "" ""))
  (princ))
