;; The form of PLV-OPTIMAL: the corridor between the two depths, the line that it gives and its windows, while the depths are dragged.

(defun plv-optimal-fiche:champs ()
  (plv-champs-avec-profil
    (list
      (list "genre" "Genre de projet" "mot" "Assainissement" (plv-genres-projet))
      '("methode" "Méthode" "mot" "Sommets" ("Sommets" "Coût" "Approchée" "Recherche"))
      (plv-champ-nombre "minimum" "Profondeur minimale" 0.8 2)
      (plv-champ-nombre "maximum" "Profondeur maximale" 1.6 2)
      '("depart" "Profondeur au départ, ou Libre" "texte" "Libre" nil)
      '("arrivee" "Profondeur à l'arrivée, ou Libre" "texte" "Libre" nil)
      '("rondes" "Pentes rondes en %, ou rien" "texte" "" nil)
      '("contraintes" "Fichier de contraintes" "lire" "" "Contraintes (*.csv *.txt);;Tous (*)")
      '("prix" "Fichier des prix" "lire" "" "Prix (*.csv *.txt);;Tous (*)")
      '("remplacer" "Remplacer la ligne de ce genre" "oui" T nil)
      '("variante" "Garder comme variante" "oui" nil nil)
      '("couloir" "Dessiner le couloir et ses fenêtres" "oui" nil nil))))

;; --- answers

(defun plv-optimal-fiche:methode (valeurs) (plv-cle "methode" valeurs))

(defun plv-optimal-fiche:pas (valeurs / pas)
  (setq pas (plv-fiche-nombre valeurs "rondes"))
  (if (and pas (> pas 0.0)) (* 0.01 pas)))

(defun plv-optimal-fiche:libre-p (valeurs cle) (= (strcase (cond ((plv-cle cle valeurs)) (""))) "LIBRE"))

(defun plv-optimal-fiche:fautes (valeurs / cles)
  (setq cles (vl-remove-if '(lambda (cle) (or (plv-optimal-fiche:libre-p valeurs cle) (plv-fiche-nombre valeurs cle))) '("depart" "arrivee")))
  (append
    (mapcar '(lambda (cle) (list cle "une profondeur ou le mot Libre")) cles)
    (if (= (plv-optimal-fiche:methode valeurs) "Recherche")
      (mapcar '(lambda (cle) (list cle "la méthode Recherche demande une profondeur"))
        (vl-remove-if-not '(lambda (cle) (plv-optimal-fiche:libre-p valeurs cle)) '("depart" "arrivee"))))
    (if (and (/= (plv-cle "rondes" valeurs) "") (not (plv-optimal-fiche:pas valeurs))) '(("rondes" "un nombre positif est attendu")))
    (if (and (= (plv-optimal-fiche:methode valeurs) "Coût") (not (plv-fiche-fichier valeurs "prix")))
      '(("prix" "le coût se calcule avec un fichier de prix")))))

(defun plv-optimal-fiche:bout (profil valeurs cle d)
  (if (plv-optimal-fiche:libre-p valeurs cle)
    (list d)
    (list d (- (plv-altitude-ligne (plv-points-tn profil) d) (plv-fiche-nombre valeurs cle)))))

(defun plv-optimal-fiche:contraintes (valeurs)
  (if (plv-fiche-fichier valeurs "contraintes") (plv-lire-contraintes (plv-fiche-fichier valeurs "contraintes"))))

(defun plv-optimal-fiche:souhait (profil valeurs contraintes / souhait)
  (setq souhait
    (plv-souhait (plv-optimal-fiche:bout profil valeurs "depart" (car (car (plv-points-tn profil))))
                 (plv-optimal-fiche:bout profil valeurs "arrivee" (plv-longueur-profil profil))
                 (plv-fiche-nombre valeurs "minimum") (plv-fiche-nombre valeurs "maximum") contraintes
                 (= (plv-optimal-fiche:methode valeurs) "Approchée")))
  (if (plv-cle "variante" valeurs) (setq souhait (plv-souhait-en-variante souhait)))
  (if (plv-optimal-fiche:pas valeurs) (plv-souhait-rond souhait (plv-optimal-fiche:pas valeurs)) souhait))

(defun plv-optimal-fiche:caches (valeurs profil)
  (append
    (if (/= (plv-optimal-fiche:methode valeurs) "Coût") '("prix"))
    (if (= (plv-optimal-fiche:methode valeurs) "Recherche") '("contraintes"))
    (if (member (plv-optimal-fiche:methode valeurs) '("Coût" "Recherche")) '("rondes"))
    (if (member (plv-optimal-fiche:methode valeurs) '("Coût" "Recherche")) '("couloir"))
    (if (or (plv-cle "variante" valeurs) (not (plv-elements-du-projet profil (plv-cle "genre" valeurs)))) '("remplacer"))))

;; --- the look

(defun plv-optimal-fiche:regarder (valeurs / profil fautes lues)
  (setq profil (plv-fiche-profil valeurs) fautes (plv-optimal-fiche:fautes valeurs)
        lues (plv-essayer 'plv-optimal-fiche:contraintes (list valeurs)))
  (cond
    ((not (cdr (plv-points-tn profil))) (plv-regard-fautes (list (list "profil" (plv-refus-sans-terrain)))))
    ((or fautes (cadr lues))
     (plv-regard (append fautes (if (cadr lues) (list (list "contraintes" (cadr lues)))))
       (list (plv-image-profil profil (plv-traits-profil profil))) nil (plv-optimal-fiche:caches valeurs profil) nil))
    ((plv-optimal-fiche:voir profil valeurs (plv-optimal-fiche:souhait profil valeurs (car lues))))))

(defun plv-optimal-fiche:poignees (couloir)
  "The limits, which change the depths as they are dragged: the upper one goes down with the least depth."
  (list (list "poignee" "maximum" "couloir" (car couloir) -1.0) (list "poignee" "minimum" "couloir" (cadr couloir) -1.0)))

(defun plv-optimal-fiche:voir (profil valeurs souhait / refus couloir trouve)
  (setq refus (plv-optimal:refus-souhait profil (plv-cle "genre" valeurs) souhait)
        couloir (if (not refus) (plv-optimal:demander-couloir profil souhait))
        trouve
         (cond
           (refus (list nil nil refus))
           ((= (plv-optimal-fiche:methode valeurs) "Coût") (plv-optimal-fiche:de-cout profil valeurs souhait))
           ((= (plv-optimal-fiche:methode valeurs) "Recherche") (list nil '("La ligne est cherchée par le module quand la fiche est acceptée.") nil))
           (T (plv-optimal-fiche:de-sommets profil souhait))))
  (plv-regard
    (if (caddr trouve) (list (list (if refus "profil" "maximum") (caddr trouve))))
    (list
      (plv-image-profil profil (append (plv-traits-profil profil) (if couloir (plv-optimal-fiche:poignees couloir)) (car trouve))))
    (cadr trouve) (plv-optimal-fiche:caches valeurs profil) nil))

;; what is found: (items texts fault)

(defun plv-optimal-fiche:de-sommets (profil souhait / proposition)
  (setq proposition (plv-optimal:demander-ligne profil souhait))
  (cond
    ((not proposition) (list nil nil "aucune ligne n'est trouvée"))
    ((and (plv-proposition-faute proposition) (not (plv-souhait-approchee souhait)))
     (list (plv-image-traits "fenetre" (apply 'append (plv-proposition-fenetres proposition))) nil
           (plv-optimal:contradiction (plv-proposition-faute proposition) (plv-souhait-pentes souhait))))
    (T
     (list
       (append (plv-image-traits "fenetre" (apply 'append (plv-proposition-fenetres proposition)))
               (plv-image-traits "projet" (plv-proposition-lignes proposition)))
       (append
         (plv-optimal-fiche:dire (plv-proposition-lignes proposition) (plv-proposition-prouvee proposition)
           (plv-reel (plv-proposition-aire proposition) 2))
         (if (plv-souhait-pas souhait) (list (plv-optimal:dire-rondeur souhait proposition))))
       nil))))

(defun plv-optimal-fiche:dire (lignes prouvee aire)
  (list
    (strcat (plv-compte (apply '+ (mapcar 'length lignes)) "sommet") (if prouvee "; aucune ligne de la bande n'en a moins." "."))
    (strcat "Aire entre le terrain et la ligne: " aire " m2.")))

(defun plv-optimal-fiche:de-cout (profil valeurs souhait / prix trouve)
  (setq prix (plv-essayer 'plv-lire-prix (list (plv-fiche-fichier valeurs "prix"))))
  (cond
    ((not (car prix)) (list nil nil (cadr prix)))
    ((setq trouve (plv-optimal:refus-prix (car prix))) (list nil nil trouve))
    ((not (setq trouve (plv-optimal:demander-cout profil souhait (car prix)))) (list nil nil "le pas des altitudes est trop fin pour cette recherche"))
    ((not (car trouve)) (list nil nil (plv-optimal:impasse profil souhait (cadr trouve))))
    (T
     (list (plv-image-traits "projet" (list (plv-optimal:sommets-cout (car trouve) (plv-premiere-station profil))))
           (list (strcat (plv-compte (length (car trouve)) "regard") ", coût " (plv-reel (car (cadr trouve)) 2) "."))
           nil))))

;; --- doing

(defun plv-optimal-fiche:faire (valeurs / profil genre souhait anciens fait)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs)
        souhait (plv-optimal-fiche:souhait profil valeurs (plv-optimal-fiche:contraintes valeurs))
        anciens (if (and (plv-cle "remplacer" valeurs) (not (plv-cle "variante" valeurs))) (plv-elements-du-projet profil genre))
        fait
         (cond
           ((= (plv-optimal-fiche:methode valeurs) "Recherche") (plv-optimal-recherche profil genre souhait nil))
           ((= (plv-optimal-fiche:methode valeurs) "Coût")
            (plv-optimal-cout profil genre souhait (plv-lire-prix (plv-fiche-fichier valeurs "prix"))))
           (T (plv-optimal-sommets profil genre souhait (plv-cle "couloir" valeurs)))))
  (if (and fait anciens) (plv-effacer-courbes profil anciens))
  fait)

(plv-declarer-fiche "PLV-OPTIMAL" "Ligne optimale" "Proposer" 'plv-optimal-fiche:champs 'plv-optimal-fiche:regarder 'plv-optimal-fiche:faire)
