"""Every cell of every table against its row's rule: what it says, and where it stands."""
import re
from fractions import Fraction as F

import compare_drawn
import exact
import plan_rows

AT = F(1, 10**5)     # how near a cell stands to its place
LAYER = "PLV-MATRICE"


class Cell:
    """A cell that must be there: its place along the profile, and what its text may be."""

    def __init__(self, x, check, optional=False, span=None):
        self.x, self.check, self.optional, self.span = x, check, optional, span


def bands(profile, rows):
    """(row, top, bottom): tables below one another, two and a half text heights under the profile, two between them."""
    result, y, previous = [], profile.y0 - F(5, 2) * profile.text, None
    for row in rows:
        if previous is not None and row[0] != previous:
            y -= 2 * profile.text
        result.append((row, y, y - row[2] * profile.text))
        y, previous = y - row[2] * profile.text, row[0]
    return result


def grouped(rows):
    """The rows as the tables have them: those of a name together, tables in the order of their first row."""
    names = list(dict.fromkeys(r[0] for r in rows))
    return [r for name in names for r in rows if r[0] == name]


def printed(value, decimals=2, slack=None):
    def check(report, what, text):
        report.printed("cells", what, text, value, decimals, *([] if slack is None else [slack]))
    return check


def words(expected):
    def check(report, what, text):
        report.same("cells", what, text, expected)
    return check


def worded(patterns, values):
    """One of several wordings; each number in it is the named value's."""
    def check(report, what, text):
        for pattern in patterns:
            match = re.fullmatch(pattern, text)
            if match:
                for name, found in match.groupdict().items():
                    report.printed("cells", what, found, *values[name])
                return
        report.same("cells", what, text, " or ".join(patterns))
    return check


def kept_points(profile, rows, everything):
    """The points (distance, altitude, number) that get cells: all of them, or those with room for upright texts."""
    points = [(d, z, i + 1) for i, (d, z) in enumerate(profile.points)]
    upright = any(row[1] in (1, 3, 4, 5, 6) for row in rows)
    if everything or not upright:
        return points
    return exact.spaced(points, F(13, 10) * profile.text, lambda p: p[0])


def kind_of(profile, row):
    kinds = profile.kinds()
    return row[3] if row[3] in kinds else (kinds[0] if kinds else None)


# --- what each row holds

def numbers(row, kept, e):
    return [Cell(d if row[1] == 0 else d + F(7, 10) * e, words(str(number))) for d, _, number in kept]


def partial(distances):
    """The text of each interval in its middle; a wall's two points count once."""
    places = sorted(set(distances))
    return [Cell((a + b) / 2, printed(b - a)) for a, b in zip(places, places[1:])]


def cumulated(profile, distances, e):
    return [Cell(d + F(7, 10) * e, printed(d + profile.first)) for d in distances]


def ground_altitudes(kept, e):
    return [Cell(d + F(7, 10) * e, printed(z)) for d, z, _ in kept]


def on_project(profile, row, kept, e, value):
    kind, cells = kind_of(profile, row), []
    for d, g, _ in kept:
        z = profile.altitude_of(kind, d) if kind else None
        if z is not None:
            cells.append(Cell(d + F(7, 10) * e, printed(value(g, z), slack=F(1, 10**6))))
    return cells


def attributes(profile, row, e):
    """Upright texts of blocks one beside the other; or each attribute at its block."""
    cells, previous = [], None
    for d, values in sorted(profile.blocks):
        if row[1] == 402:
            cells.append(Cell(d, words(values["NUM"])))
        elif row[1] == 403:
            cells.append(Cell(d, words(values["DN"])))
        elif previous is None or d - previous >= F(13, 10) * e:
            cells.append(Cell(d + F(1, 2) * e, words(values["NUM"] + " " + values["DN"])))
            previous = d
    return cells


