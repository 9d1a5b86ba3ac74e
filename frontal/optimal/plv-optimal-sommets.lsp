;; The line of fewest vertices: attached, told, and why fewer are impossible; or why there is no line.
;; Points are (distance altitude) in metres.
;; Shared in the room: plv-optimal:contradiction plv-optimal:refus-souhait plv-optimal:dire-rondeur

;; --- why there is none

(defun plv-optimal-sommets:recul (points)
  "The first ground point that lies left of the one before."
  (while (and (cdr points) (>= (car (cadr points)) (caar points))) (setq points (cdr points)))
  (cadr points))

(defun plv-optimal-sommets:sans-ligne (profil souhait / recul)
  (cond
    ((setq recul (plv-optimal-sommets:recul (plv-points-tn profil)))
     (strcat "le terrain revient en arrière à la station " (plv-reel (+ (plv-premiere-station profil) (car recul)) 3)))
    ((or (assoc "longueur" (plv-souhait-contraintes souhait)) (assoc "arrondi" (plv-souhait-contraintes souhait)))
     "aucune ligne n'est trouvée avec cette longueur des droites ou ces altitudes arrondies, ce qui ne prouve pas qu'il n'y en a pas")
    (T "le profil est trop long, ou une altitude trop loin, pour cette recherche")))

(defun plv-optimal-sommets:nommer (limite / nom z)
  "A limit in words."
  (setq nom (cadr limite) z (plv-reel (caddr limite) 2))
  (cond
    ((= nom "profondeur moindre") (strcat "profondeur minimale " z))
    ((= nom "profondeur plus grande") (strcat "profondeur maximale " z))
    ((= nom "point") (strcat "point à l'altitude " z))
    ((= nom "dessus") (strcat "croisement par-dessus " z))
    ((= nom "dessous") (strcat "croisement par-dessous " z))
    (T (strcat "extrémité à l'altitude " z))))

(defun plv-optimal-sommets:nommer-pente (pente moindre)
  "A slope that a line doesn't go below, or beyond."
  (cond
    ((equal pente 0.0 1e-12) (if moindre "aucune descente" "aucune montée"))
    (T (strcat (if (> pente 0.0) "montée" "descente") " de " (plv-reel (* 100.0 (abs pente)) 2)
               (if (= moindre (> pente 0.0)) " % au moins" " % au plus")))))

(defun plv-optimal:contradiction (faute pentes / basse haute gauche droite)
  "The sentence about limits that contradict each other."
  (setq basse (plv-faute-basse faute) haute (plv-faute-haute faute)
        gauche (min (car basse) (car haute)) droite (max (car basse) (car haute)))
  (strcat
    (if (equal gauche droite 1e-6)
      (strcat "à la station " (plv-reel gauche 3) ": ")
      (strcat "de " (plv-reel gauche 3) " à " (plv-reel droite 3) ": "
              (if (< (car haute) (car basse))
                (plv-optimal-sommets:nommer-pente (cadr pentes) nil)
                (plv-optimal-sommets:nommer-pente (car pentes) T))
              ", "))
    (plv-optimal-sommets:nommer (if (< (car basse) (car haute)) basse haute)) " et "
    (plv-optimal-sommets:nommer (if (< (car basse) (car haute)) haute basse))
    " se contredisent; il manque " (plv-reel (plv-faute-manque faute) 3) " m"))

;; --- the report

