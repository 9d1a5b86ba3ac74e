#!/usr/bin/python3
"""Leaders, multileaders, multilines, meshes and solids are drawn as another program draws them.

ezdxf writes random ones and tells their lines, arcs, areas and texts; EXPLODE, and for meshes and solids the export to R12, tell ours.
The seed is printed with what differs.
"""
import math
import os
import random
import re
import subprocess
import sys
import tempfile

import ezdxf
from ezdxf.enums import TextEntityAlignment
from ezdxf.math import Vec2, Vec3
from ezdxf.acis import api as acis
from ezdxf.render import MeshBuilder, mleader

KAVEL = sys.argv[1]
NEAR = 0.02  # the other program's arrows are a little narrower


def place(rng):
    return Vec2(rng.uniform(-1000, 1000), rng.uniform(-1000, 1000))


def leader(rng, doc):
    at = place(rng)
    points = [at, at + Vec2(rng.uniform(20, 40), rng.uniform(-40, 40)), at + Vec2(60, rng.uniform(-40, 40))]
    entity = doc.modelspace().add_leader(points, dimstyle="EZDXF", override={"dimasz": 2, "dimldrblk": "", "dimtad": rng.choice((0, 1)), "dimgap": 0.5})
    entity.dxf.text_width = rng.uniform(5, 20)
    entity.dxf.annotation_type = rng.choice((0, 3))
    entity.dxf.has_hookline = rng.choice((0, 1))
    entity.dxf.hookline_direction = rng.choice((0, 1))
    turn = rng.uniform(0, 6)
    entity.dxf.horizontal_direction = Vec3(math.cos(turn), math.sin(turn))
    return entity


def note(rng, doc):
    """A multileader with a text or a numbered bubble."""
    space, at = doc.modelspace(), place(rng)
    if rng.random() < 0.5:
        made = space.add_multileader_mtext("Standard")
        made.set_content("REGARD", char_height=rng.choice((2, 2.5)))
    else:
        bubble = doc.blocks.new("BULLE", base_point=(1, 2))
        bubble.add_circle((1, 2), 3)
        bubble.add_attdef("NUM", (1, 2), dxfattribs={"height": 2}).set_placement((1, 2), align=TextEntityAlignment.MIDDLE_CENTER)
        made = space.add_multileader_block("Standard")
        made.set_content("BULLE", scale=rng.choice((1, 2)))
        made.set_attribute("NUM", rng.choice(("42", "LEADER{")))
    made.set_arrow_properties(size=rng.choice((2, 3)))
    side = rng.choice((mleader.ConnectionSide.left, mleader.ConnectionSide.right))
    for _ in range(rng.randint(1, 3)):
        made.add_leader_line(side, [at + Vec2(rng.uniform(-60, 60), rng.uniform(-60, 60)) for _ in range(rng.randint(1, 2))])
    made.build(insert=at)
    return made.multileader


def multiline(rng, doc):
    style = doc.mline_styles.new("VOIE")
    for offset in sorted(rng.sample((-3, -2, -1, 0, 1, 2.5, 4), rng.randint(2, 4))):
        style.elements.append(offset, rng.randint(1, 6))
    style.dxf.flags = rng.choice((0, 2, 16, 64, 16 + 256, 64 + 1024, 32 + 512, 2 + 16 + 1024))
    at = place(rng)
    points = [at, at + Vec2(40, rng.uniform(-20, 20)), at + Vec2(80, rng.uniform(-20, 20)), at + Vec2(60, 70)]
    line = doc.modelspace().add_mline(points[:rng.randint(2, 4)], dxfattribs={"style_name": "VOIE", "scale_factor": rng.choice((1, 2))})
    if len(line) > 2 and rng.random() < 0.3:
        line.close(True)
    line.update_geometry()
    return line


def flat(p):
    return (round(p.x, 4), round(p.y, 4))


def lines(entities):
    return sorted({tuple(sorted((flat(e.dxf.start), flat(e.dxf.end)))) for e in entities if e.dxftype() == "LINE" and e.dxf.start.distance(e.dxf.end) > 1e-9})


