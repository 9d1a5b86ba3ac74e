;; Definitions of tables by name: shipped ones, which stand beside the examples, and one's own in the folder of the settings.

(defun plv-modeles:livres () (strcat (vl-filename-directory (findfile "kavel.lsp")) "/../exemples"))
(defun plv-modeles:propres () (strcat (plv-dossier-reglages) "/tableaux"))

(defun plv-modeles:noms (dossier motif prefixe)
  (mapcar '(lambda (f) (substr (vl-filename-base f) (1+ (strlen prefixe)))) (vl-directory-files dossier motif 1)))

(defun plv-modeles-propres () (acad_strlsort (plv-modeles:noms (plv-modeles:propres) "*.txt" "")))

(defun plv-modeles ()
  "The names, one's own first."
  (plv-uniques (append (plv-modeles-propres) (acad_strlsort (plv-modeles:noms (plv-modeles:livres) "matrices-*.txt" "matrices-")))))

(defun plv-chemin-definition (nom)
  "The path of a definition: a file, or one of the names; nil for none."
  (cond
    ((= nom "") nil)
    ((findfile nom))
    ((findfile (strcat (plv-modeles:propres) "/" nom ".txt")))
    ((findfile (strcat (plv-modeles:livres) "/matrices-" nom ".txt")))))

(defun plv-definition-existante (nom)
  "The same; nil after a message that tells the names."
  (cond
    ((plv-chemin-definition nom))
    ((= nom "") (plv-erreur "nom de fichier attendu"))
    (T (plv-erreur (strcat "fichier introuvable: " nom "; les modèles sont " (plv-joindre (plv-modeles) ", "))))))

(defun plv-garder-modele (nom lignes)
  "Keeps lines as one's own definition of that name; T, or nil after a message."
  (vl-mkdir (plv-dossier-reglages))
  (vl-mkdir (plv-modeles:propres))
  (texte-ecrire (strcat (plv-modeles:propres) "/" nom ".txt") (cons "; nom - hauteur type {infos} libellé" lignes)))

;; --- the rows of a definition file, as texts: (table kind height infos label decimals)

(defun plv-modeles:rangee (ligne / mots)
  (setq mots (plv-mots-definition ligne))
  (list (car mots) (plv-type-libelle (atoi (cadddr mots))) (caddr mots) (plv-infos-definition ligne) (plv-libelle-definition ligne)
        (itoa (plv-decimales-definition (cadr mots)))))

(defun plv-modele-rangees (chemin)
  (mapcar 'plv-modeles:rangee (vl-remove-if-not 'plv-rangee-de-definition-p (plv-lire-lignes chemin))))

(defun plv-modele-lignes (rangees) "Rows as the lines of a definition file." (mapcar 'plv-modeles:ligne rangees))

(defun plv-modeles:ligne (rangee)
  (strcat (car rangee) " " (plv-decimales-en-mot (plv-decimales-de-texte (nth 5 rangee))) " " (plv-reel (plv-nombre (caddr rangee)) 3) " "
          (itoa (plv-type-de-libelle (cadr rangee)))
          (if (= (cadddr rangee) "") "" (strcat " {" (cadddr rangee) "}")) " " (nth 4 rangee)))
