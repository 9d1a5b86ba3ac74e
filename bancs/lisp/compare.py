#!/usr/bin/env python3
"""Times the same programs in Kavel's AutoLISP and in peers, each in a process of its own.

Usage: compare.py KAVEL [--runs N]. Peers that are not installed are left out. Exit status 1 when a goal is missed: at
most 1.5 times PicoLisp's time, ahead of newLISP, start-up below 30 ms.
"""
import argparse
import pathlib
import shutil
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).parent
PROGRAMS = [("fib", "30"), ("tak", "24 16 8"), ("additions", "10000000"), ("build", "1000000"),
            ("mapped", "1000000"), ("sorted", "1000000"), ("characters", "100000")]
LIMITS = {"pil": 1.5, "newlisp": 1.0}  # Kavel's time over the peer's, at most
PACKAGES = {"pil": "picolisp", "newlisp": "newlisp", "guile": "guile-3.0", "ecl": "ecl", "python": "python3"}


def commands(kavel, call):
    quiet = "nil" if call is None else f"(progn ({call}) (princ))"
    other = "nil" if call is None else f"({call})"
    scheme = "#f" if call is None else other
    return {
        "kavel": [kavel, "--no-frontal", "-l", HERE / "programs.lsp", "-e", quiet],
        "pil": ["pil", HERE / "programs.l", "-prog " + other, "-bye"],
        "newlisp": ["newlisp", HERE / "programs.nl", "-e", f"(begin {other} nil)"],
        "guile": ["guile", "-q", "--no-auto-compile", "-l", HERE / "programs.scm", "-c", scheme],  # its evaluator
        "ecl": ["ecl", "--norc", "--load", HERE / "programs.lisp", "--eval", other, "--eval", "(quit)"],  # its bytecode
        "python": [sys.executable, "-S", HERE / "programs.py"] + (call.split() if call else []),
    }


def best(command, runs):
    """The least time of so many runs; short ones are repeated for a second, those of half a minute are run once."""
    times = []
    while len(times) < runs and sum(times) < 30 or sum(times) < 1:
        start = time.perf_counter()
        subprocess.run(command, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        times.append(time.perf_counter() - start)
    return min(times)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("kavel")
    parser.add_argument("--runs", type=int, default=3)
    options = parser.parse_args()
    peers = []
    for name, command in commands(options.kavel, None).items():
        if shutil.which(str(command[0])):
            peers.append(name)
        else:
            print(f"{name}: not installed (Debian package {PACKAGES.get(name, name)})")
    start = {name: best(commands(options.kavel, None)[name], options.runs) for name in peers}
    print(f"start-up    kavel {start['kavel'] * 1000:.1f} ms")
    missed = start["kavel"] > 0.030
    for name, arguments in PROGRAMS:
        lines = commands(options.kavel, f"{name} {arguments}")
        took = {peer: max(best(lines[peer], options.runs) - start[peer], 1e-4) for peer in peers}
        row = f"{name:11} kavel {took['kavel']:.3f} s"
        for peer in peers[1:]:
            times = took["kavel"] / took[peer]
            missed |= times > LIMITS.get(peer, float("inf"))
            row += f"  {peer} {took[peer]:.3f} s (x{times:.2f})"
        print(row, flush=True)
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
