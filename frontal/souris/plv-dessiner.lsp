;; A project line drawn with the mouse: each click or typed place is a vertex; a refused one leaves those before it.
;; The line grows to either side, its vertices are kept in the order of their making.

(setq plv-dessiner:mots '("Retour" "Accrochages"))

;; --- what is under way: (vertices, the last one first; typed numbers that wait for a click)

(defun plv-dessiner:sommets (etat) (car etat))
(defun plv-dessiner:frappes (etat) (cadr etat))
(defun plv-dessiner:dernier (etat) (caar etat))

(defun plv-dessiner:en-ordre (sommets)
  "From left to right."
  (if (and (cdr sommets) (> (caar sommets) (caar (reverse sommets)))) (reverse sommets) sommets))

(defun plv-dessiner:faute (scene sommets / raccords)
  "Why vertices make no line; nil when they do, or one alone may begin one."
  (setq sommets (plv-dessiner:en-ordre sommets))
  (cond
    ((not (cdr sommets)) nil)
    ((plv-faute-sommets sommets (plv-scene-longueur scene)))
    ((eq (type (setq raccords (plv-raccords sommets))) 'STR) raccords)))

(defun plv-dessiner:ajouter (scene etat place / sommets faute)
  "The next state with a vertex more, or as it was after a message."
  (setq sommets (cons (list (car place) (cadr place) nil) (plv-dessiner:sommets etat)))
  (if (setq faute (plv-dessiner:faute scene sommets))
    (progn (plv-dire (strcat "Sommet refusé: " faute ".")) (list (plv-dessiner:sommets etat) nil))
    (progn
      (plv-dire (strcat "Sommet " (itoa (length sommets)) ": "
                        (plv-joindre (plv-scene-lecture scene (plv-dessiner:dernier etat) (list (car place) (cadr place))) ", ") "."))
      (list sommets nil))))

(defun plv-dessiner:retour (etat)
  "Without the numbers that wait, else without the last vertex."
  (cond
    ((plv-dessiner:frappes etat) (list (plv-dessiner:sommets etat) nil))
    ((plv-dessiner:sommets etat)
     (plv-dire (strcat "Il reste " (plv-compte (1- (length (plv-dessiner:sommets etat))) "sommet") "."))
     (list (cdr (plv-dessiner:sommets etat)) nil))
    (etat)))

(defun plv-dessiner:avec-raccord (etat demande / dernier)
  (setq dernier (car (plv-dessiner:sommets etat)))
  (plv-dire (if demande "Le raccordement tiendra compte de la pente suivante." "Sans raccordement."))
  (list (cons (list (car dernier) (cadr dernier) demande) (cdr (plv-dessiner:sommets etat))) (plv-dessiner:frappes etat)))

(defun plv-dessiner:taper (scene etat texte / lues frappes faute)
  "The next state after a typed text."
  (setq lues (plv-frappe texte))
  (cond
    ((= (type lues) 'STR) (plv-dire (strcat "Illisible: " texte "; " lues ".")) etat)
    ((setq faute (plv-frappe-faute (plv-dessiner:dernier etat) (setq frappes (plv-frappe-joindre (plv-dessiner:frappes etat) lues))))
     (plv-dire (strcat "Refusé: " faute "."))
     etat)
    ((assoc "C" lues) (plv-dessiner:avec-raccord etat (cadr (assoc "C" lues))))
    ((plv-frappe-complete-p frappes) (plv-dessiner:poser scene etat frappes nil))
    (T (list (plv-dessiner:sommets etat) frappes))))

(defun plv-dessiner:poser (scene etat frappes curseur / place)
  (setq place (plv-frappe-place scene (plv-dessiner:dernier etat) frappes curseur))
  (if (= (type place) 'STR)
    (progn (plv-dire (strcat "Sommet refusé: " place ".")) (list (plv-dessiner:sommets etat) nil))
    (plv-dessiner:ajouter scene etat place)))

(defun plv-dessiner:repondre (scene etat reponse / mot)
  (setq mot (if (= (type reponse) 'STR) (strcase reponse) ""))
  (cond
    ((listp reponse) (plv-dessiner:poser scene etat (plv-dessiner:frappes etat) (plv-vers-profil (plv-scene-cadre scene) reponse)))
    ((member mot '("R" "RETOUR")) (plv-dessiner:retour etat))
    ((member mot '("A" "ACCROCHAGES")) (plv-scene-regler) etat)
    (T (plv-dessiner:taper scene etat reponse))))

;; --- on the screen

(defun plv-dessiner:traits (scene sommets / raccords)
  "The line with its curves; without them where they can't be."
  (setq sommets (plv-dessiner:en-ordre sommets) raccords (plv-raccords sommets))
  (plv-traits (plv-scene-cadre scene) 1
    (if (listp raccords) (plv-suite-en-points sommets raccords) sommets)))

(defun plv-dessiner:montrer (scene etat point / place sommets marque)
  (setq place (plv-frappe-place scene (plv-dessiner:dernier etat) (plv-dessiner:frappes etat)
                (plv-vers-profil (plv-scene-cadre scene) point)))
  (if (= (type place) 'STR)
    (list nil (list place))
    (progn
      (setq sommets (cons (list (car place) (cadr place) nil) (plv-dessiner:sommets etat))
            marque (plv-traits-marque (plv-scene-cadre scene) (if (= (caddr place) "") 2 3) place (plv-scene-pixels 5.0)))
      (list (append (plv-dessiner:traits scene (vl-sort sommets '(lambda (a b) (< (car a) (car b))))) marque)
            (append (plv-scene-lecture scene (plv-dessiner:dernier etat) place)
                    (plv-dessiner:en-attente (plv-dessiner:frappes etat)))))))

(defun plv-dessiner:en-attente (frappes)
  (if frappes (list (strcat "tapé: " (plv-joindre (mapcar '(lambda (f) (strcat (car f) " " (plv-reel (cadr f) 4))) frappes) ", ")))))

;; --- the whole

(defun plv-dessiner-sommets (profil / scene etat reponse)
  "The vertices (distance altitude request) that a user clicks and types, from left to right; nil for none."
  (setq scene (plv-scene profil) etat '(nil nil) reponse "?")
  (plv-dire (strcat "Cliquez les sommets, ou tapez-les: " plv-frappe-aide "."))
  (while (not (member reponse '("" T)))
    (setq reponse
      (plv-suivre (if (car etat) "Sommet suivant ou [Retour/Accrochages] <fin>" "Premier sommet ou [Accrochages]") plv-dessiner:mots
        '(lambda (point) (plv-dessiner:montrer scene etat point))))
    (if (not (member reponse '("" T))) (setq etat (plv-dessiner:repondre scene etat reponse))))
  (plv-suivre-fin)
  (cond
    ((= reponse T) (plv-dire "Abandon: rien n'est tracé."))
    ((cdr (plv-dessiner:sommets etat)) (plv-dessiner:en-ordre (plv-dessiner:sommets etat)))
    ((plv-erreur "deux sommets au moins sont attendus"))))
