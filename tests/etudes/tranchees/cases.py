"""Random networks with their grounds, layers and rules, as fractions of what the files say."""
from fractions import Fraction as F


def decimal(rng, low, high, places=2):
    return F(rng.randint(round(low * 10**places), round(high * 10**places)), 10**places)


def text(value):
    """A fraction with at most nine decimals."""
    sign, digits = ("-" if value < 0 else ""), f"{abs(value) * 10**9 // 1:010d}"
    return (sign + digits[:-9] + "." + digits[-9:]).rstrip("0").rstrip(".")


class Type:
    def __init__(self, rng, name):
        self.name = name
        self.by_diameter = sorted((F(d), decimal(rng, 0.4, 0.9)) for d in rng.sample([225, 350, 700], rng.randint(0, 2))) + [(None, decimal(rng, 0.4, 1))]
        limits = sorted(rng.sample([F(1), F("1.3"), F("1.75"), F("2.4"), F(4)], rng.randint(0, 3)))
        self.by_depth = [(l, decimal(rng, 0, 1.5)) for l in limits] + [(None, decimal(rng, 0.6, 1.6))] if rng.random() < 0.8 else []
        if self.by_depth and rng.random() < 0.2:
            self.by_diameter = []
            self.by_depth = [(l, max(w, F(2))) for l, w in self.by_depth]
        self.bed, self.below = decimal(rng, 0, 0.2), rng.choice([F(0), decimal(rng, 0, 0.3)])
        self.over = decimal(rng, 0, 0.4)
        self.batter = (decimal(rng, 0, 2), decimal(rng, 0.1, 1.2), rng.choice([F(0), decimal(rng, 0, 1)])) if rng.random() < 0.4 else None
        self.shoring = (decimal(rng, 1, 2), F(rng.choice(["0.5", "0.75", "1"])), decimal(rng, 0.1, 0.6)) if rng.random() < 0.7 else None
        names = rng.sample(["grave", "sable", "tout-venant"], rng.randint(0, 2))
        self.fills = [(n, decimal(rng, 0.05, 0.6), False) for n in names] + [("déblais", None, True)]
        self.margin, self.pit_bed, self.slab = decimal(rng, 0.1, 0.8), decimal(rng, 0, 0.2), decimal(rng, 0, 0.25)

    def wider(self, inner):
        return next(w for l, w in self.by_diameter if l is None or inner * 1000 <= l)

    def rows(self):
        rows = [f"type;{self.name}"] + [f"largeur;{text(l) if l else ''};{text(w)}" for l, w in self.by_diameter]
        rows += [f"profondeur;{text(l) if l else ''};{text(w)}" for l, w in self.by_depth]
        rows += [f"lit;{text(self.bed)};{text(self.below)}", f"enrobage;{text(self.over)}", f"regard;{text(self.margin)};{text(self.pit_bed)};{text(self.slab)}"]
        rows += ["talus;" + ";".join(map(text, self.batter))] if self.batter else []
        rows += ["blindage;" + ";".join(map(text, self.shoring))] if self.shoring else []
        return rows + [f"remblai;{n};{text(t) if t else ''};{'réemploi' if r else ''}" for n, t, r in self.fills]


class Surface:
    def __init__(self, rng, name):
        self.name, self.layers = name, [(n, decimal(rng, 0.03, 0.3)) for n in rng.sample(["enrobés", "béton", "terre végétale"], rng.randint(1, 2))]

    def rows(self):
        return [f"revêtement;{self.name}"] + [f"structure;{n};{text(t)}" for n, t in self.layers]


class Rules:
    def __init__(self, rng, start, end, layers):
        self.bulking = decimal(rng, 1, 1.5)
        self.classes = sorted(rng.sample([F("0.8"), F("1.3"), F(2), F("2.5"), F(3)], rng.randint(0, 4)))
        self.types = {n: Type(rng, n) for n in ["A", "B", "C"][:rng.randint(1, 3)]}
        self.surfaces = {n: Surface(rng, n) for n in ["route", "accotement"][:rng.randint(0, 2)]}
        stops = sorted({decimal(rng, start, end, 1) for _ in range(rng.randint(0, 5))})
        self.parts = [(a, b, rng.choice(list(self.types)), rng.choice([None, *self.surfaces])) for a, b in zip(stops, stops[1:]) if rng.random() < 0.8]
        self.layers = layers

    def reused(self):
        return ["déblais"]

    def rows(self, dug):
        rows = [f"sol;{dug}", f"foisonnement;{text(self.bulking)}"] + [f"couche;{n};{text(b)}" for n, _, b in self.layers]
        rows += ["classes;" + ";".join(map(text, self.classes))] if self.classes else []
        for thing in [*self.types.values(), *self.surfaces.values()]:
            rows += thing.rows()
        return rows + [f"tronçon;{text(a)};{text(b)};{t};{s or ''}" for a, b, t, s in self.parts]


