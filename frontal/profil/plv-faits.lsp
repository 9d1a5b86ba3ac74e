;; What a profile's things were made from: for each thing that was derived of the profile, how it was made, when, and a fingerprint of
;; each source. A command says what it has made by one call of plv-noter-fait; what the sources of a thing are, and how it is made anew,
;; is known by the room suivi, which takes the fingerprints. Facts stand with the profile; those about an entity, as the row of a table or
;; the dimensions of a curve, stand with that, so that they are copied and erased with it.

(setq plv-faits:cle "PLV_SUIVI")

;; --- a fact: what (a word), of what (a text, as the kind of line, and an entity, as the curve; nil for none), the answers that made
;; it (texts), when (Julian date), the sources as (name . fingerprint), and the profile's handle when it was made

(defun plv-fait (chose precision entite reponses) (list chose precision entite reponses))
(defun plv-fait-chose (fait) (car fait))
(defun plv-fait-precision (fait) (cadr fait))
(defun plv-fait-entite (fait) (caddr fait))
(defun plv-fait-reponses (fait) (cadddr fait))
(defun plv-fait-date (fait) (nth 4 fait))
(defun plv-fait-sources (fait) (nth 5 fait))
(defun plv-fait-profil (fait) (nth 6 fait))

(defun plv-fait-genre (fait)
  "The kind of line that it is about: the first word of what it is of, which a file's name may follow."
  (car (plv-couper (plv-fait-precision fait) " ")))

(defun plv-fait-fichier (fait)
  "The file's name after the kind of line."
  (substr (plv-fait-precision fait) (+ 2 (strlen (plv-fait-genre fait)))))

(defun plv-fait-releve (fait date sources profil)
  "A fact with its sources."
  (append (plv-premiers fait 4) (list date sources profil)))

(defun plv-meme-chose-p (a b)
  (and (= (plv-fait-chose a) (plv-fait-chose b)) (= (plv-fait-precision a) (plv-fait-precision b)) (eq (plv-fait-entite a) (plv-fait-entite b))))

;; --- the record: 300 what, 301 of what, 302 an answer, 40 when, 303 a source and 304 its fingerprint, 305 profile

(defun plv-faits:groupes (fait)
  (append
    (list (cons 300 (plv-fait-chose fait)))
    (if (plv-fait-precision fait) (list (cons 301 (plv-fait-precision fait))))
    (mapcar '(lambda (r) (cons 302 r)) (plv-fait-reponses fait))
    (list (cons 40 (plv-fait-date fait)))
    (apply 'append (mapcar '(lambda (s) (list (cons 303 (car s)) (cons 304 (cdr s)))) (plv-fait-sources fait)))
    (list (cons 305 (plv-fait-profil fait)))))

(defun plv-faits:sources (groupes / nom sources)
  (foreach g groupes
    (cond ((= (car g) 303) (setq nom (cdr g)))
          ((and nom (= (car g) 304)) (setq sources (cons (cons nom (cdr g)) sources) nom nil))))
  (reverse sources))

(defun plv-faits:lire (groupes entite)
  "The fact of its groups, 300 first."
  (plv-fait-releve
    (plv-fait (cdar groupes) (plv-cle 301 groupes) entite (plv-cles 302 groupes))
    (cond ((plv-cle 40 groupes)) (0.0)) (plv-faits:sources groupes) (plv-cle 305 groupes)))

(defun plv-faits:de (porteur entite / courant faits)
  "The facts that stand with an entity, oldest first; entite: nil for a profile. Groups before the first 300 belong to nothing."
  (foreach g (plv-enregistrement porteur plv-faits:cle)
    (if (= (car g) 300)
      (setq faits (if courant (cons (plv-faits:lire (reverse courant) entite) faits) faits) courant (list g))
      (if courant (setq courant (cons g courant)))))
  (reverse (if courant (cons (plv-faits:lire (reverse courant) entite) faits) faits)))

(defun plv-faits (profil) (plv-faits:de profil nil))

