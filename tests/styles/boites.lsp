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
