#!/usr/bin/python3
"""Layouts are plotted as another program lays them out: sheets, scales, viewports, layers frozen in one of them.

ezdxf writes random layouts; where each text must stand on the sheet follows from the matrix that ezdxf gives for a viewport.
The seed is printed with what differs.
"""
import os
import random
import re
import subprocess
import sys
import tempfile

import ezdxf
from ezdxf.math import Vec3

KAVEL = sys.argv[1]
MM = 25.4 / 72
NEAR = 0.5  # millimetres: a word's box is its ink's


def words(pdf, page):
    """{word: (left, bottom)} in millimetres from the lower left corner of the page."""
    text = subprocess.run(["pdftotext", "-f", str(page), "-l", str(page), "-bbox", pdf, "-"], capture_output=True, text=True, check=True).stdout
    height = float(re.search(r'height="([\d.]+)"', text).group(1))
    found = re.findall(r'xMin="([\d.-]+)" yMin="[\d.-]+" xMax="[\d.-]+" yMax="([\d.-]+)">(\w+)<', text)
    return {word: (float(x) * MM, (height - float(y)) * MM) for x, y, word in found}


def plot(source, target, *options):
    return subprocess.run([KAVEL, source, "--no-frontal", "--quiet", *options, "--plot", target], capture_output=True, text=True)


def layout(rng, doc, name):
    """A layout with some viewports; gives the margin and the matrices by which its words stand."""
    page = doc.layouts.new(name)
    margin = rng.choice((0, 5, 12.5))
    page.page_setup(size=rng.choice(((420, 297), (297, 210), (210, 297))), margins=(margin,) * 4, units="mm")
    matrices = []
    for i in range(rng.randint(1, 3)):
        port = page.add_viewport(center=(70 + 40 * i, 90), size=(rng.uniform(60, 90), rng.uniform(60, 90)),
                                 view_center_point=(rng.uniform(990, 1010), rng.uniform(1990, 2010)), view_height=rng.uniform(40, 200))
        frozen = rng.random() < 0.5
        if frozen:
            port.frozen_layers = ["CACHE"]
        matrices.append((port, frozen))
    return page, margin, matrices


def inside(port, point):
    """Well within its window, so that no letter is cut."""
    c, w, h = port.dxf.center, port.dxf.width / 2 - 12, port.dxf.height / 2 - 8
    return abs(point.x - c.x) < w and abs(point.y - c.y) < h


def compare(seed, folder):
    rng = random.Random(seed)
    doc = ezdxf.new("R2010", setup=True)
    doc.layers.add("CACHE")
    places = {f"V{i}": Vec3(1000 + rng.uniform(-20, 20), 2000 + rng.uniform(-20, 20)) for i in range(6)}
    for word, at in places.items():
        doc.modelspace().add_text(word, height=0.5, dxfattribs={"insert": at, "layer": "CACHE" if word == "V0" else "0"})
    doc.layouts.delete("Layout1") if len(doc.layouts) > 2 else None
    pages = [layout(rng, doc, name) for name in ("Plan été", "Détail")]
    source, target = os.path.join(folder, "plan.dxf"), os.path.join(folder, "plan.pdf")
    doc.saveas(source)
    faults = []
    for page, margin, ports in pages:
        done = plot(source, target, "--layout", page.name)
        if done.returncode:
            return [done.stderr]
        found = words(target, 1)
        for word, at in places.items():
            seen = [port.get_transformation_matrix().transform(at) for port, frozen in ports if not (frozen and word == "V0")]
            wanted = [p + Vec3(margin, margin) for p, (port, _) in zip(seen, ports) if inside(port, p)]
            hidden = word == "V0" and all(frozen for _, frozen in ports)
            if hidden and word in found:
                faults.append((page.name, word, "shown"))
            # With several windows a word stands in each that shows it; one of the places is the one that was read.
            if wanted and len(ports) == 1 and (word not in found or abs(found[word][0] - wanted[0].x) > NEAR or abs(found[word][1] - wanted[0].y) > NEAR):
                faults.append((page.name, word, found.get(word), wanted[0]))
    return faults


