;; Things whose sources have changed and that would come out as they are: a curve that changed between the ground points, where no dimension
;; stands. What would be made is worked out without drawing it and compared with what is there; what a hand has moved or rewritten
;; counts as it was written, since an update leaves that.
;; Shared in the room: plv-tenues:*

;; --- dimensions as (curve altitude-p x words rotation y), from the profile's origin. They are compared row by row of a kind: where a change
;; of plane has cut a curve, its dimensions stand for those of the piece. Ordinates are compared when all else is as it was.

(defun plv-tenues:cote (cote / paires)
  "Without a place for one of which it isn't known."
  (setq paires (plv-paires cote))
  (list (plv-cote-courbe cote) (plv-cote-altitude-p cote) (cdr (plv-cle "COTEX" paires)) (cdr (plv-cle "COTETEXTE" paires))
        (plv-cle 50 (entget cote)) (cdr (plv-cle "COTEY" paires))))

(defun plv-tenues:placee-p (cote) (and (numberp (caddr cote)) (numberp (plv-dernier cote))))

(defun plv-tenues:la (profil)
  (plv-lire-une-fois (list "cotes-la" profil) '(lambda () (mapcar 'plv-tenues:cote (plv-cotes-du-profil profil)))))

(defun plv-tenues:pose (origine pose)
  (list (plv-pose-courbe pose) (plv-pose-altitude-p pose) (- (plv-pose-abscisse pose) (car origine)) (plv-pose-mots pose)
        (plv-pose-rotation pose) (- (cadr (plv-pose-point pose)) (cadr origine))))

(defun plv-tenues:rangee (cotes elements altitude-p)
  "From left to right."
  (vl-sort (vl-remove-if-not '(lambda (c) (and (eq (cadr c) altitude-p) (member (car c) elements))) cotes)
    '(lambda (a b) (< (caddr a) (caddr b)))))

(defun plv-tenues:sans-egale (a b nombre / seules)
  "Those of two rows that have no equal in the other one in so many values after the curve."
  (while (and a b)
    (cond
      ((equal (plv-premiers (cdar a) nombre) (plv-premiers (cdar b) nombre) 1e-6) (setq a (cdr a) b (cdr b)))
      ((< (caddar a) (caddar b)) (setq seules (cons (car a) seules) a (cdr a)))
      (T (setq seules (cons (car b) seules) b (cdr b)))))
  (append seules a b))

(defun plv-tenues:du-genre (la prevues elements nombre)
  (apply 'append
    (mapcar
      '(lambda (altitude-p)
         (plv-tenues:sans-egale (plv-tenues:rangee la elements altitude-p) (plv-tenues:rangee prevues elements altitude-p) nombre))
      '(T nil))))

(defun plv-tenues:courbes (profil rangees-p / origine la prevues elements)
  "The curves whose dimensions wouldn't come out as they are; those of a curve that is no line any more wouldn't come out at all."
  (setq origine (plv-origine profil)
        la (plv-tenues:la profil)
        prevues (mapcar '(lambda (p) (plv-tenues:pose origine p)) (plv-cotes-prevues profil rangees-p))
        elements (mapcar '(lambda (genre) (plv-elements profil genre)) (plv-genres)))
  (plv-uniques
    (mapcar 'car
      (append
        (vl-remove-if '(lambda (c) (and (plv-tenues:placee-p c) (vl-some '(lambda (siens) (member (car c) siens)) elements))) la)
        (apply 'append
          (mapcar '(lambda (siens) (plv-tenues:du-genre (vl-remove-if-not 'plv-tenues:placee-p la) prevues siens (if rangees-p 5 4))) elements))))))

(defun plv-tenues:autres (profil rangees-p)
  (plv-lire-une-fois (list "cotes-autres" profil rangees-p) '(lambda () (plv-tenues:courbes profil rangees-p))))

(defun plv-cotes-tenues-p (profil fait)
  (not (or (member (plv-fait-entite fait) (plv-tenues:autres profil nil)) (member (plv-fait-entite fait) (plv-tenues:autres profil T)))))

;; --- a legend by its texts and colours

(defun plv-legende-tenue-p (profil fait / blocs)
  (setq blocs (plv-choses:blocs profil fait))
  (and (not (cdr blocs))
       (equal (plv-legende-lue (car blocs)) (plv-legende-prevue profil (plv-fait-genre fait) (plv-sources:toutes-classes)))))
