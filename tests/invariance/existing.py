"""Curves that are in the drawing already, as other programs leave them: of every kind, drawn either way, mirrored, at an elevation.

Each is drawn in one section of planes; taken into a profile it must give the line that it shows, or be refused in words.
"""
import math
from fractions import Fraction as F

import curves
import sources
from lines import free_stretch
from model import KINDS, Line
from play import Step
from sources import decimal, text
from world import drawn_check

LAYER = "PLV-PROJET"


def place(profile, plane, point):
    """A distance and an altitude as the texts of a point of the drawing."""
    x, y = profile.drawn(*point, plane)
    return exactly(x), exactly(y)


def exactly(value):
    """A fraction as a real of AutoLISP."""
    shown = text(F(round(value * 10**9), 10**9)) if (value * 10**6).denominator != 1 else text(value)
    return shown if "." in shown else shown + ".0"


class Manner:
    """How a curve is drawn."""

    def __init__(self, rng):
        self.back = rng.random() < 0.5      # from right to left
        self.height = rng.choice((0, 0, 5))  # elevation
        self.mirrored = rng.random() < 0.3  # seen from below: abscissas are negative there

    def ordered(self, points):
        return points[::-1] if self.back else points

    def abscissa(self, x):
        return (x[1:] if x[0] == "-" else "-" + x) if self.mirrored else x

    @property
    def normal(self):
        return "(210 0.0 0.0 -1.0)" if self.mirrored else "(210 0.0 0.0 1.0)"


def line(manner, points):
    a, b = manner.ordered(points)
    return f'(entmake \'((0 . "LINE") (8 . "{LAYER}") (10 {a[0]} {a[1]} {manner.height}.0) (11 {b[0]} {b[1]} {manner.height}.0)))'


def light(manner, points, bulges=None):
    vertices = vertices_of(manner, points, bulges)
    return (f'(entmake \'((0 . "LWPOLYLINE") (100 . "AcDbEntity") (8 . "{LAYER}") (100 . "AcDbPolyline") (90 . {len(points)}) (70 . 0) '
            f"(38 . {manner.height}.0) {manner.normal} " + " ".join(f"(10 {x} {y}) (42 . {bulge})" for x, y, bulge in vertices) + "))")


def old(manner, points, bulges=None):
    height = f"{-manner.height if manner.mirrored else manner.height}.0"
    head = f'(entmake \'((0 . "POLYLINE") (8 . "{LAYER}") (66 . 1) (10 0.0 0.0 {height}) (70 . 0) {manner.normal}))'
    rows = [f'(entmake \'((0 . "VERTEX") (8 . "{LAYER}") (10 {x} {y} {height}) (42 . {bulge})))' for x, y, bulge in vertices_of(manner, points, bulges)]
    return "(progn " + " ".join([head, *rows, f'(entmake \'((0 . "SEQEND") (8 . "{LAYER}")))']) + ")"


def vertices_of(manner, points, bulges):
    """(x, y, bulge) in the order of drawing: turned round, or seen from the other side, a bulge changes its sign."""
    bulges = list(bulges or [F(0)] * len(points))
    if manner.back:
        bulges = [-b for b in bulges[:-1]][::-1] + [F(0)]
    if manner.mirrored:
        bulges = [-b for b in bulges]
    return [(manner.abscissa(x), y, exactly(b)) for (x, y), b in zip(manner.ordered(points), bulges)]


def spline(manner, points, degree):
    knots = ["0.0"] * (degree + 1) + ["1.0"] * (degree + 1)
    return (f'(entmake \'((0 . "SPLINE") (100 . "AcDbEntity") (8 . "{LAYER}") (100 . "AcDbSpline") (70 . 8) (71 . {degree}) (72 . {len(knots)}) '
            f"(73 . {len(points)}) (74 . 0) " + " ".join(f"(40 . {k})" for k in knots) + " "
            + " ".join(f"(10 {x} {y} {manner.height}.0)" for x, y in manner.ordered(points)) + "))")


def through(manner, points):
    """A spline that a file gives by fit points only."""
    return (f'(entmake \'((0 . "SPLINE") (100 . "AcDbEntity") (8 . "{LAYER}") (100 . "AcDbSpline") (70 . 8) (71 . 3) (72 . 0) (73 . 0) '
            f"(74 . {len(points)}) " + " ".join(f"(11 {x} {y} {manner.height}.0)" for x, y in manner.ordered(points)) + "))")


# --- what is drawn: (kind, program that draws it, the parts of the line)

def straight_sort(rng, profile, plane, stretch, manner, sort):
    points = sources.straight_line(rng, profile, *stretch)
    if sort == "line":
        points = [points[0], points[-1]]
    draw = {"line": line, "light": light, "old": old}[sort]
    return draw(manner, [place(profile, plane, p) for p in points]), [curves.Straight(points)]


