"""Parts of a project line that aren't straight, in fractions: parabolas and cubics exactly, arcs to twenty decimals.

A part is a graph over the distance. Between two of its `points` the straight piece differs from it by less than a hundredth of a
millimetre, which is far less than the chords that the commands measure.
"""
from fractions import Fraction as F
from math import isqrt

PIECES = 300
CHORD = F(1, 1000)  # commands follow a curve by chords that lie no farther off, in the drawing


def root(value):
    """The square root of a fraction, to twenty decimals."""
    scale = 10**40
    return F(isqrt(value.numerator * scale // value.denominator), 10**20)


class Straight:
    radius = None

    def __init__(self, points):
        self.points = points
        self.start, self.end = points[0][0], points[-1][0]


class Curve:
    """A graph between two distances; its radius when it was drawn with one."""

    def __init__(self, start, end, function, radius=None):
        self.start, self.end, self.function, self.radius = start, end, function, radius
        step = (end - start) / PIECES
        places = [start, *[rounded(start + i * step) for i in range(1, PIECES)], end]
        self.points = [(d, rounded(function(d))) for d in places]

    def altitude(self, d):
        return self.function(d)

    def chord(self, scale):
        """How far in altitude a chord of the drawing may lie off the curve: its bound, upright."""
        steepest = max(abs((b[1] - a[1]) / (b[0] - a[0])) for a, b in zip(self.points, self.points[1:])) * scale
        return CHORD * root(1 + steepest**2) / scale + F(1, 10**5)

    def measured_radius(self, start, end):
        """That of the parabola through three of its points, as rows of slopes show it for a curve without a radius."""
        (a, za), (b, zb), (c, zc) = [(d, self.function(d)) for d in (start + (end - start) * F(p, 20) for p in (1, 10, 19))]
        bend = ((zc - zb) / (c - b) - (zb - za) / (b - a)) / (c - a)
        return 1 / abs(2 * bend) if abs(bend) > F(1, 10**8) else None

    def rows(self, changes):
        """(from, to, what a row of slopes says of it). Without a radius of its own each piece between changes of plane is a curve."""
        inside = [] if self.radius else [d for d in changes if self.start < d < self.end]
        places = [self.start, *inside, self.end]
        return [(a, b, self.says(self.radius or self.measured_radius(a, b), b - a)) for a, b in zip(places, places[1:])]

    def says(self, radius, length):
        """Values, decimals and what doubles may lose of them; nothing for what has no radius."""
        return {"r": (radius, 0, radius**2 / length**2 / 10**6), "l": (length, 2, F(1, 10**6))} if radius else {}


class Fitted(Curve):
    """A straight line that is drawn as a curve: rows of slopes show it as one, without a radius."""

    def __init__(self, a, b):
        super().__init__(a[0], b[0], lambda d: a[1] + (b[1] - a[1]) * (d - a[0]) / (b[0] - a[0]))


def rounded(value):
    return F(round(value * 10**15), 10**15)


def parabola(vertex, before, after, radius):
    """Between two slopes at a vertex, of a radius at the crown."""
    half = radius * abs(after - before) / 2
    start, first = vertex[0] - half, vertex[1] - before * half
    bend = (after - before) / (4 * half)
    return Curve(start, vertex[0] + half, lambda d: first + before * (d - start) + bend * (d - start) ** 2, radius)


def circle(vertex, before, after, radius):
    """An arc of circle between two slopes, where heights are not multiplied."""
    one, two = root(1 + before**2), root(1 + after**2)
    half = (one * two - 1 - before * after) / abs(after - before)  # tangent of half the angle between the slopes, right or more too
    start, end = rounded(vertex[0] - radius * half / one), rounded(vertex[0] + radius * half / two)
    side = 1 if after > before else -1
    # The centre stands square to the first slope at its end.
    x, z = start - side * radius * before / one, vertex[1] - before * (vertex[0] - start) + side * radius / one
    return Curve(start, end, lambda d: z - side * root(radius**2 - (d - x) ** 2), radius)


def polynomial(start, end, ordinates):
    """A Bezier curve of evenly spaced control points, whose ordinates are these: degree two or three."""
    def function(d):
        t, values = (d - start) / (end - start), list(ordinates)
        while len(values) > 1:
            values = [a + (b - a) * t for a, b in zip(values, values[1:])]
        return values[0]
    return Curve(start, end, function)


def drawn_circle(a, b, sagitta, scale):
    """(x, y, radius, side) of the circle of drawn_arc in the drawing, from the profile's own corner; side 1 for an arc that bulges upwards."""
    (x1, z1), (x2, z2) = (a[0], a[1] * scale), (b[0], b[1] * scale)
    dx, dy = x2 - x1, z2 - z1
    chord = dx * dx + dy * dy
    side = 1 if sagitta > 0 else -1
    height = abs(sagitta)
    radius = (chord / 4 + height**2) / (2 * height)
    # From the middle of the chord to the centre, square to the chord, downwards for an arc that bulges upwards.
    reach = (radius - height) / root(chord)
    return (x1 + x2) / 2 + side * dy * reach, (z1 + z2) / 2 - side * dx * reach, radius, side


def drawn_arc(a, b, sagitta, scale):
    """An arc of circle of the drawing, where heights are multiplied: from a to b, bulging upwards by the sagitta there."""
    x, y, radius, side = drawn_circle(a, b, sagitta, scale)
    return Curve(a[0], b[0], lambda d: (y + side * root(radius**2 - (d - x) ** 2)) / scale)
