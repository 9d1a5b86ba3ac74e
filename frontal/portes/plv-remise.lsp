;; The curves that a profile holds already, brought into form before the module moves and cuts them: other programs, and calls of
;; the module's own functions, list curves of any form.

(defun plv-remise:tenus (profil)
  "Every curve that is listed, with its kind: (kind entity), kind after kind."
  (apply 'append (mapcar '(lambda (g) (mapcar '(lambda (e) (list g e)) (plv-elements profil g))) (plv-genres))))

(defun plv-remise:faire-unique (profil / vus)
  "A curve of two kinds would be moved twice: it stays with the first."
  (foreach tenu (plv-remise:tenus profil)
    (if (member (cadr tenu) vus)
      (progn
        (plv-dire (strcat "Profil " (plv-numero-profil profil) ", " (plv-nom-courbe (cadr tenu))
                          ": attachée à deux genres, elle quitte le genre " (car tenu) "."))
        (plv-ecrire-elements profil (car tenu) (vl-remove (cadr tenu) (plv-elements profil (car tenu)))))
      (setq vus (cons (cadr tenu) vus)))))

(defun plv-remise:a-cheval-p (cadre entite distances)
  "Whether a curve stands where planes change, or will change: the module would have to cut it."
  (vl-some '(lambda (d) (pl_yat entite (plv-abscisse cadre d))) distances))

(defun plv-remise:refus (cadre examens distances)
  "The curves without a form that can't stay as they are, as (entity . why)."
  (vl-remove-if-not '(lambda (x) (and (not (listp (cdr x))) (plv-remise:a-cheval-p cadre (car x) distances))) examens))

(defun plv-remise:ecrire (profil genre examens)
  "Puts the curves of a kind in form; its record is written anew, which also drops what was listed twice."
  (plv-ecrire-elements profil genre
    (apply 'append
      (mapcar
        '(lambda (e / examen)
           (setq examen (plv-cle e examens))
           (if (not (listp examen)) (list e) (plv-mettre-en-forme e examen)))
        (plv-elements profil genre)))))

(defun plv-remettre-en-forme (profil debut / cadre examens refus)
  "Brings what is attached to a profile into form, all or nothing; a curve that can't be may stay where the module only moves it.
debut: the distance where a plane will begin, or nil. T, or nil after a message for each curve that is in the way."
  (setq cadre (plv-cadre profil)
        examens (mapcar '(lambda (tenu) (cons (cadr tenu) (plv-mise-a-ecrire (cadr tenu) cadre nil))) (plv-remise:tenus profil))
        refus (plv-remise:refus cadre examens (append (if debut (list debut)) (plv-changements (plv-cadre-plans cadre)))))
  (foreach r refus (plv-refuser-courbe profil (car r) (cdr r)))
  (if (not refus)
    (progn
      (plv-remise:faire-unique profil)
      (foreach genre (plv-genres) (if (plv-elements profil genre) (plv-remise:ecrire profil genre examens)))
      T)))
