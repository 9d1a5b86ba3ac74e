#!/usr/bin/python3
"""Random edits of a profile, after which PLV-ETAT names exactly what differs and PLV-ACTUALISER leaves what work from nothing makes.

Usage: run.py KAVEL SOURCE [--runs N] [--seed S] [--jobs J] [--only SEED] [--keep DIR]
A series makes a profile with all that can be derived of it, edits it by commands, programs and undo, saves it, has another program
change it, opens it again and edits it further. comparer.lsp then compares, thing by thing and entity by entity, with the same things
made from nothing in the same drawing. The seed of a series is printed when it differs.
"""
import argparse
import concurrent.futures
import os
import random
import subprocess
import sys
import tempfile
from collections import Counter

import editions


def kavel(args, folder, forms, drawing=None, save=None):
    script = os.path.join(folder, "serie.lsp")
    with open(script, "w", encoding="utf-8") as file:
        file.write("\n".join(forms) + "\n")
    command = [args.kavel] + ([drawing] if drawing else []) + ["--quiet", "--keep-going", "-l", os.path.join(args.source, "tests/suivi/comparer.lsp"), "-l", script]
    done = subprocess.run(command + (["--save", save] if save else []), cwd=folder, text=True, timeout=120, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, env={**os.environ, "KAVEL_CHEMIN": os.path.join(folder, "reglages"), "LC_ALL": "C.UTF-8",
                                                         "KAVEL_FRONTAL": os.path.join(args.source, "frontal")})
    return done.returncode, done.stdout


def play(args, seed, folder):
    """(lines of the verdict, the edits in words, the output)."""
    rng = random.Random(seed)
    serie = editions.Serie(rng, folder)
    drawing = os.path.join(folder, "a.dxf")
    output = kavel(args, folder, serie.beginning() + serie.edits(rng.randint(0, 3)), save=drawing)[1]
    if not os.path.exists(drawing):
        return ["#ECHEC no drawing"], serie.words, output
    if rng.random() < 0.4:
        serie.by_another_program(drawing)
    forms = serie.again() + serie.edits(rng.randint(0, 4))
    output += kavel(args, folder, forms + ["(essai:verdict p)"], drawing)[1]
    lines = [line for line in output.splitlines() if line.startswith("#")]
    return lines if "#FIN" in lines else lines + ["#ECHEC the series didn't end"], serie.words, output


def one(args, seed):
    if args.keep:
        folder = os.path.join(os.path.abspath(args.keep), str(seed))
        os.makedirs(folder, exist_ok=True)
        return seed, *play(args, seed, folder)
    with tempfile.TemporaryDirectory() as folder:
        return seed, *play(args, seed, folder)



FAULTS = ("#ECHEC", "#ENCORE", "#OUBLIEE", "#FAUSSE", "#DIFFERENTE")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("kavel", type=os.path.abspath)
    parser.add_argument("source", type=os.path.abspath)
    parser.add_argument("--runs", type=int, default=20)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("--only", type=int)
    parser.add_argument("--keep")
    args = parser.parse_args()
    seeds = [args.only] if args.only is not None else range(args.seed, args.seed + args.runs)
    bad, counts = 0, Counter()
    with concurrent.futures.ThreadPoolExecutor(args.jobs) as pool:
        for seed, lines, words, output in pool.map(lambda s: one(args, s), seeds):
            counts.update(line.split()[0] for line in lines)
            faults = [line for line in lines if line.startswith(FAULTS)]
            if faults:
                bad += 1
                print(f"series {seed}: " + "; ".join(words))
                print("\n".join("  " + line[:300] for line in lines if line != "#FIN" and not line.startswith("#VIEILLE")))
            if args.only is not None:
                print(output)
    print(f"{len(seeds)} series from seed {seeds[0]}: {bad} with a difference; {counts['#VIEILLE']} things were stale, "
          f"{counts['#OUBLIEE']} not named, {counts['#FAUSSE']} named in vain, {counts['#DIFFERENTE']} not as from nothing")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
