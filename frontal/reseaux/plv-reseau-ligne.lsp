;; A first network of a line: manholes at its vertices and at the blocks on the profile, more where they would stand too far apart, and
;; pipes of one kind between them.

(setq plv-reseau-ligne:pres 0.5)  ; metres between stations that make one manhole

(defun plv-reseau-ligne:blocs (profil debut fin / cadre origine)
  "The stations of the blocks over the line."
  (setq cadre (plv-cadre profil) origine (plv-premiere-station profil))
  (vl-remove-if-not '(lambda (s) (< debut s fin))
    (mapcar '(lambda (b) (+ origine (plv-distance cadre (plv-origine b)))) (plv-blocs profil))))

(defun plv-reseau-ligne:serrer (stations / gardees)
  "Sorted, without those that are too near the one before; the last one stays."
  (setq stations (vl-sort stations '<))
  (foreach s stations
    (cond
      ((not (and gardees (< (- s (car gardees)) plv-reseau-ligne:pres))) (setq gardees (cons s gardees)))
      ((equal s (plv-dernier stations) 1e-9) (setq gardees (cons s (cdr gardees))))))
  (reverse gardees))

(defun plv-reseau-ligne:entre (a b espacement / nombre pas resultat)
  "Stations that cut a stretch into equal ones no longer than the spacing, but for centimetres, and its end; 0: none."
  (setq nombre (if (> espacement 0.0) (1+ (plv-partie-entiere (/ (- b a 1e-6) espacement))) 1) pas (/ (- b a) nombre) resultat (list b))
  (repeat (1- nombre) (setq b (- b pas) resultat (cons (* 0.01 (plv-partie-entiere (+ 0.5 (* 100.0 b)))) resultat)))
  resultat)

(defun plv-reseau-ligne:espacer (stations espacement)
  (cons (car stations)
    (apply 'append (mapcar '(lambda (a b) (plv-reseau-ligne:entre a b espacement)) stations (cdr stations)))))

(defun plv-reseau-ligne:stations (profil suites espacement / sommets)
  "Stations of manholes of all runs of a line."
  (setq sommets (apply 'append (mapcar '(lambda (suite) (mapcar 'car suite)) suites)))
  (plv-reseau-ligne:espacer
    (plv-reseau-ligne:serrer (append sommets (plv-reseau-ligne:blocs profil (apply 'min sommets) (apply 'max sommets)))) espacement))

(defun plv-reseau-ligne:couvert-p (suites a b)
  (vl-some '(lambda (suite) (and (<= (caar suite) (+ a 1e-6)) (>= (car (plv-dernier suite)) (- b 1e-6)))) suites))

;; suites follow each other without a gap along the profile when one begins where another one ends, as at a drop
(defun plv-reseau-ligne:joindre (suites / jointes)
  (foreach suite suites
    (setq jointes
      (if (and jointes (equal (car (plv-dernier (car jointes))) (caar suite) 1e-6))
        (cons (append (car jointes) suite) (cdr jointes))
        (cons suite jointes))))
  (reverse jointes))

(defun plv-reseau-ligne:noms (prefixe nombre / noms)
  (repeat nombre (setq noms (cons (strcat prefixe (itoa nombre)) noms) nombre (1- nombre)))
  noms)

(defun plv-reseau-rangees-de-ligne (profil genre prefixe regard tuyau espacement / suites stations noms)
  "Rows of a network along a line: regard the fields of a manhole from its type on, tuyau those of a pipe from its diameter on."
  (setq suites (plv-reseau-ligne:joindre (plv-reseau-ligne profil genre))
        stations (plv-reseau-ligne:stations profil suites espacement)
        noms (plv-reseau-ligne:noms prefixe (length stations)))
  (append
    (mapcar '(lambda (nom s) (strcat "regard;" nom ";" (rtos s 2 6) ";" regard)) noms stations)
    (vl-remove nil
      (mapcar '(lambda (a b sa sb) (if (plv-reseau-ligne:couvert-p suites sa sb) (strcat "tuyau;" a ";" b ";" tuyau)))
        noms (cdr noms) stations (cdr stations)))))
