;; Contradictions of a surface, marked in the drawing where they are. Marks of an earlier look go first.

(setq plv-mnt:calque-controle "PLV-CONTROLE")

(defun plv-mnt:marquer (contradiction taille / point)
  (setq point (list (cadr contradiction) (caddr contradiction) 0.0))
  (entmake (list '(0 . "CIRCLE") (cons 8 (plv-calque plv-mnt:calque-controle)) (cons 10 point) (cons 40 taille)))
  (plv-texte plv-mnt:calque-controle (polar point 0.0 (* 1.5 taille)) taille (plv-mnt-texte-contradiction contradiction) 0 0.0))

(defun plv-mnt-controler (demande taille / reponse)
  "Lists the contradictions of the sources, and marks them; their number, or nil after a message."
  (if (setq reponse (plv-mnt-couper nil demande))
    (progn
      (plv-effacer (plv-entites-du-jeu (ssget "X" (list (cons 8 (plv-calque plv-mnt:calque-controle))))))
      (foreach c (plv-mnt:contradictions reponse) (plv-mnt:marquer c taille))
      (plv-dire
        (if (plv-mnt:contradictions reponse)
          (strcat (plv-compte (length (plv-mnt:contradictions reponse)) "marque") " sur le calque " (plv-calque plv-mnt:calque-controle) ".")
          "Aucune contradiction."))
      (length (plv-mnt:contradictions reponse)))))
