"""Trench sections against exact ones: the printed table, the workbook, the hatches, the legend.

Sections of one class that touch are taken together first: a line is cut into curves at every change of plane, and the quantities
of a trench must not depend on that. What remains is compared in three ways: the sections cover the line, each lies in
its class, and its surface and volume are those between the two lines.
"""
import itertools
import os
from fractions import Fraction as F

import exact
import quantities

EDGE = F(11, 10**7)
SHORT = F(1, 10**5)  # sections no longer than that aren't shown


class Measured:
    """What a profile's line of a kind must give, with the tolerance that a curve's chords allow in depth."""

    def __init__(self, profile, kind, classes):
        self.profile, self.kind, self.classes = profile, kind, classes
        ground = profile.survey or exact.leaned(profile.points)
        self.depths = [exact.depths(ground, line.points) for line in profile.lines[kind]]
        sliced = [exact.slices(pieces, classes) for pieces in self.depths]
        self.parts = [s for parts in sliced for s in parts]
        self.sections = [s for parts in sliced for s in exact.sections(parts) if s.length > SHORT]
        self.sums = exact.class_sums(self.parts, classes)
        self.chord = max((l.chord for l in profile.lines[kind]), default=F(0))
        self.what = f"profile {profile.number}, {kind}"

    @property
    def straight(self):
        return self.chord == 0


def label(classes, number):
    limits = classes.limits
    if number == 0:
        return "non enterre"
    if number == len(limits):
        return f"au dela de {float(limits[-1]):.2f}"
    return f"{float(limits[number - 1]):.2f} à {float(limits[number]):.2f}"


def sheet_label(classes, number):
    """The workbook's own words: the last class is called like what is deeper."""
    limits = classes.limits
    if number == 0:
        return "Non enterre"
    if number >= len(limits) - 1:
        return f"au dela de {float(limits[-1]):.2f}"
    return f"{float(limits[number - 1]):.2f} - {float(limits[number]):.2f} "


# --- the printed table

def same_class(rows):
    """Rows in runs of touching sections of one class."""
    runs = []
    for row in rows:
        if runs and runs[-1][-1].label == row.label and abs(F(runs[-1][-1].end) - F(row.start)) <= F(1, 1000):
            runs[-1].append(row)
        else:
            runs.append([row])
    return runs


def visible(sections):
    """The sections that three decimals of a station show."""
    return [s for s in sections if s.length > F(2, 1000)]


def compare_listing(report, measured, said):
    rows, totals = quantities.listing(said, measured.profile.number, measured.kind)
    runs = [r for r in same_class(rows) if F(r[-1].end) - F(r[0].start) > F(2, 1000)]
    wanted = visible(measured.sections)
    if not measured.straight:
        return compare_totals(report, measured, totals, len(rows))
    report.same("sections", measured.what + ", printed", [r[0].label for r in runs], [label(measured.classes, s.number) for s in wanted])
    for run, section in zip(runs, wanted):
        what, width = f"{measured.what}, printed section at {run[0].start}", measured.classes.width(section.number)
        report.printed("sections", what + ", start", run[0].start, section.start + measured.profile.first, 3, F(1, 10**6))
        report.printed("sections", what + ", end", run[-1].end, section.end + measured.profile.first, 3, F(1, 10**6))
        values = (("length", section.length), ("surface", section.surface), ("volume", section.surface * width),
                  ("mean", section.surface / section.length))
        for name, value in values:
            if len(run) == 1:
                report.printed("sections", f"{what}, {name}", getattr(run[0], name), value, 3, F(1, 10**6))
            elif name != "mean":
                report.near("sections", f"{what}, {name}", sum(F(getattr(r, name)) for r in run), value, len(run) * F(1, 2000) + F(1, 10**6))
    return compare_totals(report, measured, totals, len(rows))


def compare_totals(report, measured, totals, count):
    report.same("sections", measured.what + ", total printed", totals is not None, True)
    values = [sum((getattr(s, name) for s in measured.sums), F(0)) for name in ("length", "surface", "volume")]
    for name, text, value in zip(("length", "surface", "volume"), totals or (), values):
        slack = F(1, 10**6) if measured.straight else total_slack(measured, name, value)
        report.printed("sections", f"{measured.what}, total {name}", text, value, 3, slack)


def total_slack(measured, name, value):
    """What chords may change of a total: nothing of the length, their height along the line of the surface."""
    length = sum((s.length for s in measured.sums), F(0))
    if name == "length":
        return F(1, 10**5)
    if name == "surface":
        return measured.chord * length + F(1, 10**5)
    # A stretch whose depth is as near to a limit as that may count on either side of it, with the one width or the other.
    limits, width = measured.classes.limits, measured.classes.width
    other = sum(near_limit(measured, limit) * (limit + measured.chord) * abs(width(n + 1) - width(n)) for n, limit in enumerate(limits))
    return measured.chord * length * max(measured.classes.widths) + other + F(1, 10**5)


def near_limit(measured, limit):
    """The length along which the depth is within the chords' height of a limit."""
    length = F(0)
    for start, end, d1, d2 in itertools.chain(*measured.depths):
        low, high = min(d1, d2), max(d1, d2)
        inside = min(high, limit + measured.chord) - max(low, limit - measured.chord)
        if high == low and inside >= 0:
            length += end - start
        elif inside > 0:
            length += (end - start) * inside / (high - low)
    return length


