;; The coordinate system of the drawing: asked once, proposed from what lies in the drawing or from a file, kept in the drawing.
;; Shared in the room: plv-mnt:ligne-systeme

(setq plv-mnt:cle-systeme "PLV_SYSTEME" plv-mnt:proposes 3)

(setq plv-mnt-systeme-essaye nil) ; a code that is tried, before it is kept

(defun plv-mnt-systeme ()
  "The code, as \"EPSG:2154\"; nil when it isn't known."
  (cond (plv-mnt-systeme-essaye) ((plv-cle 1 (plv-enregistrement-du-dessin plv-mnt:cle-systeme)))))

(defun plv-mnt-ecrire-systeme (code) (plv-ecrire-enregistrement-du-dessin plv-mnt:cle-systeme (list (cons 1 code))))

(defun plv-mnt-code (texte)
  "2154 and EPSG:2154 are the same."
  (if (wcmatch texte "~*[~0-9]*") (strcat "EPSG:" texte) (strcase texte)))

(defun plv-mnt:ligne-systeme (systeme) (strcat (car systeme) " (" (cadr systeme) ")"))

(defun plv-mnt-demander-systeme (proposes / code systeme)
  "Asks for the drawing's system and keeps it; nil after a message. proposes: systems as et_systemes gives them, the default first."
  (setq proposes (if (listp proposes) proposes))
  (foreach s (plv-premiers proposes plv-mnt:proposes) (plv-dire (strcat "  " (plv-mnt:ligne-systeme s))))
  (setq code (plv-demander-texte "Système de coordonnées du dessin, code EPSG" (if proposes (car (car proposes)))))
  (cond
    ((= code "") (plv-erreur "un code EPSG est attendu, 2154 par exemple"))
    ((= (type (setq systeme (et_systemes (plv-mnt-code code)))) 'STR) (plv-erreur systeme))
    ((setq systeme (car systeme))
     (plv-mnt-ecrire-systeme (car systeme))
     (plv-dire (strcat "Système de coordonnées: " (plv-mnt:ligne-systeme systeme) "."))
     (car systeme))
    (T (plv-erreur (strcat "système de coordonnées inconnu, ou en degrés: " code)))))

(defun plv-mnt:place-du-dessin (/ bas haut)
  "What lies in the drawing, as an axis across it."
  (setq bas (getvar "EXTMIN") haut (getvar "EXTMAX"))
  (if (< (car bas) (car haut)) (list (list (car bas) (cadr bas) 0.0 0.0) (list (car haut) (cadr haut) 0.0 0.0))))

(defun plv-mnt-systemes-du-dessin (/ place) (if (setq place (plv-mnt:place-du-dessin)) (et_systemes place)))

(defun plv-mnt-systeme-pour (chemin axe / nature propose)
  "T once the drawing's system is known, if the file tells its own; nil after a message."
  (setq nature (et_fichier chemin))
  (cond
    ((not (listp nature)) (plv-erreur nature))
    ((or (not (cdr nature)) (plv-mnt-systeme)) T)
    (T
     (setq propose (cond ((and (not (cadr nature)) (/= (car (caddr nature)) "")) (list (caddr nature))) (axe (et_systemes axe)) (T (plv-mnt-systemes-du-dessin))))
     (plv-dire (strcat (vl-filename-base chemin) (cond ((vl-filename-extension chemin)) ("")) ": " (cadr (caddr nature)) "."))
     (if (plv-mnt-demander-systeme propose) T))))
