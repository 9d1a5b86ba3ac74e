"""What a spreadsheet program works out of a workbook: its values beside those that the file holds."""
import os
import re
import shutil
import subprocess
import zipfile

from openpyxl import load_workbook

TOLERANCE = 2e-9


def spreadsheet():
    return shutil.which("soffice")


def forget_results(path, target):
    """A copy without the results beside the formulas, which then have to be worked out; gives how many there were."""
    count = 0
    with zipfile.ZipFile(path) as source, zipfile.ZipFile(target, "w", zipfile.ZIP_DEFLATED) as out:
        for name in source.namelist():
            data = source.read(name)
            if name.startswith("xl/worksheets/"):
                data, found = re.subn(rb"(</f>)<v>[^<]*</v>", rb"\1", data)
                count += found
            out.writestr(name, data)
    return count


def reckoned(path, folder):
    """The workbook with its formulas worked out by LibreOffice, and how many formulas had none before."""
    bare, out = os.path.join(folder, "sans.xlsx"), os.path.join(folder, "calcul")
    count = forget_results(path, bare)
    subprocess.run(["soffice", f"-env:UserInstallation=file://{folder}/profil", "--headless", "--convert-to", "xlsx", "--outdir", out, bare],
                   check=True, timeout=300, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return load_workbook(os.path.join(out, "sans.xlsx"), data_only=True), count


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
