"""Random grounds and bands: each kind is one that a search may trip over."""
from fractions import Fraction as F


def decimal(rng, low, high, digits):
    """A number as a survey has it, as the exact value of the double that stands for it."""
    return F(float(round(rng.uniform(low, high), digits)))


def stations(rng, count, step):
    d, found = F(0), [F(0)]
    for _ in range(count - 1):
        d = F(float(round(float(d) + step(), 3)))
        found.append(d)
    return found


def walk(rng, count, steep):
    """A ground that goes up and down as it likes."""
    z, points = rng.uniform(50, 150), []
    for d in stations(rng, count, lambda: rng.choice([0.5, 2, 2, 5, rng.uniform(0.1, 30)])):
        z += rng.uniform(-steep, steep)
        points.append((d, F(float(round(z, 3)))))
    return points


def plain(rng, count):
    slope = rng.choice([0.0, 0.01, -0.025, 0.003])
    return [(d, F(float(round(100 + slope * float(d), 3)))) for d in stations(rng, count, lambda: rng.choice([1, 2, 7.5]))]


def saw(rng, count):
    return [(d, F(100) + (i % 2) * decimal(rng, 0.2, 1, 2)) for i, d in enumerate(stations(rng, count, lambda: 2))]


def walls(rng, count):
    points = walk(rng, count, 0.4)
    for _ in range(rng.randint(1, max(1, count // 4))):
        k = rng.randrange(1, len(points) - 1)
        points.insert(k, (points[k][0], points[k][1] + decimal(rng, -1, 1, 2) * rng.choice([1, 1, 3])))
    return one_wall_a_place(points)


def one_wall_a_place(points):
    """At most two points at one station."""
    return [p for i, p in enumerate(points) if i < 2 or not points[i - 2][0] == p[0]]


def gaps(rng, count):
    return [(d, decimal(rng, 90, 96, 2)) for d in stations(rng, count, lambda: rng.choice([0.2, 0.5, 150, 400]))]


def far(rng, count):
    """Large coordinates: a long profile, high up."""
    return [(d, F(float(round(30_000 + float(z), 3)))) for d, z in
            zip(stations(rng, count, lambda: rng.uniform(500, 20_000)), (p[1] for p in walk(rng, count, 1)))]


def whole(rng, count):
    """Small whole numbers, so that much lies on one line."""
    return [(F(d), F(rng.randint(0, 3))) for d in range(count)]


KINDS = {"walk": lambda r, n: walk(r, n, 0.3), "steep": lambda r, n: walk(r, n, 3), "plain": plain, "saw": saw, "walls": walls, "gaps": gaps,
         "far": far, "whole": whole}


def recorded(points):
    """As a profile keeps it: each distance from the point before, which are added up again."""
    done, d = [], 0.0
    for i, (x, z) in enumerate(points):
        d += float(x) - float(points[i - 1][0]) if i else float(x)
        done.append((F(d), z))
    return done


def band(rng):
    """(least, most): wide, narrow, of no width; also above the ground."""
    least = decimal(rng, -1, 3, 1)
    return least, F(float(least + rng.choice([F(0), F(1, 1000), F(1, 20), F(1, 2), F(4, 5), F(1), F(2)])))


def place(rng, ground, low, high):
    """A distance as it is typed; beside a ground point the point's own."""
    d = F(float(round(rng.uniform(float(low), float(high)), 2)))
    return next((x for x, _ in ground if abs(x - d) < F(1, 10**6)), min(max(d, low), high))


def stretch(rng, ground, low, high):
    a, b = sorted(place(rng, ground, low, high) for _ in range(2))
    return (a, b) if b - a > F(1, 20) else (low, high)


def ends(rng, ground):
    """Start and end: mostly the whole ground."""
    whole = ground[0][0], ground[-1][0]
    return stretch(rng, ground, *whole) if rng.random() < 0.25 else whole
