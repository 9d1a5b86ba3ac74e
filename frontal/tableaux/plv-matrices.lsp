;; PLV-MATRICES: draws the tables of a definition file under a profile and fills every row.
;; Drawing again replaces what an earlier call drew, once the new tables stand.
;; Shared in the room: plv-matrices:fichier

(defun plv-matrices (profil chemin tout / trouve points)
  "Draws and fills; gives the profile, or nil after a message. tout: every point has its cells, however close."
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((not (setq trouve (plv-definition-existante chemin))) nil)
    ((not (setq points (plv-points-nommes profil))) (plv-erreur (plv-refus-sans-terrain)))
    ((not (plv-lire-definitions trouve)) nil)
    (T (plv-matrices:remplacer profil points chemin tout))))

(defun plv-matrices:dessiner (profil points tout / contexte gardes bilan)
  "Draws and fills the tables; what is said of it, what stands outside their groups, and the number of points with cells."
  (plv-dessiner-tables profil)
  (setq contexte (plv-contexte profil points tout)
        gardes (plv-points-gardes points contexte)
        bilan (plv-remplir-tables gardes contexte))
  (list (+ (- (length points) (length gardes)) (plv-bilan-laisses bilan)) (plv-bilan-vides bilan)
        (append (plv-tracer-rappels profil gardes) (plv-tracer-bords profil) (plv-bilan-ajouts bilan))
        (length gardes)))

(defun plv-matrices:cotes (bilan) (cadddr bilan))

(defun plv-matrices:remplacer (profil points chemin tout / anciennes liste fait)
  "The new tables are drawn before the former ones go, which come back when that fails."
  (setq anciennes (plv-tables-posees profil (plv-ajouts-tables profil))
        liste (plv-liste-tables profil)
        fait (plv-executer
               '(lambda () (plv-avec-calque "PLV-MATRICE" '(lambda () (plv-matrices:dessiner profil points tout))))))
  (if (car fait)
    (progn
      (plv-effacer-posees anciennes)
      (plv-oublier-ajouts profil)
      (plv-noter-ajouts profil (plv-bilan-ajouts (car fait)))
      (plv-noter-rangees profil)
      (plv-presenter-tables profil)
      (plv-noter-choix profil tout)
      (plv-noter-faits profil (plv-tables-faites profil chemin tout))
      (plv-matrices:dire (car fait))
      profil)
    (plv-matrices:reprendre profil liste (cadr fait))))

(defun plv-matrices:reprendre (profil liste entites)
  "Takes away tables that could not be finished; nil."
  (if (equal liste (plv-liste-tables profil))
    (plv-effacer entites)
    (plv-effacer-posees (plv-tables-posees profil entites)))
  (plv-remettre-liste-tables profil liste)
  nil)

(defun plv-matrices:fichier (profil / fait)
  "The definition file that the tables of a profile were made from, as it was given; empty when that isn't known."
  (setq fait (car (vl-member-if '(lambda (f) (= (plv-fait-chose f) "TABLEAUX")) (plv-faits profil))))
  (cond ((car (plv-fait-reponses fait))) ("")))

(defun plv-refaire-tables (profil)
  "The tables that stand under a profile drawn and filled anew, after a change of its ground; nil without any."
  (if (plv-tables profil)
    (progn
      (plv-choix-profil profil)
      (plv-matrices:remplacer profil (plv-points-nommes profil) (plv-matrices:fichier profil) (plv-choix-tout profil)))))

(defun plv-matrices:dire (bilan / laisses vides)
  (setq laisses (plv-bilan-laisses bilan) vides (plv-bilan-vides bilan))
  (if vides
    (plv-dire (strcat (if (cdr vides) "Lignes laissées vides: " "Ligne laissée vide: ") (plv-joindre vides ", ") ".")))
  (plv-dire (strcat "Matrices: " (plv-compte (plv-matrices:cotes bilan) "point coté")
                    (if (> laisses 0)
                      (strcat ", " (plv-compte laisses "laissé") " faute de place (option Tous pour tout garder).")
                      "."))))

(defun plv-matrices-prises (source profil)
  "What was drawn of a definition; one's file counts as taken, a model needn't, which has its name."
  (if (findfile source) (plv-prendre-fichier "definition" (findfile source) profil) profil))

(defun c:plv-matrices (/ profil chemin tout)
  "Dessine les tableaux sous un profil, d'après un fichier de définition."
  (if (and (setq profil (plv-choisir-profil))
           (setq chemin (plv-demander-texte "Fichier de définition des matrices" nil))
           (plv-definition-existante chemin))
    (progn
      (setq tout (= (plv-demander-mot "Points à coter" '("Espaces" "Tous") "Espaces") "Tous"))
      (plv-matrices-prises chemin (plv-matrices profil chemin tout))))
  (princ))
