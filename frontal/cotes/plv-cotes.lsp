;; Dimensions of the curves of a kind of line. The module writes them, one curve at a time; what the same curve had goes before,
;; what would overlap is taken away, and the rest is put in rows, see plv-cotes-posees.
;; The name of the command is the one that the module writes into the profile's menu.

(defun plv-cotes:axes (profil)
  "Abscissas of the axes between sections of planes; the first one ends below the dimensions."
  (mapcar '(lambda (d) (+ (car (plv-origine profil)) d)) (plv-changements (plv-plans profil))))

(defun plv-cotes:place (pose)
  "The room along the profile that a dimension needs."
  (if (> (abs (sin (plv-pose-rotation pose))) 0.7)
    (* 1.2 (plv-pose-hauteur pose))
    (+ (* 0.5 (plv-pose-hauteur pose)) (* 0.8 (plv-largeur-texte (plv-pose-mots pose) (plv-pose-hauteur pose))))))

(defun plv-cotes:sur-un-axe-p (x axes hauteur)
  (vl-some '(lambda (a) (< (abs (- x a)) (* 0.9 hauteur))) axes))

(defun plv-cotes:eclaircies (poses axes / x precedent gardees serrees)
  "A row without those that stand on an axis or too close after the one before: (kept left-out)."
  (foreach pose (vl-sort poses '(lambda (a b) (< (plv-pose-abscisse a) (plv-pose-abscisse b))))
    (setq x (plv-pose-abscisse pose))
    (if (or (and precedent (< (- x precedent) (plv-cotes:place pose)))
            (plv-cotes:sur-un-axe-p x axes (plv-pose-hauteur pose)))
      (setq serrees (cons pose serrees))
      (setq precedent x gardees (cons pose gardees))))
  (list gardees serrees))

(defun plv-poses-eclaircies (profil genre poses / elements mienne-p miennes)
  "Poses, latest first, without those of a kind that would overlap: (kept left-out)."
  (setq elements (plv-elements profil genre)
        mienne-p '(lambda (p) (member (plv-pose-courbe p) elements))
        miennes (vl-remove-if-not mienne-p poses))
  (mapcar 'append
    (plv-cotes:eclaircies (vl-remove-if 'plv-pose-altitude-p miennes) (plv-cotes:axes profil))
    (plv-cotes:eclaircies (vl-remove-if-not 'plv-pose-altitude-p miennes) nil)
    (list (vl-remove-if mienne-p poses) nil)))

(defun plv-cotes:eclaircir (profil genre)
  "Takes away the dimensions of a kind that would overlap."
  (plv-effacer-cotes
    (mapcar 'plv-pose-cote (cadr (plv-poses-eclaircies profil genre (mapcar 'plv-pose-de (plv-cotes-du-profil profil)))))))

;; --- what a curve had

(defun plv-cotes:atteint-p (courbe x / boite)
  (if courbe
    (progn (setq boite (plv-lire-une-fois (list "boite" courbe) '(lambda () (plv-boite courbe)))) (<= (- (car boite) 1e-3) x (+ (caddr boite) 1e-3)))))

(defun plv-cote-porteuse (cote elements / x courbe)
  "The curve of a dimension where that still reaches it; a change of plane may have cut it: else the element of its kind that does."
  (setq x (car (plv-cote-point cote)) courbe (plv-cote-courbe cote))
  (cond ((plv-cotes:atteint-p courbe x) courbe)
        ((if (or (member courbe elements) (not (plv-existe courbe))) (car (vl-member-if '(lambda (e) (plv-cotes:atteint-p e x)) elements))))
        (courbe)))

(defun plv-cotes:anciennes (profil genre courbes / elements)
  (setq elements (append courbes (plv-elements profil genre)))
  (vl-remove-if-not '(lambda (c) (member (plv-cote-porteuse c elements) courbes)) (plv-cotes-du-profil profil)))

;; --- writing

(defun plv-cote-en-mots (mots altitude-p / sans)
  "A height that rounds to zero is +0.00, an altitude 0.00."
  (setq sans (plv-sans-moins-zero mots))
  (if (or altitude-p (= sans mots)) sans (strcat "+" sans)))

(defun plv-cotes:sans-moins-zero (cote / groupes texte)
  (setq groupes (entget cote) texte (plv-cote-en-mots (plv-cle 1 groupes) (plv-cote-altitude-p cote)))
  (if (/= texte (plv-cle 1 groupes)) (entmod (subst (cons 1 texte) (assoc 1 groupes) groupes))))

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

(defun plv-point-de-cotes (courbe / boite)
  "By which a curve is picked: its middle tells the module the plane that it is drawn over."
  (setq boite (plv-boite courbe))
  (plv-point (* 0.5 (+ (car boite) (caddr boite))) (cadr boite)))

(defun plv-cotes:ecrire (profil genre rotation lesquelles courbe / point cordes cotes)
  "The dimensions of a curve, written by the module."
  (setq point (plv-point-de-cotes courbe)
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
