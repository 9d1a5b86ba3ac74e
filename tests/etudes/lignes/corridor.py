"""Corridors in exact fractions: the doors of a ground and of what is asked, and what a line of vertices does in them.

A door is [station, before, after, passage]; each of these is (low, high), and at a station without a step or a point all are the same.
"""
from fractions import Fraction as F


def altitude(points, d, side):
    """On a line of vertices at a distance; at an upright the side says which end: -1 before it, 1 after it."""
    at = [z for x, z in points if x == d]
    if at:
        return at[0] if side < 0 else at[-1]
    (x1, z1), (x2, z2) = next((a, b) for a, b in zip(points, points[1:]) if a[0] < d < b[0])
    return z1 + (z2 - z1) * (d - x1) / (x2 - x1)


class Asked:
    """What is asked of a line: exact numbers, None for what isn't."""

    def __init__(self, start, end, least, most):
        self.start, self.end, self.least, self.most = start, end, least, most
        self.ends = [None, None]
        self.bands, self.points, self.crossings = [], [], []  # (from, to, least, most); (at, low, high); (from, to, low, high)
        self.slopes, self.length, self.step, self.slope_step = None, F(0), F(0), F(0)

    def band(self, d, side):
        """The depths on one side of a distance; of stretches the last one counts."""
        for a, b, least, most in reversed(self.bands):
            if (a < d < b) or (d == a and side > 0) or (d == b and side < 0):
                return least, most
        return self.least, self.most


def limits(ground, asked, above, d, side):
    side = {asked.start: 1, asked.end: -1}.get(d, side)
    z, (least, most) = altitude(ground, d, side), asked.band(d, side)
    low, high = z - most, z - least
    for (a, b, bottom, top), over in zip(asked.crossings, above):
        if (a < d < b) or (d == a and side > 0) or (d == b and side < 0):
            low, high = (max(low, top), high) if over else (low, min(high, bottom))
    return low, high


def both(p, q):
    return max(p[0], q[0]), min(p[1], q[1])


def doors_of(ground, asked, above=(), wider=F(0)):
    """The doors of the corridor; `above` says of each crossing whether the line passes above it."""
    stations = {asked.start, asked.end} | {x for x, _ in ground} | {x for c in asked.bands + asked.crossings for x in c[:2]}
    stations = sorted(d for d in stations | {p[0] for p in asked.points} if asked.start <= d <= asked.end)
    for a, b in list(zip(stations, stations[1:])):  # where a crossing's altitude meets a limit of the band
        za, zb = altitude(ground, a, 1), altitude(ground, b, -1)
        for depth in asked.band((a + b) / 2, 1):
            stations += [a + (b - a) * (c[i] + depth - za) / (zb - za) for c in asked.crossings for i in (2, 3)
                         if za != zb and 0 < (c[i] + depth - za) / (zb - za) < 1]
    doors = []
    for d in sorted(set(stations)):
        before, after = (limits(ground, asked, above, d, side) for side in (-1, 1))
        passage = both(before, after)
        for at, low, high in asked.points:
            if at == d:
                passage = both(passage, (low, high))
                if before != after and altitude(ground, d, -1) != altitude(ground, d, 1):
                    before, after = both(before, (low, high)), both(after, (low, high))
        doors.append([d, before, after, passage])
    for door, z in zip((doors[0], doors[-1]), asked.ends):
        if z is not None:
            near = door[3][0] - F(1, 10**6) <= z <= door[3][1] + F(1, 10**6)
            door[3] = (z, z) if near else both(door[3], (z, z))
    for door in doors:  # shut by rounding only
        low, high = door[3]
        if 0 < low - high < F(1, 10**9):
            low = high = (low + high) / 2
            door[1:] = [(min(a, low), max(b, high)) for a, b in door[1:3]] + [(low, high)]
    return [[d, *((low - wider, high + wider) for low, high in three)] for d, *three in doors]


def parts(ground, doors):
    """The corridor in parts, cut at walls of the ground that leave no passage."""
    walls = {a[0] for a, b in zip(ground, ground[1:]) if a[0] == b[0]}
    done, now = [], []
    for station, before, after, passage in doors:
        if passage[0] > passage[1] and station in walls and doors[0][0] < station < doors[-1][0]:
            done.append(now + [[station, before, before, before]])
            now = [[station, after, after, after]]
        else:
            now.append([station, before, after, passage])
    return done + [now]


def lacking(doors, slopes):
    """By how much the limits of a part contradict each other at most: 0 when a line exists."""
    worst = max([F(0)] + [passage[0] - passage[1] for _, _, _, passage in doors])
    if slopes is None:
        return worst
    least, most = slopes
    edges = sides(doors)
    for i, (x, low, high) in enumerate(edges):
        for y, low2, high2 in edges[i:]:
            worst = max(worst, low2 - high - most * (y - x), low + least * (y - x) - high2)
    return worst


def sides(doors):
    """All limits, from left to right."""
    done = []
    for i, (d, before, after, passage) in enumerate(doors):
        done += ([(d, *before)] if i else []) + [(d, *passage)] + ([(d, *after)] if i + 1 < len(doors) else [])
    return done


def worst(doors, line):
    """By how much a line leaves a part of the corridor at most."""
    far = F(0)
    for d, _, _, passage in doors:
        z = altitude(line, d, 1)
        far = max(far, passage[0] - z, z - passage[1])
    for d, z in line:
        a, b = next((p, q) for p, q in zip(doors, doors[1:]) if p[0] <= d <= q[0])
        if a[0] < d < b[0]:
            low, high = (a[2][i] + (b[1][i] - a[2][i]) * (d - a[0]) / (b[0] - a[0]) for i in (0, 1))
            far = max(far, low - z, z - high)
    return far


def area(line):
    return sum((b[0] - a[0]) * (a[1] + b[1]) / 2 for a, b in zip(line, line[1:]))
