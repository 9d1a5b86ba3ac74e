#!/usr/bin/env python3
"""Exports what was imported and compares the two with a reader of its own.

Usage: aller_retour.py KAVEL SOURCE. Small files of every vertex form, with a change of plane in a curve; the real ones of
../shared/donnees when they are there. Stations, altitudes, lengths and radii agree to a micrometre, the text files too.
"""
import csv
import os
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ET

KAVEL, SOURCE = sys.argv[1:3]
FEET = 0.3048
SMALL = """<?xml version="1.0" encoding="ISO-8859-1"?>
<LandXML xmlns="http://www.landxml.org/schema/LandXML-1.0" version="1.0"><Units><{system} linearUnit="{unit}"/></Units>
<Alignments><Alignment name="Rue de l'\xe9glise" staStart="1000" length="400"><Profile>
<ProfSurf name="TN"><PntList2D>1000 140 1050.5 138.25
1100 136.125 1200 131 1300.333333333 129.5 1400 124</PntList2D></ProfSurf>
<ProfAlign name="Voirie"><PVI>1000 139.5</PVI><ParaCurve length="60">1090.123456789 136</ParaCurve>
<CircCurve length="44.96" radius="1500">1190 131.5</CircCurve>
<UnsymParaCurve lengthIn="25" lengthOut="45">1260 130</UnsymParaCurve><PVI>1330 127</PVI>
<CircCurve length="10" radius="-300">1370 124.5</CircCurve><PVI>1400 121.75</PVI></ProfAlign></Profile></Alignment></Alignments></LandXML>
"""
faults = []


def local(element):
    return element.tag.split("}")[-1]


def profile_of(path):
    """Ground points and vertices (form, station, altitude, attributes but the arc of circles), in metres."""
    root = ET.parse(path).getroot()
    metres = FEET if any(local(e) == "Imperial" for e in root.iter()) else 1.0
    ground, vertices = [], []
    for element in root.iter():
        if local(element) == "PntList2D":
            numbers = [float(n) * metres for n in element.text.split()]
            for point in zip(numbers[::2], numbers[1::2]):
                if not ground or point != ground[-1]:
                    ground.append(point)
        if local(element) in ("PVI", "ParaCurve", "UnsymParaCurve", "CircCurve"):
            at = [float(n) * metres for n in element.text.split()]
            attributes = {k: abs(float(v)) * metres for k, v in element.attrib.items()}
            if local(element) == "CircCurve":
                attributes.pop("length")
            vertices.append((local(element), *at, attributes))
    return ground, vertices


def near(a, b):
    return abs(a - b) <= 1e-6


def compare(name, before, after):
    ground, vertices = before
    if ground and (len(ground) != len(after[0]) or not all(near(a, b) for p, q in zip(ground, after[0]) for a, b in zip(p, q))):
        faults.append(f"{name}: the ground differs")
    if [v[0] for v in vertices] != [v[0] for v in after[1]]:
        faults.append(f"{name}: vertices {[v[0] for v in after[1]]}")
        return
    for v, w in zip(vertices, after[1]):
        if not (near(v[1], w[1]) and near(v[2], w[2]) and all(near(v[3][k], w[3][k]) for k in v[3])):
            faults.append(f"{name}: {v} became {w}")


def kavel(folder, *arguments):
    environment = dict(os.environ, KAVEL_FRONTAL=os.path.join(SOURCE, "frontal"), KAVEL_CHEMIN=os.path.join(folder, "reglages"))
    run = subprocess.run([KAVEL, *arguments], cwd=folder, env=environment, capture_output=True, text=True)
    if run.returncode != 0:
        faults.append(f"{arguments}: {run.returncode} {run.stdout} {run.stderr}")


def script(folder, lines):
    with open(os.path.join(folder, "s.scr"), "w", encoding="utf-8") as out:
        out.write("\n".join(lines) + "\n")
    return os.path.join(folder, "s.scr")


def round_trip(folder, path, genre, planes):
    """Through a saved drawing, LandXML and text."""
    has_ground = bool(profile_of(path)[0])
    lines = ["PLV-NOUVEAU", path] + ([] if has_ground else [""]) + ["1", "500,300", "10", "2.5", "150", "A", genre]
    for distance, altitude in planes:
        lines += ["PLV-PC", "Ajouter", str(distance), str(altitude)]
    kavel(folder, "--script", script(folder, lines), "--save", "d.dxf")
    lines = ["PLV-EXPORT", "L", "sortie.xml", "PLV-EXPORT", "T", "Terrain", "tn.csv", "PLV-EXPORT", "T", "Projet", genre, "projet.csv"]
    kavel(folder, "d.dxf", "--script", script(folder, lines))
    before, after = profile_of(path), profile_of(os.path.join(folder, "sortie.xml"))
    if planes:  # the change of plane adds a ground point
        after = ([p for p in after[0] if any(near(p[0], q[0]) for q in before[0])], after[1])
    compare(os.path.basename(path), before, after)
    lines = ["PLV-NOUVEAU", "tn.csv", "1", "0,0", "10", "2.5", "150", "A", "PLV-PROJET", genre, "F", "projet.csv", "PLV-EXPORT", "L", "texte.xml"]
    kavel(folder, "--script", script(folder, lines))
    compare(os.path.basename(path) + " as text", profile_of(os.path.join(folder, "sortie.xml")), profile_of(os.path.join(folder, "texte.xml")))


def main():
    with tempfile.TemporaryDirectory() as folder:
        for system, unit in (("Metric", "meter"), ("Imperial", "foot")):
            path = os.path.join(folder, f"petit-{unit}.xml")
            with open(path, "w", encoding="latin-1") as out:
                out.write(SMALL.format(system=system, unit=unit))
            # a plane that begins in the first curve, and one in the second half of the parabola of two halves
            scale = 1.0 if system == "Metric" else FEET
            round_trip(folder, path, "Voirie", [(1100 * scale, 125 * scale), (1280 * scale, 110 * scale)])
        for name in ("route-principale.xml", "axe-m3.xml"):
            path = os.path.join(SOURCE, "..", "shared", "donnees", name)
            if os.path.exists(path):
                round_trip(folder, os.path.abspath(path), "Projet", [])
            else:
                print(f"{name} is not there: passed by")
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
