"""The work as the suite knows it: profiles with ground, planes and project lines, kept beside what the program draws."""
import bisect
import copy
from fractions import Fraction as F

import exact
from curves import Curve

KINDS = ("Voirie", "Assainissement", "AEp", "Terrassements", "Projet", "Generique")  # in the order of the questions
IN_DIALOG = ("Assainissement", "Voirie", "AEp", "Generique", "Terrassements", "Projet")


class Line:
    """A project line of straight and curved parts, left to right. Its points follow the curves closely."""

    def __init__(self, parts, scale=F(1)):
        self.parts = parts
        self.points = [p for i, part in enumerate(parts) for p in part.points[1 if i else 0:]]
        self.curves = [p for p in parts if isinstance(p, Curve)]
        self.chord = max((c.chord(scale) for c in self.curves), default=F(0))  # what commands may miss of an altitude

    @property
    def start(self):
        return self.points[0][0]

    @property
    def end(self):
        return self.points[-1][0]

    def altitude(self, d):
        part = next(p for p in self.parts if d <= p.end)
        return part.altitude(d) if isinstance(part, Curve) else exact.altitude(part.points, d)

    def straight(self):
        return [p.points for p in self.parts if not isinstance(p, Curve)]

    def slopes(self, changes):
        """(from, to, slope): neighbours of one slope are one piece. A curve has its row's values for a slope."""
        pieces = []
        for part in self.parts:
            if isinstance(part, Curve):
                pieces += part.rows(changes)
            else:
                points = exact.simplified(part.points)
                pieces += [(a[0], b[0], (b[1] - a[1]) / (b[0] - a[0])) for a, b in zip(points, points[1:])]
        return pieces


class Profile:
    def __init__(self, number, place, scale, text, first, ground, planes):
        self.number, self.scale, self.text, self.first = number, scale, text, first
        self.x0, self.y0 = F(place[0]), F(place[1])
        self.names = [p[2] for p in ground]
        self.points = [p[:2] for p in ground]
        self.planes = planes        # (start, altitude)
        self.lines = {}             # kind: [Line, ...], left to right
        self.survey = []            # the points of a ground that is attached
        self.blocks = []            # (distance, attributes)
        self.axis = []              # (x, y, bulge) in plan
        self.falls = []             # (distance, left, right), in percent
        self.with_points_at_planes()

    def with_points_at_planes(self):
        """A new profile has a ground point wherever its plane changes."""
        for start, _ in self.planes[1:]:
            distances = [p[0] for p in self.points]
            if start not in distances:
                i = bisect.bisect(distances, start)
                self.points.insert(i, (start, exact.altitude(self.points, start)))
                self.names.insert(i, "")

    def copy(self):
        return copy.deepcopy(self)

    @property
    def length(self):
        return self.points[-1][0]

    def plane(self, d):
        """The altitude of the plane at a distance; a change belongs to the section before it."""
        return [z for start, z in self.planes if start < d or start == 0][-1]

    def stretches(self):
        """(from, to, plane) of each section."""
        ends = [p[0] for p in self.planes[1:]] + [self.length]
        return [(start, end, z) for (start, z), end in zip(self.planes, ends)]

    def drawn(self, d, z, plane=None):
        """The place of a distance and an altitude in the drawing."""
        return self.x0 + d, self.y0 + (z - (self.plane(d) if plane is None else plane)) * self.scale

    def kinds(self):
        """Kinds that have a project line, "Projet" first."""
        order = ("Projet",) + tuple(k for k in KINDS if k != "Projet")
        return [k for k in order if self.lines.get(k)]

    def named_points(self):
        return [(p[0], n) for p, n in zip(self.points, self.names) if n]

    def altitude_of(self, kind, d):
        """Altitude of a project line at a distance, None where it isn't."""
        for line in self.lines[kind]:
            if line.start <= d <= line.end:
                return line.altitude(d)
        return None

    def slopes_of(self, kind):
        return [piece for line in self.lines[kind] for piece in line.slopes([start for start, _ in self.planes[1:]])]
