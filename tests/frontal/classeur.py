#!/usr/bin/env python3
"""Reads the workbook of C:CUBPL back with openpyxl: sheets, cells, formats, borders, widths.

Usage: classeur.py KAVEL SOURCE [--keep FILE]. Two profiles on a flat ground at 10 m: P1 with a line through four classes, a
line deeper than all classes, and fixed elements; P2 with a line above the ground; another P2, whose sheet has a name of its own; P3
with a line that begins on the limit of a class. Their sections are worked out by hand.
"""
import os
import subprocess
import sys
import tempfile

from colonnes import FIRST, HEADERS, columns, rows
from openpyxl import load_workbook

KAVEL, SOURCE = sys.argv[1:3]
DRAW = r"""
(defun profil (numero y / p)
  (setq p (plv-nouveau "plat.csv" numero (list 1000.0 y 0.0) 10.0 2.5 150.0 '((0.0 5.0))))
  p)
(defun tronc (y d1 z1 d2 z2)
  (plv-ligne "0" (plv-point (+ 1000.0 d1) (+ y (* 10.0 (- z1 5.0)))) (plv-point (+ 1000.0 d2) (+ y (* 10.0 (- z2 5.0))))))
(defun bloc (nom d attributs)
  (if (not (tblsearch "BLOCK" nom))
    (progn (entmake (list '(0 . "BLOCK") (cons 2 nom) '(70 . 2) '(10 0.0 0.0 0.0))) (entmake '((0 . "ENDBLK")))))
  (entmake (list '(0 . "INSERT") '(66 . 1) (cons 2 nom) (list 10 (+ 1000.0 d) 0.0 0.0)))
  (foreach a attributs (entmake (list '(0 . "ATTRIB") '(10 0.0 0.0 0.0) '(40 . 1.0) (cons 1 (cdr a)) (cons 2 (car a)) '(70 . 0))))
  (entmake '((0 . "SEQEND")))
  (entlast))
(defun regard (d nom) (bloc "VardaneTampon" d (list (cons "R" nom) '("CT" . "10.05") '("HAUTEUR" . "2") '("LARGEUR" . "1"))))
(setq p1 (profil "P1" 0.0) p2 (profil "P2" 500.0) double (profil "P9" 1000.0) p3 (profil "P3" 1500.0))
(setq numero (entget (entnext double)))
(entmod (subst '(1 . "P2") (assoc 1 numero) numero))
(pl_elem_prj p1 "PROJET" (tronc 0.0 50.0 4.0 100.0 4.0) (tronc 0.0 0.0 9.5 50.0 7.5))
(pl_elem_prj p2 "PROJET" (tronc 500.0 0.0 10.5 100.0 10.5))
(pl_elem_prj double "PROJET" (tronc 1000.0 0.0 9.0 100.0 9.0))
(pl_elem_prj p3 "PROJET" (tronc 1500.0 0.0 9.0 100.0 8.5))
(pl_elem_ponct p1 "PROJET" (list 1040.0 0.0) (regard 40.0 "R2"))
(pl_elem_ponct p1 "PROJET" (list 1030.0 0.0) (regard 30.0 "R1"))
(pl_elem_ponct p1 "PROJET" (list 1060.0 0.0) (bloc "VardanePLVDGE" 60.0 '(("OBS" . "point bas"))))
"""
SCRIPT = "CUBPL\nAjouterProfils\n!p1\n!p2\n!double\n!p3\n\nExporter\n{}\nFermer\n"
# class limit, width and label of what P1 goes through, from the default settings
LABELS = {1: "0.00 - 1.00 ", 2: "1.00 - 1.50 ", 3: "1.50 - 2.00 ", 4: "2.00 - 3.00 ", 7: "au dela de 5.00"}
WIDTHS = {1: 0.6, 2: 0.8, 3: 1.0, 4: 1.5, 7: 2.0}
# start, end, class, depth at both ends; the last of a line has the bottom border
P1 = [(0, 12.5, 1, 0.5, 1.0, False), (12.5, 25, 2, 1.0, 1.5, False), (25, 37.5, 3, 1.5, 2.0, False),
      (37.5, 50, 4, 2.0, 2.5, True), (50, 100, 7, 6.0, 6.0, True)]
