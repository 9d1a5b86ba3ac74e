;; PLV-EXPORT: ground and project lines of profiles as LandXML 1.2, or as delimited text that PLV-NOUVEAU and PLV-PROJET
;; read. Stations are those of the profile, altitudes in metres.

;; --- LandXML

(defun plv-export:moities-p (a b)
  "T for two parabolas that touch where the tangents behind and before them meet: one unsymmetric parabola."
  (and (= (caaddr a) "P") (= (caaddr b) "P")
       (equal (+ (car a) (* 0.5 (caddr (caddr a)))) (- (car b) (* 0.5 (caddr (caddr b)))) 1e-6)))

(defun plv-export:reunir (avant a b apres / t1 p1 p2 z1 z2)
  "The unsymmetric parabola of two touching ones, nil when it is none."
  (setq t1 (+ (car a) (* 0.5 (caddr (caddr a))))
        p1 (plv-raccords:pente avant a) p2 (plv-raccords:pente b apres)
        z1 (+ (cadr a) (* p1 (- t1 (car a)))) z2 (+ (cadr b) (* p2 (- t1 (car b)))))
  (if (equal z1 z2 1e-6) (list t1 (* 0.5 (+ z1 z2)) (list "U" (caddr (caddr a)) (caddr (caddr b))))))

(defun plv-export:dissymetriques (sommets / reste faits u)
  "The vertices with touching halves of parabolas put together."
  (setq faits (list (car sommets)) reste (cdr sommets))
  (while reste
    (if (and (cddr reste) (caddr (car reste)) (caddr (cadr reste)) (plv-export:moities-p (car reste) (cadr reste))
             (setq u (plv-export:reunir (car faits) (car reste) (cadr reste) (caddr reste))))
      (setq faits (cons u faits) reste (cddr reste))
      (setq faits (cons (car reste) faits) reste (cdr reste))))
  (reverse faits))

(defun plv-export:sommet (s origine / demande)
  "A vertex as landxml-ecrire takes it."
  (setq demande (caddr s))
  (append (list (+ origine (car s)) (cadr s))
          (cond ((not demande) nil) ((= (car demande) "U") demande) (T (list (car demande) (caddr demande))))))

(defun plv-export:projets (profil origine / projets rang)
  (foreach genre (plv-genres-du-projet profil)
    (setq rang 0)
    (foreach sommets (plv-projet-sommets profil genre)
      (setq rang (1+ rang)
            projets (cons (list (cons 'nom (if (= rang 1) genre (strcat genre " (" (itoa rang) ")")))
                                (cons 'sommets (mapcar '(lambda (s) (plv-export:sommet s origine))
                                                       (plv-export:dissymetriques sommets))))
                          projets))))
  (reverse projets))

