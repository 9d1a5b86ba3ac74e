;; Texts at the edges of what a sheet shows of a profile. The sheet doesn't show a text that belongs to the next one. One that the cut tears is written
;; whole on both sheets, in the place of what is shown of it: over the profile it hangs over the edge, in tables it is moved inwards along its line where
;; nothing else stands, else it is only on the sheet where it can be; where it can be on neither it is left torn.
;; Measures, as plv-feuilles makes them, have the keys x0, y0, recouvrement, couches and traits (upright lines of tables, as couches).

;; --- couches: what lies along the profile, (from to entity bottom top) in distances and ordinates

(defun plv-couche-entite (couche) (caddr couche))
(defun plv-couche-bas (couche) (cadddr couche))
(defun plv-couche-haut (couche) (nth 4 couche))

(defun plv-bords:couche (e coins x0) (list (- (caar coins) x0) (- (caadr coins) x0) e (cadar coins) (cadadr coins)))

(defun plv-couche-de (e x0 / groupes coins)
  "That of a text that lies along the profile; nil for anything else."
  (setq groupes (entget e))
  (if (and (= (plv-cle 0 groupes) "TEXT") (< (abs (sin (plv-cle 50 groupes))) 0.7) (setq coins (etendue-tracee (list e))))
    (plv-bords:couche e coins x0)))

(defun plv-couche-trait (e x0 / groupes a b)
  "That of an upright line; nil for anything else."
  (setq groupes (entget e) a (plv-cle 10 groupes) b (plv-cle 11 groupes))
  (if (and (= (plv-cle 0 groupes) "LINE") (equal (car a) (car b) 1e-9))
    (list (- (car a) x0) (- (car a) x0) e (min (cadr a) (cadr b)) (max (cadr a) (cadr b)))))

;; --- moving one inwards

