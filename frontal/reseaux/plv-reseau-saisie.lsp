;; What PLV-RESEAU asks of a manhole, a pipe, a crossing and a limit. What is there already is proposed; a point takes a value away.
;; Shared in the room: plv-saisie-reseau:*

;; kind of row, and the question of each field behind those that say which row it is
(setq plv-saisie-reseau:champs
  '(("regard" "Station" "Type" "Diamètre en mm: intérieur, intérieur/extérieur ou intérieur+paroi; rien pour un simple nœud" "Altitude du tampon, rien: le terrain"
     "Arrivée, rien: la ligne" "Départ, rien: la ligne" "Fond, rien: le fil d'eau le plus bas" "Profil auquel il appartient, rien: celui-ci")
    ("tuyau" "Diamètre en mm: intérieur/extérieur ou intérieur+paroi" "Matériau" "Classe" "Lit de pose en m, rien: celui de la tranchée" "Coefficient de Strickler, rien: celui du matériau")
    ("croisement" "Station" "Altitude de l'axe" "Diamètre en mm" "Angle avec le profil en degrés, rien: 90")
    ("limite" "Moindre valeur, rien: aucune" "Plus grande valeur, rien: aucune")))

(setq plv-saisie-reseau:noms
  '(("regard" "Nom du regard") ("tuyau" "Du regard" "Au regard") ("croisement" "Nom du croisement")
    ("limite" "Limite (pente, couverture, chute, espacement, vitesse, croisement)")))

(defun plv-saisie-reseau:cles (mot)
  "The fields by which a row is known, asked for."
  (cons mot (mapcar '(lambda (question) (plv-demander-texte question nil)) (plv-cle mot plv-saisie-reseau:noms))))

(defun plv-saisie-reseau:meme-p (champs cles)
  (vl-every '(lambda (a b) (= (strcase (cond (a) (""))) (strcase b))) champs cles))

(defun plv-saisie-reseau:trouver (rangees cles)
  "The row that begins with these fields; nil without it."
  (car (vl-member-if '(lambda (r) (plv-saisie-reseau:meme-p (plv-couper r ";") cles)) rangees)))

(defun plv-saisie-reseau:champ (question ancien / reponse)
  (setq ancien (cond (ancien) (""))
        reponse (plv-demander-texte (strcat question " <" ancien "> (. pour aucun)") nil))
  (cond ((= reponse "") ancien) ((= reponse ".") "") (reponse)))

(defun plv-saisie-reseau:valeurs (questions anciens)
  (if questions
    (cons (plv-saisie-reseau:champ (car questions) (car anciens)) (plv-saisie-reseau:valeurs (cdr questions) (cdr anciens)))))

(defun plv-saisie-reseau:demander (rangees mot / cles ancienne)
  "The rows with one of them asked for, new or changed."
  (setq cles (plv-saisie-reseau:cles mot) ancienne (plv-saisie-reseau:trouver rangees cles))
  (plv-saisie-reseau:mettre rangees ancienne
    (plv-joindre
      (append cles
        (plv-saisie-reseau:valeurs (plv-cle mot plv-saisie-reseau:champs)
          (if ancienne (plv-sans-premiers (plv-couper ancienne ";") (length cles)))))
      ";")))

(defun plv-saisie-reseau:mettre (rangees ancienne nouvelle)
  (if ancienne
    (mapcar '(lambda (r) (if (= r ancienne) nouvelle r)) rangees)
    (append rangees (list nouvelle))))

(defun plv-saisie-reseau:oter (rangees mot / cles ancienne)
  "The rows without one; with a manhole go its pipes, and one pipe takes their place."
  (setq cles (plv-saisie-reseau:cles mot) ancienne (plv-saisie-reseau:trouver rangees cles))
  (cond
    ((not ancienne) (plv-erreur (strcat "il n'y a pas de " mot " " (plv-joindre (cdr cles) " - "))) rangees)
    ((= mot "regard") (plv-reseau-sans-regard (vl-remove ancienne rangees) (cadr cles)))
    (T (vl-remove ancienne rangees))))

(defun plv-saisie-reseau:tuyau-vers-p (rangee nom place)
  (setq rangee (plv-couper rangee ";"))
  (and (= (car rangee) "tuyau") (= (strcase (nth place rangee)) (strcase nom))))

(defun plv-reseau-sans-regard (rangees nom / avant apres)
  (setq avant (car (vl-member-if '(lambda (r) (plv-saisie-reseau:tuyau-vers-p r nom 2)) rangees))
        apres (car (vl-member-if '(lambda (r) (plv-saisie-reseau:tuyau-vers-p r nom 1)) rangees))
        rangees (vl-remove apres rangees))
  (cond
    ((and avant apres)
     (plv-saisie-reseau:mettre rangees avant
       (plv-joindre (vl-list* "tuyau" (cadr (plv-couper avant ";")) (caddr (plv-couper apres ";")) (cdddr (plv-couper avant ";"))) ";")))
    (T (vl-remove avant rangees))))
