;; Static elements: the module reads a malformed list of them for ever, so what another program left is looked at first.
;; A list is 102 "{" ... 102 "}" around the groups; an element is one around its abscissa and one or two lists.

(setq plv-statiques:cle "ELEMS_STATIQUES_KAVEL")

(defun plv-statiques-du-genre (profil genre / support)
  "The groups of the record of a kind's fixed elements."
  (if (setq support (plv-support profil genre)) (plv-enregistrement support plv-statiques:cle)))

(defun plv-statiques:accolade (g texte) (and g (= (caar g) 102) (= (cdar g) texte)))

(defun plv-statiques:apres-liste (g)
  "What follows the closing brace of a list, nil when there is none."
  (while (and g (not (plv-statiques:accolade g "}"))) (setq g (cdr g)))
  (cdr g))

(defun plv-statiques:apres-groupe (g)
  "What follows a well-formed element, in a list; nil for a malformed one."
  (if (and (plv-statiques:accolade g "{") (= (caadr g) 10) (plv-statiques:accolade (cddr g) "{")
           (setq g (plv-statiques:apres-liste (cdddr g)))
           (or (not (plv-statiques:accolade g "{")) (setq g (plv-statiques:apres-liste (cdr g))))
           (plv-statiques:accolade g "}"))
    (list (cdr g))))

(defun plv-statiques:morts-p (groupes)
  (vl-some '(lambda (g) (and (= (car g) 330) (not (plv-existe (cdr g))))) groupes))

(defun plv-statiques:vivants (g / apres element restes)
  "The well-formed elements of a record without erased entities; one that has none left goes."
  (while (setq apres (plv-statiques:apres-groupe g))
    (setq element (vl-remove-if '(lambda (x) (plv-statiques:morts-p (list x))) (plv-premiers g (- (length g) (length (car apres)))))
          restes (if (assoc 330 element) (append (reverse element) restes) restes)
          g (car apres)))
  (reverse restes))

(defun plv-oublier-fixes-effaces (profil / g)
  "Takes erased entities out of the fixed elements of all kinds, as dimensions that were."
  (foreach genre (plv-genres)
    (if (and (setq g (plv-statiques-du-genre profil genre)) (plv-statiques:morts-p g) (plv-statiques-lisibles (plv-support profil genre)))
      (plv-ecrire-enregistrement (plv-support profil genre) plv-statiques:cle (plv-statiques:vivants g)))))

(defun plv-statiques-lisibles (support / g lisible)
  "T when the module can read the static elements of a support."
  (setq g (plv-enregistrement support plv-statiques:cle) lisible T)
  (while (and g (setq lisible (plv-statiques:apres-groupe g))) (setq g (car lisible)))
  (if lisible T))

(defun plv-statiques-verifies (profil)
  "T when all lists of static elements can be read; nil after a message."
  (cond ((vl-every 'plv-statiques-lisibles
           (vl-remove nil (cons profil (mapcar '(lambda (cle) (plgxd profil cle)) (plv-cles-genres)))))
         T)
        (T (plv-erreur "une liste d'éléments statiques est mal formée: le contrôle du dessin la nomme"))))

(defun plv-reparer-statiques (support / g apres bons)
  "Keeps the elements that are well formed."
  (if (not (plv-statiques-lisibles support))
    (progn
      (setq g (plv-enregistrement support plv-statiques:cle))
      (while g
        (if (setq apres (plv-statiques:apres-groupe g))
          (setq bons (append bons (plv-premiers g (- (length g) (length (car apres))))) g (car apres))
          (setq g (cdr g))))
      (plv-ecrire-enregistrement support plv-statiques:cle bons))))
