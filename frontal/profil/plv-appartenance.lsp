;; What belongs to which profile. A profile that is copied by its block alone has the keys and records of the original, which name the
;; original's planes, supports, tables and hatches: they belong to the one that was made first. What the copy can do without it
;; lets go of; without planes and supports of its own it is damaged (P09), and the repair makes them.

(defun plv-appartenance:rang (profil / handle)
  "Handles grow with their making: longer ones are later, equally long ones go by the alphabet."
  (setq handle (plv-handle profil))
  (list (strlen handle) handle))

(defun plv-appartenance:avant-p (a b)
  (setq a (plv-appartenance:rang a) b (plv-appartenance:rang b))
  (or (< (car a) (car b)) (and (= (car a) (car b)) (< (cadr a) (cadr b)))))

(defun plv-appartenance:identifiant (profil) (plv-cle "ID" (plv-paires profil)))

(defun plv-aines (profil / id)
  "The profiles that were made before it and have its identifier, as a copy has its original's; nearly always none."
  (setq id (plv-appartenance:identifiant profil))
  (vl-remove-if-not
    '(lambda (p) (and (not (eq p profil)) (equal (plv-appartenance:identifiant p) id) (plv-profil-p p) (plv-appartenance:avant-p p profil)))
    (plv-references)))

;; --- planes and supports

(defun plv-appartenance:partagees (profil aine)
  "The keys under which two profiles name the same entity."
  (vl-remove-if-not
    '(lambda (cle / entite) (if (setq entite (plv-nommee profil cle)) (eq entite (plv-nommee aine cle))))
    (cons "PRPC" (plv-cles-genres))))

(defun plv-partage (profil)
  "(older-profile key ...) for the first profile that has planes or supports together with it; nil for none."
  (vl-some
    '(lambda (aine / cles) (if (setq cles (plv-appartenance:partagees profil aine)) (cons aine cles)))
    (plv-aines profil)))

;; --- records

(defun plv-enregistrements (entite / trouve)
  "The names of the records in the extension dictionary of an entity."
  (if (setq trouve (member '(102 . "{ACAD_XDICTIONARY") (entget entite))) (plv-cles 3 (entget (cdr (cadr trouve))))))

(defun plv-appartenance:d-autrui (groupes autres)
  "The entities of a record that others' records of the name hold."
  (vl-remove-if-not '(lambda (g) (and (= (car g) 330) (member g autres))) groupes))

(defun plv-appartenance:lacher (profil cle aines / groupes miens autres)
  (setq groupes (plv-enregistrement profil cle)
        autres (apply 'append (mapcar '(lambda (p) (plv-enregistrement p cle)) aines))
        miens (vl-remove-if '(lambda (g) (member g (plv-appartenance:d-autrui groupes autres))) groupes))
  (if (< (length miens) (length groupes)) (plv-ecrire-enregistrement profil cle miens)))

(defun plv-entites-propres (profil cle / siennes)
  "The entities that a record of the profile names and no older profile's does."
  (if (setq siennes (plv-entites-enregistrees profil cle))
    (progn
      (setq cle (apply 'append (mapcar '(lambda (aine) (plv-entites-enregistrees aine cle)) (plv-aines profil))))
      (vl-remove-if '(lambda (e) (member e cle)) siennes))))

(defun plv-lacher-autrui (profil / aines)
  "Takes out of the profile's records what belongs to another profile."
  (if (setq aines (plv-aines profil))
    (foreach cle (plv-enregistrements profil) (plv-appartenance:lacher profil cle aines))))

(defun plv-lacher-morts (profil / groupes vivants)
  "Takes erased entities out of the front-end's own records."
  (foreach cle (vl-remove-if-not '(lambda (c) (wcmatch c "PLV_*")) (plv-enregistrements profil))
    (setq groupes (plv-enregistrement profil cle)
          vivants (vl-remove-if '(lambda (g) (and (= (car g) 330) (not (plv-existe (cdr g))))) groupes))
    (if (< (length vivants) (length groupes)) (plv-ecrire-enregistrement profil cle vivants))))
