;; A kind's project line as its user sees it: runs of vertices (distance altitude [request [lock]]), numbered from 1 over all runs.
;; It is read of what is drawn, and drawn again of the vertices: curves that stay what they were keep their entity, with its layer and
;; its dimensions.

(setq plv-ligne:cle "PLV_VERROUS")

(defun plv-verrou (sommet) "The name of the value that is locked; nil for none." (cadddr sommet))

(defun plv-sommet-de-ligne (d z demande verrou) (list (float d) (float z) demande verrou))

;; --- locks stand with the kind's support, by distance: they are the vertices' own, and go with them

(defun plv-ligne:verrous (profil genre / groupes verrous)
  "(distance . value's name) of each."
  (setq groupes (plv-enregistrement (plv-support profil genre) plv-ligne:cle))
  (while (cdr groupes)
    (setq verrous (cons (cons (cdar groupes) (cdadr groupes)) verrous) groupes (cddr groupes)))
  verrous)

(defun plv-ligne:ecrire-verrous (profil genre suites / groupes)
  (foreach s (apply 'append suites)
    (if (plv-verrou s) (setq groupes (vl-list* (cons 300 (plv-verrou s)) (cons 40 (float (car s))) groupes))))
  (if (or groupes (plv-enregistrement (plv-support profil genre) plv-ligne:cle))
    (plv-ecrire-enregistrement (plv-support profil genre) plv-ligne:cle (reverse groupes))))

(defun plv-ligne:avec-verrou (s verrous / trouve)
  (setq trouve (car (vl-member-if '(lambda (v) (equal (car v) (car s) 1e-4)) verrous)))
  (plv-sommet-de-ligne (car s) (cadr s) (plv-demande-voulue (plv-demande-de s)) (cdr trouve)))

(defun plv-lire-ligne (profil genre / verrous)
  "The runs of a kind's line; nil for none."
  (if (plv-support profil genre)
    (progn
      (setq verrous (plv-ligne:verrous profil genre))
      (mapcar '(lambda (suite) (mapcar '(lambda (s) (plv-ligne:avec-verrou s verrous)) suite)) (plv-projet-sommets profil genre)))))

;; --- what is wrong with runs

(defun plv-ligne-faute (profil suites / longueur)
  "The text of what can't be drawn; nil for nothing."
  (setq longueur (plv-longueur-profil profil))
  (cond
    ((vl-some '(lambda (suite) (plv-ligne:faute-suite suite longueur)) suites))
    ((vl-some '(lambda (a b) (if (> (car (plv-dernier a)) (+ (caar b) 1e-6)) (plv-ligne:croisees a b))) suites (cdr suites)))))

(defun plv-ligne:croisees (a b)
  (strcat "deux parties de la ligne sont l'une sur l'autre entre les distances " (plv-reel (caar b) 3) " et "
          (plv-reel (min (car (plv-dernier a)) (car (plv-dernier b))) 3)))

(defun plv-ligne:faute-suite (suite longueur / raccords)
  (cond
    ((plv-faute-sommets suite longueur))
    ((eq (type (setq raccords (plv-raccords suite))) 'STR) raccords)))

;; --- drawing it again

(defun plv-ligne:droites (suites)
  "Vertices without what is asked between equal slopes: no curve fits there."
  (mapcar '(lambda (suite) (mapcar '(lambda (s) (list (car s) (cadr s) (plv-demande-de s))) suite)) suites))

(defun plv-ligne:dessiner (profil suites)
  (apply 'append
    (mapcar '(lambda (suite) (plv-tracer-projet profil suite (plv-raccords suite))) (plv-ligne:droites suites))))

(defun plv-ligne:meme-trace-p (a b / ga gb)
  "Whether two curves of a kind are drawn alike."
  (setq ga (plv-ligne:places (entget a)) gb (plv-ligne:places (entget b)))
  (and (= (length ga) (length gb)) (vl-every '(lambda (p q) (equal p q 1e-6)) ga gb)))

(defun plv-ligne:places (groupes)
  (mapcar 'cdr (vl-remove-if-not '(lambda (g) (member (car g) '(10 11 41 42))) groupes)))

(defun plv-ligne:ecart (a b) (abs (- (cadr (assoc 10 (entget a))) (cadr (assoc 10 (entget b))))))

(defun plv-ligne:ancienne-pour (neuve anciennes / meilleure)
  "Of the former curves the one that a new curve goes on: drawn alike, else the nearest of its kind; nil for none."
  (foreach a anciennes
    (if (and (= (plv-type a) (plv-type neuve))
             (or (not meilleure) (< (plv-ligne:ecart a neuve) (plv-ligne:ecart meilleure neuve))))
      (setq meilleure a)))
  meilleure)

(defun plv-ligne:apparier (neuves anciennes / paires trouvee)
  "(new . former or nil) of each: those that stay as they are first, so that nothing else takes them."
  (foreach n neuves
    (if (setq trouvee (car (vl-member-if '(lambda (a) (and (= (plv-type a) (plv-type n)) (plv-ligne:meme-trace-p n a))) anciennes)))
      (setq paires (cons (cons n trouvee) paires) anciennes (vl-remove trouvee anciennes))))
  (foreach n neuves
    (if (not (assoc n paires))
      (setq trouvee (plv-ligne:ancienne-pour n anciennes)
            paires (cons (cons n trouvee) paires)
            anciennes (vl-remove trouvee anciennes))))
  (mapcar '(lambda (n) (assoc n paires)) neuves))

(defun plv-ligne:reprendre (paire / rayon)
  "The former curve with the new one's shape; the entity that stays."
  (if (cdr paire)
    (progn
      (if (not (plv-ligne:meme-trace-p (car paire) (cdr paire))) (plv-courbe-comme (cdr paire) (car paire)))
      (if (setq rayon (plv-rayon (car paire)))
        (plv-noter-raccord (cdr paire) rayon (plv-forme (car paire)) (plv-mesure (car paire))))
      (entdel (car paire))
      (cdr paire))
    (car paire)))

(defun plv-ligne:mettre (profil genre suites / anciennes paires gardees)
  (plv-creer-calques)
  (setq anciennes (mapcar 'plv-situe-entite (plv-elements-situes profil genre))
        anciennes (append anciennes (vl-remove-if '(lambda (e) (member e anciennes)) (plv-elements-du-projet profil genre)))
        paires (plv-ligne:apparier (plv-ligne:dessiner profil suites) anciennes)
        gardees (mapcar 'plv-ligne:reprendre paires))
  (plv-effacer-courbes profil (vl-remove-if '(lambda (a) (member a gardees)) anciennes))
  (if (plv-elements-effaces-p profil genre) (plv-ecrire-elements profil genre (plv-elements profil genre)))
  (plv-attacher profil genre gardees)
  (plv-ligne:ecrire-verrous profil genre suites)
  gardees)

(defun plv-ligne-ecrire (profil genre suites / faute)
  "Draws a kind's line again of its runs, in place of what is drawn of it; gives its entities, or nil after a message. Nothing
changes where something is wrong."
  (cond
    ((not (plv-profil-sain profil)) nil)
    ((not (plv-support profil genre)) (plv-erreur (plv-refus-support genre)))
    ((setq faute (plv-ligne-faute profil suites)) (plv-erreur faute))
    ((setq faute (plv-ligne:verrouillee profil genre)) (plv-erreur faute))
    (T (plv-ligne:mettre profil genre suites))))

(defun plv-ligne:verrouillee (profil genre / e)
  "Why the drawn line can't be changed."
  (setq e (car (vl-member-if 'plv-calque-verrouille-p (plv-elements-du-projet profil genre))))
  (if e (strcat (plv-nom-courbe e) ": calque " (plv-cle 8 (entget e)) " verrouillé")))

;; --- vertices by their number

(defun plv-ligne-nombre (suites) (apply '+ (mapcar 'length suites)))

(defun plv-ligne-lieu (suites numero / rang)
  "(run from 0, place in it from 0) of a vertex; nil for another number."
  (setq rang 0 numero (1- numero))
  (while (and suites (>= numero (length (car suites))))
    (setq numero (- numero (length (car suites))) suites (cdr suites) rang (1+ rang)))
  (if (and suites (>= numero 0)) (list rang numero)))

(defun plv-ligne-numero (suites lieu)
  (+ 1 (cadr lieu) (plv-ligne-nombre (plv-premiers suites (car lieu)))))

(defun plv-remplacer-rang (liste rang nouveaux)
  "A list with the element at a place, from 0, replaced by others."
  (append (plv-premiers liste rang) nouveaux (plv-sans-premiers liste (1+ rang))))

(defun plv-ligne-changer (suites numero sommets / lieu suite)
  "The runs with a vertex replaced by others."
  (setq lieu (plv-ligne-lieu suites numero) suite (nth (car lieu) suites))
  (vl-remove nil (plv-remplacer-rang suites (car lieu) (list (plv-remplacer-rang suite (cadr lieu) sommets)))))

(defun plv-ligne-voisins (suites numero / lieu suite)
  "(before vertex after): nil where a run begins or ends; nil for another number."
  (if (setq lieu (plv-ligne-lieu suites numero))
    (progn
      (setq suite (nth (car lieu) suites))
      (list (if (> (cadr lieu) 0) (nth (1- (cadr lieu)) suite)) (nth (cadr lieu) suite) (nth (1+ (cadr lieu)) suite)))))
