;; What the profile's menu runs on project elements: association, fixed equipment, a project validated.
;; The names of the commands are those that the module writes into the menu.

(defun c:assocprjKavel (/ profil genre support)
  "Attache des courbes du dessin à un genre de ligne du profil courant."
  (if (and (setq profil (plv-profil-courant))
           (setq genre (plv-demander-genre "Projet")
                 support (cond ((plv-support profil genre)) (T (plv-erreur (plv-refus-support genre))))))
    (plv-associer profil genre support))
  (princ))

(defun plv-associer (profil genre support / deja nouvelles)
  "What the user picks in the module's loop goes through the door afterwards."
  (setq deja (plv-elements profil genre))
  (pl_assoc_prj support)
  (setq nouvelles (vl-remove-if '(lambda (e) (member e deja)) (plv-elements profil genre)))
  (if nouvelles
    (progn
      (plv-ecrire-elements profil genre (vl-remove-if '(lambda (e) (member e nouvelles)) (plv-elements profil genre)))
      (plv-admettre-tels profil genre nouvelles))))

(defun c:pl_efixKAVEL (/ profil)
  "Attache des éléments fixes au profil courant: ils tiennent à leur abscisse."
  (if (and (setq profil (plv-profil-courant)) (plv-statiques-verifies profil))
    (pl_efix profil (plv-demander-genre "Assainissement")))
  (princ))

(defun plv-transferer (profil genre / elements)
  "The validated project becomes the profile's line of a kind: its elements go over, those that were that line stay
attached to the kind but are no longer part of the project. Gives the elements, or nil after a message."
  (setq elements (plv-elements-du-projet profil "Projet"))
  (cond
    ((not elements) (plv-erreur "pas de projet à valider"))
    ((= genre "Projet") (plv-erreur "le projet est déjà de ce genre"))
    ((not (plv-support profil genre)) (plv-erreur (plv-refus-support genre)))
    (T
     (foreach e (plv-elements-du-projet profil genre) (plv-marquer-du-projet e nil))
     (plv-attacher profil genre elements)
     (plv-ecrire-elements profil "Projet" (vl-remove-if '(lambda (e) (member e elements)) (plv-elements profil "Projet")))
     (plv-presenter-lignes profil)
     (plv-dire (strcat (itoa (length elements)) " éléments du projet deviennent la ligne " genre "."))
     elements)))

(defun c:transfererProjet (/ profil)
  "Valide le projet du profil courant: ses éléments deviennent la ligne d'un genre."
  (if (setq profil (plv-profil-courant)) (plv-transferer profil (plv-demander-genre "Voirie")))
  (princ))
