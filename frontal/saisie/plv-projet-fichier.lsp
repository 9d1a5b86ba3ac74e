;; A project line in a text file: station, altitude, and the vertical curve when there is one.
;; The third field is a radius, L and a length, or a station, @ and an altitude to pass through; the fourth is C for an
;; arc of circle (as without it) or P for a parabola.

(defun plv-projet-fichier:raccord (texte forme / place)
  "The request of the third and fourth field; nil for none, T for one that can't be read."
  (setq forme (strcase (substr (cond (forme) ("C")) 1 1)))
  (cond
    ((= texte "") nil)
    ((not (wcmatch forme "[CP]")) T)
    ((setq place (vl-string-search "@" texte))
     (plv-projet-fichier:demande forme "P"
       (list (plv-nombre (substr texte 1 place)) (plv-nombre (substr texte (+ place 2))))))
    ((wcmatch (strcase texte) "L*") (plv-projet-fichier:demande forme "L" (list (plv-nombre (substr texte 2)))))
    ((wcmatch (strcase texte) "R*") (plv-projet-fichier:demande forme "R" (list (plv-nombre (substr texte 2)))))
    (T (plv-projet-fichier:demande forme "R" (list (plv-nombre texte))))))

(defun plv-projet-fichier:demande (forme mesure nombres)
  (cond
    ((member nil nombres) T)
    ;; A radius of nought is the sharp vertex of many lists.
    ((and (/= mesure "P") (= (car nombres) 0.0)) nil)
    ((and (/= mesure "P") (< (car nombres) 0.0)) T)
    (T (vl-list* forme mesure nombres))))

(defun plv-projet-fichier:sommet (champs / raccord)
  "A vertex, or nil for a line that can't be read."
  (setq raccord (plv-projet-fichier:raccord (cond ((caddr champs)) ("")) (if (/= (cadddr champs) "") (cadddr champs))))
  (if (and (cdr champs) (plv-nombre-station (car champs)) (plv-nombre (cadr champs)) (not (eq raccord T)))
    (list (plv-nombre-station (car champs)) (plv-nombre (cadr champs)) raccord)))

(defun plv-projet-fichier:lire (chemin / lignes numero separateur champs sommet sommets fautive)
  "The vertices of a file; nil after a message that names the line at fault. A first line without numbers is a header."
  (setq numero 0 lignes (plv-lire-lignes chemin))
  (foreach ligne lignes
    (setq numero (1+ numero))
    (if (and (not fautive) (not (plv-ligne-muette ligne)))
      (progn
        (if (not separateur) (setq separateur (plv-separateur ligne)))
        (setq champs (plv-couper ligne separateur))
        (cond
          ((setq sommet (plv-projet-fichier:sommet champs)) (setq sommets (cons sommet sommets)))
          ((and (not sommets) (not (vl-some 'plv-nombre champs))) (setq separateur nil))
          (T
           (setq fautive T)
           (plv-refus-ligne chemin numero ligne "station, altitude et raccordement attendus"))))))
  (cond
    ((or fautive (not lignes)) nil)
    ((not sommets) (plv-erreur (strcat chemin ": aucun sommet")))
    (T (reverse sommets))))

(defun plv-projet-fichier (profil genre chemin / trouve sommets)
  "Draws the project line of a file, text or LandXML; gives its entities, or nil after a message."
  (cond
    ((not (setq trouve (plv-fichier-existant chemin))) nil)
    ((plv-landxml-p trouve) (plv-landxml-projet-fichier profil genre trouve))
    ((setq sommets (plv-projet-fichier:lire trouve)) (plv-projet profil genre sommets))))
