;; What of a proposed line leaves the band of depths, or falls below its plane. What leaves the band are stretches (from to extreme-depth sense band), the sense positive for too deep, the band (least greatest).
;; Found by themselves, whatever proposed the line. Points are (distance altitude) in metres.
;; Shared in the room: plv-optimal:hors-tranches plv-optimal:tranches plv-optimal:ecart plv-optimal:profondeurs plv-hors-extreme plv-hors-bande plv-optimal:sur-plans plv-optimal:descente

(defun plv-hors-extreme (hors) (caddr hors))
(defun plv-hors-sens (hors) (cadddr hors))
(defun plv-hors-bande (hors) (nth 4 hors))

(defun plv-optimal:profondeur (terrain sommets d)
  "(distance depth), on the straight lines through the first two points of both."
  (list d (- (plv-interpoler terrain d) (plv-interpoler sommets d))))

(defun plv-optimal:stations (terrain sommets / d1 d2)
  "Where one of the lines may change its slope."
  (setq d1 (caar sommets) d2 (car (plv-dernier sommets)))
  (vl-sort (append (mapcar 'car sommets) (vl-remove-if-not '(lambda (d) (< d1 d d2)) (mapcar 'car terrain))) '<))

(defun plv-optimal:profondeurs (terrain sommets / stations a b bouts)
  "For each stretch in which neither line changes its slope its two ends (distance depth)."
  (setq stations (plv-optimal:stations terrain sommets))
  (while (cdr stations)
    (setq a (car stations) b (cadr stations) stations (cdr stations))
    (if (> (- b a) 1e-9)
      ;; Both lines go on from here, so that each is walked along once.
      (setq terrain (plv-ligne-depuis terrain a)
            sommets (plv-ligne-depuis sommets a)
            bouts (cons (list (plv-optimal:profondeur terrain sommets a) (plv-optimal:profondeur terrain sommets b)) bouts))))
  (reverse bouts))

(defun plv-optimal:ecart (profondeur minimum maximum)
  "By how much a depth leaves the band: positive too deep, negative too shallow, 0 inside."
  (cond ((> profondeur (+ maximum 1e-6)) (- profondeur maximum)) ((< profondeur (- minimum 1e-6)) (- profondeur minimum)) (0.0)))

(defun plv-optimal:croisement (a b limite)
  "Where the depth between two points reaches a limit."
  (+ (car a) (* (- (car b) (car a)) (/ (- limite (cadr a)) (- (cadr b) (cadr a))))))

(defun plv-optimal:coupes (a b minimum maximum / coupes)
  "The two points with one wherever the depth passes a limit between them."
  (foreach limite (list minimum maximum)
    (if (< (* (- (cadr a) limite) (- (cadr b) limite)) 0.0)
      (setq coupes (cons (list (plv-optimal:croisement a b limite) limite) coupes))))
  (append (list a) (vl-sort coupes '(lambda (p q) (< (car p) (car q)))) (list b)))

(defun plv-optimal:hors (p q minimum maximum / ecart)
  "The stretch between two points, in a list; nil inside the band."
  (setq ecart (plv-optimal:ecart (* 0.5 (+ (cadr p) (cadr q))) minimum maximum))
  (if (and (/= ecart 0.0) (> (- (car q) (car p)) 1e-6))
    (list (list (car p) (car q) ((if (> ecart 0) max min) (cadr p) (cadr q)) ecart (list minimum maximum)))))

(defun plv-optimal:hors-bande (terrain suites minimum maximum / morceaux)
  "The stretches that leave the band, left to right."
  (foreach suite suites
    (foreach bouts (plv-optimal:profondeurs terrain suite)
      (setq bouts (plv-optimal:coupes (car bouts) (cadr bouts) minimum maximum)
            morceaux (append (reverse (apply 'append (mapcar '(lambda (p q) (plv-optimal:hors p q minimum maximum)) bouts (cdr bouts)))) morceaux))))
  (reverse (plv-plier 'plv-optimal:joindre nil (reverse morceaux))))

(defun plv-optimal:joindre (joints hors / dernier sens)
  "A stretch that goes on from the last one on the same side of the band makes one with it."
  (setq dernier (car joints) sens (plv-hors-sens hors))
  (if (and dernier (equal (plv-fin dernier) (plv-debut hors) 1e-6) (> (* sens (plv-hors-sens dernier)) 0)
           (equal (plv-hors-bande dernier) (plv-hors-bande hors)))
    (cons (list (plv-debut dernier) (plv-fin hors) ((if (> sens 0) max min) (plv-hors-extreme hors) (plv-hors-extreme dernier)) sens
                (plv-hors-bande hors))
          (cdr joints))
    (cons hors joints)))


;; --- depths by stretches: (from to least greatest), left to right

(defun plv-optimal:tranches (minimum maximum bandes debut fin / stations tranches b)
  "The depths that hold from a distance to another one; of several stretches at a place the last one counts."
  (setq stations (vl-sort (append (list debut fin) (vl-remove-if-not '(lambda (d) (< debut d fin)) (apply 'append (mapcar '(lambda (b) (list (car b) (cadr b))) bandes)))) '<))
  (while (cdr stations)
    (setq b (car (vl-member-if '(lambda (b) (< (car b) (plv-milieu stations) (cadr b))) (reverse bandes)))
          tranches (cons (list (car stations) (cadr stations) (if b (caddr b) minimum) (if b (cadddr b) maximum)) tranches)
          stations (cdr stations)))
  (reverse (vl-remove-if '(lambda (tr) (< (plv-longueur tr) 1e-6)) tranches)))

(defun plv-optimal:part (suite tranche / debut fin)
  "The part of a line within a stretch; nil for none."
  (setq debut (max (plv-debut tranche) (caar suite)) fin (min (plv-fin tranche) (car (plv-dernier suite))))
  (if (> (- fin debut) 1e-6) (plv-ligne-entre suite debut fin)))

(defun plv-optimal:dans-tranche (suites tranche)
  (vl-remove nil (mapcar '(lambda (suite) (plv-optimal:part suite tranche)) suites)))

(defun plv-optimal:hors-tranches (terrain suites tranches)
  "The stretches that leave the depths that hold there."
  (apply 'append
    (mapcar '(lambda (tr) (plv-optimal:hors-bande terrain (plv-optimal:dans-tranche suites tr) (caddr tr) (cadddr tr))) tranches)))

;; --- over the planes

(defun plv-optimal:sur-plans (plans fin ligne / debut bout morceaux)
  "For each plane with something of the line over it (plane line), left to right; fin is where the profile ends."
  (while plans
    (setq debut (max (plv-plan-debut (car plans)) (caar ligne))
          bout (min (if (cdr plans) (plv-plan-debut (cadr plans)) fin) (car (plv-dernier ligne))))
    (if (> (- bout debut) 1e-6)
      (setq morceaux (cons (list (car plans) (plv-ligne-entre ligne debut bout)) morceaux)))
    (setq plans (cdr plans)))
  (reverse morceaux))

(defun plv-optimal:descente (morceau / altitude a b d)
  "Where the line of (plane line) first lies below its plane; nil for one that doesn't."
  (setq altitude (- (plv-plan-altitude (car morceau)) 1e-6) morceau (cadr morceau))
  (while (and (cdr morceau) (not d))
    (setq a (car morceau) b (cadr morceau) morceau (cdr morceau)
          d (cond ((< (cadr a) altitude) (car a))
                  ((< (cadr b) altitude) (+ (car a) (/ (- altitude (cadr a)) (plv-pente a b)))))))
  d)
