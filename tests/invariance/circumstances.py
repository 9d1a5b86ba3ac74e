"""What must not change a result: where a profile stands, how its drawing is kept, under which names and language."""
import random
from typing import NamedTuple

PLACES = (("0", "0"), ("652000.37", "6861234.5"), ("1852340.5", "3166420.25"))
FOLDERS = ("travail", "Étude été", "réseau d'eaux usées")
FILES = ("dessin", "profil n° 3", "Rue de l'Église")
LOCALES = ("C", "fr_FR.UTF-8", "de_DE.UTF-8")


class Circumstances(NamedTuple):
    place: tuple        # insertion of the profile, as it is typed
    release: str        # version that the drawing is kept in
    binary: bool
    reopened: bool      # saved, closed and opened again between the commands
    visited: bool       # another drawing is opened between the commands, and this one again
    folder: str
    file: str
    locale: str
    foreign: bool       # block, attribute and layers of the profile bear another program's names
    undone: bool        # every command is undone and done again
    copied: bool        # a copy of the profile is worked on, the original must stay

    def __str__(self):
        words = ["at " + ",".join(self.place), self.release, "LC_ALL=" + self.locale, f"{self.folder}/{self.file}.dxf"]
        words += [name for name in ("binary", "reopened", "visited", "foreign", "undone", "copied") if getattr(self, name)]
        return "; ".join(words)


def draw(rng: random.Random):
    release = rng.choice(("R12", "R2000", "R2000", "R2018", "R2018", "R2018"))
    reopened = release != "R12" and rng.random() < 0.5  # R12 has no records: a project line, tables and names don't come back
    return Circumstances(
        place=rng.choice(PLACES),
        release=release,
        binary=False,
        reopened=reopened,
        visited=release != "R12" and not reopened and rng.random() < 0.2,
        folder=rng.choice(FOLDERS),
        file=rng.choice(FILES),
        locale=rng.choice(LOCALES),
        foreign=release != "R12" and rng.random() < 0.2,
        undone=release != "R12" and rng.random() < 0.25,
        copied=release != "R12" and rng.random() < 0.25)
