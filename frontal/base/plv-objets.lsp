;; What users call the kinds of objects.

(setq plv-objets:noms
  '(("LINE" . "Ligne") ("LWPOLYLINE" . "Polyligne") ("POLYLINE" . "Polyligne") ("SPLINE" . "Spline") ("CIRCLE" . "Cercle") ("ARC" . "Arc")
    ("ELLIPSE" . "Ellipse") ("POINT" . "Point") ("RAY" . "Demi-droite") ("XLINE" . "Droite") ("MLINE" . "Multiligne") ("HELIX" . "Hélice")
    ("TEXT" . "Texte") ("MTEXT" . "Texte multiligne") ("ATTRIB" . "Attribut") ("ATTDEF" . "Définition d'attribut") ("INSERT" . "Bloc inséré")
    ("HATCH" . "Hachure") ("SOLID" . "Solide") ("TRACE" . "Trace") ("3DFACE" . "Face 3D") ("MESH" . "Maillage") ("SHAPE" . "Forme")
    ("DIMENSION" . "Cote") ("ARC_DIMENSION" . "Cote d'arc") ("LARGE_RADIAL_DIMENSION" . "Cote de rayon") ("TOLERANCE" . "Tolérance")
    ("LEADER" . "Repère") ("MULTILEADER" . "Repère multiple") ("ACAD_TABLE" . "Tableau") ("VIEWPORT" . "Fenêtre") ("IMAGE" . "Image")
    ("WIPEOUT" . "Masque") ("PDFUNDERLAY" . "Fond PDF") ("DWFUNDERLAY" . "Fond DWF") ("DGNUNDERLAY" . "Fond DGN") ("OLE2FRAME" . "Objet OLE")
    ("REGION" . "Région") ("BODY" . "Corps") ("3DSOLID" . "Solide 3D") ("SURFACE" . "Surface")))

(defun plv-nom-de-type (genre) (cond ((plv-cle genre plv-objets:noms)) (genre)))
