;; Faults in the records of profiles and matrices: missing keys, handles that name nothing, chains that break or come
;; round to themselves, matrices whose parts are gone. kavel --audit calls plv-audit and counts what it gives.
;; Codes are stable: P01 key missing, P02 dead handle, P03 chain in a circle, P04 section of a plane without numbers,
;; P05 natural ground, P06 matrix record, P07 list of project elements, P08 list of static elements.

;; --- a finding is (code entity text); each check gives a list of them, in the order of the records

(defun plv-constat (code entite texte) (list (list code entite texte)))

(defun plv-audit:dire (profil constat)
  (plv-dire (strcat (car constat) " erreur " (plv-handle (cadr constat)) " profil " (plv-numero-profil profil) ": " (caddr constat))))

;; --- keys as they stand in the extended data: the module would follow a dead handle or a circle for ever

(defun plv-audit:donnees (entite) (plv-audit:paires (plv-donnees entite plv-app-cles)))

(defun plv-audit:paires (groupes / paires)
  "(key group . value) of each pair."
  (while (cdr groupes)
    (setq paires (cons (cons (strcase (vl-princ-to-string (cdar groupes))) (cadr groupes)) paires)
          groupes (cddr groupes)))
  (reverse paires))

(defun plv-audit:nommee (entite cle / valeur)
  "The entity that a handle key names; nil without the key and for a dead handle."
  (if (and (setq valeur (plv-cle cle (plv-audit:donnees entite))) (= (car valeur) 1005) (plv-existe (handent (cdr valeur))))
    (handent (cdr valeur))))

(defun plv-audit:lien (entite cle / valeur)
  "The findings on a handle key."
  (setq valeur (plv-cle cle (plv-audit:donnees entite)))
  (cond
    ((not valeur) nil)
    ((/= (car valeur) 1005) (plv-constat "P02" entite (strcat cle " n'est pas un identifiant")))
    ((not (plv-existe (handent (cdr valeur))))
     (plv-constat "P02" entite (strcat cle " nomme " (cdr valeur) ", qui n'existe plus")))))

(defun plv-audit:maillons (tete cle / vus)
  "The entities of a chain, each once."
  (while (and tete (not (member tete vus)))
    (setq vus (cons tete vus) tete (plv-audit:nommee tete cle)))
  (reverse vus))

(defun plv-audit:chaine (maillons cle / apres)
  "The findings on the links of a chain."
  (setq apres (plv-audit:nommee (plv-dernier maillons) cle))
  (append
    (apply 'append (mapcar '(lambda (m) (plv-audit:lien m cle)) maillons))
    (if apres (plv-constat "P03" apres (strcat "la chaîne " cle " revient sur elle-même")))))

;; --- the parts of a profile

(defun plv-audit:plan (plan / donnees lignes)
  (setq donnees (plv-audit:donnees plan)
        lignes (plv-audit:maillons (plv-audit:nommee plan "PRLI") "NEXTLI"))
  (append
    (if (not (and (plv-cle "DISTANCE" donnees) (plv-cle "PC" donnees)))
      (plv-constat "P04" plan "plan de comparaison sans DISTANCE ou sans PC"))
    (plv-audit:lien plan "PRLI")
    (if lignes (plv-audit:chaine lignes "NEXTLI"))))

(defun plv-audit:plans (profil / plans)
  (setq plans (plv-audit:maillons (plv-audit:nommee profil "PRPC") "NEXT-PC"))
  (append
    (plv-audit:lien profil "PRPC")
    (if plans (plv-audit:chaine plans "NEXT-PC"))
    (apply 'append (mapcar 'plv-audit:plan plans))))

(defun plv-audit:cles (profil / donnees)
  (setq donnees (plv-audit:donnees profil))
  (append
    (apply 'append
      (mapcar '(lambda (cle) (if (not (assoc cle donnees)) (plv-constat "P01" profil (strcat "la clé " cle " manque"))))
              '("ECHV" "TTXT" "ID" "PRPC")))
    (apply 'append (mapcar '(lambda (cle) (plv-audit:lien profil cle)) (plv-cles-genres)))))

(defun plv-audit:terrain (profil)
  ;; Not through the module, which reads the planes first and follows a circle of them for ever.
  (if (< (length (plv-donnees profil plv-app-terrain)) 4)
    (plv-constat "P05" profil "terrain naturel de moins de deux points")))

(defun plv-audit:matrice (profil reference)
  (cond
    ((not (plv-existe reference)) (plv-constat "P06" profil "une matrice enregistrée n'est plus dans le dessin"))
    ((not (plv-matrice-nom reference))
     (plv-constat "P06" reference "le bloc d'une matrice n'a pas d'enregistrement INFO_MATRICE"))))

(setq plv-audit:courbes "LINE,*POLYLINE,SPLINE,ARC,CIRCLE,ELLIPSE,RAY,XLINE,HELIX,LEADER")

(defun plv-audit:element (support g)
  (cond
    ((/= (car g) 330)
     (plv-constat "P07" support (strcat "ELEMS_PROJET_KAVEL a un groupe " (itoa (car g)) " au lieu de 330")))
    ;; Erased elements drop out at the next writing: only what lives and is no curve is a fault.
    ((and (plv-existe (cdr g)) (not (wcmatch (plv-type (cdr g)) plv-audit:courbes)))
     (plv-constat "P07" support (strcat "ELEMS_PROJET_KAVEL nomme une entité " (plv-type (cdr g)))))))

(defun plv-audit:support (support)
  "The findings on what is attached to a kind of line, or to the profile itself."
  (append
    (apply 'append (mapcar '(lambda (g) (plv-audit:element support g)) (plv-enregistrement-elements support)))
    (if (not (plv-statiques-lisibles support))
      (plv-constat "P08" support "ELEMS_STATIQUES_KAVEL est mal formé"))))

(defun plv-audit:supports (profil)
  (append (vl-remove nil (mapcar '(lambda (cle) (plv-audit:nommee profil cle)) (plv-cles-genres))) (list profil)))

(defun plv-constats (profil)
  "All findings on a profile."
  (append
    (plv-audit:cles profil)
    (plv-audit:plans profil)
    (plv-audit:terrain profil)
    (apply 'append (mapcar 'plv-audit:support (plv-audit:supports profil)))
    (apply 'append (mapcar '(lambda (reference) (plv-audit:matrice profil reference)) (plv-references-tables profil)))))

(defun plv-audit (/ constats nombre)
  "Prints the findings on all profiles and gives their number."
  (setq nombre 0)
  (foreach profil (plv-profils)
    (setq constats (plv-constats profil)
          nombre (+ nombre (length constats)))
    (foreach c constats (plv-audit:dire profil c)))
  (if (> nombre 0) (terpri))
  nombre)
