;; What of a line can be taken hold of: its vertices, its slopes and its vertical curves. A hold is (what first last distance altitude):
;; S a vertex, P the vertices of a range, C the curve at a vertex; numbers are those of the line.

(defun plv-prise (quoi premier dernier d z) (list quoi premier dernier d z))
(defun plv-prise-quoi (prise) (car prise))
(defun plv-prise-premier (prise) (cadr prise))
(defun plv-prise-dernier (prise) (caddr prise))
(defun plv-prise-place (prise) (cdddr prise))

(defun plv-prises:suite (suite raccords numero / prises fin)
  "Those of a run whose first vertex has a number, left to right."
  (while suite
    (if (and fin (> (- (plv-prises:debut suite raccords) (car fin)) 1e-3))
      (setq prises (cons (plv-prises:pente fin suite numero (plv-prises:debut suite raccords)) prises)))
    (setq prises (cons (plv-prise "S" numero numero (caar suite) (cadar suite)) prises))
    (if (car raccords) (setq prises (cons (plv-prises:courbe (car raccords) numero) prises)))
    (setq fin (cons (if (car raccords) (plv-fin (car raccords)) (caar suite)) (car suite))
          suite (cdr suite) raccords (cdr raccords) numero (1+ numero)))
  (reverse prises))

(defun plv-prises:debut (suite raccords)
  "Where the straight part before a vertex ends."
  (if (car raccords) (plv-debut (car raccords)) (caar suite)))

(defun plv-prises:pente (fin suite numero debut / d)
  "The middle of the straight part between two vertices."
  (setq d (* 0.5 (+ (car fin) debut)))
  (plv-prise "P" (1- numero) numero d (plv-interpoler (list (cdr fin) (car suite)) d)))

(defun plv-prises:courbe (raccord numero / p)
  (setq p (plv-cubique-en (plv-raccord-courbe raccord) 0.5))
  (plv-prise "C" numero numero (car p) (cadr p)))

(defun plv-prises (suites / numero prises raccords)
  (setq numero 1)
  (foreach suite suites
    (setq raccords (plv-raccords suite)
          prises (append prises (plv-prises:suite suite (if (listp raccords) raccords (mapcar '(lambda (s) nil) suite)) numero))
          numero (+ numero (length suite))))
  prises)

(defun plv-prises:ecart (scene prise place)
  (max (/ (abs (- (car (plv-prise-place prise)) (car place))) (plv-scene-pixels 1.0))
       (/ (* (abs (- (cadr (plv-prise-place prise)) (cadr place))) (plv-cadre-echv (plv-scene-cadre scene))) (plv-scene-pixels 1.0))))

(defun plv-prise-en (scene prises place pixels / proche)
  "The nearest hold within so many pixels of a place; nil for none. Of two, a vertex comes first."
  (foreach p prises
    (if (or (not proche) (< (plv-prises:ecart scene p place) (plv-prises:ecart scene proche place))) (setq proche p)))
  (if (and proche (<= (plv-prises:ecart scene proche place) pixels)) proche))

(defun plv-prise-nommee (suites prises texte / numeros)
  "The hold of a text: 3 a vertex, 3-5 a range, C3 a curve; nil for another."
  (setq texte (strcase texte) numeros (mapcar 'atoi (plv-couper (vl-string-left-trim "C" texte) "-")))
  (cond
    ((wcmatch texte "~*[~-0-9C]*")
     (cond
       ((wcmatch texte "C*") (plv-prises:de prises "C" (car numeros) (car numeros)))
       ((not (cdr numeros)) (plv-prises:de prises "S" (car numeros) (car numeros)))
       ((plv-prises:de prises "P" (car numeros) (cadr numeros)))
       ((and (< 0 (car numeros) (cadr numeros)) (plv-ligne-lieu suites (cadr numeros)))
        (append (list "P" (car numeros) (cadr numeros)) (plv-premiers (cadr (plv-ligne-voisins suites (car numeros))) 2)))))))

(defun plv-prises:de (prises quoi premier dernier)
  (car (vl-member-if '(lambda (p) (equal (list quoi premier dernier) (plv-premiers p 3))) prises)))

(defun plv-prise-en-mots (prise)
  (cond
    ((= (plv-prise-quoi prise) "S") (strcat "sommet " (itoa (plv-prise-premier prise))))
    ((= (plv-prise-quoi prise) "C") (strcat "raccordement " (itoa (plv-prise-premier prise))))
    ((strcat "sommets " (itoa (plv-prise-premier prise)) " à " (itoa (plv-prise-dernier prise))))))
