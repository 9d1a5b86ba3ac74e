;; The form of PLV-VARIANTES: the variants of a profile's lines drawn together with what each of them is.

(defun plv-variantes-fiche:champs () (plv-champs-avec-profil '(("variante" "Variante à prendre" "mot" "" nil))))

(defun plv-variantes-fiche:nom (variante)
  (strcat (itoa (plv-variante-numero variante)) " " (plv-variante-genre variante) " (" (plv-variante-methode variante) ")"))

(defun plv-variantes-fiche:choisie (valeurs variantes)
  (car (vl-member-if '(lambda (v) (= (plv-variantes-fiche:nom v) (plv-cle "variante" valeurs))) variantes)))

(defun plv-variantes-fiche:en-mots (profil variante / m)
  (setq m (plv-variantes:mesures profil (plv-variante-suites profil variante)))
  (strcat (plv-variantes-fiche:nom variante) ": " (plv-compte (car m) "sommet") ", " (plv-reel (cadr m) 2) " m, pentes "
          (plv-variantes:etendue (caddr m) 2) " %, profondeurs " (plv-variantes:etendue (cadddr m) 2) " m, fouille " (plv-reel (nth 4 m) 2) " m2"
          (if (= (plv-variante-cout variante) "") "" (strcat ", coût " (plv-variante-cout variante)))))

(defun plv-variantes-fiche:traits (profil variante choisie)
  (plv-image-traits (if (eq variante choisie) "projet" "fenetre") (plv-variante-suites profil variante)))

(defun plv-variantes-fiche:regarder (valeurs / profil variantes choisie)
  (setq profil (plv-fiche-profil valeurs) variantes (plv-variantes profil)
        choisie (cond ((plv-variantes-fiche:choisie valeurs variantes)) ((car variantes))))
  (plv-regard
    (if (not variantes) '(("profil" "ce profil n'a pas de variante; PLV-OPTIMAL en garde")))
    (list (plv-image-profil profil
            (append (plv-traits-profil profil) (apply 'append (mapcar '(lambda (v) (plv-variantes-fiche:traits profil v choisie)) variantes)))))
    (mapcar '(lambda (v) (plv-variantes-fiche:en-mots profil v)) variantes)
    nil
    (list (cons "variante" (mapcar 'plv-variantes-fiche:nom variantes)))))

(defun plv-variantes-fiche:faire (valeurs / profil)
  (setq profil (plv-fiche-profil valeurs))
  (plv-variante-choisir profil (plv-variantes-fiche:choisie valeurs (plv-variantes profil))))

(plv-declarer-fiche "PLV-VARIANTES" "Variantes" "Prendre pour ligne" 'plv-variantes-fiche:champs 'plv-variantes-fiche:regarder 'plv-variantes-fiche:faire)
