;; LandXML files: their project lines, as plv-projet takes them, and the kinds of line that they are given.

;; --- vertices: (station altitude [form length-or-radius ...]) as landxml-lire gives them

(defun plv-landxml-sommets (projet / sommets)
  "Vertices with requests as plv-projet takes them. A parabola of two unequal halves becomes two that touch."
  (setq sommets (plv-cle 'sommets projet))
  (append (list (car sommets))
          (apply 'append (mapcar 'plv-landxml:sommet sommets (cdr sommets) (cddr sommets)))
          (list (plv-dernier sommets))))

(defun plv-landxml:sommet (avant sommet apres / forme mesure)
  (setq forme (caddr sommet) mesure (cadddr sommet))
  (cond
    ((not forme) (list sommet))
    ((= forme "C") (list (list (car sommet) (cadr sommet) (list "C" "R" mesure))))
    ((= forme "P") (list (list (car sommet) (cadr sommet) (list "P" "L" mesure))))
    (T (list (plv-landxml:moitie avant sommet mesure -0.5)
             (plv-landxml:moitie sommet apres (nth 4 sommet) 0.5)))))

(defun plv-landxml:moitie (a b longueur part / sommet recul)
  "The vertex of one half of an unsymmetric parabola: on its tangent, at the middle of its length."
  (setq sommet (if (< part 0.0) b a) recul (* part longueur))
  (list (+ (car sommet) recul) (+ (cadr sommet) (* (plv-pente a b) recul)) (list "P" "L" longueur)))

(defun plv-landxml:dans-profil (sommets debut fin / raccords)
  "The vertices, cut at the ends of the profile with a message when they run past them; nil for none inside."
  (cond
    ((and (>= (caar sommets) (- debut 1e-6)) (<= (car (plv-dernier sommets)) (+ fin 1e-6))) sommets)
    ((eq (type (setq raccords (plv-raccords sommets))) 'STR) (plv-erreur raccords))
    ((or (>= (caar sommets) fin) (<= (car (plv-dernier sommets)) debut))
     (plv-erreur "la ligne de projet est hors du profil"))
    (T
     (plv-dire (strcat "Ligne de projet de " (plv-reel (caar sommets) 2) " à " (plv-reel (car (plv-dernier sommets)) 2)
                       ", coupée aux bouts du profil (" (plv-reel debut 2) " à " (plv-reel fin 2) ")."))
     (plv-sommets-entre sommets raccords debut fin))))

;; --- drawing

(defun plv-landxml-sommets-sur (profil projet / origine)
  "The vertices of a project line on a profile; nil after a message."
  (setq origine (plv-premiere-station profil))
  (plv-landxml:dans-profil (plv-landxml-sommets projet) origine (+ origine (plv-longueur-profil profil))))

(defun plv-landxml-projet (profil genre projet / sommets)
  "Draws a project line of a LandXML file; gives its entities, or nil after a message."
  (if (setq sommets (plv-landxml-sommets-sur profil projet)) (plv-projet profil genre sommets)))

(defun plv-landxml-lignes-nommees (chemin)
  "The project lines of all alignments as (name line); nil after a message."
  (cond
    ((apply 'append
       (mapcar
         '(lambda (axe)
            (mapcar '(lambda (projet) (list (strcat (plv-cle 'nom axe) " / " (plv-landxml:nom-projet projet)) projet)) (plv-cle 'projets axe)))
         (plv-landxml chemin))))
    (T (plv-erreur (strcat chemin ": aucune ligne de projet")))))

(defun plv-landxml-projet-fichier (profil genre chemin / lignes ligne)
  "The project line of a file, chosen among those of all its alignments."
  (setq lignes (plv-landxml-lignes-nommees chemin))
  (cond
    ((not lignes) nil)
    ((setq ligne (plv-landxml:choisir "Numéro de la ligne" (mapcar 'car lignes) (mapcar 'cadr lignes)))
     (plv-landxml-projet profil genre ligne))))

;; --- kinds

(defun plv-landxml:genre-propose (projet)
  "A line that is called like a kind of line is of that kind."
  (cond ((plv-genre (plv-cle 'nom projet))) ("Projet")))

(defun plv-landxml:nom-projet (projet)
  (strcat (plv-cle 'nom projet) (if (plv-cle 'nu projet) " (sans ses raccordements)" "")))

(defun plv-landxml-projets (profil axe / pris genre)
  "Draws the project lines that have a kind to themselves; says which are left."
  (foreach projet (plv-cle 'projets axe)
    (setq genre (plv-landxml:genre-propose projet))
    (if (or (plv-cle 'nu projet) (member genre pris))
      (plv-dire (strcat "Ligne de projet " (plv-cle 'nom projet) " laissée: PLV-PROJET la trace "
                        (if (plv-cle 'nu projet) "sans ses raccordements." "dans un autre genre.")))
      (progn (plv-landxml-projet profil genre projet) (setq pris (cons genre pris))))))

(defun plv-landxml-demander-projets (profil axe / genre)
  (foreach projet (plv-cle 'projets axe)
    (setq genre (plv-demander-mot (strcat "Genre de la ligne de projet " (plv-landxml:nom-projet projet))
                                  (append (plv-genres) '("Laisser"))
                                  (if (plv-cle 'nu projet) "Laisser" (plv-landxml:genre-propose projet))))
    (if (/= genre "Laisser") (plv-landxml-projet profil genre projet))))
