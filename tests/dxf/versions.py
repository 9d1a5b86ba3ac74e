#!/usr/bin/env python3
"""Drawings of an independent library, saved in older versions and other forms, and read back by that library.

Usage: versions.py KAVEL. What R12 lacks is there in another form or named; R2000 points to nothing that it left out; binary
and ASCII forms as asked, with the bytes of texts; a fragment without a header stays what it is.
"""
import os
import re
import subprocess
import sys
import tempfile

import ezdxf
from ezdxf import bbox
from ezdxf.math import Vec2
from ezdxf.render import ConnectionSide

KAVEL = sys.argv[1]
faults = []


def expect(what, found, wanted):
    if found != wanted:
        faults.append(f"{what}: {found!r}, expected {wanted!r}")


def kavel(*arguments):
    return subprocess.run([KAVEL, "--quiet", *arguments], capture_output=True, text=True)


def rich():
    """One of each kind that R12 lacks, 100 apart, by layer; with what is known of its extent."""
    drawing = ezdxf.new("R2018", setup=True)
    space = drawing.modelspace()
    add = {
        "MTEXT": lambda a: space.add_mtext("Été\\P{\\C1;deux}", dxfattribs={**a, "char_height": 2.5, "insert": (0, 3)}),
        "ELLIPSE": lambda a: space.add_ellipse((110, 5), (8, 0), 0.5, dxfattribs=a),
        "SPLINE": lambda a: space.add_open_spline([(200, 0, 1), (204, 9, 2), (208, -9, 3), (212, 0, 4)], dxfattribs=a),
        "LEADER": lambda a: space.add_leader([(300, 0), (305, 5), (312, 5)], dxfattribs=a),
    }
    for kind, make in add.items():
        drawing.layers.add(kind).off()
        make({"layer": kind})
    # A solid square with a hole, and stripes on half a disc.
    for number, kind in enumerate(("SOLIDE", "HACHURE")):
        drawing.layers.add(kind)
        hatch = space.add_hatch(color=3, dxfattribs={"layer": kind})
        if number:
            hatch.set_pattern_fill("ANSI31", scale=0.5)
            hatch.paths.add_polyline_path([(500, 0, 1), (510, 0)], is_closed=True)
        else:
            hatch.paths.add_polyline_path([(400, 0), (410, 0), (410, 10), (400, 10)], is_closed=True)
            hatch.paths.add_polyline_path([(402, 2), (404, 2), (404, 4), (402, 4)], is_closed=True)
    sheet = drawing.layouts.new("Coupe A-A")
    sheet.add_text("seconde feuille")
    drawing.layout("Layout1").add_text("première")
    line = space.add_line((0, -50), (1, -50))
    line.new_extension_dict().add_xrecord("MON_PROGRAMME").reset([(1, "x")])
    return drawing


def area(solids):
    return sum(0.5 * (abs(s.dxf.vtx1.x - s.dxf.vtx0.x) + abs(s.dxf.vtx3.x - s.dxf.vtx2.x)) * abs(s.dxf.vtx2.y - s.dxf.vtx0.y) for s in solids)


def check_r12(folder):
    source, target = os.path.join(folder, "riche.dxf"), os.path.join(folder, "r12.dxf")
    rich().saveas(source)
    said = kavel(source, "--release", "R12", "--save", target).stderr
    old = ezdxf.readfile(target)
    space = old.modelspace()
    on = {layer: list(space.query(f'*[layer=="{layer}"]')) for layer in ("MTEXT", "ELLIPSE", "SPLINE", "LEADER", "SOLIDE", "HACHURE")}
    expect("kinds", {e.dxftype() for e in space}, {"LINE", "POLYLINE", "SOLID", "TEXT"})
    expect("texts", [(e.dxf.text, e.dxf.height, e.dxf.get("color", 256)) for e in on["MTEXT"]], [("Été", 2.5, 7), ("deux", 2.5, 1)])
    expect("second line below", round(on["MTEXT"][0].dxf.insert.y - on["MTEXT"][1].dxf.insert.y, 3), round(2.5 * 5 / 3, 3))
    expect("ellipse", max(abs(((p.x - 110) / 8) ** 2 + ((p.y - 5) / 4) ** 2 - 1) < 2e-3 for p in on["ELLIPSE"][0].points()), True)
    heights = [p.z for p in on["SPLINE"][0].points()]
    expect("a spline in space", (on["SPLINE"][0].is_3d_polyline, round(heights[0], 6), round(heights[-1], 6)), (True, 1, 4))
    expect("leader", (300.0, 0.0) in [(p.x, p.y) for e in on["LEADER"] if e.dxftype() == "POLYLINE" for p in e.points()], True)
    expect("solid with a hole", round(area(on["SOLIDE"]), 6), 96.0)
    box = bbox.extents(on["HACHURE"])
    expect("stripes", (len(on["HACHURE"]) > 5, box.extmin.x > 499.9, box.extmax.x < 510.1, box.extmin.y > -5.1), (True, True, True, True))
    expect("further sheets", [e.dxf.text for e in old.blocks.get("Coupe_A-A")], ["seconde feuille"])
    for wanted in ("1 ELLIPSE", "2 HATCH", "LAYOUT", "1 MON_PROGRAMME", "bloc Coupe_A-A"):
        expect(f"{wanted} is named", wanted in said, True)


