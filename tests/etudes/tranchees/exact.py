"""Trenches in exact fractions, by brute force: all straight lines of a section are crossed with each other, and Simpson's rule sums areas
between the crossings. Only pi and lengths along slopes are floats. Nothing here is taken from the program."""
import math
from fractions import Fraction as F

PI = F(math.pi)
NEAR = F(1, 10**9)


def rounded(value):
    """To a nanometre, as depths and widths are compared with limits."""
    return F(round(value * 10**9), 10**9)


class Line:
    """Pieces of points, left to right; two points at a station are a wall."""

    def __init__(self, pieces):
        self.segments = [(a, b) for piece in pieces for a, b in zip(piece, piece[1:]) if b[0] > a[0]]

    def stations(self):
        return {p[0] for s in self.segments for p in s}

    def over(self, x, y):
        """The straight part over the middle of a stretch, as a function; None in a gap."""
        middle = (x + y) / 2
        for (x0, z0), (x1, z1) in self.segments:
            if x0 <= middle <= x1:
                return lambda s, a=z0, b=z1, p=x0, q=x1: a + (b - a) * (s - p) / (q - p)
        return None

    def level(self, x, y):
        """The same, gone on level past the ends."""
        middle, first, last = (x + y) / 2, self.segments[0][0], self.segments[-1][1]
        if middle < first[0]:
            return lambda s: first[1]
        if middle > last[0]:
            return lambda s: last[1]
        return self.over(x, y)


class Sums(dict):
    def add(self, name, value):
        self[name] = self.get(name, 0) + value


