#!/usr/bin/env python3
"""Opens the workbook of the example script with LibreOffice and Gnumeric: formulas give the lengths of the sections.

Usage: tableurs.py KAVEL SOURCE. The results that the file holds beside its formulas are taken out first, so that the
program works them out. A program that isn't installed is passed over, and the output says so; without any, the status is 77.
"""
import os
import shutil
import subprocess
import sys
import tempfile

from colonnes import columns
from openpyxl import load_workbook

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))
from tableur import forget_results, libreoffice

KAVEL, SOURCE = sys.argv[1:3]
faults = []


def write_workbook(folder):
    environment = dict(os.environ, KAVEL_FRONTAL=os.path.join(SOURCE, "frontal"), KAVEL_CHEMIN=folder)
    subprocess.run([KAVEL, "--quiet", "-s", os.path.join(SOURCE, "exemples", "demo.scr")], cwd=folder, check=True, env=environment,
                   timeout=120)
    return os.path.join(folder, "rue-du-moulin.xlsx")


def gnumeric(path, folder):
    target = os.path.join(folder, "gnumeric.xlsx")
    subprocess.run(["ssconvert", "--recalc", path, target], check=True, timeout=180, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return target


def compare(program, found, wanted):
    """Every cell, and the length in each row of a section."""
    lengths, place = 0, columns(wanted)
    for row in wanted.iter_rows():
        for cell in row:
            value, other = cell.value, found[cell.coordinate].value
            if isinstance(value, str) and value.startswith("="):
                lengths += 1
                value = wanted[f"{place['Fin']}{cell.row}"].value - wanted[f"{place['Debut']}{cell.row}"].value
            same = abs(value - other) < 1e-9 if isinstance(value, (int, float)) and isinstance(other, (int, float)) else value == other
            if not same:
                faults.append(f"{program} {cell.coordinate}: {other!r}, expected {value!r}")
    return lengths


def main():
    programs = [(name, convert) for name, convert in (("soffice", libreoffice), ("ssconvert", gnumeric)) if shutil.which(name)]
    for name in {"soffice", "ssconvert"} - {name for name, _ in programs}:
        print(f"{name} isn't installed: passed over")
    if not programs:
        return 77
    with tempfile.TemporaryDirectory() as folder:
        written = write_workbook(folder)
        bare = os.path.join(folder, "sans-resultats.xlsx")
        count = forget_results(written, bare)
        wanted = load_workbook(written)
        for name, convert in programs:
            found = load_workbook(convert(bare, folder), data_only=True)
            if found.sheetnames != wanted.sheetnames:
                faults.append(f"{name}: sheets {found.sheetnames}")
            elif compare(name, found["1"], wanted["1"]) != count or not count:
                faults.append(f"{name}: {count} formulas in the file")
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
