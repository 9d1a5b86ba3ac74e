;; Dimensions of the curves of a kind of line. The module writes them, one curve at a time; what the same curve had goes before,
;; what would overlap is taken away, and the rest is put in rows, see plv-cotes-posees.
;; The name of the command is the one that the module writes into the profile's menu.

(defun plv-cotes:axes (profil)
  "Abscissas of the axes between sections of planes; the first one ends below the dimensions."
  (mapcar '(lambda (d) (+ (car (plv-origine profil)) d)) (plv-changements (plv-plans profil))))

(defun plv-cotes:abscisse (e) (car (plv-cote-point e)))

(defun plv-cotes:place (groupes)
  "The room along the profile that a dimension needs."
  (if (> (abs (sin (plv-cle 50 groupes))) 0.7)
    (* 1.2 (plv-cle 40 groupes))
    (+ (* 0.5 (plv-cle 40 groupes)) (* 0.8 (plv-largeur-texte (plv-cle 1 groupes) (plv-cle 40 groupes))))))

(defun plv-cotes:sur-un-axe-p (x axes hauteur)
  (vl-some '(lambda (a) (< (abs (- x a)) (* 0.9 hauteur))) axes))

(defun plv-cotes:serrees (cotes axes / x groupes precedent serrees)
  "Those of a row that stand on an axis or too close after the one before."
  (foreach e (vl-sort cotes '(lambda (a b) (< (plv-cotes:abscisse a) (plv-cotes:abscisse b))))
    (setq groupes (entget e) x (plv-cotes:abscisse e))
    (if (or (and precedent (< (- x precedent) (plv-cotes:place groupes)))
            (plv-cotes:sur-un-axe-p x axes (plv-cle 40 groupes)))
      (setq serrees (cons e serrees))
      (setq precedent x)))
  serrees)

(defun plv-cotes:eclaircir (profil genre / elements cotes)
  "Takes away the dimensions of a kind that would overlap."
  (setq elements (plv-elements profil genre)
        cotes (vl-remove-if-not '(lambda (c) (member (plv-cote-courbe c) elements)) (plv-cotes-du-profil profil)))
  (plv-effacer-cotes
    (append (plv-cotes:serrees (vl-remove-if 'plv-cote-altitude-p cotes) (plv-cotes:axes profil))
            (plv-cotes:serrees (vl-remove-if-not 'plv-cote-altitude-p cotes) nil))))

;; --- what a curve had

(defun plv-cotes:atteint-p (courbe x / boite)
  (if courbe
    (progn (setq boite (plv-boite courbe)) (<= (- (car boite) 1e-3) x (+ (caddr boite) 1e-3)))))

(defun plv-cote-porteuse (cote elements / x courbe)
  "The curve of a dimension where that still reaches it; a change of plane may have cut it: else the element of its kind that does."
  (setq x (plv-cotes:abscisse cote) courbe (plv-cote-courbe cote))
  (cond ((plv-cotes:atteint-p courbe x) courbe)
        ((if (or (member courbe elements) (not (plv-existe courbe))) (car (vl-member-if '(lambda (e) (plv-cotes:atteint-p e x)) elements))))
        (courbe)))

(defun plv-cotes:anciennes (profil genre courbes / elements)
  (setq elements (append courbes (plv-elements profil genre)))
  (vl-remove-if-not '(lambda (c) (member (plv-cote-porteuse c elements) courbes)) (plv-cotes-du-profil profil)))

;; --- writing

(defun plv-cotes:sans-moins-zero (cote / groupes texte)
  "A height that rounds to zero is +0.00, an altitude 0.00."
  (setq groupes (entget cote) texte (plv-sans-moins-zero (plv-cle 1 groupes)))
  (if (/= texte (plv-cle 1 groupes))
    (entmod (subst (cons 1 (if (plv-cote-altitude-p cote) texte (strcat "+" texte))) (assoc 1 groupes) groupes))))

(defun plv-cotes:appeler (profil genre rotation lesquelles courbe point)
  "What the module writes for a curve."
  (plv-ajouts-de
    '(lambda ()
       (plv-avec-calque "PLV-COTES"
         '(lambda ()
            (dialoguer
              '(lambda ()
                 (pl_cotauto profil genre 0.0 (float rotation)
                   (if (= lesquelles "Hauteurs") 0 1) (if (= lesquelles "Altitudes") 0 1)))
              (list (list courbe point))))))))

(defun plv-cotes:par-cordes (profil genre rotation lesquelles courbe cordes point / groupes cotes)
  "The same for a curve with arcs, of which the module would take the chords from end to end. It makes a project element of what it
dimensions: that is the curve, not the chords."
  (plv-attacher profil genre (list courbe))
  (setq groupes (plv-enregistrement-elements (plv-support profil genre))
        cotes (plv-cotes:appeler profil genre rotation lesquelles cordes point))
  (plv-rendre-elements profil genre groupes)
  (entdel cordes)
  cotes)

(defun plv-cotes:ecrire (profil genre rotation lesquelles courbe / boite point cordes cotes)
  "The dimensions of a curve, written by the module. Its middle tells the module the plane that it is drawn over."
  (setq boite (plv-boite courbe)
        point (plv-point (* 0.5 (+ (car boite) (caddr boite))) (cadr boite))
        cordes (plv-cordes-de courbe)
        cotes
         (if cordes
           (plv-cotes:par-cordes profil genre rotation lesquelles courbe cordes point)
           (plv-cotes:appeler profil genre rotation lesquelles courbe point)))
  (mapcar 'plv-cotes:sans-moins-zero cotes)
  (plv-noter-cotes cotes profil courbe)
  cotes)

(defun plv-cotes:dire (ecrites / laissees)
  (setq laissees (length (vl-remove-if 'plv-existe ecrites)))
  (plv-dire (strcat (plv-compte (- (length ecrites) laissees) "cote")
                    (if (> laissees 0) (strcat ", " (plv-compte laissees "laissée") " faute de place.") "."))))

(defun plv-cotes:voisins (profil genre courbes)
  "The facts of the other dimensioned curves of a kind that know those beside them as they are."
  (vl-remove-if-not '(lambda (f) (and (= (plv-fait-chose f) "COTES") (plv-source-vraie-p profil f "voisines")))
    (apply 'append (mapcar 'plv-faits-sur (vl-remove-if '(lambda (e) (member e courbes)) (plv-elements profil genre))))))

(defun plv-coter (profil genre rotation lesquelles courbes / anciennes voisins ecrites)
  "Dimensions of curves, in place of those that they have. lesquelles: \"Toutes\", \"Altitudes\" or \"Hauteurs\" (over the
ground). Those that would overlap are left out. Gives those that are written."
  (plv-creer-calques)
  ;; where there were none, no place becomes free beside them: what stands there is as if all had been written at once
  (setq anciennes (plv-cotes:anciennes profil genre courbes)
        voisins (if (not anciennes) (plv-cotes:voisins profil genre courbes)))
  (plv-effacer-cotes anciennes)
  (plv-oublier-fixes-effaces profil)
  (setq ecrites (apply 'append (mapcar '(lambda (c) (plv-cotes:ecrire profil genre rotation lesquelles c)) courbes)))
  (plv-cotes:eclaircir profil genre)
  (plv-ranger-cotes profil genre)
  (plv-rehausser-titre profil)
  (plv-noter-faits profil (mapcar '(lambda (c) (plv-fait "COTES" nil c (list lesquelles (rtos rotation 2 8)))) courbes))
  (plv-renoter-source profil voisins "voisines")
  (plv-cotes:dire ecrites)
  (vl-remove-if-not 'plv-existe ecrites))

(defun plv-cotes-lesquelles (cotes / roles)
  "Which ones dimensions are, in the words of the question."
  (setq roles (plv-uniques (mapcar 'plv-cote-altitude-p cotes)))
  (cond ((cdr roles) "Toutes") ((car roles) "Altitudes") ("Hauteurs")))

(defun plv-recoter (profil genre courbes / cotes attachees)
  "Dimensions of curves anew, as one of them has them, after they have changed; nothing when none has any. What is only attached
to the kind stays so: the module takes every curve that it dimensions into the project."
  (setq cotes (vl-remove-if-not '(lambda (c) (member (plv-cote-courbe c) courbes)) (plv-cotes-du-profil profil))
        attachees (vl-remove-if 'plv-du-projet courbes))
  (if cotes
    (progn
      (plv-coter profil genre (plv-cle 50 (entget (car cotes))) (plv-cotes-lesquelles cotes) courbes)
      (foreach e attachees (plv-marquer-du-projet e nil)))))

;; --- the command

(defun plv-cotes:demander (profil / pris faute courbes)
  "The curves that the user picks."
  (plv-dire "Selectionnez les éléments que vous voulez coter")
  (while (setq pris (entsel "\nElement :"))
    (if (setq faute (plv-refus-situation profil (car pris)))
      (plv-erreur faute)
      (setq courbes (cons (car pris) courbes))))
  (plv-uniques (reverse courbes)))

(defun plv-cotes (profil genre rotation lesquelles / courbes)
  "Dimensions of the curves that the user picks."
  (if (setq courbes (plv-cotes:demander profil)) (plv-coter profil genre rotation lesquelles courbes)))

(defun CotAutoKavel (/ profil genre)
  (if (and (setq profil (plv-profil-courant)) (plv-statiques-verifies profil))
    (progn
      (setq genre (plv-demander-genre "Projet"))
      (plv-cotes profil genre (* 0.5 pi) (plv-demander-mot "Cotes" '("Toutes" "Altitudes" "Hauteurs") "Toutes"))))
  (princ))
