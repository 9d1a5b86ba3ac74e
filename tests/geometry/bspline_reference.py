#!/usr/bin/env python3
"""Writes bspline_reference.txt: B-splines and SciPy's values for them. Run it again after adding a curve."""
import os

import numpy as np
from scipy.integrate import quad
from scipy.interpolate import BSpline

rng = np.random.default_rng(20)


def clamped(degree, inner):
    return np.array([0.0] * (degree + 1) + list(inner) + [float(len(inner) + 1)] * (degree + 1))


def curves():
    yield 2, clamped(2, [1, 2, 3]), rng.uniform(-50, 50, (6, 3)), None
    yield 3, clamped(3, []), rng.uniform(0, 10, (4, 3)), None
    yield 3, clamped(3, [0.3, 1.7, 2.2]), rng.uniform(0, 1000, (7, 3)), rng.uniform(0.5, 3, 7)
    yield 5, clamped(5, [1, 2, 2, 3]), rng.uniform(-1, 1, (10, 3)), None
    yield 3, np.arange(10.0), rng.uniform(0, 100, (6, 3)), None  # not clamped
    flat = rng.uniform(0, 20, (8, 3))
    flat[:, 2] = 7.0
    flat[-1] = flat[0]
    yield 3, clamped(3, [1, 2, 3, 4]), flat, rng.uniform(0.5, 2, 8)  # closed, in a plane
    road = np.column_stack([np.linspace(652000, 652400, 12), 6860000 + rng.uniform(0, 40, 12), np.zeros(12)])
    yield 3, clamped(3, range(1, 9)), road, None  # coordinates of a survey


class Rational:
    def __init__(self, degree, knots, points, weights):
        w = np.ones(len(points)) if weights is None else weights
        self.top = BSpline(knots, points * w[:, None], degree)
        self.bottom = BSpline(knots, w, degree)
        self.dtop, self.dbottom = self.top.derivative(), self.bottom.derivative()

    def at(self, t):
        return self.top(t) / self.bottom(t)

    def slope(self, t):
        return (self.dtop(t) - self.at(t) * self.dbottom(t)) / self.bottom(t)


def numbers(values):
    return " ".join(repr(float(v)) for v in np.ravel(values))


def integrate(f, a, b, breaks):
    cuts = [a] + [k for k in breaks if a < k < b] + [b]
    return sum(quad(f, p, q, epsabs=0, epsrel=1e-13, limit=200)[0] for p, q in zip(cuts, cuts[1:]))


def write(out):
    for degree, knots, points, weights in curves():
        c = Rational(degree, knots, points, weights)
        first, last = knots[degree], knots[len(points)]
        breaks = sorted(set(knots))
        print("curve", degree, len(points), 0 if weights is None else 1, file=out)
        print(numbers(knots), numbers(points), "" if weights is None else numbers(weights), file=out)
        for f in (0.0, 0.11, 0.37, 0.5, 0.83, 1.0):
            t = first + (last - first) * f
            length = integrate(lambda s: np.linalg.norm(c.slope(s)), first, t, breaks)
            print("at", numbers([t]), numbers(c.at(t)), numbers(c.slope(t)), numbers([length]), file=out)
        if np.ptp(points[:, 2]) == 0 and np.allclose(c.at(first), c.at(last)):
            turn = lambda s: 0.5 * np.cross(c.at(s)[:2] - points[0, :2], c.slope(s)[:2])
            print("area", numbers([abs(integrate(turn, first, last, breaks))]), file=out)


with open(os.path.join(os.path.dirname(os.path.abspath(__file__)), "bspline_reference.txt"), "w") as file:
    write(file)
