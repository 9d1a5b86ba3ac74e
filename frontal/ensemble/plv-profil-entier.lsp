;; PLV-PROFIL: profiles are renamed, copied with all that belongs to them, moved and deleted.
;; Shared in the room: plv-entier:refus-numero

(defun plv-entier:refus-numero (numero)
  (cond
    ((= (vl-string-trim " " numero) "") "un numéro est attendu")
    ((plv-profil-de-numero numero) (strcat "le dessin a déjà un profil numéro " numero))))

(defun plv-entier:numeroter (profil numero / e groupes)
  (setq e (entnext profil))
  (while (and e (= (plv-type e) "ATTRIB"))
    (setq groupes (entget e))
    (if (= (plv-cle 2 groupes) "NUMPL") (entmod (subst (cons 1 numero) (assoc 1 groupes) groupes)))
    (setq e (entnext e)))
  profil)

(defun plv-renommer-profil (profil numero)
  "Another number; the profile, or nil after a message."
  (if (plv-entier:refus-numero numero)
    (plv-erreur (plv-entier:refus-numero numero))
    (progn
      (plv-entier:numeroter profil numero)
      (plv-dire (strcat "Profil " numero "."))
      profil)))

(defun plv-copier-entier (profil numero point / avant entites copie)
  "A copy with all that belongs to the profile, its number and its place its own; nil after a message."
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((plv-entier:refus-numero numero) (plv-erreur (plv-entier:refus-numero numero)))
    (T
     (setq avant (plv-profils) entites (plv-ensemble profil))
     (plv-entier:commander "_.COPY" entites (plv-origine profil) point)
     (setq copie (car (vl-remove-if '(lambda (p) (member p avant)) (plv-profils))))
     ;; what stands in plan is the original's
     (plv-lacher-autrui copie)
     (plsxd copie "ID" (plv-identifiant-libre))
     (plv-entier:numeroter copie numero)
     (plv-dire (strcat "Profil " numero ": une copie du profil " (plv-numero-profil profil) ", " (plv-compte (length entites) "objet") "."))
     copie)))

(defun plv-entier:commander (commande entites de vers / echo)
  (setq echo (getvar "CMDECHO"))
  (setvar "CMDECHO" 0)
  (command commande (plv-jeu entites) "" "_non" de "_non" vers)
  (setvar "CMDECHO" echo))

(defun plv-deplacer-entier (profil point)
  "The profile with all that belongs to it at another place."
  (if (plv-profil-sain profil)
    (progn (plv-entier:commander "_.MOVE" (plv-ensemble profil) (plv-origine profil) point) profil)))

(defun plv-supprimer-profil (profil / numero entites)
  "Erases a profile with all that belongs to it; the number of objects."
  (setq numero (plv-numero-profil profil) entites (append (plv-ensemble profil) (plv-portes-sur-plan profil)))
  (plv-effacer-cotes (plv-cotes-du-profil profil))
  (plv-effacer (vl-remove-if-not 'plv-existe entites))
  (plv-dire (strcat "Profil " numero " supprimé: " (plv-compte (length entites) "objet") "."))
  (length entites))

;; --- the command

(defun plv-entier:demander-place (profil)
  (getpoint (plv-origine profil) "\nNouveau point d'insertion: "))

(defun plv-operer-profil (profil operation / point)
  "Asks what is left to be known, and does it; operation: a word of the command's question."
  (cond
    ((= operation "Renommer") (plv-renommer-profil profil (plv-demander-texte "Nouveau numéro" (itoa (plv-identifiant-libre)))))
    ((= operation "Copier")
     (if (setq point (plv-entier:demander-place profil))
       (plv-copier-entier profil (plv-demander-texte "Numéro de la copie" (itoa (plv-identifiant-libre))) point)))
    ((= operation "Déplacer") (if (setq point (plv-entier:demander-place profil)) (plv-deplacer-entier profil point)))
    ((= (plv-demander-mot (strcat "Supprimer le profil " (plv-numero-profil profil) " avec tout ce qui lui appartient") '("Oui" "Non") "Non") "Oui")
     (plv-supprimer-profil profil))))

(defun c:plv-profil (/ profil)
  "Renomme, copie, déplace ou supprime un profil avec tout ce qui lui appartient."
  (if (setq profil (plv-choisir-profil))
    (plv-operer-profil profil (plv-demander-mot "Profil" '("Renommer" "Copier" "Déplacer" "Supprimer") "Renommer")))
  (princ))
