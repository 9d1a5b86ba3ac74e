;; The forms of the entries of the profile's own menu: curves of a kind, blocks that hold to a station, a project validated. Their names are those that the
;; module writes into the menu.

;; --- curves

(defun plv-associer-fiche:champs ()
  (plv-champs-avec-profil
    (list
      (list "genre" "Genre de ligne" "mot" "Projet" (plv-genres))
      '("operation" "Courbes" "mot" "Attacher" ("Attacher" "Détacher") T)
      '("courbes" "Courbes du dessin" "objets" nil "LINE,LWPOLYLINE,POLYLINE,SPLINE,ARC"))))

(defun plv-associer-fiche:attacher-p (valeurs) (= (plv-cle "operation" valeurs) "Attacher"))

(defun plv-associer-fiche:faute (profil valeurs / courbes)
  (setq courbes (plv-fiche-objets valeurs "courbes"))
  (cond
    ((not courbes) '("courbes" "des courbes du dessin sont attendues"))
    ((not (plv-support profil (plv-cle "genre" valeurs))) (list "genre" (plv-refus-support (plv-cle "genre" valeurs))))
    ((and (not (plv-associer-fiche:attacher-p valeurs))
          (not (vl-every '(lambda (e) (member e (plv-elements profil (plv-cle "genre" valeurs)))) courbes)))
     (list "courbes" (strcat "toutes ne sont pas attachées au genre " (plv-cle "genre" valeurs))))))

(defun plv-associer-fiche:regarder (valeurs / profil faute)
  (setq profil (plv-fiche-profil valeurs) faute (plv-associer-fiche:faute profil valeurs))
  (plv-regard
    (if faute (list faute))
    (list (plv-image-profil profil
            (append (plv-traits-profil profil) (plv-image-traits "projet" (plv-traits-de-ligne profil (plv-cle "genre" valeurs))))))
    (list (strcat (plv-compte (length (plv-elements profil (plv-cle "genre" valeurs))) "courbe") " de ce genre."))
    nil nil))

(defun plv-associer-fiche:faire (valeurs / profil genre courbes)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs) courbes (plv-fiche-objets valeurs "courbes"))
  (if (plv-associer-fiche:attacher-p valeurs)
    (setq courbes (plv-admettre profil genre courbes))
    (plv-ecrire-elements profil genre (vl-remove-if '(lambda (e) (member e courbes)) (plv-elements profil genre))))
  (plv-presenter-lignes profil)
  (plv-dire (strcat (plv-compte (length courbes) (if (plv-associer-fiche:attacher-p valeurs) "courbe attachée" "courbe détachée")) ", genre " genre "."))
  courbes)

(plv-declarer-fiche "assocprjKavel" "Courbes d'un genre" "Appliquer" 'plv-associer-fiche:champs 'plv-associer-fiche:regarder 'plv-associer-fiche:faire)

;; --- blocks

(defun plv-statiques-fiche:champs ()
  (plv-champs-avec-profil
    (list
      (list "genre" "Genre de ligne" "mot" "Assainissement" (plv-genres))
      '("objets" "Blocs ou autres objets" "objets" nil "*")
      (plv-champ-nombre "station" "Station" 0.0 2))))

(defun plv-statiques-fiche:distance (profil valeurs / d)
  "The distance of the station; nil outside the profile."
  (if (setq d (plv-fiche-nombre valeurs "station")) (setq d (- d (plv-premiere-station profil))))
  (if (and d (<= 0.0 d (plv-longueur-profil profil))) d))

(defun plv-statiques-fiche:poignee (profil d)
  "An upright at the station, dragged along the profile."
  (list "poignee" "" "projet"
    (list (list d (apply 'min (mapcar 'plv-plan-altitude (plv-sections-de-plan profil)))) (list d (plv-altitude-tn (plv-points-tn profil) d)))
    1.0 "station"))

(defun plv-statiques-fiche:regarder (valeurs / profil d)
  (setq profil (plv-fiche-profil valeurs) d (plv-statiques-fiche:distance profil valeurs))
  (plv-regard
    (append
      (if (not (plv-fiche-objets valeurs "objets")) '(("objets" "des objets du dessin sont attendus")))
      (if (not d) '(("station" "la station n'est pas dans le profil"))))
    (list (plv-image-profil profil (append (plv-traits-profil profil) (if d (list (plv-statiques-fiche:poignee profil d))))))
    nil nil nil))

(defun plv-statiques-fiche:faire (valeurs / profil genre objets place)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs) objets (plv-fiche-objets valeurs "objets")
        place (list (+ (car (plv-origine profil)) (plv-statiques-fiche:distance profil valeurs)) (cadr (plv-origine profil)) 0.0))
  (if (plv-statiques-verifies profil)
    (progn
      (dialoguer '(lambda () (pl_efix profil genre)) (append (list place) (mapcar '(lambda (e) (list e place)) objets) '("" "F")))
      (plv-dire (strcat (plv-compte (length objets) "objet attaché") " à la station " (plv-reel (plv-fiche-nombre valeurs "station") 2) "."))
      objets)))

(plv-declarer-fiche "pl_efixKAVEL" "Objets à une station" "Attacher" 'plv-statiques-fiche:champs 'plv-statiques-fiche:regarder 'plv-statiques-fiche:faire)

;; --- a project validated

(defun plv-transferer-fiche:champs () (plv-champs-avec-profil (list (list "genre" "Le projet devient la ligne" "mot" "Voirie" (vl-remove "Projet" (plv-genres))))))

(defun plv-transferer-fiche:regarder (valeurs / profil)
  (setq profil (plv-fiche-profil valeurs))
  (plv-regard
    (if (not (plv-elements-du-projet profil "Projet")) '(("profil" "pas de projet à valider")))
    (list (plv-image-profil profil (append (plv-traits-profil profil) (plv-image-traits "projet" (plv-traits-de-ligne profil "Projet")))))
    (if (plv-elements-du-projet profil (plv-cle "genre" valeurs))
      (list (strcat "La ligne " (plv-cle "genre" valeurs) " qui est là reste attachée au genre, hors du projet.")))
    nil nil))

(defun plv-transferer-fiche:faire (valeurs) (plv-transferer (plv-fiche-profil valeurs) (plv-cle "genre" valeurs)))

(plv-declarer-fiche "transfererProjet" "Valider le projet" "Valider" 'plv-transferer-fiche:champs 'plv-transferer-fiche:regarder 'plv-transferer-fiche:faire)
