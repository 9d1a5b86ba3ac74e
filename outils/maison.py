"""The plan of the house: every room of C++ with the rooms that it may include. The one place where arrows are declared.

outils/verifier-fleches.py holds the code against it, outils/dessiner-maison draws it. A room is a folder; names are relative
to its house; a folder that is no room itself stands for all rooms in it. Rooms stand from the ground up.
"""

# The street: what a host offers. Every house may include it, and it includes nothing.
STREET = "hote"

HOUSES = {
    "atelier": {
        "base": "",
        "geometry": "",
        "fonts": "",
        "database/records": "base",
        "database/objects": "base database/records",
        "database/curves": "database/objects geometry",
        "database/tables": "base database/objects database/curves",
        "database/solids": "base geometry database/objects",
        "database/entities": "base geometry database/records database/objects database/curves fonts",
        "database/dimensions": "base fonts database/records database/objects database/curves database/entities",
        "database/pictures": "base fonts database/records database/objects database/curves database/solids database/entities database/dimensions",
        "database/lists": "base database/records database/objects database/curves database/tables database/entities",
        "dxf/groups": "base database",
        "dxf/reading": "base dxf/groups",
        "dxf/writing": "base database dxf/groups",
        "dxf/versions": "base database dxf/groups dxf/reading dxf/writing",
        "dxf/audit": "base database dxf/writing",
        "lisp/text": "base",
        "lisp/values": "",
        "lisp/evaluator": "base lisp/text lisp/values",
        "lisp/functions": "base geometry lisp/text lisp/values lisp/evaluator",
        "document/files": "base lisp",
        "document": "base database dxf lisp document/files",
        "selecting": "base geometry database lisp document",
        "shaping": "base geometry database document",
        "variables": "database document",
        "dialogs": "base document",
        "plugin": "base geometry database lisp document selecting",
        "commands": "base database lisp document selecting variables",
        "commands/drawing": "database lisp document selecting shaping commands",
        "commands/modifying": "base database document selecting shaping variables commands",
        "commands/records": "base database lisp document variables commands",
        "commands/files": "base database dxf document document/files variables commands",
        "commands/views": "base database lisp document plugin commands",
        "functions": "base database lisp document selecting dialogs variables commands",
        "application": "document selecting variables plugin commands functions",
        "exchange": "base dxf lisp document",
        "render/shapes": "base fonts",
        "render/painters": "render/shapes",
        "render/scene": "base geometry fonts database document render/shapes",
        "render/sheets": "base database dxf lisp document render/shapes render/painters render/scene",
        "console": "base dxf document document/files commands/files plugin application exchange render",
        "desktop/picture": "database document render",
        "desktop/document": "base lisp document application desktop/picture",
        "desktop/view": "base document selecting render desktop/picture desktop/document",
        "desktop/forms": "base database/objects dialogs render desktop/document",
        "desktop/files": "dxf desktop/document desktop/forms",
        "desktop/panels": "base application database render/scene desktop/document",
        "desktop/window": "base database/objects selecting dxf commands commands/files plugin exchange render desktop/document desktop/forms desktop/files desktop/view desktop/panels",
    },
    "module": {
        "commande/arguments": "",
        "support/base": "",
        "support/courbes": "",
        "support/dessin": "commande/arguments support/base",
        "support/reglages": "support/base support/dessin",
        "support/serie": "support/base",
        "profil": "commande/arguments support/base support/dessin",
        "matrices": "commande/arguments support/base support/dessin profil",
        "support/menus": "commande/arguments support/base profil matrices",
        "elements": "commande/arguments support/base support/courbes support/dessin profil",
        "optimiseur": "support/dessin profil",
        "metres": "support/base support/courbes support/dessin support/reglages profil elements",
        "commande/porte": "support/dessin support/menus support/reglages profil matrices elements optimiseur metres",
    },
    "etudes": {
        "base": "",
        "optimal": "base",
        "cout": "base optimal",
        "surfaces": "",
        "fichiers": "surfaces",
        "reponses": "surfaces",
        "terrain": "surfaces fichiers reponses",
        "suivi": "",
        "habillage": "",
        "reseaux": "base surfaces fichiers reponses",
        "tranchees": "reseaux surfaces fichiers",
        "porte": "base optimal cout terrain suivi habillage reseaux tranchees",
    },
    "programs": {"": ""},
}

# Houses, or rooms of theirs, that a house may include beside the street.
NEIGHBOURS = {
    "etudes": ("module/commande/arguments", "module/support/base", "module/support/courbes", "module/support/dessin", "module/profil"),
    "programs": ("atelier", "module", "etudes"),
}

MOST_FILES = 32  # of a folder


def room_of(path):
    """(house, room) of a file of C++."""
    house, _, rest = path.partition("/")
    return house, rest.rpartition("/")[0]


def allowed(house, room):
    """Names of rooms, or of folders of rooms, that a room of the house may include beside itself."""
    return HOUSES[house].get(room, "").split()


def covers(house, name, room):
    """Whether a name in the plan of the house means that room."""
    return room == name or (name not in HOUSES[house] and room.startswith(name + "/"))


def rooms_meant(house, name):
    """The rooms that a name in the plan of the house means."""
    return [room for room in HOUSES[house] if covers(house, name, room)]


def circle(edges):
    """One circle of a graph given as {node: nodes}, or nothing."""
    state, trail = {}, []

    def visit(node):
        state[node] = 1
        trail.append(node)
        for other in edges.get(node, ()):
            if state.get(other) == 1:
                return trail[trail.index(other):] + [other]
            if other not in state:
                found = visit(other)
                if found:
                    return found
        state[node] = 2
        trail.pop()
        return None

    for node in list(edges):
        if node not in state:
            found = visit(node)
            if found:
                return found
    return None


def may_visit(house, other):
    """Whether a room of the house may include that room (house, room) of another house."""
    return any(neighbour in (other[0], "/".join(other)) for neighbour in NEIGHBOURS.get(house, ()))


def arrows_between_houses():
    """Who leads out of a house, as pairs of names: rooms without arrows of their own stand on the street or on the neighbours."""
    arrows = []
    for house, rooms in HOUSES.items():
        ground = [room for room in rooms if not allowed(house, room)]
        goals = [STREET] if house not in NEIGHBOURS else [
            f"{other}/{room}" for other in HOUSES for room in HOUSES[other] if may_visit(house, (other, room))]
        # Of rooms that lead to one another the highest will do.
        below = {f"{other}/{low}" for other in HOUSES for room in HOUSES[other]
                 if f"{other}/{room}" in goals for entry in allowed(other, room) for low in rooms_meant(other, entry)}
        arrows += [(f"{house}/{room}", goal) for room in ground for goal in goals if goal not in below]
    return arrows
