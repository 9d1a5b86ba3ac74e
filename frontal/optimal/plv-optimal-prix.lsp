;; What a trench and its manholes cost, and where manholes stand: rows name;values of a file, or typed one by one.
;; A row is a list of its name and numbers as et_ligneCout takes it.
;; Shared in the room: plv-optimal:refus-prix

;; name, (least most) numbers, the form of its row
(setq plv-prix:genres
  '(("fouille" (3 3) "fouille;jusqu'à la profondeur;largeur;prix du m3")
    ("blindage" (2 2) "blindage;à partir de la profondeur;prix du m2")
    ("regard" (1 2) "regard;prix, ou regard;prix;prix du mètre de profondeur")
    ("chute" (2 2) "chute;prix;hauteur la plus grande")
    ("pompage" (1 2) "pompage;prix, ou pompage;prix;prix du mètre relevé")
    ("espacement" (1 2) "espacement;le plus grand, ou espacement;le plus grand;pas des places")))

(defun plv-prix:complet (nom valeurs)
  "The numbers with those that may be left out: 0 of a metre, places a twelfth of the spacing apart."
  (append valeurs
    (cond ((cdr valeurs) nil)
          ((= nom "espacement") (list (max 1.0 (/ (car valeurs) 12.0))))
          ((list 0.0)))))

(defun plv-prix:valeurs-p (nom valeurs)
  (and (not (member nil valeurs))
       (vl-every '(lambda (v) (>= v 0.0)) valeurs)
       (or (/= nom "fouille") (> (min (car valeurs) (cadr valeurs)) 0.0))
       (or (/= nom "espacement") (> (apply 'min valeurs) 0.0))))

(defun plv-prix (ligne / champs genre valeurs)
  "The price of a row; a text that says what is expected for one that isn't understood."
  (setq champs (plv-optimal:sans-vides (plv-couper ligne ";"))
        genre (assoc (strcase (car champs) T) plv-prix:genres)
        valeurs (mapcar 'plv-nombre (cdr champs)))
  (cond
    ((not genre) (strcat "un prix est attendu: nom;valeurs, le nom étant " (plv-joindre (mapcar 'car plv-prix:genres) ", ")))
    ((not (and (<= (caadr genre) (length valeurs) (cadadr genre)) (plv-prix:valeurs-p (car genre) valeurs)))
     (strcat (caddr genre) " attendu"))
    (T (cons (car genre) (plv-prix:complet (car genre) valeurs)))))

(defun plv-lire-prix (chemin) (plv-optimal:lire-rangees chemin 'plv-prix "OUVRAGE;*" "aucun prix"))

(defun plv-demander-prix ()
  (plv-optimal:demander-rangees "Prix nom;valeurs, ou fichier, ou rien" 'plv-prix 'plv-lire-prix))

(defun plv-prix-fouilles (prix)
  "The classes of depth: (\"fouille\" depth width price)."
  (vl-remove-if-not '(lambda (p) (= (car p) "fouille")) prix))

;; --- prices that don't go together

(defun plv-prix:par-metre (fouille prix / blindage)
  "What a metre of depth of a metre of trench costs at the end of a class."
  (setq blindage (assoc "blindage" prix))
  (+ (* (caddr fouille) (cadddr fouille))
     (if (and blindage (> (cadr fouille) (cadr blindage))) (* 2.0 (caddr blindage)) 0.0)))

(defun plv-prix:baisse (prix / fouilles a b)
  "The first class of depth that costs less than the one before it."
  (setq fouilles (plv-prix-fouilles prix))
  (while (and (cdr fouilles) (not b))
    (setq a (car fouilles) fouilles (cdr fouilles))
    (if (or (<= (cadr (car fouilles)) (cadr a)) (< (plv-prix:par-metre (car fouilles) prix) (plv-prix:par-metre a prix)))
      (setq b (car fouilles))))
  b)

(defun plv-prix:deux-fois (prix / noms)
  (setq noms (vl-remove "fouille" (mapcar 'car prix)))
  (while (and noms (not (member (car noms) (cdr noms)))) (setq noms (cdr noms)))
  (car noms))

(defun plv-optimal:refus-prix (prix / faute)
  "What is wrong with the prices; nil for nothing."
  (cond
    ((not (plv-prix-fouilles prix)) "les prix n'ont pas de ligne fouille")
    ((setq faute (plv-prix:deux-fois prix)) (strcat "les prix ont deux lignes " faute))
    ((setq faute (plv-prix:baisse prix))
     (strcat "la fouille jusqu'à " (plv-reel (cadr faute) 2)
             " m vient après une classe plus profonde ou plus chère: un mètre de tranchée plus profonde ne peut pas coûter moins"))))
