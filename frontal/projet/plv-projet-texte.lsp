;; A project line as text: station, altitude, and the vertical curve when there is one.
;; The third field is a radius, L and a length, or a station, @ and an altitude to pass through; the fourth is C for an
;; arc of circle (as without it) or P for a parabola.

(defun plv-raccord-lu (texte forme / place)
  "The request of the third and fourth field; nil for none, T for one that can't be read."
  (setq forme (strcase (substr (cond (forme) ("C")) 1 1)))
  (cond
    ((= texte "") nil)
    ((not (wcmatch forme "[CP]")) T)
    ((setq place (vl-string-search "@" texte))
     (plv-projet-texte:demande forme "P"
       (list (plv-nombre (substr texte 1 place)) (plv-nombre (substr texte (+ place 2))))))
    ((wcmatch (strcase texte) "L*") (plv-projet-texte:demande forme "L" (list (plv-nombre (substr texte 2)))))
    ((wcmatch (strcase texte) "R*") (plv-projet-texte:demande forme "R" (list (plv-nombre (substr texte 2)))))
    (T (plv-projet-texte:demande forme "R" (list (plv-nombre texte))))))

(defun plv-projet-texte:demande (forme mesure nombres)
  (cond
    ((member nil nombres) T)
    ;; A radius of nought is the sharp vertex of many lists.
    ((and (/= mesure "P") (= (car nombres) 0.0)) nil)
    ((and (/= mesure "P") (< (car nombres) 0.0)) T)
    (T (vl-list* forme mesure nombres))))

(defun plv-projet-texte:sommet (champs / raccord)
  "A vertex, or nil for a line that can't be read."
  (setq raccord (plv-raccord-lu (cond ((caddr champs)) ("")) (if (/= (cadddr champs) "") (cadddr champs))))
  (if (and (cdr champs) (plv-nombre-station (car champs)) (plv-nombre (cadr champs)) (not (eq raccord T)))
    (list (plv-nombre-station (car champs)) (plv-nombre (cadr champs)) raccord)))

(defun plv-sommets-des-lignes (lignes chemin / numero separateur champs sommet sommets fautive)
  "The vertices of the lines of a text, which messages call `chemin`; nil after a message that names the line at fault. A first line
without numbers is a header."
  (setq numero 0)
  (foreach ligne lignes
    (setq numero (1+ numero))
    (if (and (not fautive) (not (plv-ligne-muette ligne)))
      (progn
        (if (not separateur) (setq separateur (plv-separateur ligne)))
        (setq champs (plv-couper ligne separateur))
        (cond
          ((setq sommet (plv-projet-texte:sommet champs)) (setq sommets (cons sommet sommets)))
          ((and (not sommets) (not (vl-some 'plv-nombre champs))) (setq separateur nil))
          (T
           (setq fautive T)
           (plv-refus-ligne chemin numero ligne "station, altitude et raccordement attendus"))))))
  (cond
    ((or fautive (not lignes)) nil)
    ((not sommets) (plv-erreur (strcat chemin ": aucun sommet")))
    (T (reverse sommets))))

(defun plv-sommets-du-fichier (chemin / lignes)
  "The vertices of a file; nil after a message."
  (if (setq lignes (plv-lire-lignes chemin)) (plv-sommets-des-lignes lignes chemin)))

;; --- and back

(defun plv-demande-en-champs (demande)
  "The third and the fourth field."
  (cond
    ((not demande) '("" ""))
    ((plv-demande-par-point-p demande) '("" ""))
    ((list (strcat (plv-demande-mesure demande) (plv-reel (plv-demande-valeur demande) 6)) (plv-demande-forme demande)))))

(defun plv-sommets-en-lignes (sommets origine)
  "The lines that are read so, with their header."
  (cons "station;altitude;raccordement;forme"
    (mapcar
      '(lambda (s)
         (plv-ligne-csv (vl-list* (plv-reel (+ origine (car s)) 6) (plv-reel (cadr s) 6) (plv-demande-en-champs (plv-demande-de s)))))
      sommets)))