def observations(profile, e):
    """Named points, three text heights each: station and name, to the left where the table ends."""
    cells, previous = [], None
    for d, name in profile.named_points():
        if previous is not None and d - previous < F(16, 5) * e:
            continue
        previous = d
        station = d + profile.first
        if d + 2 * e <= profile.length:
            places = (d + F(17, 10) * e,) * 2
        else:
            places = (d - F(5, 2) * e, d - e)
        kilometres = int(station / 1000)
        check = worded((rf"PK {kilometres}\+(?P<rest>\d+\.\d\d)",), {"rest": (station - 1000 * kilometres, 2)})
        cells += [Cell(places[0], check), Cell(places[1], words(name))]
    return cells


def slope_wordings(type_, slope, length):
    """The wordings of a slope, and the values of the numbers in them."""
    values = {"p": (slope * {12: 100, 13: 1, 14: 100, 15: 1000}[type_], {12: 2, 13: 4, 14: 2, 15: 1}[type_]), "l": (length, 2)}
    if type_ == 12:
        values["p"] = (abs(values["p"][0]), 2)
        # At the limit of what counts as level either word is right.
        senses = ["Palier"] if abs(slope) < F(49, 10**6) else []
        senses += [("Rampe" if slope > 0 else "Pente")] if abs(slope) > F(49, 10**6) else []
        senses += ["Palier"] if F(49, 10**6) <= abs(slope) <= F(51, 10**6) else []
        patterns = []
        for s in senses:
            patterns += ([r"Palier sur (?P<l>[\d.]+) m", "Palier"] if s == "Palier"
                         else [rf"{s} (?P<p>[\d.]+) % sur (?P<l>[\d.]+) m", rf"{s} (?P<p>[\d.]+) %", r"(?P<p>[\d.]+) %"])
        return patterns, values
    unit = {13: " m/m", 14: " %", 15: " \u2030"}[type_]
    number = r"(?P<p>[-+]?[\d.]+)"
    return [number + re.escape(unit)] + ([number] if type_ == 13 else []), values


def slopes(profile, row, e):
    """A wording on each slope where there is room for it; a radius in each vertical curve."""
    cells, kind = [], kind_of(profile, row)
    for start, end, slope in profile.slopes_of(kind) if kind else ():
        if isinstance(slope, dict):
            if slope:
                cells.append(Cell((start + end) / 2, worded((r"R=(?P<r>\d+) L=(?P<l>[\d.]+)", r"R=(?P<r>\d+)"), slope), True, (start, end)))
        else:
            patterns, values = slope_wordings(row[1], slope, end - start)
            cells.append(Cell((start + end) / 2, worded(patterns, values), end - start < 7 * e, (start, end)))
    return cells


def in_middles(texts, e, room):
    """Texts in the middle of their stretches, where that is so long that any of them has room; else they may be left out."""
    return [Cell((start + end) / 2, worded(patterns, values), end - start < room * e) for start, end, patterns, values in texts]


def bounds(profile, row):
    kind, result = kind_of(profile, row), []
    for start, end, _ in profile.slopes_of(kind) if kind else ():
        if not result or result[-1] != start:
            result.append(start)
        result.append(end)
    return result


def cells_of(profile, row, kept, everything):
    e, type_ = profile.text, row[1]
    if type_ in (0, 1):
        return numbers(row, kept, e)
    if type_ == 2:
        return partial([p[0] for p in kept])
    if type_ == 3:
        return cumulated(profile, [p[0] for p in kept], e)
    if type_ == 4:
        return ground_altitudes(kept, e)
    if type_ in (11, 402, 403):
        return attributes(profile, row, e)
    if type_ in (5, 6):
        return on_project(profile, row, kept, e, (lambda g, z: z) if type_ == 5 else (lambda g, z: g - z))
    if type_ == 7:
        return in_middles(plan_rows.axis_texts(profile), e, 8)
    if type_ == 9:
        return in_middles(plan_rows.falls_texts(profile), e, 12)
    if type_ == 8:
        return observations(profile, e)
    if type_ in (12, 13, 14, 15):
        return slopes(profile, row, e)
    found = bounds(profile, row)
    if type_ == 16:
        return partial(found) if found and everything else []
    return cumulated(profile, exact.spaced(found, F(13, 10) * e), e) if found else []


