;; The front-end: loads the files of its rooms in order. Whoever loads this file puts its folder on the search path first.
;; Files only define functions and tables; nothing is drawn and nothing is asked by loading.

;; For each room its folder, the rooms that its functions may call, and its files in the order of loading.
;; outils/verifier-frontal.py reads this list and holds the files to it.
(setq plv-salles
  '((base ()
     plv-outils plv-lectures plv-lignes plv-questions plv-points plv-enregistrements plv-objets plv-dessin plv-copies-de-calques)
    (terrain (base)
     plv-vraisemblance plv-terrain)
    (profil (base)
     plv-genres plv-plans plv-cadre plv-terrain-profil plv-profil plv-profils plv-appartenance plv-chaines plv-reparer
     plv-reparer-contenu plv-faits plv-habillage plv-sol plv-terrain-dessine plv-rappels plv-terrains plv-niveaux
      plv-elements plv-obstacles plv-cotes-mains plv-poses plv-cotes-posees plv-pentes plv-statiques plv-blocs)
    (fiches (base profil)
     plv-fiches plv-fiches-images)
    (portes (base profil)
     plv-cubiques plv-formes plv-formes-coupe plv-formes-ecriture plv-portes plv-remise)
    (plan (base profil fiches portes)
     plv-axe plv-vers-plan plv-axe-fiche)
    (projet (base profil portes)
     plv-raccords plv-parties plv-trace plv-sommets plv-projet-texte plv-projet plv-reconnaitre plv-associer)
    (reseaux (base profil fiches plan projet)
     plv-reseau plv-reseau-branches plv-reseau-ligne plv-reseau-textes plv-reseau-dessin plv-reseau-fichier plv-reseau-plan plv-reseau-saisie plv-reseau-questions plv-reseau-fiche)
    (tableaux (base profil fiches plan reseaux)
     plv-types plv-types-images plv-definitions plv-modeles plv-matrice plv-tables plv-espacement plv-remplissage plv-remplissage-terrain plv-remplissage-projet
     plv-remplissage-terrains plv-remplissage-plan plv-devers plv-remplissage-blocs plv-remplissage-reseau plv-cases plv-matrices plv-ligne-seule
     plv-devers-fiche plv-matrices-fiche)
    (cotes (base profil fiches portes)
     plv-cotes plv-cotes-refaire plv-cotes-prevues plv-cotes-fiche)
    (gestes (base profil fiches portes projet cotes)
     plv-report plv-modifier plv-tracer plv-listes plv-gestes-fiche plv-menu-fiche)
    (metres (base profil fiches portes)
     plv-metres-troncons plv-metres-classes plv-metres-traces plv-metres-lots plv-metres-controle plv-metres-rapport plv-metres-titres plv-cubpl
     plv-metres-sources plv-metres plv-legende-dessin plv-legende plv-legende-prevue plv-metres-prevus plv-metres-reglees plv-metres-fiche)
    (tranchees (base profil fiches reseaux metres)
     plv-tranchees plv-tranchees-rapport plv-tranchees-classeur plv-tranchees-legende plv-tranchees-dessin plv-tranchees-coupes plv-tranchees-questions plv-tranchees-fiche)
    (optimal (base profil projet fiches)
     plv-optimal-bande plv-optimal-rapport plv-optimal plv-optimal-couloir plv-optimal-rangees plv-optimal-contraintes plv-optimal-prix
     plv-optimal-souhait plv-variantes plv-optimal-sommets plv-optimal-cout plv-optimal-questions plv-optimal-fiche plv-variantes-fiche)
    (ligne (base profil portes projet reseaux optimal)
     plv-ligne plv-ligne-traits plv-rangees plv-corriger plv-parties-de-ligne plv-sommets-table plv-regards-de-ligne plv-table-de-ligne plv-seconde
     plv-sommets-questions)
    (souris (base profil portes projet ligne)
     plv-suivre plv-scene plv-frappe plv-dessiner plv-prises plv-geste plv-tirer-vue plv-tirer)
    (echange (base terrain profil fiches plan projet)
     plv-landxml plv-landxml-projet plv-landxml-terrain plv-landxml-fiche plv-export plv-export-fiche)
    (changements (base profil fiches portes echange)
     plv-pc plv-changer-terrain plv-leve plv-leve-remplacer plv-leve-table plv-pc-fiche plv-leve-fiche)
    (saisie (base profil fiches projet ligne souris echange)
     plv-nouveau plv-nouveau-fiche plv-projet-fichier plv-projet-questions plv-projet-fiche)
    (mnt (base profil fiches plan changements tableaux echange saisie)
     plv-mnt-systeme plv-mnt-demande plv-mnt-coupe plv-mnt-profil plv-mnt-plusieurs plv-mnt-observations plv-mnt-actualiser plv-mnt-controle plv-mnt-voir plv-mnt-autres
     plv-mnt-questions plv-mnt-fiche-mots plv-mnt-fiche)
    (page (base profil fiches metres reseaux)
     plv-json plv-page-tables plv-page plv-page-fiche)
    (feuilles (base profil fiches plan reseaux tableaux metres)
     plv-encarts plv-mentions plv-bords plv-caches plv-cartouche plv-logo plv-bande-plan plv-bande-dessins plv-liste-feuilles plv-equilibre plv-feuilles-place plv-feuilles-mesures
     plv-coupures plv-feuilles plv-feuilles-couleurs plv-feuilles-tracer plv-presentations plv-presentations-faire plv-feuilles-fiche plv-cartouche-fiche)
    (suivi (base profil fiches plan reseaux tranchees tableaux cotes metres echange page feuilles)
     plv-sources plv-sources-metres plv-choses plv-tenues plv-etat plv-refaire plv-mains plv-actualiser plv-sortie plv-suivre-sol plv-etat-fiche)
    (styles (base profil fiches reseaux tableaux metres suivi)
     plv-style-fichier plv-style plv-fond plv-boites plv-libelles plv-libelles-poser plv-legende-lignes plv-cadres plv-presentation plv-style-fiche)
    (ensemble (base profil fiches plan metres)
     plv-ensemble plv-profil-entier plv-profil-fiche)
    (controle (base profil reseaux tableaux ligne souris suivi ensemble)
     plv-rapport plv-audit plv-bureau plv-proprietes plv-bureau-ligne plv-bureau-prises plv-survol plv-suivre-bloc)))

(foreach salle plv-salles
  (foreach fichier (cddr salle)
    (load (strcat (strcase (vl-symbol-name (car salle)) T) "/" (strcase (vl-symbol-name fichier) T) ".lsp"))))
(princ)
