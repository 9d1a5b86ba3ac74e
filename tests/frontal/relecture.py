#!/usr/bin/env python3
"""Reads a drawing of the front-end back with ezdxf: keys, ground pairs, chains and matrix records as formats.md has them.

Usage: relecture.py KAVEL SOURCE. Makes the drawing of the example script, audits it, and compares what is stored with
the survey and the definition file that it came from.
"""
import csv
import math
import os
import re
import subprocess
import sys
import tempfile

import ezdxf

KAVEL, SOURCE = sys.argv[1:3]
faults = []
SURVEY = []


def expect(what, found, wanted):
    if found != wanted:
        faults.append(f"{what}: {found!r}, expected {wanted!r}")


def xdata(entity, application):
    return [tag for tag in entity.get_xdata(application) if tag.code != 1001]


def keys(entity):
    """The pairs of PLV2_DATA, by key, with their group codes."""
    tags = xdata(entity, "PLV2_DATA")
    return {tags[i].value: (tags[i + 1].code, tags[i + 1].value) for i in range(0, len(tags), 2)}


def near(a, b):
    return abs(a - b) < 1e-9


def ground(survey, d):
    """Altitude of the survey at a distance."""
    for (a, za), (b, zb) in zip(survey, survey[1:]):
        if a - 1e-9 <= d <= b + 1e-9:
            return za + (zb - za) * (d - a) / (b - a)
    raise ValueError(f"{d} m is outside the survey")


def draw(folder):
    path = os.path.join(folder, "a.dxf")
    environment = dict(os.environ, KAVEL_FRONTAL=os.path.join(SOURCE, "frontal"), KAVEL_CHEMIN=folder)
    subprocess.run([KAVEL, "--quiet", "-s", "demo.scr", "--save", path], cwd=os.path.join(SOURCE, "exemples"),
                   check=True, env=environment, stderr=subprocess.DEVNULL)
    return ezdxf.readfile(path)


def check_profile(drawing, insert, survey):
    expect("number", insert.attribs[0].dxf.tag + insert.attribs[0].dxf.text, "NUMPL1")
    data = keys(insert)
    expect("ECHV", data["ECHV"], (1040, 10.0))
    expect("TTXT", data["TTXT"], (1040, 2.5))
    expect("ID", data["ID"], (1070, 1))
    expect("DCUMDEB", data["DCUMDEB"], (1040, 0.0))
    expect("LONGUEUR", data["LONGUEUR"][1], 400.0)
    for kind in ("HTN", "HASS", "HVOIRIE", "HAEP", "HGEN", "HTERRA", "HPROJ"):
        code, handle = data[kind]
        expect(kind, (code, drawing.entitydb[handle].dxftype()), (1005, "INSERT"))
    pairs = [tag.value for tag in xdata(insert, "KELMONT_PLV2")]
    expect("codes of the ground", {tag.code for tag in xdata(insert, "KELMONT_PLV2")}, {1040})
    distances, total = [], 0.0
    for step in pairs[0::2]:
        total += step
        distances.append(total)
    if not all(near(d, s) for d, (s, _) in zip(distances, survey)) or len(distances) != len(survey):
        faults.append("distances of the ground differ from the survey")
    expect("altitudes", pairs[1::2], [z for _, z in survey])
    return data


def check_chains(drawing, data, survey):
    handle, start, lines = data["PRPC"][1], 0.0, 0
    while handle:
        plane = keys(drawing.entitydb[handle])
        length, altitude = plane["DISTANCE"][1], plane["PC"][1]
        expect("codes of a plane", (plane["DISTANCE"][0], plane["PC"][0], plane["PRLI"][0]), (1040, 1040, 1005))
        line = plane["PRLI"][1]
        while line:
            entity = drawing.entitydb[line]
            # The abscissa is the distance, the ordinate ten times the height above the plane (insertion at 0,0).
            for point in (entity.dxf.start, entity.dxf.end):
                if not near(point.y, 10 * (ground(survey, point.x) - altitude)):
                    faults.append(f"ground line {line} ends at {point}")
            lines += 1
            line = keys(entity).get("NEXTLI", (0, None))[1] if entity.has_xdata("PLV2_DATA") else None
        start += length
        handle = plane.get("NEXT-PC", (0, None))[1]
    expect("length of the sections", round(start, 9), 400.0)
    # The plane that was added at 200 m stands between two points: a ground line more.
    expect("ground lines", lines, len(survey))


def check_matrices(drawing, insert, rows):
    record = [(t.code, t.value) for t in insert.get_extension_dict().dictionary["VARDANE_MATRICES"].tags]
    names = list(dict.fromkeys(row[0] for row in rows))
    expect("VARDANE_MATRICES", [c for c, _ in record], [90, 90] + [330] * len(names))
    expect("mark and count", [v for _, v in record[:2]], [1425781, len(names)])
    place = 0
    for name, (_, handle) in zip(names, record[2:]):
        mine = [row for row in rows if row[0] == name]
        tags = [(t.code, t.value) for t in drawing.entitydb[handle].get_extension_dict().dictionary["INFO_MATRICE"].tags]
        expect("head", [c for c, _ in tags[:4]], [300, 40, 330, 90])
        expect("name, scale, rows", (tags[0][1], tags[1][1], tags[3][1]), (name, 2.5, len(mine)))
        for i, row in enumerate(mine):
            place += 1
            group = tags[4 + 8 * i: 12 + 8 * i]
            expect("codes of a row", [c for c, _ in group], [90, 91, 300, 40, 90, 90, 300, 300])
            expect("row", [v for k, (_, v) in enumerate(group) if k != 1],
                   [i, str(place), row[1], 2, row[2], row[3], row[4]])
        tail = tags[4 + 8 * len(mine):]
        expect("rules", (tail[0], [c for c, _ in tail[1:]]), ((90, len(mine) + 1), [330] * (len(mine) + 2)))
        expect("rules and group", [drawing.entitydb[h].dxftype() for _, h in tail[1:]], ["LINE"] * (len(mine) + 1) + ["GROUP"])


