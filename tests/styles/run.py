#!/usr/bin/env python3
"""Plays random profiles with random styles and looks at the ink of their texts: none overlaps another, none is lower than 1.8 mm.

Usage: run.py KAVEL SOURCE [--runs N] [--seed S] [--keep FOLDER]. Exit status 1 and one line for each fault.
"""
import argparse
import math
import os
import random
import subprocess
import sys
import tempfile

STYLES = ["Route", "Assainissement", "Eau-potable", "Monochrome"]
TABLES = ["matrices-route.txt", "matrices-assainissement.txt"]
LEAST = 1.8
FORMERLY_BAD = [5193, 938993]  # letters below the base line of a manhole's name over a dimension
NAMES = ["Regard", "Carrefour D12", "Branchement AEP", "Entrée", "Pont", "Avaloir"]


class Box:
    """What a text covers: middle, width, height, angle."""

    def __init__(self, line):
        *numbers, self.words = line.rstrip("\n").split("\t")
        self.x, self.y, self.width, self.height, self.angle, self.text = map(float, numbers)
        c, s = math.cos(self.angle), math.sin(self.angle)
        self.corners = [(self.x + u * c - v * s, self.y + u * s + v * c)
                        for u, v in ((a * self.width / 2, b * self.height / 2) for a in (-1, 1) for b in (-1, 1))]
        self.left, self.right = min(x for x, _ in self.corners), max(x for x, _ in self.corners)

    def overlaps(self, other):
        """Two boxes are apart when they are along a side of one of them; a thousandth of a text height doesn't count."""
        slack = 1e-3 * min(self.text, other.text)
        for angle in (self.angle, self.angle + math.pi / 2, other.angle, other.angle + math.pi / 2):
            c, s = math.cos(angle), math.sin(angle)
            mine, its = ([c * x + s * y for x, y in box.corners] for box in (self, other))
            if max(mine) <= min(its) + slack or max(its) <= min(mine) + slack:
                return False
        return True


def overlaps(boxes):
    boxes = sorted(boxes, key=lambda b: b.left)
    for i, a in enumerate(boxes):
        for b in boxes[i + 1:]:
            if b.left >= a.right:
                break
            if a.overlaps(b):
                yield a, b


def ground(chance):
    """Distances and altitudes of a walk, some of its points with names."""
    length, d, z = chance.uniform(60, 900), 0.0, chance.uniform(5, 900)
    rough = chance.choice([0.02, 0.06, 0.15])
    points = []
    while d < length:
        points.append((d, z, chance.choice(NAMES) if chance.random() < 0.15 else ""))
        step = chance.choice([2, 5, 10, 20]) * chance.uniform(0.5, 1.5)
        d, z = d + step, z + step * chance.gauss(0, rough)
    return points


def project(chance, points, depth):
    """Vertices over or under the ground, with curves at most of them that have room."""
    last = points[-1][0]
    inner = sorted(chance.uniform(0.08, 0.92) * last for _ in range(chance.randint(0, 4)))
    stations = [0.0] + [d for d, before in zip(inner, [0.0] + inner) if d - before > 0.06 * last] + [last]
    rows = []
    for d in stations:
        z = min(points, key=lambda p: abs(p[0] - d))[1] - depth + chance.uniform(-0.3, 0.3)
        curve = f"L{0.04 * last:.2f}" if chance.random() < 0.7 and 0 < d < last else ""
        rows.append(f"{d:.3f};{z:.3f};{curve};{chance.choice('CP') if curve else ''}")
    return rows


def network(chance, points, line):
    """Manholes and the pipes between them along a line, whose rows are given, and crossings; covers are above the line with its curves."""
    vertices = [tuple(map(float, row.split(";")[:2])) for row in line]

    def cover(d):
        (a, y), (b, z) = next(pair for pair in zip(vertices, vertices[1:]) if pair[1][0] >= d)
        return max(min(points, key=lambda p: abs(p[0] - d))[1], y + (z - y) * (d - a) / (b - a) + 4)

    last = points[-1][0]
    stations = sorted({round(chance.uniform(0, last), 2) for _ in range(chance.randint(2, 9))})
    rows = [f"regard;{chance.choice(['R', 'EU ', 'Regard '])}{i};{d:.2f};visite;1000/1240;{cover(d):.3f}" for i, d in enumerate(stations)]
    names = [row.split(";")[1] for row in rows]
    rows += [f"tuyau;{a};{b};{chance.choice(['250/280;fonte;C60', '400/500;béton;135A', '1000/1200;béton;135A'])}" for a, b in zip(names, names[1:])]
    for i in range(chance.randint(0, 2)):
        d = chance.uniform(0, last)
        rows.append(f"croisement;{chance.choice(['Gaz', 'AEP DN200'])} {i};{d:.2f};{min(points, key=lambda p: abs(p[0] - d))[1] - 0.8:.3f};0.2;90")
    return rows


