;; The surface cut along axes by et_terrain, what is told of it, and the ground that a profile is made on.
;; Shared in the room: plv-mnt:contradictions

(setq plv-mnt:montrees 10) ; contradictions that are listed

(defun plv-mnt-profils (reponse) (car reponse))
(defun plv-mnt:contradictions (reponse) (cadr reponse))
(defun plv-mnt:remarques (reponse) (caddr reponse))
(defun plv-mnt:faits (reponse) (cadddr reponse))

(defun plv-mnt:dire-faits (faits / textes)
  (setq textes
    (vl-remove nil
      (mapcar '(lambda (nombre mot suite) (if (> nombre 0) (strcat (plv-compte nombre mot) suite)))
              faits '("point" "segment" "triangle") '("" " de lignes caractéristiques" ""))))
  (if textes (plv-dire (strcat "Surface: " (plv-joindre textes ", ") "."))))

(defun plv-mnt-texte-contradiction (c)
  (strcat (car c) ": " (plv-reel (nth 3 c) 3) " et " (plv-reel (nth 4 c) 3)))

(defun plv-mnt:dire-contradictions (reponse / nombre)
  (if (> (setq nombre (nth 3 (plv-mnt:faits reponse))) 0)
    (progn
      (plv-dire (strcat (plv-compte nombre "contradiction") (if (> nombre 1) " entre altitudes" " d'altitudes")
                        " (PLV-TERRAIN Contrôler les marque):"))
      (foreach c (plv-premiers (plv-mnt:contradictions reponse) plv-mnt:montrees)
        (plv-dire (strcat "  " (plv-reel (cadr c) 2) ", " (plv-reel (caddr c) 2) "  " (plv-mnt-texte-contradiction c))))
      (if (> nombre plv-mnt:montrees) (plv-dire "  ...")))))

(defun plv-mnt-couper (axes demande / sources reponse)
  "What et_terrain answers, once it has been told; nil after a message."
  (if (setq sources (plv-mnt-sources demande))
    (progn
      (setq reponse (et_terrain axes sources (plv-mnt-options demande)))
      (cond
        ((not reponse) (plv-erreur "la demande de terrain est mal formée"))
        ((not (listp reponse)) (plv-erreur reponse))
        (T
         (foreach texte (plv-mnt:remarques reponse) (plv-dire (strcat texte ".")))
         (plv-mnt:dire-faits (plv-mnt:faits reponse))
         (plv-mnt:dire-contradictions reponse)
         reponse)))))

;; --- a ground

(defun plv-mnt:lacunes (morceaux / fin lacunes)
  (foreach m morceaux
    (if fin (setq lacunes (cons (list fin (caar m)) lacunes)))
    (setq fin (car (plv-dernier m))))
  (reverse lacunes))

(defun plv-mnt:dire-lacunes (lacunes depart)
  (foreach l lacunes
    (plv-dire (strcat "Pas de surface entre les stations " (plv-reel (+ depart (plv-debut l)) 2) " et "
                      (plv-reel (+ depart (plv-fin l)) 2) ": laissé ouvert."))))

(defun plv-mnt:dire-bouts (debut fin longueur depart)
  (if (or (> debut 1e-3) (< fin (- longueur 1e-3)))
    (plv-dire (strcat "La surface va de la station " (plv-reel (+ depart debut) 2) " à " (plv-reel (+ depart fin) 2)
                      " de l'axe, qui va jusqu'à " (plv-reel (+ depart longueur) 2) "."))))

(defun plv-mnt-terrain (profil depart / morceaux points origine)
  "A profile (length piece ...) as a ground, see terrain/plv-terrain; distances from its first point."
  (setq morceaux (cdr profil) points (apply 'append morceaux) origine (caar points))
  (plv-mnt:dire-bouts origine (car (plv-dernier points)) (car profil) depart)
  (plv-mnt:dire-lacunes (plv-mnt:lacunes morceaux) depart)
  (list (cons 'origine (+ depart origine))
        (cons 'debut origine)
        (cons 'points (mapcar '(lambda (p) (list (- (car p) origine) (cadr p) "")) points))
        (cons 'lacunes (mapcar '(lambda (l) (list (- (plv-debut l) origine) (- (plv-fin l) origine))) (plv-mnt:lacunes morceaux)))))

(defun plv-mnt-lire (demande / axe reponse profil)
  "The ground under the axis of a request, with the axis itself; nil after a message."
  (if (and (setq axe (plv-mnt-axe demande)) (setq reponse (plv-mnt-couper (list axe) demande)))
    (if (listp (setq profil (car (plv-mnt-profils reponse))))
      (cons (cons 'axe axe) (plv-mnt-terrain profil (plv-cle 'depart demande)))
      (plv-erreur profil))))
