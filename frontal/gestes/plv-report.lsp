;; PLV-REPORT: a curve drawn in one go over several planes is cut where they change, and each piece moved so that it keeps the
;; altitudes of the section in which the curve was picked. The pieces belong to the curve's kind of line, with its keys.

(defun plv-report:refus (profil entite point / etendue d)
  "Why a picked curve can't be transferred; nil when it can."
  (cond
    ((plv-refus-courbe entite))
    ((plv-refus-place profil (setq etendue (plv-etendue-courbe profil entite))))
    (T
     (setq d (plv-distance (plv-cadre profil) point))
     (cond
       ((not (<= (max 0.0 (plv-debut etendue)) d (min (plv-longueur-profil profil) (plv-fin etendue))))
        "la courbe se désigne sur elle-même, dans la section dont les altitudes sont justes")
       ((and (plv-plan-de (plv-plans profil) (plv-debut etendue) (plv-fin etendue))
             (> (plv-debut etendue) -1e-6) (< (plv-fin etendue) (+ (plv-longueur-profil profil) 1e-6)))
        "cette courbe est sur un seul plan, il n'y a rien à reporter")))))

(defun plv-report:attacher (profil genre entite pieces / cles)
  "The new pieces become what the curve is."
  (setq cles (plv-cles-element entite))
  (foreach e pieces (plv-ecrire-cles e cles))
  (plv-ecrire-elements profil genre (append (plv-elements profil genre) pieces)))

(defun plv-report (profil entite point genre / pieces attache)
  "Transfers a curve picked at a point; a free one is attached to a kind, nil for none. Gives the pieces, or nil after a message."
  (cond
    ((plv-report:refus profil entite point) (plv-erreur (plv-report:refus profil entite point)))
    (T
     (setq attache (plv-genre-de profil entite)
           pieces (plv-ajouts-de '(lambda () (dialoguer '(lambda () (pl_repspc profil)) (list (list entite point))))))
     (cond
       (attache (plv-report:attacher profil attache entite pieces) (plv-recoter profil attache (cons entite pieces)))
       (genre (plv-admettre profil genre (cons entite pieces))))
     (plv-dire (strcat "Report: " (plv-compte (1+ (length pieces)) "partie") "."))
     (cons entite pieces))))

(defun plv-report:demander (/ pris liste)
  (while (setq pris (entsel "\nCourbe à reporter, dans la section dont les altitudes sont justes: ")) (setq liste (cons pris liste)))
  (reverse liste))

(defun plv-report:demander-genre (/ mot)
  (setq mot (plv-demander-mot "Genre des courbes libres" (append (plv-genres) '("Aucun")) "Aucun"))
  (if (/= mot "Aucun") mot))

(defun c:plv-report (/ profil choix genre)
  "Reporte une courbe sur les plans de comparaison qu'elle traverse, et l'attache au profil."
  (if (and (setq profil (plv-choisir-profil)) (setq choix (plv-report:demander)))
    (progn
      (if (not (vl-every '(lambda (pris) (plv-genre-de profil (car pris))) choix)) (setq genre (plv-report:demander-genre)))
      (foreach pris choix (plv-report profil (car pris) (cadr pris) genre))))
  (princ))
