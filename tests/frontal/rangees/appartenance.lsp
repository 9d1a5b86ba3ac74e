;; Profiles that are copied in part: what the records of the copy name is the original's and stays so.

(commun
  (fichier "g.csv" "distance;altitude;nom\n0;100;A\n40;98;B\n100;100;C\n")
  (fichier "t.txt" "T - 6.0 4 Altitude TN\n")
  (preparer
    (setq p (plv-nouveau "<dossier>g.csv" "1" '(0.0 0.0 0.0) 10.0 2.5 200.0 '((0.0 90.0) (40.0 88.0))))
    (plv-projet p "Voirie" '((0.0 98.0) (100.0 97.0)))
    (plv-matrices p "<dossier>t.txt" T)
    (plv-metres nil "Voirie" nil T)
    (defun copier (entites / marque)
      (setq marque (entlast))
      (command "_.COPY" (plv-jeu entites) "" '(0.0 0.0) '(0.0 1000.0))
      (setq c (car (vl-remove p (plv-profils))))
      (setq numero (entget (entnext c)))
      (entmod (subst (cons 1 "2") (assoc 1 numero) numero))
      c)
    (defun hachures (profil) (plv-hachures-du-profil profil "Voirie"))
    ;; all that stands in the original's place
    (defun original () (mapcar 'entget (plv-entites-du-jeu (ssget "C" '(-100.0 -100.0) '(300.0 300.0)))))))

(situation "ACopyOfTheBlockAloneIsRefusedAndMended")
(preparer (copier (list p)) (setq avant (original)))
(refuse (plv-matrices c "<dossier>t.txt" T) "le profil 2 est abîmé" "PRPC" "sont ceux du profil 1" "kavel --audit --fix")
(refuse (plv-metres '("2") "Voirie" nil T) "le profil 2 est abîmé")
(refuse (plv-pc c "M" 0.0 80.0) "le profil 2 est abîmé")
(dit (plv-decrire) "Profils: 2" "sont ceux du profil 1")
((not (not (plv-metres '("1") "Voirie" nil nil))) T)
(dit (plv-audit-reparer) "P09 réparé" (sauf "erreur"))
;; the original as it was, the copy with planes, ground lines and supports of its own; it has no project line that a legend would tell
((equal (original) avant) T)
((equal (plv-plans c) (plv-plans p)) T)
((vl-some '(lambda (cle) (eq (plgxd c cle) (plgxd p cle))) (cons "PRPC" (plv-cles-genres))) nil)
((equal (plv-traces:terrain c (plv-cadre c) nil nil) (plv-traces:terrain p (plv-cadre p) nil nil) 1e-9) T)
((list (plv-references-tables c) (hachures c) (- (length (plv-entites-habillage p)) (length (plv-entites-habillage c)) (length (plv-entites-legende-lignes p)))) (nil nil 0))
(passe (plv-matrices c "<dossier>t.txt" T) (plv-pc c "M" 0.0 80.0) (plv-projet c "Voirie" '((0.0 99.0) (100.0 98.0))) (plv-metres '("2") "Voirie" nil T))
((equal (original) avant) T)
((list (length (plv-references-tables c)) (> (length (hachures c)) 0)) (1 T))

;; Planes, supports and lines were copied, tables and hatches were not.
(situation "WhatWasNotCopiedStaysTheOriginals")
(preparer
  (copier (append (list p) (vl-remove-if '(lambda (e) (or (eq e p) (member (cdr (assoc 8 (entget e))) '("PLV-MATRICE" "PLV-RAPPELS" "PLV-HACHURES"))))
                             (plv-entites-du-jeu (ssget "X")))))
  (setq avant (original) n (length (hachures p))))
((list (> n 0) (hachures c)) (T nil))
(passe (plv-metres '("2") "Voirie" nil T) (plv-matrices c "<dossier>t.txt" T))
((equal (original) avant) T)
((list (= (length (hachures p)) n) (= (length (hachures c)) n)) (T T))
((plv-audit) 0)

;; The hatches of earlier drawings, by their handles as texts.
(situation "HandlesAsTextsAreReadStill")
(preparer
  (setq h (hachures p))
  (plv-ecrire-enregistrement p "PLV_HACHURES_VOIRIE" (mapcar '(lambda (e) (cons 300 (plv-handle e))) h))
  (copier (vl-remove-if '(lambda (e) (member (cdr (assoc 8 (entget e))) '("PLV-MATRICE" "PLV-RAPPELS" "PLV-HACHURES"))) (plv-entites-du-jeu (ssget "X")))))
((equal (hachures p) h) T)
((hachures c) nil)

;; Both legends showed one block, named after the identifier that a copy shares. Those of earlier versions don't name their profile.
(situation "ACopysLegendIsItsOwn")
(preparer
  (defun contenu (e / textes)
    (setq e (plv-cle -2 (tblsearch "BLOCK" (plv-cle 2 (entget e)))))
    (while e (if (= (plv-type e) "TEXT") (setq textes (cons (plv-cle 1 (entget e)) textes))) (setq e (entnext e)))
    (reverse textes))
  (defun legendes () (plv-entites-du-jeu (ssget "X" '((0 . "INSERT") (8 . "PLV-LEGENDE"))))))
(tableau (ancienne) (nil) (T))
(preparer
  (setq l (plv-legende p "Voirie" nil))
  (if ancienne (progn (plv-oter-cle l "LEGENDEPROFIL") (plv-oter-cle l "LEGENDEGENRE")))
  (copier (plv-entites-du-jeu (ssget "X")))
  (setq vue (contenu l) lc (car (vl-remove l (legendes))) m (plv-legende c "Voirie" nil)))
((list (length (legendes)) (entget lc) (not (entget l))) (2 nil nil))
((equal (contenu l) vue) T)
((list (car (contenu l)) (car (contenu m))) ("PROFIL 1 - VOIRIE" "PROFIL 2 - VOIRIE"))
((list (equal (plv-legendes-du-profil p) (list l)) (equal (plv-legendes-du-profil c) (list m))) (T T))
(preparer (setq n (plv-legende p "Voirie" nil)))
((list (length (legendes)) (entget l) (car (contenu n)) (car (contenu m))) (2 nil "PROFIL 1 - VOIRIE" "PROFIL 2 - VOIRIE"))

(situation "WhatRecordsHoldIsMended")
(preparer
  (setq avant (list (plv-plans p) (plv-points-tn p) (mapcar 'plv-handle (plv-elements p "Voirie")))
        sup (plv-support p "Voirie")))
(tableau (degat code restent)
  ((plv-oter-cle (plgxd p "PRPC") "PC") "P04" nil)
  ((plv-oter-cle (plgxd p "PRPC") "DISTANCE") "P04" nil)
  ((plsxd (plgxd (plgxd p "PRPC") "NEXT-PC") "PC" "x") "P04" nil)
  ((plv-ecrire-terrain p nil) "P05" nil)
  ((plv-ecrire-terrain p '((0.0 100.0))) "P05" nil)
  ((plv-ecrire-enregistrement sup "ELEMS_PROJET_KAVEL" (append (plv-enregistrement-elements sup) (list (cons 40 1.0) (cons 330 p)))) "P07" nil)
  ((plv-ecrire-enregistrement sup "ELEMS_STATIQUES_KAVEL" '((102 . "{") (40 . 5.0) (102 . "{") (102 . "}") (102 . "}"))) "P08" nil)
  ((plv-ecrire-enregistrement sup "ELEMS_STATIQUES_KAVEL"
     '((102 . "{") (10 5.0 0.0 0.0) (102 . "{") (102 . "}") (102 . "}") (1 . "x") (102 . "{") (10 9.0 0.0 0.0) (102 . "{") (102 . "}") (102 . "}")))
   "P08" (5.0 9.0)))
(preparer degat)
((not (= (plv-audit) 0)) T)
(dit (setq bilan (plv-audit-bilan T)) code " réparé" (sauf "erreur"))
((list (car bilan) (> (cadr bilan) 0)) (0 T))
((equal (list (plv-plans p) (mapcar '(lambda (q) (list (car q) (cadr q) 0.0)) (plv-points-tn p)) (mapcar 'plv-handle (plv-elements p "Voirie"))) avant 1e-6) T)
((mapcar 'cadr (vl-remove-if-not '(lambda (g) (= (car g) 10)) (plv-enregistrement sup "ELEMS_STATIQUES_KAVEL"))) restent)

(situation "ErasedHatchesLeaveTheRecord")
(preparer (entdel (car (hachures p))) (setq n (length (hachures p))))
(dit (plv-audit-reparer) (sauf "erreur"))
((= n (length (plv-cles 330 (plv-enregistrement p "PLV_HACHURES_VOIRIE")))) T)
