"""The fewest straight runs with vertices at chosen stations only, by what can be reached: no window, no hull.

For each station the altitudes that k runs reach are a union of intervals; a run from one to another station is a point (altitude there,
altitude here) of a polygon that every door between cuts. What it finds is never less than the least number, and mostly equal.
"""
from fractions import Fraction as F


def refined(doors, pieces):
    """The doors with further ones between, so that vertices may stand there."""
    done = []
    for a, b in zip(doors, doors[1:]):
        done.append(a)
        for k in range(1, pieces):
            t = F(k, pieces)
            limits = tuple(a[2][i] + (b[1][i] - a[2][i]) * t for i in (0, 1))
            done.append([a[0] + (b[0] - a[0]) * t, limits, limits, limits])
    return done + [doors[-1]]


def cut(polygon, value):
    """The part of a polygon where a linear function isn't negative."""
    done = []
    for p, q in zip(polygon, polygon[1:] + polygon[:1]):
        vp, vq = value(p), value(q)
        if vp >= 0:
            done.append(p)
        if (vp > 0 and vq < 0) or (vp < 0 and vq > 0):
            t = vp / (vp - vq)
            done.append((p[0] + (q[0] - p[0]) * t, p[1] + (q[1] - p[1]) * t))
    return done


def reach(doors, i, interval, j, slopes):
    """The altitudes at door j of straight runs from an interval of door i; None when none pass, () when none has a slope of these."""
    (a, b), (low, high) = interval, doors[j][3]
    polygon = [(a, low), (b, low), (b, high), (a, high)]
    for k in range(i + 1, j):
        t = (doors[k][0] - doors[i][0]) / (doors[j][0] - doors[i][0])
        below, above = doors[k][3]
        polygon = cut(polygon, lambda p: p[0] + (p[1] - p[0]) * t - below)
        polygon = polygon and cut(polygon, lambda p: above - p[0] - (p[1] - p[0]) * t)
        if not polygon:
            return None
    if slopes:
        dx = doors[j][0] - doors[i][0]
        polygon = cut(polygon, lambda p: p[1] - p[0] - slopes[0] * dx)
        polygon = polygon and cut(polygon, lambda p: slopes[1] * dx - p[1] + p[0])
    return (min(p[1] for p in polygon), max(p[1] for p in polygon)) if polygon else ()


def joined(intervals):
    done = []
    for a, b in sorted(intervals):
        if done and a <= done[-1][1]:
            done[-1] = (done[-1][0], max(b, done[-1][1]))
        else:
            done.append((a, b))
    return done


def runs(doors, pieces, slopes, most):
    """The number of runs; one more than `most` when there are more."""
    doors = refined(doors, pieces)
    reached, count = {0: [doors[0][3]]}, 0
    while len(doors) - 1 not in reached:
        if count == most:
            return most + 1
        count, further = count + 1, {}
        for i, intervals in reached.items():
            for interval in intervals:
                for j in range(i + 1, len(doors)):
                    found = reach(doors, i, interval, j, slopes)
                    if found is None:
                        break
                    if found:
                        further.setdefault(j, []).append(found)
        reached = {j: joined(intervals) for j, intervals in further.items()}
    return count
