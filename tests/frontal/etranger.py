#!/usr/bin/env python3
"""A profile that another program wrote, worked on by the front-end and read back: every file version, five kinds of curve.

Usage: etranger.py KAVEL SOURCE. ezdxf writes the drawing from docs/formats.md alone; kavel attaches its curves, changes
the planes, dimensions and fills tables; ezdxf reads what became of it.
"""
import os
import subprocess
import sys
import tempfile

import ezdxf
from ezdxf.lldxf.types import DXFTag

KAVEL, SOURCE = sys.argv[1:3]
faults = []
X0, Y0 = 1000.0, 200.0


def expect(what, found, wanted):
    if found != wanted:
        faults.append(f"{what}: {found!r}, expected {wanted!r}")


def pairs(*items):
    """PLV2_DATA as tags: key, code and value in turns."""
    return [DXFTag(c, v) for key, code, value in items for c, v in ((1000, key), (code, value))]


def write(path, version):
    """Ground at 20 m over 100 m, level but for a rise of 1 m in the second half; one plane at 10 m."""
    drawing = ezdxf.new(version)
    drawing.appids.add("PLV2_DATA")
    drawing.appids.add("KELMONT_PLV2")
    space = drawing.modelspace()
    block = drawing.blocks.new("PLV_PROFIL")
    block.add_attdef("NUMPL", (0, 0))
    drawing.blocks.new("PLV_SUPPORT")
    line = space.add_line((X0, Y0 + 100), (X0 + 50, Y0 + 100))
    rest = space.add_line((X0 + 50, Y0 + 100), (X0 + 100, Y0 + 110))
    line.set_xdata("PLV2_DATA", pairs(("NEXTLI", 1005, rest.dxf.handle)))
    plane = space.add_line((X0, Y0), (X0 + 100, Y0))
    plane.set_xdata("PLV2_DATA", pairs(("DISTANCE", 1040, 100.0), ("PC", 1040, 10.0), ("PRLI", 1005, line.dxf.handle)))
    profile = space.add_blockref("PLV_PROFIL", (X0, Y0))
    profile.add_attrib("NUMPL", "E1", (X0, Y0))
    supports = [(key, 1005, space.add_blockref("PLV_SUPPORT", (X0, Y0)).dxf.handle)
                for key in ("HTN", "HASS", "HVOIRIE", "HAEP", "HGEN", "HTERRA", "HPROJ")]
    profile.set_xdata("PLV2_DATA", pairs(("ECHV", 1040, 10.0), ("TTXT", 1040, 2.0), ("ID", 1070, 4), ("DCUMDEB", 1040, 500.0),
                                         ("LONGUEUR", 1040, 100.0), ("PRPC", 1005, plane.dxf.handle), *supports))
    profile.set_xdata("KELMONT_PLV2", [DXFTag(1040, v) for v in (0.0, 20.0, 50.0, 20.0, 50.0, 21.0)])
    curves = [space.add_line((X0, Y0 + 80), (X0 + 100, Y0 + 85)),
              space.add_lwpolyline([(X0, Y0 + 70), (X0 + 40, Y0 + 72), (X0 + 100, Y0 + 66)]),
              space.add_polyline2d([(X0, Y0 + 60), (X0 + 100, Y0 + 60)]),
              space.add_arc((X0 + 50, Y0 + 20), 20.0, 30, 150), space.add_spline(degree=3)]
    curves[-1].set_open_uniform([(X0, Y0 + 50, 0), (X0 + 30, Y0 + 55, 0), (X0 + 70, Y0 + 45, 0), (X0 + 100, Y0 + 50, 0)])
    mark = space.add_circle((X0 + 75, Y0 + 105), 1.0)
    drawing.saveas(path)
    return [c.dxf.handle for c in curves], mark.dxf.handle


