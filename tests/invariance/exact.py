"""The suite's own computation, in fractions: altitudes, spacing, depths, trench sections, sums by class.

A line is a list of points (distance, altitude), left to right; a depth is the ground's altitude less the line's.
Nothing here knows the program: the rules are those of docs/formats.md and of the guide.
"""
import bisect
import itertools
from fractions import Fraction as F
from typing import NamedTuple

ON_LIMIT = F(1, 10**8)  # a depth this near to a limit of a class is on it


def interpolate(a, b, d):
    return a[1] + (b[1] - a[1]) * (d - a[0]) / (b[0] - a[0])


def altitude(points, d):
    """Altitude of a line at a distance; None where the line isn't. At a wall, the mean of its two points."""
    here = [z for x, z in points if x == d]
    if here:
        return (here[0] + here[-1]) / 2
    for a, b in zip(points, points[1:]):
        if a[0] < d < b[0]:
            return interpolate(a, b, d)
    return None


def spaced(items, gap, key=lambda item: item):
    """Items no closer than the gap, both ends kept, each taken as early as it may be. The gap forgives a nanometre."""
    gap -= F(1, 10**9)
    kept, last = [0], len(items) - 1
    for i in range(1, len(items)):
        if key(items[i]) - key(items[kept[-1]]) >= gap and (i == last or key(items[last]) - key(items[i]) >= gap):
            kept.append(i)
    if kept[-1] != last:
        kept.append(last)
    return [items[i] for i in kept]


def leaned(points):
    """A wall as it is drawn: it leans by a micrometre."""
    result = list(points[:1])
    for d, z in points[1:]:
        result.append((max(d, result[-1][0] + F(1, 10**6)), z))
    return result


def simplified(points):
    """The line without the points that lie straight between their neighbours."""
    kept = list(points[:1])
    for p, after in zip(points[1:], points[2:] + [None]):
        if after is None or interpolate(kept[-1], after, p[0]) != p[1]:
            kept.append(p)
    return kept


# --- depth classes: (limits from 0 upwards, a width for each class). Class 0 isn't buried, the last one is deeper than all.

class Classes(NamedTuple):
    limits: tuple  # lower limit of class 1, upper limit of class 1, of class 2 ...
    widths: tuple
    colours: tuple

    def of(self, depth):
        """Open below, closed above."""
        for number, limit in enumerate(self.limits):
            if depth <= limit:
                return number
        return len(self.limits)

    def width(self, number):
        """What is deeper than all classes is as wide as the last one."""
        return F(0) if number == 0 else self.widths[min(number, len(self.widths)) - 1]

    def colour(self, number):
        return self.colours[number - 1] if 1 <= number <= len(self.colours) else 7

    def bounds(self, number):
        low = self.limits[number - 1] if number else F(-10**9)
        high = self.limits[number] if number < len(self.limits) else F(10**9)
        return low, high


class Slice(NamedTuple):
    """A stretch in which the depth goes straight and stays in a class."""
    start: F
    end: F
    depth1: F
    depth2: F
    number: int

    @property
    def length(self):
        return self.end - self.start

    @property
    def surface(self):
        return abs(self.depth1 + self.depth2) * self.length / 2


def depths(ground, line):
    """(from, to, depth from, depth to) wherever both lines are; a wall has no extent."""
    pieces = []
    g = [(a, b) for a, b in zip(ground, ground[1:]) if a[0] < b[0]]
    p = [(a, b) for a, b in zip(line, line[1:]) if a[0] < b[0]]
    i = j = 0
    while i < len(g) and j < len(p):
        start, end = max(g[i][0][0], p[j][0][0]), min(g[i][1][0], p[j][1][0])
        if start < end:
            pieces.append((start, end, interpolate(*g[i], start) - interpolate(*p[j], start),
                           interpolate(*g[i], end) - interpolate(*p[j], end)))
        if g[i][1][0] <= p[j][1][0]:
            i += 1
        else:
            j += 1
    return pieces


def class_of_piece(classes, depth1, depth2):
    for number, limit in enumerate(classes.limits):
        if abs(depth1 - limit) <= ON_LIMIT and abs(depth2 - limit) <= ON_LIMIT:
            return number
    return classes.of((depth1 + depth2) / 2)


def slices(pieces, classes):
    """The stretches between two lines, pieces as depths() gives them, cut where the depth passes a limit."""
    result = []
    for start, end, d1, d2 in pieces:
        cuts = [start + (end - start) * (l - d1) / (d2 - d1) for l in classes.limits if (d1 - l) * (d2 - l) < 0]
        places = [start, *sorted(cuts), end]
        at = lambda x: d1 + (d2 - d1) * (x - start) / (end - start)
        for a, b in zip(places, places[1:]):
            result.append(Slice(a, b, at(a), at(b), class_of_piece(classes, at(a), at(b))))
    return result


class Section(NamedTuple):
    start: F
    end: F
    number: int
    surface: F

    @property
    def length(self):
        return self.end - self.start


def sections(parts):
    """Neighbouring stretches of one class together."""
    result = []
    for s in parts:
        if result and result[-1].number == s.number and abs(result[-1].end - s.start) <= F(1, 10**5):
            result[-1] = result[-1]._replace(end=s.end, surface=result[-1].surface + s.surface)
        else:
            result.append(Section(s.start, s.end, s.number, s.surface))
    return result


def over(pieces, start, end):
    """The pieces of depths() over a stretch, cut at its ends."""
    first = max(0, bisect.bisect_right(pieces, start, key=lambda p: p[0]) - 1)
    for a, b, d1, d2 in itertools.islice(pieces, first, None):
        if a >= end:
            return
        u, v = max(a, start), min(b, end)
        if u < v:
            at = lambda x: d1 if x == a else d2 if x == b else d1 + (d2 - d1) * (x - a) / (b - a)
            yield u, v, at(u), at(v)


def surface_between(pieces, start, end):
    """The area between two lines over a stretch, signs left out."""
    total = F(0)
    for u, v, e1, e2 in over(pieces, start, end):
        if e1 * e2 < 0:
            total += (v - u) * (e1 * e1 + e2 * e2) / (2 * (abs(e1) + abs(e2)))
        else:
            total += (v - u) * abs(e1 + e2) / 2
    return total


def depth_range(pieces, start, end):
    """Least and greatest depth over a stretch; nothing where the lines aren't."""
    seen = [d for _, _, e1, e2 in over(pieces, start, end) for d in (e1, e2)]
    return (min(seen), max(seen)) if seen else (None, None)


class ClassSum(NamedTuple):
    number: int
    length: F
    surface: F
    volume: F


def class_sums(parts, classes):
    """For each class its length, surface and volume; stretches too short to be shown are left out."""
    sums = []
    for number in sorted({s.number for s in parts if s.length > F(1, 10**5)}):
        own = [s for s in parts if s.number == number]
        surface = sum((s.surface for s in own), F(0))
        sums.append(ClassSum(number, sum((s.length for s in own), F(0)), surface, surface * classes.width(number)))
    return sums
