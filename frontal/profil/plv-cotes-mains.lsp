;; Where a dimension was put and what was written: with these a dimension is known that a hand has moved, rewritten or coloured. They are
;; keys of the text itself, its place counted from the profile's origin; what moves it for a reason moves its place with it.

(defun plv-cotes-mains:lieu (profil cote)
  (mapcar '- (plv-cote-point cote) (plv-origine profil)))

(defun plv-cotes-mains:mots (cote) (plv-cle 1 (entget cote)))

(defun plv-noter-place-cote (profil cote / lieu)
  "A dimension is where it belongs."
  (setq lieu (plv-cotes-mains:lieu profil cote))
  (plv-ecrire-cles cote
    (list (list "COTEX" (car lieu)) (list "COTEY" (cadr lieu)) (list "COTETEXTE" (plv-cotes-mains:mots cote)))))

(defun plv-monter-place-cote (cote dy / y)
  "A dimension goes up to make room."
  (if (numberp (setq y (plgxd cote "COTEY"))) (plsxd cote "COTEY" (+ y dy))))

(defun plv-cotes-mains:couleur (cote / couleur)
  "A colour of its own; nil for its layer's."
  (if (not (member (setq couleur (plv-cle 62 (entget cote))) '(nil 256))) couleur))

;; --- a gesture: (curve altitude-p x words dx dy new-words colour), its place as it was, the last two nil where they are as they were

(defun plv-geste-courbe (geste) (car geste))
(defun plv-geste-altitude-p (geste) (cadr geste))
(defun plv-geste-x (geste) (caddr geste))
(defun plv-geste-mots (geste) (cadddr geste))
(defun plv-geste-deplacement (geste) (list (nth 4 geste) (nth 5 geste)))
(defun plv-geste-texte (geste) (nth 6 geste))
(defun plv-geste-couleur (geste) (nth 7 geste))

(defun plv-cotes-mains:geste (profil cote / x y mots lieu ecrit)
  "What a hand has done to a dimension; nothing for one whose place isn't known."
  (setq x (plgxd cote "COTEX") y (plgxd cote "COTEY") mots (plgxd cote "COTETEXTE") lieu (plv-cotes-mains:lieu profil cote)
        ecrit (plv-cotes-mains:mots cote))
  (if (and (numberp x) (numberp y) (= (type mots) 'STR))
    (list (plv-cote-courbe cote) (plv-cote-altitude-p cote) x mots (- (car lieu) x) (- (cadr lieu) y)
          (if (/= ecrit mots) ecrit) (plv-cotes-mains:couleur cote))))

(defun plv-cotes-mains:touchee-p (geste)
  (or (plv-geste-texte geste) (plv-geste-couleur geste) (not (equal (plv-geste-deplacement geste) '(0.0 0.0) 1e-3))))

(defun plv-gestes-cotes (profil)
  "What hands have done to the dimensions of a profile."
  (vl-remove-if-not 'plv-cotes-mains:touchee-p
    (vl-remove nil (mapcar '(lambda (c) (plv-cotes-mains:geste profil c)) (plv-cotes-du-profil profil)))))

;; --- done again

(defun plv-cotes-mains:trouver (profil geste / places)
  "The dimension that now stands for one: of its curve, or of a piece that was cut off it."
  (setq places
    (vl-remove-if-not
      '(lambda (c)
         (and (equal (plgxd c "COTEX") (plv-geste-x geste) 1e-3) (eq (plv-cote-altitude-p c) (plv-geste-altitude-p geste))))
      (plv-cotes-du-profil profil)))
  (cond ((car (vl-member-if '(lambda (c) (eq (plv-cote-courbe c) (plv-geste-courbe geste))) places))) ((car places))))

(defun plv-deplacer-texte (texte d / groupes)
  "Both points of a text."
  (setq groupes (entget texte))
  (foreach code '(10 11)
    (setq groupes (subst (cons code (mapcar '+ (plv-cle code groupes) (list (car d) (cadr d) 0.0))) (assoc code groupes) groupes)))
  (entmod groupes))

(defun plv-refaire-geste (texte deplacement mots couleur / groupes)
  "Moves, rewrites and colours a text, each when it is given."
  (if deplacement (plv-deplacer-texte texte deplacement))
  (setq groupes (entget texte))
  (if mots (setq groupes (subst (cons 1 mots) (assoc 1 groupes) groupes)))
  (if couleur (setq groupes (append (vl-remove-if '(lambda (g) (= (car g) 62)) groupes) (list (cons 62 couleur)))))
  (if (or mots couleur) (entmod groupes)))

(defun plv-cotes-mains:refaire (profil geste / cote tenu)
  "T when all of a gesture could be kept."
  (if (setq cote (plv-cotes-mains:trouver profil geste))
    (progn
      (setq tenu (or (not (plv-geste-texte geste)) (= (plv-cotes-mains:mots cote) (plv-geste-mots geste))))
      (plv-refaire-geste cote (plv-geste-deplacement geste) (if tenu (plv-geste-texte geste)) (plv-geste-couleur geste))
      tenu)))

(defun plv-cotes-mains:en-mots (geste)
  (strcat "cote " (plv-geste-mots geste) (if (plv-geste-texte geste) (strcat ", écrite « " (plv-geste-texte geste) " »") ", déplacée")))

(defun plv-refaire-gestes-cotes (profil gestes)
  "Does to the dimensions what hands had done; in words what could not be kept."
  (mapcar 'plv-cotes-mains:en-mots (vl-remove-if '(lambda (g) (plv-cotes-mains:refaire profil g)) gestes)))

;; --- a change of plane moves dimensions: their places follow, what hands did stays

(defun plv-ecarts-cotes (profil)
  (vl-remove-if-not 'cdr (mapcar '(lambda (c) (cons c (plv-cotes-mains:geste profil c))) (plv-cotes-du-profil profil))))

(defun plv-suivre-cotes (profil ecarts / geste d)
  (foreach c (plv-cotes-du-profil profil)
    (setq geste (plv-cle c ecarts) d (if geste (plv-geste-deplacement geste) '(0.0 0.0)))
    (plv-noter-place-cote profil c)
    (plv-ecrire-cles c
      (list (list "COTEX" (- (plgxd c "COTEX") (car d))) (list "COTEY" (- (plgxd c "COTEY") (cadr d)))
            (list "COTETEXTE" (if (and geste (plv-geste-texte geste)) (plv-geste-mots geste) (plv-cotes-mains:mots c)))))))
