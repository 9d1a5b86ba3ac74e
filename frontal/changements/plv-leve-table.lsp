;; The ground as a table of a form: the surveyed points as rows (station altitude name) of texts, and back. Points whose texts stay keep their exact
;; values.

(setq plv-leve-table:decimales 3 plv-leve-table:poignees 300) ; points that are dragged in the picture, at most

(defun plv-leve-table:rangee (point origine)
  (list (plv-reel (+ origine (car point)) plv-leve-table:decimales) (plv-reel (cadr point) plv-leve-table:decimales) (plv-point-nom point)))

(defun plv-leve-rangees (profil / origine)
  (setq origine (plv-premiere-station profil))
  (mapcar '(lambda (p) (plv-leve-table:rangee p origine)) (plv-points-releves profil)))

(defun plv-leve-table:point (rangee origine exacts / exact)
  "(distance altitude name) of a row; nil for one that can't be read."
  (setq exact (cdr (assoc (plv-premiers rangee 2) exacts)))
  (cond
    (exact (list (car exact) (cadr exact) (caddr rangee)))
    ((and (plv-nombre-station (car rangee)) (plv-nombre (cadr rangee)))
     (list (- (plv-nombre-station (car rangee)) origine) (plv-nombre (cadr rangee)) (caddr rangee)))))

(defun plv-leve-table:lus (profil rangees / origine exacts)
  (setq origine (plv-premiere-station profil)
        exacts (mapcar '(lambda (p) (cons (plv-premiers (plv-leve-table:rangee p origine) 2) p)) (plv-points-releves profil)))
  (mapcar '(lambda (r) (plv-leve-table:point r origine exacts)) rangees))

(defun plv-leve-table:faute (points)
  (cond
    ((member nil points) (strcat "rangée " (itoa (1+ (vl-position nil points))) ": station et altitude attendues"))
    ((not (cdr points)) "deux points au moins sont attendus")))

(defun plv-leve-table-terrain (profil rangees / points faute)
  "The ground of rows, sorted by station, see plv-terrain; nil after a complaint."
  (setq points (plv-leve-table:lus profil rangees) faute (plv-leve-table:faute points))
  (if faute
    (plv-erreur faute)
    (progn
      (setq points (vl-sort points '(lambda (a b) (< (car a) (car b)))))
      (list (cons 'origine (+ (plv-premiere-station profil) (caar points))) (cons 'points points) (cons 'lacunes (plv-lacunes profil))))))

(defun plv-leve-table-image (profil rangees terrain / points)
  "The ground that the rows give over the one that is, its points to be dragged."
  (setq points (plv-leve-table:lus profil rangees))
  (plv-image-profil profil
    (append (plv-traits-profil profil)
      (if terrain (plv-image-traits "projet" (list (mapcar '(lambda (p) (list (car p) (cadr p))) (plv-cle 'points terrain)))))
      (if (<= (length points) plv-leve-table:poignees) (plv-poignees-de-rangees "points" (mapcar '(lambda (p) (if p (list (car p) (cadr p)))) points))))))
