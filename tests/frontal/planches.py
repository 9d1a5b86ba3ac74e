#!/usr/bin/env python3
"""Reads styled sheets back with poppler: the plan above the profile, fields, bookmarks, fonts, both scales by a ruler, greys;
and the same sheets as layouts.

Usage: planches.py KAVEL SOURCE. A profile of 600 m whose axis in plan is straight and runs to the north-east.
"""
import math
import os
import re
import struct
import sys
import tempfile
import zlib

import ezdxf

import lecture
from lecture import POINTS, expect, faults, read, told, words

FIELDS = [("Client", "Commune"), ("Verificateur", "Durand"), ("Auteur", "Martin"), ("REVISION", "A;01/10/2026;Première;Martin"),
          ("REVISION", "B;02/11/2026;Seconde;Martin")]


def run(folder, lines, *arguments):
    """What is printed; nothing is complained of."""
    made = lecture.run(folder, lines, *arguments)
    expect("status", (made.returncode, made.stderr), (0, ""))
    return made.stdout


def places(found, text):
    return sorted(((x, y) for w, x, y in found if w == text), key=lambda p: p[1])


def ruler(what, millimetres, wanted):
    """A tenth of a percent is what a sheet may be off."""
    if abs(millimetres - wanted) > 1e-3 * wanted:
        faults.append(f"{what}: {millimetres:.3f} mm, expected {wanted:.3f}")


def check_plan(found, metres, denominator):
    """Stations of the plan are level, as far apart as their metres, and stand above those of the profile."""
    stations = [(d, places(found, str(d))) for d in metres]
    for d, where in stations:
        expect(f"places of station {d}: the plan's and the profile's", len(where) >= 2, True)
    (first, a), (last, b) = stations[0], stations[-1]
    if len(a) < 2 or len(b) < 2:
        return
    ruler("plan", b[0][0] - a[0][0], (last - first) * 1000 / denominator)
    ruler("profile", b[-1][0] - a[-1][0], (last - first) * 1000 / denominator)
    expect("the plan's stations are level", abs(a[0][1] - b[0][1]) < 0.05, True)
    expect("and above the profile's", all(abs(where[0][0] - where[-1][0]) < 0.2 for _, where in stations), True)


def check_file(pdf):
    info = read("pdfinfo", pdf)
    for what in ("Title:           Rue élargie", "Author:          Martin", "Subject:         Profils en long L"):
        expect(f"pdfinfo says {what}", what in info, True)
    outline = re.findall(r'<item page="(\d+)">([^<]*)<', read("pdftohtml", "-xml", "-i", "-stdout", pdf))
    pages = int(re.search(r"Pages: +(\d+)", info).group(1))
    expect("bookmarks", [(int(p), t.startswith(f"Feuille {p} - profil L")) for p, t in outline], [(p, True) for p in range(1, pages + 1)])
    fonts = read("pdffonts", pdf).splitlines()[2:]
    expect("fonts that aren't embedded", [f for f in fonts if f.split()[-5] != "yes"], [])
    return pages


def check_title_block(found):
    texts = [w for w, _, _ in found]
    for wanted in ("Commune", "Durand", "Première", "Seconde", "01/10/2026", "02/11/2026"):
        expect(f"the title block holds {wanted}", wanted in texts, True)
    expect("marks that are left", [w for w in texts if w.startswith("<") or "&lt;" in w], [])
    expect("the latest revision is above", places(found, "Seconde")[0][1] < places(found, "Première")[0][1], True)


