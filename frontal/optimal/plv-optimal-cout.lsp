;; The line of least cost between manholes (et_ligneCout of the studies): found, attached, told. Manholes stand at both ends and at the
;; blocks of the profile; the prices may allow more. Points are (distance altitude) in metres.
;; Shared in the room: plv-optimal:demander-cout plv-optimal:impasse plv-optimal:sommets-cout

(defun plv-regard-station (regard) (car regard))
(defun plv-regard-terrain (regard) (cadr regard))
(defun plv-regard-entree (regard) (caddr regard))
(defun plv-regard-sortie (regard) (cadddr regard))

;; --- the question

(defun plv-cout:stations-blocs (profil debut fin / cadre d stations)
  "The stations of the blocks on the profile between two distances."
  (setq cadre (plv-cadre profil))
  (foreach bloc (plv-blocs profil)
    (setq d (car (plv-vers-profil cadre (plv-origine bloc))))
    (if (< (+ debut 1e-3) d (- fin 1e-3)) (setq stations (cons (list "station" (+ (plv-premiere-station profil) d)) stations))))
  (reverse stations))

(defun plv-optimal:demander-cout (profil souhait prix)
  "What et_ligneCout answers: (manholes (cost bound rounded) quantities), (nil (station station)), or nil."
  (apply 'et_ligneCout
    (append (plv-optimal:arguments profil souhait)
            (list (append (plv-cout:stations-blocs profil (car (plv-souhait-depart souhait)) (car (plv-souhait-arrivee souhait))) prix)))))

;; --- the report

