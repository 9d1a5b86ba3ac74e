"""Profiles out of a LandXML file: ground and project line of an alignment, in metres or in feet."""
from fractions import Fraction as F

import lines
import sources
from model import KINDS, Line
from sources import text

UNITS = {"meter": F(1), "foot": F("0.3048")}
FILE = """<?xml version="1.0" encoding="UTF-8"?>
<LandXML xmlns="http://www.landxml.org/schema/LandXML-1.2" version="1.2">
<Units><{system} linearUnit="{unit}" areaUnit="squareMeter" volumeUnit="cubicMeter"/></Units>
<Alignments><Alignment name="Axe {number}" length="{length}" staStart="{start}"><Profile name="Profil">
<ProfSurf name="Terrain" state="existing"><PntList2D>{ground}</PntList2D></ProfSurf>{project}
</Profile></Alignment></Alignments></LandXML>
"""


def in_unit(rng, points):
    """(unit, points in metres) of a ground whose numbers are those of the file."""
    unit = rng.choice([u for u, factor in UNITS.items() if points[-1][0] * factor > 40] or ["meter"])
    factor = UNITS[unit]
    return unit, [(d * factor, z * factor, "") for d, z, _ in points]


def project(rng, profile, unit):
    """A project line in the unit of the file: (its text, the kind, the line); nothing without one."""
    if rng.random() < 0.4:
        return "", None, None
    factor = UNITS[unit]
    # Vertices whose numbers in the file are short.
    points = [(F(round(d / factor * 100), 100), F(round(z / factor * 100), 100)) for d, z in sources.straight_line(rng, profile, F(0), profile.length)]
    points[-1] = (profile.length / factor, points[-1][1])
    requests = [lines.random_request(rng, *around) for around in zip(points, points[1:], points[2:])]
    requests = [("L", r[1], "P") if r and r[0] == "L" else None for r in requests]
    first = profile.first / factor
    rows = []
    for (d, z), request in zip(points, [None, *requests, None]):
        place = f"{text(first + d)} {text(z)}"
        rows.append(f'<ParaCurve length="{text(request[1])}">{place}</ParaCurve>' if request else f"<PVI>{place}</PVI>")
    metres = [(d * factor, z * factor) for d, z in points]
    taken = [r and (r[0], r[1] * factor, r[2]) for r in requests]
    line = Line(lines.parts(metres, taken), profile.scale)
    return '<ProfAlign name="Projeté">' + "".join(rows) + "</ProfAlign>", rng.choice(KINDS), line


def written(profile, points, unit, project_text):
    factor = UNITS[unit]
    ground = " ".join(f"{text((profile.first + d) / factor)} {text(z / factor)}" for d, z, _ in points)
    return FILE.format(system="Metric" if unit == "meter" else "Imperial", unit=unit, number=profile.number, project=project_text, ground=ground,
                       length=text(profile.length / factor), start=text(profile.first / factor))
