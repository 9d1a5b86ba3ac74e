;; The natural ground of a profile, as LISP sees it.

(commun (preparer (load "outils.lsp") (load "profil.lsp") (load "matrice.lsp")))

(situation "GivesItsGroundToLisp")
((pl_InfosTn prf) (4.0 150.0 0.0))
((pl_PointTn prf 0) (0.0 100.0 0.0))
((pl_PointTn prf 3) (150.0 104.0 0.0))
((pl_PointTn prf 4) nil)
((pl_PointTn prf -1) nil)
((pl_PointTn prf 1.0) nil)
((pl_PointTn pc1 0) nil)
((pl_InfosTn pc1) nil)

(situation "ReadsAHundredThousandPointsOfGround")
(preparer
  (setq l nil i 0)
  (while (< i 100000) (setq l (cons '(1040 . 1.0) (cons '(1040 . 100.0) l)) i (1+ i)))
  (entmod (append (entget prf) (list (list -3 (cons "KELMONT_PLV2" l))))))
((pl_InfosTn prf) (100000.0 100000.0 0.0))
