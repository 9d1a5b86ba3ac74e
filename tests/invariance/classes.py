"""Depth classes edited in the quantity dialog: what is measured afterwards goes by the new ones."""
from fractions import Fraction as F

from exact import Classes
from play import Step
from sources import decimal, text


def rows(classes):
    """[from, to, width, colour] of each class."""
    return [list(row) for row in zip(classes.limits, classes.limits[1:], classes.widths, classes.colours)]


def inserted(old, new):
    """A class takes its place among the others: what it covers goes, what it overlaps is cut."""
    d, f = new[:2]
    result, placed = [], False
    for c in old:
        if d >= c[1] or c[0] >= f:
            result.append(c)
        elif f >= c[1] and c[0] >= d:
            continue
        elif d >= c[0] and c[1] >= f:
            result += [[c[0], d, *c[2:]], new, [f, *c[1:]]]
            placed = True
        elif d >= c[0]:
            result.append([c[0], d, *c[2:]])
        else:
            result.append([f, *c[1:]])
    return sorted([c for c in result if c[1] > c[0]] + ([] if placed else [new]), key=lambda c: c[0])


def kept(old):
    """Between two dialogs the upper limits of the first six are kept: each begins where the one before it ends."""
    old = old[:6]
    return Classes((F(0), *[c[1] for c in old]), tuple(c[2] for c in old), tuple(c[3] for c in old))


def edit(world):
    """A class added, or one removed."""
    rng, old = world.rng, rows(world.classes)
    if len(old) > 2 and rng.random() < 0.4:
        i = rng.randrange(len(old))
        del old[i]
        answers = [f"ClassesDeProfondeurs={i + 1}", "SupprimerLaClasse"]
    else:
        low = decimal(rng, 0, 5, 2)
        new = [low, low + decimal(rng, 0.1, 2, 2), decimal(rng, 0.3, 3, 2), rng.randint(1, 250)]
        old = inserted(old, new)
        answers = ["AjouterUneClasse", f"De={text(new[0])}", f"A={text(new[1])}", f"LargeurDeLaFouille={text(new[2])}", f"Couleur={new[3]}", "OK"]
    world.classes = kept(old)
    return Step("classes", ["CUBPL", *answers, "Fermer"], draws=False)
