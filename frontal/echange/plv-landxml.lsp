;; LandXML files: which alignment and ground of a file are taken. The file is read by landxml-lire, in metres; an alignment
;; has keys nom, origine, terrains and projets, see that function's help.
;; Shared in the room: plv-landxml:choisir plv-landxml:axes-utiles

(defun plv-landxml:nature (chemin / nature)
  "What a file is by its content, see et_fichier; a workbook isn't looked at."
  (if (and (not (wcmatch (strcase chemin) "*`.XLSX")) (listp (setq nature (et_fichier chemin)))) (car nature)))

(defun plv-landxml-p (chemin)
  (or (wcmatch (strcase chemin) "*.XML,*.LANDXML") (= (plv-landxml:nature chemin) "landxml")))

(defun plv-refus-de-surface (chemin / nature)
  "For a file that is a surface, or an axis, and no ground along one; nil for others."
  (if (member (setq nature (plv-landxml:nature chemin)) '("grille" "vecteur"))
    (strcat chemin (if (= nature "grille") ": une grille d'altitudes" ": des points et des lignes en plan") "; PLV-TERRAIN en fait un profil")))

(defun plv-landxml (chemin / lu)
  "The alignments of a LandXML file; nil after a message."
  (setq lu (vl-catch-all-apply 'landxml-lire (list chemin)))
  (cond
    ((vl-catch-all-error-p lu) (plv-erreur (vl-catch-all-error-message lu)))
    (T
     (foreach texte (plv-cle 'avertissements lu) (plv-dire texte))
     (if (/= (plv-cle 'metres lu) 1.0)
       (plv-dire (strcat "Longueurs converties en mètres (x " (rtos (plv-cle 'metres lu) 2 7) ").")))
     (plv-cle 'axes lu))))

;; --- what is taken without a question

(defun plv-landxml:existant-p (terrain) (= (plv-cle 'etat terrain) "existing"))

(defun plv-landxml-terrains (axe)
  "The grounds of an alignment, existing ones first."
  (append (vl-remove-if-not 'plv-landxml:existant-p (plv-cle 'terrains axe))
          (vl-remove-if 'plv-landxml:existant-p (plv-cle 'terrains axe))))

(defun plv-landxml:axes-utiles (chemin axes / utiles)
  "Alignments that hold a ground or a project line, those with a ground first; nil after a message."
  (setq utiles (append (vl-remove-if-not '(lambda (a) (plv-cle 'terrains a)) axes)
                       (vl-remove-if '(lambda (a) (or (plv-cle 'terrains a) (not (plv-cle 'projets a)))) axes)))
  (cond (utiles) (axes (plv-erreur (strcat chemin ": aucun axe n'a de profil en long")))))

(defun plv-landxml-premier-axe (chemin) (car (plv-landxml:axes-utiles chemin (plv-landxml chemin))))

(defun plv-landxml-numero (axe / nom)
  "The alignment's name, when no profile has it."
  (setq nom (plv-cle 'nom axe))
  (if (or (= nom "") (plv-profil-de-numero nom)) (itoa (plv-identifiant-libre)) nom))

;; --- choices; the first candidate is the default, one alone is not asked for

(defun plv-landxml:choisir (quoi noms candidats / rang)
  (if (cdr candidats)
    (progn
      (setq rang 0)
      (foreach nom noms (plv-dire (strcat "  " (itoa (setq rang (1+ rang))) "  " nom)))
      (initget 6)
      (setq rang (cond ((getint (strcat "\n" quoi " <1>: "))) (1)))
      (cond ((nth (1- rang) candidats))
            (T (plv-erreur (strcat "il n'y a pas de numéro " (itoa rang))))))
    (car candidats)))

(defun plv-landxml:nom-axe (axe)
  (strcat (plv-cle 'nom axe) " (terrains: " (itoa (length (plv-cle 'terrains axe)))
          ", lignes de projet: " (itoa (length (plv-cle 'projets axe))) ")"))

(defun plv-landxml-choisir-axe (chemin / axes)
  (if (setq axes (plv-landxml:axes-utiles chemin (plv-landxml chemin)))
    (plv-landxml:choisir "Numéro de l'axe" (mapcar 'plv-landxml:nom-axe axes) axes)))

(defun plv-landxml-choisir-terrain (axe / terrains)
  (setq terrains (plv-landxml-terrains axe))
  (plv-landxml:choisir "Numéro du terrain" (mapcar '(lambda (g) (plv-cle 'nom g)) terrains) terrains))
