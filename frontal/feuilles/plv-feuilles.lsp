;; PLV-FEUILLES: profiles on sheets with the frame and the title block of a template drawing, all in one PDF.
;; A profile that is longer than the sheet is cut at stations; the sheets that follow show the titles of its tables again.
;; A sheet is (scale (view ...) ((mark . text) ...)), a view (x1 y1 x2 y2 (x y1 y2) ...) in drawing units, match lines behind;
;; see tracer-feuilles.

(setq plv-feuilles:echelles '(50.0 100.0 200.0 250.0 500.0 1000.0 2000.0 2500.0 5000.0 10000.0 20000.0))

;; --- what a profile covers

(defun plv-feuilles:entites (profil / entites)
  (setq entites (cons profil (append (mapcar 'cdr (plv-enregistrement profil "PLV_HABILLAGE")) (plv-tables:ajouts profil))))
  (foreach genre (mapcar 'car plv-elements:genres) (setq entites (append entites (plv-elements:enregistres profil genre))))
  (foreach reference (plv-tables:references profil)
    (setq entites (cons reference (append entites (plv-tables:membres (plv-tables:groupe reference))))))
  (vl-remove-if-not 'entget (vl-remove nil (append (plv-feuilles:legende profil) entites))))

(defun plv-feuilles:legende (profil / jeu)
  (if (setq jeu (ssget "X" (list '(0 . "INSERT") (cons 2 (plv-legende:nom profil))))) (list (ssname jeu 0))))

(defun plv-feuilles:mesurer (profil / point coins titres ttxt)
  "What the layout needs: keys gauche droite bas haut (of all), titres (right edge of the tables' titles with the gap behind
them, top), recouvrement (what two sheets share on each side of a cut) x0 y0."
  (setq point (plv-cle 10 (entget profil))
        ttxt (cond ((plgxd profil "TTXT")) (2.5))
        coins (etendue-tracee (plv-feuilles:entites profil))
        titres (etendue-tracee (vl-remove-if-not 'entget (plv-tables:references profil))))
  (list (cons 'profil profil) (cons 'x0 (car point)) (cons 'y0 (cadr point))
        ;; Upright texts stand on their abscissa: half of their height is beside it.
        (cons 'recouvrement (* 0.8 ttxt))
        (cons 'gauche (- (caar coins) ttxt)) (cons 'droite (+ (caadr coins) ttxt))
        (cons 'bas (- (cadar coins) ttxt)) (cons 'haut (+ (cadadr coins) ttxt))
        (cons 'titres (if titres (list (max (caadr titres) (- (car point) (* 0.8 ttxt))) (cadadr titres))))))

;; --- cuts

(defun plv-feuilles:abscisses (profil / point rappels)
  "Where a profile may be cut: the points that have cells, else all ground points; distances."
  (setq point (plv-cle 10 (entget profil))
        rappels (vl-remove-if-not '(lambda (g) (= (plv-cle 8 g) "PLV-RAPPELS")) (mapcar 'entget (plv-tables:ajouts profil))))
  (if rappels
    (vl-sort (mapcar '(lambda (g) (- (cadr (assoc 10 g)) (car point))) rappels) '<)
    (mapcar 'car (plv-points-tn profil))))

(defun plv-feuilles:couches (mesures / groupes coins liste)
  "Where texts lie along the slopes: (d1 d2) of each, which a cut would tear."
  (foreach e (plv-tables:ajouts (plv-cle 'profil mesures))
    (setq groupes (entget e))
    (if (and (= (plv-cle 0 groupes) "TEXT") (< (abs (sin (plv-cle 50 groupes))) 0.7) (setq coins (etendue-tracee (list e))))
      (setq liste (cons (list (- (caar coins) (plv-cle 'x0 mesures)) (- (caadr coins) (plv-cle 'x0 mesures))) liste))))
  liste)

(defun plv-feuilles:coupure (mesures precedente limite / couches entier trouve)
  "Where a sheet ends: the last point that fits; one further back in the last fifth when it tears no text; the last whole metre
where there are no points."
  (setq couches (plv-feuilles:couches mesures))
  (foreach d (plv-feuilles:abscisses (plv-cle 'profil mesures))
    (if (and (<= d limite) (> d (+ precedente (* 0.5 (- limite precedente)))))
      (progn
        (setq trouve d)
        (if (and (> d (+ precedente (* 0.8 (- limite precedente))))
                 (not (vl-some '(lambda (c) (< (- (car c) (plv-cle 'recouvrement mesures)) d (+ (cadr c) (plv-cle 'recouvrement mesures)))) couches)))
          (setq entier d)))))
  (cond (entier) (trouve) ((float (fix limite)))))

(defun plv-feuilles:bande (mesures)
  "Width of the titles that are shown again, 0 without tables."
  (if (plv-cle 'titres mesures) (- (car (plv-cle 'titres mesures)) (plv-cle 'gauche mesures)) 0.0))

(defun plv-feuilles:coupures (mesures largeur / recouvrement coupures place fin d)
  "Distances at which a profile is cut for sheets of this width in drawing units; T when it can't be."
  (setq recouvrement (plv-cle 'recouvrement mesures)
        fin (- (plv-cle 'droite mesures) (plv-cle 'x0 mesures))
        d (- (plv-cle 'gauche mesures) (plv-cle 'x0 mesures))
        place (- largeur recouvrement))
  (while (and (not (eq coupures T)) (> (- fin d) (if coupures (+ place recouvrement) largeur)))
    (setq d (plv-feuilles:coupure mesures (cond ((car coupures)) (0.0)) (+ d place)))
    (if (<= d (cond ((car coupures)) (0.0)))
      (setq coupures T)
      (setq coupures (cons d coupures)
            place (- largeur (plv-feuilles:bande mesures) (* 2.0 recouvrement)))))
  (if (eq coupures T) T (reverse coupures)))

(defun plv-feuilles:vues (mesures debut fin / x0 recouvrement x1 x2)
  "The views of one sheet, between two cuts; nil for the beginning or the end of the profile."
  (setq x0 (plv-cle 'x0 mesures) recouvrement (plv-cle 'recouvrement mesures)
        x1 (if debut (- (+ x0 debut) recouvrement) (plv-cle 'gauche mesures))
        x2 (if fin (+ x0 fin recouvrement) (plv-cle 'droite mesures)))
  (append
    (if (and debut (plv-cle 'titres mesures))
      (list (list (plv-cle 'gauche mesures) (plv-cle 'bas mesures) (car (plv-cle 'titres mesures)) (cadr (plv-cle 'titres mesures)))))
    (list (append (list x1 (plv-cle 'bas mesures) x2 (plv-cle 'haut mesures))
                  (if debut (list (plv-feuilles:repere mesures debut))) (if fin (list (plv-feuilles:repere mesures fin)))))))

(defun plv-feuilles:repere (mesures d)
  "The match line at a distance: over the profile, not through the texts of its tables."
  (list (+ (plv-cle 'x0 mesures) d) (plv-cle 'y0 mesures) (plv-cle 'haut mesures)))

;; --- texts

(defun plv-feuilles:nombre (valeur)
  "Without zeros behind the point."
  (vl-string-right-trim "." (vl-string-right-trim "0" (plv-reel valeur 2))))

(defun plv-feuilles:date (/ date)
  (setq date (rtos (fix (getvar "CDATE")) 2 0))
  (strcat (substr date 7 2) "/" (substr date 5 2) "/" (substr date 1 4)))

(defun plv-feuilles:raccord (profil distance suite)
  "What stands beside a match line: station, plane, and the sheet that goes on."
  (strcat "Station " (plv-reel (+ (plgxd profil "DCUMDEB") distance) 2) "  -  PC "
          (plv-reel (cadr (plv-plan-en (plv-tables:plans profil) distance)) 2) "  -  feuille " (itoa suite)))

(defun plv-feuilles:textes (profil echelle titre debut fin rang / origine longueur)
  (setq origine (plgxd profil "DCUMDEB") longueur (cadr (pl_InfosTn profil)))
  (list (cons "<TITRE>" titre) (cons "<PROFIL>" (plv-numero-profil profil)) (cons "<FEUILLE>" (itoa rang))
        (cons "<ECHELLE_H>" (strcat "1:" (plv-feuilles:nombre echelle)))
        (cons "<ECHELLE_V>" (strcat "1:" (plv-feuilles:nombre (/ echelle (plgxd profil "ECHV")))))
        (cons "<STATIONS>" (strcat (plv-reel (+ origine (cond (debut) (0.0))) 2) " a " (plv-reel (+ origine (cond (fin) (longueur))) 2)))
        (cons "<DATE>" (plv-feuilles:date)) (cons "<DESSIN>" (getvar "DWGNAME"))
        (cons "<RACCORD_GAUCHE>" (if debut (plv-feuilles:raccord profil debut (1- rang)) ""))
        (cons "<RACCORD_DROITE>" (if fin (plv-feuilles:raccord profil fin (1+ rang)) ""))))

;; --- sheets

(defun plv-feuilles:haut-mm (mesures echelle) (/ (* 1000.0 (- (plv-cle 'haut mesures) (plv-cle 'bas mesures))) echelle))

(defun plv-feuilles:echelle (mesures place / trouve)
  "The largest usual scale at which the heights of all profiles fit the room."
  (foreach e (reverse plv-feuilles:echelles)
    (if (vl-every '(lambda (m) (<= (plv-feuilles:haut-mm m e) (cadr place))) mesures) (setq trouve e)))
  (cond (trouve) ((plv-dernier plv-feuilles:echelles))))

(defun plv-feuilles:de-profil (mesures echelle place titre rang / coupures debuts)
  "The sheets of one profile; nil after a message."
  (setq coupures (plv-feuilles:coupures mesures (* 0.001 echelle (car place))))
  (cond
    ((> (plv-feuilles:haut-mm mesures echelle) (cadr place))
     (plv-erreur (strcat "profil " (plv-numero-profil (plv-cle 'profil mesures)) ": " (plv-reel (plv-feuilles:haut-mm mesures echelle) 0)
                         " mm de haut a l'echelle 1:" (plv-feuilles:nombre echelle) ", la feuille en offre " (plv-reel (cadr place) 0)
                         "; il tiendrait a 1:" (plv-feuilles:nombre (plv-feuilles:echelle (list mesures) place)))))
    ((eq coupures T) (plv-erreur "la feuille est trop etroite a cette echelle"))
    (T
     (setq debuts (cons nil coupures) rang (1- rang))
     (mapcar
       '(lambda (debut fin)
          (setq rang (1+ rang))
          (list echelle (plv-feuilles:vues mesures debut fin)
                (plv-feuilles:textes (plv-cle 'profil mesures) echelle titre debut fin rang)))
       debuts (append coupures '(nil))))))

(defun plv-feuilles:numeroter (feuilles)
  "With their number in the set known."
  (mapcar '(lambda (f) (list (car f) (cadr f) (cons (cons "<FEUILLES>" (itoa (length feuilles))) (caddr f)))) feuilles))

(defun plv-feuilles (profils modele echelle titre fichier / place mesures feuilles nouvelles trace)
  "Plots profiles on sheets of a template; nil for the scale takes the largest that fits. The number of sheets, or nil after a
message."
  (setq place (vl-catch-all-apply 'modele-feuille (list modele)))
  (if (vl-catch-all-error-p place)
    (plv-erreur (vl-catch-all-error-message place))
    (progn
      (setq place (cadr place)
            mesures (mapcar 'plv-feuilles:mesurer profils)
            echelle (cond (echelle) ((plv-feuilles:echelle mesures place)))
            nouvelles T)
      (foreach m mesures
        (if nouvelles
          (setq nouvelles (plv-feuilles:de-profil m echelle place titre (1+ (length feuilles)))
                feuilles (append feuilles nouvelles))))
      (if nouvelles
        (progn
          (setq trace (vl-catch-all-apply 'tracer-feuilles (list fichier modele (plv-feuilles:numeroter feuilles))))
          (if (vl-catch-all-error-p trace)
            (plv-erreur (vl-catch-all-error-message trace))
            (progn
              (plv-dire (strcat fichier ": " (itoa (length feuilles)) (if (cdr feuilles) " feuilles" " feuille") " au 1:"
                                (plv-feuilles:nombre echelle) "."))
              (length feuilles))))))))

(defun c:plv-feuilles (/ profils modele place echelle titre)
  (if (setq profils (plv-export:demander-profils))
    (progn
      (setq modele (plv-demander-texte "Dessin modele" "cartouche.dxf")
            place (vl-catch-all-apply 'modele-feuille (list modele)))
      (if (vl-catch-all-error-p place)
        (plv-erreur (vl-catch-all-error-message place))
        (progn
          (setq echelle (plv-demander-reel "Denominateur de l'echelle" (plv-feuilles:echelle (mapcar 'plv-feuilles:mesurer profils) (cadr place)))
                titre (plv-demander-texte "Titre de l'affaire" (plv-export:nom-dessin)))
          (plv-feuilles profils modele echelle titre (plv-demander-texte "Fichier PDF" "feuilles.pdf"))))))
  (princ))
