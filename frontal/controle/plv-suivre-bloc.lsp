;; After each command: a profile's block or plane that was moved without the rest goes back, in the same step. Else the ground lines would look as
;; if they had been dragged the other way, and the next update would change the survey.

(defun plv-suivre-bloc:lignes (profil) (apply 'append (mapcar 'plv-lignes-du-plan (plv-entites-plans profil))))

(defun plv-suivre-bloc:ecart (profil / ecarts ecart)
  "How far a profile's ground lines are from where its record and its block have them, all of them alike; nil for no such distance."
  (setq ecarts (plv-ecarts-terrain profil))
  (if (and ecarts (vl-every 'car ecarts) (= (length ecarts) (length (plv-suivre-bloc:lignes profil))))
    (progn
      (setq ecarts (apply 'append (mapcar '(lambda (e) (mapcar '(lambda (la attendu) (mapcar '- la attendu)) (cadr e) (caddr e))) ecarts))
            ecart (car ecarts))
      (if (vl-every '(lambda (e) (equal e ecart 1e-4)) ecarts) ecart))))

(defun plv-suivre-bloc:rendre (entite ecart / groupes codes)
  "Moves a block reference, or an attribute, whose second point counts where it isn't at its left."
  (setq groupes (entget entite)
        codes (if (vl-every '(lambda (c) (member (plv-cle c groupes) '(nil 0))) '(72 74)) '(10) '(10 11)))
  (entmod (mapcar '(lambda (g) (if (member (car g) codes) (cons (car g) (mapcar '+ (cdr g) ecart)) g)) groupes)))

(defun plv-suivre-bloc (profil / ecart e)
  (if (and (not (plv-refus-profil profil)) (setq ecart (plv-suivre-bloc:ecart profil)))
    (progn
      (plv-suivre-bloc:rendre profil ecart)
      (setq e (entnext profil))
      (while (and e (= (plv-type e) "ATTRIB")) (plv-suivre-bloc:rendre e ecart) (setq e (entnext e)))
      (plv-dire (strcat "Profil " (plv-numero-profil profil) ": son bloc ne va pas sans le reste, il reprend sa place; PLV-PROFIL Déplacer emmène tout.")))))

(defun plv-suivre-bloc:seul-p (profil entites)
  "Whether a profile's block was changed, and none of its ground lines."
  (and (member profil entites) (not (vl-some '(lambda (l) (member l entites)) (plv-suivre-bloc:lignes profil)))))

;; --- its planes, whose lines only show where sections are

(defun plv-suivre-bloc:plan (profil section / origine groupes bouts)
  "Puts the line of a plane back; T where it stood elsewhere."
  (setq origine (plv-origine profil) groupes (entget (plv-section-entite section))
        bouts (mapcar '(lambda (d) (plv-point (+ (car origine) d) (cadr origine))) (list (plv-plan-debut section) (plv-section-fin section))))
  (if (and (= (plv-cle 0 groupes) "LINE") (not (equal (list (plv-cle 10 groupes) (plv-cle 11 groupes)) bouts 1e-4)))
    (progn (entmod (subst (cons 11 (cadr bouts)) (assoc 11 groupes) (subst (cons 10 (car bouts)) (assoc 10 groupes) groupes))) T)))

(defun plv-suivre-bloc:plans (profil entites)
  "Puts back those among entities; T where one stood elsewhere."
  (member T
    (mapcar '(lambda (s) (plv-suivre-bloc:plan profil s))
      (vl-remove-if-not '(lambda (s) (member (plv-section-entite s) entites)) (plv-sections-de-plan profil)))))

(defun plv-suivre-plans (profil entites)
  (if (and (vl-some '(lambda (plan) (member plan entites)) (plv-entites-plans profil))
           (= (plv-cle 2 (entget profil)) plv-bloc-profil) (not (plv-refus-profil profil)) (plv-suivre-bloc:plans profil entites))
    (plv-dire (strcat "Profil " (plv-numero-profil profil) ": un plan ne va pas sans le profil, il reprend sa place; PLV-PC le change."))))

;; --- after a command

(defun plv-suivre-bloc:touche-p (entites) (vl-some '(lambda (e) (member (plv-type e) '("INSERT" "LINE"))) entites))

(defun plv-apres-commande-entier (entites)
  "entites: those that a command has changed or made, or T."
  (if (and (listp entites) (plv-suivre-bloc:touche-p entites))
    (foreach p (plv-profils)
      (if (plv-suivre-bloc:seul-p p entites) (plv-suivre-bloc p))
      (plv-suivre-plans p entites)))
  (plv-apres-commande entites))

(setq *apres-commande* 'plv-apres-commande-entier)
