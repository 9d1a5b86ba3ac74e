"""PLV-EXPORT in text: the lines of the file are the ground's points, or the vertices of a project line."""
from fractions import Fraction as F

import exact
from play import Step
from sources import text

SIX = F(1, 10**6)


def fields(path):
    with open(path, encoding="cp1252") as file:  # as text files are written
        return [line.rstrip("\n").split(";") for line in file][1:]


def compare_ground(report, profile, path):
    rows = fields(path)
    report.same("exports", f"ground of {profile.number}, lines", len(rows), len(profile.points))
    for row, (d, z), name in zip(rows, profile.points, profile.names):
        what = f"ground of {profile.number} at {row[0]}"
        report.printed("exports", what, row[0], d + profile.first, 6)
        report.printed("exports", what + ", altitude", row[1], z, 6)
        report.same("exports", what + ", name", row[2], name)


def compare_line(report, profile, kind, path):
    """Vertices of the first run of straight pieces; more may stand on the line where a plane changes."""
    line, rows = runs(profile.lines[kind])[0], fields(path)
    what = f"{kind} of {profile.number}"
    stations = [F(row[0]) - profile.first for row in rows]
    report.near("exports", what + ", begin", stations[0], line[0][0], SIX)
    report.near("exports", what + ", end", stations[-1], line[-1][0], SIX)
    for d, row in zip(stations, rows):
        z = exact.altitude(line, min(max(d, line[0][0]), line[-1][0]))
        report.near("exports", f"{what} at {row[0]}", row[1], z, SIX * 3)
    for d, _ in exact.simplified(line):
        report.same("exports", f"{what}, vertex at {float(d):.3f}", any(abs(s - d) < SIX * 2 for s in stations), True)


def runs(lines):
    """Lines that follow one another without a gap are one."""
    result = []
    for line in lines:
        if result and result[-1][-1] == line.points[0]:
            result[-1] += line.points[1:]
        else:
            result.append(list(line.points))
    return result


def export(world):
    rng = world.rng
    profile = rng.choice(world.active)
    file, frozen = world.file(" écrit.csv"), profile.copy()
    straight = [k for k in profile.kinds() if not any(l.curves for l in profile.lines[k])]
    head = ["PLV-EXPORT", "Texte", *world.which(profile)]
    if straight and rng.random() < 0.7:
        kind = rng.choice(straight)
        return Step(f"export {kind} of {profile.number}", head + ["Projet", kind, file],
                    [lambda report, result: compare_line(report, frozen, kind, result.file(file))], draws=False)
    return Step(f"export of {profile.number}", head + ["Terrain", file],
                [lambda report, result: compare_ground(report, frozen, result.file(file))], draws=False)


def compare_altitudes(report, profile, kind, path):
    """A row for each ground point that a line passes, of two at a wall for one."""
    what, ground = f"altitudes of {kind} of {profile.number}", dict(reversed(profile.points))
    wanted = {d: line for line in profile.lines[kind] for d in ground if line.start <= d <= line.end}
    rows = fields(path)
    report.same("exports", what + ", rows", len(rows), len(wanted))
    for row, d in zip(rows, sorted(wanted)):
        line = wanted[d]
        report.near("exports", f"{what} at {float(d):.3f}, station", row[0], d + profile.first, SIX)
        report.near("exports", f"{what} at {float(d):.3f}", row[1], line.altitude(d), SIX * 2 + line.chord)


def listed_kinds(profile):
    """The kinds of line that pass a ground point."""
    return [k for k in profile.kinds() if any(line.start <= d <= line.end for line in profile.lines[k] for d, _ in profile.points)]


def altitudes(world):
    """PLV-ALTITUDES of a whole line into a file."""
    owners = [p for p in world.active if listed_kinds(p)]
    if not owners:
        return None
    profile = world.rng.choice(owners)
    kind, file, frozen = world.rng.choice(listed_kinds(profile)), world.file(" altitudes.csv"), profile.copy()
    return Step(f"altitudes of {kind} of {profile.number}", ["PLV-ALTITUDES", *world.which(profile), "", kind, file],
                [lambda report, result: compare_altitudes(report, frozen, kind, result.file(file))], draws=False)
