"""Project lines: by points or a file, with vertical curves; curves that another program drew, in every way it might have."""
from fractions import Fraction as F

import curves
import sources
from model import KINDS, Line
from play import Step
from sources import decimal, text
from world import drawn_check


def free_stretch(world, profile, kind):
    """Where a kind of line has room: nothing yet, or the right of what there is."""
    rng = world.rng
    taken = profile.lines.get(kind)
    start = F(0)
    if taken:
        start = F(round(taken[-1].end * 100 + rng.randint(1, 500)), 100)
    elif rng.random() < 0.3:
        start = decimal(rng, 0, float(profile.length) / 3, 2)
    if profile.length - start < 10:
        return None
    end = profile.length if rng.random() < 0.6 or profile.length - start < 20 else decimal(rng, float(start) + 10, float(profile.length), 2)
    return start, end


# --- vertical curves: what is asked for at a vertex, (measure, value, form), or None

def slope(a, b):
    return (b[1] - a[1]) / (b[0] - a[0])


def bends(points):
    """For each inner vertex whether the slope changes: there the command asks."""
    return [abs(slope(a, b) - slope(b, c)) > F(1, 10**9) for a, b, c in zip(points, points[1:], points[2:])]


def sine(p):
    return p / curves.root(1 + p * p)


def radius(request, before, after):
    measure, value, form = request
    if measure == "R":
        return value
    return value / abs(sine(after) - sine(before) if form == "C" else after - before)


def random_request(rng, a, vertex, c):
    """A vertical curve that leaves room for its neighbours."""
    before, after = slope(a, vertex), slope(vertex, c)
    room = min(vertex[0] - a[0], c[0] - vertex[0]) * F(4, 10)
    if abs(after - before) < F(1, 100) or room < 1 or rng.random() < 0.4:
        return None
    length = decimal(rng, 1, float(room), 2)
    form = rng.choice("CP")
    if rng.random() < 0.5:
        return "L", length, form
    return "R", F(round(length / abs(after - before) * 100), 100), form


def parts(points, requests):
    """The straight and the curved parts of vertices with their requests."""
    result, place = [], points[0]
    for a, vertex, c, request in zip(points, points[1:], points[2:], requests):
        straight = [place, vertex]
        place = vertex
        if request:
            before, after = slope(a, vertex), slope(vertex, c)
            make = curves.parabola if request[2] == "P" else curves.circle
            curve = make(vertex, before, after, radius(request, before, after))
            straight[1] = curve.points[0]
            place = curve.points[-1]
            result += [curves.Straight(straight), curve]
        elif result and not isinstance(result[-1], curves.Curve):
            result[-1] = curves.Straight(result[-1].points + [vertex])
        else:
            result.append(curves.Straight(straight))
    if result and not isinstance(result[-1], curves.Curve):
        return result[:-1] + [curves.Straight(result[-1].points + [points[-1]])]
    return result + [curves.Straight([place, points[-1]])]


def typed(request):
    """The answers for a vertical curve."""
    if not request:
        return ["Aucun"]
    measure, value, form = request
    return ["Rayon" if measure == "R" else "Longueur", text(value), "Circulaire" if form == "C" else "Parabolique"]


def in_file(request):
    return f"{request[0]}{text(request[1])};{request[2]}" if request else ";"


def project_line(world):
    """A project line by points or from a file, with vertical curves or without."""
    rng = world.rng
    profile = rng.choice(world.active)
    kind = rng.choice(KINDS)
    stretch = free_stretch(world, profile, kind)
    if stretch is None:
        return None
    points = sources.straight_line(rng, profile, *stretch)
    curved = rng.random() < 0.5 and world.circumstances.release != "R12"  # which has no splines
    requests = [random_request(rng, *around) if curved else None for around in zip(points, points[1:], points[2:])]
    files, head = {}, ["PLV-PROJET", *world.which(profile), kind]
    if rng.random() < 0.5:
        answers = [word for bend, request in zip(bends(points), requests) if bend for word in typed(request)]
        lines = head + ["POints", *[f"{text(profile.first + d)},{text(z)}" for d, z in points], "", *answers]
    else:
        file = world.file(".csv")
        rows = [f"{text(profile.first + d)};{text(z)};{in_file(r)}" for (d, z), r in zip(points, [None, *requests, None])]
        files[file] = "station;altitude;raccordement;forme\n" + "\n".join(rows) + "\n"
        lines = head + ["Fichier", file]
    profile.lines.setdefault(kind, []).append(Line(parts(points, requests), profile.scale))
    return Step(f"project line {kind} of {profile.number}", lines, [drawn_check(world)], files)
