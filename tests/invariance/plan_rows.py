"""The axis in plan and the cross falls of a profile, and the rows of tables that show them."""
import math
from fractions import Fraction as F

import curves
from play import Step
from sources import decimal, text

BELOW = 3000  # where an axis lies, so far from its profile that nothing of it counts as the profile's


# --- the commands

def axis(world):
    """PLV-AXE with a polyline of straight pieces and arcs, as long as the profile or not."""
    rng = world.rng
    profile = rng.choice(world.active)
    x, y, vertices = profile.x0, profile.y0 - BELOW, []
    while x < profile.x0 + profile.length + rng.randint(-40, 40) or len(vertices) < 2:
        vertices.append((x, y, decimal(rng, -0.6, 0.6, 2) if rng.random() < 0.4 else F(0)))
        x += decimal(rng, 15, 120, 2)
        y += decimal(rng, -60, 60, 2)
    profile.axis = vertices
    groups = " ".join(f"(10 {text_real(a)} {text_real(b)}) (42 . {text_real(bulge)})" for a, b, bulge in vertices)
    drawn = (f'(progn (setq axe (entmakex \'((0 . "LWPOLYLINE") (100 . "AcDbEntity") (8 . "0") (100 . "AcDbPolyline") '
             f"(90 . {len(vertices)}) (70 . 0) {groups}))) (princ))")
    return Step(f"axis of {profile.number}", [drawn, "PLV-AXE", *world.which(profile), "(list axe '(0.0 0.0))"])


def text_real(value):
    shown = text(value)
    return shown if "." in shown else shown + ".0"


def falls(world):
    """PLV-DEVERS with stretches of one fall, others over which a side turns, and an end beside the profile's."""
    rng = world.rng
    profile = rng.choice(world.active)
    d, sides, rows = decimal(rng, -20, 20, 2), None, []
    while d < profile.length + 20:
        if sides is None or rng.random() < 0.5:
            sides = [decimal(rng, -6, 6, rng.choice((1, 2, 3))) for _ in range(2)]
            sides = sides if rng.random() < 0.7 else [sides[0]] * 2
        rows.append((d, *sides))
        d += decimal(rng, 5, 60, 2)
    profile.falls = rows
    file = world.file(" dévers.csv")
    lines = [";".join(map(text, (profile.first + d, left, right))) for d, left, right in rows]
    return Step(f"cross falls of {profile.number}", ["PLV-DEVERS", *world.which(profile), file], files={file: "station;gauche;droite\n" + "\n".join(lines) + "\n"})


# --- what their rows say: (from, to, patterns, values, whether there may be no room)

def segments(vertices):
    """(from, to, radius or None) of each piece, along the axis."""
    result, at = [], F(0)
    for (x1, y1, bulge), (x2, y2, _) in zip(vertices, vertices[1:]):
        chord = curves.root((x2 - x1) ** 2 + (y2 - y1) ** 2)
        radius = chord * (1 + bulge**2) / (4 * abs(bulge)) if bulge else None
        length = F(4 * math.atan(abs(bulge))) * radius if bulge else chord
        result.append((at, at + length, radius))
        at += length
    return result


def axis_texts(profile):
    for start, end, radius in segments(profile.axis):
        if start >= profile.length - F(1, 10**6):
            continue
        values = {"l": (end - start, 2), "r": (radius, 2), "R": (radius, 0)}
        patterns = (r"R=(?P<r>[\d]+\.\d\d) L=(?P<l>[\d.]+)", r"R=(?P<R>\d+)") if radius else (r"Alignement L=(?P<l>[\d.]+)", r"L=(?P<l>[\d.]+)")
        yield start, min(end, profile.length), patterns, values


def between(a, b, d):
    return tuple(u + (v - u) * (d - a[0]) / (b[0] - a[0]) for u, v in zip(a, b))


def falls_texts(profile):
    """One text where both sides fall alike, else one for each; none where a side turns."""
    for a, b in zip(profile.falls, profile.falls[1:]):
        start, end = max(a[0], F(0)), min(b[0], profile.length)
        if end - start <= F(1, 10**6):
            continue
        p, q = between(a, b, start), between(a, b, end)
        if p[1:] != q[1:]:
            continue
        number = r"(?P<v>[-+]?\d+\.\d\d)"
        for prefix, value in ((("", p[1]),) if p[1] == p[2] else (("G ", p[1]), ("D ", p[2]))):
            yield start, end, (prefix + number + " %",), {"v": (value, 2)}