TITLES = ("Debut", "Fin", "Longueur", "Classe profondeur", "Profondeur moyenne", "Surface trancon", "Largeur trancon", "Volume")
# The columns of each kind of fixed element in its own table.
MANHOLE, VALVE = ("Abscisse", "Regard", "Cote Tampon", "Hauteur", "Largeur"), ("Abscisse", "Obs")
faults = []


def expect(what, found, wanted):
    same = abs(found - wanted) < 1e-9 if isinstance(found, (int, float)) and isinstance(wanted, (int, float)) else found == wanted
    if not same:
        faults.append(f"{what}: {found!r}, expected {wanted!r}")


def run(folder, settings):
    """Writes m.xlsx, then encore.xlsx; gives the text on stderr."""
    environment = dict(os.environ, KAVEL_FRONTAL=os.path.join(SOURCE, "frontal"), KAVEL_CHEMIN=settings)
    return subprocess.run([KAVEL, "--quiet", "-l", "dessin.lsp", "-s", "metres.scr", "-s", "encore.scr"], cwd=folder, check=True,
                          env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True).stderr


def draw(folder):
    for name, text in (("plat.csv", "distance;altitude\n200;10\n300;10\n"), ("dessin.lsp", DRAW),
                       ("metres.scr", SCRIPT.format("m")), ("encore.scr", SCRIPT.format("encore"))):
        with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
            file.write(text)
    run(folder, folder)
    expect("files left", sorted(f for f in os.listdir(folder) if f.startswith("m.")), ["m.xlsx"])
    return os.path.join(folder, "m.xlsx")


def borders(cell):
    return "".join(letter for letter, side in zip("lrtb", (cell.border.left, cell.border.right, cell.border.top, cell.border.bottom))
                   if side is not None and side.style == "thin")


def check_format(cell, kind, bottom=False):
    sides = {"header": "lrtb", "title": "", "none": ""}.get(kind, "lrb" if bottom else "lr")
    expect(f"borders of {cell.coordinate}", borders(cell), sides)
    expect(f"boldness of {cell.coordinate}", bool(cell.font.b), kind in ("header", "title"))
    expect(f"size of {cell.coordinate}", cell.font.sz, 16 if kind == "title" else 11)
    if kind == "number":
        expect(f"format of {cell.coordinate}", cell.number_format, "0.000")
    if kind in ("header", "text"):
        expect(f"alignment of {cell.coordinate}", cell.alignment.horizontal, "center")
    if kind == "header":
        expect(f"header {cell.coordinate}", (cell.alignment.vertical, cell.alignment.wrap_text), ("center", True))


def check_cell(sheet, place, value, kind, bottom=False):
    expect(place, sheet[place].value, value)
    check_format(sheet[place], kind, bottom)


def check_head(sheet, number):
    for place, value, kind in (("B2", "Profil", "none"), ("C2", number, "title"), ("C3", "D.Cumulee", "none"), ("D3", 200, "title")):
        check_cell(sheet, place, value, kind)
    letters = columns(sheet)
    expect("titles", tuple(letters), TITLES)
    for title, letter in letters.items():
        check_cell(sheet, f"{letter}{HEADERS}", title, "header")
    bands = [sheet.column_dimensions[letters[t]] for t in ("Debut", "Classe profondeur", "Volume")]
    expect("widths", [round(band.width, 1) for band in bands], [10.7, 14.3, 12.7])  # with the library's cell padding
    expect("columns of a width", [(band.min, band.max) for band in bands], [(2, 4), (5, 8), (9, 11)])


def formula(sheet, text, row):
    """"=Fin-Debut" in the letters of the sheet."""
    for title, letter in columns(sheet).items():
        text = text.replace(title, f"{letter}{row}")
    return text


