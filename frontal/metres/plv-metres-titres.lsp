;; The titles of a workbook's sheets. The module gives a sheet the number of its profile, and leaves out the sheet of a number that
;; can't be a title: while it writes, such a profile has a number that can be one, and the user is told.
;; Shared in the room: plv-metres:*

(setq plv-titres:longueur 31
      plv-titres:interdits "[]:*?/\\")

(defun plv-titres:permis (numero / i)
  "A number with what no title may hold replaced, cut to the longest title."
  (setq i 0)
  (repeat (strlen plv-titres:interdits)
    (setq i (1+ i) numero (plv-remplacer numero (substr plv-titres:interdits i 1) "_")))
  (setq numero (vl-string-trim "' " (substr numero 1 plv-titres:longueur)))
  (if (= numero "") "Profil" numero))

(defun plv-titres:libre (numero pris / titre n suffixe)
  "A title that none of the others is, whatever their case."
  (setq titre (plv-titres:permis numero) n 1)
  (while (member (strcase titre) pris)
    (setq n (1+ n)
          suffixe (strcat " (" (itoa n) ")")
          titre (strcat (substr (plv-titres:permis numero) 1 (- plv-titres:longueur (strlen suffixe))) suffixe)))
  titre)

(defun plv-titres:titres (numeros / pris titre titres)
  "Numbers that are titles already come first, so that a made one doesn't take theirs."
  (foreach n numeros (if (= n (plv-titres:permis n)) (setq pris (cons (strcase n) pris))))
  (foreach n numeros
    (setq titre (if (and (= n (plv-titres:permis n)) (not (member (strcase n) (mapcar 'strcase titres)))) n (plv-titres:libre n pris))
          titres (cons titre titres) pris (cons (strcase titre) pris)))
  (reverse titres))

(defun plv-titres:numeroter (profil numero / groupes)
  (setq groupes (plv-attribut-profil profil "NUMPL"))
  (entmod (subst (cons 1 numero) (assoc 1 groupes) groupes)))

(defun plv-titres:dire (numero titre)
  (plv-dire (strcat "La feuille du profil " (if (= numero "") "sans numéro" numero) " s'appelle " titre ".")))

(defun plv-metres:avec-titres (titres:profils titres:fonction / titres:numeros titres:titres titres:fait)
  "Runs a function while every profile has a number that can be a title, each its own."
  (setq titres:numeros (mapcar 'plv-numero-profil titres:profils) titres:titres (plv-titres:titres titres:numeros))
  (mapcar '(lambda (p n titre) (if (/= n titre) (progn (plv-titres:dire n titre) (plv-titres:numeroter p titre))))
          titres:profils titres:numeros titres:titres)
  (setq titres:fait (vl-catch-all-apply titres:fonction '()))
  (mapcar '(lambda (p n titre) (if (/= n titre) (plv-titres:numeroter p n))) titres:profils titres:numeros titres:titres)
  (if (vl-catch-all-error-p titres:fait) (plv-erreur (vl-catch-all-error-message titres:fait)) titres:fait))