def an_empty_model_shows_all_layouts(folder):
    doc = ezdxf.new("R2010", setup=True)
    for name, size in (("Un", (297, 210)), ("Deux", (420, 297)), ("Vide", (210, 297))):
        page = doc.layouts.new(name)
        page.page_setup(size=size, margins=(0,) * 4, units="mm")
        if name != "Vide":
            page.add_text(name, height=5, dxfattribs={"insert": (20, 30)})
    source, target = os.path.join(folder, "vide.dxf"), os.path.join(folder, "vide.pdf")
    doc.saveas(source)
    plot(source, target)
    info = subprocess.run(["pdfinfo", "-f", "1", "-l", "9", target], capture_output=True, text=True, check=True).stdout
    sizes = [tuple(round(float(v) * MM) for v in found) for found in re.findall(r"size: +([\d.]+) x ([\d.]+)", info)]
    if sizes != [(297, 210), (420, 297)] or "Un" not in words(target, 1) or "Deux" not in words(target, 2):
        return [("pages", sizes)]
    plot(source, os.path.join(folder, "vide.png"))
    if not all(os.path.exists(os.path.join(folder, f"vide-{name}.png")) for name in ("Un", "Deux")):
        return [("pictures", os.listdir(folder))]
    done = plot(source, target, "--layout", "Trois")
    return [] if done.returncode == 3 and "pas de présentation Trois" in done.stderr else [("unknown layout", done.returncode, done.stderr)]


def a_viewport_may_be_round(folder):
    """A red square fills the window, whose outline is a circle of radius 20 at 100, 100."""
    doc = ezdxf.new("R2010", setup=True)
    doc.modelspace().add_solid([(0, 0), (200, 0), (0, 200), (200, 200)], dxfattribs={"color": 1})
    page = doc.layouts.new("Rond")
    page.page_setup(size=(297, 210), margins=(0,) * 4, units="mm")
    port = page.add_viewport(center=(100, 100), size=(80, 80), view_center_point=(100, 100), view_height=160)
    circle = page.add_circle((100, 100), 20)
    port.dxf.flags = port.dxf.flags | 0x10000
    port.dxf.clipping_boundary_handle = circle.dxf.handle
    source, target = os.path.join(folder, "rond.dxf"), os.path.join(folder, "rond.pdf")
    doc.saveas(source)
    plot(source, target, "--layout", "Rond")
    data = subprocess.run(["pdftoppm", "-r", "254", "-singlefile", target], check=True, capture_output=True).stdout
    _, size, _, body = data.split(b"\n", 3)
    width, height = map(int, size.split())
    at = {place: tuple(body[3 * (round((210 - place[1]) * 10) * width + round(place[0] * 10)):][:3]) for place in ((100, 100), (113, 113), (117, 117), (70, 70))}
    red, white = (255, 0, 0), (255, 255, 255)
    wanted = {(100, 100): red, (113, 113): red, (117, 117): white, (70, 70): white}
    return [] if at == wanted else [("a round window", at)]


def a_sheet_is_drawn_on(folder):
    """CTAB chooses any layout: what is drawn then stands there in the saved drawing, and the file opens as before."""
    doc = ezdxf.new("R2010", setup=True)
    for name in ("Plan", "Coupe A-B"):
        doc.layouts.new(name)
    source, target = os.path.join(folder, "feuilles.dxf"), os.path.join(folder, "dessine.dxf")
    doc.saveas(source)
    done = subprocess.run([KAVEL, source, "--no-frontal", "--quiet", "-e", '(setvar "CTAB" "coupe a-b")', "-e", '(command "_CIRCLE" "10,20" 5)',
                           "-e", "(entmake '((0 . \"LINE\") (10 0. 0. 0.) (11 9. 9. 0.)))", "-e", '(setvar "CTAB" "Plan")',
                           "-e", '(command "_POINT" "1,2")', "-e", '(setvar "CTAB" "Model")', "-e", '(command "_LINE" "0,0" "1,1" "")',
                           "-e", '(vl-catch-all-error-p (vl-catch-all-apply (quote setvar) (list "CTAB" "Absente")))', "--save", target],
                          capture_output=True, text=True)
    saved = ezdxf.readfile(target)
    held = {layout.name: sorted(e.dxftype() for e in layout if e.dxftype() != "VIEWPORT") for layout in saved.layouts}
    wanted = {"Model": ["LINE"], "Layout1": [], "Plan": ["POINT"], "Coupe A-B": ["CIRCLE", "LINE"]}
    faults = [] if held == wanted else [("drawn on sheets", held)]
    if not done.stdout.rstrip().endswith("T"):
        faults.append(("an unknown layout", done.stdout, done.stderr))
    if saved.audit().has_errors or any(e.dxf.paperspace != 1 for e in saved.layouts.get("Plan")):
        faults.append(("audit", saved.audit().errors))
    return faults


def main():
    seeds = [int(s) for s in sys.argv[2:]] or range(12)
    faults = []
    with tempfile.TemporaryDirectory() as folder:
        faults += an_empty_model_shows_all_layouts(folder)
        faults += a_sheet_is_drawn_on(folder)
        faults += a_viewport_may_be_round(folder)
        for seed in seeds:
            faults += [(f"seed {seed}", *f) for f in compare(seed, folder)]
    for fault in faults:
        print(*fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
