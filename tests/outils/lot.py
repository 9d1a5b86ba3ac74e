#!/usr/bin/env python3
"""Runs outils/lot over four drawings of which one is damaged, mends it, and runs the lot again.

Usage: lot.py KAVEL SOURCE. Needs GNU parallel. Workbooks are opened with openpyxl.
"""
import fcntl
import os
import shutil
import subprocess
import sys
import tempfile

from openpyxl import load_workbook

KAVEL, SOURCE = sys.argv[1:3]
faults = []


def expect(what, found, wanted):
    if found != wanted:
        faults.append(f"{what}: {found!r}, expected {wanted!r}")


def read(*path):
    with open(os.path.join(*path), encoding="utf-8") as file:
        return file.read()


def main():
    with tempfile.TemporaryDirectory() as folder:
        settings = os.path.join(folder, "reglages")
        os.mkdir(settings)
        environment = dict(os.environ, KAVEL=KAVEL, KAVEL_FRONTAL=os.path.join(SOURCE, "frontal"), KAVEL_CHEMIN=settings)
        examples = shutil.copytree(os.path.join(SOURCE, "exemples"), os.path.join(folder, "exemples"))
        good = os.path.join(folder, "d1.dxf")
        subprocess.run([KAVEL, "--quiet", "--script", os.path.join(examples, "demo.scr"), "--save", good], cwd=folder, env=environment, check=True,
                       stdout=subprocess.DEVNULL)
        names = ["d1", "d2", "d 3", "d4"]
        drawings = [os.path.join(folder, name + ".dxf") for name in names]
        for path in drawings[1:3]:
            with open(good, "rb") as source, open(path, "wb") as out:
                out.write(source.read())
        with open(drawings[3], "w", encoding="utf-8") as out:
            out.write("damaged\n")
        before = {path: read(path) for path in drawings}
        results = os.path.join(folder, "resultats")
        # Each job says which settings folder it has; no two have the same, and none has the user's.
        script = os.path.join(folder, "s.scr")
        with open(script, "w", encoding="utf-8") as out:
            out.write(read(examples, "lot-metres.scr") + '\n(princ (strcat "reglages " (getenv "KAVEL_CHEMIN")))\n')

        def lot(*more):
            return subprocess.run([os.path.join(SOURCE, "outils", "lot"), *more, "-j", "2", script, results, *drawings], env=environment,
                                  capture_output=True, text=True)

        first = lot()
        expect("status with a damaged drawing", first.returncode, 1)
        expect("statuses", [read(results, name, "etat").strip() for name in names], ["0", "0", "0", "3"])
        expect("summary", [line.split("\t")[:2] for line in read(results, "resume.tsv").splitlines()[1:]],
               [[name, state] for name, state in zip(names, "0003")])
        expect("the message", "ce n'est pas un dessin" in read(results, "resume.tsv"), True)
        for name in names[:3]:
            expect(f"workbook of {name}", bool(load_workbook(os.path.join(results, name, "metres.xlsx")).sheetnames), True)
            expect(f"drawing of {name}", os.path.exists(os.path.join(results, name, name + ".dxf")), True)
        folders = [line.split()[1] for name in names[:3] for line in read(results, name, "journal.log").splitlines() if line.startswith("reglages ")]
        expect("settings folders", (len(set(folders)), settings in folders, [f for f in folders if os.path.exists(f)]), (3, False, []))
        expect("the originals", {path: read(path) for path in drawings}, before)

        with open(drawings[3], "w", encoding="utf-8") as out:
            out.write(before[good])
        times = [os.path.getmtime(os.path.join(results, name, "etat")) for name in names]
        second = lot()
        expect("status when mended", (second.returncode, second.stderr), (0, ""))
        again = [os.path.getmtime(os.path.join(results, name, "etat")) != time for name, time in zip(names, times)]
        expect("only the failed one ran again", again, [False, False, False, True])
        # A script that fails after its first command saves nothing; its journal is in order, and the reason is what failed.
        with open(script, "w", encoding="utf-8") as out:
            out.write('(princ "first\\n")\nPLV-NOUVEAU\nabsent.csv\nCIRCLE 0,0 3\n')
        expect("status of a failing script", lot().returncode, 1)
        journal = read(results, "d1", "journal.log")
        expect("nothing after the failure", ("CIRCLE" in journal, os.path.exists(os.path.join(results, "d1", "d1.dxf"))), (False, True))
        expect("order of the journal", -1 < journal.find("first") < journal.find("Erreur") < journal.find("s.scr, ligne 2: échec"), True)
        expect("the reason", read(results, "resume.tsv").splitlines()[1].split("\t")[2].startswith("Erreur: "), True)
        lot("--keep-going")
        expect("going on", "CIRCLE" in read(results, "d1", "journal.log"), True)
        # Another content of a drawing is another lot.
        with open(script, "w", encoding="utf-8") as out:
            out.write("REGEN\n")
        expect("status", lot().returncode, 0)
        times = [os.path.getmtime(os.path.join(results, name, "etat")) for name in names]
        with open(drawings[1], "a", encoding="utf-8") as out:
            out.write("999\nlater\n")
        lot()
        again = [os.path.getmtime(os.path.join(results, name, "etat")) != time for name, time in zip(names, times)]
        expect("only the changed one ran again", again, [False, True, False, False])
        with open(os.path.join(results, "verrou"), "w", encoding="utf-8") as other:
            fcntl.flock(other, fcntl.LOCK_EX)
            busy = lot()
        expect("two lots in one folder", (busy.returncode, "un autre lot" in busy.stderr), (2, True))
        expect("--jobs without a number", ("demande un nombre" in lot("--jobs", "x").stderr, lot("-d").returncode), (True, 2))
        # A program that doesn't end, with a limit: the others are done all the same.
        with open(script, "w", encoding="utf-8") as out:
            out.write('(if (= (getvar "DWGNAME") "d4.dxf") (while T))\n')
        expect("status with an endless script", lot("--delay", "3", "--no-save").returncode, 1)
        expect("statuses with an endless script", [read(results, name, "etat").strip() for name in names], ["0", "0", "0", "124"])
        expect("its message", "abandonné après 3 s" in read(results, "resume.tsv"), True)
        expect("bad usage", subprocess.run([os.path.join(SOURCE, "outils", "lot"), script], capture_output=True).returncode, 2)
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
