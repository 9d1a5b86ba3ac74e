;; The texts and networks that stand on a profile already, as the boxes (x y width height angle) that labels keep clear of.

(defun plv-boites-textes (profil)
  "Dimensions, blocks that stand on the profile, and the texts of networks."
  (append
    (mapcar 'plv-boite-droite (append (plv-boites-cotes profil) (mapcar 'plv-boite (plv-blocs profil))))
    (plv-boites-reseaux profil nil)))

(defun plv-hauts-reseaux (profil)
  "The tops of the texts of networks."
  (mapcar '(lambda (b) (+ (cadr b) (* 0.5 (+ (* (caddr b) (abs (sin (nth 4 b)))) (cadddr b))))) (plv-boites-reseaux profil nil)))

(defun plv-boites-traits-reseaux (profil)
  "The pipes and manholes of networks."
  (apply 'append
    (mapcar '(lambda (genre) (plv-obstacles-de-traits (plv-traces-reseau profil genre) (* 0.3 (plv-ttxt profil)))) (plv-genres-de-reseau profil))))
