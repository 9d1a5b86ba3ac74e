;; The front-end: loads the files of its rooms in order. Whoever loads this file puts its folder on the search path first.
;; Files only define functions and tables; nothing is drawn and nothing is asked by loading.

;; For each room its folder, the rooms that its functions may call, and its files in the order of loading.
;; outils/verifier-frontal.py reads this list and holds the files to it.
(setq plv-salles
  '((base ()
     plv-outils plv-lignes plv-questions plv-points plv-enregistrements plv-dessin)
    (terrain (base)
     plv-vraisemblance plv-terrain)
    (profil (base)
     plv-genres plv-plans plv-cadre plv-terrain-profil plv-profil plv-profils plv-appartenance plv-chaines plv-reparer
     plv-reparer-contenu plv-faits plv-habillage plv-terrain-dessine plv-rappels plv-terrains
     plv-elements plv-cotes-mains plv-cotes-posees plv-pentes plv-statiques plv-blocs)
    (portes (base profil)
     plv-cubiques plv-formes plv-formes-coupe plv-formes-ecriture plv-portes plv-remise)
    (plan (base profil portes)
     plv-axe plv-vers-plan)
    (changements (base profil portes)
     plv-pc plv-changer-terrain plv-leve)
    (projet (base profil portes)
     plv-raccords plv-parties plv-trace plv-sommets plv-projet plv-associer)
    (reseaux (base profil plan projet)
     plv-reseau plv-reseau-branches plv-reseau-ligne plv-reseau-dessin plv-reseau-fichier plv-reseau-plan plv-reseau-saisie plv-reseau-questions)
    (tranchees (base profil reseaux)
     plv-tranchees plv-tranchees-rapport plv-tranchees-classeur plv-tranchees-dessin plv-tranchees-coupes plv-tranchees-questions)
    (tableaux (base profil plan reseaux)
     plv-types plv-definitions plv-matrice plv-tables plv-espacement plv-remplissage plv-remplissage-terrain plv-remplissage-projet
     plv-remplissage-terrains plv-remplissage-plan plv-devers plv-remplissage-blocs plv-remplissage-reseau plv-cases plv-matrices plv-ligne-seule)
    (cotes (base profil portes)
     plv-cotes plv-cotes-refaire)
    (gestes (base profil portes cotes)
     plv-report plv-modifier plv-tracer plv-listes)
    (metres (base profil portes)
     plv-metres-troncons plv-metres-classes plv-metres-traces plv-metres-lots plv-metres-controle plv-metres-rapport plv-metres-titres plv-cubpl
     plv-metres-sources plv-metres plv-legende)
    (optimal (base profil projet)
     plv-optimal-bande plv-optimal-rapport plv-optimal plv-optimal-couloir plv-optimal-rangees plv-optimal-contraintes plv-optimal-prix
     plv-optimal-souhait plv-variantes plv-optimal-sommets plv-optimal-cout plv-optimal-questions)
    (echange (base terrain profil plan projet)
     plv-landxml plv-landxml-projet plv-landxml-terrain plv-export)
    (saisie (base profil projet echange)
     plv-nouveau plv-projet-fichier plv-projet-questions)
    (mnt (base profil plan changements tableaux echange saisie)
     plv-mnt-systeme plv-mnt-demande plv-mnt-coupe plv-mnt-profil plv-mnt-plusieurs plv-mnt-observations plv-mnt-actualiser plv-mnt-controle plv-mnt-voir plv-mnt-autres
     plv-mnt-questions)
    (feuilles (base profil tableaux metres)
     plv-encarts plv-feuilles)
    (suivi (base profil plan reseaux tranchees tableaux cotes metres echange feuilles)
     plv-sources plv-choses plv-etat plv-refaire plv-mains plv-actualiser plv-sortie)
    (controle (base profil tableaux echange suivi)
     plv-rapport plv-audit plv-bureau plv-survol)))

(foreach salle plv-salles
  (foreach fichier (cddr salle)
    (load (strcat (strcase (vl-symbol-name (car salle)) T) "/" (strcase (vl-symbol-name fichier) T) ".lsp"))))
(princ)
