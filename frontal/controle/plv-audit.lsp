;; Faults in the records of profiles and matrices: missing keys, handles that name nothing, chains that break or come
;; round to themselves, matrices whose parts are gone. kavel --audit calls plv-audit and counts what it gives.
;; Codes are stable: P01 to P04 and P09 see plv-chaines, P05 natural ground, P06 matrix record, P07 list of project elements, P08 list
;; of static elements, P10 a profile that lost its number, P11 one that can't be read further, nor mended, P12 further grounds that
;; aren't drawn.

;; --- each check gives a list of findings, in the order of the records

(defun plv-audit:dire (profil constat genre)
  (plv-dire (strcat (plv-constat-code constat) " " genre " " (plv-constat-handle constat) " profil "
                    (cond ((plv-numero-profil profil)) ("sans numéro")) ": " (plv-constat-texte constat))))

(defun plv-audit:cles (profil / paires)
  "The keys that a profile of another program may go without, but that it is better off with."
  (setq paires (plv-paires profil))
  (apply 'append
    (mapcar '(lambda (cle) (if (not (assoc cle paires)) (plv-constat "P01" profil (strcat "la clé " cle " manque"))))
            '("ECHV" "TTXT" "ID"))))

(defun plv-audit:terrain (profil)
  ;; Not through the module, which reads the planes first and follows a circle of them for ever.
  (if (< (length (plv-donnees profil plv-app-terrain)) 4)
    (plv-constat "P05" profil "terrain naturel de moins de deux points")))

(defun plv-audit:autres-terrains (profil)
  (apply 'append
    (mapcar '(lambda (terrain) (plv-constat "P12" profil (strcat "le terrain " (plv-terrain-nom terrain) " n'est plus dessiné")))
      (plv-terrains-effaces profil))))

(defun plv-audit:matrice (profil reference)
  (cond
    ((not (plv-existe reference)) (plv-constat "P06" profil "une matrice enregistrée n'est plus dans le dessin"))
    ((not (plv-matrice-nom reference))
     (plv-constat "P06" reference "le bloc d'une matrice n'a pas d'enregistrement INFO_MATRICE"))))

(defun plv-audit:element (support g)
  (cond
    ((/= (car g) 330)
     (plv-constat "P07" support (strcat "ELEMS_PROJET_KAVEL a un groupe " (itoa (car g)) " au lieu de 330")))
    ;; Erased elements drop out at the next writing: only what lives and is no curve is a fault.
    ((and (plv-existe (cdr g)) (not (plv-courbe-p (cdr g))))
     (plv-constat "P07" support (strcat "ELEMS_PROJET_KAVEL nomme une entité " (plv-nom-de-type (plv-type (cdr g))))))))

(defun plv-audit:support (support)
  "The findings on what is attached to a kind of line, or to the profile itself."
  (append
    (apply 'append (mapcar '(lambda (g) (plv-audit:element support g)) (plv-enregistrement-elements support)))
    (if (not (plv-statiques-lisibles support))
      (plv-constat "P08" support "ELEMS_STATIQUES_KAVEL est mal formé"))))

(defun plv-audit:supports (profil)
  (append (vl-remove nil (mapcar '(lambda (cle) (plv-nommee profil cle)) (plv-cles-genres))) (list profil)))

(defun plv-audit:essayer (fonction profil / resultat)
  "What a check gives; what keeps it from its end is a finding, too."
  (setq resultat (vl-catch-all-apply fonction (list profil)))
  (if (vl-catch-all-error-p resultat)
    (plv-constat "P11" profil (strcat "illisible: " (vl-catch-all-error-message resultat)))
    resultat))

(defun plv-constats (profil) "All findings on a profile." (plv-audit:essayer 'plv-audit:constats profil))

(defun plv-audit:constats (profil)
  (append
    (plv-audit:cles profil)
    (plv-fautes-profil profil)
    (plv-audit:terrain profil)
    (plv-audit:autres-terrains profil)
    (apply 'append (mapcar 'plv-audit:support (plv-audit:supports profil)))
    (apply 'append (mapcar '(lambda (reference) (plv-audit:matrice profil reference)) (plv-references-tables profil)))))

(defun plv-audit:dire-tous (genre constats / nombre)
  "constats: (profile finding ...) for each profile. Their number."
  (foreach c constats (foreach constat (cdr c) (plv-audit:dire (car c) constat genre)))
  (if (> (setq nombre (apply '+ (cons 0 (mapcar '(lambda (c) (length (cdr c))) constats)))) 0) (terpri))
  nombre)

(defun plv-audit:sans-numero (reference)
  (plv-constat "P10" reference "le bloc a perdu l'attribut NUMPL: il est à insérer à nouveau avec cet attribut"))

(defun plv-audit:tous ()
  "(profile finding ...) for each profile, those that lost their number last."
  (append (mapcar '(lambda (profil) (cons profil (plv-constats profil))) (plv-profils))
          (mapcar '(lambda (reference) (cons reference (plv-audit:sans-numero reference))) (plv-profils-sans-numero))))

(defun plv-audit ()
  "Prints the findings on all profiles and gives their number."
  (plv-audit:dire-tous "erreur" (plv-audit:tous)))

(defun plv-audit:reparer (/ avant apres)
  "Mends what can be mended, prints it and gives the number of findings that are gone."
  (setq avant (plv-audit:tous))
  (foreach profil (plv-profils)
    (foreach constat (plv-audit:essayer '(lambda (p) (plv-reparer-profil p) (plv-oublier-tables p) (if (plv-terrains-effaces p) (plv-tracer-terrains p)) nil) profil)
      (plv-audit:dire profil constat "non réparé")))
  (setq apres (plv-audit:tous))
  (plv-audit:dire-tous "réparé"
    (mapcar '(lambda (c) (cons (car c) (vl-remove-if '(lambda (constat) (member constat (plv-cle (car c) apres))) (cdr c)))) avant)))

(defun plv-audit-reparer ()
  "Mends what can be mended, prints it, then the findings that are left, and gives the number of these."
  (plv-audit:reparer)
  (plv-audit))

(defun plv-audit-bilan (reparer / repares)
  "What the program counts: (findings-left findings-mended)."
  (setq repares (if reparer (plv-audit:reparer) 0))
  (list (plv-audit) repares))
