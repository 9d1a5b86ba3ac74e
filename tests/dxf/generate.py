#!/usr/bin/env python3
"""Writes drawings in every version and form for the reader's and writer's tests.

Usage: generate.py FOLDER. The library that writes them is independent of ours; some forms that it
doesn't write itself are made by editing the bytes of others.
"""
import io
import pathlib
import re
import sys

import ezdxf
from ezdxf.entities import factory
from ezdxf.math import Vec2
from ezdxf.lldxf.tagwriter import BinaryTagWriter

VERSIONS = ["R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018"]
TEXTS = ["Été à Nîmes %%c25", "10 % ^I pente", "\\U+00E9t\\u+00e9 \\M+18140", "\\P{\\H2x;ligne}"]

ADDITIONS = [
    lambda m: m.add_line((0, 0), (10, 5)), lambda m: m.add_circle((1, 2), 3), lambda m: m.add_arc((0, 0), 5, 10, 200),
    lambda m: m.add_point((1, 2, 3)), lambda m: m.add_solid([(0, 0), (1, 0), (0, 1), (1, 1)]),
    lambda m: m.add_trace([(0, 0), (1, 0), (0, 1), (1, 1)]), lambda m: m.add_3dface([(0, 0), (1, 0), (1, 1), (0, 1)]),
    lambda m: m.add_polyline2d([(0, 0), (1, 1), (2, 0)]), lambda m: m.add_polyline3d([(0, 0, 1), (1, 1, 2)]),
    lambda m: m.add_polymesh((3, 3)), lambda m: m.add_polyface(), lambda m: m.add_lwpolyline([(0, 0, 0, 0, 1), (5, 0), (5, 5)]),
    lambda m: m.add_ellipse((0, 0), (3, 0), 0.5), lambda m: m.add_spline([(0, 0), (1, 2), (3, 1), (5, 5)]),
    lambda m: m.add_open_spline([(0, 0), (1, 2), (3, 1), (5, 5)]), lambda m: m.add_rational_spline([(0, 0), (1, 2), (3, 1), (5, 5)], [1, 2, 3, 1]),
    lambda m: m.add_ray((0, 0), (1, 0)), lambda m: m.add_xline((0, 0), (1, 0)), lambda m: m.add_mtext("ligne 1\\Pligne 2 " + "long " * 80),
    lambda m: m.add_hatch(2).paths.add_polyline_path([(0, 0), (10, 0), (10, 10)]), lambda m: m.add_mesh(),
    lambda m: m.add_mline([(0, 0), (5, 5)]), lambda m: m.add_mpolygon(), lambda m: m.add_leader([(0, 0), (2, 2)]),
    lambda m: m.add_helix(1, 1, 3), lambda m: m.add_wipeout([(0, 0), (1, 1), (2, 0)]), lambda m: m.add_body(), lambda m: m.add_region(),
    lambda m: m.add_3dsolid(), lambda m: m.add_surface(), lambda m: m.add_extruded_surface(), lambda m: m.add_lofted_surface(),
    lambda m: m.add_revolved_surface(), lambda m: m.add_swept_surface(), lambda m: m.add_shape("TEST", (0, 0)),
    lambda m: m.add_linear_dim((0, 5), (0, 0), (10, 0)).render(), lambda m: m.add_aligned_dim((0, 0), (5, 5), 2).render(),
    lambda m: m.add_radius_dim((0, 0), radius=3, angle=30).render(), lambda m: m.add_diameter_dim((0, 0), radius=3, angle=30).render(),
    lambda m: m.add_angular_dim_3p((0, 5), (0, 0), (1, 0), (0, 1)).render(), lambda m: m.add_ordinate_x_dim((1, 1), (2, 2)).render(),
    lambda m: m.add_multileader_mtext("Standard").build(Vec2(0, 0)), lambda m: m.add_auto_blockref("REGARD", (5, 5), {"NUM": "R1", "COTE": "12.50"}),
    lambda m: m.add_blockref("REGARD", (7, 7)), lambda m: m.add_attdef("SEUL", (1, 1)),
    lambda m: m.add_image(m.doc.add_image_def("plan.png", (10, 10)), (0, 0), (1, 1)),
    lambda m: m.add_underlay(m.doc.add_underlay_def("plan.pdf", "pdf", "1")),
]


def quietly(action):
    """The result of the action; nothing for an entity that the version doesn't have."""
    try:
        return action()
    except Exception:
        return None


def drawing(version):
    doc = ezdxf.new(version, setup=True)
    for application in ("PLV2_DATA", "AUTRE"):
        doc.appids.add(application)
    block = doc.blocks.new("REGARD", base_point=(1, 1))
    block.add_circle((0, 0), 1)
    block.add_attdef("NUM", (0, 2))
    block.add_attdef("COTE", (0, 3))
    doc.blocks.new("VIDE")
    space = doc.modelspace()
    for add in ADDITIONS:
        quietly(lambda: add(space))
    for text in TEXTS:
        space.add_text(text)
    every_class(doc, space)
    line = space.add_line((0, 0), (1, 1), dxfattribs={"layer": "AXE É", "color": 3})
    line.set_xdata("PLV2_DATA", [(1000, "clé"), (1002, "{"), (1070, 5), (1071, -99999999), (1040, 12.5), (1010, (1, 2, 3)),
                                 (1005, line.dxf.handle), (1002, "}")])
    line.set_xdata("AUTRE", [(1000, "x")])
    if version != "R12":
        objects(doc, space, line)
    return drop_unwritable(doc)