def bezier_sort(rng, profile, plane, stretch, manner, sort):
    degree = 3 if sort == "cubic" else 2
    ends = sources.straight_line(rng, profile, *stretch)
    (a, za), (b, zb) = ends[0], ends[-1]
    ordinates = [za, *[za + (zb - za) * F(i, degree) + decimal(rng, -2, 2, 2) for i in range(1, degree)], zb]
    ordinates = [F(round(z * 100), 100) for z in ordinates]
    points = [(a + (b - a) * F(i, degree), z) for i, z in enumerate(ordinates)]
    return spline(manner, [place(profile, plane, p) for p in points], degree), [curves.polynomial(a, b, ordinates)]


def fit_sort(rng, profile, plane, stretch, manner, sort):
    """Fit points in a straight line: any way of laying a spline through them gives that line."""
    start, end = stretch
    z, p = profile.points[0][1] - decimal(rng, 0, 4, 2), decimal(rng, -0.1, 0.1, 3)
    points = [(d, z + p * (d - start)) for d in (start, *sorted({decimal(rng, float(start) + 1, float(end) - 1, 1) for _ in range(4)}), end)]
    return through(manner, [place(profile, plane, q) for q in points]), [curves.Fitted(points[0], points[-1])]


def arc_sort(rng, profile, plane, stretch, manner, sort):
    """A polyline of a straight piece and an arc of circle."""
    start, end = stretch
    middle = F(round((start + end) * 50), 100)
    points = [(d, profile.points[0][1] - decimal(rng, 0, 4, 2)) for d in (start, middle, end)]
    sagitta = rng.choice((-1, 1)) * decimal(rng, 0.1, float(end - middle) / 8, 2)
    dx, dy = points[2][0] - points[1][0], (points[2][1] - points[1][1]) * profile.scale
    bulge = -2 * sagitta / curves.root(dx * dx + dy * dy)  # an arc that bulges upwards turns to the right
    arc = curves.drawn_arc(points[1], points[2], sagitta, profile.scale)
    draw = light if sort == "light arc" else old
    return draw(manner, [place(profile, plane, q) for q in points], [F(0), bulge, F(0)]), [curves.Straight(points[:2]), arc]


def entity_sort(rng, profile, plane, stretch, manner, sort):
    """An arc of its own, which is always drawn against the clock."""
    a, b = [(d, profile.points[0][1] - decimal(rng, 0, 4, 2)) for d in stretch]
    sagitta = rng.choice((-1, 1)) * decimal(rng, 0.1, float(b[0] - a[0]) / 8, 2)
    x, y, radius, side = curves.drawn_circle(a, b, sagitta, profile.scale)
    ends = [math.atan2(float(z * profile.scale - y), float(d - x)) for d, z in ((b, a) if side > 0 else (a, b))]
    if manner.mirrored:
        ends = [math.pi - angle for angle in reversed(ends)]
    centre = [exactly(v) for v in (profile.x0 + x, profile.y0 - plane * profile.scale + y)]
    height = -manner.height if manner.mirrored else manner.height
    drawn = (f'(entmake \'((0 . "ARC") (100 . "AcDbEntity") (8 . "{LAYER}") (100 . "AcDbCircle") (10 {manner.abscissa(centre[0])} {centre[1]} {height}.0) '
             f'(40 . {float(radius)!r}) {manner.normal} (100 . "AcDbArc") (50 . {ends[0] % math.tau!r}) (51 . {ends[1] % math.tau!r})))')
    return drawn, [curves.drawn_arc(a, b, sagitta, profile.scale)]


SORTS = {"line": straight_sort, "light": straight_sort, "old": straight_sort, "cubic": bezier_sort, "quadratic": bezier_sort,
         "fit points": fit_sort, "light arc": arc_sort, "old arc": arc_sort, "entity arc": entity_sort}
FLAT = ("line", "light", "old")


def in_section(world, profile, stretch):
    """(from, to, plane): the part of a stretch that lies in one section."""
    inside = [(max(a, stretch[0]), min(b, stretch[1]), z) for a, b, z in profile.stretches()]
    inside = [s for s in inside if s[1] - s[0] > 10]
    return world.rng.choice(inside) if inside else None


def existing_curve(world):
    """PLV-PROJET takes a curve that was drawn beforehand."""
    rng = world.rng
    profile, kind = rng.choice(world.active), rng.choice(KINDS)
    stretch = free_stretch(world, profile, kind)
    section = in_section(world, profile, stretch) if stretch else None
    if section is None:
        return None
    sort = rng.choice(FLAT if world.circumstances.release == "R12" else tuple(SORTS))
    manner = Manner(rng)
    drawn, parts = SORTS[sort](rng, profile, section[2], section[:2], manner, sort)
    profile.lines.setdefault(kind, []).append(Line(parts, profile.scale))
    lines = [drawn, "PLV-PROJET", *world.which(profile), kind, "Existante", "(entlast)", ""]
    words = f"{sort}{', back' * manner.back}{', mirrored' * manner.mirrored}{', raised' * (manner.height != 0)}"
    return Step(f"existing curve ({words}) {kind} of {profile.number}", lines, [drawn_check(world)])
