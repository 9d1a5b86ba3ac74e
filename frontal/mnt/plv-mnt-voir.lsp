;; PLV-TERRAIN Voir: the triangles of a surface, drawn in plan at their altitudes, so that an axis can be drawn across them. They stand on a
;; layer of their own, which no selection by layers takes for ground; those of an earlier look go first.

(setq plv-mnt:calque-surface "PLV-MNT" plv-mnt:triangles-dessines 50000)

(defun plv-mnt:face (triangle)
  (entmakex (list '(0 . "3DFACE") (cons 8 (plv-calque plv-mnt:calque-surface)) (cons 10 (car triangle)) (cons 11 (cadr triangle))
                  (cons 12 (caddr triangle)) (cons 13 (caddr triangle)))))

(defun plv-mnt-voir (demande / sources triangles)
  "Draws the surface of a request; the number of triangles, or nil after a message."
  (if (setq sources (plv-mnt-sources demande))
    (progn
      (setq triangles (et_triangles sources (plv-mnt-options demande) plv-mnt:triangles-dessines))
      (cond
        ((not triangles) (plv-erreur "cette source n'a pas de triangles: une grille ou les altitudes de l'axe"))
        ((= (type triangles) 'STR) (plv-erreur triangles))
        (T
         (plv-effacer (plv-entites-du-jeu (ssget "X" (list (cons 8 (plv-calque plv-mnt:calque-surface))))))
         (mapcar 'plv-mnt:face triangles)
         (plv-dire (strcat (plv-compte (length triangles) "triangle") " sur le calque " (plv-calque plv-mnt:calque-surface) "."))
         (length triangles))))))
