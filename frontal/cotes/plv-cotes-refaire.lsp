;; Which dimensions a profile has, so that all of them can be written again: lots of curves of a kind that are dimensioned alike.

;; --- a lot is (kind rotation which curves), as plv-coter takes them

(defun plv-lot-genre (lot) (car lot))
(defun plv-lot-rotation (lot) (cadr lot))
(defun plv-lot-lesquelles (lot) (caddr lot))
(defun plv-lot-courbes (lot) (cdddr lot))

(defun plv-cotes-refaire:reponses (courbe cotes / fait)
  "(rotation which) of a curve: as its dimensions were asked for, else as they are."
  (setq fait (car (vl-member-if '(lambda (f) (= (plv-fait-chose f) "COTES")) (plv-faits-sur courbe))))
  (if fait
    (list (distof (cadr (plv-fait-reponses fait)) 2) (car (plv-fait-reponses fait)))
    (list (plv-cle 50 (entget (car cotes))) (plv-cotes-lesquelles cotes))))

(defun plv-cotes-refaire:porteuses (profil genre cotes / elements portees)
  "The curves of a kind that reach dimensions, each as (curve dimension ...)."
  (setq elements (plv-elements profil genre)
        portees (if elements (mapcar '(lambda (c) (cons (plv-cote-porteuse c elements) c)) cotes)))
  (vl-remove-if-not 'cdr (mapcar '(lambda (e) (cons e (mapcar 'cdr (vl-remove-if-not '(lambda (p) (eq (car p) e)) portees)))) elements)))

(defun plv-cotes-refaire:ajouter (lots genre reponses courbe / lot)
  "The lots with a curve in that of its answers."
  (if (setq lot (car (vl-member-if '(lambda (l) (equal (plv-premiers l 3) (cons genre reponses) 1e-6)) lots)))
    (subst (append lot (list courbe)) lot lots)
    (append lots (list (append (list genre) reponses (list courbe))))))

(defun plv-cotes-a-refaire (profil / cotes lots)
  "The lots of a profile's dimensions, kind after kind. A piece that was cut off a curve is dimensioned as that is; dimensions whose
curve is gone are nobody's."
  (setq cotes (vl-remove-if-not 'plv-cote-courbe (plv-cotes-du-profil profil)))
  (foreach genre (plv-genres)
    (foreach porteuse (plv-cotes-refaire:porteuses profil genre cotes)
      (setq lots (plv-cotes-refaire:ajouter lots genre
                   (plv-cotes-refaire:reponses (plv-cote-courbe (cadr porteuse)) (cdr porteuse)) (car porteuse)))))
  lots)
