#!/usr/bin/env python3
"""Random networks: every figure of every pipe, manhole and total beside exact fractions; of some, the workbook beside a spreadsheet program.

Usage: run.py KAVEL SOURCE [--runs N] [--seed S] [--workbooks W] [--only K]. Prints its seed; a run that differs says its number.
"""
import argparse
import os
import random
import re
import subprocess
import sys
import tempfile
from fractions import Fraction as F

import cases
import exact
from cases import text

TOLERANCE = 1e-7

LISP = """
(defun nombre (v) (rtos v 2 10))
(defun dire-ouvrage (m o)
  (princ (strcat "\\nOUVRAGE;" (car o) ";posée=" (nombre (nth 3 o))))
  (mapcar '(lambda (c v) (princ (strcat ";" (car c) "=" (nombre v)))) (car m) (plv-sans-premiers o 6)))
(defun jouer (numero csv rangees regles sols classeur / p m)
  (setq p (plv-nouveau csv numero '(0.0 0.0 0.0) 10.0 2.5 1000.0 nil))
  (princ (strcat "\\nESSAI;" numero))
  (setq m (et_tranchees p rangees nil regles sols))
  (if (eq (type m) 'STR)
    (princ (strcat "\\nREFUS;" m))
    (progn
      (foreach o (append (cadr m) (list (caddr m))) (dire-ouvrage m o))
      (princ (strcat "\\nECART;" (nombre (cadddr m))))
      (if classeur (princ (strcat "\\nCLASSEUR;" (vl-princ-to-string (et_tranchees_classeur classeur (list (list numero p rangees nil regles sols T)) nil "essai" "date")))))))
  (entdel p))
"""


def lisp_text(value):
    return '"' + value.replace("\\", "\\\\").replace('"', '\\"') + '"'


def lisp_line(pieces):
    return "(" + " ".join("(" + " ".join(f"({text(x)} {text(z)})" for x, z in piece) + ")" for piece in pieces) + ")"


def program(case, number, folder, workbook):
    csv = os.path.join(folder, f"{number}.csv")
    with open(csv, "w", encoding="utf-8") as file:
        file.write("distance;altitude\n" + "".join(f"{text(x)};{text(z)}\n" for x, z in case.ground))
    grounds = [lisp_line([case.dug_points]) if case.dug_points else "nil"] + [lisp_line(p) if p else "((-9 0) (-8 0))" for _, p, _ in case.layer_points]
    grounds = [g if g != "((-9 0) (-8 0))" else "(((-9.0 0.0) (-8.0 0.0)))" for g in grounds]
    rows = "(list " + " ".join(map(lisp_text, case.rows())) + ")"
    rules = "(list " + " ".join(map(lisp_text, case.rules.rows("Décapé" if case.dug_points else "TN"))) + ")"
    return f"(jouer {lisp_text(str(number))} {lisp_text(csv)} {rows} {rules} '({' '.join(grounds)}) {lisp_text(workbook) if workbook else 'nil'})"


def prepare(case, rng):
    case.layers = [(n, exact.Line(p), b) for n, p, b in case.layer_points]
    case.dug = exact.Line([case.dug_points or case.ground])
    case.rules = cases.Rules(rng, float(case.origin), float(case.ground[-1][0]), case.layers)
    return case


def expected(case):
    """(name, {column: value}) of all works, or why the network can't be dug."""
    trenches = exact.Trenches(case)
    pits = [(m.station - trenches.half_pit(m), m.station + trenches.half_pit(m)) for m in case.manholes]
    if any(b[0] < a[1] for a, b in zip(pits, pits[1:])):
        return "se recouvrent"
    works = list(trenches.works())
    total = exact.Sums()
    for _, sums in works:
        for name, value in sums.items():
            total.add(name, value)
    return works + [("total", total)]


def classes_of(case):
    limits = case.rules.classes
    if not limits:
        return ["toute"]
    name = lambda v: re.sub(r"\.?0+$", "", f"{float(v):.2f}")
    low = ["0"] + [name(l) for l in limits]
    return [f"{a} à {b} m" for a, b in zip(low, low[1:])] + [f"plus de {low[-1]} m"]


def compare(case, number, lines):
    refusals = [l for l in lines if l.startswith("REFUS;")]
    if refusals:
        return judge_refusal(case, number, refusals[0][6:])
    wanted = expected(case)
    if isinstance(wanted, str):
        return [f"run {number}: dug, though pits meet"]
    faults, works = [], [l.split(";")[1:] for l in lines if l.startswith("OUVRAGE;")]
    if [w[0] for w in works] != [n for n, _ in wanted]:
        return [f"run {number}: works {[w[0] for w in works]}, expected {[n for n, _ in wanted]}"]
    names = classes_of(case)
    for (name, *figures), (_, sums) in zip(works, wanted):
        for figure in figures:
            column, value = figure.rsplit("=", 1)
            for k, label in enumerate(names):
                column = {f"Profondeur {label}": f"Profondeur {k}", f"Tranche {label}": f"Tranche {k}"}.get(column, column)
            right = float(sums.get(column, 0))
            if abs(float(value) - right) > TOLERANCE * max(1, abs(right)):
                faults.append(f"run {number}: {name}, {column}: {value}, expected {right:.10f}")
    return faults


