;; The form of PLV-CARTOUCHE: the fields of the title block and its revisions, as the drawing has them.

(setq plv-cartouche-fiche:libelles
  '(("Client" . "Client") ("Phase" . "Phase") ("Auteur" . "Auteur") ("Verificateur" . "Vérificateur") ("Coordonnees" . "Système de coordonnées")
    ("aLtitudes" . "Système d'altitudes")))

(defun plv-cartouche-fiche:champs ()
  (append
    (mapcar '(lambda (champ) (plv-champ-du-dessin (car champ) (plv-cle (car champ) plv-cartouche-fiche:libelles) (plv-cartouche-texte (car champ))))
      plv-cartouche:champs)
    (list
      (list "logo" "Logo, ou rien" "lire" (plv-logo-chemin) "Images (*.png *.jpg *.jpeg);;Tous (*)" T)
      (list "REVISION" "Révisions, la dernière en bas" "rangees" (mapcar '(lambda (r) (plv-couper r ";")) (reverse (plv-cartouche:lues)))
        '(("Indice" "texte" nil) ("Date" "texte" nil) ("Objet" "texte" nil) ("Établi par" "texte" nil))))))

(defun plv-cartouche-fiche:regarder (valeurs)
  (plv-regard
    (append
      (if (vl-some '(lambda (r) (= (car r) "")) (plv-cle "REVISION" valeurs)) '(("REVISION" "un indice est attendu à chaque révision")))
      (if (plv-logo-refus (plv-cle "logo" valeurs)) (list (list "logo" (plv-logo-refus (plv-cle "logo" valeurs))))))
    nil
    (if (> (length (plv-cle "REVISION" valeurs)) plv-cartouche:revisions)
      (list (strcat "Le cartouche montre les " (itoa plv-cartouche:revisions) " dernières révisions.")))
    nil nil))

(defun plv-cartouche-fiche:revision (rangee)
  (cons "REVISION" (plv-joindre (mapcar '(lambda (texte) (vl-string-translate ";" "," texte)) rangee) ";")))

(defun plv-cartouche-fiche:faire (valeurs)
  (plv-cartouche:ecrire
    (append
      (vl-remove-if '(lambda (p) (= (cdr p) "")) (mapcar '(lambda (champ) (cons (car champ) (plv-cle (car champ) valeurs))) plv-cartouche:champs))
      (mapcar 'plv-cartouche-fiche:revision (plv-cle "REVISION" valeurs))))
  (plv-logo-noter (plv-cle "logo" valeurs))
  (plv-dire "Cartouche noté; les feuilles suivantes le portent."))

(plv-declarer-fiche "PLV-CARTOUCHE" "Cartouche des feuilles" "Noter" 'plv-cartouche-fiche:champs 'plv-cartouche-fiche:regarder 'plv-cartouche-fiche:faire)