def every_class(doc, space):
    for name in sorted(factory.ENTITY_CLASSES):
        if name in ("CLASS", "TABLE", "BLOCK", "ENDBLK", "SEQEND", "BLOCK_RECORD", "LAYOUT", "VERTEX", "ATTRIB"):
            continue
        entity = quietly(lambda: factory.create_db_entry(name, {}, doc))
        if entity is None:
            continue
        graphic = hasattr(entity, "graphic_properties")
        quietly(lambda: space.add_entity(entity) if graphic else doc.objects.add_object(entity))


def objects(doc, space, line):
    extension = line.new_extension_dict().dictionary
    record = extension.add_xrecord("ESSAI")
    record.reset([(90, 5), (300, "texte"), (330, line.dxf.handle), (40, 2.5), (10, (1, 2, 3)), (310, b"\x01\x02\xfe")])
    group = doc.groups.new("GROUPE")
    group.extend(list(space)[:3])
    doc.rootdict.add_new_dict("PLV2").add_dict_var("VERSION", "3")
    paper = doc.layouts.new("Plan 2")
    paper.add_line((0, 0), (5, 5))
    doc.layout("Layout1").add_text("cartouche")


def drop_unwritable(doc):
    """Takes out what the library can make but not write in this version."""
    for space in list(doc.layouts_and_blocks()) + [doc.objects]:
        for entity in list(space):
            writer = BinaryTagWriter(io.BytesIO(), dxfversion=doc.dxfversion)
            if quietly(lambda: entity.export_dxf(writer) or True) is None:
                space.delete_entity(entity) if space is doc.objects else space.unlink_entity(entity)
    return doc


def ascii_bytes(doc):
    stream = io.StringIO(newline="\n")
    doc.write(stream)
    return stream.getvalue().encode(doc.output_encoding, errors="dxfreplace")


def binary_bytes(doc):
    stream = io.BytesIO()
    doc.write(stream, fmt="bin")
    return stream.getvalue()


def sections(text):
    return dict(re.findall(rb"(?s)(?<=  2\n)(\w+)\n(.*?  0\nENDSEC\n)", text))


def only(text, names):
    parts = sections(text)
    body = b"".join(b"  0\nSECTION\n  2\n" + n.encode() + b"\n" + parts[n.encode()] for n in names if n.encode() in parts)
    return body + b"  0\nEOF\n"


def groups(text):
    lines = text.split(b"\n")[:-1]
    return list(zip(lines[0::2], lines[1::2]))


def joined(pairs):
    return b"".join(code + b"\n" + value + b"\n" for code, value in pairs)


def commented(text):
    """Comments before the first section, between records and inside them."""
    pairs = [(b"999", b"avant tout")]
    for number, pair in enumerate(groups(text)):
        if number % 7 == 0 and number > 0:
            pairs.append((b"999", b"remarque %d" % number))
        pairs.append(pair)
    return joined(pairs + [(b"999", b"apres tout")])


def without_handles(text):
    pairs, kind = [], b""
    for code, value in groups(only(text, ["HEADER", "TABLES", "BLOCKS", "ENTITIES"])):
        if code.strip() == b"0":
            kind = value
        handle = code.strip() == (b"105" if kind == b"DIMSTYLE" else b"5")
        if handle and kind != b"SECTION":
            continue
        pairs.append((code, value))
    text = joined(pairs)
    return re.sub(rb"(\$HANDLING\n *70\n) *1\n", rb"\1     0\n", re.sub(rb"  9\n\$HANDSEED\n", b"", text))


def variants(doc, text):
    yield "crlf", text.replace(b"\n", b"\r\n")
    yield "comments", commented(text)
    yield "r13", text.replace(b"AC1015", b"AC1012")
    yield "r14", text.replace(b"AC1015", b"AC1014")
    yield "no_objects", only(text, ["HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES"])
    yield "no_tables", only(text, ["HEADER", "CLASSES", "BLOCKS", "ENTITIES", "OBJECTS"])
    yield "entities_only", only(text, ["ENTITIES"])
    yield "no_last_line_end", text[:-1]
    handles = re.findall(rb"\nLINE\n  5\n(\w+)\n", text)
    yield "duplicate_handles", text.replace(b"\nLINE\n  5\n" + handles[1] + b"\n", b"\nLINE\n  5\n" + handles[0] + b"\n")
    head = re.search(rb"  0\nTABLE\n  2\nLAYER\n.*?(?=  0\n)", text, re.S).group()
    yield "head_xdata", text.replace(head, head + b"1001\nPLV2_DATA\n1000\nsur la table\n")
    yield "undefined_page", text.replace(b"ANSI_1252", b"UNDEFINED")
    for page, sample in (("1251", "Труба"), ("932", "配管図"), ("850", "é")):
        name = b"DOS850" if page == "850" else b"ANSI_" + page.encode()
        changed = text.replace(b"ANSI_1252", name).replace("Été".encode("cp1252"), sample.encode("cp" + page))
        yield "page_" + page, changed


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for version in VERSIONS:
        doc = drawing(version)
        text = ascii_bytes(doc)
        (folder / f"{version}.dxf").write_bytes(text)
        binary = binary_bytes(doc)
        (folder / f"{version}_binary.dxf").write_bytes(binary)
        if version == "R2000":
            (folder / "binary_line_feed.dxf").write_bytes(binary.replace(b"cartouche", b"cart\nuche"))
            for name, data in variants(doc, text):
                (folder / f"{name}.dxf").write_bytes(data)
        if version == "R12":
            (folder / "R12_crlf.dxf").write_bytes(text.replace(b"\n", b"\r\n"))
            (folder / "R12_no_handles.dxf").write_bytes(without_handles(text))
            (folder / "R12_entities_only.dxf").write_bytes(only(text, ["ENTITIES"]))


if __name__ == "__main__":
    main()
