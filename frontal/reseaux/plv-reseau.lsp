;; The network of a kind of line: rows of text that stand with the profile, in the form of the files that docs/formats.md describes. What
;; they mean is worked out by the studies each time, so that altitudes that rows don't give follow ground and line.
;; Shared in the room: plv-reseau:*

(defun plv-reseau:cle (genre) (strcat "PLV_RESEAU_" (strcase (plv-genre genre))))

(defun plv-reseau-rangees (profil genre) (plv-cles 300 (plv-enregistrement profil (plv-reseau:cle genre))))

(defun plv-genres-de-reseau (profil)
  "The kinds of line that have a network."
  (vl-remove-if-not '(lambda (genre) (plv-reseau-rangees profil genre)) (plv-genres-projet)))

;; --- the line of its inverts: runs of (station altitude); vertical curves by points at most five metres apart

(defun plv-reseau:points (sommets / raccords points)
  (setq raccords (plv-raccords sommets))
  (if (eq (type raccords) 'STR)
    (mapcar '(lambda (s) (list (car s) (cadr s))) sommets)
    (foreach partie (plv-parties sommets raccords)
      (setq points (append points (if points (cdr (plv-points-partie partie)) (plv-points-partie partie)))))))

(defun plv-reseau-ligne (profil genre / origine)
  (setq origine (plv-premiere-station profil))
  (mapcar
    '(lambda (suite) (mapcar '(lambda (p) (list (+ origine (car p)) (cadr p))) (plv-reseau:points suite)))
    (plv-projet-sommets profil genre)))

;; --- what the studies make of the rows: (manholes pipes crossings), or a text that says what is wrong

(defun plv-reseau-lu (profil genre) (plv-reseau:lire profil genre (plv-reseau-rangees profil genre)))

(defun plv-reseau:lire (profil genre rangees) (et_reseau profil rangees (plv-reseau-ligne profil genre)))

(defun plv-reseau-essaye (profil genre rangees) "The same of rows that aren't the profile's yet." (plv-reseau:lire profil genre rangees))

(defun plv-reseau-regards (reseau) (car reseau))
(defun plv-reseau-tuyaux (reseau) (cadr reseau))
(defun plv-reseau-croisements (reseau) (caddr reseau))

(defun plv-noeud-nom (noeud) (car noeud))
(defun plv-noeud-station (noeud) (cadr noeud))
(defun plv-noeud-type (noeud) (caddr noeud))
(defun plv-noeud-interieur (noeud) (nth 3 noeud))
(defun plv-noeud-exterieur (noeud) (nth 4 noeud))
(defun plv-noeud-terrain (noeud) (nth 5 noeud))
(defun plv-noeud-tampon (noeud) (nth 6 noeud))
(defun plv-noeud-arrivee (noeud) (nth 7 noeud))
(defun plv-noeud-depart (noeud) (nth 8 noeud))
(defun plv-noeud-fond (noeud) (nth 9 noeud))
(defun plv-noeud-profil (noeud) (nth 10 noeud))

(defun plv-tuyau-de (tuyau) (car tuyau))
(defun plv-tuyau-a (tuyau) (cadr tuyau))
(defun plv-tuyau-debut (tuyau) (caddr tuyau))
(defun plv-tuyau-fin (tuyau) (nth 4 tuyau))
(defun plv-tuyau-depart (tuyau) (list (nth 2 tuyau) (nth 3 tuyau)))
(defun plv-tuyau-arrivee (tuyau) (list (nth 4 tuyau) (nth 5 tuyau)))
(defun plv-tuyau-interieur (tuyau) (nth 6 tuyau))
(defun plv-tuyau-exterieur (tuyau) (nth 7 tuyau))
(defun plv-tuyau-diametre (tuyau) (nth 8 tuyau))
(defun plv-tuyau-materiau (tuyau) (nth 9 tuyau))
(defun plv-tuyau-classe (tuyau) (nth 10 tuyau))
(defun plv-tuyau-longueur (tuyau) (- (plv-tuyau-fin tuyau) (plv-tuyau-debut tuyau)))
(defun plv-tuyau-pente (tuyau) (plv-pente (plv-tuyau-depart tuyau) (plv-tuyau-arrivee tuyau)))
(defun plv-tuyau-paroi (tuyau) (* 0.5 (- (plv-tuyau-exterieur tuyau) (plv-tuyau-interieur tuyau))))

(defun plv-tuyau-en-mots (tuyau)
  (strcat "Ø" (plv-tuyau-diametre tuyau) (if (= (plv-tuyau-materiau tuyau) "") "" (strcat " " (plv-tuyau-materiau tuyau)))
          (if (= (plv-tuyau-classe tuyau) "") "" (strcat " " (plv-tuyau-classe tuyau)))))

(defun plv-croisement-nom (croisement) (car croisement))
(defun plv-croisement-station (croisement) (cadr croisement))
(defun plv-croisement-altitude (croisement) (caddr croisement))
(defun plv-croisement-diametre (croisement) (cadddr croisement))
(defun plv-croisement-angle (croisement) (nth 4 croisement))

(defun plv-noeud-nomme (reseau nom)
  "A manhole in any case of letters; nil for another name."
  (car (vl-member-if '(lambda (n) (= (strcase (plv-noeud-nom n)) (strcase nom))) (plv-reseau-regards reseau))))

;; --- changes: nothing is written before the studies have understood it

(defun plv-reseau-refus (genre) (strcat "ce profil n'a pas de réseau " genre ": PLV-RESEAU en fait un"))

(defun plv-reseau-ecrire (profil genre rangees / lu gardees)
  "Gives a kind of line these rows for its network and draws it; the network, or nil after a message."
  (setq genre (plv-genre genre) gardees (et_reseau_rangees rangees))
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((plv-refus-genre-projet genre) (plv-erreur (plv-refus-genre-projet genre)))
    ((eq (type gardees) 'STR) (plv-erreur gardees))
    ((eq (type (setq lu (plv-reseau:lire profil genre gardees))) 'STR) (plv-erreur lu))
    (T
     (plv-ecrire-enregistrement profil (plv-reseau:cle genre) (mapcar '(lambda (r) (cons 300 r)) gardees))
     (plv-dessiner-reseau profil genre)
     lu)))

(defun plv-reseau-en-mots (genre reseau)
  (strcat "Réseau " genre ": " (plv-compte (length (plv-reseau-regards reseau)) "regard") ", "
          (itoa (length (plv-reseau-tuyaux reseau))) (if (cdr (plv-reseau-tuyaux reseau)) " tuyaux." " tuyau.")))

(defun plv-reseau-ecrire-et-dire (profil genre rangees / reseau)
  (if (setq reseau (plv-reseau-ecrire profil genre rangees)) (progn (plv-dire (plv-reseau-en-mots genre reseau)) (plv-dire-reseau-sous-plans profil reseau) T)))

(defun plv-reseau-oter (profil genre)
  "Takes the network of a kind of line away, with what is drawn of it."
  (plv-effacer (plv-traces-reseau profil genre))
  (foreach cle (list (plv-reseau:cle genre) (plv-reseau:cle-traces genre)) (dictremove (plv-dictionnaire profil) cle))
  (plv-dire (strcat "Réseau " (plv-genre genre) " retiré.")))

;; --- what is to be told of it

(defun plv-gravitaire-p (genre) (/= (plv-genre genre) "AEp"))

(defun plv-reseau:avis-de (profil genre rangees) (et_reseau_avis profil rangees (plv-reseau-ligne profil genre) (plv-gravitaire-p genre)))

(defun plv-reseau-avis (profil genre)
  "Warnings (station text), left to right."
  (plv-reseau:avis-de profil genre (plv-reseau-rangees profil genre)))

(defun plv-reseau-controler (profil genre / avis)
  "Prints the warnings; gives their number, or nil after a message."
  (setq avis (plv-reseau-avis profil genre))
  (cond
    ((not (plv-reseau-rangees profil genre)) (plv-erreur (plv-reseau-refus genre)))
    ((eq (type avis) 'STR) (plv-erreur avis))
    (T
     (setq avis (vl-sort (append avis (plv-reseau-branches profil genre)) '(lambda (a b) (< (car a) (car b)))))
     (foreach a avis (plv-dire (strcat "  station " (plv-reel (car a) 2) ", " (cadr a))))
     (plv-dire (if avis (strcat "Réseau " (plv-genre genre) ": " (plv-compte (length avis) "avertissement") ".") "Réseau sans avertissement."))
     (length avis))))
