;; Faults in the records of profiles and matrices: missing keys, handles that name nothing, chains that break or come
;; round to themselves, matrices whose parts are gone. kavel --audit calls plv-audit and counts what it gives.
;; Codes are stable: P01 key missing, P02 dead handle, P03 chain in a circle, P04 section without numbers,
;; P05 natural ground, P06 matrix record, P07 list of project elements, P08 list of static elements.

(defun plv-audit:dire (code entite texte)
  (plv-dire (strcat code " erreur " (plv-handle entite) " profil " (plv-numero-profil plv-audit:profil) ": " texte))
  (setq plv-audit:nombre (1+ plv-audit:nombre)))

(defun plv-audit:donnees (entite)
  "The pairs of PLV2_DATA as (key group . value), nil when there are none."
  (plv-audit:paires (cdadr (assoc -3 (entget entite '("PLV2_DATA"))))))

(defun plv-audit:paires (groupes / paires)
  (while (cdr groupes)
    (setq paires (cons (cons (strcase (vl-princ-to-string (cdar groupes))) (cadr groupes)) paires)
          groupes (cddr groupes)))
  (reverse paires))

(defun plv-audit:suivant (entite cle / valeur suivante)
  "The entity that a handle key names; a dead handle is a finding and gives nil."
  (if (setq valeur (plv-cle cle (plv-audit:donnees entite)))
    (cond
      ((/= (car valeur) 1005) (plv-audit:dire "P02" entite (strcat cle " n'est pas un identifiant")) nil)
      ((and (setq suivante (handent (cdr valeur))) (entget suivante)) suivante)
      (T (plv-audit:dire "P02" entite (strcat cle " nomme " (cdr valeur) ", qui n'existe plus")) nil))))

(defun plv-audit:chaine (tete cle / vus)
  "The entities of a chain; a circle is a finding and ends it."
  (while (and tete (not (member tete vus)))
    (setq vus (cons tete vus) tete (plv-audit:suivant tete cle)))
  (if tete (plv-audit:dire "P03" tete (strcat "la chaine " cle " revient sur elle-meme")))
  (reverse vus))

(defun plv-audit:plan (plan / donnees premiere)
  (setq donnees (plv-audit:donnees plan))
  (if (not (and (plv-cle "DISTANCE" donnees) (plv-cle "PC" donnees)))
    (plv-audit:dire "P04" plan "plan de comparaison sans DISTANCE ou sans PC"))
  (if (setq premiere (plv-audit:suivant plan "PRLI")) (plv-audit:chaine premiere "NEXTLI")))

(defun plv-audit:matrices (profil / reference)
  (foreach reference (plv-tables:references profil)
    (cond
      ((not (and reference (entget reference)))
       (plv-audit:dire "P06" profil "une matrice enregistree n'est plus dans le dessin"))
      ((not (plv-cle 300 (dictsearch (plv-dictionnaire reference) "INFO_MATRICE")))
       (plv-audit:dire "P06" reference "le bloc d'une matrice n'a pas d'enregistrement INFO_MATRICE")))))


(defun plv-audit:nomme (donnees cle / valeur)
  (if (and (setq valeur (plv-cle cle donnees)) (= (car valeur) 1005)) (handent (cdr valeur))))

(defun plv-audit:elements (support)
  (if (and support (entget support))
    (progn
      (foreach g (plv-enregistrement support "ELEMS_PROJET_KAVEL")
        (cond
          ((/= (car g) 330)
           (plv-audit:dire "P07" support (strcat "ELEMS_PROJET_KAVEL a un groupe " (itoa (car g)) " au lieu de 330")))
          ;; Erased elements drop out at the next writing: only what lives and is no curve is a fault.
          ((and (cdr g) (entget (cdr g)) (not (wcmatch (plv-cle 0 (entget (cdr g))) "LINE,*POLYLINE,SPLINE,ARC,CIRCLE,ELLIPSE,RAY,XLINE,HELIX,LEADER")))
           (plv-audit:dire "P07" support (strcat "ELEMS_PROJET_KAVEL nomme une entite " (plv-cle 0 (entget (cdr g))))))))
      (if (not (plv-statiques-lisibles support))
        (plv-audit:dire "P08" support "ELEMS_STATIQUES_KAVEL est mal forme")))))

(defun plv-audit:profil-entier (plv-audit:profil / donnees)
  (setq donnees (plv-audit:donnees plv-audit:profil))
  (foreach cle '("ECHV" "TTXT" "ID" "PRPC")
    (if (not (assoc cle donnees)) (plv-audit:dire "P01" plv-audit:profil (strcat "la cle " cle " manque"))))
  (foreach cle plv-profil:genres (plv-audit:suivant plv-audit:profil cle))
  (foreach plan (plv-audit:chaine (plv-audit:suivant plv-audit:profil "PRPC") "NEXT-PC") (plv-audit:plan plan))
  ;; Not through the module, which reads the planes first and follows a circle of them for ever.
  (if (< (length (cdadr (assoc -3 (entget plv-audit:profil '("KELMONT_PLV2"))))) 4)
    (plv-audit:dire "P05" plv-audit:profil "terrain naturel de moins de deux points"))
  (foreach cle plv-profil:genres (plv-audit:elements (plv-audit:nomme donnees cle)))
  (plv-audit:elements plv-audit:profil)
  (plv-audit:matrices plv-audit:profil))

(defun plv-audit (/ plv-audit:nombre)
  "Prints the findings on all profiles and gives their number."
  (setq plv-audit:nombre 0)
  (foreach profil (plv-profils) (plv-audit:profil-entier profil))
  (if (> plv-audit:nombre 0) (terpri))
  plv-audit:nombre)
