#!/usr/bin/python3
"""Images, masks, clipped references, gradients, shapes and the order of drawing: which colour a plot has at which place.

ezdxf writes the drawing, poppler makes pixels of the PDF. One unit of the drawing is a millimetre of the sheet.
"""
import base64
import os
import struct
import subprocess
import sys
import tempfile
import zlib

import ezdxf
from ezdxf.entities import factory
from ezdxf.lldxf.extendedtags import ExtendedTags
from ezdxf.math import Matrix44, Vec3

KAVEL = sys.argv[1]
WHITE, BLACK, RED, GREEN, BLUE = (255, 255, 255), (0, 0, 0), (255, 0, 0), (0, 255, 0), (0, 0, 255)
CENTRE, PAGE, DPI = (100, 50), (297, 210), 254  # ten pixels a millimetre

# Eight by eight points of red.
JPEG = base64.b64decode(
    "/9j/4AAQSkZJRgABAQAAAQABAAD/2wBDABsSFBcUERsXFhceHBsgKEIrKCUlKFE6PTBCYFVlZF9VXVtqeJmBanGQc1tdhbWGkJ6jq62rZ4C8ybqmx5moq6T/"
    "2wBDARweHigjKE4rK06kbl1upKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKT/wAARCAAIAAgDASIAAhEBAxEB/8QA"
    "FQABAQAAAAAAAAAAAAAAAAAAAAT/xAAUEAEAAAAAAAAAAAAAAAAAAAAA/8QAFQEBAQAAAAAAAAAAAAAAAAAABAb/xAAUEQEAAAAAAAAAAAAAAAAAAAAA/9oA"
    "DAMBAAIRAxEAPwCAANSP/9k=")


def png(width, height, colour):
    rows = b"".join(b"\0" + b"".join(bytes(colour(x, y)) for x in range(width)) for y in range(height))
    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


def quarters(x, y):
    """Red and green above, blue and black below."""
    return ((RED, GREEN), (BLUE, BLACK))[y >= 10][x >= 10]


def add_image(doc, name, insert, rotation=0):
    definition = doc.add_image_def(filename=name, size_in_pixel=(20, 20))
    return doc.modelspace().add_image(definition, insert=insert, size_in_units=(20, 20), rotation=rotation)


def square(hatch, x, y, size=20):
    hatch.paths.add_polyline_path([(x, y), (x + size, y), (x + size, y + size), (x, y + size)])
    return hatch


def clip(doc, insert, corners):
    """A boundary drawn in the world, in a plane of its own that lies aside."""
    inverse = insert.matrix44()
    inverse.inverse()
    plane = Matrix44.z_rotate(0.3) @ Matrix44.translate(-5, -7, 0)
    def rows(m):
        v = list(m)
        return [v[4 * column + row] for row in range(3) for column in range(4)]
    points = [plane.transform(Vec3(p)) for p in corners]
    tags = [(0, "SPATIAL_FILTER"), (5, doc.entitydb.next_handle()), (330, "0"), (100, "AcDbFilter"), (100, "AcDbSpatialFilter"), (70, len(points))]
    for p in points:
        tags += [(10, p.x), (20, p.y)]
    tags += [(210, 0.0), (220, 0.0), (230, 1.0), (11, 0.0), (21, 0.0), (31, 0.0), (71, 1), (72, 0), (73, 0)]
    tags += [(40, value) for value in rows(inverse) + rows(plane)]
    made = factory.load(ExtendedTags.from_text("".join(f"{code}\n{value}\n" for code, value in tags)), doc)
    doc.objects.add_object(made)
    filters = insert.new_extension_dict().dictionary.add_new_dict("ACAD_FILTER")
    filters["SPATIAL"] = made
    made.dxf.owner = filters.dxf.handle


def drawing(folder):
    doc = ezdxf.new("R2010", setup=True)
    space = doc.modelspace()
    with open(os.path.join(folder, "Photo.png"), "wb") as file:
        file.write(png(20, 20, quarters))
    add_image(doc, "C:\\Projets\\Rue\\PHOTO.PNG", (0, 0))
    add_image(doc, "photo.png", (60, 0), 90)
    with open(os.path.join(folder, "rouge.jpg"), "wb") as file:
        file.write(JPEG)
    add_image(doc, "rouge.jpg", (130, 0))
    add_image(doc, "photo.png", (70, 0)).set_boundary_path([(-0.5, -0.5), (9.5, -0.5), (9.5, 19.5), (-0.5, 19.5)])
    add_image(doc, "absente.png", (100, 0))
    # A mask over red, under a green square that is older but stands above it.
    above = square(space.add_hatch(color=3), 8, 48, 4)
    square(space.add_hatch(color=1), 0, 40)
    space.add_wipeout([(5, 45), (15, 45), (15, 55), (5, 55)])
    space.set_redraw_order([(above.dxf.handle, "FFFFFF")])
    block = doc.blocks.new("CARRE", base_point=(1, 1))
    square(block.add_hatch(color=1), 0, 0, 10)
    clip(doc, space.add_blockref("CARRE", (42, 42), dxfattribs={"xscale": 2, "yscale": 2}), [(30, 30), (50, 30), (50, 70), (30, 70)])
    for x, name in ((80, "LINEAR"), (110, "CYLINDER"), (140, "SPHERICAL")):
        square(space.add_hatch(), x, 40).set_gradient(RED, BLUE, name=name)
    # A cross of two strokes four units long, once by itself and each ten units along a line.
    with open(os.path.join(folder, "Formes.SHX"), "wb") as file:
        cross = b"CROIX\0" + bytes((2, 8, 256 - 2, 0, 1, 8, 4, 0, 2, 8, 256 - 2, 256 - 2, 1, 8, 0, 4, 0))
        file.write(b"AutoCAD-86 shapes V1.0\r\n\x1a" + struct.pack("<HHHHH", 5, 5, 1, 5, len(cross)) + cross)
    doc.linetypes.add("RAIL", pattern="A,5,[5,formes.shx,S=1],5", length=10)
    space.add_line((0, 70), (40, 70), dxfattribs={"linetype": "RAIL", "color": 5})
    space.add_shape("CROIX", (60, 70), size=2, dxfattribs={"rotation": 45, "color": 5})
    space.add_shape("INCONNUE", (60, 70), size=2)
    page = space.add_underlay(doc.add_underlay_def("D:/fonds/plan.pdf", "pdf"), insert=(170, 10), scale=(2, 2, 1), rotation=90)
    page.set_boundary_path([(0, 0), (10, 5)])
    path = os.path.join(folder, "images.dxf")
    doc.saveas(path)
    return path


