#!/usr/bin/python3
"""The proposed line against exact arithmetic: on random grounds everything that is asked is checked everywhere, and the number of its
runs against a slow exact search by other means (windows.py) and on small grounds against what can be reached at all (brute.py).

Usage: run.py KAVEL [--runs N] [--seed S]     prints the seed; a run that differs says which it was: --seed S --runs 1
"""
import itertools
import sys
from fractions import Fraction as F

import brute
import windows
from cases import Case
from corridor import altitude, area, doors_of, lacking, parts, worst
from play import play

KNOWN = [113129745]  # a band exactly as high as a wall; played in every run
NEAR = F(1, 10**9)  # what rounding may cost: metres of altitude on a level line


class Ways:
    """The corridors past the crossings, above and below, exact and a little wider."""

    def __init__(self, case):
        self.all = {}
        for above in itertools.product((True, False), repeat=len(case.asked.crossings)):
            self.all[above] = [parts(case.ground, doors_of(case.ground, case.asked, above, wider)) for wider in (F(0), 2 * NEAR)]

    def lacking(self, slopes):
        """By how much the best way contradicts itself."""
        return min(max(lacking(part, slopes) for part in exact) for exact, _ in self.all.values())

    def open(self, which, slopes):
        """The ways (exact 0, wider 1) without a contradiction."""
        return [way[which] for way in self.all.values() if max(lacking(part, slopes) for part in way[which]) <= NEAR]


def faults(case, said, counted):
    """What is wrong with an answer, in words."""
    asked = case.asked
    if said is None:
        if asked.length or asked.step or asked.slope_step:
            counted["not found with lengths or rounding"] += 1
            return []
        return ["no answer"]
    lines, proofs, (surface, least_surface), proven, contradiction = said
    lines = [[tuple(map(F, p)) for p in line] for line in lines]
    found = list(shape(case, lines, proofs, contradiction))
    if found:
        return found
    ways = Ways(case)
    lack = ways.lacking(asked.slopes)
    given = F(contradiction[0]) if contradiction else F(0)
    if abs(given - lack) > max(F(1, 10**8), 2 * NEAR * steepest(case)):
        return [f"{float(given)} lack, in fact {float(lack)}"]
    found += kept(case, ways, lines, given / 2 + F(2, 10**8) if contradiction else F(0), not contradiction)
    found += surfaces(case, lines, F(surface), F(least_surface))
    counted["contradictions"] += bool(contradiction)
    return found if contradiction else found + list(numbers(case, ways, lines, proven, counted))


def steepest(case):
    return 1 + max(abs((b[1] - a[1]) / (b[0] - a[0])) for a, b in zip(case.ground, case.ground[1:]) if a[0] != b[0])


def shape(case, lines, proofs, contradiction):
    asked = case.asked
    if lines[0][0][0] != asked.start or lines[-1][-1][0] != asked.end:
        yield f"runs from {float(lines[0][0][0])} to {float(lines[-1][-1][0])}"
    for z, point in zip(asked.ends, (lines[0][0], lines[-1][-1])):
        if z is not None and not contradiction and abs(point[1] - z) > NEAR:
            yield f"end at {float(point[1])} for {float(z)}"
    for line, proof in zip(lines, proofs):
        if any(a[0] >= b[0] for a, b in zip(line, line[1:])):
            yield "doesn't run to the right"
        if len(line) < len(proof) + 2 or (len(line) > len(proof) + 2 and not (asked.length or asked.step or asked.slope_step)):
            yield f"{len(line)} vertices with {len(proof)} windows"


def kept(case, ways, lines, relaxed, laid):
    """Everything that is asked, at every place: some way past the crossings has room for the line."""
    asked, digits = case.asked, NEAR * steepest(case)
    fitting = [way[0] for way in ways.all.values() if [part[0][0] for part in way[0]] == [line[0][0] for line in lines]]
    if not fitting:
        yield f"{len(lines)} parts for {len(next(iter(ways.all.values()))[0])}"
        return
    far = min(max(worst(part, line) for part, line in zip(way, lines)) for way in fitting)
    if far > digits + relaxed:
        yield f"leaves the corridor by {float(far)}"
    for line in lines:
        for a, b in zip(line, line[1:]):
            slope = (b[1] - a[1]) / (b[0] - a[0])
            if asked.slopes and not asked.slopes[0] - NEAR < slope < asked.slopes[1] + NEAR:
                yield f"slope {float(slope)} not within {float(asked.slopes[0])} to {float(asked.slopes[1])}"
            if laid and b[0] - a[0] < asked.length - NEAR:
                yield f"a run of {float(b[0] - a[0])} m"
        if laid:
            yield from rounding(asked, line, line is lines[0], line is lines[-1])


def rounding(asked, line, first, last):
    """Altitudes and slopes are multiples, but for given ends and the runs to them; of round slopes free ends aren't rounded."""
    given = first and asked.ends[0] is not None, last and asked.ends[1] is not None
    free = line[given[0] or bool(asked.slope_step):-1 if given[1] or asked.slope_step else None] if asked.step else []
    if any(abs(z / asked.step - round(z / asked.step)) > NEAR / asked.step for _, z in free):
        yield "an altitude that isn't rounded"
    runs = list(zip(line, line[1:]))[given[0] and bool(asked.step):-1 if given[1] else None] if asked.slope_step else []
    for a, b in runs:
        steps = (b[1] - a[1]) / (b[0] - a[0]) / asked.slope_step
        if abs(steps - round(steps)) * asked.slope_step * (b[0] - a[0]) > NEAR:
            yield f"a slope of {float(steps)} steps"


def surfaces(case, lines, given, least):
    a = case.asked
    below, above = sum(map(area, lines)), area([(a.start, altitude(case.ground, a.start, 1))] +
                                               [p for p in case.ground if a.start < p[0] < a.end] +
                                               [(a.end, altitude(case.ground, a.end, -1))])
    digits = F(1, 10**6) * (1 + abs(above) / 10**6)
    if abs(above - below - given) > digits:
        yield f"area {float(given)} for {float(above - below)}"
    if given < least - digits:
        yield f"area {float(given)} below the least {float(least)}"


def numbers(case, ways, lines, proven, counted):
    """The number of runs: not above the least one, and no less than that of limits a little wider."""
    asked, runs = case.asked, sum(len(line) - 1 for line in lines)
    counted["lines"] += 1
    counted["runs"] += runs

    def least(which, count):
        return min((sum(map(count, way)) for way in ways.open(which, asked.slopes) if len(way) == len(lines)), default=None)
    if not proven:
        counted["more runs than proven"] += 1
        if not (asked.length or asked.step or asked.slope_step):
            yield "not proven"
        return
    most = None if asked.slopes else least(0, windows.runs)
    if most is not None and runs > most:
        yield f"{runs} runs where the least number is {most}"
    fewest = least(1, windows.runs)
    if fewest is not None and runs < fewest:
        yield f"{runs} runs where {fewest} are needed"
    if case.small:
        counted["by brute force"] += 1
        for way in ways.open(0, asked.slopes):
            if len(way) == len(lines) and sum(len(part) for part in way) <= 9:
                reached = sum(brute.runs(part, 2, asked.slopes, len(line) - 1) for part, line in zip(way, lines))
                counted["equal to brute force"] += runs == reached
                if runs > reached:
                    yield f"{runs} runs where {reached} are enough"


if __name__ == "__main__":
    sys.exit(play(Case, faults, 400, "et_ligne", known=KNOWN, tell=lambda case: [case.kind, *case.words]))
