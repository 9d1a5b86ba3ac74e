;; Depth classes and what follows from them: width, volume, wording. A class is (start end width colour).
;; Shared in the room: plv-metres:*

(defun plv-classe-debut (classe) (car classe))
(defun plv-classe-fin (classe) (cadr classe))
(defun plv-classe-largeur (classe) (caddr classe))
(defun plv-classe-couleur (classe) (cadddr classe))

(defun plv-metres:classes (rangees)
  "The classes of the dialog's list, whose columns are colour, start, end, a blank one and width."
  (mapcar
    '(lambda (r) (list (plv-metres:nombre (nth 1 r)) (plv-metres:nombre (nth 2 r)) (plv-metres:nombre (nth 4 r)) (car r)))
    rangees))

(defun plv-metres:classe (numero classes)
  "The class of a number, from 1; nil for what is not buried (0) or deeper than all of them."
  (if (<= 1 numero (length classes)) (nth (1- numero) classes)))

(defun plv-metres:largeur (numero classes)
  "What lies deeper than all classes is as wide as the last one."
  (if (or (<= numero 0) (not classes))
    0.0
    (plv-classe-largeur (plv-metres:classe (min numero (length classes)) classes))))

(defun plv-metres:couleur (numero classes)
  "As the hatches have it."
  (if (plv-metres:classe numero classes) (plv-classe-couleur (plv-metres:classe numero classes)) 7))

(defun plv-metres:volume (troncon classes / volume)
  "The module's list gives none to what lies deeper than all classes; the workbook does."
  (setq volume (* (plv-troncon-surface troncon) (plv-metres:largeur (plv-troncon-classe troncon) classes)))
  (if (plv-metres:classe (plv-troncon-classe troncon) classes)
    (plv-metres:exact volume (plv-troncon-volume-liste troncon))
    volume))

(defun plv-metres:libelle (numero classes / classe)
  "In the words of the module's dialog and workbook."
  (cond
    ((= numero 0) "non enterre")
    ((not classes) "sans classe")
    ((setq classe (plv-metres:classe numero classes))
     (strcat (plv-reel (plv-classe-debut classe) 2) " à " (plv-reel (plv-classe-fin classe) 2)))
    (T (strcat "au dela de " (plv-reel (plv-classe-fin (plv-dernier classes)) 2)))))

;; --- sums over depth sections

(defun plv-metres:somme (troncons fonction) (apply '+ (cons 0.0 (mapcar fonction troncons))))

(defun plv-metres:sommes (troncons classes)
  "(length surface volume)."
  (list (plv-metres:somme troncons 'plv-troncon-longueur)
        (plv-metres:somme troncons 'plv-troncon-surface)
        (plv-metres:somme troncons '(lambda (s) (plv-metres:volume s classes)))))
