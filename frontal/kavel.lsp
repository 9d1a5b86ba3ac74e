;; The front-end: loads its files in order. Whoever loads this file puts its folder on the search path first.
;; Each file only defines functions; nothing is drawn and nothing is asked by loading.
(foreach plv-fichier
  '("base/plv-outils" "base/plv-dessin" "base/plv-lignes" "terrain/plv-terrain" "profil/plv-plans" "profil/plv-profil" "profil/plv-habillage"
    "saisie/plv-nouveau" "tableaux/plv-tables" "tableaux/plv-espacement" "profil/plv-elements" "projet/plv-raccords" "projet/plv-trace" "projet/plv-projet"
    "saisie/plv-projet-fichier" "saisie/plv-projet-questions" "projet/plv-sommets" "echange/plv-echange" "echange/plv-export" "profil/plv-pc" "tableaux/plv-remplissage"
    "tableaux/plv-remplissage-projet" "tableaux/plv-remplissage-plan" "tableaux/plv-remplissage-blocs" "tableaux/plv-matrices"
    "metres/plv-metres-troncons" "metres/plv-metres-rapport" "metres/plv-metres" "optimal/plv-optimal" "optimal/plv-optimal-questions"
    "metres/plv-legende" "cotes/plv-macros" "tableaux/plv-ligne-seule" "plan/plv-vers-plan" "controle/plv-rapport" "controle/plv-audit" "controle/plv-bureau" "feuilles/plv-feuilles")
  (load (strcat plv-fichier ".lsp")))
(setq plv-fichier nil)
(princ)
