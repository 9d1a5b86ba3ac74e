;; What the profile's menu runs: dimensions, associations, one row filled again, a project validated.
;; The names are those that the module writes into the menu.

(setq plv-courant nil)

(defun plv-choix-profil (profil)
  "Makes a profile the current one: its tables are the selected ones and its menu is up."
  (setq plv-courant profil)
  (pl_ChoixProfil profil)
  profil)

(defun plv-profil-courant (/ profil)
  "The current profile with its tables loaded; asked for when there is none, or when it is gone."
  (if (setq profil (cond ((and plv-courant (member plv-courant (plv-profils))) plv-courant) ((plv-choisir-profil))))
    (plv-choix-profil profil)))

(defun c:plv-choisir (/ profil)
  (if (setq profil (plv-choisir-profil)) (plv-choix-profil profil))
  (princ))

;; --- dimensions

(defun plv-cotes:decalage (profil)
  "Ordinate of the row of altitudes over the support: above the highest ground."
  (+ (plv-habillage:hauteur (plv-points-tn profil) (plgxd profil "ECHV") (plv-tables:plans profil)) (* 2.0 (plgxd profil "TTXT"))))

(defun plv-cotes:axes (profil)
  "Abscissas of the axes between sections; the first one ends below the dimensions."
  (mapcar '(lambda (plan) (+ (cadr (assoc 10 (entget profil))) (car plan))) (cdr (plv-tables:plans profil))))

(defun plv-cotes:place (groupes)
  "The room along the profile that a dimension needs."
  (if (> (abs (sin (plv-cle 50 groupes))) 0.7)
    (* 1.2 (plv-cle 40 groupes))
    (+ (* 0.5 (plv-cle 40 groupes)) (* 0.8 (plv-largeur-texte (plv-cle 1 groupes) (plv-cle 40 groupes))))))

(defun plv-cotes:eclaircir (textes axes / x groupes precedent retires)
  "Erases the dimensions of a row that stand on an axis or too close behind the one before; gives their number."
  (setq retires 0)
  (foreach e (vl-sort textes '(lambda (a b) (< (cadr (assoc 11 (entget a))) (cadr (assoc 11 (entget b))))))
    (setq groupes (entget e) x (cadr (assoc 11 groupes)))
    (if (or (and precedent (< (- x precedent) (plv-cotes:place groupes)))
            (vl-some '(lambda (a) (< (abs (- x a)) (* 0.9 (plv-cle 40 groupes)))) axes))
      (progn (entdel e) (setq retires (1+ retires)))
      (setq precedent x)))
  retires)

(defun plv-cotes (profil genre rotation lesquelles / textes jeu signes retires)
  "Dimensions of the curves that the user picks. lesquelles: \"Toutes\", \"Altitudes\" or \"Hauteurs\" (over the ground).
Those that would overlap are left out. Gives the selection set of the curves."
  (plv-creer-calques)
  (setq textes (plv-ajouts-de
                 '(lambda ()
                    (plv-avec-calque "PLV-COTES"
                      '(lambda ()
                         (setq jeu (pl_cotauto profil genre (float (plv-cotes:decalage profil)) (float rotation)
                                     (if (= lesquelles "Hauteurs") 0 1) (if (= lesquelles "Altitudes") 0 1)))))))
        textes (vl-remove-if-not '(lambda (e) (= (plv-cle 0 (entget e)) "TEXT")) textes)
        signes (vl-remove-if-not '(lambda (e) (wcmatch (plv-cle 1 (entget e)) "[-+]*")) textes)
        retires (+ (plv-cotes:eclaircir signes (plv-cotes:axes profil))
                   (plv-cotes:eclaircir (vl-remove-if '(lambda (e) (member e signes)) textes) nil)))
  (plv-dire (strcat (itoa (- (length textes) retires)) " cotes"
                    (if (> retires 0) (strcat ", " (itoa retires) " laissees faute de place.") ".")))
  jeu)

(defun CotAutoKavel (/ profil genre lesquelles)
  (if (and (setq profil (plv-profil-courant)) (plv-statiques-verifies profil))
    (progn
      (setq genre (plv-demander-genre "Projet")
            lesquelles (plv-demander-mot "Cotes" '("Toutes" "Altitudes" "Hauteurs") "Toutes"))
      (plv-cotes profil genre (* 0.5 pi) lesquelles)))
  (princ))

;; --- associations

(defun c:assocprjKavel (/ profil support)
  (if (and (setq profil (plv-profil-courant))
           (setq support (cond ((plv-support profil (plv-demander-genre "Projet"))) (T (plv-erreur "ce profil n'a pas de support de ce genre")))))
    (pl_assoc_prj support))
  (princ))

(defun c:pl_efixKAVEL (/ profil)
  (if (and (setq profil (plv-profil-courant)) (plv-statiques-verifies profil))
    (pl_efix profil (plv-demander-genre "Assainissement")))
  (princ))

(defun plv-transferer (profil genre / elements)
  "The validated project becomes the profile's line of a kind: its elements go over, those that were that line stay
attached to the kind but are no longer part of the project. Gives the elements, or nil after a message."
  (setq elements (plv-elements-du-projet profil "Projet"))
  (cond
    ((not elements) (plv-erreur "pas de projet a valider"))
    ((= genre "Projet") (plv-erreur "le projet est deja de ce genre"))
    ((not (plv-support profil genre)) (plv-erreur (strcat "ce profil n'a pas de support pour le genre " genre)))
    (T
     (foreach e (plv-elements-du-projet profil genre) (plsxd e "ELEMDUPROJET" 0))
     (plv-attacher profil genre elements)
     (plv-elements-ecrire profil "Projet"
       (vl-remove-if '(lambda (e) (member e elements)) (plv-elements:enregistres profil "Projet")))
     (plv-dire (strcat (itoa (length elements)) " elements du projet deviennent la ligne " genre "."))
     elements)))

(defun c:transfererProjet (/ profil)
  (if (setq profil (plv-profil-courant)) (plv-transferer profil (plv-demander-genre "Voirie")))
  (princ))