def arcs(entities):
    """Circles and arcs by their middle point and radius: half circles may be told as ellipses."""
    found = []
    for e in entities:
        if e.dxftype() == "ARC":
            half = (e.dxf.end_angle - e.dxf.start_angle) % 360 / 2
            angle = math.radians(e.dxf.start_angle + half)
            found.append((*flat(Vec3(e.dxf.center) + Vec3.from_angle(angle, e.dxf.radius)), round(e.dxf.radius, 4)))
        elif e.dxftype() == "ELLIPSE":
            tool = e.construction_tool()
            middle = next(iter(tool.vertices([tool.start_param + tool.param_span / 2])))
            found.append((*flat(middle), round(tool.major_axis.magnitude, 4)))
        elif e.dxftype() == "CIRCLE":
            found.append((*flat(Vec3(e.dxf.center)), round(e.dxf.radius, 4)))
    return sorted(found)


def corners(entities):
    return sorted(tuple(sorted({flat(Vec3(e.dxf.get(name))) for name in ("vtx0", "vtx1", "vtx2", "vtx3")})) for e in entities if e.dxftype() == "SOLID")


def texts(entities):
    return sorted((flat(Vec3(e.dxf.insert)) if e.dxftype() == "MTEXT" else flat(Vec3(e.get_placement()[1])), e.text if e.dxftype() == "MTEXT" else e.dxf.text)
                  for e in entities if e.dxftype() in ("MTEXT", "TEXT", "ATTRIB"))


def broken(entities):
    """Every reference taken apart."""
    for e in entities:
        if e.dxftype() == "INSERT":
            yield from e.attribs
            yield from broken(e.virtual_entities())
        elif e.dxftype() in ("LWPOLYLINE", "POLYLINE"):
            yield from e.virtual_entities()
        elif e.dxftype() != "ATTDEF":
            yield e


def colours(entities):
    """Those of the elements of a multiline; ends and joints are in two halves."""
    return sorted((tuple(sorted((flat(e.dxf.start), flat(e.dxf.end)))), str(e.dxf.color)) for e in entities if e.dxftype() == "LINE")


def near(a, b):
    def numbers(value):
        if isinstance(value, (tuple, list)):
            for part in value:
                yield from numbers(part)
        else:
            yield value
    a, b = list(numbers(a)), list(numbers(b))
    return len(a) == len(b) and all(x == y if isinstance(x, str) else abs(x - y) < NEAR for x, y in zip(a, b))


def run(*arguments):
    subprocess.run([KAVEL, *arguments], check=True, capture_output=True)


def compare(seed, folder):
    rng = random.Random(seed)
    doc = ezdxf.new("R2010", setup=True)
    entity = rng.choice((leader, note, multiline))(rng, doc)
    theirs = list(broken(entity.virtual_entities()))
    source, exploded = os.path.join(folder, "avant.dxf"), os.path.join(folder, "apres.dxf")
    doc.saveas(source)
    run(source, "--no-frontal", "--quiet", "-e", '(command "_EXPLODE" (ssname (ssget "X") 0))', "--save", exploded)
    ours = list(broken(ezdxf.readfile(exploded).modelspace()))
    for told in (lines, arcs, corners, texts) + ((colours,) if entity.dxftype() == "MLINE" else ()):
        if not near(told(ours), told(theirs)):
            return f"{entity.dxftype()} {told.__name__}\n  {told(ours)}, not\n  {told(theirs)}"
    return None


def mesh(folder):
    """A pyramid: each edge once, also those of two faces."""
    doc = ezdxf.new("R2010")
    with doc.modelspace().add_mesh().edit_data() as data:
        data.vertices = [(0, 0, 0), (10, 0, 0), (10, 10, 0), (0, 10, 0), (5, 5, 5)]
        data.faces = [(0, 1, 4), (1, 2, 4), (2, 3, 4), (3, 0, 4), (0, 1, 2, 3)]
    source, old = os.path.join(folder, "maillage.dxf"), os.path.join(folder, "ancien.dxf")
    doc.saveas(source)
    run(source, "--no-frontal", "--quiet", "--release", "R12", "--save", old)
    ours = lines(broken(ezdxf.readfile(old).modelspace()))
    base = [(0, 0), (10, 0), (10, 10), (0, 10)]
    wanted = sorted([tuple(sorted((p, base[(i + 1) % 4]))) for i, p in enumerate(base)] + [tuple(sorted((p, (5, 5)))) for p in base])
    return None if near(ours, wanted) else f"MESH\n  {ours}, not\n  {wanted}"


