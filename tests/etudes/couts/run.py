#!/usr/bin/python3
"""The line of least cost against a program of its own: on random grounds every constraint and every figure in exact fractions, and
the cost against the least of all lines over the same levels, found here run by run without sharing work between runs.

Usage: run.py KAVEL [--runs N] [--seed S]     prints the seed; a run that differs says which it was: --seed S --runs 1
"""
import os
import random
import sys
from fractions import Fraction as F

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "lignes"))
import grounds
from corridor import Asked, altitude
from play import play

from paths import Prices, Search, quantities

NEAR = F(1, 10**8)
GAP = 1e-3  # of the cost, between a line of free altitudes and what no line costs less than
KINDS = ["walk", "steep", "plain", "saw", "walls", "whole"]


class Case:
    def __init__(self, seed):
        self.seed, rng = seed, random.Random(seed)
        self.kind = rng.choice(KINDS)
        self.prices = Prices(rng)
        self.survey = grounds.KINDS[self.kind](rng, rng.randint(4, 12))
        # Mostly a slope that water has: level, the ground goes up as often as down.
        tilt = rng.choice([0, F(1, 32), F(1, 8)]) * rng.choice([-1, 1])
        flat = F(1, 4) if self.kind in ("steep", "whole", "walls") else 1
        self.survey = [(x, F(float(z * flat + tilt * x))) for x, z in self.survey]
        self.ground = grounds.recorded(self.survey)
        least = rng.choice([F(rng.randint(-4, 24), 16), self.prices.classes[0][0]])
        self.asked = a = Asked(self.ground[0][0], self.ground[-1][0], least, least + F(rng.choice([4, 16, 24, 32, 48]), 16))
        a.step = F(1, rng.choice([8, 16]))
        whole = a.end - a.start
        self.stations = sorted({a.start + whole * F(rng.randint(1, 15), 16) for _ in range(rng.randint(0, 3))})
        self.spacing = (F(float(whole / rng.randint(2, 4))), F(float(whole / rng.randint(4, 9)))) if rng.random() < 0.7 else None
        if rng.random() < 0.7:
            most = abs(tilt) * rng.choice([F(1, 2), F(7, 8), 1, 3]) if tilt else F(rng.choice([12, 32, 96]), 256)
            a.slopes = rng.choice([(-most, most), (-most, F(0)), (-most, -most / 64)] if tilt <= 0 else [(F(0), most), (most / 64, most)])
        a.length = whole * F(rng.randint(0, 2), 16) if rng.random() < 0.3 else F(0)
        if rng.random() < 0.3:
            at = a.start + whole * F(rng.randint(3, 13), 16)
            z = altitude(self.ground, at, 1) - least - F(rng.randint(-1, 24), 16)
            a.crossings.append((at - whole / 32, at + whole / 32, z, z + F(rng.randint(1, 6), 8)))
        if rng.random() < 0.2:
            x, z = rng.choice(self.ground[1:-1])
            a.points.append((x, z - a.most, z - a.most + F(rng.choice([2, 8, 16]), 16)))
        if rng.random() < 0.2:
            side = rng.randint(0, 1)
            a.ends[side] = F(float(altitude(self.ground, (a.start, a.end)[side], (1, -1)[side]) - (a.least + a.most) / 2))
        self.free = rng.random() < 0.4  # altitudes needn't be round
        # A line that lies exactly along the limit of a class may cost much less than all lines beside it, which a search for free altitudes can miss.
        limits = {c[0] for c in self.prices.classes} | ({self.prices.shored[0]} if self.prices.shored else set())
        self.gap = GAP if least not in limits else 1

    def title(self):
        return f"{self.kind}{', free' if self.free else ''}, {float(self.asked.least)} to {float(self.asked.most)}"

    def call(self):
        number = lambda x: repr(float(x))
        a = self.asked
        points = " ".join(f"({number(x)} {number(z)})" for x, z in self.survey)
        end = lambda at, z: number(at) if z is None else f"'({number(at)} {number(z)})"
        rows = ([("pente", *a.slopes)] if a.slopes else []) + [("point", *p) for p in a.points] + [("croisement", *c) for c in a.crossings]
        rows += ([] if self.free else [("arrondi", a.step, 0)]) + ([("longueur", a.length)] if a.length else [])
        works = [("station", x) for x in self.stations] + ([("espacement", *self.spacing)] if self.spacing else []) + self.prices.rows()
        text = lambda list_: "'(" + " ".join("(" + " ".join([f'"{r[0]}"', *map(number, r[1:])]) + ")" for r in list_) + ")"
        return (f"(essai '({points}) {number(a.least)} {number(a.most)} {end(a.start, a.ends[0])} {end(a.end, a.ends[1])} "
                f"{text(rows)} {text(works)})")


def faults(case, said, counted):
    search = Search(case, case.asked.step)
    best = search.least()
    if said is None:
        return ["no answer"]
    if len(said) == 2:
        return no_line(case, said, search.farthest(), best, counted)
    manholes, (cost, bound, rounded), given = said
    line = [tuple(map(F, m)) for m in manholes]
    found = list(search.kept(line, case.free))
    counted["lines"] += 1
    counted["free lines"] += case.free
    counted["drops"] += given[4] > 0
    counted["pumping"] += given[5] > 0
    true = quantities(case, line)
    for name, mine, theirs in zip(("volumes", "shoring", "manholes", "their depth", "drops", "pumps", "lift"), true, given):
        pairs = zip(mine, theirs) if name == "volumes" else [(mine, theirs)]
        if any(abs(x - F(y)) > NEAR * (1 + abs(x)) for x, y in pairs):
            found.append(f"{name}: {theirs} for {mine}")
    exact = float(case.prices.sum(true))
    near = 1e-6 * (1 + exact)
    if abs(exact - cost) > near:
        found.append(f"cost {cost} for {exact}")
    if best is None and not case.free or best is not None and cost > best + near + (case.gap * cost if case.free else 0):
        found.append(f"cost {cost} where {best} is enough")
    if best is not None and not case.free and cost < best - near:
        found.append(f"cost {cost} below the least, {best}")
    if cost > rounded + near or not case.free and cost < rounded - near:
        found.append(f"cost {cost}, and {rounded} rounded")
    if case.free and bound < cost * (1 - case.gap) - near:
        found.append(f"bound {bound} far below the cost {cost}")
    finer = Search(case, case.asked.step / 3).least() if case.seed % 4 == 0 else None
    if finer is not None and bound > finer + 1e-6 * (1 + finer):
        found.append(f"bound {bound}, but a line of finer levels costs {finer}")
    if best is not None and bound > best + near:
        found.append(f"bound {bound}, but a line of round levels costs {best}")
    if bound > cost + 1e-9:
        found.append(f"bound {bound} above the cost {cost}")
    return found


def no_line(case, said, far, best, counted):
    counted["no line"] += 1
    if case.free:  # its levels aren't those of the search here
        return []
    wrong = abs(F(said[1][0]) - far) > NEAR
    return ([f"no line where one costs {best}"] if best is not None else
            [f"comes to {said[1][0]} instead of {float(far)}"] if wrong else [])


if __name__ == "__main__":
    sys.exit(play(Case, faults, 200, "et_ligneCout", more="ouvrages"))
