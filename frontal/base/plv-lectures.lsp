;; Readings that cost time and that many ask for: ground points, lines, what cells should say. While a function runs that changes
;; nothing of them, each is read once.

(setq plv-lectures:faites nil plv-lectures:garder nil)

(defun plv-avec-lectures (fonction / resultat dedans)
  "Runs a function that changes nothing, while readings are kept."
  (setq dedans plv-lectures:garder plv-lectures:garder T
        resultat (vl-catch-all-apply fonction '()))
  (if (not dedans) (setq plv-lectures:garder nil plv-lectures:faites nil))
  (if (vl-catch-all-error-p resultat) (plv-erreur (vl-catch-all-error-message resultat)) resultat))

(defun plv-oublier-lectures () "After a change of what was read." (setq plv-lectures:faites nil))

(defun plv-sans-lectures (fonction / dedans resultat)
  "Runs a function that changes what was read."
  (setq dedans plv-lectures:garder plv-lectures:garder nil)
  (plv-oublier-lectures)
  (setq resultat (apply fonction '()) plv-lectures:garder dedans)
  resultat)

(defun plv-lire-une-fois (lire:cle lire:fonction / lire:valeur)
  "What a function reads; lire:cle is a list that names it, the reader's name first."
  (cond
    ((not plv-lectures:garder) (apply lire:fonction '()))
    ((setq lire:valeur (assoc lire:cle plv-lectures:faites)) (cdr lire:valeur))
    (T
     (setq lire:valeur (apply lire:fonction '())
           plv-lectures:faites (cons (cons lire:cle lire:valeur) plv-lectures:faites))
     lire:valeur)))
