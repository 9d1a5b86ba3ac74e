;; How long pipes and manholes take to be drawn with their texts, and a trench hatched, for networks of 500, 1,000 and 2,000 pipes of 40 m.
;; Run by kavel --quiet -l bancs/reseaux/reseau.lsp; prints milliseconds, the best of three.

(setq banc-reseau:pas 40.0)

(defun banc-reseau:sol (nombre / points d)
  (setq d 0.0)
  (repeat (1+ nombre) (setq points (cons (list d (+ 100.0 (sin (* 0.01 d)))) points) d (+ d banc-reseau:pas)))
  (reverse points))

(defun banc-reseau:rangees (sol / rang rangees)
  (setq rang 0)
  (foreach p sol
    (setq rangees (cons (strcat "regard;R" (itoa rang) ";" (rtos (car p) 2 3) ";visite;1000/1240;;;" (rtos (- (cadr p) 2.0) 2 3)) rangees) rang (1+ rang)))
  (append (reverse rangees) (list (strcat "tuyau;R0;R" (itoa (1- rang)) ";300/376;béton;135A"))))

(defun banc-reseau:mesurer (faire / debut temps)
  "Milliseconds, the best of three."
  (repeat 3
    (setq debut (getvar "MILLISECS"))
    (apply faire nil)
    (setq debut (- (getvar "MILLISECS") debut) temps (if temps (min temps debut) debut)))
  temps)

(defun banc-reseau (nombre / chemin fichier sol profil)
  (setq sol (banc-reseau:sol nombre) chemin (vl-filename-mktemp "sol" nil ".csv") fichier (open chemin "w"))
  (write-line "distance;altitude" fichier)
  (foreach p sol (write-line (strcat (rtos (car p) 2 3) ";" (rtos (cadr p) 2 3)) fichier))
  (close fichier)
  (setq profil (plv-nouveau chemin (itoa nombre) (list 0.0 (* 1000.0 nombre) 0.0) 10.0 2.5 1000.0 nil))
  (plv-reseau-ecrire profil "Assainissement" (banc-reseau:rangees sol))
  (plv-tranchees-ecrire-regles profil "Assainissement" (plv-lire-lignes (findfile "tranchees-assainissement.txt")))
  (princ (strcat "\n" (itoa nombre) " tuyaux: réseau "
    (itoa (banc-reseau:mesurer '(lambda () (plv-dessiner-reseau profil "Assainissement")))) " ms, tranchée "
    (itoa (banc-reseau:mesurer '(lambda () (plv-hachurer-tranchees profil "Assainissement" T)))) " ms"))
  (vl-file-delete chemin))

(foreach nombre '(500 1000 2000) (banc-reseau nombre))
(princ)
