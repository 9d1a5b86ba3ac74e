#!/usr/bin/python3
"""Objects of other applications are shown by the picture that those left of them: ezdxf reads the same pictures by its own rules.

Each picture is taken apart by EXPLODE; what comes out lies where ezdxf has it and has its colour.
"""
import math
import os
import struct
import subprocess
import sys
import tempfile

import ezdxf
from ezdxf import bbox
from ezdxf.proxygraphic import ProxyGraphic

KAVEL = sys.argv[1]


def piece(kind, form="", *numbers):
    body = struct.pack("<" + form, *numbers)
    return struct.pack("<2L", 8 + len(body), kind) + body


LINE = piece(6, "L9d", 3, 0, 0, 0, 10, 0, 0, 10, 10, 0)
RED, BLUE = piece(14, "L", 1), piece(22, "L", 0xC20000FF)
MOVED = piece(29, "16d", 0, -2, 0, 80, 2, 0, 0, 7, 0, 0, 2, 0, 0, 0, 0, 1)
PICTURES = {
    "polyline": [LINE],
    "polygon": [piece(7, "L12d", 4, 20, 1, 0, 30, 0, 0, 30, 10, 0, 20, 10, 0)],
    "in space": [piece(6, "L6d", 2, 0, 0, 0, 3, 4, 5)],
    "normal": [piece(32, "L9d", 2, 0, 0, 0, 3, 4, 0, 0, 0, 1)],
    "circle": [piece(2, "7d", 45, 5, 0, 5, 0, 0, 1)],
    "arc": [piece(4, "11dL", 60, 5, 0, 5, 0, 0, 1, math.cos(1), math.sin(1), 0, 2.5, 0)],
    "arc the other way": [piece(4, "11dL", 60, 5, 0, 5, 0, 0, -1, 1, 0, 0, 1.5, 0)],
    "settings": [piece(1, "6d", 0, 0, 0, 9, 9, 0), piece(16, "L", 0), piece(18, "L", 0), piece(23, "L", 25), LINE],
    "moved": [MOVED, LINE, piece(2, "7d", 1, 2, 0, 3, 0, 0, 1), piece(31)],
    "moved back": [MOVED, LINE, piece(31), LINE],
    "colours": [RED, LINE, BLUE, LINE],
}
UNREADABLE = {"a text": [LINE, piece(10, "5d", 1, 2, 3, 4, 5)], "cut off": [LINE, LINE[:-9]], "too many": [piece(6, "L3d", 900, 0, 0, 0)],
              "nothing": []}


def record(pieces):
    body = b"".join(pieces)
    data = struct.pack("<2L", 8 + len(body), len(pieces)) + body if pieces else b""
    groups = [(0, "ACAD_PROXY_ENTITY"), (5, "F0"), (100, "AcDbEntity"), (8, "0"), (100, "AcDbProxyEntity"), (90, 498), (91, 500), (92, len(data))]
    groups += [(310, data[i:i + 127].hex().upper()) for i in range(0, len(data), 127)]
    return data, groups + [(93, 8), (310, "FF"), (94, 0)]


def write(path, pieces):
    data, groups = record(pieces)
    groups = [(0, "SECTION"), (2, "HEADER"), (9, "$ACADVER"), (1, "AC1018"), (0, "ENDSEC"), (0, "SECTION"), (2, "ENTITIES"), *groups, (0, "ENDSEC"), (0, "EOF")]
    with open(path, "w") as file:
        file.writelines(f"{code}\n{value}\n" for code, value in groups)
    return data


def kavel(*arguments):
    return subprocess.run([KAVEL, *arguments, "--no-frontal", "--quiet"], capture_output=True, text=True)


def box(entities):
    found = bbox.extents(entities)
    return [*found.extmin, *found.extmax]


def compare(folder, name, pieces):
    source, target = os.path.join(folder, "a.dxf"), os.path.join(folder, "b.dxf")
    data = write(source, pieces)
    run = kavel(source, "-e", '(command "_EXPLODE" (entlast))', "-o", target)
    ours = list(ezdxf.readfile(target).modelspace()) if run.returncode == 0 else []
    theirs = list(ProxyGraphic(data).virtual_entities())
    if not ours or any(e.dxftype() == "ACAD_PROXY_ENTITY" for e in ours):
        return [f"{name}: not taken apart: {run.stdout}{run.stderr}"]
    differs = max(abs(a - b) for a, b in zip(box(ours), box(theirs)))
    wrong = [f"{name}: {box(ours)}, not {box(theirs)}"] if differs > 0.01 else []
    told = kavel(source, "--list").stdout
    return wrong + ([f"{name}: told as not shown"] if "PROXY_ENTITY (" in told else [])


def colours(folder):
    target = os.path.join(folder, "b.dxf")
    found = {(e.dxf.color, e.dxf.get("true_color")) for e in ezdxf.readfile(target).modelspace()}
    return [] if found == {(1, None), (256, 0x0000FF)} else [f"colours: {found}"]


def main():
    found = []
    with tempfile.TemporaryDirectory() as folder:
        for name, pieces in PICTURES.items():
            found += compare(folder, name, pieces)
        found += colours(folder)
        for name, pieces in UNREADABLE.items():
            write(os.path.join(folder, "a.dxf"), pieces)
            told = kavel(os.path.join(folder, "a.dxf"), "--list")
            if told.returncode or "ACAD_PROXY_ENTITY (" not in told.stdout:
                found.append(f"{name}: not told: {told.stdout}{told.stderr}")
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
