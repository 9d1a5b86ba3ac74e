"""Lines between manholes: prices, quantities in exact fractions, and the least cost over all levels, run by run."""
import math
from fractions import Fraction as F

from corridor import Asked, altitude, doors_of

TOLERANCE = F(1, 10**9)


class Prices:
    def __init__(self, rng):
        limits = sorted(rng.sample([F(1, 2), F(1), F(13, 10), F(2), F(5, 2)], rng.randint(1, 3)))
        width, price = F(rng.randint(5, 9), 10), F(rng.randint(10, 30))
        self.classes = []
        for limit in limits:
            self.classes.append((F(float(limit)), F(float(width)), price))
            width, price = width + F(rng.randint(0, 4), 10), price + rng.randint(0, 15)
        self.shored = (F(float(rng.choice([F(1), F(13, 10)]))), F(rng.randint(1, 20))) if rng.random() < 0.6 else None
        self.manhole = (F(rng.randint(0, 200)), F(rng.randint(0, 100)))
        self.drop = (F(rng.randint(0, 20)), F(rng.choice([2, 16, 48]), 16)) if rng.random() < 0.6 else None
        self.pump = (F(rng.randint(10, 400)), F(rng.randint(0, 50))) if rng.random() < 0.4 else None

    def rows(self):
        return ([("fouille", *c) for c in self.classes] + [("regard", *self.manhole)] +
                ([("blindage", *self.shored)] if self.shored else []) + ([("chute", *self.drop)] if self.drop else []) +
                ([("pompage", *self.pump)] if self.pump else []))

    def sum(self, q):
        volumes, shoring, count, depth, drops, pumps, lift = q
        total = sum(v * c[2] for v, c in zip(volumes, self.classes)) + count * self.manhole[0] + depth * self.manhole[1]
        total += shoring * self.shored[1] if self.shored else 0
        total += drops * self.drop[0] if self.drop else 0
        return total + (pumps * self.pump[0] + lift * self.pump[1] if self.pump else 0)

    def trench(self, length, d0, d1):
        """Volumes of the classes and shoring of a stretch whose depth goes straight from d0 to d1."""
        cuts = sorted({d0, d1} | {c for c in [F(0), *(k[0] for k in self.classes), *((self.shored[0],) if self.shored else ())]
                                  if min(d0, d1) < c < max(d0, d1)})
        volumes, shoring = [0] * len(self.classes), 0
        for low, high in zip(cuts, cuts[1:]) if len(cuts) > 1 else [(d0, d0)]:
            part, middle = (length * (high - low) / abs(d1 - d0) if high > low else length), (low + high) / 2
            if middle <= TOLERANCE:
                continue
            k = next((i for i, c in enumerate(self.classes[:-1]) if middle <= c[0] + TOLERANCE), len(self.classes) - 1)
            volumes[k] += part * middle * self.classes[k][1]
            if self.shored and middle > self.shored[0] + TOLERANCE:
                shoring += 2 * part * middle
        return volumes, shoring


def flows_right(slopes):
    return slopes is not None and slopes[1] <= 0


def pieces(ground, a, b):
    """The ground between two stations: (from, to, altitude, altitude)."""
    inner = sorted({x for x, _ in ground if a < x < b})
    stops = [a, *inner, b]
    return [(x, y, altitude(ground, x, 1) if x < ground[-1][0] else ground[-1][1], altitude(ground, y, -1)) for x, y in zip(stops, stops[1:])]


def cover(ground, x):
    return max(altitude(ground, x, s) for s in (-1, 1))


