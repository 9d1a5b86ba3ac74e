#!/usr/bin/env python3
"""Makes cartouche.dxf, the template that PLV-FEUILLES proposes, and its sisters: a sheet in millimetres with a frame and a title block.

Usage: cartouche.py FILE [A4|A3|A2|A1|A0]. Needs python3-ezdxf. What a template has to hold is told in docs/formats.md.
"""
import sys

import ezdxf

SIZES = {"A4": (297, 210), "A3": (420, 297), "A2": (594, 420), "A1": (841, 594), "A0": (1189, 841)}
# Title block: left edge of each cell, from the right edge of its frame, its caption and its text; on A4 all is smaller.
CELLS = [(400, "Affaire", "<TITRE>", 4.5), (270, "Profil en long", "<PROFIL>", 4.5), (190, "Échelles", "<ECHELLE_H> - <ECHELLE_V>", 3.5),
         (125, "De la station à la station", "<STATIONS>", 3.0), (60, "Date", "<DATE>", 3.0), (30, "Feuille", "<FEUILLE> / <FEUILLES>", 4.5)]
TOP = 36


def rectangle(space, box, layer):
    x1, y1, x2, y2 = box
    space.add_lwpolyline([(x1, y1), (x2, y1), (x2, y2), (x1, y2)], close=True, dxfattribs={"layer": layer})


def text(space, content, point, height, rotation=0.0, centred=False):
    entity = space.add_text(content, dxfattribs={"layer": "CARTOUCHE", "height": height, "rotation": rotation})
    if centred:
        entity.set_placement(point, align=ezdxf.enums.TextEntityAlignment.MIDDLE_CENTER)
    else:
        entity.set_placement(point)


def main():
    width, height = SIZES[sys.argv[2] if len(sys.argv) > 2 else "A3"]
    factor = min(1.0, (width - 20) / 400)
    frame, room = (10, 10, width - 10, height - 10), (22, 48, width - 22, height - 16)
    drawing = ezdxf.new("R2010", setup=False)
    drawing.units = ezdxf.units.MM
    for name, weight, plotted in (("CADRE", 50, True), ("CARTOUCHE", 25, True), ("FEUILLE", 13, False), ("DESSIN", 13, False)):
        layer = drawing.layers.add(name)
        layer.dxf.lineweight, layer.dxf.plot = weight, plotted
    space = drawing.modelspace()
    rectangle(space, (0, 0, width, height), "FEUILLE")
    rectangle(space, room, "DESSIN")
    rectangle(space, frame, "CADRE")
    space.add_line((frame[0], TOP), (frame[2], TOP), dxfattribs={"layer": "CADRE"})
    space.add_line((frame[2] - 400 * factor, frame[1]), (frame[2] - 400 * factor, TOP), dxfattribs={"layer": "CARTOUCHE"})
    for offset, caption, content, size in CELLS:
        left = frame[2] - offset * factor
        if offset < 400:
            space.add_line((left, frame[1]), (left, TOP), dxfattribs={"layer": "CARTOUCHE"})
        text(space, caption, (left + 2 * factor, TOP - 5), 2.2 * factor)
        text(space, content, (left + 2 * factor, frame[1] + 8), size * factor)
    text(space, "<DESSIN>", (frame[2] - 398 * factor, frame[1] + 2), 1.8)
    middle = (room[1] + room[3]) / 2
    text(space, "<RACCORD_GAUCHE>", (frame[0] + 6, middle), 3, 90, centred=True)
    text(space, "<RACCORD_DROITE>", (frame[2] - 6, middle), 3, 90, centred=True)
    # The same bytes each time.
    for variable in ("$TDCREATE", "$TDUPDATE", "$TDUCREATE", "$TDUUPDATE"):
        drawing.header[variable] = 2460000.5
    drawing.header["$FINGERPRINTGUID"] = drawing.header["$VERSIONGUID"] = "{00000000-0000-0000-0000-000000000001}"
    drawing.saveas(sys.argv[1])


if __name__ == "__main__":
    main()
