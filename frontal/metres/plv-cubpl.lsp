;; CUBPL: the module's own dialog, opened for whole profiles only, with their lines in the form in which it measures them right. It goes
;; through the ground lines of whatever profile is added to it, and would follow a chain that is broken for ever; one line that it
;; can't measure makes it give up all profiles that were picked.
;; Shared in the room: plv-metres:dialogue

;; kept once: loading the front-end again finds the command below
(if (not plv-metres:dialogue) (setq plv-metres:dialogue c:cubpl))

(defun plv-cubpl:lots (genre)
  "A lot of each profile that has curves of a kind; an empty one when none of them can be measured."
  (mapcar '(lambda (profil) (cond ((plv-metres:lot profil genre)) ((list profil))))
    (vl-remove-if-not '(lambda (profil) (plv-elements profil genre)) (plv-profils))))

(defun plv-cubpl:ouvrir (genres)
  "Opens the dialog while every kind has its lots."
  (if genres
    (plv-metres:avec-lots (plv-cubpl:lots (car genres)) (car genres) '(lambda () (plv-cubpl:ouvrir (cdr genres))))
    (plv-metres:dialogue)))

(defun c:cubpl (/ refus)
  "Ouvre le métré des profils: classes de profondeur, hachures, classeur."
  (if (setq refus (plv-refus-profils (plv-profils)))
    (plv-erreur refus)
    (progn
      (plv-metres:oublier-effaces (plv-profils))
      (plv-metres:avec-titres (plv-profils) '(lambda () (plv-cubpl:ouvrir (plv-genres-projet))))))
  (princ))
