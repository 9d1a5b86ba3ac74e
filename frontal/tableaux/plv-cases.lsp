;; What the cells of a table are made from, as values: the points that have cells, what is known there, the project line's slopes.
;; Rows say in plv-types which of them they show.

(defun plv-points-cotes (profil / points)
  "The points that have cells in the tables that are drawn."
  (setq points (plv-points-nommes profil))
  (plv-points-gardes points (plv-contexte profil points (plv-choix-tout profil))))

(defun plv-genre-de-rangee (profil rangee)
  "The kind of line whose project a row shows; nil for none."
  (plv-remplir:genre-projet (list (cons 'profil profil) (cons 'infos (plv-rangee-infos rangee)))))

(setq plv-cases:retenues nil)

(defun plv-altitudes-projet (profil genre points)
  "Altitudes of a project line at points, nil where it is not. Those of lines and points that haven't changed are kept."
  (plv-lire-une-fois (list "altitudes-projet" profil genre points) '(lambda () (plv-cases:altitudes-projet profil genre points))))

(defun plv-cases:altitudes-projet (profil genre points / situes plans cle)
  (setq situes (plv-elements-situes profil genre) plans (plv-plans profil)
        cle (et_empreinte (list (plv-echv profil) plans (mapcar 'car points) (mapcar 'plv-situe-entite situes)) (plv-origine profil)))
  (cond
    ((plv-cle cle plv-cases:retenues))
    (T
     (setq plv-cases:retenues
            (plv-premiers
              (cons (cons cle (plv-altitudes-sur profil situes plans (mapcar 'car points))) plv-cases:retenues)
              10))
     (cdar plv-cases:retenues))))

;; --- what rows show of a line: texts, so that a change that no decimal shows changes nothing

(defun plv-cases:contexte (profil)
  (list (cons 'profil profil) (cons 'tout (plv-choix-tout profil)) (cons 'ttxt (plv-ttxt profil)) (cons 'longueur (plv-longueur-profil profil))))

(defun plv-cases:altitudes (profil nature genre points / projet)
  "What a kind of row shows at points: the ground, the project line, how deep that is; nil where it shows nothing."
  (if (/= nature 4) (setq projet (if genre (plv-altitudes-projet profil genre points) (mapcar '(lambda (p) nil) points))))
  (cond
    ((= nature 4) (mapcar 'cadr points))
    ((= nature 5) projet)
    ((mapcar '(lambda (p z) (if z (- (cadr p) z))) points projet))))

(defun plv-cellules-p (rangee)
  "Whether the cells of a row stand alone, each a text at its point."
  (member (plv-rangee-nature rangee) '(4 5 6)))

(defun plv-cellules (profil rangee points)
  "(point text) of such cells."
  (plv-cases:ecrites profil (plv-rangee-nature rangee) (plv-genre-de-rangee profil rangee) points (plv-rangee-decimales rangee)))

(defun plv-cases:ecrites (profil nature genre points decimales)
  (plv-lire-une-fois (list "cellules" profil nature genre decimales points)
    '(lambda ()
       (vl-remove-if-not 'cadr
         (mapcar 'list points (plv-reels (plv-cases:altitudes profil nature genre points) decimales))))))

(defun plv-bornes-ecrites (profil genre nature)
  "The ends of slope pieces that a row of distances shows."
  (mapcar 'car (apply (if (= nature 16) 'plv-remplir:bornes-partielles 'plv-remplir:bornes-cumulees) (list (plv-cases:contexte profil) genre))))

(defun plv-suit-origine-p (profil rangee / genre)
  "Whether something of a row that stations concern is written with them: marks without room and a line that isn't there have none."
  (cond
    ((= (plv-rangee-nature rangee) 10) (vl-some 'cadr (plv-reperes-ecrits profil)))
    ((= (plv-rangee-nature rangee) 17)
     (and (setq genre (plv-genre-de-rangee profil rangee)) (plv-bornes-ecrites profil genre 17)))
    (T)))

(defun plv-reperes-ecrits (profil)
  (plv-remplir:reperes-ecrits (cons (cons 'origine (plv-premiere-station profil)) (plv-cases:contexte profil))))

(defun plv-rangee-de-pentes-p (rangee) (assoc (plv-rangee-nature rangee) plv-redactions))

(defun plv-cases:piece-et-mots (contexte piece nature / mots)
  "(piece (from to rise words)), see et_a_corriger."
  (setq mots (caddr (plv-cases:piece-ecrite contexte piece nature)))
  (list piece
    (list (plv-debut piece) (plv-fin piece)
      (if (plv-pente-droite-p piece) (plv-redaction:montee (plv-pente-valeur piece)) 2)
      (cond ((if (listp mots) (cadr mots) mots)) ("")))))

(defun plv-pieces-et-mots (profil rangee / genre contexte)
  "Of a row of slopes; nil without a project line."
  (if (setq genre (plv-genre-de-rangee profil rangee))
    (progn
      (setq contexte (plv-cases:contexte profil))
      (mapcar '(lambda (piece) (plv-cases:piece-et-mots contexte piece (plv-rangee-nature rangee))) (plv-remplir:pieces contexte genre)))))

(defun plv-cases:piece-ecrite (contexte piece nature / rayon)
  (list (plv-debut piece) (plv-fin piece)
    (cond
      ((plv-pente-droite-p piece) (list (plv-redaction:sens (plv-pente-valeur piece)) (plv-redaction:texte piece nature contexte)))
      ((setq rayon (plv-rayon-de-piece (plv-cle 'profil contexte) piece)) (plv-redaction:texte-courbe piece rayon contexte)))))

(defun plv-pentes-ecrites (profil genre nature / contexte)
  "The slope pieces of a project line within the profile as a kind of row words them: (from to text)."
  (setq contexte (plv-cases:contexte profil))
  (mapcar '(lambda (piece) (plv-cases:piece-ecrite contexte piece nature)) (plv-remplir:pieces contexte genre)))

(defun plv-trace-projet (profil genre / situes plans)
  "The slope pieces with their altitudes: two say where a straight one is, eleven what a curved one is."
  (setq situes (plv-elements-situes profil genre) plans (plv-plans profil))
  (mapcar
    '(lambda (piece)
       (list (plv-debut piece) (plv-fin piece) (plv-pente-valeur piece)
             (if (plv-pente-droite-p piece) 0.0 (cond ((plv-rayon-de-piece profil piece)) (0.0)))
             (plv-altitudes-sur profil situes plans
               (mapcar '(lambda (part) (+ (plv-debut piece) (* part (plv-longueur piece))))
                 (if (plv-pente-droite-p piece) '(0.0 1.0) '(0.0 0.1 0.2 0.3 0.4 0.5 0.6 0.7 0.8 0.9 1.0))))))
    (plv-remplir:pieces (plv-cases:contexte profil) genre)))

(defun plv-observations-ecrites (profil)
  "The named ground points that a row of observations shows."
  (plv-remplir:observations-ecrites
    (list (cons 'ttxt (plv-ttxt profil)) (cons 'longueur (plv-longueur-profil profil)) (cons 'nommes (vl-remove-if '(lambda (p) (= (plv-point-nom p) "")) (plv-points-nommes profil))))))

(defun plv-attributs-ecrits (profil rangee)
  "(distance text) of the blocks that a row of attributes shows."
  (plv-remplir:attributs-ecrits (cons (cons 'infos (plv-rangee-infos rangee)) (plv-cases:contexte profil))))

;; --- what is noted of tables that have been drawn

(defun plv-rangees-de-table (reference)
  "The rows of a table, as facts, each by its number from 0."
  (mapcar '(lambda (r) (plv-fait "RANGEE" (itoa (cadr r)) reference nil)) (plv-rangees-de reference)))

(defun plv-tables-faites (profil chemin tout)
  (vl-list*
    (plv-fait "TABLEAUX" nil nil (list chemin (if tout "Tous" "Espaces")))
    (plv-fait "RAPPELS" nil nil nil)
    (apply 'append (mapcar 'plv-rangees-de-table (plv-tables profil)))))
