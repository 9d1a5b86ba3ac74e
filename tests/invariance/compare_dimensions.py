"""Dimensions of a project line: what each says, and that none is missing but for want of room."""
from fractions import Fraction as F

LAYER = "PLV-COTES"
AT = F(1, 10**5)


def compare(report, drawing, profile, kinds, which):
    """which: "Toutes", "Altitudes" or "Hauteurs". kinds: those that bear dimensions."""
    texts = [(F(t.place[0]) - profile.x0, t.get(1)) for t in drawing.of("TEXT", LAYER) if abs(F(t.place[1]) - profile.y0) < 2500]
    texts = [t for t in texts if -AT <= t[0] <= profile.length + AT]
    samples, ground = {}, dict(reversed(profile.points))  # at a wall the point on the left counts
    for kind in kinds:
        for line in profile.lines[kind]:
            for d in {p[0] for p in profile.points}:
                if line.start <= d <= line.end:
                    z = line.altitude(d)
                    samples.setdefault(d, []).append((z, z - ground[d], line.chord))
    heights = [t for t in texts if is_height(t, samples)]
    altitudes = [t for t in texts if t not in heights]
    if which != "Hauteurs":
        compare_texts(report, profile, "altitude", altitudes, {d: [(z, c) for z, _, c in s] for d, s in samples.items()}, False)
    if which != "Altitudes":
        compare_texts(report, profile, "height", heights, {d: [(h, c) for _, h, c in s] for d, s in samples.items()}, True)


def is_height(text, samples):
    """Heights have a sign; so have altitudes below zero, which are told by their value."""
    x, said = text
    if said[:1] != "-" or not samples:
        return said[:1] == "+"
    near = samples[min(samples, key=lambda d: abs(d - x))]
    return min(abs(h - F(said)) for _, h, _ in near) <= min(abs(z - F(said)) for z, _, _ in near)


def compare_texts(report, profile, name, texts, samples, signed):
    what = f"profile {profile.number}, {name}"
    for x, text in texts:
        d = min(samples, key=lambda s: abs(s - x))
        if not report.same("dimensions", f"{what} {text} at {float(x):.3f}, on a ground point", abs(d - x) <= AT, True):
            continue
        value, chord = min(samples[d], key=lambda s: abs(s[0] - F(text)))
        report.printed("dimensions", f"{what} at {float(x):.3f}", text, value, 2, F(1, 10**7) + chord, signed)
    axes = [start for start, _ in profile.planes[1:]]
    for d in samples:
        near = any(abs(x - d) < F(6, 5) * profile.text + AT for x, _ in texts)
        report.same("dimensions", f"{what} at {float(d):.3f}, there or without room", near or (signed and any(abs(a - d) < profile.text for a in axes)), True)
