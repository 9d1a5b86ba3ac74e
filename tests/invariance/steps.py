"""The commands of a run, drawn at random: what is typed, what it does to the suite's own profiles, what must then be right."""
from fractions import Fraction as F

import compare_dimensions
import compare_drawn
import compare_quantities
import compare_tables
import exact
import sources
from model import KINDS, Line, Profile
from play import Step
from sources import decimal, text


class World:
    """The profiles of the drawing, and the choices of a run."""

    def __init__(self, rng, circumstances):
        self.rng, self.circumstances = rng, circumstances
        self.profiles, self.classes = [], sources.classes(rng)
        self.files = 0
        self.tables = {}   # number of a profile: what its tables hold
        self.legends = {}  # (number, kind): what its legend holds

    def file(self, ending):
        self.files += 1
        return f"{self.rng.choice(('levé', 'fichier d’été', 'donnees'))} {self.files}{ending}"

    def which(self, profile):
        """The answer to the question for the profile, asked when there are several."""
        return [profile.number] if len(self.profiles) > 1 else []


def drawn_check(world):
    """After every step the ground and the project lines stand where they must."""
    profiles = [p.copy() for p in world.profiles]
    return lambda report, result: [compare_drawn.compare(report, result.drawing, p) for p in profiles]


def new_profile(world):
    rng = world.rng
    number = str(len(world.profiles) + 1)
    place = world.circumstances.place
    if world.profiles:  # beside the first one
        place = (text(F(place[0]) + 5000), place[1])
    profile, points = sources.profile(rng, number, place)
    planes = list(profile.planes)
    world.profiles.append(profile)
    file = world.file(".csv")
    lines = ["PLV-NOUVEAU", file, number, ",".join(place), text(profile.scale), text(profile.text), "150", "Saisis",
             *sources.typed_planes(planes)]
    return Step("new profile", lines, [drawn_check(world)], {file: sources.ground_file(points, profile.first)})


def free_stretch(world, profile, kind):
    """Where a kind of line has room: nothing yet, or the right of what there is."""
    rng = world.rng
    taken = profile.lines.get(kind)
    start = F(0) if not taken else taken[-1].end + decimal(rng, 0, 5, 1)
    if start and rng.random() < 0.3:
        start = F(round(start * 100), 100)
    elif not taken and rng.random() < 0.3:
        start = decimal(rng, 0, float(profile.length) / 3, 2)
    if profile.length - start < 10:
        return None
    end = profile.length if rng.random() < 0.6 or profile.length - start < 20 else decimal(rng, float(start) + 10, float(profile.length), 2)
    return start, end


def typed_vertices(profile, points):
    return [f"{text(profile.first + d)},{text(z)}" for d, z in points]


def project_line(world):
    """A straight project line by points, by slopes or from a file."""
    rng = world.rng
    profile = rng.choice(world.profiles)
    kind = rng.choice(KINDS)
    stretch = free_stretch(world, profile, kind)
    if stretch is None:
        return None
    points = sources.straight_line(rng, profile, *stretch)
    files = {}
    head = ["PLV-PROJET", *world.which(profile), kind]
    bends = [b for a, b, c in zip(points, points[1:], points[2:])
             if abs((b[1] - a[1]) / (b[0] - a[0]) - (c[1] - b[1]) / (c[0] - b[0])) > F(1, 10**9)]
    if rng.random() < 0.5:
        lines = head + ["POints", *typed_vertices(profile, points), "", *["Aucun"] * len(bends)]
    else:
        file = world.file(".csv")
        rows = "".join(f"{text(profile.first + d)};{text(z)}\n" for d, z in points)
        files[file] = "station;altitude;raccordement;forme\n" + rows
        lines = head + ["Fichier", file]
    profile.lines.setdefault(kind, []).append(Line(points))
    return Step(f"project line {kind} of {profile.number}", lines, [drawn_check(world)], files)


def tables(world):
    rng = world.rng
    profile = rng.choice(world.profiles)
    rows = sources.tables(rng, profile.kinds())
    everything = rng.random() < 0.6 or any(r[1] in sources.WIDE for r in rows)
    file = world.file(".txt")
    lines = ["PLV-MATRICES", *world.which(profile), file, "Tous" if everything else "Espaces"]
    frozen = profile.copy()
    world.tables[profile.number] = (frozen, rows, everything)
    kept = list(world.tables.values())

    def check(report, result):
        for owner, own_rows, all_points in kept:
            compare_tables.compare(report, result.drawing, owner, own_rows, all_points)
    return Step(f"tables of {profile.number}", lines, [check, drawn_check(world)], {file: sources.definition_file(rows)})


