"""PLV-OPTIMAL: the line that it proposes begins and ends where it was asked to, and says rightly whether it keeps to its depths.

Which line it proposes is its own affair, and what was typed doesn't tell it: a step writes it to a file and takes it away again.
"""
from fractions import Fraction as F

import exact
import exports
from model import KINDS
from play import Step
from sources import decimal, text

AT = F(1, 10**5)   # the file has six decimals, and a line is drawn a little beside a change of plane
INSIDE = "Toute la ligne est dans les profondeurs demandées."

TAKEN_AWAY = """(progn (setq profil (plv-profil-de-numero "%s")) (plv-effacer-courbes profil (plv-elements-du-projet profil "%s")) (princ))"""


def optimal(world):
    rng = world.rng
    profile = rng.choice(world.active)
    free = [k for k in KINDS if not profile.lines.get(k)]
    if not free or len({p[0] for p in profile.points}) < len(profile.points):  # at a wall the line stops and goes on elsewhere
        return None
    kind, low = rng.choice(free), decimal(rng, -1, 3, 1)
    high, file, frozen = low + decimal(rng, 0.2, 3, 1), world.file(" optimal.csv"), profile.copy()
    lines = ["PLV-OPTIMAL", *world.which(profile), kind, text(low), text(high), "", "", "Non",
             "PLV-EXPORT", "Texte", *world.which(profile), "Projet", kind, file, TAKEN_AWAY % (profile.number, kind)]

    def check(report, result):
        compare(report, frozen, low, high, exports.fields(result.file(file)), INSIDE in result.said)
    return Step(f"optimal line of {profile.number}", lines, [check])


def compare(report, profile, low, high, rows, said_inside):
    line = [(F(row[0]) - profile.first, F(row[1])) for row in rows]
    for name, found, ground in (("start", line[0], profile.points[0]), ("end", line[-1], profile.points[-1])):
        report.near("optimal", f"line of {profile.number}, {name}", found[0], ground[0], AT)
        report.near("optimal", f"line of {profile.number}, depth at its {name}", ground[1] - found[1], (low + high) / 2, AT)
    pieces = exact.depths(profile.points, line)
    least, most = exact.depth_range(pieces, F(0), profile.length)
    # Between the two the last decimals of the file decide.
    inside, outside = low <= least and most <= high, least < low - AT or most > high + AT
    if inside or outside:
        report.same("optimal", f"line of {profile.number}, depths {float(least)} to {float(most)}, said to keep to {text(low)} to {text(high)}", said_inside, inside)