def judge_refusal(case, number, sentence):
    """A refusal must have its reason."""
    try:
        wanted = expected(case)
    except (StopIteration, TypeError):
        wanted = "nothing"
    if "se recouvrent" in sentence:
        return [] if wanted == "se recouvrent" else [f"run {number}: refused without a reason: {sentence}"]
    trenches = exact.Trenches(case)
    if "sort du sol" in sentence or "au-dessus du sol" in sentence or "plus grand que la largeur" in sentence or "ne contient pas" in sentence \
            or "pas assez large" in sentence or "n'a pas de largeur" in sentence or "est sous le fil d'eau" in sentence:
        return [] if reason(case, trenches, sentence) else [f"run {number}: refused without a reason: {sentence}"]
    return [f"run {number}: refused: {sentence}"]


def reason(case, trenches, sentence):
    """Whether something of the kind that is told can be found."""
    for i, m in enumerate(case.manholes):
        inverts = [p.z0 if a is m else p.z1 for p, a, _ in case.pipes_at(i)]
        if "sous le fil d'eau" in sentence and m.cover < max(inverts):
            return True
        if m.outer and "ne contient pas" in sentence:
            kind = trenches.part(m.station)[0]
            if trenches.pit(i).get("Remblai " + kind.fills[-1][0], 0) < 0:
                return True
        if m.outer and "au-dessus du sol" in sentence:
            kind = trenches.part(m.station)[0]
            if any(z - m.bottom + kind.slab < 0 for _, z in case.dug_points or case.ground):
                return True
    for p, m, n in zip(case.pipes, case.manholes, case.manholes[1:]):
        slope = (p.z1 - p.z0) / (n.station - m.station)
        crown = (p.outer + p.inner) / 2
        stations = sorted({m.station, n.station, *(x for x, _ in case.ground if m.station < x < n.station)})
        for a, b in zip(stations, stations[1:]):
            f = case.dug.over(a, b)
            if "sort du sol" in sentence and any(f(s) < p.z0 + slope * (s - m.station) + crown for s in (a, b)):
                return True
        for kind in trenches.rules.types.values():
            widths = [w for _, w in kind.by_depth] or [F(9)]
            base = p.outer + kind.wider(p.inner) if kind.by_diameter else F(0)
            if "plus grand que la largeur" in sentence and p.outer > max(base, min(widths)):
                return True
    return "pas assez large" in sentence


def play(kavel, source, folder, programs):
    script = os.path.join(folder, "essais.lsp")
    with open(script, "w", encoding="utf-8") as file:
        file.write(LISP + "\n".join(programs))
    environment = dict(os.environ, KAVEL_FRONTAL=os.path.join(source, "frontal"), KAVEL_CHEMIN=folder)
    done = subprocess.run([kavel, "--quiet", "-l", script], capture_output=True, text=True, env=environment, timeout=3000, encoding="utf-8", errors="replace")
    if done.returncode:
        sys.exit(f"kavel ended with {done.returncode}: {done.stderr[-2000:]}")
    return done.stdout


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("kavel")
    parser.add_argument("source")
    parser.add_argument("--runs", type=int, default=40)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--workbooks", type=int, default=2)
    parser.add_argument("--only", type=int)
    options = parser.parse_args()
    print(f"seed {options.seed}, runs {options.runs}")
    numbers = [options.only] if options.only is not None else range(options.runs)
    faults, refused = [], 0
    with tempfile.TemporaryDirectory() as folder:
        built, programs = {}, []
        for number in numbers:
            rng = random.Random(f"{options.seed} {number}")
            built[number] = prepare(cases.Case(rng), rng)
            book = os.path.join(folder, f"{number}.xlsx") if len(programs) < options.workbooks else None
            programs.append(program(built[number], number, folder, book))
        blocks = re.split(r"^ESSAI;", play(os.path.abspath(options.kavel), options.source, folder, programs), flags=re.M)[1:]
        if len(blocks) != len(built):
            sys.exit(f"{len(blocks)} runs came back of {len(built)}")
        for block in blocks:
            lines = block.split("\n")
            refused += any(l.startswith("REFUS;") for l in lines)
            faults += compare(built[int(lines[0])], int(lines[0]), lines[1:])
        faults += check_workbooks(folder, built, options)
    print("\n".join(faults[:40]))
    print(f"{len(built)} runs, {refused} refused with a reason, {len(faults)} faults")
    sys.exit(1 if faults or refused > len(built) // 2 else 0)


def check_workbooks(folder, built, options):
    try:
        import workbook
    except ImportError:
        print("openpyxl is missing: workbooks weren't read")
        return []
    if not workbook.spreadsheet():
        print("LibreOffice is missing: workbooks weren't worked out")
        return []
    faults, compared = [], 0
    for name in sorted(os.listdir(folder)):
        if re.fullmatch(r"\d+\.xlsx", name):
            found, count, forgotten = workbook.differences(os.path.join(folder, name), folder)
            faults += [f"run {name}: {f}" for f in found]
            compared += count
            if count != forgotten:
                faults.append(f"run {name}: {forgotten} formulas had results, {count} were compared")
    print(f"{compared} cells worked out by LibreOffice")
    return faults


if __name__ == "__main__":
    main()
