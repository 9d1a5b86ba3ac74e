;; The front-end: loads its files in order. Whoever loads this file puts its folder on the search path first.
;; Each file only defines functions; nothing is drawn and nothing is asked by loading.
(foreach plv-fichier
  '("plv-outils" "plv-dessin" "plv-lignes" "plv-terrain" "plv-plans" "plv-profil" "plv-habillage"
    "plv-nouveau" "plv-tables" "plv-espacement" "plv-elements" "plv-raccords" "plv-trace" "plv-projet"
    "plv-projet-fichier" "plv-projet-questions" "plv-sommets" "plv-echange" "plv-export" "plv-pc" "plv-remplissage"
    "plv-remplissage-projet" "plv-remplissage-plan" "plv-remplissage-blocs" "plv-matrices"
    "plv-metres-troncons" "plv-metres-rapport" "plv-metres" "plv-optimal" "plv-optimal-questions"
    "plv-legende" "plv-macros" "plv-ligne-seule" "plv-vers-plan" "plv-rapport" "plv-audit" "plv-bureau" "plv-feuilles")
  (load (strcat plv-fichier ".lsp")))
(setq plv-fichier nil)
(princ)
