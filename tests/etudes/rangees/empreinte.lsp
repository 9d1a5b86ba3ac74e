;; et_empreinte: what counts of values and of entities, and what doesn't.

(commun
  (preparer
    (regapp "ESSAI")
    (defun ligne (x y couleur) (entmakex (list '(0 . "LINE") '(8 . "0") (cons 62 couleur) (list 10 x y 0.0) (list 11 (+ x 2.0) (+ y 1.0) 0.0))))
    (defun memes (a b) (= (et_empreinte a) (et_empreinte b)))))

(situation "OfValues")
((strlen (et_empreinte '(1 2.0 "a"))) 16)
;; a whole number is the real of its value, a list of two numbers the point that the host makes of it
((list (memes '(1 2.0 "a") '(1.0 2 "a")) (memes '((1 2) "a") '((1.0 2.0) "a")) (memes '((1 2 3)) '((1.0 2.0 3.0)))) (T T T))
;; a ten-millionth is rounding, two millionths are a change, whatever the sign and size
((list (memes 1234567.0 1234567.0000001) (memes 1.0 1.000002) (memes -0.0 0.0) (memes 1e300 2e300)) (T nil T nil))
;; where a list begins and ends, in what order, and nil count
((list (memes '((1.0 2.0) 3.0) '(1.0 (2.0 3.0))) (memes '(1.0 2.0) '(2.0 1.0)) (memes '("ab" "c") '("a" "bc")) (memes '(nil) nil)) (nil nil nil nil))
((list (et_empreinte) (= (et_empreinte nil) (et_empreinte nil))) (nil T))

(situation "OfEntities")
(preparer (setq a (ligne 0.0 0.0 1) b (ligne 10.0 5.0 3)))
;; the form counts from the origin, the look when that is asked for
((list (memes (list a) (list b)) (= (et_empreinte (list a) '(0.0 0.0 0.0)) (et_empreinte (list b) '(10.0 5.0 0.0)))
       (= (et_empreinte (list a) '(0.0 0.0 0.0) T) (et_empreinte (list b) '(10.0 5.0 0.0) T))) (nil T nil))
;; extended data, a group and an erased neighbour don't
(preparer
  (setq avant (et_empreinte (list a) '(0.0 0.0 0.0) T))
  (entmod (append (entget a) '((-3 ("ESSAI" (1000 . "x"))))))
  (command "_.GROUP" "G" "" (ssadd a) "")
  (entdel b))
((= avant (et_empreinte (list a) '(0.0 0.0 0.0) T)) T)
;; vertices and attributes do
(preparer
  (entmake '((0 . "POLYLINE") (66 . 1) (10 0.0 0.0 0.0)))
  (foreach x '(0.0 1.0) (entmake (list '(0 . "VERTEX") (list 10 x x 0.0))))
  (entmake '((0 . "SEQEND")))
  (setq p (entlast) avant (et_empreinte (list p)) v (entget (entnext (entnext p))))
  (entmod (subst '(10 1.0 3.0 0.0) (assoc 10 v) v)))
((= avant (et_empreinte (list p))) nil)

;; Where the texts of rows stand is kept with an entity; what a hand changes is found by its place or by its words.
(situation "OfTexts")
(preparer
  (defun texte (x y mots) (entmakex (list '(0 . "TEXT") '(8 . "0") (list 10 x y 0.0) '(40 . 1.0) (cons 1 mots))))
  (setq a (texte 0.0 8.0 "A") b (texte 5.0 8.0 "B") c (texte 5.0 3.0 "A") l (ligne 0.0 8.0 1) tous (list a l b c)
        rangees (list (list l "HAUT" 0.0 10.0 5.0) (list l "BAS" 0.0 5.0 0.0))))
((et_noter_textes tous rangees) T)
((list (= (et_somme a) (et_somme c)) (= (et_somme a) (et_somme b)) (et_somme l)) (T nil nil))
((et_ecarts tous rangees) nil)
((list (length (et_dans_bande tous 10.0 5.0)) (et_dans_bande (list b c) 4.0 5.0) (et_dans_bande nil 9.0 0.0) (et_dans_bande tous)) (3 nil nil nil))
;; moved, rewritten in its place, coloured; a text that was added is nobody's
(preparer
  (command "_.MOVE" a "" '(0.0 0.0) '(1.0 -6.0))
  (setq g (entget b)) (entmod (subst '(1 . "autre") (assoc 1 g) g))
  (entmod (append (entget c) '((62 . 3))))
  (setq d (texte 9.0 9.0 "D"))
  (defun sans-somme (e) (cons (rang-de (car e)) (cdr (reverse (cdr (reverse e))))))
  (defun rang-de (e) (vl-position e tous)))
((vl-sort (mapcar 'sans-somme (et_ecarts (append tous (list d)) rangees)) '(lambda (u v) (< (car u) (car v))))
 ((0 0 0.0 -2.0 1.0 -6.0 nil) (2 0 5.0 -2.0 0.0 0.0 T) (3 1 5.0 -2.0 0.0 0.0 nil)))
((mapcar '(lambda (u) (list (car u) (cadr u) (eq (caddr u) a))) (et_textes (list d l a))) ((1.0 "A" T) (9.0 "D" nil)))
;; the row is elsewhere now, and its texts with it
(preparer (command "_.MOVE" b c "" '(0.0 0.0) '(100.0 0.0)))
((mapcar 'caddr (et_ecarts (list b c) (list (list l "HAUT" 100.0 10.0 5.0) (list l "BAS" 100.0 5.0 0.0)))) (5.0 5.0))
((et_ecarts tous '((1 2 3))) nil)
