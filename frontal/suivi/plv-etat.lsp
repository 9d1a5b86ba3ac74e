;; PLV-ETAT: which of the things derived of a profile are true. It is worked out of the drawing each time: the sources are read and
;; their fingerprints compared with those that the thing was made with. Where they differ and the kind can tell what would come out, that is
;; compared with what is there.
;; Shared in the room: plv-etat:*

;; --- a state is (fact state reasons [held]): "a-jour", "a-refaire" or "impossible", the reasons as texts; held: T for what is true though
;; sources have changed

(defun plv-etat-fait (etat) (car etat))
(defun plv-etat-valeur (etat) (cadr etat))
(defun plv-etat-raisons (etat) (caddr etat))
(defun plv-etat-tenu-p (etat) (cadddr etat))
(defun plv-etat-a-jour-p (etat) (= (plv-etat-valeur etat) "a-jour"))
(defun plv-etat-a-refaire-p (etat) (= (plv-etat-valeur etat) "a-refaire"))

(defun plv-etat:relever (profil faits / date handle)
  "Facts with the fingerprints of their sources as they are now."
  (setq date (getvar "DATE") handle (plv-handle profil))
  (plv-avec-lectures
    '(lambda ()
       (mapcar '(lambda (fait) (plv-fait-releve fait date (plv-etat:empreintes profil fait) handle)) faits))))

(defun plv-etat:empreintes (profil fait)
  (vl-remove-if-not 'cdr
    (mapcar '(lambda (nom) (cons nom (plv-source-empreinte profil fait nom))) (plv-chose-sources profil fait))))

(plv-brancher 'releveur 'plv-etat:relever)
(plv-brancher 'verificateur '(lambda (profil fait nom) (plv-etat:inchangee-p profil fait nom)))

(setq plv-etat:sans-suivi "fait sans que ses sources soient notées")

(defun plv-etat:changees (profil fait)
  "The names of the sources that have changed since a thing was made."
  (vl-remove-if '(lambda (nom) (plv-etat:inchangee-p profil fait nom))
    (plv-uniques (append (plv-chose-sources profil fait) (mapcar 'car (plv-fait-sources fait))))))

(defun plv-etat:inchangee-p (profil fait nom / maintenant)
  "A source of which nothing can be known hasn't changed."
  (or (not (setq maintenant (plv-source-empreinte profil fait nom)))
      (= maintenant (plv-cle nom (plv-fait-sources fait)))))

(defun plv-etat:vieille (profil fait raisons / refus)
  (if (setq refus (plv-chose-refus profil fait)) (list fait "impossible" (list refus)) (list fait "a-refaire" raisons)))

(defun plv-etat:de (profil fait / changees)
  (cond
    ((plv-chose-orpheline-p fait) (plv-etat:vieille profil fait (list "la courbe est effacée")))
    ((not (plv-fait-sources fait)) (plv-etat:vieille profil fait (list plv-etat:sans-suivi)))
    ((not (setq changees (plv-etat:changees profil fait))) (list fait "a-jour" nil))
    ((plv-chose-tenue-p profil fait changees) (list fait "a-jour" nil T))
    (T (plv-etat:vieille profil fait (plv-uniques (mapcar 'plv-source-en-mots changees))))))

(defun plv-etat:notes (profil)
  "The facts of a profile, those about its tables and dimensioned curves too."
  (append (plv-faits profil)
    (apply 'append (mapcar 'plv-faits-sur (append (plv-tables profil) (vl-remove nil (plv-courbes-cotees profil)))))))

(defun plv-etat:faits (profil / faits)
  "The facts of what is there; what is there without one has a fact without sources."
  (setq faits (vl-remove-if-not '(lambda (f) (and (assoc (plv-fait-chose f) plv-choses:table) (plv-chose-entites profil f))) (plv-etat:notes profil)))
  (append faits
    (vl-remove-if '(lambda (trouvee) (vl-some '(lambda (f) (plv-meme-chose-p f trouvee)) faits)) (plv-choses-trouvees profil))))

(defun plv-etat:ranger (faits)
  "Facts in the order of their kinds."
  (apply 'append
    (mapcar '(lambda (chose) (vl-remove-if-not '(lambda (f) (= (plv-fait-chose f) chose)) faits)) (plv-choses))))

(defun plv-etat:abimes (profil refus)
  "Of a damaged profile nothing can be made anew."
  (mapcar '(lambda (fait) (list fait "impossible" (list refus))) (plv-faits profil)))

(defun plv-etats (profil / refus)
  "The states of all that is derived of a profile, in the order of its making anew."
  (if (setq refus (plv-refus-cadre profil))
    (plv-etat:abimes profil refus)
    (plv-avec-lectures
      '(lambda () (mapcar '(lambda (fait) (plv-etat:de profil fait)) (plv-etat:ranger (plv-etat:faits profil)))))))

;; --- where in the drawing

(defun plv-etat-boite (profil etat / fait entites)
  "What a thing covers; nil for files, which are nowhere in it."
  (setq fait (plv-etat-fait etat) entites (plv-chose-entites profil fait))
  (cond
    ((or (not entites) (plv-chose-fichier-p fait)) nil)
    ((= (plv-fait-chose fait) "RANGEE") (plv-boite-rangee profil (plv-fait-entite fait) (atoi (plv-fait-precision fait))))
    (T (plv-etat:boite-de entites))))

(defun plv-etat:boite-de (entites / coins)
  (if (setq coins (etendue-tracee entites)) (list (caar coins) (cadar coins) (caadr coins) (cadadr coins))))

;; --- in words

(defun plv-etat:deux (nombre) (strcat (if (< nombre 10) "0" "") (itoa nombre)))

(defun plv-etat:date (julien / jour f e g mois minutes)
  "A Julian date as day and time. Fliegel and Van Flandern, Communications of the ACM 11 (1968), 657."
  (setq jour (fix julien)
        minutes (fix (* 1440.0 (- julien jour)))
        f (+ jour 68569) e (/ (* 4 f) 146097) f (- f (/ (+ (* 146097 e) 3) 4))
        g (/ (* 4000 (1+ f)) 1461001) f (+ (- f (/ (* 1461 g) 4)) 31)
        mois (/ (* 80 f) 2447) jour (- f (/ (* 2447 mois) 80)) f (/ mois 11))
  (strcat (plv-etat:deux jour) "/" (plv-etat:deux (- (+ mois 2) (* 12 f))) "/" (itoa (+ (* 100 (- e 49)) g f)) " "
          (plv-etat:deux (/ minutes 60)) ":" (plv-etat:deux (rem minutes 60))))

(setq plv-etat:mots '(("a-jour" . "à jour") ("a-refaire" . "à mettre à jour") ("impossible" . "impossible à mettre à jour")))

(defun plv-etat:en-mots (etat)
  "What is said of a state, after the thing's name."
  (strcat (plv-cle (plv-etat-valeur etat) plv-etat:mots)
          (if (plv-etat-raisons etat) (strcat ": " (plv-joindre (plv-etat-raisons etat) ", ")) "")))

(defun plv-etat:a-dire-p (etat)
  "Parts of the tables are told of when they aren't true."
  (not (and (member (plv-fait-chose (plv-etat-fait etat)) '("RANGEE" "RAPPELS" "TERRAIN")) (plv-etat-a-jour-p etat))))

(defun plv-etat-en-ligne (profil etat)
  (strcat (plv-chose-en-mots profil (plv-etat-fait etat)) ": " (plv-etat:en-mots etat)))

(defun plv-etats-en-lignes (profil etats)
  "A line of text for each state."
  (mapcar '(lambda (etat) (plv-etat-en-ligne profil etat)) (vl-remove-if-not 'plv-etat:a-dire-p etats)))

(defun plv-etat:dire (profil etat)
  "The state, and of when a thing is whose sources have changed since."
  (plv-dire (strcat "  " (plv-etat-en-ligne profil etat)))
  (if (and (plv-etat-a-refaire-p etat) (plv-fait-sources (plv-etat-fait etat)))
    (plv-dire (strcat "    état du " (plv-etat:date (plv-fait-date (plv-etat-fait etat))) ", les sources ont changé depuis"))))

(defun plv-etat (profils / etats nombre)
  "Tells the state of what is derived of profiles; gives the number of things that aren't true."
  (setq nombre 0)
  (foreach profil profils
    (plv-dire (strcat "Profil " (plv-numero-profil profil)))
    (setq etats (plv-etats profil)
          nombre (+ nombre (length (vl-remove-if 'plv-etat-a-jour-p etats))))
    (foreach etat (vl-remove-if-not 'plv-etat:a-dire-p etats) (plv-etat:dire profil etat))
    (if (not etats) (plv-dire "  rien n'en est tiré")))
  (plv-dire (if (> nombre 0) (strcat (itoa nombre) " à mettre à jour: PLV-ACTUALISER.") "Tout est à jour."))
  nombre)

(defun c:plv-etat ()
  "Dit ce qui, des tableaux, cotes, hachures et fichiers tirés des profils, n'est plus à jour, et pourquoi."
  (if (plv-profils) (plv-etat (plv-profils)) (plv-erreur (plv-refus-sans-profil)))
  (princ))
