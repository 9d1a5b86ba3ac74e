# Windows of a layout on the model, saved as R12 and back: an independent library must find the same views.
# Its reader forgets the views of R12, its writer doesn't: R12 is compared with what that would write.
# Usage: viewports.py KAVEL
import os
import subprocess
import sys
import tempfile

import ezdxf

KAVEL = sys.argv[1]
VALUES = ["center", "width", "height", "status", "id", "view_target_point", "view_direction_vector",
          "view_twist_angle", "view_height", "view_center_point", "perspective_lens_length",
          "front_clip_plane_z_value", "back_clip_plane_z_value", "circle_zoom", "snap_angle", "snap_base_point",
          "snap_spacing", "grid_spacing"]
FLAGS = 128 | 256 | 512 | 1024 | 2048  # those that both keep


def saved_as(source, release, target):
    run = subprocess.run([KAVEL, source, "--no-frontal", "-e", f'(command "_SAVEAS" "{release}" "{target}")'],
                         capture_output=True, text=True, timeout=60)
    assert run.returncode == 0, run.stderr
    doc = ezdxf.readfile(target)
    errors = doc.audit().errors
    assert not errors, [e.message for e in errors]
    return doc, run.stdout + run.stderr


def windows(doc):
    """Views by their centres, since writers differ in the id of the paper's own window."""
    space = doc.layout("Layout1") if "Layout1" in doc.layout_names() else doc.active_layout()
    return {tuple(round(c, 6) for c in v.dxf.center): v for v in space.query("VIEWPORT") if v.dxf.id != 1}


def same(before, after):
    assert before.keys() == after.keys(), (before.keys(), after.keys())
    for place, window in before.items():
        other = after[place]
        for name in VALUES:
            a, b = window.dxf.get_default(name), other.dxf.get_default(name)
            close = abs(a - b) < 1e-9 if isinstance(a, (int, float)) else a.isclose(b)
            assert close, (place, name, a, b)
        assert window.dxf.flags & FLAGS == other.dxf.flags & FLAGS, (window.dxf.flags, other.dxf.flags)
        assert sorted(window.frozen_layers) == sorted(other.frozen_layers), other.frozen_layers


def extended(path):
    """The extended data of every window of a file, by its id."""
    found = {}
    with open(path, encoding="cp1252") as stream:
        lines = [line.strip() for line in stream]
    tags = list(zip((int(code) for code in lines[0::2]), lines[1::2]))
    starts = [i for i, tag in enumerate(tags) if tag == (0, "VIEWPORT")]
    for start in starts:
        end = next(i for i in range(start + 1, len(tags)) if tags[i][0] == 0)
        record = tags[start:end]
        window = next(value for code, value in record if code == 69)
        found[int(window)] = [tag for tag in record if tag[0] >= 1000]
    return found


def flattened(tags):
    """Points as three values, as a file has them."""
    for tag in tags:
        if tag.code == 1010:
            yield from zip((1010, 1020, 1030), tag.value)
        else:
            yield tag.code, tag.value


folder = tempfile.TemporaryDirectory()
modern, old, again = (os.path.join(folder.name, name) for name in ("modern.dxf", "r12.dxf", "again.dxf"))
doc = ezdxf.new("R2010", setup=True)
for layer in ("ALTITUDES", "RESEAUX"):
    doc.layers.add(layer)
doc.modelspace().add_line((652000, 6862000), (652100, 6862050))
paper = doc.layout("Layout1")
paper.page_setup(size=(420, 297), margins=(10, 10, 10, 10), units="mm")
first = paper.add_viewport(center=(150, 100), size=(200, 120), view_center_point=(652050, 6862025), view_height=80)
first.dxf.view_twist_angle = 30
first.dxf.flags = 128 | 512 | 16384
first.dxf.snap_angle = 12.5
first.freeze("ALTITUDES")
first.freeze("RESEAUX")
second = paper.add_viewport(center=(350, 200), size=(60, 60), view_center_point=(0, 0), view_height=10)
second.dxf.view_direction_vector = (1, -1, 1)
second.dxf.view_target_point = (5, 6, 7)
doc.saveas(modern)

before = windows(ezdxf.readfile(modern))
assert len(before) == 2
r12, told = saved_as(modern, "R12", old)
assert r12.dxfversion == "AC1009" and "VIEWPORT" not in told, told
written = extended(old)
for window in before.values():
    ours, theirs = written[window.dxf.id], list(flattened(window.dxftags()))
    assert len(ours) == len(theirs), (ours, theirs)
    for (code, text), (expected, value) in zip(ours, theirs):
        same_value = text == value if isinstance(value, str) else abs(float(text) - value) < 1e-9
        assert code == expected and same_value, (code, text, expected, value)
back, told = saved_as(old, "R2018", again)
assert "VIEWPORT" not in told, told
same(before, windows(back))
