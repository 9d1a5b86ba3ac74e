;; The length of all chosen curves.
(defun c:longueur (/ jeu i e l)
  (setq l 0.0)
  (if (setq jeu (ssget '((0 . "LINE,ARC,*POLYLINE,CIRCLE,SPLINE,ELLIPSE"))))
    (repeat (setq i (sslength jeu))
      (setq e (ssname jeu (setq i (1- i))) l (+ l (vlax-curve-getDistAtParam e (vlax-curve-getEndParam e))))))
  (princ (strcat "\nLongueur totale: " (rtos l 2 3)))
  (princ))