def check_list(folder, profile):
    """The list as the first page: a row for every sheet, counted among them, in the PDF and in the layout alike; on small sheets it goes on."""
    said = run(folder, profile + ["PLV-FEUILLES", "A2", "Liste", "1000", "Rue élargie", "l.pdf", "PLV-PRESENTATIONS", "A2", "Liste", "1000", "Rue élargie"],
               "--layout", "Feuille 1", "--plot", "l1.pdf", "--layout", "Feuille 3", "--plot", "l3.pdf")
    pdf = os.path.join(folder, "l.pdf")
    expect("sheets with their list", "l.pdf: 3 feuilles au 1:1000." in said, True)
    outline = re.findall(r'<item page="(\d+)">([^<]*)<', read("pdftohtml", "-xml", "-i", "-stdout", pdf))
    expect("its bookmark", [outline[0][1], outline[1][1][:9]], ["Liste des feuilles", "Feuille 2"])
    found = words(pdf, 1)
    rows = {}
    for word, x, y in found:
        if y < 100:
            rows.setdefault(round(y), []).append((x, word))
    lines = [" ".join(w for _, w in sorted(row)) for _, row in sorted(rows.items())]
    cut = next((line.split()[4] for line in lines if line.startswith("2 L")), "")
    expect("rows of the list", lines[-2:], [f"2 L 0.00 à {cut} 1:1000 - 1:100 oui", f"3 L {cut} à 600.00 1:1000 - 1:100 oui"])
    found = words(pdf, 2)
    marks = [w for w, x, _ in found if w.isdigit() and any(v == "feuille" and abs(x - u) < 0.5 for v, u, _ in found)]
    expect("the sheet that goes on is counted with the list", "3" in marks, True)
    for page in (1, 3):
        its = words(os.path.join(folder, f"l{page}.pdf"), 1)
        lost = [w for w in words(pdf, page) if not any(w[0] == v[0] and math.dist(w[1:], v[1:]) < 0.3 for v in its)]
        expect(f"what layout {page} of a set with a list misses", lost[:3], [])
    said = run(folder, profile + ["PLV-FEUILLES", "A4", "Liste", "Liste", "2000", "x", "sans.pdf"] +
               ['(princ (strcat "pages " (itoa (plv-liste-pages 40 (plv-feuilles:place (plv-feuilles:modele "A4"))))))'])
    expect("a list that is taken back", "Liste des feuilles" in read("pdftohtml", "-xml", "-i", "-stdout", os.path.join(folder, "sans.pdf")), False)
    expect("40 rows on A4", "pages 3" in said, True)


