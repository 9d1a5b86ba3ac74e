;; Blocks on `prf`, known ones whole and broken, another one, and a project line.

(setq r (tampon "vardanetampon" 130.0 '(("R" . "R1") ("CT" . "102.5") ("HAUTEUR" . "2") ("LARGEUR" . "1")))
      v (tampon "VardanePLVDGE" 145.5 '(("OBS" . "basse")))
      sans (tampon "VardaneTampon" 150.0 '(("R" . "R2") ("HAUTEUR" . "2") ("LARGEUR" . "1")))
      casse (tampon "VardanePLVDGE" 155.0 '(("obs" . "x")))
      autre (tampon "Autre" 160.0 '(("OBS" . "x")))
      a (tronc 0.0 99.5 100.0 99.5 95.0))
