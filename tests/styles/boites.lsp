;; Writes what every text of the drawing covers, with ink, to a file: x y of the middle, width, height, angle, height of the text, the words.
;; Texts in the blocks of tables and legends stand where their reference shows them.

(defun boite-de-texte (g dx dy / coins a l h c)
  "The box of a text's groups; its middle is that of its upright extent, which a text has in common with its box."
  (setq coins (textbox g) a (cdr (assoc 50 g)))
  (if coins
    (progn
      (setq l (- (caadr coins) (caar coins)) h (- (cadadr coins) (cadar coins))
            c (etendue-tracee (list (cdr (assoc -1 g)))))
      (if c
        (list (+ dx (* 0.5 (+ (caar c) (caadr c)))) (+ dy (* 0.5 (+ (cadar c) (cadadr c)))) l h (cond (a) (0.0)) (cdr (assoc 40 g))
              (cdr (assoc 1 g)))))))

(defun boites-du-bloc (insert / g e p)
  (setq g (entget insert) p (cdr (assoc 10 g)) e (cdr (assoc -2 (tblsearch "BLOCK" (cdr (assoc 2 g))))))
  (while e
    (if (= (cdr (assoc 0 (entget e))) "TEXT") (ajouter (boite-de-texte (entget e) (car p) (cadr p))))
    (setq e (entnext e)))
  (setq e (entnext insert))
  (while (and e (= (cdr (assoc 0 (entget e))) "ATTRIB"))
    (ajouter (boite-de-texte (entget e) 0.0 0.0))
    (setq e (entnext e))))

(setq boites nil)
(defun ajouter (b) (if (and b (/= (last b) "")) (setq boites (cons b boites))))

(defun ecrire-boites (fichier / jeu i e f)
  (setq boites nil jeu (ssget "X") i 0)
  (repeat (sslength jeu)
    (setq e (ssname jeu i) i (1+ i))
    (cond
      ((= (cdr (assoc 0 (entget e))) "TEXT") (ajouter (boite-de-texte (entget e) 0.0 0.0)))
      ((= (cdr (assoc 0 (entget e))) "INSERT") (boites-du-bloc e))))
  (setq f (open fichier "w"))
  (foreach b boites (write-line (apply 'strcat (append (mapcar '(lambda (x) (strcat (rtos x 2 6) "\t")) (reverse (cdr (reverse b)))) (list (last b)))) f))
  (close f)
  (length boites))

;; Manholes as users place them: blocks with two attributes above the ground at some of its points, attached to a kind of line.
(defun poser-regards (p genre distances h / bloc d y)
  (entmake '((0 . "BLOCK") (2 . "REGARD") (70 . 2) (10 0.0 0.0 0.0)))
  (entmake (list '(0 . "CIRCLE") '(8 . "0") '(10 0.0 0.0 0.0) (cons 40 (* 0.5 h))))
  (entmake '((0 . "ENDBLK")))
  (pl_ChoixProfil p)
  (foreach d distances
    (setq y (cadr (plv-vers-dessin (plv-cadre p) d (plv-sol-altitude (plv-sol (plv-points-tn p)) d)))
          x (+ (car (plv-origine p)) d))
    (entmake (list '(0 . "INSERT") '(8 . "PLV-PROFIL") '(66 . 1) '(2 . "REGARD") (list 10 x y 0.0)))
    (foreach a (list (list "NUM" (strcat "R" (rtos d 2 0)) 9.0) (list "DN" "300" 7.5))
      (entmake (list '(0 . "ATTRIB") '(8 . "PLV-PROFIL") (list 10 x (+ y (* h (caddr a))) 0.0) (list 11 x (+ y (* h (caddr a))) 0.0) (cons 40 h)
                     (cons 1 (cadr a)) (cons 2 (car a)) '(70 . 0) '(72 . 1))))
    (entmake '((0 . "SEQEND") (8 . "PLV-PROFIL")))
    (setq bloc (entlast))
    (pl_elem_ponct p genre (plv-point x y) bloc)
    (plv-bloc-place p bloc)))
