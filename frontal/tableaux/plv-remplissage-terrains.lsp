;; Rows about further grounds: their altitudes, and by how much one lies above another. The row's text between braces names them:
;; {Rocher}, {TN/Rocher}; TN is the natural ground. Where one has a gap the cell stays empty.
;; Shared in the room: plv-remplir:*

(defun plv-remplir:altitude-de (contexte nom d / terrain)
  "Of a ground by its name; nil without it and in a gap."
  (cond
    ((= (strcase nom) "TN") (plv-altitude-tn (plv-cle 'tn contexte) d))
    ((setq terrain (plv-terrain-nomme (plv-cle 'profil contexte) nom)) (plv-terrain-en terrain d))))

(defun plv-remplir:terrain-connu (contexte nom)
  (or (= (strcase nom) "TN") (plv-terrain-nomme (plv-cle 'profil contexte) nom)))

(defun plv-remplir:avec-tn (contexte) (cons (cons 'tn (plv-points-tn (plv-cle 'profil contexte))) contexte))

(defun plv-remplir:altitudes-terrain (points contexte / nom z)
  (setq nom (vl-string-trim " " (cond ((plv-cle 'infos contexte)) (""))))
  (if (plv-remplir:terrain-connu contexte nom)
    (progn
      (setq contexte (plv-remplir:avec-tn contexte))
      (foreach p points (if (setq z (plv-remplir:altitude-de contexte nom (car p))) (plv-remplir:nombre (car p) z contexte)))
      0)))

(defun plv-remplir:differences-terrains (points contexte / noms a b)
  (setq noms (mapcar '(lambda (nom) (vl-string-trim " " nom)) (plv-couper (cond ((plv-cle 'infos contexte)) ("")) "/")))
  (if (and (= (length noms) 2) (vl-every '(lambda (nom) (plv-remplir:terrain-connu contexte nom)) noms))
    (progn
      (setq contexte (plv-remplir:avec-tn contexte))
      (foreach p points
        (setq a (plv-remplir:altitude-de contexte (car noms) (car p)) b (plv-remplir:altitude-de contexte (cadr noms) (car p)))
        (if (and a b) (plv-remplir:nombre (car p) (- a b) contexte)))
      0)))
