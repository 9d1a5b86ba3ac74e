#!/usr/bin/env python3
"""Makes cartouche.dxf, the template that PLV-FEUILLES proposes, and its sisters: a sheet in millimetres with a frame and a title block.

Usage: cartouche.py FILE [A4|A3|A2|A1|A0|R297|R420|R594|R841], R for a roll of that height. Needs python3-ezdxf. What a template has to
hold is told in docs/formats.md.
"""
import sys

import ezdxf

SIZES = {"A4": (297, 210), "A3": (420, 297), "A2": (594, 420), "A1": (841, 594), "A0": (1189, 841),
         "R297": (1260, 297), "R420": (1782, 420), "R594": (2523, 594), "R841": (3568, 841)}
TOP, MIDDLE, BOTTOM = 38, 24, 10
LEAST = 1.8  # height of the lowest text
# Title block, on A4 narrower: of each cell left and right edge from the right edge of the frame, lower and upper edge, caption, text and
# its height.
CELLS = [(262, 172, MIDDLE, TOP, "Maître d'ouvrage", "<CLIENT>", 3.5), (172, 62, MIDDLE, TOP, "Affaire", "<TITRE>", 4.5),
         (62, 0, MIDDLE, TOP, "Profil en long", "<PROFIL>", 4.5), (262, 222, BOTTOM, MIDDLE, "Phase", "<PHASE>", 2.5),
         (222, 182, BOTTOM, MIDDLE, "Échelles", "<ECHELLE_H> - <ECHELLE_V>", 2.5),
         (182, 136, BOTTOM, MIDDLE, "De la station à la station", "<STATIONS>", 2.5),
         (136, 96, BOTTOM, MIDDLE, "Coordonnées", "<COORDONNEES>", 2.5), (96, 62, BOTTOM, MIDDLE, "Altitudes", "<ALTITUDES>", 2.5),
         (62, 38, BOTTOM, MIDDLE, "Date", "<DATE>", 2.5), (38, 24, BOTTOM, MIDDLE, "Indice", "<INDICE>", 3.5),
         (24, 0, BOTTOM, MIDDLE, "Feuille", "<FEUILLE> / <FEUILLES>", 3.5)]
# The table of revisions and who made them: columns from the right edge of the frame, in rows from below.
COLUMNS = [(400, "Ind.", "INDICE"), (390, "Date", "DATE"), (368, "Objet de la révision", "OBJET"), (310, "Établi", "AUTEUR")]
ROWS, ROW = 4, 4.6


def rectangle(space, box, layer):
    x1, y1, x2, y2 = box
    space.add_lwpolyline([(x1, y1), (x2, y1), (x2, y2), (x1, y2)], close=True, dxfattribs={"layer": layer})


def text(space, content, point, height):
    space.add_text(content, dxfattribs={"layer": "CARTOUCHE", "style": "CARTOUCHE", "height": height}).set_placement(point)


def revisions(space, right, factor):
    """Four revisions, the latest one above, and author and checker beneath their captions."""
    def edge(offset):
        return right - offset * factor

    for row in range(ROWS + 1):
        y = TOP - 5 - row * ROW
        space.add_line((edge(400), y), (edge(292), y), dxfattribs={"layer": "CARTOUCHE"})
    for offset, caption, part in COLUMNS:
        if offset < 400:
            space.add_line((edge(offset), TOP - 5 - ROWS * ROW), (edge(offset), TOP), dxfattribs={"layer": "CARTOUCHE"})
        text(space, caption, (edge(offset) + 1, TOP - 3.6), max(LEAST, 2 * factor))
        for row in range(ROWS):
            text(space, f"<REV{row + 1}_{part}>", (edge(offset) + 1, TOP - 5 - (row + 1) * ROW + 1.4), max(LEAST, 2 * factor))
    text(space, "Établi <AUTEUR>   Vérifié <VERIFICATEUR>   <DESSIN>", (edge(400) + 1, BOTTOM + 1.4), LEAST)
    space.add_line((edge(292), BOTTOM), (edge(292), TOP), dxfattribs={"layer": "CARTOUCHE"})


def title_block(space, right, factor):
    for left, end, low, high, caption, content, size in CELLS:
        x = right - left * factor
        rectangle(space, (x, low, right - end * factor, high), "CARTOUCHE")
        text(space, caption, (x + 1.5 * factor, high - 4), max(LEAST, 2 * factor))
        text(space, content, (x + 1.5 * factor, low + 3), max(LEAST, size * factor))


def main():
    width, height = SIZES[sys.argv[2] if len(sys.argv) > 2 else "A3"]
    factor = min(1.0, (width - 20) / 400)
    frame, room = (10, 10, width - 10, height - 10), (22, 48, width - 22, height - 16)
    drawing = ezdxf.new("R2010", setup=False)
    drawing.units = ezdxf.units.MM
    # A face with digits of one width, which other programs have too; elsewhere the usual one stands in for it.
    drawing.styles.add("CARTOUCHE", font="arial.ttf")
    for name, weight, plotted in (("CADRE", 50, True), ("CARTOUCHE", 18, True), ("FEUILLE", 13, False), ("DESSIN", 13, False), ("LOGO", 13, False)):
        layer = drawing.layers.add(name)
        layer.dxf.lineweight, layer.dxf.plot = weight, plotted
    space = drawing.modelspace()
    rectangle(space, (0, 0, width, height), "FEUILLE")
    rectangle(space, room, "DESSIN")
    rectangle(space, frame, "CADRE")
    space.add_line((frame[2] - 400 * factor, TOP), (frame[2], TOP), dxfattribs={"layer": "CADRE"})
    space.add_line((frame[2] - 400 * factor, frame[1]), (frame[2] - 400 * factor, TOP), dxfattribs={"layer": "CADRE"})
    rectangle(space, (frame[2] - 292 * factor + 1.5, BOTTOM + 1.5, frame[2] - 262 * factor - 1.5, TOP - 1.5), "LOGO")
    title_block(space, frame[2], factor)
    revisions(space, frame[2], factor)
    # The same bytes each time.
    for variable in ("$TDCREATE", "$TDUPDATE", "$TDUCREATE", "$TDUUPDATE"):
        drawing.header[variable] = 2460000.5
    drawing.header["$FINGERPRINTGUID"] = drawing.header["$VERSIONGUID"] = "{00000000-0000-0000-0000-000000000001}"
    drawing.saveas(sys.argv[1])


if __name__ == "__main__":
    main()