# Place, colour.
WANTED = [((5, 15), RED), ((15, 15), GREEN), ((5, 5), BLUE), ((15, 5), BLACK),  # upright, by a name of another system
          ((45, 5), RED), ((45, 15), GREEN), ((55, 5), BLUE),                   # a quarter turn
          ((75, 15), RED), ((85, 15), WHITE),  ((140, 10), (254, 0, 0)),                                  # its left half
          ((103, 3), WHITE), ((100, 10), BLACK),                                # a frame in place of a missing one
          ((2, 42), RED), ((6, 46), WHITE), ((10, 50), GREEN),                  # mask and order
          ((45, 50), RED), ((55, 50), WHITE), ((39, 50), WHITE),                # clipped at 50
          ((5, 71.5), BLUE), ((10, 71.5), WHITE), ((25, 68.5), BLUE),          # shapes along a line, one by itself
          ((62.12, 72.12), BLUE), ((57.88, 72.12), BLUE), ((62, 70), WHITE),
          ((170, 25), BLACK), ((160, 25), BLACK), ((170, 31), WHITE), ((175, 20), WHITE),                     # a page's frame
          ((81, 50), (242, 0, 13)), ((99, 50), (13, 0, 242)), ((90, 50), (128, 0, 128)),
          ((111, 50), (230, 0, 26)), ((120, 50), BLUE), ((142, 50), (127, 0, 127)), ((158, 58), (127, 0, 127))]


def pixels(pdf):
    data = subprocess.run(["pdftoppm", "-r", str(DPI), "-singlefile", pdf], check=True, capture_output=True).stdout
    _, size, _, body = data.split(b"\n", 3)
    width, height = map(int, size.split())
    def at(x, y):
        column = round((PAGE[0] / 2 + x - CENTRE[0]) * width / PAGE[0])
        row = round((PAGE[1] / 2 - y + CENTRE[1]) * height / PAGE[1])
        return tuple(body[3 * (row * width + column):][:3])
    return at


def near(a, b):
    return all(abs(x - y) <= 6 for x, y in zip(a, b))


def main():
    with tempfile.TemporaryDirectory() as folder:
        source, pdf = drawing(folder), os.path.join(folder, "images.pdf")
        window = f"{CENTRE[0] - 120},{CENTRE[1] - 80},{CENTRE[0] + 120},{CENTRE[1] + 80}"
        told = subprocess.run([KAVEL, source, "--no-frontal", "--quiet", "--paper", "A4", "--scale", "1:1000", "--window", window, "--plot", pdf],
                              check=True, capture_output=True, text=True)
        found = [f"not told: {what} in {told.stderr}" for what in ("absente.png : introuvable", "1 PDFUNDERLAY (cadre de plan.pdf)", "1 SHAPE (forme inconnue)")
                 if what not in told.stderr]
        kept = subprocess.run(["pdfimages", "-list", pdf], check=True, capture_output=True, text=True).stdout
        if " jpeg " not in kept:
            found.append(f"the photograph was encoded anew: {kept}")
        at = pixels(pdf)
        # Thin lines are looked for around their place.
        found += [f"{place}: {at(*place)}, not {colour}" for place, colour in WANTED
                  if not any(near(at(place[0] + dx / 10, place[1]), colour) for dx in ((-1, 0, 1) if colour in (BLACK, BLUE) else (0,)))]
        # What is hidden by the boundary has no extents and isn't picked.
        ask = '(list (null (ssget "C" \'(52. 45.) \'(55. 55.))) (sslength (ssget "C" \'(39. 45.) \'(41. 55.))))'
        picked = subprocess.run([KAVEL, source, "--no-frontal", "--quiet", "-e", ask], check=True, capture_output=True, text=True).stdout
        if picked.strip() != "(T 1)":
            found.append(f"picked: {picked}")
    print("\n".join(found))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