(defun plv-optimal-sommets:dire-fenetres (proposition origine / rang)
  (if (not (apply 'append (plv-proposition-fenetres proposition)))
    (plv-dire "Moins de sommets est impossible: chaque partie est d'une seule droite.")
    (progn
      (plv-dire (if (plv-proposition-prouvee proposition)
                  "Un sommet de moins est impossible, car aucune ligne ne va plus loin que:"
                  "Sans les longueurs ni les arrondis, aucune ligne ne va plus loin que:"))
      (plv-optimal:rangee '("droites" "station"))
      (foreach fenetres (plv-proposition-fenetres proposition)
        (setq rang 0)
        (foreach f fenetres
          (setq rang (1+ rang))
          (plv-optimal:rangee (list (itoa rang) (plv-reel (+ origine (car (cadr f))) 3))))))))

(defun plv-optimal-sommets:dire-pentes (suites / pentes)
  (setq pentes (apply 'append (mapcar '(lambda (suite) (mapcar 'plv-pente suite (cdr suite))) suites)))
  (plv-dire (strcat "Pentes de " (plv-reel (* 100.0 (apply 'min pentes)) 3) " à " (plv-reel (* 100.0 (apply 'max pentes)) 3) " %.")))

(defun plv-optimal:dire-rondeur (souhait proposition / pas)
  (setq pas (strcat (plv-reel (* 100.0 (plv-souhait-pas souhait)) 2) " %"))
  (if (plv-souhait-rempli-p souhait proposition)
    (strcat "Les pentes sont des multiples de " pas ", sans un sommet de plus.")
    (strcat "Aucune ligne d'aussi peu de sommets n'est trouvée aux pentes multiples de " pas ".")))

(defun plv-optimal-sommets:dire (proposition souhait suites origine / lignes)
  (setq lignes (plv-proposition-lignes proposition))
  (if (or (plv-souhait-pentes souhait) (plv-souhait-pas souhait)) (plv-optimal-sommets:dire-pentes suites))
  (if (plv-souhait-pas souhait) (plv-dire (plv-optimal:dire-rondeur souhait proposition)))
  (plv-dire (strcat "Aire entre le terrain et la ligne: " (plv-reel (plv-proposition-aire proposition) 2) " m2; aucune ligne de la bande n'a moins de "
                    (plv-reel (plv-proposition-aire-moindre proposition) 2) " m2."))
  (if (cdr lignes) (plv-dire (strcat "Un mur du terrain arrête la ligne: elle est en " (itoa (length lignes)) " parties.")))
  (plv-optimal-sommets:dire-fenetres proposition origine))

;; --- the call

(defun plv-optimal-sommets:attacher (profil genre souhait proposition dessiner / suites origine)
  (setq origine (plv-premiere-station profil)
        suites (plv-optimal:suites (apply 'append (plv-proposition-lignes proposition))))
  (if dessiner
    (plv-optimal:dessiner-couloir profil (plv-optimal:demander-couloir profil souhait) (plv-proposition-fenetres proposition)))
  (if (plv-optimal:deposer profil genre souhait suites (if (plv-proposition-faute proposition) "Approchée" "Sommets") nil)
    (progn
      (plv-optimal:dire profil suites (plv-souhait-minimum souhait) (plv-souhait-maximum souhait) (plv-souhait-bandes souhait origine))
      (plv-optimal-sommets:dire proposition souhait suites origine)
      (apply 'append suites))))

(defun plv-optimal:refus-souhait (profil genre souhait / origine)
  (cond
    ((plv-optimal:refus profil genre (plv-souhait-depart souhait) (plv-souhait-arrivee souhait)))
    (T (setq origine (plv-premiere-station profil))
       (plv-optimal:contrainte-dehors (plv-souhait-contraintes souhait)
         (+ origine (car (plv-souhait-depart souhait))) (+ origine (car (plv-souhait-arrivee souhait)))))))

(defun plv-optimal-sommets (profil genre souhait dessiner / faute proposition)
  "Attaches the line of fewest vertices that is asked for (plv-souhait); dessiner also draws the corridor and its windows.
Gives the line's vertices, or nil after a message."
  (setq genre (plv-genre genre)
        faute (plv-optimal:refus-souhait profil genre souhait))
  (cond
    (faute (plv-erreur faute))
    ((not (setq proposition (plv-optimal:demander-ligne profil souhait)))
     (plv-erreur (plv-optimal-sommets:sans-ligne profil souhait)))
    ((not (setq faute (plv-proposition-faute proposition)))
     (plv-optimal-sommets:attacher profil genre souhait proposition dessiner))
    (T
     (setq faute (strcat (plv-optimal:contradiction faute (plv-souhait-pentes souhait)) "."))
     (if (plv-souhait-approchee souhait)
       (progn (plv-dire faute) (plv-optimal-sommets:attacher profil genre souhait proposition dessiner))
       (plv-erreur (strcat faute " Une ligne s'en écarte de " (plv-reel (* 0.5 (plv-faute-manque (plv-proposition-faute proposition))) 3)
                           " m au plus (méthode Approchée)."))))))