def support(drawing, data, key):
    return drawing.entitydb[data[key][1]].get_extension_dict().dictionary


def check_elements(drawing, data, project):
    """The project line's record, flags and geometry; the manholes' groups of static elements."""
    tags = support(drawing, data, "HPROJ")["ELEMS_PROJET_KAVEL"].tags
    expect("codes of the project's record", {t.code for t in tags}, {330})
    elements = [drawing.entitydb[t.value] for t in tags]
    expect("its elements", sorted(e.dxftype() for e in elements), ["LWPOLYLINE"] * 4 + ["SPLINE"] * 3)
    expect("flags", [keys(e).get("ELEMDUPROJET") for e in elements], [(1070, 1)] * 7)
    planes = [(0.0, 128.0), (200.0, 126.0), (322.6, 122.0)]
    for element in elements:
        points = [tuple(p) for p in (element.get_points("xy") if element.dxftype() == "LWPOLYLINE"
                                     else element.construction_tool().approximate(200))]
        middle = (points[0][0] + points[-1][0]) / 2
        plane = [z for d, z in planes if d <= middle][-1]
        for x, y, *_ in points:
            if abs(y / 10 + plane - project(x)) > 1e-3:
                faults.append(f"{element} at {x}: altitude {y / 10 + plane}, expected {project(x)}")
    groups = support(drawing, data, "HASS")["ELEMS_STATIQUES_KAVEL"].tags
    expect("codes of the manholes", [t.code for t in groups], [102, 10, 102, 330, 102, 102] * 8)
    manholes = [drawing.entitydb[t.value] for t in groups if t.code == 330]
    expect("manholes", [[a.dxf.text for a in m.attribs] for m in manholes], [[f"R{i}", "300"] for i in range(1, 9)])
    for m in manholes:
        plane = [z for d, z in planes if d < m.dxf.insert.x][-1]
        if not near(m.dxf.insert.y, 10 * (ground(SURVEY, m.dxf.insert.x) - plane)):
            faults.append(f"manhole {m.attribs[0].dxf.text} at {m.dxf.insert}")
        expect("its label", (m.attribs[0].dxf.align_point.x, round(m.attribs[0].dxf.align_point.y - m.dxf.insert.y, 6)),
               (m.dxf.insert.x, 20.0))


def project(d):
    """Altitude of the example's project line: a circle of 1500 at 80 m, a parabola of 60 m at 330 m."""
    p = [-4.0 / 80, -10.1 / 250, -4.9 / 70]
    half = 1500 * math.tan((math.atan(p[1]) - math.atan(p[0])) / 2)
    left, right = half * math.cos(math.atan(p[0])), half * math.cos(math.atan(p[1]))
    if 80 - left < d < 80 + right:
        x, z = 80 - left, 138 - p[0] * left
        cx, cz = x - 1500 * math.sin(math.atan(p[0])), z + 1500 * math.cos(math.atan(p[0]))
        return cz - math.sqrt(1500 ** 2 - (d - cx) ** 2)
    if 300 < d < 360:
        return 127.9 + p[1] * (d - 330) + (p[2] - p[1]) * (d - 300) ** 2 / 120
    return 138 + p[0] * (d - 80) if d <= 80 else 127.9 + (p[1] if d <= 330 else p[2]) * (d - 330)


def main():
    with open(os.path.join(SOURCE, "exemples", "rue-du-moulin.csv"), encoding="utf-8") as file:
        survey = SURVEY[:] = [(float(r["distance"]), float(r["altitude"])) for r in csv.DictReader(file, delimiter=";")]
    rows = []
    with open(os.path.join(SOURCE, "exemples", "matrices-route.txt"), encoding="utf-8") as file:
        for line in file:
            fields = line.rstrip("\n").split(None, 4)
            if len(fields) == 5 and not line.startswith(";"):
                infos, label = re.fullmatch(r"(?:\{(.*?)\}\s*)?(.*)", fields[4]).groups("")
                rows.append((fields[0], float(fields[2]), int(fields[3]), label, infos))
    with tempfile.TemporaryDirectory() as folder:
        drawing = draw(folder)
        audit = drawing.audit()
        faults.extend(f"audit: {e.message}" for e in list(audit.errors) + list(audit.fixes))
        insert = drawing.modelspace().query('INSERT[name=="PLV_PROFIL"]').first
        data = check_profile(drawing, insert, survey)
        check_chains(drawing, data, survey)
        check_elements(drawing, data, project)
        check_matrices(drawing, insert, rows)
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
