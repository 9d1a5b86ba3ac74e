;; The depth classes as a form has them: rows of texts (end width bedding colour), each class beginning where the one before it ends, so that no gap
;; can be left between them. They are settings, for all drawings; the module's dialog changes them.
;; Shared in the room: plv-metres:*

(setq plv-reglees:plus 6) ; classes that the settings hold

(defun plv-reglees:couleur (rangee) (itoa (car rangee)))

(defun plv-classes-reglees ()
  "The classes that are set, as such rows."
  (mapcar '(lambda (r) (list (nth 2 r) (nth 4 r) (nth 5 r) (plv-reglees:couleur r))) (plv-classes-profondeur)))

(defun plv-reglees:fins (rangees) (mapcar '(lambda (r) (plv-nombre (car r))) rangees))

(defun plv-classes-de-rangees (rangees)
  "The same as classes (start end width colour)."
  (mapcar '(lambda (r debut fin) (list debut fin (plv-nombre (cadr r)) (atoi (cadddr r))))
    rangees (cons 0.0 (plv-reglees:fins rangees)) (plv-reglees:fins rangees)))

(defun plv-reglees:faute (rangee debut)
  (cond
    ((not (plv-nombre (car rangee))) "une profondeur est attendue")
    ((< (- (plv-nombre (car rangee)) debut) 0.01) (strcat "une profondeur de plus de " (plv-reel debut 2) " m est attendue"))
    ((not (and (plv-nombre (cadr rangee)) (>= (plv-nombre (cadr rangee)) 0.0))) "une largeur est attendue")
    ((not (plv-nombre (caddr rangee))) "un lit de pose est attendu, 0 pour aucun")
    ((not (and (plv-nombre (cadddr rangee)) (<= 0.0 (plv-nombre (cadddr rangee)) 255.0))) "une couleur de 0 à 255 est attendue")))

(defun plv-refus-classes (rangees / numero debut faute)
  "Why rows can't be the classes; nil when they can."
  (setq numero 0 debut 0.0)
  (foreach r rangees
    (setq numero (1+ numero))
    (if (and (not faute) (setq faute (plv-reglees:faute r debut))) (setq faute (strcat "rangée " (itoa numero) ": " faute)))
    (if (not faute) (setq debut (plv-nombre (car r)))))
  (cond
    (faute)
    ((not rangees) "une classe au moins est attendue")
    ((> (length rangees) plv-reglees:plus) (strcat (itoa plv-reglees:plus) " classes au plus sont gardées"))))

(defun plv-reglees:memes-p (rangees)
  "Whether these are the classes that are set."
  (equal (mapcar '(lambda (r) (mapcar 'plv-nombre r)) rangees) (mapcar '(lambda (r) (mapcar 'plv-nombre r)) (plv-classes-reglees)) 1e-9))

(defun plv-reglees:ajout (rangee debut)
  "The answers that add a class."
  (list "AjouterUneClasse" (strcat "De=" debut) (strcat "A=" (car rangee)) (strcat "LargeurDeLaFouille=" (cadr rangee))
        (strcat "HeuteurLitDePose=" (caddr rangee)) (strcat "Couleur=" (cadddr rangee)) "OK"))

(defun plv-regler-classes (rangees / anciennes)
  "Sets the classes; T, or nil after a message."
  (cond
    ((plv-refus-classes rangees) (plv-erreur (plv-refus-classes rangees)))
    ((plv-reglees:memes-p rangees) T)
    (T
     (setq anciennes (plv-classes-profondeur))
     (dialoguer plv-metres:dialogue
       (append
         (apply 'append (mapcar '(lambda (r) '("ClassesDeProfondeurs=1" "SupprimerLaClasse")) anciennes))
         (apply 'append (mapcar '(lambda (r d) (plv-reglees:ajout r d)) rangees (cons "0" (mapcar 'car rangees))))
         '("Fermer")))
     T)))
