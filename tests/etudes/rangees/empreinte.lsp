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
;; nor does the colour of the layer, written or left out, nor a copy of the layer for sheets; another layer does
(preparer
  (defun sur (calque couleur)
    (et_empreinte (list (entmakex (append (list '(0 . "LINE") (cons 8 calque) '(10 0.0 0.0 0.0) '(11 1.0 0.0 0.0)) couleur))) '(0.0 0.0 0.0) T)))
((= (sur "A" nil) (sur "A" '((62 . 256))) (sur "A-HORS-1-2" nil)) T)
((= (sur "A" nil) (sur "A-HORS-SOL" nil)) nil)
((list (= (sur "A" nil) (sur "A" '((62 . 1)))) (= (sur "A" nil) (sur "B" nil))) (nil nil))
;; vertices and attributes do
(preparer
  (entmake '((0 . "POLYLINE") (66 . 1) (10 0.0 0.0 0.0)))
  (foreach x '(0.0 1.0) (entmake (list '(0 . "VERTEX") (list 10 x x 0.0))))
  (entmake '((0 . "SEQEND")))
  (setq p (entlast) avant (et_empreinte (list p)) v (entget (entnext (entnext p))))
  (entmod (subst '(10 1.0 3.0 0.0) (assoc 10 v) v)))
((= avant (et_empreinte (list p))) nil)

;; What was put in the rows of tables is kept with an entity; what a hand changes of it is found.
(situation "OfRows")
(preparer
  (defun texte (x y mots) (entmakex (list '(0 . "TEXT") '(8 . "0") (list 10 x y 0.0) '(40 . 1.0) (cons 1 mots))))
  (setq a (texte 0.0 8.0 "A") b (texte 5.0 8.0 "B") c (texte 5.0 3.0 "A") l (ligne 0.0 8.0 1) tous (list a l b c)
        rangees (list (list l "HAUT" 0.0 10.0 5.0) (list l "BAS" 0.0 5.0 0.0))))
((et_noter_rangees tous nil rangees) T)
((list (= (et_somme a) (et_somme c)) (= (et_somme a) (et_somme b)) (et_somme l)) (T nil nil))
((et_ecarts tous rangees) nil)
((mapcar 'length (et_a_corriger tous nil rangees)) (5 3))
;; what stays has to be known only where nothing is kept of a row
((equal (et_a_corriger tous T rangees) (et_a_corriger tous nil rangees)) T)
((et_a_corriger tous T (append rangees (list (list l "INCONNUE" 0.0 0.0 -5.0)))) nil)
;; moved, rewritten in its place, coloured; a text that was added is nobody's until it is told
(preparer
  (command "_.MOVE" a "" '(0.0 0.0) '(1.0 -6.0))
  (setq g (entget b)) (entmod (subst '(1 . "autre") (assoc 1 g) g))
  (entmod (append (entget c) '((62 . 3))))
  (setq d (texte 9.0 9.0 "D"))
  (defun sans-somme (e) (cons (vl-position (car e) tous) (cdr (reverse (cdr (reverse e)))))))
((mapcar 'sans-somme (et_ecarts (append tous (list d)) rangees))
 ((0 0 0.0 -2.0 1.0 -6.0 nil) (2 0 5.0 -2.0 0.0 0.0 T) (3 1 5.0 -2.0 0.0 0.0 nil)))
((mapcar 'car (et_a_corriger tous nil rangees)) (T T))
;; the row is elsewhere now, and its texts with it
(preparer (command "_.MOVE" b c "" '(0.0 0.0) '(100.0 0.0)))
((mapcar 'caddr (et_ecarts (list b c) (list (list l "HAUT" 100.0 10.0 5.0) (list l "BAS" 100.0 5.0 0.0)))) (5.0 5.0))
((et_ecarts tous '((1 2 3))) nil)
;; what is new is added, what was erased is forgotten, and what isn't among the entities belongs to another table
(preparer (entdel a) (et_renoter (list l b c d) (list d) rangees))
((mapcar '(lambda (r) (length (cddr r))) (et_a_corriger (list l b c d) nil rangees)) (3 1))
((mapcar '(lambda (r) (length (cddr r))) (et_a_corriger (list l b d) nil rangees)) (3 0))

;; Cells that stand alone: those that are missing, too many or say something else.
(situation "OfCells")
(preparer
  (defun texte (x mots) (entmakex (list '(0 . "TEXT") '(8 . "0") (list 10 x 2.0 0.0) '(40 . 1.0) (cons 1 mots))))
  (setq tous (mapcar '(lambda (x) (texte x (rtos x 2 0))) '(0.0 10.0 20.0 30.0)) porteur (ligne 0.0 0.0 1))
  (et_noter_rangees tous nil (list (list porteur "R" 0.0 5.0 0.0)))
  (defun trouvees (cellules) (cdr (car (et_a_corriger tous nil (list (list porteur "R" 0.0 5.0 0.0 cellules))))))
  (defun fautes (cellules) (mapcar '(lambda (f) (list (car f) (if (cadr f) (vl-position (cadr f) tous)))) (cdr (trouvees cellules)))))
(tableau (voulues trouve)
  ('((0.0 "0") (10.0 "10") (20.0 "20") (30.0 "30")) nil)
  ('((0.0 "0") (10.0 "11") (20.0 "20") (30.0 "30")) ((1 1)))
  ('((0.0 "0") (10.0 "10") (15.0 "15") (20.0 "20") (30.0 "30")) ((2 nil)))
  ('((0.0 "0") (20.0 "20") (30.0 "30")) ((nil 1)))
  ;; the first one is gone: all others stand where the one before stood
  ('((10.0 "10") (20.0 "20") (30.0 "30")) ((nil 0))))
((fautes voulues) trouve)
;; cells elsewhere altogether: the row is filled as a whole
((car (trouvees '((3.0 "0") (11.0 "10") (24.0 "20") (38.0 "30")))) T)
((et_reels '(1.005 -0.001 nil 12) 2) ("1.00" "0.00" nil "12.00"))
;; a list of two or three numbers comes as a point
((list (et_reels '(1.0 -0.004 3) 2) (et_reels '(1.0 2.5) 1) (et_reels '(1.0) 0)) (("1.00" "0.00" "3.00") ("1.0" "2.5") ("1")))
((list (et_reels nil 2) (et_reels '(1.0)) (et_reels '(1.0 2.0))) (nil nil nil))

;; Pieces of slopes: a tick at either end of each, so that two stand where pieces meet, a diagonal, words.
(situation "OfPieces")
(preparer
  (defun texte (x mots) (entmakex (list '(0 . "TEXT") '(8 . "0") (list 10 x 2.0 0.0) '(40 . 1.0) (cons 1 mots))))
  (defun trait (x1 y1 x2 y2) (entmakex (list '(0 . "LINE") '(8 . "0") (list 10 x1 y1 0.0) (list 11 x2 y2 0.0))))
  (defun morceau (x1 x2 montee mots)
    (append (list (trait x1 0.0 x1 5.0) (trait x2 0.0 x2 5.0))
      (if (/= montee 2) (list (trait x1 2.0 x2 (+ 2.0 montee)))) (if (/= mots "") (list (texte (* 0.5 (+ x1 x2)) mots)))))
  (setq tous (append (morceau 0.0 10.0 1 "un") (morceau 10.0 20.0 0 "") (morceau 20.0 30.0 2 "R=5")) porteur (ligne 0.0 0.0 1))
  (et_noter_rangees tous nil (list (list porteur "R" 0.0 5.0 0.0)))
  (defun fautes (morceaux) (mapcar '(lambda (f) (if (car f) (car f) (vl-position (cadr f) tous)))
                             (cddr (car (et_a_corriger tous nil (list (list porteur "R" 0.0 5.0 0.0 morceaux))))))))
;; numbers of pieces to draw, then places in the list of what goes
(tableau (voulus trouve)
  ('((0.0 10.0 1 "un") (10.0 20.0 0 "") (20.0 30.0 2 "R=5")) nil)
  ;; other words: diagonal and words, and one tick of each end
  ('((0.0 10.0 1 "deux") (10.0 20.0 0 "") (20.0 30.0 2 "R=5")) (0 2 3 0 4))
  ('((0.0 10.0 1 "un") (10.0 20.0 -1 "") (20.0 30.0 2 "R=5")) (1 6 4 7))
  ;; two pieces become one
  ('((0.0 20.0 1 "un") (20.0 30.0 2 "R=5")) (0 2 3 6 0 1 4 7))
  ;; the last one is gone
  ('((0.0 10.0 1 "un") (10.0 20.0 0 "")) (9 7 8)))
((fautes voulus) trouve)

;; Chains by a key of extended data, which end before what is erased and where they come round.
(situation "OfChains")
(preparer
  (regapp "PLV2_DATA")
  (setq a (ligne 0.0 0.0 1) b (ligne 1.0 0.0 1) c (ligne 2.0 0.0 1))
  (defun nommer (e suivante)
    (entmod (append (entget e) (list (list -3 (list "PLV2_DATA" '(1000 . "AUTRE") '(1070 . 3) '(1000 . "NextLi") (cons 1005 (cdr (assoc 5 (entget suivante)))))))))))
((equal (et_chaine a "NEXTLI") (list a)) T)
(preparer (nommer a b) (nommer b c))
((equal (et_chaine a "NEXTLI") (list a b c)) T)
(preparer (nommer c a))
((equal (et_chaine b "nextli") (list b c a)) T)
(preparer (entdel c))
((list (equal (et_chaine a "NEXTLI") (list a b)) (equal (et_chaine a "AUTRE") (list a)) (et_chaine a nil)) (T T nil))
((equal (et_hors (list a b a) (list b)) (list a a)) T)
((list (et_hors nil (list a)) (equal (et_hors (list a b) nil) (list a b)) (et_hors (list a) (list a))) (nil T nil))
((et_departs (list b (cdr (assoc 330 (entget a))) a)) ((1.0 0.0 0.0) nil (0.0 0.0 0.0)))
((list (et_bouts (list (list a '(0.0 0.0 0.0) '(1.0 1.0 0.0)))) (et_bouts (list (list a '(0.0 0.1 0.0) '(1.0 1.0 0.0))))) (nil nil))