class Manhole:
    def __init__(self, name, station, inner, outer):
        self.name, self.station, self.inner, self.outer = name, station, inner, outer


class Pipe:
    pass


class Line:
    pass


class Case:
    """A ground of some points with walls, a network 1 to 4 m below it, perhaps a stripped ground and layers below."""

    def __init__(self, rng):
        self.origin = F(rng.choice([0, 1000]))
        length = F(rng.randint(60, 200))
        self.ground = self.terrain(rng, length)
        self.dug_points = [(x, z - F("0.3")) for x, z in self.ground] if rng.random() < 0.3 else None
        self.layer_points = [(n, self.layer(rng, length, depth), decimal(rng, 1.2, 1.8))
                             for n, depth in [("Altéré", 1), ("Rocher", 2)][:rng.choice([0, 0, 1, 2])]]
        self.network(rng, length)

    def terrain(self, rng, length):
        xs = sorted({F(0), length, *(decimal(rng, 0.5, float(length) - 0.5, 1) for _ in range(rng.randint(0, 12)))})
        z, points = F(100), []
        for x in xs:
            points.append((x + self.origin, z))
            if x not in (0, length) and rng.random() < 0.15:
                z += decimal(rng, -0.4, 0.4)
                points.append((x + self.origin, z))
            z += decimal(rng, -0.6, 0.5)
        return points

    def layer(self, rng, length, depth):
        cuts = sorted({F(0), length, decimal(rng, 5, float(length) - 5, 1), decimal(rng, 5, float(length) - 5, 1)})
        return [[(x + self.origin, F(100) - depth + decimal(rng, -2, 1)) for x in (a, b)] for a, b in zip(cuts, cuts[1:]) if rng.random() < 0.8]

    def altitude(self, x):
        for (x0, z0), (x1, z1) in zip(self.ground, self.ground[1:]):
            if x0 <= x <= x1 and x1 > x0:
                return z0 + (z1 - z0) * (x - x0) / (x1 - x0)

    def network(self, rng, length):
        self.manholes, self.pipes, x = [], [], F(0)
        while x <= length:
            inner = F(rng.choice([0, 800, 1000, 1200, 1500]), 1000)
            self.manholes.append(Manhole(f"M{len(self.manholes) + 1}", x + self.origin, inner, inner + F(rng.choice([0, 120, 240]), 1000) if inner else F(0)))
            x += decimal(rng, 8, 60, 1)
        if len(self.manholes) < 2:
            self.manholes.append(Manhole("M2", length + self.origin, F(1), F("1.2")))
        lowest = lambda m: F(round((self.altitude(m.station) - decimal(rng, 1.2, 4)) * 100), 100)
        for m, n in zip(self.manholes, self.manholes[1:]):
            p = Pipe()
            p.inner = F(rng.choice([100, 200, 300, 400, 600, 1000]), 1000)
            p.outer = p.inner + F(rng.choice([0, 18, 76, 120]), 1000)
            p.z0, p.z1 = lowest(m), lowest(n)
            p.bed = rng.choice([None, None, decimal(rng, 0.05, 0.3)])
            self.pipes.append(p)
        for i, m in enumerate(self.manholes):
            inverts = [p.z0 if a is m else p.z1 for p, a, _ in self.pipes_at(i)]
            m.sump = rng.choice([F(0), F(0), decimal(rng, 0, 0.5)])
            m.bottom = min(inverts) - m.sump
            m.cover_given = rng.random() < 0.3
            m.cover = self.cover(m) + (decimal(rng, -0.3, 0.4) if m.cover_given else 0)
            if m.cover_given:
                m.cover = F(round(m.cover * 1000), 1000)

    def cover(self, m):
        """The ground, of a wall its upper side."""
        return max(z for x, z in self.sides(m.station))

    def sides(self, x):
        found = [(p, z) for p, z in self.ground if p == x]
        return found or [(x, self.altitude(x))]

    def pipes_at(self, i):
        for k in (i - 1, i):
            if 0 <= k < len(self.pipes):
                yield self.pipes[k], self.manholes[k], self.manholes[k + 1]

    def rows(self):
        rows = []
        for i, m in enumerate(self.manholes):
            diameter = f"{text(m.inner * 1000)}/{text(m.outer * 1000)}" if m.outer else ""
            come = text(self.pipes[i - 1].z1) if i else ""
            go = text(self.pipes[i].z0) if i < len(self.pipes) else ""
            rows.append(f"regard;{m.name};{text(m.station)};visite;{diameter};{text(m.cover) if m.cover_given else ''};{come};{go};{text(m.bottom)}")
        for p, m, n in zip(self.pipes, self.manholes, self.manholes[1:]):
            rows.append(f"tuyau;{m.name};{n.name};{text(p.inner * 1000)}/{text(p.outer * 1000)};fonte;C;{text(p.bed) if p.bed is not None else ''}")
        return rows
