# Entities without a class of their own, moved, turned, enlarged and mirrored: an independent library that transforms the
# same entities by its own rules must come to the same groups. Copies lie elsewhere and leave the originals alone, and what
# can't be brought along is refused by name before anything is changed.
# Usage: transformees.py KAVEL
import math
import os
import subprocess
import sys
import tempfile

import ezdxf
from ezdxf.lldxf.tagwriter import TagCollector
from ezdxf.math import Matrix44, Vec2, Vec3
from ezdxf.render import mleader

KAVEL = sys.argv[1]


def linear(doc, msp):
    return msp.add_linear_dim(base=(3, 9), p1=(1, 2), p2=(8, 5), angle=20).render().dimension


def aligned(doc, msp):
    return msp.add_aligned_dim(p1=(1, 2), p2=(8, 5), distance=2).render().dimension


def radius(doc, msp):
    return msp.add_radius_dim(center=(4, 5), radius=3, angle=30).render().dimension


def diameter(doc, msp):
    return msp.add_diameter_dim(center=(4, 5), radius=3, angle=30).render().dimension


def three_points(doc, msp):
    return msp.add_angular_dim_3p(base=(9, 9), center=(1, 1), p1=(6, 1), p2=(3, 7)).render().dimension


def two_lines(doc, msp):
    return msp.add_angular_dim_2l(base=(9, 9), line1=((1, 1), (6, 1)), line2=((1, 1), (3, 7))).render().dimension


def leader(doc, msp):
    return msp.add_leader([(1, 2), (5, 6), (9, 6)])


def mline(doc, msp):
    return msp.add_mline([(1, 2), (6, 2), (9, 8)], close=False)


def tolerance(doc, msp):
    return msp.new_entity("TOLERANCE", {"insert": (3, 4), "x_axis_vector": (1, 0, 0), "content": "0.1"})


def image(doc, msp):
    definition = doc.add_image_def("plan.png", (640, 360))
    return msp.add_image(definition, insert=(3, 4), size_in_units=(8, 4.5), rotation=15)


def wipeout(doc, msp):
    return msp.add_wipeout([(1, 1), (7, 2), (5, 8)])


def mesh(doc, msp):
    mesh = msp.add_mesh()
    with mesh.edit_data() as data:
        data.vertices = [(0, 0, 0), (4, 0, 1), (4, 4, 2), (0, 4, 1)]
        data.faces = [(0, 1, 2, 3)]
    return mesh


def polyface(doc, msp):
    face = msp.add_polyface()
    face.append_faces([[(0, 0, 0), (4, 0, 1), (4, 4, 2)]])
    return face


def polymesh(doc, msp):
    grid = msp.add_polymesh((3, 2))
    with grid.mesh_vertex_cache() if hasattr(grid, "mesh_vertex_cache") else _nothing() as _:
        for m in range(3):
            for n in range(2):
                grid.set_mesh_vertex((m, n), (m * 2, n * 3, m + n))
    return grid


class _nothing:
    def __enter__(self):
        return self

    def __exit__(self, *_):
        return False


def multileader(doc, msp):
    builder = msp.add_multileader_mtext("Standard")
    builder.set_content("note", char_height=2)
    builder.add_leader_line(mleader.ConnectionSide.left, [Vec2(-8, -5)])
    builder.build(insert=Vec2(5, 3))
    return builder.multileader


ALL = ("move", "rotate", "scale", "mirror")
KINDS = [(linear, ALL), (aligned, ALL), (radius, ALL), (diameter, ALL), (three_points, ALL), (two_lines, ALL),
         (leader, ALL), (mline, ALL), (tolerance, ALL), (image, ALL), (wipeout, ALL), (mesh, ALL),
         (polyface, ALL), (polymesh, ALL), (multileader, ALL[:3])]

turned = Matrix44.translate(-2, -3, 0) @ Matrix44.z_rotate(math.radians(35)) @ Matrix44.translate(2, 3, 0)
mirrored = Matrix44.z_rotate(-math.atan2(1, 2)) @ Matrix44.scale(1, -1, 1) @ Matrix44.z_rotate(math.atan2(1, 2))
CHANGES = {"move": ('(command "_MOVE" "_ALL" "" "0,0" "30,-12.5")', Matrix44.translate(30, -12.5, 0)),
           "rotate": ('(command "_ROTATE" "_ALL" "" "2,3" "35")', turned),
           "scale": ('(command "_SCALE" "_ALL" "" "0,0" "2.5")', Matrix44.scale(2.5, 2.5, 2.5)),
           "mirror": ('(command "_MIRROR" "_ALL" "" "0,0" "2,1" "_Y")', mirrored)}

# What the two write differently: a normal along z, which one of them always writes; the way in which the elements of
# mirrored multiple lines are counted, which one reverses with the offsets, the other with the mitres.
NORMAL = {210, 220, 230}
NOT_COMPARED = {"DIMENSION": {12, 22, 32, 42}, "MLINE": {13, 23, 33, 41}}


def save(kind, path):
    doc = ezdxf.new("R2010", setup=True)
    kind(doc, doc.modelspace())
    doc.saveas(path)


def seen_from_above(entity, code, value):
    """A number of an entity whose plane is seen from below, as if it were seen from above."""
    if entity.dxftype() != "DIMENSION" or entity.dxf.get("extrusion", Vec3(0, 0, 1)).z > 0:
        return value
    return -value if code in (11, 16) else 180 - value if code == 50 else value