def blocks(chance, points, denominator):
    """Points of the ground where blocks with attributes stand, whose words are apart."""
    places = []
    for d, _, _ in points:
        if chance.random() < 0.3 and (not places or d - places[-1] > 14 * denominator / 1000):
            places.append(d)
    return places


def script(chance, points):
    """The commands of a run, the scale, and the files that it needs."""
    denominator = chance.choice([100, 200, 250, 500, 1000, 2000])
    exaggeration = chance.choice([1, 5, 10, 10, 20])
    height = 2.5 * denominator / 1000
    files = {"sol.csv": ["distance;altitude;nom"] + [f"{d:.3f};{z:.3f};{n}" for d, z, n in points]}
    lines = [f'(setq p (plv-nouveau "sol.csv" "{chance.choice(["1", "A12", "Rue"])}" \'({chance.choice(["0.0 0.0", "652000.0 6862000.0"])} 0.0)'
             f' {exaggeration}.0 {height} {chance.choice([40, 90, 200]) * denominator / 1000.0} nil))']
    apart = random.Random(len(points) + denominator)  # what came before blocks were drawn stays as it was for a seed
    if apart.random() < 0.4:
        places = blocks(apart, points, denominator)
        lines.append(f'(poser-regards p "Assainissement" \'({" ".join(f"{d:.3f}" for d in places)}) {2.0 * denominator / 1000})')
    for kind, depth in chance.sample([("Projet", 0.0), ("Assainissement", 4.0), ("AEp", 2.5)], chance.randint(0, 3)):
        files[kind + ".csv"] = project(chance, points, depth)
        lines.append(f'(plv-projet-fichier p "{kind}" "{kind}.csv")')
        if chance.random() < 0.5:
            which = chance.choice(["Toutes", "Altitudes", "Hauteurs"])
            lines.append(f'(plv-coter p "{kind}" (* 0.5 pi) "{which}" (plv-elements p "{kind}"))')
        if kind != "Projet" and chance.random() < 0.6:
            files[kind + "-reseau.csv"] = network(chance, points, files[kind + ".csv"])
            lines += [f'(plv-reseau-ecrire p "{kind}" (plv-lire-lignes "{kind}-reseau.csv"))', f'(plv-dessiner-reseau p "{kind}")']
    orders = [f'(plv-matrices p "{chance.choice(TABLES)}" nil)',
              f'(plv-style "{chance.choice(STYLES)}" {chance.choice(["nil", "T"])} {denominator}.0)']
    chance.shuffle(orders)
    return lines + orders + ['(ecrire-boites "boites.txt")'], denominator, files


def run(kavel, source, seed, folder):
    """The faults of a run."""
    chance = random.Random(seed)
    lines, denominator, files = script(chance, ground(chance))
    for name, rows in files.items():
        with open(os.path.join(folder, name), "w", encoding="utf-8") as out:
            out.write("\n".join(rows) + "\n")
    with open(os.path.join(folder, "s.scr"), "w", encoding="utf-8") as out:
        out.write("\n".join(lines) + "\n")
    environment = dict(os.environ, KAVEL_FRONTAL=os.path.join(source, "frontal"), KAVEL_CHEMIN=folder)
    made = subprocess.run([kavel, "--quiet", "--load", os.path.join(source, "tests", "styles", "boites.lsp"), "--script", "s.scr",
                           "--save", "profil.dxf"], cwd=folder, env=environment, capture_output=True, text=True)
    if made.returncode:
        return [f"status {made.returncode}: {made.stderr.strip()[:300]}"]
    with open(os.path.join(folder, "boites.txt"), encoding="cp1252") as written:
        boxes = [Box(line) for line in written]
    faults = [f'"{a.words}" overlaps "{b.words}" near {a.x:.2f},{a.y:.2f}' for a, b in overlaps(boxes)]
    return faults + [f'"{b.words}" is {1000 * b.text / denominator:.2f} mm high' for b in boxes
                     if 1000 * b.text / denominator < LEAST - 0.005]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("kavel")
    parser.add_argument("source")
    parser.add_argument("--runs", type=int, default=200)
    parser.add_argument("--seed", type=int)
    parser.add_argument("--keep")
    asked = parser.parse_args()
    first = asked.seed if asked.seed is not None else random.randrange(10**6)
    print(f"seeds from {first}, {asked.runs} runs")
    bad = 0
    seeds = [first] if asked.keep else FORMERLY_BAD + list(range(first, first + asked.runs))
    for seed in seeds:
        with tempfile.TemporaryDirectory() as folder:
            if asked.keep:
                os.makedirs(asked.keep, exist_ok=True)
            faults = run(os.path.abspath(asked.kavel), os.path.abspath(asked.source), seed, os.path.abspath(asked.keep or folder))
        for fault in faults:
            print(f"seed {seed}: {fault}")
        bad += bool(faults)
    print(f"{bad} runs with faults")
    sys.exit(1 if bad else 0)


if __name__ == "__main__":
    main()
