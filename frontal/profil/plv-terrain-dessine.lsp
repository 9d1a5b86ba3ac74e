;; The ground lines as they are drawn beside the record that they were drawn of. A line that was dragged takes its points along: the
;; record takes them up and the lines get their ends of it, so that neighbours follow and no gap stays.

(defun plv-dessine:bouts (ligne / groupes)
  (setq groupes (entget ligne))
  (list (plv-cle 10 groupes) (plv-cle 11 groupes)))

(defun plv-dessine:memes-p (a b) (and (equal (car a) (car b) 1e-4) (equal (cadr a) (cadr b) 1e-4)))

(defun plv-dessine:section (profil points section / lignes segments)
  "What a section's lines differ in: (line drawn expected section) each; (nil nil nil section) for lines that are gone or too many."
  (setq lignes (plv-lignes-du-plan (plv-section-entite section))
        segments (plv-segments-terrain (plv-origine profil) points (plv-echv profil) section (plv-section-fin section)))
  (cond
    ((/= (length lignes) (length segments)) (list (list nil nil nil section)))
    ((not (et_bouts (mapcar 'cons lignes segments))) (plv-dessine:deplacees lignes segments section))))

(defun plv-dessine:deplacees (lignes segments section)
  (vl-remove nil
    (mapcar
      '(lambda (ligne attendus / bouts)
         (setq bouts (plv-dessine:bouts ligne))
         (if (not (and (plv-dessine:memes-p (car bouts) (car attendus)) (plv-dessine:memes-p (cadr bouts) (cadr attendus))))
           (list ligne bouts attendus section)))
      lignes segments)))

(defun plv-ecarts-terrain (profil / points)
  "What the ground lines of a profile differ in from its record; nil for nothing, and for a profile that other programs drew."
  (if (= (plv-cle 2 (entget profil)) plv-bloc-profil)
    (progn
      (setq points (plv-points-aux-plans (plv-points-tn profil) (plv-plans profil)))
      (apply 'append (mapcar '(lambda (section) (plv-dessine:section profil points section)) (plv-sections-de-plan profil))))))

;; --- taking up

(defun plv-dessine:deplaces (profil ecarts / cadre)
  "((distance altitude) new-distance new-altitude) of each end of a line that was moved."
  (setq cadre (plv-cadre profil))
  (apply 'append
    (mapcar
      '(lambda (ecart)
         (vl-remove nil
           (mapcar
             '(lambda (la attendu)
                (if (not (plv-dessine:memes-p la attendu))
                  (cons (plv-vers-profil-sur cadre (cadddr ecart) attendu) (plv-vers-profil-sur cadre (cadddr ecart) la))))
             (cadr ecart) (caddr ecart))))
      (vl-remove-if-not 'car ecarts))))

(defun plv-dessine:points (points deplaces)
  "The named ground points with those that were moved where they are now."
  (mapcar
    '(lambda (p / d)
       (if (setq d (cdar (vl-member-if '(lambda (d) (and (equal (car (car d)) (car p) 1e-4) (equal (cadr (car d)) (cadr p) 1e-4))) deplaces)))
         (list (car d) (cadr d) (plv-point-nom p))
         p))
    points))

(defun plv-dessine:refus (avant points)
  "Why the moved points make no ground; nil when they do."
  (cond
    ((not (and (equal (caar avant) (caar points) 1e-4) (equal (car (plv-dernier avant)) (car (plv-dernier points)) 1e-4)))
     "un bout du terrain a été déplacé le long du profil")
    ((not (vl-every '(lambda (a b) (<= (car a) (+ (car b) 1e-6))) points (cdr points))) "un point du terrain a été déplacé au-delà de son voisin")))

(defun plv-dessine:redresser (ligne bouts / groupes)
  "Gives a ground line its ends, when it has others."
  (if (not (and (plv-dessine:memes-p (car (plv-dessine:bouts ligne)) (car bouts)) (plv-dessine:memes-p (cadr (plv-dessine:bouts ligne)) (cadr bouts))))
    (progn
      (setq groupes (entget ligne))
      (entmod (subst (cons 11 (cadr bouts)) (assoc 11 groupes) (subst (cons 10 (car bouts)) (assoc 10 groupes) groupes))))))

(defun plv-dessine:ajuster (profil points section / lignes segments)
  (setq lignes (plv-lignes-du-plan (plv-section-entite section))
        segments (plv-segments-terrain (plv-origine profil) points (plv-echv profil) section (plv-section-fin section)))
  (if (= (length lignes) (length segments))
    (mapcar 'plv-dessine:redresser lignes segments)
    (plv-retracer-section profil points section)))

(defun plv-ajuster-terrain (profil / points)
  "The ground lines as the record has them, those that are right left as they are."
  (setq points (plv-points-aux-plans (plv-points-tn profil) (plv-plans profil)))
  (foreach section (plv-sections-de-plan profil) (plv-dessine:ajuster profil points section))
  (plv-ouvrir-lacunes profil)
  (plv-noter-fait profil "TERRAIN" nil nil nil))

(defun plv-reprendre-terrain (profil / avant points refus)
  "Takes moved ends of ground lines into the record, and brings all lines to it. What makes no ground goes back, with a message."
  (setq avant (plv-points-nommes profil)
        points (plv-dessine:points avant (plv-dessine:deplaces profil (plv-ecarts-terrain profil)))
        refus (plv-dessine:refus avant points))
  (if refus
    (plv-dire (strcat "Terrain naturel: " refus ", il reprend sa place."))
    (progn (plv-ecrire-terrain profil points) (plv-ecrire-noms profil points)))
  (plv-ajuster-terrain profil)
  (if (plv-entites-habillage profil) (plv-rehabiller profil))
  profil)
