;; LandXML files: the ground of a new profile and its project lines. The file is read by landxml-lire, in metres.
;; An alignment has keys nom, origine, terrains and projets; see that function's help.

(defun plv-landxml-p (chemin) (wcmatch (strcase chemin) "*.XML,*.LANDXML"))

(defun plv-landxml (chemin / lu)
  "The alignments of a LandXML file; nil after a message."
  (setq lu (vl-catch-all-apply 'landxml-lire (list chemin)))
  (cond
    ((vl-catch-all-error-p lu) (plv-erreur (vl-catch-all-error-message lu)))
    (T
     (foreach texte (plv-cle 'avertissements lu) (plv-dire texte))
     (if (/= (plv-cle 'metres lu) 1.0)
       (plv-dire (strcat "Longueurs converties en metres (x " (rtos (plv-cle 'metres lu) 2 7) ").")))
     (plv-cle 'axes lu))))

;; --- choices; the first candidate is the default, one alone is not asked for

(defun plv-echange:choisir (quoi noms candidats / rang)
  (if (cdr candidats)
    (progn
      (setq rang 0)
      (foreach nom noms (plv-dire (strcat "  " (itoa (setq rang (1+ rang))) "  " nom)))
      (initget 6)
      (setq rang (cond ((getint (strcat "\n" quoi " <1>: "))) (1)))
      (cond ((nth (1- rang) candidats))
            (T (plv-erreur (strcat "il n'y a pas de numero " (itoa rang))))))
    (car candidats)))

(defun plv-echange:nom-axe (axe)
  (strcat (plv-cle 'nom axe) " (terrains: " (itoa (length (plv-cle 'terrains axe)))
          ", lignes de projet: " (itoa (length (plv-cle 'projets axe))) ")"))

(defun plv-echange:axes-utiles (chemin axes / utiles)
  "Alignments that hold a ground or a project line, those with a ground first; nil after a message."
  (setq utiles (append (vl-remove-if-not '(lambda (a) (plv-cle 'terrains a)) axes)
                       (vl-remove-if '(lambda (a) (or (plv-cle 'terrains a) (not (plv-cle 'projets a)))) axes)))
  (cond (utiles) (axes (plv-erreur (strcat chemin ": aucun axe n'a de profil en long")))))

(defun plv-echange:terrains-tries (axe)
  "The grounds of an alignment, existing ones first."
  (append (vl-remove-if-not '(lambda (g) (= (plv-cle 'etat g) "existing")) (plv-cle 'terrains axe))
          (vl-remove-if '(lambda (g) (= (plv-cle 'etat g) "existing")) (plv-cle 'terrains axe))))

(defun plv-echange:choisir-axe (chemin / axes)
  (if (setq axes (plv-echange:axes-utiles chemin (plv-landxml chemin)))
    (plv-echange:choisir "Numero de l'axe" (mapcar 'plv-echange:nom-axe axes) axes)))

(defun plv-echange:choisir-terrain (axe / terrains)
  (setq terrains (plv-echange:terrains-tries axe))
  (plv-echange:choisir "Numero du terrain" (mapcar '(lambda (g) (plv-cle 'nom g)) terrains) terrains))

;; --- ground

(defun plv-echange:releves (terrain / releves fin)
  "The points of a ground as plv-terrain has them; says where pieces leave the ground out."
  (foreach troncon (plv-cle 'troncons terrain)
    (if (and fin (> (caar troncon) (+ fin 1e-6)))
      (plv-dire (strcat "Terrain absent entre les stations " (plv-reel fin 2) " et " (plv-reel (caar troncon) 2) ": trace droit.")))
    (foreach p troncon (setq releves (cons (list (car p) nil nil (cadr p) "") releves)))
    (setq fin (caar releves)))
  (reverse releves))

(defun plv-echange:releves-projet (projet / sommets releves)
  "Without a ground: points on the project line, at its vertices and along its curves."
  (setq sommets (plv-echange:sommets projet))
  (foreach partie (plv-trace:parties sommets (plv-trace:raccords sommets))
    (foreach p (plv-echange:points-partie partie)
      (setq releves (cons (list (car p) nil nil (cadr p) "") releves))))
  (reverse releves))

(defun plv-echange:points-partie (partie / d nombre pas points)
  "Both ends of a straight part; points at most five metres apart on a curve."
  (if (cdddr partie)
    (progn
      (setq nombre (1+ (fix (/ (- (cadr partie) (car partie)) 5.0)))
            pas (/ (- (cadr partie) (car partie)) nombre)
            points (list (plv-trace:bout (car (caddr partie))))
            d (car partie))
      (repeat (1- nombre)
        (setq d (+ d pas)
              points (cons (plv-trace:bout (cadddr (car (plv-raccords:couper (caddr partie) d)))) points)))
      (reverse (cons (plv-trace:bout (cadddr (caddr partie))) points)))
    (caddr partie)))

(defun plv-echange:lacunes (terrain origine / fin lacunes)
  "Where the ground is missing: (distance distance) ..."
  (foreach troncon (plv-cle 'troncons terrain)
    (if (and fin (> (caar troncon) (+ fin 1e-6))) (setq lacunes (cons (list (- fin origine) (- (caar troncon) origine)) lacunes)))
    (setq fin (car (plv-dernier troncon))))
  (reverse lacunes))

(defun plv-echange-terrain (chemin axe terrain / lu)
  "A ground as plv-lire-terrain gives it, with its gaps under lacunes. An alignment without a ground takes its first project
line for one."
  (if terrain
    (if (setq lu (plv-terrain:depuis chemin (plv-echange:releves terrain)))
      (cons (cons 'lacunes (plv-echange:lacunes terrain (plv-cle 'origine lu))) lu))
    (progn
      (plv-dire (strcat "L'axe " (plv-cle 'nom axe) " n'a pas de terrain: le terrain suit la ligne de projet."))
      (plv-terrain:depuis chemin (plv-echange:releves-projet (car (plv-cle 'projets axe)))))))

(defun plv-echange:par-defaut (chemin)
  "The alignment that is taken without a question."
  (car (plv-echange:axes-utiles chemin (plv-landxml chemin))))

(defun plv-echange-terrain-par-defaut (chemin / axe)
  (if (setq axe (plv-echange:par-defaut chemin))
    (plv-echange-terrain chemin axe (car (plv-echange:terrains-tries axe)))))

;; --- project lines

(defun plv-echange:sommets (projet / sommets)
  "Vertices with requests as plv-projet takes them. A parabola of two unequal halves becomes two that touch."
  (setq sommets (plv-cle 'sommets projet))
  (append (list (car sommets))
          (apply 'append (mapcar 'plv-echange:sommet sommets (cdr sommets) (cddr sommets)))
          (list (plv-dernier sommets))))

(defun plv-echange:sommet (avant sommet apres / forme)
  (setq forme (caddr sommet))
  (cond
    ((not forme) (list sommet))
    ((= forme "C") (list (list (car sommet) (cadr sommet) (list "C" "R" (cadddr sommet)))))
    ((= forme "P") (list (list (car sommet) (cadr sommet) (list "P" "L" (cadddr sommet)))))
    (T (list (plv-echange:moitie avant sommet (cadddr sommet) -0.5)
             (plv-echange:moitie sommet apres (nth 4 sommet) 0.5)))))

(defun plv-echange:moitie (a b longueur part / sommet recul)
  "The vertex of one half of an unsymmetric parabola: on its tangent, at the middle of its length."
  (setq sommet (if (< part 0.0) b a) recul (* part longueur))
  (list (+ (car sommet) recul) (+ (cadr sommet) (* (plv-raccords:pente a b) recul)) (list "P" "L" longueur)))

(defun plv-echange:dans-profil (sommets debut fin / raccords parties)
  "The vertices, cut at the ends of the profile with a message when they run past them; nil for none inside."
  (cond
    ((and (>= (caar sommets) (- debut 1e-6)) (<= (car (plv-dernier sommets)) (+ fin 1e-6))) sommets)
    ((eq (type (setq raccords (plv-trace:raccords sommets))) 'STR) (plv-erreur raccords))
    ((or (>= (caar sommets) fin) (<= (car (plv-dernier sommets)) debut))
     (plv-erreur "la ligne de projet est hors du profil"))
    (T
     (plv-dire (strcat "Ligne de projet de " (plv-reel (caar sommets) 2) " a " (plv-reel (car (plv-dernier sommets)) 2)
                       ", coupee aux bouts du profil (" (plv-reel debut 2) " a " (plv-reel fin 2) ")."))
     (setq parties (plv-trace:couper-aux (plv-trace:parties sommets raccords) (list debut fin)))
     (plv-sommets-de
       (mapcar 'plv-sommets:partie
         (vl-remove-if '(lambda (p) (or (< (cadr p) (+ debut 1e-6)) (> (car p) (- fin 1e-6)))) parties))
       nil))))

(defun plv-echange-projet (profil genre projet / origine sommets)
  "Draws a project line of a LandXML file; gives its entities, or nil after a message."
  (setq origine (plgxd profil "DCUMDEB")
        sommets (plv-echange:dans-profil (plv-echange:sommets projet) origine (+ origine (cadr (pl_InfosTn profil)))))
  (if sommets (plv-projet profil genre sommets)))

(defun plv-echange-projet-fichier (profil genre chemin / axes lignes noms ligne)
  "The project line of a file, chosen among those of all its alignments."
  (foreach axe (plv-landxml chemin)
    (foreach projet (plv-cle 'projets axe)
      (setq lignes (cons projet lignes) noms (cons (strcat (plv-cle 'nom axe) " / " (plv-cle 'nom projet)) noms) axes T)))
  (cond
    ((not axes) (plv-erreur (strcat chemin ": aucune ligne de projet")))
    ((setq ligne (plv-echange:choisir "Numero de la ligne" (reverse noms) (reverse lignes)))
     (plv-echange-projet profil genre ligne))))

;; --- PLV-NOUVEAU on a LandXML file

(defun plv-echange:genre-propose (projet)
  "A line that is called like a kind of line is of that kind."
  (cond ((plv-genre (plv-cle 'nom projet))) ("Projet")))

(defun plv-echange:projets-par-defaut (profil axe / pris genre)
  "Draws the project lines that have a kind to themselves; says which are left."
  (foreach projet (plv-cle 'projets axe)
    (setq genre (plv-echange:genre-propose projet))
    (if (member genre pris)
      (plv-dire (strcat "Ligne de projet " (plv-cle 'nom projet) " laissee: PLV-PROJET la trace dans un autre genre."))
      (progn (plv-echange-projet profil genre projet) (setq pris (cons genre pris))))))

(defun plv-echange:demander-projets (profil axe / genre)
  (foreach projet (plv-cle 'projets axe)
    (setq genre (plv-demander-mot (strcat "Genre de la ligne de projet " (plv-cle 'nom projet))
                                  (append (mapcar 'car plv-elements:genres) '("Laisser"))
                                  (plv-echange:genre-propose projet)))
    (if (/= genre "Laisser") (plv-echange-projet profil genre projet))))

(defun plv-echange:demander-terrain (axe / chemin)
  "For an alignment without ground: the ground of another file, or of the project line."
  (setq chemin (plv-demander-texte "L'axe n'a pas de terrain. Fichier du terrain naturel" "suivre le projet"))
  (cond
    ((= chemin "suivre le projet") (plv-echange-terrain chemin axe nil))
    ((setq chemin (plv-fichier-existant chemin)) (plv-lire-terrain chemin))))

(defun plv-echange:numero (axe / nom)
  "The alignment's name, when no profile has it."
  (setq nom (plv-cle 'nom axe))
  (if (or (= nom "") (plv-profil-de-numero nom)) (itoa (plv-profil:identifiant)) nom))