def solid(folder, version):
    """A cube's edges, from both forms of its data."""
    doc = ezdxf.new(version)
    cube = MeshBuilder()
    cube.vertices = [Vec3(x, y, z) for z in (0, 3) for x, y in ((0, 0), (4, 1), (5, 5), (1, 4))]
    cube.faces = [(3, 2, 1, 0), (4, 5, 6, 7), (0, 1, 5, 4), (1, 2, 6, 5), (2, 3, 7, 6), (3, 0, 4, 7)]
    acis.export_dxf(doc.modelspace().add_3dsolid(), [acis.body_from_mesh(cube)])
    source, old = os.path.join(folder, "corps.dxf"), os.path.join(folder, "corps12.dxf")
    doc.saveas(source)
    run(source, "--no-frontal", "--quiet", "--release", "R12", "--save", old)
    ours = lines(ezdxf.readfile(old).modelspace())
    wanted = lines(ezdxf.entities.Line.new(dxfattribs={"start": cube.vertices[a], "end": cube.vertices[b]}) for a, b in
                   ((0, 1), (1, 2), (2, 3), (3, 0)))  # seen from above, those of the top lie on those of the bottom
    return None if near(ours, wanted) else f"3DSOLID {version}\n  {ours}, not\n  {wanted}"


def tolerance(folder):
    """Two rows of cells as high as two texts, the first by the middle of its left side on the insertion point."""
    doc = ezdxf.new("R2010", setup=True)
    doc.dimstyles.get("EZDXF").dxf.dimtxt, doc.dimstyles.get("EZDXF").dxf.dimscale = 3, 2
    doc.modelspace().new_entity("TOLERANCE", {"insert": (10, 20), "content": "{\\Fgdt;j}%%v0.1%%vA^J%%v0.25", "dimstyle": "EZDXF", "x_axis_vector": (0, 1, 0)})
    source, old = os.path.join(folder, "tolerance.dxf"), os.path.join(folder, "tolerance12.dxf")
    doc.saveas(source)
    run(source, "--no-frontal", "--quiet", "--release", "R12", "--save", old)
    parts = list(broken(ezdxf.readfile(old).modelspace()))
    ours, said = lines(parts), [e.dxf.text for e in parts if e.dxftype() == "TEXT"]
    # Turned by a quarter: across the rows is x, 6 to either side of 10, then 12 more.
    across, along = ({p[i] for line in ours for p in line} for i in (0, 1))
    if sorted(across) != [4, 16, 28] or min(along) != 20 or said[1:] != ["0.1", "A", "0.25"] or said[0] != "\\U+2316":
        return f"TOLERANCE: {ours} {said}"
    return None


def columns(folder):
    """A text in columns stays one when it is enlarged: its extents grow with it."""
    doc = ezdxf.new("R2018", setup=True)
    doc.modelspace().add_mtext_static_columns(["un", "deux trois quatre cinq", "six"], width=20, gutter_width=5, height=30, dxfattribs={"char_height": 2})
    source = os.path.join(folder, "colonnes.dxf")
    doc.saveas(source)
    ask = "(list (getvar \"EXTMIN\") (getvar \"EXTMAX\"))"
    told = subprocess.run([KAVEL, source, "--no-frontal", "--quiet", "-e", ask, "-e", '(command "_SCALE" (entlast) "" "0,0" 3)', "-e", ask],
                          check=True, capture_output=True, text=True).stdout
    numbers = [float(n) for n in re.findall(r"-?\d+\.\d+", told)]
    before, after = numbers[:6], numbers[-6:]
    if not 51 < before[3] < 60 or not near([3 * n for n in before], after):
        return f"MTEXT in columns: extents {before}, enlarged three times {after}"
    return None


def main():
    with tempfile.TemporaryDirectory() as folder:
        found = [f"seed {seed}: {difference}" for seed in range(40) if (difference := compare(seed, folder))]
        found += [difference for difference in (mesh(folder), solid(folder, "R2000"), solid(folder, "R2018"), columns(folder), tolerance(folder)) if difference]
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
