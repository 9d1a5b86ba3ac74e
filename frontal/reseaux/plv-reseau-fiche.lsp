;; The form of PLV-RESEAU: the rows of a network as tables, filled from the drawing, along the line or from a file; what the studies say of
;; them and a picture are there while they are typed.

;; the tables: field, label, word of the rows, columns
(setq plv-reseau-fiche:tables
  '(("regards" "Regards" "regard" ("Nom" "Station" "Type" "Diamètre (mm)" "Tampon" "Arrivée" "Départ" "Fond" "Profil"))
    ("tuyaux" "Tuyaux" "tuyau" ("De" "À" "Diamètre (mm)" "Matériau" "Classe" "Lit" "Strickler"))
    ("croisements" "Croisements" "croisement" ("Nom" "Station" "Altitude" "Diamètre (mm)" "Angle"))
    ("limites" "Limites" "limite" ("Limite" "Moindre" "Plus grande"))))

;; two tables at a time: what is shown, and the fields that then aren't
(setq plv-reseau-fiche:vues
  '(("Regards et tuyaux" ("croisements" "limites")) ("Croisements et limites" ("regards" "tuyaux"))))

(setq plv-reseau-fiche:sources '("Le dessin" "La ligne" "Un fichier"))

;; --- rows as cells and back

(defun plv-reseau-fiche:completer (champs nombre)
  (while (< (length champs) nombre) (setq champs (append champs '(""))))
  champs)

(defun plv-reseau-fiche:cellules (rangees table)
  "The rows of a table as cells."
  (mapcar '(lambda (r) (plv-reseau-fiche:completer (cdr (plv-couper r ";")) (length (cadddr table))))
    (vl-remove-if-not '(lambda (r) (= (strcase (car (plv-couper r ";")) T) (caddr table))) rangees)))

(defun plv-reseau-fiche:de-table (valeurs table)
  (mapcar '(lambda (cellules) (plv-joindre (cons (caddr table) cellules) ";"))
    (vl-remove-if '(lambda (cellules) (vl-every '(lambda (c) (= c "")) cellules)) (plv-cle (car table) valeurs))))

(defun plv-reseau-fiche:rangees (valeurs)
  (apply 'append (mapcar '(lambda (table) (plv-reseau-fiche:de-table valeurs table)) plv-reseau-fiche:tables)))

(defun plv-reseau-fiche:valeurs (rangees)
  "What the tables show of rows."
  (mapcar '(lambda (table) (list (car table) (plv-reseau-fiche:cellules rangees table))) plv-reseau-fiche:tables))

;; --- the fields

(defun plv-reseau-fiche:genre (profil)
  "The first kind with a network, else sewers, else the first kind with a line."
  (cond
    ((car (plv-genres-de-reseau profil)))
    ((plv-elements-du-projet profil "Assainissement") "Assainissement")
    ((car (plv-genres-du-projet profil)))
    ("Assainissement")))

(defun plv-reseau-fiche:source (profil genre)
  "Where a form begins: with the network that is there, else along the line, if there is one."
  (if (and profil (not (plv-reseau-rangees profil genre)) (plv-elements-du-projet profil genre))
    (cadr plv-reseau-fiche:sources)
    (car plv-reseau-fiche:sources)))

(defun plv-reseau-fiche:champs (/ profil genre source rangees)
  (setq profil (plv-profil-propose) genre (if profil (plv-reseau-fiche:genre profil) "Assainissement")
        source (plv-reseau-fiche:source profil genre)
        rangees (if profil (plv-reseau-fiche:de-source (list (cons "source" source)) profil genre)))
  (plv-champs-avec-profil
    (append
      (list (list "genre" "Genre de ligne" "mot" genre (plv-genres-projet) T)
            (list "source" "Remplir depuis" "mot" source plv-reseau-fiche:sources T)
            '("fichier" "Fichier à reprendre" "lire" "" "Réseaux (*.csv *.txt *.inp *.xml);;Tous (*)")
            (list "vues" "Montrer" "mot" (caar plv-reseau-fiche:vues) (mapcar 'car plv-reseau-fiche:vues)))
      (mapcar
        '(lambda (table)
           (list (car table) (cadr table) "rangees" (plv-reseau-fiche:cellules rangees table) (mapcar '(lambda (c) (list c "texte" nil)) (cadddr table)) T))
        plv-reseau-fiche:tables))))

;; --- filling

(defun plv-reseau-fiche:du-fichier (profil chemin)
  (if (plv-reseau-fichier:format chemin)
    (plv-reseau-importer chemin "" "" (plv-premiere-station profil) "1000/1240")
    (plv-reseau-lire-fichier chemin)))

(defun plv-reseau-fiche:de-source (valeurs profil genre / source)
  "The rows that a source gives; nil for none."
  (setq source (plv-cle "source" valeurs))
  (cond
    ((= source "La ligne")
     (if (plv-elements-du-projet profil genre) (plv-reseau-rangees-de-ligne profil genre "R" "visite;1000/1240" "300/376;béton;135A" 60.0)))
    ((= source "Un fichier")
     (if (plv-fiche-fichier valeurs "fichier") (car (plv-essayer 'plv-reseau-fiche:du-fichier (list profil (plv-fiche-fichier valeurs "fichier"))))))
    (T (plv-reseau-rangees profil genre))))

(defun plv-reseau-fiche:a-remplir-p (valeurs) (member (plv-cle "*" valeurs) '("profil" "genre" "source" "fichier")))

;; --- the look

(defun plv-reseau-fiche:faute (profil genre valeurs / rangees lu)
  (setq rangees (plv-reseau-fiche:rangees valeurs) lu (et_reseau_rangees rangees))
  (cond
    ((not (plv-cle "regards" valeurs)) (list "regards" "deux regards au moins sont attendus"))
    ((eq (type lu) 'STR) (list (plv-reseau-fiche:table-de rangees lu) lu))
    ((eq (type (setq lu (plv-reseau:lire profil genre rangees))) 'STR) (list "regards" lu))))

(defun plv-reseau-fiche:table-de (rangees phrase / table)
  "The table that has the row of a sentence; the first one for a sentence without a row."
  (setq table
    (car (vl-member-if '(lambda (ta) (vl-string-search (strcat "\"" (caddr ta) ";") phrase)) plv-reseau-fiche:tables)))
  (car (cond (table) ((car plv-reseau-fiche:tables)))))

(defun plv-reseau-fiche:phrases (profil genre rangees reseau / avis)
  (setq avis (plv-reseau:avis-de profil genre rangees))
  (cons (plv-reseau-en-mots genre reseau)
    (if (listp avis) (mapcar '(lambda (a) (strcat "Station " (plv-reel (car a) 2) ", " (cadr a))) (plv-premiers avis 8)))))

(defun plv-traits-de-reseau (reseau origine / items)
  "Inverts, crowns and manholes of a network as items of a picture."
  (foreach tuyau (plv-reseau-tuyaux reseau)
    (foreach h (list 0.0 (plv-tuyau-interieur tuyau))
      (setq items (cons (list "trait" "projet" (mapcar '(lambda (p) (list (- (car p) origine) (+ (cadr p) h))) (list (plv-tuyau-depart tuyau) (plv-tuyau-arrivee tuyau)))) items))))
  (foreach n (plv-reseau-regards reseau)
    (setq items
      (vl-list* (list "trait" "projet" (mapcar '(lambda (z) (list (- (plv-noeud-station n) origine) z)) (list (plv-noeud-fond n) (plv-noeud-tampon n))))
                (list "texte" "projet" (list (- (plv-noeud-station n) origine) (plv-noeud-tampon n)) (plv-noeud-nom n)) items)))
  items)

(defun plv-reseau-fiche:vu (profil genre valeurs / faute reseau)
  (setq faute (plv-reseau-fiche:faute profil genre valeurs)
        reseau (if (not faute) (plv-reseau:lire profil genre (plv-reseau-fiche:rangees valeurs))))
  (plv-regard
    (if faute (list faute))
    (list (plv-image-profil profil (append (plv-traits-profil profil) (if reseau (plv-traits-de-reseau reseau (plv-premiere-station profil))))))
    (if reseau (plv-reseau-fiche:phrases profil genre (plv-reseau-fiche:rangees valeurs) reseau))
    (append (if (/= (plv-cle "source" valeurs) "Un fichier") '("fichier")) (plv-reseau-fiche:cachees valeurs faute))
    nil))

(defun plv-reseau-fiche:cachees (valeurs faute)
  "The tables that aren't shown; one with a fault is."
  (vl-remove (car faute) (cadr (assoc (plv-cle "vues" valeurs) plv-reseau-fiche:vues))))

(defun plv-reseau-fiche:avec (valeurs nouvelles)
  "Answers with others in place of them."
  (append (mapcar '(lambda (v) (cons (car v) (cadr v))) nouvelles) valeurs))

(defun plv-reseau-fiche:regarder (valeurs / profil genre remplies)
  (setq profil (plv-fiche-profil valeurs) genre (plv-cle "genre" valeurs)
        remplies (if (plv-reseau-fiche:a-remplir-p valeurs) (plv-reseau-fiche:valeurs (plv-reseau-fiche:de-source valeurs profil genre))))
  (if remplies
    (plv-regard-avec-valeurs (plv-reseau-fiche:vu profil genre (plv-reseau-fiche:avec valeurs remplies)) remplies)
    (plv-reseau-fiche:vu profil genre valeurs)))

(defun plv-reseau-fiche:faire (valeurs)
  (plv-reseau-ecrire-et-dire (plv-fiche-profil valeurs) (plv-cle "genre" valeurs) (plv-reseau-fiche:rangees valeurs)))

(plv-declarer-fiche "PLV-RESEAU" "Réseau d'une ligne" "Dessiner" 'plv-reseau-fiche:champs 'plv-reseau-fiche:regarder 'plv-reseau-fiche:faire)
