;; PLV-ACTUALISER: what isn't true any more is made anew, in one step that can be undone. What fails leaves the drawing as it was; files
;; come last, since nothing takes them back.

(defun plv-actualiser:perdus (mots)
  (foreach m mots (plv-dire (strcat "N'a pas pu être gardé: " m "."))))

(defun plv-actualiser:faire (profil chose faits / leves)
  "Makes things of a kind anew, with what hands had done to them; T, or nil after a message."
  (if (plv-chose-lever chose)
    (progn
      (setq leves (apply (plv-chose-lever chose) (list profil faits)))
      (if (apply (plv-chose-refaire chose) (list profil (car leves)))
        (progn (plv-actualiser:perdus (apply (plv-chose-remettre chose) (list profil (cadr leves)))) T)))
    (apply (plv-chose-refaire chose) (list profil faits))))

(defun plv-actualiser:de-chose (profil chose etats / faits)
  "Makes the stale things of a kind anew."
  (setq faits (mapcar 'plv-etat-fait (vl-remove-if-not '(lambda (e) (and (plv-etat-a-refaire-p e) (= (plv-fait-chose (plv-etat-fait e)) chose))) etats)))
  (or (not faits) (plv-actualiser:faire profil chose faits)))

(defun plv-actualiser:profil (profil choses / etats fait)
  "The kinds one after the other, each with the state that those before it left."
  (setq fait T)
  (foreach chose choses
    (if (and fait (setq etats (plv-etats profil)))
      (setq fait (plv-actualiser:de-chose profil chose etats))))
  fait)

(defun plv-actualiser:tous (profils choses)
  (vl-every '(lambda (p) (plv-actualiser:profil p choses)) profils))

(defun plv-actualiser:reussi (fonction / fait)
  "T when a function does its work; nil when it fails, with what it failed of."
  (setq fait (vl-catch-all-apply fonction '()))
  (if (vl-catch-all-error-p fait) (plv-erreur (vl-catch-all-error-message fait)) (if fait T)))

(defun plv-actualiser:en-une-fois (dessin fichiers / echo fait)
  "Two functions as one step, the second when the first one succeeds; else the drawing is as before. T when both do."
  (setq echo (getvar "CMDECHO"))
  (setvar "CMDECHO" 0)
  (command "_.UNDO" "_Begin")
  (setq fait (plv-actualiser:reussi dessin))
  (if (and fait (not (plv-actualiser:reussi fichiers))) (setq fait "fichiers"))
  (command "_.UNDO" "_End")
  (if (not fait) (progn (command "_.U") (plv-erreur "le dessin est resté tel qu'il était")))
  (setvar "CMDECHO" echo)
  (eq fait T))

(defun plv-actualiser:choses (fichiers)
  "The kinds that are files, or those in the drawing."
  (vl-remove-if
    '(lambda (chose) (if (plv-chose-fichier-p (list chose)) (not fichiers) fichiers))
    (plv-choses)))

(defun plv-actualiser:stales (profils valeur)
  "(profile . state) of all that has a state."
  (apply 'append
    (mapcar '(lambda (p) (mapcar '(lambda (e) (cons p e)) (vl-remove-if-not '(lambda (e) (= (plv-etat-valeur e) valeur)) (plv-etats p)))) profils)))

(defun plv-actualiser (profils / stales fait)
  "Makes anew what isn't true of profiles; T, or nil after a message."
  (setq stales (plv-actualiser:stales profils "a-refaire"))
  (if stales
    (setq fait
      (plv-actualiser:en-une-fois
        '(lambda () (plv-actualiser:tous profils (plv-actualiser:choses nil)))
        '(lambda () (plv-actualiser:tous profils (plv-actualiser:choses T)))))
    (setq fait T))
  (foreach reste (plv-actualiser:stales profils "impossible")
    (plv-dire (strcat (plv-chose-en-mots (car reste) (plv-etat-fait (cdr reste))) ": " (plv-joindre (plv-etat-raisons (cdr reste)) ", "))))
  (if fait (plv-dire (if stales (strcat (plv-compte (length stales) "chose") " mise" (if (cdr stales) "s" "") " à jour.") "Tout était à jour.")))
  fait)

(defun c:plv-actualiser ()
  "Refait ce qui, de ce qui est tiré des profils, n'est plus à jour: tableaux, cotes, hachures, légendes, fichiers."
  (if (plv-profils) (plv-actualiser (plv-profils)) (plv-erreur (plv-refus-sans-profil)))
  (princ))
