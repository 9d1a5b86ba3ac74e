;; Dimensions of the curves of a kind of line: the module writes them, what would overlap is taken away again.
;; The name of the command is the one that the module writes into the profile's menu.

(defun plv-cotes:decalage (profil)
  "Ordinate of the row of altitudes over the support: above the highest ground."
  (+ (plv-hauteur-profil profil) (* 2.0 (plv-ttxt profil))))

(defun plv-cotes:axes (profil)
  "Abscissas of the axes between sections of planes; the first one ends below the dimensions."
  (mapcar '(lambda (d) (+ (car (plv-origine profil)) d)) (plv-changements (plv-plans profil))))

(defun plv-cotes:abscisse (e) (cadr (assoc 11 (entget e))))

(defun plv-cotes:place (groupes)
  "The room along the profile that a dimension needs."
  (if (> (abs (sin (plv-cle 50 groupes))) 0.7)
    (* 1.2 (plv-cle 40 groupes))
    (+ (* 0.5 (plv-cle 40 groupes)) (* 0.8 (plv-largeur-texte (plv-cle 1 groupes) (plv-cle 40 groupes))))))

(defun plv-cotes:sur-un-axe-p (x axes hauteur)
  (vl-some '(lambda (a) (< (abs (- x a)) (* 0.9 hauteur))) axes))

(defun plv-cotes:eclaircir (textes axes / x groupes precedent retires)
  "Erases the dimensions of a row that stand on an axis or too close after the one before; gives their number."
  (setq retires 0)
  (foreach e (vl-sort textes '(lambda (a b) (< (plv-cotes:abscisse a) (plv-cotes:abscisse b))))
    (setq groupes (entget e) x (plv-cotes:abscisse e))
    (if (or (and precedent (< (- x precedent) (plv-cotes:place groupes)))
            (plv-cotes:sur-un-axe-p x axes (plv-cle 40 groupes)))
      (progn (entdel e) (setq retires (1+ retires)))
      (setq precedent x)))
  retires)

(defun plv-cotes:ecrire (profil genre rotation lesquelles)
  "(selection set of the curves, entities that were written)."
  (plv-executer
    '(lambda ()
       (plv-avec-calque "PLV-COTES"
         '(lambda ()
            (pl_cotauto profil genre (float (plv-cotes:decalage profil)) (float rotation)
              (if (= lesquelles "Hauteurs") 0 1) (if (= lesquelles "Altitudes") 0 1)))))))

(defun plv-cotes (profil genre rotation lesquelles / ecrites textes signes retires)
  "Dimensions of the curves that the user picks. lesquelles: \"Toutes\", \"Altitudes\" or \"Hauteurs\" (over the ground).
Those that would overlap are left out. Gives the selection set of the curves."
  (plv-creer-calques)
  (setq ecrites (plv-cotes:ecrire profil genre rotation lesquelles)
        textes (vl-remove-if-not '(lambda (e) (= (plv-type e) "TEXT")) (cadr ecrites))
        signes (vl-remove-if-not '(lambda (e) (wcmatch (plv-cle 1 (entget e)) "[-+]*")) textes)
        retires (+ (plv-cotes:eclaircir signes (plv-cotes:axes profil))
                   (plv-cotes:eclaircir (vl-remove-if '(lambda (e) (member e signes)) textes) nil)))
  (plv-dire (strcat (itoa (- (length textes) retires)) " cotes"
                    (if (> retires 0) (strcat ", " (itoa retires) " laissées faute de place.") ".")))
  (car ecrites))

(defun CotAutoKavel (/ profil genre lesquelles)
  (if (and (setq profil (plv-profil-courant)) (plv-statiques-verifies profil))
    (progn
      (setq genre (plv-demander-genre "Projet")
            lesquelles (plv-demander-mot "Cotes" '("Toutes" "Altitudes" "Hauteurs") "Toutes"))
      (plv-cotes profil genre (* 0.5 pi) lesquelles)))
  (princ))