SCRIPT = """(setq p (plv-profil-de-numero "E1") jeu (ssadd))
(foreach h '({handles}) (ssadd (handent h) jeu))
(setq c0 (handent "{line}"))
(plv-projet-existant p "Voirie" jeu)
(pl_elem_ponct p "TN" '(1075.0 300.0 0.0) (handent "{mark}"))
(print (list (pl_yat c0 1020) (length (pl_glp p jeu)) (length (pl_PointsPrjRef p jeu jeu)) (pl_InfosTn p)))
(plv-projet p "AEp" '((500.0 19.0) (540.0 18.0 300.0) (600.0 20.0)))
(plv-pc p "A" 550.0 12.0)
(plv-matrices p "matrices-completes.txt" T)
(setq e (car (plv-elements-du-projet p "Voirie")))
(pl_cotauto p "Voirie" 60.0 0.0)
(list c0 '(1010.0 280.0))

PLV-PC
Supprimer
560
"""


def keys(entity):
    tags = [t for t in entity.get_xdata("PLV2_DATA") if t.code != 1001] if entity.has_xdata("PLV2_DATA") else []
    return {tags[i].value: tags[i + 1].value for i in range(0, len(tags) - 1, 2)}


def record(drawing, handle, name):
    return [(t.code, t.value) for t in drawing.entitydb[handle].get_extension_dict().dictionary[name].tags]


def check(version, folder):
    source, result = os.path.join(folder, "a.dxf"), os.path.join(folder, "b.dxf")
    handles, mark = write(source, version)
    script = os.path.join(folder, "s.scr")
    with open(script, "w", encoding="utf-8") as file:
        file.write(SCRIPT.format(handles=" ".join(f'"{h}"' for h in handles), line=handles[0], mark=mark))
    run = subprocess.run([KAVEL, source, "--script", script, "--save", result, "--audit"], cwd=os.path.join(SOURCE, "exemples"),
                         env=dict(os.environ, KAVEL_FRONTAL=os.path.join(SOURCE, "frontal"), KAVEL_CHEMIN=folder), capture_output=True, text=True)
    if run.returncode:
        faults.append(f"{version}: status {run.returncode}\n{run.stdout[-1500:]}\n{run.stderr[-500:]}")
        return
    drawing = ezdxf.readfile(result)
    audit = drawing.audit()
    faults.extend(f"{version}: {e.message}" for e in list(audit.errors) + list(audit.fixes))
    profile = drawing.modelspace().query('INSERT[name=="PLV_PROFIL"]').first
    data = keys(profile)
    plane = keys(drawing.entitydb[data["PRPC"]])
    expect(f"{version}: the one plane", (plane["DISTANCE"], plane["PC"], "NEXT-PC" in plane), (100.0, 10.0, False))
    listed = [drawing.entitydb[v] for c, v in record(drawing, data["HVOIRIE"], "ELEMS_PROJET_KAVEL") if c == 330]
    # The line stays cut, the rest is complete again; the 2D polyline and the arc have become lightweight ones.
    expect(f"{version}: elements", sorted(e.dxftype() for e in listed), ["LINE", "LINE", "LWPOLYLINE", "LWPOLYLINE", "LWPOLYLINE", "SPLINE"])
    expect(f"{version}: flags", {keys(e).get("ELEMDUPROJET") for e in listed}, {1})
    for element in listed:
        if element.dxftype() == "LINE":
            for point in (element.dxf.start, element.dxf.end):
                if abs(point.y - (Y0 + 80 + 0.05 * (point.x - X0))) > 1e-9:
                    faults.append(f"{version}: the line ends at {point}")
    statics = record(drawing, data["HTN"], "ELEMS_STATIQUES_KAVEL")
    expect(f"{version}: static group", [c for c, _ in statics][:6], [102, 10, 102, 330, 102, 102])
    expect(f"{version}: static element", tuple(drawing.entitydb[mark].dxf.center), (X0 + 75, Y0 + 105, 0.0))
    texts = [t.dxf.text for t in drawing.modelspace().query("TEXT")]
    for wanted in ("18.00", "18.25", "-2.00", "600.00"):
        if wanted not in texts:
            faults.append(f"{version}: no text {wanted}")


def main():
    for version in ("R2000", "R2010", "R2018"):
        with tempfile.TemporaryDirectory() as folder:
            check(version, folder)
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
