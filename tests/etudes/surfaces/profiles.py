"""Playing cuts in the program, and what of an axis and a profile is worked out here."""
import math
import os
import subprocess

PRINT = """
(defun dire (p) (foreach m (cdr p) (princ "M\\n") (foreach q m (princ (strcat (rtos (car q) 2 9) " " (rtos (cadr q) 2 9) "\\n")))))
(defun essayer (axe sources options / r)
  (setq r (et_terrain (list axe) sources options))
  (cond ((not (listp r)) (princ (strcat "E " r "\\n"))) ((listp (caar r)) (dire (caar r))) (T (princ "VIDE\\n"))) (princ "FIN\\n"))
"""


def number(value):
    return repr(float(value))


def lisp_axis(axis):
    return "'(" + " ".join("(" + " ".join(number(v) for v in (x, y, 0, bulge)) + ")" for x, y, bulge in axis) + ")"


def play(kavel, folder, lines):
    """The answers of one run of the program: lists of pieces, each a list of (station, z)."""
    path = os.path.join(folder, "run.lsp")
    with open(path, "w", encoding="utf-8") as file:
        file.write(PRINT + "\n".join(lines) + "\n(princ)\n")
    run = subprocess.run([kavel, "--no-frontal", "--quiet", "-l", path], capture_output=True, text=True, check=False)
    if run.returncode:
        raise SystemExit(f"status {run.returncode}: {run.stdout[-500:]}{run.stderr[-500:]}")
    answers, pieces = [], []
    for line in run.stdout.splitlines():
        if line == "FIN":
            answers.append(pieces)
            pieces = []
        elif line == "M":
            pieces.append([])
        elif line.startswith("E "):
            raise AssertionError(line)
        elif line and line != "VIDE":
            pieces[-1].append(tuple(float(v) for v in line.split()))
    return answers


def place(axis, station):
    """The point of an axis at a station, from its centre and angles."""
    for number, ((x0, y0, bulge), (x1, y1, _)) in enumerate(zip(axis, axis[1:]), 2):
        chord = math.hypot(x1 - x0, y1 - y0)
        opening = 4 * math.atan(bulge)
        length = chord if bulge == 0 else chord / (2 * math.sin(abs(opening) / 2)) * abs(opening)
        if station <= length or number == len(axis):
            part = min(1.0, station / length)
            if bulge == 0:
                return x0 + part * (x1 - x0), y0 + part * (y1 - y0)
            apothem = chord / (2 * math.tan(opening / 2))
            cx, cy = (x0 + x1) / 2 - apothem * (y1 - y0) / chord, (y0 + y1) / 2 + apothem * (x1 - x0) / chord
            turn = part * opening
            dx, dy = x0 - cx, y0 - cy
            return cx + dx * math.cos(turn) - dy * math.sin(turn), cy + dx * math.sin(turn) + dy * math.cos(turn)
        station -= length
    raise AssertionError("station beyond the axis")


def length_of(axis):
    total = 0
    for (x0, y0, bulge), (x1, y1, _) in zip(axis, axis[1:]):
        chord, opening = math.hypot(x1 - x0, y1 - y0), 4 * math.atan(bulge)
        total += chord if bulge == 0 else chord / (2 * math.sin(abs(opening) / 2)) * abs(opening)
    return total


def at(pieces, station):
    """The altitude of a profile, None in a gap."""
    for piece in pieces:
        if piece[0][0] <= station <= piece[-1][0]:
            for (s0, z0), (s1, z1) in zip(piece, piece[1:]):
                if s0 <= station <= s1 and s1 > s0:
                    return z0 + (z1 - z0) * (station - s0) / (s1 - s0)
    return None


def draw_axis(rng, size, ox, oy, arcs):
    axis = []
    for _ in range(rng.randint(2, 5)):
        bulge = rng.choice((0, 0, rng.uniform(-0.8, 0.8))) if arcs else 0
        axis.append((ox + rng.uniform(-0.2, 1.2) * size, oy + rng.uniform(-0.2, 1.2) * size, bulge))
    return axis[:-1] + [(*axis[-1][:2], 0)]


def stations(rng, pieces, total):
    found = [s for piece in pieces for s, _ in piece]
    middles = [(a + b) / 2 for piece in pieces for (a, _), (b, _) in zip(piece, piece[1:])]
    return found + middles + [rng.uniform(0, total) for _ in range(30)]


def near_edge(tri, x, y, margin):
    """Whether the outline of the points is too near to tell inside from outside."""
    hull = tri.points[tri.convex_hull]
    for (ax, ay), (bx, by) in hull:
        dx, dy = bx - ax, by - ay
        part = max(0, min(1, ((x - ax) * dx + (y - ay) * dy) / (dx * dx + dy * dy)))
        if math.hypot(x - ax - part * dx, y - ay - part * dy) < margin:
            return True
    return False


def check_thin(whole, thin, tolerance):
    assert [(p[0], p[-1]) for p in thin] == [(p[0], p[-1]) for p in whole], "thinning moved an end"
    for piece, kept in zip(whole, thin):
        assert set(kept) <= set(piece), "thinning made a point"
        for station, z in piece:
            assert abs(at([kept], station) - z) <= tolerance + 2e-9, f"thinned by {tolerance}: at {station} off by {at([kept], station) - z}"