class Trenches:
    """case: ground, dug (Line), layers [(name, Line)], manholes, pipes, rules; see cases.py."""

    def __init__(self, case):
        self.case, self.rules = case, case.rules

    def part(self, station):
        for start, end, kind, surface in self.rules.parts:
            if start <= station < end:
                return self.rules.types[kind], self.rules.surfaces[surface] if surface else None
        first = next(iter(self.rules.surfaces), None)
        return next(iter(self.rules.types.values())), self.rules.surfaces[first] if first else None

    def half_pit(self, m):
        return m.outer / 2 + self.part(m.station)[0].margin if m.outer else 0

    def works(self):
        """(name, sums) of all that is dug, left to right."""
        for i, m in enumerate(self.case.manholes):
            if m.outer:
                yield f"regard {m.name}", self.pit(i)
            if i < len(self.case.pipes):
                p, n = self.case.pipes[i], self.case.manholes[i + 1]
                yield f"tuyau {m.name} - {n.name}", self.pipe(p, m, n)

    # --- works

    def pipe(self, p, m, n):
        sums, start, end = Sums(), m.station + self.half_pit(m), n.station - self.half_pit(n)
        slope = (p.z1 - p.z0) / (n.station - m.station)
        invert = lambda s: p.z0 + slope * (s - m.station)
        along = F(math.hypot(float(n.station - m.station), float(p.z1 - p.z0))) / (n.station - m.station)

        def rules(kind):
            bed = (p.bed if p.bed is not None else kind.bed) + kind.below
            base = p.outer + kind.wider(p.inner) if kind.by_diameter else F(0)
            below = (p.outer - p.inner) / 2 + bed
            return base, bed, bed + p.outer + kind.over, lambda s: invert(s) - below

        self.dig(sums, start, end, rules, None)
        pipe = PI * p.outer**2 / 4 * (end - start) * along
        sums["Tuyau"] = pipe
        sums.add("Enrobage", -pipe)
        sums["posée"] = (n.station - m.station - m.outer / 2 - n.outer / 2) * along
        return self.finished(sums)

    def pit(self, i):
        m, sums = self.case.manholes[i], Sums()
        kind, surface = self.part(m.station)
        half = self.half_pit(m)
        bottom = m.bottom - kind.slab - kind.pit_bed
        self.dig(sums, m.station - half, m.station + half, lambda _: (2 * half, kind.pit_bed, kind.pit_bed, lambda s: bottom), (kind, surface))
        area, ground = PI * m.outer**2 / 4, self.ground_on_axis(m, half)
        low = bottom + kind.pit_bed
        high = max(low, min(m.cover, ground))
        sums["Regard"] = area * (high - low)
        above = ground
        for name, thickness, _ in self.hung(kind, surface):
            below = low if thickness is None else max(above_of(ground, self.hung(kind, surface), name), low)
            sums.add(name, -area * max(0, min(above, high) - max(below, low)))
            above = below
        if surface and high >= ground - NEAR:
            sums.add("Surface " + surface.name, -area)
        pipes = 0
        for p, a, b in self.case.pipes_at(i):
            along = F(math.hypot(float(b.station - a.station), float(p.z1 - p.z0))) / (b.station - a.station)
            pipes += PI * p.outer**2 / 4 * kind.margin * along
        sums["Tuyau"] = pipes
        sums.add("Remblai " + kind.fills[-1][0], -pipes)
        return self.finished(sums)

    def ground_on_axis(self, m, half):
        """On the left of a wall."""
        line = self.case.dug
        if m.station <= line.segments[0][0][0]:
            return line.segments[0][0][1]
        for (x0, z0), (x1, z1) in line.segments:
            if x0 < m.station <= x1:
                return z0 + (z1 - z0) * (m.station - x0) / (x1 - x0)
        return line.segments[-1][1][1]

    def hung(self, kind, surface):
        """(column, thickness or None, reused) from the ground down."""
        layers = [(n, t, False) for n, t in surface.layers] if surface else []
        return layers + [("Remblai " + n, t, r) for n, t, r in kind.fills]

    # --- digging

    def dig(self, sums, start, end, rules, fixed):
        edges = {start, end} | {x for line in [self.case.dug] + [l for _, l, _ in self.case.layers] for x in line.stations() if start < x < end}
        edges |= {x for part in self.rules.parts for x in part[:2] if start < x < end}
        edges = sorted(edges)
        for x, y in zip(edges, edges[1:]):
            kind, surface = fixed or self.part((x + y) / 2)
            base, bed, over, bottom = rules(kind)
            ground = self.case.dug.level(x, y)
            layers = [(name, line.over(x, y)) for name, line, _ in self.case.layers]
            lines = [f for _, f in layers if f] + [ground, bottom]
            hanging = F(0)
            for thickness in [F(0)] + [t for _, t, _ in self.hung(kind, surface) if t is not None]:
                hanging += thickness
                lines.append(lambda s, h=hanging: ground(s) - h)
            lines += [lambda s, h=h: bottom(s) + h for h in self.limits(kind, base, bed, over)]
            lines += [lambda s, c=c: ground(s) - c for c in self.rules.classes]
            for a, b in stretches(lines, x, y):
                self.piece(sums, a, b, kind, surface, ground, bottom, base, bed, over, layers)

    def limits(self, kind, base, bed, over):
        h = {bed, over, *self.rules.classes, *(l for l, _ in kind.by_depth if l)}
        if kind.batter:
            h |= {kind.batter[0], kind.batter[2]}
        if kind.shoring:
            h |= {kind.shoring[0], base / kind.shoring[1], *(max(base, w) / kind.shoring[1] for _, w in kind.by_depth)}
        return h

    def piece(self, sums, a, b, kind, surface, ground, bottom, base, bed, over, layers):
        depth = rounded((ground((a + b) / 2) - bottom((a + b) / 2)))
        width = max(base, next(w for l, w in kind.by_depth if l is None or depth <= l)) if kind.by_depth else base
        batter, upright = (kind.batter[1], kind.batter[2]) if kind.batter and depth > kind.batter[0] else (F(0), F(0))
        area = lambda h: width * h + batter * max(0, h - upright)**2

        def volume(low, high):
            """Between two levels, which are functions of the station and height over the bottom."""
            f = lambda s: area(high(s)) - area(low(s))
            return (b - a) * (f(a) + 4 * f((a + b) / 2) + f(b)) / 6

        top = lambda s: ground(s) - bottom(s)
        surround = lambda s: min(over, top(s))
        floor = lambda s: F(0)
        dug = volume(floor, top)
        sums.add("Fouille", dug)
        sums.add("Lit de pose", volume(floor, lambda s: bed))
        sums.add("Enrobage", volume(lambda s: bed, surround))
        above, hanging = top, F(0)
        for name, thickness, _ in self.hung(kind, surface):
            hanging += thickness or 0
            below = surround if thickness is None else (lambda s, h=hanging: max(top(s) - h, surround(s)))
            sums.add(name, volume(below, above))
            above = below
        if surface:
            wide = lambda s: width + 2 * batter * max(0, top(s) - upright)
            sums.add("Surface " + surface.name, (b - a) * (wide(a) + wide(b)) / 2)
        above, name = top, "terre"
        for next_name, f in layers:
            below = (lambda s, f=f, u=above: max(0, min(f(s) - bottom(s), u(s)))) if f else floor
            sums.add("Fouille en " + name, volume(below, above))
            above, name = below, next_name
        sums.add("Fouille en " + name, volume(floor, above))
        for k, (low, high) in enumerate(zip([0, *self.rules.classes], [*self.rules.classes, None])):
            if low < depth and (high is None or depth <= high):
                sums.add(f"Profondeur {k}", dug)
            over_ = lambda s, c=low: max(F(0), top(s) - c)
            under = floor if high is None else (lambda s, c=high: max(F(0), top(s) - c))
            sums.add(f"Tranche {k}", volume(under, over_))
        if kind.shoring and depth > kind.shoring[0] and rounded(width) <= rounded(kind.shoring[1] * depth) and batter < kind.shoring[2]:
            sums.add("Blindage", (b - a) * (top(a) + top(b)))

    def finished(self, sums):
        reused = sum(sums.get("Remblai " + n, 0) for n in self.rules.reused())
        sums["Réemploi"] = reused
        sums["Évacué en place"] = sums["Fouille"] - reused
        bulking = [self.rules.bulking] + [b for _, _, b in self.case.layers]
        names = ["terre"] + [n for n, _, _ in self.case.layers]
        sums["Évacué foisonné"] = sum(b * sums.get("Fouille en " + n, 0) for n, b in zip(names, bulking)) - bulking[0] * reused
        return sums


def above_of(ground, hung, name):
    """The lower side of a hung layer: the ground less all thicknesses down to it."""
    total = 0
    for other, thickness, _ in hung:
        total += thickness or 0
        if other == name:
            return ground - total


def stretches(lines, x, y):
    """Between two stations, the stretches within which no two of the lines cross."""
    ends = [(f(x), f(y)) for f in lines]
    cuts = {x, y}
    for i, (a, b) in enumerate(ends):
        for c, d in ends[:i]:
            u, v = a - c, b - d
            if u * v < 0:
                cuts.add(x + (y - x) * u / (u - v))
    cuts = sorted(cuts)
    return [(a, b) for a, b in zip(cuts, cuts[1:])]
