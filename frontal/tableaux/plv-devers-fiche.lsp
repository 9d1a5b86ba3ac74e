;; The form of PLV-DEVERS: the cross falls of a profile as a table, read from a file when that is wanted.

(defun plv-devers-fiche:champs ()
  (plv-champs-avec-profil
    (list
      '("fichier" "Fichier à reprendre" "lire" "" "Dévers (*.csv *.txt *.xlsx);;Tous (*)")
      (list "devers" "Dévers en %" "rangees" (if (plv-profils) (plv-devers-fiche:rangees (plv-devers-fiche:propose)))
            '(("Station" "nombre" nil) ("Gauche" "nombre" nil) ("Droit" "nombre" nil))))))

(defun plv-devers-fiche:propose () (cond ((plv-profil-de-numero (cond ((plv-numero-courant)) ("")))) ((car (plv-profils)))))

(defun plv-devers-fiche:rangees (profil / origine)
  (setq origine (plv-premiere-station profil))
  (mapcar '(lambda (v) (list (plv-reel (+ origine (car v)) 3) (plv-reel (cadr v) 2) (plv-reel (caddr v) 2))) (plv-devers-du-profil profil)))

(defun plv-devers-fiche:faute (rangees / numero faute precedente)
  (setq numero 0)
  (foreach r rangees
    (setq numero (1+ numero))
    (if (not faute)
      (cond
        ((member nil (mapcar 'plv-nombre-station r)) (setq faute (strcat "rangée " (itoa numero) ": trois nombres sont attendus")))
        ((and precedente (<= (plv-nombre-station (car r)) precedente))
         (setq faute (strcat "rangée " (itoa numero) ": les stations vont en croissant")))))
    (setq precedente (plv-nombre-station (car r))))
  (cond (faute) ((not rangees) "une rangée au moins est attendue")))

(defun plv-devers-fiche:nombres (rangees)
  (mapcar '(lambda (r) (list (plv-nombre-station (car r)) (plv-nombre (cadr r)) (plv-nombre (caddr r)))) rangees))

(defun plv-devers-fiche:regarder (valeurs / rangees lu faute)
  (setq rangees (plv-cle "devers" valeurs)
        lu (if (plv-fiche-fichier valeurs "fichier") (plv-essayer 'plv-lire-devers (list (plv-fiche-fichier valeurs "fichier"))))
        faute (if (not lu) (plv-devers-fiche:faute rangees)))
  (plv-regard
    (append (if (cadr lu) (list (list "fichier" (cadr lu)))) (if faute (list (list "devers" faute))))
    nil
    (if (car lu) (list (strcat (plv-compte (length (car lu)) "dévers") " dans ce fichier.")))
    (if lu '("devers"))
    nil))

(defun plv-devers-fiche:faire (valeurs)
  (if (plv-fiche-fichier valeurs "fichier")
    (plv-devers-fichier (plv-fiche-profil valeurs) (plv-fiche-fichier valeurs "fichier"))
    (plv-devers (plv-fiche-profil valeurs) (plv-devers-fiche:nombres (plv-cle "devers" valeurs)))))

(plv-declarer-fiche "PLV-DEVERS" "Dévers" "Attacher" 'plv-devers-fiche:champs 'plv-devers-fiche:regarder 'plv-devers-fiche:faire)
