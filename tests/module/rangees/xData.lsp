;; Stored keys and natural-ground pairs of a point, as the front-end writes and reads them. The same values are read back from the
;; entity's own groups.

(commun
  (preparer
    (regapp "PLV2_DATA")
    (entmake '((0 . "POINT") (10 1.0 2.0 0.0)))
    (setq e (entlast) h (cdr (assoc 5 (entget e))))
    (defun donnees (app) (cdr (assoc -3 (entget e (list app)))))
    (defun cles () (cdar (donnees "PLV2_DATA")))))

(situation "KeysKeepTheirValueAndItsKind")
((progn (plsxd e "R" 2.5) (plgxd e "R")) 2.5)
((progn (plsxd e "I" 12) (plgxd e "I")) 12)
((progn (plsxd e "L" 70000) (plgxd e "L")) 70000)
((progn (plsxd e "S" "nom") (plgxd e "S")) "nom")
((progn (plsxd e "E" e) (eq (plgxd e "E") e)) T)
((progn (plsxd e "N" nil) (plgxd e "N")) nil)
((progn (plsxd e "T" T) (plgxd e "T")) -9999999)
((mapcar 'car (cles)) (1000 1040 1000 1070 1000 1071 1000 1000 1000 1005 1000 1071 1000 1071))
((cdr (nth 11 (cles))) -99999999)

(situation "AKeyIsReplacedInAnyCaseAndKeepsItsSpelling")
((progn (plsxd e "Echv" 5.0) (plsxd e "B" 1) (plsxd e "ECHV" "x") (cles))
 ((1000 . "Echv") (1000 . "x") (1000 . "B") (1070 . 1)))
((plgxd e "echv") "x")
((plgxd e "absente") nil)

(situation "AStringValueEqualToAKeyIsTakenForIt")
((progn (plsxd e "A" "B") (plsxd e "C" 1) (plsxd e "B" 2) (cles)) ((1000 . "A") (1000 . "B") (1070 . 2) (1070 . 1)))

(situation "WrongCallsChangeNothing")
((progn (plsxd e "A") (plsxd "e" "A" 1) (plsxd e 1 1) (plsxd e "A" 1 2) (donnees "*")) nil)
((plgxd e "A" 1) nil)
((plgxd e "A") nil)

(situation "AKeyAtTheEndWithoutValueGetsOne")
((progn (entmod (append (entget e) '((-3 ("PLV2_DATA" (1000 . "SEULE")))))) (plgxd e "SEULE")) nil)
((progn (plsxd e "SEULE" 3) (cles)) ((1000 . "SEULE") (1070 . 3)))

(situation "NaturalGroundIsAppendedInPairs")
((pl_add_xdata 0 100.5 h) 1)
((pl_add_xdata 12.5 101 h) 1)
((donnees "KELMONT_PLV2") (("KELMONT_PLV2" (1040 . 0.0) (1040 . 100.5) (1040 . 12.5) (1040 . 101.0))))
((progn (plsxd e "K" 1) (pl_add_xdata 1 2 h) (plgxd e "K")) 1)

(situation "EveryBadCallOfAddXDataHasItsMessage")
(tableau (appel message)
  ((pl_add_xdata) "\nErreur dans appel a add_plxdata: pas d'arguments !")
  ((pl_add_xdata "1") "\nErreur dans appel a add_plxdata: 1er argument non numerique !")
  ((pl_add_xdata 1) "\nErreur dans appel a add_plxdata: 1 seul argument a ete fourni !")
  ((pl_add_xdata 1 "2") "\nErreur dans appel a add_plxdata: 2eme argument non numerique !")
  ((pl_add_xdata 1 2) "\nErreur dans appel a add_plxdata: 2  arguments seulement ont ete fournis !")
  ((pl_add_xdata 1 2 3) "\nErreur dans appel a add_plxdata: 2eme argument n'est pas une chaine !")
  ((pl_add_xdata 1 2 "FFFFFF") "\nErreur dans appel a add_plxdata: 2eme argument n'est pas un vrai handle !"))
(ecrit (setq r appel) message)
(r nil)