# --- the workbook

def compare_sheet(report, measured, path):
    if not report.same("workbook", measured.what + ", written", os.path.exists(path), True):
        return
    rows = quantities.sheet(path, measured.profile.number)
    for i, row in enumerate(rows):
        report.same("workbook", f"{measured.what}, formula", row.length, quantities.formula_of(6 + i))
    rows = [r for r in rows if F(r.end) - F(r.start) > SHORT]
    covers(report, "workbook", measured, [(F(r.start), F(r.end)) for r in rows])
    for row in rows:
        what = f"{measured.what}, workbook at {row.start:.3f}"
        start, end = F(row.start), F(row.end)
        surface = between(measured, start, end)
        numbers = [n for n in range(len(measured.classes.limits) + 1) if sheet_label(measured.classes, n) == row.label]
        fits = [n for n in numbers if within(measured, n, start, end)]
        if not report.same("workbook", f"{what}, class {row.label}", bool(fits), True):
            continue
        width = measured.classes.width(fits[0])
        slack = F(1, 10**7) * (1 + end - start) + measured.chord * (end - start)
        report.near("workbook", what + ", surface", row.surface, surface, slack)
        report.near("workbook", what + ", mean", row.mean, surface / (end - start), slack / (end - start))
        if fits[0] == 0:
            report.same("workbook", what + ", width and volume", (row.width, row.volume), (None, None))
        else:
            report.near("workbook", what + ", width", row.width, width, F(1, 10**12))
            report.near("workbook", what + ", volume", row.volume, surface * width, slack * max(1, width))


def covers(report, kind, measured, stretches):
    """Stretches cover the lines, each once."""
    stretches = sorted(stretches)
    joined = []
    for start, end in stretches:
        if joined and abs(joined[-1][1] - start) <= F(3, 10**5):
            joined[-1][1] = end
        else:
            joined.append([start, end])
    wanted = []
    for s in sorted(measured.sections):
        if wanted and abs(wanted[-1][1] - s.start) <= F(3, 10**5):
            wanted[-1][1] = s.end
        else:
            wanted.append([s.start, s.end])
    same = len(joined) == len(wanted) and all(abs(a[i] - b[i]) < F(3, 10**5) for a, b in zip(joined, wanted) for i in (0, 1))
    report.same(kind, measured.what + ", stretches measured", same or [tuple(map(float, s)) for s in joined],
                True if same else [tuple(map(float, s)) for s in wanted])


def between(measured, start, end):
    return sum((exact.surface_between(pieces, start, end) for pieces in measured.depths), F(0))


def within(measured, number, start, end):
    """Whether the depth stays in a class over a stretch."""
    low, high = measured.classes.bounds(number)
    for pieces in measured.depths:
        # A wall leans by a micrometre: the last digits of a distance say little of the depth on it.
        least, most = exact.depth_range(pieces, start + EDGE, end - EDGE)
        slack = F(1, 10**6) + measured.chord
        if least is not None and (least < low - slack or most > high + slack):
            return False
    return True


# --- hatches

def compare_hatches(report, measured, drawing):
    """The hatches between the lines: where, how large, in which colour."""
    profile = measured.profile
    found = []
    for hatch in quantities.hatches(drawing):
        points = [(F(x) - profile.x0, F(y) - profile.y0) for x, y in hatch.points]
        start, end = min(p[0] for p in points), max(p[0] for p in points)
        if end - start <= SHORT or start < -SHORT or end > profile.length + SHORT or abs(points[0][1]) > 2500:
            continue
        found.append((start, end))
        what = f"{measured.what}, hatch from {float(start):.3f} to {float(end):.3f}"
        area = abs(sum(a[0] * b[1] - b[0] * a[1] for a, b in zip(points, points[1:] + points[:1]))) / 2 / profile.scale
        surface = between(measured, start, end)
        report.near("hatches", what + ", area", area, surface, F(1, 10**7) * (1 + end - start) + measured.chord * (end - start))
        fits = [n for n in range(len(measured.classes.limits) + 1)
                if measured.classes.colour(n) == hatch.colour and within(measured, n, start, end)]
        report.same("hatches", f"{what}, colour {hatch.colour} of its class", bool(fits), True)
    covers(report, "hatches", measured, found)


# --- the legend

def compare_legend(report, measured, drawing):
    rows = quantities.legend_rows(drawing, measured.profile, measured.kind)
    if not report.same("legend", measured.what + ", one legend", rows is not None, True):
        return
    total = [sum((getattr(s, name) for s in measured.sums), F(0)) for name in ("length", "surface", "volume")]
    wanted = [(label(measured.classes, s.number).replace("à", "a"), s.length, s.surface, s.volume) for s in measured.sums]
    if not measured.straight:
        rows, wanted = rows[-1:], []
    wanted.append(("Total", *total))
    for row, values in itertools.zip_longest(rows, wanted):
        if row is None or values is None:
            report.same("legend", measured.what + ", row", row, values)
            continue
        report.same("legend", measured.what + ", class", row[0], values[0])
        for name, text, value in zip(("length", "surface", "volume"), row[1:], values[1:]):
            slack = F(1, 10**6) if measured.straight else total_slack(measured, name, value)
            report.printed("legend", f"{measured.what}, {row[0]}, {name}", text, value, 2, slack)