# --- the comparison

def compare_row(report, profile, row, found, cells):
    """Each cell that must be there takes the nearest text; none may be left over."""
    left = list(found)
    for cell in cells:
        if cell.span:
            own = [t for t in left if cell.span[0] - AT <= t[0] <= cell.span[1] + AT]
        else:
            own = [t for t in left if abs(t[0] - cell.x) <= AT]
        what = f"profile {profile.number}, row {row[0]} type {row[1]} {row[3]}, at {float(cell.x):.3f}"
        if own:
            best = min(own, key=lambda t: (plain_fault(cell, t[1]), abs(t[0] - cell.x)))
            if cell.optional and plain_fault(cell, best[1]):
                continue  # another cell's text in the same place, or left over
            left.remove(best)
            cell.check(report, what, best[1])
        elif not cell.optional:
            report.same("cells", what, None, "a cell")
    for x, text in left:
        report.same("cells", f"profile {profile.number}, row {row[0]} type {row[1]}, at {float(x):.3f}", text, "no cell")


def plain_fault(cell, text):
    """How many differences a text would make: two texts may stand in one place."""
    from report import Report
    trial = Report()
    cell.check(trial, "", text)
    return len(trial.differences)


def marks(report, profile, row, found):
    """Regular marks: the station of the place where each stands, at even steps that are round."""
    places = [(x - F(1, 2) * profile.text, text) for x, text in found]
    for x, text in places:
        station = round(x + profile.first)
        report.near("cells", f"profile {profile.number}, place of the mark {text}", x + profile.first, F(station), AT)
        report.same("cells", f"profile {profile.number}, mark at {float(x):.3f}", text, f"PK {station // 1000}+{station % 1000}")
    steps = {round(b[0] - a[0], 4) for a, b in zip(places, places[1:])}
    report.same("cells", f"profile {profile.number}, steps of the marks", steps <= set(map(F, (10, 20, 25, 50, 100, 200, 250, 500, 1000)))
                and len(steps) <= 1, True)


def thinned(report, profile, row, found):
    """Distances between bounds of which those too close for a text may have been left out: each goes on where the last one ended."""
    places, what = sorted(set(bounds(profile, row))), f"profile {profile.number}, row {row[0]} type 16 {row[3]}"
    if not places:
        return
    at = places[0]
    for x, text in found:
        end = next((p for p in places if abs((at + p) / 2 - x) <= AT), None)
        if not report.same("cells", f"{what}, {text} at {float(x):.3f}, between bounds", end is not None, True):
            return
        report.printed("cells", f"{what}, at {float(x):.3f}", text, end - at, 2, F(1, 10**6))
        inside = [at, *[p for p in places if at < p < end], end]
        crowded = len(inside) == 2 or min(b - a for a, b in zip(inside, inside[1:])) < 5 * profile.text
        report.same("cells", f"{what}, bounds left out between {float(at):.3f} and {float(end):.3f} had no room", crowded, True)
        at = end
    report.same("cells", f"{what}, last bound", float(at), float(places[-1]))


def compare(report, drawing, profile, rows, everything, layer=LAYER):
    """The tables of a profile as they were drawn for these rows."""
    rows = grouped(rows)
    kept = kept_points(profile, rows, everything)
    report.same("cells", f"reference lines of {profile.number}", sorted(round(d, 4) for d, _ in compare_drawn.references(drawing, profile)),
                [round(p[0], 4) for p in kept])
    texts = [(F(t.place[0]) - profile.x0, F(t.place[1]), t.get(1)) for t in drawing.of("TEXT", layer)]
    texts = [t for t in texts if -3 * profile.text <= t[0] <= profile.length + 3 * profile.text]
    for row, top, bottom in bands(profile, rows):
        own = sorted((x, text) for x, y, text in texts if bottom <= y < top)
        if row[1] == 10:
            marks(report, profile, row, own)
        elif row[1] == 16 and not everything:
            thinned(report, profile, row, own)
        else:
            compare_row(report, profile, row, own, cells_of(profile, row, kept, everything))