(defun plv-faits-sur (entite) "The facts about an entity." (plv-faits:de entite entite))

;; --- what the room suivi, which stands above the makers, hangs on to
;; releveur (profile facts): the facts with the fingerprints of their sources; verificateur (profile fact source): whether the source is as
;; it was then; sortie (profiles): told before something goes out of the drawing

(setq plv-faits:branches nil)

(defun plv-brancher (nom fonction) (setq plv-faits:branches (cons (cons nom fonction) plv-faits:branches)))

(defun plv-faits:appeler (nom arguments / fonction)
  (if (setq fonction (plv-cle nom plv-faits:branches)) (apply fonction arguments)))

(defun plv-avant-sortie (profils)
  "Before profiles are plotted on sheets or given to other programs: what isn't true is told, or made anew."
  (plv-faits:appeler 'sortie (list profils)))

;; --- what the room styles, which stands above too, adds to what is drawn; in a drawing without a style the legend of lines

(defun plv-presenter (profil)
  "Draws around a profile what the style wants; the top of it, nil for nothing above the profile."
  (plv-faits:appeler 'presentation (list profil)))

(defun plv-presenter-titre (profil y) "The same above its title." (plv-faits:appeler 'titre (list profil y)))

(defun plv-presenter-ligne (profil genre) "Gives lines that were attached the look of their kind." (plv-faits:appeler 'attachee (list profil genre)))

(defun plv-presenter-lignes (profil) "Tells a profile's lines anew where some have come or gone." (plv-faits:appeler 'lignes (list profil)))

(defun plv-presenter-sans-effacees (profil) "The same after a command that may have erased some." (plv-faits:appeler 'effacees (list profil)))

(defun plv-presenter-tables (profil) "The same of its tables, in place of what was drawn of them." (plv-faits:appeler 'tables (list profil)))

;; --- noting

(defun plv-faits:remplacer (porteur entite nouveaux)
  "Facts take the place of those of the same things."
  (plv-ecrire-enregistrement porteur plv-faits:cle
    (apply 'append
      (mapcar 'plv-faits:groupes
        (append
          (vl-remove-if '(lambda (ancien) (vl-some '(lambda (f) (plv-meme-chose-p ancien f)) nouveaux)) (plv-faits:de porteur entite))
          nouveaux)))))

(defun plv-noter-faits (profil faits)
  "Facts that have just become true."
  (if (setq faits (plv-faits:appeler 'releveur (list profil faits)))
    (foreach entite (plv-uniques (mapcar 'plv-fait-entite faits))
      (plv-faits:remplacer (cond (entite) (profil)) entite
        (vl-remove-if-not '(lambda (f) (eq (plv-fait-entite f) entite)) faits)))))

(defun plv-noter-fait (profil chose precision entite reponses)
  (plv-noter-faits profil (list (plv-fait chose precision entite reponses))))

(defun plv-source-vraie-p (profil fait source)
  "Whether a source is as it was when the fact was noted."
  (plv-faits:appeler 'verificateur (list profil fait source)))

(defun plv-faits:avec-source (fait source empreinte)
  (plv-fait-releve fait (plv-fait-date fait)
    (mapcar '(lambda (s) (if (= (car s) source) (cons source empreinte) s)) (plv-fait-sources fait)) (plv-fait-profil fait)))

(defun plv-renoter-source (profil faits source)
  "One source of facts as it is now; all else stays as it was noted."
  (foreach fait faits
    (plv-faits:remplacer (cond ((plv-fait-entite fait)) (profil)) (plv-fait-entite fait)
      (list
        (plv-faits:avec-source fait source
          (plv-cle source (plv-fait-sources (car (plv-faits:appeler 'releveur (list profil (list fait)))))))))))

;; --- what the room reseaux, which the makers of hatches don't know, draws over them: their colours would make its lines and words pale

(defun plv-hachures-posees (profil) (plv-faits:appeler 'hachures (list profil)))
