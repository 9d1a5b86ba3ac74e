;; PLV-DEVERS: cross falls that are kept with a profile, and the row that shows them. A record of them has, for each station,
;; (distance left right), falls in percent, rising outwards positive.
;; Shared in the room: plv-remplir:devers

(setq plv-devers:cle "PLV_DEVERS")

(defun plv-devers-gauche (devers) (cadr devers))
(defun plv-devers-droit (devers) (caddr devers))

(defun plv-devers-du-profil (profil) (mapcar 'cdr (plv-enregistrement profil plv-devers:cle)))

(defun plv-devers (profil liste / origine)
  "Stores cross falls (station left right)."
  (setq origine (plv-premiere-station profil))
  (plv-ecrire-enregistrement profil plv-devers:cle
    (mapcar '(lambda (v) (list 10 (- (float (car v)) origine) (float (plv-devers-gauche v)) (float (plv-devers-droit v))))
            (vl-sort liste '(lambda (a b) (< (car a) (car b)))))))

(defun plv-lire-devers (chemin / trouve numero champs valeurs liste fautive)
  "The station;left;right lines of a file; nil after a message."
  (setq numero 0)
  (if (setq trouve (plv-fichier-existant chemin))
    (foreach ligne (plv-lire-lignes trouve)
      (setq numero (1+ numero)
            champs (plv-couper ligne (plv-separateur ligne))
            valeurs (cons (plv-nombre-station (car champs)) (mapcar 'plv-nombre (cdr champs))))
      (cond
        ((or fautive (plv-ligne-muette ligne)))
        ((and (= (length valeurs) 3) (not (member nil valeurs))) (setq liste (cons valeurs liste)))
        ((and (not liste) (not (vl-some 'numberp valeurs))))
        (T (setq fautive T)
           (plv-refus-ligne trouve numero ligne "station, dévers gauche et dévers droit attendus")))))
  (cond (fautive nil) ((reverse liste)) (trouve (plv-erreur (strcat trouve ": aucun dévers")))))

(defun plv-devers-fichier (profil chemin / liste)
  "Stores the cross falls of a file; gives them, or nil after a message."
  (if (setq liste (plv-lire-devers chemin)) (progn (plv-devers profil liste) liste)))

(defun c:plv-devers (/ profil chemin)
  "Attache à un profil les dévers d'un fichier."
  (if (and (setq profil (plv-choisir-profil))
           (setq chemin (plv-demander-fichier "Fichier des dévers")))
    (plv-devers-fichier profil chemin))
  (princ))

;; --- the row

(defun plv-devers:grand (devers)
  "The greatest fall, at least one percent: half of the row's height shows it."
  (apply 'max (cons 1.0 (mapcar '(lambda (v) (max (abs (plv-devers-gauche v)) (abs (plv-devers-droit v)))) devers))))

(defun plv-devers:memes-p (v) (equal (plv-devers-gauche v) (plv-devers-droit v) 1e-9))

(defun plv-devers:en (a b d)
  "The falls at a distance between two records."
  (mapcar '(lambda (u v) (+ u (* (/ (- d (car a)) (- (car b) (car a))) (- v u)))) a b))

(defun plv-devers:dans (devers fin / a b debut bout dedans)
  "The falls along the profile: those before and behind it end at its ends."
  (while (cdr devers)
    (setq a (car devers) b (cadr devers) devers (cdr devers)
          debut (max 0.0 (car a)) bout (min fin (car b)))
    (if (> (- bout debut) 1e-6)
      (setq dedans (cons (plv-devers:en a b bout) (cond (dedans) ((list (plv-devers:en a b debut))))))))
  (reverse dedans))

(defun plv-remplir:devers (points contexte / devers grand)
  "The falls of both sides as lines about the middle of the row; one line where they are the same."
  (setq devers (plv-devers:dans (plv-devers-du-profil (plv-cle 'profil contexte)) (plv-cle 'longueur contexte)))
  (if (cdr devers)
    (progn
      (setq grand (plv-devers:grand devers))
      (apply '+ (mapcar '(lambda (a b) (plv-devers:cellule a b grand contexte)) devers (cdr devers))))))

(defun plv-devers:cellule (a b grand contexte)
  (pl_TexteMultipleCentre (car a) (car b) "|")
  (if (and (plv-devers:memes-p a) (plv-devers:memes-p b))
    (plv-devers:cote a b 'plv-devers-gauche "" grand contexte)
    (+ (plv-devers:cote a b 'plv-devers-gauche "G " grand contexte)
       (plv-devers:cote a b 'plv-devers-droit "D " grand contexte))))

(defun plv-devers:cote (a b cote prefixe grand contexte / va vb fixe texte)
  ;; Figures only where nothing turns: a slanting side would run through the other's.
  (setq va (apply cote (list a)) vb (apply cote (list b))
        fixe (equal (cdr a) (list (plv-devers-gauche b) (plv-devers-droit b)) 1e-9)
        texte (if fixe
                (plv-remplir:qui-tient (list (strcat prefixe (plv-remplir:signe va 2) " %")) (* 0.95 (- (car b) (car a))) contexte)))
  (apply 'pl_ligneMatrice
    (append (list (car a) (plv-devers:hauteur va grand) (car b) (plv-devers:hauteur vb grand)) (if texte (list texte))))
  (if fixe (plv-remplir:manque texte) 0))

(defun plv-devers:hauteur (valeur grand) (+ 0.4 (* 0.25 (/ valeur grand))))
