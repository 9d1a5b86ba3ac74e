;; The line of fewest vertices between two depths, as et_ligne of the studies finds it: attached, told, and with the windows that
;; prove it. Points are (distance altitude) in metres; an end that is free in the band is (distance).

;; --- what et_ligne gives, stations as distances

(defun plv-proposition (lignes fenetres aires) (list lignes fenetres aires))
(defun plv-proposition-lignes (proposition) (car proposition))
(defun plv-proposition-fenetres (proposition) (cadr proposition))
(defun plv-proposition-aire (proposition) (car (caddr proposition)))
(defun plv-proposition-aire-moindre (proposition) (cadr (caddr proposition)))

(defun plv-optimal-sommets:bout (bout origine)
  "An end as et_ligne takes it."
  (if (cdr bout) (list (+ origine (car bout)) (cadr bout)) (+ origine (car bout))))

(defun plv-optimal-sommets:distances (points origine)
  (mapcar '(lambda (p) (list (- (car p) origine) (cadr p))) points))

(defun plv-optimal-sommets:appeler (fonction profil depart arrivee minimum maximum / origine)
  (setq origine (plv-premiere-station profil))
  (apply fonction
    (list profil minimum maximum (plv-optimal-sommets:bout depart origine) (plv-optimal-sommets:bout arrivee origine))))

(defun plv-optimal-sommets:chercher (profil depart arrivee minimum maximum / origine trouve)
  (setq origine (plv-premiere-station profil)
        trouve (plv-optimal-sommets:appeler 'et_ligne profil depart arrivee minimum maximum))
  (if trouve
    (plv-proposition
      (mapcar '(lambda (ligne) (plv-optimal-sommets:distances ligne origine)) (car trouve))
      (mapcar '(lambda (fenetres) (mapcar '(lambda (f) (plv-optimal-sommets:distances f origine)) fenetres)) (cadr trouve))
      (caddr trouve))))

(defun plv-optimal-sommets:dessiner (profil depart arrivee minimum maximum fenetres / origine)
  (setq origine (plv-premiere-station profil))
  (plv-optimal:dessiner-couloir profil
    (mapcar '(lambda (ligne) (plv-optimal-sommets:distances ligne origine))
      (plv-optimal-sommets:appeler 'et_couloir profil depart arrivee minimum maximum))
    fenetres))

;; --- why there is none

(defun plv-optimal-sommets:hors-bout (profil bout minimum maximum / profondeur)
  "What is wrong with an end; nil for nothing."
  (if (cdr bout)
    (progn
      (setq profondeur (- (plv-altitude-ligne (plv-points-tn profil) (car bout)) (cadr bout)))
      (if (/= (plv-optimal:ecart profondeur minimum maximum) 0.0)
        (strcat "à la station " (plv-reel (+ (plv-premiere-station profil) (car bout)) 3) " l'extrémité est à "
                (plv-reel profondeur 3) " m de profondeur, hors de " (plv-reel minimum 2) " à " (plv-reel maximum 2))))))

(defun plv-optimal-sommets:recul (points)
  "The first ground point that lies left of the one before."
  (while (and (cdr points) (>= (car (cadr points)) (caar points))) (setq points (cdr points)))
  (cadr points))

(defun plv-optimal-sommets:faute (profil depart arrivee minimum maximum / recul)
  (cond
    ((setq recul (plv-optimal-sommets:recul (plv-points-tn profil)))
     (strcat "le terrain revient en arrière à la station " (plv-reel (+ (plv-premiere-station profil) (car recul)) 3)))
    ((plv-optimal-sommets:hors-bout profil depart minimum maximum))
    ((plv-optimal-sommets:hors-bout profil arrivee minimum maximum))
    (T "le profil est trop long pour cette recherche")))

;; --- the report

(defun plv-optimal-sommets:dire (proposition origine / rang)
  (plv-dire (strcat "Aire entre le terrain et la ligne: " (plv-reel (plv-proposition-aire proposition) 2) " m2; aucune ligne de la bande n'a moins de "
                    (plv-reel (plv-proposition-aire-moindre proposition) 2) " m2."))
  (if (cdr (plv-proposition-lignes proposition))
    (plv-dire (strcat "Un mur du terrain arrête la ligne: elle est en " (itoa (length (plv-proposition-lignes proposition))) " parties.")))
  (if (apply 'append (plv-proposition-fenetres proposition))
    (progn
      (plv-dire "Un sommet de moins est impossible, car aucune ligne ne va plus loin que:")
      (plv-optimal:rangee '("droites" "station"))
      (foreach fenetres (plv-proposition-fenetres proposition)
        (setq rang 0)
        (foreach f fenetres
          (setq rang (1+ rang))
          (plv-optimal:rangee (list (itoa rang) (plv-reel (+ origine (car (cadr f))) 3))))))
    (plv-dire "Moins de sommets est impossible: chaque partie est d'une seule droite.")))

;; --- the call

(defun plv-optimal-sommets (profil genre depart arrivee minimum maximum dessiner / bas haut faute proposition suites)
  "Attaches the line of fewest vertices from depart to arrivee, each (distance altitude), or (distance) where it is free in the
band; dessiner also draws the corridor and its windows. Gives the line's vertices, or nil after a message."
  (setq genre (plv-genre genre)
        bas (float (min minimum maximum)) haut (float (max minimum maximum))
        faute (plv-optimal:refus profil genre depart arrivee))
  (cond
    (faute (plv-erreur faute))
    ((not (setq proposition (plv-optimal-sommets:chercher profil depart arrivee bas haut)))
     (plv-erreur (plv-optimal-sommets:faute profil depart arrivee bas haut)))
    (T
     (setq suites (plv-optimal:suites (apply 'append (plv-proposition-lignes proposition))))
     (if dessiner (plv-optimal-sommets:dessiner profil depart arrivee bas haut (plv-proposition-fenetres proposition)))
     (if (vl-every '(lambda (suite) (plv-optimal:attacher profil genre suite)) suites)
       (progn
         (plv-optimal:dire profil suites bas haut)
         (plv-optimal-sommets:dire proposition (plv-premiere-station profil))
         (apply 'append suites))))))
