;; Variants of a proposed line, drawn side by side over the planes of the profile, each on a layer of its own. They are ordinary
;; polylines that remember profile, number, kind of line, method and cost; nothing is attached until one is chosen.
;; Points are (distance altitude) in metres.
;; Shared in the room: plv-optimal:deposer plv-optimal:place-variante-p plv-variantes:etendue plv-variantes:mesures

(setq plv-variantes:cle "VARIANTE")

;; --- what a polyline remembers: profile;number;kind;method;cost

(defun plv-variantes:memoire (entite / texte)
  (if (eq (type (setq texte (plgxd entite plv-variantes:cle))) 'STR) (plv-couper texte ";")))

(defun plv-variantes:entites (profil / numero)
  "(memory entity) of each polyline of the profile's variants, in the order of their numbers."
  (setq numero (plv-numero-profil profil))
  (vl-sort
    (vl-remove-if-not '(lambda (paire) (= (car (car paire)) numero))
      (mapcar '(lambda (e) (list (plv-variantes:memoire e) e))
        (vl-remove-if-not 'plv-variantes:memoire
          (plv-entites-du-jeu (ssget "X" (list '(0 . "LWPOLYLINE") (list -3 (list plv-app-cles))))))))
    '(lambda (a b) (< (atoi (cadr (car a))) (atoi (cadr (car b)))))))

(defun plv-variante (numero genre methode cout entites) (list numero genre methode cout entites))
(defun plv-variante-numero (variante) (car variante))
(defun plv-variante-genre (variante) (cadr variante))
(defun plv-variante-methode (variante) (caddr variante))
(defun plv-variante-cout (variante) (cadddr variante))
(defun plv-variante-entites (variante) (nth 4 variante))

(defun plv-variantes (profil / variantes memoire)
  "The variants of a profile in the order of their numbers."
  (foreach paire (plv-variantes:entites profil)
    (setq memoire (car paire))
    (if (and variantes (= (plv-variante-numero (car variantes)) (atoi (cadr memoire))))
      (setq variantes (cons (append (plv-sans-dernier (car variantes)) (list (append (plv-variante-entites (car variantes)) (cdr paire)))) (cdr variantes)))
      (setq variantes (cons (plv-variante (atoi (cadr memoire)) (caddr memoire) (cadddr memoire) (nth 4 memoire) (cdr paire)) variantes))))
  (reverse variantes))

(defun plv-variante-suites (profil variante / cadre suites)
  "The line as lists of vertices, what stands over the next plane joined to what comes before."
  (setq cadre (plv-cadre profil))
  (foreach m (vl-sort (mapcar '(lambda (e) (plv-variantes:morceau cadre e)) (plv-variante-entites variante))
                      '(lambda (a b) (< (caar a) (caar b))))
    (if (and suites (equal (plv-dernier (car suites)) (car m) 1e-5))
      (setq suites (cons (plv-variantes:joindre (car suites) m) (cdr suites)))
      (setq suites (cons m suites))))
  (reverse suites))

(defun plv-variantes:morceau (cadre entite / points plan)
  "The vertices of a polyline, over the plane that its middle stands over: of an end at a change of plane the drawing doesn't tell it."
  (setq points (plv-gauche-droite (plv-cles 10 (entget entite)))
        plan (plv-plan-de (plv-cadre-plans cadre) (plv-distance cadre (car points)) (plv-distance cadre (plv-dernier points))))
  (plv-points-sans-doubles (mapcar '(lambda (p) (plv-vers-profil-sur cadre plan p)) points)))

(defun plv-variantes:joindre (gauche droite / a b)
  "One line of two that meet; the vertex between them goes when both have one slope there."
  (setq a (plv-dernier (plv-sans-dernier gauche)) b (cadr droite))
  (if (equal (plv-pente a (plv-dernier gauche)) (plv-pente (car droite) b) 1e-5)
    (append (plv-sans-dernier gauche) (cdr droite))
    (append gauche (cdr droite))))

;; --- drawing one

(defun plv-variantes:libre (profil / pris n)
  "The number of a new variant; nil when all layers are taken."
  (setq pris (mapcar 'plv-variante-numero (plv-variantes profil)) n 1)
  (while (member n pris) (setq n (1+ n)))
  (if (<= n (length plv-calques-variantes)) n))

(defun plv-optimal:place-variante-p (profil)
  "Whether one more has a place; nil after a message."
  (or (plv-variantes:libre profil)
      (plv-erreur (strcat "le profil a déjà " (itoa (length plv-calques-variantes)) " variantes; PLV-VARIANTES en efface"))))

(defun plv-variante-dessiner (profil genre suites methode cout / cadre fin n memoire)
  "Draws a line as a new variant and gives its number."
  (setq n (plv-variantes:libre profil)
        cadre (plv-cadre profil) fin (plv-longueur-profil profil)
        memoire (plv-joindre (list (plv-numero-profil profil) (itoa n) genre methode (if cout (plv-reel cout 2) "")) ";"))
  (foreach suite suites
    (foreach morceau (plv-optimal:sur-plans (plv-cadre-plans cadre) fin suite)
      (plsxd
        (plv-polyligne (car (nth (1- n) plv-calques-variantes))
          (mapcar '(lambda (p) (plv-vers-dessin-sur cadre (car morceau) (car p) (cadr p))) (cadr morceau)))
        plv-variantes:cle memoire)))
  n)

(defun plv-optimal:deposer (profil genre souhait suites methode cout / n)
  "Attaches a line, or keeps it as a variant where that is wished. T when it is done."
  (if (plv-souhait-variante souhait)
    (progn
      (setq n (plv-variante-dessiner profil genre suites methode cout))
      (plv-dire (strcat "Variante " (itoa n) " sur le calque " (car (nth (1- n) plv-calques-variantes)) "."))
      T)
    (vl-every '(lambda (suite) (plv-optimal:attacher profil genre suite)) suites)))

;; --- the table

(defun plv-variantes:rangee (textes) (plv-colonnes textes '(4 16 11 8 10 16 16 11 13)))

(defun plv-variantes:etendue (valeurs decimales)
  (strcat (plv-reel (apply 'min valeurs) decimales) " à " (plv-reel (apply 'max valeurs) decimales)))

(defun plv-variantes:longueur (suite)
  (apply '+ (mapcar '(lambda (a b) (distance a b)) suite (cdr suite))))

(defun plv-variantes:aire (bouts / a b)
  "Between ground and line, of a stretch of two depths; what is above the ground counts for nothing."
  (setq a (max 0.0 (cadr (car bouts))) b (max 0.0 (cadr (cadr bouts))))
  (* 0.5 (+ a b) (- (car (cadr bouts)) (car (car bouts)))))

(defun plv-variantes:mesures (profil suites / terrain bouts)
  "(vertices length slopes depths area)"
  (setq terrain (plv-points-tn profil)
        bouts (apply 'append (mapcar '(lambda (suite) (plv-optimal:profondeurs terrain suite)) suites)))
  (list (apply '+ (mapcar 'length suites))
        (apply '+ (mapcar 'plv-variantes:longueur suites))
        (apply 'append (mapcar '(lambda (suite) (mapcar '(lambda (a b) (* 100.0 (plv-pente a b))) suite (cdr suite))) suites))
        (apply 'append (mapcar '(lambda (b) (mapcar 'cadr b)) bouts))
        (apply '+ (mapcar 'plv-variantes:aire bouts))))

(defun plv-variantes:dire (profil variantes / m)
  (plv-variantes:rangee '("n°" "ligne" "méthode" "sommets" "longueur" "pentes %" "profondeurs" "fouille m2" "coût"))
  (foreach v variantes
    (setq m (plv-variantes:mesures profil (plv-variante-suites profil v)))
    (plv-variantes:rangee
      (list (itoa (plv-variante-numero v)) (plv-variante-genre v) (plv-variante-methode v) (itoa (car m)) (plv-reel (cadr m) 2)
            (plv-variantes:etendue (caddr m) 2) (plv-variantes:etendue (cadddr m) 2) (plv-reel (nth 4 m) 2)
            (if (= (plv-variante-cout v) "") "-" (plv-variante-cout v))))))

;; --- choosing

(defun plv-variante-choisir (profil variante / genre anciens)
  "Makes a variant the project line of its kind, instead of the one that it has; all variants of the kind go."
  (setq genre (plv-variante-genre variante) anciens (plv-elements-du-projet profil genre))
  (if (vl-every '(lambda (suite) (plv-optimal:attacher profil genre suite)) (plv-variante-suites profil variante))
    (progn
      (plv-effacer-courbes profil anciens)
      (foreach v (plv-variantes profil)
        (if (= (plv-variante-genre v) genre) (plv-effacer (plv-variante-entites v))))
      (plv-dire (strcat "La variante " (itoa (plv-variante-numero variante)) " est la ligne " genre ".")))))

(defun plv-variantes:demander (variantes / reponse trouve)
  "A variant, T for all of them to go, nil for nothing."
  (while (not trouve)
    (initget 6 "Effacer Rien")
    (setq reponse (getint "\nVariante à prendre pour ligne ou [Effacer/Rien] <Rien>: ")
          trouve
           (cond
             ((or (not reponse) (= reponse "Rien")) "Rien")
             ((= reponse "Effacer") T)
             ((car (vl-member-if '(lambda (v) (= (plv-variante-numero v) reponse)) variantes)))
             (T (plv-dire (strcat "Il n'y a pas de variante " (itoa reponse) ".")) nil))))
  (if (/= trouve "Rien") trouve))

(defun c:plv-variantes (/ profil variantes reponse)
  "Compare les variantes d'une ligne de projet, en prend une ou les efface."
  (if (setq profil (plv-choisir-profil))
    (if (not (setq variantes (plv-variantes profil)))
      (plv-erreur (strcat "le profil " (plv-numero-profil profil) " n'a pas de variante; l'option Variante de PLV-OPTIMAL en garde une"))
      (progn
        (plv-variantes:dire profil variantes)
        (cond
          ((not (setq reponse (plv-variantes:demander variantes))))
          ((= reponse T) (foreach v variantes (plv-effacer (plv-variante-entites v))))
          ((plv-variante-choisir profil reponse))))))
  (princ))
