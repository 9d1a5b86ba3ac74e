;; Station text for LISP: the value, the decimals and the format.

(situation "ForLisp")
((pl_distToPk 1250.5) "PK 1+250.50")
((pl_distToPk 1250) "PK 1+250.00")
((pl_distToPk 70000 0) "PK 70+0")
((pl_distToPk 1250.5 1 2) "1+250.5")
((pl_distToPk 1250.5 1.0 0) "1250.50")
((pl_distToPk 1250.5 nil 0) "1250.50")
((pl_distToPk "12") "")
((pl_distToPk) "")
