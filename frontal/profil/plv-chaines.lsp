;; Whether the keys and chains of a profile are whole. The module follows a dead handle or a circle for ever, and takes a
;; broken chain for a shorter profile: whatever calls it looks first.
;; Codes: P01 key missing or of no use, P02 dead handle, P03 chain in a circle, P04 section of a plane without numbers, P09 planes or
;; supports of another profile.

;; --- a finding is (code handle text); each check gives a list of them

(defun plv-constat (code entite texte) (list (list code (plv-handle entite) texte)))
(defun plv-constat-code (constat) (car constat))
(defun plv-constat-handle (constat) (cadr constat))
(defun plv-constat-texte (constat) (caddr constat))

(defun plv-chaines:lien (entite cle / valeur)
  "The findings on a handle key."
  (setq valeur (plv-cle cle (plv-paires entite)))
  (cond
    ((not valeur) nil)
    ((/= (car valeur) 1005) (plv-constat "P02" entite (strcat cle " n'est pas un identifiant")))
    ((not (plv-existe (handent (cdr valeur))))
     (plv-constat "P02" entite (strcat cle " nomme " (cdr valeur) ", qui n'existe plus")))))

(defun plv-chaines:maillons (maillons cle / apres)
  "The findings on the links of a chain."
  (setq apres (plv-nommee (plv-dernier maillons) cle))
  (append
    (apply 'append (mapcar '(lambda (m) (plv-chaines:lien m cle)) maillons))
    (if apres (plv-constat "P03" apres (strcat "la chaîne " cle " revient sur elle-même")))))

(defun plv-chaines:chaine (entite premiere cle / maillons)
  "The findings on a chain that begins with a key of an entity."
  (setq maillons (plv-chaine (plv-nommee entite premiere) cle))
  (append (plv-chaines:lien entite premiere) (if maillons (plv-chaines:maillons maillons cle))))

(defun plv-fautes-lignes (plan)
  "The findings on the ground lines of a plane."
  (plv-chaines:chaine plan "PRLI" "NEXTLI"))

(defun plv-chaines:reel (entite cle) (cddr (assoc cle (plv-paires entite))))

(defun plv-plan-complet (plan)
  (and (numberp (plv-chaines:reel plan "DISTANCE")) (numberp (plv-chaines:reel plan "PC"))))

(defun plv-chaines:plan (plan)
  (if (not (plv-plan-complet plan)) (plv-constat "P04" plan "plan de comparaison sans DISTANCE ou sans PC")))

(defun plv-fautes-plans (profil)
  "The findings on the chain of planes, without those on what hangs from them."
  (append
    (if (not (assoc "PRPC" (plv-paires profil))) (plv-constat "P01" profil "la clé PRPC manque"))
    (plv-chaines:chaine profil "PRPC" "NEXT-PC")))

;; --- keys that hold a number: (key positive)

(setq plv-chaines:nombres '(("ECHV" T) ("TTXT" T) ("ID" nil) ("DCUMDEB" nil)))

(defun plv-chaines:bon-nombre (cle valeur positif)
  (and (if (= cle "ID") (= (type valeur) 'INT) (numberp valeur)) (or (not positif) (> valeur 0))))

(defun plv-chaines:nombre (profil cle positif / valeur)
  (setq valeur (assoc cle (plv-paires profil)))
  (if (and valeur (not (plv-chaines:bon-nombre cle (cddr valeur) positif)))
    (plv-constat "P01" profil (strcat "la clé " cle " n'est pas un nombre" (if positif " positif" "")))))

(defun plv-fautes-nombres (profil)
  (apply 'append (mapcar '(lambda (n) (plv-chaines:nombre profil (car n) (cadr n))) plv-chaines:nombres)))

(defun plv-fautes-supports (profil)
  (apply 'append (mapcar '(lambda (cle) (plv-chaines:lien profil cle)) (plv-cles-genres))))

(defun plv-chaines:partage (profil / partage)
  (if (setq partage (plv-partage profil))
    (plv-constat "P09" profil
      (strcat (plv-joindre (cdr partage) ", ") (if (cddr partage) " sont ceux" " est celui") " du profil " (plv-numero-profil (car partage))
              ", dont il est la copie"))))

(defun plv-fautes-cadre (profil)
  "Everything for which a profile can't be read, without its ground lines."
  (append (plv-chaines:partage profil) (plv-fautes-nombres profil) (plv-fautes-supports profil) (plv-fautes-plans profil)
          (apply 'append (mapcar 'plv-chaines:plan (plv-entites-plans profil)))))

(defun plv-fautes-profil (profil)
  "Everything for which a profile can't be worked on."
  (append (plv-fautes-cadre profil) (apply 'append (mapcar 'plv-fautes-lignes (plv-entites-plans profil)))))

;; --- the door

(defun plv-chaines:refus (profil fautes)
  (if fautes
    (strcat "le profil " (plv-numero-profil profil) " est abîmé: " (plv-constat-texte (car fautes))
            "; kavel --audit --fix ou la commande AUDIT le répare")))

(defun plv-refus-profil (profil) "Why a profile can't be worked on, nil for a whole one." (plv-chaines:refus profil (plv-fautes-profil profil)))

(defun plv-refus-cadre (profil) "Why a profile can't be read, nil for one that can." (plv-chaines:refus profil (plv-fautes-cadre profil)))

(defun plv-profil-sain (profil / refus)
  "The profile, without what its records hold of another one, or nil after a message."
  (if (setq refus (plv-refus-profil profil))
    (plv-erreur refus)
    (progn (plv-lacher-autrui profil) profil)))

(defun plv-refus-profils (profils) (vl-some 'plv-refus-profil profils))
