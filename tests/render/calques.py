#!/usr/bin/python3
"""Layers of a PDF: switched off there, a layer leaves what a plot without it shows. Poppler draws both.

ezdxf writes random drawings whose layers alternate; the seed is printed with what differs.
"""
import os
import random
import re
import subprocess
import sys
import tempfile

import ezdxf

KAVEL = sys.argv[1]
LAYERS = ["TERRAIN", "Réseau d'eau (été)", "0", "PLV-COTES"]
WINDOW = "0,0,200,150"


def entity(space, layer, rng):
    at = (rng.uniform(10, 190), rng.uniform(10, 140))
    look = {"layer": layer, "color": rng.randint(1, 7)}
    to = (rng.uniform(0, 200), rng.uniform(0, 150))
    kind = rng.randint(0, 5)
    if kind == 0:
        space.add_line(at, to, {**look, "lineweight": rng.choice((13, 50))})
    elif kind == 1:
        space.add_text("Profil 12.50", height=4, rotation=rng.uniform(0, 90), dxfattribs=look).set_placement(at)
    elif kind == 2:
        space.add_hatch(color=look["color"], dxfattribs={"layer": layer}).paths.add_polyline_path([at, to, (at[0], to[1])], is_closed=True)
    elif kind == 3:
        space.add_circle(at, rng.uniform(2, 30), look)
    elif kind == 4:
        space.add_blockref("REGARD", at, {"layer": layer})
    else:
        space.add_lwpolyline([at, to, (at[0], to[1])], dxfattribs={**look, "linetype": "DASHED", "ltscale": 5})


def drawing(rng):
    doc = ezdxf.new("R2010", setup=True)
    for layer in LAYERS:
        if layer != "0":
            doc.layers.add(layer)
    block = doc.blocks.new("REGARD")
    block.add_circle((0, 0), 3)
    block.add_text("R", height=3)
    for _ in range(40):
        entity(doc.modelspace(), rng.choice(LAYERS), rng)
    return doc


def plot(doc, folder, name):
    source, target = os.path.join(folder, name + ".dxf"), os.path.join(folder, name + ".pdf")
    doc.saveas(source)
    subprocess.run([KAVEL, source, "--no-frontal", "--quiet", "--window", WINDOW, "--plot", target], check=True)
    return target


def switched_off(pdf, layer):
    """The same file with a layer off, and the names of all its layers."""
    plain = pdf[:-4] + "-qdf.pdf"
    subprocess.run(["qpdf", "--qdf", "--object-streams=disable", pdf, plain], check=True)
    with open(plain, "rb") as file:
        text = file.read()
    groups = {name(found[1]): found[0] for found in re.findall(rb"(\d+) 0 obj\n<<\n  /Name ([(<].*[)>])\n  /Type /OCG", text)}
    if layer in groups:
        text = text.replace(b"/ON [", b"/OFF [ %s 0 R ] /ON [" % groups[layer])
    with open(plain, "wb") as file:
        file.write(subprocess.run(["fix-qdf"], input=text, stdout=subprocess.PIPE, check=True).stdout)
    return plain, set(groups)


def name(literal):
    """A text string of a PDF: UTF-16 in hexadecimal, or plain letters."""
    if literal.startswith(b"<"):
        return bytes.fromhex(literal[1:-1].decode()).decode("utf-16")
    return literal[1:-1].replace(b"\\(", b"(").replace(b"\\)", b")").decode("latin-1")


def pixels(pdf):
    done = subprocess.run(["pdftoppm", "-r", "60", "-gray", pdf], stdout=subprocess.PIPE, check=True).stdout
    return done.split(b"\n", 3)[3]


def compare(seed, folder):
    rng = random.Random(seed)
    doc = drawing(rng)
    layer = rng.choice(LAYERS)
    off, found = switched_off(plot(doc, folder, "tout"), layer)
    used = {e.dxf.layer for e in doc.modelspace()}
    if found != used:
        return f"layers {sorted(found)}, in the drawing {sorted(used)}"
    for e in list(doc.modelspace()):
        if e.dxf.layer == layer:
            doc.modelspace().delete_entity(e)
    a, b = pixels(off), pixels(plot(doc, folder, "sans"))
    differing = sum(abs(x - y) > 64 for x, y in zip(a, b))
    return f"{differing} of {len(a)} pixels differ without {layer}" if len(a) != len(b) or differing > len(a) / 5000 else None


def main():
    first = int(sys.argv[2]) if len(sys.argv) > 2 else 1
    faults = 0
    with tempfile.TemporaryDirectory() as folder:
        for seed in range(first, first + 12):
            if fault := compare(seed, folder):
                faults += 1
                print(f"seed {seed}: {fault}")
    print(f"{faults} faults")
    return faults > 0


if __name__ == "__main__":
    sys.exit(main())
