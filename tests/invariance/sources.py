"""Random grounds, planes, project lines, tables and depth classes, as the texts that a user types and as fractions.

Numbers are decimals of two or three places: what is typed is known exactly. Ties of rounding come up on purpose.
"""
import os
from fractions import Fraction as F

from exact import Classes, altitude
from model import Profile

NAMES = ("Regard R{}", "Carrefour D{}", "Pont n° {}", "Étang {}")


def text(value):
    """A fraction of at most six decimals as it is typed."""
    value = F(value)
    digits = next(n for n in range(10) if (value * 10**n).denominator == 1)
    number = abs(value * 10**digits).numerator
    whole, part = divmod(number, 10**digits)
    return ("-" if value < 0 else "") + str(whole) + (f".{part:0{digits}d}" if digits else "")


def decimal(rng, low, high, places):
    """A decimal between two bounds."""
    unit = 10**places
    return F(rng.randint(round(low * unit), round(high * unit)), unit)


EXAMPLE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "exemples", "rue-du-moulin.csv")


def example():
    """The points of the example survey."""
    with open(EXAMPLE, encoding="utf-8") as file:
        rows = [line.rstrip("\n").split(";") for line in file][1:]
    return [(F(d), F(z), name) for d, z, name in rows]


def ground(rng):
    """Points (distance, altitude, name) from distance 0."""
    if rng.random() < 0.1:
        return example()
    places = rng.choice((0, 1, 2, 2, 3))
    rise = rng.choice((0.2, 1, 3))
    d, z = F(0), decimal(rng, 20, 900, 2)
    points, walls = [], rng.random() < 0.15
    for i in range(rng.randint(4, 24)):
        name = rng.choice(NAMES).format(i) if rng.random() < 0.25 else ""
        points.append((d, z, name))
        if walls and i and rng.random() < 0.2:
            z += decimal(rng, -3, 3, 2) or F(1)
            points.append((d, z, ""))
        d += decimal(rng, 4, 30, places)
        z += decimal(rng, -rise, rise, rng.choice((2, 2, 3)))
    return points + [(d, z, "")]


def planes(rng, points):
    """One to four planes under the ground; changes of plane on points and between them."""
    length, low = points[-1][0], min(p[1] for p in points)
    starts = {F(0)}
    for _ in range(rng.choice((0, 0, 1, 2, 3))):
        start = rng.choice(points[1:-1])[0] if rng.random() < 0.5 else decimal(rng, 1, float(length) - 1, 2)
        if 0 < start < length and all(abs(start - s) > 1 for s in starts):
            starts.add(start)
    return [(s, F(int(low) - rng.randint(2, 12))) for s in sorted(starts)]


def profile(rng, number, place, points, unit=F(1)):
    """A profile on a ground whose file is in units of so many metres."""
    return Profile(number, place, F(rng.choice(("10", "10", "5", "1", "20"))), F(rng.choice(("2.5", "2.5", "1", "1.8"))),
                   rng.choice((F(0), F(0), decimal(rng, 1, 3000, 2))) * unit, points, planes(rng, points))


def typed_planes(planes_):
    """The answers to the questions about planes."""
    lines = []
    for i, (start, z) in enumerate(planes_):
        lines += ([text(start)] if i else []) + [text(z)]
    return lines + [""]


def ground_file(points, first):
    rows = [f"{text(first + d)};{text(z)};{name}" for d, z, name in points]
    return "distance;altitude;observation\n" + "\n".join(rows) + "\n"


def straight_line(rng, owner, start, end):
    """Points between two distances: level under the ground, at a limit of the usual classes, or across it."""
    manner = rng.choice(("parallel", "random", "random", "random", "crossing"))
    inner = [(d, altitude(owner.points, d)) for d in sorted({p[0] for p in owner.points}) if start < d < end]
    if manner == "parallel":
        depth = rng.choice((F(1), F(3, 2), F(2), decimal(rng, 0.3, 4, 2)))
        ends = [(d, altitude(owner.points, d)) for d in (start, end)]
        if all((z * 1000).denominator == 1 for _, z in ends + inner):
            return [(d, z - depth) for d, z in [ends[0], *inner, ends[1]]]
    places = sorted({start, end} | {decimal(rng, float(start) + 1, float(end) - 1, 2) for _ in range(rng.randint(0, 5))}
                    if end - start > 4 else {start, end})
    places = [a for a, b in zip(places, places[1:] + [places[-1] + 9]) if b - a > F(1, 2)]
    if places[-1] != end:
        places[-1] = end
    if places[0] != start or len(places) < 2:
        places = [start, end]
    depth = (-1, 1) if manner == "crossing" else (0.5, 6)
    return [(d, F(round((altitude(owner.points, d) - decimal(rng, *depth, 2)) * 100), 100)) for d in places]


def classes(rng):
    """The default ones, or others."""
    if rng.random() < 0.5:
        return Classes(tuple(map(F, ("0", "1", "1.5", "2", "3", "4", "5"))), tuple(map(F, ("0.6", "0.8", "1", "1.5", "2", "2"))),
                       (1, 2, 3, 4, 5, 6))
    count = rng.randint(1, 6)
    limits = sorted({decimal(rng, 0.3, 6, 2) for _ in range(count)})
    limits = [l for l, before in zip(limits, [F(0)] + limits) if l - before > F(1, 10)] or [F(1)]
    return Classes((F(0), *limits), tuple(decimal(rng, 0.3, 3, 2) for _ in limits), tuple(rng.sample(range(1, 250), len(limits))))


def settings(classes_):
    """The file of settings that holds the classes."""
    rows = ["[Kavels]"]
    for i in range(6):
        there = i < len(classes_.widths)
        rows.append(f"HauteurMinClasseProfondeur{i + 1}={text(classes_.limits[i + 1]) if there else 0}")
        rows.append(f"LargeurClasse{i + 1}={text(classes_.widths[i]) if there else 0}")
        rows.append(f"CoulClasse{i + 1}={classes_.colours[i] if there else 1}")
    return "\n".join(rows) + "\n"


ROWS = {0: "2.0", 1: "3.0", 2: "2.5", 3: "5.0", 4: "6.0", 5: "6.0", 6: "4.5", 7: "4.0", 9: "4.0", 8: "19.0", 10: "2.0", 12: "3.0", 13: "3.0", 14: "3.0",
        15: "3.0", 16: "2.5", 17: "5.0", 11: "10.0", 402: "2.0", 403: "4.0"}
BRACES = {11: "NUM DN", 402: "NUM", 403: "DN"}
WIDE = (0, 2)  # rows whose spacing follows the width of their texts


def tables(rng, kinds):
    """Rows (table, type, height, kind or ""): one to three tables."""
    rows = []
    for table in range(rng.randint(1, 3)):
        for type_ in rng.sample(sorted(ROWS), rng.randint(1, 6)):
            kind = rng.choice(kinds) if kinds and type_ in (5, 6, 12, 13, 14, 15, 16, 17) and rng.random() < 0.7 else ""
            rows.append((f"TABLE{table + 1}", type_, F(ROWS[type_]), kind))
    return rows


def definition_file(rows):
    return "".join(f"{name} - {text(height)} {type_} {'{' + (kind or BRACES[type_]) + '} ' if kind or type_ in BRACES else ''}Ligne {i}\n"
                   for i, (name, type_, height, kind) in enumerate(rows))
