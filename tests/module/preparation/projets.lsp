;; Supports of the road, of the project and of the ground of `prf`; project lines a and b, one in each section.

(setq rv (reference "PROFIL" "NUMPL" "s" 100.0) rp (reference "PROFIL" "NUMPL" "s" 100.0) rt (reference "PROFIL" "NUMPL" "s" 100.0))
(plsxd prf "HVOIRIE" rv) (plsxd prf "HPROJ" rp) (plsxd prf "HTN" rt)
(setq a (tronc 0.0 99.5 60.0 99.5 95.0) b (tronc 100.0 100.5 150.0 103.5 100.0))
(pl_elem_prj prf "TN" tn1 tn2 tn3)
