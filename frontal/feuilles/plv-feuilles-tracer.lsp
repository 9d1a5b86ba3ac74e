;; PLV-FEUILLES and PLV-APERCU: what is asked, and sheets plotted into a PDF, shown page by page, or listed.
;; Shared in the room: plv-feuilles:*

;; --- the size of texts on paper

(setq plv-feuilles:petit 1.8 plv-feuilles:grand 7.0 plv-feuilles:lisible 2.5)

(defun plv-feuilles:textes-papier (mesures echelle / h)
  "Says which profiles have texts that are too small or too large on paper, and what height would be right."
  (foreach m mesures
    (setq h (/ (* 1000.0 (plv-ttxt (plv-cle 'profil m))) echelle))
    (if (or (< h plv-feuilles:petit) (> h plv-feuilles:grand))
      (plv-dire
        (strcat "attention: profil " (plv-numero-profil (plv-cle 'profil m)) ", les textes ont " (plv-reel h 2)
                " mm sur le papier au 1:" (plv-feuilles:nombre echelle) "; une hauteur de texte de "
                (plv-reel (* 0.001 echelle plv-feuilles:lisible) 2) " en ferait " (plv-reel plv-feuilles:lisible 1) " mm.")))))

;; --- the call and the command

(defun plv-feuilles:infos (titre profils)
  "What readers of the file are told."
  (append
    (list (cons "titre" titre) (cons "auteur" (plv-cartouche-texte "Auteur"))
          (cons "sujet" (strcat "Profils en long " (plv-joindre (mapcar 'plv-numero-profil profils) ", "))))
    (if (plv-couleurs-sans-table-p) (list (cons "couleurs" (plv-couleurs-des-feuilles))))
    (if (plv-style-de-texte) (list (cons "police" (plv-cle 3 (tblsearch "STYLE" plv-texte-style)))))))

;; --- what is asked: (profiles template scale title list), the scale nil for the largest that fits, list T for a list of the sheets

(defun plv-feuilles:preparer (profils modele echelle titre liste / place mesures feuilles)
  "(scale measures sheet ...); nil after a message."
  (if (and (vl-every 'plv-profil-sain profils)
           (setq place (plv-feuilles:place modele))
           (setq mesures (mapcar 'plv-feuilles:mesurer profils)
                 echelle (cond (echelle) ((plv-feuilles:echelle mesures place))))
           (setq feuilles (plv-feuilles:toutes mesures echelle place titre liste)))
    (vl-list* echelle mesures feuilles)))

(defun plv-feuilles:reussi (fonction arguments / resultat)
  "What a function of the host gives; nil after its message."
  (setq resultat (vl-catch-all-apply fonction arguments))
  (if (vl-catch-all-error-p resultat) (plv-erreur (vl-catch-all-error-message resultat)) resultat))

(defun plv-feuilles (profils modele echelle titre fichier)
  "Plots profiles on sheets of a template; nil for the scale takes the largest that fits. The number of sheets, or nil after a
message."
  (plv-feuilles-et-liste profils modele echelle titre nil fichier))

(defun plv-feuilles-et-liste (profils modele echelle titre liste fichier / fait)
  "The same, for T with a list of the sheets before them."
  (plv-accorder-copies)
  (setq modele (plv-feuilles:modele modele) fait (plv-feuilles:preparer profils modele echelle titre liste) echelle (car fait))
  (if (and fait (plv-feuilles:reussi 'tracer-feuilles (list fichier modele (cddr fait) (plv-feuilles:infos titre profils))))
    (progn
      (plv-dire (strcat fichier ": " (itoa (length (cddr fait))) (if (cdddr fait) " feuilles" " feuille") " au 1:"
                        (plv-feuilles:nombre echelle) "."))
      (plv-feuilles:textes-papier (cadr fait) echelle)
      (foreach p profils (plv-noter-fait p "FEUILLES" (strcat "PDF " fichier) nil (append (list modele (rtos echelle 2 8) titre) (if liste (list plv-feuilles:liste)))))
      (length (cddr fait)))))

(defun plv-apercu (profils modele echelle titre liste / fait)
  "Shows the same sheets in the window, else lists them; T, or nil after a message."
  (plv-accorder-copies)
  (setq modele (plv-feuilles:modele modele) fait (plv-feuilles:preparer profils modele echelle titre liste))
  (if fait
    (progn
      (foreach f (cddr fait)
        (plv-dire (strcat (plv-cle "<SIGNET>" (caddr f)) (if (cadr f) (strcat ", 1:" (plv-feuilles:nombre (car fait))) "") ".")))
      (plv-feuilles:textes-papier (cadr fait) (car fait))
      (plv-feuilles:reussi 'apercu-feuilles (list modele (cddr fait) (plv-feuilles:infos titre profils)))
      T)))

;; The words at the question of the scale; the first also in what is noted of a set.
(setq plv-feuilles:liste "Liste" plv-feuilles:couleurs "Couleurs")

(defun plv-feuilles:demander-echelle (defaut / reponse liste)
  "(scale list): a word asks for a list of the sheets, or no longer, or for other colours, and the scale is asked again."
  (setq reponse T)
  (while (or (= reponse T) (= (type reponse) 'STR))
    (initget 6 (strcat plv-feuilles:liste " " plv-feuilles:couleurs))
    (setq reponse (getreal (strcat "\nDénominateur de l'échelle" (if liste ", avec la liste des feuilles" "") " ou ["
                             plv-feuilles:liste "/" plv-feuilles:couleurs "] <" (plv-reel defaut 2) ">: ")))
    (cond ((= reponse plv-feuilles:liste) (setq liste (not liste)))
          ((= reponse plv-feuilles:couleurs) (plv-demander-couleurs))))
  (list (cond (reponse) (defaut)) liste))

(defun plv-feuilles:demander (/ profils modele place echelle)
  "(profiles template scale title list); nil after a message."
  (if (setq profils (plv-demander-profils)) (plv-avant-sortie profils))
  (if (and profils
           (setq modele (plv-feuilles:modele (plv-demander-texte "Dessin modèle" "cartouche.dxf")))
           (setq place (plv-feuilles:place modele)))
    (progn
      (setq echelle (plv-feuilles:demander-echelle (plv-feuilles:echelle (mapcar 'plv-feuilles:mesurer profils) place)))
      (list profils modele (car echelle) (plv-demander-texte "Titre de l'affaire" (plv-nom-dessin)) (cadr echelle)))))

(defun c:plv-feuilles (/ demande)
  "Fait le dossier de plans: les profils sur des feuilles, en un PDF."
  (if (setq demande (plv-feuilles:demander))
    (apply 'plv-feuilles-et-liste (append demande (list (plv-demander-texte "Fichier PDF" "feuilles.pdf")))))
  (princ))

(defun c:plv-apercu (/ demande)
  "Montre les feuilles comme elles seront tracées, page par page, et les imprime; sans fenêtre, en fait la liste."
  (if (setq demande (plv-feuilles:demander)) (apply 'plv-apercu demande))
  (princ))
