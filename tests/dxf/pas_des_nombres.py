#!/usr/bin/env python3
# Drawings in which one coordinate is "nan" or infinite, of every kind of entity: the program lists, measures, selects, moves, takes
# apart, plots and saves them, and the audit names the entity. No assertion may end it.
import os
import subprocess
import sys
import tempfile

import ezdxf

KAVEL = sys.argv[1]
COMMANDS = ['(command "_ZOOM" "_E")', '(getvar "EXTMAX")', '(ssget "_C" (list -5.0 -5.0) (list 50.0 50.0))', '(ssget (list 1.0 1.0))',
            '(command "_COPY" "_ALL" "" "0,0" "1,1")', '(command "_MOVE" "_ALL" "" "0,0" "1,1")', '(command "_EXPLODE" "_ALL" "")']


def drawing():
    doc = ezdxf.new("R2010")
    block = doc.blocks.new("B")
    block.add_line((0, 0), (1, 1))
    block.add_attdef("T", (0, 0), dxfattribs={"height": 1})
    space = doc.modelspace()
    space.add_line((0, 0), (10, 10))
    space.add_circle((5, 5), 2)
    space.add_arc((5, 5), 3, 10, 80)
    space.add_ellipse((5, 5), (4, 0), 0.5, 0, 3)
    space.add_point((1, 2))
    space.add_text("abc", dxfattribs={"height": 2.5, "insert": (3, 4)})
    space.add_mtext("abc", dxfattribs={"char_height": 2.5, "insert": (3, 4)})
    space.add_lwpolyline([(0, 0, 0, 0, 0.5), (4, 4), (8, 0)])
    space.add_polyline2d([(0, 0), (4, 4), (8, 0)])
    space.add_polyline3d([(0, 0, 1), (4, 4, 2), (8, 0, 3)])
    space.add_spline([(0, 0, 0), (3, 4, 0), (6, 0, 0)])
    space.add_open_spline([(0, 0, 0), (3, 4, 0), (6, 0, 0), (9, 3, 0)])
    space.add_solid([(0, 0), (1, 0), (0, 1), (1, 1)])
    space.add_3dface([(0, 0, 0), (1, 0, 0), (1, 1, 0), (0, 1, 1)])
    space.add_ray((0, 0), (1, 1))
    space.add_xline((0, 0), (1, 1))
    space.add_leader([(0, 0), (3, 3), (6, 3)])
    space.add_blockref("B", (2, 2), dxfattribs={"xscale": 2.0, "rotation": 30}).add_auto_attribs({"T": "x"})
    hatch = space.add_hatch(color=2)
    hatch.paths.add_polyline_path([(0, 0), (5, 0), (5, 5)], is_closed=True)
    edges = hatch.paths.add_edge_path()
    edges.add_line((1, 1), (2, 1))
    edges.add_arc((1, 1), 1, 0, 90)
    space.add_linear_dim((0, 5), (0, 0), (10, 0)).render()
    return doc


def places(lines):
    """Lines of real values within the entities."""
    start = lines.index("ENTITIES")
    for i in range(start + 1, len(lines) - 1, 2):
        code = lines[i].strip()
        if lines[i + 1] == "ENDSEC":
            return
        if code.isdigit() and (10 <= int(code) <= 59 or 210 <= int(code) <= 239):
            yield i + 1


def main():
    faults = 0
    with tempfile.TemporaryDirectory() as folder:
        whole = os.path.join(folder, "whole.dxf")
        drawing().saveas(whole)
        lines = open(whole, encoding="utf-8").read().split("\n")
        todo = [(place, value) for n, place in enumerate(places(lines)) for value in (["nan", "inf", "1e308"][n % 3],)]
        for place, value in todo:
            path = os.path.join(folder, "one.dxf")
            with open(path, "w", encoding="utf-8") as file:
                file.write("\n".join(lines[:place] + [value] + lines[place + 1:]))
            call = [KAVEL, "--no-frontal", "--quiet", path, "--audit", "--list"]
            for command in COMMANDS:
                call += ["-e", command]
            call += ["--save", os.path.join(folder, "s.dxf"), "--plot", os.path.join(folder, "p.png")]
            run = subprocess.run(call, capture_output=True, text=True)
            entity = next(lines[k] for k in range(place, 0, -1) if lines[k - 1].strip() == "0")
            what = f"{entity}, group {lines[place - 1].strip()}, {value}"
            # What reaches to infinity can't be plotted, and that is said.
            if run.returncode not in (0, 1) and "infinie" not in run.stderr:
                faults += 1
                print(f"{what}: status {run.returncode}: {run.stderr[-300:]}")
            elif value == "nan" and "nan" not in run.stdout:
                faults += 1
                print(f"{what}: the audit doesn't name it")
    print(f"{len(todo)} drawings, {faults} faults")
    return 1 if faults or not todo else 0


sys.exit(main())
