#!/usr/bin/python3
"""Plot tables: which colours and weights reach the paper, by --colours, by the layout and on sheets; and files that are wrong."""
import os
import re
import subprocess
import sys
import tempfile

KAVEL, SOURCE = sys.argv[1:3]
POINTS = 72 / 25.4
# Lines of 0.50 mm, one a colour, and an area in red.
DRAWING = """(foreach c '(1 2 7 30)
  (entmake (list '(0 . "LINE") (cons 62 c) '(370 . 50) (list 10 0.0 (float c) 0.0) (list 11 100.0 (float c) 0.0))))
(entmake '((0 . "LINE") (62 . 5) (420 . 23196) (370 . 50) (10 0.0 50.0 0.0) (11 100.0 50.0 0.0)))
(entmake '((0 . "SOLID") (62 . 1) (10 0.0 80.0 0.0) (11 20.0 80.0 0.0) (12 0.0 90.0 0.0) (13 20.0 90.0 0.0)))
"""
TABLE = """\ufeff# une table
; couleur;du dessin;sur le papier;épaisseur;aires
couleur;*;noir;0,18;gris
couleur;20-40;#102030
couleur;30;4;0.70
couleur;1;gris;dessin;dessin

couleur;#005A9C;noir;1
"""
BLACK, RED = "000000", "FF0000"
# colour and weight in hundredths of a millimetre, of the lines from below to above; the area's colour
DRAWN = [(RED, 50), ("FFFF00", 50), (BLACK, 50), ("FF7F00", 50), ("005A9C", 50), RED]
WITH_TABLE = [("4C4C4C", 50), (BLACK, 18), (BLACK, 18), ("00FFFF", 70), (BLACK, 100), RED]
ALL_BLACK = [(BLACK, 50)] * 5 + ["4C4C4C"]
WRONG = [
    ("couleur;*;noir\ntrait;1;noir\n", 2, '"trait" inconnu'),
    ("\n\ncouleur;1\n", 3, "de 2 à 4 champs"),
    ("couleur;256;noir\n", 1, 'couleur "256"'),
    ("couleur;40-20;noir\n", 1, 'couleur "40-20"'),
    ("couleur;1;#12345\n", 1, '"#12345"'),
    ("couleur;1;noir;3\n", 1, 'épaisseur "3"'),
    ("couleur;1;noir;0.5;vert\n", 1, '"vert"'),
    ("# rien\n", 0, "aucune rangée"),
]
faults = []


def expect(what, has, wanted):
    if has != wanted:
        faults.append(f"{what}: {has}, expected {wanted}")


def run(folder, *words):
    return subprocess.run([KAVEL, "--quiet", *words], cwd=folder, capture_output=True, text=True,
                          env=dict(os.environ, KAVEL_CHEMIN=os.path.join(folder, "reglages")))


def hexadecimal(style, word):
    channels = re.search(word + r":rgb\(([\d.]+)%,([\d.]+)%,([\d.]+)%\)", style)
    return "".join(f"{round(float(c) * 2.55):02X}" for c in channels.groups())


def inks(svg):
    """The lines of a plot as (colour, weight), from the lowest up, then the colour of its area."""
    with open(svg, encoding="utf-8") as file:
        paths = re.findall(r'<path style="([^"]*)" d="M [\d.]+ ([\d.]+)', file.read())
    lines = [(-float(y), (hexadecimal(s, "stroke"), round(float(re.search(r"stroke-width:([\d.]+)", s).group(1)) / POINTS * 100)))
             for s, y in paths if "stroke:rgb" in s]
    areas = [hexadecimal(s, "fill") for s, y in paths if "fill:rgb" in s]
    return [line for _, line in sorted(lines)] + areas