(defun plv-bords:libre-p (torn dx mesures / debut fin jeu)
  "Whether a text may stand that much further along: no other text is in its way, in tables no line either; over the profile reference lines are
everywhere."
  (setq debut (+ (plv-debut torn) dx) fin (+ (plv-fin torn) dx) jeu (* 0.1 (- (plv-couche-haut torn) (plv-couche-bas torn))))
  (not
    (vl-some
      '(lambda (c)
         (and (plv-couche-entite c) (not (eq (plv-couche-entite c) (plv-couche-entite torn)))
              (< (plv-debut c) fin) (> (plv-fin c) debut)
              (< (plv-couche-bas c) (- (plv-couche-haut torn) jeu)) (> (plv-couche-haut c) (+ (plv-couche-bas torn) jeu))))
      (append (plv-cle 'couches mesures) (if (< (plv-couche-haut torn) (plv-cle 'y0 mesures)) (plv-cle 'traits mesures))))))

(defun plv-bords:appui (groupes / place haut)
  "(side point) of a text: the end or middle of its base line."
  (setq haut (cond ((= (plv-cle 72 groupes) 4) 0.5) ((cdr (assoc (plv-cle 73 groupes) '((2 . 0.5) (3 . 1.0))))) (0.0))
        place (if (and (member (plv-cle 72 groupes) '(nil 0)) (member (plv-cle 73 groupes) '(nil 0))) 10 11))
  (list (cond ((cdr (assoc (plv-cle 72 groupes) '((1 . 1) (2 . 2) (4 . 1))))) (0))
        (polar (plv-cle place groupes) (- (plv-cle 50 groupes) (* 0.5 pi)) (* haut (plv-cle 40 groupes)))))

(defun plv-bords:ecrire (torn dx au-papier k / groupes appui p)
  "A text that much further along its base line, as it is drawn on the paper."
  (setq groupes (entget (plv-couche-entite torn)) appui (plv-bords:appui groupes)
        p (apply au-papier (list (polar (cadr appui) (plv-cle 50 groupes) (/ dx (cos (plv-cle 50 groupes)))))))
  (list "T" (* k (plv-cle 40 groupes)) (car appui) (plv-cle 1 groupes) (car p) (cadr p) (plv-cle 50 groupes)))

;; --- one edge: a list (cut edge side room floor), side 1 for the right edge and -1 for the left one; a text that stands over the floor may hang over
;; the edge by so much room

(defun plv-bord (d recouvrement cote place sol) (list d (+ d (* cote recouvrement)) cote place sol))

(defun plv-bords:debord (torn bord) "How much of a text is beyond the edge."
  (if (> (caddr bord) 0) (- (plv-fin torn) (cadr bord)) (- (cadr bord) (plv-debut torn))))

(defun plv-bords:au-dela-p (torn bord)
  "Whether it belongs to the next sheet."
  (if (> (caddr bord) 0) (>= (plv-debut torn) (- (car bord) 1e-6)) (<= (plv-fin torn) (+ (car bord) 1e-6))))

(defun plv-bords:suspendu-p (torn bord)
  (and (not (plv-bords:au-dela-p torn bord)) (>= (plv-couche-bas torn) (nth 4 bord)) (<= (plv-bords:debord torn bord) (cadddr bord))))

(defun plv-bords:en-p (torn d) (and (< (plv-debut torn) (- d 1e-6)) (> (plv-fin torn) (+ d 1e-6))))

(defun plv-bords:dechires (mesures bord)
  "What the edge tears, and over the profile what lies under the line of the cut."
  (vl-remove-if-not
    '(lambda (c)
       (and (plv-couche-entite c)
            (or (plv-bords:en-p c (cadr bord)) (and (plv-bords:en-p c (car bord)) (>= (plv-couche-bas c) (plv-cle 'y0 mesures))))))
    (plv-cle 'couches mesures)))

(defun plv-bords-debord (mesures bord)
  "How far texts hang over an edge."
  (apply 'max
    (cons 0.0
      (mapcar '(lambda (c) (plv-bords:debord c bord))
        (vl-remove-if-not '(lambda (c) (plv-bords:suspendu-p c bord)) (plv-bords:dechires mesures bord))))))

(defun plv-bords:rentree (torn bord)
  "How far a text is to be moved to stand within the edge, a little from it."
  (* -1.0 (caddr bord) (+ (plv-bords:debord torn bord) (* 0.2 (- (plv-couche-haut torn) (plv-couche-bas torn))))))

(defun plv-bords:entier-p (torn bord mesures)
  "Whether a text is whole within an edge, or can be."
  (or (<= (plv-bords:debord torn bord) 0.0) (plv-bords:libre-p torn (plv-bords:rentree torn bord) mesures)))

(defun plv-bords:penche-p (torn mesures)
  "Whether it lies along a slope over the profile: moved along that, it might come over another line."
  (and (>= (plv-couche-bas torn) (plv-cle 'y0 mesures)) (not (equal (plv-cle 50 (entget (plv-couche-entite torn))) 0.0 1e-9))))

(defun plv-bords:texte (torn bord face mesures au-papier k / e)
  "What is done about a text at an edge: the entity that the sheet doesn't show, and what is written. face: the edge of the other sheet."
  (setq e (plv-couche-entite torn))
  (cond
    ((plv-bords:au-dela-p torn bord) (list e))
    ((<= (plv-bords:debord torn bord) 0.0) nil)
    ((plv-bords:suspendu-p torn bord) (list e (plv-bords:ecrire torn 0.0 au-papier k)))
    ((and (plv-bords:penche-p torn mesures) (plv-bords:suspendu-p torn face)) (list e))
    ((plv-bords:libre-p torn (plv-bords:rentree torn bord) mesures) (list e (plv-bords:ecrire torn (plv-bords:rentree torn bord) au-papier k)))
    ((and (< (plv-couche-haut torn) (plv-cle 'y0 mesures)) (plv-bords:entier-p torn face mesures)) (list e))))

(defun plv-bords (mesures bord face au-papier k)
  "What is drawn on the paper at an edge, and the entities that the sheet doesn't show. au-papier: the place on the paper of a point of the drawing; k
millimetres for a unit of it."
  (apply 'append (mapcar '(lambda (torn) (plv-bords:texte torn bord face mesures au-papier k)) (plv-bords:dechires mesures bord))))
