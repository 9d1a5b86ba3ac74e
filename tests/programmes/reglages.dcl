reglages : dialog { label = "Réglages"; : edit_box { key = "hauteur"; label = "Hauteur"; } ok_cancel; }