def check_pointers(folder):
    """Things of all kinds that point to a type that R2000 lacks."""
    source, target = os.path.join(folder, "p.dxf"), os.path.join(folder, "r2000.dxf")
    drawing = ezdxf.new("R2018", setup=True)
    space = drawing.modelspace()
    builder = space.add_multileader_mtext("Standard")
    builder.set_content("Note")
    builder.add_leader_line(ConnectionSide.left, [(80, 30)])
    builder.build(Vec2(100, 40))
    note, line = space.query("MULTILEADER")[0], space.add_line((0, 0), (1, 1))
    note.new_extension_dict().add_xrecord("DATA").reset([(330, note.dxf.handle)])
    line.set_reactors([note.dxf.handle])
    drawing.appids.new("APP")
    line.set_xdata("APP", [(1005, note.dxf.handle)])
    drawing.groups.new("G").extend([line, note])
    line.new_extension_dict().add_xrecord("D").reset([(340, note.dxf.handle), (330, line.dxf.handle)])
    space.set_redraw_order([(line.dxf.handle, note.dxf.handle), (note.dxf.handle, line.dxf.handle)])
    drawing.saveas(source)
    expect("status", kavel(source, "--release", "R2000", "--save", target).returncode, 0)
    expect("nothing leads nowhere", kavel(target, "--audit").stdout.strip(), "0 erreurs, 0 réparées, 0 constats")
    old = ezdxf.readfile(target)
    line = old.modelspace().query("LINE")[0]
    expect("pointers", ([t.value for t in line.get_xdata("APP")], [t.value for t in line.get_extension_dict()["D"].tags if t.code in (330, 340)]),
           (["0"], ["0", line.dxf.handle]))


def check_forms(folder):
    """A text with a byte that no code page knows, through binary and back."""
    text, binary, back = (os.path.join(folder, name) for name in ("t.dxf", "b.dxf", "a.dxf"))
    drawing = ezdxf.new("R2000")
    drawing.modelspace().add_text("AVANTxAPRES")
    drawing.saveas(text)
    with open(text, "rb") as file:
        data = file.read().replace(b"AVANTxAPRES", b"AVANT\x81APRES")
    with open(text, "wb") as file:
        file.write(data)
    expect("binary", kavel(text, "--binary", "--save", binary).returncode, 0)
    for arguments, wanted in ((["--ascii"], False), ([], True), (["--release", "R2004"], True), (["--release", "R2004", "--ascii"], False)):
        expect(f"saved with {arguments}", kavel(binary, *arguments, "--save", back).returncode, 0)
        with open(back, "rb") as file:
            data = file.read()
        expect(f"binary with {arguments}", data.startswith(b"AutoCAD Binary DXF"), wanted)
        expect(f"bytes with {arguments}", b"AVANT\x81APRES" in data, True)
    script = os.path.join(folder, "s.scr")
    with open(script, "w", encoding="utf-8") as out:
        out.write(f"SAVEAS\nDXF\n{back}2.dxf\n")
    kavel(binary, "--script", script)
    with open(back + "2.dxf", "rb") as file:
        expect("SAVEAS DXF is ASCII", file.read(3), b"  0")
    expect("both at once", (kavel(text, "--ascii", "--binary", "--save", back).returncode, kavel(text, "--ascii").returncode), (2, 2))


def check_applications(folder):
    """Extended data are found among texts that nobody has looked at yet, in either form."""
    text, binary = (os.path.join(folder, name) for name in ("x.dxf", "y.dxf"))
    drawing = ezdxf.new("R2010")
    drawing.appids.add("APP")
    drawing.appids.add("AUTRE")
    for words, application in (("avec", "APP"), ("1001", None), ("autre", "AUTRE"), ("sans", None), ("aussi", "APP")):
        entity = drawing.modelspace().add_text(words)
        if application:
            entity.set_xdata(application, [(1000, "x")])
    drawing.saveas(text)
    kavel(text, "--binary", "--save", binary)
    for file in (text, binary):
        for pattern, wanted in (("app", "aussi avec"), ("A*", "aussi autre avec"), ("AUCUNE", "nil")):
            found = kavel(file, "-e", f"""(progn (setq s (ssget "X" '((0 . "TEXT") (-3 ("{pattern}")))) i -1)
                (if s (repeat (sslength s) (princ (strcat (if (= i -1) "" " ") (cdr (assoc 1 (entget (ssname s (setq i (1+ i)))))))))
                      (princ "nil")) (princ))""").stdout.strip()
            expect(f"{pattern} in {os.path.basename(file)}", found, wanted)


def check_fragment(folder):
    source, target = os.path.join(folder, "f.dxf"), os.path.join(folder, "g.dxf")
    line = "0\nLINE\n5\n1F\n100\nAcDbEntity\n8\nA\n100\nAcDbLine\n10\n0\n20\n0\n30\n0\n11\n1\n21\n1\n31\n0\n"
    with open(source, "w", encoding="utf-8") as out:
        out.write(f"0\nSECTION\n2\nENTITIES\n{line}0\nENDSEC\n0\nEOF\n")
    expect("a fragment", kavel(source, "--save", target).returncode, 0)
    with open(source, "rb") as before, open(target, "rb") as after:
        expect("stays what it is", after.read(), before.read())
    kavel(source, "-e", '(entmake (list (quote (0 . "CIRCLE")) (quote (10 5.0 5.0 0.0)) (quote (40 . 2.0))))', "--save", target)
    with open(target, encoding="utf-8") as after:
        expect("sections", re.findall(r"SECTION\n +2\n(\w+)|SECTION\n2\n(\w+)", after.read()), [("", "ENTITIES")])
    expect("read back", sorted(e.dxftype() for e in ezdxf.readfile(target).modelspace()), ["CIRCLE", "LINE"])


def main():
    with tempfile.TemporaryDirectory() as folder:
        for check in (check_r12, check_pointers, check_forms, check_applications, check_fragment):
            check(folder)
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
