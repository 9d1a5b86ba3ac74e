;; The row about the plan: alignments and arcs of the axis, changes of direction.
;; Shared in the room: plv-remplir:*

(defun plv-remplir:plan (points contexte / axe fin segments laisses)
  (setq fin (plv-cle 'longueur contexte))
  (if (setq axe (plv-axe-plan (plv-cle 'profil contexte)))
    (progn
      (setq segments (vl-remove-if '(lambda (s) (>= (plv-debut s) (- fin 1e-6))) (plv-axe-segments axe))
            laisses (plv-remplir:somme '(lambda (s) (plv-plan:segment s (min fin (plv-fin s)) contexte)) segments))
      (mapcar 'plv-plan:angle segments (cdr segments))
      laisses)))

(defun plv-plan:segment (s fin contexte / milieu gauche texte)
  "A cell from the segment's start to where it or the profile ends."
  (setq milieu (* 0.5 (+ (plv-debut s) fin)))
  (pl_TexteMultipleCentre (plv-debut s) fin "|")
  (setq texte (plv-remplir:qui-tient (plv-plan:textes s) (* 0.95 (- fin (plv-debut s))) contexte))
  (if (plv-segment-droit-p s)
    (if texte (pl_TexteHorizontalCentre milieu texte))
    (progn
      ;; The arc bulges to the side that it turns away from, and its text stands on the other.
      (setq gauche (> (plv-segment-bulbe s) 0.0))
      (pl_ArcCell (plv-debut s) fin (if gauche 0 1))
      (if texte (pl_TexteHorizontalCentre milieu texte (if gauche 1.0 -1.0)))))
  (plv-remplir:manque texte))

(defun plv-plan:textes (s / longueur)
  (setq longueur (strcat "L=" (plv-reel (plv-longueur s) 2)))
  (if (plv-segment-droit-p s)
    (list (strcat "Alignement " longueur) longueur)
    (list (strcat "R=" (plv-reel (plv-segment-rayon s) 2) " " longueur) (strcat "R=" (plv-reel (plv-segment-rayon s) 0)))))

(defun plv-plan:angle (s suivant / ecart)
  "Two quarter circles where the axis turns at a point: at the top for the left, at the bottom for the right."
  (setq ecart (plv-axe-deviation s suivant))
  (if (> (abs ecart) 1e-4)
    (foreach code (if (> ecart 0.0) '(0 1) '(3 2)) (pl_Quadrant (plv-fin s) code 0.25))))
