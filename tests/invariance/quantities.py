"""Reads the quantities that the program prints, writes into a workbook, hatches and sums up in a legend."""
import re
from typing import NamedTuple

import openpyxl

HATCHES, LEGEND = "PLV-HACHURES", "PLV-LEGENDE"


class Row(NamedTuple):
    """A section as it is shown: texts in the listing, doubles in the workbook."""
    start: object
    end: object
    length: object
    label: str
    mean: object
    surface: object
    volume: object
    width: object = None


PRINTED = re.compile(r"^ *([\d.]+) +([\d.]+) +([\d.]+) +(non enterre|sans classe|[\d.]+ à [\d.]+|au dela de [\d.]+) +([\d.]+) +([\d.]+) +([\d.]+) *$")
TOTAL = re.compile(r"^ *total +([\d.]+) +([\d.]+) +([\d.]+) *$")


def listing(said, number, kind):
    """(rows, totals) of the table that PLV-METRES prints of a profile."""
    lines = said.splitlines()
    start = next((i for i, line in enumerate(lines) if line.startswith(f"Profil {number}, {kind}: ")), None)
    rows = []
    for line in lines[start + 2:] if start is not None else ():
        match = PRINTED.match(line)
        if not match:
            total = TOTAL.match(line)
            return rows, total.groups() if total else None
        rows.append(Row(*match.groups()))
    return rows, None


def sheet(path, number):
    """The sections in the workbook, a list of rows; the length is a formula of this row."""
    rows = []
    book = openpyxl.load_workbook(path)
    for row in book[number].iter_rows(min_row=6, min_col=2, max_col=9):
        values = [c.value for c in row]
        if isinstance(values[0], (int, float)):
            rows.append(Row(*values[:6], volume=values[7], width=values[6]))
    return rows


def formula_of(row):
    return f"=C{row}-B{row}"


class Hatch(NamedTuple):
    colour: int
    points: list


def hatches(drawing):
    """Outlines with their colours; an outline's points stand behind their number in group 93."""
    result = []
    for entity in drawing.of("HATCH", HATCHES):
        codes = [c for c, _ in entity.groups]
        start = codes.index(93)
        rest = entity.groups[start:]
        points = list(zip([float(v) for c, v in rest if c == 10], [float(v) for c, v in rest if c == 20]))
        result.append(Hatch(int(entity.get(62, 256)), points[:int(entity.get(93))]))
    return result


def legend_rows(drawing, profile, kind):
    """The rows of texts, from the top, of the legend at a profile whose title names it and the kind; None unless there is one."""
    title = f"PROFIL {profile.number} - {kind.upper()}"
    found = []
    for insert in drawing.of("INSERT", LEGEND):
        texts = [e for e in drawing.blocks.get(insert.get(2), ()) if e.kind == "TEXT"]
        if any(t.get(1) == title for t in texts) and abs(insert.point()[1] - float(profile.y0)) < 2500:
            found.append(texts)
    if len(found) != 1:
        return None
    rows = {}
    for t in found[0]:
        x, y = t.place
        rows.setdefault(round(y, 6), []).append((x, t.get(1)))
    ordered = [[text for _, text in sorted(rows[y])] for y in sorted(rows, reverse=True)]
    return ordered[2:]
