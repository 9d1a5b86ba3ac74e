"""A ground of one's own: polylines that are attached as the terrain, one over each plane, to which quantities are measured then."""
import existing
from play import Step
from sources import decimal
from world import drawn_check

LAYER = "LEVE"


def survey(world):
    """ASSOCPRJKAVEL with lines over the whole profile, a little beside its ground."""
    rng = world.rng
    owners = [p for p in world.active if not p.survey and len({q[0] for q in p.points}) == len(p.points)]
    if not owners:
        return None
    profile = rng.choice(owners)
    known = {d: z + decimal(rng, -1, 1, 2) for d, z in profile.points}
    for start, _ in profile.planes[1:]:
        known.setdefault(start, profile.points[0][1] + decimal(rng, -1, 1, 2))
    profile.survey = sorted(known.items())
    lines = ["PLV-CHOISIR", *world.which(profile)]
    for start, end, plane in profile.stretches():
        manner = existing.Manner(rng)
        points = [existing.place(profile, plane, p) for p in profile.survey if start <= p[0] <= end]
        drawn = rng.choice((existing.light, existing.old))(manner, points).replace(existing.LAYER, LAYER)
        lines += [drawn, "ASSOCPRJKAVEL", "TN", "(list (entlast) '(0.0 0.0))", ""]
    return Step(f"survey of {profile.number}", lines, [drawn_check(world)])
