;; What some layouts don't show: an entity of the drawing stands on a copy of its layer that is frozen in their viewports. A viewport hides by layers only,
;; in every program alike; an area over it that blanks would take what is beneath, and is black to some plot tables.

(defun plv-caches:rangs (entite listes / rang rangs)
  "The numbers, from 1, of the lists that have an entity."
  (setq rang 0)
  (foreach liste listes
    (setq rang (1+ rang))
    (if (member entite liste) (setq rangs (cons rang rangs))))
  (reverse rangs))

(defun plv-caches:deplacer (entite calque / groupes)
  (setq groupes (entget entite))
  (entmod (subst (cons 8 calque) (assoc 8 groupes) groupes))
  calque)

(defun plv-cacher (listes / copies)
  "For each sheet the entities that it doesn't show: gives each of them its layer; for each sheet the layers to be frozen in it."
  (setq copies
    (mapcar '(lambda (e / rangs) (setq rangs (plv-caches:rangs e listes)) (cons (plv-caches:deplacer e (plv-copie-de-calque (plv-cle 8 (entget e)) rangs)) rangs))
      (plv-uniques (apply 'append listes))))
  (mapcar '(lambda (rang) (plv-uniques (mapcar 'car (vl-remove-if-not '(lambda (c) (member rang (cdr c))) copies))))
    (plv-caches:suite (length listes))))

(defun plv-caches:suite (n / suite) "1 to n." (repeat n (setq suite (cons n suite) n (1- n))) suite)

(defun plv-caches:rendre (copie textes / original)
  "Gives texts of a copy, (name-it-was-made-with name-it-has), their layer back, and takes the copy away; one whose layer is gone stays."
  (setq original (plv-calque (plv-original-de-copie (car copie))))
  (if (tblsearch "LAYER" original)
    (progn
      (foreach e textes
        (if (= (strcase (plv-cle 8 (entget e))) (strcase (cadr copie))) (plv-caches:deplacer e original)))
      (entdel (tblobjname "LAYER" (cadr copie))))))

(defun plv-montrer-caches (/ copies textes)
  "Gives back their layers to all that an earlier call has hidden."
  (setq copies (vl-remove-if-not '(lambda (c) (plv-original-de-copie (car c))) (plv-calques-du-dessin))
        textes (if copies (plv-entites-du-jeu (ssget "X" '((0 . "TEXT"))))))
  (foreach copie copies (plv-caches:rendre copie textes)))
