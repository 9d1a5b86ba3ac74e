#!/usr/bin/python3
"""Breaks the program, or the expected computation, on purpose in one place at a time: the suite must find each.

Usage: mutations.py KAVEL SOURCE [--file PART] [options of run.py]. The front-end and the suite are copied; nothing of SOURCE changes.
"""
import argparse
import os
import shutil
import subprocess
import sys
import tempfile

# file, what stands there, what takes its place
MUTATIONS = (
    ("frontal/profil/plv-plans.lsp", "(- distance 1e-7)", "(+ distance 1e-7)"),
    ("frontal/profil/plv-cadre.lsp", "(/ (- ordonnee (cadr (plv-cadre-origine cadre))) (plv-cadre-echv cadre))",
     "(/ (- ordonnee (cadr (plv-cadre-origine cadre))) 10.0)"),
    ("frontal/tableaux/plv-remplissage-projet.lsp", "(- (cadr p) z)", "(abs (- (cadr p) z))"),
    ("frontal/tableaux/plv-remplissage.lsp", "(cons 'origine (plv-premiere-station profil))", "(cons 'origine 0.0)"),
    ("frontal/tableaux/plv-espacement.lsp", "(* 1.3 ttxt)", "(* 1.5 ttxt)"),
    ("frontal/profil/plv-pentes.lsp", "(equal (plv-pente-valeur a) (plv-pente-valeur b) 1e-6)", "(equal (plv-pente-valeur a) (plv-pente-valeur b) 1e-2)"),
    ("frontal/terrain/plv-terrain.lsp", "(cons (- (car p) origine) (cdr p))", "(cons (- (car p) origine -0.01) (cdr p))"),
    ("frontal/metres/plv-metres-classes.lsp", "(min numero (length classes))", "(min numero 1)"),
    ("frontal/metres/plv-metres-classes.lsp", "(<= numero 0)", "(< numero 0)"),
    ("frontal/metres/plv-legende.lsp", "(plv-reel somme 2)", "(plv-reel (* somme 1.001) 2)"),
    ("frontal/projet/plv-raccords.lsp", "(list (* 0.5 rayon (abs (- p2 p1))) (* 0.5 rayon (abs (- p2 p1))) 1.0)",
     "(list (* 0.5 rayon (abs (- p2 p1))) (* 0.5 rayon (abs (- p2 p1))) 1.01)"),
    ("frontal/projet/plv-raccords.lsp", "(cos t1)", "1.0"),
    ("frontal/portes/plv-formes-ecriture.lsp", '("POLYLINE" . 40)))', '("POLYLINE" . 40) ("ARC" . 40)))'),
    ("frontal/cotes/plv-cotes.lsp", "cordes (plv-cordes-de courbe)", "cordes nil"),
    ("frontal/metres/plv-legende.lsp", "(while (plv-legende:references nom)", "(while nil"),
    ("frontal/metres/plv-metres-lots.lsp", '(setq terrains (plv-elements profil "TN")', "(setq terrains nil"),
    ("frontal/tableaux/plv-devers.lsp", "(plv-remplir:signe va 2)", "(plv-remplir:signe (abs va) 2)"),
    ("frontal/tableaux/plv-remplissage-plan.lsp", "(plv-reel (plv-longueur s) 2)", "(plv-reel (* 1.001 (plv-longueur s)) 2)"),
    ("frontal/optimal/plv-optimal-questions.lsp", "(plv-milieu (list minimum maximum))", "minimum"),
    ("frontal/echange/plv-landxml-projet.lsp", '(list "P" "L" mesure)', '(list "C" "L" mesure)'),
    ("tests/invariance/exact.py", "return number\n    return classes.of((depth1 + depth2) / 2)", "return number + 1\n    return classes.of((depth1 + depth2) / 2)"),
    ("tests/invariance/exact.py", "if depth <= limit:", "if depth < limit + F(1, 100):"),
    ("tests/invariance/exact.py", "return abs(self.depth1 + self.depth2) * self.length / 2", "return abs(self.depth1) * self.length"),
    ("tests/invariance/model.py", "if start < d or start == 0", "if start <= d"),
    ("tests/invariance/compare_tables.py", "d + profile.first", "d + F(1, 100)"),
)


def found(kavel, source, mutation, options):
    """Whether the suite sees a mutation; None when the place isn't there any more."""
    file, before, after = mutation
    with tempfile.TemporaryDirectory() as place:
        for folder in ("frontal", "tests/invariance", "exemples"):
            shutil.copytree(os.path.join(source, folder), os.path.join(place, folder))
        path = os.path.join(place, file)
        with open(path, encoding="utf-8") as opened:
            text = opened.read()
        if before not in text:
            return None
        with open(path, "w", encoding="utf-8") as opened:
            opened.write(text.replace(before, after))
        done = subprocess.run([sys.executable, os.path.join(place, "tests/invariance/run.py"), kavel, place, "--first", *options], capture_output=True, text=True)
        return done.returncode != 0


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("kavel")
    parser.add_argument("source")
    parser.add_argument("--file", default="", help="only what is broken in files whose names have this part")
    arguments, options = parser.parse_known_args()
    missed, chosen = 0, [m for m in MUTATIONS if arguments.file in m[0]]
    for mutation in chosen:
        result = found(os.path.abspath(arguments.kavel), os.path.abspath(arguments.source), mutation, options)
        words = {True: "found", False: "NOT FOUND", None: "no such place"}[result]
        missed += result is not True
        print(f"{words:14} {mutation[0]}: {mutation[1][:70]}", flush=True)
    print(f"{len(chosen)} mutations, {missed} not found")
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
