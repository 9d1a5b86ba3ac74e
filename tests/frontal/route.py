#!/usr/bin/env python3
"""Runs the example script of a real road, from ground and design line to workbooks, and computes its areas again.

Usage: route.py KAVEL SOURCE. The data lie in ../shared/donnees and are not part of the project: without them there is nothing
to run, and the status is 77. The design line is worked out from its vertices and radii as circles, the sewer from its polylines.
"""
import csv
import math
import os
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

import ezdxf
from colonnes import rows
from openpyxl import load_workbook

KAVEL, SOURCE = sys.argv[1:3]
DATA = os.path.join(SOURCE, "..", "shared", "donnees")
LENGTH, STEP = 1264.0, 0.02
faults = []


def ground_points():
    with open(os.path.join(DATA, "terrain-m3.csv"), encoding="utf-8") as file:
        return [(float(row["station"]), float(row["ground_z"])) for row in csv.DictReader(file)]


def straight(points):
    """Altitude along a line of points, by increasing distance."""
    place = 0

    def at(d):
        nonlocal place
        while place + 2 < len(points) and d > points[place + 1][0]:
            place += 1
        (a, za), (b, zb) = points[place], points[place + 1]
        return za + (zb - za) * (d - a) / (b - a)
    return at


def design_line():
    """Altitude on the tangents, and on the circle that touches both of them around a vertex."""
    align = next(e for e in xml.parse(os.path.join(DATA, "axe-m3.xml")).iter() if e.tag.endswith("ProfAlign"))
    vertices = [(*map(float, e.text.split()), abs(float(e.get("radius", 0)))) for e in align]
    tangents, curves = straight([v[:2] for v in vertices]), []
    for (xa, za, _), (x, z, radius), (xb, zb, _) in zip(vertices, vertices[1:], vertices[2:]):
        a, b = math.atan((z - za) / (x - xa)), math.atan((zb - z) / (xb - x))
        reach = radius * math.tan(abs(b - a) / 2)
        side = math.copysign(radius, b - a)
        centre = (x - reach * math.cos(a) - side * math.sin(a), z - reach * math.sin(a) + side * math.cos(a))
        curves.append((x - reach * math.cos(a), x + reach * math.cos(b), centre, side))

    def at(d):
        for start, end, (cx, cz), side in curves:
            if start < d < end:
                return cz - math.copysign(math.sqrt(side * side - (d - cx) ** 2), side)
        return tangents(d)
    return at


def sewer_line(path):
    drawing = ezdxf.readfile(path)
    if drawing.audit().errors:
        faults.append("the drawing has errors")
    insert = drawing.modelspace().query('INSERT[name=="PLV_PROFIL"]').first
    keys = insert.get_xdata("PLV2_DATA")
    support = drawing.entitydb[next(keys[i + 1].value for i, tag in enumerate(keys) if tag.value == "HASS")]
    line = drawing.entitydb[support.get_extension_dict().dictionary["ELEMS_PROJET_KAVEL"].tags[0].value]
    return straight([(x, y / 20 + 11) for x, y in line.get_points("xy")])


def area(upper, lower):
    """By the middles of short steps."""
    return sum(abs(upper(d) - lower(d)) for d in (STEP * (i + 0.5) for i in range(round(LENGTH / STEP)))) * STEP


def check(what, path, lower, tolerance):
    sheet = load_workbook(path)["M3"]
    sections = rows(sheet, "Debut", "Fin", "Surface trancon")
    if (sections[0][0], round(sections[-1][1], 6)) != (0, LENGTH) or any(abs(a[1] - b[0]) > 1e-6 for a, b in zip(sections, sections[1:])):
        faults.append(f"{what}: its sections don't cover the profile")
    found, wanted = sum(section[2] for section in sections), area(straight(ground_points()), lower)
    if abs(found - wanted) > tolerance * wanted:
        faults.append(f"{what}: {found} m2, expected {wanted}")


def main():
    if not os.path.exists(os.path.join(DATA, "terrain-m3.csv")):
        print("the data of the road aren't there: passed over")
        return 77
    with tempfile.TemporaryDirectory() as folder:
        environment = dict(os.environ, KAVEL_FRONTAL=os.path.join(SOURCE, "frontal"), KAVEL_CHEMIN=folder, KAVEL_DONNEES=DATA)
        subprocess.run([KAVEL, "--quiet", "-s", os.path.join(SOURCE, "exemples", "m3.scr"), "--save", "m3.dxf"], cwd=folder, check=True,
                       env=environment, stderr=subprocess.DEVNULL, timeout=120)
        check("road", os.path.join(folder, "m3-route.xlsx"), design_line(), 1e-5)
        check("sewer", os.path.join(folder, "m3.xlsx"), sewer_line(os.path.join(folder, "m3.dxf")), 1e-6)
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
