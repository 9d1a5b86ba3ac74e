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
from colonnes import rows
from openpyxl import load_workbook

KAVEL, SOURCE = sys.argv[1:3]
faults = []
SURVEY = []
CLEAR = 40  # the setting of the hatches; it is their alpha byte as it stands


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
    with open(os.path.join(folder, "config.ini"), "w", encoding="utf-8") as settings:
        settings.write(f"[Kavels]\nHatchTransparency={CLEAR}\n")
    environment = dict(os.environ, KAVEL_FRONTAL=os.path.join(SOURCE, "frontal"), KAVEL_CHEMIN=folder)
    subprocess.run([KAVEL, "--quiet", "-s", os.path.join(SOURCE, "exemples", "demo.scr"), "--save", path], cwd=folder, check=True,
                   env=environment, stderr=subprocess.DEVNULL)
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


# Depth class of a section in the workbook: the greatest depth, trench width and colour, from the default settings.
CLASSES = {"0.00 - 1.00 ": (1.0, 0.6, 1), "1.00 - 1.50 ": (1.5, 0.8, 2), "1.50 - 2.00 ": (2.0, 1.0, 3), "2.00 - 3.00 ": (3.0, 1.5, 4)}


def sewer(drawing, data):
    """Vertices (distance, altitude) of the optimal line, from its polylines over the planes."""
    tags = support(drawing, data, "HASS")["ELEMS_PROJET_KAVEL"].tags
    points = []
    for tag in tags:
        found = [tuple(p) for p in drawing.entitydb[tag.value].get_points("xy")]
        plane = [z for d, z in ((0.0, 128.0), (200.0, 126.0), (322.6, 122.0)) if d <= (found[0][0] + found[-1][0]) / 2][-1]
        points += [(x, y / 10 + plane) for x, y in found]
    return points


def area(line, start, end):
    """Between the survey and a line, exact: both are straight between these stations."""
    def depth(d):
        return ground(SURVEY, d) - ground(line, d)
    at = sorted({start, end} | {d for d, _ in SURVEY + line if start < d < end})
    return sum((b - a) * (depth(a) + depth(b)) / 2 for a, b in zip(at, at[1:])), max(map(depth, at))


def check_quantities(drawing, data, folder):
    """Optimal line within its band; workbook and hatches, section by section, against the area between the lines."""
    line = sewer(drawing, data)
    depths = [z - ground(line, d) for d, z in SURVEY] + [ground(SURVEY, d) - z for d, z in line]
    expect("depths of the optimal line", (min(depths) > 0.8 - 1e-6, max(depths) < 2.2 + 1e-6), (True, True))
    sheet = load_workbook(os.path.join(folder, "rue-du-moulin.xlsx"))["1"]
    sections = rows(sheet, "Debut", "Fin", "Classe profondeur", "Surface trancon", "Largeur trancon", "Volume")
    hatches = [h for h in drawing.modelspace().query("HATCH") if h.dxf.layer == "PLV-HACHURES"]
    expect("hatches", len(hatches), len(sections))
    legends = [b for b in drawing.blocks if b.name.startswith("PLV_LEGENDE")]
    expect("transparency of the legend", {h.dxf.transparency for b in legends for h in b.query("HATCH")}, {0x2000000 + CLEAR})
    for (start, end, label, surface, width, volume), hatch in zip(sections, hatches):
        limit, wide, colour = CLASSES[label]
        exact, deepest = area(line, start, end)
        outline = [v[:2] for v in hatch.paths[0].vertices]
        hatched = abs(sum(a[0] * b[1] - a[1] * b[0] for a, b in zip(outline, outline[1:] + outline[:1]))) / 20
        for what, found in (("surface", surface), ("hatched surface", hatched)):
            if abs(found - exact) > 1e-9 * exact:
                faults.append(f"{what} from {start} to {end}: {found}, expected {exact}")
        expect("class, width and volume", (deepest < limit + 1e-9, width, near(volume, surface * wide)), (True, wide, True))
        expect("colour and transparency", (hatch.dxf.color, hatch.dxf.transparency), (colour, 0x2000000 + CLEAR))
    expect("end of the sections", (sections[0][0], sections[-1][1]), (0.0, 400.0))
    legend = [t.dxf.text for t in drawing.blocks["PLV_LEGENDE_1_ASSAINISSEMENT"].query("TEXT")]
    totals = [f"{sum(r[1] - r[0] for r in sections):.2f}", f"{sum(r[3] for r in sections):.2f}", f"{sum(r[5] for r in sections):.2f}"]
    expect("legend", (legend[0], legend[-4:]), ("PROFIL 1 - ASSAINISSEMENT", ["Total", *totals]))


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
        check_quantities(drawing, data, folder)
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
