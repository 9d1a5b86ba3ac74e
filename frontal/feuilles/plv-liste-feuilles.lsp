;; A list of the sheets of a set as its first pages: a table on the paper itself, in the template's frame and title block.
;; Sheets are those of plv-feuilles; of one page of the list there are only texts and what is drawn on it, no view.
;; Shared in the room: plv-liste:*

;; title, width in millimetres
(setq plv-liste:colonnes '(("N°" 16.0) ("Profil" 60.0) ("De la station à la station" 64.0) ("Échelles" 46.0) ("Plan" 18.0))
      plv-liste:titre "Liste des feuilles" plv-liste:tete 14.0 plv-liste:rangee 6.5 plv-liste:retrait 1.5)

(defun plv-liste:par-page (place) "How many rows a page holds, one of them for the titles of the columns."
  (max 1 (1- (fix (/ (- (plv-place-hauteur place) plv-liste:tete) plv-liste:rangee)))))

(defun plv-liste-pages (nombre place) "How many pages the list of so many sheets takes."
  (/ (+ nombre (plv-liste:par-page place) -1) (plv-liste:par-page place)))

;; --- the cells

(defun plv-liste:rangee-de (feuille / textes)
  "What the list says of a sheet."
  (setq textes (caddr feuille))
  (append (mapcar '(lambda (marque) (plv-cle marque textes)) '("<FEUILLE>" "<PROFIL>" "<STATIONS>"))
    (list (strcat (plv-cle "<ECHELLE_H>" textes) " - " (plv-cle "<ECHELLE_V>" textes)) (if (nth 5 feuille) "oui" "non"))))

(defun plv-liste:abscisses (/ x abscisses)
  "The edges of the columns, one more than they are."
  (setq x 0.0 abscisses '(0.0))
  (foreach c plv-liste:colonnes (setq x (+ x (cadr c)) abscisses (cons x abscisses)))
  (reverse abscisses))

(defun plv-liste:ecrire (textes hauteur y)
  "A row of texts whose lower edge is at y."
  (mapcar '(lambda (texte x) (list "T" hauteur 0 texte (+ x plv-liste:retrait) (+ y 2.0))) textes (plv-liste:abscisses)))

(defun plv-liste:trait (x1 y1 x2 y2) (list "L" 0.18 x1 y1 x2 y2))

(defun plv-liste:dessins (rangees place / haut largeur y dessins)
  "The table of a page, from the top of the room."
  (setq haut (- (plv-place-hauteur place) plv-liste:tete) largeur (plv-dernier (plv-liste:abscisses)) y haut
        dessins (list (list "T" 5.0 0 plv-liste:titre 0.0 (+ haut 5.0)) (plv-liste:trait 0.0 haut largeur haut)))
  (foreach textes (cons (mapcar 'car plv-liste:colonnes) rangees)
    (setq y (- y plv-liste:rangee)
          dessins (append dessins (plv-liste:ecrire textes (if (= y (- haut plv-liste:rangee)) 2.0 2.5) y) (list (plv-liste:trait 0.0 y largeur y)))))
  (append dessins (mapcar '(lambda (x) (plv-liste:trait x haut x y)) (plv-liste:abscisses))))

;; --- the pages

(defun plv-liste:profils (feuilles / numeros)
  "What the title block says of profiles: the number of the only one, else how many they are."
  (foreach f feuilles
    (if (not (member (plv-cle "<PROFIL>" (caddr f)) numeros)) (setq numeros (cons (plv-cle "<PROFIL>" (caddr f)) numeros))))
  (if (cdr numeros) (plv-compte (length numeros) "profil") (car numeros)))

(defun plv-liste:textes (feuilles titre rang)
  (append (plv-cartouche-marques)
    (list (cons "<SIGNET>" (strcat plv-liste:titre (if (= rang 1) "" (strcat ", page " (itoa rang))))) (cons "<TITRE>" titre)
          (cons "<PROFIL>" (plv-liste:profils feuilles)) (cons "<FEUILLE>" (itoa rang)) (cons "<ECHELLE_H>" "") (cons "<ECHELLE_V>" "")
          (cons "<STATIONS>" "") (cons "<DATE>" (plv-date-du-jour)) (cons "<DESSIN>" (getvar "DWGNAME"))
          (cons "<RACCORD_GAUCHE>" "") (cons "<RACCORD_DROITE>" ""))))

(defun plv-liste-feuilles (feuilles place titre / reste pages)
  "The pages of the list, which stand before these sheets."
  (setq reste (mapcar 'plv-liste:rangee-de feuilles))
  (while reste
    (setq pages (cons (list (car (car feuilles)) nil (plv-liste:textes feuilles titre (1+ (length pages))) nil nil nil
                        (plv-liste:dessins (plv-premiers reste (plv-liste:par-page place)) place))
                  pages)
          reste (plv-sans-premiers reste (plv-liste:par-page place))))
  (reverse pages))
