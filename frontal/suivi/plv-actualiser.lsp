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

(defun plv-actualiser:vieille-p (etat chose) (and (plv-etat-a-refaire-p etat) (= (plv-fait-chose (plv-etat-fait etat)) chose)))

(defun plv-actualiser:de-chose (profil chose etats / faits)
  "Makes the stale things of a kind anew."
  (setq faits (mapcar 'plv-etat-fait (vl-remove-if-not '(lambda (e) (plv-actualiser:vieille-p e chose)) etats)))
  ;; the rows of tables that were drawn anew are gone
  (setq faits (vl-remove-if-not '(lambda (f) (or (plv-chose-orpheline-p f) (plv-chose-entites profil f))) faits))
  (cond
    ((not faits) T)
    ((member chose plv-choses-sans-lecteur) (plv-actualiser:faire profil chose faits))
    (T (plv-sans-lectures '(lambda () (plv-actualiser:faire profil chose faits))))))

(defun plv-actualiser:profil (profil choses etats)
  "The kinds one after the other. None in the drawing is made of another one; files are made of all."
  (vl-every '(lambda (chose) (plv-actualiser:de-chose profil chose etats)) choses))

(defun plv-actualiser:tous (etats choses)
  (vl-every '(lambda (siens) (plv-actualiser:profil (car siens) choses (cdr siens))) etats))

(defun plv-actualiser:dessin (profils etats)
  "The ground first, of which all else is made; when it changes, the states of all else do."
  (if (vl-some '(lambda (siens) (vl-some '(lambda (e) (plv-actualiser:vieille-p e "TERRAIN")) (cdr siens))) etats)
    (progn
      (plv-actualiser:tous etats '("TERRAIN"))
      (setq etats (plv-actualiser:etats profils))))
  (and (plv-actualiser:tous etats (vl-remove-if '(lambda (c) (member c plv-choses-fichiers)) (plv-choses)))
       (plv-actualiser:renoter etats)))

(defun plv-actualiser:renoter (etats / tenus)
  "What was true though its sources had changed is noted with those that it has, now that the drawing changes anyhow."
  (foreach siens etats
    (setq tenus (vl-remove-if-not '(lambda (e) (and (plv-etat-tenu-p e) (plv-chose-entites (car siens) (plv-etat-fait e)))) (cdr siens)))
    (if tenus (plv-noter-faits (car siens) (mapcar 'plv-etat-fait tenus))))
  T)

(defun plv-actualiser:etats (profils) (mapcar '(lambda (p) (cons p (plv-etats p))) profils))

(defun plv-actualiser:fichiers (profils)
  "What files are made of is known when the drawing is as it should be."
  (setq profils (vl-remove-if-not '(lambda (p) (vl-some 'plv-chose-fichier-p (plv-faits p))) profils))
  (plv-actualiser:tous (plv-actualiser:etats profils) plv-choses-fichiers))

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

(defun plv-actualiser:de-valeur (etats valeur)
  "(profile . state) of all that has a state."
  (apply 'append
    (mapcar
      '(lambda (siens) (mapcar '(lambda (e) (cons (car siens) e)) (vl-remove-if-not '(lambda (e) (= (plv-etat-valeur e) valeur)) (cdr siens))))
      etats)))

(defun plv-actualiser:dire (vieilles impossibles fait)
  (foreach reste impossibles
    (plv-dire (strcat (plv-chose-en-mots (car reste) (plv-etat-fait (cdr reste))) ": " (plv-joindre (plv-etat-raisons (cdr reste)) ", "))))
  (if fait
    (plv-dire (if vieilles (strcat (plv-compte (length vieilles) "chose") " mise" (if (cdr vieilles) "s" "") " à jour.") "Tout était à jour."))))

(defun plv-actualiser (profils)
  "Makes anew what isn't true of profiles; T, or nil after a message."
  (plv-avec-lectures '(lambda () (plv-actualiser:profils profils))))

(defun plv-actualiser:profils (profils / etats vieilles fait)
  (setq etats (plv-actualiser:etats profils)
        vieilles (plv-actualiser:de-valeur etats "a-refaire")
        fait (or (not vieilles)
                 (plv-actualiser:en-une-fois
                   '(lambda () (plv-actualiser:dessin profils etats))
                   '(lambda () (plv-actualiser:fichiers profils)))))
  (plv-actualiser:dire vieilles (plv-actualiser:de-valeur etats "impossible") fait)
  fait)

(defun plv-actualiser-apres (profils travail)
  "Work on the drawing, and what isn't true after it made anew but for files, as one step; T, or nil after a message with the drawing
as before."
  (plv-actualiser:en-une-fois
    '(lambda ()
       (apply travail '())
       (plv-avec-lectures '(lambda () (plv-actualiser:dessin profils (plv-actualiser:etats profils)))))
    '(lambda () T)))

(defun c:plv-actualiser ()
  "Refait ce qui, de ce qui est tiré des profils, n'est plus à jour: tableaux, cotes, hachures, légendes, fichiers."
  (if (plv-profils) (plv-actualiser (plv-profils)) (plv-erreur (plv-refus-sans-profil)))
  (princ))
