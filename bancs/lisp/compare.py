#!/usr/bin/env python3
"""Times the same programs in Kavel's AutoLISP, PicoLisp and newLISP, each in a process of its own.

Usage: compare.py KAVEL [--runs N]. Exit status 1 when a goal is missed: at most 1.5 times PicoLisp's time,
ahead of newLISP, start-up below 30 ms.
"""
import argparse
import pathlib
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).parent
PROGRAMS = [("fib", "30"), ("tak", "24 16 8"), ("additions", "10000000"), ("build", "1000000"),
            ("mapped", "1000000"), ("sorted", "1000000"), ("characters", "100000")]


def commands(kavel, call):
    quiet = "nil" if call is None else f"(progn ({call}) (princ))"
    other = "" if call is None else f"({call})"
    return {
        "kavel": [kavel, "--no-frontal", "-l", HERE / "programs.lsp", "-e", quiet],
        "pil": ["pil", HERE / "programs.l", "-prog " + other, "-bye"],
        "newlisp": ["newlisp", HERE / "programs.nl", "-e", f"(begin {other} nil)"],
    }


def best(command, runs):
    times = []
    for _ in range(runs):
        start = time.perf_counter()
        subprocess.run(command, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
        times.append(time.perf_counter() - start)
    return min(times)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("kavel")
    parser.add_argument("--runs", type=int, default=3)
    options = parser.parse_args()
    start = {name: best(command, options.runs) for name, command in commands(options.kavel, None).items()}
    print(f"start-up    kavel {start['kavel'] * 1000:.1f} ms")
    missed = start["kavel"] > 0.030
    for name, arguments in PROGRAMS:
        took = {peer: max(best(command, options.runs) - start[peer], 1e-4)
                for peer, command in commands(options.kavel, f"{name} {arguments}").items()}
        to_pil, to_newlisp = took["kavel"] / took["pil"], took["kavel"] / took["newlisp"]
        missed |= to_pil > 1.5 or to_newlisp > 1
        print(f"{name:11} kavel {took['kavel']:.3f} s  pil {took['pil']:.3f} s (x{to_pil:.2f})"
              f"  newlisp {took['newlisp']:.3f} s (x{to_newlisp:.2f})")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
