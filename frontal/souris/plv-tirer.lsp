;; PLV-TIRER: vertices, slopes and curves of a line dragged, with what becomes of it seen all the while: the line and its curves, those that
;; overlap in red, depths at blocks and the least and greatest one.

(setq plv-tirer:portee 12.0 ; in pixels
      plv-tirer:en-cours nil)

;; --- what is dragged now, for who shows the line meanwhile: (profile kind runs number-of-the-vertex); nil for nothing

(defun plv-tirer-en-cours () plv-tirer:en-cours)
(defun plv-tirer-oublier () (setq plv-tirer:en-cours nil))

(defun plv-tirer:suivre (profil genre essai prise)
  "Notes a line as it would be; the line."
  (if (listp essai) (setq plv-tirer:en-cours (list profil genre essai (plv-prise-premier prise))))
  essai)

;; --- one drag

(defun plv-tirer:ou (scene suites prise facon frappes point / place avant)
  "The place (distance altitude word) that a point and typed numbers mean, or text; a curve goes where it is clicked, exactly, a range by a
round height."
  (setq avant (car (plv-ligne-voisins suites (plv-prise-premier prise)))
        place (if point (plv-vers-profil (plv-scene-cadre scene) point)))
  (cond
    ((or (not point) frappes) (plv-frappe-place scene avant frappes place))
    ((or (= facon "RAccord") (= (plv-prise-quoi prise) "C")) place)
    ((= (plv-prise-quoi prise) "P") (plv-tirer:a-hauteur-ronde scene suites place))
    ((plv-frappe-place scene avant frappes place))))

(defun plv-tirer:a-hauteur-ronde (scene suites place / h)
  (if (setq h (plv-geste-hauteur suites place))
    (list (car place) (+ (- (cadr place) h) (plv-scene-arrondir-z scene h)) "")
    place))

