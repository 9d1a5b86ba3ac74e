"""The commands of a run, drawn at random: what is typed, what it does to the suite's own profiles, what must then be right."""
import os
from fractions import Fraction as F

import classes
import compare_dimensions
import compare_entities
import compare_quantities
import compare_tables
import existing
import exports
import landxml
import lines
import optimal
import plan_rows
import sources
import survey
from drawing import Drawing
from model import KINDS
from play import Player, Step
from sources import decimal, text
from world import drawn_check


def new_profile(world):
    rng = world.rng
    number = str(len(world.profiles) + 1)
    place = world.circumstances.place
    if world.profiles:  # beside the first one
        place = (text(F(place[0]) + 5000), place[1])
    points = sources.ground(rng)
    walls = ", walls" * (len({p[0] for p in points}) < len(points))
    if not walls and rng.random() < 0.25:
        return landxml_profile(world, number, place, points)
    profile = sources.profile(rng, number, place, points)
    return profile_step(world, profile, "new profile" + walls, world.file(".csv"), sources.ground_file(points, profile.first))


def landxml_profile(world, number, place, points):
    unit, points = landxml.in_unit(world.rng, points)
    profile = sources.profile(world.rng, number, place, points, landxml.UNITS[unit])
    drawn, kind, line = landxml.project(world.rng, profile, unit) if world.circumstances.release != "R12" else ("", None, None)
    if kind:
        profile.lines[kind] = [line]
    return profile_step(world, profile, f"new profile of LandXML in {unit}", world.file(".xml"), landxml.written(profile, points, unit, drawn), [kind] if kind else [])


def profile_step(world, profile, title, file, contents, answers=()):
    world.profiles.append(profile)
    typed = ["PLV-NOUVEAU", file, profile.number, f"{text(profile.x0)},{text(profile.y0)}", text(profile.scale), text(profile.text), "150", "Saisis",
             *sources.typed_planes(profile.planes), *answers]
    return Step(title, typed, [drawn_check(world)], {file: contents})


def tables(world):
    rng = world.rng
    profile = rng.choice(world.active)
    rows = sources.tables(rng, profile.kinds())
    everything = rng.random() < 0.6 or any(r[1] in sources.WIDE for r in rows)
    file = world.file(".txt")
    typed = ["PLV-MATRICES", *world.which(profile), file, "Tous" if everything else "Espaces"]
    frozen = profile.copy()
    world.tables[profile.number] = (frozen, rows, everything)
    kept = list(world.tables.values())

    def check(report, result):
        for owner, own_rows, all_points in kept:
            compare_tables.compare(report, result.drawing, owner, own_rows, all_points)
    return Step(f"tables of {profile.number}", typed, [check, drawn_check(world)], {file: sources.definition_file(rows)})


def plane(world):
    """A plane added, changed or removed."""
    rng = world.rng
    profile = rng.choice(world.active)
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


def manhole(world):
    """A block with attributes over the profile."""
    rng = world.rng
    profile = rng.choice(world.active)
    d = decimal(rng, 0, float(profile.length), 2)
    values = {"NUM": f"R{rng.randint(1, 99)}", "DN": rng.choice(("200", "300", "Ø 400"))}
    profile.blocks.append((d, values))
    x, y = (existing.exactly(v) for v in (profile.x0 + d, profile.y0 + 3))
    attributes = [f'(entmake \'((0 . "ATTRIB") (8 . "0") (10 {x} {y} 0.0) (40 . 1.0) (1 . "{v}") (2 . "{tag}") (70 . 0)))' for tag, v in values.items()]
    return Step(f"manhole of {profile.number}", [BLOCK, f'(entmake \'((0 . "INSERT") (8 . "0") (66 . 1) (2 . "REGARD") (10 {x} {y} 0.0)))',
                                                 *attributes, '(entmake \'((0 . "SEQEND") (8 . "0")))'])


BLOCK = """(if (not (tblsearch "BLOCK" "REGARD")) (progn (entmake '((0 . "BLOCK") (2 . "REGARD") (70 . 2) (10 0.0 0.0 0.0))) """ \
    """(entmake '((0 . "ENDBLK")))))"""


def transfer(world):
    """TRANSFERERPROJET: the project becomes the line of a kind that has none yet."""
    owners = [p for p in world.active if p.lines.get("Projet")]
    if not owners:
        return None
    profile = world.rng.choice(owners)
    free = [k for k in KINDS if k != "Projet" and not profile.lines.get(k)]
    if not free:
        return None
    kind = world.rng.choice(free)
    profile.lines[kind] = profile.lines.pop("Projet")
    return Step(f"transfer to {kind} of {profile.number}", ["PLV-CHOISIR", *world.which(profile), "TRANSFERERPROJET", kind], [drawn_check(world)])


