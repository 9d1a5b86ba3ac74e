#!/usr/bin/env python3
"""Reads the workbook of C:CUBPL back with openpyxl: sheets, cells, formats, borders, widths.

Usage: classeur.py KAVEL SOURCE [--keep FILE]. Two profiles on a flat ground at 10 m: P1 with a line through four classes, a
line deeper than all classes, and fixed elements; P2 with a line above the ground; another P2, for which there is no sheet; P3
with a line that begins on the limit of a class. Their sections are worked out by hand.
"""
import os
import subprocess
import sys
import tempfile

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
faults = []


def expect(what, found, wanted):
    same = abs(found - wanted) < 1e-9 if isinstance(found, (int, float)) and isinstance(wanted, (int, float)) else found == wanted
    if not same:
        faults.append(f"{what}: {found!r}, expected {wanted!r}")


def run(folder, settings):
    """Writes m.xlsx, then encore.xlsx; what is said on stderr."""
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
    titles = ("Debut", "Fin", "Longueur", "Classe profondeur", "Profondeur moyenne", "Surface trancon", "Largeur trancon", "Volume")
    for column, title in zip("BCDEFGHI", titles):
        check_cell(sheet, column + "5", title, "header")
    widths = [sheet.column_dimensions[c].width for c in ("B", "E", "I")]
    expect("widths", [round(w, 1) for w in widths], [10.7, 14.3, 12.7])  # with the library's cell padding
    expect("columns of a width", [(sheet.column_dimensions[c].min, sheet.column_dimensions[c].max) for c in ("B", "E", "I")],
           [(2, 4), (5, 8), (9, 11)])


def check_section(sheet, row, section):
    start, end, number, depth1, depth2, bottom = section
    surface = (depth1 + depth2) * (end - start) / 2
    values = (start, end, f"=C{row}-B{row}", LABELS[number], surface / (end - start), surface, WIDTHS[number], surface * WIDTHS[number])
    for column, value in zip("BCDEFGHI", values):
        check_cell(sheet, f"{column}{row}", value, "text" if column == "E" else "number", bottom)


def check_elements(sheet):
    """Two manholes, ordered by their station, and a valve, in the columns from L on."""
    check_cell(sheet, "L5", "Regard", "title")
    for column, title in zip("LMNOP", ("Abscisse", "Regard", "Cote Tampon", "Hauteur", "Largeur")):
        check_cell(sheet, column + "6", title, "header")
    for row, station, name in ((7, 230, "R1"), (8, 240, "R2")):
        check_cell(sheet, f"L{row}", station, "number", row == 8)
        for column, value in zip("MNOP", (name, "10.05", "2", "1")):
            check_cell(sheet, f"{column}{row}", value, "text", row == 8)
    check_cell(sheet, "L11", "Vidange", "title")
    check_cell(sheet, "L12", "Abscisse", "header")
    check_cell(sheet, "L13", 260, "number", True)
    check_cell(sheet, "M13", "point bas", "text", True)


def check_above(sheet):
    """A section that isn't buried has neither width nor volume."""
    for column, value in zip("BCDEFGHI", (0, 100, "=C6-B6", "Non enterre", 0.5, 50, None, None)):
        kind = "none" if value is None else "text" if column == "E" else "number"
        check_cell(sheet, column + "6", value, kind, True)
    expect("last row", sheet.max_row, 6)


def check_zero(sheet):
    """A section without length: its average depth is a division that each reader makes by itself."""
    for column, value in zip("BCDEFGHI", (0, 0, "=C6-B6", LABELS[1], "=G6/D6", 0, 0.6, 0)):
        check_cell(sheet, column + "6", value, "text" if column == "E" else "number")
    check_section(sheet, 7, (0, 100, 2, 1.0, 1.5, True))


def cells(path):
    return {sheet.title: [[cell.value for cell in row] for row in sheet.iter_rows()] for sheet in load_workbook(path)}


def check_without_settings(folder, path):
    """A settings folder that can't be made: the program says so, and the default classes serve, in the second run too."""
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
    expect("results in the file", [load_workbook(path, data_only=True)["P1"][f"D{r}"].value for r in range(6, 11)], [12.5, 12.5, 12.5, 12.5, 50])
    expect("sheets", workbook.sheetnames, ["P1", "P2", "P3"])
    for name in workbook.sheetnames:
        check_head(workbook[name], name)
    for index, row in enumerate(P1):
        check_section(workbook["P1"], 6 + index, row)
    check_elements(workbook["P1"])
    check_above(workbook["P2"])
    check_zero(workbook["P3"])
    check_without_settings(place, path)
    if "--keep" in sys.argv:
        os.replace(path, sys.argv[sys.argv.index("--keep") + 1])
for fault in faults:
    print(fault)
sys.exit(1 if faults else 0)