(defun plv-tirer:essai (scene suites prise facon frappes point / place)
  (setq place (plv-tirer:ou scene suites prise facon frappes point))
  (if (= (type place) 'STR) place (plv-geste suites prise facon (plv-premiers place 2) (plv-scene-sol scene))))

(defun plv-tirer:completer (facon suites prise frappes / voisins s)
  "Typed numbers with those of the vertex that the way leaves it."
  (setq voisins (plv-ligne-voisins suites (plv-prise-premier prise)) s (cadr voisins))
  (cond
    ((plv-frappe-complete-p frappes) frappes)
    ((= facon "Vertical") (cons (list "D" (car s)) frappes))
    ((and (= facon "Entree") (car voisins)) (cons (list "I" (plv-pente (car voisins) s)) frappes))
    ((member facon '("Horizontal" "SOrtie")) (cons (list "Z" (cadr s)) frappes))
    (frappes)))

(defun plv-tirer:poser (scene profil genre essai / faute)
  "Draws the line; T, or nil after a message."
  (cond
    ((setq faute (if (= (type essai) 'STR) essai (plv-ligne-faute profil essai))) (plv-dire (strcat "Refusé: " faute ".")) nil)
    ((plv-ligne-ecrire-avec-regards profil genre essai)
     (plv-dire (strcat (cond ((car (plv-tirer:extremes scene essai))) ("la ligne est changée")) "."))
     T)))

(defun plv-tirer:avec-raccord (suites prise demande / s)
  "The line with another curve at the hold's first vertex."
  (setq s (cadr (plv-ligne-voisins suites (plv-prise-premier prise))))
  (plv-ligne-changer suites (plv-prise-premier prise) (list (plv-sommet-de-ligne (car s) (cadr s) demande (plv-verrou s)))))

(defun plv-tirer:facon-tapee (prise texte)
  (car (vl-member-if '(lambda (f) (wcmatch (strcase f) (strcat (strcase texte) "*"))) (plv-geste-facons prise))))

(defun plv-tirer-prise (scene profil genre suites prise / facon frappes reponse lues fini)
  "Drags one hold until it is put down or given up. T when the line has changed."
  (setq facon (plv-geste-facon suites prise))
  (while (not fini)
    (setq reponse
      (plv-suivre
        (strcat "Nouvelle place, " (plv-prise-en-mots prise)
                (if (plv-geste-facons prise) (strcat " ou [" (plv-joindre (plv-geste-facons prise) "/") "] (" facon ")") "") " <laisser>")
        (plv-geste-facons prise)
        '(lambda (point)
           (plv-tirer:apercu scene suites (plv-tirer:suivre profil genre (plv-tirer:essai scene suites prise facon frappes point) prise) prise))))
    (cond
      ((member reponse '("" T)) (setq fini "laissé"))
      ((listp reponse) (if (plv-tirer:poser scene profil genre (plv-tirer:essai scene suites prise facon frappes reponse)) (setq fini T)))
      ((plv-tirer:facon-tapee prise reponse) (setq facon (plv-tirer:facon-tapee prise reponse) frappes nil))
      ((= (type (setq lues (plv-frappe reponse))) 'STR) (plv-dire (strcat "Illisible: " reponse "; " lues ".")))
      ((assoc "C" lues) (if (plv-tirer:poser scene profil genre (plv-tirer:avec-raccord suites prise (cadr (assoc "C" lues)))) (setq fini T)))
      (T
       (setq frappes (plv-frappe-joindre frappes lues) lues (plv-tirer:completer facon suites prise frappes))
       (if (and (plv-frappe-complete-p lues) (plv-tirer:poser scene profil genre (plv-tirer:essai scene suites prise facon lues nil)))
         (setq fini T)))))
  (plv-tirer-oublier)
  (= fini T))

;; --- choosing a hold

(setq plv-tirer:mots '("Inserer" "Supprimer" "Accrochages"))

(defun plv-tirer:montrer-prises (scene prises point / proche)
  (setq proche (plv-prise-en scene prises (plv-vers-profil (plv-scene-cadre scene) point) plv-tirer:portee))
  (list
    (apply 'append
      (mapcar
        '(lambda (p)
           (plv-traits-marque (plv-scene-cadre scene) (if (eq p proche) 1 5) (plv-prise-place p) (plv-scene-pixels (if (eq p proche) 6.0 4.0))))
        prises))
    (list (if proche (plv-prise-en-mots proche) ""))))

(defun plv-tirer:choisir (scene suites question mots / prises reponse)
  "A hold, a word, or nil for the end."
  (setq prises (plv-prises suites)
        reponse (plv-suivre question mots '(lambda (point) (plv-tirer:montrer-prises scene prises point))))
  (cond
    ((member reponse '("" T)) nil)
    ((listp reponse)
     (cond ((plv-prise-en scene prises (plv-vers-profil (plv-scene-cadre scene) reponse) plv-tirer:portee))
           (T (plv-dire "Il n'y a rien à tirer à cet endroit.") "")))
    ((plv-prise-nommee suites prises reponse))
    ((car (vl-member-if '(lambda (m) (wcmatch (strcase m) (strcat (strcase reponse) "*"))) mots)))
    (T (plv-dire (strcat "Illisible: " reponse "; attendu: un clic, 3 pour un sommet, 3-5 pour plusieurs, C3 pour un raccordement.")) "")))

(defun plv-tirer:inserer (scene profil genre suites / reponse place)
  "A vertex where it is clicked or typed."
  (setq reponse (plv-suivre "Nouveau sommet <aucun>" nil '(lambda (point) (plv-tirer:montrer-insertion scene suites point))))
  (if (not (member reponse '("" T)))
    (progn
      (setq place (if (listp reponse)
                    (plv-frappe-place scene nil nil (plv-vers-profil (plv-scene-cadre scene) reponse))
                    (if (= (type (setq place (plv-frappe reponse))) 'STR) place (plv-frappe-place scene nil place nil))))
      (plv-tirer:poser scene profil genre (if (= (type place) 'STR) place (plv-ligne-inserer suites (car place) (cadr place)))))))

(defun plv-tirer:montrer-insertion (scene suites point / place essai)
  (setq place (plv-frappe-place scene nil nil (plv-vers-profil (plv-scene-cadre scene) point))
        essai (if (listp place) (plv-ligne-inserer suites (car place) (cadr place)) place))
  (if (= (type essai) 'STR)
    (list nil (list essai))
    (list (plv-tirer:traits scene essai)
          (plv-scene-lecture scene nil place))))

(defun plv-tirer:supprimer (scene profil genre suites / prise)
  (setq prise (plv-tirer:choisir scene suites "Sommet à supprimer <aucun>" nil))
  (if (listp prise)
    (if prise (plv-tirer:poser scene profil genre (plv-ligne-supprimer suites (plv-prise-premier prise))))))

(defun plv-tirer (profil genre / scene suites prise)
  "Drags until the user has done."
  (setq scene (plv-scene profil) prise "")
  (while (and prise (setq suites (plv-lire-ligne profil genre)))
    (setq prise (plv-tirer:choisir scene suites "Sommet, pente ou raccordement à tirer ou [Inserer/Supprimer/Accrochages] <fin>" plv-tirer:mots))
    (cond
      ((= prise "Inserer") (plv-tirer:inserer scene profil genre suites))
      ((= prise "Accrochages") (plv-scene-regler))
      ((= prise "Supprimer") (plv-tirer:supprimer scene profil genre suites))
      ((and prise (listp prise)) (plv-tirer-prise scene profil genre suites prise))))
  (plv-suivre-fin))

(defun plv-tirer-en (profil genre point / scene suites prise)
  "Drags the hold that is nearest to a point of the drawing."
  (setq scene (plv-scene profil) suites (plv-lire-ligne profil genre)
        prise (plv-prise-en scene (plv-prises suites) (plv-vers-profil (plv-scene-cadre scene) point) 1e9))
  (if prise (plv-tirer-prise scene profil genre suites prise))
  (plv-suivre-fin))

(defun c:plv-tirer (/ profil genre faute)
  "Tire à la souris les sommets, les pentes et les raccordements d'une ligne de projet."
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq genre (plv-demander-genre (plv-genre-propose profil)))
      (if (setq faute (plv-ligne-refus profil genre)) (plv-erreur faute) (plv-tirer profil genre))))
  (princ))
