"""What the tests that read sheets back share: the program run with a script, words of a PDF in millimetres, and the faults that were found."""
import os
import re
import subprocess
import sys

KAVEL, SOURCE = sys.argv[1:3]
POINTS = 72 / 25.4
faults = []


def expect(what, found, wanted):
    if found != wanted:
        faults.append(f"{what}: {found!r}, expected {wanted!r}")


def run(folder, lines, *arguments):
    """What the program has printed, and its status."""
    with open(os.path.join(folder, "s.scr"), "w", encoding="utf-8") as out:
        out.write("\n".join(lines) + "\n")
    environment = dict(os.environ, KAVEL_FRONTAL=os.path.join(SOURCE, "frontal"), KAVEL_CHEMIN=folder)
    return subprocess.run([KAVEL, "--quiet", "--script", "s.scr", *arguments], cwd=folder, env=environment, capture_output=True, text=True)


def read(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def words(pdf, page):
    """(text, x, y) of the middle of each word, millimetres from the top left corner."""
    found = re.findall(r'<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">([^<]*)<',
                       read("pdftotext", "-bbox", "-f", str(page), "-l", str(page), pdf, "-"))
    return [(w, (float(a) + float(c)) / 2 / POINTS, (float(b) + float(d)) / 2 / POINTS) for a, b, c, d, w in found]


def told():
    """The faults, one a line; the status of the test."""
    for fault in faults:
        print(fault)
    return 1 if faults else 0
