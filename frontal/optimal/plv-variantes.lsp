;; Variants of a line, drawn side by side over the planes of the profile, each on a layer of its own. They are ordinary polylines, with
;; splines for vertical curves, that remember profile, number, kind of line, method and cost; nothing is attached until one is chosen.
;; Vertices are (distance altitude [request]) in metres.
;; Shared in the room: plv-optimal:deposer plv-variantes:etendue plv-variantes:mesures

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
          (plv-entites-du-jeu (ssget "X" (list '(0 . "LWPOLYLINE,SPLINE") (list -3 (list plv-app-cles))))))))
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

(defun plv-variante-suites (profil variante)
  "The line as lists of vertices, what stands over the next plane joined to what comes before."
  (plv-sommets-des-situes profil (plv-courbes-situees profil (plv-variante-entites variante))))

;; --- drawing one

(defun plv-variantes:libre (profil / pris n)
  "The number of a new variant; nil when all layers are taken."
  (setq pris (mapcar 'plv-variante-numero (plv-variantes profil)) n 1)
  (while (member n pris) (setq n (1+ n)))
  (if (<= n (length plv-calques-variantes)) n))

(defun plv-optimal-place-variante-p (profil)
  "Whether one more has a place; nil after a message."
  (or (plv-variantes:libre profil)
      (plv-erreur (strcat "le profil a déjà " (itoa (length plv-calques-variantes)) " variantes; PLV-VARIANTES en efface"))))

(defun plv-variante-dessiner (profil genre suites methode cout / n memoire)
  "Draws a line as a new variant and gives its number."
  (setq n (plv-variantes:libre profil)
        memoire (plv-joindre (list (plv-numero-profil profil) (itoa n) genre methode (if cout (plv-reel cout 2) "")) ";"))
  (foreach suite suites
    (foreach e (plv-tracer-projet profil suite (plv-raccords suite))
      (plv-variantes:mettre-sur e (plv-calque (car (nth (1- n) plv-calques-variantes))))
      (plsxd e plv-variantes:cle memoire)))
  n)

(defun plv-variantes:mettre-sur (entite calque / groupes)
  (setq groupes (entget entite))
  (entmod (subst (cons 8 calque) (assoc 8 groupes) groupes)))

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

(defun plv-variantes:mesures (profil sommets / terrain suites bouts)
  "(vertices length slopes depths area)"
  (setq terrain (plv-points-tn profil)
        suites (mapcar '(lambda (suite) (plv-suite-en-points suite (plv-raccords suite))) sommets)
        bouts (apply 'append (mapcar '(lambda (suite) (plv-optimal:profondeurs terrain suite)) suites)))
  (list (apply '+ (mapcar 'length sommets))
        (apply '+ (mapcar 'plv-variantes:longueur suites))
        (apply 'append (mapcar '(lambda (suite) (mapcar '(lambda (a b) (* 100.0 (plv-pente a b))) suite (cdr suite))) sommets))
        (apply 'append (mapcar '(lambda (b) (mapcar 'cadr b)) bouts))
        (apply '+ (mapcar 'plv-variantes:aire bouts))))

(defun plv-variantes:dire-une (profil numero genre methode cout suites / m)
  (setq m (plv-variantes:mesures profil suites))
  (plv-variantes:rangee
    (list numero genre methode (itoa (car m)) (plv-reel (cadr m) 2)
          (plv-variantes:etendue (caddr m) 2) (plv-variantes:etendue (cadddr m) 2) (plv-reel (nth 4 m) 2) cout)))

(defun plv-variantes:dire (profil variantes)
  "The lines that are in place, then the variants of their kinds."
  (plv-variantes:rangee '("n°" "ligne" "méthode" "sommets" "longueur" "pentes %" "profondeurs" "fouille m2" "coût"))
  (foreach genre (plv-uniques (mapcar 'plv-variante-genre variantes))
    (if (plv-elements-du-projet profil genre)
      (plv-variantes:dire-une profil "-" genre "en place" "-" (plv-projet-sommets profil genre))))
  (foreach v variantes
    (plv-variantes:dire-une profil (itoa (plv-variante-numero v)) (plv-variante-genre v) (plv-variante-methode v)
      (if (= (plv-variante-cout v) "") "-" (plv-variante-cout v)) (plv-variante-suites profil v))))

;; --- choosing

(defun plv-variantes:poser (profil genre suites / origine)
  "Attaches runs of vertices; T when all could be."
  (setq origine (plv-premiere-station profil))
  (vl-every
    '(lambda (suite) (plv-projet profil genre (mapcar '(lambda (s) (list (+ origine (car s)) (cadr s) (plv-demande-de s))) suite)))
    suites))

(defun plv-variante-choisir (profil variante / genre anciens)
  "Makes a variant the project line of its kind, instead of the one that it has; all variants of the kind go."
  (setq genre (plv-variante-genre variante) anciens (plv-elements-du-projet profil genre))
  (if (plv-variantes:poser profil genre (plv-variante-suites profil variante))
    (progn
      (plv-effacer-courbes profil anciens)
      (foreach v (plv-variantes profil)
        (if (= (plv-variante-genre v) genre) (plv-effacer (plv-variante-entites v))))
      (plv-dire (strcat "La variante " (itoa (plv-variante-numero variante)) " est la ligne " genre ".")))))

(defun plv-variante-echanger (profil variante / genre anciens suites)
  "The variant and the line that is in place take each other's part; the other variants stay."
  (setq genre (plv-variante-genre variante) anciens (plv-elements-du-projet profil genre) suites (plv-projet-sommets profil genre))
  (if (plv-variantes:poser profil genre (plv-variante-suites profil variante))
    (progn
      (plv-effacer-courbes profil anciens)
      (plv-effacer (plv-variante-entites variante))
      (if suites (plv-variante-dessiner profil genre suites "Gardée" nil))
      (plv-dire (strcat "La variante " (itoa (plv-variante-numero variante)) " est la ligne " genre ", qui devient variante.")))))

(defun plv-variante-garder (profil genre suites)
  "Keeps runs as a new variant; its number, or nil after a message."
  (if (plv-optimal-place-variante-p profil)
    (plv-variantes:dire-gardee (plv-variante-dessiner profil genre suites "Gardée" nil))))

(defun plv-variantes:dire-gardee (n)
  (plv-dire (strcat "Variante " (itoa n) " sur le calque " (car (nth (1- n) plv-calques-variantes)) "."))
  n)

(defun plv-variantes:demander-numero (variantes question mots / reponse trouve)
  "A variant, or a word; nil for Enter."
  (while (not trouve)
    (initget 6 (plv-joindre mots " "))
    (setq reponse (getint question)
          trouve
           (cond
             ((not reponse) "Rien")
             ((= (type reponse) 'STR) reponse)
             ((car (vl-member-if '(lambda (v) (= (plv-variante-numero v) reponse)) variantes)))
             (T (plv-dire (strcat "Il n'y a pas de variante " (itoa reponse) ".")) nil))))
  (if (/= trouve "Rien") trouve))

(defun plv-variantes:echanger (profil variantes / variante)
  (if (setq variante (plv-variantes:demander-numero variantes "\nVariante à échanger avec la ligne <aucune>: " '("Rien")))
    (plv-variante-echanger profil variante)))

(defun plv-variantes:garder (profil / genre)
  (setq genre (plv-demander-genre (plv-genre-propose profil)))
  (if (plv-elements-du-projet profil genre)
    (plv-variante-garder profil genre (plv-projet-sommets profil genre))
    (plv-erreur (strcat "ce profil n'a pas de ligne " genre))))

(defun plv-variantes:faire (profil variantes / reponse)
  (plv-variantes:dire profil variantes)
  (setq reponse
    (plv-variantes:demander-numero variantes "\nVariante à prendre pour ligne ou [Effacer/Garder/ECHanger/Rien] <Rien>: "
      '("Effacer" "Garder" "ECHanger" "Rien")))
  (cond
    ((not reponse))
    ((= reponse "Effacer") (foreach v variantes (plv-effacer (plv-variante-entites v))))
    ((= reponse "Garder") (plv-variantes:garder profil))
    ((= reponse "ECHanger") (plv-variantes:echanger profil variantes))
    ((plv-variante-choisir profil reponse))))

(defun c:plv-variantes (/ profil variantes)
  "Compare les variantes d'une ligne de projet à celle qui est en place, en prend ou en échange une, garde la ligne ou les efface."
  (if (setq profil (plv-choisir-profil))
    (if (setq variantes (plv-variantes profil))
      (plv-variantes:faire profil variantes)
      (plv-erreur (strcat "le profil " (plv-numero-profil profil)
                          " n'a pas de variante; Variante de PLV-OPTIMAL ou Garder de PLV-SOMMETS en garde une"))))
  (princ))
