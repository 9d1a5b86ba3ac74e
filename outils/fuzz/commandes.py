#!/usr/bin/env python3
"""Random commands on a small drawing, each program in a process of its own; best with the program of the asan preset.

Usage: commandes.py KAVEL [PROGRAMS [SEED]]. A program that crashes, hangs, or leaves a drawing in which the audit finds
an error stays in the current folder; the exit status is then 1.
"""
import pathlib
import random
import re
import subprocess
import sys
import tempfile

# What leaves the drawing at hand, or waits.
WITHHELD = set("NEW OPEN RECOVER QSAVE SAVEAS QUIT SCRIPT MENU DELAY SETVAR".split())
WORDS = """_L _P _ALL _W _C _A _S _E _R _D _M _Y _N _J _X _F _O _T _B _BE _U * ? 0 @ A1 BLK _CE _LT continuous red _LW _H _I
1x STANDARD _MC _CP _WP""".split() + ["", "", ""]
NUMBERS = [0, 1, -1, 2.5, 90, -45, 1e-9, 1e9, 360, 3, 7]
PRELUDE = """(setvar "CMDECHO" 0) (setq seed 1)
(defun any (/ s) (setq seed (rem (+ (* seed 1103) 12345) 65536))
  (if (setq s (ssget "X")) (ssname s (rem seed (sslength s))) (entlast)))
(entmake '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 4) (70 . 1)
  (10 0. 0.) (42 . 0.5) (10 5. 0.) (10 5. 5.) (42 . -1.) (10 0. 5.)))
(entmake '((0 . "ELLIPSE") (100 . "AcDbEntity") (100 . "AcDbEllipse") (10 0. 0. 0.) (11 4. 0. 0.) (40 . 0.5)
  (41 . 0.) (42 . 6.283185307)))
(entmake '((0 . "POLYLINE") (70 . 8))) (entmake '((0 . "VERTEX") (10 0. 0. 1.) (70 . 32)))
(entmake '((0 . "VERTEX") (10 4. 4. 2.) (70 . 32))) (entmake '((0 . "SEQEND")))
"""


def point():
    ordinates = [float(random.randint(-10, 10)) for _ in range(random.choice([2, 2, 2, 3]))]
    return "'(" + " ".join(map(str, ordinates)) + ")"


def answer():
    kinds = [(35, point), (25, lambda: f'"{random.choice(WORDS)}"'),
             (15, lambda: str(random.choice(NUMBERS + [random.uniform(-20, 20)]))), (10, lambda: "(entlast)"),
             (8, lambda: f"(list (any) {point()})"), (3, lambda: '(ssget "X")'), (1, lambda: "nil"), (3, lambda: "(any)")]
    return random.choices([make for _, make in kinds], [weight for weight, _ in kinds])[0]()


def offered(kavel):
    """The commands that the program has, as its HELP lists them: NAME (ALIAS, ...): what it does."""
    run = subprocess.run([kavel, "--no-frontal", "-s", "-"], input="HELP\n\n", capture_output=True, text=True, timeout=60)
    names = re.findall(r"^(\S+)(?: \(.*?\))?: ", run.stdout, re.MULTILINE)
    return sorted(set(names) - WITHHELD - {"Commande"})


def program(commands):
    lines = [PRELUDE]
    for _ in range(40):
        answers = " ".join(answer() for _ in range(random.randint(1, 9)))
        lines.append(f"(vl-catch-all-apply '(lambda () (vl-cmdf \"_.{random.choice(commands)}\" {answers}))) (command)")
    return "\n".join(lines) + '\n(vl-cmdf "_.UNDO" 5)\n'


def fault(kavel, folder, text):
    """What went wrong with the program, or nothing."""
    file = folder / "programme.lsp"
    file.write_text(text)
    command = [kavel, "--no-frontal", "-l", file, "-o", folder / "dessin.dxf", "--audit"]
    try:
        run = subprocess.run(command, capture_output=True, text=True, errors="replace", timeout=120, stdin=subprocess.DEVNULL)
    except subprocess.TimeoutExpired:
        return "ne finit pas"
    if run.returncode < 0 or "Sanitizer" in run.stderr or "runtime error" in run.stderr:
        return run.stderr[-2000:] or f"signal {-run.returncode}"
    return next((line for line in run.stdout.splitlines() if line.startswith("A") and " erreur " in line), "")


def main():
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 100
    random.seed(int(sys.argv[3]) if len(sys.argv) > 3 else None)
    commands = offered(sys.argv[1])
    assert len(commands) > 30, commands
    faults = 0
    with tempfile.TemporaryDirectory() as folder:
        for number in range(count):
            text = program(commands)
            found = fault(sys.argv[1], pathlib.Path(folder), text)
            if found:
                faults += 1
                kept = pathlib.Path(f"programme-{number}.lsp")
                kept.write_text(text)
                print(f"{kept}: {found}")
    print(f"{count} programmes, {faults} en faute")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
