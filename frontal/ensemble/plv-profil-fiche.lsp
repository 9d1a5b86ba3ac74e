;; The forms of PLV-PROFIL and PLV-CHOISIR: a profile as a whole.

;; operation, the fields that it has
(setq plv-profil-fiche:operations '(("Renommer" "numero") ("Copier" "numero" "place") ("Déplacer" "place") ("Supprimer")))

(defun plv-profil-fiche:champs ()
  (plv-champs-avec-profil
    (list
      (list "operation" "Profil entier" "mot" "Renommer" (mapcar 'car plv-profil-fiche:operations) T)
      (plv-champ-du-dessin "numero" "Nouveau numéro" (itoa (plv-identifiant-libre)))
      '("place" "Nouveau point d'insertion" "point" "" nil))))

(defun plv-profil-fiche:a-champ-p (valeurs cle) (member cle (cdr (assoc (plv-cle "operation" valeurs) plv-profil-fiche:operations))))

(defun plv-profil-fiche:fautes (profil valeurs)
  (append
    (if (plv-refus-profil profil) (list (list "profil" (plv-refus-profil profil))))
    (if (and (plv-profil-fiche:a-champ-p valeurs "numero") (plv-entier:refus-numero (plv-cle "numero" valeurs)))
      (list (list "numero" (plv-entier:refus-numero (plv-cle "numero" valeurs)))))
    (if (and (plv-profil-fiche:a-champ-p valeurs "place") (not (plv-fiche-point valeurs "place"))) '(("place" "un point du dessin est attendu")))))

(defun plv-profil-fiche:dire (profil)
  "What a profile is, in lines."
  (list
    (strcat "Profil " (plv-numero-profil profil) ": " (plv-reel (plv-longueur-profil profil) 2) " m depuis la station " (plv-reel (plv-premiere-station profil) 2)
            ", " (plv-compte (length (plv-points-tn profil)) "point") ".")
    (strcat "Plans: " (plv-plans-en-texte profil) ".")
    (strcat "Lignes: " (if (plv-genres-du-projet profil) (plv-joindre (plv-genres-du-projet profil) ", ") "aucune") ".")))

(defun plv-profil-fiche:regarder (valeurs / profil fautes)
  (setq profil (plv-fiche-profil valeurs) fautes (plv-profil-fiche:fautes profil valeurs))
  (plv-regard fautes
    (if (not (assoc "profil" fautes)) (list (plv-image-profil profil (plv-traits-profil profil))))
    (if (not (assoc "profil" fautes))
      (append (plv-profil-fiche:dire profil)
        (if (member (plv-cle "operation" valeurs) '("Copier" "Supprimer"))
          (list (strcat (plv-compte (length (plv-ensemble profil)) "objet") " en tout.")))))
    (vl-remove-if '(lambda (cle) (plv-profil-fiche:a-champ-p valeurs cle)) '("numero" "place"))
    nil))

(defun plv-profil-fiche:faire (valeurs / profil operation numero place)
  (setq profil (plv-fiche-profil valeurs) operation (plv-cle "operation" valeurs) numero (plv-cle "numero" valeurs)
        place (plv-fiche-point valeurs "place"))
  (cond
    ((= operation "Renommer") (plv-renommer-profil profil numero))
    ((= operation "Copier") (plv-copier-entier profil numero place))
    ((= operation "Déplacer") (plv-deplacer-entier profil place))
    (T (plv-supprimer-profil profil))))

(plv-declarer-fiche "PLV-PROFIL" "Profil entier" "Appliquer" 'plv-profil-fiche:champs 'plv-profil-fiche:regarder 'plv-profil-fiche:faire)

;; --- the current profile

(defun plv-choisir-fiche:champs () (plv-champs-avec-profil nil))

(defun plv-choisir-fiche:regarder (valeurs / profil)
  (setq profil (plv-fiche-profil valeurs))
  (if (plv-refus-profil profil)
    (plv-regard-fautes (list (list "profil" (plv-refus-profil profil))))
    (plv-regard nil (list (plv-image-profil profil (plv-traits-profil profil))) (plv-profil-fiche:dire profil) nil nil)))

(defun plv-choisir-fiche:faire (valeurs) (plv-choix-profil (plv-fiche-profil valeurs)))

(plv-declarer-fiche "PLV-CHOISIR" "Profil courant" "Choisir" 'plv-choisir-fiche:champs 'plv-choisir-fiche:regarder 'plv-choisir-fiche:faire)