def numbers(entity, scale=1):
    skipped = NORMAL | NOT_COMPARED.get(entity.dxftype(), set())
    # One scales directions too.
    unit = {"LEADER": (211, 221, 231), "TOLERANCE": (11, 21, 31)}.get(entity.dxftype(), ())
    parts = [entity] + list(getattr(entity, "vertices", []) if entity.dxftype() == "POLYLINE" else [])
    return [(code, seen_from_above(entity, code, value) / (scale if code in unit else 1))
            for part in parts for code, value in TagCollector.dxftags(part)
            if isinstance(value, float) and code not in skipped]


def block_points(doc, entity):
    """Ends of the lines of a dimension's block."""
    if entity.dxftype() != "DIMENSION":
        return []
    lines = doc.blocks.get(entity.dxf.geometry).query("LINE")
    return [Vec3(p) for line in lines for p in (line.dxf.start, line.dxf.end)]


def text_of(doc, entity):
    if entity.dxftype() != "DIMENSION":
        return []
    return [m.text for m in doc.blocks.get(entity.dxf.geometry).query("MTEXT")]


def run(source, lisp, target):
    done = subprocess.run([KAVEL, source, "--no-frontal", "--keep-going", "-e", lisp, "--save", target], capture_output=True,
                          text=True, timeout=60)
    return done.returncode, done.stdout + done.stderr


def compare(kind, change, folder, faults):
    source, target = os.path.join(folder, "avant.dxf"), os.path.join(folder, "apres.dxf")
    save(kind, source)
    lisp, matrix = CHANGES[change]
    status, said = run(source, lisp, target)
    where = (kind.__name__, change)
    if status != 0:
        return faults.append((where, said))
    doc, wanted_doc = ezdxf.readfile(target), ezdxf.readfile(source)
    errors = doc.audit().errors
    assert not errors, (where, [e.message for e in errors])
    entity, wanted = doc.modelspace()[0], wanted_doc.modelspace()[0]
    before = block_points(wanted_doc, wanted)
    wanted.transform(matrix)
    found, expected = numbers(entity), numbers(wanted, 2.5 if change == "scale" else 1)
    if [c for c, _ in found] != [c for c, _ in expected]:
        return faults.append((where, "groups", [c for c, _ in found], [c for c, _ in expected]))
    for (code, a), (_, b) in zip(found, expected):
        if abs(a - b) > 1e-6 and not (code == 50 and abs((a - b + 90) % 180 - 90) < 1e-6):
            faults.append((where, code, a, b))
    if not all(a.isclose(b, abs_tol=1e-6) for a, b in zip(block_points(doc, entity), map(matrix.transform, before))):
        faults.append((where, "block"))


def scaled_dimension_tells_its_length(folder, faults):
    source, target = os.path.join(folder, "avant.dxf"), os.path.join(folder, "apres.dxf")
    save(aligned, source)
    before = text_of(ezdxf.readfile(source), ezdxf.readfile(source).modelspace()[0])
    run(source, CHANGES["scale"][0], target)
    doc = ezdxf.readfile(target)
    after = text_of(doc, doc.modelspace()[0])
    # The library's own style writes centimetres of metres.
    length = 100 * math.hypot(7, 3)
    if before != [f"{length:.2f}"] or after != [f"{2.5 * length:.2f}"]:
        faults.append(("scaled dimension", before, after))


def copies_leave_the_original(folder, faults):
    for kind in (linear, leader, multileader):
        source, target = os.path.join(folder, "avant.dxf"), os.path.join(folder, "apres.dxf")
        save(kind, source)
        run(source, '(command "_COPY" "_ALL" "" "0,0" "30,0" "")', target)
        doc, old = ezdxf.readfile(target), ezdxf.readfile(source)
        original, copy = doc.modelspace()
        first = old.modelspace()[0]
        if numbers(original) != numbers(first) or block_points(doc, original) != block_points(old, first):
            faults.append((kind.__name__, "the original changed"))
        shift = Matrix44.translate(30, 0, 0)
        if [Vec3(shift.transform(p)) for p in block_points(old, first)] != block_points(doc, copy):
            faults.append((kind.__name__, "copy", block_points(doc, copy)))


def what_cannot_come_along_is_refused(folder, faults):
    source, target = os.path.join(folder, "avant.dxf"), os.path.join(folder, "apres.dxf")
    doc = ezdxf.new("R2010")
    doc.modelspace().add_line((0, 0), (1, 1))
    doc.modelspace().add_3dsolid().sat = ["400 0 1 0", "4 none 4 none 8 ACIS 4.0 1 none", "25 1e-6 1e-10"]
    handle = doc.modelspace()[1].dxf.handle
    doc.saveas(source)
    for lisp in (CHANGES["move"][0], '(command "_COPY" "_ALL" "" "0,0" "30,0" "")'):
        status, said = run(source, lisp, target)
        line = ezdxf.readfile(target).modelspace()
        if f"3DSOLID ({handle})" not in said or len(line) != 2 or line[0].dxf.start != (0, 0, 0):
            faults.append((lisp, status, said))


def main():
    faults = []
    with tempfile.TemporaryDirectory() as folder:
        for kind, changes in KINDS:
            for change in changes:
                compare(kind, change, folder, faults)
        scaled_dimension_tells_its_length(folder, faults)
        copies_leave_the_original(folder, faults)
        what_cannot_come_along_is_refused(folder, faults)
    assert not faults, "\n".join(map(str, faults))


main()
