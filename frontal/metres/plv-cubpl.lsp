;; CUBPL: the module's own dialog, opened for whole profiles only. It goes through the ground lines of whatever profile is
;; added to it, and would follow a chain that is broken for ever.

;; kept once: loading the front-end again finds the command below
(if (not plv-cubpl:dialogue) (setq plv-cubpl:dialogue c:cubpl))

(defun c:cubpl (/ refus)
  (if (setq refus (plv-refus-profils (plv-profils)))
    (plv-erreur refus)
    (plv-cubpl:dialogue)))
