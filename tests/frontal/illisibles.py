#!/usr/bin/env python3
"""Records of profiles in which anything stands: --audit, --audit --fix and --list say so and come to their end.

Usage: illisibles.py KAVEL SOURCE [SEEDS]. In each record that the front-end keeps, a group of each kind is spoilt; then groups anywhere
in the drawing, by seed.
"""
import os
import random
import subprocess
import sys
import tempfile

KAVEL, SOURCE = map(os.path.abspath, sys.argv[1:3])
SEEDS = int(sys.argv[3]) if len(sys.argv) > 3 else 12
NAMES = ("ELEMS_PROJET_KAVEL", "ELEMS_STATIQUES_KAVEL", "PLV_TABLES", "PLV_HABILLAGE", "PLV_RAPPELS", "VARDANE_MATRICES", "INFO_MATRICE")
faults = []


def run(folder, *arguments):
    environment = dict(os.environ, KAVEL_FRONTAL=os.path.join(SOURCE, "frontal"), KAVEL_CHEMIN=folder)
    return subprocess.run([KAVEL, "--quiet", *arguments], cwd=folder, env=environment, capture_output=True, text=True, errors="replace", timeout=60)


def groups_of(path):
    with open(path, encoding="utf-8") as file:
        lines = file.read().split("\n")
    return [(lines[i], lines[i + 1]) for i in range(0, len(lines) - 1, 2)]


def record_of(groups, name):
    """First and last group of the XRECORD that a dictionary has under the name; and where extension dictionaries begin."""
    key = next((i for i, group in enumerate(groups) if group == ("  3", name)), None)
    if key is None:
        return range(0)
    start = groups.index(("  5", groups[key + 1][1]), key)
    end = next(i for i in range(start, len(groups)) if groups[i][0].strip() == "0")
    return range(start + 4, end)


def spoilt_records(groups):
    for name in NAMES:
        kinds = {}
        for i in record_of(groups, name):
            kinds.setdefault(groups[i][0], i)
        for i in kinds.values():
            for value in ("zz", ""):
                yield f"{name} {groups[i]} as {value!r}", groups[:i] + [(groups[i][0], value)] + groups[i + 1:]
    for i, group in enumerate(groups):
        if group == ("102", "{ACAD_XDICTIONARY") and groups[i + 1][0].strip() == "360":
            yield f"extension dictionary {groups[i + 1]}", groups[:i + 1] + [("1", groups[i + 1][1])] + groups[i + 2:]
            return


def spoilt_anywhere(groups, seed):
    generator, changed = random.Random(seed), list(groups)
    first = changed.index(("  2", "TABLES"))
    for _ in range(generator.randint(1, 12)):
        i = generator.randrange(first, len(changed))
        code = changed[i][0]
        changed[i:i + 1] = generator.choice(([], [changed[i]] * 2, [(code, generator.choice(("0", "zz", "1e400", "", "FFFF")))],
                                             [(generator.choice(("1000", "1040", "330", "5", "10")), changed[i][1])]))
    return f"seed {seed}", changed


def main():
    with tempfile.TemporaryDirectory() as folder:
        drawing = os.path.join(folder, "d.dxf")
        with open(os.path.join(folder, "s.scr"), "w", encoding="utf-8") as out:
            out.write("PLV-NOUVEAU\nrue-du-moulin.csv\n1\n0,0\n10\n2.5\n150\nA\nPLV-PROJET\nProjet\nFichier\nrue-du-moulin-projet.csv\n"
                      "PLV-MATRICES\nmatrices-route.txt\nEspaces\n")
        run(folder, "--script", "s.scr", "--save", drawing)
        groups = groups_of(drawing)
        cases = list(spoilt_records(groups)) + [spoilt_anywhere(groups, seed) for seed in range(SEEDS)]
        if len(cases) < SEEDS + 20:
            faults.append(f"only {len(cases)} cases")
        for what, changed in cases:
            with open(os.path.join(folder, "x.dxf"), "w", encoding="utf-8") as out:
                out.write("".join(f"{code}\n{value}\n" for code, value in changed))
            for arguments in (["--list"], ["--audit", "--fix", "--list"]):
                made = run(folder, "x.dxf", "--recover", *arguments)
                if "; erreur" in made.stdout + made.stderr or made.returncode not in (0, 1, 3):
                    faults.append(f"{what}, {arguments}: {made.returncode} {(made.stdout + made.stderr)[:300]}")
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
