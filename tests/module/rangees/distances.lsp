;; Distances in the tall row, in short: "|0.00" is a tick, "10.00@5.00" a text. Partial distances drop coincident abscissas by pairs.

(commun
  (preparer
    (load "outils.lsp") (load "profil.lsp") (load "matrice.lsp")
    (pl_SelectLigne 0 2)
    (defun court (en / e)
      (setq e (entget en))
      (if (= (g 0 e) "LINE") (strcat "|" (n (cadr (assoc 10 e)))) (strcat (g 1 e) "@" (n (cadr (assoc 11 e))))))
    (defun resume (appel) (marque) (if (setq r (eval appel)) (mapcar 'court (depuis repere)) "nil"))))

(situation "CumulatedDistancesStandOnTheTopEdge")
((dessine '(pl_CotDcumH 1 1000 234.5)) (T "PK 1+234.50 @235.20,-4.00 h1.00 r90 2/0"))
((resume '(pl_CotDcumH 0 0.5 '(0 10.5 25 30))) ("0.50@0.70" "11.00@11.20" "25.50@25.70" "30.50@30.70"))
((resume '(pl_CotDcumH 0 0 '(4 "a" 5))) ("4.00@4.70"))

(situation "CumulatedDistancesRefuseOtherForms")
((resume '(pl_CotDcumH 0 0)) "nil")
((resume '(pl_CotDcumH 1.0 0 5)) "nil")
((resume '(pl_CotDcumH 0 "a" 5)) "nil")
((resume '(pl_CotDcumH 0 0 "a")) "nil")
((resume '(pl_CotDcumH 0 0 '(1.0 2.0))) "nil")

(situation "PartialDistances")
((resume '(pl_CotDParH 0 10)) ("|0.00" "|10.00" "10.00@5.00"))
((resume '(pl_CotDParH '(0.0 10.0))) ("|0.00" "|10.00" "10.00@5.00"))
((resume '(pl_CotDParH '(25.0 0.0 10.0))) ("|0.00" "|10.00" "|25.00" "10.00@5.00" "15.00@17.50"))
((resume '(pl_CotDParH '(0 10 10 25))) ("|0.00" "|25.00" "25.00@12.50"))
((resume '(pl_CotDParH '(10.0 10.0))) ("|10.00"))
((resume '(pl_CotDParH '(5))) ("|5.00"))
((resume '(pl_CotDParH '(1 5 5 5 9))) ("|1.00" "|5.00" "|9.00" "4.00@3.00" "4.00@7.00"))
((resume '(pl_CotDParH '(1 5 5 5))) ("|1.00" "|5.00" "4.00@3.00"))
((resume '(pl_CotDParH 5)) "nil")
((resume '(pl_CotDParH "a" 5)) "nil")
((resume '(pl_CotDParH '("a" 5))) "nil")
((resume '(pl_CotDParH)) "nil")

(situation "APartialDistanceStandsInTheMiddleOfTheRow")
((dessine '(pl_CotDParH 0 10)) (T "LINE 0.00,-43.50 0.00,-3.50" "LINE 10.00,-43.50 10.00,-3.50" "10.00 @5.00,-23.50 h1.00 r0 4/2"))