(defun plv-export:troncons (profil origine / points troncons lacune)
  "The ground in pieces, as it came: points (station altitude) between its gaps."
  (setq points (plv-points-tn profil))
  (foreach groupe (plv-enregistrement profil "PLV_LACUNES")
    (setq lacune (cdr groupe)
          troncons (cons (vl-remove-if '(lambda (p) (> (car p) (+ (car lacune) 1e-6))) points) troncons)
          points (vl-remove-if '(lambda (p) (< (car p) (- (cadr lacune) 1e-6))) points)))
  (mapcar
    '(lambda (troncon) (mapcar '(lambda (p) (list (+ origine (car p)) (cadr p))) troncon))
    (reverse (cons points troncons))))

(defun plv-export:axe (profil / origine)
  (setq origine (plgxd profil "DCUMDEB"))
  (list (cons 'nom (plv-numero-profil profil))
        (cons 'origine origine)
        (cons 'terrains
          (list (list '(nom . "Terrain naturel") '(etat . "existing")
                      (cons 'troncons (plv-export:troncons profil origine)))))
        (cons 'projets (plv-export:projets profil origine))))

(defun plv-export-landxml (profils fichier / ecrit)
  "Writes profiles as the alignments of a LandXML file; T, or nil after a message."
  (setq ecrit (vl-catch-all-apply 'landxml-ecrire (list fichier (plv-export:nom-dessin) (mapcar 'plv-export:axe profils))))
  (if (vl-catch-all-error-p ecrit)
    (plv-erreur (vl-catch-all-error-message ecrit))
    (progn
      (plv-dire (strcat fichier ": " (itoa (length profils)) (if (cdr profils) " profils" " profil") ", LandXML 1.2."))
      T)))

(defun plv-export:nom-dessin (/ nom)
  (setq nom (vl-filename-base (getvar "DWGNAME")))
  (if (= nom "") "Kavel" nom))

;; --- delimited text

(defun plv-export:ecrire-lignes (fichier lignes / temporaire f ancien)
  "Writes lines beside the file and puts them in its place; the former file becomes .bak."
  (setq temporaire (strcat fichier ".tmp"))
  (cond
    ((not (setq f (open temporaire "w"))) (plv-erreur (strcat "ecriture impossible: " fichier)))
    (T
     (foreach ligne lignes (write-line ligne f))
     (close f)
     (if (findfile fichier)
       (progn
         (setq ancien (strcat fichier ".bak"))
         (if (findfile ancien) (vl-file-delete ancien))
         (vl-file-rename fichier ancien)))
     (if (vl-file-rename temporaire fichier)
       (progn (plv-dire (strcat fichier ": " (itoa (1- (length lignes))) " lignes.")) T)
       (plv-erreur (strcat "ecriture impossible: " fichier))))))

(defun plv-export:ligne (textes) (plv-joindre textes ";"))

(defun plv-export-terrain (profil fichier / origine noms)
  "The ground as distance;altitude;nom lines."
  (setq origine (plgxd profil "DCUMDEB") noms (plv-noms-tn profil))
  (plv-export:ecrire-lignes fichier
    (cons "distance;altitude;nom"
      (mapcar
        '(lambda (p / nom)
           (setq nom (car noms) noms (cdr noms))
           (plv-export:ligne (list (plv-reel (+ origine (car p)) 6) (plv-reel (cadr p) 6) (plv-remplacer (cond (nom) ("")) ";" ","))))
        (plv-points-tn profil)))))

(defun plv-export:raccord (demande)
  (cond
    ((not demande) '("" ""))
    ((= (car demande) "P") (list (strcat "L" (plv-reel (caddr demande) 6)) "P"))
    (T (list (strcat "R" (plv-reel (caddr demande) 6)) "C"))))

(defun plv-export-projet (profil genre fichier / origine suites)
  "The project line of a kind as station;altitude;raccordement;forme lines; the first run when it has gaps."
  (setq origine (plgxd profil "DCUMDEB") suites (plv-projet-sommets profil genre))
  (cond
    ((not suites) (plv-erreur (strcat "pas de ligne de projet du genre " genre)))
    (T
     (if (cdr suites) (plv-dire "La ligne de projet est interrompue: sa premiere partie est ecrite."))
     (plv-export:ecrire-lignes fichier
       (cons "station;altitude;raccordement;forme"
         (mapcar
           '(lambda (s)
              (plv-export:ligne (vl-list* (plv-reel (+ origine (car s)) 6) (plv-reel (cadr s) 6) (plv-export:raccord (caddr s)))))
           (car suites)))))))

;; --- the command

(defun plv-export:demander-profils (/ profils profil)
  (setq profils (plv-profils))
  (if (and (cdr profils) (= (plv-demander-mot "Profils" '("Tous" "Un") "Tous") "Tous"))
    profils
    (if (setq profil (plv-choisir-profil)) (list profil))))

(defun plv-export:texte (/ profil contenu genre fichier)
  (if (setq profil (plv-choisir-profil))
    (progn
      (setq contenu (plv-demander-mot "Contenu" '("Terrain" "Projet") "Terrain"))
      (if (= contenu "Projet") (setq genre (plv-demander-genre (cond ((car (plv-genres-du-projet profil))) ("Projet")))))
      (setq fichier (plv-demander-texte "Fichier a ecrire" "profil.csv"))
      (if genre (plv-export-projet profil genre fichier) (plv-export-terrain profil fichier)))))

(defun c:plv-export (/ profils)
  (if (= (plv-demander-mot "Format" '("Landxml" "Texte") "Landxml") "Texte")
    (plv-export:texte)
    (if (setq profils (plv-export:demander-profils))
      (plv-export-landxml profils (plv-demander-texte "Fichier a ecrire" "profil.xml"))))
  (princ))
