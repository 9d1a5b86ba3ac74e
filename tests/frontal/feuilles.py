#!/usr/bin/env python3
"""Reads the sheets of PLV-FEUILLES back with poppler: pages, title block, match marks, and both scales by measuring.

Usage: feuilles.py KAVEL SOURCE. Two profiles: the example's, and one of 600 m that has to be cut.
"""
import os
import re
import subprocess
import sys
import tempfile

from lecture import KAVEL, SOURCE, expect, read, run, told, words


def place(found, text):
    return next(((x, y) for w, x, y in found if w == text), (0.0, 0.0))


def check_page(pdf, page, stations, marks, ends):
    """The title block, the marks, and the distance on paper of two stations of the cumulated distances."""
    found = words(pdf, page)
    texts = [w for w, _, _ in found]
    for wanted in ["1:1000", "1:100", "élargissement", *stations]:
        expect(f"page {page} holds {wanted}", wanted in texts, True)
    # upright texts: the number stands above the word
    expect(f"marks of page {page}", sorted(n for w, x, _ in found if w == "feuille" for n, u, _ in found if n.isdigit() and abs(u - x) < 0.5), marks)
    (first, second), metres = ends, float(ends[1]) - float(ends[0])
    expect(f"metres of page {page}", round(place(found, second)[0] - place(found, first)[0], 1), round(metres, 1))


def check_marks(pdf):
    """What is written at the cut stands beside it: on the first sheet right of the cell's figure, on the second left of the altitudes."""
    for page, least, most in ((1, 3, 9), (2, -25, -8)):
        found = words(pdf, page)
        mark = place(found, "feuille")
        figures = [x for w, x, _ in found if w == "420.00" and least < mark[0] - x < most]
        expect(f"figures of the cut beside its mark on page {page}", len(figures), 1)


def pages(pdf):
    return re.search(r"Pages: +(\d+)", read("pdfinfo", pdf)).group(1)


def check_legends(folder):
    """A legend 300 m beside the example: on the sheet of the profile's last part, which has a scale of altitudes."""
    with open(os.path.join(SOURCE, "exemples", "demo.scr"), encoding="utf-8") as script:
        lines = script.read().splitlines()
    lines[-1] = "700,150"
    # On A1 beside the profile, on a roll's height beneath it, on A2 only beside a shorter last part.
    with open(os.path.join(SOURCE, "exemples", "cartouche-a2.dxf"), encoding="utf-8") as a2:
        high = re.sub(r"(?<=\n )(20\n)(420|404)\.0\n", lambda m: f"{m.group(1)}{int(m.group(2)) + 100}.0\n", a2.read())
    with open(os.path.join(folder, "haut.dxf"), "w", encoding="utf-8") as out:
        out.write(high)
    made = run(folder, lines + [line for model in ("A1", "haut", "A2")
                                for line in ("PLV-FEUILLES", "haut.dxf" if model == "haut" else model, "1000", "x", model + ".pdf")])
    expect("status with legends", (made.returncode, made.stderr), (0, ""))
    for model, wanted in (("A1", "1"), ("haut", "1"), ("A2", "2")):
        pdf = os.path.join(folder, model + ".pdf")
        expect(f"pages of {model}", pages(pdf), wanted)
        found = words(pdf, int(wanted))
        legend, end = place(found, "ASSAINISSEMENT"), place(found, "59")
        expect(f"the legend on the last sheet of {model}", (legend[0] > end[0], legend[1] > end[1]), (model != "haut", model == "haut"))
    # The plane of the second sheet's beginning is at 128 m: labels 1 m apart are 10 mm apart, left of the profile.
    found = words(os.path.join(folder, "A2.pdf"), 2)
    scale = [word for word in found if word[1] < place(found, "29")[0]]
    expect("scale of the second sheet", round(place(scale, "130")[1] - place(scale, "133")[1], 1), 30.0)
    made = run(folder, ["PLV-NOUVEAU", "rue-du-moulin.csv", "M", "0,0", "10", "2.5", "150", "A", "PLV-FEUILLES", "A4", "5000", "x", "a4.pdf"])
    expect("texts too small on paper", "0.50 mm sur le papier" in made.stdout, True)


def main():
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, "long.csv"), "w", encoding="utf-8") as out:
            out.write("distance;altitude\n" + "".join(f"{100 + d};{20 + (d // 20) % 5}\n" for d in range(0, 601, 20)))
        subprocess.run(["/usr/bin/python3", os.path.join(SOURCE, "exemples", "cartouche.py"), os.path.join(folder, "a2.dxf"), "A2"], check=True)
        profile = ["PLV-NOUVEAU", "long.csv", "L", "0,0", "10", "2.5", "150", "Saisis", "18", "", "PLV-MATRICES", "matrices-route.txt", "Espaces"]
        # the example stands above the long one
        second = ["PLV-NOUVEAU", "rue-du-moulin.csv", "M", "0,2000", "10", "2.5", "150", "A"]
        sheets = ["PLV-FEUILLES", "Tous", "a2.dxf", "1000", "Rue, élargissement", "f.pdf"]
        made = run(folder, profile + second + sheets)
        expect("status", made.returncode, 0)
        if made.returncode != 0:
            print(made.stdout, made.stderr)
        pdf = os.path.join(folder, "f.pdf")
        info = read("pdfinfo", pdf)
        expect("pages", pages(pdf), "3")
        expect("sheet", re.search(r"Page size: +([\d.]+) x ([\d.]+)", info).groups(), ("1683.78", "1190.55"))
        # cut near the middle, at station 420: a cut at 400 would tear "PK 0+400"
        check_page(pdf, 1, ["100.00", "420.00", "1", "3"], ["2"], ("120.00", "400.00"))
        check_marks(pdf)
        check_page(pdf, 2, ["420.00", "700.00", "2", "3"], ["1"], ("440.00", "680.00"))
        axis = words(pdf, 1)
        expect("millimetres for 3 m of altitude at 1:100", round(place(axis, "20")[1] - place(axis, "23")[1], 1), 30.0)
        # A view that doesn't fit, and a file that isn't a template: a message, and the old file is unchanged.
        subprocess.run([KAVEL, "--no-frontal", "--quiet", "-o", "vide.dxf"], cwd=folder, check=True)
        for scale, model, message in (("200", "a2.dxf", "il tiendrait à 1:1000"), ("1000", "rue-du-moulin.csv", "ce n'est pas un dessin"),
                                      ("1000", "vide.dxf", "attendue sur le calque FEUILLE"), ("1000", "absent.dxf", "introuvable")):
            made = run(folder, profile + [f'(plv-feuilles (plv-profils) "{model}" {scale}.0 "x" "f.pdf")'])
            expect(f"status of {model} at {scale}", made.returncode, 1)
            expect(f"message of {model} at {scale}", message in made.stderr, True)
        expect("the file stays", pages(pdf), "3")
        check_legends(folder)
    return told()


if __name__ == "__main__":
    sys.exit(main())
