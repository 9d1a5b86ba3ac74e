;; Lines la, lb and lc in the chains of the two sections of `prf`.

(defun ligne () (entmake '((0 . "LINE") (10 0.0 0.0 0.0) (11 1.0 0.0 0.0))) (entlast))
(setq la (ligne) lb (ligne) lc (ligne))
(plsxd pc1 "PRLI" la) (plsxd la "NEXTLI" lb) (plsxd pc2 "prli" lc)