def plane(world):
    """A plane added, changed or removed."""
    rng = world.rng
    profile = rng.choice(world.profiles)
    operation = rng.choice("AAMS")
    if operation == "S" and len(profile.planes) < 2:
        operation = "A"
    low = min(p[1] for p in profile.points)
    altitude = F(int(low) - rng.randint(1, 12))
    if operation == "A":
        start = rng.choice(profile.points[1:-1])[0] if rng.random() < 0.5 else decimal(rng, 1, float(profile.length) - 1, 2)
        if any(abs(start - s) < 1 for s, _ in profile.planes) or profile.length - start < 1:
            return None
        profile.planes = sorted(profile.planes + [(start, altitude)])
        answers = ["Ajouter", text(profile.first + start), text(altitude)]
    else:
        i = rng.randrange(1 if operation == "S" else 0, len(profile.planes))
        start, end, _ = profile.stretches()[i]
        station = text(profile.first + F(round((start + end) * 50), 100))
        if operation == "S":
            del profile.planes[i]
            answers = ["Supprimer", station]
        else:
            profile.planes[i] = (start, altitude)
            answers = ["Modifier", station, text(altitude)]
    return Step(f"plane {operation} of {profile.number}", ["PLV-PC", *world.which(profile), *answers], [drawn_check(world)])


def measured_profile(world):
    """A profile with a project line, and one of its kinds."""
    owners = [p for p in world.profiles if p.kinds()]
    if not owners:
        return None, None
    profile = world.rng.choice(owners)
    return profile, world.rng.choice(profile.kinds())


def quantities(world):
    """PLV-METRES with a workbook, hatched or not."""
    profile, kind = measured_profile(world)
    if profile is None:
        return None
    hatched = world.rng.random() < 0.6
    book = world.file("")
    measured = compare_quantities.Measured(profile.copy(), kind, world.classes)
    lines = ["PLV-METRES", profile.number, kind, book, "Oui" if hatched else "Non"]
    if hatched:
        lines = [ERASE_HATCHES] + lines  # those of other kinds lie over one another

    def check(report, result):
        compare_quantities.compare_listing(report, measured, result.said)
        compare_quantities.compare_sheet(report, measured, result.file(book + ".xlsx"))
        if hatched and world.circumstances.release != "R12":  # which has no hatches; the program says so
            compare_quantities.compare_hatches(report, measured, result.drawing)
    return Step(f"quantities {kind} of {profile.number}", lines, [check, drawn_check(world)])


ERASE_HATCHES = """(progn (if (setq vieux (ssget "X" '((0 . "HATCH")))) (command "ERASE" vieux "")) (princ))"""


def legend(world):
    profile, kind = measured_profile(world)
    if profile is None:
        return None
    measured = compare_quantities.Measured(profile.copy(), kind, world.classes)
    world.legends[(profile.number, kind)] = measured
    shown = list(world.legends.values())

    def check(report, result):
        for one in shown:
            compare_quantities.compare_legend(report, one, result.drawing)
    return Step(f"legend {kind} of {profile.number}", ["PLV-LEGENDE", *world.which(profile), kind, ""], [check])


def dimensions(world):
    """CotAutoKavel on every curve of a kind, picked in the middle of each; earlier dimensions are erased before."""
    profile, kind = measured_profile(world)
    if profile is None:
        return None
    which = world.rng.choice(("Toutes", "Altitudes", "Hauteurs"))
    frozen, axes = profile.copy(), len(profile.planes)
    lines = [ERASE_DIMENSIONS, PICKS % (profile.number, kind), "PLV-CHOISIR", *world.which(profile),
             f'(piquer "{kind}" "{which}")', "SCRIPT", "piquer.scr"]
    return Step(f"dimensions {kind} of {profile.number}", lines,
                [lambda report, result: compare_dimensions.compare(report, result.drawing, frozen, [kind], which), drawn_check(world)])


ERASE_DIMENSIONS = """(progn (if (setq vieux (ssget "X" '((0 . "TEXT") (8 . "PLV-COTES")))) (command "ERASE" vieux "")) (princ))"""
# The answers of the command are written into a script: how many curves there are, the drawing knows.
PICKS = """(progn (setq profil (plv-profil-de-numero "%s") genre "%s") (defun piquer (genre lesquelles / f) (setq f (open "piquer.scr" "w")) """ \
    """(write-line "(CotAutoKavel)" f) (write-line genre f) (write-line lesquelles f) (foreach s (plv-elements-situes profil genre) """ \
    """(write-line (strcat "(list (handent \\"" (cdr (assoc 5 (entget (cadddr s)))) "\\") (list " (rtos (+ (car (plv-origine profil)) """ \
    """(* 0.5 (+ (car s) (cadr s)))) 2 6) " 0.0))") f)) (write-line "" f) (close f) (princ)) (princ))"""


def settings(world):
    return sources.settings(world.classes)


def choices(world):
    """The commands with their weights."""
    return [(project_line, 3), (tables, 4), (plane, 3), (quantities, 4), (legend, 2), (dimensions, 3)]
