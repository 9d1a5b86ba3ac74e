"""Reads a DXF drawing in the simplest way that shows what is in it: entities as lists of groups, blocks, nothing else.

It shares no code with the program, and knows of a version only that R12 draws what it lacks in other entities.
"""
import re

BEFORE_UTF8 = (b"AC1009", b"AC1015", b"AC1018")
FOREIGN = {"PLV_PROFIL": "PROFIL EN LONG 7", "NUMPL": "NumPl", "PLV-TN": "TERRAIN", "PLV-PLANS": "REFERENCES", "PLV-PROFIL": "PROFILS",
           "PLV-TITRES": "TITRES", "PLV-AXE": "AXES", "PLV-MATRICE": "TABLEAUX", "PLV-COTES": "COTES", "PLV-HACHURES": "HACHURES", "PLV-LEGENDE": "LEGENDES"}


class Entity:
    """A kind ("TEXT") and its groups in order."""

    def __init__(self, kind):
        self.kind, self.groups, self.parts = kind, [], []

    def all(self, code):
        return [v for c, v in self.groups if c == code]

    def get(self, code, default=None):
        return next((v for c, v in self.groups if c == code), default)

    def number(self, code, default=0.0):
        return float(self.get(code, default))

    @property
    def layer(self):
        return self.get(8, "0").upper()

    @property
    def handle(self):
        return self.get(5)

    def point(self, code=10):
        return self.number(code), self.number(code + 10)

    def points(self, code=10):
        return list(zip(map(float, self.all(code)), map(float, self.all(code + 10))))

    @property
    def place(self):
        """Where a text stands: its alignment point when it has one."""
        aligned = int(self.get(72, 0)) or int(self.get(73, 0))
        return self.point(11) if aligned and self.get(11) is not None else self.point(10)

    def ends(self):
        """The points of a line or polyline of straight pieces."""
        if self.kind == "LINE":
            return [self.point(10), self.point(11)]
        return [v.point() for v in self.parts if v.kind == "VERTEX"] if self.kind == "POLYLINE" else self.points()

    def bulges(self):
        """For each point the bulge of the piece that begins there; 0 for a straight one."""
        if self.kind == "POLYLINE":
            return [v.number(42) for v in self.parts if v.kind == "VERTEX"]
        result = []
        for code, value in self.groups:
            if code == 10:
                result.append(0.0)
            elif code == 42 and result:
                result[-1] = float(value)
        return result or [0.0, 0.0]


def pairs(path):
    with open(path, "rb") as file:
        data = file.read()
    code = "cp1252" if any(v in data[:300] for v in BEFORE_UTF8) else "utf-8"
    text = data.decode(code, errors="surrogateescape").replace("\r\n", "\n")
    text = re.sub(r"\\U\+([0-9A-F]{4})", lambda m: chr(int(m.group(1), 16)), text).split("\n")
    return [(int(text[i]), text[i + 1]) for i in range(0, len(text) - 1, 2)]


class Drawing:
    """Entities of the model space, and those of each block."""

    def __init__(self, path):
        self.entities, self.blocks = [], {}
        self.path = path
        section, block, current, parent = None, None, None, None
        tags = pairs(path)
        self.version = next(tags[i + 1][1] for i, g in enumerate(tags) if g == (9, "$ACADVER"))
        for i, (code, value) in enumerate(tags):
            if code == 0:
                current = None
                if value == "SECTION":
                    section = tags[i + 1][1]
                elif value == "BLOCK":
                    block = Entity(value)
                    current = block
                elif value in ("ENDSEC", "ENDBLK", "EOF"):
                    if value == "ENDBLK":
                        block = None
                elif section in ("ENTITIES", "BLOCKS"):
                    current = Entity(value)
                    if value in ("VERTEX", "ATTRIB", "SEQEND") and parent is not None:
                        parent.parts.append(current)
                    else:
                        parent = current
                        self.place(section, block, current)
            elif current is not None:
                current.groups.append((code, value))
        self.finish()

    def place(self, section, block, entity):
        if section == "ENTITIES":
            self.entities.append(entity)
        else:
            self.blocks.setdefault(block.get(2), []).append(entity)

    def finish(self):
        self.entities = [e for e in self.entities if e.get(67, "0").strip() != "1"]

    @property
    def has_splines(self):
        return self.version != "AC1009"

    def of(self, kind, layer=None):
        """The entities of a kind on a layer, under the name that another program gave it, too; of project lines on those of their kinds."""
        layers = (layer, FOREIGN.get(layer))
        kinds = layer + "-" if layer == "PLV-PROJET" else "\0"
        return [e for e in self.entities if e.kind == kind and (layer is None or e.layer in layers or (e.layer or "").startswith(kinds))]


def rename(path):
    """Gives block, attribute and layers of the profile the names that another program might have chosen."""
    with open(path, "rb") as file:
        lines = file.read().split(b"\n")
    names = {k.encode(): v.encode() for k, v in FOREIGN.items()}
    with open(path, "wb") as file:
        file.write(b"\n".join(names.get(line.rstrip(b"\r"), line) for line in lines))
