;; Networks in files: rows of text, as the drawing keeps them; input files of storm water models (.inp) and LandXML PipeNetworks, of which a way
;; from a node to another one is taken.
;; Shared in the room: plv-reseau-fichier:format

(defun plv-reseau-fichier:format (chemin)
  "inp, xml, or nil for rows of text."
  (cond ((wcmatch (strcase chemin) "*`.INP") "inp") ((wcmatch (strcase chemin) "*`.XML,*`.LANDXML") "xml")))

(defun plv-reseau-importer (chemin de a station diametre / trouve lu)
  "The rows of a network in a file of another program; nil after a message. Empty names of nodes: its longest way."
  (if (setq trouve (plv-fichier-existant chemin))
    (if (eq (type (setq lu (et_reseau_importer trouve de a (float station) diametre))) 'STR)
      (plv-erreur lu)
      (progn (foreach remarque (cadr lu) (plv-dire remarque)) (car lu)))))

(defun plv-reseau-lire-fichier (chemin / trouve)
  "The rows of a file of text; nil after a message."
  (if (setq trouve (plv-fichier-existant chemin)) (plv-lire-lignes trouve)))

(defun plv-reseau-demander-fichier (profil / chemin de a)
  "The rows of a file, whose way and manholes are asked for where it is one of another program; nil after a message."
  (setq chemin (plv-demander-texte "Fichier du réseau (texte, .inp, LandXML)" nil))
  (if (plv-reseau-fichier:format chemin)
    (progn
      (setq de (plv-demander-texte "Nœud de départ <le plus long chemin>" nil)
            a (if (= de "") "" (plv-demander-texte "Nœud d'arrivée" nil)))
      (plv-reseau-importer chemin de a
        (plv-demander-nombre-libre "Station du départ" (plv-premiere-station profil) 2)
        (plv-demander-texte "Diamètre des regards que le fichier ne dit pas" "1000/1240")))
    (plv-reseau-lire-fichier chemin)))

;; --- writing

(defun plv-reseau-fichier:lieux (profil reseau / axe segments)
  "Where the manholes are: on the axis in plan, else along the abscissa by their stations."
  (setq axe (plv-axe-plan profil) segments (if axe (plv-axe-segments axe)))
  (mapcar
    '(lambda (n / p)
       (if segments
         (progn (setq p (plv-lieu-point (plv-axe-en segments (- (plv-noeud-station n) (plv-premiere-station profil))))) (list (float (car p)) (float (cadr p))))
         (list (float (plv-noeud-station n)) 0.0)))
    (plv-reseau-regards reseau)))

(defun plv-reseau-fichier:ecrire (profil genre chemin format / neuf fait)
  (setq neuf (strcat chemin ".nouveau")
        fait (et_reseau_ecrire neuf format (strcat (plv-numero-profil profil) " " genre)
               (list (plv-reseau-fichier:lieux profil (plv-reseau-lu profil genre))) profil (plv-reseau-rangees profil genre) (plv-reseau-ligne profil genre)))
  (cond
    ((eq (type fait) 'STR) (plv-erreur fait))
    ((vl-catch-all-error-p (setq fait (vl-catch-all-apply 'fichier-remplacer (list neuf chemin)))) (plv-erreur (vl-catch-all-error-message fait)))
    (T (plv-dire (strcat "Réseau " genre ": " chemin)) T)))

(defun plv-reseau-exporter (profil genre chemin / rangees format)
  "Writes the network of a kind of line, in the format of the file's name; T, or nil after a message."
  (setq genre (plv-genre genre) format (plv-reseau-fichier:format chemin))
  (cond
    ((not (setq rangees (plv-reseau-rangees profil genre))) (plv-erreur (plv-reseau-refus genre)))
    ((eq (type (plv-reseau-lu profil genre)) 'STR) (plv-erreur (plv-reseau-lu profil genre)))
    (format (plv-reseau-fichier:ecrire profil genre chemin format))
    (T (plv-ecrire-lignes chemin rangees))))
