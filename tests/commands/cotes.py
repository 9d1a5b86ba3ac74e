#!/usr/bin/python3
"""Dimensions that another program left without their blocks are drawn as that program draws them itself.

ezdxf writes random dimensions with their blocks; the blocks are taken away, EXPLODE shows what is drawn in their place, and the
lines and texts of both are compared. The seed is printed with what differs.
"""
import math
import os
import random
import subprocess
import sys
import tempfile

import ezdxf

KAVEL = sys.argv[1]
NEAR = 1e-6


def style(rng):
    return {"dimtxt": rng.choice((2, 2.5)), "dimtsz": rng.choice((1, 2)), "dimexo": rng.choice((0.5, 1)), "dimexe": rng.choice((0.5, 1.25)),
            "dimgap": 0.6, "dimscale": rng.choice((1, 2)), "dimtad": 1, "dimdec": rng.randint(0, 3), "dimzin": rng.choice((0, 8)),
            "dimlfac": rng.choice((1, 100)), "dimdsep": ord(rng.choice(".,")), "dimdle": 0, "dimpost": rng.choice(("", "<> m"))}


def draw(rng, space):
    x, y = (rng.uniform(-1000, 1000) for _ in range(2))
    length = rng.uniform(60, 200)
    turn = rng.uniform(0, 2 * math.pi)
    far = (x + length * math.cos(turn), y + length * math.sin(turn))
    if rng.random() < 0.5:
        return space.add_aligned_dim(p1=(x, y), p2=far, distance=rng.choice((-1, 1)) * rng.uniform(10, 30), override=style(rng))
    # Far from being across what is measured, so that the text has room.
    angle = math.degrees(turn) + rng.uniform(-50, 50)
    return space.add_linear_dim(base=(x + rng.uniform(-30, 30), y + 40), p1=(x, y), p2=far, angle=angle, override=style(rng))


def segments(entities):
    return sorted(tuple(sorted(((round(e.dxf.start.x, 4), round(e.dxf.start.y, 4)), (round(e.dxf.end.x, 4), round(e.dxf.end.y, 4)))))
                  for e in entities if e.dxftype() == "LINE")


def texts(entities):
    return [(e.text if e.dxftype() == "MTEXT" else e.dxf.text) for e in entities if e.dxftype() in ("MTEXT", "TEXT")]


def long_lines(lines, tick):
    """Without ticks, which programs draw by blocks of their own."""
    return [s for s in lines if math.dist(*s) > 1.5 * tick]


def same(a, b):
    return len(a) == len(b) and all(math.dist(p, q) < 1e-3 for s, t in zip(a, b) for p, q in zip(s, t))


def compare(seed, folder):
    rng = random.Random(seed)
    doc = ezdxf.new("R2010", setup=True)
    dimension = draw(rng, doc.modelspace())
    dimension.render()
    entity = dimension.dimension
    block = doc.blocks.get(entity.dxf.geometry)
    theirs, said = segments(block), texts(block)
    tick = dimension.get("dimtsz") * dimension.get("dimscale")
    doc.blocks.delete_block(entity.dxf.geometry, safe=False)
    entity.dxf.discard("geometry")
    bare, exploded = os.path.join(folder, "sans.dxf"), os.path.join(folder, "partie.dxf")
    doc.saveas(bare)
    subprocess.run([KAVEL, bare, "--no-frontal", "--quiet", "-e", '(command "_EXPLODE" (ssname (ssget "X" \'((0 . "DIMENSION"))) 0))',
                    "--save", exploded], check=True, capture_output=True)
    parts = list(ezdxf.readfile(exploded).modelspace())
    ours = segments(parts)
    if texts(parts) != said:
        return f"text {texts(parts)}, not {said}"
    if not same(long_lines(ours, tick), long_lines(theirs, tick)):
        return f"lines\n  {long_lines(ours, tick)}, not\n  {long_lines(theirs, tick)}"
    return None


def main():
    seeds = [int(s) for s in sys.argv[2:]] or range(40)
    faults = 0
    with tempfile.TemporaryDirectory() as folder:
        for seed in seeds:
            if fault := compare(seed, folder):
                faults += 1
                print(f"seed {seed}: {fault}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
