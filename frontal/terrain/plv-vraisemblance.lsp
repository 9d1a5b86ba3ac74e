;; What no ground is: altitudes beyond the Earth's, distances beyond a country's, and a step far beyond all others.
;; Points are (distance altitude name line), in the order of distances. A mistyped figure or two columns in the wrong order
;; would otherwise be drawn, kilometres high.

(setq plv-vraisemblance:altitude 12000.0 plv-vraisemblance:distance 1e7)

;; A step is refused when it is so many times the usual one and greater than what a survey on flat ground may well have.
(setq plv-vraisemblance:fois 100.0 plv-vraisemblance:marche 50.0 plv-vraisemblance:vide 2000.0)

;; Set to T, steps are let pass: a survey may have a cliff.
(if (not (boundp 'plv-sauts-permis)) (setq plv-sauts-permis nil))

(defun plv-vraisemblance:nom (point)
  "Where the point stands in its file."
  (cond ((cadddr point) (strcat "ligne " (itoa (cadddr point))))
        (T (strcat "point à la station " (plv-vraisemblance:grand (car point))))))

(defun plv-vraisemblance:grand (nombre) (if (< (abs nombre) 1e9) (plv-reel nombre 2) (vl-princ-to-string nombre)))

(defun plv-vraisemblance:hors-bornes (point)
  (cond
    ((> (abs (cadr point)) plv-vraisemblance:altitude)
     (strcat (plv-vraisemblance:nom point) ": altitude invraisemblable: " (plv-vraisemblance:grand (cadr point))))
    ((> (abs (car point)) plv-vraisemblance:distance)
     (strcat (plv-vraisemblance:nom point) ": distance invraisemblable: " (plv-vraisemblance:grand (car point))))))

(defun plv-vraisemblance:usuel (pas)
  "The middle one of some lengths, the smaller of two."
  (nth (/ (1- (length pas)) 2) (vl-sort pas '<)))

(defun plv-vraisemblance:saut (points quoi marche mot / pas limite avant faute)
  "The first step of `quoi` (car or cadr) beyond the others; nil when there is none, or too few points to tell."
  (setq pas (mapcar '(lambda (a b) (abs (- (apply quoi (list b)) (apply quoi (list a))))) points (cdr points)))
  (if (> (length pas) 3)
    (progn
      (setq limite (max marche (* plv-vraisemblance:fois (plv-vraisemblance:usuel pas))))
      (while (and points (not faute))
        (if (and avant (> (car pas) limite))
          (setq faute (strcat (plv-vraisemblance:nom (car points)) ": " mot " de " (plv-vraisemblance:grand (car pas))
                              " m après la " (plv-vraisemblance:nom avant)
                              ", invraisemblable au regard des autres; (setq plv-sauts-permis T) l'admet")))
        (if avant (setq pas (cdr pas)))
        (setq avant (car points) points (cdr points)))))
  faute)

(defun plv-terrain-invraisemblable (points)
  "What is implausible in a ground, with its line; nil when nothing is."
  (cond
    ((vl-some 'plv-vraisemblance:hors-bornes points))
    (plv-sauts-permis nil)
    ((plv-vraisemblance:saut points 'cadr plv-vraisemblance:marche "saut d'altitude"))
    ;; Other formats say where their ground has gaps.
    ((not (cadddr (car points))) nil)
    ((plv-vraisemblance:saut points 'car plv-vraisemblance:vide "vide"))))
