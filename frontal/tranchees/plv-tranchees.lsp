;; The trenches of a network: rules as rows of text that stand with the profile, in the form of the files that docs/formats.md describes, and
;; what the studies measure by them.
;; Shared in the room: plv-tranchees:*

(defun plv-tranchees:cle (genre) (strcat "PLV_TRANCHEES_" (strcase (plv-genre genre))))

(defun plv-tranchees-regles (profil genre) (plv-cles 300 (plv-enregistrement profil (plv-tranchees:cle genre))))

(defun plv-tranchees-types-livres (genre) "The file of types that comes with the program." (if (plv-gravitaire-p genre) "tranchees-assainissement.txt" "tranchees-aep.txt"))

(defun plv-tranchees-ecrire-regles (profil genre regles / sols)
  "Keeps rules with a profile; T, or nil after a message."
  (setq sols (et_tranchees_sols regles))
  (cond
    ((eq (type sols) 'STR) (plv-erreur sols))
    ((eq (type (setq sols (plv-tranchees:sols profil sols))) 'STR) (plv-erreur sols))
    (T (plv-ecrire-enregistrement profil (plv-tranchees:cle genre) (mapcar '(lambda (r) (cons 300 r)) regles)) T)))

;; --- the grounds that rules name, as lines of (station altitude), nil for the profile's own; a text for one that isn't there

(defun plv-tranchees:sol (profil nom / terrain origine)
  (setq origine (plv-premiere-station profil))
  (cond
    ((= (strcase nom) "TN") nil)
    ((setq terrain (plv-terrain-nomme profil nom))
     (mapcar '(lambda (m) (mapcar '(lambda (p) (list (+ origine (car p)) (cadr p))) m)) (plv-terrain-morceaux terrain)))
    ((and (plv-genre nom) (plv-elements-du-projet profil (plv-genre nom))) (plv-reseau-ligne profil (plv-genre nom)))
    (T (strcat "ce profil n'a ni terrain ni ligne du nom de " nom ": PLV-TERRAIN AJouter donne d'autres terrains"))))

(defun plv-tranchees:sols (profil noms / sols)
  "The lines of all, or the text for the first that is missing."
  (setq sols (mapcar '(lambda (nom) (plv-tranchees:sol profil nom)) noms))
  (cond ((vl-some '(lambda (s) (if (eq (type s) 'STR) s)) sols)) (sols)))

(defun plv-tranchees-sols (profil genre / noms)
  "The lines of the grounds that the rules of a network name; nil without rules."
  (if (listp (setq noms (et_tranchees_sols (plv-tranchees-regles profil genre)))) (plv-tranchees:sols profil noms)))

;; --- what functions of the studies take: (profile rows line rules grounds), or a text that says what is missing

(defun plv-tranchees:demande (profil genre / rangees regles sols)
  (setq rangees (plv-reseau-rangees profil genre) regles (plv-tranchees-regles profil genre))
  (cond
    ((not rangees) (plv-reseau-refus genre))
    ((not regles) (strcat "ce profil n'a pas de règles de tranchées " genre ": PLV-TRANCHEES Types en lit"))
    ((eq (type (setq sols (plv-tranchees:sols profil (et_tranchees_sols regles)))) 'STR) sols)
    (T (list profil rangees (plv-reseau-ligne profil genre) regles sols))))

;; --- measures: (columns works total difference); a column is (title unit), a work (name in-plan along-slope laid least-depth greatest-depth value ...)

(defun plv-tranchees (profil genre / demande mesures)
  "The measures of a network's trenches, nil after a message."
  (setq genre (plv-genre genre) demande (plv-tranchees:demande profil genre)
        mesures (if (listp demande) (apply 'et_tranchees demande) demande))
  (if (eq (type mesures) 'STR) (plv-erreur mesures) mesures))

(defun plv-tranchees-colonnes (mesures) (car mesures))
(defun plv-tranchees-ouvrages (mesures) (cadr mesures))
(defun plv-tranchees-total (mesures) (caddr mesures))
(defun plv-tranchees-ecart (mesures) (cadddr mesures))

(defun plv-ouvrage-nom (ouvrage) (car ouvrage))
(defun plv-ouvrage-en-plan (ouvrage) (cadr ouvrage))
(defun plv-ouvrage-posee (ouvrage) (cadddr ouvrage))
(defun plv-ouvrage-valeurs (ouvrage) (plv-sans-premiers ouvrage 6))

(defun plv-tranchees-valeur (mesures ouvrage titre)
  "What a column says of a work; nil without it."
  (vl-some '(lambda (colonne valeur) (if (= (car colonne) titre) valeur)) (plv-tranchees-colonnes mesures) (plv-ouvrage-valeurs ouvrage)))
