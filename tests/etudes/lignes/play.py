"""Random cases asked of the program, and what is wrong with its answers counted: for the suites of this folder and its neighbours.

A suite has a Case(seed) with `kind`, `title()` and `call()`, an AutoLISP form that asks `essai`, and faults(case, said, counted).
"""
import argparse
import os
import random
import subprocess
import sys
import tempfile
import time
from collections import Counter

# A profile to ask about, and printing with all digits.
PRELUDE = """(setq p (plv-nouveau "depart.csv" "1" '(0.0 0.0 0.0) 1.0 2.5 nil nil))
(defun nombre (x) (rtos x 2 17))
(defun dire (x)
  (cond ((= x T) (princ 1)) ((listp x) (princ "[") (foreach y x (dire y) (princ ",")) (princ "]")) ((numberp x) (princ (nombre x))) ((prin1 x))))
(defun essai (points minimum maximum depart arrivee contraintes %(more)s / r)
  (plv-ecrire-terrain p points)
  (setq r (%(function)s p minimum maximum depart arrivee contraintes %(more)s))
  (princ "\\n=") (if r (dire r) (princ "None")))
"""


def answers(kavel, prelude, cases):
    """What the program says to each case."""
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, "depart.csv"), "w", encoding="ascii") as file:
            file.write("distance;altitude\n0;0\n1;0\n")
        script = os.path.join(folder, "cas.lsp")
        with open(script, "w", encoding="ascii") as file:
            file.write(prelude + "\n".join(case.call() for case in cases) + "\n")
        done = subprocess.run([kavel, "--load", script], cwd=folder, capture_output=True, text=True, check=False)
    said = [line[1:] for line in done.stdout.splitlines() if line.startswith("=")]
    if len(said) != len(cases):
        sys.exit(f"{len(said)} answers to {len(cases)} questions, status {done.returncode}\n{done.stderr}")
    return [eval(text, {"__builtins__": {}}, {"None": None}) for text in said]  # lists, as the script above writes them


def play(case_of, faults, runs, function, more="", known=(), tell=lambda case: [case.kind]):
    """Plays as many cases as the command line says; `more` are arguments of the function beside those that all have. Gives
    the exit status."""
    parser = argparse.ArgumentParser()
    parser.add_argument("kavel")
    parser.add_argument("--runs", type=int, default=runs)
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(10**9))
    options = parser.parse_args()
    print(f"seed {options.seed}, {options.runs} grounds", flush=True)
    cases = [case_of(seed) for seed in [*known, *range(options.seed, options.seed + options.runs)]]
    started, counted, bad = time.time(), Counter(), 0
    prelude = PRELUDE % {"function": function, "more": more}
    for case, said in zip(cases, answers(os.path.abspath(options.kavel), prelude, cases)):
        counted.update(tell(case))
        for fault in faults(case, said, counted):
            bad += 1
            print(f"--seed {case.seed} --runs 1: {case.title()}: {fault}", flush=True)
    print("; ".join(f"{what} {count}" for what, count in sorted(counted.items())), f"{time.time() - started:.0f} s")
    print(f"{bad} faults")
    return 1 if bad else 0
