;; The front-end: loads its files in order. Whoever loads this file puts its folder on the search path first.
;; Each file only defines functions; nothing is drawn and nothing is asked by loading.
(foreach plv-fichier
  '("plv-outils" "plv-dessin" "plv-lignes" "plv-terrain" "plv-plans" "plv-profil" "plv-habillage"
    "plv-nouveau" "plv-tables" "plv-espacement" "plv-remplissage" "plv-matrices" "plv-rapport" "plv-audit")
  (load (strcat plv-fichier ".lsp")))
(setq plv-fichier nil)
(princ)
