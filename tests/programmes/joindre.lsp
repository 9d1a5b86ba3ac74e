;; Makes a polyline of lines end to end.
(defun c:joindre (/ jeu)
  (setvar "PEDITACCEPT" 1)
  (if (setq jeu (ssget '((0 . "LINE")))) (command "_.PEDIT" (ssname jeu 0) "_J" jeu "" ""))
  (princ))