def check_row(sheet, row, values, bottom=False):
    """The cells of a section in the order of the titles; None is an empty one, "=Fin-Debut" a formula."""
    for (title, letter), value in zip(columns(sheet).items(), values):
        kind = "none" if value is None else "text" if title == "Classe profondeur" else "number"
        wanted = formula(sheet, value, row) if isinstance(value, str) and value.startswith("=") else value
        check_cell(sheet, f"{letter}{row}", wanted, kind, bottom)


def check_section(sheet, row, section):
    start, end, number, depth1, depth2, bottom = section
    surface = (depth1 + depth2) * (end - start) / 2
    check_row(sheet, row, (start, end, "=Fin-Debut", LABELS[number], surface / (end - start), surface, WIDTHS[number],
                           surface * WIDTHS[number]), bottom)


def check_table(sheet, row, kind, titles, elements):
    """A table of fixed elements: the kind's name, its titles a row below, then an element a row, the station first."""
    letters = columns(sheet, row + 1, titles[0])
    expect(f"titles of {kind}", tuple(letters), titles)
    check_cell(sheet, f"{letters[titles[0]]}{row}", kind, "title")
    for title, letter in letters.items():
        check_cell(sheet, f"{letter}{row + 1}", title, "header")
    for index, element in enumerate(elements):
        for letter, value in zip(letters.values(), element):
            check_cell(sheet, f"{letter}{row + 2 + index}", value, "number" if isinstance(value, int) else "text", index + 1 == len(elements))
    return letters["Abscisse"]


def check_elements(sheet):
    """Two manholes, ordered by their station, and a valve, two columns right of the sections, two free rows between them."""
    place = check_table(sheet, HEADERS, "Regard", MANHOLE, ((230, "R1", "10.05", "2", "1"), (240, "R2", "10.05", "2", "1")))
    expect("place of the tables", (place, check_table(sheet, HEADERS + 6, "Vidange", VALVE, ((260, "point bas"),))), ("L", "L"))


def check_above(sheet):
    """A section that isn't buried has neither width nor volume."""
    check_row(sheet, FIRST, (0, 100, "=Fin-Debut", "Non enterre", 0.5, 50, None, None), True)
    expect("last row", sheet.max_row, FIRST)


def check_zero(sheet):
    """A section without length: its average depth is a division that each reader makes by itself."""
    check_row(sheet, FIRST, (0, 0, "=Fin-Debut", LABELS[1], "=Surface trancon/Longueur", 0, 0.6, 0))
    check_section(sheet, FIRST + 1, (0, 100, 2, 1.0, 1.5, True))


def cells(path):
    return {sheet.title: [[cell.value for cell in row] for row in sheet.iter_rows()] for sheet in load_workbook(path)}


def check_without_settings(folder, path):
    """A settings folder that can't be made: there is a message, and the default classes are used, in the second run, too."""
    wanted = cells(path)
    for name in ("m.xlsx", "encore.xlsx"):
        os.remove(os.path.join(folder, name))
    said = run(folder, os.path.join(folder, "plat.csv", "reglages"))
    expect("the message", "ne peut pas être écrit" in said, True)
    for name in ("m.xlsx", "encore.xlsx"):
        expect("cells of " + name, cells(os.path.join(folder, name)), wanted)


with tempfile.TemporaryDirectory() as place:
    path = draw(place)
    workbook = load_workbook(path)
    expect("results in the file", [row[0] for row in rows(load_workbook(path, data_only=True)["P1"], "Longueur")], [12.5, 12.5, 12.5, 12.5, 50])
    expect("sheets", workbook.sheetnames, ["P1", "P2", "P2 (2)", "P3"])
    for name in workbook.sheetnames:
        check_head(workbook[name], name)
    for index, row in enumerate(P1):
        check_section(workbook["P1"], FIRST + index, row)
    check_elements(workbook["P1"])
    check_above(workbook["P2"])
    check_zero(workbook["P3"])
    check_without_settings(place, path)
    if "--keep" in sys.argv:
        os.replace(path, sys.argv[sys.argv.index("--keep") + 1])
for fault in faults:
    print(fault)
sys.exit(1 if faults else 0)
