;; Records of the front-end in extension dictionaries, and the keys of an entity in its extended data.
;; Reading never makes anything: an entity without a dictionary keeps none.

;; applications of the extended data: keys with their values, and the natural ground
(setq plv-app-cles "PLV2_DATA" plv-app-terrain "KELMONT_PLV2")

(defun plv-dictionnaire (entite / groupes trouve dict)
  "The extension dictionary of an entity, made when it has none."
  (setq groupes (entget entite))
  (cond
    ((setq trouve (member '(102 . "{ACAD_XDICTIONARY") groupes)) (cdr (cadr trouve)))
    (T
     (setq dict (entmakex '((0 . "DICTIONARY") (100 . "AcDbDictionary") (280 . 1) (281 . 1))))
     (entmod (append (list (car groupes) (cadr groupes) (cons 102 "{ACAD_XDICTIONARY") (cons 360 dict) '(102 . "}"))
                     (cddr groupes)))
     dict)))

(defun plv-enregistrement (entite cle / trouve)
  "The groups of a record in the extension dictionary of an entity, behind its duplicate flag; nil when it has none."
  (if (and (setq trouve (member '(102 . "{ACAD_XDICTIONARY") (entget entite))) (plv-existe (cdr (cadr trouve))))
    (progn
      (setq trouve (cdr (member '(100 . "AcDbXrecord") (dictsearch (cdr (cadr trouve)) cle))))
      (if (= (caar trouve) 280) (cdr trouve) trouve))))

(defun plv-ecrire-enregistrement (entite cle groupes / dict)
  "Replaces a record."
  (setq dict (plv-dictionnaire entite))
  (dictremove dict cle)
  (dictadd dict cle (entmakex (append '((0 . "XRECORD") (100 . "AcDbXrecord") (280 . 1)) groupes))))

(defun plv-entites-enregistrees (entite cle)
  "The entities that a record names (groups 330) and that are still in the drawing."
  (et_entites entite cle))

(defun plv-enregistrer-entites (entite cle entites)
  (plv-ecrire-enregistrement entite cle (mapcar '(lambda (e) (cons 330 e)) entites)))

;; --- records of the drawing itself

(defun plv-enregistrement-du-dessin (cle) "The groups of a record of the named objects; nil without it."
  (cdr (member '(100 . "AcDbXrecord") (dictsearch (namedobjdict) cle))))

(defun plv-ecrire-enregistrement-du-dessin (cle groupes)
  (dictremove (namedobjdict) cle)
  (dictadd (namedobjdict) cle (entmakex (append '((0 . "XRECORD") (100 . "AcDbXrecord") (280 . 1)) groupes))))

;; the style of the drawing: its rows as texts, of which the room styles knows the words
(setq plv-cle-style "PLV_STYLE")

(defun plv-rangees-de-style () (plv-cles 1 (plv-enregistrement-du-dessin plv-cle-style)))

;; --- extended data

(defun plv-donnees (entite application)
  "The groups that an application holds with an entity."
  (cdadr (assoc -3 (entget entite (list application)))))

(defun plv-ecrire-donnees (entite application groupes)
  (entmod (append (entget entite) (list (list -3 (cons application groupes))))))

(defun plv-ecrire-cles (entite paires)
  (foreach paire paires (plsxd entite (car paire) (cadr paire))))

(defun plv-oter-cle (entite cle / donnees reste)
  "Takes a key away with its value."
  (setq donnees (plv-donnees entite plv-app-cles))
  (while donnees
    (if (and (= (caar donnees) 1000) (cdr donnees) (= (strcase (cdar donnees)) cle))
      (setq donnees (cddr donnees))
      (setq reste (cons (car donnees) reste) donnees (cdr donnees))))
  (plv-ecrire-donnees entite plv-app-cles (reverse reste)))

;; --- keys as they stand: the module would follow a dead handle or a circle for ever

(defun plv-paires (entite / groupes paires)
  "(key group . value) of each key."
  (setq groupes (plv-donnees entite plv-app-cles))
  (while (cdr groupes)
    (setq paires (cons (cons (strcase (vl-princ-to-string (cdar groupes))) (cadr groupes)) paires)
          groupes (cddr groupes)))
  (reverse paires))

(defun plv-nommee (entite cle / valeur)
  "The entity that a handle key names; nil without the key, for another value and for a dead handle."
  (if (and (setq valeur (plv-cle cle (plv-paires entite))) (= (car valeur) 1005) (plv-existe (handent (cdr valeur))))
    (handent (cdr valeur))))

(defun plv-chaine (entite cle)
  "The entities of a chain, each of which names the next one under the key. It ends before a dead handle, and where it comes
round to itself."
  (if entite (et_chaine entite cle)))

(defun plv-enchainer (entites cle)
  (mapcar '(lambda (entite suivante) (plsxd entite cle suivante)) entites (cdr entites)))

(defun plv-enregistrements:sans-teinte-p (rangee / couleur)
  "Whether the colour of a style's row for a layer or a line is black or a grey; other rows have none."
  (setq rangee (plv-couper rangee ";") couleur (strcase (cond ((caddr rangee)) (""))))
  (or (not (member (strcase (car rangee) T) '("calque" "ligne")))
      (= couleur "NOIR")
      (and (= (substr couleur 1 1) "#") (= (substr couleur 2 2) (substr couleur 4 2) (substr couleur 6 2)))))

(defun plv-dessin-en-gris-p (/ rangees)
  "Whether the drawing's style was applied in greys, or has no other colours: then hatches and blocks are plotted so, too."
  (setq rangees (plv-rangees-de-style))
  (or (= (plv-cle 301 (plv-enregistrement-du-dessin plv-cle-style)) "G")
      (and rangees (vl-every 'plv-enregistrements:sans-teinte-p rangees))))
