#!/usr/bin/env python3
"""Writes one random survey in every form that is read - text, UTF-16, a workbook - and expects the same points; then damages the workbook.

Usage: leves.py KAVEL SOURCE. Workbooks are written with openpyxl.
"""
import os
import random
import subprocess
import sys
import tempfile

from openpyxl import Workbook

KAVEL, SOURCE = sys.argv[1:3]
faults = []


def points(folder, name):
    environment = dict(os.environ, KAVEL_FRONTAL=os.path.join(SOURCE, "frontal"), KAVEL_CHEMIN=folder)
    call = f'(mapcar (function (lambda (p) (list (rtos (car p) 2 4) (rtos (cadr p) 2 4) (caddr p)))) (plv-cle (quote points) (plv-lire-terrain "{name}")))'
    done = subprocess.run([KAVEL, "--quiet", "--eval", call], cwd=folder, env=environment, capture_output=True, text=True)
    return done.returncode, done.stdout, done.stderr


def station(d):
    return f"{int(d) // 1000}+{d % 1000:06.2f}"


def thousands(z):
    return f"{z:,.3f}".replace(",", "\u00a0").replace(".", ",")


def main():
    seed = random.randrange(1 << 30)
    draw = random.Random(seed)
    rows, d, z = [], 0.0, 1500.0
    for i in range(200):
        rows.append((d, round(z, 3), draw.choice(["", "é", "Regard " + str(i)])))
        d, z = round(d + draw.uniform(1, 60), 2), z + draw.uniform(-2, 2)
    with tempfile.TemporaryDirectory() as folder:
        def put(name, text, encoding):
            with open(os.path.join(folder, name), "w", encoding=encoding) as out:
                out.write(text)

        put("a.csv", "".join(f"{d};{z};{n}\n" for d, z, n in rows), "utf-8")
        put("b.csv", "PK;Altitude;Nom\r\n" + "".join(f"{station(d)};{thousands(z)};{n}\r\n" for d, z, n in rows), "cp1252")
        put("c.csv", "".join(f"{station(d)}\t{thousands(z)}\t{n}\n" for d, z, n in rows), "utf-16")
        book = Workbook()
        book.active.append(["distance", "altitude", "nom"])
        for row in rows:
            book.active.append(row)
        book.create_sheet("autre").append([1, 2])
        book.save(os.path.join(folder, "d.xlsx"))
        wanted = points(folder, "a.csv")
        if wanted[0] != 0 or wanted[1].count('"') < 1200:
            faults.append(f"seed {seed}: {wanted}")
        for name in ("b.csv", "c.csv", "d.xlsx"):
            if points(folder, name)[:2] != wanted[:2]:
                faults.append(f"seed {seed}, {name}: {points(folder, name)}")
        book.active["B7"] = "onze"
        book.save(os.path.join(folder, "e.xlsx"))
        status, _, errors = points(folder, "e.xlsx")
        if status != 1 or "e.xlsx, ligne 7 illisible" not in errors:
            faults.append(f"a text for an altitude: {status} {errors}")
        with open(os.path.join(folder, "d.xlsx"), "rb") as file:
            good = file.read()
        for _ in range(40):
            bad = bytearray(good[: draw.randrange(len(good))] if draw.random() < 0.5 else good)
            for _ in range(draw.randrange(1, 30)):
                if bad:
                    bad[draw.randrange(len(bad))] = draw.randrange(256)
            with open(os.path.join(folder, "f.xlsx"), "wb") as out:
                out.write(bad)
            status, found, errors = points(folder, "f.xlsx")
            if status not in (0, 1) or (status == 0 and found != wanted[1]) or (status == 1 and "f.xlsx" not in errors):
                faults.append(f"seed {seed}, a damaged workbook: {status} {errors}")
    for fault in faults:
        print(fault[:2000])
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
