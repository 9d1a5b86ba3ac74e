# Hatches moved, turned, mirrored, enlarged and stretched: an independent library must find their boundaries where the
# points of the original go, and draws them by its own reading of arcs and elliptic edges.
# Usage: hatches.py KAVEL
import math
import os
import subprocess
import sys
import tempfile

import ezdxf
from ezdxf.math import Matrix44, Vec3
from ezdxf.path import from_hatch

KAVEL = sys.argv[1]


def polyline(paths):
    paths.add_polyline_path([(1, 1), (9, 1, 0.4), (9, 6, -0.7), (4, 8), (1, 5, 1)])


def closed(paths, add):
    """A loop of one bent edge and the chord that closes it."""
    path = paths.add_edge_path()
    edge = add(path)
    path.add_line(edge.end_point, edge.start_point)


def ellipse(start, end, ccw, major=(4, 0), ratio=0.5):
    return lambda paths: closed(paths, lambda path: path.add_ellipse((10, 20), major, ratio, start, end, ccw))


def arc(start, end, ccw):
    return lambda paths: closed(paths, lambda path: path.add_arc((10, 20), 4, start, end, ccw))


def spline(paths):
    closed(paths, lambda path: path.add_spline(control_points=[(0, 0), (5, 9), (10, -4), (12, 6)], weights=[1, 2, 0.5, 1],
                                               degree=3))


def full(paths):
    paths.add_edge_path().add_ellipse((3, 4), (0, 5), 0.3, 0, 360)
    paths.add_edge_path(flags=16).add_arc((3, 4), 1, 0, 360)


BOUNDARIES = {"polyline": polyline, "spline": spline, "full": full,
              "arc": arc(30, 140, True), "arc back": arc(30, 140, False), "arc over 0": arc(300, 80, True),
              "ellipse": ellipse(30, 140, True), "ellipse back": ellipse(30, 140, False),
              "slanted": ellipse(15, 250, True, (3, 3), 0.3), "slanted back": ellipse(200, 40, False, (-1, 3), 0.7)}

turned = Matrix44.translate(-2, -3, 0) @ Matrix44.z_rotate(math.radians(35)) @ Matrix44.translate(2, 3, 0)
mirrored = Matrix44.z_rotate(-math.atan2(1, 2)) @ Matrix44.scale(1, -1, 1) @ Matrix44.z_rotate(math.atan2(1, 2))
stretched = Matrix44.scale(2, -0.5, 1) @ Matrix44.z_rotate(math.radians(30)) @ Matrix44.translate(7, 1, 0)
CHANGES = {"as it is": ("", Matrix44()),
           "move": ('(command "_MOVE" (entlast) "" "0,0" "30,-12.5")', Matrix44.translate(30, -12.5, 0)),
           "rotate": ('(command "_ROTATE" (entlast) "" "2,3" "35")', turned),
           "scale": ('(command "_SCALE" (entlast) "" "0,0" "2.5")', Matrix44.scale(2.5, 2.5, 2.5)),
           "mirror": ('(command "_MIRROR" (entlast) "" "0,0" "2,1" "_Y")', mirrored),
           "stretch": ('(command "_EXPLODE" (entlast))', stretched)}


def points(hatch):
    return [[p for p in path.flattening(0.005)] for path in from_hatch(hatch)]


def distance(point, path):
    """From a point to the nearest segment of a path."""
    best = math.inf
    for a, b in zip(path, path[1:]):
        along = b - a
        t = 0 if along.magnitude == 0 else max(0, min(1, (point - a).dot(along) / along.magnitude_square))
        best = min(best, point.distance(a + along * t))
    return best


def pattern(hatch):
    """Of its first family of lines: a point, a point further along it, and one on the next line."""
    if not hatch.pattern:
        return []
    line = hatch.pattern.lines[0]
    base = Vec3(line.base_point)
    return [base, base + Vec3.from_deg_angle(line.angle, abs(line.dash_length_items[0])), base + Vec3(line.offset)]


def drawing(folder, boundary, in_block):
    doc = ezdxf.new("R2010")
    space = doc.blocks.new("B") if in_block else doc.modelspace()
    hatch = space.add_hatch(color=1)
    hatch.set_pattern_fill("DASH", definition=[[20, (1, 2), (0.5, 3), [2, -1]]])
    boundary(hatch.paths)
    if in_block:
        doc.modelspace().add_blockref("B", (7, 1), {"xscale": 2, "yscale": -0.5, "rotation": 30})
    source = os.path.join(folder, "avant.dxf")
    doc.saveas(source)
    return source, points(hatch), pattern(hatch)


def changed(source, lisp):
    target = source.replace("avant", "apres")
    command = [KAVEL, source, "--no-frontal", *(["-e", lisp] if lisp else []), "--save", target]
    run = subprocess.run(command, capture_output=True, text=True, timeout=60)
    assert run.returncode == 0, run.stdout + run.stderr
    doc = ezdxf.readfile(target)
    errors = doc.audit().errors
    assert not errors, [e.message for e in errors]
    hatch = doc.modelspace().query("HATCH")[0]
    return points(hatch), pattern(hatch)


def main():
    faults = []
    with tempfile.TemporaryDirectory() as folder:
        for kind, boundary in BOUNDARIES.items():
            for name, (lisp, matrix) in CHANGES.items():
                source, before, lines_before = drawing(folder, boundary, name == "stretch")
                wanted = [[Vec3(matrix.transform(p)) for p in path] for path in before]
                found, lines = changed(source, lisp)
                if not all(Vec3(matrix.transform(p)).isclose(q, abs_tol=1e-6) for p, q in zip(lines_before, lines)):
                    faults.append((kind, name, lines_before, lines))
                assert len(wanted) == len(found), (kind, name)
                for a, b in zip(wanted, found):
                    apart = max(max(distance(p, b) for p in a), max(distance(p, a) for p in b))
                    if apart > 0.02:
                        faults.append((kind, name, apart))
    assert not faults, faults


main()