def measured_profile(world):
    """A profile with a project line, and one of its kinds."""
    owners = [p for p in world.active if p.kinds()]
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
    typed = ["PLV-METRES", profile.number, kind, book, "Oui" if hatched else "Non"]
    if hatched:
        typed = [erase(profile, "HATCH", "PLV-HACHURES")] + typed  # those of other kinds lie over one another

    def check(report, result):
        compare_quantities.compare_listing(report, measured, result.said)
        compare_quantities.compare_sheet(report, measured, result.file(book + ".xlsx"))
        if hatched and world.circumstances.release != "R12":  # which has no hatches; the program says so
            compare_quantities.compare_hatches(report, measured, result.drawing)
    return Step(f"quantities {kind} of {profile.number}", typed, [check, drawn_check(world)])


ERASE = """(progn (if (setq vieux (ssget "X" '((0 . "%s") (8 . "%s")))) (foreach e (plv-entites-du-jeu vieux) """ \
    """(if (< (abs (- (caddr (assoc 10 (reverse (entget e)))) %s)) 2500.0) (entdel e)))) (princ))"""


def erase(profile, kind, layer):
    """Takes away what an earlier command drew of a profile."""
    return ERASE % (kind, layer, text(profile.y0))


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
    frozen = profile.copy()
    typed = [erase(profile, "TEXT", "PLV-COTES"), PICKS % (profile.number, kind), "PLV-CHOISIR", *world.which(profile),
             f'(piquer "{kind}" "{which}")', "SCRIPT", "piquer.scr"]
    return Step(f"dimensions {kind} of {profile.number}", typed,
                [lambda report, result: compare_dimensions.compare(report, result.drawing, frozen, [kind], which), drawn_check(world)])


# The answers of the command are written into a script: how many curves there are, the drawing knows.
PICKS = """(progn (setq profil (plv-profil-de-numero "%s") genre "%s") (defun piquer (genre lesquelles / f) (setq f (open "piquer.scr" "w")) """ \
    """(write-line "(CotAutoKavel)" f) (write-line genre f) (write-line lesquelles f) (foreach s (plv-elements-situes profil genre) """ \
    """(write-line (strcat "(list (handent \\"" (cdr (assoc 5 (entget (cadddr s)))) "\\") (list " (rtos (+ (car (plv-origine profil)) """ \
    """(* 0.5 (+ (car s) (cadr s)))) 2 6) " 0.0))") f)) (write-line "" f) (close f) (princ)) (princ))"""


# the commands with their weights
COMMANDS = ((lines.project_line, 3), (existing.existing_curve, 2), (tables, 4), (plane, 3), (quantities, 4), (legend, 2), (dimensions, 3),
            (exports.export, 1), (exports.altitudes, 1), (classes.edit, 1), (manhole, 2), (transfer, 1), (plan_rows.axis, 1), (plan_rows.falls, 1), (optimal.optimal, 1), (survey.survey, 1))


# --- a copy: the original must stay as it was

UP = 6000  # where the copy stands, above the original

RENUMBER = """(foreach p (plv-profils) (if (equal (cadr (plv-origine p)) %s 1.0) (progn (setq e (plv-attribut-profil p "NUMPL")) """ \
    """(entmod (subst (cons 1 "%s") (assoc 1 e) e)) (entupd p))))"""


def copy_profile(world):
    """COPY of everything; the copy gets a number of its own and is worked on from now on."""
    profile = world.active[0]
    twin = profile.copy()
    twin.number, twin.y0 = "C" + profile.number, profile.y0 + UP
    typed = ["COPY", "ALL", "", "0,0", f"0,{UP}", "", RENUMBER % (text(twin.y0), twin.number)]
    world.profiles.append(twin)
    world.active = [twin]
    world.original = None

    def check(report, result):
        world.original = result.before.drawing
        unchanged(world)(report, result)
    return Step(f"copy of {profile.number}", typed, [check, drawn_check(world)])


def unchanged(world):
    return lambda report, result: compare_entities.compare(report, "original", result.drawing, world.original, False)


def undone(report, result):
    """The drawing with the step undone is the one before it."""
    if result.undone is not None and result.before is not None:
        compare_entities.compare(report, "undone", result.undone, result.before.drawing)


def all_undone(report, result):
    """Everything undone leaves an empty drawing, or the one that was opened; everything redone the last one."""
    redone = result.file(Player.ALL_REDONE)
    if not os.path.exists(redone):
        return
    first = result
    while first.before:
        first = first.before
    opened = first.drawing.entities if first.renamed else []
    undone_all = Drawing(result.file(Player.ALL_UNDONE))
    report.same("undone", "entities with everything undone", sorted(e.handle for e in undone_all.entities), sorted(e.handle for e in opened))
    compare_entities.compare(report, "undone", Drawing(redone), result.drawing)


def plan(world, length):
    """The steps of a run."""
    rng, planned = world.rng, [new_profile(world)]
    if rng.random() < 0.3 and not world.circumstances.copied:
        planned.append(new_profile(world))
    commands, weights = zip(*COMMANDS)
    copied_at = length // 2 if world.circumstances.copied else None
    while len(planned) < length:
        if len(planned) == copied_at:
            planned.append(copy_profile(world))
        step = rng.choices(commands, weights)[0](world)
        if step:
            planned.append(step)
            if copied_at is not None and len(planned) > copied_at + 1:
                step.checks.append(unchanged(world))
    for step in planned:
        step.checks.append(undone)
    planned[-1].checks.append(all_undone)
    return planned
