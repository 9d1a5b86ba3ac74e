;; Before a profile goes out, on sheets, in a plot or to another program: what of its drawing isn't true any more is told, asked about or
;; made anew, as the user wants it.

;; "prevenir": told, which scripts rely on; "demander": asked; "actualiser": made anew
(setq plv-sortie:mode "prevenir")

(defun plv-regler-sortie (mode) (setq plv-sortie:mode mode))

(defun plv-sortie:vieilles (profils)
  "The number of things in the drawing that could be made anew."
  (apply '+
    (mapcar
      '(lambda (p) (length (vl-remove-if '(lambda (e) (or (not (plv-etat-a-refaire-p e)) (plv-chose-fichier-p (plv-etat-fait e)))) (plv-etats p))))
      profils)))

(defun plv-sortie:en-mots (nombre)
  (strcat (plv-compte nombre "chose") (if (> nombre 1) " ne sont plus" " n'est plus") " à jour"))

(defun plv-perimees (profils / nombre)
  "In words how much isn't true any more; nil for nothing."
  (if (> (setq nombre (plv-sortie:vieilles profils)) 0) (plv-sortie:en-mots nombre)))

(defun plv-sortie:avant (profils / mots)
  (if (setq mots (plv-perimees profils))
    (cond
      ((or (= plv-sortie:mode "actualiser")
           (and (= plv-sortie:mode "demander") (= (plv-demander-mot (strcat mots ": refaire d'abord") '("Oui" "Non") "Oui") "Oui")))
       (plv-actualiser profils))
      ((= plv-sortie:mode "prevenir") (plv-dire (strcat "Attention: " mots ", PLV-ETAT dit quoi."))))))

(plv-brancher 'sortie 'plv-sortie:avant)

(defun plv-avant-trace (/ mots)
  "Before a plot: what is to be said, nil for nothing."
  (if (setq mots (plv-perimees (plv-profils)))
    (if (= plv-sortie:mode "actualiser")
      (progn (plv-actualiser (plv-profils)) nil)
      (strcat mots ", PLV-ETAT dit quoi"))))
