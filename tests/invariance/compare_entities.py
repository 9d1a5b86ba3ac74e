"""Drawings entity by entity: what an undone command left, and whether the original of a copy is as it was."""

# Handles of what points here: they change when something else is attached, and are no part of what is drawn.
REACTORS = ("{ACAD_REACTORS", "{ACAD_XDICTIONARY")


def groups(entity):
    """The groups that say what an entity is, with those of its vertices and attributes."""
    result, passed = [], False
    for code, value in entity.groups:
        if code == 102:
            passed = value in REACTORS
        elif not passed and code != 330:
            result.append((code, value))
    return result + [g for part in entity.parts for g in groups(part)]


def by_handle(drawing):
    return {e.handle: e for e in drawing.entities}


def compare(report, kind, found, wanted, complete=True):
    """The entities of one drawing are in another; with complete, no others are."""
    found, wanted = by_handle(found), by_handle(wanted)
    for handle, entity in wanted.items():
        own = found.get(handle)
        what = f"{entity.kind} {handle} on {entity.layer}"
        if own is None:
            report.same(kind, what, "gone", "there")
        elif groups(own) != groups(entity):
            changed = [(a, b) for a, b in zip(groups(own), groups(entity)) if a != b]
            report.same(kind, what, changed[:3] or "more groups", "unchanged")
        else:
            report.checks[kind] += 1
    if complete:
        report.same(kind, "entities that should not be there", [f"{found[h].kind} {h}" for h in found if h not in wanted][:5], [])