def check_plots(folder):
    def plotted(what, wanted, *words):
        target = os.path.join(folder, "p.svg")
        said = run(folder, "d.dxf", *words, "--plot", target, "--scale", "1:1000")
        expect(what, (said.returncode, said.stderr), (0, ""))
        expect(what, inks(target), wanted)

    plotted("without a table", DRAWN)
    plotted("a file", WITH_TABLE, "--colours", "table.txt")
    plotted("one's own by its name", WITH_TABLE, "--colours", "AGENCE")
    plotted("black", ALL_BLACK, "--colours", "black")
    plotted("a shipped one", ALL_BLACK, "--colours", "monochrome")
    plotted("one's own before the shipped one", DRAWN, "--colours", "nuances")
    plotted("that of the layout", WITH_TABLE, "-e", '(table-de-trace "Agence.ctb")')
    plotted("colours in spite of the layout", DRAWN, "-e", '(table-de-trace "agence")', "--colours", "colour")
    plotted("one that isn't here", DRAWN, "-e", '(table-de-trace "ailleurs.ctb")')
    command = "-PLOT\nO\nModel\nSVG\nA4\nM\nL\nN\nE\n1=1\nC\n{}\n{}\nO\n\np.svg\nN\nO\n"
    for styled, table, wanted in (("O", "agence.ctb", WITH_TABLE), ("N", "agence.ctb", DRAWN), ("O", ".", DRAWN), ("O", "ailleurs.ctb", DRAWN)):
        with open(os.path.join(folder, "plot.scr"), "w", encoding="utf-8") as file:
            file.write(command.format(styled, table))
        run(folder, "d.dxf", "-e", '(table-de-trace "feuilles")', "-s", "plot.scr")
        expect(f"-PLOT {styled} {table}", inks(os.path.join(folder, "p.svg")), wanted)
    run(folder, "d.dxf", "-s", "annule.scr", "-o", "annule.dxf")
    expect("undone", run(folder, "annule.dxf", "-e", "(table-de-trace)").stdout.split(), ['""'])


def check_sheets(folder):
    """The set of sheets is plotted with the table of the model space, and with one that is asked for."""
    sheet = '(list 1000.0 \'((0.0 0.0 100.0 90.0)) nil)'
    for infos, wanted in (("nil", "102030"), ("'((\"couleurs\" . \"Noir\"))", BLACK)):
        said = run(folder, "d.dxf", "-e", '(table-de-trace "feuilles")', "-e",
                   f'(tracer-feuilles "f.pdf" "cartouche.dxf" (list {sheet}) {infos})')
        expect("sheets", said.returncode, 0)
        subprocess.run(["pdftocairo", "-svg", "f.pdf", "f.svg"], cwd=folder, check=True)
        with open(os.path.join(folder, "f.svg"), encoding="utf-8") as file:
            strokes = {hexadecimal(s, "stroke") for s in re.findall(r'style="([^"]*stroke:rgb[^"]*)"', file.read())}
            if not strokes:
                file.seek(0)
                strokes = {"".join(f"{round(float(c) * 2.55):02X}" for c in re.findall(r"([\d.]+)%", s))
                           for s in re.findall(r'stroke="rgb\(([^)]*)\)"', file.read())}
        expect(f"sheets with {infos}", strokes, {wanted})


def check_wrong(folder):
    for text, line, words in WRONG:
        with open(os.path.join(folder, "faux.txt"), "w", encoding="utf-8") as file:
            file.write(text)
        said = run(folder, "d.dxf", "--colours", "faux.txt", "--plot", "faux.svg")
        place = f"faux.txt:{line}: " if line else "faux.txt: "
        if said.returncode != 3 or place not in said.stderr or words not in said.stderr:
            faults.append(f"{text!r}: {said.returncode} {said.stderr!r}, expected {place}{words}")
    said = run(folder, "d.dxf", "--colours", "absente", "--plot", "faux.svg")
    expect("a table that isn't there", (said.returncode, "agence, feuilles, nuances, monochrome, bureau" in said.stderr), (2, True))
    expect("nothing is plotted", os.path.exists(os.path.join(folder, "faux.svg")), False)


def main():
    with tempfile.TemporaryDirectory() as folder:
        own = os.path.join(folder, "reglages", "traces")
        os.makedirs(own)
        files = {"d.lsp": DRAWING, "table.txt": TABLE, "annule.scr": "(table-de-trace \"agence\")\nU\n", os.path.join(own, "agence.txt"): TABLE,
                 os.path.join(own, "nuances.txt"): "couleur;*;dessin\n", os.path.join(own, "feuilles.txt"): "couleur;*;#102030\n"}
        for name, text in files.items():
            with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
                file.write(text)
        run(folder, "-l", "d.lsp", "-o", "d.dxf")
        check_plots(folder)
        check_sheets(folder)
        check_wrong(folder)
        for shipped in ("monochrome", "nuances", "bureau"):
            said = run(folder, "d.dxf", "--colours", os.path.join(SOURCE, "exemples", f"trace-{shipped}.txt"), "--plot", "s.pdf")
            expect(shipped, (said.returncode, said.stderr), (0, ""))
    for fault in faults:
        print(fault)
    sys.exit(1 if faults else 0)


main()
