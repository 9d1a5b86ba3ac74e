;; Faults in the records of profiles and matrices: missing keys, handles that name nothing, chains that break or come
;; round to themselves, matrices whose parts are gone. kavel --audit calls plv-audit and counts what it gives.
;; Codes are stable: P01 to P04 see plv-chaines, P05 natural ground, P06 matrix record, P07 list of project elements, P08 list
;; of static elements.

;; --- each check gives a list of findings, in the order of the records

(defun plv-audit:dire (profil constat genre)
  (plv-dire (strcat (plv-constat-code constat) " " genre " " (plv-constat-handle constat) " profil "
                    (plv-numero-profil profil) ": " (plv-constat-texte constat))))

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
  (append (vl-remove nil (mapcar '(lambda (cle) (plv-nommee profil cle)) (plv-cles-genres))) (list profil)))

(defun plv-constats (profil)
  "All findings on a profile."
  (append
    (plv-audit:cles profil)
    (plv-fautes-profil profil)
    (plv-audit:terrain profil)
    (apply 'append (mapcar 'plv-audit:support (plv-audit:supports profil)))
    (apply 'append (mapcar '(lambda (reference) (plv-audit:matrice profil reference)) (plv-references-tables profil)))))

(defun plv-audit:dire-tous (genre constats)
  "constats: (profile finding ...) for each profile."
  (foreach c constats (foreach constat (cdr c) (plv-audit:dire (car c) constat genre)))
  (apply '+ (cons 0 (mapcar '(lambda (c) (length (cdr c))) constats))))

(defun plv-audit:tous () (mapcar '(lambda (profil) (cons profil (plv-constats profil))) (plv-profils)))

(defun plv-audit (/ nombre)
  "Prints the findings on all profiles and gives their number."
  (setq nombre (plv-audit:dire-tous "erreur" (plv-audit:tous)))
  (if (> nombre 0) (terpri))
  nombre)

(defun plv-audit-reparer (/ avant)
  "Mends what can be mended, prints it, then the findings that are left, and gives the number of these."
  (setq avant (plv-audit:tous))
  (foreach c avant
    (plv-reparer-profil (car c))
    (plv-oublier-tables (car c)))
  (plv-audit:dire-tous "réparé"
    (mapcar
      '(lambda (c / reste)
         (setq reste (plv-constats (car c)))
         (cons (car c) (vl-remove-if '(lambda (constat) (member constat reste)) (cdr c))))
      avant))
  (plv-audit))
