"""The profiles of a run's drawing with what commands have left in it."""
import compare_drawn
import sources


class World:
    """The profiles of the drawing, and the choices of a run."""

    def __init__(self, rng, circumstances):
        self.rng, self.circumstances = rng, circumstances
        self.profiles, self.classes = [], sources.classes(rng)
        self.settings = sources.settings(self.classes)  # those that the run begins with
        self.files = 0
        self.tables = {}   # number of a profile: what its tables hold
        self.legends = {}  # (number, kind): what its legend holds
        self.active = self.profiles  # those that commands work on: of a copied profile the copy alone

    def file(self, ending):
        self.files += 1
        return f"{self.rng.choice(('levé', 'fichier d’été', 'donnees'))} {self.files}{ending}"

    def which(self, profile):
        """The answer to the question for the profile, asked when there are several."""
        return [profile.number] if len(self.profiles) > 1 else []


def drawn_check(world):
    """After every step the ground and the project lines stand where they must."""
    profiles = [p.copy() for p in world.profiles]
    return lambda report, result: [compare_drawn.compare(report, result.drawing, p) for p in profiles]
