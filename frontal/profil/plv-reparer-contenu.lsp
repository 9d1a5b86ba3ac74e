;; Mends what the records of a profile hold, for kavel --audit --fix: planes and supports of its own for a copy, ground from the lines
;; that are drawn, numbers of planes, lists of elements. plv-reparer mends the chains.
;; Shared in the room: plv-reparer:*

;; --- a copy by the block alone

(defun plv-reparer:plans-de (profil terrain plans)
  "Planes of its own, with their ground lines."
  (if (cdr terrain)
    (plsxd profil "PRPC"
      (car (plv-tracer-plans (plv-origine profil) (plv-points-aux-plans terrain plans) (plv-echv profil) plans (car (plv-dernier terrain)))))))

(defun plv-reparer:copie (profil partage / plans terrain habille)
  "Over the altitudes of the original's planes; dressed when the original is."
  (setq plans (plv-plans (car partage)) terrain (plv-points-tn profil) habille (plv-entites-habillage profil))
  (if (and plans (member "PRPC" (cdr partage))) (plv-reparer:plans-de profil terrain plans))
  (plv-bloc-vide plv-bloc-support)
  (foreach cle (vl-remove "PRPC" (cdr partage)) (plsxd profil cle (plv-inserer "PLV-PROFIL" plv-bloc-support (plv-origine profil))))
  (plv-lacher-autrui profil)
  (if (and habille (cdr terrain) (not (plv-entites-habillage profil)))
    (plv-habiller-profil profil (plv-origine profil) terrain (plv-echv profil) (plv-ttxt profil) plans)))

;; --- the numbers of a plane

(defun plv-reparer:longueur-plan (plan / groupes)
  "As it is drawn."
  (setq groupes (entget plan))
  (if (= (plv-cle 0 groupes) "LINE") (abs (- (cadr (assoc 11 groupes)) (cadr (assoc 10 groupes))))))

(defun plv-reparer:altitude-plan (profil plan)
  "As its ground lines tell it."
  (vl-some '(lambda (l) (plv-reparer:plan-de profil (plv-points-tn profil) l)) (plv-lignes-du-plan plan)))

(defun plv-reparer:nombres-plan (profil plan / valeur)
  (if (and (not (numberp (plgxd plan "DISTANCE"))) (setq valeur (plv-reparer:longueur-plan plan))) (plsxd plan "DISTANCE" valeur))
  (if (and (not (numberp (plgxd plan "PC"))) (setq valeur (plv-reparer:altitude-plan profil plan)))
    (plsxd plan "PC" (plv-reparer:rond valeur))))

;; --- the ground, from the lines that are drawn

(defun plv-reparer:points-section (cadre section)
  (apply 'append
    (mapcar
      '(lambda (ligne / groupes)
         (setq groupes (entget ligne))
         (mapcar '(lambda (p) (plv-vers-profil-sur cadre section p)) (plv-gauche-droite (list (plv-cle 10 groupes) (plv-cle 11 groupes)))))
      (plv-lignes-du-plan (plv-section-entite section)))))

(defun plv-reparer:terrain (profil / cadre points)
  "A record of less than two points is written anew from the ground lines."
  (if (and (not (cdr (plv-points-tn profil))) (vl-every 'plv-plan-complet (plv-entites-plans profil)))
    (progn
      (setq cadre (plv-cadre profil)
            points (plv-points-sans-doubles
                     (apply 'append (mapcar '(lambda (s) (plv-reparer:points-section cadre s)) (plv-sections-de-plan profil)))))
      (if (cdr points) (plv-ecrire-terrain profil points)))))

;; --- lists of elements

(defun plv-reparer:element-p (g) (and (= (car g) 330) (plv-existe (cdr g)) (plv-courbe-p (cdr g))))

(defun plv-reparer:elements (support / groupes bons)
  "Takes out what is no curve."
  (setq groupes (plv-enregistrement-elements support)
        bons (vl-remove-if-not 'plv-reparer:element-p groupes))
  (if (< (length bons) (length groupes)) (plv-ecrire-enregistrement support plv-elements:cle bons)))

(defun plv-reparer-contenu (profil / partage)
  (if (setq partage (plv-partage profil)) (plv-reparer:copie profil partage))
  (plv-lacher-autrui profil)
  (plv-lacher-morts profil)
  (foreach plan (plv-entites-plans profil) (plv-reparer:nombres-plan profil plan))
  (plv-reparer:terrain profil)
  (foreach support (cons profil (vl-remove nil (mapcar '(lambda (cle) (plv-nommee profil cle)) (plv-cles-genres))))
    (plv-reparer:elements support)
    (plv-reparer-statiques support)))