def quantities(case, line):
    prices, ground, right = case.prices, case.ground, flows_right(case.asked.slopes)
    volumes, shoring = [F(0)] * len(prices.classes), F(0)
    depth, drops, pumps, lift = F(0), 0, 0, F(0)
    for x, _, come, go in line:
        depth += max(0, cover(ground, x) - min(come, go))
        fall = come - go if right else go - come
        drops += fall > 0
        pumps += fall < 0
        lift += max(0, -fall)
    for (x, _, _, z), (y, _, w, _) in zip(line, line[1:]):
        for a, b, ga, gb in pieces(ground, x, y):
            at = lambda d: z + (w - z) * (d - x) / (y - x)
            v, s = prices.trench(b - a, ga - at(a), gb - at(b))
            volumes = [p + q for p, q in zip(volumes, v)]
            shoring += s
    return volumes, shoring, len(line), depth, drops, pumps, lift


class Search:
    """All lines over the levels of all places of manholes."""

    def __init__(self, case, step):
        self.case, self.step, a = case, step, case.asked
        plain = Asked(a.start, a.end, a.least, a.most)
        plain.bands, plain.points, plain.ends = a.bands, a.points, a.ends
        self.doors = doors_of(case.ground, plain)
        self.places = self.stations()
        self.levels = [self.ladder(x) for x, _ in self.places]

    def stations(self):
        fixed = sorted({self.case.asked.start, self.case.asked.end, *self.case.stations})
        done = [(fixed[0], True)]
        for a, b in zip(fixed, fixed[1:]):
            if self.case.spacing:
                parts = max(1, math.ceil((b - a) / self.case.spacing[1] - TOLERANCE))
                done += [(a + (b - a) * k / parts, False) for k in range(1, parts)]
            done.append((b, True))
        return done

    def door(self, x):
        for p, q in zip(self.doors, self.doors[1:]):
            if p[0] == x:
                return p
            if p[0] < x < q[0]:
                now = tuple(p[2][i] + (q[1][i] - p[2][i]) * (x - p[0]) / (q[0] - p[0]) for i in (0, 1))
                return [x, now, now, now]
        return self.doors[-1]

    def sides(self, x):
        """What a line may come at, and leave at."""
        _, before, after, passage = self.door(x)
        wall = any(a[0] == b[0] == x for a, b in zip(self.case.ground, self.case.ground[1:]))
        return (before, after) if passage[0] > passage[1] and wall else (passage, passage)

    def ladder(self, x):
        low, high = (f(side[i] for side in self.sides(x)) for i, f in ((0, min), (1, max)))
        if low > high:
            return []
        first, last = math.ceil(low / self.step - TOLERANCE), math.floor(high / self.step + TOLERANCE)
        if first > last or high - low <= 2 * TOLERANCE:
            return [(low + high) / 2]
        return [k * self.step for k in range(first, last + 1)]

    def next(self, i):
        """The places that a run may go to: the next one, or one within the spacing, never past one that has to be."""
        for k in range(i + 1, len(self.places)):
            if k > i + 1 and self.places[k][0] - self.places[i][0] > self.case.spacing[0] + TOLERANCE:
                return
            if self.places[k][0] - self.places[i][0] >= self.case.asked.length - TOLERANCE * 1000:
                yield k
            if self.places[k][1]:
                return

    def passes(self, i, k, z, w):
        """What is wrong with a run between two places; nothing for one that passes."""
        a, (x, y) = self.case.asked, (self.places[i][0], self.places[k][0])
        near = TOLERANCE * 10
        if a.slopes and not a.slopes[0] * (y - x) - near <= w - z <= a.slopes[1] * (y - x) + near:
            return "slope"
        at = lambda d: z + (w - z) * (d - x) / (y - x)
        for d, _, _, (low, high) in self.doors:
            if x < d < y and not low - near <= at(d) <= high + near:
                return "depth"
        (_, _, (l0, h0), _), (_, (l1, h1), _, _) = self.door(x), self.door(y)
        if not (l0 - near <= z <= h0 + near and l1 - near <= w <= h1 + near):
            return "depth at a manhole"
        for s, e, low, high in a.crossings:
            over = [at(d) for d in (max(s, x), min(e, y))] if s < y and e > x else []
            if over and max(over) > low + near and min(over) < high - near:
                return "crossing"
        return None

    def node(self, i, come, go):
        """What a manhole costs; None where none can be."""
        p, (x, _) = self.case.prices, self.places[i]
        inside = lambda side, z: side[0] - TOLERANCE <= z <= side[1] + TOLERANCE
        before, after = self.sides(x)
        if not (inside(before, come) and inside(after, go)):
            return None
        cost = p.manhole[0] + p.manhole[1] * max(0, cover(self.case.ground, x) - min(come, go))
        if come == go:
            return cost
        slopes, last = self.case.asked.slopes, len(self.places) - 1
        if slopes is None or not (slopes[1] <= 0 or slopes[0] >= 0) or i in (0, last):
            return None
        if any(s < x < e for s, e, _, _ in self.case.asked.crossings):
            return None
        fall = come - go if flows_right(slopes) else go - come
        if fall > 0:
            return cost + p.drop[0] if p.drop and fall <= p.drop[1] + TOLERANCE else None
        return cost + p.pump[0] + p.pump[1] * -fall if p.pump else None

    def solve(self):
        p, count = self.case.prices, len(self.places)
        arrive = [[math.inf] * len(l) for l in self.levels]
        arrive[0] = [0.0] * len(self.levels[0])
        self.leave = [[math.inf] * len(l) for l in self.levels]
        nodes = [[[self.node(i, c, g) for c in l] for g in l] for i, l in enumerate(self.levels)]
        for i, ladder in enumerate(self.levels):
            for g in range(len(ladder)):
                self.leave[i][g] = min((arrive[i][c] + float(n) for c, n in enumerate(nodes[i][g]) if n is not None), default=math.inf)
            for k in self.next(i):
                ground = pieces(self.case.ground, self.places[i][0], self.places[k][0])
                x, y = self.places[i][0], self.places[k][0]
                for g, z in enumerate(ladder):
                    if self.leave[i][g] == math.inf:
                        continue
                    for c, w in enumerate(self.levels[k]):
                        if self.passes(i, k, z, w):
                            continue
                        cost = F(0)
                        for a, b, ga, gb in ground:
                            v, s = p.trench(b - a, ga - z - (w - z) * (a - x) / (y - x), gb - z - (w - z) * (b - x) / (y - x))
                            cost += sum(q * r[2] for q, r in zip(v, p.classes)) + (s * p.shored[1] if p.shored else 0)
                        arrive[k][c] = min(arrive[k][c], self.leave[i][g] + float(cost))

    def least(self):
        self.solve()
        best = min(self.leave[-1], default=math.inf)
        return None if best == math.inf else best

    def farthest(self):
        return max((self.places[i][0] for i, l in enumerate(self.leave) if any(c < math.inf for c in l)), default=self.places[0][0])

    def kept(self, line, free):
        """What of a line isn't as it was asked; free altitudes needn't be of a level."""
        ranks = [min(range(len(self.places)), key=lambda i: abs(self.places[i][0] - m[0])) for m in line]
        for m, i in zip(line, ranks):
            if abs(self.places[i][0] - m[0]) > TOLERANCE * 1000:
                yield f"a manhole at {float(m[0])}"
            for z in m[2:]:
                if not free and all(abs(z - level) > TOLERANCE * 10 for level in self.levels[i]):
                    yield f"level {float(z)} at {float(m[0])}"
        snap = lambda i, z: z if free else min(self.levels[i], key=lambda level: abs(level - z))
        for m, i in zip(line, ranks):
            if self.node(i, snap(i, m[2]), snap(i, m[3])) is None:
                yield f"no manhole from {float(m[2])} to {float(m[3])} at {float(m[0])}"
        for (m, i), (n, k) in zip(zip(line, ranks), list(zip(line, ranks))[1:]):
            if k not in self.next(i):
                yield f"runs from {float(m[0])} to {float(n[0])}"
            elif wrong := self.passes(i, k, snap(i, m[3]), snap(k, n[2])):
                yield f"{wrong} between {float(m[0])} and {float(n[0])}"
