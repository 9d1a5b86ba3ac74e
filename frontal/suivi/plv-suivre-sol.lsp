;; After each command: ground lines that were dragged take their neighbours and the record along, in the same step. What else is made of the ground is
;; not up to date then, and says so. The legend of lines follows those that came or went, and the looks of their layers. A host without *apres-commande*
;; calls its function by its reactors.
;; Shared in the room: plv-suivre-sol:dire

(defun plv-suivre-sol:trait-p (entite calque / groupes)
  (setq groupes (entget entite))
  (and (= (plv-cle 0 groupes) "LINE") (= (strcase (plv-cle 8 groupes)) (strcase calque))))

(defun plv-suivre-sol:touche-p (entites / calque)
  "Whether ground lines may be among entities; T for too many to list."
  (cond
    ((not (listp entites)) T)
    ((vl-some '(lambda (e) (= (plv-type e) "LINE")) entites)
     (setq calque (plv-calque "PLV-TN"))
     (vl-some '(lambda (e) (plv-suivre-sol:trait-p e calque)) entites))))

(defun plv-suivre-sol:du-releve-p (profil / fait)
  "Whether the lines were drawn of the record as it is: where it has changed, too, they are drawn anew by an update."
  (setq fait (car (vl-member-if '(lambda (f) (= (plv-fait-chose f) "TERRAIN")) (plv-faits profil))))
  (or (not fait) (plv-source-vraie-p profil fait "releve")))

(defun plv-suivre-sol:dire (profil avant / nombre)
  "Says how many points are elsewhere now."
  (setq nombre (length (vl-remove nil (mapcar '(lambda (a b) (not (equal a b 1e-6))) avant (plv-points-tn profil)))))
  (if (> nombre 0) (plv-dire (strcat "Profil " (plv-numero-profil profil) ": " (plv-compte nombre "point déplacé") " dans le levé."))))

(defun plv-suivre-sol (profil / ecarts avant)
  "Takes up what was dragged of a profile's ground; lines that were erased are an update's."
  (if (and (not (plv-refus-profil profil)) (setq ecarts (plv-ecarts-terrain profil)) (vl-every 'car ecarts) (plv-suivre-sol:du-releve-p profil))
    (progn
      (setq avant (plv-points-tn profil))
      (plv-reprendre-terrain profil)
      (plv-suivre-sol:dire profil avant))))

(defun plv-suivre-sol:calque-p (entites)
  "Whether a layer is among entities."
  (and (listp entites) (vl-some '(lambda (e) (= (plv-type e) "LAYER")) entites)))

(defun plv-apres-commande (entites / profils)
  "entites: those that a command has changed or made, or T."
  (setq profils (plv-profils))
  (if (and profils (plv-suivre-sol:touche-p entites)) (foreach p profils (plv-suivre-sol p)))
  (foreach p profils (if (plv-suivre-sol:calque-p entites) (plv-presenter-lignes p) (plv-presenter-sans-effacees p))))
