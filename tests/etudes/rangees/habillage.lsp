;; et_ecarter and et_placer: labels that don't touch.

(situation "LabelsOfARowAreMovedAsLittleAsPossible")
;; those that have room stay
((et_ecarter '((2.0 2.0) (8.0 2.0)) 0.0 10.0) ((0 2.0) (0 8.0)))
((et_ecarter '((5.0 2.0)) 0.0 10.0) ((0 5.0)))
;; two at one place go half of their width each
((et_ecarter '((5.0 2.0) (5.0 2.0)) 0.0 10.0) ((0 4.0) (0 6.0)))
;; the order of the list is kept, that of the row is that of the places
((et_ecarter '((6.0 2.0) (5.0 2.0)) 0.0 10.0) ((0 6.5) (0 4.5)))
;; a wall pushes all that touch: 9.5 to 9, its neighbour to 7, the first stays
((et_ecarter '((9.5 2.0) (8.5 2.0) (1.0 2.0)) 0.0 10.0) ((0 9.0) (0 7.0) (0 1.0)))
;; three in a block about their mean, however unlike their widths: lefts 3, 2, 0 without what is before, mean 5/3
((vl-every '(lambda (p c) (equal (cadr p) c 1e-9)) (et_ecarter '((4.0 2.0) (6.0 4.0) (7.0 2.0)) 0.0 20.0) (list (+ 1.0 (/ 5.0 3.0)) (+ 4.0 (/ 5.0 3.0)) (+ 7.0 (/ 5.0 3.0)))) T)

(situation "RowsAreAddedWhereOneIsTooShort")
;; three of 4 on 10: neighbours in different rows
((mapcar 'car (et_ecarter '((2.0 4.0) (5.0 4.0) (8.0 4.0)) 0.0 10.0)) (0 1 0))
;; one that is wider than the row has no place
((et_ecarter '((2.0 4.0) (5.0 11.0)) 0.0 10.0) nil)
((list (et_ecarter nil 0.0 10.0) (et_ecarter '((1.0 1.0)) 0.0)) (nil nil))

(situation "PlacesAreChosen")
;; the first that is free; touching at an edge is no overlap
((et_placer '((0.0 0.0 2.0 2.0 0.0)) '(((1.0 0.0 1.0 1.0 0.0) (1.5 0.0 1.0 1.0 0.0)))) (1))
((et_placer '((0.0 0.0 9.0 9.0 0.0)) '(((1.0 0.0 1.0 1.0 0.0)))) (-1))
;; one with a single place takes it, the other one goes elsewhere
((et_placer nil '(((0.0 0.0 1.0 1.0 0.0) (5.0 0.0 1.0 1.0 0.0)) ((0.0 0.0 1.0 1.0 0.0)))) (1 0))
;; slanting boxes by their sides: a diamond about (3 0) with a half diagonal of 1.41 reaches (1.59 0), its upright box the corner too
((et_placer '((3.0 0.0 2.0 2.0 0.785398163)) '(((2.0 1.1 0.4 0.4 0.0)) ((1.8 0.0 0.5 0.5 0.0)))) (0 -1))
;; a box without height is a line
((et_placer '((0.0 0.0 10.0 0.0 0.5)) '(((0.0 0.0 1.0 1.0 0.0) (0.0 3.0 1.0 1.0 0.0)))) (1))
;; the third finds room when the second makes it: each of the first two has two places, the third the first one of both
((et_placer nil '(((0.0 0.0 1.0 1.0 0.0) (9.0 0.0 1.0 1.0 0.0)) ((2.0 0.0 1.0 1.0 0.0) (9.0 9.0 1.0 1.0 0.0)) ((2.0 0.0 1.0 1.0 0.0) (0.0 0.0 1.0 1.0 0.0)))) (0 1 0))