(defun plv-cout:rangee (textes) (plv-colonnes textes '(12 12 12 12 12 12)))

(defun plv-cout:dire-regards (regards / apres)
  (plv-cout:rangee '("station" "terrain" "arrivée" "départ" "profondeur" "pente %"))
  (while regards
    (setq apres (cadr regards))
    (plv-cout:rangee
      (list (plv-reel (plv-regard-station (car regards)) 3) (plv-reel (plv-regard-terrain (car regards)) 3)
            (plv-reel (plv-regard-entree (car regards)) 3) (plv-reel (plv-regard-sortie (car regards)) 3)
            (plv-reel (- (plv-regard-terrain (car regards)) (min (plv-regard-entree (car regards)) (plv-regard-sortie (car regards)))) 3)
            (if apres
              (plv-reel (* 100.0 (/ (- (plv-regard-entree apres) (plv-regard-sortie (car regards)))
                                    (- (plv-regard-station apres) (plv-regard-station (car regards)))))
                        3)
              "")))
    (setq regards (cdr regards))))

(defun plv-cout:poste (texte quantite unite prix)
  "A row of the estimate; nothing for a quantity of nothing."
  (if (> quantite 0.0)
    (plv-colonnes (list texte (strcat (plv-reel quantite 2) " " unite) (plv-reel prix 2) (plv-reel (* quantite prix) 2)) '(34 16 12 14))))

(defun plv-cout:dire-quantites (quantites prix / fouilles nom autres)
  (setq fouilles (plv-prix-fouilles prix) autres (cdr quantites))
  (plv-colonnes '("ouvrage" "quantité" "prix" "montant") '(34 16 12 14))
  (mapcar
    '(lambda (fouille volume)
       (plv-cout:poste
         (if (equal fouille (plv-dernier fouilles)) "fouille plus profonde" (strcat "fouille jusqu'à " (plv-reel (cadr fouille) 2) " m"))
         volume "m3" (cadddr fouille)))
    fouilles (car quantites))
  (foreach poste '(("blindage" 0 "blindage" 2 "m2") ("regards" 1 "regard" 1 "u") ("profondeur des regards" 2 "regard" 2 "m")
                   ("chutes" 3 "chute" 1 "u") ("postes de pompage" 4 "pompage" 1 "u") ("relevage" 5 "pompage" 2 "m"))
    (setq nom (assoc (caddr poste) prix))
    (plv-cout:poste (car poste) (nth (cadr poste) autres) (nth 4 poste) (if nom (nth (cadddr poste) nom) 0.0))))

(defun plv-cout:dire (trouve souhait prix / cout borne rond)
  (setq cout (car (cadr trouve)) borne (cadr (cadr trouve)) rond (caddr (cadr trouve)))
  (plv-cout:dire-regards (car trouve))
  (plv-cout:dire-quantites (caddr trouve) prix)
  (plv-dire (strcat "Coût: " (plv-reel cout 2) "."
                    (if (assoc "arrondi" (plv-souhait-contraintes souhait))
                      " Aucune ligne aux altitudes aussi rondes ne coûte moins: toutes ont été comparées."
                      "")))
  (if (< borne cout)
    (plv-dire (strcat "Aucune, quelles que soient ses altitudes, ne coûte moins de " (plv-reel borne 2) " ("
                      (plv-reel (* 100.0 (/ (- cout borne) cout)) 2) " %).")))
  (if (> rond (* 1.0001 cout))
    (plv-dire (strcat "Aux altitudes arrondies au centimètre la moins chère coûte " (plv-reel rond 2) " (contrainte arrondi;0.01)."))))

;; --- the call

(defun plv-optimal:sommets-cout (regards origine / sommets)
  "The line's vertices; two at a manhole that it leaves at another altitude."
  (foreach r regards
    (setq sommets (cons (list (- (plv-regard-station r) origine) (plv-regard-entree r)) sommets))
    (if (not (equal (plv-regard-entree r) (plv-regard-sortie r) 1e-9))
      (setq sommets (cons (list (- (plv-regard-station r) origine) (plv-regard-sortie r)) sommets))))
  (reverse sommets))

(defun plv-optimal:impasse (profil souhait ou / proposition)
  "Why no line arrives."
  (setq proposition (plv-optimal:demander-ligne profil souhait))
  (if (and proposition (plv-proposition-faute proposition))
    (plv-optimal:contradiction (plv-proposition-faute proposition) (plv-souhait-pentes souhait))
    (strcat "aucune ligne ne passe du regard de la station " (plv-reel (car ou) 3) " à celui de " (plv-reel (cadr ou) 3)
            ": espacement, longueur, pentes et profondeurs n'y laissent pas d'altitude ronde")))

(defun plv-cout:refus (profil genre souhait prix / arrondi)
  (setq arrondi (assoc "arrondi" (plv-souhait-contraintes souhait)))
  (cond
    ((plv-optimal:refus-souhait profil genre souhait))
    ((plv-optimal:refus-prix prix))
    ((and arrondi (> (caddr arrondi) 0.0)) "entre des regards les pentes ne s'arrondissent pas: la contrainte arrondi est pour les altitudes")))

(defun plv-optimal-cout (profil genre souhait prix / faute trouve suites)
  "Attaches the line of least cost that is asked for (plv-souhait) at these prices. Gives the line's vertices, or nil after a
message."
  (setq genre (plv-genre genre) faute (plv-cout:refus profil genre souhait prix))
  (cond
    (faute (plv-erreur faute))
    ((not (setq trouve (plv-optimal:demander-cout profil souhait prix)))
     (plv-erreur "le pas des altitudes est trop fin, ou le terrain revient en arrière, pour cette recherche"))
    ((not (car trouve)) (plv-erreur (plv-optimal:impasse profil souhait (cadr trouve))))
    (T
     (setq suites (plv-optimal:suites (plv-optimal:sommets-cout (car trouve) (plv-premiere-station profil))))
     (if (plv-optimal:deposer profil genre souhait suites "Coût" (car (cadr trouve)))
       (progn
         (plv-optimal:dire profil suites (plv-souhait-minimum souhait) (plv-souhait-maximum souhait)
                           (plv-souhait-bandes souhait (plv-premiere-station profil)))
         (plv-cout:dire trouve souhait prix)
         (apply 'append suites))))))