def check_logo(folder, profile):
    """A picture twice as wide as high stands in the room of the title block, in the middle of its height, in the PDF and in the layout."""
    os.makedirs(os.path.join(folder, "images"), exist_ok=True)
    rows = b"".join(b"\0" + b"\xd0\x20\x20" * 40 for _ in range(20))
    png = b"\x89PNG\r\n\x1a\n"
    for kind, data in ((b"IHDR", struct.pack(">IIBBBBB", 40, 20, 8, 2, 0, 0, 0)), (b"IDAT", zlib.compress(rows)), (b"IEND", b"")):
        png += struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    with open(os.path.join(folder, "images", "logo.png"), "wb") as out:
        out.write(png)
    logo = profile + ["_.SAVEAS", "2018", "d.dxf", "PLV-CARTOUCHE", "loGo", os.path.join(folder, "images", "logo.png"), "Fin"]
    said = run(folder, logo + ["PLV-FEUILLES", "A2", "1000", "x", "g.pdf", "PLV-PRESENTATIONS", "A2", "1000", "x"],
               "--save", "d.dxf", "--layout", "Feuille 1", "--plot", "g1.pdf")
    expect("a logo that is there is told of", "attention: logo" in said, False)
    places = []
    for name in ("g.pdf", "g1.pdf"):
        read("pdftoppm", "-r", "50.8", "-f", "1", "-l", "1", os.path.join(folder, name), os.path.join(folder, "logo"))
        file = next(n for n in sorted(os.listdir(folder)) if n.startswith("logo") and n.endswith(".ppm"))
        with open(os.path.join(folder, file), "rb") as picture:
            _, size, _, pixels = picture.read().split(b"\n", 3)
        os.remove(os.path.join(folder, file))
        width = int(size.split()[0])
        red = [i // 3 for i in range(0, len(pixels), 3) if pixels[i:i + 3] == b"\xd0\x20\x20"]
        # two pixels a millimetre
        places.append([round(v / 2) for v in (min(p % width for p in red), max(p % width for p in red) + 1, red[0] // width, red[-1] // width + 1)] if red else None)
    # The room is 27 by 25 mm, 1.5 mm from the lines about it.
    expect("place of the logo on the sheet and in the layout", places, [[294, 320, 389, 403]] * 2)
    drawing = ezdxf.readfile(os.path.join(folder, "d.dxf"))
    expect("its path is one from the drawing", {d.dxf.filename for d in drawing.objects.query("IMAGEDEF")}, {"images/logo.png"})
    expect("faults that ezdxf finds with it", [str(e) for e in drawing.audit().errors], [])
    os.remove(os.path.join(folder, "d.dxf"))
    said = run(folder, logo + ['(vl-file-delete "images/logo.png")', "PLV-FEUILLES", "A2", "1000", "x", "g.pdf"])
    expect("a missing logo is told", "attention: logo images/logo.png: introuvable" in said, True)


def check_layouts(folder, profile, pdf):
    """The layouts of the same sheets, made twice, hold every word where the PDF has it, and another program reads them."""
    run(folder, profile + ["PLV-PRESENTATIONS", "A2", "1000", "autre titre", "PLV-PRESENTATIONS", "A2", "1000", "Rue élargie"], "--save", "p.dxf",
        "--layout", "Feuille 1", "--plot", "p1.pdf", "--layout", "Feuille 2", "--plot", "p2.pdf")
    for page in (1, 2):
        mine, its = words(pdf, page), words(os.path.join(folder, f"p{page}.pdf"), 1)
        for these, those, what in ((mine, its, "misses"), (its, mine, "adds")):
            lost = [w for w in these if not any(w[0] == v[0] and math.dist(w[1:], v[1:]) < 0.3 for v in those)]
            expect(f"what layout {page} {what}", lost[:3], [])
    drawing = ezdxf.readfile(os.path.join(folder, "p.dxf"))
    expect("layouts", drawing.layout_names()[-2:], ["Feuille 1", "Feuille 2"])
    expect("faults that ezdxf finds", [str(e) for e in drawing.audit().errors], [])


def check_torn(folder):
    """A label along a slope that a cut tears is whole on both sheets where it can hang over their edges, else on the first, and nothing of it on the other
    one; where the first has no room beside it, it is moved along its line on both. Layouts show the same by layers that are frozen in them, and one that is
    cut elsewhere shows it again."""
    # left of the second sheet stand the altitudes of an axis as high as the ground
    for peak, middle, end, more, wanted in ((26, 496, 980, "-et-plus-long", [1, 1]), (20, 300, 600, "", [1, 1]), (26, 300, 600, "", [1, 0])):
        label = "P0.20L300.00" + more
        with open(os.path.join(folder, "mots.txt"), "w", encoding="utf-8") as out:
            out.write(f"texte;arial.ttf;2.5\nlibelle;pente;P<P>L<L>{more}\n")
        with open(os.path.join(folder, "pic.csv"), "w", encoding="utf-8") as out:
            out.write(f"distance;altitude\n0;20\n{middle};{peak}\n{end};20\n")
        lines = ["PLV-NOUVEAU", "pic.csv", "T", "0,0", "10", "2.5", "150", "A", "PLV-MATRICES", "matrices-route.txt", "Espaces",
                 f"""(plv-projet (car (plv-profils)) "Projet" '((0.0 22.0) ({middle - 150}.0 22.8) ({middle + 150}.0 22.2) ({end}.0 22.6)))""",
                 "PLV-STYLE", "Fichier", "mots.txt", "Couleurs", "1000", "PLV-FEUILLES", "A2", "1000", "x", "c.pdf", "PLV-PRESENTATIONS", "A2", "1000", "x"]
        made = run(folder, lines + ['(princ (strcat "état " (vl-prin1-to-string (mapcar \'plv-etat-valeur (plv-etats (car (plv-profils)))))))'], "--save", "c.dxf",
                   "--layout", "Feuille 1", "--plot", "c1.pdf", "--layout", "Feuille 2", "--plot", "c2.pdf")
        expect("what layouts hide makes nothing stale", re.findall('état .*', made)[0].count("refaire"), 0)
        for name, page in (("c.pdf", 1), ("c.pdf", 2), ("c1.pdf", 1), ("c2.pdf", 1)):
            found = [w for w, _, _ in words(os.path.join(folder, name), page) if re.search("P0.20|20L|L300", w)]
            expect(f"a label at a cut at {middle} m under a ground of {peak} m in {name}, page {page}", found, [label] * wanted[1 if "2" in name or page == 2 else 0])
        drawing = ezdxf.readfile(os.path.join(folder, "c.dxf"))
        layer = next(t.dxf.layer for t in drawing.modelspace().query("TEXT") if t.dxf.text == label)
        for sheet in ("Feuille 1", "Feuille 2"):
            frozen = [n for v in drawing.layout(sheet).query("VIEWPORT") for n in v.frozen_layers]
            expect(f"{sheet} freezes the layer of the label", layer in frozen, True)
        expect("the layer looks like that of labels", [drawing.layers.get(n).color for n in (layer, "PLV-LIBELLES")], [drawing.layers.get("PLV-LIBELLES").color] * 2)
        expect("faults that ezdxf finds with frozen layers", [str(e) for e in drawing.audit().errors], [])
    run(folder, lines + ["PLV-PRESENTATIONS", "A0", "2000", "x"], "--save", "c.dxf")
    drawing = ezdxf.readfile(os.path.join(folder, "c.dxf"))
    expect("the label is on its layer again", [t.dxf.layer for t in drawing.modelspace().query("TEXT") if t.dxf.text == label], ["PLV-LIBELLES"])
    expect("copies of layers that are left", [n.dxf.name for n in drawing.layers if "-HORS-" in n.dxf.name], [])


def check_greys(folder, pdf, coloured):
    """Whether a page has colours."""
    read("pdftoppm", "-r", "40", "-f", "1", "-l", "1", pdf, os.path.join(folder, "page"))
    name = next(n for n in sorted(os.listdir(folder)) if n.startswith("page") and n.endswith(".ppm"))
    with open(os.path.join(folder, name), "rb") as picture:
        pixels = picture.read().split(b"\n", 3)[3]
    os.remove(os.path.join(folder, name))
    expect(f"{os.path.basename(pdf)} has colours", any(pixels[i] != pixels[i + 1] or pixels[i] != pixels[i + 2] for i in range(0, len(pixels), 3)), coloured)


def main():
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, "long.csv"), "w", encoding="utf-8") as out:
            out.write("distance;altitude\n" + "".join(f"{d};{20 + (d // 20) % 3}\n" for d in range(0, 601, 20)))
        far = 620 * math.sqrt(0.5)
        profile = ["PLV-NOUVEAU", "long.csv", "L", "0,0", "10", "2.5", "150", "A", "PLV-MATRICES", "matrices-route.txt", "Espaces",
                   f'(plv-associer-axe (car (plv-profils)) (plv-polyligne "PLV-PROJET" \'((5000.0 5000.0) ({5000 + far} {5000 + far}))))',
                   "PLV-STYLE", "Route", "Couleurs", "1000"]
        fields = [f'(plv-cartouche-noter "{name}" "{text}")' for name, text in FIELDS]
        sheets = ["PLV-FEUILLES", "A2", "1000", "Rue élargie", "f.pdf"]
        said = run(folder, profile + fields + sheets, "--plot", "couleurs.pdf", "--colours", "grey", "--plot", "gris.pdf")
        expect("no plan is left out", "pas de place" in said, False)
        pdf = os.path.join(folder, "f.pdf")
        expect("pages", check_file(pdf), 2)
        first = words(pdf, 1)
        check_title_block(first)
        check_plan(first, [50, 100, 200, 250], 1000)
        expect("the second sheet has its plan", len(places(words(pdf, 2), "550")) >= 2, True)
        check_layouts(folder, profile + fields, pdf)
        check_list(folder, profile)
        check_logo(folder, profile)
        check_torn(folder)
        # By itself the scale leaves room for the plan; on A4 there is none.
        said = run(folder, profile + ["PLV-FEUILLES", "A4", "2000", "Rue", "a4.pdf"])
        expect("a plan without room is told", "pas de place pour le plan" in said, True)
        # --colours holds for the plots after it, and for those before all of them
        check_greys(folder, os.path.join(folder, "gris.pdf"), False)
        check_greys(folder, pdf, True)
        # so do hatches, which have colours of their own, on sheets of a style in greys, or of one that has no colours
        trench = ['(setq p (car (plv-profils)) g "Assainissement")',
                  '(plv-reseau-ecrire p g \'("regard;A;20;visite;1000/1240;;;17" "regard;B;200;visite;1000/1240;;;16" "tuyau;A;B;300/376"))',
                  '(plv-tranchees-ecrire-regles p g (plv-lire-lignes (findfile "tranchees-assainissement.txt")))', "(plv-hachurer-tranchees p g T)"]
        for style, colours, coloured in (("Route", "Couleurs", True), ("Route", "Gris", False), ("Monochrome", "Couleurs", False)):
            run(folder, profile[:-4] + trench + ["PLV-STYLE", style, colours, "1000", "PLV-FEUILLES", "A2", "1000", "x", f"{style}-{colours}.pdf"])
            run(folder, profile[:-4] + trench + ["PLV-STYLE", style, colours, "1000", "PLV-PRESENTATIONS", "A2", "1000", "x"], "--layout", "Feuille 1",
                "--plot", "layout.pdf")
            for name in (f"{style}-{colours}.pdf", "layout.pdf"):
                check_greys(folder, os.path.join(folder, name), coloured)
        # A table that is chosen is that of the layouts, too.
        run(folder, profile + ["PLV-STYLE", "Route", "Couleurs", "1000", "PLV-FEUILLES", "A2", "Couleurs", "noir", "1000", "x", "t.pdf",
                               "PLV-PRESENTATIONS", "A2", "1000", "x"], "--layout", "Feuille 1", "--plot", "t1.pdf")
        for name in ("t.pdf", "t1.pdf"):
            check_greys(folder, os.path.join(folder, name), False)
        for name in ("A0", "A1", "A3", "R297", "R841"):
            said = run(folder, profile + ["PLV-FEUILLES", name, "2000", "Rue", "g.pdf"])
            size = re.search(r"Page size: +([\d.]+) x ([\d.]+)", read("pdfinfo", os.path.join(folder, "g.pdf"))).groups()
            expect(f"height of {name}", round(float(size[1]) / POINTS), {"A0": 841, "A1": 594, "A3": 297, "R297": 297, "R841": 841}[name])
    return told()


if __name__ == "__main__":
    sys.exit(main())
