"""What a spreadsheet program works out of a workbook: its values beside those that the file holds."""
import os
import shutil
import sys

from openpyxl import load_workbook

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "support"))
from tableur import forget_results, libreoffice

TOLERANCE = 2e-9


def spreadsheet():
    return shutil.which("soffice")


def reckoned(path, folder):
    """The workbook with its formulas worked out by LibreOffice, and how many formulas had none before."""
    bare = os.path.join(folder, "sans.xlsx")
    count = forget_results(path, bare)
    return load_workbook(libreoffice(bare, folder), data_only=True), count


def differences(path, folder):
    """Sentences for cells whose value isn't the file's; and the number of formulas compared."""
    found, count = reckoned(path, folder)
    held, compared, faults = load_workbook(path, data_only=True), 0, []
    formulas = load_workbook(path)
    for sheet in held:
        for row in sheet.iter_rows():
            for cell in row:
                formula = formulas[sheet.title][cell.coordinate].value
                if not (isinstance(formula, str) and formula.startswith("=")):
                    continue
                compared += 1
                value, other = cell.value, found[sheet.title][cell.coordinate].value
                same = (abs(value - other) <= TOLERANCE * max(1, abs(value)) if isinstance(value, (int, float)) and isinstance(other, (int, float))
                        else value == other)
                if not same:
                    faults.append(f"{sheet.title}!{cell.coordinate} {formula}: {value!r}, worked out {other!r}")
    return faults, compared, count
