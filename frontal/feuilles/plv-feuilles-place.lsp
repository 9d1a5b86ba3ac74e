;; The template of sheets: what it leaves for profiles, (width height sheet corner left bottom logo) in millimetres: the size of the sheet, the
;; lower left corner of the sheet in the template, the lower left corner of the room from there; the room of a logo from the corner of that
;; for profiles, (x y width height), nil without one.
;; Shared in the room: plv-feuilles:*

(defun plv-place-largeur (place) (car place))
(defun plv-place-hauteur (place) (cadr place))
(defun plv-place-feuille (place) (caddr place))
(defun plv-place-coin (place) (cadddr place))
(defun plv-place-gauche (place) (nth 4 place))
(defun plv-place-bas (place) (nth 5 place))

(defun plv-place-logo (place) (nth 6 place))

(defun plv-feuilles:place-de (lu / coin)
  (setq coin (list (car (caddr lu)) (cadr (caddr lu))))
  (append (list (car (cadr lu)) (cadr (cadr lu)) (list (caar lu) (cadar lu)) coin) (mapcar '- (cadddr lu) coin)
    (if (nth 5 lu) (list (append (mapcar '- (nth 5 lu) (cadddr lu)) (nth 4 lu))))))

(setq plv-feuilles:formats '("A4" "A2" "A1" "A0" "R297" "R420" "R594" "R841"))

(defun plv-feuilles:modele (nom)
  "The template of a format, A4 to A0 or a roll of such a height; any other name is a file's."
  (cond
    ((= (strcase nom) "A3") "cartouche.dxf")
    ((member (strcase nom) plv-feuilles:formats) (strcat "cartouche-" (strcase nom T) ".dxf"))
    (T nom)))

(defun plv-feuilles:place (modele / lu)
  "The room of a template; nil after a message."
  (setq lu (vl-catch-all-apply 'modele-feuille (list modele)))
  (if (vl-catch-all-error-p lu) (plv-erreur (vl-catch-all-error-message lu)) (plv-feuilles:place-de lu)))
