;; What is a profile: a block reference with a number and keys, whatever its block is called, and nothing else.

(commun
  (fichier "g.csv" "distance;altitude\n0;50\n60;51\n100;49\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "1" '(0.0 0.0 0.0) 10.0 2.5 150.0 '((0.0 40.0))))
    ;; a reference with one attribute, as another program makes it
    (defun inserer (bloc etiquette numero)
      (plv-bloc-vide bloc)
      (entmake (list '(0 . "INSERT") '(8 . "0") '(66 . 1) (cons 2 bloc) '(10 0.0 400.0 0.0)))
      (entmake (list '(0 . "ATTRIB") '(8 . "0") '(10 0.0 400.0 0.0) '(40 . 1.0) (cons 1 numero) (cons 2 etiquette) '(70 . 0)))
      (entmake '((0 . "SEQEND") (8 . "0")))
      (entlast))
    (defun cles (entite)
      (plsxd entite "ECHV" 10.0)
      (plsxd entite "PRPC" (plgxd p "PRPC"))
      (plv-ecrire-terrain entite '((0.0 50.0) (30.0 52.0)))
      entite)))

(situation "TheNameOfTheBlockIsFree")
(tableau (bloc etiquette) ("PROFIL-EN-LONG" "NUMPL") ("PLV_PROFIL" "numpl") ("x" "NumPl"))
(preparer (setq autre (cles (inserer bloc etiquette "A7"))))
((mapcar 'plv-numero-profil (plv-profils)) ("A7" "1"))
((eq (plv-profil-de-numero "a7") autre) T)
(dit (plv-decrire) "Profils: 2" "A7: 2 points")
((plv-identifiant-libre) 2)
;; it is no block that stands on a profile
((member autre (plv-blocs autre)) nil)

(situation "StrayReferencesAreNone")
(tableau (reference constats texte)
  ((progn (entmake '((0 . "INSERT") (8 . "0") (2 . "PLV_PROFIL") (10 0.0 0.0 0.0))) (entlast)) 0 "")
  ;; what has the planes of a profile has lost its number
  ((progn (entmake '((0 . "INSERT") (8 . "0") (2 . "PLV_PROFIL") (10 0.0 0.0 0.0))) (cles (entlast))) 1 "perdu l'attribut NUMPL")
  ((inserer "PLV_PROFIL" "NUMPL" "2") 0 "")
  ((cles (inserer "PLV_PROFIL" "TITRE" "2")) 1 "perdu l'attribut NUMPL"))
(preparer reference)
((equal (plv-profils) (list p)) T)
(dit (plv-decrire) "Profils: 1" texte (sauf "2: 2 points"))
(dit (plv-audit) texte)
((plv-audit) constats)
(tape ("PLV-CHOISIR") (sauf "Numéro"))
