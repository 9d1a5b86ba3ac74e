"""A random ground and what is asked of a line below it, and how the program is asked."""
import random
from fractions import Fraction as F

import grounds
from corridor import Asked, altitude


def number(x):
    return repr(float(x))


class Case:
    def __init__(self, seed, plain=False):
        self.seed, rng = seed, random.Random(seed)
        self.kind, self.small = rng.choice(list(grounds.KINDS)), rng.random() < 0.3
        self.survey = grounds.KINDS[self.kind](rng, rng.randint(3, 7) if self.small else rng.randint(8, 60))
        self.ground = grounds.recorded(self.survey)
        self.asked = Asked(*grounds.ends(rng, self.ground), *grounds.band(rng))
        for i, (at, side) in enumerate(((self.asked.start, 1), (self.asked.end, -1))):
            if rng.random() < 0.4:
                self.asked.ends[i] = self.inside(at, side, F(rng.randint(0, 4), 4))
        self.words = []
        if not plain and rng.random() < 0.6:
            for what in rng.sample(WHAT, rng.choice([1, 1, 2, 3])):
                what(self, rng)
                self.words.append(what.__name__)

    def inside(self, at, side, share):
        least, most = self.asked.band(at, side)
        return F(float(altitude(self.ground, at, side) - least - (most - least) * share))

    def somewhere(self, rng):
        return grounds.place(rng, self.ground, self.asked.start, self.asked.end)

    def title(self):
        return f"{self.kind}, {float(self.asked.least)} to {float(self.asked.most)} {' '.join(self.words)}"

    def call(self):
        def end(at, z):
            return number(at) if z is None else f"'({number(at)} {number(z)})"
        a = self.asked
        points = " ".join(f"({number(x)} {number(z)})" for x, z in self.survey)
        rows = ([("profondeur", *b) for b in a.bands] + [("point", *p) for p in a.points] + [("croisement", *c) for c in a.crossings] +
                ([("pente", *a.slopes)] if a.slopes else []) + ([("longueur", a.length)] if a.length else []) +
                ([("arrondi", a.step, a.slope_step)] if a.step or a.slope_step else []))
        rows = " ".join("(" + " ".join([f'"{row[0]}"', *map(number, row[1:])]) + ")" for row in rows)
        return (f"(essai '({points}) {number(a.least)} {number(a.most)} {end(a.start, a.ends[0])} {end(a.end, a.ends[1])} "
                f"'({rows}))")


# --- what may be asked besides the band

def bands(case, rng):
    for _ in range(rng.randint(1, 2)):
        least = case.asked.least + F(rng.randint(-2, 4), 8)
        case.asked.bands.append((*grounds.stretch(rng, case.ground, case.asked.start, case.asked.end),
                                 least, least + F(rng.choice([2, 4, 8, 16]), 8)))


def points(case, rng):
    for _ in range(rng.randint(1, 2)):
        at = case.somewhere(rng)
        z = case.inside(at, 1 if at < case.asked.end else -1, F(rng.randint(-1, 5), 4))
        case.asked.points.append((at, z, z + F(rng.choice([0, 0, 1, 4]), 16)))


def crossings(case, rng):
    for _ in range(rng.randint(1, 2)):
        at = case.somewhere(rng)
        z = case.inside(at, 1 if at < case.asked.end else -1, F(rng.randint(-2, 6), 4))
        width = F(rng.choice([1, 4, 16]), 8)
        case.asked.crossings.append((at - width, at + width, z, z + F(rng.choice([1, 2, 6]), 8)))


def slopes(case, rng):
    most = F(rng.choice([1, 2, 8, 32]), 256)
    case.asked.slopes = rng.choice([(-most, most), (-most, F(0)), (-most, -most / 8), (F(0), most)])


def length(case, rng):
    case.asked.length = F(rng.choice([1, 2, 5, 20]))


def rounded(case, rng):
    case.asked.step = rng.choice([F(0), F(1, 64), F(1, 64)])
    case.asked.slope_step = F(1, 512) if not case.asked.step else rng.choice([F(0), F(1, 512), F(1, 64)])


WHAT = [bands, points, crossings, slopes, length, rounded]
