;; The form of PLV-ETAT: what is true and what isn't, made anew by its button.

(defun plv-etat-fiche:champs (/ numeros)
  (if (setq numeros (mapcar 'plv-numero-profil (plv-profils)))
    (list (list "profils" "Profils" "mots" numeros numeros))
    (plv-erreur (plv-refus-sans-profil))))

(defun plv-etat-fiche:profils (valeurs) (mapcar 'plv-profil-de-numero (plv-cle "profils" valeurs)))

(defun plv-etat-fiche:dire (profil / lignes)
  (setq lignes (plv-etats-en-lignes profil (plv-etats profil)))
  (cons (strcat "Profil " (plv-numero-profil profil) (if lignes "" ": rien n'en est tiré"))
        (mapcar '(lambda (l) (strcat "  " l)) lignes)))

(defun plv-etat-fiche:regarder (valeurs)
  (plv-regard nil nil
    (append (apply 'append (mapcar 'plv-etat-fiche:dire (plv-etat-fiche:profils valeurs)))
            (list (cond ((plv-perimees (plv-etat-fiche:profils valeurs))) ("Tout est à jour."))))
    nil nil))

(defun plv-etat-fiche:faire (valeurs) (plv-actualiser (plv-etat-fiche:profils valeurs)))

(plv-declarer-fiche "PLV-ETAT" "Ce qui n'est pas à jour" "Mettre à jour" 'plv-etat-fiche:champs 'plv-etat-fiche:regarder 'plv-etat-fiche:faire)
