"""Ground and project lines as they are drawn: each end of a piece, over the plane of its section, lies on the suite's line."""
from fractions import Fraction as F

import exact

AT = F(1, 10**6)
GROUND, PROJECT, REFERENCES = "PLV-TN", "PLV-PROJET", "PLV-RAPPELS"


def mine(profile, entity):
    """Whether an entity stands within the profile's length; profiles stand beside each other, copies above."""
    return all(-AT <= F(x) - profile.x0 <= profile.length + AT and abs(F(y) - profile.y0) < 2500 for x, y in entity.ends())


def pieces(profile, entities, arcs=False):
    """(from, to, altitude from, altitude to) of the straight pieces, or of the arcs, each over the plane of its middle."""
    result = []
    for entity in entities:
        ends = entity.ends()
        for a, b, bulge in zip(ends, ends[1:], entity.bulges()):
            if (bulge != 0) != arcs:
                continue
            (x1, y1), (x2, y2) = sorted(((F(a[0]), F(a[1])), (F(b[0]), F(b[1]))))
            if x2 - x1 < F(1, 10**8):
                continue
            z = profile.plane((x1 + x2) / 2 - profile.x0)
            result.append((x1 - profile.x0, x2 - profile.x0, (y1 - profile.y0) / profile.scale + z, (y2 - profile.y0) / profile.scale + z))
    return sorted(result)


def covered(found):
    return sum((b - a for a, b, _, _ in found), F(0))


def on_line(line, d):
    """The line's altitude at a place that doubles may have put just off its end."""
    return exact.altitude(line, min(max(d, line[0][0]), line[-1][0]))


def compare_line(report, what, found, lines, tolerance):
    """Pieces that cover the lines, each end on one of them."""
    report.near("drawn", what + ", length", covered(found), sum((l[-1][0] - l[0][0] for l in lines), F(0)), AT)
    for start, end, z1, z2 in found:
        own = next((l for l in lines if l[0][0] - AT <= start and end <= l[-1][0] + AT), None)
        if own is None:
            report.same("drawn", what, f"a piece from {float(start)} to {float(end)}", "none there")
            continue
        for d, z in ((start, z1), (end, z2)):
            # A wall is so steep that the last digits of a distance change the altitude: there the points themselves count.
            corner = next((p[1] for p in own if abs(p[0] - d) < F(1, 10**8) and abs(p[1] - z) < F(1, 10**7)), None)
            report.near("drawn", f"{what}, altitude at {float(d):.3f}", z, on_line(own, d) if corner is None else corner, tolerance)


def compare(report, drawing, profile):
    own = [e for e in drawing.of("LINE", GROUND) if mine(profile, e)]
    # A point that a change of plane puts beside a wall lies on the ground as it was given, without the wall's micrometre.
    walls = len({d for d, _ in profile.points}) < len(profile.points)
    compare_line(report, f"ground of {profile.number}", pieces(profile, own), [exact.leaned(profile.points)], AT if walls else F(1, 10**7))
    compare_references(report, drawing, profile)
    lines = [l for kind in profile.lines.values() for l in kind]
    straight = [points for l in lines for points in l.straight()]
    drawn = [e for kind in ("LINE", "LWPOLYLINE", "POLYLINE") for e in drawing.of(kind, PROJECT) if mine(profile, e)]
    found = pieces(profile, drawn)
    report.near("drawn", f"project lines of {profile.number}, length", covered(found),
                sum((l[-1][0] - l[0][0] for l in straight), F(0)), AT)
    for start, end, z1, z2 in found:
        on = any(l[0][0] - AT <= start and end <= l[-1][0] + AT and abs(on_line(l, start) - z1) < F(1, 10**7)
                 and abs(on_line(l, end) - z2) < F(1, 10**7) for l in straight)
        report.same("drawn", f"project piece of {profile.number} from {float(start):.3f} to {float(end):.3f}, "
                    f"{float(z1):.4f} to {float(z2):.4f}, on a line", on, True)
    compare_curves(report, drawing, profile, lines, pieces(profile, drawn, True))


def references(drawing, profile):
    """(distance, ordinates) of the thin lines from the ground down to its plane."""
    found = [e.ends() for e in drawing.of("LINE", REFERENCES) if mine(profile, e)]
    return [(F(a[0]) - profile.x0, sorted((F(a[1]), F(b[1])))) for a, b in found]


def compare_references(report, drawing, profile):
    for d, ordinates in references(drawing, profile):
        near = [sorted((profile.y0, profile.drawn(*p)[1])) for p in profile.points if abs(p[0] - d) < AT]
        same = any(all(abs(a - b) < AT for a, b in zip(ordinates, wanted)) for wanted in near)
        report.same("drawn", f"reference line of {profile.number} at {float(d):.3f}", same or list(map(float, ordinates)),
                    True if same else [list(map(float, wanted)) for wanted in near])


def spline_ends(profile, drawing):
    """(from, to, altitude from, altitude to) of the splines."""
    result = []
    for entity in drawing.of("SPLINE", PROJECT):
        points = sorted(entity.points() or entity.points(11))
        (x1, y1), (x2, y2) = [(F(x) - profile.x0, F(y) - profile.y0) for x, y in (points[0], points[-1])]
        if -AT <= x1 <= profile.length and abs(y1) < 2500:
            z = profile.plane((x1 + x2) / 2)
            result.append((x1, x2, y1 / profile.scale + z, y2 / profile.scale + z))
    return result


def compare_curves(report, drawing, profile, lines, arcs):
    """Splines and arcs begin and end on the curves, and cover them."""
    curves, found = [c for l in lines for c in l.curves], spline_ends(profile, drawing) + arcs
    for start, end, z1, z2 in found:
        for d, z in ((start, z1), (end, z2)):
            near = [abs(c.altitude(min(max(d, c.start), c.end)) - z) for c in curves if c.start - AT <= d <= c.end + AT]
            report.same("drawn", f"end of a curve of {profile.number} at {float(d):.3f}, on its line", bool(near) and min(near) < F(1, 10**6), True)
    if drawing.has_splines:
        report.near("drawn", f"curves of {profile.number}, length", covered(found), sum((c.end - c.start for c in curves), F(0)), F(1, 10**4))
