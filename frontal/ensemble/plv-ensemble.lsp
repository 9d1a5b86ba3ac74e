;; Everything that belongs to a profile: what its keys and records name, what theirs name, and so on; its dimensions, legends and blocks.
;; What it was made of belongs to others: the axis in plan, the objects of a surface. What it has drawn on the axis stands in the plan.

(setq plv-ensemble:sources "PLV_MNT*,PLV_SUIVI*")

(defun plv-ensemble:nommees (entite)
  "The entities whose handles stand in its extended data."
  (mapcar 'handent
    (apply 'append (mapcar '(lambda (donnees) (plv-cles 1005 (cdr donnees))) (cdr (assoc -3 (entget entite '("*"))))))))

(defun plv-ensemble:enregistrees (entite)
  "The entities that its records name."
  (apply 'append
    (mapcar '(lambda (cle) (if (not (wcmatch cle plv-ensemble:sources)) (plv-cles 330 (plv-enregistrement entite cle)))) (plv-enregistrements entite))))

(defun plv-ensemble:membres (entite)
  "Of a group its members; nil for what is no entity."
  (cond
    ((not (and (= (type entite) 'ENAME) (plv-existe entite))) nil)
    ((= (plv-type entite) "GROUP") (vl-remove-if-not 'plv-existe (plv-cles 340 (entget entite))))
    ((plv-cle 410 (entget entite)) (list entite))
    ((not (member (plv-type entite) '("DICTIONARY" "XRECORD" "LAYER" "STYLE" "LTYPE" "BLOCK_RECORD"))) (list entite))))

(defun plv-ensemble (profil / exclues vues file e)
  "The entities, the profile first."
  (setq exclues (append (vl-remove profil (plv-profils)) (list (plv-axe-plan profil)) (plv-portes-sur-plan profil))
        file (append (list profil) (plv-cotes-du-profil profil) (plv-legendes-du-profil profil) (plv-blocs profil)))
  (while file
    (setq e (car file) file (cdr file))
    (if (not (or (member e vues) (member e exclues)))
      (setq vues (cons e vues)
            file (append (apply 'append (mapcar 'plv-ensemble:membres (append (plv-ensemble:nommees e) (plv-ensemble:enregistrees e)))) file))))
  (reverse vues))
